/// A canvas at rest, and its planes at the size of an output.
#pragma once

#include "media/overlay.h"
#include "scene/scene.h"

#include <vector>

namespace media::overlay
{
/// A copy of a canvas as ARGB8888.
struct Image {
    explicit Image(const OSD_MENU_CANVAS_S &stCanvas);
    SDL_Rect stRect, stVideo; ///< its place in the whole picture
    std::vector<BU_U32> vecArgb;
};

/// Y, U, V and alpha of the part of an image that is not transparent.
class Planes
{
public:
    void make(const Image &image, BU_S32 s32Width, BU_S32 s32Height);
    void blend(const SCENE_FRAME_S &stFrame) const;

private:
    void convert(const BU_U32 *pu32, BU_S32 s32Stride);

    SDL_Rect m_stRect{};                                          // even, inside the picture
    std::vector<BU_U8> m_vecY, m_vecAlpha, m_vecUv, m_vecUvAlpha; // of a chroma pair both bytes have the alpha
};
} // namespace media::overlay
