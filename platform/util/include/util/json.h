/// JSON (RFC 8259) that is read: its values know their place, so that a fault is told with it. Thread: any.
#pragma once

#include "base/types.h"

#include <charconv>
#include <concepts>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace util
{
/// What is wrong, and where. what() is the path and the reason.
struct JsonFault : std::runtime_error {
    JsonFault(std::string strThePath, BU_S32 s32TheLine, std::string strTheReason);

    const std::string strPath;   ///< member names and numbers of items with '/' between them; empty: the whole text
    const BU_S32 s32Line;        ///< from 1
    const std::string strReason; ///< such as "is missing", "must be a text"
};

/// A value. What reads it throws JsonFault where it is of another kind.
class Json
{
public:
    enum class Kind { NOTHING, OBJECT, LIST, TEXT, NUMBER, FLAG };
    typedef std::pair<std::string, Json> Member;
    static constexpr std::size_t DEPTH_MAX = 16, MEMBERS_MAX = 1000;

    /// Takes no text that is nested more deeply than that, or with a member twice in one object, or with more than
    /// MEMBERS_MAX of them. @throws JsonFault
    static Json parse(std::string_view text, std::size_t depthMax = DEPTH_MAX);

    BU_S32 line() const { return m_s32Line; }
    const std::string &path() const { return m_strPath; }
    bool is(Kind enKind) const { return m_enKind == enKind; }
    [[noreturn]] void refuse(std::string strReason) const
    {
        throw JsonFault(m_strPath, m_s32Line, std::move(strReason));
    }

    const std::vector<Member> &members() const;                        ///< of an object, in their order
    const Json *find(std::string_view key) const;                      ///< of an object; null: no such member
    const Json &operator[](std::string_view key) const;                ///< the same; must be there
    const std::vector<Json> &items(std::size_t most = SIZE_MAX) const; ///< of a list
    const std::string &text(std::size_t longest) const;                ///< 1 to `longest` bytes
    bool flag() const;
    /// A whole number without a point or an exponent.
    BU_S32 number(BU_S32 s32Min = INT32_MIN, BU_S32 s32Max = INT32_MAX) const;

    // For readers with words of their own.
    const std::string &written() const { return m_strText; } ///< a text, a number as it is written, 1 or 0 of a flag
    /// The number without a point or an exponent that fits the type.
    template <std::integral T> std::optional<T> whole() const { return as<T>(); }
    std::optional<double> real() const { return as<double>(); } ///< any number

private:
    friend struct JsonBuilder;
    void need(Kind enKind, const BU_CHAR *pcWhat) const;
    template <class T> std::optional<T> as() const
    {
        T value{};
        const BU_CHAR *pcEnd = m_strText.data() + m_strText.size();
        if (m_enKind != Kind::NUMBER) return std::nullopt;
        const auto [pcRest, error] = std::from_chars(m_strText.data(), pcEnd, value);
        return pcRest == pcEnd && error == std::errc() ? std::optional(value) : std::nullopt;
    }

    Kind m_enKind = Kind::NOTHING;
    BU_S32 m_s32Line = 1;
    std::string m_strPath, m_strText;
    std::vector<Member> m_members;
    std::vector<Json> m_items;
};
} // namespace util
