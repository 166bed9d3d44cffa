// The RTSP output: when its one server exists, what it carries, and when it is rebuilt.
#include "live/rtsp.h"

#include "live_media/liveMedia.h"
#include "record.h"
#include "util/log.h"

#include <atomic>
#include <list>

namespace
{
struct APP_LM_RTSP_MGR_S {
    std::mutex lockHandler; // held while the server is built or torn down; guards the members without a note
    std::atomic<BU_BOOL> bRunning{BU_FALSE};  // also read without the lock
    std::atomic<bool> bNeedRestart{false};    // a setting changed since the server was built; set without the lock
    std::atomic<bool> bEncoderChanged{false}; // and the sessions were not told yet; set without the lock
    BU_S32 s32ChnRefCnt = 0;                  // channels with RTSP on, at the last build
    std::list<APP_LM_RTSP_EXTRA_AUTH> listExtraAuth;
    RTSP_MEDIA_SESSION_T *pstChnSession[LM_CHN_COUNT]{}; // by channel; null: none
};
APP_LM_RTSP_MGR_S &gs_AppRtspMgr = *new APP_LM_RTSP_MGR_S; // lives on for pipeline threads that outlast an exit
std::mutex lockRebuild; // one rebuild at a time, from its tear-down to the end of its build

void tellSessions();

/// The lock of the server. A notice of an encoder that met it is carried out when it is free again.
class Guard
{
public:
    Guard() { gs_AppRtspMgr.lockHandler.lock(); }
    ~Guard()
    {
        gs_AppRtspMgr.lockHandler.unlock();
        tellSessions();
    }
    Guard(const Guard &) = delete;
    Guard &operator=(const Guard &) = delete;
};

template <class Fn> void forEachEnabled(const APP_LM_HANDLER &stLm, Fn fn)
{
    for (BU_S32 i = 0; i < LM_CHN_COUNT; ++i)
        if (live_media::Rtsp::isOn(stLm.stChnCfg[i])) fn(static_cast<CFG_LM_CHN_E>(i));
}

APP_LM_HANDLER copyOfRecord()
{
    return live_media::withRecord([](const APP_LM_HANDLER &st) { return st; });
}

/// Adapts the sessions to changed encoders; left to whoever holds the lock, so that the pipeline never waits for it.
void tellSessions()
{
    while (gs_AppRtspMgr.bEncoderChanged) {
        const std::unique_lock guard(gs_AppRtspMgr.lockHandler, std::try_to_lock);
        if (!guard) return;
        if (!gs_AppRtspMgr.bEncoderChanged.exchange(false)) continue;
        forEachEnabled(copyOfRecord(), [](CFG_LM_CHN_E enChn) {
            RTSP_checkAllMediaSubsessionCorrect(&gs_AppRtspMgr.pstChnSession[enChn]);
            RTSP_updateSubsessionBitRateAndFrameRate(gs_AppRtspMgr.pstChnSession[enChn]);
        });
    }
}

void prepareServer(const CFG_LM_RTSP_GENERAL_S &stCfg)
{
    RTSP_ServiceInit(stCfg.s32Port);
    if (stCfg.s32HttpPort > 0) RTSP_SetRtspOverHttpPort(stCfg.s32HttpPort);
    if (stCfg.bAuthEnable) RTSP_SetAuthentication(stCfg.sUsername.c_str(), stCfg.sPassword.c_str());
    for (const auto &stAuth : gs_AppRtspMgr.listExtraAuth)
        RTSP_SetAuthentication(stAuth.sUserName.c_str(), stAuth.sPassword.c_str());
}

/// @return 1 when the stream was added, 0 when the channel has none
BU_S32 addSubsession(RTSP_MEDIA_SESSION_T *pstSession, const CFG_LM_RTSP_S &stCfg, BU_S32 s32CacheId,
                     const BU_CHAR *pcName, BU_S32 (*pfnBitRate)(STREAM_CACHE_S *))
{
    if (s32CacheId == -1) return 0;
    STREAM_CACHE_S *pstCache = STREAM_getStreamCacheById(s32CacheId);
    if (!pstCache) {
        LOG_ERROR("StreamCache[%d] for MediaSession[%s:%s] not exist. skip\n", s32CacheId, stCfg.sSessionName.c_str(),
                  pcName);
        return 0;
    }
    RTSP_MEDIA_SUBSESSION_T *pstSub = nullptr;
    RTSP_createSubsession(&pstSub, pstCache, pcName, pfnBitRate(pstCache));
    RTSP_addMediaSubsession(pstSession, pstSub);
    STREAM_registerCacheMetadataHandler(pstCache, "rtsp", APP_LM_RTSP_ValidateStreamEncoder);
    return 1;
}

/// Whether the running sessions contradict the settings: an exclusive channel changes sides without a changed flag.
bool isSessionStale(CFG_LM_CHN_E enChn)
{
    const bool bWanted = live_media::Rtsp::usageOf(enChn) && live_media::Rtsp::isOn(live_media::channelOf(enChn));
    const Guard guard;
    return bWanted != (gs_AppRtspMgr.pstChnSession[enChn] != nullptr);
}

void markChanged(BU_BOOL bApply)
{
    gs_AppRtspMgr.bNeedRestart = true;
    if (bApply) APP_LM_RTSP_RestartIfNeed();
}
} // namespace

