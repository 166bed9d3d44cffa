#include "live/rtsp.h"

#include "server.h"
#include "util/journal.h"
#include "util/log.h"
#include "util/platform.h"
#include "util/time.h"

#include <algorithm>

struct RTSP_MEDIA_SUBSESSION_T {
    rtsp::Track stTrack;
};

struct RTSP_MEDIA_SESSION_T {
    std::string strName;
    std::vector<std::unique_ptr<RTSP_MEDIA_SUBSESSION_T>> listSubsessions;
    bool bAdded = false;

    std::vector<rtsp::Track> tracks() const
    {
        std::vector<rtsp::Track> listTracks;
        for (const auto &pst : listSubsessions) listTracks.push_back(pst->stTrack);
        return listTracks;
    }
};

namespace
{
constexpr BU_S32 PORT_MAX = 65535, TICK_MS = 1000;

struct tagSERVICE_S {
    std::mutex lock; // guards all members; not held while the server ends
    BU_S32 s32Port = 0, s32HttpPort = 0;
    std::vector<rtsp::Credential> credentials;
    std::vector<std::unique_ptr<RTSP_MEDIA_SESSION_T>> sessions; // all that are made and not freed
    std::unique_ptr<rtsp::Server> pstServer;                     // from RTSP_ServiceInit to RTSP_ServiceStop
    bool bRunning = false;
    BU_TIMER_DATA_S stTick{};

    RTSP_MEDIA_SESSION_T *find(const RTSP_MEDIA_SESSION_T *pstSession) const
    {
        const auto it = std::ranges::find(sessions, pstSession, [](const auto &pst) { return pst.get(); });
        return it == sessions.end() ? nullptr : it->get();
    }
};
tagSERVICE_S &service()
{
    static auto *pstService = new tagSERVICE_S;
    return *pstService;
}

bool isPort(BU_S32 s32Port) { return s32Port >= 1 && s32Port <= PORT_MAX; }

BU_S32 tick(void *)
{
    const std::lock_guard guard(service().lock);
    if (service().pstServer) service().pstServer->tick();
    return 0;
}

void tellEndpoint(BU_S32 s32Port, const std::string &strName)
{
    const std::string strBind = PLATFORM_BindAddress();
    PLATFORM_AddEndpoint("rtsp://" + (strBind == "0.0.0.0" ? "127.0.0.1" : strBind) + ":" + std::to_string(s32Port) +
                         "/" + strName);
}

/// Takes the server out, with the added sessions; the caller lets them go without the lock. Lock held.
auto takeServer(tagSERVICE_S &st)
{
    UTIL_TIMER_Stop(&st.stTick);
    st.bRunning = false;
    std::erase_if(st.sessions, [](const auto &pst) { return pst->bAdded; });
    st.credentials.clear();
    return std::move(st.pstServer);
}

/// What an operation on a session of the server does, if it is one.
BU_S32 withMount(const RTSP_MEDIA_SESSION_T *pstSession, void (rtsp::Mount::*pfn)())
{
    const std::lock_guard guard(service().lock);
    const RTSP_MEDIA_SESSION_T *pst = service().find(pstSession);
    if (!pst) return -1;
    if (pst->bAdded && service().pstServer) service().pstServer->withMount(pst->strName, pfn);
    return 0;
}
} // namespace

BU_S32 RTSP_ServiceInit(BU_S32 s32Port)
{
    if (const auto injected = journal::call(__func__, s32Port)) return *injected;
    std::unique_ptr<rtsp::Server> pstOld; // prepared, but never started
    const std::lock_guard guard(service().lock);
    if (!isPort(s32Port) || service().bRunning) return -1;
    pstOld = takeServer(service());
    service().s32Port = s32Port;
    service().s32HttpPort = 0;
    service().pstServer = std::make_unique<rtsp::Server>();
    return 0;
}

BU_S32 RTSP_SetRtspOverHttpPort(BU_S32 s32Port)
{
    if (const auto injected = journal::call(__func__, s32Port)) return *injected;
    const std::lock_guard guard(service().lock);
    if (!isPort(s32Port) || service().bRunning) return -1;
    service().s32HttpPort = s32Port;
    return 0;
}

BU_S32 RTSP_SetAuthentication(const BU_CHAR *pcUser, const BU_CHAR *pcPassword)
{
    if (const auto injected = journal::call(__func__, pcUser, pcPassword)) return *injected;
    if (!pcUser || !*pcUser || !pcPassword) return -1;
    const std::lock_guard guard(service().lock);
    service().credentials.push_back({pcUser, pcPassword});
    return 0;
}

