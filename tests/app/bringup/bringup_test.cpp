#include "appService.h"
#include "doubles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>

int appServiceMain();

using testing::ElementsAre;
using testing::ElementsAreArray;

namespace
{
using Calls = std::vector<std::string>;

Calls operator+(Calls a, const Calls &b)
{
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

// What every board starts, cut where a gated module comes in between.
const Calls kHead{
    "UTIL_DUMPSTACK_PrintCallStack", "UTIL_WDT_SW_StartTimeout 300", "MSG_AppClientInit",
    "BSP_HW_ABI_GetHwAbility",       "CFG_FEATURE_GetConfiguration", "APP_HdmiIn_prepare",
    "APP_HdmiDistributor_prepare",   "FPGA_12GSDI_Prepare",          "BSP_SetSystemSocketBufLimit 1048576 1048576"};
const Calls kBasic{"APP_FAN_init",
                   "CFG_VerifyFileFormat",
                   "SYSTEM_API_InitializeGlobalVirableByXml",
                   "OSD_MENU_InitOpensourceRes",
                   "DEV_EVENT_StartMonitor",
                   "CFG_EVENT_RegisterService"};
const Calls kPipeline{"SYSTEM_API_InitializeMppBusinessByXml", "MPP_InitCfg", "BSP_LENS_LoadDriver"};
const Calls kImageStyles{"ISP_API_GetIspBinUsage 0 1", "ISP_API_SetIspBinUsage 0 6 0 0", "ISP_API_GetIspBinUsage 1 1",
                         "ISP_API_SetIspBinUsage 1 7 0 0"};
const Calls kMisc{"PRESET_RegisterSpecialPreset", "FPGA_12GSDI_InitProcess"};
const Calls kOver{"LDC_Init",
                  "SYS_API_GetAudioMute 1",
                  "sh: ln -s /cfg0/atem.json /etc/atem_tally.json",
                  "SYS_API_GetATEMSwi 1",
                  "SYS_API_SetATEMSwi 0 1",
                  "UTIL_WDT_SW_StopTimeout",
                  "sleep 5000"};
const Calls kPanTilt{"BSP_PTProcInit", "APP_PT_GetSpeedCalcSet_TKV_MX",
                     "PT_API_InitByXml 5 12000 5 9000 100, 4 entries", "PT_Register", "PRESET_API_GotoPowerUpPosition"};

class BringUp : public testing::Test
{
protected:
    BringUp() { g_stBoard = {}; }

    Calls run()
    {
        EXPECT_THROW(appServiceMain(), tagIDLE_S);
        return g_stBoard.calls;
    }
    void addLens(DEVICE_SELFCHECK_E enZfChain)
    {
        g_stBoard.stLens.astZfDevPub[g_stBoard.stLens.s32DevCnt++].enChipChain = enZfChain;
    }
};

TEST_F(BringUp, NothingEnabledStillIdlesWithTheCommonModules)
{
    EXPECT_THAT(
        run(), ElementsAreArray(kHead + kBasic + kPipeline + kImageStyles +
                                Calls{"MPP_InitStream", "APP_LM_Init", "MEDIA_RECORD_Init", "SYSTEM_API_GetImgFreeze"} +
                                kMisc + kOver));
}

TEST_F(BringUp, EverythingEnabledStartsInOrder)
{
    auto &f = g_stBoard.stFeatures;
    f.stDisplay = {BU_TRUE, BU_TRUE, BU_TRUE};
    f.stControl = {BU_TRUE, BU_TRUE, BU_TRUE, BU_TRUE, BU_TRUE, BU_TRUE, BU_TRUE};
    f.stGeneral.bEthernet = f.stGeneral.bPt = f.stGeneral.bAf = f.stGeneral.bNtp = BU_TRUE;
    f.stGeneral.bRstKey = f.stGeneral.bIr = f.stGeneral.bAudio = f.stGeneral.stSerial.bSupport = BU_TRUE;
    f.stAv.stUsb.bSupport = f.stAv.stHdmi.bSupport = f.stAv.stSdi.bSupport = BU_TRUE;
    g_stBoard.bNtpEnabled = BU_TRUE;
    addLens(DEVICE_SELFCHECK_E_PASS);

    EXPECT_THAT(run(), ElementsAreArray(
                           kHead + Calls{"EINK_API_RefreshScreen", "OLED_InitService", "LED_InitDev"} + kBasic +
                           Calls{"MPP_RegisterBeforeInit"} + kPipeline +
                           Calls{"ISP_API_StartService", "ZF_API_StartService", "ZF_Register", "AUDIO_InitCfg 0"} +
                           kImageStyles + Calls{"BSP_SetSystemSocketBufLimit 1048576 1048576", "NET_API_InitCfgParam"} +
                           kPanTilt +
                           Calls{"NTPD_LoadConfig",
                                 "NTPD_StartSchedularTask",
                                 "BSP_RegisterInputDevice",
                                 "UART_DevAllInit",
                                 "VISCA_InitProcess",
                                 "PELCO_InitProcess",
                                 "viscaCtrlPowerReturnMsg",
                                 "MPP_InitStream",
                                 "BSP_StartUsbSrv",
                                 "APP_LM_Init",
                                 "BSP_StartHdmiSrv",
                                 "APP_HdmiDistributor_init",
                                 "APP_HdmiIn_init",
                                 "APP_DSI_LT9211_Init",
                                 "MEDIA_RECORD_Init",
                                 "SYSTEM_API_GetImgFreeze",
                                 "OSD_MENU_RegisterModule",
                                 "FREED_InitProcess",
                                 "BSP_StartHttpService",
                                 "ONVIF_InitProcess",
                                 "ALG_Init",
                                 "ALG_RegisterInitDestroy",
                                 "DVIP_InitProcess"} +
                           kMisc + Calls{"LED_API_AppOver"} + kOver));
    EXPECT_THAT(g_stBoard.log, ElementsAre("6 Start appmain !!!\n", "3 BSP_PTProcInit failed\n"));
}

TEST_F(BringUp, UnreadableFeatureListEndsBeforeAnyModule)
{
    g_stBoard.s32FeatureResult = 7;
    EXPECT_EQ(appServiceMain(), -1);
    EXPECT_EQ(g_stBoard.calls.back(), "CFG_FEATURE_GetConfiguration");
}

// Which of the lens services start, by pipeline, feature and the zoom/focus chip chains.
struct tagLENS_CASE_S {
    std::string name;
    std::vector<DEVICE_SELFCHECK_E> chains;
    BU_S32 s32PipelineResult;
    BU_BOOL bAf;
    Calls started;
};
class BringUpLens : public BringUp, public testing::WithParamInterface<tagLENS_CASE_S>
{
};
constexpr auto FAIL = DEVICE_SELFCHECK_E_FAIL;
constexpr auto PASS = DEVICE_SELFCHECK_E_PASS;
constexpr auto NONE = DEVICE_SELFCHECK_E_NONE;

TEST_P(BringUpLens, StartsOnceAndOnlyOnHealthyChains)
{
    const auto &c = GetParam();
    for (const DEVICE_SELFCHECK_E enChain : c.chains) addLens(enChain);
    g_stBoard.s32PipelineResult = c.s32PipelineResult;
    g_stBoard.stFeatures.stGeneral.bAf = c.bAf;
    g_stBoard.stFeatures.stControl.bAiSupport = BU_TRUE;

    Calls started;
    for (const std::string &strCall : run())
        if (strCall.starts_with("ISP_API_Start") || strCall.starts_with("ZF_") || strCall == "ALG_Init")
            started.push_back(strCall);
    EXPECT_EQ(started, c.started);
}
const Calls kIspOnly{"ISP_API_StartService", "ALG_Init"};
const Calls kAll{"ISP_API_StartService", "ZF_API_StartService", "ZF_Register", "ALG_Init"};
INSTANTIATE_TEST_SUITE_P(Boards, BringUpLens,
                         testing::ValuesIn<tagLENS_CASE_S>({
                             {"no_lens", {}, 0, BU_TRUE, {"ALG_Init"}},
                             {"second_chain_passes", {FAIL, PASS}, 0, BU_TRUE, kAll},
                             {"both_pass", {PASS, PASS}, 0, BU_TRUE, kAll},
                             {"unchecked_counts_as_healthy", {NONE}, 0, BU_TRUE, kAll},
                             {"all_failed", {FAIL, FAIL}, 0, BU_TRUE, kIspOnly},
                             {"no_autofocus", {PASS}, 0, BU_FALSE, kIspOnly},
                             {"autofocus_not_exactly_true", {PASS}, 0, 2, kIspOnly},
                             {"pipeline_failed", {PASS}, -1, BU_TRUE, {}},
                         }),
                         [](const auto &stInfo) { return stInfo.param.name; });

TEST_F(BringUp, GatesThatNeedTwoConditionsOrOneOfTwo)
{
    auto &g = g_stBoard.stFeatures.stGeneral;
    g.bNtp = BU_TRUE; // without Ethernet
    g.bIr = BU_TRUE;  // without a reset key
    const Calls calls = run();
    EXPECT_THAT(calls, testing::Not(testing::Contains("NTPD_LoadConfig")));
    EXPECT_THAT(calls, testing::Contains("BSP_RegisterInputDevice"));

    g_stBoard.calls.clear();
    g.bEthernet = BU_TRUE; // NTP there, but switched off
    EXPECT_THAT(run(), testing::AllOf(testing::Contains("NTPD_LoadConfig"),
                                      testing::Not(testing::Contains("NTPD_StartSchedularTask"))));
}

TEST_F(BringUp, InterfaceStatusOutsideTheArrayFails)
{
    INTF_INFO_S astDev[2]{};
    astDev[1].enChipChain = PASS;
    EXPECT_EQ(appServiceGetInterfaceStatus(astDev, 2, 1), PASS);
    EXPECT_THAT(g_stBoard.log, testing::IsEmpty());
    EXPECT_EQ(appServiceGetInterfaceStatus(astDev, 2, 2), FAIL);
    EXPECT_EQ(appServiceGetInterfaceStatus(astDev, 2, -1), FAIL);
    EXPECT_THAT(g_stBoard.log, ElementsAre("3 Invalid parameter\n", "3 Invalid parameter\n"));
}

class BringUpSignal : public BringUp, public testing::WithParamInterface<int>
{
};
TEST_P(BringUpSignal, EndsTheProcessWithStatusZero)
{
    EXPECT_EXIT(
        {
            try {
                appServiceMain();
            } catch (const tagIDLE_S &) {
                std::raise(GetParam());
            }
        },
        testing::ExitedWithCode(0), "");
}
INSTANTIATE_TEST_SUITE_P(Signals, BringUpSignal, testing::Values(SIGQUIT, SIGINT, SIGTERM));
} // namespace
