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

// The key in brackets names the setting in the store and in range questions. Switches: 0 off, 1 on.

// Exposure.
BU_SETTING_DEV(ISP_API_, AeMode)                 ///< tagAE_MODE_E 0-4, default AUTO [ExposureMode]
BU_SETTING_DEV(ISP_API_, AeMeterMode)            ///< tagAE_METER_MODE_E 0-5, default AVG [AEMeterMode]
BU_SETTING_DEV(ISP_API_, AntiFlicker)            ///< tagFREQ_MODE_E 0-2, default 50 Hz; 2 is off [AntiFlicker]
BU_SETTING_DEV(ISP_API_, BackLight)              ///< switch, default off [BacklightCompensation]
BU_SETTING_DEV(ISP_API_, ExpCompSwi)             ///< switch, default off [ExposureCompensation]
BU_SETTING_DEV(ISP_API_, ExpCompLevel)           ///< -7...7, default 0 [ExposureCompLevel]
BU_SETTING_DEV(ISP_API_, Gain)                   ///< 0-27, default 0 [Gain]
BU_SETTING_DEV(ISP_API_, GainLimit)              ///< 0-15, default 10 [GainLimit]
BU_SETTING_DEV(ISP_API_, ExpBrightness)          ///< 0-31, default 15 [ExposureBrightness]
BU_SETTING_DEV(ISP_API_, IrisLevel)              ///< tagIRIS_LEVEL_E 0 closed ... 13 f/1.6, default 12 [IrisLevel]
BU_SETTING_DEV(ISP_API_, AutoIrisSwi)            ///< switch, default on [AutoIris]
BU_SETTING_DEV(ISP_API_, NDFilter)               ///< tagND_FILTER_E 0-3, default none [ND-Filter]
BU_SETTING_DEV(ISP_API_, ExposureFullViewFollow) ///< switch, default off [ViewFollowExposure]
/// Iris back to its default level.
BU_S32 ISP_API_SetIrisDefLevel(BU_S32 s32Pipe, BU_BOOL bSaveCfg, BU_BOOL bUpdate);

// Shutter. Each output frame rate has its own values; getter and setter take those of the present rate. 59.94, 29.97
// and 23.98 frames/s use the values of 60.
BU_SETTING_DEV(ISP_API_, ShutterMode)  ///< 1 steps, 0 free value; default steps [ShutterMode]
BU_SETTING_DEV(ISP_API_, Shutter)      ///< tagSHUTTER_TIME_E 0-32, default 1/rate [ShutterSpeedFps60, 50, 30, 25, 24]
BU_SETTING_DEV(ISP_API_, ShutterValue) ///< 1/s, rate-10000, default the rate [ShutterValueFps60, 50, 30, 25, 24]
/// Tells the listeners of the shutter that holds now, after the frame rate changed. @return 0, or -1: no such pipeline
BU_S32 ISP_API_UpdateShutter(BU_S32 s32Pipe);
/// The keys of the shutter at a frame rate. Static text; an unknown rate gives those of 60.
const BU_CHAR *ISP_API_GetShutterConfigNameByHdmiFps(HDMI_FPS_E enFps);
const BU_CHAR *ISP_API_GetShutterValueConfigNameByHdmiFps(HDMI_FPS_E enFps);

// White balance.
BU_SETTING_DEV(ISP_API_, WbMode)     ///< tagWB_MODE_E 0-5, default AUTO [WbMode]
BU_SETTING_DEV(ISP_API_, StWbMode)   ///< colour temperature [K], 2800-6500 in steps of 100, default 5600 [ColorTemp]
BU_SETTING_DEV(ISP_API_, StaticMode) ///< 0 own temperature, 1 indoor, 2 outdoor; default 0 [StaticMode]
BU_SETTING_DEV(ISP_API_, AwbSensitivity) ///< tagAWB_SENSITIVITY_E 0-2, default MIDDLE [WbSensitivity]
BU_SETTING_DEV(ISP_API_, RGain)          ///< 0-255, default 128 [RGain]
BU_SETTING_DEV(ISP_API_, GGain)          ///< 0-255, default 128; a value outside becomes the nearest limit [GGain]
BU_SETTING_DEV(ISP_API_, BGain)          ///< 0-255, default 128 [BGain]
BU_SETTING_DEV(ISP_API_, RStrength)      ///< of automatic white balance, 0-255, default 128 [RStrength]
BU_SETTING_DEV(ISP_API_, GStrength)      ///< 0-255, default 128 [GStrength]
BU_SETTING_DEV(ISP_API_, BStrength)      ///< 0-255, default 128 [BStrength]
BU_SETTING_DEV(ISP_API_, Hue)            ///< 0-14, default 7 [Hue]
BU_SETTING_DEV(ISP_API_, WhiteBalanceFullViewFollow) ///< switch, default off [ViewFollowWB]
/// Starts a one-push measurement, for either value of the switch; it ends by itself within a second. Listeners get the
/// key "OnePush" with 1 at the start and 0 at the end. Not stored. @return 0, or -1: no such pipeline, not a switch
BU_SETTER_DEV(ISP_API_, OnePushAwb)
/// Starts a one-push measurement as well. @param pbDone  whether an earlier one had ended. @return 0 or -1
BU_S32 ISP_API_TriggerAwbOnePush(BU_S32 s32Pipe, BU_BOOL *pbDone, BU_BOOL bReread = BU_FALSE);

// Picture.
BU_SETTING_DEV(ISP_API_, Sharpness)     ///< 0-15, default 6 [Sharpness]
BU_SETTING_DEV(ISP_API_, Brightness)    ///< 0-14, default 7 [Brightness]
BU_SETTING_DEV(ISP_API_, Contrast)      ///< 0-14, default 7 [Contrast]
BU_SETTING_DEV(ISP_API_, Saturation)    ///< 0-14, default 7 [Saturation]
BU_SETTING_DEV(ISP_API_, Gamma)         ///< curve 0-4, default 0 [Gamma]
BU_SETTING_DEV(ISP_API_, 2DNR)          ///< noise reduction in a frame, 0-5, default 2 [Nr2d]
BU_SETTING_DEV(ISP_API_, 3DNR)          ///< noise reduction over frames, 0-8, default 3 [Nr3d]
BU_SETTING_DEV(ISP_API_, DrcSwi)        ///< wide dynamic range, switch, default off [WdrSwi]
BU_SETTING_DEV(ISP_API_, DrcMode)       ///< its strength, 0-5, default 0 [WdrMode]
BU_SETTING_DEV(ISP_API_, MonoChromeSwi) ///< switch, default off [MonoChrome]
BU_SETTING_DEV(ISP_API_, IspBinUsage)   ///< tagImageStyle 0-9, default NON_STYLE [ImageStyle]
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
