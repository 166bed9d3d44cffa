// A view of the hall or of a film as a picture, out of focus where it is.
#include "scene/scene.h"

#include "background.h"
#include "film.h"
#include "parts.h"
#include "room.h"
#include "util/log.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string_view>

struct SCENE_S {
    std::shared_ptr<scene::Film> pstFilm; // null: synthetic
    scene::Background stBackground;
    scene::Stretcher stStretcher;
    std::vector<BU_U8> vecSmall; // a picture being defocused
};

namespace
{
using namespace scene;

constexpr float APERTURE_M = 0.0023F; // opening of the lens at magnification 1
constexpr float OPTICAL_LIMIT = 20;   // digital magnification does not open it further
constexpr float BLUR_LIMIT = 48;      // pixels

/// Softens a picture by a radius in pixels, across and down: made smaller and larger again.
void soften(SCENE_S &stScene, Point stRadius, const SCENE_FRAME_S &st)
{
    const auto size = [](BU_S32 s32, float fRadius) {
        const float fShrink = 1 + 0.6F * std::min(fRadius, BLUR_LIMIT);
        return std::max(static_cast<BU_S32>(static_cast<float>(s32) / fShrink) & ~1, 16); // the least a picture may be
    };
    const BU_S32 s32Width = size(st.s32Width, stRadius.x), s32Height = size(st.s32Height, stRadius.y);
    stScene.vecSmall.resize(static_cast<std::size_t>(s32Width) * static_cast<std::size_t>(s32Height) * 3 / 2);
    const SCENE_FRAME_S stSmall{stScene.vecSmall.data(),
                                stScene.vecSmall.data() + s32Width * s32Height,
                                s32Width,
                                s32Width,
                                s32Width,
                                s32Height};
    SCENE_Scale(st, stSmall);
    stScene.stStretcher.stretch(stSmall, {0, 0, static_cast<double>(s32Width), static_cast<double>(s32Height)}, st);
}

/// The film lies before the camera as one flat picture; a view beyond its edge stops at the edge.
BU_S32 renderFilm(SCENE_S &stScene, const Projection &stView, BU_S64 s64TimeUs, const SCENE_FRAME_S &stOut)
{
    return stScene.pstFilm->showAt(s64TimeUs, [&](const SCENE_FRAME_S &stFilm) {
        const double dWidth = stFilm.s32Width, dHeight = stFilm.s32Height, dPerDegree = dWidth / SCENE_FILM_FOV;
        const double dScale =
            std::min({dPerDegree / stView.fPixelsPerDegree, dWidth / stOut.s32Width, dHeight / stOut.s32Height});
        const double dW = stOut.s32Width * dScale, dH = stOut.s32Height * dScale;
        const double dLeft = dWidth / 2 + stView.fPan * dPerDegree - dW / 2,
                     dTop = dHeight / 2 - stView.fTilt * dPerDegree - dH / 2;
        stScene.stStretcher.stretch(
            stFilm, {std::clamp(dLeft, 0.0, dWidth - dW), std::clamp(dTop, 0.0, dHeight - dH), dW, dH}, stOut);
    });
}

BU_S32 render(SCENE_S &stScene, const Projection &stView, BU_S64 s64TimeUs, const SCENE_FRAME_S &stOut)
{
    if (stScene.pstFilm && renderFilm(stScene, stView, s64TimeUs, stOut) == 0) return 0;
    const double dSeconds = static_cast<double>(s64TimeUs) / 1e6;
    Canvas stCanvas(stOut);
    stScene.stBackground.draw(stView, stOut);
    drawDressing(stCanvas, stView, dSeconds);
    drawPeople(stCanvas, stView, dSeconds);
    return 0;
}

float blurRadius(const SCENE_VIEW_S &st, float fPixelsPerDegree)
{
    const float fAperture = APERTURE_M * std::pow(std::clamp(st.fMagnification, 1.0F, OPTICAL_LIMIT), 0.8F);
    return fAperture * std::abs(st.fDefocus) / DEGREE * fPixelsPerDegree / 2;
}
} // namespace

SCENE_S *SCENE_Open(const BU_CHAR *pcScene)
{
    if (!pcScene) pcScene = std::getenv("CAMERA_SCENE");
    auto pstScene = std::make_unique<SCENE_S>();
    const std::string_view str = pcScene ? pcScene : "";
    if (str.empty() || str == "synthetic") return pstScene.release();
    pstScene->pstFilm = Film::open(pcScene);
    if (!pstScene->pstFilm) LOG_WARN("the synthetic scene is shown instead of %s\n", pcScene);
    return pstScene.release();
}

void SCENE_Close(SCENE_S *pstScene) { std::default_delete<SCENE_S>{}(pstScene); }

BU_S32 SCENE_RenderCloseUp(SCENE_S *pstScene, const SCENE_VIEW_S &stView, BU_S64 s64TimeUs, const SCENE_FRAME_S &stOut)
{
    if (!pstScene || !isFrame(stOut)) return -1;
    const float fFov = std::clamp(stView.fFov, 1.0F, 170.0F) / std::clamp(stView.fMagnification, 1.0F, 512.0F);
    const Projection st(std::remainder(stView.fPan, 360.0F), std::clamp(stView.fTilt, -90.0F, 90.0F), fFov, stOut);
    if (render(*pstScene, st, s64TimeUs, stOut) != 0) return -1;
    const float fOfFocus = blurRadius(stView, st.fPixelsPerDegree);
    const Point stRadius{fOfFocus + std::abs(stView.fSmearPan) * st.fPixelsPerDegree / 2,
                         fOfFocus + std::abs(stView.fSmearTilt) * st.fPixelsPerDegree / 2};
    if (std::max(stRadius.x, stRadius.y) > 0.6F) soften(*pstScene, stRadius, stOut);
    return 0;
}

BU_S32 SCENE_RenderPanorama(SCENE_S *pstScene, BU_S64 s64TimeUs, const SCENE_FRAME_S &stOut)
{
    if (!pstScene || !isFrame(stOut)) return -1;
    return render(*pstScene, {0, 0, SCENE_PANORAMA_FOV, stOut}, s64TimeUs, stOut);
}
