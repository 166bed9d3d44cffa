/// An encoder channel: its parameters, its way into a stream cache, and its encoder while it is needed.
#pragma once

#include "pipe.h"
#include "streamCache.h"
#include "videoEncoder.h"

namespace media
{
class VencChannel : public PictureTaker
{
public:
    /// @param pstCache  null: its packets go to a frame function only
    VencChannel(BU_S32 s32Chn, STREAM_CACHE_S *pstCache) : m_s32Chn(s32Chn), m_pstCache(pstCache) {}

    bool status(MPP_VENC_PARAM_S &stParam) const; ///< false: disabled
    BU_S32 source() const;                        ///< MPP_PIPE_USAGE_E
    void setSource(BU_S32 s32Usage);
    void enable(const MPP_VENC_PARAM_S &stParam, FN_MPP_FRAME fnFrame);
    void disable();

    // The source of its cache.
    STREAM_CACHE_S *cache() const { return m_pstCache; }
    bool hasSource() const { return m_pstCache && m_bSource; }
    void listen(bool bOn);
    void destroySource();

    BU_S32 requestKeyFrame(); ///< 0, or -1: disabled
    BU_S32 bitRate() const;
    /// Takes the present metadata for known.
    void introduce();
    /// Lets the handlers hear of a change, once the packets of it may come.
    void renewMetadata();

    std::optional<Wish> wish(FrameRate stOutput) override;
    void take(const SCENE_FRAME_S &stFrame, BU_U64 u64TimeUs) override;

private:
    struct FrameFunction {
        FN_MPP_FRAME fn;
        BU_S32 s32Index = 0;
        MPP_FRAME_INFO_S stFrame{};
    };

    Pipe *pipe() const { return pipeOf(source()); }
    STREAM_PACKET_METADATA_S metadata() const;
    bool open(FrameRate stOutput);
    bool isKeyUrgent(FrameRate stOutput) const;
    bool isKeyDue(BU_U64 u64TimeUs);
    void deliver(const STREAM_PACKET_REF &pstPacket);
    void call(FrameFunction &stFunction, const STREAM_PACKET_S &stPacket);

    const BU_S32 m_s32Chn;
    STREAM_CACHE_S *const m_pstCache;
    std::atomic<bool> m_bSource{true}, m_bListening{true}, m_bKeyWanted{false};

    mutable std::mutex m_lock; // guards the next group
    std::condition_variable m_idle;
    bool m_bEnabled = false, m_bCalling = false;
    BU_S32 m_s32Usage = MPP_PIPE_USAGE_E_BUTT;
    BU_U32 m_u32Change = 1; // counts what the encoder has to follow
    MPP_VENC_PARAM_S m_stParam{};
    std::shared_ptr<FrameFunction> m_pstFunction;

    // The pipe's thread.
    std::unique_ptr<VideoEncoder> m_pstEncoder;
    FrameRate m_stOutput, m_stEncoderRate;
    MPP_VENC_PARAM_S m_stRunning{}; // the encoder's
    BU_U32 m_u32Followed = 0;
    BU_U32 m_u32SinceKey = 0;
    BU_U64 m_u64ForcedUs = 0;
};

VencChannel *channelAt(BU_S32 s32Chn);          ///< null: no such channel
VencChannel *channelOfCache(BU_S32 s32CacheId); ///< null: no such cache, or not one of pictures
/// Gives the channels their stored parameters and lets them take pictures.
void startChannels();
/// Rate of all pipes, and so the fastest of every encoder.
void setOutputRate(FrameRate stRate);
} // namespace media
