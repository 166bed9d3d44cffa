// Positions in other units: of controllers, degrees, magnifications.
#include "motionTest.h"

namespace
{
using PositionTest = MotionTest;
using namespace std::string_literals;

TEST_F(PositionTest, KnownViscaPositions)
{
    // clang-format off
    const struct { PT_POS_S stVisca, stMotor; } KNOWN[] = {
        {{0x0000, 0x0000}, {540000, 540000}},
        {{0xF670, 0xFE50}, {285000, 495000}}, // -170 and -30 degrees, the ends of travel
        {{0x0990, 0x0510}, {795000, 675000}}, // 170 and 90 degrees
        {{0x0048, 0xFFB8}, {547500, 532500}}, // 5 and -5 degrees
        {{0x0001, 0xFFFF}, {540104, 539896}}, {{0x0991, 0x0511}, {795000, 675000}}, // beyond the ends
        {{0x7FFF, 0x8000}, {795000, 495000}}, {{0x8000, 0x7FFF}, {285000, 675000}},
        {{0xFFFF0990, 0x00010000}, {795000, 540000}}, // only 16 bits count
    };
    // clang-format on
    for (auto [stPos, stMotor] : KNOWN) {
        EXPECT_EQ(BSP_PTPosFromVisca(0, &stPos), 0);
        EXPECT_EQ(stPos, stMotor);
    }
    for (BU_S32 s32 = -2448; s32 <= 2448; ++s32) { // read, sent back and read again it is the same
        const PT_POS_S stVisca{static_cast<BU_U16>(s32), static_cast<BU_U16>(std::clamp(s32, -432, 1296))};
        PT_POS_S stPos = stVisca;
        BSP_PTPosFromVisca(0, &stPos);
        BSP_PTPosToVisca(0, &stPos);
        ASSERT_EQ(stPos, stVisca);
    }
}

TEST_F(PositionTest, DegreesOfEveryMotorPosition)
{
    for (BU_S32 s32 = 285000; s32 <= 795000; s32 += 7) {
        const PT_POS_S stPos{static_cast<BU_U32>(s32), 540000};
        PT_DEGREE_S stDegree{};
        PT_POS_S stBack{};
        ASSERT_EQ(BSP_PTPosToDegree(0, &stDegree, &stPos, 1), 0);
        ASSERT_EQ(stDegree.s32PanDegree, s32);
        ASSERT_EQ(BSP_PTPosToDegree(0, &stDegree, &stPos, 0), 0);
        ASSERT_NEAR(stDegree.s32PanDegree, (s32 - 540000) / 15.0, 0.5);
        ASSERT_EQ(BSP_PTDegreeToPos(0, &stBack, &stDegree, 0), 0);
        ASSERT_NEAR(static_cast<double>(stBack.u32PanPos), s32, 7.5); // half of a hundredth of a degree
    }
    // clang-format off
    const struct { BU_S32 s32Mode; PT_DEGREE_S stDegree; PT_POS_S stEnd; } OUTSIDE[] = {
        {0, {-17001, 9001}, {285000, 675000}}, {0, {INT32_MAX, INT32_MIN}, {795000, 495000}},
        {1, {0, 1000000}, {285000, 675000}}};
    // clang-format on
    for (const auto &[s32Mode, stOutside, stEnd] : OUTSIDE) {
        PT_POS_S stPos{};
        EXPECT_EQ(BSP_PTDegreeToPos(0, &stPos, &stOutside, s32Mode), 0);
        EXPECT_EQ(stPos, stEnd);
    }
    PT_DEGREE_S stDegree{};
    const PT_POS_S stPos{};
    for (const auto &[s32Device, s32Mode] : {std::pair(0, 2), {1, 1}})
        EXPECT_EQ(BSP_PTPosToDegree(s32Device, &stDegree, &stPos, s32Mode), -1);
}

TEST_F(PositionTest, MagnificationsOfZoomPositions) // 20 times in the lens, 16 times digital
{
    PTZ_API_SetMaxDZoomTime(0, 16, BU_FALSE, BU_FALSE);
    PTZ_API_SetDZoomMode(0, BU_TRUE, BU_FALSE, BU_FALSE);
    // clang-format off
    const std::pair<BU_S32, double> KNOWN[] = {{0, 1}, {8192, 4.472}, {16384, 20}, {19248, 40}, {20680, 50},
        {22113, 60}, {30708, 240}, {31424, 320}};
    // clang-format on
    for (const auto &[s32Pos, dTimes] : KNOWN) {
        const std::string strEnd = " wait60000 zoomed" + std::to_string(s32Pos);
        run("zoom" + std::to_string(s32Pos) + strEnd);
        BU_FLOAT fTimes = 0;
        PTZ_API_GetZoomTime(0, &fTimes);
        EXPECT_NEAR(fTimes, dTimes, dTimes / 1000) << s32Pos;
        PTZ_API_SetZoomTime(0, 1, 7);
        run("wait60000 zoomed0");
        PTZ_API_SetZoomTime(0, fTimes, 7);
        run(strEnd);
    }
    for (const auto &[fTimes, pcEnd] :
         {std::pair(0.0f, "zoomed0"), {-3.0f, "zoomed0"}, {std::nanf(""), "zoomed0"}, {1e9f, "zoomed31424"}}) {
        PTZ_API_SetZoomTime(0, fTimes, 7);
        run("wait60000 "s + pcEnd);
    }
}
} // namespace
