// Exposure mode, shutter, wide dynamic range and backlight.
#include "camera/image.h"
#include "camera/video.h"
#include "handlers.h"
#include "table.h"
#include "util/log.h"
#include "vocabulary/wordSetters.h"

using namespace visca;

namespace
{
/// Where the factory shutter of an output frame rate stands; every other rate shares that of 60.
constexpr Coded<const BU_CHAR *> SHUTTER_KEYS[] = {{HDMI_FPS_E_FPS50, "ShutterSpeedFps50"},
                                                   {HDMI_FPS_E_FPS30, "ShutterSpeedFps30"},
                                                   {HDMI_FPS_E_FPS25, "ShutterSpeedFps25"},
                                                   {HDMI_FPS_E_FPS24, "ShutterSpeedFps24"}};

BU_S32 defaultShutter(HDMI_FPS_E enFps, BU_S32 *ps32Shutter)
{
    const auto *ppcKey = find(SHUTTER_KEYS, enFps);
    return ISP_AF_GetDefVal(ppcKey ? *ppcKey : "ShutterSpeedFps60", ps32Shutter);
}
} // namespace

BU_S32 viscaCtrlAE(tagVISCA_CTRL_INFO_S *pstInfo)
{
    const auto [enType, u8GainLimit] = pstInfo->stAECtrl;
    BU_S32 s32Ret = 0;
    if (enType == VISCA_MSG_E_AE_GAIN_LIMIT_POS) {
        BU_S32 s32Mode = -1;
        ISP_API_GetAeMode(0, &s32Mode, BU_FALSE);
        if (s32Mode != AE_MODE_E_AUTO) return -1;
        s32Ret = ISP_API_SetGainLimit(0, u8GainLimit, BU_TRUE, BU_TRUE);
    } else {
        if (cameraOf<codes::AE_MODES>(enType) == NONE) return refuseType(enType);
        s32Ret = coded<ISP_API_SetAeMode, codes::AE_MODES>(enType);
    }
    TRACE("%d\n", enType);
    return s32Ret;
}

BU_S32 viscaCtrlShutter(tagVISCA_CTRL_INFO_S *pstInfo)
{
    const auto [enType, u8Direct] = pstInfo->stShutterCtrl;
    HDMI_FPS_E enFps = HDMI_FPS_E_FPS60;
    SYSTEM_API_GetHdmiFps(&enFps, BU_FALSE);
    BU_S32 s32Shutter = SHUTTER_TIME_BUTT, s32Ret = 0;
    const auto current = [&] { return static_cast<SHUTTER_TIME_E>(s32Shutter); };
    switch (enType) {
    case VISCA_MSG_E_SHUTTER_RESET:
        s32Ret = defaultShutter(enFps, &s32Shutter);
        break;
    case VISCA_MSG_E_SHUTTER_UP:
        s32Ret = ISP_API_GetShutter(0, &s32Shutter, BU_FALSE);
        s32Shutter = getNextShutterTime(enFps, current());
        break;
    case VISCA_MSG_E_SHUTTER_DOWN:
        s32Ret = ISP_API_GetShutter(0, &s32Shutter, BU_FALSE);
        s32Shutter = getPreviousShutterTime(enFps, current());
        break;
    case VISCA_MSG_E_SHUTTER_DIRECT:
        s32Shutter = convertViscaValueToShutterTime(enFps, u8Direct);
        if (s32Shutter == SHUTTER_TIME_BUTT) return -1;
        break;
    default:
        return -1;
    }
    return s32Ret != 0 ? s32Ret : ISP_API_SetShutter(0, s32Shutter, BU_TRUE, BU_TRUE);
}

BU_S32 viscaCtrlWDR(tagVISCA_CTRL_INFO_S *pstInfo)
{
    const auto enType = pstInfo->stWDRCtrl.enWDRType;
    if (cameraOf<codes::SWITCHES>(enType) == NONE) return refuseType(enType);
    coded<ISP_API_SetDrcSwi>(enType);
    TRACE("%d\n", enType);
    return 0;
}

BU_S32 viscaCtrlBacklight(tagVISCA_CTRL_INFO_S *pstInfo)
{
    const auto enType = pstInfo->enBalklightCtrl;
    if (cameraOf<codes::SWITCHES>(enType) == NONE) return refuseType(enType);
    const BU_S32 s32Ret = coded<ISP_API_SetBackLight>(enType);
    TRACE("%d\n", enType);
    return s32Ret;
}
