// H.264 and H.265 through libavcodec.
#include "videoEncoder.h"

#include "libav.h"
#include "util/log.h"

#include <algorithm>
#include <array>
#include <deque>
#include <iterator>
#include <string>

extern "C" {
#include <libavutil/opt.h>
}
#include <libyuv/convert.h>

namespace
{
using media::FrameRate;

constexpr BU_S64 KBIT = 1000;
constexpr BU_S32 ENDLESS = 1 << 24; // key frames come on request only: the channel counts its group of pictures

/// A packet with the encoder's own memory, which is not copied.
struct Holder {
    STREAM_PACKET_S stPacket;
    media::AvPacket packet;
};

/// What the two libraries call their settings. Both start each picture at once and end it before they return.
struct Library {
    const BU_CHAR *pcName;
    BU_S32 s32StreamType;
    AVPixelFormat enPixels;
    const BU_CHAR *pcParamsOption, *apcParams[3]; // by profile: base, main, high
    bool bChangesRate;                            // bit rate and its limits while it runs
};
constexpr const BU_CHAR *HEVC_PARAMS =
    "pools=none:frame-threads=1:rc-lookahead=0:bframes=0:rd=1:ctu=32:min-cu-size=16:scenecut=0:log-level=error";
constexpr Library H264{"libx264", STREAM_TYPE_H264, AV_PIX_FMT_NV12, "x264-params", {"", "cabac=1", "cabac=1:8x8dct=1"},
                       true};
constexpr Library H265{
    "libx265", STREAM_TYPE_H265, AV_PIX_FMT_YUV420P, "x265-params", {HEVC_PARAMS, HEVC_PARAMS, HEVC_PARAMS}, false};

class LibavEncoder : public media::VideoEncoder
{
public:
    LibavEncoder(const Library &stLibrary, const MPP_VENC_PARAM_S &stParam, FrameRate stRate)
        : m_stLibrary(stLibrary), m_stParam(stParam), m_stRate(stRate), m_frame(av_frame_alloc())
    {
    }
    bool start();
    STREAM_PACKET_REF encode(const SCENE_FRAME_S &stFrame, BU_U64 u64TimeUs, bool bKeyFrame) override;
    bool change(const MPP_VENC_PARAM_S &stParam) override;

private:
    void setBitRate();
    bool fill(const SCENE_FRAME_S &stFrame);
    STREAM_PACKET_REF receive();

