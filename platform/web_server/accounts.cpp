// Logging in and out, the first set-up, and the management of users.
#include "handlers.h"
#include "http/headers.h"
#include "util/log.h"
#include "util/program.h"

namespace web_server
{
namespace
{
constexpr const char *DONE = "{}";
constexpr const char *OUT_OF_MEMORY = "the camera is out of memory: try again";
constexpr const char *LIST_DAMAGED =
    "the list of users is damaged: nobody can log in until it is repaired; the camera's log says more";

std::string sessionJson(const Desk &stDesk, const std::string &strUser, Role enRole)
{
    const bool bUser = enRole != Role::ANYONE;
    return std::string("{\"setup\":") + (stDesk.users.isEmpty() ? "true" : "false") +
           ",\"user\":" + (bUser ? web_client::quoted(strUser) : "null") +
           ",\"role\":" + (bUser ? web_client::quoted(nameOf(enRole)) : "null") +
           ",\"camera\":" + (stDesk.bCamera ? "true" : "false") +
           ",\"version\":" + (bUser ? web_client::quoted(util::version()) : "null") + "}";
}

void setCookie(Reply &stReply, std::string_view name, std::string_view value, bool bTls, const char *pcAge = "")
{
    stReply.headers.emplace_back("Set-Cookie", std::string(name) + "=" + std::string(value) +
                                                   "; Path=/; HttpOnly; SameSite=Strict" + (bTls ? "; Secure" : "") +
                                                   pcAge);
}

/// What the browser is known by if this user has logged in from it; empty: none has.
std::string deviceOf(const Desk &stDesk, const Request &stRequest, std::string_view strUser)
{
    const std::string strCookies = stRequest.strCookie.value_or("");
    for (const char *pcName : {SECURE_DEVICE_COOKIE, DEVICE_COOKIE})
        for (const std::string_view value : http::cookies(strCookies, pcName))
            if (std::string strDevice = stDesk.devices.nameOf(value, strUser); !strDevice.empty()) return strDevice;
    return {};
}

/// What came of a change of the users.
Reply outcomeOf(Change enChange)
{
    switch (enChange) {
    case Change::DONE:
        return answer(DONE);
    case Change::NOT_FIRST:
        return problem(409, "there is a user already");
    case Change::NO_USER:
        return problem(404, "there is no such user");
    case Change::INCOMPLETE:
        return problem(400, "a new user needs a password and a role");
    case Change::LAST_ADMIN:
        return problem(409, "the last admin must stay one");
    case Change::TOO_MANY:
        return problem(409, "there are too many users");
    case Change::FAILED:
        break;
    }
    return problem(500, "the users cannot be stored; the camera's log says why");
}

/// Who wants in, for the worker.
struct Attempt {
    std::string strUser, strPassword, strRemote, strDevice;
    bool bTls;
    BU_S64 s64Unix;

