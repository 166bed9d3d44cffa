// What a stored value must obey.
#include "store/record.h"

#include "util/log.h"

#include <charconv>

namespace store
{
std::optional<BU_S32> numberOf(const std::string &strValue)
{
    BU_S32 s32Value = 0;
    const BU_CHAR *pcEnd = strValue.data() + strValue.size();
    const auto result = std::from_chars(strValue.data(), pcEnd, s32Value);
    if (result.ec != std::errc{} || result.ptr != pcEnd) return std::nullopt;
    return s32Value;
}

Fault faultOfText(const std::string &strValue, BU_S32 s32MinLength, BU_S32 s32MaxLength)
{
    const auto length = static_cast<BU_S64>(strValue.size());
    const auto isControl = [](BU_CHAR c) { return static_cast<BU_U8>(c) < 0x20 || c == 0x7F; };
    if (length < s32MinLength) return "shorter than " + std::to_string(s32MinLength) + " characters";
    if (length > s32MaxLength) return "longer than " + std::to_string(s32MaxLength) + " characters";
    if (std::ranges::any_of(strValue, isControl)) return "holds control characters";
    return std::nullopt;
}

Fault faultOf(const Limits &stLimits, const std::string &strValue)
{
    if (stLimits.bText) {
        const Fault fault = faultOfText(strValue, stLimits.s32Min, stLimits.s32Max);
        if (fault || !stLimits.pfnIsGood || stLimits.pfnIsGood(strValue)) return fault;
        return '"' + strValue + "\" cannot be one";
    }
    const auto value = numberOf(strValue);
    if (!value) return "not a number";
    if (*value >= stLimits.s32Min && *value <= stLimits.s32Max) return std::nullopt;
    return strValue + " is outside " + std::to_string(stLimits.s32Min) + ".." + std::to_string(stLimits.s32Max);
}

BU_S32 refuse(const std::string &strWhat, const Fault &fault)
{
    LOG_ERROR("setting %s refused: %s\n", strWhat.c_str(), fault.value_or("").c_str());
    return -1;
}

void passOver(const std::string &strWhat, const Fault &fault)
{
    LOG_WARN("stored setting %s passed over: %s\n", strWhat.c_str(), fault.value_or("").c_str());
}

std::string textOf(std::span<const BU_CHAR> field) { return {field.begin(), std::find(field.begin(), field.end(), 0)}; }

void copyText(std::span<BU_CHAR> field, std::string_view text)
{
    std::ranges::fill(field, 0);
    std::copy_n(text.begin(), std::min(text.size(), field.size() - 1), field.begin());
}
} // namespace store
