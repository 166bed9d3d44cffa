#include "appService.h"

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

#include <csignal>
#include <cstdio>
#include <cstdlib>

namespace
{
constexpr BU_S32 BRING_UP_LIMIT_S = 300;
constexpr BU_S32 SOCKET_BUF_LIMIT = 0x100000;
constexpr BU_S32 PCM_FORMAT_S16_LE = 0;

/// Applies one stored image setting of one pipeline again.
template <class T>
void ISP_InitParamByCfg(BU_S32 s32Pipe, BU_S32 (*pfnGet)(BU_S32, T *, BU_BOOL),
                        BU_S32 (*pfnSet)(BU_S32, T, BU_BOOL, BU_BOOL))
{
    T value = static_cast<T>(0);
    pfnGet(s32Pipe, &value, BU_TRUE);
    pfnSet(s32Pipe, value, BU_FALSE, BU_FALSE);
}

/// The image service starts once, the zoom/focus service with the first lens device whose chip chain did not fail.
void startLensServices(HW_CAPS_LENS_ARRAY_S &stLens, BU_BOOL bSensorInitOk, BU_BOOL bAf)
{
    bool bIspInitOk = false, bAfInitOk = false;
    for (BU_S32 i = 0; i < stLens.s32DevCnt; ++i) {
        if (bSensorInitOk && !bIspInitOk) {
            ISP_API_StartService();
            bIspInitOk = true;
        }
        if (bSensorInitOk && !bAfInitOk && bAf == BU_TRUE &&
            appServiceGetInterfaceStatus(stLens.astZfDevPub, stLens.s32DevCnt, i) != DEVICE_SELFCHECK_E_FAIL) {
            ZF_API_StartService();
            ZF_Register();
            bAfInitOk = true;
        }
    }
}

void startPanTilt()
{
    if (BSP_PTProcInit(0, nullptr) != 0) LOG_ERROR("BSP_PTProcInit failed\n");

    const PT_SPEED_LIMIT_T stSpeedLimitDps{5, 12000, 5, 9000, 100};
    std::vector<PT_SPEED_CALC_SET_S> listSpeedCalcSet;
    APP_PT_GetSpeedCalcSet_TKV_MX(listSpeedCalcSet);
    PT_API_InitByXml(&stSpeedLimitDps, listSpeedCalcSet);
    PT_Register();
    PRESET_API_GotoPowerUpPosition();
}

void startNtp()
{
    NTPD_LoadConfig();
    BU_BOOL bEnable = BU_FALSE;
    SYSTEM_API_GetNTPEnabled(&bEnable, BU_FALSE);
    if (bEnable) NTPD_StartSchedularTask();
}
} // namespace

BU_S32 appServiceGetInterfaceStatus(INTF_INFO_S *pstDev, BU_S32 s32DevCnt, BU_S32 s32DevNO)
{
    if (s32DevNO >= 0 && s32DevNO < s32DevCnt) return pstDev[s32DevNO].enChipChain;
    LOG_ERROR("Invalid parameter\n");
    return DEVICE_SELFCHECK_E_FAIL;
}

void appServiceOnGetQuitSignal(int)
{
    std::fputs("[Info][appService] Bye!", stdout);
    LOG_INFO("Bye!\n");
    exit(0);
}

BU_S32 APP_SERVICE_PrepareInit()
{
    APP_HdmiIn_prepare();
    APP_HdmiDistributor_prepare();
    FPGA_12GSDI_Prepare();
    BSP_SetSystemSocketBufLimit(SOCKET_BUF_LIMIT, SOCKET_BUF_LIMIT);
    return 0;
}

BU_S32 APP_SERVICE_InitDisplayModules(tagHW_ABILITY_S *, tagCFG_FEATURE_DISPLAY_S *pstDisplay)
{
    if (pstDisplay->bEinkSupport) EINK_API_RefreshScreen();
    if (pstDisplay->bOledSupport) OLED_InitService();
    if (pstDisplay->bLedSupport) LED_InitDev();
    APP_FAN_init();
    return 0;
}

BU_S32 APP_SERVICE_InitBasicModules(tagHW_ABILITY_S *pstHwAbi, tagCFG_FEATURE_LIST_S *pstFeatureList,
                                    tagBU_BOOL *pbSensorInitOk)
{
    CFG_VerifyFileFormat();
    SYSTEM_API_InitializeGlobalVirableByXml();
    OSD_MENU_InitOpensourceRes();
    DEV_EVENT_StartMonitor();
    CFG_EVENT_RegisterService();

    const CFG_FEATURE_GENERAL_S &stGeneral = pstFeatureList->stGeneral;
    if (stGeneral.bAf == BU_TRUE) MPP_RegisterBeforeInit(AF_Callback_MppIkSetup);
    MPP_BUSINESS_CFG_S stMppBusiness{};
    SYSTEM_API_InitializeMppBusinessByXml(&stMppBusiness);
    *pbSensorInitOk = MPP_InitCfg(&stMppBusiness) == 0;

    BSP_LENS_LoadDriver();
    startLensServices(pstHwAbi->stLens, *pbSensorInitOk, stGeneral.bAf);
    if (stGeneral.bAudio == BU_TRUE) AUDIO_InitCfg(PCM_FORMAT_S16_LE);

    for (const BU_S32 s32Pipe : {0, 1})
        ISP_InitParamByCfg<tagImageStyle>(s32Pipe, ISP_API_GetIspBinUsage, ISP_API_SetIspBinUsage);
    return 0;
}

