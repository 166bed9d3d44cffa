// Zoom, digital zoom and focus.
#include "camera/focus.h"
#include "camera/motion.h"
#include "camera/picture.h"
#include "camera/zoom.h"
#include "handlers.h"
#include "table.h"
#include "util/log.h"

using namespace visca;

namespace
{
/// How far a controller may zoom, by the digital magnification allowed.
BU_S32 visca_GetMaxInfoZoomPos()
{
    BU_S32 s32Limit = 1;
    PTZ_API_GetMaxDZoomTime(0, &s32Limit, BU_FALSE);
    const bool bKnown = s32Limit >= 1 && s32Limit <= std::ssize(PTZ_ZOOM_ENDS);
    return PTZ_ZOOM_ENDS[bKnown ? s32Limit - 1 : 0];
}

constexpr Coded<ZF_MOTION_TYPE_E> ZOOM_MOTIONS[] = {
    {VISCA_MSG_E_SET_ZOOM_STOP, ZF_E_ZOOM_STOP},          {VISCA_MSG_E_SET_ZOOM_TELE_STANDARD, ZF_E_ZOOM_TELE},
    {VISCA_MSG_E_SET_ZOOM_WIDE_STANDARD, ZF_E_ZOOM_WIDE}, {VISCA_MSG_E_SET_ZOOM_TELE_VARIABLE, ZF_E_ZOOM_TELE},
    {VISCA_MSG_E_SET_ZOOM_WIDE_VARIABLE, ZF_E_ZOOM_WIDE}, {VISCA_MSG_E_SET_ZOOM_DIRECT_POS, ZF_E_ZOOM_DIRECT_POS}};

constexpr Coded<ZF_MOTION_TYPE_E> FOCUS_MOTIONS[] = {
    {VISCA_MSG_E_SET_FOCUS_STOP, ZF_E_FOCUS_STOP},          {VISCA_MSG_E_SET_FOCUS_FAR_STANDARD, ZF_E_FOCUS_FAR},
    {VISCA_MSG_E_SET_FOCUS_NEAR_STANDARD, ZF_E_FOCUS_NEAR}, {VISCA_MSG_E_SET_FOCUS_FAR_VARIABLE, ZF_E_FOCUS_FAR},
    {VISCA_MSG_E_SET_FOCUS_NEAR_VARIABLE, ZF_E_FOCUS_NEAR}, {VISCA_MSG_E_SET_FOCUS_DIRECT_POS, ZF_E_FOCUS_DIRECT_POS}};

BU_S32 moveFocus(tagVISCA_CTRL_INFO_S *pstInfo, ZF_MOTION_TYPE_E enMotion)
{
    ZF_MOTION_CTRL_S stMotion{};
    stMotion.enMotionType = enMotion;
    stMotion.u8FocusSpd = pstInfo->stFocusCtrl.u8FocusVariable + 1;
    if (enMotion == ZF_E_FOCUS_DIRECT_POS) {
        stMotion.u32FocusPos = pstInfo->stFocusCtrl.u16FocusPos;
        UTIL_TRACE_Print("FocusSpd %x \n", stMotion.u8FocusSpd);
    }
    return BSP_ZFCtrlMotion(ZF_CTRL_E_FROM_VISCA, &stMotion, pstInfo);
}

BU_S32 toggleFocusAuto()
{
    BU_S32 bAuto = BU_FALSE;
    AF_API_GetFocusAuto(0, &bAuto, BU_FALSE);
    return direct<AF_API_SetFocusAuto>(bAuto != BU_TRUE);
}
} // namespace

