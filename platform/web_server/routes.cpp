// The table of routes.
#include "routes.h"

#include "handlers.h"

#include <array>

namespace web_server
{
namespace
{
using web_layout::RECORD;

constexpr std::size_t SMALL = 4 << 10, LARGE = 16 << 10; // bytes of a body

// clang-format off
constexpr std::array ROUTES{
    Route{"GET", "/session", Role::ANYONE,
          "who is logged in: `{\"setup\", \"user\", \"role\", \"camera\", \"version\"}`. `setup`: no user exists yet; `user` and "
          "`role`: null when nobody is logged in, and so is the `version` of the program; `camera`: the camera is there",
          getSession},
    Route{"POST", "/setup", Role::ANYONE,
          "makes the first user, an admin, and logs in; 409 when there is one", withBody<AccountBody, setUp>, SMALL,
          &RECORD<AccountBody>},
    Route{"POST", "/session", Role::ANYONE,
          "logs in and sets the cookie; 401; 429 with Retry-After after too many attempts",
          withBody<AccountBody, logIn>, SMALL, &RECORD<AccountBody>},
    Route{"DELETE", "/session", Role::VIEWER, "logs out", logOut},
    Route{"GET", "/users", Role::ADMIN, "the users: `[{\"user\", \"role\"}]`", getUsers},
    Route{"POST", "/users", Role::ADMIN,
          "adds a user, or changes one: an empty or absent `password` or `role` (`viewer`, `operator`, `admin`) stays as "
          "it is. A new password ends the user's sessions", withBody<UserBody, putUser>, SMALL, &RECORD<UserBody>},
    Route{"DELETE", "/users/*", Role::ADMIN, "removes a user and ends the user's sessions; never the last admin",
          removeUser},
    Route{"POST", "/password", Role::VIEWER, "changes one's own password and ends one's other sessions",
          withBody<PasswordBody, changePassword>, SMALL, &RECORD<PasswordBody>},
    Route{"POST", "/api/*", Role::VIEWER, "calls an event of the camera, see below", callEvent, LARGE},
    Route{"GET", "/settings", Role::VIEWER,
          "`[{\"key\", \"pipe\", \"min\", \"max\", \"step\", \"default\", \"value\", \"words\"}]`; `words`: of settings "
          "that are one of several words", askSettings},
    Route{"GET", "/presets", Role::VIEWER,
          "the presets that are stored: `[{\"id\", \"name\", \"picture\"}]`; `picture`: when it was taken, seconds since "
          "1970, or 0", askPresets},
    Route{"GET", "/presets/*", Role::VIEWER, "`<id>.jpg`, the picture taken when the preset was stored", getPicture},
    Route{"GET", "/position", Role::VIEWER, "`{\"pan\", \"tilt\", \"zoom\"}` in degrees, and the zoom ratio",
          askPosition},
    Route{"POST", "/centre", Role::OPERATOR,
          "moves a point of the close-up picture to its centre; 0, 0 is left above and 1, 1 right below",
          withBody<CentreBody, centre>, SMALL, &RECORD<CentreBody>},
    Route{"POST", "/menu", Role::OPERATOR,
          "presses a key of the on-screen menu: `menu` opens or leaves it, `up`, `down`, `left`, `right`, `enter` and "
          "`back` are for an open one: `{\"taken\", \"open\"}`", withBody<MenuBody, menu>, SMALL, &RECORD<MenuBody>},
    Route{"GET", "/events", Role::VIEWER,
          "what changes, as text/event-stream: `{\"setting\", \"pipe\", \"value\"}`, `{\"preset\"}`, `{\"position\"}` (at "
          "most 5 a second), `{\"camera\"}`", openNews},
    Route{"GET", "/preview/*", Role::VIEWER, "`ch1`, `ch2`: a WebSocket with the live picture, see preview.md",
          openPreview, 0, nullptr, true},
    Route{"GET", "/*", Role::ANYONE, "the page; `/` is `/index.html`", getPage},
};
// clang-format on

bool fits(std::string_view strPattern, std::string_view strPath, std::string &strRest)
{
    if (!strPattern.ends_with('*')) return strPath == strPattern;
    const std::string_view prefix = strPattern.substr(0, strPattern.size() - 1);
    if (!strPath.starts_with(prefix)) return false;
    const std::string_view rest = strPath.substr(prefix.size());
    if (prefix != "/" && (rest.empty() || rest.find('/') != rest.npos)) return false;
    strRest = rest;
    return true;
}
} // namespace

std::span<const Route> routes() { return ROUTES; }

const Route *findRoute(std::string_view strMethod, std::string_view strPath, std::string &strAllow,
                       std::string &strRest)
{
    strAllow.clear();
    for (const Route &stRoute : ROUTES) {
        const bool bPage = &stRoute == &ROUTES.back();
        if (bPage && !strAllow.empty()) break; // the path is known and is no file of the page
        if (!fits(stRoute.pcPath, strPath, strRest)) continue;
        if (strMethod == stRoute.pcMethod) return &stRoute;
        if (!bPage || strPath == "/") strAllow += (strAllow.empty() ? "" : ", ") + std::string(stRoute.pcMethod);
    }
    return nullptr;
}
} // namespace web_server
