// Picture parameters and the extra image settings.
#include "camera/picture.h"
#include "camera/focus.h"
#include "camera/image.h"
#include "camera/preset.h"
#include "config/config.h"
#include "handlers.h"
#include "table.h"
#include "util/file.h"
#include "util/log.h"
#include "vocabulary/wordSetters.h"

using namespace visca;

namespace
{
/// Mirror, flip and mount mode are taken over by the pipeline at its next start.
BU_S32 rebootAfter(BU_S32 s32Ret)
{
    if (s32Ret == 0) UTIL_CMD_RunSafe("sync; reboot");
    return s32Ret;
}

// Makers of the rows below: each gives a function of the message's value.
template <PFN_SET Set> BU_S32 codedReboot(BU_S32 s32Value) { return rebootAfter(coded<Set>(s32Value)); }
template <BU_S32 Which> BU_S32 colourSat(BU_S32 s32Value)
{
    return ISP_API_SetColorSat(0, Which, s32Value, BU_TRUE, BU_TRUE);
}
template <BU_S32 Which> BU_S32 colourHue(BU_S32 s32Value)
{
    // A message counts hues from 0, the setting from its minimum.
    CFG_VALUE_INT_S stRange{};
    CFG_COM_GetIntParams("RColorHue", &stRange);
    return ISP_API_SetColorHue(0, Which, s32Value + stRange.s32Min, BU_TRUE, BU_TRUE);
}
template <BU_S32 Style> BU_S32 imageStyle(BU_S32)
{
    return IMAGE_PRESET_API_GotoById(Style, PT_CTRL_E_FROM_OTHER, nullptr);
}

BU_S32 setWdr(BU_S32 s32Value)
{
    const BU_S32 s32Ret = direct<ISP_API_SetDrcSwi>(s32Value != 0);
    if (s32Value == 0) return 0;
    return s32Ret != 0 ? s32Ret : direct<ISP_API_SetDrcMode>(s32Value - 1);
}

/// Done whatever the setter says.
BU_S32 setFreeze(BU_S32 s32Value)
{
    if (cameraOf<codes::SWITCHES>(s32Value) == NONE) return -1;
    coded<SYS_API_SetImageFreeze>(s32Value);
    return 0;
}

enum Colour : BU_S32 { RED = 1, YELLOW, GREEN, CYAN, BLUE, MAGENTA };

typedef BU_S32 (*PFN_APPLY)(BU_S32 s32Value);
// clang-format off
constexpr Coded<PFN_APPLY> VIDEO_PARAMS[] = {
    {VISCA_MSG_E_DIRECT_SHARPNESS,                direct<ISP_API_SetSharpness>},
    {VISCA_MSG_E_DIRECT_BRIGHTNESS,               direct<ISP_API_SetBrightness>},
    {VISCA_MSG_E_DIRECT_CONTRAST,                 direct<ISP_API_SetContrast>},
    {VISCA_MSG_E_DIRECT_SATURATION,               direct<ISP_API_SetSaturation>},
    {VISCA_MSG_E_DIRECT_HUE,                      direct<ISP_API_SetHue>},
    {VISCA_MSG_E_DIRECT_2DNR,                     direct<ISP_API_Set2DNR>},
    {VISCA_MSG_E_DIRECT_3DNR,                     direct<ISP_API_Set3DNR>},
    {VISCA_MSG_E_DIRECT_GAMMA,                    direct<ISP_API_SetGamma>},
    {VISCA_MSG_E_DIRECT_WDR,                      setWdr},
    {VISCA_MSG_E_DIRECT_MIRROR,                   codedReboot<SYS_API_SetMirror>},
    {VISCA_MSG_E_DIRECT_FILP,                     codedReboot<SYS_API_SetFlip>},
    {VISCA_MSG_E_DIRECT_ANTI_FLICKER,             coded<ISP_API_SetAntiFlicker, codes::ANTI_FLICKERS>},
    {VISCA_MSG_E_DIRECT_FREEZE,                   setFreeze},
    {VISCA_MSG_E_DIRECT_EXP_METER,                direct<ISP_API_SetAeMeterMode>},
    {VISCA_MSG_E_DIRECT_IMAGE_STYLE,              coded<ISP_API_SetIspBinUsage, codes::IMAGE_STYLES>},
    {VISCA_MSG_E_DIRECT_COLOR_MATRIX_BLUE_HUE,    colourHue<BLUE>},
    {VISCA_MSG_E_DIRECT_COLOR_MATRIX_CYAN_HUE,    colourHue<CYAN>},
    {VISCA_MSG_E_DIRECT_COLOR_MATRIX_GREEN_HUE,   colourHue<GREEN>},
    {VISCA_MSG_E_DIRECT_COLOR_MATRIX_RED_HUE,     colourHue<RED>},
    {VISCA_MSG_E_DIRECT_COLOR_MATRIX_YELLOW_HUE,  colourHue<YELLOW>},
    {VISCA_MSG_E_DIRECT_COLOR_MATRIX_MEGENTA_HUE, colourHue<MAGENTA>},
    {VISCA_MSG_E_DIRECT_COLOR_MATRIX_BLUE_SAT,    colourSat<BLUE>},
    {VISCA_MSG_E_DIRECT_COLOR_MATRIX_CYAN_SAT,    colourSat<CYAN>},
    {VISCA_MSG_E_DIRECT_COLOR_MATRIX_GREEN_SAT,   colourSat<GREEN>},
    {VISCA_MSG_E_DIRECT_COLOR_MATRIX_RED_SAT,     colourSat<RED>},
    {VISCA_MSG_E_DIRECT_COLOR_MATRIX_YELLOW_SAT,  colourSat<YELLOW>},
    {VISCA_MSG_E_DIRECT_COLOR_MATRIX_MEGENTA_SAT, colourSat<MAGENTA>},
};
// clang-format on

BU_S32 resetImage(BU_S32)
{
    ISP_API_Reset(0);
    return ISP_API_Reset(1);
}

BU_S32 setTeleMode(BU_S32 s32Value)
{
    BU_S32 bCrop = BU_FALSE;
    SYS_API_GetSensorCrop(&bCrop, BU_FALSE);
    return codeOf<codes::SWITCHES>(bCrop) == s32Value ? 0 : coded<SYS_API_SetSensorCrop>(s32Value);
}

// clang-format off
constexpr Coded<PFN_APPLY> EXTRA_PARAMS[] = {
    {VISCA_MSG_E_EXP_FULLVIEW_FOLLOW_MODE, coded<ISP_API_SetExposureFullViewFollow>},
    {VISCA_MSG_E_WB_FULLVIEW_FOLLOW_MODE,  coded<ISP_API_SetWhiteBalanceFullViewFollow>},
    {VISCA_MSG_E_ISP_STYLE_DEFAULT,        imageStyle<-250>},
    {VISCA_MSG_E_ISP_STYLE_SONY,           imageStyle<-1>},
    {VISCA_MSG_E_ISP_STYLE_BMD,            imageStyle<-2>},
    {VISCA_MSG_E_ISP_STYLE_PANASONIC,      imageStyle<-3>},
    {VISCA_MSG_E_WB_SENSI,                 direct<ISP_API_SetAwbSensitivity>},
    {VISCA_MSG_E_INSTALL_MODE,             codedReboot<SYS_API_SetMountMode>},
    {VISCA_MSG_E_LENS_CORRECTION_MODE,     coded<AF_API_SetDistortionCorrection>},
    {VISCA_MSG_E_IMAGE_RESET,              resetImage},
    {VISCA_MSG_E_EXP_ND_FILTER,            direct<ISP_API_SetNDFilter>},
    {VISCA_MSG_E_TELE_MODE,                setTeleMode},
    {VISCA_MSG_E_FACE_AF_MODE,             coded<AF_API_SetFaceAF>},
    {VISCA_MSG_E_IRIS_AUTO_MODE,           coded<ISP_API_SetAutoIrisSwi>},
};
// clang-format on
} // namespace

BU_S32 viscaCtrlVideoParam(tagVISCA_CTRL_INFO_S *pstInfo)
{
    const auto [enType, u8Value] = pstInfo->stVideoParamCtrl;
    const auto *ppfnApply = find(VIDEO_PARAMS, enType);
    if (!ppfnApply) return refuseType(enType);
    const BU_S32 s32Ret = (*ppfnApply)(u8Value);
    TRACE("Type %d, Value %d\n", enType, u8Value);
    return s32Ret;
}

BU_S32 viscaCtrlExtraISP(tagVISCA_CTRL_INFO_S *pstInfo)
{
    const auto [enType, u8Value] = pstInfo->stExtraIspCtrl;
    const auto *ppfnApply = find(EXTRA_PARAMS, enType);
    const BU_S32 s32Ret = ppfnApply ? (*ppfnApply)(u8Value) : -1;
    TRACE("Type[%d]  \n", enType);
    return s32Ret;
}
