// By which names the camera may be called, and from which pages.
#include "net/hostRule.h"

#include "util/text.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <charconv>
#include <unistd.h>

namespace net
{
namespace
{
constexpr std::size_t NAME_MAX_BYTES = 253;

bool isName(std::string_view text)
{
    return !text.empty() && text.size() <= NAME_MAX_BYTES && util::isAlphaNumeric(text.front()) &&
           std::all_of(text.begin(), text.end(),
                       [](char c) { return util::isAlphaNumeric(c) || c == '-' || c == '.' || c == '_'; });
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

bool isSameHost(const Authority &a, const Authority &b)
{
    return !a.host.empty() && a.bIpv6 == b.bIpv6 && util::isSameWord(a.host, b.host);
}

/// The three ways to say where a browser on the same machine finds it.
bool isThisMachine(std::string_view host) { return host == "localhost" || host == "127.0.0.1" || host == "::1"; }
} // namespace

HostNames::HostNames(std::string_view strList, std::string_view strMachine) : m_names{"localhost"}
{
    const std::string strName = util::lowered(strMachine);
    for (const std::string &strOwn : {strName, strName + ".local", strName.substr(0, strName.find('.')) + ".local"})
        if (isName(strOwn)) m_names.push_back(strOwn);
    while (!strList.empty())
        if (const std::string strMore = util::lowered(util::takePart(strList, ',')); isName(strMore))
            m_names.push_back(strMore);
}

bool HostNames::has(std::string_view strHost) const
{
    const auto stAuthority = authority(strHost);
    if (!stAuthority) return false;
    if (stAuthority->bIpv6) return isAddress(AF_INET6, stAuthority->host);
    return isAddress(AF_INET, stAuthority->host) ||
           std::find(m_names.begin(), m_names.end(), util::lowered(stAuthority->host)) != m_names.end();
}

bool isSameOrigin(std::string_view strOrigin, std::string_view strHost, bool bTls)
{
    const std::string_view scheme = bTls ? "https://" : "http://";
    if (!util::isSameWord(strOrigin.substr(0, scheme.size()), scheme)) return false;
    const auto stOrigin = authority(strOrigin.substr(scheme.size())), stHost = authority(strHost);
    return stOrigin && stHost && isSameHost(*stOrigin, *stHost) && portOf(*stOrigin, bTls) == portOf(*stHost, bTls);
}

bool isOwnPage(const std::optional<std::string> &strOrigin, const std::optional<std::string> &strFetchSite,
               std::string_view strHost, bool bTls)
{
    if (strFetchSite && !util::isSameWord(*strFetchSite, "same-origin") && !util::isSameWord(*strFetchSite, "none"))
        return false;
    return !strOrigin || isSameOrigin(*strOrigin, strHost, bTls);
}

OriginRule::OriginRule(std::string strOwnAddress, std::string_view strMachine)
    : m_strOwn(std::move(strOwnAddress)), m_names("", strMachine)
{
}

bool OriginRule::allows(std::string_view strOrigin, std::string_view strHost) const
{
    const std::string strFrom = util::lowered(strOrigin);
    const std::size_t scheme = strFrom.starts_with("http://") ? 7 : strFrom.starts_with("https://") ? 8 : 0;
    if (scheme == 0 || !m_names.has(strHost)) return false;
    const auto stFrom = authority(std::string_view(strFrom).substr(scheme)), stTo = authority(strHost);
    return stFrom && stTo && (isSameHost(*stFrom, *stTo) || isCamera(std::string(stFrom->host)));
}

bool OriginRule::isCamera(const std::string &strHost) const
{
    return strHost == m_strOwn || (isThisMachine(strHost) && (isThisMachine(m_strOwn) || m_strOwn == "0.0.0.0"));
}

std::string machineName()
{
    std::array<char, 256> acName{};
    return gethostname(acName.data(), acName.size() - 1) == 0 ? acName.data() : "";
}
} // namespace net
