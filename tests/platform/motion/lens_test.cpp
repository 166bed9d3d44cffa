#include "motionTest.h"

namespace
{
using testing::ElementsAre;

class ZoomFocusTest : public MotionTest
{
protected:
    static void setAuto(BU_BOOL bAuto) { AF_API_SetFocusAuto(0, bAuto, BU_FALSE, BU_TRUE); }
    BU_S32 settledFocus()
    {
        clock().advance(20000);
        return focus();
    }
    BU_S32 settledZoom()
    {
        clock().advance(60000);
        return zoom();
    }
};

TEST_F(ZoomFocusTest, ZoomEndsWhereTheDigitalZoomAllows)
{
    const struct {
        BU_BOOL bDigital;
        BU_S32 s32Limit, s32End;
    } CASES[] = {{BU_FALSE, 1, 16384}, {BU_FALSE, 16, 16384}, {BU_TRUE, 1, 16384}, {BU_TRUE, 2, 19248},
                 {BU_TRUE, 5, 26410},  {BU_TRUE, 12, 30708},  {BU_TRUE, 16, 31424}};
    for (const auto &st : CASES) {
        PTZ_API_SetDZoomMode(0, st.bDigital, BU_FALSE, BU_FALSE);
        PTZ_API_SetMaxDZoomTime(0, st.s32Limit, BU_FALSE, BU_FALSE);
        command(lens(ZF_E_ZOOM_TELE));
        EXPECT_EQ(settledZoom(), st.s32End);
        command(lens(ZF_E_ZOOM_WIDE));
        EXPECT_EQ(settledZoom(), 0);
        command(lens(ZF_E_ZOOM_DIRECT_POS, 40000), 1);
        EXPECT_EQ(settledZoom(), st.s32End);
    }
    PTZ_API_SetDZoomMode(0, BU_FALSE, BU_FALSE, BU_TRUE); // switched off in the digital range
    EXPECT_EQ(zoom(), 16384);
}

TEST_F(ZoomFocusTest, ZoomTakesTheTimeOfItsSpeed)
{
    const struct {
        BU_U8 u8Speed;
        BU_S64 s64Ms; // 16384 units at (speed + 1) / 20 of that a second, plus speed / acceleration
    } CASES[] = {{0, 20025}, {4, 4125}, {7, 2700}, {200, 2700}};
    for (const auto &st : CASES) {
        ZF_API_StartService();
        command(lens(ZF_E_ZOOM_DIRECT_POS, 16384, st.u8Speed), st.u8Speed);
        clock().advance(st.s64Ms - 1);
        EXPECT_THAT(reports(), testing::IsEmpty()) << int{st.u8Speed};
        clock().advance(1);
        EXPECT_EQ(reports().size(), 1u) << int{st.u8Speed};
        reports().clear();
    }
    command(lens(ZF_E_ZOOM_WIDE));
    clock().advance(1000);
    command(lens(ZF_E_ZOOM_STOP));
    clock().advance(200);
    const BU_S32 s32Rest = zoom();
    EXPECT_GT(s32Rest, 0);
    EXPECT_EQ(settledZoom(), s32Rest);
}

TEST_F(ZoomFocusTest, AutomaticFocusFollowsTheZoomAndManualStays)
{
    const BU_S32 s32Wide = focus();
    command(lens(ZF_E_ZOOM_TELE));
    BU_S32 s32Last = s32Wide;
    for (int i = 0; i < 20; ++i) {
        clock().advance(100);
        EXPECT_GT(focus(), s32Last);
        s32Last = focus();
    }
    const BU_S32 s32Tele = settledFocus();

    setAuto(BU_FALSE); // and the lens stands where it stood
    command(lens(ZF_E_ZOOM_WIDE));
    EXPECT_EQ(settledFocus(), s32Tele);
    command(lens(ZF_E_FOCUS_DIRECT_POS, 7000), 1);
    setAuto(BU_TRUE);
    clock().advance(10);
    EXPECT_THAT(reports(), ElementsAre("zf 1 left"));
    EXPECT_GT(focus(), s32Wide) << "it runs there";
    EXPECT_EQ(settledFocus(), s32Wide);
}

TEST_F(ZoomFocusTest, SwitchedToManualDuringTheZoomItStandsAtOnce)
{
    command(lens(ZF_E_ZOOM_TELE));
    clock().advance(1000);
    const BU_S32 s32Now = focus();
    setAuto(BU_FALSE);
    clock().advance(500); // nobody asks in between
    EXPECT_EQ(focus(), s32Now);
}

TEST_F(ZoomFocusTest, ManualCommandHoldsUntilTheZoomMoves)
{
    const BU_S32 s32Sharp = focus();
    command(lens(ZF_E_FOCUS_DIRECT_POS, 5000), 1);
    EXPECT_EQ(settledFocus(), 5000);
    EXPECT_THAT(reports(), ElementsAre("zf 1 done"));
    AF_API_TriggerAutoFocus(0);
    EXPECT_EQ(settledFocus(), s32Sharp);
    command(lens(ZF_E_FOCUS_DIRECT_POS, 5000), 2);
    clock().advance(100);
    command(lens(ZF_E_ZOOM_WIDE)); // the automatic focus takes over again
    EXPECT_EQ(settledFocus(), s32Sharp);
    EXPECT_THAT(reports(), ElementsAre("zf 1 done", "zf 2 left"));
}

TEST_F(ZoomFocusTest, ManualFocusDrivesToItsEndsAndFocusesOnceOnTrigger)
{
    const BU_S32 s32Sharp = focus();
    setAuto(BU_FALSE);
    AF_API_SetFocusAct(0, FOCUS_ACTION_E_NEAR, 8);
    EXPECT_EQ(settledFocus(), 7095);
    AF_API_SetFocusAct(0, FOCUS_ACTION_E_FAR, 8);
    EXPECT_EQ(settledFocus(), 175);
    AF_API_SetFocusAct(0, FOCUS_ACTION_E_NEAR, 4);
    clock().advance(1000);
    AF_API_SetFocusAct(0, FOCUS_ACTION_E_STOP, 4);
    clock().advance(200);
    const BU_S32 s32Stopped = focus();
    EXPECT_NEAR(s32Stopped, 175 + 1977 - 1977 / 28, 60) << "4/14 of 6920 a second, less the start, plus the braking";
    EXPECT_EQ(settledFocus(), s32Stopped);

    AF_API_TriggerAutoFocus(0);
    clock().advance(10);
    EXPECT_NE(focus(), s32Sharp) << "focusing takes a moment";
    EXPECT_EQ(settledFocus(), s32Sharp);
    for (const BU_S32 s32Outside : {174, 7096}) {
        EXPECT_EQ(AF_API_SetFocusPos(0, s32Outside), -1);
        EXPECT_EQ(AF_API_SetFocusAbs(0, s32Outside, BU_TRUE, BU_TRUE), -1);
    }
    EXPECT_EQ(settledFocus(), s32Sharp);
}

TEST_F(ZoomFocusTest, FocusesAfterTheZoomUnlessTheZoomWasTakenOver)
{
    command(lens(ZF_E_ZOOM_DIRECT_POS, 16384));
    const BU_S32 s32SharpTele = settledFocus();
    setAuto(BU_FALSE);
    for (const bool bTakenOver : {false, true}) {
        command(lens(ZF_E_ZOOM_DIRECT_POS, 0));
        AF_API_SetFocusPos(0, 6000);
        settledFocus();
        ZF_MOTION_CTRL_S stZoom = lens(ZF_E_ZOOM_DIRECT_POS, 16384);
        stZoom.bTriggerFocusAfterZoom = BU_TRUE;
        command(stZoom);
        clock().advance(1000);
        EXPECT_EQ(focus(), 6000);
        if (bTakenOver) command(lens(ZF_E_ZOOM_STOP));
        EXPECT_EQ(settledFocus(), bTakenOver ? 6000 : s32SharpTele);
    }
}

TEST_F(ZoomFocusTest, StoredManualFocusComesBackAtTheStart)
{
    setAuto(BU_FALSE);
    AF_API_SetFocusAbs(0, 4321, BU_TRUE, BU_TRUE);
    EXPECT_EQ(settledFocus(), 4321);
    AF_API_SetFocusPos(0, 1000);
    settledFocus();
    ZF_API_StartService();
    EXPECT_EQ(focus(), 4321);
}

TEST_F(ZoomFocusTest, NearFacesPullTheFocus)
{
    const BU_S32 s32Scene = focus();
    const tagFaceRectInfo astFaces[] = {{1, 0, 0, 0.1f, 0.1f, 0}, {2, 0.4f, 0.3f, 0.6f, 0.7f, 0}};
    AF_API_SetFaceInfo(astFaces, 2); // not wanted
    EXPECT_EQ(settledFocus(), s32Scene);
    AF_API_SetFaceAF(0, BU_TRUE, BU_FALSE, BU_FALSE);
    AF_API_SetFaceInfo(astFaces, 1);
    const BU_S32 s32Far = settledFocus();
    AF_API_SetFaceInfo(astFaces, 2);
    EXPECT_EQ(focus(), s32Far) << "no jump";
    EXPECT_GT(settledFocus(), s32Far);
    EXPECT_GT(s32Far, s32Scene);
    AF_API_SetFaceInfo(nullptr, 0);
    EXPECT_EQ(settledFocus(), s32Scene);
    EXPECT_EQ(AF_API_SetFaceInfo(nullptr, 1), -1);
}
} // namespace
