#include "camera/focus.h"
#include "camera/image.h"
#include "camera/preset.h"
#include "camera/system.h"
#include "config/config.h"
#include "util/file.h"
#include "util/log.h"
#include "visca/viscaHandlers.h"
#include "visca/viscaTable.h"
#include "vocabulary/wordSetters.h"

namespace
{
typedef BU_S32 (*PFN_SET_DEV)(BU_S32, BU_S32, BU_BOOL, BU_BOOL);
typedef BU_S32 (*PFN_SET)(BU_S32, BU_BOOL, BU_BOOL);
typedef BU_S32 (*PFN_SET_WORD)(const BU_CHAR *, BU_BOOL, BU_BOOL);

/// Mirror, flip and mount mode are taken over by the pipeline at its next start.
BU_S32 rebootAfter(BU_S32 s32Ret)
{
    if (s32Ret == 0) UTIL_CMD_RunSafe("sync; reboot");
    return s32Ret;
}

// Makers of the rows below: each gives a function of the message's value.
template <PFN_SET_DEV Set> BU_S32 direct(BU_S32 s32Value) { return Set(0, s32Value, BU_TRUE, BU_TRUE); }
template <PFN_SET_DEV Set> BU_S32 onOff(BU_S32 s32Value)
{
    const auto *pbOn = viscaFind(VISCA_SWITCH, s32Value);
    return pbOn ? Set(0, *pbOn, BU_TRUE, BU_TRUE) : -1;
}
template <PFN_SET Set> BU_S32 onOff(BU_S32 s32Value)
{
    const auto *pbOn = viscaFind(VISCA_SWITCH, s32Value);
    return pbOn ? Set(*pbOn, BU_TRUE, BU_TRUE) : -1;
}
template <PFN_SET_WORD Set> BU_S32 onOffReboot(BU_S32 s32Value)
{
    const auto *ppcWord = viscaFind(VISCA_SWITCH_WORDS, s32Value);
    return ppcWord ? rebootAfter(Set(*ppcWord, BU_TRUE, BU_TRUE)) : -1;
}
template <BU_S32 Colour> BU_S32 colourSat(BU_S32 s32Value)
{
    return ISP_API_SetColorSat(0, Colour, s32Value, BU_TRUE, BU_TRUE);
}
template <BU_S32 Colour> BU_S32 colourHue(BU_S32 s32Value)
{
    // A message counts hues from 0, the setting from its minimum.
    CFG_VALUE_INT_S stRange{};
    CFG_COM_GetIntParams("RColorHue", &stRange);
    return ISP_API_SetColorHue(0, Colour, s32Value + stRange.s32Min, BU_TRUE, BU_TRUE);
}
template <BU_S32 Style> BU_S32 imageStyle(BU_S32)
{
    return IMAGE_PRESET_API_GotoById(Style, PT_CTRL_E_FROM_OTHER, nullptr);
}

BU_S32 setWdr(BU_S32 s32Value)
{
    const BU_S32 s32Ret = ISP_API_SetDrcSwi(0, s32Value != 0, BU_TRUE, BU_TRUE);
    if (s32Value == 0) return 0;
    return s32Ret != 0 ? s32Ret : ISP_API_SetDrcMode(0, s32Value - 1, BU_TRUE, BU_TRUE);
}

BU_S32 setAntiFlicker(BU_S32 s32Value)
{
    static constexpr tagVISCA_CODE_S<const BU_CHAR *> WORDS[] = {{0, "Off"}, {1, "Hz50"}, {2, "Hz60"}};
    const auto *ppcWord = viscaFind(WORDS, s32Value);
    return ppcWord ? ISP_API_SetAntiFlicker(0, *ppcWord, BU_TRUE, BU_TRUE) : -1;
}

BU_S32 setFreeze(BU_S32 s32Value)
{
    const auto *pbOn = viscaFind(VISCA_SWITCH, s32Value);
    if (!pbOn) return -1;
    SYS_API_SetImageFreeze(*pbOn, BU_TRUE, BU_TRUE);
    return 0;
}

BU_S32 setBinUsage(BU_S32 s32Value)
{
    static constexpr tagVISCA_CODE_S<BU_S32> STYLES[] = {{0, 0}, {1, Bright_STYLE}, {2, Soft_STYLE}};
    const auto *ps32Style = viscaFind(STYLES, s32Value);
    return ps32Style ? ISP_API_SetIspBinUsage(0, *ps32Style, BU_TRUE, BU_TRUE) : -1;
}

enum COLOUR_E : BU_S32 {
    COLOUR_E_RED = 1,
    COLOUR_E_YELLOW,
    COLOUR_E_GREEN,
    COLOUR_E_CYAN,
    COLOUR_E_BLUE,
    COLOUR_E_MAGENTA
};

typedef BU_S32 (*PFN_APPLY)(BU_S32 s32Value);
// clang-format off
constexpr tagVISCA_CODE_S<PFN_APPLY> VIDEO_PARAMS[] = {
    {VISCA_MSG_E_DIRECT_SHARPNESS,                direct<ISP_API_SetSharpness>},
    {VISCA_MSG_E_DIRECT_BRIGHTNESS,               direct<ISP_API_SetBrightness>},
    {VISCA_MSG_E_DIRECT_CONTRAST,                 direct<ISP_API_SetContrast>},
    {VISCA_MSG_E_DIRECT_SATURATION,               direct<ISP_API_SetSaturation>},
    {VISCA_MSG_E_DIRECT_HUE,                      direct<ISP_API_SetHue>},
    {VISCA_MSG_E_DIRECT_2DNR,                     direct<ISP_API_Set2DNR>},
    {VISCA_MSG_E_DIRECT_3DNR,                     direct<ISP_API_Set3DNR>},
    {VISCA_MSG_E_DIRECT_GAMMA,                    direct<ISP_API_SetGamma>},
    {VISCA_MSG_E_DIRECT_WDR,                      setWdr},
    {VISCA_MSG_E_DIRECT_MIRROR,                   onOffReboot<SYS_API_SetMirror>},
    {VISCA_MSG_E_DIRECT_FILP,                     onOffReboot<SYS_API_SetFlip>},
    {VISCA_MSG_E_DIRECT_ANTI_FLICKER,             setAntiFlicker},
    {VISCA_MSG_E_DIRECT_FREEZE,                   setFreeze},
    {VISCA_MSG_E_DIRECT_EXP_METER,                direct<ISP_API_SetAeMeterMode>},
    {VISCA_MSG_E_DIRECT_IMAGE_STYLE,              setBinUsage},
    {VISCA_MSG_E_DIRECT_COLOR_MATRIX_BLUE_HUE,    colourHue<COLOUR_E_BLUE>},
    {VISCA_MSG_E_DIRECT_COLOR_MATRIX_CYAN_HUE,    colourHue<COLOUR_E_CYAN>},
    {VISCA_MSG_E_DIRECT_COLOR_MATRIX_GREEN_HUE,   colourHue<COLOUR_E_GREEN>},
    {VISCA_MSG_E_DIRECT_COLOR_MATRIX_RED_HUE,     colourHue<COLOUR_E_RED>},
    {VISCA_MSG_E_DIRECT_COLOR_MATRIX_YELLOW_HUE,  colourHue<COLOUR_E_YELLOW>},
    {VISCA_MSG_E_DIRECT_COLOR_MATRIX_MEGENTA_HUE, colourHue<COLOUR_E_MAGENTA>},
    {VISCA_MSG_E_DIRECT_COLOR_MATRIX_BLUE_SAT,    colourSat<COLOUR_E_BLUE>},
    {VISCA_MSG_E_DIRECT_COLOR_MATRIX_CYAN_SAT,    colourSat<COLOUR_E_CYAN>},
    {VISCA_MSG_E_DIRECT_COLOR_MATRIX_GREEN_SAT,   colourSat<COLOUR_E_GREEN>},
    {VISCA_MSG_E_DIRECT_COLOR_MATRIX_RED_SAT,     colourSat<COLOUR_E_RED>},
    {VISCA_MSG_E_DIRECT_COLOR_MATRIX_YELLOW_SAT,  colourSat<COLOUR_E_YELLOW>},
    {VISCA_MSG_E_DIRECT_COLOR_MATRIX_MEGENTA_SAT, colourSat<COLOUR_E_MAGENTA>},
};
// clang-format on

/// On: a stand, off: the ceiling.
BU_S32 setMountMode(BU_S32 s32Value) { return rebootAfter(onOff<SYS_API_SetMountMode>(s32Value)); }

BU_S32 resetImage(BU_S32)
{
    ISP_API_Reset(0);
    return ISP_API_Reset(1);
}

BU_S32 setTeleMode(BU_S32 s32Value)
{
    const auto *pbOn = viscaFind(VISCA_SWITCH, s32Value);
    if (!pbOn) return -1;
    BU_S32 bCrop = BU_FALSE;
    SYS_API_GetSensorCrop(&bCrop, BU_FALSE);
    return (bCrop != BU_FALSE) == (*pbOn != BU_FALSE) ? 0 : SYS_API_SetSensorCrop(*pbOn, BU_TRUE, BU_TRUE);
}

// clang-format off
constexpr tagVISCA_CODE_S<PFN_APPLY> EXTRA_PARAMS[] = {
    {VISCA_MSG_E_EXP_FULLVIEW_FOLLOW_MODE, onOff<ISP_API_SetExposureFullViewFollow>},
    {VISCA_MSG_E_WB_FULLVIEW_FOLLOW_MODE,  onOff<ISP_API_SetWhiteBalanceFullViewFollow>},
    {VISCA_MSG_E_ISP_STYLE_DEFAULT,        imageStyle<-250>},
    {VISCA_MSG_E_ISP_STYLE_SONY,           imageStyle<-1>},
    {VISCA_MSG_E_ISP_STYLE_BMD,            imageStyle<-2>},
    {VISCA_MSG_E_ISP_STYLE_PANASONIC,      imageStyle<-3>},
    {VISCA_MSG_E_WB_SENSI,                 direct<ISP_API_SetAwbSensitivity>},
    {VISCA_MSG_E_INSTALL_MODE,             setMountMode},
    {VISCA_MSG_E_LENS_CORRECTION_MODE,     onOff<AF_API_SetDistortionCorrection>},
    {VISCA_MSG_E_IMAGE_RESET,              resetImage},
    {VISCA_MSG_E_EXP_ND_FILTER,            direct<ISP_API_SetNDFilter>},
    {VISCA_MSG_E_TELE_MODE,                setTeleMode},
    {VISCA_MSG_E_FACE_AF_MODE,             onOff<AF_API_SetFaceAF>},
    {VISCA_MSG_E_IRIS_AUTO_MODE,           onOff<ISP_API_SetAutoIrisSwi>},
};
// clang-format on
} // namespace

BU_S32 viscaCtrlVideoParam(tagVISCA_CTRL_INFO_S *pstInfo)
{
    const auto [enType, u8Value] = pstInfo->stVideoParamCtrl;
    const auto *ppfnApply = viscaFind(VIDEO_PARAMS, enType);
    if (!ppfnApply) return viscaRefuseType(enType);
    const BU_S32 s32Ret = (*ppfnApply)(u8Value);
    TRACE("Type %d, Value %d\n", enType, u8Value);
    return s32Ret;
}

BU_S32 viscaCtrlExtraISP(tagVISCA_CTRL_INFO_S *pstInfo)
{
    const auto [enType, u8Value] = pstInfo->stExtraIspCtrl;
    const auto *ppfnApply = viscaFind(EXTRA_PARAMS, enType);
    const BU_S32 s32Ret = ppfnApply ? (*ppfnApply)(u8Value) : -1;
    TRACE("Type[%d]  \n", enType);
    return s32Ret;
}
