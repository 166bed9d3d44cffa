/// An open video encoder: pictures in, packets out.
#pragma once

#include "frameRate.h"
#include "media/encoder.h"
#include "media/stream.h"
#include "scene/scene.h"

#include <memory>

namespace media
{
class VideoEncoder
{
public:
    /// @param stRate  of the pictures that will come. @return null: the parameters are refused; the reason is logged
    static std::unique_ptr<VideoEncoder> open(const MPP_VENC_PARAM_S &stParam, FrameRate stRate);
    virtual ~VideoEncoder() = default;

    /// @param u64TimeUs  of the picture, each later than the one before
    /// @return the packet of this picture; null: it failed or is still to come
    virtual STREAM_PACKET_REF encode(const SCENE_FRAME_S &stFrame, BU_U64 u64TimeUs, bool bKeyFrame) = 0;
    /// Goes on with changed parameters. @return false: they take a new encoder
    virtual bool change(const MPP_VENC_PARAM_S &stParam) = 0;
};

/// Why no encoder takes the parameters; null: one does.
const BU_CHAR *refusal(const MPP_VENC_PARAM_S &stParam);
BU_S32 streamType(MPP_VENC_FORMAT_E enType);

std::unique_ptr<VideoEncoder> openJpegEncoder(const MPP_VENC_PARAM_S &stParam);
} // namespace media
