// How long a session lasts, and how many there are.
#include "sessions.h"

#include "users/password.h"
#include "users/secretFile.h"
#include "util/file.h"
#include "util/log.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <unistd.h>

namespace web_server
{
namespace
{
/// A clock set back makes nobody's session longer than it would have been from then on.
bool isOver(BU_S64 s64Opened, BU_S64 s64Used, BU_S64 s64Now)
{
    return s64Now - s64Used > Sessions::IDLE_S || s64Now - s64Opened > Sessions::LIFE_S;
}
} // namespace

Sessions::Sessions(BU_S64 s64Now)
{
    std::string strText;
    if (readSecret(SESSIONS_FILE, strText) != FileState::READ) return;
    try {
        for (const auto &entry : nlohmann::json::parse(strText)) {
            // Nobody could use a session while no server ran: its idle time begins again.
            const Session stSession{entry.at("user"), std::min(entry.at("opened").get<BU_S64>(), s64Now), s64Now};
            if (!isOver(stSession.s64Opened, stSession.s64Used, s64Now)) m_sessions[entry.at("key")] = stSession;
        }
    } catch (const nlohmann::json::exception &) {
        m_sessions.clear();
        LOG_WARN("%s is damaged: everybody has to log in again", SESSIONS_FILE);
    }
}

std::string Sessions::open(const std::string &strUser, BU_S64 s64Now)
{
    std::string strToken = makeToken();
    {
        const std::lock_guard lock(m_lock);
        std::erase_if(m_sessions,
                      [&](const auto &entry) { return isOver(entry.second.s64Opened, entry.second.s64Used, s64Now); });
        const auto isUsers = [&](const auto &entry) { return entry.second.strUser == strUser; };
        while (static_cast<std::size_t>(std::count_if(m_sessions.begin(), m_sessions.end(), isUsers)) >= PER_USER_MAX)
            m_sessions.erase(std::min_element(m_sessions.begin(), m_sessions.end(), [&](const auto &a, const auto &b) {
                return std::pair(!isUsers(a), a.second.s64Used) < std::pair(!isUsers(b), b.second.s64Used);
            }));
        m_sessions[digest(strToken)] = {strUser, s64Now, s64Now};
    }
    store();
    return strToken;
}

std::optional<std::string> Sessions::use(const std::string &strKey, BU_S64 s64Now)
{
    const std::lock_guard lock(m_lock);
    const auto session = m_sessions.find(strKey);
    if (session == m_sessions.end()) return std::nullopt;
    Session &stSession = session->second;
    if (isOver(stSession.s64Opened, stSession.s64Used, s64Now)) {
        m_sessions.erase(session);
        return std::nullopt;
    }
    stSession.s64Opened = std::min(stSession.s64Opened, s64Now);
    stSession.s64Used = s64Now;
    return stSession.strUser;
}

template <class F> void Sessions::endIf(F isMeant)
{
    {
        const std::lock_guard lock(m_lock);
        if (std::erase_if(m_sessions, isMeant) == 0) return;
    }
    store();
}

void Sessions::end(const std::string &strKey)
{
    endIf([&](const auto &entry) { return entry.first == strKey; });
}

void Sessions::endUser(std::string_view strUser, std::string_view strKeep)
{
    endIf([&](const auto &entry) { return entry.second.strUser == strUser && entry.first != strKeep; });
}

void Sessions::endAll()
{
    endIf([](const auto &) { return true; });
}

void Sessions::store()
{
    const std::lock_guard fileLock(m_fileLock);
    nlohmann::json list = nlohmann::json::array();
    {
        const std::lock_guard lock(m_lock);
        for (const auto &[strKey, stSession] : m_sessions)
            list.push_back({{"key", strKey}, {"user", stSession.strUser}, {"opened", stSession.s64Opened}});
    }
    // An old list would let in again who has logged out.
    if (!writeSecret(SESSIONS_FILE, list.dump(1) + "\n")) unlink(UTIL_ROOT_Path(SESSIONS_FILE).c_str());
}
} // namespace web_server
