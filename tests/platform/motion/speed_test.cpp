// Speeds: which entry and tops a source has, how a level becomes a speed, what slows it.
#include "motionTest.h"

namespace
{
/// Writes what a map was given: levels, tops and the range of its entry, all different.
PT_SPD_S g_stTops;
PT_SPEED_CALC_SET_S g_stSetup;
void noteArguments(PT_SPD_S *pstSpd, BU_S32 s32Pan, BU_S32 s32PanTop, BU_S32 s32Tilt, BU_S32 s32TiltTop,
                   const PT_SPEED_CALC_SET_S *pstSetup)
{
    *pstSpd = {static_cast<BU_U32>(s32Pan), static_cast<BU_U32>(s32Tilt)};
    g_stTops = {static_cast<BU_U32>(s32PanTop), static_cast<BU_U32>(s32TiltTop)};
    g_stSetup = *pstSetup;
}

class MotionSpeedTest : public MotionTest
{
protected:
    MotionSpeedTest()
    {
        PT_API_InitByXml(&LIMITS,
                         {{PT_CTRL_E_FROM_ALG, BU_FALSE, 100, 6400, 100, 3200, 50, PT_CalcSpeedLevelMap_Simple, 1,
                           PT_CalcSpeedRate_Advanced, 2},
                          {PT_CTRL_E_FROM_PRESET, BU_TRUE, 0, 0, 0, 0, 0, PT_CalcSpeedLevelMap_Simple, 2,
                           PT_CalcSpeedRate_Simple, 2},
                          {PT_CTRL_E_FROM_OTHER, BU_TRUE, 0, 0, 0, 0, 0, noteArguments, 0, PT_CalcSpeedRate_Simple, 2},
                          {PT_CTRL_E_FROM_TKV_SUPERFINE, BU_TRUE, 0, 0, 0, 0, 0, noteArguments, 0, nullptr, 2}});
    }
    template <class... Levels>
    static std::pair<BU_U32, BU_U32> speed(PT_CTRL_FROM_E enFrom, PT_MOTION_TYPE_E enType, Levels... levels)
    {
        PT_MOTION_CTRL_S st = drive(enType, 0);
        st.u16SpdMul = 1;
        EXPECT_EQ(PT_API_CalcMotionSpeed(enFrom, &st, levels...), 0);
        EXPECT_EQ(st.u16SpdMul, enFrom == PT_CTRL_E_FROM_ALG ? 50 : 100);
        return {st.stSpd.u32PanSpd, st.stSpd.u32TiltSpd};
    }
};

TEST_F(MotionSpeedTest, EntryAndTopsOfTheSource)
{
    // clang-format off
    const struct { PT_CTRL_FROM_E enFrom, enEntry; BU_U32 u32OwnTop; } CASES[] = {
        {PT_CTRL_E_FROM_VISCA, PT_CTRL_E_FROM_OTHER, 24}, {PT_CTRL_E_FROM_SLEEP, PT_CTRL_E_FROM_OTHER, 24},
        {PT_CTRL_E_FROM_OTHER, PT_CTRL_E_FROM_OTHER, 24},
        {PT_CTRL_E_FROM_TKV_SUPERFINE, PT_CTRL_E_FROM_TKV_SUPERFINE, 255}};
    // clang-format on
    for (const auto &st : CASES) {
        speed(st.enFrom, PT_MOTION_E_RIGHT_UP, 7, 9);
        EXPECT_EQ(g_stSetup.eFrom, st.enEntry);
        EXPECT_EQ(g_stSetup.s32MaxTiltSpeed, 9000); // loaded from the limits
        EXPECT_EQ(std::pair(g_stTops.u32PanSpd, g_stTops.u32TiltSpd), std::pair(st.u32OwnTop, st.u32OwnTop));
        EXPECT_EQ(speed(st.enFrom, PT_MOTION_E_RIGHT_UP, 7, 288, 9, 300), std::pair(7u, 9u));
        EXPECT_EQ(std::pair(g_stTops.u32PanSpd, g_stTops.u32TiltSpd), std::pair(288u, 300u));
        EXPECT_EQ(speed(st.enFrom, PT_MOTION_E_RIGHT_UP), std::pair(12000u, 9000u));
    }
    PT_MOTION_CTRL_S stMotion{};
    EXPECT_EQ(PT_API_CalcMotionSpeed(PT_CTRL_E_FROM_BUTT, &stMotion), -1);
    EXPECT_EQ(PT_API_CalcMotionSpeed(PT_CTRL_E_FROM_ALG, nullptr, 1, 1), -1);
}

TEST_F(MotionSpeedTest, SimpleMapIsAShareOfTheMaximum)
{
    // clang-format off
    const struct { BU_S32 s32Level; BU_U32 u32Pan, u32Tilt; } CASES[] = {
        {-5, 100, 100}, {0, 100, 100}, {1, 100, 100}, {3, 300, 150},
        {32, 3200, 1600}, {64, 6400, 3200}, {65, 6400, 3200}};
    // clang-format on
    for (const auto &st : CASES)
        EXPECT_EQ(speed(PT_CTRL_E_FROM_ALG, PT_MOTION_E_ABS_POS, st.s32Level, 64, st.s32Level, 64),
                  std::pair(st.u32Pan, st.u32Tilt));
    EXPECT_EQ(speed(PT_CTRL_E_FROM_ALG, PT_MOTION_E_ABS_POS, 1, 0, INT32_MAX, 1),
              std::pair(6400u, 3200u)); // no division by zero, no overflow
}

TEST_F(MotionSpeedTest, SpeedMatchSlowsDrivesAsTheZoomGoesIn)
{
    PTZ_API_SetZoomTime(0, 4, 7);
    clock().advance(10000);
    // clang-format off
    const struct { BU_BOOL bMatch; PT_CTRL_FROM_E enFrom; PT_MOTION_TYPE_E enType; double dRate; } CASES[] = {
        {BU_TRUE, PT_CTRL_E_FROM_VISCA, PT_MOTION_E_LEFT, 0.5}, {BU_TRUE, PT_CTRL_E_FROM_ALG, PT_MOTION_E_LEFT, 0.25},
        {BU_TRUE, PT_CTRL_E_FROM_VISCA, PT_MOTION_E_ABS_POS, 1}, {BU_TRUE, PT_CTRL_E_FROM_PRESET, PT_MOTION_E_LEFT, 1},
        {BU_TRUE, PT_CTRL_E_FROM_TKV_SUPERFINE, PT_MOTION_E_LEFT, 1}, // has no rate
        {BU_FALSE, PT_CTRL_E_FROM_VISCA, PT_MOTION_E_LEFT, 1}, {BU_FALSE, PT_CTRL_E_FROM_ALG, PT_MOTION_E_LEFT, 1}};
    // clang-format on
    for (const auto &st : CASES) {
        PT_API_SetPtSpeedMatch(0, st.bMatch, BU_FALSE, BU_FALSE);
        const auto full = speed(st.enFrom, PT_MOTION_E_ABS_POS, 2000, 4000, 2000, 4000);
        EXPECT_NEAR(speed(st.enFrom, st.enType, 2000, 4000, 2000, 4000).first, full.first * st.dRate, 2)
            << st.enFrom << ' ' << st.enType;
    }
    PT_API_SetPtSpeedMatch(0, BU_TRUE, BU_FALSE, BU_FALSE);
    EXPECT_EQ(speed(PT_CTRL_E_FROM_ALG, PT_MOTION_E_RIGHT_UP, 1, 64, 1, 64).first, 100u)
        << "never below the slowest of the entry";
}

TEST_F(MotionSpeedTest, FaultySetsChangeNothing)
{
    constexpr PT_SPEED_LIMIT_T GOOD{1, 100, 1, 100, 10}, NO_MULTIPLIER{5, 12000, 5, 9000, 0},
        NO_SPEED{5, 0, 5, 9000, 100};
    PT_SPEED_CALC_SET_S stNoSource{};
    stNoSource.eFrom = PT_CTRL_E_FROM_BUTT;
    stNoSource.fnMapSpeedLevel = noteArguments;
    for (const auto *pst : {static_cast<const PT_SPEED_LIMIT_T *>(nullptr), &NO_MULTIPLIER, &NO_SPEED})
        EXPECT_EQ(PT_API_InitByXml(pst, {}), -1);
    for (const auto &st : {PT_SPEED_CALC_SET_S{}, stNoSource}) EXPECT_EQ(PT_API_InitByXml(&GOOD, {st}), -1);
    EXPECT_EQ(speed(PT_CTRL_E_FROM_VISCA, PT_MOTION_E_RIGHT_UP), std::pair(12000u, 9000u));
}
} // namespace
