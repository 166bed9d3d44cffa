/// What the sources that use libavcodec share.
#pragma once

#include <memory>

extern "C" {
#include <libavcodec/avcodec.h>
}

namespace media
{
template <auto FREE> struct Deleter {
    template <class T> void operator()(T *pst) const { FREE(&pst); }
};
typedef std::unique_ptr<AVCodecContext, Deleter<avcodec_free_context>> AvContext;
typedef std::unique_ptr<AVFrame, Deleter<av_frame_free>> AvFrame;
typedef std::unique_ptr<AVPacket, Deleter<av_packet_free>> AvPacket;

/// The library writes to standard error by itself: errors only.
inline void quietLibav()
{
    if (av_log_get_level() > AV_LOG_ERROR) av_log_set_level(AV_LOG_ERROR);
}
} // namespace media
