/// A picture in memory. Everything that draws, scales or changes pictures works on it.
#pragma once

#include "base/types.h"

/// An NV12 picture, BT.709, Y 16 to 235. Sizes are even. Memory is the caller's.
struct SCENE_FRAME_S {
    BU_U8 *pu8Y, *pu8Uv;
    BU_S32 s32StrideY, s32StrideUv; ///< bytes; negative: rows run upward from the pointer
    BU_S32 s32Width, s32Height;
};

namespace draw
{
/// Whether a picture can be drawn to: even sizes from 16 to 8192.
bool isFrame(const SCENE_FRAME_S &stFrame);
} // namespace draw
