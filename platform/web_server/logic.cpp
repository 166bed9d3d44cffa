// What is admitted, refused, and handed on, before and after the body is read.
#include "handlers.h"
#include "http/headers.h"
#include "util/log.h"

#include <algorithm>
#include <array>
#include <ctime>

namespace web_server
{
namespace
{
constexpr std::array SECURITY_HEADERS{
    Header{"Content-Security-Policy",
           "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self' blob: data:; connect-src 'self'; "
           "manifest-src 'self'; form-action 'none'; base-uri 'none'; frame-ancestors 'none'"},
    Header{"X-Content-Type-Options", "nosniff"},
    Header{"X-Frame-Options", "DENY"},
    Header{"Referrer-Policy", "no-referrer"},
    Header{"Cross-Origin-Opener-Policy", "same-origin"},
    Header{"Cross-Origin-Resource-Policy", "same-origin"},
    Header{"Permissions-Policy", "camera=(), microphone=(), geolocation=()"},
};

bool isWrite(std::string_view strMethod) { return strMethod != "GET"; }

bool hasBody(const Request &stRequest)
{
    return stRequest.bChunked || stRequest.u64BodyBytes.value_or(0) > 0 || !stRequest.strBody.empty();
}

Reply withHeader(Reply stReply, const char *pcName, std::string strValue)
{
    stReply.headers.emplace_back(pcName, std::move(strValue));
    return stReply;
}

/// The rules that hold whatever is asked. @return none: kept
std::optional<Reply> generalFault(const Desk &stDesk, const Request &stRequest)
{
    if (!stRequest.strHost) return problem(400, "the request names no host");
    if (!stDesk.hosts.has(*stRequest.strHost)) return problem(421, "this camera does not go by that name");
    if ((isWrite(stRequest.strMethod) || stRequest.bUpgrade) &&
        !net::isOwnPage(stRequest.strOrigin, stRequest.strFetchSite, *stRequest.strHost, stRequest.bTls))
        return problem(403, "another page may not do that");
    return std::nullopt;
}

/// What the route makes of the headers. @return none: they fit
std::optional<Reply> routeFault(const Route &stRoute, const Request &stRequest)
{
    if (stRoute.bUpgrade && !stRequest.bUpgrade)
        return withHeader(problem(426, "this is for WebSockets"), "Upgrade", "websocket");
    if (!stRoute.bUpgrade && stRequest.bUpgrade) return problem(400, "this is not for WebSockets");
    const auto u64Bytes = std::max<unsigned long long>(stRequest.u64BodyBytes.value_or(0), stRequest.strBody.size());
    if (u64Bytes > stRoute.bodyMax || (stRoute.bodyMax == 0 && hasBody(stRequest)))
        return problem(413, stRoute.bodyMax == 0 ? "this takes no body" : "the body is too long");
    if (stRoute.bodyMax > 0 && !http::isJsonType(stRequest.strContentType.value_or("")))
        return problem(415, "the body must be application/json");
    return std::nullopt;
}
} // namespace

std::span<const Header> securityHeaders() { return SECURITY_HEADERS; }

Reply problem(BU_U32 u32Status, std::string_view sentence)
{
    Reply stReply = answer("{\"error\":" + web_client::quoted(sentence) + "}");
    stReply.u32Status = u32Status;
    return stReply;
}

Reply answer(std::string strJson)
{
    Reply stReply;
    stReply.strBody = std::move(strJson);
    stReply.headers.emplace_back("Cache-Control", "no-store");
    return stReply;
}

Reply failure(WEB_CLIENT_RESULT_E enResult, std::string_view strWhy)
{
    switch (enResult) {
    case WEB_CLIENT_RESULT_E_TIMEOUT:
        return problem(504, "the camera did not answer in time");
    case WEB_CLIENT_RESULT_E_UNKNOWN:
        return problem(404, "the camera does not know that");
    case WEB_CLIENT_RESULT_E_REFUSED:
        return problem(400, strWhy.empty() ? "the camera has refused that" : strWhy);
    case WEB_CLIENT_RESULT_E_BUSY:
        return withHeader(problem(503, "the camera is busy"), "Retry-After", "1");
    default:
        return problem(503, "the camera is not there");
    }
}

struct WebLogic::Impl {
    Desk stDesk;

