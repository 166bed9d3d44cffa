// What of a request's headers and path is believed.
#include "http/headers.h"

#include "util/text.h"

#include <algorithm>

namespace http
{
bool isJsonType(std::string_view strType)
{
    if (!util::isSameWord(util::takePart(strType, ';'), "application/json")) return false;
    while (!strType.empty()) {
        std::string_view value = util::takePart(strType, ';');
        if (util::isSameWord(util::takePart(value, '='), "charset") && !util::isSameWord(value, "utf-8") &&
            !util::isSameWord(value, "\"utf-8\""))
            return false;
    }
    return true;
}

std::vector<std::string_view> cookies(std::string_view strHeader, std::string_view strName)
{
    constexpr std::size_t COOKIES_MAX = 4;
    std::vector<std::string_view> values;
    while (!strHeader.empty() && values.size() < COOKIES_MAX) {
        std::string_view value = util::takePart(strHeader, ';');
        const std::size_t equals = value.find('=');
        if (equals != value.npos && util::trimmed(value.substr(0, equals)) == strName)
            values.push_back(util::trimmed(value.substr(equals + 1)));
    }
    return values;
}

bool isTagIn(std::string_view ifNoneMatch, std::string_view tag)
{
    if (util::trimmed(ifNoneMatch) == "*") return true;
    while (!ifNoneMatch.empty()) {
        std::string_view one = util::takePart(ifNoneMatch, ',');
        if (one.starts_with("W/")) one.remove_prefix(2);
        if (one == tag) return true;
    }
    return false;
}

bool isWebSocketKey(std::string_view key)
{
    const auto isBase64 = [](char c) { return util::isAlphaNumeric(c) || c == '+' || c == '/'; };
    return key.size() == 24 && key.ends_with("==") && std::ranges::all_of(key.substr(0, 22), isBase64);
}

std::optional<std::string> pagePath(std::string_view strPath)
{
    constexpr std::size_t PATH_MAX_BYTES = 256;
    if (strPath == "/") return "index.html";
    if (!strPath.starts_with('/') || strPath.size() > PATH_MAX_BYTES) return std::nullopt;
    strPath.remove_prefix(1);
    const auto isPlain = [](char c) { return util::isAlphaNumeric(c) || c == '-' || c == '.' || c == '_' || c == '/'; };
    if (!std::all_of(strPath.begin(), strPath.end(), isPlain)) return std::nullopt;
    for (std::size_t begin = 0; begin <= strPath.size();) {
        const std::size_t end = std::min(strPath.find('/', begin), strPath.size());
        if (begin == end || strPath[begin] == '.') return std::nullopt;
        begin = end + 1;
    }
    return std::string(strPath);
}
} // namespace http