BU_S32 APP_LM_RTSP_Init() { return APP_LM_RTSP_CreateService(); }
BU_S32 APP_LM_RTSP_DeInit() { return APP_LM_RTSP_DestroyService(); }

BU_S32 APP_LM_RTSP_CreateService()
{
    const APP_LM_HANDLER stLm = copyOfRecord();
    const Guard guard;
    gs_AppRtspMgr.s32ChnRefCnt = 0;
    forEachEnabled(stLm, [](CFG_LM_CHN_E) { ++gs_AppRtspMgr.s32ChnRefCnt; });
    if (gs_AppRtspMgr.s32ChnRefCnt == 0) {
        TRACE("no chn ref rtsp server, skip create server\n");
        return 0;
    }
    prepareServer(stLm.stGeneral.rtsp);
    forEachEnabled(stLm,
                   [&](CFG_LM_CHN_E enChn) { APP_LM_RTSP_CreateMediaSession(enChn, &stLm.stChnCfg[enChn].rtsp); });
    RTSP_ServiceStart();
    gs_AppRtspMgr.bRunning = BU_TRUE;
    TRACE("rtsp started\n");
    return 0;
}

BU_S32 APP_LM_RTSP_DestroyService()
{
    const Guard guard;
    RTSP_ServicePause();
    RTSP_ServiceStop();
    std::ranges::fill(gs_AppRtspMgr.pstChnSession, nullptr);
    gs_AppRtspMgr.bRunning = BU_FALSE;
    TRACE("rtsp stopped\n");
    return 0;
}

BU_S32 APP_LM_RTSP_RestartIfNeed()
{
    const std::lock_guard guard(lockRebuild);
    // Cleared before the build: a change that arrives during it is due for the next one.
    if (!gs_AppRtspMgr.bNeedRestart.exchange(false)) return 0;
    TRACE("restart rtsp\n");
    if (gs_AppRtspMgr.bRunning) APP_LM_RTSP_DestroyService();
    return APP_LM_RTSP_CreateService();
}

BU_S32 APP_LM_RTSP_CreateMediaSession(CFG_LM_CHN_E enChn, const CFG_LM_RTSP_S *pstCfg)
{
    const APP_LM_RTSP_USAGE_S *pstUsage = live_media::Rtsp::usageOf(enChn);
    if (!pstUsage) {
        UTIL_TRACE_Print("StreamCache useage of live media channel %d is not defined!", enChn);
        return -1;
    }
    RTSP_MEDIA_SESSION_T *&pstSession = gs_AppRtspMgr.pstChnSession[enChn];
    RTSP_createMediaSession(&pstSession, pstCfg->sSessionName.c_str());
    const BU_S32 s32Subsessions =
        addSubsession(pstSession, *pstCfg, pstUsage->s32VideoStreamCacheId, "video", STREAM_getStreamCacheBitRate) +
        addSubsession(pstSession, *pstCfg, pstUsage->s32AudioStreamCacheId, "audio",
                      [](STREAM_CACHE_S *) { return 0; });
    if (s32Subsessions == 0) {
        RTSP_destroyMediaSession(&pstSession);
        pstSession = nullptr;
        LOG_ERROR("No available MediaSubsession create for this MediaSession\n");
        return -1;
    }
    RTSP_addMediaSession(pstSession);
    TRACE("rtsp add stream %s\n", pstCfg->sSessionName.c_str());
    return 0;
}

