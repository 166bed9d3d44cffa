#include "visca/visca.h"
#include "vocabulary/tables.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{
constexpr auto F60 = HDMI_FPS_E_FPS60, F59 = HDMI_FPS_E_FPS59P94, F50 = HDMI_FPS_E_FPS50, F30 = HDMI_FPS_E_FPS30,
               F29 = HDMI_FPS_E_FPS29P97, F25 = HDMI_FPS_E_FPS25, F24 = HDMI_FPS_E_FPS24, F23 = HDMI_FPS_E_FPS23P98,
               NO_FPS = HDMI_FPS_E_BUTT;

/// Shutters stand here by the denominator of their time; 0 is none.
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
    STEPS_60{60, 90, 100, 125, 180, 250, 350, 500, 725, 1000, 1500, 2000, 3000, 4000, 6000, 10000};
// clang-format on
} // namespace

TEST(ViscaShutter, StepsFollowTheFrameRate)
{
    for (const auto enFps : {F60, F59, NO_FPS, static_cast<HDMI_FPS_E>(-1)}) EXPECT_EQ(steps(enFps), STEPS_60);
    for (const auto enFps : {F30, F29}) EXPECT_EQ(steps(enFps), STEPS_30);
    for (const auto enFps : {F24, F23}) EXPECT_EQ(steps(enFps), STEPS_24);
    EXPECT_EQ(steps(F50), STEPS_50);
    EXPECT_EQ(steps(F25), STEPS_25);
}

TEST(ViscaShutter, UpAndDownWrapAndFindTheirWayBackFromOutside)
{
    struct {
        HDMI_FPS_E enFps;
        int iFrom, iUp, iDown;
    } const rows[] = {{F60, 90, 100, 60},   {F60, 10000, 60, 6000}, {F60, 60, 90, 10000},
                      {F25, 215, 425, 150}, {F50, 215, 300, 150},   {F24, 10000, 24, 6000},
                      {F30, 30, 60, 10000}, {F60, 50, 60, 10000},   {F25, 300, 25, 10000}}; // last two: not in the list
    for (const auto &row : rows) {
        EXPECT_EQ(denominator(getNextShutterTime(row.enFps, shutter(row.iFrom))), row.iUp) << row.enFps << row.iFrom;
        EXPECT_EQ(denominator(getPreviousShutterTime(row.enFps, shutter(row.iFrom))), row.iDown) << row.enFps;
    }
}

struct tagPOSITIONS_S {
    HDMI_FPS_E enFps;
    std::vector<std::pair<int, int>> positions; // and the shutter
};

TEST(ViscaShutter, PositionsToSpeeds)
{
    const tagPOSITIONS_S rows[] = {
        {F60, {{5, 0}, {6, 60}}},
        {F59, {{7, 90}, {21, 10000}, {22, 0}}},
        {F50, {{5, 0}, {6, 50}, {21, 10000}}},
        {F30, {{4, 0}, {5, 30}}},
        {F29, {{6, 60}, {21, 10000}}},
        {F25, {{5, 25}, {12, 300}, {21, 10000}, {22, 0}}}, // 300, though it is no step of this rate
        {F24, {{5, 24}, {0, 0}}},
        {F23, {{7, 96}, {255, 0}}},
        {NO_FPS, {{6, 0}, {21, 0}}},
    };
    for (const auto &[enFps, positions] : rows)
        for (const auto &[iPosition, iShutter] : positions)
            EXPECT_EQ(denominator(convertViscaValueToShutterTime(enFps, static_cast<BU_U8>(iPosition))), iShutter)
                << enFps << " " << iPosition;
}

TEST(ViscaShutter, SpeedsToPositions)
{
    const tagPOSITIONS_S rows[] = {
        {F60, {{5, 30}, {6, 60}, {6, 50}, {6, 0}}}, // 50 has no position of its own
        {F30, {{6, 24}}},
        {F29, {{7, 90}}},
        {F59, {{21, 10000}}},
        {F50, {{5, 25}, {6, 50}}},
        {F25, {{12, 300}, {6, 60}}},
        {F24, {{5, 24}, {6, 48}}},
        {F23, {{5, 60}, {21, 10000}}},
        {NO_FPS, {{5, 60}, {5, 30}, {6, 90}, {20, 10000}}},
    };
    for (const auto &[enFps, positions] : rows)
        for (const auto &[iPosition, iShutter] : positions)
            EXPECT_EQ(convertShutterTimeToViscaValue(enFps, shutter(iShutter)), iPosition) << enFps << " " << iShutter;
}

// What a controller sets by position it must read back.
TEST(ViscaShutter, EveryPositionThatCanBeSetIsReadBack)
{
    for (int iFps = 0; iFps < HDMI_FPS_E_BUTT; ++iFps)
        for (int iPosition = 0; iPosition < 256; ++iPosition) {
            const auto enFps = static_cast<HDMI_FPS_E>(iFps);
            const auto enShutter = convertViscaValueToShutterTime(enFps, static_cast<BU_U8>(iPosition));
            if (enShutter == SHUTTER_TIME_BUTT) continue;
            EXPECT_EQ(convertShutterTimeToViscaValue(enFps, enShutter), iPosition) << iFps;
        }
}
