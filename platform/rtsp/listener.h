/// The ports that clients come to.
#pragma once

#include "base/types.h"
#include "util/fileDescriptor.h"

namespace rtsp
{
struct Listener {
    util::FileDescriptor fd; ///< negative: none
    BU_S32 s32Port = 0;      ///< as it is on this PC
};

/// Listens on the platform's address. A port below 1024 that this user may not take is replaced by one 10000 above.
/// @param s32Port  as the service has it. @return without descriptor when the port cannot be had; the reason is logged
Listener listenOn(BU_S32 s32Port);
} // namespace rtsp
