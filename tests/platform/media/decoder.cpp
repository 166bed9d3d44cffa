#include "decoder.h"

#include "libav.h"
#include "media/stream.h"

#include <cstring>
#include <map>

struct Decoder::Impl {
    media::AvContext context;
    media::AvFrame frame{av_frame_alloc()};
    media::AvPacket packet{av_packet_alloc()};
    std::vector<BU_U8> vecInput;
};

Decoder::Decoder(BU_S32 s32StreamType) : m_pst(std::make_unique<Impl>())
{
    media::quietLibav();
    static const std::map<BU_S32, AVCodecID> IDS = {{STREAM_TYPE_H264, AV_CODEC_ID_H264},
                                                    {STREAM_TYPE_H265, AV_CODEC_ID_HEVC},
                                                    {STREAM_TYPE_MJPEG, AV_CODEC_ID_MJPEG},
                                                    {STREAM_TYPE_AAC, AV_CODEC_ID_AAC}};
    const AVCodecID enId = IDS.at(s32StreamType);
    const AVCodec *pstCodec = avcodec_find_decoder(enId);
    m_pst->context.reset(avcodec_alloc_context3(pstCodec));
    m_pst->context->thread_count = 1;
    m_pst->context->flags |= AV_CODEC_FLAG_LOW_DELAY;
    if (enId == AV_CODEC_ID_AAC) { // AAC-LC, 48 kHz, stereo
        static constexpr BU_U8 CONFIG[] = {0x11, 0x90};
        m_pst->context->extradata = static_cast<BU_U8 *>(av_mallocz(sizeof CONFIG + AV_INPUT_BUFFER_PADDING_SIZE));
        std::memcpy(m_pst->context->extradata, CONFIG, sizeof CONFIG);
        m_pst->context->extradata_size = sizeof CONFIG;
    }
    avcodec_open2(m_pst->context.get(), pstCodec, nullptr);
}
Decoder::~Decoder() = default;

tagDECODED_S Decoder::decode(const BU_U8 *pu8, std::size_t size)
{
    m_pst->vecInput.assign(pu8, pu8 + size);
    m_pst->vecInput.resize(size + AV_INPUT_BUFFER_PADDING_SIZE);
    m_pst->packet->data = m_pst->vecInput.data();
    m_pst->packet->size = static_cast<int>(size);
    tagDECODED_S st;
    AVFrame &frame = *m_pst->frame;
    if (avcodec_send_packet(m_pst->context.get(), m_pst->packet.get()) < 0 ||
        avcodec_receive_frame(m_pst->context.get(), &frame) < 0)
        return st;
    const auto plane = [&](int i, int w, int h) {
        std::vector<BU_U8> vec;
        for (int y = 0; y < h; ++y)
            vec.insert(vec.end(), frame.data[i] + y * frame.linesize[i], frame.data[i] + y * frame.linesize[i] + w);
        return vec;
    };
    st.s32Width = frame.width;
    st.s32Height = frame.height;
    if (frame.width > 0) {
        st.vecY = plane(0, frame.width, frame.height);
        st.vecU = plane(1, frame.width / 2, frame.height / 2);
        st.vecV = plane(2, frame.width / 2, frame.height / 2);
    } else {
        const auto *pfLeft = reinterpret_cast<const float *>(frame.data[0]),
                   *pfRight = reinterpret_cast<const float *>(frame.data[1]);
        st.vecLeft.assign(pfLeft, pfLeft + frame.nb_samples);
        st.vecRight.assign(pfRight, pfRight + frame.nb_samples);
    }
    return st;
}
