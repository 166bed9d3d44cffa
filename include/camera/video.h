/// The video outputs: format, rate, colour, screen saver, streams to the network.
#pragma once

#include "base/setting.h"

enum tagTKV_SCREEN_SAVER_DATA_E : BU_S32 {
    TKV_SCREEN_SAVER_DATA_CLOSE = 0,
    TKV_SCREEN_SAVER_DATA_BLANK = 1,
    TKV_SCREEN_SAVER_DATA_TARVOLK = 2
};

// Output format. Words are those of the vocabulary tables; an empty or unknown one is refused with -1 and changes
// nothing. The running output follows at once, whatever bSaveCfg says, and the listeners hear of it.
// settings: SYSTEM_API_Video SYSTEM_Video SYSTEM_CUSTOM_API_Video
/// HDMI_FORMAT_E: 0...3, default 1 [Format]
BU_S32 SYSTEM_API_GetHdmiFormat(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
inline BU_S32 SYSTEM_API_GetHdmiFormat(HDMI_FORMAT_E *penValue, BU_BOOL bReread = BU_FALSE)
{
    return SYSTEM_API_GetHdmiFormat(EnumAsNumber(penValue).address(), bReread);
}
/// HDMI_FPS_E: 0...7, default 0 [Fps]
BU_S32 SYSTEM_API_GetHdmiFps(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
inline BU_S32 SYSTEM_API_GetHdmiFps(HDMI_FPS_E *penValue, BU_BOOL bReread = BU_FALSE)
{
    return SYSTEM_API_GetHdmiFps(EnumAsNumber(penValue).address(), bReread);
}
/// HDMI_CS_E: 0...3, default 1 [HdmiCs]
BU_S32 SYSTEM_API_GetHdmiCs(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
inline BU_S32 SYSTEM_API_GetHdmiCs(HDMI_CS_E *penValue, BU_BOOL bReread = BU_FALSE)
{
    return SYSTEM_API_GetHdmiCs(EnumAsNumber(penValue).address(), bReread);
}
/// tagTKV_SCREEN_SAVER_DATA_E: 0...2, default 0 [ScreenSaver]
BU_S32 SYSTEM_API_GetScreenSaverMode(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
inline BU_S32 SYSTEM_API_GetScreenSaverMode(tagTKV_SCREEN_SAVER_DATA_E *penValue, BU_BOOL bReread = BU_FALSE)
{
    return SYSTEM_API_GetScreenSaverMode(EnumAsNumber(penValue).address(), bReread);
}
/// panorama on SDI: switch, default off [PanoramaSdi]
BU_S32 SYSTEM_GetPanoramaSdiEnable(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 SYSTEM_SetPanoramaSdiEnable(BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// network streams: switch, default on [StreamToNet]
BU_S32 SYSTEM_CUSTOM_API_GetStreamToNet(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
// end of settings
BU_S32 SYSTEM_API_SetHdmiFormat(const BU_CHAR *pcWord, BU_BOOL bSaveCfg);
BU_S32 SYSTEM_API_SetHdmiFps(const BU_CHAR *pcWord, BU_BOOL bSaveCfg);
/// All three at once, or nothing. SDI has its own three [SdiFormat, SdiFps, SdiCs].
BU_S32 SYSTEM_API_SetHdmiCfg(const BU_CHAR *pcFormat, const BU_CHAR *pcFps, BU_S32 enCs, BU_BOOL bSaveCfg);
BU_S32 SYSTEM_API_SetSdiCfg(const BU_CHAR *pcFormat, const BU_CHAR *pcFps, BU_S32 enCs, BU_BOOL bSaveCfg);
/// Format and rate of HDMI in one word, as the menu shows them: "1080P59.94", "4K30".
BU_S32 SYSTEM_API_SetVideoFormat(const BU_CHAR *pcWord, BU_BOOL bSaveCfg);
/// The rate in whole frames/s, the nearest one. @return 0, or -1: no such rate, the output is untouched
BU_S32 SYSTEM_API_ConvertHdmiFps(HDMI_FPS_E enFps, BU_S32 &s32Rate);

/// @param u32Color  0xAARRGGBB of a blank screen  @param pcImage  its picture file, null or empty for none
/// @return 0, or -1: no such mode, or not stored
BU_S32 SYSTEM_API_SetScreenSaverMode(BU_S32 s32Mode, BU_BOOL bSaveCfg, BU_U32 u32Color, const BU_CHAR *pcImage,
                                     BU_BOOL bUpdate);
/// Tells the listeners.
BU_S32 SYSTEM_CUSTOM_API_SetStreamToNet(BU_S32 s32On, BU_BOOL bSaveCfg);
