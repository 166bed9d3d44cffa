// Which modules start, in which order, under which flags; and how the process ends.
#include "appService.h"
#include "doubles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <functional>
#include <thread>
#include <unistd.h>

int appServiceMain();

using testing::ElementsAre;

namespace
{
constexpr auto FAIL = DEVICE_SELFCHECK_E_FAIL;
constexpr auto PASS = DEVICE_SELFCHECK_E_PASS;
constexpr auto NONE = DEVICE_SELFCHECK_E_NONE;

// Calls, separated by commas.
Calls calls(std::string_view text)
{
    Calls list;
    while (!text.empty()) {
        const auto end = std::min(text.find(','), text.size());
        list.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(text.find_first_not_of(", \n", end), text.size()));
    }
    return list;
}

// What a board with everything starts, in order; '*': not started by a bare board.
const Calls LISTED = calls(
    "UTIL_DUMPSTACK_PrintCallStack, UTIL_THREAD_Create, UTIL_WDT_SW_StartTimeout 300, "
    "MSG_AppClientInit, BSP_HW_ABI_GetHwAbility, CFG_FEATURE_GetConfiguration, "
    "APP_HdmiIn_prepare, APP_HdmiDistributor_prepare, FPGA_12GSDI_Prepare, "
    "BSP_SetSystemSocketBufLimit 1048576 1048576, "
    "*EINK_API_RefreshScreen, *OLED_InitService, *LED_InitDev, APP_FAN_init, "
    "CFG_VerifyFileFormat, SYSTEM_API_InitializeGlobalVirableByXml, OSD_MENU_InitOpensourceRes, "
    "DEV_EVENT_StartMonitor, CFG_EVENT_RegisterService, *MPP_RegisterBeforeInit 1, "
    "SYSTEM_API_InitializeMppBusinessByXml, MPP_InitCfg 2, BSP_LENS_LoadDriver, "
    "*ISP_API_StartService, *ZF_API_StartService, *ZF_Register, *AUDIO_InitCfg 0, "
    "ISP_API_GetIspBinUsage 0 1, ISP_API_SetIspBinUsage 0 6 0 0, "
    "ISP_API_GetIspBinUsage 1 1, ISP_API_SetIspBinUsage 1 7 0 0, "
    "*BSP_SetSystemSocketBufLimit 1048576 1048576, *NET_API_InitCfgParam, "
    "*BSP_PTProcInit 0, *APP_PT_GetSpeedCalcSet_TKV_MX, *PT_API_InitByXml 5 12000 5 9000 100 4, "
    "*PT_Register, *PRESET_API_GotoPowerUpPosition, *NTPD_LoadConfig, *NTPD_StartSchedularTask, "
    "*BSP_RegisterInputDevice, *UART_DevAllInit, *VISCA_InitProcess, *PELCO_InitProcess, *viscaCtrlPowerReturnMsg, "
    "MPP_InitStream, *BSP_StartUsbSrv, APP_LM_Init, *BSP_StartHdmiSrv, *APP_HdmiDistributor_init, *APP_HdmiIn_init, "
    "*APP_DSI_LT9211_Init, MEDIA_RECORD_Init, SYSTEM_API_GetImgFreeze, "
    "*OSD_MENU_RegisterModule, *FREED_InitProcess, *BSP_StartHttpService, *ONVIF_InitProcess, "
    "*ALG_Init, *ALG_RegisterInitDestroy, *DVIP_InitProcess, "
    "PRESET_RegisterSpecialPreset, FPGA_12GSDI_InitProcess, *LED_API_AppOver, LDC_Init, SYS_API_GetAudioMute 1, "
    "sh: ln -s /cfg0/atem.json /etc/atem_tally.json, SYS_API_GetATEMSwi 1, SYS_API_SetATEMSwi 0 1, "
    "UTIL_WDT_SW_StopTimeout, sleep 5000");

Calls run(const std::function<void(TestBoard &)> &fnSet)
{
    g_stBoard = {};
    fnSet(g_stBoard);
    EXPECT_THROW(appServiceMain(), Idle);
    return g_stBoard.calls;
}

