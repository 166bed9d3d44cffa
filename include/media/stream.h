/// Stream caches: encoded packets on their way from the encoders to whoever sends or stores them.
///
/// Five caches live as long as the process: 1 close-up main, 2 close-up sub, 3 panorama main, 4 panorama sub, 6 audio.
/// Each has one writer, the pipeline, and any number of consumers: readers, which fetch packets in their own time, and
/// sinks, which are called with each packet. No packet is copied for a consumer and none delays the writer: a reader
/// that falls behind loses old packets and goes on at a key frame. An encoder runs only while its cache has a consumer.
///
/// Video packets are whole access units in Annex B form; a key frame carries its parameter sets. Audio packets are
/// AAC-LC access units without ADTS header. Timestamps are microseconds of one monotonic clock, the same for picture
/// and sound. Thread: any, unless stated.
#pragma once

#include "base/types.h"

#include <functional>
#include <memory>

struct STREAM_CACHE_S;

constexpr BU_S32 STREAM_TYPE_H264 = 17, STREAM_TYPE_H265 = 18, STREAM_TYPE_MJPEG = 26, STREAM_TYPE_AAC = 34;

struct STREAM_PACKET_METADATA_S {
    BU_S32 s32EncodeType;                                         ///< STREAM_TYPE_...
    BU_S32 s32Width, s32Height, s32FrameRateNum, s32FrameRateDen; ///< video, else 0
    BU_S32 s32SampleRate, s32ChannelNum, s32FrameSampleNum;       ///< audio, else 0; samples of a channel per packet
    bool operator==(const STREAM_PACKET_METADATA_S &) const = default;
};

/// A reader's place in a cache. It starts at the newest key frame, or when that is too old to be there, at the next
/// one, which is requested. Thread: one at a time for each reader.
class STREAM_READER_S
{
public:
    virtual ~STREAM_READER_S() = default;
    /// How long readPacket may wait: 0 not at all, negative (as at first) until a packet comes.
    virtual void setReadTimeout(BU_S32 s32Ms) = 0;
    /// Asks the encoder for a key frame soon; requests close together share one. @return 0, or -1: no encoder runs
    virtual BU_S32 requestKeyFrame() = 0;
    /// Takes the next packet. @param s32Flags  0. @param ppu8Data  the packet, valid until the reader's next readPacket
    /// or its end. @param pu32Length  [bytes]; 0: the time-out passed. @param pbKeyFrame  may be null
    /// @return 0, also after a time-out; -1: null pointer
    virtual BU_S32 readPacket(BU_U8 **ppu8Data, BU_S32 s32Flags, BU_U32 *pu32Length, BU_U64 *pu64Timestamp,
                              BU_BOOL *pbKeyFrame = nullptr) = 0;
};
struct STREAM_SOURCE_S;
typedef std::function<BU_S32()> FN_STREAM_METADATA;

/// @return null: no such cache
STREAM_CACHE_S *STREAM_getStreamCacheById(BU_S32 s32Id);
/// What the packets are; of a cache whose encoder sleeps, what they will be. Null, or a switched-off encoder: all zero.
STREAM_PACKET_METADATA_S STREAM_getStreamCacheMetadata(STREAM_CACHE_S *pstCache);
/// Bit rate [kbit/s], measured over the last seconds; what the encoder is set to while there is nothing to measure.
BU_S32 STREAM_getStreamCacheBitRate(STREAM_CACHE_S *pstCache);
/// @return the encoder channel that feeds the cache, -1: none
BU_S32 STREAM_getStreamCacheCurrentVencChn(BU_S32 s32CacheId);
/// @return 1: nobody consumes the cache, 0: somebody does, or no such cache
BU_S32 STREAM_isStreamCacheIdle(BU_S32 s32CacheId);
/// Empties an idle cache; its pointer stays good and the next consumer finds it running again. @param bSaveCfg  nothing
/// is stored for a cache. @return 0, or -1: no such cache, or in use
BU_S32 STREAM_destroyStreamCache(BU_S32 s32CacheId, BU_BOOL bSaveCfg);

