#include "motionTest.h"

namespace
{
class PositionTest : public MotionTest
{
};

BU_U32 wire(BU_S32 s32Visca) { return static_cast<BU_U16>(s32Visca); }

TEST_F(PositionTest, KnownViscaPositions)
{
    const struct {
        BU_U32 u32Pan, u32Tilt;
        BU_S32 s32PanMotor, s32TiltMotor;
    } KNOWN[] = {
        {0x0000, 0x0000, 540000, 540000},
        {0xF670, 0xFE50, 285000, 495000}, // -170 and -30 degrees, the ends of travel
        {0x0990, 0x0510, 795000, 675000}, // 170 and 90 degrees
        {0x0048, 0xFFB8, 547500, 532500}, // 5 and -5 degrees
        {0x0001, 0xFFFF, 540104, 539896},
        {0x0991, 0x0511, 795000, 675000}, // beyond the ends
        {0x7FFF, 0x8000, 795000, 495000},
        {0x8000, 0x7FFF, 285000, 675000},
        {0xFFFF0990, 0x00010000, 795000, 540000}, // only 16 bits count
    };
    for (const auto &st : KNOWN) {
        PT_POS_S stPos{st.u32Pan, st.u32Tilt};
        EXPECT_EQ(BSP_PTPosFromVisca(0, &stPos), 0);
        EXPECT_EQ(static_cast<BU_S32>(stPos.u32PanPos), st.s32PanMotor) << std::hex << st.u32Pan;
        EXPECT_EQ(static_cast<BU_S32>(stPos.u32TiltPos), st.s32TiltMotor) << std::hex << st.u32Tilt;
    }
}

TEST_F(PositionTest, AViscaPositionReadSentBackAndReadAgainIsTheSame)
{
    for (BU_S32 s32 = -2448; s32 <= 2448; ++s32) {
        const BU_U32 u32Tilt = wire(std::clamp(s32, -432, 1296));
        PT_POS_S stPos{wire(s32), u32Tilt};
        BSP_PTPosFromVisca(0, &stPos);
        BSP_PTPosToVisca(0, &stPos);
        ASSERT_EQ(stPos.u32PanPos, wire(s32));
        ASSERT_EQ(stPos.u32TiltPos, u32Tilt);
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
    const struct {
        BU_S32 s32Mode, s32Pan, s32Tilt;
        BU_U32 u32Pan, u32Tilt;
    } OUTSIDE[] = {
        {0, -17001, 9001, 285000, 675000}, {0, INT32_MAX, INT32_MIN, 795000, 495000}, {1, 0, 1000000, 285000, 675000}};
    for (const auto &st : OUTSIDE) {
        const PT_DEGREE_S stDegree{st.s32Pan, st.s32Tilt};
        PT_POS_S stPos{};
        EXPECT_EQ(BSP_PTDegreeToPos(0, &stPos, &stDegree, st.s32Mode), 0);
        EXPECT_EQ(stPos.u32PanPos, st.u32Pan);
        EXPECT_EQ(stPos.u32TiltPos, st.u32Tilt);
    }
    PT_DEGREE_S stDegree{};
    PT_POS_S stPos{};
    EXPECT_EQ(BSP_PTPosToDegree(0, &stDegree, &stPos, 2), -1);
    EXPECT_EQ(BSP_PTPosToDegree(1, &stDegree, &stPos, 1), -1);
}

TEST_F(PositionTest, MagnificationsOfZoomPositions) // 20 times in the lens, 16 times digital
{
    PTZ_API_SetMaxDZoomTime(0, 16, BU_FALSE, BU_FALSE);
    PTZ_API_SetDZoomMode(0, BU_TRUE, BU_FALSE, BU_FALSE);
    const struct {
        BU_S32 s32Pos;
        float fTimes;
    } KNOWN[] = {{0, 1},      {8192, 4.472f}, {16384, 20},  {19248, 40},
                 {20680, 50}, {22113, 60},    {30708, 240}, {31424, 320}};
    const auto settled = [&] {
        clock().advance(60000);
        return zoom();
    };
    for (const auto &st : KNOWN) {
        command(lens(ZF_E_ZOOM_DIRECT_POS, static_cast<BU_U32>(st.s32Pos)));
        EXPECT_EQ(settled(), st.s32Pos);
        BU_FLOAT fTimes = 0;
        PTZ_API_GetZoomTime(0, &fTimes);
        EXPECT_NEAR(fTimes, st.fTimes, st.fTimes / 1000) << st.s32Pos;
        PTZ_API_SetZoomTime(0, 1, 7);
        EXPECT_EQ(settled(), 0);
        PTZ_API_SetZoomTime(0, fTimes, 7);
        EXPECT_EQ(settled(), st.s32Pos);
    }
    for (const float fWide : {0.0f, -3.0f, std::nanf("")}) {
        PTZ_API_SetZoomTime(0, fWide, 7);
        EXPECT_EQ(settled(), 0);
    }
    PTZ_API_SetZoomTime(0, 1e9f, 7);
    EXPECT_EQ(settled(), 31424);
}
} // namespace
