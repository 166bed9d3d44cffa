/// Which browsers' requests are meant for this camera, by their headers alone. Pure functions of texts; thread: any.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace web
{
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

/// A Content-Type header says JSON, in UTF-8 if it names an encoding.
bool isJsonType(std::string_view strType);

/// What the Cookie header holds under a name, in its order: more than one when somebody tries to foist one on us; at
/// most 4. The values point into the header.
std::vector<std::string_view> cookies(std::string_view strHeader, std::string_view strName);

/// A path to a file of the page as plain names joined by '/', "index.html" for "/"; none when it has percent signs,
/// control characters, backslashes, empty names or names that begin with a dot.
std::optional<std::string> pagePath(std::string_view strPath);
} // namespace web
