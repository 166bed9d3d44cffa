/// System services: video output format, factory restore, stand-by, language, clock, web port.
#pragma once

#include "base/setting.h"

struct MPP_BUSINESS_CFG_S;
enum tagTKV_SCREEN_SAVER_DATA_E : BU_S32 {
    TKV_SCREEN_SAVER_DATA_CLOSE = 0,
    TKV_SCREEN_SAVER_DATA_BLANK = 1,
    TKV_SCREEN_SAVER_DATA_TARVOLK = 2
};

/// Loads the stored configuration into the running state. Once, at the start. @return 0
BU_S32 SYSTEM_API_InitializeGlobalVirableByXml();
/// Fills what the media pipeline is brought up with. @return 0, or -1 on null
BU_S32 SYSTEM_API_InitializeMppBusinessByXml(MPP_BUSINESS_CFG_S *pstCfg);
/// Freezes the picture again when it was stored so. @return whether it is frozen
BU_S32 SYSTEM_API_GetImgFreeze();

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

/// What a factory restore takes back, one bit each.
enum SYSTEM_RESTORE_E : BU_S32 {
    SYSTEM_RESTORE_E_IMAGE = 1,    ///< picture, exposure, white balance
    SYSTEM_RESTORE_E_PTZ = 2,      ///< lens and pan/tilt
    SYSTEM_RESTORE_E_TRACK = 4,    ///< tracking
    SYSTEM_RESTORE_E_SYSTEM = 8,   ///< system, outputs, audio, lamps
    SYSTEM_RESTORE_E_CONTROL = 16, ///< infrared, serial ports, control protocols
    SYSTEM_RESTORE_E_MEDIA = 32,   ///< network streams and recording
    SYSTEM_RESTORE_E_NETWORK = 64, ///< network cards and host name
    SYSTEM_RESTORE_E_PRESET = 128, ///< stored positions and picture presets
    SYSTEM_RESTORE_E_ALL = 255
};
/// Factory defaults, running and stored; the listeners hear of each change. Does not restart the camera.
/// @param s32Bitmap  SYSTEM_RESTORE_E bits; 0: all but network and presets; -1: everything stored
/// @return 0, or -1: other bits (nothing is restored), or the store cannot be written
BU_S32 SYSTEM_API_FactoryRestoreConfiguration(BU_S32 s32Bitmap);

/// Stand-by: head and lens refuse every move whoever asks, stops are carried out, and the lamp shows it. Asleep
/// already: no effect. @return 0
BU_S32 SYSTEM_API_SleepAppService();
/// Ends stand-by: hands the record of the power-off command over to the next start ("/var/ViscaCtrlPowerOff" becomes
/// "/app/ViscaCtrlPowerOn") and restarts the camera. @return 0, or -1: not asleep
BU_S32 SYSTEM_API_WakeAppService();
BU_BOOL SYSTEM_API_IsAsleep();

/// "Chinese" or "English", default English [Language]. @return 0, or -1: another word, or not stored
BU_S32 SYSTEM_API_SetLanguage(const BU_CHAR *pcWord, BU_BOOL bSaveCfg);
/// Clock from the network: switch, default off [NtpEnable]; the setter tells the listeners.
BU_GETTER(SYSTEM_API_, NTPEnabled)
BU_S32 SYSTEM_API_SetEnableNTP(BU_BOOL bOn, BU_BOOL bSaveCfg);

/// Starts the web server at these ports, before the port offset; one that is stored (see CFG_SYSTEM_GetHttpPort) stands
/// above the one given. @return 0, or -1: outside 1-65535
BU_S32 SYSTEM_API_SetHttpPort(BU_S32 s32Http, BU_S32 s32Https);
/// Stops the web server. @return 0
BU_S32 SYSTEM_API_StopHttpDaemon();
/// Idle share of the processor since the last question [%]; 100 at the first.
BU_S32 SYSTEM_API_GetCpuIdlePrecent();
/// Share of the network port in use since the last question, receiving and sending, 0-1. @return 0
BU_S32 SYSTEM_API_GetNetUsagePrecent(BU_FLOAT &fReceived, BU_FLOAT &fSent);
