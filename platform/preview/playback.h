/// Packets of a recording, of which nobody says what they are.
#pragma once

#include "media/stream.h"

#include <span>

namespace preview
{
struct PictureKind {
    BU_S32 s32EncodeType; ///< STREAM_TYPE_H264, STREAM_TYPE_H265; 0: cannot be told from this packet
    bool bKeyFrame;
};
/// Looks for parameter sets and key pictures in an access unit. What is not in Annex B form counts as a key frame of
/// no known type: a viewer may start anywhere.
PictureKind pictureOf(std::span<const BU_U8> packet);

/// A copy to be shared, with the time of now.
STREAM_PACKET_REF recordedPacket(std::span<const BU_U8> packet);
} // namespace preview
