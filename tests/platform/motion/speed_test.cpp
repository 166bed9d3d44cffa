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
        constexpr PT_SPEED_LIMIT_T LIMITS{5, 12000, 5, 9000, 100};
        PT_API_InitByXml(&LIMITS,
                         {{PT_CTRL_E_FROM_ALG, BU_FALSE, 100, 6400, 100, 3200, 50, PT_CalcSpeedLevelMap_Simple, 1,
                           PT_CalcSpeedRate_Advanced, 2},
                          {PT_CTRL_E_FROM_PRESET, BU_TRUE, 0, 0, 0, 0, 0, PT_CalcSpeedLevelMap_Simple, 2,
                           PT_CalcSpeedRate_Simple, 2},
                          {PT_CTRL_E_FROM_OTHER, BU_TRUE, 0, 0, 0, 0, 0, noteArguments, 0, PT_CalcSpeedRate_Simple, 2},
                          {PT_CTRL_E_FROM_TKV_SUPERFINE, BU_TRUE, 0, 0, 0, 0, 0, noteArguments, 0, nullptr, 2}});
    }
    static PT_MOTION_CTRL_S motion(PT_MOTION_TYPE_E enType = PT_MOTION_E_RIGHT_UP)
    {
        PT_MOTION_CTRL_S st{};
        st.enMotionType = enType;
        st.u16SpdMul = 1;
        return st;
    }
};

TEST_F(MotionSpeedTest, EntryAndTopsOfTheSource)
{
    const struct {
        PT_CTRL_FROM_E enFrom;
        PT_CTRL_FROM_E enEntry;
        BU_U32 u32OwnTop;
    } CASES[] = {{PT_CTRL_E_FROM_VISCA, PT_CTRL_E_FROM_OTHER, 24},
                 {PT_CTRL_E_FROM_SLEEP, PT_CTRL_E_FROM_OTHER, 24},
                 {PT_CTRL_E_FROM_OTHER, PT_CTRL_E_FROM_OTHER, 24},
                 {PT_CTRL_E_FROM_TKV_SUPERFINE, PT_CTRL_E_FROM_TKV_SUPERFINE, 255}};
    for (const auto &st : CASES) {
        PT_MOTION_CTRL_S stMotion = motion();
        EXPECT_EQ(PT_API_CalcMotionSpeed(st.enFrom, &stMotion, 7, 9), 0);
        EXPECT_EQ(g_stSetup.eFrom, st.enEntry);
        EXPECT_EQ(g_stSetup.s32MaxTiltSpeed, 9000); // loaded from the limits
        EXPECT_EQ(g_stTops.u32PanSpd, st.u32OwnTop);
        EXPECT_EQ(g_stTops.u32TiltSpd, st.u32OwnTop);
        EXPECT_EQ(stMotion.u16SpdMul, 100);
        EXPECT_EQ(PT_API_CalcMotionSpeed(st.enFrom, &stMotion, 7, 288, 9, 300), 0);
        EXPECT_EQ(stMotion.stSpd.u32PanSpd, 7u);
        EXPECT_EQ(stMotion.stSpd.u32TiltSpd, 9u);
        EXPECT_EQ(g_stTops.u32PanSpd, 288u);
        EXPECT_EQ(g_stTops.u32TiltSpd, 300u);
        EXPECT_EQ(PT_API_CalcMotionSpeed(st.enFrom, &stMotion), 0);
        EXPECT_EQ(stMotion.stSpd.u32PanSpd, 12000u);
        EXPECT_EQ(stMotion.stSpd.u32TiltSpd, 9000u);
    }
    PT_MOTION_CTRL_S stMotion = motion();
    EXPECT_EQ(PT_API_CalcMotionSpeed(PT_CTRL_E_FROM_BUTT, &stMotion), -1);
    EXPECT_EQ(PT_API_CalcMotionSpeed(PT_CTRL_E_FROM_ALG, nullptr, 1, 1), -1);
}

