// The items of the menu by their keys.
#include "camera/focus.h"
#include "camera/image.h"
#include "camera/motion.h"
#include "camera/network.h"
#include "camera/preset.h"
#include "camera/serial.h"
#include "camera/system.h"
#include "camera/systemService.h"
#include "camera/tracking.h"
#include "camera/zoom.h"
#include "menu/menuParam.h"
#include "vocabulary/wordSetters.h"

namespace
{
constexpr MenuSave ALWAYS = MenuSave::ALWAYS;
constexpr PFN_MENU_ID image = ISP_API_GetCurDevImageId, exposure = ISP_API_GetCurDevExposureId,
                      balance = ISP_API_GetCurDevWhiteBalanceId, device = ISP_API_GetCurDevId;

// clang-format off
constexpr auto menuParamSetSharpness        = menuIntOf<ISP_API_SetSharpness, image>;
constexpr auto menuParamSetBrightness       = menuIntOf<ISP_API_SetBrightness, image>;
constexpr auto menuParamSetContrast         = menuIntOf<ISP_API_SetContrast, image>;
constexpr auto menuParamSetGamma            = menuIntOf<ISP_API_SetGamma, image>;
constexpr auto menuParamSet2DNR             = menuIntOf<ISP_API_Set2DNR, image>;
constexpr auto menuParamSet3DNR             = menuIntOf<ISP_API_Set3DNR, image>;
constexpr auto menuParamSetDrcSwitch        = menuOptionOf<ISP_API_SetDrcSwi, image>;
constexpr auto menuParamSetDrc              = menuIntOf<ISP_API_SetDrcMode, image>;
constexpr auto menuParamSetImageStyle       = menuOptionOf<ISP_API_SetIspBinUsage, image, ALWAYS>;
constexpr auto menuParamSetMonoChrome       = menuOptionOf<ISP_API_SetMonoChromeSwi, image>;

constexpr auto menuParamSetAntiFlicker      = menuOptionOf<ISP_API_SetAntiFlicker, exposure>;
constexpr auto menuParamSetBackLight        = menuOptionOf<ISP_API_SetBackLight, exposure>;
constexpr auto menuParamSetExpCompLevel     = menuIntOf<ISP_API_SetExpCompLevel, exposure>;
constexpr auto menuParamSetExpCompSwi       = menuOptionOf<ISP_API_SetExpCompSwi, exposure>;
constexpr auto menuParamSetGain             = menuIntOf<ISP_API_SetGain, exposure>;
constexpr auto menuParamSetGainLimit        = menuIntOf<ISP_API_SetGainLimit, exposure>;
constexpr auto menuParamSetShutter          = menuOptionOf<ISP_API_SetShutter, exposure>;
constexpr auto menuParamSetFlexShutter      = menuIntOf<ISP_API_SetShutterValue, exposure>;
constexpr auto menuParamSetShutterMode      = menuOptionOf<ISP_API_SetShutterMode, exposure>;
constexpr auto menuParamSetIrisLevel        = menuOptionOf<ISP_API_SetIrisLevel, exposure>;
constexpr auto menuParamExposureBrightness  = menuIntOf<ISP_API_SetExpBrightness, exposure>;
constexpr auto menuParamSetAeMode           = menuOptionOf<ISP_API_SetAeMode, exposure>;
constexpr auto menuParamSetAEMeterMode      = menuOptionOf<ISP_API_SetAeMeterMode, exposure>;
constexpr auto menuParamSetViewFollowExposure = menuOptionOf<ISP_API_SetExposureFullViewFollow, exposure>;
constexpr auto menuParamSetViewNDFilter     = menuOptionOf<ISP_API_SetNDFilter, menuDevice0>;
constexpr auto menuParamSetAutoIris         = menuOptionOf<ISP_API_SetAutoIrisSwi, menuDevice0>;

constexpr auto menuParamSetStaticMode       = menuOptionOf<ISP_API_SetStaticMode, balance>;
constexpr auto menuParamSetHue              = menuIntOf<ISP_API_SetHue, balance>;
constexpr auto menuParamSetRGain            = menuIntOf<ISP_API_SetRGain, balance>;
constexpr auto menuParamSetGGain            = menuIntOf<ISP_API_SetGGain, balance>;
constexpr auto menuParamSetBGain            = menuIntOf<ISP_API_SetBGain, balance>;
constexpr auto menuParamSetSRGain           = menuIntOf<ISP_API_SetRStrength, balance>;
constexpr auto menuParamSetSGGain           = menuIntOf<ISP_API_SetGStrength, balance>;
constexpr auto menuParamSetSBGain           = menuIntOf<ISP_API_SetBStrength, balance>;
constexpr auto menuParamSetStWbMode         = menuIntOf<ISP_API_SetStWbMode, balance>;
constexpr auto menuParamSetAwbSensitivity   = menuOptionOf<ISP_API_SetAwbSensitivity, balance>;
constexpr auto menuParamSetOnePushAwb       = menuOptionOf<ISP_API_SetOnePushAwb, balance>;
constexpr auto menuParamSetWbMode           = menuOptionOf<ISP_API_SetWbMode, balance>;
constexpr auto menuParamSetViewFollowWB     = menuOptionOf<ISP_API_SetWhiteBalanceFullViewFollow, balance>;

constexpr auto menuParamSetDZoomMode        = menuOptionOf<PTZ_API_SetDZoomMode, menuDevice0>;
constexpr auto menuParamSetDZoomTime        = menuOptionOf<PTZ_API_SetMaxDZoomTime, menuDevice0>;
constexpr auto menuParamSetZoomSpeed        = menuIntOf<PTZ_API_SetZoomSpd, device>;
constexpr auto menuParamSetPtzTriggerAf     = menuOptionOf<AF_API_SetPtzTrigAf, menuDevice0>;
constexpr auto menuParamFocusDistance       = menuOptionOf<AF_API_SetFocusRange, menuDevice0>;
constexpr auto menuParamSetFocusModel       = menuOptionOf<AF_API_SetFocusModel, device>;
constexpr auto menuParamSetFaceAF           = menuOptionOf<AF_API_SetFaceAF, device>;
constexpr auto menuParamSetFocusArea        = menuOptionOf<AF_API_SetFocusArea, device>;
constexpr auto menuParamSetDistortionCorre  = menuCameraOption<AF_API_SetDistortionCorrection>;

constexpr auto menuParamSetPowerUpPtz       = menuOptionOf<PT_API_SetPowerUpPtzPos, menuDevice0>;
constexpr auto menuParamSetPanSpeed         = menuIntOf<PT_API_SetPanSpeed, device>;
constexpr auto menuParamSetTileSpeed        = menuIntOf<PT_API_SetTileSpeed, device>;
constexpr auto menuParamSetPresetSpeed      = menuIntOf<PRESET_API_SetPresetSpeed, device>;
constexpr auto menuParamSetSpeedMatch       = menuOptionOf<PT_API_SetPtSpeedMatch, device>;
constexpr auto menuParamSetSpeedAccuracy    = menuOptionOf<PT_API_SetSpeedAccuracy, device>;

constexpr auto menuParamSetMirror           = menuCameraOption<SYS_API_SetMirror, BU_FALSE>;
constexpr auto menuParamSetFlip             = menuCameraOption<SYS_API_SetFlip, BU_FALSE>;
constexpr auto menuParamSetMountMode        = menuCameraOption<SYS_API_SetMountMode, BU_FALSE>;
constexpr auto menuParamPrompt              = menuCameraOption<SYS_API_SetPrompt>;
constexpr auto menuParamSetImageFreeze      = menuCameraOption<SYS_API_SetImageFreeze>;
constexpr auto menuParamSetSensorCrop       = menuCameraOption<SYS_API_SetSensorCrop>;
constexpr auto menuParamSetDevUSB           = menuStoredOption<USB_API_SetMode, ALWAYS>;
constexpr auto menuParamSetVideoFormat      = menuStoredOption<SYSTEM_API_SetVideoFormat>;
constexpr auto menuParamSetFormat           = menuStoredOption<SYSTEM_API_SetHdmiFormat, ALWAYS>;
constexpr auto menuParamSetFPS              = menuStoredOption<SYSTEM_API_SetHdmiFps, ALWAYS>;
constexpr auto menuParamSetIrAddrCtrl       = menuStoredOption<IR_API_SetAddrCtrl>;

constexpr auto menuParamSetTrackEnable      = menuCameraOption<ALG_API_SetEnable, BU_TRUE, ALWAYS>;
constexpr auto menuParamSetTrackMode        = menuCameraOption<ALG_API_SetTrackMode, BU_TRUE, ALWAYS>;
constexpr auto menuParamSetTrackStrategy    = menuCameraOption<ALG_API_SetTrackStrategy, BU_TRUE, ALWAYS>;
constexpr auto menuParamSetTrackStrategyBinocular = menuCameraOption<ALG_API_SetTrackStrategyBinocular, BU_TRUE, ALWAYS>;
constexpr auto menuParamSetTrackStrategyMonocular = menuCameraOption<ALG_API_SetTrackStrategyMonocular, BU_TRUE, ALWAYS>;

constexpr auto menuParamSetIpAddr           = menuCardText<NET_API_SetIpAddr>;
constexpr auto menuParamSetNetMask          = menuCardText<NET_API_SetNetMask>;
constexpr auto menuParamSetGateWay          = menuCardText<NET_API_SetGateWay>;
constexpr auto menuParamSetDns1             = menuCardText<NET_API_SetDns1>;
constexpr auto menuParamSetDns2             = menuCardText<NET_API_SetDns2>;

constexpr MENU_PARAM_MAP_S astMenuParamCb[] = {
    {"Sharpness",             menuParamSetSharpness},
    {"Brightness",            menuParamSetBrightness},
    {"Contrast",              menuParamSetContrast},
    {"Gamma",                 menuParamSetGamma},
    {"Nr2d",                  menuParamSet2DNR},
    {"Nr3d",                  menuParamSet3DNR},
    {"WdrSwi",                menuParamSetDrcSwitch},
    {"WdrMode",               menuParamSetDrc},
    {"Mirror",                menuParamSetMirror},
    {"Flip",                  menuParamSetFlip},
    {"AntiFlicker",           menuParamSetAntiFlicker},
    {"BacklightCompensation", menuParamSetBackLight},
    {"ExposureCompLevel",     menuParamSetExpCompLevel},
    {"ExposureCompensation",  menuParamSetExpCompSwi},
    {"Gain",                  menuParamSetGain},
    {"GainLimit",             menuParamSetGainLimit},
    {"ShutterSpeed",          menuParamSetShutter},
    {"IrisLevel",             menuParamSetIrisLevel},
    {"ExposureBrightness",    menuParamExposureBrightness},
    {"ExposureMode",          menuParamSetAeMode},
    {"StaticMode",            menuParamSetStaticMode},
    {"Saturation",            menuParamSetSaturation},
    {"Hue",                   menuParamSetHue},
    {"RGain",                 menuParamSetRGain},
    {"GGain",                 menuParamSetGGain},
    {"BGain",                 menuParamSetBGain},
    {"ColorTemp",             menuParamSetStWbMode},
    {"WbSensitivity",         menuParamSetAwbSensitivity},
    {"OnePush",               menuParamSetOnePushAwb},
    {"WbMode",                menuParamSetWbMode},
    {"DZoom",                 menuParamSetDZoomMode},
    {"DZoomTime",             menuParamSetDZoomTime},
    {"PtzTrigAf",             menuParamSetPtzTriggerAf},
    {"PowerUpPtzPos",         menuParamSetPowerUpPtz},
    {"RS232ProtocolType",     menuParamSetRs232ProtocolType},
    {"RS422ProtocolType",     menuParamSetRs422ProtocolType},
    {"IrAddr",                menuParamSetIrAddr},
    {"IrAddrCtrl",            menuParamSetIrAddrCtrl},
    {"RS232Baudrate",         menuParamSetRs232Baudrate},
    {"RS422Baudrate",         menuParamSetRs422Baudrate},
    {"VideoFormat",           menuParamSetVideoFormat},
    {"MountMode",             menuParamSetMountMode},
    {"Prompt",                menuParamPrompt},
    {"Language",              menuParamSetLanguage},
    {"FactoryRestore",        menuParamFactoryRestore},
    {"Restart",               menuParamRestart},
    {"IpMode",                menuParamSetIpMode},
    {"IpAddr",                menuParamSetIpAddr},
    {"NetMask",               menuParamSetNetMask},
    {"GateWay",               menuParamSetGateWay},
    {"DnsMode",               menuParamDnsMode},
    {"Dns1",                  menuParamSetDns1},
    {"Dns2",                  menuParamSetDns2},
    {"RStrength",             menuParamSetSRGain},
    {"BStrength",             menuParamSetSBGain},
    {"GStrength",             menuParamSetSGGain},
    {"AEMeterMode",           menuParamSetAEMeterMode},
    {"ImageStyle",            menuParamSetImageStyle},
    {"MonoChrome",            menuParamSetMonoChrome},
    {"LensImage",             menuParamSetLensImage},
    {"LensWB",                menuParamSetLensWB},
    {"LensExposure",          menuParamSetLensExposure},
    {"ViewFollowWB",          menuParamSetViewFollowWB},
    {"ViewFollowExposure",    menuParamSetViewFollowExposure},
    {"ND-Filter",             menuParamSetViewNDFilter},
    {"DevUSB",                menuParamSetDevUSB},
    {"AudioInput",            menuParamSetAudioInput},
    {"Format",                menuParamSetFormat},
    {"FPS4K",                 menuParamSetFPS},
    {"FPS1080P",              menuParamSetFPS},
    {"FPS1080I",              menuParamSetFPS},
    {"FPS720P",               menuParamSetFPS},
    {"TrackEnabled",          menuParamSetTrackEnable},
    {"TrackMode",             menuParamSetTrackMode},
    {"TrackStrategy",         menuParamSetTrackStrategy},
    {"BinocularStrategy",     menuParamSetTrackStrategyBinocular},
    {"MonocularStrategy",     menuParamSetTrackStrategyMonocular},
    {"COM-Mode",              menuParamSetCOMMode},
    {"ViscaAddr",             menuParamSetProtocolAddrVisca},
    {"PelcoPAddr",            menuParamSetProtocolAddrPelcoP},
    {"PelcoDAddr",            menuParamSetProtocolAddrPelcoD},
    {"FreedCammeraId",        menuParamSetFreedCamera},
    {"PanSpeed",              menuParamSetPanSpeed},
    {"TileSpeed",             menuParamSetTileSpeed},
    {"PresetSpeed",           menuParamSetPresetSpeed},
    {"ZoomSpd",               menuParamSetZoomSpeed},
    {"SpeedMatch",            menuParamSetSpeedMatch},
    {"SpeedAccuracy",         menuParamSetSpeedAccuracy},
    {"ImageFreeze",           menuParamSetImageFreeze},
    {"DistortionCorre",       menuParamSetDistortionCorre},
    {"FocusModel",            menuParamSetFocusModel},
    {"FaceAF",                menuParamSetFaceAF},
    {"FocusArea",             menuParamSetFocusArea},
    {"ModeSwitch",            menuParamModeSwitch},
    {"LensCorrection",        menuParamLensCorrection},
    {"FocusDistance",         menuParamFocusDistance},
    {"Ndi",                   menuParamNdi},
    {"TallyDev",              menuParamSetTally},
    {"Escape",                menuParamSetEscape},
    {"Back",                  menuParamSetEscape},
    {"AutoIris",              menuParamSetAutoIris},
    {"SensorCrop",            menuParamSetSensorCrop},
    {"ShutterMode",           menuParamSetShutterMode},
    {"ShutterValueFps24",     menuParamSetFlexShutter},
    {"ShutterValueFps25",     menuParamSetFlexShutter},
    {"ShutterValueFps30",     menuParamSetFlexShutter},
    {"ShutterValueFps50",     menuParamSetFlexShutter},
    {"ShutterValueFps60",     menuParamSetFlexShutter},
    {"ShutterSpeedFps24",     menuParamSetShutter},
    {"ShutterSpeedFps25",     menuParamSetShutter},
    {"ShutterSpeedFps30",     menuParamSetShutter},
    {"ShutterSpeedFps50",     menuParamSetShutter},
    {"ShutterSpeedFps60",     menuParamSetShutter},
};
static_assert(std::size(astMenuParamCb) == 113);
// clang-format on
} // namespace

std::span<const MENU_PARAM_MAP_S> menuParamTable() { return astMenuParamCb; }
