// Picture presets: built-in styles and stored ones, both sets of values of the settings.
#include "camera/preset.h"
#include "camera/settingEvent.h"
#include "config/config.h"
#include "store/restore.h"
#include "store/store.h"
#include "util/journal.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string>
#include <string_view>

namespace
{
constexpr BU_S32 IMAGE_PRESET_MAX = 254;
constexpr BU_S32 CLOSE_UP = 0;
constexpr BU_S32 FULL_SCALE = 100;

/// What the built-in styles are made of, in the order of a style's values.
constexpr std::array STYLE_KEYS = {"Sharpness", "Brightness", "Contrast", "Saturation", "Hue", "Gamma", "Nr2d", "Nr3d"};

/// A style: how far each setting stands from its default, in percent of the way to the end of its range.
struct Style {
    BU_S32 s32Id;
    std::array<BU_S32, STYLE_KEYS.size()> as32Percent;
};
constexpr Style STYLES[] = {
    {-250, {}},                            // neutral: the defaults
    {-1, {15, 0, 15, 10, 0, 25, 0, 0}},    // natural: a little crisper
    {-2, {-35, 0, -30, -20, 0, 50, 0, 0}}, // film: soft and flat, for grading
    {-3, {30, 5, 30, 30, 5, 0, 20, 15}},   // vivid
};

BU_S32 applyStyle(const Style &stStyle)
{
    BU_S32 s32Ret = 0;
    for (std::size_t i = 0; i < STYLE_KEYS.size(); ++i) {
        CFG_VALUE_INT_S stRange{};
        if (CFG_COM_GetIntParams(STYLE_KEYS[i], &stRange) != 0) continue;
        const BU_S32 s32Percent = stStyle.as32Percent[i];
        const BU_S32 s32Way = s32Percent < 0 ? stRange.s32Def - stRange.s32Min : stRange.s32Max - stRange.s32Def;
        const BU_S32 s32Value = stRange.s32Def + s32Way * s32Percent / FULL_SCALE;
        if (CFG_SETTING_Set(STYLE_KEYS[i], CLOSE_UP, s32Value, BU_TRUE, BU_TRUE) != 0) s32Ret = -1;
    }
    return s32Ret;
}

/// The store keeps a picture preset under "ImagePreset5/": its name, and each setting by its key.
std::string folder(BU_S32 s32Preset) { return "ImagePreset" + std::to_string(s32Preset) + "/"; }
constexpr const BU_CHAR *NAME_KEY = "Name";
[[maybe_unused]] const bool REGISTERED = (store::onRestore(SYSTEM_RESTORE_E_PRESET, "ImagePreset", nullptr), true);

bool isStored(BU_S32 s32Preset)
{
    std::string strName;
    return s32Preset >= 0 && s32Preset <= IMAGE_PRESET_MAX &&
           CFG_STORE_GetText((folder(s32Preset) + NAME_KEY).c_str(), &strName) == 0;
}

std::vector<const BU_CHAR *> pictureKeys()
{
    std::vector<const BU_CHAR *> listKeys;
    for (const CFG_SETTING_INFO_S &st : CFG_SETTING_List())
        for (const std::string_view section : {"Image0", "Exposure0", "WhiteBalance0"})
            if (section == st.pcSection) listKeys.push_back(st.pcKey);
    return listKeys;
}

BU_S32 applyStored(BU_S32 s32Preset)
{
    BU_S32 s32Ret = 0;
    for (const BU_CHAR *pcKey : pictureKeys()) {
        BU_S32 s32Value = 0;
        if (CFG_STORE_GetInt((folder(s32Preset) + pcKey).c_str(), &s32Value) != 0) continue;
        if (CFG_SETTING_Set(pcKey, CLOSE_UP, s32Value, BU_TRUE, BU_TRUE) != 0) s32Ret = -1;
    }
    return s32Ret;
}
} // namespace

BU_S32 IMAGE_PRESET_API_GotoById(BU_S32 s32Preset, PT_CTRL_FROM_E enFrom, void *pvPrivate)
{
    if (const auto injected = journal::call(__func__, s32Preset, enFrom, pvPrivate)) return *injected;
    const auto *pstStyle = std::ranges::find(STYLES, s32Preset, &Style::s32Id);
    if (pstStyle != std::end(STYLES)) return applyStyle(*pstStyle);
    return isStored(s32Preset) ? applyStored(s32Preset) : -1;
}

BU_S32 IMAGE_PRESET_API_DeleteById(BU_S32 s32Preset)
{
    if (const auto injected = journal::call(__func__, s32Preset)) return *injected;
    return isStored(s32Preset) ? CFG_STORE_Erase(folder(s32Preset).c_str()) : -1;
}

BU_S32 IMAGEPRESET_API_SetCur(BU_S32 s32Preset, const BU_CHAR *pcName)
{
    if (const auto injected = journal::call(__func__, s32Preset, pcName)) return *injected;
    if (s32Preset < 0 || s32Preset > IMAGE_PRESET_MAX) return -1;
    const std::string strFolder = folder(s32Preset);
    std::vector<std::pair<std::string, std::string>> listValues;
    listValues.emplace_back(strFolder + NAME_KEY, pcName && *pcName ? pcName : "Image" + std::to_string(s32Preset));
    for (const BU_CHAR *pcKey : pictureKeys()) {
        BU_S32 s32Value = 0;
        if (CFG_SETTING_Get(pcKey, CLOSE_UP, &s32Value, BU_FALSE) == 0)
            listValues.emplace_back(strFolder + pcKey, std::to_string(s32Value));
    }
    return CFG_STORE_SetTexts(listValues);
}
