/// Who may use the camera: "/var/web/users.json" of the device root, readable by the camera's own user only.
#pragma once

#include "base/types.h"

#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace users
{
/// Each may do what the ones before it may.
enum class Role : BU_U8 { ANYONE, VIEWER, OPERATOR, ADMIN };

constexpr const char *USERS_FILE = "/var/web/users.json";

/// "viewer", "operator", "admin". @return ANYONE: no such role
Role roleOf(std::string_view strRole);
const char *nameOf(Role enRole); ///< "" for ANYONE

/// 1 to 32 letters, digits, '.', '_' and '-', of which the first is a letter or a digit.
bool isUserName(std::string_view strName);

struct User {
    std::string strName;
    Role enRole = Role::VIEWER;
    std::string strHash; ///< of hashPassword
};

enum class Change {
    DONE,
    NOT_FIRST,  ///< there are users already
    NO_USER,    ///< there is no such user
    INCOMPLETE, ///< a new user needs a password and a role
    LAST_ADMIN, ///< nobody would be left to manage users
    TOO_MANY,
    FAILED ///< the file is damaged, or cannot be written; nothing has changed
};

/// The list in memory and in the file; both change together. A file that cannot be read as a list of users is left as
/// it is: nobody can log in until somebody has repaired or removed it, and nobody can become the first user. Thread:
/// any; what changes something synchronises a file, so not the network thread.
class Users
{
public:
    Users();

    bool isDamaged() const;
    bool isEmpty() const; ///< false also when damaged
    std::vector<User> list() const;
    Role role(std::string_view strName) const;        ///< ANYONE: no such user
    std::string hash(std::string_view strName) const; ///< empty: no such user

    /// Makes the first user, an admin.
    Change makeFirst(const std::string &strName, std::string strHash);
    /// Makes a user or changes one. @param strHash  empty: as before. @param enRole  ANYONE: as before
    Change put(const std::string &strName, std::string strHash, Role enRole);
    /// Of a user that is there: an attempt that comes too late makes none.
    Change setPassword(std::string_view strName, std::string strHash);
    Change remove(std::string_view strName);

private:
    const User *find(std::string_view strName) const;
    Change store(std::vector<User> users);

    mutable std::mutex m_lock; // guards what follows, and the order of the writes of the file
    std::vector<User> m_users;
    bool m_bDamaged = false;
};
} // namespace users
