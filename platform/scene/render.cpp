// The whole way of a picture: scene, settings, mirror, flip, freeze.
#include "scene/scene.h"

#include <libyuv/planar_functions.h>

#include <cmath>

namespace
{
SCENE_FRAME_S frameIn(std::vector<BU_U8> &vec, const SCENE_FRAME_S &stLike)
{
    const std::size_t n = static_cast<std::size_t>(stLike.s32Width) * static_cast<std::size_t>(stLike.s32Height);
    vec.resize(n * 3 / 2);
    return {vec.data(), vec.data() + n, stLike.s32Width, stLike.s32Width, stLike.s32Width, stLike.s32Height};
}

SCENE_FRAME_S upsideDown(SCENE_FRAME_S st)
{
    st.pu8Y += static_cast<std::ptrdiff_t>(st.s32Height - 1) * st.s32StrideY;
    st.pu8Uv += static_cast<std::ptrdiff_t>(st.s32Height / 2 - 1) * st.s32StrideUv;
    st.s32StrideY = -st.s32StrideY;
    st.s32StrideUv = -st.s32StrideUv;
    return st;
}

/// A shutter that is open for long smears what moves past. @return the view, with how far the head turns meanwhile
SCENE_VIEW_S smeared(SCENE_VIEW_S stView, const PICTURE_SETTINGS_S &stSettings, PICTURE_STATE_S &stState,
                     BU_S64 s64TimeUs)
{
    constexpr BU_FLOAT LONG_S = 0.0167F;    // shorter ones leave the picture as it is
    constexpr BU_S64 TOGETHER_US = 200'000; // pictures further apart do not tell how fast it turns
    const bool bByHand = stSettings.enAeMode == AE_MODE_E_MANUAL || stSettings.enAeMode == AE_MODE_E_SHUTTER;
    const BU_S64 s64Between = s64TimeUs - stState.s64LastUs;
    if (bByHand && stSettings.fShutterS > LONG_S && stState.s64LastUs >= 0 && s64Between > 0 &&
        s64Between <= TOGETHER_US) {
        const BU_FLOAT fOpen = stSettings.fShutterS * 1e6F / static_cast<BU_FLOAT>(s64Between);
        stView.fSmearPan = std::remainder(stView.fPan - stState.fPan, 360.0F) * fOpen;
        stView.fSmearTilt = (stView.fTilt - stState.fTilt) * fOpen;
    }
    stState.fPan = stView.fPan;
    stState.fTilt = stView.fTilt;
    return stView;
}

void copy(const SCENE_FRAME_S &stIn, const SCENE_FRAME_S &stOut)
{
    libyuv::CopyPlane(stIn.pu8Y, stIn.s32StrideY, stOut.pu8Y, stOut.s32StrideY, stIn.s32Width, stIn.s32Height);
    libyuv::CopyPlane(stIn.pu8Uv, stIn.s32StrideUv, stOut.pu8Uv, stOut.s32StrideUv, stIn.s32Width, stIn.s32Height / 2);
}
} // namespace

BU_S32 PICTURE_Render(SCENE_S *pstScene, const SCENE_VIEW_S *pstView, const PICTURE_SETTINGS_S &stSettings,
                      PICTURE_STATE_S &stState, BU_S64 s64TimeUs, const SCENE_FRAME_S &stOut)
{
    if (!pstScene || !draw::isFrame(stOut)) return -1;
    const std::size_t n = static_cast<std::size_t>(stOut.s32Width) * static_cast<std::size_t>(stOut.s32Height) * 3 / 2;
    const bool bFrozen =
        stSettings.bFreeze && stState.vecFrozen.size() == n && stState.s32FrozenWidth == stOut.s32Width;
    if (bFrozen) {
        copy(frameIn(stState.vecFrozen, stOut), stOut);
        return 0;
    }
    const SCENE_FRAME_S stWay = stSettings.bMirror ? frameIn(stState.vecWork, stOut) : stOut;
    const SCENE_FRAME_S stInto = stSettings.bFlip ? upsideDown(stWay) : stWay;
    const BU_S32 s32Ret =
        pstView ? SCENE_RenderCloseUp(pstScene, smeared(*pstView, stSettings, stState, s64TimeUs), s64TimeUs, stInto)
                : SCENE_RenderPanorama(pstScene, s64TimeUs, stInto);
    if (s32Ret != 0) return s32Ret;
    if (stSettings.bMirror)
        libyuv::NV12Mirror(stWay.pu8Y, stWay.s32StrideY, stWay.pu8Uv, stWay.s32StrideUv, stOut.pu8Y, stOut.s32StrideY,
                           stOut.pu8Uv, stOut.s32StrideUv, stOut.s32Width, stOut.s32Height);
    PICTURE_Apply(stSettings, stState, s64TimeUs, stOut);
    if (stSettings.bFreeze) {
        copy(stOut, frameIn(stState.vecFrozen, stOut));
        stState.s32FrozenWidth = stOut.s32Width;
    } else
        stState.vecFrozen.clear();
    return 0;
}
