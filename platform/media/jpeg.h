/// JPEG stills.
#pragma once

#include "scene/scene.h"

#include <memory>
#include <vector>

namespace media
{
/// Compresses pictures of one size and quality after the other; keeps its memory.
class JpegCompressor
{
public:
    JpegCompressor();
    ~JpegCompressor();
    /// @param s32Quality  1 to 100. Empty: failed
    std::vector<BU_U8> compress(const SCENE_FRAME_S &stFrame, BU_S32 s32Quality);

private:
    struct Impl;
    std::unique_ptr<Impl> m_pst;
};
} // namespace media
