// Track mode by strategy, and who hears of it.
#include "camera/tracking.h"

#include "board/profile.h"
#include "camera/settingEvent.h"
#include "settings/settings.h"
#include "util/journal.h"

#include <atomic>
#include <cstdio>
#include <string_view>

namespace
{
using settings::Row;

std::atomic<BU_S32> g_s32DebugTemp{BU_FALSE};
std::atomic<void (*)(TRACK_MODE_E)> g_pfnModeChanged{nullptr};
std::atomic<BU_S32> g_s32ModeTold{TRACK_MODE_E_EVERYWHERE_TRACKING}; // what the callback knows

/// The mode that a strategy brings along.
Row modeRow(BU_S32 s32Strategy)
{
    return s32Strategy == TRACK_STRATEGY_E_MONOCULAR ? settings::ALG_API_ModeMonocular
                                                     : settings::ALG_API_ModeBinocular;
}

void tellMode()
{
    const BU_S32 s32Mode = settings::value(settings::ALG_API_TrackMode);
    if (g_s32ModeTold.exchange(s32Mode) == s32Mode) return;
    if (const auto pfnCb = g_pfnModeChanged.load()) pfnCb(static_cast<TRACK_MODE_E>(s32Mode));
}

/// Sets the mode in force.
BU_S32 setMode(BU_S32 s32Mode, BU_BOOL bSaveCfg, BU_BOOL bUpdate)
{
    const BU_S32 s32Ret = settings::set(settings::ALG_API_TrackMode, 0, s32Mode, bSaveCfg, bUpdate);
    tellMode();
    return s32Ret;
}

BU_S32 setModeOf(BU_S32 s32Strategy, BU_S32 s32Mode, BU_BOOL bSaveCfg, BU_BOOL bUpdate)
{
    const BU_S32 s32Ret = settings::set(modeRow(s32Strategy), 0, s32Mode, bSaveCfg, bUpdate);
    if (s32Ret != 0 || settings::value(settings::ALG_API_TrackStrategy) != s32Strategy) return s32Ret;
    return setMode(s32Mode, bSaveCfg, bUpdate);
}
} // namespace

BU_S32 ALG_API_SetTrackMode(BU_S32 s32Mode, BU_BOOL bSaveCfg, BU_BOOL bUpdate)
{
    if (const auto injected = journal::call(__func__, s32Mode, bSaveCfg, bUpdate)) return *injected;
    return setModeOf(settings::value(settings::ALG_API_TrackStrategy), s32Mode, bSaveCfg, bUpdate);
}

BU_S32 ALG_API_SetTrackStrategy(BU_S32 s32Strategy, BU_BOOL bSaveCfg, BU_BOOL bUpdate)
{
    if (const auto injected = journal::call(__func__, s32Strategy, bSaveCfg, bUpdate)) return *injected;
    const BU_S32 s32Ret = settings::set(settings::ALG_API_TrackStrategy, 0, s32Strategy, bSaveCfg, bUpdate);
    return s32Ret == 0 ? setMode(settings::value(modeRow(s32Strategy)), bSaveCfg, bUpdate) : s32Ret;
}

BU_S32 ALG_API_SetTrackStrategyBinocular(BU_S32 s32Mode, BU_BOOL bSaveCfg, BU_BOOL bUpdate)
{
    if (const auto injected = journal::call(__func__, s32Mode, bSaveCfg, bUpdate)) return *injected;
    return setModeOf(TRACK_STRATEGY_E_BINOCULAR, s32Mode, bSaveCfg, bUpdate);
}

BU_S32 ALG_API_SetTrackStrategyMonocular(BU_S32 s32Mode, BU_BOOL bSaveCfg, BU_BOOL bUpdate)
{
    if (const auto injected = journal::call(__func__, s32Mode, bSaveCfg, bUpdate)) return *injected;
    return setModeOf(TRACK_STRATEGY_E_MONOCULAR, s32Mode, bSaveCfg, bUpdate);
}

BU_S32 ALG_API_RegisterTrackModeCallback(void (*pfnCb)(TRACK_MODE_E))
{
    if (const auto injected = journal::call(__func__, pfnCb != nullptr)) return *injected;
    static const BU_S32 s32Listener = CFG_SETTING_Listen([](const CFG_SETTING_EVENT_S &stEvent) {
        if (std::string_view(stEvent.pcKey) == "TrackMode") tellMode(); // a factory restore, a menu
    });
    static_cast<void>(s32Listener);
    g_s32ModeTold = settings::value(settings::ALG_API_TrackMode);
    g_pfnModeChanged = pfnCb;
    return 0;
}

BU_S32 ALG_API_GetDebugTemp(BU_S32 *ps32Value)
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    if (!ps32Value) return -1;
    *ps32Value = g_s32DebugTemp;
    return 0;
}

BU_S32 ALG_API_SetDebugTemp(BU_S32 s32Value)
{
    if (const auto injected = journal::call(__func__, s32Value)) return *injected;
    if (s32Value != BU_FALSE && s32Value != BU_TRUE) return -1;
    g_s32DebugTemp = s32Value;
    return 0;
}

BU_BOOL ALG_API_CalcDebugEnable() { return g_s32DebugTemp || settings::value(settings::ALG_API_Debug); }

BU_S32 ALG_API_GetBodySizeReset()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    const Row enRow = settings::ALG_API_BodySizeCustom;
    return settings::set(enRow, 0, settings::row(enRow).s32Def, BU_TRUE, BU_TRUE);
}

BU_S32 ALG_API_GetAlgVersion(BU_CHAR *pcText)
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    if (!pcText) return -1;
    std::snprintf(pcText, 64, "%s", BSP_PROFILE_GetText("versions/ai", "AI V1.0.0").c_str());
    return 0;
}

BU_S32 ALG_API_InitParamFromCfg()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    return 0;
}

BU_S32 ALG_API_ApplyModelParam()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    return 0;
}

BU_S32 ALG_API_ApplyTrackParam()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    return 0;
}

AlgArgs *ALG_API_GetModelHandler()
{
    static AlgArgs stArgs{0, REID_TRACK};
    return &stArgs;
}

AlgParam *ALG_API_GetModelParam()
{
    static AlgParam stParam{};
    return &stParam;
}
