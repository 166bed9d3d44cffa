/// Who is connected, by address.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>

namespace net
{
/// Counts connections: one machine alone cannot use them all up, except this one. Not for several threads at once.
class Admission
{
public:
    /// @param strOwnAddress  where this camera listens: who comes from there is on this machine, as from 127.x.x.x
    /// @param perAddressMax  connections from another machine. @param max  of all
    Admission(std::string strOwnAddress, std::size_t perAddressMax, std::size_t max = SIZE_MAX)
        : m_strOwn(std::move(strOwnAddress)), m_perAddressMax(perAddressMax), m_max(max)
    {
    }
    /// @param strAddress  without port
    bool mayEnter(const std::string &strAddress) const
    {
        if (m_count >= m_max) return false;
        const auto it = m_connections.find(strAddress);
        return it == m_connections.end() || it->second < m_perAddressMax || strAddress.starts_with("127.") ||
               strAddress == m_strOwn;
    }
    void enter(const std::string &strAddress)
    {
        ++m_connections[strAddress];
        ++m_count;
    }
    void leave(const std::string &strAddress)
    {
        const auto it = m_connections.find(strAddress);
        if (it == m_connections.end()) return;
        --m_count;
        if (--it->second == 0) m_connections.erase(it);
    }

private:
    const std::string m_strOwn;
    const std::size_t m_perAddressMax, m_max;
    std::map<std::string, std::size_t> m_connections; // by address
    std::size_t m_count = 0;
};
} // namespace net