BU_S32 RTSP_ServiceStart()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    const std::lock_guard guard(service().lock);
    if (!service().pstServer || service().bRunning) return -1;
    std::vector<rtsp::Listener> listListeners;
    listListeners.push_back(rtsp::listenOn(service().s32Port));
    if (service().s32HttpPort > 0) listListeners.push_back(rtsp::listenOn(service().s32HttpPort));
    if (std::ranges::any_of(listListeners, [](const auto &st) { return st.fd < 0; })) return -1;
    for (const auto &pst : service().sessions)
        if (pst->bAdded) tellEndpoint(listListeners.front().s32Port, pst->strName);
    service().s32Port = listListeners.front().s32Port;
    service().pstServer->serve(std::move(listListeners), service().credentials);
    service().bRunning = true;
    UTIL_TIMER_Start(BU_TIMER_E_PERIODIC, TICK_MS, tick, nullptr, &service().stTick);
    return 0;
}

BU_S32 RTSP_ServicePause()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    const std::lock_guard guard(service().lock);
    if (service().pstServer) service().pstServer->refuseClients();
    return 0;
}

BU_S32 RTSP_ServiceStop()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    std::unique_ptr<rtsp::Server> pstEnded;
    const std::lock_guard guard(service().lock);
    pstEnded = takeServer(service());
    return 0;
}

BU_S32 RTSP_createMediaSession(RTSP_MEDIA_SESSION_T **ppstSession, const BU_CHAR *pcName)
{
    if (const auto injected = journal::call(__func__, pcName)) return *injected;
    if (!ppstSession) return -1;
    *ppstSession = nullptr;
    const std::lock_guard guard(service().lock);
    const auto isNamed = [pcName](const auto &pst) { return pst->strName == pcName; };
    if (!pcName || !*pcName || std::ranges::any_of(service().sessions, isNamed)) {
        LOG_ERROR("no rtsp session \"%s\": it needs a name that no other has", pcName ? pcName : "");
        return -1;
    }
    auto &pst = service().sessions.emplace_back(std::make_unique<RTSP_MEDIA_SESSION_T>());
    pst->strName = pcName;
    *ppstSession = pst.get();
    return 0;
}

BU_S32 RTSP_createSubsession(RTSP_MEDIA_SUBSESSION_T **ppstSub, STREAM_CACHE_S *pstCache, const BU_CHAR *pcName,
                             BU_S32 s32BitRate)
{
    if (const auto injected = journal::call(__func__, pcName, s32BitRate)) return *injected;
    if (!ppstSub) return -1;
    *ppstSub = nullptr;
    if (!pstCache || !pcName) return -1;
    *ppstSub = new RTSP_MEDIA_SUBSESSION_T{{pcName, pstCache, {}, s32BitRate}};
    return 0;
}

BU_S32 RTSP_addMediaSubsession(RTSP_MEDIA_SESSION_T *pstSession, RTSP_MEDIA_SUBSESSION_T *pstSub)
{
    if (const auto injected = journal::call(__func__)) return *injected;
    const std::lock_guard guard(service().lock);
    RTSP_MEDIA_SESSION_T *pst = service().find(pstSession);
    if (!pst || !pstSub || pst->bAdded) return -1;
    pst->listSubsessions.emplace_back(pstSub);
    return 0;
}

BU_S32 RTSP_addMediaSession(RTSP_MEDIA_SESSION_T *pstSession)
{
    if (const auto injected = journal::call(__func__)) return *injected;
    const std::lock_guard guard(service().lock);
    RTSP_MEDIA_SESSION_T *pst = service().find(pstSession);
    if (!pst || pst->bAdded || !service().pstServer) return -1;
    pst->bAdded = true;
    service().pstServer->addMount(pst->strName, pst->tracks());
    if (service().bRunning) tellEndpoint(service().s32Port, pst->strName);
    return 0;
}

BU_S32 RTSP_destroyMediaSession(RTSP_MEDIA_SESSION_T **ppstSession)
{
    if (const auto injected = journal::call(__func__)) return *injected;
    if (!ppstSession) return -1;
    const std::lock_guard guard(service().lock);
    const RTSP_MEDIA_SESSION_T *pst = service().find(std::exchange(*ppstSession, nullptr));
    if (!pst) return -1;
    if (pst->bAdded && service().pstServer) service().pstServer->removeMount(pst->strName);
    std::erase_if(service().sessions, [pst](const auto &pstOne) { return pstOne.get() == pst; });
    return 0;
}

BU_S32 RTSP_checkAllMediaSubsessionCorrect(RTSP_MEDIA_SESSION_T **ppstSession)
{
    if (const auto injected = journal::call(__func__)) return *injected;
    return ppstSession ? withMount(*ppstSession, &rtsp::Mount::renew) : -1;
}

BU_S32 RTSP_updateSubsessionBitRateAndFrameRate(RTSP_MEDIA_SESSION_T *pstSession)
{
    if (const auto injected = journal::call(__func__)) return *injected;
    return withMount(pstSession, &rtsp::Mount::updateRates);
}
