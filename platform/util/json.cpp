/// The tree of JSON values with their places, built from what the library's parser finds. The parser works in a loop,
/// not in calls of itself: no text is nested too deeply for it.
#include "util/json.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <nlohmann/json.hpp>

namespace util
{
namespace
{
/// Walks the text for the parser, and lets its place be seen.
class Walk
{
public:
    typedef std::input_iterator_tag iterator_category;
    typedef BU_CHAR value_type;
    typedef std::ptrdiff_t difference_type;
    typedef const BU_CHAR *pointer;
    typedef const BU_CHAR &reference;

    Walk(const BU_CHAR *pc, const BU_CHAR **ppcPlace) : m_pc(pc), m_ppcPlace(ppcPlace) {}
    reference operator*() const { return *m_pc; }
    Walk &operator++()
    {
        *m_ppcPlace = m_pc++; // the last one read
        return *this;
    }
    Walk operator++(int)
    {
        const Walk before = *this;
        ++*this;
        return before;
    }
    bool operator==(const Walk &other) const { return m_pc == other.m_pc; }
    bool operator!=(const Walk &other) const { return m_pc != other.m_pc; }

private:
    const BU_CHAR *m_pc;
    const BU_CHAR **m_ppcPlace;
};

std::string below(const std::string &strPath, std::string_view key)
{
    constexpr std::size_t SHOWN_MAX = 40;
    const std::string strKey =
        key.size() <= SHOWN_MAX ? std::string(key) : std::string(key.substr(0, SHOWN_MAX)) + "...";
    return strPath.empty() ? strKey : strPath + "/" + strKey;
}
} // namespace

struct JsonBuilder : nlohmann::json_sax<nlohmann::json> {
    JsonBuilder(std::string_view text, std::size_t depth)
        : pcPlace(text.data()), m_pcCounted(pcPlace), m_depthMax(depth)
    {
    }

    Json root;
    const BU_CHAR *pcPlace;

    bool null() override { return add(Json::Kind::NOTHING); }
    bool boolean(bool b) override { return add(Json::Kind::FLAG, b ? "1" : "0"); }
    bool number_integer(number_integer_t s64) override { return add(Json::Kind::NUMBER, std::to_string(s64)); }
    bool number_unsigned(number_unsigned_t u64) override { return add(Json::Kind::NUMBER, std::to_string(u64)); }
    bool number_float(number_float_t, const string_t &str) override { return add(Json::Kind::NUMBER, str); }
    bool string(string_t &str) override { return add(Json::Kind::TEXT, std::move(str)); }
    bool binary(binary_t &) override { return false; }
    bool start_object(std::size_t) override { return add(Json::Kind::OBJECT); }
    bool start_array(std::size_t) override { return add(Json::Kind::LIST); }
    bool end_object() override { return m_open.pop_back(), true; }
    bool end_array() override { return m_open.pop_back(), true; }
    bool key(string_t &str) override
    {
        Json &object = *m_open.back();
        if (object.find(str)) throw JsonFault(below(object.path(), str), line(), "is there twice");
        if (object.m_members.size() == Json::MEMBERS_MAX) object.refuse("has too many members");
        object.m_members.emplace_back(std::move(str), Json());
        return true;
    }
    bool parse_error(std::size_t byte, const std::string &, const nlohmann::json::exception &error) override
    {
        const std::string strReason =
            error.what(); // "[json.exception.parse_error.101] parse error at line 1, column 2: syntax ..."
        const std::size_t detail = strReason.find("syntax error");
        throw JsonFault("", line(),
                        "is no JSON at byte " + std::to_string(byte) +
                            (detail == strReason.npos ? "" : ": " + strReason.substr(detail, 120)));
    }

private:
    bool add(Json::Kind enKind, std::string strText = {})
    {
        Json &value = place();
        value.m_enKind = enKind;
        value.m_s32Line = line();
        value.m_strText = std::move(strText);
        if (enKind != Json::Kind::OBJECT && enKind != Json::Kind::LIST) return true;
        if (m_open.size() == m_depthMax) value.refuse("is nested too deeply");
        m_open.push_back(&value);
        return true;
    }
    Json &place()
    {
        if (m_open.empty()) return root;
        Json &parent = *m_open.back();
        const bool bObject = parent.is(Json::Kind::OBJECT);
        Json &value = bObject ? parent.m_members.back().second : parent.m_items.emplace_back();
        value.m_strPath = below(parent.m_strPath,
                                bObject ? parent.m_members.back().first : std::to_string(parent.m_items.size() - 1));
        return value;
    }
    /// Of the last byte that was read.
    BU_S32 line()
    {
        m_s32Line += static_cast<BU_S32>(std::count(m_pcCounted, pcPlace, '\n'));
        m_pcCounted = pcPlace;
        return m_s32Line;
    }

    const BU_CHAR *m_pcCounted;
    const std::size_t m_depthMax;
    BU_S32 m_s32Line = 1;
    std::vector<Json *> m_open; // a container grows only while its last entry is closed, so these stay valid
};

JsonFault::JsonFault(std::string strThePath, BU_S32 s32TheLine, std::string strTheReason)
    : std::runtime_error(strThePath.empty() ? strTheReason : strThePath + ": " + strTheReason),
      strPath(std::move(strThePath)), s32Line(s32TheLine), strReason(std::move(strTheReason))
{
}

Json Json::parse(std::string_view text, std::size_t depthMax)
{
    JsonBuilder builder(text, depthMax);
    const Walk begin(text.data(), &builder.pcPlace), end(text.data() + text.size(), &builder.pcPlace);
    nlohmann::json::sax_parse(begin, end, &builder);
    return std::move(builder.root);
}

void Json::need(Kind enKind, const BU_CHAR *pcWhat) const
{
    if (m_enKind != enKind) refuse(std::string("must be ") + pcWhat);
}

const std::vector<Json::Member> &Json::members() const
{
    need(Kind::OBJECT, "an object");
    return m_members;
}

const Json *Json::find(std::string_view key) const
{
    const auto member = std::ranges::find(members(), key, &Member::first);
    return member == m_members.end() ? nullptr : &member->second;
}

const Json &Json::operator[](std::string_view key) const
{
    if (const Json *pJson = find(key)) return *pJson;
    throw JsonFault(below(m_strPath, key), m_s32Line, "is missing");
}

const std::vector<Json> &Json::items(std::size_t most) const
{
    need(Kind::LIST, "a list");
    if (m_items.size() > most) refuse("has more than " + std::to_string(most) + " items");
    return m_items;
}

const std::string &Json::text(std::size_t longest) const
{
    need(Kind::TEXT, "a text");
    if (m_strText.empty() || m_strText.size() > longest) refuse("must have 1 to " + std::to_string(longest) + " bytes");
    return m_strText;
}

bool Json::flag() const
{
    need(Kind::FLAG, "true or false");
    return m_strText == "1";
}

BU_S32 Json::number(BU_S32 s32Min, BU_S32 s32Max) const
{
    if (const auto number = whole<BU_S32>(); number && *number >= s32Min && *number <= s32Max) return *number;
    refuse("must be a whole number from " + std::to_string(s32Min) + " to " + std::to_string(s32Max));
}
} // namespace util
