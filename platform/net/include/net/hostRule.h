/// Which browsers' requests are meant for this camera, by the texts of their headers alone. Thread: any.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace net
{
/// The host name of this machine, empty: it has none.
std::string machineName();

/// The names by which a browser may call the camera. A page that rebinds its own name to the camera's address calls it
/// by another one.
class HostNames
{
public:
    /// @param strList  names separated by commas; what is no name is left out
    /// @param strMachine  the host name of the machine, allowed with and without ".local"
    HostNames(std::string_view strList, std::string_view strMachine);
    /// @param strHost  a Host header, with or without port: an address, "localhost" or one of the names
    bool has(std::string_view strHost) const;

private:
    std::vector<std::string> m_names; // small letters
};

/// An Origin header is that of the camera's own page: scheme, host and port of the request.
bool isSameOrigin(std::string_view strOrigin, std::string_view strHost, bool bTls);

/// A request that changes something, or opens a WebSocket, comes from the camera's own page, or from no page at all.
/// @param strFetchSite  the Sec-Fetch-Site header; it decides where a browser sends no Origin
bool isOwnPage(const std::optional<std::string> &strOrigin, const std::optional<std::string> &strFetchSite,
               std::string_view strHost, bool bTls);

/// The rule for what listens at a port of its own beside the page: a page may use it when it comes from the host it
/// connects to, or from the address of the camera, by any scheme and port.
class OriginRule
{
public:
    /// @param strOwnAddress  where the camera listens, "0.0.0.0" for everywhere. @param strMachine  its host name
    OriginRule(std::string strOwnAddress, std::string_view strMachine);
    bool allows(std::string_view strOrigin, std::string_view strHost) const;

private:
    bool isCamera(const std::string &strHost) const;
    const std::string m_strOwn;
    const HostNames m_names;
};
} // namespace net
