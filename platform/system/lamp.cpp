// The lamp's settings, and the small displays.
#include "board/lamp.h"

#include "board/device.h"
#include "camera/network.h"
#include "lampManager.h"
#include "settings/settings.h"
#include "util/file.h"
#include "util/journal.h"
#include "vocabulary/words.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>

namespace
{
using settings::Row;

constexpr std::string_view LAMP = "TallyLed";
constexpr BU_U32 ALL_ON = 0xFF000000;
constexpr std::size_t OLED_CHARACTERS = 32;

bool isLamp(const BU_CHAR *pcName) { return pcName && pcName == LAMP; }

BU_S32 getOf(const BU_CHAR *pcFunction, const BU_CHAR *pcName, Row enRow, BU_S32 *ps32Value, BU_BOOL bReread)
{
    if (const auto injected = journal::ask(pcFunction, pcName)) return *injected;
    return isLamp(pcName) ? settings::get(enRow, 0, ps32Value, bReread) : -1;
}

/// What a lamp setting changes is seen at once; bUpdate lets the manager ask for what follows from it.
template <class T>
BU_S32 setOf(const BU_CHAR *pcFunction, const BU_CHAR *pcName, Row enRow, T value, BU_BOOL bSaveCfg, BU_BOOL bUpdate,
             LED_EVENT_FROM_E enFrom)
{
    if (const auto injected = journal::call(pcFunction, pcName, value, bSaveCfg, bUpdate)) return *injected;
    if (!isLamp(pcName)) return -1;
    const BU_S32 s32Ret = settings::set(enRow, 0, static_cast<BU_S32>(value), bSaveCfg, bUpdate);
    lamp::refresh();
    if (bUpdate) lamp::triggerUpdate(enFrom);
    return s32Ret;
}

/// Colours of the tally modes that have one.
struct ModeColor {
    tagLED_TALLY_MODE_E enMode;
    BU_U32 u32Color;
};
constexpr ModeColor COLORS[] = {
    {LED_TALLY_MODE_E_COLOR_W, ALL_ON},
    {LED_TALLY_MODE_E_COLOR_R, 0xFF0000},
    {LED_TALLY_MODE_E_COLOR_G, 0x00FF00},
    {LED_TALLY_MODE_E_COLOR_B, 0x0000FF},
};

BU_S32 drawPaper()
{
    const BU_S32 s32Mode = settings::value(settings::EINK_API_Mode);
    std::string strScreen;
    if (s32Mode != EINK_PIC_MODE_E_WHITE) {
        BU_CHAR acName[64] = "", acAddress[32] = "";
        CFG_NETWORK_GetHostname(acName, sizeof(acName));
        BSP_GetIpAddress("eth0", acAddress);
        strScreen = std::string(s32Mode == EINK_PIC_MODE_E_ORIENTATION_ROTATE ? "rotated" : "upright") + '\n' + acName +
                    '\n' + acAddress + '\n' +
                    vocabulary::wordOf<MAP_HDMI_FORMAT>(settings::value(settings::SYSTEM_API_HdmiFormat)) + ' ' +
                    vocabulary::wordOf<MAP_HDMI_FPS>(settings::value(settings::SYSTEM_API_HdmiFps)) + '\n';
    }
    return UTIL_FILE_WriteBufToFile("/dev/eink", strScreen.data(), static_cast<BU_S32>(strScreen.size()));
}
} // namespace

LED_TALLY_STATE_S lamp::restState()
{
    const auto enMode = static_cast<tagLED_TALLY_MODE_E>(settings::value(settings::LED_API_TallyMode));
    LED_TALLY_STATE_S stState{LED_WORK_MODE_E_HOLD, 0, LED_BRIGHTNESS_80, LED_CLOSE, 0};
    if (enMode == LED_TALLY_MODE_E_CLOSE) stState.enMode = LED_WORK_MODE_E_OFF;
    if (enMode == LED_TALLY_MODE_E_COLOR_RGB_CIRCLE) stState.enMode = LED_WORK_MODE_E_RGB_CIRCLE;
    if (enMode == LED_TALLY_MODE_E_COLOR_CUSTOM)
        stState.u32ColorRGB = static_cast<BU_U32>(settings::value(settings::LED_API_TallyCustomColor));
    const auto *pst = std::ranges::find(COLORS, enMode, &ModeColor::enMode);
    if (pst != std::end(COLORS)) stState.u32ColorRGB = pst->u32Color;
    return stState;
}

BU_S32 LED_API_GetTallyOnBoard(const BU_CHAR *pcName, BU_BOOL *pbOn, BU_BOOL bReread)
{
    return getOf(__func__, pcName, settings::LED_API_TallyOnBoard, pbOn, bReread);
}

BU_S32 LED_API_SetTallyOnBoard(const BU_CHAR *pcName, BU_BOOL bOn, BU_BOOL bSaveCfg, BU_BOOL bUpdate)
{
    return setOf(__func__, pcName, settings::LED_API_TallyOnBoard, bOn, bSaveCfg, bUpdate, LED_EVENT_FROM_E_NDI);
}

BU_S32 LED_API_GetTallyMode(const BU_CHAR *pcName, BU_S32 *ps32Mode, BU_BOOL bReread)
{
    return getOf(__func__, pcName, settings::LED_API_TallyMode, ps32Mode, bReread);
}

BU_S32 LED_API_SetTallyMode(const BU_CHAR *pcName, BU_S32 s32Mode, BU_BOOL bSaveCfg, BU_BOOL bUpdate)
{
    return setOf(__func__, pcName, settings::LED_API_TallyMode, s32Mode, bSaveCfg, bUpdate, LED_EVENT_FROM_E_CFG);
}

BU_S32 LED_API_GetTallyCustomColor(const BU_CHAR *pcName, BU_U32 *pu32Rgb, BU_BOOL bReread)
{
    if (!pu32Rgb) return -1;
    BU_S32 s32Rgb = 0;
    const BU_S32 s32Ret = getOf(__func__, pcName, settings::LED_API_TallyCustomColor, &s32Rgb, bReread);
    if (s32Ret == 0) *pu32Rgb = static_cast<BU_U32>(s32Rgb);
    return s32Ret;
}

BU_S32 LED_API_SetTallyCustomColor(const BU_CHAR *pcName, BU_U32 u32Rgb, BU_BOOL bSaveCfg, BU_BOOL bUpdate)
{
    return setOf(__func__, pcName, settings::LED_API_TallyCustomColor, u32Rgb, bSaveCfg, bUpdate, LED_EVENT_FROM_E_CFG);
}

BU_S32 EINK_API_RefreshScreen()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    return drawPaper();
}

BU_S32 EINK_API_SetModeAndRefreshScreen(BU_S32 s32Mode, BU_BOOL bSaveCfg)
{
    if (const auto injected = journal::call(__func__, s32Mode, bSaveCfg)) return *injected;
    const BU_S32 s32Ret = settings::set(settings::EINK_API_Mode, 0, s32Mode, bSaveCfg, BU_TRUE);
    return s32Ret == 0 ? drawPaper() : s32Ret;
}

BU_S32 OLED_API_RefreshScreen(const BU_CHAR *pcText)
{
    if (const auto injected = journal::call(__func__, pcText)) return *injected;
    if (!pcText) return -1;
    const std::string strScreen = std::string(std::string_view(pcText).substr(0, OLED_CHARACTERS)) + '\n';
    return UTIL_FILE_WriteBufToFile("/dev/oled", strScreen.data(), static_cast<BU_S32>(strScreen.size()));
}
