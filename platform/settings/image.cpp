// Image settings that are more than a row: shutter by frame rate, colours, one-push, reset, what the menu edits.
#include "camera/image.h"

#include "board/profile.h"
#include "settings/settings.h"
#include "util/journal.h"
#include "util/log.h"
#include "util/time.h"
#include "vocabulary/tables.h"
#include "vocabulary/words.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdio>
#include <iterator>

namespace
{
using settings::Row;
using settings::Section;

constexpr BU_S32 PIPES = 2;
constexpr BU_S32 ONE_PUSH_MS = 600; // how long a measurement looks at the picture

bool isPipe(BU_S32 s32Pipe) { return s32Pipe >= 0 && s32Pipe < PIPES; }

constexpr Row COLOR_HUE[] = {settings::ISP_API_RColorHue, settings::ISP_API_YColorHue, settings::ISP_API_GColorHue,
                             settings::ISP_API_CColorHue, settings::ISP_API_BColorHue, settings::ISP_API_MColorHue};
constexpr Row COLOR_SAT[] = {settings::ISP_API_RColorSat, settings::ISP_API_YColorSat, settings::ISP_API_GColorSat,
                             settings::ISP_API_CColorSat, settings::ISP_API_BColorSat, settings::ISP_API_MColorSat};

/// The row of a colour, 1 red ... 6 magenta.
Row colorRow(const Row (&aenRows)[6], BU_S32 s32Color)
{
    return s32Color >= 1 && s32Color <= 6 ? aenRows[s32Color - 1] : settings::ROW_COUNT;
}

BU_S32 getColor(const BU_CHAR *pcFunction, const Row (&aenRows)[6], BU_S32 s32Pipe, BU_S32 s32Color, BU_S32 *ps32Value,
                BU_BOOL bReread)
{
    if (const auto injected = journal::ask(pcFunction, s32Pipe, s32Color)) return *injected;
    const Row enRow = colorRow(aenRows, s32Color);
    return enRow == settings::ROW_COUNT ? -1 : settings::get(enRow, s32Pipe, ps32Value, bReread);
}

BU_S32 setColor(const BU_CHAR *pcFunction, const Row (&aenRows)[6], BU_S32 s32Pipe, BU_S32 s32Color, BU_S32 s32Value,
                BU_BOOL bSaveCfg, BU_BOOL bUpdate)
{
    if (const auto injected = journal::call(pcFunction, s32Pipe, s32Color, s32Value, bSaveCfg, bUpdate))
        return *injected;
    const Row enRow = colorRow(aenRows, s32Color);
    return enRow == settings::ROW_COUNT ? -1 : settings::set(enRow, s32Pipe, s32Value, bSaveCfg, bUpdate);
}

/// The shutter is stored per whole frame rate; the rates just below one share its rows, and 60 serves all others.
struct ShutterRows {
    HDMI_FPS_E enFps;
    Row enSpeed, enValue;
};
constexpr ShutterRows SHUTTER_ROWS[] = {
    {HDMI_FPS_E_FPS60, settings::ISP_API_ShutterFps60, settings::ISP_API_ShutterValueFps60},
    {HDMI_FPS_E_FPS50, settings::ISP_API_ShutterFps50, settings::ISP_API_ShutterValueFps50},
    {HDMI_FPS_E_FPS30, settings::ISP_API_ShutterFps30, settings::ISP_API_ShutterValueFps30},
    {HDMI_FPS_E_FPS25, settings::ISP_API_ShutterFps25, settings::ISP_API_ShutterValueFps25},
    {HDMI_FPS_E_FPS24, settings::ISP_API_ShutterFps24, settings::ISP_API_ShutterValueFps24},
};
const ShutterRows &shutterRows(BU_S32 enFps)
{
    const auto *pst = std::ranges::find(SHUTTER_ROWS, static_cast<HDMI_FPS_E>(enFps), &ShutterRows::enFps);
    return pst == std::end(SHUTTER_ROWS) ? SHUTTER_ROWS[0] : *pst;
}
const ShutterRows &shutterRows() { return shutterRows(settings::value(settings::SYSTEM_API_HdmiFps)); }

/// The one-push measurement of a pipeline.
struct OnePush {
    BU_S32 s32Pipe;
    std::atomic<bool> bDone{false}; // the last measurement has ended
    BU_TIMER_DATA_S stTimer{};
};
OnePush &onePush(BU_S32 s32Pipe)
{
    static auto *const pastOnePush = new std::array<OnePush, PIPES>{{{0}, {1}}}; // outlived by no timer
    return (*pastOnePush)[static_cast<std::size_t>(s32Pipe)];
}
BU_S32 onePushOver(void *pvOnePush)
{
    auto *pstOnePush = static_cast<OnePush *>(pvOnePush);
    pstOnePush->bDone = true;
    settings::announce("OnePush", pstOnePush->s32Pipe, BU_FALSE);
    return 0;
}
BU_S32 startOnePush(BU_S32 s32Pipe)
{
    if (!isPipe(s32Pipe)) return -1;
    OnePush &stOnePush = onePush(s32Pipe);
    stOnePush.bDone = false;
    settings::announce("OnePush", s32Pipe, BU_TRUE);
    return UTIL_TIMER_Start(BU_TIMER_E_ONCE, ONE_PUSH_MS, onePushOver, &stOnePush, &stOnePush.stTimer);
}

// Which pipeline the menu's image, white-balance and exposure pages are about; always close-up at a start.
std::atomic<BU_S32> g_s32CurImage{0}, g_s32CurWhiteBalance{0}, g_s32CurExposure{0};

BU_S32 select(std::atomic<BU_S32> &s32Cur, const BU_CHAR *pcWord)
{
    const BU_S32 s32Pipe = sysStr2Enum(MAP_LENS, std::size(MAP_LENS), pcWord);
    if (!isPipe(s32Pipe)) return -1;
    s32Cur = s32Pipe;
    return 0;
}
} // namespace

