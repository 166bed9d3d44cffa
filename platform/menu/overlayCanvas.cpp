// How a drawn surface gets over the picture.
#include <SDL2/SDL_surface.h>

#include "overlayCanvas.h"

#include "media/pipeline.h"
#include "util/log.h"

#include <algorithm>

namespace menu
{
namespace
{
constexpr BU_S32 ALL_OUTPUTS = 3;

SDL_Rect rectOf(const Box &box) { return {box.x, box.y, box.w, box.h}; }
} // namespace

Box videoSize(bool b4K)
{
    constexpr BU_S32 FULL_HD_WIDTH = 1920;
    MPP_VOUT_CFG_S stCfg{};
    Box video{0, 0, 1920, 1080};
    if (MPP_GetVoutCfg(MPP_VOUT_ID_2, &stCfg) == 0 && stCfg.stResolution.u32Width > 0)
        video = {0, 0, static_cast<BU_S32>(stCfg.stResolution.u32Width),
                 static_cast<BU_S32>(stCfg.stResolution.u32Height)};
    if (!b4K && video.w > FULL_HD_WIDTH) video = {0, 0, FULL_HD_WIDTH, video.h * FULL_HD_WIDTH / video.w};
    return video;
}

bool OverlayCanvas::prepare(const Box &box, const Box &video, OSD_FORMAT_E enFormat)
{
    if (!m_stManager.priv && MPP_OSD_OneToManyCreate(&m_stManager, ALL_OUTPUTS) != 0) return false;
    m_stCanvas.stVideoRect = rectOf(video);
    const bool bFits = m_pstSurface && m_stCanvas.stMenuRect.w == box.w && m_stCanvas.stMenuRect.h == box.h &&
                       m_stCanvas.enFormat == enFormat;
    if (m_pstSurface && !bFits) OSD_COMM_DestroySurface(&m_stCanvas, &m_pstSurface);
    m_stCanvas.stMenuRect = rectOf(box);
    m_stCanvas.enFormat = enFormat;
    m_stCanvas.fgAlpha = 255;
    if (!m_pstSurface) m_pstSurface = OSD_COMM_CreateSurface(&m_stCanvas);
    return m_pstSurface != nullptr;
}

void OverlayCanvas::show(SDL_Surface *pstPicture, const Box &box, const Box &video, OSD_FORMAT_E enFormat)
{
    if (!pstPicture || !prepare(box, video, enFormat)) {
        LOG_ERROR("an overlay of %d x %d cannot be shown\n", box.w, box.h);
        return;
    }
    copyPixels(pstPicture, m_pstSurface);
    m_bShown = MPP_OSD_OneToManyUpdateAllTarget(&m_stManager, BU_TRUE, &m_stCanvas) == 0;
}

void OverlayCanvas::hide()
{
    if (m_bShown) MPP_OSD_OneToManyUpdateAllTarget(&m_stManager, BU_FALSE, &m_stCanvas);
    m_bShown = false;
}
} // namespace menu