BU_S32 APP_LM_RTSP_ValidateStreamEncoder()
{
    UTIL_TRACE_Print("APP_LM_RTSP_ValidateStreamEncoder");
    gs_AppRtspMgr.bEncoderChanged = true;
    tellSessions();
    return 0;
}

BU_S32 APP_LM_RTSP_GetGeneralCfg(CFG_LM_RTSP_GENERAL_S *pstCfg)
{
    if (!pstCfg) return -1;
    *pstCfg = live_media::withRecord([](const APP_LM_HANDLER &st) { return st.stGeneral.rtsp; });
    return 0;
}

BU_S32 APP_LM_RTSP_GetChnCfg(CFG_LM_CHN_E enChn, CFG_LM_RTSP_S *pstCfg) { return live_media::Rtsp::get(enChn, pstCfg); }

BU_S32 APP_LM_RTSP_SetChnCfg(CFG_LM_CHN_E enChn, const CFG_LM_RTSP_S *pstCfg, BU_BOOL bApply)
{
    bool bChanged = false;
    if (const BU_S32 s32Ret = live_media::Rtsp::set(enChn, pstCfg, &bChanged)) return s32Ret;
    if (bChanged || isSessionStale(enChn)) markChanged(bApply);
    return 0;
}

BU_S32 APP_LM_RTSP_SetGeneralCfg(const CFG_LM_RTSP_GENERAL_S *pstCfg, BU_BOOL bApply)
{
    if (!pstCfg) return -1;
    CFG_LM_RTSP_GENERAL_S stOld;
    APP_LM_RTSP_GetGeneralCfg(&stOld);
    using General = CFG_LM_RTSP_GENERAL_S;
    if (live_media::agree<&General::s32Port, &General::s32HttpPort, &General::bAuthEnable, &General::sUsername,
                          &General::sPassword>(*pstCfg, stOld))
        return 0;
    LOG_INFO("update rtsp general");
    if (const BU_S32 s32Ret = CFG_LM_SaveRtspGeneralCfg(pstCfg)) {
        LOG_INFO("update rtsp general failed");
        return s32Ret;
    }
    live_media::withRecord([pstCfg](APP_LM_HANDLER &st) { st.stGeneral.rtsp = *pstCfg; });
    markChanged(bApply);
    return 0;
}

BU_S32 APP_LM_RTSP_AddExtraAuth(const APP_LM_RTSP_EXTRA_AUTH &stAuth)
{
    const auto isSame = [&](const APP_LM_RTSP_EXTRA_AUTH &st) {
        return st.enFrom == stAuth.enFrom && st.sUserName == stAuth.sUserName;
    };
    const Guard guard;
    auto &list = gs_AppRtspMgr.listExtraAuth;
    if (const auto known = std::ranges::find_if(list, isSame); known != list.end())
        *known = stAuth;
    else
        list.push_back(stAuth);
    gs_AppRtspMgr.bNeedRestart = true;
    return 0;
}

BU_S32 APP_LM_RTSP_RemoveExtraAuth(APP_LM_RTSP_EXTRA_AUTH_FROM_E enFrom)
{
    const Guard guard;
    const auto removed = gs_AppRtspMgr.listExtraAuth.remove_if([=](const auto &st) { return st.enFrom == enFrom; });
    if (removed > 0) gs_AppRtspMgr.bNeedRestart = true;
    return 0;
}
