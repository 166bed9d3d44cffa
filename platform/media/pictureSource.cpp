/// What a sensor sees, with the other sensor's picture in it where that is on.
#include "pictureSource.h"

#include "camera/pip.h"
#include "pipe.h"

#include <algorithm>

using media::PictureSource;

namespace
{
/// The part of a picture where the inset lies.
SCENE_FRAME_S insetOf(const SCENE_FRAME_S &st, const MPP_PIP_CONFIG_S &stCfg)
{
    const BU_S32 s32Parts = 2 + std::clamp<BU_S32>(stCfg.enSize, MPP_PIP_SIZE_LARGE, MPP_PIP_SIZE_SMALL);
    const BU_S32 w = st.s32Width / s32Parts & ~1, h = st.s32Height / s32Parts & ~1, s32Margin = st.s32Width / 40 & ~1;
    const bool bRight = stCfg.enPos == MPP_PIP_POS_TOP_RIGHT || stCfg.enPos == MPP_PIP_POS_BOTTOM_RIGHT;
    const std::ptrdiff_t x = bRight ? st.s32Width - s32Margin - w : s32Margin,
                         y = stCfg.enPos >= MPP_PIP_POS_BOTTOM_LEFT ? st.s32Height - s32Margin - h : s32Margin;
    return {
        st.pu8Y + y * st.s32StrideY + x, st.pu8Uv + y / 2 * st.s32StrideUv + x, st.s32StrideY, st.s32StrideUv, w, h};
}
} // namespace

bool PictureSource::look(BU_S32 s32Pipe, Sensor &stSensor, const SCENE_FRAME_S &stFrame, BU_S64 s64TimeUs)
{
    if (!m_pstScene) m_pstScene.reset(SCENE_Open(nullptr));
    PICTURE_ReadSettings(s32Pipe, &stSensor.stSettings);
    SCENE_VIEW_S stView;
    const bool bCloseUp = s32Pipe == PIPE_CLOSE_UP;
    if (bCloseUp) PICTURE_ReadView(&stView);
    return PICTURE_Render(m_pstScene.get(), bCloseUp ? &stView : nullptr, stSensor.stSettings, stSensor.stState,
                          s64TimeUs, stFrame) == 0;
}

void PictureSource::prepare()
{
    Picture picture;
    Sensor stSensor;
    look(m_s32Pipe, stSensor, picture.frame({1920, 1080}), 0);
}

bool PictureSource::draw(const SCENE_FRAME_S &stFrame, BU_S64 s64TimeUs)
{
    MPP_PIP_CONFIG_S stCfg{};
    m_bInset = m_s32Pipe == PIPE_CLOSE_UP && pipeAt(PIPE_PANORAMA) && SYS_API_GetPipConfig(&stCfg, BU_FALSE) == 0 &&
               stCfg.bEnablePip;
    if (!m_bInset) m_stOther.reset();
    return look(m_s32Pipe, m_stOwn, stFrame, s64TimeUs);
}

void PictureSource::drawInset(const SCENE_FRAME_S &stFrame, BU_S64 s64TimeUs)
{
    MPP_PIP_CONFIG_S stCfg{};
    SYS_API_GetPipConfig(&stCfg, BU_FALSE);
    if (!m_stOther) m_stOther.emplace();
    const SCENE_FRAME_S stInset = insetOf(stFrame, stCfg);
    if (stCfg.enMainVideo != MPP_PIP_SOURCE_PANORAMA) {
        look(PIPE_PANORAMA, *m_stOther, stInset, s64TimeUs);
        return;
    }
    Picture own; // the panorama lies under it
    SCENE_Scale(stFrame, own.frame({stInset.s32Width, stInset.s32Height}));
    look(PIPE_PANORAMA, *m_stOther, stFrame, s64TimeUs);
    SCENE_Scale(own.frame({stInset.s32Width, stInset.s32Height}), stInset);
}