    Attempt(const Request &stRequest, const std::string &strName, const AccountBody &stBody,
            std::string strTheDevice = {})
        : strUser(strName), strPassword(stBody.password), strRemote(stRequest.strRemote),
          strDevice(std::move(strTheDevice)), bTls(stRequest.bTls), s64Unix(stRequest.s64Unix)
    {
    }
};

/// The reply that makes a browser logged in.
Reply welcome(Desk &stDesk, const Attempt &stAttempt, Role enRole)
{
    const bool bTls = stAttempt.bTls;
    const std::string &strUser = stAttempt.strUser;
    LOG_INFO("%s has logged in from %s", strUser.c_str(), stAttempt.strRemote.c_str());
    Reply stReply = answer(sessionJson(stDesk, strUser, enRole));
    setCookie(stReply, bTls ? SECURE_SESSION_COOKIE : SESSION_COOKIE, stDesk.sessions.open(strUser, stAttempt.s64Unix),
              bTls);
    setCookie(stReply, bTls ? SECURE_DEVICE_COOKIE : DEVICE_COOKIE, stDesk.devices.issue(strUser), bTls,
              "; Max-Age=31536000");
    return stReply;
}

Reply makeFirst(Desk &stDesk, const Attempt &stAttempt)
{
    if (!stDesk.users.isEmpty()) return outcomeOf(Change::NOT_FIRST);
    std::string strHash = hashPassword(stAttempt.strPassword);
    if (strHash.empty()) return problem(503, OUT_OF_MEMORY);
    const Change enChange = stDesk.users.makeFirst(stAttempt.strUser, std::move(strHash));
    if (enChange != Change::DONE) return outcomeOf(enChange);
    stDesk.sessions.endAll(); // of users there were before
    return welcome(stDesk, stAttempt, Role::ADMIN);
}

Reply verify(Desk &stDesk, const Attempt &stAttempt)
{
    if (!isPassword(stAttempt.strPassword, stDesk.users.hash(stAttempt.strUser))) {
        LOG_WARN("%s could not log in from %s", stAttempt.strUser.c_str(), stAttempt.strRemote.c_str());
        return problem(401, "the user or the password is not right");
    }
    stDesk.throttle.succeeded(stAttempt.strRemote, stAttempt.strUser, stAttempt.strDevice);
    return welcome(stDesk, stAttempt, stDesk.users.role(stAttempt.strUser));
}

/// What an admin has done. @return the reply
Reply changed(Change enChange, const std::string &strAdmin, const char *pcWhat, const std::string &strUser)
{
    if (enChange == Change::DONE) LOG_INFO("%s has %s the user %s", strAdmin.c_str(), pcWhat, strUser.c_str());
    return outcomeOf(enChange);
}

std::optional<Reply> refusedByThrottle(Desk &stDesk, const Request &stRequest, std::string_view strUser,
                                       std::string_view strDevice)
{
    const BU_S64 s64WaitMs = stDesk.throttle.begin(stRequest.strRemote, strUser, stRequest.s64NowMs, strDevice);
    if (s64WaitMs == 0) return std::nullopt;
    Reply stReply = problem(429, "too many attempts: wait, then try again");
    stReply.headers.emplace_back("Retry-After", std::to_string((s64WaitMs + 999) / 1000));
    return stReply;
}

/// The name, the password's fault, or empty.
std::string accountFault(std::string_view strUser, std::string_view strPassword, bool bPassword)
{
    if (!isUserName(strUser))
        return "a user's name is 1 to 32 letters, digits, '.', '_' and '-', and begins with a letter or a digit";
    return bPassword ? passwordFault(strPassword, strUser) : std::string();
}
} // namespace

Outcome getSession(Desk &stDesk, const Visit &stVisit)
{
    return answer(sessionJson(stDesk, stVisit.strUser, stVisit.enRole));
}

Outcome setUp(Desk &stDesk, const Visit &stVisit, const AccountBody &stBody)
{
    if (stDesk.users.isDamaged()) return problem(503, LIST_DAMAGED);
    if (!stDesk.users.isEmpty()) return outcomeOf(Change::NOT_FIRST);
    if (const std::string strFault = accountFault(stBody.user, stBody.password, true); !strFault.empty())
        return problem(400, strFault);
    return Work{[&stDesk, stAttempt = Attempt(stVisit.stRequest, stBody.user, stBody)] {
        return makeFirst(stDesk, stAttempt);
    }};
}

Outcome logIn(Desk &stDesk, const Visit &stVisit, const AccountBody &stBody)
{
    const std::string strUser = isUserName(stBody.user) ? stBody.user : "?";
    if (stDesk.users.isDamaged()) return problem(503, LIST_DAMAGED);
    if (stDesk.users.isEmpty()) return problem(409, "there is no user yet: set up the camera first");
    const std::string strDevice = deviceOf(stDesk, stVisit.stRequest, strUser);
    if (auto stRefusal = refusedByThrottle(stDesk, stVisit.stRequest, strUser, strDevice)) return *stRefusal;
    return Work{[&stDesk, stAttempt = Attempt(stVisit.stRequest, strUser, stBody, strDevice)] {
        return verify(stDesk, stAttempt);
    }};
}

Outcome logOut(Desk &stDesk, const Visit &stVisit)
{
    return Work{[&stDesk, sessions = stVisit.sessions, bTls = stVisit.stRequest.bTls]() -> Reply {
        for (const std::string &strSession : sessions) stDesk.sessions.end(strSession);
        Reply stReply = answer(DONE);
        setCookie(stReply, SESSION_COOKIE, "", false, "; Max-Age=0");
        if (bTls) setCookie(stReply, SECURE_SESSION_COOKIE, "", true, "; Max-Age=0");
        return stReply;
    }};
}

Outcome getUsers(Desk &stDesk, const Visit &)
{
    std::string strJson;
    for (const User &stUser : stDesk.users.list())
        strJson += (strJson.empty() ? "" : ",") + std::string("{\"user\":") + web_client::quoted(stUser.strName) +
                   ",\"role\":" + web_client::quoted(nameOf(stUser.enRole)) + "}";
    return answer("[" + strJson + "]");
}

Outcome putUser(Desk &stDesk, const Visit &stVisit, const UserBody &stBody)
{
    const std::string strUser = stBody.user, strPassword = stBody.password;
    const Role enRole = roleOf(stBody.role);
    if (const std::string strFault = accountFault(strUser, strPassword, !strPassword.empty()); !strFault.empty())
        return problem(400, strFault);
    if (stBody.role[0] && enRole == Role::ANYONE) return problem(400, "role must be viewer, operator or admin");
    return Work{
        [&stDesk, strUser, strPassword, enRole, strSelf = stVisit.strUser, strSession = stVisit.strSession]() -> Reply {
            std::string strHash = strPassword.empty() ? std::string() : hashPassword(strPassword);
            if (strHash.empty() && !strPassword.empty()) return problem(503, OUT_OF_MEMORY);
            const Change enChange = stDesk.users.put(strUser, std::move(strHash), enRole);
            if (enChange == Change::DONE && !strPassword.empty()) stDesk.sessions.endUser(strUser, strSession);
            return changed(enChange, strSelf, "added or changed", strUser);
        }};
}

Outcome removeUser(Desk &stDesk, const Visit &stVisit)
{
    return Work{[&stDesk, strUser = stVisit.strRest, strSelf = stVisit.strUser]() -> Reply {
        const Change enChange = stDesk.users.remove(strUser);
        if (enChange == Change::DONE) stDesk.sessions.endUser(strUser);
        return changed(enChange, strSelf, "removed", strUser);
    }};
}

Outcome changePassword(Desk &stDesk, const Visit &stVisit, const PasswordBody &stBody)
{
    const std::string strOld = stBody.acOld, strNew = stBody.acNew, strUser = stVisit.strUser;
    if (const std::string strFault = passwordFault(strNew, strUser); !strFault.empty()) return problem(400, strFault);
    // The session is a device of its own: strangers' failures do not keep its user from a new password.
    if (auto stRefusal = refusedByThrottle(stDesk, stVisit.stRequest, strUser, stVisit.strSession)) return *stRefusal;
    return Work{[&stDesk, strOld, strNew, strUser, strSession = stVisit.strSession,
                 strRemote = stVisit.stRequest.strRemote]() -> Reply {
        if (!isPassword(strOld, stDesk.users.hash(strUser))) return problem(403, "the old password is not right");
        stDesk.throttle.succeeded(strRemote, strUser, strSession);
        std::string strHash = hashPassword(strNew);
        if (strHash.empty()) return problem(503, OUT_OF_MEMORY);
        const Change enChange = stDesk.users.setPassword(strUser, std::move(strHash));
        if (enChange == Change::DONE) stDesk.sessions.endUser(strUser, strSession);
        return outcomeOf(enChange);
    }};
}
} // namespace web_server
