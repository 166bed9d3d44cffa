#include "admission.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>

namespace
{
std::string lowered(std::string_view text)
{
    std::string str(text);
    std::ranges::transform(str, str.begin(), [](char c) { return c >= 'A' && c <= 'Z' ? char(c + 32) : c; });
    return str;
}

/// "name:port", "name" or "[address]:port" without the port; empty when it is anything else.
std::string hostOf(std::string_view text)
{
    const bool bBracket = text.starts_with('[');
    std::size_t end = bBracket ? text.find(']') : std::min(text.find(':'), text.size());
    if (end == std::string_view::npos) return "";
    end += bBracket;
    const std::string_view host = text.substr(0, end), port = text.substr(end);
    constexpr std::string_view NAME = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789.-_";
    constexpr std::string_view ADDRESS = "[]:.0123456789abcdefABCDEF", DIGITS = "0123456789";
    if (host.find_first_not_of(bBracket ? ADDRESS : NAME) != std::string_view::npos) return "";
    if (!port.empty() && (port[0] != ':' || port.find_first_not_of(DIGITS, 1) != std::string_view::npos)) return "";
    return lowered(host);
}

bool isLoopback(const std::string &strHost)
{
    in_addr stAddress{};
    return inet_pton(AF_INET, strHost.c_str(), &stAddress) == 1 && ntohl(stAddress.s_addr) >> 24 == 127;
}

/// The three ways to say where a browser on the same machine finds it.
bool isThisMachine(const std::string &strHost)
{
    return strHost == "localhost" || strHost == "127.0.0.1" || strHost == "[::1]";
}

bool isAddress(const std::string &strHost)
{
    in_addr stAddress{};
    return strHost.starts_with('[') || inet_pton(AF_INET, strHost.c_str(), &stAddress) == 1;
}
} // namespace

namespace preview
{
OriginRule::OriginRule(std::string strOwnAddress, std::string_view strMachine)
    : m_strOwn(std::move(strOwnAddress)), m_strMachine(lowered(strMachine))
{
}

bool OriginRule::allows(std::string_view origin, std::string_view host) const
{
    constexpr std::array<std::string_view, 2> SCHEMES{"http://", "https://"};
    const std::string strOrigin = lowered(origin);
    const auto pScheme = std::ranges::find_if(SCHEMES, [&](auto scheme) { return strOrigin.starts_with(scheme); });
    if (pScheme == SCHEMES.end()) return false;
    const std::string strFrom = hostOf(std::string_view(strOrigin).substr(pScheme->size())), strTo = hostOf(host);
    return !strFrom.empty() && isOwnName(strTo) && (strFrom == strTo || isCamera(strFrom));
}

bool OriginRule::isOwnName(const std::string &strHost) const
{
    return isAddress(strHost) || strHost == "localhost" ||
           (!m_strMachine.empty() && (strHost == m_strMachine || strHost == m_strMachine + ".local"));
}

bool OriginRule::isCamera(const std::string &strHost) const
{
    return strHost == m_strOwn || (isThisMachine(strHost) && (isThisMachine(m_strOwn) || m_strOwn == "0.0.0.0"));
}

bool Admission::mayConnect(const std::string &strAddress) const
{
    if (m_count >= CONNECTIONS_MAX) return false;
    const auto it = m_connections.find(strAddress);
    return it == m_connections.end() || it->second < PER_ADDRESS_MAX || isLoopback(strAddress) ||
           strAddress == m_strOwn;
}

void Admission::enter(const std::string &strAddress)
{
    ++m_connections[strAddress];
    ++m_count;
}

void Admission::leave(const std::string &strAddress)
{
    const auto it = m_connections.find(strAddress);
    if (it == m_connections.end()) return;
    --m_count;
    if (--it->second == 0) m_connections.erase(it);
}

bool MessageMeter::count(BU_S64 s64NowMs)
{
    if (m_u32Count == 0 || s64NowMs - m_s64Since >= 1000) {
        m_s64Since = s64NowMs;
        m_u32Count = 0;
    }
    return ++m_u32Count <= PER_SECOND_MAX;
}
} // namespace preview
