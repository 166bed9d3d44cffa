/// Who is connected, by address: one machine alone cannot use all connections up, except this one.
#pragma once

#include <map>
#include <string>

namespace web
{
class Visitors
{
public:
    Visitors(std::string strOwnAddress, std::size_t perAddressMax)
        : m_strOwn(std::move(strOwnAddress)), m_perAddressMax(perAddressMax)
    {
    }
    bool mayEnter(const std::string &strAddress) const
    {
        const auto it = m_counts.find(strAddress);
        return it == m_counts.end() || it->second < m_perAddressMax || strAddress.starts_with("127.") ||
               strAddress == m_strOwn;
    }
    void enter(const std::string &strAddress) { ++m_counts[strAddress]; }
    void leave(const std::string &strAddress)
    {
        const auto it = m_counts.find(strAddress);
        if (it != m_counts.end() && --it->second == 0) m_counts.erase(it);
    }

private:
    const std::string m_strOwn;
    const std::size_t m_perAddressMax;
    std::map<std::string, std::size_t> m_counts;
};
} // namespace web