    const Library &m_stLibrary;
    MPP_VENC_PARAM_S m_stParam;
    const FrameRate m_stRate;
    media::AvContext m_context;
    media::AvFrame m_frame;
    BU_S64 m_s64LastPts = -1;
    std::deque<BU_U64> m_times; // of the pictures inside the encoder
};

void LibavEncoder::setBitRate()
{
    const bool bVbr = m_stParam.enRcMode == MPP_VENC_RC_MODE_VBR;
    m_context->bit_rate = m_stParam.u32BitRate * KBIT;
    m_context->rc_max_rate = m_context->bit_rate * (bVbr ? 2 : 1);
    m_context->rc_buffer_size = static_cast<int>(std::min<BU_S64>(m_context->rc_max_rate, INT32_MAX)); // one second
}

bool LibavEncoder::start()
{
    const AVCodec *pstCodec = avcodec_find_encoder_by_name(m_stLibrary.pcName);
    if (!pstCodec) return false;
    m_context.reset(avcodec_alloc_context3(pstCodec));
    m_context->width = static_cast<int>(m_stParam.u32Width);
    m_context->height = static_cast<int>(m_stParam.u32Height);
    m_context->pix_fmt = m_stLibrary.enPixels;
    m_context->time_base = {m_stRate.s32Den, m_stRate.s32Num};
    m_context->framerate = {m_stRate.s32Num, m_stRate.s32Den};
    m_context->gop_size = ENDLESS;
    m_context->max_b_frames = 0;
    m_context->thread_count = 1;
    m_context->color_range = AVCOL_RANGE_MPEG;
    m_context->colorspace = AVCOL_SPC_BT709;
    m_context->color_primaries = AVCOL_PRI_BT709;
    m_context->color_trc = AVCOL_TRC_BT709;
    if (const auto [u32Min, u32Max] = std::pair(std::min(m_stParam.u32QpMinI, m_stParam.u32QpMinP),
                                                std::max(m_stParam.u32QpMaxI, m_stParam.u32QpMaxP));
        u32Max != 0) {
        m_context->qmin = static_cast<int>(u32Min);
        m_context->qmax = static_cast<int>(u32Max);
    }
    setBitRate();
    void *pvOptions = m_context->priv_data;
    av_opt_set(pvOptions, "preset", "ultrafast", 0);
    av_opt_set(pvOptions, "tune", "zerolatency", 0);
    av_opt_set(pvOptions, "forced-idr", "1", 0);
    av_opt_set(pvOptions, m_stLibrary.pcParamsOption, m_stLibrary.apcParams[m_stParam.u32Profile], 0);
    if (avcodec_open2(m_context.get(), pstCodec, nullptr) < 0) return false;
    m_frame->format = m_context->pix_fmt;
    m_frame->width = m_context->width;
    m_frame->height = m_context->height;
    return true;
}

bool LibavEncoder::change(const MPP_VENC_PARAM_S &stParam)
{
    MPP_VENC_PARAM_S stSame = stParam; // what may differ, made equal
    stSame.u32GOP = m_stParam.u32GOP;
    stSame.u32Quality = m_stParam.u32Quality;
    stSame.u32BitrateProfile = m_stParam.u32BitrateProfile;
    if (m_stLibrary.bChangesRate) {
        stSame.u32BitRate = m_stParam.u32BitRate;
        stSame.enRcMode = m_stParam.enRcMode;
    }
    if (stSame != m_stParam) return false;
    m_stParam = stParam;
    setBitRate();
    return true;
}

/// Shows the encoder the picture where it lies, or a copy in planes for one that does not take pairs.
bool LibavEncoder::fill(const SCENE_FRAME_S &stFrame)
{
    if (m_stLibrary.enPixels == AV_PIX_FMT_NV12) {
        av_buffer_unref(&m_frame->buf[0]);
        const auto size = static_cast<std::size_t>(stFrame.s32StrideY) * static_cast<std::size_t>(stFrame.s32Height);
        m_frame->buf[0] = av_buffer_create(
            stFrame.pu8Y, size, [](void *, uint8_t *) {}, nullptr, 0);
        m_frame->data[0] = stFrame.pu8Y;
        m_frame->data[1] = stFrame.pu8Uv;
        m_frame->linesize[0] = stFrame.s32StrideY;
        m_frame->linesize[1] = stFrame.s32StrideUv;
        return m_frame->buf[0] != nullptr;
    }
    if (!m_frame->buf[0] ? av_frame_get_buffer(m_frame.get(), 0) < 0 : av_frame_make_writable(m_frame.get()) < 0)
        return false;
    libyuv::NV12ToI420(stFrame.pu8Y, stFrame.s32StrideY, stFrame.pu8Uv, stFrame.s32StrideUv, m_frame->data[0],
                       m_frame->linesize[0], m_frame->data[1], m_frame->linesize[1], m_frame->data[2],
                       m_frame->linesize[2], stFrame.s32Width, stFrame.s32Height);
    return true;
}

STREAM_PACKET_REF LibavEncoder::receive()
{
    auto pstHolder = std::make_shared<Holder>();
    pstHolder->packet.reset(av_packet_alloc());
    AVPacket &st = *pstHolder->packet;
    if (avcodec_receive_packet(m_context.get(), &st) < 0) return nullptr;
    pstHolder->stPacket = {st.data, static_cast<BU_U32>(st.size), m_times.front(), (st.flags & AV_PKT_FLAG_KEY) != 0,
                           m_stLibrary.s32StreamType};
    m_times.pop_front();
    return {pstHolder, &pstHolder->stPacket};
}

STREAM_PACKET_REF LibavEncoder::encode(const SCENE_FRAME_S &stFrame, BU_U64 u64TimeUs, bool bKeyFrame)
{
    if (!fill(stFrame)) return nullptr;
    m_s64LastPts = std::max(m_s64LastPts + 1, m_stRate.frameAt(static_cast<BU_S64>(u64TimeUs)));
    m_frame->pts = m_s64LastPts;
    m_frame->pict_type = bKeyFrame ? AV_PICTURE_TYPE_I : AV_PICTURE_TYPE_NONE;
    if (avcodec_send_frame(m_context.get(), m_frame.get()) < 0) return nullptr;
    m_times.push_back(u64TimeUs);
    return receive();
}

struct Limit {
    BU_U32 MPP_VENC_PARAM_S::*pu32Field;
    BU_U32 u32Min, u32Max;
    const BU_CHAR *pcRefusal;
};
constexpr Limit LIMITS[] = {
    {&MPP_VENC_PARAM_S::u32Width, 64, 4096, "width outside 64 to 4096"},
    {&MPP_VENC_PARAM_S::u32Height, 64, 2304, "height outside 64 to 2304"},
    {&MPP_VENC_PARAM_S::u32BitRate, 16, 200'000, "bit rate outside 16 to 200000 kbit/s"},
    {&MPP_VENC_PARAM_S::u32GOP, 0, 3600, "more than 3600 pictures between key frames"},
    {&MPP_VENC_PARAM_S::u32Profile, 0, 2, "no such profile"},
    {&MPP_VENC_PARAM_S::u32QpMinI, 0, 51, "QP above 51"},
    {&MPP_VENC_PARAM_S::u32QpMaxI, 0, 51, "QP above 51"},
    {&MPP_VENC_PARAM_S::u32QpMinP, 0, 51, "QP above 51"},
    {&MPP_VENC_PARAM_S::u32QpMaxP, 0, 51, "QP above 51"},
};
} // namespace

const BU_CHAR *media::refusal(const MPP_VENC_PARAM_S &stParam)
{
    const auto *pst = std::ranges::find_if(LIMITS, [&](const Limit &st) {
        return stParam.*st.pu32Field < st.u32Min || stParam.*st.pu32Field > st.u32Max;
    });
    if (pst != std::end(LIMITS)) return pst->pcRefusal;
    if (streamType(stParam.enType) == 0) return "no such format";
    if (stParam.u32Width % 2 != 0 || stParam.u32Height % 2 != 0) return "odd size";
    if (!FrameRate::ofCode(stParam.u32FrmRate)) return "no such frame rate";
    if (stParam.enRcMode != MPP_VENC_RC_MODE_CBR && stParam.enRcMode != MPP_VENC_RC_MODE_VBR) return "no such control";
    return nullptr;
}

BU_S32 media::streamType(MPP_VENC_FORMAT_E enType)
{
    constexpr BU_S32 TYPES[] = {STREAM_TYPE_MJPEG, STREAM_TYPE_H264, STREAM_TYPE_H265};
    const auto u32Index = static_cast<BU_U32>(enType);
    return u32Index < std::size(TYPES) ? TYPES[u32Index] : 0;
}

std::unique_ptr<media::VideoEncoder> media::VideoEncoder::open(const MPP_VENC_PARAM_S &stParam, FrameRate stRate)
{
    if (const BU_CHAR *pcRefusal = refusal(stParam)) {
        LOG_ERROR("encoder of format %d, %u x %u, refused: %s\n", stParam.enType, stParam.u32Width, stParam.u32Height,
                  pcRefusal);
        return nullptr;
    }
    if (stParam.enType == MPP_VENC_FORMAT_E_MJPEG) return openJpegEncoder(stParam);
    quietLibav();
    const Library &stLibrary = stParam.enType == MPP_VENC_FORMAT_E_H264 ? H264 : H265;
    auto pstEncoder = std::make_unique<LibavEncoder>(stLibrary, stParam, stRate);
    if (pstEncoder->start()) return pstEncoder;
    LOG_ERROR("%s does not take %u x %u at %u kbit/s\n", stLibrary.pcName, stParam.u32Width, stParam.u32Height,
              stParam.u32BitRate);
    return nullptr;
}
