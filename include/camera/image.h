/// Image settings of the two pipelines: 0 close-up, 1 panorama.
#pragma once

#include "base/setting.h"

enum tagAE_MODE_E : BU_S32 {
    AE_MODE_E_AUTO = 0,
    AE_MODE_E_BRIGHT,
    AE_MODE_E_SHUTTER,
    AE_MODE_E_IRIS,
    AE_MODE_E_MANUAL
};
typedef tagAE_MODE_E AE_MODE_E;
enum tagWB_MODE_E : BU_S32 {
    WB_MODE_E_AUTO = 0,
    WB_MODE_E_MANUAL,
    WB_MODE_E_INDOOR,
    WB_MODE_E_OUTDOOR,
    WB_MODE_E_STATIC,
    WB_MODE_E_ONE_PUSH
};
enum tagND_FILTER_E : BU_S32 { ND_FILTER_1 = 0, ND_FILTER_1_4, ND_FILTER_1_16, ND_FILTER_1_64 };
enum tagAE_METER_MODE_E : BU_S32 {
    AE_METER_MODE_E_AVG = 0,
    AE_METER_MODE_E_CENTER,
    AE_METER_MODE_E_TOP,
    AE_METER_MODE_E_BOTTOM,
    AE_METER_MODE_E_LEFT,
    AE_METER_MODE_E_RIGHT
};
enum tagFREQ_MODE_E : BU_S32 { FREQ_MODE_E_50HZ = 0, FREQ_MODE_E_60HZ, FREQ_MODE_E_OUTDOOR };
enum tagAWB_SENSITIVITY_E : BU_S32 { AWB_SENSITIVITY_E_LOW = 0, AWB_SENSITIVITY_E_MIDDLE, AWB_SENSITIVITY_E_HIGH };
enum tagImageStyle : BU_S32 {
    NON_STYLE = 0,
    HDMI_STYLE,
    VENC_STYLE,
    USB_STYLE,
    Beauty_STYLE,
    Default_STYLE,
    Bright_STYLE,
    Soft_STYLE,
    Teams_STYLE,
    ZOOM_STYLE
};
enum tagIRIS_LEVEL_E : BU_S32 {
    IRIS_LEVEL_E_CLOSE = 0,
    IRIS_LEVEL_E_IL_F14 = 1,
    IRIS_LEVEL_E_IL_F11 = 2,
    IRIS_LEVEL_E_IL_F1P6 = 13
};
typedef tagIRIS_LEVEL_E IRIS_LEVEL_E;

