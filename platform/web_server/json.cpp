#include "json.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>
#include <type_traits>
#include <utility>
#include <vector>

using namespace web_layout;

namespace web
{
namespace
{
typedef nlohmann::json Json;
typedef nlohmann::ordered_json Ordered;

/// What is wrong, a sentence. Leaves readRecord as its result.
struct Fault {
    std::string strText;
};

std::string shortened(std::string_view strName)
{
    constexpr std::size_t SHOWN_MAX = 40;
    return strName.size() <= SHOWN_MAX ? std::string(strName) : std::string(strName.substr(0, SHOWN_MAX)) + "...";
}

/// Builds the tree from what the parser finds. The parser itself works in a loop, not in calls of itself.
class Builder : public nlohmann::json_sax<Json>
{
public:
    Json m_root;

    bool null() override { return add(nullptr); }
    bool boolean(bool bValue) override { return add(bValue); }
    bool number_integer(number_integer_t s64Value) override { return add(s64Value); }
    bool number_unsigned(number_unsigned_t u64Value) override { return add(u64Value); }
    bool number_float(number_float_t dValue, const string_t &) override { return add(dValue); }
    bool string(string_t &strValue) override { return add(std::move(strValue)); }
    bool binary(binary_t &) override { return false; }
    bool start_object(std::size_t) override { return open(Json::object()); }
    bool start_array(std::size_t) override { return open(Json::array()); }
    bool end_object() override { return close(); }
    bool end_array() override { return close(); }
    bool key(string_t &strKey) override
    {
        if (m_open.back()->contains(strKey)) throw Fault{"\"" + shortened(strKey) + "\" is there twice"};
        m_strKey = std::move(strKey);
        return true;
    }
    bool parse_error(std::size_t position, const std::string &, const nlohmann::detail::exception &) override
    {
        throw Fault{"this is no JSON at byte " + std::to_string(position)};
    }

private:
    static constexpr std::size_t DEPTH_MAX = 8;

    Json *place(Json value)
    {
        if (m_open.empty()) return &(m_root = std::move(value));
        Json &parent = *m_open.back();
        if (parent.is_object()) return &(parent[m_strKey] = std::move(value));
        parent.push_back(std::move(value));
        return &parent.back();
    }
    bool add(Json value)
    {
        place(std::move(value));
        return true;
    }
    bool open(Json value)
    {
        if (m_open.size() == DEPTH_MAX) throw Fault{"this is nested too deeply"};
        m_open.push_back(place(std::move(value)));
        return true;
    }
    bool close()
    {
        m_open.pop_back();
        return true;
    }

