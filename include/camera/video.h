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
BU_GETTER(SYSTEM_API_, HdmiFormat) ///< HDMI_FORMAT_E, default 1080P [Format]
BU_GETTER(SYSTEM_API_, HdmiFps)    ///< HDMI_FPS_E, default 60 [Fps]
BU_GETTER(SYSTEM_API_, HdmiCs)     ///< HDMI_CS_E, default YUV422 [HdmiCs]
BU_S32 SYSTEM_API_SetHdmiFormat(const BU_CHAR *pcWord, BU_BOOL bSaveCfg);
BU_S32 SYSTEM_API_SetHdmiFps(const BU_CHAR *pcWord, BU_BOOL bSaveCfg);
/// All three at once, or nothing. SDI has its own three [SdiFormat, SdiFps, SdiCs].
BU_S32 SYSTEM_API_SetHdmiCfg(const BU_CHAR *pcFormat, const BU_CHAR *pcFps, BU_S32 enCs, BU_BOOL bSaveCfg);
BU_S32 SYSTEM_API_SetSdiCfg(const BU_CHAR *pcFormat, const BU_CHAR *pcFps, BU_S32 enCs, BU_BOOL bSaveCfg);
/// Format and rate of HDMI in one word, as the menu shows them: "1080P59.94", "4K30".
BU_S32 SYSTEM_API_SetVideoFormat(const BU_CHAR *pcWord, BU_BOOL bSaveCfg);
/// The rate in whole frames/s, the nearest one. @return 0, or -1: no such rate, the output is untouched
BU_S32 SYSTEM_API_ConvertHdmiFps(HDMI_FPS_E enFps, BU_S32 &s32Rate);
BU_SETTING(SYSTEM_, PanoramaSdiEnable) ///< panorama on SDI, switch, default off [PanoramaSdi]

/// Screen saver: tagTKV_SCREEN_SAVER_DATA_E, default closed [ScreenSaver].
BU_GETTER(SYSTEM_API_, ScreenSaverMode)
/// @param u32Color  0xAARRGGBB of a blank screen  @param pcImage  its picture file, null or empty for none
/// @return 0, or -1: no such mode, or not stored
BU_S32 SYSTEM_API_SetScreenSaverMode(BU_S32 s32Mode, BU_BOOL bSaveCfg, BU_U32 u32Color, const BU_CHAR *pcImage,
                                     BU_BOOL bUpdate);
/// Network streams on: switch, default on [StreamToNet]; the setter tells the listeners.
BU_GETTER(SYSTEM_CUSTOM_API_, StreamToNet)
BU_S32 SYSTEM_CUSTOM_API_SetStreamToNet(BU_S32 s32On, BU_BOOL bSaveCfg);
