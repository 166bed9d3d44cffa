/// What is said about a stream: to GStreamer, and to the clients.
#pragma once

#include "media/stream.h"

#include <string>

namespace rtsp
{
/// A stream of a session as its clients are told of it.
struct Track {
    std::string strName; ///< "video" or "audio"
    STREAM_CACHE_S *pstCache = nullptr;
    STREAM_PACKET_METADATA_S stFormat{}; ///< that its pipeline was made for, but for the frame rate
    BU_S32 s32BitRate = 0;               ///< [kbit/s], 0: not stated
};

/// How streams of one codec travel.
struct Codec {
    BU_S32 s32EncodeType;       ///< STREAM_TYPE_...
    const BU_CHAR *pcPayloader; ///< GStreamer element that makes RTP packets
    BU_U32 u32PayloadType;
    const BU_CHAR *pcRtpCaps; ///< what clients are told before the first packet has been seen
};

/// @return null: streams of this type are not served
const Codec *codecOf(BU_S32 s32EncodeType);

/// The stream as GStreamer caps.
std::string capsOf(const STREAM_PACKET_METADATA_S &stFormat);

/// Frame rate for a description ("29.970"); empty: none.
std::string frameRateOf(const STREAM_PACKET_METADATA_S &stFormat);

/// Whether clients of one can go on with the other: all but the frame rate is the same.
bool isSameStream(STREAM_PACKET_METADATA_S stOne, const STREAM_PACKET_METADATA_S &stOther);
} // namespace rtsp
