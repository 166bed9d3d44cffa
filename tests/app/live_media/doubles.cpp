#include "doubles.h"

#include "live/rtsp.h"
#include "live/websocket.h"

struct STREAM_CACHE_S {
    BU_S32 s32Id;
};
struct RTSP_MEDIA_SUBSESSION_T {
    std::string strStream;
};
struct RTSP_MEDIA_SESSION_T {
    std::string strName, strStreams;
};

namespace
{
struct State {
    Libraries stPublic;
    std::map<BU_S32, STREAM_CACHE_S> caches;
    std::vector<std::unique_ptr<RTSP_MEDIA_SUBSESSION_T>> subsessions;
    std::vector<std::unique_ptr<RTSP_MEDIA_SESSION_T>> sessions; ///< made and neither destroyed nor stopped
    std::vector<RTSP_MEDIA_SESSION_T *> added;
};
std::unique_ptr<State> g_pstState = std::make_unique<State>();

/// Notes a call under the caller's name and answers it.
template <class... A> BU_S32 note(const BU_CHAR *pcFunction, const A &...args)
{
    return journal::call(pcFunction, args...).value_or(0);
}
const BU_CHAR *nameOf(const RTSP_MEDIA_SESSION_T *pst) { return pst ? pst->strName.c_str() : nullptr; }
} // namespace

Libraries &libraries() { return g_pstState->stPublic; }
void forgetLibraries() { g_pstState = std::make_unique<State>(); }

STREAM_CACHE_S *STREAM_getStreamCacheById(BU_S32 s32Id)
{
    return libraries().caches.contains(s32Id) ? &(g_pstState->caches[s32Id] = {s32Id}) : nullptr;
}
BU_S32 STREAM_getStreamCacheBitRate(STREAM_CACHE_S *pstCache) { return 1000 * pstCache->s32Id; }
BU_S32 STREAM_registerCacheMetadataHandler(STREAM_CACHE_S *pstCache, const BU_CHAR *pcName, FN_STREAM_METADATA fn)
{
    libraries().metadataHandlers[pstCache->s32Id] = fn;
    return note(__func__, pstCache->s32Id, pcName);
}

// clang-format off
BU_S32 RTSP_ServiceInit(BU_S32 s32Port) { return note(__func__, s32Port); }
BU_S32 RTSP_SetRtspOverHttpPort(BU_S32 s32Port) { return note(__func__, s32Port); }
BU_S32 RTSP_SetAuthentication(const BU_CHAR *pcUser, const BU_CHAR *pcPw) { return note(__func__, pcUser, pcPw); }
BU_S32 RTSP_ServicePause() { return note(__func__); }
BU_S32 RTSP_checkAllMediaSubsessionCorrect(RTSP_MEDIA_SESSION_T **ppst) { return note(__func__, nameOf(*ppst)); }
BU_S32 RTSP_updateSubsessionBitRateAndFrameRate(RTSP_MEDIA_SESSION_T *pst) { return note(__func__, nameOf(pst)); }
// clang-format on
BU_S32 RTSP_ServiceStart()
{
    if (libraries().fnOnRtspStart) libraries().fnOnRtspStart();
    for (const auto *pstSession : g_pstState->added) libraries().served[pstSession->strName] = pstSession->strStreams;
    return note(__func__);
}
BU_S32 RTSP_ServiceStop()
{
    libraries().served.clear();
    g_pstState->added.clear();
    g_pstState->sessions.clear();
    return note(__func__);
}
BU_S32 RTSP_createMediaSession(RTSP_MEDIA_SESSION_T **ppstSession, const BU_CHAR *pcName)
{
    *ppstSession = g_pstState->sessions.emplace_back(new RTSP_MEDIA_SESSION_T{pcName, ""}).get();
    return note(__func__, pcName);
}
BU_S32 RTSP_createSubsession(RTSP_MEDIA_SUBSESSION_T **ppstSub, STREAM_CACHE_S *pstCache, const BU_CHAR *pcName,
                             BU_S32 s32BitRate)
{
    const std::string strStream = std::string(pcName) + ":" + std::to_string(pstCache->s32Id);
    *ppstSub = g_pstState->subsessions.emplace_back(new RTSP_MEDIA_SUBSESSION_T{strStream}).get();
    return note(__func__, pstCache->s32Id, pcName, s32BitRate);
}
BU_S32 RTSP_addMediaSubsession(RTSP_MEDIA_SESSION_T *pstSession, RTSP_MEDIA_SUBSESSION_T *pstSub)
{
    pstSession->strStreams += (pstSession->strStreams.empty() ? "" : " ") + pstSub->strStream;
    return note(__func__, nameOf(pstSession), pstSub->strStream.c_str());
}
BU_S32 RTSP_addMediaSession(RTSP_MEDIA_SESSION_T *pstSession)
{
    g_pstState->added.push_back(pstSession);
    return note(__func__, nameOf(pstSession));
}
BU_S32 RTSP_destroyMediaSession(RTSP_MEDIA_SESSION_T **ppstSession)
{
    note(__func__, nameOf(*ppstSession));
    std::erase_if(g_pstState->sessions, [=](const auto &pst) { return pst.get() == *ppstSession; });
    return 0;
}

BU_S32 WEBSOCKET_isServiceRunning() { return libraries().s32PreviewRunning; }
BU_S32 WEBSOCKET_HasInitd() { return libraries().s32PreviewInit; }
BU_S32 WEBSOCKET_InitService()
{
    libraries().s32PreviewInit = 1;
    return note(__func__);
}
BU_S32 WEBSOCKET_RegisterChannelMap(BU_S32 s32Id, const BU_CHAR *pcChannel) { return note(__func__, s32Id, pcChannel); }
BU_S32 WEBSOCKET_StartService(BU_S32 s32Port)
{
    const BU_S32 s32Ret = note(__func__, s32Port);
    libraries().s32PreviewRunning = s32Ret == 0;
    return s32Ret;
}
BU_S32 WEBSOCKET_StopService()
{
    libraries().s32PreviewRunning = 0;
    return note(__func__);
}
