// Doubles of everything the bring-up starts: each writes its name into the record, in order; some answers are set by
// the test. The rows of the bring-up without arguments make their doubles themselves.
#include "doubles.h"

#define main appServiceMain // the service itself, with all declarations that it uses
#include "appService.cpp"
#undef main

#include <cstdarg>

TestBoard g_stBoard;

namespace
{
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

#define START(step, condition, function)                                                                               \
    decltype(function()) function() { return static_cast<decltype(function())>(note(#function)); }
#define ABSENT(step, condition, function, name) START(step, condition, function)
START(, , MSG_AppClientInit)
START(, , UTIL_DUMPSTACK_PrintCallStack)
START(, , NTPD_StartSchedularTask)
START(, , UTIL_WDT_SW_StopTimeout)
#include "modules.def"

BU_S32 UTIL_WDT_SW_StartTimeout(BU_S32 s32Seconds) { return note(__func__, s32Seconds); }
BU_S32 BSP_SetSystemSocketBufLimit(BU_S32 s32Rcv, BU_S32 s32Snd) { return note(__func__, s32Rcv, s32Snd); }
BU_S32 BSP_HW_ABI_GetHwAbility(tagHW_ABILITY_S *pstAbility)
{
    pstAbility->stLens = g_stBoard.stLens;
    return note(__func__) - 1; // whatever it says, the bring-up goes on
}
BU_S32 CFG_FEATURE_GetConfiguration(tagCFG_FEATURE_LIST_S *pstList)
{
    *pstList = g_stBoard.stFeatures;
    return note(__func__) + g_stBoard.s32FeatureResult;
}
BU_S32 AF_Callback_MppIkSetup(void *) { return 0; }
BU_S32 MPP_RegisterBeforeInit(BU_S32 (*pfnCb)(void *)) { return note(__func__, pfnCb == AF_Callback_MppIkSetup); }
BU_S32 SYSTEM_API_InitializeMppBusinessByXml(MPP_BUSINESS_CFG_S *pstCfg)
{
    pstCfg->s32PipeCnt = 2;
    return note(__func__);
}
BU_S32 MPP_InitCfg(MPP_BUSINESS_CFG_S *pstCfg)
{
    return note(__func__, pstCfg->s32PipeCnt) + g_stBoard.s32PipelineResult;
}
BU_S32 AUDIO_InitCfg(BU_S32 s32Format) { return note(__func__, s32Format); }
BU_S32 ISP_API_GetIspBinUsage(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread)
{
    *ps32Value = 6 + s32Pipe;
    return note(__func__, s32Pipe, bReread);
}
BU_S32 ISP_API_SetIspBinUsage(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate)
{
    return note(__func__, s32Pipe, s32Value, bSaveCfg, bUpdate);
}
BU_S32 BSP_PTProcInit(BU_S32 s32Dev, void *) { return note(__func__, s32Dev) - 1; }
BU_S32 APP_PT_GetSpeedCalcSet_TKV_MX(std::vector<PT_SPEED_CALC_SET_S> &listSet)
{
    listSet.resize(4);
    return note(__func__);
}
BU_S32 PT_API_InitByXml(const PT_SPEED_LIMIT_T *pst, std::vector<PT_SPEED_CALC_SET_S> listSet)
{
    return note(__func__, pst->s32MinPanSpeedDps, pst->s32MaxPanSpeedDps, pst->s32MinTiltSpeedDps,
                pst->s32MaxTiltSpeedDps, pst->s32SpeedMul, listSet.size());
}
BU_S32 SYSTEM_API_GetNTPEnabled(BU_BOOL *pbOn, BU_BOOL)
{
    *pbOn = g_stBoard.bNtpEnabled;
    return 0;
}
BU_S32 SYS_API_GetAudioMute(BU_S32 *, BU_BOOL bReread) { return note(__func__, bReread); }
BU_S32 SYS_API_GetATEMSwi(BU_BOOL *pbOn, BU_BOOL bReread)
{
    *pbOn = BU_FALSE;
    return note(__func__, bReread);
}
BU_S32 SYS_API_SetATEMSwi(BU_BOOL bOn, BU_BOOL bSaveCfg) { return note(__func__, bOn, bSaveCfg); }
BU_S32 UTIL_CMD_RunSafe(const BU_CHAR *pcCommand) { return note(std::string("sh: ") + pcCommand); }

BU_S32 UTIL_THREAD_InitData(UTIL_THREAD_DATA_S *, const BU_CHAR *pcName, std::function<void(void *)> fn, void *)
{
    g_fnThread = [=](void *pv) { t_pcThread = pcName, fn(pv); };
    return 0;
}
BU_S32 UTIL_THREAD_Create(UTIL_THREAD_DATA_S *)
{
    if (g_stBoard.bThreads) std::thread(g_fnThread, nullptr).detach();
    return note(__func__);
}

// The service idles by sleeping for ever: the end of the test.
void UTIL_TIME_SleepMs(BU_S64 s64Ms)
{
    note("sleep", s64Ms);
    throw Idle{};
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
util::tagLOG_PREFIX_S::tagLOG_PREFIX_S(const BU_CHAR *, BU_S32) {}