// What was called beyond the bare board, in order.
Calls more(const std::function<void(TestBoard &)> &fnSet)
{
    Calls list = run(fnSet);
    auto from = list.begin();
    for (const std::string &strCall : LISTED) {
        if (strCall.starts_with('*')) continue;
        from = std::find(from, list.end(), strCall);
        if (from == list.end()) return {"missing: " + strCall};
        from = list.erase(from);
    }
    return list;
}

void addLenses(TestBoard &b, std::initializer_list<DEVICE_SELFCHECK_E> chains)
{
    for (const auto enChain : chains) b.stLens.astZfDevPub[b.stLens.s32DevCnt++].enChipChain = enChain;
}

// clang-format off
struct Flag { const char *pcName; void (*pfnSet)(TestBoard &b); const char *pcMore; };
#define FEATURE(member) #member, [](TestBoard &b) { b.stFeatures.member = BU_TRUE; }
const Flag FLAGS[] = {
    {"bare", [](TestBoard &) {}, ""},
    {FEATURE(stDisplay.bEinkSupport), "EINK_API_RefreshScreen"},
    {FEATURE(stDisplay.bOledSupport), "OLED_InitService"},
    {FEATURE(stDisplay.bLedSupport), "LED_InitDev, LED_API_AppOver"},
    {FEATURE(stGeneral.bEthernet), "BSP_SetSystemSocketBufLimit 1048576 1048576, NET_API_InitCfgParam"},
    {FEATURE(stGeneral.bPt), "BSP_PTProcInit 0, APP_PT_GetSpeedCalcSet_TKV_MX, "
                             "PT_API_InitByXml 5 12000 5 9000 100 4, PT_Register, PRESET_API_GotoPowerUpPosition"},
    {FEATURE(stGeneral.bAf), "MPP_RegisterBeforeInit 1"},
    {FEATURE(stGeneral.bNtp), ""},
    {"NTP with Ethernet", [](TestBoard &b) { b.stFeatures.stGeneral.bNtp = b.stFeatures.stGeneral.bEthernet = BU_TRUE; },
     "BSP_SetSystemSocketBufLimit 1048576 1048576, NET_API_InitCfgParam, NTPD_LoadConfig"},
    {FEATURE(stGeneral.bRstKey), "BSP_RegisterInputDevice"},
    {FEATURE(stGeneral.bIr), "BSP_RegisterInputDevice"},
    {FEATURE(stGeneral.bAudio), "AUDIO_InitCfg 0"},
    {"audio not exactly true", [](TestBoard &b) { b.stFeatures.stGeneral.bAudio = 2; }, ""},
    {FEATURE(stGeneral.stSerial.bSupport),
     "UART_DevAllInit, VISCA_InitProcess, PELCO_InitProcess, viscaCtrlPowerReturnMsg"},
    {FEATURE(stAv.stHdmi.bSupport), "BSP_StartHdmiSrv, APP_HdmiDistributor_init, APP_HdmiIn_init"},
    {FEATURE(stAv.stHdBaseT.bSupport), ""},
    {FEATURE(stAv.stSdi.bSupport), "APP_DSI_LT9211_Init"},
    {FEATURE(stAv.stUsb.bSupport), "BSP_StartUsbSrv"},
    {FEATURE(stControl.bViscaEtherSupport), ""},
    {FEATURE(stControl.bOnvifSupport), "ONVIF_InitProcess"},
    {FEATURE(stControl.bWebUiSupport), "BSP_StartHttpService"},
    {FEATURE(stControl.bOsdMenuSupport), "OSD_MENU_RegisterModule"},
    {FEATURE(stControl.bFreeDSupport), "FREED_InitProcess"},
    {FEATURE(stControl.bAiSupport), "ALG_Init, ALG_RegisterInitDestroy"},
    {FEATURE(stControl.bDvipSupport), "DVIP_InitProcess"},
    {"tracking without a pipeline",
     [](TestBoard &b) { b.stFeatures.stControl.bAiSupport = BU_TRUE; b.s32PipelineResult = 1; }, ""},
};
struct Lens { std::initializer_list<DEVICE_SELFCHECK_E> chains; BU_S32 s32Pipeline; BU_BOOL bAf; const char *pcMore; };
const Lens LENSES[] = {
    {{PASS},       0,  BU_FALSE, "ISP_API_StartService"},
    {{PASS},       0,  2,        "ISP_API_StartService"}, // not exactly true
    {{PASS},       -1, BU_FALSE, ""},
    {{PASS},       -1, BU_TRUE,  "MPP_RegisterBeforeInit 1"},
    {{FAIL, FAIL}, 0,  BU_TRUE,  "MPP_RegisterBeforeInit 1, ISP_API_StartService"},
    {{FAIL, PASS}, 0,  BU_TRUE,  "MPP_RegisterBeforeInit 1, ISP_API_StartService, ZF_API_StartService, ZF_Register"},
    {{PASS, PASS}, 0,  BU_TRUE,  "MPP_RegisterBeforeInit 1, ISP_API_StartService, ZF_API_StartService, ZF_Register"},
    {{NONE},       0,  BU_TRUE,  "MPP_RegisterBeforeInit 1, ISP_API_StartService, ZF_API_StartService, ZF_Register"},
};
// clang-format on

