// Doubles of everything the bring-up starts: each writes its name into the record, in order; some answers are set by
// the test.
#include "doubles.h"

#include "algorithm/algorithm.h"
#include "board/device.h"
#include "board/lamp.h"
#include "board/ntp.h"
#include "camera/focus.h"
#include "camera/image.h"
#include "camera/menu.h"
#include "camera/motion.h"
#include "camera/network.h"
#include "camera/preset.h"
#include "camera/serial.h"
#include "camera/system.h"
#include "camera/systemService.h"
#include "config/config.h"
#include "dvip/dvip.h"
#include "event/event.h"
#include "fan/fan.h"
#include "freed/freed.h"
#include "hdmi/hdmi.h"
#include "hdmi_distributor/hdmiDistributor.h"
#include "hdmi_in/hdmiIn.h"
#include "input/input.h"
#include "ldc/ldc.h"
#include "led/led.h"
#include "live_media/liveMedia.h"
#include "media/audio.h"
#include "media/pipeline.h"
#include "media_record/mediaRecord.h"
#include "menu/menu.h"
#include "mipi_dsi/mipiDsi.h"
#include "msg_client/msgClient.h"
#include "oled/oled.h"
#include "onvif/onvif.h"
#include "pelco/pelco.h"
#include "preset/preset.h"
#include "pt/pt.h"
#include "sdi_12g/sdi12g.h"
#include "util/file.h"
#include "util/log.h"
#include "util/time.h"
#include "util/watchdog.h"
#include "visca/visca.h"
#include "web/web.h"
#include "webcam/webcam.h"

#include <cstdarg>
#include <cstdio>

tagBOARD_S g_stBoard;

namespace
{
BU_S32 note(std::string strText, BU_S32 s32Result = 0)
{
    g_stBoard.calls.push_back(std::move(strText));
    return s32Result;
}
std::string number(BU_S64 s64Value) { return std::to_string(s64Value); }
} // namespace

