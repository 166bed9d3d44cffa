// Output format: HDMI, SDI, screen saver.
#include "camera/video.h"
#include "camera/startup.h"
#include "settings/settings.h"
#include "store/store.h"
#include "util/journal.h"
#include "vocabulary/words.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>

namespace
{
using settings::Row;

/// An output rate: the whole frames/s nearest to it, and its text behind the format ("1080P59.94").
struct Rate {
    BU_S32 s32Rate;
    std::string_view strText;
};
constexpr Rate RATES[] = {{60, "60"},    {60, "59.94"}, {50, "50"}, {30, "30"},
                          {30, "29.97"}, {25, "25"},    {24, "24"}, {24, "23.98"}};
static_assert(std::size(RATES) == HDMI_FPS_E_BUTT);
constexpr std::string_view FORMAT_TEXTS[] = {"4K", "1080P", "1080I", "720P"};
static_assert(std::size(FORMAT_TEXTS) == HDMI_FORMAT_E_BUTT);

struct OutputRows {
    Row enFormat, enFps, enCs;
};
constexpr OutputRows HDMI{settings::SYSTEM_API_HdmiFormat, settings::SYSTEM_API_HdmiFps, settings::SYSTEM_API_HdmiCs};
constexpr OutputRows SDI{settings::SYSTEM_API_SdiFormat, settings::SYSTEM_API_SdiFps, settings::SYSTEM_API_SdiCs};

BU_S32 setOutput(const OutputRows &stRows, BU_S32 enFormat, BU_S32 enFps, BU_S32 enCs, BU_BOOL bSaveCfg)
{
    const settings::Change astChanges[] = {{stRows.enFormat, enFormat}, {stRows.enFps, enFps}, {stRows.enCs, enCs}};
    return settings::setTogether(astChanges, bSaveCfg, BU_TRUE);
}
} // namespace

BU_S32 SYSTEM_API_SetHdmiFormat(const BU_CHAR *pcWord, BU_BOOL bSaveCfg)
{
    if (const auto injected = journal::call(__func__, pcWord, bSaveCfg)) return *injected;
    return settings::set(HDMI.enFormat, 0, vocabulary::valueOf<MAP_HDMI_FORMAT>(pcWord), bSaveCfg, BU_TRUE);
}

BU_S32 SYSTEM_API_SetHdmiFps(const BU_CHAR *pcWord, BU_BOOL bSaveCfg)
{
    if (const auto injected = journal::call(__func__, pcWord, bSaveCfg)) return *injected;
    return settings::set(HDMI.enFps, 0, vocabulary::valueOf<MAP_HDMI_FPS>(pcWord), bSaveCfg, BU_TRUE);
}

BU_S32 SYSTEM_API_SetHdmiCfg(const BU_CHAR *pcFormat, const BU_CHAR *pcFps, BU_S32 enCs, BU_BOOL bSaveCfg)
{
    if (const auto injected = journal::call(__func__, pcFormat, pcFps, enCs, bSaveCfg)) return *injected;
    return setOutput(HDMI, vocabulary::valueOf<MAP_HDMI_FORMAT>(pcFormat), vocabulary::valueOf<MAP_HDMI_FPS>(pcFps),
                     enCs, bSaveCfg);
}

BU_S32 SYSTEM_API_SetSdiCfg(const BU_CHAR *pcFormat, const BU_CHAR *pcFps, BU_S32 enCs, BU_BOOL bSaveCfg)
{
    if (const auto injected = journal::call(__func__, pcFormat, pcFps, enCs, bSaveCfg)) return *injected;
    return setOutput(SDI, vocabulary::valueOf<MAP_HDMI_FORMAT>(pcFormat), vocabulary::valueOf<MAP_HDMI_FPS>(pcFps),
                     enCs, bSaveCfg);
}

BU_S32 SYSTEM_API_SetVideoFormat(const BU_CHAR *pcWord, BU_BOOL bSaveCfg)
{
    if (const auto injected = journal::call(__func__, pcWord, bSaveCfg)) return *injected;
    std::string_view strWord = pcWord ? pcWord : "";
    const auto *pFormat = std::ranges::find_if(FORMAT_TEXTS, [&](auto str) { return strWord.starts_with(str); });
    if (pFormat == std::end(FORMAT_TEXTS)) return -1;
    strWord.remove_prefix(pFormat->size());
    const auto *pstRate = std::ranges::find(RATES, strWord, &Rate::strText);
    return setOutput(HDMI, static_cast<BU_S32>(pFormat - FORMAT_TEXTS), static_cast<BU_S32>(pstRate - RATES),
                     settings::value(HDMI.enCs), bSaveCfg);
}

BU_S32 SYSTEM_API_ConvertHdmiFps(HDMI_FPS_E enFps, BU_S32 &s32Rate)
{
    if (const auto injected = journal::ask(__func__, enFps)) return *injected;
    if (enFps < 0 || enFps >= HDMI_FPS_E_BUTT) return -1;
    s32Rate = RATES[enFps].s32Rate;
    return 0;
}

BU_S32 SYSTEM_API_GetImgFreeze()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    BU_S32 s32Frozen = BU_FALSE;
    settings::get(settings::SYS_API_ImageFreeze, 0, &s32Frozen, BU_TRUE);
    settings::set(settings::SYS_API_ImageFreeze, 0, s32Frozen, BU_FALSE, BU_TRUE);
    return s32Frozen;
}

BU_S32 SYSTEM_API_SetScreenSaverMode(BU_S32 s32Mode, BU_BOOL bSaveCfg, BU_U32 u32Color, const BU_CHAR *pcImage,
                                     BU_BOOL bUpdate)
{
    if (const auto injected = journal::call(__func__, s32Mode, bSaveCfg, u32Color, pcImage, bUpdate)) return *injected;
    const BU_S32 s32Ret = settings::set(settings::SYSTEM_API_ScreenSaverMode, 0, s32Mode, bSaveCfg, bUpdate);
    if (s32Ret != 0 || !bSaveCfg) return s32Ret;
    return CFG_STORE_SetTexts(
        {{"Video/ScreenSaverColor", std::to_string(u32Color)}, {"Video/ScreenSaverImage", pcImage ? pcImage : ""}});
}

BU_S32 SYSTEM_CUSTOM_API_SetStreamToNet(BU_S32 s32On, BU_BOOL bSaveCfg)
{
    if (const auto injected = journal::call(__func__, s32On, bSaveCfg)) return *injected;
    return settings::set(settings::SYSTEM_CUSTOM_API_StreamToNet, 0, s32On, bSaveCfg, BU_TRUE);
}
