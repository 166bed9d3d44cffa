/// All that can be asked of the web server, one table. What is not in it is denied.
#pragma once

#include "net/hostRule.h"
#include "request.h"
#include "sessions.h"
#include "users/devices.h"
#include "users/throttle.h"
#include "users/users.h"
#include "web/layout.h"

#include <atomic>

namespace web_server
{
/// What the handlers share.
struct Desk {
    Users users;
    Sessions sessions;
    Throttle throttle;
    Devices devices;
    net::HostNames hosts;
    std::atomic<bool> bCamera = false;
};

/// A request that may be handled, and whose it is.
struct Visit {
    const Request &stRequest;
    std::string strRest; ///< what stands for the '*' of the route
    std::string strUser; ///< empty: nobody is logged in
    Role enRole = Role::ANYONE;
    std::string strSession{};            ///< digest of its token
    std::vector<std::string> sessions{}; ///< of all presented, that one first: HTTP's may stand beside HTTPS's
};

struct Route {
    const char *pcMethod;
    const char *pcPath; ///< a '*' at the end stands for one name, in "/*" for a path
    Role enRole;
    const char *pcWhat; ///< for the documentation
    Outcome (*pfnHandle)(Desk &, const Visit &);
    std::size_t bodyMax = 0;                     ///< 0: no body
    const web_layout::Record *pstBody = nullptr; ///< its fields; nullptr: those of the event
    bool bUpgrade = false;                       ///< for WebSockets only
};

constexpr const char *SESSION_COOKIE = "camera_session";
/// What HTTPS gives has a name of its own: a browser would not let a login by HTTP replace it. The prefix makes it
/// refuse one of that name from anywhere else.
constexpr const char *SECURE_SESSION_COOKIE = "__Host-camera_session";
/// Of a browser from which somebody has logged in, see users::Devices.
constexpr const char *DEVICE_COOKIE = "camera_device", *SECURE_DEVICE_COOKIE = "__Host-camera_device";

std::span<const Route> routes();

/// @param strAllow  the methods of the path, when only the method does not fit. @return nullptr: no such route
const Route *findRoute(std::string_view strMethod, std::string_view strPath, std::string &strAllow,
                       std::string &strRest);

/// A good answer, not to be kept by caches.
Reply answer(std::string strJson);
/// What every WEB_CLIENT_RESULT_E but OK says to the browser.
Reply failure(WEB_CLIENT_RESULT_E enResult, std::string_view strWhy);
} // namespace web_server