TEST_F(MotionSpeedTest, SimpleMapIsAShareOfTheMaximum)
{
    const struct {
        BU_S32 s32Level;
        BU_U32 u32Pan, u32Tilt;
    } CASES[] = {{-5, 100, 100},   {0, 100, 100},    {1, 100, 100},   {3, 300, 150},
                 {32, 3200, 1600}, {64, 6400, 3200}, {65, 6400, 3200}};
    for (const auto &st : CASES) {
        PT_MOTION_CTRL_S stMotion = motion(PT_MOTION_E_ABS_POS);
        PT_API_CalcMotionSpeed(PT_CTRL_E_FROM_ALG, &stMotion, st.s32Level, 64, st.s32Level, 64);
        EXPECT_EQ(stMotion.stSpd.u32PanSpd, st.u32Pan) << st.s32Level;
        EXPECT_EQ(stMotion.stSpd.u32TiltSpd, st.u32Tilt) << st.s32Level;
        EXPECT_EQ(stMotion.u16SpdMul, 50);
    }
    PT_MOTION_CTRL_S stMotion = motion(PT_MOTION_E_ABS_POS);
    PT_API_CalcMotionSpeed(PT_CTRL_E_FROM_ALG, &stMotion, 1, 0, INT32_MAX, 1); // no division by zero, no overflow
    EXPECT_EQ(stMotion.stSpd.u32PanSpd, 6400u);
    EXPECT_EQ(stMotion.stSpd.u32TiltSpd, 3200u);
}

TEST_F(MotionSpeedTest, SpeedMatchSlowsDrivesAsTheZoomGoesIn)
{
    PTZ_API_SetZoomTime(0, 4, 7);
    clock().advance(10000);
    const struct {
        BU_BOOL bMatch;
        PT_CTRL_FROM_E enFrom;
        PT_MOTION_TYPE_E enType;
        double dRate;
    } CASES[] = {{BU_TRUE, PT_CTRL_E_FROM_VISCA, PT_MOTION_E_LEFT, 0.5},
                 {BU_TRUE, PT_CTRL_E_FROM_ALG, PT_MOTION_E_LEFT, 0.25},
                 {BU_TRUE, PT_CTRL_E_FROM_VISCA, PT_MOTION_E_ABS_POS, 1},
                 {BU_TRUE, PT_CTRL_E_FROM_PRESET, PT_MOTION_E_LEFT, 1},
                 {BU_TRUE, PT_CTRL_E_FROM_TKV_SUPERFINE, PT_MOTION_E_LEFT, 1}, // has no rate
                 {BU_FALSE, PT_CTRL_E_FROM_VISCA, PT_MOTION_E_LEFT, 1},
                 {BU_FALSE, PT_CTRL_E_FROM_ALG, PT_MOTION_E_LEFT, 1}};
    for (const auto &st : CASES) {
        PT_API_SetPtSpeedMatch(0, st.bMatch, BU_FALSE, BU_FALSE);
        PT_MOTION_CTRL_S stMotion = motion(st.enType), stFull = motion(PT_MOTION_E_ABS_POS);
        PT_API_CalcMotionSpeed(st.enFrom, &stMotion, 2000, 4000, 2000, 4000);
        PT_API_CalcMotionSpeed(st.enFrom, &stFull, 2000, 4000, 2000, 4000);
        EXPECT_NEAR(stMotion.stSpd.u32PanSpd, stFull.stSpd.u32PanSpd * st.dRate, 2) << st.enFrom << ' ' << st.enType;
    }
    PT_API_SetPtSpeedMatch(0, BU_TRUE, BU_FALSE, BU_FALSE);
    PT_MOTION_CTRL_S stSlowest = motion();
    PT_API_CalcMotionSpeed(PT_CTRL_E_FROM_ALG, &stSlowest, 1, 64, 1, 64);
    EXPECT_EQ(stSlowest.stSpd.u32PanSpd, 100u) << "never below the slowest of the entry";
}

TEST_F(MotionSpeedTest, FaultySetsChangeNothing)
{
    constexpr PT_SPEED_LIMIT_T GOOD{1, 100, 1, 100, 10}, NO_MULTIPLIER{5, 12000, 5, 9000, 0},
        NO_SPEED{5, 0, 5, 9000, 100};
    PT_SPEED_CALC_SET_S stNoMap{}, stNoSource{};
    stNoSource.eFrom = PT_CTRL_E_FROM_BUTT;
    stNoSource.fnMapSpeedLevel = noteArguments;
    EXPECT_EQ(PT_API_InitByXml(nullptr, {}), -1);
    EXPECT_EQ(PT_API_InitByXml(&NO_MULTIPLIER, {}), -1);
    EXPECT_EQ(PT_API_InitByXml(&NO_SPEED, {}), -1);
    EXPECT_EQ(PT_API_InitByXml(&GOOD, {stNoMap}), -1);
    EXPECT_EQ(PT_API_InitByXml(&GOOD, {stNoSource}), -1);
    PT_MOTION_CTRL_S stMotion = motion();
    PT_API_CalcMotionSpeed(PT_CTRL_E_FROM_VISCA, &stMotion);
    EXPECT_EQ(stMotion.stSpd.u32PanSpd, 12000u);
}
} // namespace
