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

struct MotionSpeedTest : MotionTest {
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
    template <class... Levels> static PT_SPD_S speed(PT_CTRL_FROM_E enFrom, PT_MOTION_TYPE_E enType, Levels... levels)
    {
        PT_MOTION_CTRL_S st = drive(enType, 0);
        st.u16SpdMul = 1;
        EXPECT_EQ(PT_API_CalcMotionSpeed(enFrom, &st, levels...), 0);
        EXPECT_EQ(st.u16SpdMul, enFrom == PT_CTRL_E_FROM_ALG ? 50 : 100);
        return st.stSpd;
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
        EXPECT_EQ(g_stTops, (PT_SPD_S{st.u32OwnTop, st.u32OwnTop}));
        EXPECT_EQ(speed(st.enFrom, PT_MOTION_E_RIGHT_UP, 7, 288, 9, 300), (PT_SPD_S{7, 9}));
        EXPECT_EQ(g_stTops, (PT_SPD_S{288, 300}));
        EXPECT_EQ(speed(st.enFrom, PT_MOTION_E_RIGHT_UP), (PT_SPD_S{12000, 9000}));
    }
    PT_MOTION_CTRL_S stMotion{};
    EXPECT_EQ(PT_API_CalcMotionSpeed(PT_CTRL_E_FROM_BUTT, &stMotion), -1);
    EXPECT_EQ(PT_API_CalcMotionSpeed(PT_CTRL_E_FROM_ALG, nullptr, 1, 1), -1);
}

TEST_F(MotionSpeedTest, SimpleMapIsAShareOfTheMaximum)
{
    // clang-format off
    const struct { std::array<BU_S32, 4> levels; PT_SPD_S stSpeed; } CASES[] = {
        {{-5, 64, -5, 64}, {100, 100}}, {{0, 64, 0, 64}, {100, 100}}, {{1, 64, 1, 64}, {100, 100}},
        {{3, 64, 3, 64}, {300, 150}}, {{32, 64, 32, 64}, {3200, 1600}},
        {{64, 64, 64, 64}, {6400, 3200}}, {{65, 64, 65, 64}, {6400, 3200}},
        {{1, 0, INT32_MAX, 1}, {6400, 3200}}}; // no division by zero, no overflow
    // clang-format on
    for (const auto &[levels, stSpeed] : CASES)
        EXPECT_EQ(speed(PT_CTRL_E_FROM_ALG, PT_MOTION_E_ABS_POS, levels[0], levels[1], levels[2], levels[3]), stSpeed);
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
        const auto pan = [&](PT_MOTION_TYPE_E en) { return speed(st.enFrom, en, 2000, 4000, 2000, 4000).u32PanSpd; };
        EXPECT_NEAR(pan(st.enType), pan(PT_MOTION_E_ABS_POS) * st.dRate, 2) << st.enFrom << ' ' << st.enType;
    }
    PT_API_SetPtSpeedMatch(0, BU_TRUE, BU_FALSE, BU_FALSE);
    EXPECT_EQ(speed(PT_CTRL_E_FROM_ALG, PT_MOTION_E_RIGHT_UP, 1, 64, 1, 64).u32PanSpd, 100u)
        << "never below its slowest";
}

TEST_F(MotionSpeedTest, FaultySetsChangeNothing)
{
    constexpr PT_SPEED_LIMIT_T GOOD{1, 100, 1, 100, 10};
    PT_SPEED_CALC_SET_S stNoSource{};
    stNoSource.eFrom = PT_CTRL_E_FROM_BUTT;
    stNoSource.fnMapSpeedLevel = noteArguments;
    EXPECT_EQ(PT_API_InitByXml(nullptr, {}), -1);
    for (const PT_SPEED_LIMIT_T &st :
         {PT_SPEED_LIMIT_T{5, 12000, 5, 9000, 0}, {5, 0, 5, 9000, 100}}) // multiplier, speed
        EXPECT_EQ(PT_API_InitByXml(&st, {}), -1);
    for (const auto &st : {PT_SPEED_CALC_SET_S{}, stNoSource}) EXPECT_EQ(PT_API_InitByXml(&GOOD, {st}), -1);
    EXPECT_EQ(speed(PT_CTRL_E_FROM_VISCA, PT_MOTION_E_RIGHT_UP), (PT_SPD_S{12000, 9000}));
}
} // namespace