BU_S32 APP_SERVICE_InitGeneralModules(tagHW_ABILITY_S *, tagCFG_FEATURE_GENERAL_S *pstGeneral)
{
    if (pstGeneral->bEthernet) {
        BSP_SetSystemSocketBufLimit(SOCKET_BUF_LIMIT, SOCKET_BUF_LIMIT);
        NET_API_InitCfgParam();
    }
    if (pstGeneral->bPt) startPanTilt();
    if (pstGeneral->bNtp && pstGeneral->bEthernet) startNtp();
    if (pstGeneral->bRstKey || pstGeneral->bIr) BSP_RegisterInputDevice();
    if (pstGeneral->stSerial.bSupport) {
        UART_DevAllInit();
        VISCA_InitProcess();
        PELCO_InitProcess();
        viscaCtrlPowerReturnMsg();
    }
    return 0;
}

BU_S32 APP_SERVICE_InitAvModules(tagHW_ABILITY_S *, tagCFG_FEATURE_AV_S *pstAv)
{
    MPP_InitStream();
    if (pstAv->stUsb.bSupport) BSP_StartUsbSrv();
    APP_LM_Init();
    if (pstAv->stHdmi.bSupport) {
        BSP_StartHdmiSrv();
        APP_HdmiDistributor_init();
        APP_HdmiIn_init();
    }
    if (pstAv->stSdi.bSupport) APP_DSI_LT9211_Init();
    MEDIA_RECORD_Init();
    SYSTEM_API_GetImgFreeze();
    return 0;
}

BU_S32 APP_SERVICE_InitControlModules(tagHW_ABILITY_S *, tagCFG_FEATURE_CONTROL_S *pstControl, tagBU_BOOL bSensorInitOk)
{
    if (pstControl->bOsdMenuSupport) OSD_MENU_RegisterModule();
    if (pstControl->bFreeDSupport) FREED_InitProcess();
    if (pstControl->bWebUiSupport) BSP_StartHttpService();
    if (pstControl->bOnvifSupport) ONVIF_InitProcess();
    if (bSensorInitOk == BU_TRUE && pstControl->bAiSupport) {
        ALG_Init();
        ALG_RegisterInitDestroy();
    }
    if (pstControl->bDvipSupport) DVIP_InitProcess();
    return 0;
}

BU_S32 APP_SERVICE_InitMiscModules(tagHW_ABILITY_S *)
{
    PRESET_RegisterSpecialPreset();
    FPGA_12GSDI_InitProcess();
    return 0;
}

BU_S32 APP_SERVICE_InitOver(tagCFG_FEATURE_LIST_S stFeatureList)
{
    if (stFeatureList.stDisplay.bLedSupport) LED_API_AppOver();
    LDC_Init();
    BU_BOOL bMuteInitOk = BU_FALSE;
    SYS_API_GetAudioMute(&bMuteInitOk, BU_TRUE);
    UTIL_CMD_RunSafe("ln -s /cfg0/atem.json /etc/atem_tally.json");
    BU_BOOL bEnable = BU_TRUE;
    SYS_API_GetATEMSwi(&bEnable, BU_TRUE);
    SYS_API_SetATEMSwi(bEnable, BU_TRUE);
    return 0;
}

int main()
{
    LOG_INFO("Start appmain !!!\n");
    UTIL_DUMPSTACK_PrintCallStack();
    for (const int s32Signal : {SIGQUIT, SIGINT, SIGTERM}) std::signal(s32Signal, appServiceOnGetQuitSignal);
    UTIL_WDT_SW_StartTimeout(BRING_UP_LIMIT_S);
    MSG_AppClientInit();

    tagHW_ABILITY_S stHwAbi{};
    tagCFG_FEATURE_LIST_S stFeatureList{};
    BSP_HW_ABI_GetHwAbility(&stHwAbi);
    if (CFG_FEATURE_GetConfiguration(&stFeatureList) != 0) return -1;

    BU_BOOL bSensorInitOk = BU_TRUE;
    APP_SERVICE_PrepareInit();
    APP_SERVICE_InitDisplayModules(&stHwAbi, &stFeatureList.stDisplay);
    APP_SERVICE_InitBasicModules(&stHwAbi, &stFeatureList, &bSensorInitOk);
    APP_SERVICE_InitGeneralModules(&stHwAbi, &stFeatureList.stGeneral);
    APP_SERVICE_InitAvModules(&stHwAbi, &stFeatureList.stAv);
    APP_SERVICE_InitControlModules(&stHwAbi, &stFeatureList.stControl, bSensorInitOk);
    APP_SERVICE_InitMiscModules(&stHwAbi);
    APP_SERVICE_InitOver(stFeatureList);

    UTIL_WDT_SW_StopTimeout();
    for (;;) UTIL_TIME_SleepMs(5000);
}
