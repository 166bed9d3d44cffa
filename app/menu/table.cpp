// The items of the menu by their keys: which setter takes the value, for which lens, and whether it is stored.
#include "camera/focus.h"
#include "camera/image.h"
#include "camera/motion.h"
#include "camera/network.h"
#include "camera/picture.h"
#include "camera/preset.h"
#include "camera/serial.h"
#include "camera/tracking.h"
#include "camera/video.h"
#include "camera/zoom.h"
#include "modules.h"
#include "param.h"
#include "vocabulary/wordSetters.h"

namespace menu
{
namespace
{
// Setter forms.
typedef BU_S32 (*PFN_ID)();
typedef BU_S32 (*PFN_NUMBER)(BU_S32, BU_S32, BU_BOOL, BU_BOOL);
typedef BU_S32 (*PFN_WORD)(BU_S32, const BU_CHAR *, BU_BOOL, BU_BOOL);
typedef BU_S32 (*PFN_WORD_STORE)(BU_S32, const BU_CHAR *, BU_BOOL);
typedef BU_S32 (*PFN_CAMERA_WORD)(const BU_CHAR *, BU_BOOL, BU_BOOL);
typedef BU_S32 (*PFN_CAMERA_WORD_STORE)(const BU_CHAR *, BU_BOOL);
typedef BU_S32 (*PFN_SELECT)(const BU_CHAR *);
typedef BU_S32 (*PFN_CARD_TEXT)(const BU_CHAR *, const BU_CHAR *);

/// The pipeline or device, asked for at the time of the call.
constexpr PFN_ID image = ISP_API_GetCurDevImageId, exposure = ISP_API_GetCurDevExposureId,
                 balance = ISP_API_GetCurDevWhiteBalanceId, device = ISP_API_GetCurDevId, first = [] { return 0; };

enum Save { AS_ASKED, ALWAYS };
constexpr BU_BOOL saved(Save enSave, BU_BOOL bSaveCfg) { return enSave == ALWAYS ? BU_TRUE : bSaveCfg; }
enum Applied : BU_BOOL { AT_START = BU_FALSE, AT_ONCE = BU_TRUE };

template <PFN_NUMBER SET, PFN_ID ID> BU_S32 number(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg)
{
    SET(ID(), numberOf(*pstItem), bSaveCfg, BU_TRUE);
    return 0;
}
template <PFN_WORD SET, PFN_ID ID, Save SAVE = AS_ASKED> BU_S32 option(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg)
{
    SET(ID(), wordOf(*pstItem), saved(SAVE, bSaveCfg), BU_TRUE);
    return 0;
}
template <PFN_WORD_STORE SET, PFN_ID ID> BU_S32 option(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg)
{
    SET(ID(), wordOf(*pstItem), bSaveCfg);
    return 0;
}
/// A setting of the whole camera.
template <PFN_CAMERA_WORD SET, Applied APPLIED = AT_ONCE, Save SAVE = AS_ASKED>
BU_S32 cameraOption(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg)
{
    SET(wordOf(*pstItem), saved(SAVE, bSaveCfg), APPLIED);
    return 0;
}
template <PFN_CAMERA_WORD SET> constexpr auto tracking = cameraOption<SET, AT_ONCE, ALWAYS>;
template <PFN_CAMERA_WORD_STORE SET, Save SAVE = AS_ASKED> BU_S32 storedOption(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg)
{
    SET(wordOf(*pstItem), saved(SAVE, bSaveCfg));
    return 0;
}
/// Which lens the items of a page are about.
template <PFN_SELECT SET> BU_S32 lens(ITEM_NODE_S *pstItem, BU_BOOL)
{
    SET(wordOf(*pstItem));
    OSD_MENU_RefreshCurrentPage();
    return 0;
}
template <PFN_CARD_TEXT SET> BU_S32 cardText(ITEM_NODE_S *pstItem, BU_BOOL)
{
    SET("NetCard0", textOf(*pstItem));
    return 0;
}
template <UART_INSTANCE_TYPE PORT> BU_S32 protocolType(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg)
{
    SERIAL_API_SetProtocolType(PORT, wordOf(*pstItem), bSaveCfg);
    FREED_UpdateSerialActivePushMsg();
    return 0;
}
template <UART_INSTANCE_TYPE PORT> BU_S32 baudrate(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg)
{
    SERIAL_API_SetBaudrate(PORT, wordOf(*pstItem), bSaveCfg);
    return 0;
}
template <BU_S32 PROTOCOL> BU_S32 pelcoAddress(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg)
{
    SERIAL_API_SetProtocolPelcoAddr(numberOf(*pstItem), PROTOCOL, bSaveCfg);
    return 0;
}
BU_S32 nothing(ITEM_NODE_S *, BU_BOOL) { return 0; }

// clang-format off
constexpr MENU_PARAM_MAP_S astMenuParamCb[] = {
    {"Sharpness",             number<ISP_API_SetSharpness, image>},                    // menuParamSetSharpness
    {"Brightness",            number<ISP_API_SetBrightness, image>},                   // menuParamSetBrightness
    {"Contrast",              number<ISP_API_SetContrast, image>},                     // menuParamSetContrast
    {"Gamma",                 number<ISP_API_SetGamma, image>},                        // menuParamSetGamma
    {"Nr2d",                  number<ISP_API_Set2DNR, image>},                         // menuParamSet2DNR
    {"Nr3d",                  number<ISP_API_Set3DNR, image>},                         // menuParamSet3DNR
    {"WdrSwi",                option<ISP_API_SetDrcSwi, image>},                       // menuParamSetDrcSwitch
    {"WdrMode",               number<ISP_API_SetDrcMode, image>},                      // menuParamSetDrc
    {"Mirror",                cameraOption<SYS_API_SetMirror, AT_START>},              // menuParamSetMirror
    {"Flip",                  cameraOption<SYS_API_SetFlip, AT_START>},                // menuParamSetFlip
    {"AntiFlicker",           option<ISP_API_SetAntiFlicker, exposure>},               // menuParamSetAntiFlicker
    {"BacklightCompensation", option<ISP_API_SetBackLight, exposure>},                 // menuParamSetBackLight
    {"ExposureCompLevel",     number<ISP_API_SetExpCompLevel, exposure>},              // menuParamSetExpCompLevel
    {"ExposureCompensation",  option<ISP_API_SetExpCompSwi, exposure>},                // menuParamSetExpCompSwi
    {"Gain",                  number<ISP_API_SetGain, exposure>},                      // menuParamSetGain
    {"GainLimit",             number<ISP_API_SetGainLimit, exposure>},                 // menuParamSetGainLimit
    {"ShutterSpeed",          option<ISP_API_SetShutter, exposure>},                   // menuParamSetShutter
    {"IrisLevel",             option<ISP_API_SetIrisLevel, exposure>},                 // menuParamSetIrisLevel
    {"ExposureBrightness",    number<ISP_API_SetExpBrightness, exposure>},             // menuParamExposureBrightness
    {"ExposureMode",          option<ISP_API_SetAeMode, exposure>},                    // menuParamSetAeMode
    {"StaticMode",            option<ISP_API_SetStaticMode, balance>},                 // menuParamSetStaticMode
    {"Saturation",            menuParamSetSaturation},
    {"Hue",                   number<ISP_API_SetHue, balance>},                        // menuParamSetHue
    {"RGain",                 number<ISP_API_SetRGain, balance>},                      // menuParamSetRGain
    {"GGain",                 number<ISP_API_SetGGain, balance>},                      // menuParamSetGGain
    {"BGain",                 number<ISP_API_SetBGain, balance>},                      // menuParamSetBGain
    {"ColorTemp",             number<ISP_API_SetStWbMode, balance>},                   // menuParamSetStWbMode
    {"WbSensitivity",         option<ISP_API_SetAwbSensitivity, balance>},             // menuParamSetAwbSensitivity
    {"OnePush",               option<ISP_API_SetOnePushAwb, balance>},                 // menuParamSetOnePushAwb
    {"WbMode",                option<ISP_API_SetWbMode, balance>},                     // menuParamSetWbMode
    {"DZoom",                 option<PTZ_API_SetDZoomMode, first>},                    // menuParamSetDZoomMode
    {"DZoomTime",             option<PTZ_API_SetMaxDZoomTime, first>},                 // menuParamSetDZoomTime
    {"PtzTrigAf",             option<AF_API_SetPtzTrigAf, first>},                     // menuParamSetPtzTriggerAf
    {"PowerUpPtzPos",         option<PT_API_SetPowerUpPtzPos, first>},                 // menuParamSetPowerUpPtz
    {"RS232ProtocolType",     protocolType<UART_INSTANCE_TYPE_RS232>},                 // menuParamSetRs232ProtocolType
    {"RS422ProtocolType",     protocolType<UART_INSTANCE_TYPE_RS422>},                 // menuParamSetRs422ProtocolType
    {"IrAddr",                menuParamSetIrAddr},
    {"IrAddrCtrl",            storedOption<IR_API_SetAddrCtrl>},                       // menuParamSetIrAddrCtrl
    {"RS232Baudrate",         baudrate<UART_INSTANCE_TYPE_RS232>},                     // menuParamSetRs232Baudrate
    {"RS422Baudrate",         baudrate<UART_INSTANCE_TYPE_RS422>},                     // menuParamSetRs422Baudrate
    {"VideoFormat",           storedOption<SYSTEM_API_SetVideoFormat>},                // menuParamSetVideoFormat
    {"MountMode",             cameraOption<SYS_API_SetMountMode, AT_START>},           // menuParamSetMountMode
    {"Prompt",                cameraOption<SYS_API_SetPrompt>},                        // menuParamPrompt
    {"Language",              menuParamSetLanguage},
    {"FactoryRestore",        menuParamFactoryRestore},
    {"Restart",               menuParamRestart},
    {"IpMode",                menuParamSetIpMode},
    {"IpAddr",                cardText<NET_API_SetIpAddr>},                            // menuParamSetIpAddr
    {"NetMask",               cardText<NET_API_SetNetMask>},                           // menuParamSetNetMask
    {"GateWay",               cardText<NET_API_SetGateWay>},                           // menuParamSetGateWay
    {"DnsMode",               menuParamDnsMode},
    {"Dns1",                  cardText<NET_API_SetDns1>},                              // menuParamSetDns1
    {"Dns2",                  cardText<NET_API_SetDns2>},                              // menuParamSetDns2
    {"RStrength",             number<ISP_API_SetRStrength, balance>},                  // menuParamSetSRGain
    {"BStrength",             number<ISP_API_SetBStrength, balance>},                  // menuParamSetSBGain
    {"GStrength",             number<ISP_API_SetGStrength, balance>},                  // menuParamSetSGGain
    {"AEMeterMode",           option<ISP_API_SetAeMeterMode, exposure>},               // menuParamSetAEMeterMode
    {"ImageStyle",            option<ISP_API_SetIspBinUsage, image, ALWAYS>},          // menuParamSetImageStyle
    {"MonoChrome",            option<ISP_API_SetMonoChromeSwi, image>},                // menuParamSetMonoChrome
    {"LensImage",             lens<ISP_API_SetCurDevImage>},                           // menuParamSetLensImage
    {"LensWB",                lens<ISP_API_SetCurDevWB>},                              // menuParamSetLensWB
    {"LensExposure",          lens<ISP_API_SetCurDevExposure>},                        // menuParamSetLensExposure
    {"ViewFollowWB",          option<ISP_API_SetWhiteBalanceFullViewFollow, balance>}, // menuParamSetViewFollowWB
    {"ViewFollowExposure",    option<ISP_API_SetExposureFullViewFollow, exposure>},    // menuParamSetViewFollowExposure
    {"ND-Filter",             option<ISP_API_SetNDFilter, first>},                     // menuParamSetViewNDFilter
    {"DevUSB",                storedOption<USB_API_SetMode, ALWAYS>},                  // menuParamSetDevUSB
    {"AudioInput",            menuParamSetAudioInput},
    {"Format",                storedOption<SYSTEM_API_SetHdmiFormat, ALWAYS>},         // menuParamSetFormat
    {"FPS4K",                 storedOption<SYSTEM_API_SetHdmiFps, ALWAYS>},            // menuParamSetFPS
    {"FPS1080P",              storedOption<SYSTEM_API_SetHdmiFps, ALWAYS>},            // menuParamSetFPS
    {"FPS1080I",              storedOption<SYSTEM_API_SetHdmiFps, ALWAYS>},            // menuParamSetFPS
    {"FPS720P",               storedOption<SYSTEM_API_SetHdmiFps, ALWAYS>},            // menuParamSetFPS
    {"TrackEnabled",          tracking<ALG_API_SetEnable>},                            // menuParamSetTrackEnable
    {"TrackMode",             tracking<ALG_API_SetTrackMode>},                         // menuParamSetTrackMode
    {"TrackStrategy",         tracking<ALG_API_SetTrackStrategy>},                     // menuParamSetTrackStrategy
    {"BinocularStrategy",     tracking<ALG_API_SetTrackStrategyBinocular>}, // menuParamSetTrackStrategyBinocular
    {"MonocularStrategy",     tracking<ALG_API_SetTrackStrategyMonocular>}, // menuParamSetTrackStrategyMonocular
    {"COM-Mode",              menuParamSetCOMMode},
    {"ViscaAddr",             menuParamSetProtocolAddrVisca},
    {"PelcoPAddr",            pelcoAddress<0>},                                        // menuParamSetProtocolAddrPelcoP
    {"PelcoDAddr",            pelcoAddress<1>},                                        // menuParamSetProtocolAddrPelcoD
    {"FreedCammeraId",        menuParamSetFreedCamera},
    {"PanSpeed",              number<PT_API_SetPanSpeed, device>},                     // menuParamSetPanSpeed
    {"TileSpeed",             number<PT_API_SetTileSpeed, device>},                    // menuParamSetTileSpeed
    {"PresetSpeed",           number<PRESET_API_SetPresetSpeed, device>},              // menuParamSetPresetSpeed
    {"ZoomSpd",               number<PTZ_API_SetZoomSpd, device>},                     // menuParamSetZoomSpeed
    {"SpeedMatch",            option<PT_API_SetPtSpeedMatch, device>},                 // menuParamSetSpeedMatch
    {"SpeedAccuracy",         option<PT_API_SetSpeedAccuracy, device>},                // menuParamSetSpeedAccuracy
    {"ImageFreeze",           cameraOption<SYS_API_SetImageFreeze>},                   // menuParamSetImageFreeze
    {"DistortionCorre",       cameraOption<AF_API_SetDistortionCorrection>},           // menuParamSetDistortionCorre
    {"FocusModel",            option<AF_API_SetFocusModel, device>},                   // menuParamSetFocusModel
    {"FaceAF",                option<AF_API_SetFaceAF, device>},                       // menuParamSetFaceAF
    {"FocusArea",             option<AF_API_SetFocusArea, device>},                    // menuParamSetFocusArea
    {"ModeSwitch",            nothing},                                                // menuParamModeSwitch
    {"LensCorrection",        menuParamLensCorrection},
    {"FocusDistance",         option<AF_API_SetFocusRange, first>},                    // menuParamFocusDistance
    {"Ndi",                   menuParamNdi},
    {"TallyDev",              nothing},                                                // menuParamSetTally
    {"Escape",                menuParamSetEscape},
    {"Back",                  menuParamSetEscape},
    {"AutoIris",              option<ISP_API_SetAutoIrisSwi, first>},                  // menuParamSetAutoIris
    {"SensorCrop",            cameraOption<SYS_API_SetSensorCrop>},                    // menuParamSetSensorCrop
    {"ShutterMode",           option<ISP_API_SetShutterMode, exposure>},               // menuParamSetShutterMode
    {"ShutterValueFps24",     number<ISP_API_SetShutterValue, exposure>},              // menuParamSetFlexShutter
    {"ShutterValueFps25",     number<ISP_API_SetShutterValue, exposure>},              // menuParamSetFlexShutter
    {"ShutterValueFps30",     number<ISP_API_SetShutterValue, exposure>},              // menuParamSetFlexShutter
    {"ShutterValueFps50",     number<ISP_API_SetShutterValue, exposure>},              // menuParamSetFlexShutter
    {"ShutterValueFps60",     number<ISP_API_SetShutterValue, exposure>},              // menuParamSetFlexShutter
    {"ShutterSpeedFps24",     option<ISP_API_SetShutter, exposure>},                   // menuParamSetShutter
    {"ShutterSpeedFps25",     option<ISP_API_SetShutter, exposure>},                   // menuParamSetShutter
    {"ShutterSpeedFps30",     option<ISP_API_SetShutter, exposure>},                   // menuParamSetShutter
    {"ShutterSpeedFps50",     option<ISP_API_SetShutter, exposure>},                   // menuParamSetShutter
    {"ShutterSpeedFps60",     option<ISP_API_SetShutter, exposure>},                   // menuParamSetShutter
};
// clang-format on
} // namespace

std::span<const MENU_PARAM_MAP_S> paramTable() { return astMenuParamCb; }
} // namespace menu