// Exposure.
// settings: ISP_API_Exposure
/// tagAE_MODE_E: 0...4, default 0 [ExposureMode]
BU_S32 ISP_API_GetAeMode(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
inline BU_S32 ISP_API_GetAeMode(BU_S32 s32Pipe, tagAE_MODE_E *penValue, BU_BOOL bReread = BU_FALSE)
{
    return ISP_API_GetAeMode(s32Pipe, EnumAsNumber(penValue).address(), bReread);
}
BU_S32 ISP_API_SetAeMode(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// tagAE_METER_MODE_E: 0...5, default 0 [AEMeterMode]
BU_S32 ISP_API_GetAeMeterMode(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
inline BU_S32 ISP_API_GetAeMeterMode(BU_S32 s32Pipe, tagAE_METER_MODE_E *penValue, BU_BOOL bReread = BU_FALSE)
{
    return ISP_API_GetAeMeterMode(s32Pipe, EnumAsNumber(penValue).address(), bReread);
}
BU_S32 ISP_API_SetAeMeterMode(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// tagFREQ_MODE_E, 2 is off: 0...2, default 0 [AntiFlicker]
BU_S32 ISP_API_GetAntiFlicker(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
inline BU_S32 ISP_API_GetAntiFlicker(BU_S32 s32Pipe, tagFREQ_MODE_E *penValue, BU_BOOL bReread = BU_FALSE)
{
    return ISP_API_GetAntiFlicker(s32Pipe, EnumAsNumber(penValue).address(), bReread);
}
BU_S32 ISP_API_SetAntiFlicker(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// switch, default off [BacklightCompensation]
BU_S32 ISP_API_GetBackLight(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ISP_API_SetBackLight(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// switch, default off [ExposureCompensation]
BU_S32 ISP_API_GetExpCompSwi(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ISP_API_SetExpCompSwi(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// -7...7, default 0 [ExposureCompLevel]
BU_S32 ISP_API_GetExpCompLevel(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ISP_API_SetExpCompLevel(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// 0...27, default 0 [Gain]
BU_S32 ISP_API_GetGain(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ISP_API_SetGain(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// 0...15, default 10 [GainLimit]
BU_S32 ISP_API_GetGainLimit(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ISP_API_SetGainLimit(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// 0...31, default 15 [ExposureBrightness]
BU_S32 ISP_API_GetExpBrightness(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ISP_API_SetExpBrightness(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// tagIRIS_LEVEL_E, 0 closed to 13 f/1.6: 0...13, default 12 [IrisLevel]
BU_S32 ISP_API_GetIrisLevel(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
inline BU_S32 ISP_API_GetIrisLevel(BU_S32 s32Pipe, tagIRIS_LEVEL_E *penValue, BU_BOOL bReread = BU_FALSE)
{
    return ISP_API_GetIrisLevel(s32Pipe, EnumAsNumber(penValue).address(), bReread);
}
BU_S32 ISP_API_SetIrisLevel(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// switch, default on [AutoIris]
BU_S32 ISP_API_GetAutoIrisSwi(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ISP_API_SetAutoIrisSwi(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// tagND_FILTER_E: 0...3, default 0 [ND-Filter]
BU_S32 ISP_API_GetNDFilter(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
inline BU_S32 ISP_API_GetNDFilter(BU_S32 s32Pipe, tagND_FILTER_E *penValue, BU_BOOL bReread = BU_FALSE)
{
    return ISP_API_GetNDFilter(s32Pipe, EnumAsNumber(penValue).address(), bReread);
}
BU_S32 ISP_API_SetNDFilter(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// 1 steps, 0 free value: 0...1, default 1 [ShutterMode]
BU_S32 ISP_API_GetShutterMode(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ISP_API_SetShutterMode(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// switch, default off [ViewFollowExposure]
BU_S32 ISP_API_GetExposureFullViewFollow(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ISP_API_SetExposureFullViewFollow(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
// end of settings
/// Iris back to its default level.
BU_S32 ISP_API_SetIrisDefLevel(BU_S32 s32Pipe, BU_BOOL bSaveCfg, BU_BOOL bUpdate);

// Shutter. Each output frame rate has its own values; getter and setter take those of the present rate. 59.94, 29.97
// and 23.98 frames/s use the values of 60.
/// tagSHUTTER_TIME_E 0-32, default 1/rate [ShutterSpeedFps60, 50, 30, 25, 24]
BU_S32 ISP_API_GetShutter(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ISP_API_SetShutter(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// [1/s]: rate-10000, default the rate [ShutterValueFps60, 50, 30, 25, 24]
BU_S32 ISP_API_GetShutterValue(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ISP_API_SetShutterValue(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// Tells the listeners of the shutter that holds now, after the frame rate changed. @return 0, or -1: no such pipeline
BU_S32 ISP_API_UpdateShutter(BU_S32 s32Pipe);
/// The keys of the shutter at a frame rate. Static text; an unknown rate gives those of 60.
const BU_CHAR *ISP_API_GetShutterConfigNameByHdmiFps(HDMI_FPS_E enFps);
const BU_CHAR *ISP_API_GetShutterValueConfigNameByHdmiFps(HDMI_FPS_E enFps);

// White balance.
// settings: ISP_API_WhiteBalance
/// tagWB_MODE_E: 0...5, default 0 [WbMode]
BU_S32 ISP_API_GetWbMode(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
inline BU_S32 ISP_API_GetWbMode(BU_S32 s32Pipe, tagWB_MODE_E *penValue, BU_BOOL bReread = BU_FALSE)
{
    return ISP_API_GetWbMode(s32Pipe, EnumAsNumber(penValue).address(), bReread);
}
BU_S32 ISP_API_SetWbMode(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// colour temperature [K]: 2800...6500 in steps of 100, default 5600 [ColorTemp]
BU_S32 ISP_API_GetStWbMode(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ISP_API_SetStWbMode(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// 0 own temperature, 1 indoor, 2 outdoor: 0...2, default 0 [StaticMode]
BU_S32 ISP_API_GetStaticMode(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ISP_API_SetStaticMode(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// tagAWB_SENSITIVITY_E: 0...2, default 1 [WbSensitivity]
BU_S32 ISP_API_GetAwbSensitivity(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
inline BU_S32 ISP_API_GetAwbSensitivity(BU_S32 s32Pipe, tagAWB_SENSITIVITY_E *penValue, BU_BOOL bReread = BU_FALSE)
{
    return ISP_API_GetAwbSensitivity(s32Pipe, EnumAsNumber(penValue).address(), bReread);
}
BU_S32 ISP_API_SetAwbSensitivity(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// 0...255, default 128 [RGain]
BU_S32 ISP_API_GetRGain(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ISP_API_SetRGain(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// 0...255, default 128; a value outside becomes the nearest limit [GGain]
BU_S32 ISP_API_GetGGain(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ISP_API_SetGGain(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// 0...255, default 128 [BGain]
BU_S32 ISP_API_GetBGain(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ISP_API_SetBGain(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// of automatic white balance: 0...255, default 128 [RStrength]
BU_S32 ISP_API_GetRStrength(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ISP_API_SetRStrength(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// of automatic white balance: 0...255, default 128 [GStrength]
BU_S32 ISP_API_GetGStrength(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ISP_API_SetGStrength(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// of automatic white balance: 0...255, default 128 [BStrength]
BU_S32 ISP_API_GetBStrength(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ISP_API_SetBStrength(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// 0...14, default 7 [Hue]
BU_S32 ISP_API_GetHue(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ISP_API_SetHue(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// switch, default off [ViewFollowWB]
BU_S32 ISP_API_GetWhiteBalanceFullViewFollow(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ISP_API_SetWhiteBalanceFullViewFollow(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
// end of settings
/// Starts a one-push measurement, for either value of the switch; it ends by itself within a second. Listeners get the
/// key "OnePush" with 1 at the start and 0 at the end. Not stored. @return 0, or -1: no such pipeline, not a switch
BU_S32 ISP_API_SetOnePushAwb(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// Starts a one-push measurement as well. @param pbDone  whether an earlier one had ended. @return 0 or -1
BU_S32 ISP_API_TriggerAwbOnePush(BU_S32 s32Pipe, BU_BOOL *pbDone, BU_BOOL bReread = BU_FALSE);

// Picture.
// settings: ISP_API_Image
/// 0...15, default 6 [Sharpness]
BU_S32 ISP_API_GetSharpness(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ISP_API_SetSharpness(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// 0...14, default 7 [Brightness]
BU_S32 ISP_API_GetBrightness(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ISP_API_SetBrightness(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// 0...14, default 7 [Contrast]
BU_S32 ISP_API_GetContrast(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ISP_API_SetContrast(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// 0...14, default 7 [Saturation]
BU_S32 ISP_API_GetSaturation(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ISP_API_SetSaturation(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// curve: 0...4, default 0 [Gamma]
BU_S32 ISP_API_GetGamma(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ISP_API_SetGamma(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// noise reduction within a frame: 0...5, default 2 [Nr2d]
BU_S32 ISP_API_Get2DNR(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ISP_API_Set2DNR(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// noise reduction over frames: 0...8, default 3 [Nr3d]
BU_S32 ISP_API_Get3DNR(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ISP_API_Set3DNR(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// wide dynamic range: switch, default off [WdrSwi]
BU_S32 ISP_API_GetDrcSwi(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ISP_API_SetDrcSwi(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// strength of the wide dynamic range: 0...5, default 0 [WdrMode]
BU_S32 ISP_API_GetDrcMode(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ISP_API_SetDrcMode(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// tagImageStyle: 0...9, default 0 [ImageStyle]
BU_S32 ISP_API_GetIspBinUsage(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
inline BU_S32 ISP_API_GetIspBinUsage(BU_S32 s32Pipe, tagImageStyle *penValue, BU_BOOL bReread = BU_FALSE)
{
    return ISP_API_GetIspBinUsage(s32Pipe, EnumAsNumber(penValue).address(), bReread);
}
BU_S32 ISP_API_SetIspBinUsage(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// switch, default off [MonoChrome]
BU_S32 ISP_API_GetMonoChromeSwi(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ISP_API_SetMonoChromeSwi(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
// end of settings
inline BU_S32 ISP_API_SetIspBinUsage(BU_S32 s32Pipe, tagImageStyle enStyle, BU_BOOL bSaveCfg, BU_BOOL bUpdate)
{
    return ISP_API_SetIspBinUsage(s32Pipe, static_cast<BU_S32>(enStyle), bSaveCfg, bUpdate);
}
/// Colour matrix. Colours: 1 red, 2 yellow, 3 green, 4 cyan, 5 blue, 6 magenta; any other is refused.
/// Hue -10...10, default 0 [RColorHue, Y, G, C, B, M]; saturation 0-100, default 50 [RColorSat, Y, G, C, B, M].
BU_S32 ISP_API_GetColorHue(BU_S32 s32Pipe, BU_S32 s32Color, BU_S32 *ps32Value, BU_BOOL bReread);
BU_S32 ISP_API_SetColorHue(BU_S32 s32Pipe, BU_S32 s32Color, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
BU_S32 ISP_API_GetColorSat(BU_S32 s32Pipe, BU_S32 s32Color, BU_S32 *ps32Value, BU_BOOL bReread);
BU_S32 ISP_API_SetColorSat(BU_S32 s32Pipe, BU_S32 s32Color, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// The picture settings of a pipeline, this group, back to their defaults, stored as well. Exposure and white balance
/// stay. @return 0, or -1: no such pipeline, or the store cannot be written
BU_S32 ISP_API_Reset(BU_S32 s32Pipe);

/// Starts the image service; once, when the pipeline is up. @return 0
BU_S32 ISP_API_StartService();
/// @param pcText  64 characters. @return 0 or -1
BU_S32 ISP_API_GetVersion(BU_S32 s32Pipe, BU_CHAR *pcText);

// Which pipeline the image, exposure and white-balance pages of the menu are about; close-up after a start.
BU_S32 ISP_API_GetCurDevImageId();
BU_S32 ISP_API_GetCurDevExposureId();
BU_S32 ISP_API_GetCurDevWhiteBalanceId();
BU_S32 ISP_API_GetCurDevId(); ///< the device of lens and pan/tilt items; 0, the one with motors
/// Section of the selected pipeline in the store ("Image1"); static text.
const BU_CHAR *ISP_API_GetCurDevImageName();
const BU_CHAR *ISP_API_GetCurDevExposureName();
const BU_CHAR *ISP_API_GetCurDevWhiteBalanceName();
/// @param pcWord  "CloseUp" or "Panorama". @return 0, or -1: another word
BU_S32 ISP_API_SetCurDevImage(const BU_CHAR *pcWord);
BU_S32 ISP_API_SetCurDevWB(const BU_CHAR *pcWord);
BU_S32 ISP_API_SetCurDevExposure(const BU_CHAR *pcWord);

/// Factory default and running value (of close-up) of any setting by its key. @return 0, or -1: unknown key
BU_S32 ISP_AF_GetDefVal(const BU_CHAR *pcKey, BU_S32 *ps32Value);
BU_S32 ISP_AF_GetCurVal(const BU_CHAR *pcKey, BU_S32 *ps32Value);
