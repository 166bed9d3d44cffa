// The list of users: what a change may not do, and its file.
#include "users/users.h"

#include "users/secretFile.h"
#include "util/file.h"
#include "util/log.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>

namespace users
{
namespace
{
constexpr std::size_t USERS_MAX = 32;
constexpr int VERSION = 1;

struct RoleName {
    Role enRole;
    const char *pcName;
};
constexpr std::array ROLE_NAMES{RoleName{Role::VIEWER, "viewer"}, RoleName{Role::OPERATOR, "operator"},
                                RoleName{Role::ADMIN, "admin"}};

/// @return none: not a list of users
std::optional<std::vector<User>> parse(const std::string &strText)
{
    try {
        const auto root = nlohmann::json::parse(strText);
        if (root.at("version") != VERSION) return std::nullopt;
        std::vector<User> users;
        for (const auto &entry : root.at("users")) {
            const User stUser{entry.at("name"), roleOf(entry.at("role").get<std::string>()), entry.at("hash")};
            const bool bTwice = std::any_of(users.begin(), users.end(),
                                            [&](const User &stOther) { return stOther.strName == stUser.strName; });
            if (!isUserName(stUser.strName) || stUser.enRole == Role::ANYONE || stUser.strHash.empty() || bTwice)
                return std::nullopt;
            users.push_back(stUser);
        }
        if (users.empty()) return std::nullopt; // there is always an admin
        return users;
    } catch (const nlohmann::json::exception &) {
        return std::nullopt;
    }
}

std::string text(const std::vector<User> &users)
{
    nlohmann::json list = nlohmann::json::array();
    for (const User &stUser : users)
        list.push_back({{"name", stUser.strName}, {"role", nameOf(stUser.enRole)}, {"hash", stUser.strHash}});
    return nlohmann::json{{"version", VERSION}, {"users", list}}.dump(1) + "\n";
}

auto named(std::string_view strName)
{
    return [strName](const User &stUser) { return stUser.strName == strName; };
}
} // namespace

Role roleOf(std::string_view strRole)
{
    for (const auto &[enRole, pcName] : ROLE_NAMES)
        if (strRole == pcName) return enRole;
    return Role::ANYONE;
}

const char *nameOf(Role enRole)
{
    for (const auto &[enOther, pcName] : ROLE_NAMES)
        if (enOther == enRole) return pcName;
    return "";
}

bool isUserName(std::string_view strName)
{
    const auto isAlnum = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
    };
    return !strName.empty() && strName.size() <= 32 && isAlnum(strName.front()) &&
           std::all_of(strName.begin(), strName.end(),
                       [&](char c) { return isAlnum(c) || c == '.' || c == '_' || c == '-'; });
}

Users::Users()
{
    std::string strText;
    const FileState enState = readSecret(USERS_FILE, strText);
    if (enState == FileState::ABSENT) return;
    auto users = enState == FileState::READ ? parse(strText) : std::nullopt;
    m_bDamaged = !users;
    if (users) m_users = std::move(*users);
    if (m_bDamaged)
        LOG_ERROR("%s is no list of users: nobody can log in to the web page until it is repaired or removed (without "
                  "it the page asks for a new password)",
                  UTIL_ROOT_Path(USERS_FILE).c_str());
}

bool Users::isDamaged() const
{
    const std::lock_guard lock(m_lock);
    return m_bDamaged;
}

bool Users::isEmpty() const
{
    const std::lock_guard lock(m_lock);
    return m_users.empty() && !m_bDamaged;
}

std::vector<User> Users::list() const
{
    const std::lock_guard lock(m_lock);
    return m_users;
}

const User *Users::find(std::string_view strName) const
{
    const auto user = std::find_if(m_users.begin(), m_users.end(), named(strName));
    return user == m_users.end() ? nullptr : &*user;
}

Role Users::role(std::string_view strName) const
{
    const std::lock_guard lock(m_lock);
    const User *pstUser = find(strName);
    return pstUser ? pstUser->enRole : Role::ANYONE;
}

std::string Users::hash(std::string_view strName) const
{
    const std::lock_guard lock(m_lock);
    const User *pstUser = find(strName);
    return pstUser ? pstUser->strHash : std::string();
}

/// The file first: what is not stored has not happened.
Change Users::store(std::vector<User> users)
{
    const bool bAdmin =
        std::any_of(users.begin(), users.end(), [](const User &stUser) { return stUser.enRole == Role::ADMIN; });
    if (!bAdmin) return Change::LAST_ADMIN;
    if (users.size() > USERS_MAX) return Change::TOO_MANY;
    if (m_bDamaged || !writeSecret(USERS_FILE, text(users))) return Change::FAILED;
    m_users = std::move(users);
    return Change::DONE;
}

Change Users::makeFirst(const std::string &strName, std::string strHash)
{
    const std::lock_guard lock(m_lock);
    if (!m_users.empty()) return Change::NOT_FIRST;
    return store({User{strName, Role::ADMIN, std::move(strHash)}});
}

Change Users::put(const std::string &strName, std::string strHash, Role enRole)
{
    const std::lock_guard lock(m_lock);
    std::vector<User> users = m_users;
    auto user = std::find_if(users.begin(), users.end(), named(strName));
    if (user == users.end()) {
        if (strHash.empty() || enRole == Role::ANYONE) return Change::INCOMPLETE;
        user = users.insert(users.end(), User{strName, enRole, {}});
    }
    if (!strHash.empty()) user->strHash = std::move(strHash);
    if (enRole != Role::ANYONE) user->enRole = enRole;
    return store(std::move(users));
}

Change Users::setPassword(std::string_view strName, std::string strHash)
{
    const std::lock_guard lock(m_lock);
    std::vector<User> users = m_users;
    const auto user = std::find_if(users.begin(), users.end(), named(strName));
    if (user == users.end()) return Change::NO_USER;
    user->strHash = std::move(strHash);
    return store(std::move(users));
}

Change Users::remove(std::string_view strName)
{
    const std::lock_guard lock(m_lock);
    std::vector<User> users = m_users;
    if (std::erase_if(users, named(strName)) == 0) return Change::NO_USER;
    return store(std::move(users));
}
} // namespace users
