/// Who is logged in. Kept in "/var/web/sessions.json", so that a new web server process knows its visitors.
#pragma once

#include "users/users.h"

#include "base/types.h"

#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace web_server
{
using namespace users;

constexpr const char *SESSIONS_FILE = "/var/web/sessions.json";

/// Sessions end when the user logs out, after 12 hours without use and 7 days after the login. A user has 16 at most:
/// a further one ends the one not used for longest. Only digests of the tokens are kept, in memory and in the file; a
/// file that cannot be read costs a new login, no more. Times are seconds since 1970.
/// Thread: any; what opens or ends sessions writes the file, so not the network thread.
class Sessions
{
public:
    static constexpr BU_S64 IDLE_S = 12 * 3600, LIFE_S = 7 * 24 * 3600;
    static constexpr std::size_t PER_USER_MAX = 16;

    explicit Sessions(BU_S64 s64Now);

    /// @return the token, for the cookie
    std::string open(const std::string &strUser, BU_S64 s64Now);
    /// @param strKey  the digest of a token. @return the user, and the session counts as used; none: no such session
    std::optional<std::string> use(const std::string &strKey, BU_S64 s64Now);
    void end(const std::string &strKey);
    /// Ends all of a user. @param strKeep  but this one
    void endUser(std::string_view strUser, std::string_view strKeep = {});
    void endAll();

private:
    struct Session {
        std::string strUser;
        BU_S64 s64Opened, s64Used;
    };
    typedef std::unordered_map<std::string, Session> Table; // by digest

    template <class F> void endIf(F isMeant);
    void store();

    std::mutex m_fileLock; // guards the file: whoever holds it writes what is true then
    std::mutex m_lock;     // guards the table; taken behind m_fileLock
    Table m_sessions;
};
} // namespace web_server
