// What whole live-media records must obey.
#include "rules.h"

#include <algorithm>
#include <string_view>

namespace live
{
namespace
{
bool isSessionCharacter(BU_CHAR c)
{
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '-' || c == '_' ||
           c == '.' || c == '/';
}

/// No empty part, and none that begins with '.': such a path would change meaning on its way through a URL.
bool isSessionPath(std::string_view strName)
{
    for (;;) {
        const auto length = strName.find('/');
        if (const auto part = strName.substr(0, length); part.empty() || part.front() == '.') return false;
        if (length == std::string_view::npos) return true;
        strName.remove_prefix(length + 1);
    }
}
} // namespace

Fault faultOfSession(const CFG_LM_RTSP_S &stCfg)
{
    if (stCfg.sSessionName.empty())
        return stCfg.bEnabled ? Fault("no session name for an enabled channel") : std::nullopt;
    if (!std::ranges::all_of(stCfg.sSessionName, isSessionCharacter))
        return "the session name takes letters, digits, '-', '_', '.' and '/' only";
    if (!isSessionPath(stCfg.sSessionName))
        return "each part of the session name needs a character, other than '.' at its begin";
    return std::nullopt;
}

Fault faultOfServer(const CFG_LM_RTSP_GENERAL_S &stCfg)
{
    if (stCfg.s32Port == stCfg.s32HttpPort) return "RTSP and RTSP over HTTP need ports of their own";
    if (stCfg.sUsername.find(':') != std::string::npos) return "the user name must not hold a ':'";
    if (stCfg.bAuthEnable && (stCfg.sUsername.empty() || stCfg.sPassword.empty()))
        return "authentication needs a user name and a password";
    return std::nullopt;
}

Fault faultOfSrt(const CFG_LM_SRT_S &stCfg)
{
    constexpr BU_S32 KEY_LENGTHS[] = {0, 16, 24, 32};
    if (std::ranges::find(KEY_LENGTHS, stCfg.s32AesMode) == std::end(KEY_LENGTHS))
        return std::to_string(stCfg.s32AesMode) + " is no key length: 0, 16, 24 or 32";
    return std::nullopt;
}
} // namespace live
