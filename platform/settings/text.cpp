// Settings by key as texts: the words of the vocabulary, numbers for the rest, and the few settings that are free
// texts.
#include "board/device.h"
#include "camera/settingEvent.h"
#include "config/config.h"
#include "settings/settings.h"
#include "store/store.h"
#include "util/journal.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <string>

namespace
{
std::string textOf(settings::Row enRow, BU_S32 s32Value)
{
    const auto words = settings::row(enRow).words;
    const BU_CHAR *pcWord = sysEnum2Str(words.data(), static_cast<BU_S32>(words.size()), s32Value);
    return *pcWord ? pcWord : std::to_string(s32Value);
}

/// @return false: neither a word nor a number
bool valueOf(settings::Row enRow, const BU_CHAR *pcText, BU_S32 *ps32Value)
{
    const auto words = settings::row(enRow).words;
    *ps32Value = sysStr2Enum(words.data(), static_cast<BU_S32>(words.size()), pcText);
    if (*ps32Value != INT32_MIN) return true;
    const BU_CHAR *pcEnd = pcText + std::strlen(pcText);
    const auto result = std::from_chars(pcText, pcEnd, *ps32Value);
    return result.ec == std::errc{} && result.ptr == pcEnd && result.ptr != pcText;
}

std::string deviceName()
{
    BU_CHAR acName[128]{};
    BSP_DEVATTR_GetDeviceName(acName);
    return acName;
}
std::string off() { return "Off"; }

/// Texts that are no numbers in disguise.
struct FreeText {
    const BU_CHAR *pcSection, *pcKey;
    std::string (*pfnDefault)();

    std::string path() const { return std::string(pcSection) + "/" + pcKey; }
};
constexpr FreeText FREE_TEXTS[] = {{"System", "DeviceName", deviceName}, {"Network", "Ndi", off}};

const FreeText *freeText(const BU_CHAR *pcSection, const BU_CHAR *pcKey)
{
    for (const FreeText &stText : FREE_TEXTS)
        if (!std::strcmp(stText.pcKey, pcKey) && (!pcSection || !std::strcmp(stText.pcSection, pcSection)))
            return &stText;
    return nullptr;
}

/// The setting of a section and key; the section tells the pipeline. @return false: no such setting
bool findRow(const BU_CHAR *pcSection, const BU_CHAR *pcKey, settings::Row *penRow, BU_S32 *ps32Instance)
{
    *penRow = settings::find(pcKey);
    *ps32Instance = 0;
    if (*penRow == settings::ROW_COUNT) return false;
    if (!pcSection) return true;
    const settings::SettingRow &stRow = settings::row(*penRow);
    for (; *ps32Instance < stRow.instances(); ++*ps32Instance)
        if (!std::strcmp(settings::sectionName(stRow.enSection, *ps32Instance), pcSection)) return true;
    return false;
}

template <std::size_t N> void copy(BU_CHAR (&acTo)[N], const std::string &strFrom)
{
    std::snprintf(acTo, N, "%s", strFrom.c_str());
}

BU_S32 getText(const BU_CHAR *pcSection, const BU_CHAR *pcKey, CFG_VALUE_TXT_S *pstValue)
{
    if (const FreeText *pstText = freeText(pcSection, pcKey)) {
        std::string strValue = pstText->pfnDefault();
        copy(pstValue->acDef, strValue);
        CFG_STORE_GetText(pstText->path().c_str(), &strValue);
        copy(pstValue->acCur, strValue);
        return 0;
    }
    settings::Row enRow;
    BU_S32 s32Instance, s32Value = 0;
    if (!findRow(pcSection, pcKey, &enRow, &s32Instance)) return -1;
    settings::get(enRow, s32Instance, &s32Value, BU_TRUE);
    copy(pstValue->acDef, textOf(enRow, settings::row(enRow).s32Def));
    copy(pstValue->acCur, textOf(enRow, s32Value));
    return 0;
}

BU_S32 setText(const BU_CHAR *pcSection, const BU_CHAR *pcKey, const BU_CHAR *pcValue, BU_BOOL bSaveCfg)
{
    if (const FreeText *pstText = freeText(pcSection, pcKey)) {
        if (std::strlen(pcValue) >= sizeof(CFG_VALUE_TXT_S::acCur)) return -1;
        return bSaveCfg ? CFG_STORE_SetText(pstText->path().c_str(), pcValue) : 0;
    }
    settings::Row enRow;
    BU_S32 s32Instance, s32Value;
    if (!findRow(pcSection, pcKey, &enRow, &s32Instance) || !valueOf(enRow, pcValue, &s32Value)) return -1;
    return settings::set(enRow, s32Instance, s32Value, bSaveCfg, BU_TRUE);
}
} // namespace

std::span<const STR2ENUM_MAP_S> CFG_SETTING_Words(const BU_CHAR *pcKey)
{
    const settings::Row enRow = settings::find(pcKey);
    return enRow == settings::ROW_COUNT ? settings::NUMBERS : settings::row(enRow).words;
}

BU_S32 CFG_COM_GetTxtParams(const BU_CHAR *pcKey, CFG_VALUE_TXT_S *pstValue)
{
    if (!pcKey || !pstValue) return -1;
    if (const auto injected = journal::ask(__func__, pcKey)) return *injected;
    return getText(nullptr, pcKey, pstValue);
}

BU_S32 CFG_COM_SetTxtParams(const BU_CHAR *pcKey, const BU_CHAR *pcValue, BU_BOOL bSaveCfg)
{
    if (const auto injected = journal::call(__func__, pcKey, pcValue, bSaveCfg)) return *injected;
    return pcKey && pcValue ? setText(nullptr, pcKey, pcValue, bSaveCfg) : -1;
}

BU_S32 CFG_COM_GetTxtParam(const BU_CHAR *pcSection, const BU_CHAR *pcKey, BU_CHAR *pcBuffer)
{
    if (!pcSection || !pcKey || !pcBuffer) return -1;
    if (const auto injected = journal::ask(__func__, pcSection, pcKey)) return *injected;
    CFG_VALUE_TXT_S stValue{};
    if (getText(pcSection, pcKey, &stValue) != 0) return -1;
    std::memcpy(pcBuffer, stValue.acCur, sizeof(stValue.acCur));
    return 0;
}

BU_S32 CFG_COM_SetTxtParam(const BU_CHAR *pcSection, const BU_CHAR *pcKey, const BU_CHAR *pcValue, BU_BOOL bSaveCfg)
{
    if (const auto injected = journal::call(__func__, pcSection, pcKey, pcValue, bSaveCfg)) return *injected;
    return pcSection && pcKey && pcValue ? setText(pcSection, pcKey, pcValue, bSaveCfg) : -1;
}
