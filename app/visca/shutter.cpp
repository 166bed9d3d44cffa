// Shutter speeds by output rate: the steps of up and down, and the positions that controllers count.
#include "visca/visca.h"

#include <algorithm>
#include <array>
#include <span>

namespace
{
using Shutters = std::span<const SHUTTER_TIME_E>;

constexpr std::array SHUTTERS_24{
    SHUTTER_TIME_24,   SHUTTER_TIME_48,   SHUTTER_TIME_96,   SHUTTER_TIME_100,  SHUTTER_TIME_125,  SHUTTER_TIME_180,
    SHUTTER_TIME_250,  SHUTTER_TIME_350,  SHUTTER_TIME_500,  SHUTTER_TIME_725,  SHUTTER_TIME_1000, SHUTTER_TIME_1500,
    SHUTTER_TIME_2000, SHUTTER_TIME_3000, SHUTTER_TIME_4000, SHUTTER_TIME_6000, SHUTTER_TIME_10000};
constexpr std::array SHUTTERS_25{SHUTTER_TIME_25,   SHUTTER_TIME_50,   SHUTTER_TIME_75,   SHUTTER_TIME_100,
                                 SHUTTER_TIME_120,  SHUTTER_TIME_150,  SHUTTER_TIME_215,  SHUTTER_TIME_425,
                                 SHUTTER_TIME_600,  SHUTTER_TIME_1000, SHUTTER_TIME_1250, SHUTTER_TIME_1750,
                                 SHUTTER_TIME_2500, SHUTTER_TIME_3500, SHUTTER_TIME_6000, SHUTTER_TIME_10000};
/// 1/25, then the steps of 50 frames per second.
constexpr std::array SHUTTERS_25_50{
    SHUTTER_TIME_25,   SHUTTER_TIME_50,   SHUTTER_TIME_75,   SHUTTER_TIME_100,  SHUTTER_TIME_120,  SHUTTER_TIME_150,
    SHUTTER_TIME_215,  SHUTTER_TIME_300,  SHUTTER_TIME_425,  SHUTTER_TIME_600,  SHUTTER_TIME_1000, SHUTTER_TIME_1250,
    SHUTTER_TIME_1750, SHUTTER_TIME_2500, SHUTTER_TIME_3500, SHUTTER_TIME_6000, SHUTTER_TIME_10000};
/// 1/30, then the steps of 60 frames per second.
constexpr std::array SHUTTERS_30_60{
    SHUTTER_TIME_30,   SHUTTER_TIME_60,   SHUTTER_TIME_90,   SHUTTER_TIME_100,  SHUTTER_TIME_125,  SHUTTER_TIME_180,
    SHUTTER_TIME_250,  SHUTTER_TIME_350,  SHUTTER_TIME_500,  SHUTTER_TIME_725,  SHUTTER_TIME_1000, SHUTTER_TIME_1500,
    SHUTTER_TIME_2000, SHUTTER_TIME_3000, SHUTTER_TIME_4000, SHUTTER_TIME_6000, SHUTTER_TIME_10000};

constexpr Shutters ALL_25_50{SHUTTERS_25_50}, ALL_30_60{SHUTTERS_30_60};
constexpr Shutters STEPS_50 = ALL_25_50.subspan(1), STEPS_60 = ALL_30_60.subspan(1);

constexpr BU_S32 FIRST_POSITION = 5, NO_POSITION = 256;

struct FpsShutters {
    Shutters listSteps;     ///< what up and down walk through
    Shutters listPositions; ///< the speed of each VISCA position, from FIRST_POSITION on
    BU_S32 s32First;        ///< the first position that can be set
    BU_S32 s32Default;      ///< the position reported for a speed that has none
};
constexpr FpsShutters FPS60{STEPS_60, ALL_30_60, 6, 6};
constexpr FpsShutters FPS50{STEPS_50, ALL_25_50, 6, 6};
constexpr FpsShutters FPS30{ALL_30_60, ALL_30_60, 5, 6};
constexpr FpsShutters FPS25{SHUTTERS_25, ALL_25_50, 5, 6};
constexpr FpsShutters FPS24{SHUTTERS_24, SHUTTERS_24, 5, 5};
constexpr FpsShutters FPS_UNKNOWN{STEPS_60, STEPS_60, NO_POSITION, 5};

constexpr std::array<const FpsShutters *, HDMI_FPS_E_BUTT> SHUTTERS_BY_FPS{
    &FPS60, &FPS60, &FPS50, &FPS30, &FPS30, &FPS25, &FPS24, &FPS24}; // in the order of HDMI_FPS_E

const FpsShutters &shuttersOf(HDMI_FPS_E fps)
{
    return fps >= 0 && fps < HDMI_FPS_E_BUTT ? *SHUTTERS_BY_FPS[fps] : FPS_UNKNOWN;
}
} // namespace

void getAvailableShutterValuesByFps(HDMI_FPS_E fps, SHUTTER_TIME_E **list, int *count)
{
    const auto listSteps = shuttersOf(fps).listSteps;
    *list = const_cast<SHUTTER_TIME_E *>(listSteps.data());
    *count = static_cast<int>(listSteps.size());
}

SHUTTER_TIME_E getNextShutterTime(HDMI_FPS_E fps, SHUTTER_TIME_E cur)
{
    const auto listSteps = shuttersOf(fps).listSteps;
    const auto it = std::ranges::find(listSteps, cur);
    return it == listSteps.end() || it + 1 == listSteps.end() ? listSteps.front() : it[1];
}

SHUTTER_TIME_E getPreviousShutterTime(HDMI_FPS_E fps, SHUTTER_TIME_E cur)
{
    const auto listSteps = shuttersOf(fps).listSteps;
    const auto it = std::ranges::find(listSteps, cur);
    return it == listSteps.end() || it == listSteps.begin() ? listSteps.back() : it[-1];
}

SHUTTER_TIME_E convertViscaValueToShutterTime(HDMI_FPS_E fps, BU_U8 value)
{
    const auto &stFps = shuttersOf(fps);
    const std::size_t index = value - FIRST_POSITION;
    return value < stFps.s32First || index >= stFps.listPositions.size() ? SHUTTER_TIME_BUTT
                                                                         : stFps.listPositions[index];
}

BU_S32 convertShutterTimeToViscaValue(HDMI_FPS_E fps, SHUTTER_TIME_E shutter)
{
    const auto &stFps = shuttersOf(fps);
    const auto it = std::ranges::find(stFps.listPositions, shutter);
    return it == stFps.listPositions.end() ? stFps.s32Default
                                           : FIRST_POSITION + static_cast<BU_S32>(it - stFps.listPositions.begin());
}
