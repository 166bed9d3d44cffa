#include "track.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>

namespace rtsp
{
namespace
{
constexpr Codec CODECS[] = {
    {STREAM_TYPE_H264, "rtph264pay", 96,
     "application/x-rtp,media=video,clock-rate=90000,encoding-name=H264,packetization-mode=(string)1,payload=96"},
    {STREAM_TYPE_H265, "rtph265pay", 96,
     "application/x-rtp,media=video,clock-rate=90000,encoding-name=H265,payload=96"},
    {STREAM_TYPE_AAC, "rtpmp4gpay", 97, "application/x-rtp,media=audio"},
};

/// An integer as text of at least so many digits.
std::string digits(BU_S64 s64Value, int s32Width, bool bHex = false)
{
    std::array<BU_CHAR, 24> acText{};
    const auto end = std::to_chars(acText.begin(), acText.end(), s64Value, bHex ? 16 : 10).ptr;
    const std::string strText(acText.begin(), end);
    return std::string(std::max<std::size_t>(strText.size(), static_cast<std::size_t>(s32Width)) - strText.size(),
                       '0') +
           strText;
}

/// AudioSpecificConfig of AAC-LC: object type 2, index of the sampling rate, channels.
BU_U32 aacConfigOf(const STREAM_PACKET_METADATA_S &stFormat)
{
    constexpr BU_S32 RATES[] = {96000, 88200, 64000, 48000, 44100, 32000, 24000, 22050, 16000, 12000, 11025, 8000};
    const auto s32Index = std::ranges::find(RATES, stFormat.s32SampleRate) - std::begin(RATES);
    return 2U << 11 | static_cast<BU_U32>(s32Index) << 7 | static_cast<BU_U32>(stFormat.s32ChannelNum) << 3;
}
} // namespace

const Codec *codecOf(BU_S32 s32EncodeType)
{
    const auto it = std::ranges::find(CODECS, s32EncodeType, &Codec::s32EncodeType);
    return it == std::end(CODECS) ? nullptr : &*it;
}

std::string capsOf(const STREAM_PACKET_METADATA_S &stFormat)
{
    const auto field = [](const BU_CHAR *pcName, BU_S32 s32Value) { return pcName + std::to_string(s32Value); };
    if (stFormat.s32EncodeType == STREAM_TYPE_AAC)
        return "audio/mpeg,mpegversion=4,stream-format=raw" + field(",rate=", stFormat.s32SampleRate) +
               field(",channels=", stFormat.s32ChannelNum) + ",codec_data=(buffer)" +
               digits(aacConfigOf(stFormat), 4, true);
    return std::string(stFormat.s32EncodeType == STREAM_TYPE_H265 ? "video/x-h265" : "video/x-h264") +
           ",stream-format=byte-stream,alignment=au" + field(",width=", stFormat.s32Width) +
           field(",height=", stFormat.s32Height);
}

std::string frameRateOf(const STREAM_PACKET_METADATA_S &stFormat)
{
    if (stFormat.s32FrameRateNum <= 0 || stFormat.s32FrameRateDen <= 0) return {};
    const BU_S64 s64Thousandths = 1000LL * stFormat.s32FrameRateNum / stFormat.s32FrameRateDen;
    return digits(s64Thousandths / 1000, 1) + "." + digits(s64Thousandths % 1000, 3);
}

bool isSameStream(STREAM_PACKET_METADATA_S stOne, const STREAM_PACKET_METADATA_S &stOther)
{
    stOne.s32FrameRateNum = stOther.s32FrameRateNum;
    stOne.s32FrameRateDen = stOther.s32FrameRateDen;
    return stOne == stOther;
}
} // namespace rtsp
