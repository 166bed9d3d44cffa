// Records as JSON.
#include "web_client/recordJson.h"

#include "util/json.h"

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
using util::Json;

namespace web_client
{
namespace
{
typedef nlohmann::ordered_json Ordered;

constexpr std::size_t DEPTH_MAX = 8;

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

/// 5 may also be written 5.0, or 0.5e1.
template <class T> T integer(const Json &value)
{
    constexpr double EXACT = 9007199254740992.0; // beyond 2^53 a floating point number stands for several integers
    if (const auto whole = value.whole<T>()) return *whole;
    const double dValue = value.real().value_or(0.5);
    const bool bWhole = std::abs(dValue) <= EXACT && std::trunc(dValue) == dValue;
    if (bWhole && std::in_range<T>(static_cast<BU_S64>(dValue))) return static_cast<T>(dValue);
    value.refuse("must be a whole number, " + limits<T>());
}

void readText(const Field &stField, const Json &value, BU_CHAR *pcTo)
{
    if (!value.is(Json::Kind::TEXT)) value.refuse("must be a text");
    const std::string &strText = value.written();
    if (strText.size() >= stField.u32Size)
        value.refuse("must not be longer than " + std::to_string(stField.u32Size - 1) + " bytes");
    if (strText.find('\0') != strText.npos) value.refuse("must not contain NUL");
    std::memcpy(pcTo, strText.data(), strText.size());
}

void readSwitch(const Field &stField, const Json &value, BU_CHAR *pcTo)
{
    if (!value.is(Json::Kind::FLAG) && value.whole<BU_U8>().value_or(2) > 1) value.refuse("must be true or false");
    const bool bOn = value.written() == "1";
    withInteger(true, stField.u32Size, [&](auto type) { put(pcTo, static_cast<decltype(type)>(bOn)); });
}

void readReal(const Json &value, BU_CHAR *pcTo)
{
    const auto real = value.real();
    if (!real || std::abs(*real) > std::numeric_limits<float>::max()) value.refuse("must be a number");
    put(pcTo, static_cast<float>(*real));
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
    case Kind::VARIANT: // needs its sibling: readVariant
    case Kind::NAME:
    case Kind::LIST:
        return value.refuse("cannot be set");
    }
}

void readField(const Field &stField, const Json &value, BU_CHAR *pcTo)
{
    if (stField.u32Count == 1) return readElement(stField, value, pcTo);
    if (!value.is(Json::Kind::LIST) || value.items().size() > stField.u32Count)
        value.refuse("must be an array of at most " + std::to_string(stField.u32Count) + " elements");
    for (const Json &item : value.items()) {
        readElement(stField, item, pcTo);
        pcTo += stField.u32Size;
    }
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
    if (!value.is(Json::Kind::OBJECT) || value.members().size() > 1) value.refuse("must be an object with one member");
    for (const auto &[strMember, content] : value.members()) {
        const BU_S64 s64Selector = selected(stRecord, *stField.pstVariant, pcRecord);
        const Field *pstMember = alternative(*stField.pstVariant, s64Selector, strMember);
        if (!pstMember)
            content.refuse(std::string("cannot be held while ") + stField.pstVariant->pcSelector + " is " +
                           std::to_string(s64Selector));
        readField(*pstMember, content, pcRecord + stField.u32Offset + pstMember->u32Offset);
    }
}

void readObject(const Record &stRecord, const Json &object, BU_CHAR *pcRecord)
{
    for (const bool bVariants : {false, true}) // a union needs to know its selecting field
        for (const auto &[strName, value] : object.members()) {
            const Field *pstField = find(stRecord.fields, strName);
            if (!pstField) value.refuse("is no field");
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

Ordered writeList(const Field &stField, const BU_CHAR *pcFrom)
{
    Ordered list = Ordered::array();
    const std::string_view elements = stField.pfnElements(pcFrom);
    for (std::size_t at = 0; at < elements.size(); at += stField.u32Size)
        list.push_back(writeObject(*stField.pstRecord, elements.data() + at));
    return list;
}

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
    case Kind::NAME:
        return get<const BU_CHAR *>(pcFrom) ? get<const BU_CHAR *>(pcFrom) : "";
    case Kind::LIST:
        return writeList(stField, pcFrom);
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
        if (!*stField.pcName) return writeList(stField, pcFrom);
        if (stField.enKind == Kind::LIST && stField.pfnElements(pcFrom).empty()) continue;
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
    readObject(stRecord, Json::parse(strJson, DEPTH_MAX), pcRecord);
    return {};
} catch (const util::JsonFault &fault) {
    return (fault.strPath.empty() ? "this" : fault.strPath) + " " + fault.strReason;
}

std::string writeRecord(const Record &stRecord, const BU_CHAR *pcRecord)
{
    return writeObject(stRecord, pcRecord).dump(-1, ' ', false, Ordered::error_handler_t::replace);
}

std::string quoted(std::string_view strText)
{
    return Ordered(strText).dump(-1, ' ', false, Ordered::error_handler_t::replace);
}
} // namespace web_client