    void recognise(Visit &stVisit);
    std::variant<Reply, std::pair<const Route *, Visit>> judge(const Request &stRequest);
};

/// Whose request it is. A cookie that means nothing is as good as none.
void WebLogic::Impl::recognise(Visit &stVisit)
{
    const std::string strCookies = stVisit.stRequest.strCookie.value_or("");          // the tokens point into it
    std::vector<std::string_view> tokens = http::cookies(strCookies, SESSION_COOKIE); // of HTTP, good for HTTPS too
    if (stVisit.stRequest.bTls)
        for (const std::string_view strToken : http::cookies(strCookies, SECURE_SESSION_COOKIE))
            tokens.insert(tokens.begin(), strToken);
    for (const std::string_view strToken : tokens) {
        if (!isToken(strToken)) continue;
        std::string strKey = digest(strToken);
        const auto strUser = stDesk.sessions.use(strKey, stVisit.stRequest.s64Unix);
        const Role enRole = strUser ? stDesk.users.role(*strUser) : Role::ANYONE;
        if (enRole == Role::ANYONE) continue;
        if (stVisit.sessions.empty()) {
            stVisit.strUser = *strUser;
            stVisit.enRole = enRole;
            stVisit.strSession = strKey;
        }
        stVisit.sessions.push_back(std::move(strKey));
    }
}

std::variant<Reply, std::pair<const Route *, Visit>> WebLogic::Impl::judge(const Request &stRequest)
{
    if (auto stFault = generalFault(stDesk, stRequest)) return std::move(*stFault);
    Visit stVisit{stRequest, {}, {}};
    std::string strAllow;
    const Route *pstRoute = findRoute(stRequest.strMethod, stRequest.strPath, strAllow, stVisit.strRest);
    if (!pstRoute && strAllow.empty()) return problem(404, "there is no such thing");
    if (!pstRoute) return withHeader(problem(405, "this cannot be done here"), "Allow", strAllow);
    recognise(stVisit);
    if (stVisit.enRole < pstRoute->enRole)
        return stVisit.enRole == Role::ANYONE ? problem(401, "log in first")
                                              : problem(403, "this user may not do that");
    if (auto stFault = routeFault(*pstRoute, stRequest)) return std::move(*stFault);
    return std::pair(pstRoute, std::move(stVisit));
}

WebLogic::WebLogic(std::string_view strHosts, std::string_view strMachine, std::string_view strFirstPassword)
    : m_pImpl(new Impl{{{}, Sessions(std::time(nullptr)), {}, {}, net::HostNames(strHosts, strMachine)}})
{
    Desk &stDesk = m_pImpl->stDesk;
    if (strFirstPassword.empty() || !stDesk.users.isEmpty()) return;
    if (const std::string strFault = passwordFault(strFirstPassword, "admin"); !strFault.empty()) {
        LOG_ERROR("CAMERA_WEB_PASSWORD is not taken: %s", strFault.c_str());
        return;
    }
    std::string strHash = hashPassword(strFirstPassword);
    if (strHash.empty() || stDesk.users.makeFirst("admin", std::move(strHash)) != Change::DONE) return;
    stDesk.sessions.endAll();
    LOG_INFO("the user admin has the password of CAMERA_WEB_PASSWORD");
}

WebLogic::~WebLogic() = default;

Admission WebLogic::admit(const Request &stRequest)
{
    auto judgement = m_pImpl->judge(stRequest);
    if (auto *pstReply = std::get_if<Reply>(&judgement)) return {std::move(*pstReply), 0};
    return {std::nullopt, std::get<1>(judgement).first->bodyMax};
}

Outcome WebLogic::handle(const Request &stRequest)
{
    auto judgement = m_pImpl->judge(stRequest);
    if (auto *pstReply = std::get_if<Reply>(&judgement)) return std::move(*pstReply);
    const auto &[pstRoute, stVisit] = std::get<1>(judgement);
    return pstRoute->pfnHandle(m_pImpl->stDesk, stVisit);
}

bool WebLogic::isOpen(const std::string &strSession, BU_S64 s64Unix)
{
    const auto strUser = m_pImpl->stDesk.sessions.use(strSession, s64Unix);
    return strUser && m_pImpl->stDesk.users.role(*strUser) != Role::ANYONE;
}

void WebLogic::setCamera(bool bUp) { m_pImpl->stDesk.bCamera = bUp; }
} // namespace web_server
