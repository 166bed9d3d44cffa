/// What a recorded packet is, told by its first bytes.
#include "playback.h"

#include "util/time.h"

#include <vector>

namespace
{
struct Recorded {
    std::vector<BU_U8> bytes;
    STREAM_PACKET_S stPacket;
};

/// First bytes of H.265 NAL units that begin a key frame. None is one of an H.264 stream: those carry unused types
/// there.
constexpr bool isH265Key(BU_U8 u8) { return u8 == 0x40 || u8 == 0x42 || u8 == 0x26 || u8 == 0x2A; }
/// The same for H.264: an SPS or an IDR slice. In H.265 odd bytes belong to layers that nobody records.
constexpr bool isH264Key(BU_U8 u8) { return (u8 & 0x9F) == 7 || (u8 & 0x9F) == 5; }

constexpr bool startsAt(std::span<const BU_U8> packet, std::size_t i)
{
    return i + 3 < packet.size() && packet[i] == 0 && packet[i + 1] == 0 && packet[i + 2] == 1;
}
} // namespace

namespace preview
{
PictureKind pictureOf(std::span<const BU_U8> packet)
{
    if (!startsAt(packet, 0) && !(startsAt(packet, 1) && packet[0] == 0)) return {0, true};
    for (std::size_t i = 0; i + 3 < packet.size(); ++i) {
        if (!startsAt(packet, i)) continue;
        const BU_U8 u8Nal = packet[i + 3];
        if (isH264Key(u8Nal)) return {STREAM_TYPE_H264, true};
        if (isH265Key(u8Nal)) return {STREAM_TYPE_H265, true};
    }
    return {0, false};
}

STREAM_PACKET_REF recordedPacket(std::span<const BU_U8> packet)
{
    const auto pst = std::make_shared<Recorded>();
    pst->bytes.assign(packet.begin(), packet.end());
    const PictureKind stPicture = pictureOf(packet);
    pst->stPacket = {pst->bytes.data(), static_cast<BU_U32>(pst->bytes.size()), static_cast<BU_U64>(UTIL_TIME_NowUs()),
                     stPicture.bKeyFrame, stPicture.s32EncodeType};
    return {pst, &pst->stPacket};
}
} // namespace preview
