/// The socket file in the device root, also where its path is longer than a socket address can be.
#pragma once

#include "util/fileDescriptor.h"

#include <string_view>

namespace web_client
{
inline constexpr const char *SOCKET_PATH = "/var/run/web_rpc";

/// Listens at a path of the device root, for its owner alone. A file that nobody listens behind is replaced, in one
/// step. @return negative: not possible, or somebody listens there; the reason is logged
util::FileDescriptor listenAt(const char *pcPath);

/// @return negative: nobody listens there
util::FileDescriptor connectTo(const char *pcPath);

/// Head and bytes as one packet; never waits. @return 0, or what went wrong (EAGAIN: no room at present)
int sendPacket(int s32Fd, std::string_view head, std::string_view bytes);
} // namespace web_client
