#include "linedJson.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <nlohmann/json.hpp>

namespace menu
{
namespace
{
/// Walks the text for the parser and counts the lines it has read.
class LineIterator
{
public:
    typedef std::input_iterator_tag iterator_category;
    typedef BU_CHAR value_type;
    typedef std::ptrdiff_t difference_type;
    typedef const BU_CHAR *pointer;
    typedef const BU_CHAR &reference;

    LineIterator(const BU_CHAR *pc, BU_S32 *ps32Line) : m_pc(pc), m_ps32Line(ps32Line) {}
    reference operator*() const { return *m_pc; }
    LineIterator &operator++()
    {
        if (*m_pc++ == '\n') ++*m_ps32Line;
        return *this;
    }
    LineIterator operator++(int)
    {
        const LineIterator before = *this;
        ++*this;
        return before;
    }
    bool operator==(const LineIterator &other) const { return m_pc == other.m_pc; }
    bool operator!=(const LineIterator &other) const { return m_pc != other.m_pc; }

private:
    const BU_CHAR *m_pc;
    BU_S32 *m_ps32Line;
};
} // namespace

/// Builds the tree from what the parser finds.
struct JsonBuilder : nlohmann::json_sax<nlohmann::json> {
    static constexpr std::size_t DEPTH_MAX = 16;
    Json root;
    BU_S32 s32Line = 1;

    bool add(Json::Kind enKind, BU_S32 s32Number = 0, std::string strText = {})
    {
        Json &value = place();
        value.m_enKind = enKind;
        value.m_s32Line = s32Line;
        value.m_s32Number = s32Number;
        value.m_strText = std::move(strText);
        if (enKind == Json::Kind::OBJECT || enKind == Json::Kind::LIST) {
            if (m_open.size() == DEPTH_MAX) throw Fault(s32Line, "is nested too deeply");
            m_open.push_back(&value);
        }
        return true;
    }
    bool number(BU_S64 s64)
    {
        if (s64 < INT32_MIN || s64 > INT32_MAX) throw Fault(s32Line, std::to_string(s64) + " is too large");
        return add(Json::Kind::NUMBER, static_cast<BU_S32>(s64));
    }

    bool null() override { throw Fault(s32Line, "null has no meaning here"); }
    bool boolean(bool b) override { return add(Json::Kind::FLAG, b); }
    bool number_integer(number_integer_t s64) override { return number(s64); }
    bool number_unsigned(number_unsigned_t u64) override
    {
        return number(static_cast<BU_S64>(std::min<number_unsigned_t>(u64, INT64_MAX)));
    }
    bool number_float(number_float_t, const string_t &str) override
    {
        throw Fault(s32Line, str + " is no whole number");
    }
    bool string(string_t &str) override { return add(Json::Kind::TEXT, 0, str); }
    bool binary(binary_t &) override { return false; }
    bool start_object(std::size_t) override { return add(Json::Kind::OBJECT); }
    bool start_array(std::size_t) override { return add(Json::Kind::LIST); }
    bool end_object() override { return m_open.pop_back(), true; }
    bool end_array() override { return m_open.pop_back(), true; }
    bool key(string_t &str) override
    {
        if (m_open.back()->find(str)) throw Fault(s32Line, "\"" + str + "\" stands twice");
        m_open.back()->m_members.emplace_back(str, Json());
        return true;
    }
    bool parse_error(std::size_t, const std::string &, const nlohmann::json::exception &error) override
    {
        const std::string strReason = error.what();
        throw Fault(s32Line, strReason.substr(strReason.find("] ") + 2));
    }

private:
    Json &place()
    {
        if (m_open.empty()) return root;
        Json &parent = *m_open.back();
        return parent.is(Json::Kind::OBJECT) ? parent.m_members.back().second : parent.m_items.emplace_back();
    }
    std::vector<Json *> m_open; // a container grows only while its last entry is closed, so these stay valid
};

Json Json::parse(std::string_view text)
{
    JsonBuilder builder;
    const LineIterator begin(text.data(), &builder.s32Line), end(text.data() + text.size(), &builder.s32Line);
    nlohmann::json::sax_parse(begin, end, &builder);
    return std::move(builder.root);
}

void Json::need(Kind enKind, const BU_CHAR *pcWhat) const
{
    if (m_enKind != enKind) refuse(std::string("must be ") + pcWhat);
}

const Json *Json::find(std::string_view key) const
{
    need(Kind::OBJECT, "an object");
    const auto member = std::ranges::find(m_members, key, &Member::first);
    return member == m_members.end() ? nullptr : &member->second;
}

const Json &Json::operator[](std::string_view key) const
{
    if (const Json *pJson = find(key)) return *pJson;
    refuse("\"" + std::string(key) + "\" is missing");
}

const std::vector<Json::Member> &Json::members() const
{
    need(Kind::OBJECT, "an object");
    return m_members;
}

const std::vector<Json> &Json::items() const
{
    need(Kind::LIST, "a list");
    return m_items;
}

const std::string &Json::text(std::size_t longest) const
{
    need(Kind::TEXT, "a text");
    if (m_strText.empty() || m_strText.size() > longest)
        refuse("\"" + m_strText.substr(0, 40) + "\" must have 1 to " + std::to_string(longest) + " bytes");
    return m_strText;
}

BU_S32 Json::number() const
{
    need(Kind::NUMBER, "a number");
    return m_s32Number;
}

bool Json::flag() const
{
    need(Kind::FLAG, "true or false");
    return m_s32Number != 0;
}
} // namespace menu
