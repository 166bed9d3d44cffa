/// Decodes packets with the decoders of libavcodec.
#pragma once

#include "base/types.h"
#include "libav.h"
#include "media/stream.h"

#include <map>
#include <memory>
#include <vector>

struct tagDECODED_S {
    int s32Width = 0, s32Height = 0;      ///< pictures
    std::vector<BU_U8> vecY, vecU, vecV;  ///< planes without gaps
    std::vector<float> vecLeft, vecRight; ///< sound
};

class Decoder
{
public:
    explicit Decoder(BU_S32 s32StreamType)
    {
        media::quietLibav();
        // clang-format off
        static const std::map<BU_S32, AVCodecID> IDS = {
            {STREAM_TYPE_H264, AV_CODEC_ID_H264}, {STREAM_TYPE_H265, AV_CODEC_ID_HEVC},
            {STREAM_TYPE_MJPEG, AV_CODEC_ID_MJPEG}, {STREAM_TYPE_AAC, AV_CODEC_ID_AAC}};
        // clang-format on
        const AVCodec *pstCodec = avcodec_find_decoder(IDS.at(s32StreamType));
        m_context.reset(avcodec_alloc_context3(pstCodec));
        m_context->thread_count = 1;
        m_context->flags |= AV_CODEC_FLAG_LOW_DELAY;
        if (s32StreamType == STREAM_TYPE_AAC) { // AAC-LC, 48 kHz, stereo
            m_context->extradata = static_cast<BU_U8 *>(av_mallocz(2 + AV_INPUT_BUFFER_PADDING_SIZE));
            m_context->extradata[0] = 0x11, m_context->extradata[1] = 0x90;
            m_context->extradata_size = 2;
        }
        avcodec_open2(m_context.get(), pstCodec, nullptr);
    }
    /// What the packet gives, at once; sizes 0: nothing or an error.
    tagDECODED_S decode(std::vector<BU_U8> vec)
    {
        m_packet->size = static_cast<int>(vec.size());
        vec.resize(vec.size() + AV_INPUT_BUFFER_PADDING_SIZE);
        m_packet->data = vec.data();
        tagDECODED_S st;
        if (avcodec_send_packet(m_context.get(), m_packet.get()) < 0 ||
            avcodec_receive_frame(m_context.get(), m_frame.get()) < 0)
            return st;
        const auto plane = [&](int i, int w, int h) {
            std::vector<BU_U8> vecPlane;
            const BU_U8 *pu8 = m_frame->data[i];
            for (int y = 0; y < h; ++y, pu8 += m_frame->linesize[i]) vecPlane.insert(vecPlane.end(), pu8, pu8 + w);
            return vecPlane;
        };
        const int w = st.s32Width = m_frame->width, h = st.s32Height = m_frame->height;
        if (w > 0) {
            st.vecY = plane(0, w, h), st.vecU = plane(1, w / 2, h / 2), st.vecV = plane(2, w / 2, h / 2);
        } else {
            const auto *pfLeft = reinterpret_cast<const float *>(m_frame->data[0]),
                       *pfRight = reinterpret_cast<const float *>(m_frame->data[1]);
            st.vecLeft.assign(pfLeft, pfLeft + m_frame->nb_samples);
            st.vecRight.assign(pfRight, pfRight + m_frame->nb_samples);
        }
        return st;
    }

private:
    media::AvContext m_context;
    media::AvFrame m_frame{av_frame_alloc()};
    media::AvPacket m_packet{av_packet_alloc()};
};
