#include "origin.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <charconv>

namespace web
{
namespace
{
constexpr std::size_t NAME_MAX_BYTES = 253;

char small(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

std::string small(std::string_view text)
{
    std::string strSmall(text);
    std::transform(text.begin(), text.end(), strSmall.begin(), [](char c) { return small(c); });
    return strSmall;
}

bool isSame(std::string_view a, std::string_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return small(x) == small(y); });
}

bool isAlnum(char c) { return (small(c) >= 'a' && small(c) <= 'z') || (c >= '0' && c <= '9'); }

std::string_view trim(std::string_view text)
{
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
    return text;
}

/// Takes the text before the next separator, without blanks around it.
std::string_view next(std::string_view &rest, char cSeparator)
{
    const std::size_t end = std::min(rest.find(cSeparator), rest.size());
    const std::string_view part = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return trim(part);
}

bool isName(std::string_view text)
{
    return !text.empty() && text.size() <= NAME_MAX_BYTES && isAlnum(text.front()) &&
           std::all_of(text.begin(), text.end(), [](char c) { return isAlnum(c) || c == '-' || c == '.' || c == '_'; });
}

bool isAddress(int s32Family, std::string_view text)
{
    std::array<unsigned char, 16> address{};
    return text.size() < INET6_ADDRSTRLEN && inet_pton(s32Family, std::string(text).c_str(), address.data()) == 1;
}

struct Authority {
    std::string_view host; ///< an IPv6 address without its brackets
    std::string_view port; ///< empty: none
    bool bIpv6 = false;
};

std::optional<Authority> authority(std::string_view text)
{
    Authority stAuthority;
    std::string_view rest;
    if (text.starts_with('[')) {
        const std::size_t end = text.find(']');
        if (end == text.npos) return std::nullopt;
        stAuthority = {text.substr(1, end - 1), {}, true};
        rest = text.substr(end + 1);
    } else {
        const std::size_t colon = std::min(text.find(':'), text.size());
        stAuthority.host = text.substr(0, colon);
        rest = text.substr(colon);
    }
    if (rest.empty()) return stAuthority;
    unsigned short u16Port = 0;
    stAuthority.port = rest.substr(1);
    const auto [end, error] = std::from_chars(rest.data() + 1, rest.data() + rest.size(), u16Port);
    if (rest.front() != ':' || error != std::errc{} || end != rest.data() + rest.size()) return std::nullopt;
    return stAuthority;
}

std::string_view portOf(const Authority &stAuthority, bool bTls)
{
    return !stAuthority.port.empty() ? stAuthority.port : bTls ? "443" : "80";
}
} // namespace

HostNames::HostNames(std::string_view strList, std::string_view strMachine) : m_names{"localhost"}
{
    const std::string strName = small(strMachine);
    for (const std::string &strOwn : {strName, strName + ".local", strName.substr(0, strName.find('.')) + ".local"})
        if (isName(strOwn)) m_names.push_back(strOwn);
    while (!strList.empty())
        if (const std::string strMore = small(next(strList, ',')); isName(strMore)) m_names.push_back(strMore);
}

bool HostNames::has(std::string_view strHost) const
{
    const auto stAuthority = authority(strHost);
    if (!stAuthority) return false;
    if (stAuthority->bIpv6) return isAddress(AF_INET6, stAuthority->host);
    return isAddress(AF_INET, stAuthority->host) ||
           std::find(m_names.begin(), m_names.end(), small(stAuthority->host)) != m_names.end();
}

bool isSameOrigin(std::string_view strOrigin, std::string_view strHost, bool bTls)
{
    const std::string_view scheme = bTls ? "https://" : "http://";
    if (!isSame(strOrigin.substr(0, scheme.size()), scheme)) return false;
    const auto stOrigin = authority(strOrigin.substr(scheme.size())), stHost = authority(strHost);
    return stOrigin && stHost && stOrigin->bIpv6 == stHost->bIpv6 && !stHost->host.empty() &&
           isSame(stOrigin->host, stHost->host) && portOf(*stOrigin, bTls) == portOf(*stHost, bTls);
}

bool isOwnPage(const std::optional<std::string> &strOrigin, const std::optional<std::string> &strFetchSite,
               std::string_view strHost, bool bTls)
{
    if (strFetchSite && !isSame(*strFetchSite, "same-origin") && !isSame(*strFetchSite, "none")) return false;
    return !strOrigin || isSameOrigin(*strOrigin, strHost, bTls);
}

bool isJsonType(std::string_view strType)
{
    if (!isSame(next(strType, ';'), "application/json")) return false;
    while (!strType.empty()) {
        std::string_view value = next(strType, ';');
        if (isSame(next(value, '='), "charset") && !isSame(value, "utf-8") && !isSame(value, "\"utf-8\"")) return false;
    }
    return true;
}

std::vector<std::string_view> cookies(std::string_view strHeader, std::string_view strName)
{
    constexpr std::size_t COOKIES_MAX = 4;
    std::vector<std::string_view> values;
    while (!strHeader.empty() && values.size() < COOKIES_MAX) {
        std::string_view value = next(strHeader, ';');
        const std::size_t equals = value.find('=');
        if (equals != value.npos && trim(value.substr(0, equals)) == strName)
            values.push_back(trim(value.substr(equals + 1)));
    }
    return values;
}

std::optional<std::string> pagePath(std::string_view strPath)
{
    constexpr std::size_t PATH_MAX_BYTES = 256;
    if (strPath == "/") return "index.html";
    if (!strPath.starts_with('/') || strPath.size() > PATH_MAX_BYTES) return std::nullopt;
    strPath.remove_prefix(1);
    const auto isPlain = [](char c) { return isAlnum(c) || c == '-' || c == '.' || c == '_' || c == '/'; };
    if (!std::all_of(strPath.begin(), strPath.end(), isPlain)) return std::nullopt;
    for (std::size_t begin = 0; begin <= strPath.size();) {
        const std::size_t end = std::min(strPath.find('/', begin), strPath.size());
        if (begin == end || strPath[begin] == '.') return std::nullopt;
        begin = end + 1;
    }
    return std::string(strPath);
}
} // namespace web
