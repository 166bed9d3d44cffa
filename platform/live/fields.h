/// A record of settings as a table of fields: its stored form, its limits and its text in the journal follow from it.
#pragma once

#include "config/liveMedia.h"
#include "store/store.h"
#include "util/log.h"

#include <charconv>
#include <optional>
#include <span>
#include <variant>

namespace live_media_store
{
template <class Record> struct tagFIELD_S {
    const BU_CHAR *pcKey;
    std::variant<BU_S32 Record::*, std::string Record::*, CFG_LM_AUDIO_MODE_E Record::*> member;
    BU_S32 s32Min = 0, s32Max = BU_TRUE; ///< of a number its limits, of a text the limits of its length
    bool bSecret = false;                ///< kept out of the journal
};
template <class Record> using Fields = std::span<const tagFIELD_S<Record>>;

/// Why something is refused, for the log.
using Fault = std::optional<std::string>;

template <class Record> bool isText(const tagFIELD_S<Record> &stField)
{
    return std::holds_alternative<std::string Record::*>(stField.member);
}

template <class Record> std::string valueOf(const Record &stRecord, const tagFIELD_S<Record> &stField)
{
    return std::visit(
        [&](auto member) -> std::string {
            if constexpr (std::is_same_v<decltype(member), std::string Record::*>)
                return stRecord.*member;
            else
                return std::to_string(static_cast<BU_S32>(stRecord.*member));
        },
        stField.member);
}

inline std::optional<BU_S32> numberOf(const std::string &strValue)
{
    BU_S32 s32Value = 0;
    const BU_CHAR *pcEnd = strValue.data() + strValue.size();
    const auto result = std::from_chars(strValue.data(), pcEnd, s32Value);
    if (result.ec != std::errc{} || result.ptr != pcEnd) return std::nullopt;
    return s32Value;
}

/// The value has passed faultOf. Not inlined: the compiler else warns of texts in a record that has none.
template <class Record>
[[gnu::noinline]] void assign(Record &stRecord, const tagFIELD_S<Record> &stField, const std::string &strValue)
{
    std::visit(
        [&](auto member) {
            if constexpr (std::is_same_v<decltype(member), std::string Record::*>)
                stRecord.*member = strValue;
            else
                stRecord.*member =
                    static_cast<std::remove_reference_t<decltype(stRecord.*member)>>(numberOf(strValue).value_or(0));
        },
        stField.member);
}

/// Logs a refusal. @return -1
inline BU_S32 refuse(const std::string &strWhat, const Fault &fault)
{
    LOG_ERROR("setting %s refused: %s\n", strWhat.c_str(), fault->c_str());
    return -1;
}

Fault faultOfText(const std::string &strValue, BU_S32 s32MinLength, BU_S32 s32MaxLength);
Fault faultOfNumber(const std::string &strValue, BU_S32 s32Min, BU_S32 s32Max);

template <class Record> Fault faultOf(const tagFIELD_S<Record> &stField, const std::string &strValue)
{
    return (isText(stField) ? faultOfText : faultOfNumber)(strValue, stField.s32Min, stField.s32Max);
}

/// What a whole record must obey beyond the limits of its fields.
template <class Record> using Rule = Fault (*)(const Record &);

/// The factory's record overlaid with the stored values; what breaks its rule is passed over.
template <class Record>
Record load(const std::string &strFolder, Fields<Record> fields, const Record &stFactory, Rule<Record> rule = nullptr)
{
    Record stRecord = stFactory;
    for (const auto &stField : fields) {
        const std::string strKey = strFolder + stField.pcKey;
        std::string strValue;
        if (CFG_STORE_GetText(strKey.c_str(), &strValue) != 0) continue;
        if (const Fault fault = faultOf(stField, strValue))
            LOG_WARN("stored setting %s passed over: %s\n", strKey.c_str(), fault->c_str());
        else
            assign(stRecord, stField, strValue);
    }
    const Fault fault = rule ? rule(stRecord) : std::nullopt;
    if (!fault) return stRecord;
    LOG_WARN("stored settings %s passed over: %s\n", strFolder.c_str(), fault->c_str());
    return stFactory;
}

/// Stores the whole record in one step, unless something breaks its rule. @return 0 or -1
template <class Record>
BU_S32 save(const std::string &strFolder, Fields<Record> fields, const Record &stRecord, Rule<Record> rule = nullptr)
{
    std::vector<std::pair<std::string, std::string>> listValues;
    for (const auto &stField : fields) {
        const std::string strKey = strFolder + stField.pcKey;
        std::string strValue = valueOf(stRecord, stField);
        if (const Fault fault = faultOf(stField, strValue)) return refuse(strKey, fault);
        listValues.emplace_back(strKey, std::move(strValue));
    }
    if (const Fault fault = rule ? rule(stRecord) : std::nullopt) return refuse(strFolder, fault);
    return CFG_STORE_SetTexts(listValues);
}

/// "{1, "closeup", 2}", secrets as "***".
template <class Record> std::string journalFields(Fields<Record> fields, const Record &stRecord)
{
    std::string strText = "{";
    for (const auto &stField : fields) {
        const std::string strValue = stField.bSecret ? "***" : valueOf(stRecord, stField);
        strText += strText.size() > 1 ? ", " : "";
        strText += isText(stField) ? '"' + strValue + '"' : strValue;
    }
    return strText + "}";
}
} // namespace live_media_store
