/// Knows the browsers from which a user has logged in before: they carry a signed name.
#pragma once

#include <string>
#include <string_view>

namespace users
{
/// Opens no door: it says only that whoever carries it knew the password once. Thread: any.
class Devices
{
public:
    static constexpr const char *KEY_FILE = "/var/web/device.key"; ///< only its owner may read it

    Devices(); ///< reads the key or makes one; one that cannot be stored holds until this process ends

    /// A new signed name of 87 characters, all of which may stand in a cookie.
    std::string issue(std::string_view strUser) const;
    /// @param strSigned  of issue, perhaps for another user or of somebody's own making
    /// @return its name, the same each time; empty: not signed for this user
    std::string nameOf(std::string_view strSigned, std::string_view strUser) const;

private:
    std::string sign(std::string_view strName, std::string_view strUser) const;

    std::string m_strKey;
};
} // namespace users