/// fnCb is called on the pipeline's thread after codec, size, rate or audio format have changed, not at registration;
/// it may use every function here. Registering a name again replaces its function. @return 0, or -1: null
BU_S32 STREAM_registerCacheMetadataHandler(STREAM_CACHE_S *pstCache, const BU_CHAR *pcName, FN_STREAM_METADATA fnCb);
/// A call that runs right now may still reach it. @return 0, or -1: no such name
BU_S32 STREAM_unregisterCacheMetadataHandler(STREAM_CACHE_S *pstCache, const BU_CHAR *pcName);

/// @param reader  the new reader, null on failure. @return 0, or -1: no such cache
BU_S32 STREAM_createStreamReader(BU_S32 s32CacheId, STREAM_READER_S *&reader);
BU_S32 STREAM_createStreamReader(BU_S32 s32CacheId, STREAM_READER_S **ppstReader);
/// Ends a reader, frees it and clears the pointer. @return 0, or -1: null
BU_S32 STREAM_destroyStreamReader(STREAM_READER_S *&reader);
BU_S32 STREAM_destroyStreamReader(STREAM_READER_S **ppstReader);

/// A packet as handed to sinks, shared by all of them; it lives as long as anybody holds a reference.
struct STREAM_PACKET_S {
    const BU_U8 *pu8Data;
    BU_U32 u32Length;     ///< [bytes]
    BU_U64 u64Timestamp;  ///< [us]
    BU_BOOL bKeyFrame;    ///< audio: every packet
    BU_S32 s32EncodeType; ///< STREAM_TYPE_...
};
typedef std::shared_ptr<const STREAM_PACKET_S> STREAM_PACKET_REF;
typedef std::function<void(const STREAM_PACKET_REF &)> FN_STREAM_PACKET;

/// fnCb is called with each packet, on the pipeline's thread, which it must not hold up; it may keep the reference. The
/// first packet is a key frame, requested now. Registering a name again replaces its function. @return 0, or -1: null
BU_S32 STREAM_registerPacketSink(STREAM_CACHE_S *pstCache, const BU_CHAR *pcName, FN_STREAM_PACKET fnCb);
/// Returns when no call runs any more (called by the sink itself: after this call). @return 0, or -1: no such name
BU_S32 STREAM_unregisterPacketSink(STREAM_CACHE_S *pstCache, const BU_CHAR *pcName);
/// As STREAM_READER_S::requestKeyFrame, for a new viewer of a sink. At most two key frames a second are forced.
BU_S32 STREAM_requestKeyFrame(STREAM_CACHE_S *pstCache);

/// The way from an encoder channel to its cache. While it does not listen, packets of the channel do not reach the
/// cache.
/// @return null: the channel feeds no cache
STREAM_SOURCE_S *STREAM_getStreamSource_Venc(BU_S32 s32Chn);
/// @return 0, or -1: null
BU_S32 STREAM_startListenStreamSource(STREAM_SOURCE_S *pstSource);
BU_S32 STREAM_stopListenStreamSource(STREAM_SOURCE_S *pstSource);
/// The same by channel. Starting makes a source that was destroyed anew. @return 0, or -1: no cache of that channel
BU_S32 STREAM_startListenStreamSource_VENC(BU_S32 s32Chn);
BU_S32 STREAM_stopListenStreamSource_VENC(BU_S32 s32Chn);
/// @return 1: nobody consumes the channel's cache, 0: somebody does, or no such source
BU_S32 STREAM_isStreamSourceIdle_VENC(BU_S32 s32Chn);
/// Takes the source of a channel away until it is started again. @param bSaveCfg  nothing is stored for a source
/// @return 0, or -1: no such source, or in use
BU_S32 STREAM_destroyStreamSource_VENC(BU_S32 s32Chn, BU_BOOL bSaveCfg);
