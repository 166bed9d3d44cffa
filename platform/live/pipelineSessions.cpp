// The pipeline's session records: what the menu and the ONVIF service edit, kept in the store.
#include "live/pipelineLive.h"

#include "config/liveMedia.h"
#include "store/record.h"
#include "util/journal.h"

#include <algorithm>
#include <climits>
#include <mutex>
#include <optional>
#include <sstream>

using store::number, store::text;

namespace
{
constexpr BU_S32 NDI_INSTANCE = 0; // the only one
constexpr const BU_CHAR *NDI_SECTION = "Ndi/0";
constexpr const BU_CHAR *RTSP_KEY = "PipelineLive/Rtsp/Sessions";
constexpr BU_S32 NAME = 64, SERVER = 256, CACHE = 99;
constexpr std::size_t SESSION_MAX = 32;

// clang-format off
constexpr store::Field<CFG_NDI_SESSION_S> NDI_FIELDS[] = {
    number<&CFG_NDI_SESSION_S::bEnabled>("Enable"),
    text<&CFG_NDI_SESSION_S::sDeviceName>("DeviceName", NAME),
    text<&CFG_NDI_SESSION_S::sStreamName>("StreamName", NAME),
    text<&CFG_NDI_SESSION_S::sGroupName>("GroupName", NAME),
    number<&CFG_NDI_SESSION_S::sTransmitMethod>("TransmitMethod", 0, CFG_LM_NDI_CONNECTION_E_BUTT - 1),
    number<&CFG_NDI_SESSION_S::bMulticastEnabled>("MulticastEnable"),
    text<&CFG_NDI_SESSION_S::sMulticastIp>("MulticastIp", NAME),
    text<&CFG_NDI_SESSION_S::sMulticastNetmask>("MulticastNetmask", NAME),
    number<&CFG_NDI_SESSION_S::s32MulticastTTL>("MulticastTTL", 0, 255),
    number<&CFG_NDI_SESSION_S::bDiscoveryEnabled>("DiscoveryEnable"),
    text<&CFG_NDI_SESSION_S::sDiscoveryServer>("DiscoveryServer", SERVER),
    number<&CFG_NDI_SESSION_S::s32MainVideoStreamCacheId>("MainVideoCache", -1, CACHE),
    number<&CFG_NDI_SESSION_S::s32SubVideoStreamCacheId>("SubVideoCache", -1, CACHE),
    number<&CFG_NDI_SESSION_S::s32AudioStreamCacheId>("AudioCache", -1, CACHE),
};
// clang-format on

/// Close-up, with sound.
CFG_NDI_SESSION_S factoryNdi()
{
    CFG_NDI_SESSION_S st;
    st.s32Id = NDI_INSTANCE;
    st.s32MainVideoStreamCacheId = 1;
    st.s32SubVideoStreamCacheId = 2;
    st.s32AudioStreamCacheId = 6;
    return st;
}

typedef std::list<tag_CFG_RTSP_SESSION_T> Sessions;

struct State {
    std::mutex lock; // guards all members
    std::optional<CFG_NDI_SESSION_S> unsavedNdi;
    std::string strStored; // what the running sessions were read from
    Sessions running;
};
State &state()
{
    static auto *pst = new State;
    return *pst;
}

/// Forgets what was set and not stored; the sessions are read again by themselves.
BU_S32 reload()
{
    const std::lock_guard guard(state().lock);
    state().unsavedNdi.reset();
    return 0;
}
const store::Record<CFG_NDI_SESSION_S> NDI{"PipelineLive/*/", NDI_FIELDS, SYSTEM_RESTORE_E_MEDIA, reload};

// One line a stream: cache id, session, stream.
std::string textOf(const Sessions &listSessions)
{
    std::string strText;
    for (const auto &stSession : listSessions)
        for (const auto &stSub : stSession.subsession)
            strText += std::to_string(stSub.s32StreamCacheId) + '\t' + stSession.sName + '\t' + stSub.sName + '\n';
    return strText;
}

template <class List> auto &named(List &list, const std::string &strName)
{
    const auto entry = std::ranges::find_if(list, [&](const auto &st) { return st.sName == strName; });
    if (entry != list.end()) return *entry;
    list.emplace_back();
    list.back().sName = strName;
    return list.back();
}

Sessions sessionsOf(const std::string &strText)
{
    Sessions listSessions;
    std::istringstream stream(strText);
    for (std::string strCache, strSession, strSub; std::getline(stream, strCache, '\t') &&
                                                   std::getline(stream, strSession, '\t') &&
                                                   std::getline(stream, strSub);)
        named(named(listSessions, strSession).subsession, strSub).s32StreamCacheId =
            store::numberOf(strCache).value_or(-1);
    return listSessions;
}

/// The running sessions, read again when the store holds others than they came from. Lock held.
Sessions &runningSessions()
{
    std::string strStored;
    CFG_STORE_GetText(RTSP_KEY, &strStored);
    if (strStored != state().strStored) {
        state().running = sessionsOf(strStored);
        state().strStored = std::move(strStored);
    }
    return state().running;
}

/// Lock held.
BU_S32 storeSessions(const Sessions &listSessions)
{
    std::string strText = textOf(listSessions);
    if (CFG_STORE_SetText(RTSP_KEY, strText.c_str()) != 0) return -1;
    state().strStored = std::move(strText);
    return 0;
}

bool isName(const BU_CHAR *pcName) { return pcName && !store::faultOfText(pcName, 1, NAME); }
} // namespace

