/// A picture over the outputs: a canvas in the format asked for, shown through the pipeline's overlays.
#pragma once

#include "painter.h"

#include "media/overlay.h"

namespace menu
{
/// A rectangle or size in pixels of the picture.
struct Box {
    BU_S32 x = 0, y = 0, w = 0, h = 0;
    bool operator==(const Box &) const = default;
};

/// The size that overlays are drawn for: that of HDMI, at most 1920 x 1080 where 4K is not supported.
Box videoSize(bool b4K);

/// One thread at a time.
class OverlayCanvas
{
public:
    /// @param box  where in a picture of that size; of the size of the surface
    void show(SDL_Surface *pstPicture, const Box &box, const Box &video, OSD_FORMAT_E enFormat);
    void hide();

private:
    bool prepare(const Box &box, const Box &video, OSD_FORMAT_E enFormat);

    OSD_ONE_TO_MANY_S m_stManager{};
    OSD_MENU_CANVAS_S m_stCanvas{};
    SDL_Surface *m_pstSurface = nullptr; // over the canvas; lives as long as the process or until the size changes
    bool m_bShown = false;
};
} // namespace menu
