#include "media/scene.h"

#include "background.h"
#include "dressing.h"
#include "film.h"
#include "people.h"
#include "room.h"
#include "util/log.h"

#include <libyuv/planar_functions.h>
#include <libyuv/scale.h>

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

/// The chroma goes through separate planes: libyuv's own scaling of pairs darkens them by a step or two.
void scale(const SCENE_FRAME_S &stIn, const SCENE_FRAME_S &stOut)
{
    const BU_S32 s32InW = stIn.s32Width / 2, s32InH = stIn.s32Height / 2, s32OutW = stOut.s32Width / 2,
                 s32OutH = stOut.s32Height / 2;
    const std::ptrdiff_t sIn = static_cast<std::ptrdiff_t>(s32InW) * s32InH,
                         sOut = static_cast<std::ptrdiff_t>(s32OutW) * s32OutH;
    thread_local std::vector<BU_U8> s_vec; // kept for its memory
    s_vec.resize(std::max(s_vec.size(), static_cast<std::size_t>(2 * (sIn + sOut))));
    BU_U8 *const apu8In[2] = {s_vec.data(), s_vec.data() + sIn}, *const apu8Out[2] = {apu8In[1] + sIn,
                                                                                      apu8In[1] + sIn + sOut};

    libyuv::ScalePlane(stIn.pu8Y, stIn.s32StrideY, stIn.s32Width, stIn.s32Height, stOut.pu8Y, stOut.s32StrideY,
                       stOut.s32Width, stOut.s32Height, libyuv::kFilterBox);
    libyuv::SplitUVPlane(stIn.pu8Uv, stIn.s32StrideUv, apu8In[0], s32InW, apu8In[1], s32InW, s32InW, s32InH);
    for (int i = 0; i < 2; ++i)
        libyuv::ScalePlane(apu8In[i], s32InW, s32InW, s32InH, apu8Out[i], s32OutW, s32OutW, s32OutH,
                           libyuv::kFilterBox);
    libyuv::MergeUVPlane(apu8Out[0], s32OutW, apu8Out[1], s32OutW, stOut.pu8Uv, stOut.s32StrideUv, s32OutW, s32OutH);
}

/// Softens a picture by a radius in pixels, across and down: made smaller and larger again.
void soften(SCENE_S &stScene, Point stRadius, const SCENE_FRAME_S &st)
{
    const auto size = [](BU_S32 s32, float fRadius) {
        const float fShrink = 1 + 0.6F * std::min(fRadius, BLUR_LIMIT);
        return std::max(static_cast<BU_S32>(static_cast<float>(s32) / fShrink) & ~1, 8);
    };
    const BU_S32 s32Width = size(st.s32Width, stRadius.x), s32Height = size(st.s32Height, stRadius.y);
    stScene.vecSmall.resize(static_cast<std::size_t>(s32Width) * static_cast<std::size_t>(s32Height) * 3 / 2);
    const SCENE_FRAME_S stSmall{stScene.vecSmall.data(),
                                stScene.vecSmall.data() + s32Width * s32Height,
                                s32Width,
                                s32Width,
                                s32Width,
                                s32Height};
    scale(st, stSmall);
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

bool scene::isFrame(const SCENE_FRAME_S &st)
{
    const auto isSize = [](BU_S32 s32) { return s32 >= 16 && s32 <= 8192 && s32 % 2 == 0; };
    return st.pu8Y && st.pu8Uv && isSize(st.s32Width) && isSize(st.s32Height);
}

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

BU_S32 SCENE_Scale(const SCENE_FRAME_S &stIn, const SCENE_FRAME_S &stOut)
{
    if (!isFrame(stIn) || !isFrame(stOut)) return -1;
    scale(stIn, stOut);
    return 0;
}