#define DOUBLE(name)                                                                                                   \
    BU_S32 name() { return note(#name); }
DOUBLE(MSG_AppClientInit)
DOUBLE(DEV_EVENT_StartMonitor)
DOUBLE(CFG_EVENT_RegisterService)
DOUBLE(BSP_RegisterInputDevice)
DOUBLE(PELCO_InitProcess)
DOUBLE(FREED_InitProcess)
DOUBLE(DVIP_InitProcess)
DOUBLE(ONVIF_InitProcess)
DOUBLE(BSP_StartHttpService)
DOUBLE(BSP_StartUsbSrv)
DOUBLE(APP_LM_Init)
DOUBLE(MEDIA_RECORD_Init)
DOUBLE(ALG_Init)
DOUBLE(ALG_RegisterInitDestroy)
DOUBLE(APP_HdmiIn_prepare)
DOUBLE(APP_HdmiIn_init)
DOUBLE(APP_HdmiDistributor_prepare)
DOUBLE(APP_HdmiDistributor_init)
DOUBLE(FPGA_12GSDI_Prepare)
DOUBLE(FPGA_12GSDI_InitProcess)
DOUBLE(APP_DSI_LT9211_Init)
DOUBLE(OLED_InitService)
DOUBLE(APP_FAN_init)
DOUBLE(BSP_StartHdmiSrv)
DOUBLE(LDC_Init)
DOUBLE(OSD_MENU_RegisterModule)
DOUBLE(LED_InitDev)
DOUBLE(LED_API_AppOver)
DOUBLE(VISCA_InitProcess)
DOUBLE(viscaCtrlPowerReturnMsg)
DOUBLE(EINK_API_RefreshScreen)
DOUBLE(CFG_VerifyFileFormat)
DOUBLE(SYSTEM_API_InitializeGlobalVirableByXml)
DOUBLE(OSD_MENU_InitOpensourceRes)
DOUBLE(BSP_LENS_LoadDriver)
DOUBLE(ISP_API_StartService)
DOUBLE(ZF_API_StartService)
DOUBLE(ZF_Register)
DOUBLE(NET_API_InitCfgParam)
DOUBLE(PT_Register)
DOUBLE(PRESET_API_GotoPowerUpPosition)
DOUBLE(NTPD_LoadConfig)
DOUBLE(NTPD_StartSchedularTask)
DOUBLE(UART_DevAllInit)
DOUBLE(MPP_InitStream)
DOUBLE(SYSTEM_API_GetImgFreeze)
DOUBLE(UTIL_WDT_SW_StopTimeout)
#undef DOUBLE

void PRESET_RegisterSpecialPreset() { note(__func__); }
void UTIL_DUMPSTACK_PrintCallStack() { note(__func__); }

BU_S32 UTIL_WDT_SW_StartTimeout(BU_S32 s32Seconds) { return note("UTIL_WDT_SW_StartTimeout " + number(s32Seconds)); }
BU_S32 BSP_SetSystemSocketBufLimit(BU_S32 s32Rcv, BU_S32 s32Snd)
{
    return note("BSP_SetSystemSocketBufLimit " + number(s32Rcv) + " " + number(s32Snd));
}
BU_S32 BSP_HW_ABI_GetHwAbility(tagHW_ABILITY_S *pstAbility)
{
    pstAbility->stLens = g_stBoard.stLens;
    return note(__func__, -1); // whatever it says, the bring-up goes on
}
BU_S32 CFG_FEATURE_GetConfiguration(tagCFG_FEATURE_LIST_S *pstList)
{
    *pstList = g_stBoard.stFeatures;
    return note(__func__, g_stBoard.s32FeatureResult);
}
BU_S32 AF_Callback_MppIkSetup(void *) { return 0; }
BU_S32 MPP_RegisterBeforeInit(BU_S32 (*pfnCb)(void *))
{
    return note(pfnCb == AF_Callback_MppIkSetup ? "MPP_RegisterBeforeInit" : "wrong callback");
}
BU_S32 SYSTEM_API_InitializeMppBusinessByXml(MPP_BUSINESS_CFG_S *pstCfg)
{
    g_stBoard.pvBusiness = pstCfg;
    return note(__func__);
}
BU_S32 MPP_InitCfg(MPP_BUSINESS_CFG_S *pstCfg)
{
    return note(pstCfg == g_stBoard.pvBusiness ? "MPP_InitCfg" : "wrong record", g_stBoard.s32PipelineResult);
}
BU_S32 AUDIO_InitCfg(BU_S32 s32Format) { return note("AUDIO_InitCfg " + number(s32Format)); }
BU_S32 ISP_API_GetIspBinUsage(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread)
{
    *ps32Value = 6 + s32Pipe;
    return note("ISP_API_GetIspBinUsage " + number(s32Pipe) + " " + number(bReread));
}
BU_S32 ISP_API_SetIspBinUsage(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate)
{
    return note("ISP_API_SetIspBinUsage " + number(s32Pipe) + " " + number(s32Value) + " " + number(bSaveCfg) + " " +
                number(bUpdate));
}
BU_S32 BSP_PTProcInit(BU_S32, void *) { return note(__func__, -1); }
BU_S32 APP_PT_GetSpeedCalcSet_TKV_MX(std::vector<PT_SPEED_CALC_SET_S> &listSet)
{
    listSet.resize(4);
    return note(__func__);
}
BU_S32 PT_API_InitByXml(const PT_SPEED_LIMIT_T *pstLimits, std::vector<PT_SPEED_CALC_SET_S> listSet)
{
    return note("PT_API_InitByXml " + number(pstLimits->s32MinPanSpeedDps) + " " +
                number(pstLimits->s32MaxPanSpeedDps) + " " + number(pstLimits->s32MinTiltSpeedDps) + " " +
                number(pstLimits->s32MaxTiltSpeedDps) + " " + number(pstLimits->s32SpeedMul) + ", " +
                number(static_cast<BU_S64>(listSet.size())) + " entries");
}
BU_S32 SYSTEM_API_GetNTPEnabled(BU_BOOL *pbOn, BU_BOOL)
{
    *pbOn = g_stBoard.bNtpEnabled;
    return 0;
}
BU_S32 SYS_API_GetAudioMute(BU_S32 *, BU_BOOL bReread) { return note("SYS_API_GetAudioMute " + number(bReread)); }
BU_S32 SYS_API_GetATEMSwi(BU_BOOL *pbOn, BU_BOOL bReread)
{
    *pbOn = BU_FALSE;
    return note("SYS_API_GetATEMSwi " + number(bReread));
}
BU_S32 SYS_API_SetATEMSwi(BU_BOOL bOn, BU_BOOL bSaveCfg)
{
    return note("SYS_API_SetATEMSwi " + number(bOn) + " " + number(bSaveCfg));
}
BU_S32 UTIL_CMD_RunSafe(const BU_CHAR *pcCommand) { return note(std::string("sh: ") + pcCommand); }

// The service idles by sleeping for ever: the end of the test.
void UTIL_TIME_SleepMs(BU_S64 s64Ms)
{
    note("sleep " + number(s64Ms));
    throw tagIDLE_S{};
}

void UTIL_LOG_Print(BU_S32 s32Level, const BU_CHAR *, const BU_CHAR *pcFormat, ...)
{
    BU_CHAR acText[256];
    va_list args;
    va_start(args, pcFormat);
    std::vsnprintf(acText, sizeof(acText), pcFormat, args);
    va_end(args);
    g_stBoard.log.push_back(number(s32Level) + " " + acText);
}
void UTIL_TRACE_Print(const BU_CHAR *pcFormat, ...) { std::fputs(pcFormat, stdout); }
util::tagLOG_PREFIX_S::tagLOG_PREFIX_S(const BU_CHAR *, BU_S32) {}
