/// JSON whose values know their line, so that a mistake in a description is told with its place.
#pragma once

#include "base/types.h"

#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace menu
{
/// What is wrong, and where.
struct Fault : std::runtime_error {
    Fault(BU_S32 s32TheLine, const std::string &strReason) : std::runtime_error(strReason), s32Line(s32TheLine) {}
    BU_S32 s32Line;
};

/// A value of the description. Its readers throw Fault when it is of another kind.
class Json
{
public:
    enum class Kind { NONE, OBJECT, LIST, TEXT, NUMBER, FLAG };
    typedef std::pair<std::string, Json> Member;

    /// @throws Fault
    static Json parse(std::string_view text);

    BU_S32 line() const { return m_s32Line; }
    bool is(Kind enKind) const { return m_enKind == enKind; }
    [[noreturn]] void refuse(const std::string &strReason) const { throw Fault(m_s32Line, strReason); }

    const Json *find(std::string_view key) const;       ///< null: the object has no such member
    const Json &operator[](std::string_view key) const; ///< must be there
    const std::vector<Member> &members() const;         ///< of an object, in their order
    const std::vector<Json> &items() const;             ///< of a list
    const std::string &text(std::size_t longest) const; ///< 1 to `longest` bytes
    BU_S32 number() const;
    bool flag() const;

private:
    friend struct JsonBuilder;
    void need(Kind enKind, const BU_CHAR *pcWhat) const;

    Kind m_enKind = Kind::NONE;
    BU_S32 m_s32Line = 0, m_s32Number = 0;
    std::string m_strText;
    std::vector<Member> m_members;
    std::vector<Json> m_items;
};
} // namespace menu