static std::string journalText(const CFG_NDI_SESSION_S &st) { return NDI.journalText(st); }

BU_S32 MPP_NDI_GetInstance(BU_S32 s32Id, tag_CFG_NDI_SESSION_T &stCfg)
{
    if (const auto injected = journal::ask(__func__, s32Id)) return *injected;
    if (s32Id != NDI_INSTANCE) return -1;
    const std::lock_guard guard(state().lock);
    stCfg = state().unsavedNdi ? *state().unsavedNdi : NDI.load(NDI_SECTION, factoryNdi());
    return 0;
}

BU_S32 MPP_NDI_UpdateInstance(tag_CFG_NDI_SESSION_T stCfg, BU_BOOL bSaveCfg)
{
    if (const auto injected = journal::call(__func__, stCfg, bSaveCfg)) return *injected;
    if (stCfg.s32Id != NDI_INSTANCE)
        return store::refuse("PipelineLive/Ndi", "there is no instance " + std::to_string(stCfg.s32Id));
    const std::lock_guard guard(state().lock);
    if (bSaveCfg) {
        if (NDI.save(stCfg, NDI_SECTION) != 0) return -1;
        state().unsavedNdi.reset();
    } else {
        if (NDI.check(stCfg, NDI_SECTION) != 0) return -1;
        state().unsavedNdi = std::move(stCfg);
    }
    return 0;
}

std::list<std::shared_ptr<tag_CFG_RTSP_SESSION_T>> MPP_RTSP_ListMediaSession()
{
    std::list<std::shared_ptr<tag_CFG_RTSP_SESSION_T>> list;
    const std::lock_guard guard(state().lock);
    for (const auto &st : runningSessions()) list.push_back(std::make_shared<tag_CFG_RTSP_SESSION_T>(st));
    return list;
}

BU_S32 MPP_RTSP_AddOrUpdateMediaSubsession(const BU_CHAR *pcSession, const BU_CHAR *pcSub, BU_S32 s32CacheId)
{
    if (const auto injected = journal::call(__func__, pcSession, pcSub, s32CacheId)) return *injected;
    if (!isName(pcSession) || !isName(pcSub) || s32CacheId < -1 || s32CacheId > CACHE) return -1;
    const auto put = [&](Sessions &listSessions) {
        auto &stSession = named(listSessions, pcSession);
        named(stSession.subsession, pcSub).s32StreamCacheId = s32CacheId;
        return listSessions.size() <= SESSION_MAX && stSession.subsession.size() <= SESSION_MAX;
    };
    const std::lock_guard guard(state().lock);
    Sessions listRunning = runningSessions(), listStored = sessionsOf(state().strStored);
    if (!put(listRunning) || !put(listStored) || storeSessions(listStored) != 0) return -1;
    state().running = std::move(listRunning);
    return 0;
}

BU_S32 MPP_RTSP_DeleteMediaSession(const BU_CHAR *pcSession, BU_BOOL bSaveCfg)
{
    if (const auto injected = journal::call(__func__, pcSession, bSaveCfg)) return *injected;
    if (!pcSession) return -1;
    const std::lock_guard guard(state().lock);
    Sessions &listRunning = runningSessions();
    if (std::erase_if(listRunning, [&](const auto &st) { return st.sName == pcSession; }) == 0) return -1;
    if (!bSaveCfg) return 0;
    Sessions listStored = sessionsOf(state().strStored);
    std::erase_if(listStored, [&](const auto &st) { return st.sName == pcSession; });
    return storeSessions(listStored);
}