TEST(BringUp, EachFlagStartsItsModulesAndNoOthers)
{
    for (const Flag &st : FLAGS) EXPECT_EQ(more(st.pfnSet), calls(st.pcMore)) << st.pcName;
}

TEST(BringUp, LensServicesStartOnceAndOnlyOnHealthyChains)
{
    for (const Lens &st : LENSES)
        EXPECT_EQ(more([&](TestBoard &b) {
                      addLenses(b, st.chains);
                      b.s32PipelineResult = st.s32Pipeline;
                      b.stFeatures.stGeneral.bAf = st.bAf;
                  }),
                  calls(st.pcMore))
            << &st - LENSES;
}

TEST(BringUp, EverythingStartsInOrder)
{
    const Calls all = run([](TestBoard &b) {
        for (const Flag &st : FLAGS) st.pfnSet(b);
        b.stFeatures.stGeneral.bAudio = b.bNtpEnabled = BU_TRUE;
        b.s32PipelineResult = 0;
        addLenses(b, {PASS});
    });
    Calls full = LISTED;
    for (std::string &strCall : full) strCall.erase(0, strCall.starts_with('*'));
    EXPECT_THAT(all, testing::ElementsAreArray(full));
    EXPECT_THAT(g_stBoard.log, ElementsAre("6 Start appmain !!!\n", "3 BSP_PTProcInit failed\n"));
}

TEST(BringUp, UnreadableFeatureListEndsBeforeAnyModule)
{
    g_stBoard = {};
    g_stBoard.s32FeatureResult = 7;
    EXPECT_EQ(appServiceMain(), -1);
    EXPECT_EQ(g_stBoard.calls.back(), "CFG_FEATURE_GetConfiguration");
}

TEST(BringUp, InterfaceStatusOutsideTheArrayFails)
{
    g_stBoard = {};
    INTF_INFO_S astDev[2]{};
    astDev[1].enChipChain = PASS;
    EXPECT_EQ(appServiceGetInterfaceStatus(astDev, 2, 1), PASS);
    EXPECT_THAT(g_stBoard.log, testing::IsEmpty());
    EXPECT_EQ(appServiceGetInterfaceStatus(astDev, 2, 2), FAIL);
    EXPECT_EQ(appServiceGetInterfaceStatus(astDev, 2, -1), FAIL);
    EXPECT_THAT(g_stBoard.log, ElementsAre("3 Invalid parameter\n", "3 Invalid parameter\n"));
}

// The main thread may be inside the logger or the allocator: another one answers.
TEST(BringUp, QuitSignalsEndTheProcessFromTheirOwnThread)
{
    for (const int s32Signal : {SIGQUIT, SIGINT, SIGTERM})
        EXPECT_EXIT(
            {
                run([](TestBoard &b) { b.bThreads = true; });
                kill(getpid(), s32Signal);
                std::this_thread::sleep_for(std::chrono::seconds(20));
                _exit(1);
            },
            testing::ExitedWithCode(0), "signals: 6 Bye!");
}
} // namespace