BU_S32 viscaCtrlZoom(tagVISCA_CTRL_INFO_S *pstInfo)
{
    const auto &stZoom = pstInfo->stZoomCtrl;
    TRACE("%d, 0x%X, 0x%X\n", stZoom.enZoomType, stZoom.u8ZoomVariable, stZoom.u16ZoomPos);
    const auto *penMotion = find(ZOOM_MOTIONS, stZoom.enZoomType);
    if (!penMotion) return refuseType(stZoom.enZoomType);

    ZF_MOTION_CTRL_S stMotion{};
    stMotion.enMotionType = *penMotion;
    stMotion.u8ZoomSpd = stZoom.u8ZoomVariable;
    stMotion.u32ZoomPos = stZoom.u16ZoomPos;
    if (stZoom.enZoomType == VISCA_MSG_E_SET_ZOOM_TELE_STANDARD ||
        stZoom.enZoomType == VISCA_MSG_E_SET_ZOOM_WIDE_STANDARD)
        PTZ_API_GetZoomSpd(0, &stMotion.u8ZoomSpd);
    if (stZoom.enZoomType == VISCA_MSG_E_SET_ZOOM_DIRECT_POS) {
        stMotion.u8ZoomSpd = 4;
        const BU_S32 s32Max = visca_GetMaxInfoZoomPos();
        if (stZoom.u16ZoomPos > s32Max) {
            TRACE("zoom pos %d > max zoom pos %d\n", stZoom.u16ZoomPos, s32Max);
            return -1;
        }
    }
    return BSP_ZFCtrlMotion(ZF_CTRL_E_FROM_VISCA, &stMotion, pstInfo);
}

BU_S32 viscaCtrlDZoom(tagVISCA_CTRL_INFO_S *pstInfo)
{
    const auto [enType, u8Limit] = pstInfo->stDZoomCtrl;
    TRACE("Type %d Limit %d\n", enType, u8Limit);
    BU_S32 bCrop = BU_FALSE;
    SYS_API_GetSensorCrop(&bCrop, BU_TRUE);
    if (bCrop) {
        TRACE("sensor crop is on, reject dzoom\n");
        return -1;
    }
    if (enType == VISCA_MSG_E_DZOOM_SET_LIMIT) return direct<PTZ_API_SetMaxDZoomTime>(u8Limit);
    return cameraOf<codes::SWITCHES>(enType) == NONE ? refuseType(enType) : coded<PTZ_API_SetDZoomMode>(enType);
}

BU_S32 viscaCtrlFocus(tagVISCA_CTRL_INFO_S *pstInfo)
{
    const auto &stFocus = pstInfo->stFocusCtrl;
    TRACE("%d\n", stFocus.enFocusType);
    if (stFocus.enFocusType == VISCA_MSG_E_SET_FOCUS_DIRECT_POS &&
        (stFocus.u16FocusPos < AF_FAR_END || stFocus.u16FocusPos > AF_NEAR_END)) {
        TRACE("focus pos %d out of range\n", stFocus.u16FocusPos);
        return -1;
    }
    if (const auto *penMotion = find(FOCUS_MOTIONS, stFocus.enFocusType)) return moveFocus(pstInfo, *penMotion);

    // Only a motion's result counts from here on.
    if (const BU_S32 s32Area = cameraOf<codes::FOCUS_AREAS>(stFocus.enFocusType); s32Area != NONE) {
        direct<AF_API_SetFocusArea>(s32Area);
        return 0;
    }
    switch (stFocus.enFocusType) {
    case VISCA_MSG_E_FOCUS_AUTO:
    case VISCA_MSG_E_FOCUS_MANUAL:
        coded<AF_API_SetFocusAuto>(stFocus.enFocusType);
        return 0;
    case VISCA_MSG_E_FOCUS_AUTO_MANUAL:
        toggleFocusAuto();
        return 0;
    case VISCA_MSG_E_FOCUS_ONE_PUSH_TRIGGER:
        AF_API_TriggerAutoFocus(0);
        UTIL_TRACE_Print("success push trigger ");
        return 0;
    default:
        return refuseType(stFocus.enFocusType);
    }
}

BU_S32 viscaCtrlZoomFocus(tagVISCA_CTRL_INFO_S *pstInfo)
{
    const auto [u16ZoomPos, u16FocusPos] = pstInfo->stZoomFocusCtrl;
    UTIL_TRACE_Print(" ZoomPos = %d Focus = %d \n", u16ZoomPos, u16FocusPos);
    ZF_MOTION_CTRL_S stMotion{};
    stMotion.enMotionType = ZF_E_ZOOM_FOCUS_DIRECT_POS;
    PTZ_API_GetZoomSpd(0, &stMotion.u8ZoomSpd);
    stMotion.u32ZoomPos = u16ZoomPos;
    stMotion.u32FocusPos = u16FocusPos;
    return BSP_ZFCtrlMotion(ZF_CTRL_E_FROM_VISCA, &stMotion, pstInfo);
}
