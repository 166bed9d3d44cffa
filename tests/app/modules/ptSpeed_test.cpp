#include "pt/pt.h"

#include <gtest/gtest.h>

namespace
{
/// The start-up limits: 0.05 to 120 and 90 degrees per second, in hundredths.
constexpr PT_SPEED_CALC_SET_S LIMITS{PT_CTRL_E_FROM_OTHER, BU_TRUE, 5, 12000, 5, 9000, 100, nullptr, 0, nullptr, 2};

constexpr auto STANDARD = PT_CalcSpeedLevelMap_TKV_MX_Standard, SUPERFINE = PT_CalcSpeedLevelMap_TKV_MX_Superfine;
// clang-format off
constexpr struct { FN_SPEED_LEVEL_MAP pfnMap; BU_S32 s32Level; BU_U32 u32Pan, u32Tilt; } CASES[] = {
    {STANDARD, -3, 50, 50}, {STANDARD, 0, 50, 50}, {STANDARD, 1, 50, 50}, {STANDARD, 2, 160, 140},
    {STANDARD, 6, 600, 500}, {STANDARD, 7, 985, 785}, {STANDARD, 13, 3300, 2500}, {STANDARD, 20, 6000, 4500},
    {STANDARD, 21, 7500, 5625}, {STANDARD, 24, 12000, 9000}, {STANDARD, 25, 12000, 9000}, {SUPERFINE, 0, 5, 5},
    {SUPERFINE, 1, 5, 5}, {SUPERFINE, 2, 14, 12}, {SUPERFINE, 64, 600, 500}, {SUPERFINE, 100, 1913, 1472},
    {SUPERFINE, 212, 6000, 4500}, {SUPERFINE, 255, 12000, 9000}, {SUPERFINE, 256, 12000, 9000}};
// clang-format on
} // namespace

TEST(PtSpeed, LevelsGiveTheSpeedsOfTheMap)
{
    for (const auto &[pfnMap, s32Level, u32Pan, u32Tilt] : CASES)
        for (const BU_S32 s32Announced : {0, 8, 288}) { // the announced maximum has no effect
            PT_SPD_S stSpd{};
            pfnMap(&stSpd, s32Level, s32Announced, s32Level, s32Announced, &LIMITS);
            EXPECT_EQ(stSpd.u32PanSpd, u32Pan) << s32Level;
            EXPECT_EQ(stSpd.u32TiltSpd, u32Tilt) << s32Level;
        }
}

TEST(PtSpeed, PanAndTiltLevelsAreApart)
{
    PT_SPD_S stSpd{};
    STANDARD(&stSpd, 24, 24, 1, 20, &LIMITS);
    EXPECT_EQ(stSpd.u32PanSpd, 12000u);
    EXPECT_EQ(stSpd.u32TiltSpd, 50u);
}

TEST(PtSpeed, QuotientsAreCutTowardsZeroAndEmptyStagesGiveTheirLowerSpeed)
{
    const auto speed = PT_CalcSpeedLevelMap_TKV_MX_ThreeStage;
    EXPECT_EQ(speed(2, 1, 4, 8, 9, 100, 90, 50, 0), 97); // 100 - 10 * 1 / 3
    EXPECT_EQ(speed(5, 1, 1, 5, 5, 7, 20, 60, 900), 60); // the last stage has no length
    EXPECT_EQ(speed(1, 1, 1, 1, 1, 7, 20, 60, 900), 60);
    EXPECT_EQ(speed(3, 3, 3, 5, 9, 7, 20, 60, 900), 20); // a knee belongs to the stage above it
    EXPECT_EQ(speed(9, 5, 7, 8, 2, 10, 20, 30, 40), 10); // the lower limit has the last word
}

TEST(PtSpeed, TheSetHasOneEntryAClassAndReplacesWhatWasThere)
{
    // clang-format off
    const struct { PT_CTRL_FROM_E enFrom; FN_SPEED_LEVEL_MAP pfnMap; BU_S32 s32Match; FN_SPEED_SCALE_RATE_CALC pfnRate; } rows[] = {
        {PT_CTRL_E_FROM_ALG, PT_CalcSpeedLevelMap_Simple, 1, PT_CalcSpeedRate_Advanced},
        {PT_CTRL_E_FROM_PRESET, PT_CalcSpeedLevelMap_Simple, 2, PT_CalcSpeedRate_Simple},
        {PT_CTRL_E_FROM_OTHER, STANDARD, 0, PT_CalcSpeedRate_Simple},
        {PT_CTRL_E_FROM_TKV_SUPERFINE, SUPERFINE, 0, PT_CalcSpeedRate_Simple}};
    // clang-format on
    std::vector<PT_SPEED_CALC_SET_S> listSet(3);
    ASSERT_EQ(APP_PT_GetSpeedCalcSet_TKV_MX(listSet), 0);
    ASSERT_EQ(listSet.size(), std::size(rows));
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        const auto &[enFrom, pfnMap, s32Match, pfnRate] = rows[i];
        const PT_SPEED_CALC_SET_S &st = listSet[i];
        EXPECT_TRUE(st.eFrom == enFrom && st.fnMapSpeedLevel == pfnMap && st.s32SpeedMatchFlag == s32Match &&
                    st.fnCalcRate == pfnRate && st.s32SpeedAccuracyFlag == 2)
            << i;
        EXPECT_EQ(st.bLoadSpeedRange, i > 0); // tracking brings its own range, everyone else takes the service's
    }
    EXPECT_EQ(listSet[0].s32MaxPanSpeed, 64 * listSet[0].s32SpeedMul);
    EXPECT_EQ(listSet[0].s32MaxTiltSpeed, 32 * listSet[0].s32SpeedMul);
}
