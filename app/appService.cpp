// The bring-up of the service: the steps over the rows of modules.def, and the starts that need more than a call.
#include "appService.h"

#include "board/device.h"
#include "board/lamp.h"
#include "camera/clock.h"
#include "camera/focus.h"
#include "camera/image.h"
#include "camera/menu.h"
#include "camera/motion.h"
#include "camera/network.h"
#include "camera/preset.h"
#include "camera/serial.h"
#include "camera/sound.h"
#include "camera/startup.h"
#include "config/config.h"
#include "input/input.h"
#include "led/led.h"
#include "live_media/liveMedia.h"
#include "media/audio.h"
#include "media/pipeline.h"
#include "menu/menu.h"
#include "modules.h"
#include "preset/preset.h"
#include "pt/pt.h"
#include "util/file.h"
#include "util/log.h"
#include "util/thread.h"
#include "util/time.h"
#include "util/watchdog.h"
#include "visca/visca.h"
#include "web/web.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <vector>

namespace
{
constexpr BU_S32 BRING_UP_LIMIT_S = 300;
constexpr BU_S32 SOCKET_BUF_LIMIT = 0x100000;
constexpr BU_S32 PCM_FORMAT_S16_LE = 0;

enum class Step { PREPARE, DISPLAY, BASIC, GENERAL, AV, CONTROL, MISC, OVER };

/// What the conditions read. A step that gets only a part of it from its caller leaves the rest empty.
struct Board {
    tagHW_ABILITY_S *pstHwAbi = nullptr;
    BU_BOOL *pbSensorInitOk = nullptr; ///< written when the media pipeline came up, or did not
    tagCFG_FEATURE_CONTROL_S stControl{};
    tagCFG_FEATURE_AV_S stAv{};
    tagCFG_FEATURE_DISPLAY_S stDisplay{};
    tagCFG_FEATURE_GENERAL_S stGeneral{};
};

struct Row {
    Step enStep;
    bool (*pfnCondition)(const Board &);
    void (*pfnStart)(Board &);
    std::string_view strCondition;
};

/// What a step gets of the features, in their order; a condition over anything else would never hold.
constexpr std::string_view PARTS[] = {"-",    "stDisplay", "stGeneral", "stGeneral",
                                      "stAv", "stControl", "-",         "stDisplay"};
constexpr bool readsItsPart(const Row &row)
{
    const std::string_view str = row.strCondition;
    for (auto at = str.find("b.st"); at != str.npos; at = str.find("b.st", at + 1))
        if (!str.substr(at + 2).starts_with(PARTS[static_cast<std::size_t>(row.enStep)])) return false;
    return true;
}

bool hasPicture(const Board &b) { return *b.pbSensorInitOk && b.pstHwAbi->stLens.s32DevCnt > 0; }

/// The zoom/focus service starts when the chip chain of any lens device did not fail.
bool hasFocus(const Board &b)
{
    HW_CAPS_LENS_ARRAY_S &stLens = b.pstHwAbi->stLens;
    if (!hasPicture(b) || b.stGeneral.bAf != BU_TRUE) return false;
    for (BU_S32 i = 0; i < stLens.s32DevCnt; ++i)
        if (appServiceGetInterfaceStatus(stLens.astZfDevPub, stLens.s32DevCnt, i) != DEVICE_SELFCHECK_E_FAIL)
            return true;
    return false;
}

bool hasTracking(const Board &b) { return *b.pbSensorInitOk == BU_TRUE && b.stControl.bAiSupport; }

/// Applies one stored image setting of one pipeline again.
template <class T>
void ISP_InitParamByCfg(BU_S32 s32Pipe, BU_S32 (*pfnGet)(BU_S32, T *, BU_BOOL),
                        BU_S32 (*pfnSet)(BU_S32, T, BU_BOOL, BU_BOOL))
{
    T value = static_cast<T>(0);
    pfnGet(s32Pipe, &value, BU_TRUE);
    pfnSet(s32Pipe, value, BU_FALSE, BU_FALSE);
}

void limitSocketBuffers(Board &) { BSP_SetSystemSocketBufLimit(SOCKET_BUF_LIMIT, SOCKET_BUF_LIMIT); }
void registerFocusSetup(Board &) { MPP_RegisterBeforeInit(AF_Callback_MppIkSetup); }
void initAudio(Board &) { AUDIO_InitCfg(PCM_FORMAT_S16_LE); }

void initPipeline(Board &b)
{
    MPP_BUSINESS_CFG_S stMppBusiness{};
    SYSTEM_API_InitializeMppBusinessByXml(&stMppBusiness);
    *b.pbSensorInitOk = MPP_InitCfg(&stMppBusiness) == 0;
}

void applyImageStyles(Board &)
{
    for (const BU_S32 s32Pipe : {0, 1})
        ISP_InitParamByCfg<tagImageStyle>(s32Pipe, ISP_API_GetIspBinUsage, ISP_API_SetIspBinUsage);
}

void initPanTilt(Board &)
{
    if (BSP_PTProcInit(0, nullptr) != 0) LOG_ERROR("BSP_PTProcInit failed\n");

    const PT_SPEED_LIMIT_T stSpeedLimitDps{5, 12000, 5, 9000, 100};
    std::vector<PT_SPEED_CALC_SET_S> listSpeedCalcSet;
    APP_PT_GetSpeedCalcSet_TKV_MX(listSpeedCalcSet);
    PT_API_InitByXml(&stSpeedLimitDps, listSpeedCalcSet);
}

void startNtp(Board &)
{
    BU_BOOL bEnable = BU_FALSE;
    SYSTEM_API_GetNTPEnabled(&bEnable, BU_FALSE);
    if (bEnable) NTPD_StartSchedularTask();
}

void readMute(Board &)
{
    BU_BOOL bMuteInitOk = BU_FALSE;
    SYS_API_GetAudioMute(&bMuteInitOk, BU_TRUE);
}

void startAtem(Board &)
{
    UTIL_CMD_RunSafe("ln -s /cfg0/atem.json /etc/atem_tally.json");
    BU_BOOL bEnable = BU_TRUE;
    SYS_API_GetATEMSwi(&bEnable, BU_TRUE);
    SYS_API_SetATEMSwi(bEnable, BU_TRUE);
}

constexpr Row ROWS[] = {
#define ROW(step, condition, call)                                                                                     \
    {Step::step, []([[maybe_unused]] const Board &b) -> bool { return condition; },                                    \
     []([[maybe_unused]] Board &b) { call; }, #condition},
#define START(step, condition, function) ROW(step, condition, function())
#define RUN(step, condition, function) ROW(step, condition, function(b))
#define ABSENT(step, condition, function, name) ROW(step, condition, function())
#include "modules.def"
#undef ROW
};
static_assert(std::ranges::all_of(ROWS, readsItsPart), "a condition reads what its step does not get");

BU_S32 bringUp(Step enStep, Board stBoard)
{
    for (const Row &row : ROWS)
        if (row.enStep == enStep && row.pfnCondition(stBoard)) row.pfnStart(stBoard);
    return 0;
}

/// From here on a thread of its own waits for the signals that end the process, so that their answer may log and exit
/// whatever the other threads are doing. Called before any other thread is made: they inherit the mask.
void takeQuitSignals()
{
    static sigset_t stQuit;
    sigemptyset(&stQuit);
    for (const int s32Signal : {SIGQUIT, SIGINT, SIGTERM}) sigaddset(&stQuit, s32Signal);
    pthread_sigmask(SIG_BLOCK, &stQuit, nullptr);

    static UTIL_THREAD_DATA_S stThread{};
    const auto waitForSignal = [](void *) {
        int s32Signal = 0;
        if (sigwait(&stQuit, &s32Signal) == 0) appServiceOnGetQuitSignal(s32Signal);
    };
    UTIL_THREAD_InitData(&stThread, "signals", waitForSignal, nullptr);
    UTIL_THREAD_Create(&stThread);
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

BU_S32 APP_SERVICE_PrepareInit() { return bringUp(Step::PREPARE, {}); }

BU_S32 APP_SERVICE_InitDisplayModules(tagHW_ABILITY_S *pstHwAbi, tagCFG_FEATURE_DISPLAY_S *pstDisplay)
{
    return bringUp(Step::DISPLAY, {.pstHwAbi = pstHwAbi, .stDisplay = *pstDisplay});
}

BU_S32 APP_SERVICE_InitBasicModules(tagHW_ABILITY_S *pstHwAbi, tagCFG_FEATURE_LIST_S *pstFeatureList,
                                    tagBU_BOOL *pbSensorInitOk)
{
    return bringUp(Step::BASIC,
                   {.pstHwAbi = pstHwAbi, .pbSensorInitOk = pbSensorInitOk, .stGeneral = pstFeatureList->stGeneral});
}

BU_S32 APP_SERVICE_InitGeneralModules(tagHW_ABILITY_S *pstHwAbi, tagCFG_FEATURE_GENERAL_S *pstGeneral)
{
    return bringUp(Step::GENERAL, {.pstHwAbi = pstHwAbi, .stGeneral = *pstGeneral});
}

BU_S32 APP_SERVICE_InitAvModules(tagHW_ABILITY_S *pstHwAbi, tagCFG_FEATURE_AV_S *pstAv)
{
    return bringUp(Step::AV, {.pstHwAbi = pstHwAbi, .stAv = *pstAv});
}

BU_S32 APP_SERVICE_InitControlModules(tagHW_ABILITY_S *pstHwAbi, tagCFG_FEATURE_CONTROL_S *pstControl,
                                      tagBU_BOOL bSensorInitOk)
{
    return bringUp(Step::CONTROL, {.pstHwAbi = pstHwAbi, .pbSensorInitOk = &bSensorInitOk, .stControl = *pstControl});
}

BU_S32 APP_SERVICE_InitMiscModules(tagHW_ABILITY_S *pstHwAbi) { return bringUp(Step::MISC, {.pstHwAbi = pstHwAbi}); }

BU_S32 APP_SERVICE_InitOver(tagCFG_FEATURE_LIST_S stFeatureList)
{
    return bringUp(Step::OVER, {.stDisplay = stFeatureList.stDisplay});
}

int main()
{
    LOG_INFO("Start appmain !!!\n");
    UTIL_DUMPSTACK_PrintCallStack();
    takeQuitSignals();
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