Row settings::shutterRow() { return shutterRows().enSpeed; }
Row settings::shutterValueRow() { return shutterRows().enValue; }

BU_S32 ISP_API_GetShutter(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread)
{
    if (const auto injected = journal::ask(__func__, s32Pipe)) return *injected;
    return settings::get(settings::shutterRow(), s32Pipe, ps32Value, bReread);
}

BU_S32 ISP_API_SetShutter(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate)
{
    if (const auto injected = journal::call(__func__, s32Pipe, s32Value, bSaveCfg, bUpdate)) return *injected;
    return settings::set(settings::shutterRow(), s32Pipe, s32Value, bSaveCfg, bUpdate);
}

BU_S32 ISP_API_GetShutterValue(BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread)
{
    if (const auto injected = journal::ask(__func__, s32Pipe)) return *injected;
    return settings::get(settings::shutterValueRow(), s32Pipe, ps32Value, bReread);
}

BU_S32 ISP_API_SetShutterValue(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate)
{
    if (const auto injected = journal::call(__func__, s32Pipe, s32Value, bSaveCfg, bUpdate)) return *injected;
    return settings::set(settings::shutterValueRow(), s32Pipe, s32Value, bSaveCfg, bUpdate);
}

BU_S32 ISP_API_UpdateShutter(BU_S32 s32Pipe)
{
    if (const auto injected = journal::call(__func__, s32Pipe)) return *injected;
    if (!isPipe(s32Pipe)) return -1;
    for (const Row enRow : {settings::shutterRow(), settings::shutterValueRow()})
        settings::announce(settings::row(enRow).pcKey, s32Pipe, settings::value(enRow, s32Pipe));
    return 0;
}

const BU_CHAR *ISP_API_GetShutterConfigNameByHdmiFps(HDMI_FPS_E enFps)
{
    return settings::row(shutterRows(enFps).enSpeed).pcKey;
}

const BU_CHAR *ISP_API_GetShutterValueConfigNameByHdmiFps(HDMI_FPS_E enFps)
{
    return settings::row(shutterRows(enFps).enValue).pcKey;
}

BU_S32 ISP_API_GetColorHue(BU_S32 s32Pipe, BU_S32 s32Color, BU_S32 *ps32Value, BU_BOOL bReread)
{
    return getColor(__func__, COLOR_HUE, s32Pipe, s32Color, ps32Value, bReread);
}

BU_S32 ISP_API_SetColorHue(BU_S32 s32Pipe, BU_S32 s32Color, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate)
{
    return setColor(__func__, COLOR_HUE, s32Pipe, s32Color, s32Value, bSaveCfg, bUpdate);
}

