// Which modules start, in which order, under which flags; and how the process ends. Everything that the bring-up starts
// is a double here, which writes its name into the record; the rows of the bring-up make most of them themselves.
#define main appServiceMain // the service itself, with all declarations that it uses
#include "appService.cpp"
#undef main

#include <cstdarg>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <thread>
#include <unistd.h>

namespace
{
using Calls = std::vector<std::string>;

/// The board a test describes, and what the bring-up did on it.
struct TestBoard {
    tagCFG_FEATURE_LIST_S stFeatures{};
    HW_CAPS_LENS_ARRAY_S stLens{};
    BU_S32 s32FeatureResult = 0, s32PipelineResult = 0;
    BU_BOOL bNtpEnabled = BU_FALSE;
    bool bThreads = false; ///< the threads asked for really run
    Calls calls, log;
} g_stBoard;

struct Idle {
}; // thrown when the service has nothing left to do but sleep
std::function<void(void *)> g_fnThread;
thread_local const BU_CHAR *t_pcThread = "main";

/// Notes a call, its arguments behind the name, and answers 0.
template <class... A> BU_S32 note(std::string strText, A... args)
{
    ((strText += " " + std::to_string(args)), ...);
    g_stBoard.calls.push_back(std::move(strText));
    return 0;
}
} // namespace

