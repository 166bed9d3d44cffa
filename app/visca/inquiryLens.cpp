// Inquiries of lens, pan/tilt and presets.
#include "inquiry.h"

#include "camera/motion.h"
#include "camera/picture.h"
#include "camera/preset.h"
#include "camera/zoom.h"
#include "util/log.h"

using namespace visca;

namespace
{
/// The fastest levels that a controller is told of.
constexpr BU_U8 MAX_PAN_SPEED = 24, MAX_TILT_SPEED = 20;
} // namespace

BU_S32 viscaInquiryZoomPos(tagVISCA_CTRL_INFO_S *pstInfo)
{
    BU_S32 s32Pos = UNREAD;
    PTZ_API_GetZoomPos(0, &s32Pos);
    return store<ZoomPos>(pstInfo, s32Pos);
}

BU_S32 viscaInquiryZoomSpd(tagVISCA_CTRL_INFO_S *pstInfo)
{
    PTZ_API_GetZoomSpd(0, &pstInfo->stZoomCtrl.u8ZoomVariable, BU_FALSE);
    UTIL_TRACE_Print("success inquiry zoomspd ");
    return 0;
}

BU_S32 viscaInquiryDZoomLimit(tagVISCA_CTRL_INFO_S *pstInfo)
{
    store<DZoomLimit>(pstInfo, ask<PTZ_API_GetMaxDZoomTime>());
    UTIL_TRACE_Print("success inquiry DzoomLimit ");
    return 0;
}

BU_S32 viscaInquiryDzoomMode(tagVISCA_CTRL_INFO_S *pstInfo)
{
    return storeOnOff<DZoomMode>(pstInfo, ask<PTZ_API_GetDZoomMode>());
}

BU_S32 viscaInquiryFocusMode(tagVISCA_CTRL_INFO_S *pstInfo)
{
    return storeOnOff<FocusMode>(pstInfo, ask<AF_API_GetFocusAuto>());
}

BU_S32 viscaInquiryFocusPos(tagVISCA_CTRL_INFO_S *pstInfo)
{
    return store<FocusPos>(pstInfo, ask<AF_API_GetFocusAbs>());
}

BU_S32 viscaInquiryPanTiltPos(tagVISCA_CTRL_INFO_S *pstInfo)
{
    PT_POS_S stPos{};
    if (BSP_PTGetCurPos(0, &stPos, PT_DEV_TYPE_PAN_TILE_E) != 0) return 0;
    BSP_PTPosToVisca(0, &stPos);
    PanPos::set(*pstInfo, stPos.u32PanPos);
    TiltPos::set(*pstInfo, stPos.u32TiltPos);
    return 0;
}

BU_S32 viscaInquiryPanTiltMaxSpeed(tagVISCA_CTRL_INFO_S *pstInfo)
{
    PanSpeed::set(*pstInfo, MAX_PAN_SPEED);
    TiltSpeed::set(*pstInfo, MAX_TILT_SPEED);
    return 0;
}

BU_S32 viscaInquiryPTSpeed(tagVISCA_CTRL_INFO_S *pstInfo)
{
    const BU_U32 u32Delivered = PTSpeedParam::get(*pstInfo);
    const BU_U32 u32Pan = ask<PT_API_GetPanSpeed>(u32Delivered >> 16);
    const BU_U32 u32Tilt = ask<PT_API_GetTileSpeed>(u32Delivered & 0xFFFF);
    PTSpeedParam::set(*pstInfo, u32Pan << 16 | (u32Tilt & 0xFFFF));
    return 0;
}

BU_S32 viscaInquiryPTSpeedMatch(tagVISCA_CTRL_INFO_S *pstInfo)
{
    return storeOnOff<PTSpeedMatch>(pstInfo, ask<PT_API_GetPtSpeedMatch>());
}

BU_S32 viscaInquiryPTSpeedAccuarcy(tagVISCA_CTRL_INFO_S *pstInfo)
{
    return store<PTSpeedParam>(pstInfo, codeOf<codes::SPEED_ACCURACIES>(ask<PT_API_GetSpeedAccuracy>()));
}

BU_S32 viscaInquiryMemoryStatue(tagVISCA_CTRL_INFO_S *pstInfo)
{
    const auto enType = pstInfo->stMemoryCtrl.enMemoryType;
    BU_S32 s32Value = UNREAD, s32Ret = 0;
    switch (enType) {
    case VISCA_MSG_E_MEMORY_SPEED:
        s32Ret = PRESET_API_GetPresetSpeed(0, &s32Value, BU_FALSE);
        break;
    case VISCA_MSG_E_MEMORY_POWERUP:
        s32Ret = PT_API_GetPowerUpPtzPos(0, &s32Value, BU_FALSE);
        if (s32Value == -1) s32Value = 0; // no preset
        break;
    case VISCA_MSG_E_MEMORY_MODE:
        s32Ret = SYS_API_GetPresetMode(&s32Value, BU_TRUE);
        s32Value = onOff(s32Value);
        break;
    default:
        TRACE("unknow type %d\n", enType);
        return -1;
    }
    store<Memory>(pstInfo, s32Value);
    TRACE("Type %d, %d\n", enType, pstInfo->stMemoryCtrl.u8MemVal);
    return s32Ret;
}
