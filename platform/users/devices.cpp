// What the signed name of a browser is, and where the key lies.
#include "users/devices.h"

#include "users/password.h"
#include "users/secretFile.h"
#include "util/log.h"

#include <sodium.h>

namespace users
{
namespace
{
constexpr char BETWEEN = '.'; // in no token
} // namespace

Devices::Devices()
{
    if (readSecret(KEY_FILE, m_strKey) == FileState::READ && isToken(m_strKey)) return;
    m_strKey = makeToken();
    if (!writeSecret(KEY_FILE, m_strKey))
        LOG_WARN("web: browsers that have logged in are known until a restart only\n");
}

std::string Devices::sign(std::string_view strName, std::string_view strUser) const
{
    return digest(std::string(strName) + BETWEEN + std::string(strUser), m_strKey);
}

std::string Devices::issue(std::string_view strUser) const
{
    const std::string strName = makeToken();
    return strName + BETWEEN + sign(strName, strUser);
}

std::string Devices::nameOf(std::string_view strSigned, std::string_view strUser) const
{
    const std::string_view name = strSigned.substr(0, strSigned.find(BETWEEN));
    if (!isToken(name)) return {};
    const std::string strGood = std::string(name) + BETWEEN + sign(name, strUser);
    const bool bGood =
        strGood.size() == strSigned.size() && sodium_memcmp(strGood.data(), strSigned.data(), strGood.size()) == 0;
    return bGood ? std::string(name) : "";
}
} // namespace users
