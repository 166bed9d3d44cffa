/// What the texts of a request's headers and path mean; nothing is trusted. Pure functions; thread: any.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace http
{
/// A Content-Type header says JSON, in UTF-8 if it names an encoding.
bool isJsonType(std::string_view strType);

/// What the Cookie header holds under a name, in its order: more than one when somebody tries to foist one on us; at
/// most 4. The values point into the header.
std::vector<std::string_view> cookies(std::string_view strHeader, std::string_view strName);

/// Whether If-None-Match names the tag.
bool isTagIn(std::string_view ifNoneMatch, std::string_view tag);
/// Whether a Sec-WebSocket-Key is 16 bytes of base64.
bool isWebSocketKey(std::string_view key);

/// A path to a file of the page as plain names joined by '/', "index.html" for "/"; none when it has percent signs,
/// control characters, backslashes, empty names or names that begin with a dot.
std::optional<std::string> pagePath(std::string_view strPath);
} // namespace http
