/// Texts of protocols: ASCII, in any case, in lists. Pure functions; what they return points into what they got.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace util
{
constexpr char lowered(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }
inline std::string lowered(std::string_view text)
{
    std::string str(text);
    std::ranges::transform(str, str.begin(), [](char c) { return lowered(c); });
    return str;
}
constexpr bool isAlphaNumeric(char c) { return (lowered(c) >= 'a' && lowered(c) <= 'z') || (c >= '0' && c <= '9'); }

/// Whether two texts differ in nothing but small and capital letters.
constexpr bool isSameWord(std::string_view a, std::string_view b)
{
    return std::ranges::equal(a, b, [](char x, char y) { return lowered(x) == lowered(y); });
}

/// Without blanks and tabs around it.
constexpr std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view BLANK = " \t";
    const std::size_t begin = std::min(text.find_first_not_of(BLANK), text.size());
    return text.substr(begin, text.find_last_not_of(BLANK) + 1 - begin);
}

/// Takes the text before the next separator, or all when there is none, off the begin of a list. @return it, trimmed
constexpr std::string_view takePart(std::string_view &rest, char cSeparator)
{
    const std::size_t end = std::min(rest.find(cSeparator), rest.size());
    const std::string_view part = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return trimmed(part);
}
} // namespace util
