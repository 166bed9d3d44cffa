// RTSP server, preview and stream caches in place of the platform's.
#include "doubles.h"

#include "live/rtsp.h"
#include "live/websocket.h"

#include <list>

struct STREAM_CACHE_S {
    BU_S32 s32Id;
};
struct RTSP_MEDIA_SUBSESSION_T {
    std::string strStream;
};
struct RTSP_MEDIA_SESSION_T {
    std::string strName, strStreams{};
    bool bAdded = false;
};

namespace
{
using Session = RTSP_MEDIA_SESSION_T;
struct State {
    Libraries stPublic;
    std::map<BU_S32, STREAM_CACHE_S> caches;
    std::list<RTSP_MEDIA_SUBSESSION_T> subsessions;
    std::list<Session> sessions; ///< made and neither destroyed nor stopped
};
std::unique_ptr<State> g_pstState = std::make_unique<State>();

/// Notes a call under the caller's name and answers it.
template <class... A> BU_S32 note(const BU_CHAR *pcFunction, const A &...args)
{
    return journal::call(pcFunction, args...).value_or(0);
}
const BU_CHAR *nameOf(const Session *pst) { return pst ? pst->strName.c_str() : nullptr; }
} // namespace

Libraries &libraries() { return g_pstState->stPublic; }
void forgetLibraries() { g_pstState = std::make_unique<State>(); }

STREAM_CACHE_S *STREAM_getStreamCacheById(BU_S32 s32Id)
{
    return libraries().caches.contains(s32Id) ? &(g_pstState->caches[s32Id] = {s32Id}) : nullptr;
}
// clang-format off
BU_S32 STREAM_getStreamCacheBitRate(STREAM_CACHE_S *pst) { return 1000 * pst->s32Id; }
BU_S32 RTSP_ServiceInit(BU_S32 s32Port) { return note(__func__, s32Port); }
BU_S32 RTSP_SetRtspOverHttpPort(BU_S32 s32Port) { return note(__func__, s32Port); }
BU_S32 RTSP_SetAuthentication(const BU_CHAR *pcUser, const BU_CHAR *pcPw) { return note(__func__, pcUser, pcPw); }
BU_S32 RTSP_ServicePause() { return note(__func__); }
BU_S32 RTSP_addMediaSession(Session *pst) { return pst->bAdded = true, note(__func__, nameOf(pst)); }
BU_S32 RTSP_checkAllMediaSubsessionCorrect(Session **ppst) { return note(__func__, nameOf(*ppst)); }
BU_S32 RTSP_updateSubsessionBitRateAndFrameRate(Session *pst) { return note(__func__, nameOf(pst)); }
BU_S32 WEBSOCKET_isServiceRunning() { return libraries().s32PreviewRunning; }
BU_S32 WEBSOCKET_HasInitd() { return libraries().s32PreviewInit; }
BU_S32 WEBSOCKET_InitService() { return libraries().s32PreviewInit = 1, note(__func__); }
BU_S32 WEBSOCKET_RegisterChannelMap(BU_S32 s32Id, const BU_CHAR *pcChannel) { return note(__func__, s32Id, pcChannel); }
BU_S32 WEBSOCKET_StopService() { return libraries().s32PreviewRunning = 0, note(__func__); }
// clang-format on
BU_S32 WEBSOCKET_StartService(BU_S32 s32Port)
{
    const BU_S32 s32Ret = note(__func__, s32Port);
    libraries().s32PreviewRunning = s32Ret == 0;
    return s32Ret;
}
BU_S32 STREAM_registerCacheMetadataHandler(STREAM_CACHE_S *pst, const BU_CHAR *pcName, FN_STREAM_METADATA fn)
{
    libraries().metadataHandlers[pst->s32Id] = fn;
    return note(__func__, pst->s32Id, pcName);
}
BU_S32 RTSP_ServiceStart()
{
    if (libraries().fnOnRtspStart) libraries().fnOnRtspStart();
    for (const Session &st : g_pstState->sessions)
        if (st.bAdded) libraries().served[st.strName] = st.strStreams;
    return note(__func__);
}
BU_S32 RTSP_ServiceStop()
{
    libraries().served.clear();
    g_pstState->sessions.clear();
    return note(__func__);
}
BU_S32 RTSP_createMediaSession(Session **ppst, const BU_CHAR *pcName)
{
    *ppst = &g_pstState->sessions.emplace_back(Session{pcName});
    return note(__func__, pcName);
}
BU_S32 RTSP_destroyMediaSession(Session **ppst)
{
    note(__func__, nameOf(*ppst));
    return static_cast<BU_S32>(g_pstState->sessions.remove_if([=](const Session &st) { return &st == *ppst; }));
}
BU_S32 RTSP_createSubsession(RTSP_MEDIA_SUBSESSION_T **ppst, STREAM_CACHE_S *pstCache, const BU_CHAR *pcName,
                             BU_S32 s32Rate)
{
    *ppst = &g_pstState->subsessions.emplace_back(
        RTSP_MEDIA_SUBSESSION_T{std::string(pcName) + ":" + std::to_string(pstCache->s32Id)});
    return note(__func__, pstCache->s32Id, pcName, s32Rate);
}
BU_S32 RTSP_addMediaSubsession(Session *pst, RTSP_MEDIA_SUBSESSION_T *pstSub)
{
    pst->strStreams += (pst->strStreams.empty() ? "" : " ") + pstSub->strStream;
    return note(__func__, nameOf(pst), pstSub->strStream.c_str());
}
