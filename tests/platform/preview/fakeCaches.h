/// Real stream caches without an encoder: the test is their writer. They stand for those of the media library.
#pragma once

#include "media/stream.h"

#include <string>

struct FakeCaches {
    static void reset(); ///< empty, nobody asked for a key frame

    /// A packet with the text as its bytes. @return its time stamp
    static BU_U64 write(BU_S32 s32Id, const std::string &strBytes, bool bKeyFrame);
    static BU_U32 keyRequests(BU_S32 s32Id);
    static bool waitForConsumers(BU_S32 s32Id, bool bAny); ///< false: waited too long
};