    std::vector<Json *> m_open; // an array that grows moves only what is closed
    std::string m_strKey;
};

template <class T> void put(BU_CHAR *pcTo, T value) { std::memcpy(pcTo, &value, sizeof value); }
template <class T> T get(const BU_CHAR *pcFrom)
{
    T value;
    std::memcpy(&value, pcFrom, sizeof value);
    return value;
}

/// Calls fn with a value of the integer type of that many bytes.
template <class F> auto withInteger(bool bSigned, BU_U32 u32Size, F fn)
{
    switch (u32Size) {
    case 1:
        return bSigned ? fn(BU_S8{}) : fn(BU_U8{});
    case 2:
        return bSigned ? fn(BU_S16{}) : fn(BU_U16{});
    case 4:
        return bSigned ? fn(BU_S32{}) : fn(BU_U32{});
    default:
        return bSigned ? fn(BU_S64{}) : fn(BU_U64{});
    }
}

template <class T> std::string limits()
{
    return std::to_string(std::numeric_limits<T>::min()) + " to " + std::to_string(std::numeric_limits<T>::max());
}

template <class T> T integer(const Json &value)
{
    constexpr double EXACT = 9007199254740992.0; // beyond 2^53 a floating point number stands for several integers
    const bool bWhole =
        value.is_number_integer() || (value.is_number_float() && std::abs(value.get<double>()) <= EXACT &&
                                      std::trunc(value.get<double>()) == value.get<double>());
    const auto fits = [](auto number) { return std::in_range<T>(number); };
    const bool bFits =
        bWhole && (value.is_number_unsigned() ? fits(value.get<std::uint64_t>()) : fits(value.get<std::int64_t>()));
    if (!bFits) throw Fault{"must be a whole number, " + limits<T>()};
    return value.get<T>();
}

void readText(const Field &stField, const Json &value, BU_CHAR *pcTo)
{
    if (!value.is_string()) throw Fault{"must be a text"};
    const auto &strText = value.get_ref<const std::string &>();
    if (strText.size() >= stField.u32Size)
        throw Fault{"must not be longer than " + std::to_string(stField.u32Size - 1) + " bytes"};
    if (strText.find('\0') != strText.npos) throw Fault{"must not contain NUL"};
    std::memcpy(pcTo, strText.data(), strText.size());
}

void readSwitch(const Field &stField, const Json &value, BU_CHAR *pcTo)
{
    const bool bNumber = value.is_number_unsigned() && value.get<std::uint64_t>() <= 1;
    if (!value.is_boolean() && !bNumber) throw Fault{"must be true or false"};
    const bool bOn = value.is_boolean() ? value.get<bool>() : value.get<std::uint64_t>() == 1;
    withInteger(true, stField.u32Size, [&](auto type) { put(pcTo, static_cast<decltype(type)>(bOn)); });
}

void readReal(const Json &value, BU_CHAR *pcTo)
{
    if (!value.is_number() || std::abs(value.get<double>()) > std::numeric_limits<float>::max())
        throw Fault{"must be a number"};
    put(pcTo, value.get<float>());
}

void readObject(const Record &stRecord, const Json &object, BU_CHAR *pcRecord);

void readElement(const Field &stField, const Json &value, BU_CHAR *pcTo)
{
    switch (stField.enKind) {
    case Kind::SIGNED:
    case Kind::UNSIGNED:
        return withInteger(stField.enKind == Kind::SIGNED, stField.u32Size,
                           [&](auto type) { put(pcTo, integer<decltype(type)>(value)); });
    case Kind::REAL:
        return readReal(value, pcTo);
    case Kind::SWITCH:
        return readSwitch(stField, value, pcTo);
    case Kind::TEXT:
        return readText(stField, value, pcTo);
    case Kind::RECORD:
        return readObject(*stField.pstRecord, value, pcTo);
    case Kind::VARIANT:
        return; // needs its sibling: readVariant
    }
}

void readField(const Field &stField, const Json &value, BU_CHAR *pcTo)
try {
    if (stField.u32Count == 1) return readElement(stField, value, pcTo);
    if (!value.is_array() || value.size() > stField.u32Count)
        throw Fault{"must be an array of at most " + std::to_string(stField.u32Count) + " elements"};
    for (std::size_t n = 0; n < value.size(); ++n) readElement(stField, value[n], pcTo + n * stField.u32Size);
} catch (const Fault &stFault) {
    throw Fault{std::string(stField.pcName) + (stFault.strText.starts_with("must") ? " " : ": ") + stFault.strText};
}

const Field *find(std::span<const Field> fields, std::string_view strName)
{
    const auto field =
        std::find_if(fields.begin(), fields.end(), [&](const Field &stField) { return stField.pcName == strName; });
    return field == fields.end() ? nullptr : &*field;
}

/// The value of the field that selects a member of a union.
BU_S64 selected(const Record &stRecord, const Variant &stVariant, const BU_CHAR *pcRecord)
{
    const Field *pstField = find(stRecord.fields, stVariant.pcSelector);
    if (!pstField) return 0;
    return withInteger(pstField->enKind != Kind::UNSIGNED, pstField->u32Size, [&](auto type) {
        return static_cast<BU_S64>(get<decltype(type)>(pcRecord + pstField->u32Offset));
    });
}

const Field *alternative(const Variant &stVariant, BU_S64 s64Selector, std::string_view strName)
{
    for (const auto &[s32Selector, stField] : stVariant.alternatives)
        if (s32Selector == s64Selector && (strName.empty() || stField.pcName == strName)) return &stField;
    return nullptr;
}

void readVariant(const Record &stRecord, const Field &stField, const Json &value, BU_CHAR *pcRecord)
{
    const std::string strName = stField.pcName;
    if (!value.is_object() || value.size() > 1) throw Fault{strName + " must be an object with one member"};
    for (const auto &[strMember, content] : value.items()) {
        const BU_S64 s64Selector = selected(stRecord, *stField.pstVariant, pcRecord);
        const Field *pstMember = alternative(*stField.pstVariant, s64Selector, strMember);
        if (!pstMember)
            throw Fault{strName + " cannot hold \"" + shortened(strMember) + "\" while " +
                        stField.pstVariant->pcSelector + " is " + std::to_string(s64Selector)};
        readField(*pstMember, content, pcRecord + stField.u32Offset + pstMember->u32Offset);
    }
}

void readObject(const Record &stRecord, const Json &object, BU_CHAR *pcRecord)
{
    if (!object.is_object()) throw Fault{"must be an object"};
    for (const bool bVariants : {false, true}) // a union needs to know its selecting field
        for (const auto &[strName, value] : object.items()) {
            const Field *pstField = find(stRecord.fields, strName);
            if (!pstField) throw Fault{"\"" + shortened(strName) + "\" is no field"};
            if ((pstField->enKind == Kind::VARIANT) != bVariants) continue;
            if (bVariants)
                readVariant(stRecord, *pstField, value, pcRecord);
            else
                readField(*pstField, value, pcRecord + pstField->u32Offset);
        }
}

/// The shortest number that reads as the same float.
Ordered writeReal(float fValue)
{
    if (!std::isfinite(fValue)) return nullptr;
    std::array<char, 32> text{};
    const auto shortest = std::to_chars(text.data(), text.data() + text.size(), fValue);
    double dValue = 0;
    std::from_chars(text.data(), shortest.ptr, dValue);
    return dValue;
}

Ordered writeObject(const Record &stRecord, const BU_CHAR *pcRecord);

Ordered writeElement(const Field &stField, const BU_CHAR *pcFrom)
{
    const auto integer = [&](auto type) { return Ordered(get<decltype(type)>(pcFrom)); };
    switch (stField.enKind) {
    case Kind::SIGNED:
        return withInteger(true, stField.u32Size, integer);
    case Kind::UNSIGNED:
        return withInteger(false, stField.u32Size, integer);
    case Kind::REAL:
        return writeReal(get<float>(pcFrom));
    case Kind::SWITCH:
        return withInteger(true, stField.u32Size, integer) != 0;
    case Kind::TEXT:
        return std::string(pcFrom, strnlen(pcFrom, stField.u32Size));
    case Kind::RECORD:
        return writeObject(*stField.pstRecord, pcFrom);
    case Kind::VARIANT:
        break; // needs its sibling: writeObject
    }
    return Ordered::object();
}

Ordered writeField(const Field &stField, const BU_CHAR *pcFrom)
{
    if (stField.u32Count == 1) return writeElement(stField, pcFrom);
    Ordered list = Ordered::array();
    for (BU_U32 n = 0; n < stField.u32Count; ++n) list.push_back(writeElement(stField, pcFrom + n * stField.u32Size));
    return list;
}

Ordered writeObject(const Record &stRecord, const BU_CHAR *pcRecord)
{
    Ordered object = Ordered::object();
    for (const Field &stField : stRecord.fields) {
        const BU_CHAR *pcFrom = pcRecord + stField.u32Offset;
        Ordered &value = object[stField.pcName] = writeField(stField, pcFrom);
        if (stField.enKind != Kind::VARIANT) continue;
        const Variant &stVariant = *stField.pstVariant;
        if (const Field *pstMember = alternative(stVariant, selected(stRecord, stVariant, pcRecord), {}))
            value[pstMember->pcName] = writeField(*pstMember, pcFrom + pstMember->u32Offset);
    }
    return object;
}
} // namespace

std::string readRecord(const Record &stRecord, std::string_view strJson, BU_CHAR *pcRecord)
try {
    Builder builder;
    Json::sax_parse(strJson.begin(), strJson.end(), &builder);
    if (!builder.m_root.is_object()) return "this must be a JSON object";
    readObject(stRecord, builder.m_root, pcRecord);
    return {};
} catch (const Fault &stFault) {
    return stFault.strText;
}

std::string writeRecord(const Record &stRecord, const BU_CHAR *pcRecord)
{
    return writeObject(stRecord, pcRecord).dump(-1, ' ', false, Ordered::error_handler_t::replace);
}

bool isUtf8(std::string_view strText)
try {
    return !Json(strText).dump().empty();
} catch (const Json::type_error &) {
    return false;
}

std::string quoted(std::string_view strText)
{
    return Json(strText).dump(-1, ' ', false, Json::error_handler_t::replace);
}
} // namespace web