BU_S32 ISP_API_GetColorSat(BU_S32 s32Pipe, BU_S32 s32Color, BU_S32 *ps32Value, BU_BOOL bReread)
{
    return getColor(__func__, COLOR_SAT, s32Pipe, s32Color, ps32Value, bReread);
}

BU_S32 ISP_API_SetColorSat(BU_S32 s32Pipe, BU_S32 s32Color, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate)
{
    return setColor(__func__, COLOR_SAT, s32Pipe, s32Color, s32Value, bSaveCfg, bUpdate);
}

BU_S32 ISP_API_SetIrisDefLevel(BU_S32 s32Pipe, BU_BOOL bSaveCfg, BU_BOOL bUpdate)
{
    if (const auto injected = journal::call(__func__, s32Pipe, bSaveCfg, bUpdate)) return *injected;
    const Row enRow = settings::ISP_API_IrisLevel;
    return settings::set(enRow, s32Pipe, settings::row(enRow).s32Def, bSaveCfg, bUpdate);
}

BU_S32 ISP_API_SetOnePushAwb(BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate)
{
    if (const auto injected = journal::call(__func__, s32Pipe, s32Value, bSaveCfg, bUpdate)) return *injected;
    return s32Value == BU_FALSE || s32Value == BU_TRUE ? startOnePush(s32Pipe) : -1;
}

BU_S32 ISP_API_TriggerAwbOnePush(BU_S32 s32Pipe, BU_BOOL *pbDone, BU_BOOL bReread)
{
    if (const auto injected = journal::call(__func__, s32Pipe, bReread)) return *injected;
    if (!isPipe(s32Pipe) || !pbDone) return -1;
    *pbDone = onePush(s32Pipe).bDone;
    return startOnePush(s32Pipe);
}

BU_S32 ISP_API_Reset(BU_S32 s32Pipe)
{
    if (const auto injected = journal::call(__func__, s32Pipe)) return *injected;
    return isPipe(s32Pipe) ? settings::restore(Section::Image, s32Pipe) : -1;
}

BU_S32 ISP_API_StartService()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    LOG_INFO("image service is up, %d pipelines\n", PIPES);
    return 0;
}

BU_S32 ISP_API_GetVersion(BU_S32 s32Pipe, BU_CHAR *pcText)
{
    if (const auto injected = journal::ask(__func__, s32Pipe)) return *injected;
    if (!isPipe(s32Pipe) || !pcText) return -1;
    std::snprintf(pcText, 64, "%s", BSP_PROFILE_GetText("versions/isp", "ISP V1.0.0").c_str());
    return 0;
}

BU_S32 ISP_API_GetCurDevImageId() { return g_s32CurImage; }
BU_S32 ISP_API_GetCurDevExposureId() { return g_s32CurExposure; }
BU_S32 ISP_API_GetCurDevWhiteBalanceId() { return g_s32CurWhiteBalance; }
BU_S32 ISP_API_GetCurDevId()
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    return 0; // one lens and one head have motors
}

const BU_CHAR *ISP_API_GetCurDevImageName() { return settings::sectionName(Section::Image, g_s32CurImage); }
const BU_CHAR *ISP_API_GetCurDevExposureName() { return settings::sectionName(Section::Exposure, g_s32CurExposure); }
const BU_CHAR *ISP_API_GetCurDevWhiteBalanceName()
{
    return settings::sectionName(Section::WhiteBalance, g_s32CurWhiteBalance);
}

BU_S32 ISP_API_SetCurDevImage(const BU_CHAR *pcWord)
{
    if (const auto injected = journal::call(__func__, pcWord)) return *injected;
    return select(g_s32CurImage, pcWord);
}

BU_S32 ISP_API_SetCurDevWB(const BU_CHAR *pcWord)
{
    if (const auto injected = journal::call(__func__, pcWord)) return *injected;
    return select(g_s32CurWhiteBalance, pcWord);
}

BU_S32 ISP_API_SetCurDevExposure(const BU_CHAR *pcWord)
{
    if (const auto injected = journal::call(__func__, pcWord)) return *injected;
    return select(g_s32CurExposure, pcWord);
}
