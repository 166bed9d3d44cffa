// Shutter speeds by output rate: steps, and positions both ways. They stand here by the denominator; 0 is none.
#include "visca/visca.h"
#include "vocabulary/tables.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{
int denominator(SHUTTER_TIME_E enShutter)
{
    return enShutter == SHUTTER_TIME_BUTT ? 0 : std::stoi(std::string(MAP_SHUTTER_TIME[enShutter].text).substr(2));
}
SHUTTER_TIME_E shutter(int iDenominator)
{
    int i = 0;
    while (i < SHUTTER_TIME_BUTT && denominator(static_cast<SHUTTER_TIME_E>(i)) != iDenominator) ++i;
    return static_cast<SHUTTER_TIME_E>(i);
}
std::vector<int> steps(HDMI_FPS_E enFps)
{
    SHUTTER_TIME_E *penList = nullptr;
    int iCount = 0;
    getAvailableShutterValuesByFps(enFps, &penList, &iCount);
    std::vector<int> listSteps;
    for (int i = 0; i < iCount; ++i) listSteps.push_back(denominator(penList[i]));
    return listSteps;
}

// clang-format off
const std::vector<int>
    STEPS_24{24, 48, 96, 100, 125, 180, 250, 350, 500, 725, 1000, 1500, 2000, 3000, 4000, 6000, 10000},
    STEPS_25{25, 50, 75, 100, 120, 150, 215, 425, 600, 1000, 1250, 1750, 2500, 3500, 6000, 10000},
    STEPS_30{30, 60, 90, 100, 125, 180, 250, 350, 500, 725, 1000, 1500, 2000, 3000, 4000, 6000, 10000},
    STEPS_50{50, 75, 100, 120, 150, 215, 300, 425, 600, 1000, 1250, 1750, 2500, 3500, 6000, 10000},
    STEPS_60{60, 90, 100, 125, 180, 250, 350, 500, 725, 1000, 1500, 2000, 3000, 4000, 6000, 10000},
    NO_POSITIONS, POSITIONS_25{25, 50, 75, 100, 120, 150, 215, 300, 425, 600, 1000, 1250, 1750, 2500, 3500, 6000, 10000}; // 300 is no step

// Positions from 5 on, or from 6; told: more speeds, and the position that is told for them.
const struct { HDMI_FPS_E enFps; const std::vector<int> &steps, &positions; int iFirst; std::vector<std::pair<int, int>> told; } RATES[] = {
    {HDMI_FPS_E_FPS60,                STEPS_60, STEPS_60, 6, {{30, 5}, {50, 6}, {0, 6}}},
    {HDMI_FPS_E_FPS59P94,             STEPS_60, STEPS_60, 6, {{30, 5}, {24, 6}}},
    {HDMI_FPS_E_FPS50,                STEPS_50, STEPS_50, 6, {{25, 5}, {60, 6}}},
    {HDMI_FPS_E_FPS30,                STEPS_30, STEPS_30, 5, {{24, 6}}},
    {HDMI_FPS_E_FPS29P97,             STEPS_30, STEPS_30, 5, {{24, 6}}},
    {HDMI_FPS_E_FPS25,                STEPS_25, POSITIONS_25, 5, {{60, 6}}},
    {HDMI_FPS_E_FPS24,                STEPS_24, STEPS_24, 5, {{60, 5}}},
    {HDMI_FPS_E_FPS23P98,             STEPS_24, STEPS_24, 5, {{60, 5}}},
    {HDMI_FPS_E_BUTT,                 STEPS_60, NO_POSITIONS, 256, {{60, 5}, {30, 5}, {90, 6}, {100, 7}, {10000, 20}}},
    {static_cast<HDMI_FPS_E>(-1),     STEPS_60, NO_POSITIONS, 256, {{60, 5}}}};
// clang-format on

TEST(ViscaShutter, PositionsAndStepsUpAndDownFollowTheFrameRate)
{
    for (const auto &rate : RATES) {
        SCOPED_TRACE(rate.enFps);
        EXPECT_EQ(steps(rate.enFps), rate.steps);
        for (int iPosition = 0; iPosition < 256; ++iPosition) { // what can be set by position is read back
            const int i = iPosition - rate.iFirst;
            const int iExpected = i >= 0 && i < static_cast<int>(rate.positions.size()) ? rate.positions[i] : 0;
            EXPECT_EQ(denominator(convertViscaValueToShutterTime(rate.enFps, static_cast<BU_U8>(iPosition))),
                      iExpected);
            if (iExpected) {
                EXPECT_EQ(convertShutterTimeToViscaValue(rate.enFps, shutter(iExpected)), iPosition);
            }
        }
        for (const auto &[iShutter, iPosition] : rate.told)
            EXPECT_EQ(convertShutterTimeToViscaValue(rate.enFps, shutter(iShutter)), iPosition) << iShutter;
        const auto &list = rate.steps;
        for (std::size_t i = 0; i < list.size(); ++i) { // the ends meet
            const int iUp = list[(i + 1) % list.size()];
            EXPECT_EQ(denominator(getNextShutterTime(rate.enFps, shutter(list[i]))), iUp);
            EXPECT_EQ(denominator(getPreviousShutterTime(rate.enFps, shutter(iUp))), list[i]);
        }
        EXPECT_EQ(denominator(getNextShutterTime(rate.enFps, SHUTTER_TIME_BUTT)), list.front());
        EXPECT_EQ(denominator(getPreviousShutterTime(rate.enFps, SHUTTER_TIME_BUTT)), list.back());
    }
}
} // namespace
