/// One way to store a record: its section and its fields with their limits; load, save, journal text and factory
/// restore follow.
///
///     constexpr store::Field<Card> FIELDS[] = {store::number<&Card::bEnable>("Enable"), ...};
///     const store::Record<Card> CARD{"Network/*/", FIELDS, SYSTEM_RESTORE_E_NETWORK};
///     Card st = CARD.load("NetCard0");
///
/// The keys are those of a camera's stored settings: once released they stay as they are. All calls: any thread.
#pragma once

#include "store/restore.h"
#include "store/store.h"

#include <algorithm>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace store
{
/// Why something is refused, for the log; none: it is not.
using Fault = std::optional<std::string>;

/// What a stored value must obey.
struct Limits {
    const BU_CHAR *pcKey;
    bool bText;
    BU_S32 s32Min, s32Max;                         ///< of a number, of a text's length [bytes]
    bool (*pfnIsGood)(std::string_view) = nullptr; ///< of a text; null: any without control characters
    bool bSecret = false;                          ///< kept out of the journal
};
/// @param strValue  the number's or the text itself
Fault faultOf(const Limits &stLimits, const std::string &strValue);
Fault faultOfText(const std::string &strValue, BU_S32 s32MinLength, BU_S32 s32MaxLength);
std::optional<BU_S32> numberOf(const std::string &strValue);

/// Logs a refusal. @return -1
BU_S32 refuse(const std::string &strWhat, const Fault &fault);
/// Logs that something stored is not used.
void passOver(const std::string &strWhat, const Fault &fault);

/// The text of a field that may lack its terminator.
std::string textOf(std::span<const BU_CHAR> field);
/// Fills a text field; what does not fit is cut, the rest of the field is zero.
void copyText(std::span<BU_CHAR> field, std::string_view text);

template <class T> struct Field : Limits {
    std::string (*pfnGet)(const T &);
    void (*pfnSet)(T &, const std::string &); ///< of a value without fault

    constexpr Field secret() const
    {
        Field st = *this;
        st.bSecret = true;
        return st;
    }
};

template <class T, class M> T ownerOf(M T::*);

/// What a path of member pointers and array indices leads to.
template <auto FIRST, auto... REST> constexpr auto &at(auto &place)
{
    auto &next = [](auto &from) -> auto &
    {
        if constexpr (std::is_member_pointer_v<decltype(FIRST)>)
            return from.*FIRST;
        else
            return from[FIRST];
    }
    (place);
    if constexpr (sizeof...(REST) == 0)
        return next;
    else
        return at<REST...>(next);
}

/// A number or an enumerator; a switch unless its limits are told. The path leads to it: member after member.
template <auto FIRST, auto... REST>
constexpr auto number(const BU_CHAR *pcKey, BU_S32 s32Min = BU_FALSE, BU_S32 s32Max = BU_TRUE)
{
    using T = decltype(ownerOf(FIRST));
    return Field<T>{{pcKey, false, s32Min, s32Max},
                    [](const T &st) { return std::to_string(static_cast<BU_S64>(at<FIRST, REST...>(st))); },
                    [](T &st, const std::string &strValue) {
                        auto &value = at<FIRST, REST...>(st);
                        value = static_cast<std::remove_reference_t<decltype(value)>>(numberOf(strValue).value_or(0));
                    }};
}

/// A text: a std::string, or an array, which is one longer than the longest text. @param s32Max  bytes
template <auto FIRST, auto... REST>
constexpr auto text(const BU_CHAR *pcKey, BU_S32 s32Max, bool (*pfnIsGood)(std::string_view) = nullptr)
{
    using T = decltype(ownerOf(FIRST));
    return Field<T>{{pcKey, true, 0, s32Max, pfnIsGood},
                    [](const T &st) -> std::string {
                        const auto &value = at<FIRST, REST...>(st);
                        if constexpr (std::is_array_v<std::remove_cvref_t<decltype(value)>>)
                            return textOf(value);
                        else
                            return value;
                    },
                    [](T &st, const std::string &strValue) {
                        auto &value = at<FIRST, REST...>(st);
                        if constexpr (std::is_array_v<std::remove_cvref_t<decltype(value)>>)
                            copyText(value, strValue);
                        else
                            value = strValue;
                    }};
}

using Values = std::vector<std::pair<std::string, std::string>>;

/// A kind of record. Static objects only: each registers its part of the factory restore.
template <class T> class Record
{
public:
    using Rule = Fault (*)(const T &);

    /// @param pcSection      where it is stored: "Http/"; a '*' stands for the instance: "LiveMedia/*/rtsp/"
    /// @param s32RestoreBits SYSTEM_RESTORE_E bits that take back all sections of this beginning, up to the '*'
    /// @param pfnReload      called after that, null: nothing runs on a copy of the record
    /// @param pfnRule        what a whole record must obey beyond the limits of its fields
    template <std::size_t N>
    Record(const BU_CHAR *pcSection, const Field<T> (&aFields)[N], BU_S32 s32RestoreBits, Reload pfnReload = nullptr,
           Rule pfnRule = nullptr)
        : m_pcSection(pcSection), m_fields(aFields), m_pfnRule(pfnRule)
    {
        onRestore(s32RestoreBits, std::string(pcSection).substr(0, std::string_view(pcSection).find('*')), pfnReload);
    }

    /// The factory's record overlaid with the stored values. A value outside its limits is passed over, with a line in
    /// the log; all of them, when the whole breaks the rule.
    T load(const std::string &strInstance = "", const T &stFactory = {}) const
    {
        T stRecord = stFactory;
        for (const auto &stField : m_fields) {
            const std::string strKey = section(strInstance) + stField.pcKey;
            std::string strValue;
            if (CFG_STORE_GetText(strKey.c_str(), &strValue) != 0) continue;
            if (const Fault fault = store::faultOf(stField, strValue))
                passOver(strKey, fault);
            else
                stField.pfnSet(stRecord, strValue);
        }
        const Fault fault = m_pfnRule ? m_pfnRule(stRecord) : std::nullopt;
        if (!fault) return stRecord;
        passOver(section(strInstance), fault);
        return stFactory;
    }

    /// Logs what is wrong with a record. @return 0 nothing, or -1
    BU_S32 check(const T &stRecord, const std::string &strInstance = "") const
    {
        for (const auto &stField : m_fields)
            if (const Fault fault = store::faultOf(stField, stField.pfnGet(stRecord)))
                return refuse(section(strInstance) + stField.pcKey, fault);
        const Fault fault = m_pfnRule ? m_pfnRule(stRecord) : std::nullopt;
        return fault ? refuse(section(strInstance), fault) : 0;
    }

    /// Stores the whole record in one step. @return 0, or -1: refused or not written, both logged
    BU_S32 save(const T &stRecord, const std::string &strInstance = "") const
    {
        Values listValues;
        for (const auto &stField : m_fields)
            listValues.emplace_back(section(strInstance) + stField.pcKey, stField.pfnGet(stRecord));
        return check(stRecord, strInstance) == 0 ? CFG_STORE_SetTexts(listValues) : -1;
    }

    /// Stores some fields in one step, {key, value} each, within their limits. @return as save; -1 also for no such key
    BU_S32 put(const Values &listValues, const std::string &strInstance = "") const
    {
        Values listStored;
        for (const auto &[strKey, strValue] : listValues) {
            const auto field = std::ranges::find(m_fields, strKey, &Limits::pcKey);
            const Fault fault =
                field == m_fields.end() ? Fault("there is no such field") : store::faultOf(*field, strValue);
            listStored.emplace_back(section(strInstance).append(strKey), strValue);
            if (fault) return refuse(listStored.back().first, fault);
        }
        return CFG_STORE_SetTexts(listStored);
    }

    /// "{1, "closeup", 2}", secrets as "***".
    std::string journalText(const T &stRecord) const
    {
        std::string strText = "{";
        for (const auto &stField : m_fields) {
            const std::string strValue = stField.bSecret ? "***" : stField.pfnGet(stRecord);
            strText += strText.size() > 1 ? ", " : "";
            strText += stField.bText ? '"' + strValue + '"' : strValue;
        }
        return strText + "}";
    }

private:
    std::string section(const std::string &strInstance) const
    {
        std::string strSection = m_pcSection;
        if (const auto star = strSection.find('*'); star != strSection.npos) strSection.replace(star, 1, strInstance);
        return strSection;
    }

    const BU_CHAR *m_pcSection;
    std::span<const Field<T>> m_fields;
    Rule m_pfnRule;
};
} // namespace store