// clang-format off
#define START(step, condition, function) \
    decltype(function()) function() { return static_cast<decltype(function())>(note(#function)); }
#define ABSENT(step, condition, function, name) START(step, condition, function)
START(, , MSG_AppClientInit)
START(, , UTIL_DUMPSTACK_PrintCallStack)
START(, , NTPD_StartSchedularTask)
START(, , UTIL_WDT_SW_StopTimeout)
#include "modules.def"

using BOOL = BU_BOOL;
BU_S32 UTIL_WDT_SW_StartTimeout(BU_S32 s32Seconds) { return note(__func__, s32Seconds); }
BU_S32 BSP_SetSystemSocketBufLimit(BU_S32 s32Rcv, BU_S32 s32Snd) { return note(__func__, s32Rcv, s32Snd); }
BU_S32 AF_Callback_MppIkSetup(void *) { return 0; }
BU_S32 MPP_RegisterBeforeInit(BU_S32 (*pfnCb)(void *)) { return note(__func__, pfnCb == AF_Callback_MppIkSetup); }
BU_S32 SYSTEM_API_InitializeMppBusinessByXml(MPP_BUSINESS_CFG_S *pst) { return pst->s32PipeCnt = 2, note(__func__); }
BU_S32 MPP_InitCfg(MPP_BUSINESS_CFG_S *pst) { return note(__func__, pst->s32PipeCnt) + g_stBoard.s32PipelineResult; }
BU_S32 AUDIO_InitCfg(BU_S32 s32Format) { return note(__func__, s32Format); }
BU_S32 ISP_API_GetIspBinUsage(BU_S32 i, BU_S32 *ps32, BOOL bRead) { return *ps32 = 6 + i, note(__func__, i, bRead); }
BU_S32 ISP_API_SetIspBinUsage(BU_S32 i, BU_S32 s32, BOOL bSave, BOOL bTell) { return note(__func__, i, s32, bSave, bTell); }
BU_S32 BSP_PTProcInit(BU_S32 s32Dev, void *) { return note(__func__, s32Dev) - 1; }
BU_S32 APP_PT_GetSpeedCalcSet_TKV_MX(std::vector<PT_SPEED_CALC_SET_S> &list) { return list.resize(4), note(__func__); }
BU_S32 SYSTEM_API_GetNTPEnabled(BOOL *pbOn, BOOL) { return *pbOn = g_stBoard.bNtpEnabled, 0; }
BU_S32 SYS_API_GetAudioMute(BU_S32 *, BOOL bRead) { return note(__func__, bRead); }
BU_S32 SYS_API_GetATEMSwi(BOOL *pbOn, BOOL bRead) { return *pbOn = BU_FALSE, note(__func__, bRead); }
BU_S32 SYS_API_SetATEMSwi(BOOL bOn, BOOL bSave) { return note(__func__, bOn, bSave); }
BU_S32 UTIL_CMD_RunSafe(const BU_CHAR *pcCommand) { return note(std::string("sh: ") + pcCommand); }
void UTIL_TIME_SleepMs(BU_S64 s64Ms) { note("sleep", s64Ms); throw Idle{}; }
util::LogPrefix::LogPrefix(const BU_CHAR *, BU_S32) {}
BU_S32 BSP_HW_ABI_GetHwAbility(tagHW_ABILITY_S *pst) { return pst->stLens = g_stBoard.stLens, note(__func__) - 1; } // goes on
BU_S32 CFG_FEATURE_GetConfiguration(tagCFG_FEATURE_LIST_S *pst)
{ return *pst = g_stBoard.stFeatures, note(__func__) + g_stBoard.s32FeatureResult; }
BU_S32 PT_API_InitByXml(const PT_SPEED_LIMIT_T *pst, std::vector<PT_SPEED_CALC_SET_S> list)
{ return note(__func__, pst->s32MinPanSpeedDps, pst->s32MaxPanSpeedDps, pst->s32MinTiltSpeedDps, pst->s32MaxTiltSpeedDps,
              pst->s32SpeedMul, list.size()); }
BU_S32 UTIL_THREAD_InitData(UTIL_THREAD_DATA_S *, const BU_CHAR *pcName, std::function<void(void *)> fn, void *)
{ return g_fnThread = [=](void *pv) { t_pcThread = pcName, fn(pv); }, 0; }
// clang-format on
BU_S32 UTIL_THREAD_Create(UTIL_THREAD_DATA_S *)
{
    if (g_stBoard.bThreads) std::thread(g_fnThread, nullptr).detach();
    return note(__func__);
}
void UTIL_LOG_Print(BU_S32 s32Level, const BU_CHAR *, const BU_CHAR *pcFormat, ...)
{
    BU_CHAR acText[256];
    va_list args;
    va_start(args, pcFormat);
    std::vsnprintf(acText, sizeof(acText), pcFormat, args);
    va_end(args);
    g_stBoard.log.push_back(std::to_string(s32Level) + " " + acText);
    if (g_stBoard.bThreads) std::fprintf(stderr, "%s: %d %s", t_pcThread, s32Level, acText);
}

namespace
{
using testing::ElementsAre;
using Set = std::function<void(TestBoard &)>;
constexpr auto FAIL = DEVICE_SELFCHECK_E_FAIL, PASS = DEVICE_SELFCHECK_E_PASS, NONE = DEVICE_SELFCHECK_E_NONE;

Calls calls(std::string_view text) // separated by commas
{
    Calls list;
    for (std::size_t end; !text.empty(); text.remove_prefix(std::min(text.find_first_not_of(", \n", end), text.size())))
        list.emplace_back(text.substr(0, end = std::min(text.find(','), text.size())));
    return list;
}

// clang-format off
// What a board with everything starts, in order; '*': not started by a bare board.
const Calls LISTED = calls(
    "UTIL_DUMPSTACK_PrintCallStack, UTIL_THREAD_Create, UTIL_WDT_SW_StartTimeout 300, MSG_AppClientInit, "
    "BSP_HW_ABI_GetHwAbility, CFG_FEATURE_GetConfiguration, APP_HdmiIn_prepare, APP_HdmiDistributor_prepare, "
    "FPGA_12GSDI_Prepare, BSP_SetSystemSocketBufLimit 1048576 1048576, *EINK_API_RefreshScreen, *OLED_InitService, "
    "*LED_InitDev, APP_FAN_init, CFG_VerifyFileFormat, SYSTEM_API_InitializeGlobalVirableByXml, "
    "OSD_MENU_InitOpensourceRes, DEV_EVENT_StartMonitor, CFG_EVENT_RegisterService, *MPP_RegisterBeforeInit 1, "
    "SYSTEM_API_InitializeMppBusinessByXml, MPP_InitCfg 2, BSP_LENS_LoadDriver, *ISP_API_StartService, "
    "*ZF_API_StartService, *ZF_Register, *AUDIO_InitCfg 0, ISP_API_GetIspBinUsage 0 1, "
    "ISP_API_SetIspBinUsage 0 6 0 0, ISP_API_GetIspBinUsage 1 1, ISP_API_SetIspBinUsage 1 7 0 0, "
    "*BSP_SetSystemSocketBufLimit 1048576 1048576, *NET_API_InitCfgParam, *BSP_PTProcInit 0, "
    "*APP_PT_GetSpeedCalcSet_TKV_MX, *PT_API_InitByXml 5 12000 5 9000 100 4, *PT_Register, "
    "*PRESET_API_GotoPowerUpPosition, *NTPD_LoadConfig, *NTPD_StartSchedularTask, *BSP_RegisterInputDevice, "
    "*UART_DevAllInit, *VISCA_InitProcess, *PELCO_InitProcess, *viscaCtrlPowerReturnMsg, MPP_InitStream, "
    "*BSP_StartUsbSrv, APP_LM_Init, *BSP_StartHdmiSrv, *APP_HdmiDistributor_init, *APP_HdmiIn_init, "
    "*APP_DSI_LT9211_Init, MEDIA_RECORD_Init, SYSTEM_API_GetImgFreeze, *OSD_MENU_RegisterModule, *FREED_InitProcess, "
    "*BSP_StartHttpService, *ONVIF_InitProcess, *ALG_Init, *ALG_RegisterInitDestroy, *DVIP_InitProcess, "
    "PRESET_RegisterSpecialPreset, FPGA_12GSDI_InitProcess, *LED_API_AppOver, LDC_Init, SYS_API_GetAudioMute 1, "
    "sh: ln -s /cfg0/atem.json /etc/atem_tally.json, SYS_API_GetATEMSwi 1, SYS_API_SetATEMSwi 0 1, "
    "UTIL_WDT_SW_StopTimeout, sleep 5000");

struct Flag { const char *pcName; void (*pfnSet)(TestBoard &b); const char *pcMore; };
#define FEATURE(member) #member, [](TestBoard &b) { b.stFeatures.member = BU_TRUE; }
const Flag FLAGS[] = {
    {"bare", [](TestBoard &) {}, ""},
    {FEATURE(stDisplay.bEinkSupport), "EINK_API_RefreshScreen"}, {FEATURE(stDisplay.bOledSupport), "OLED_InitService"},
    {FEATURE(stDisplay.bLedSupport), "LED_InitDev, LED_API_AppOver"},
    {FEATURE(stGeneral.bEthernet), "BSP_SetSystemSocketBufLimit 1048576 1048576, NET_API_InitCfgParam"},
    {FEATURE(stGeneral.bPt), "BSP_PTProcInit 0, APP_PT_GetSpeedCalcSet_TKV_MX, "
        "PT_API_InitByXml 5 12000 5 9000 100 4, PT_Register, PRESET_API_GotoPowerUpPosition"},
    {FEATURE(stGeneral.bAf), "MPP_RegisterBeforeInit 1"}, {FEATURE(stGeneral.bNtp), ""},
    {"NTP with Ethernet", [](TestBoard &b) { b.stFeatures.stGeneral.bNtp = b.stFeatures.stGeneral.bEthernet = 1; },
        "BSP_SetSystemSocketBufLimit 1048576 1048576, NET_API_InitCfgParam, NTPD_LoadConfig"},
    {FEATURE(stGeneral.bRstKey), "BSP_RegisterInputDevice"}, {FEATURE(stGeneral.bIr), "BSP_RegisterInputDevice"},
    {FEATURE(stGeneral.bAudio), "AUDIO_InitCfg 0"},
    {"audio not exactly true", [](TestBoard &b) { b.stFeatures.stGeneral.bAudio = 2; }, ""},
    {FEATURE(stGeneral.stSerial.bSupport), "UART_DevAllInit, VISCA_InitProcess, PELCO_InitProcess, viscaCtrlPowerReturnMsg"},
    {FEATURE(stAv.stHdmi.bSupport), "BSP_StartHdmiSrv, APP_HdmiDistributor_init, APP_HdmiIn_init"},
    {FEATURE(stAv.stHdBaseT.bSupport), ""}, {FEATURE(stAv.stSdi.bSupport), "APP_DSI_LT9211_Init"},
    {FEATURE(stAv.stUsb.bSupport), "BSP_StartUsbSrv"}, {FEATURE(stControl.bViscaEtherSupport), ""},
    {FEATURE(stControl.bOnvifSupport), "ONVIF_InitProcess"}, {FEATURE(stControl.bWebUiSupport), "BSP_StartHttpService"},
    {FEATURE(stControl.bOsdMenuSupport), "OSD_MENU_RegisterModule"},
    {FEATURE(stControl.bFreeDSupport), "FREED_InitProcess"}, {FEATURE(stControl.bDvipSupport), "DVIP_InitProcess"},
    {FEATURE(stControl.bAiSupport), "ALG_Init, ALG_RegisterInitDestroy"},
    {"tracking without a pipeline", [](TestBoard &b) { b.stFeatures.stControl.bAiSupport = BU_TRUE; b.s32PipelineResult = 1; }, ""},
};
struct Lens { std::initializer_list<DEVICE_SELFCHECK_E> chains; BU_S32 s32Pipeline; BU_BOOL bAf; const char *pcMore; };
const Lens LENSES[] = {
    {{PASS}, 0, BU_FALSE, "ISP_API_StartService"}, {{PASS}, 0, 2, "ISP_API_StartService"}, // not exactly true
    {{PASS}, -1, BU_FALSE, ""}, {{PASS}, -1, BU_TRUE, "MPP_RegisterBeforeInit 1"},
    {{FAIL, FAIL}, 0, BU_TRUE, "MPP_RegisterBeforeInit 1, ISP_API_StartService"},
    {{FAIL, PASS}, 0, BU_TRUE, "MPP_RegisterBeforeInit 1, ISP_API_StartService, ZF_API_StartService, ZF_Register"},
    {{PASS, PASS}, 0, BU_TRUE, "MPP_RegisterBeforeInit 1, ISP_API_StartService, ZF_API_StartService, ZF_Register"},
    {{NONE}, 0, BU_TRUE, "MPP_RegisterBeforeInit 1, ISP_API_StartService, ZF_API_StartService, ZF_Register"},
};
// clang-format on

Calls run(const Set &fnSet)
{
    g_stBoard = {};
    fnSet(g_stBoard);
    EXPECT_THROW(appServiceMain(), Idle);
    return g_stBoard.calls;
}

/// What was called beyond the bare board, in order.
Calls more(const Set &fnSet)
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

TEST(BringUp, EachFlagStartsItsModulesAndNoOthers)
{
    for (const Flag &st : FLAGS) EXPECT_EQ(more(st.pfnSet), calls(st.pcMore)) << st.pcName;
}

TEST(BringUp, LensServicesStartOnceAndOnlyOnHealthyChains)
{
    for (const Lens &st : LENSES) {
        const Set set = [&](TestBoard &b) {
            for (const auto enChain : st.chains) b.stLens.astZfDevPub[b.stLens.s32DevCnt++].enChipChain = enChain;
            b.s32PipelineResult = st.s32Pipeline, b.stFeatures.stGeneral.bAf = st.bAf;
        };
        EXPECT_EQ(more(set), calls(st.pcMore)) << &st - LENSES;
    }
}

TEST(BringUp, EverythingStartsInOrder)
{
    const Calls all = run([](TestBoard &b) {
        for (const Flag &st : FLAGS) st.pfnSet(b);
        b.stFeatures.stGeneral.bAudio = b.bNtpEnabled = BU_TRUE;
        b.s32PipelineResult = 0;
        b.stLens.s32DevCnt = 1;
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
    for (const BU_S32 s32Dev : {2, -1}) EXPECT_EQ(appServiceGetInterfaceStatus(astDev, 2, s32Dev), FAIL);
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
