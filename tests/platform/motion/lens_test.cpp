// The lens: how far and how fast the zoom goes, what the focus follows, and when it is left alone.
#include "motionTest.h"

#include <utility>

namespace
{
using testing::ElementsAre;

struct ZoomFocusTest : MotionTest {
    BU_S32 settled()
    {
        clock().advance(20000);
        return focus();
    }
};

TEST_F(ZoomFocusTest, ZoomEndsWhereTheDigitalZoomAllows)
{
    // clang-format off
    const std::tuple<BU_BOOL, BU_S32, std::string> ROWS[] = {{0, 1, "16384"}, {0, 16, "16384"}, {1, 1, "16384"},
        {1, 2, "19248"}, {1, 5, "26410"}, {1, 12, "30708"}, {1, 16, "31424"}};
    // clang-format on
    for (const auto &[bDigital, s32Limit, strEnd] : ROWS) {
        PTZ_API_SetDZoomMode(0, bDigital, BU_FALSE, BU_FALSE);
        PTZ_API_SetMaxDZoomTime(0, s32Limit, BU_FALSE, BU_FALSE);
        run("tele wait60000 zoomed" + strEnd + " wide wait60000 zoomed0 zoom40000#1 wait60000 zoomed" + strEnd);
    }
    PTZ_API_SetDZoomMode(0, BU_FALSE, BU_FALSE, BU_TRUE); // switched off in the digital range
    run("zoomed16384");
}

TEST_F(ZoomFocusTest, ZoomTakesTheTimeOfItsSpeed)
{
    // 16384 units at (speed + 1) / 20 of that a second, plus speed / acceleration
    for (auto [iSpeed, s64Ms] : {std::pair(0, 20025), {4, 4125}, {7, 2700}, {200, 2700}}) {
        ZF_API_StartService();
        command(lens(ZF_E_ZOOM_DIRECT_POS, 16384, static_cast<BU_U8>(iSpeed)), &iSpeed);
        clock().advance(s64Ms - 1);
        EXPECT_THAT(reports(), testing::IsEmpty()) << iSpeed;
        clock().advance(1);
        EXPECT_EQ(std::exchange(reports(), {}).size(), 1u) << iSpeed;
    }
    run("wide wait1000 zoomstop wait200");
    const BU_S32 s32Rest = zoom();
    EXPECT_GT(s32Rest, 0);
    run("wait60000 zoomed" + std::to_string(s32Rest));
}

TEST_F(ZoomFocusTest, AutomaticFocusFollowsTheZoomAndManualStays)
{
    const BU_S32 s32Wide = focus();
    run("tele");
    for (int i = 0; i < 20; ++i) {
        const BU_S32 s32Last = focus();
        clock().advance(100);
        EXPECT_GT(focus(), s32Last);
    }
    const BU_S32 s32Tele = settled();
    run("manual wide"); // and the lens stands where it stood
    EXPECT_EQ(settled(), s32Tele);
    run("focus7000#1 auto wait10");
    EXPECT_THAT(reports(), ElementsAre("zf 1 left"));
    EXPECT_GT(focus(), s32Wide) << "it runs there";
    EXPECT_EQ(settled(), s32Wide);
    run("tele wait1000");
    const BU_S32 s32Now = focus();
    run("manual wait500"); // switched during the zoom; nobody asks in between
    EXPECT_EQ(focus(), s32Now);
}

TEST_F(ZoomFocusTest, ManualCommandHoldsUntilTheZoomMoves)
{
    const BU_S32 s32Sharp = focus();
    run("focus5000#1 wait20000 focused5000");
    EXPECT_THAT(reports(), ElementsAre("zf 1 done"));
    run("once");
    EXPECT_EQ(settled(), s32Sharp);
    run("focus5000#2 wait100 wide"); // the automatic focus takes over again
    EXPECT_EQ(settled(), s32Sharp);
    EXPECT_THAT(reports(), ElementsAre("zf 1 done", "zf 2 left"));
}

TEST_F(ZoomFocusTest, ManualFocusDrivesToItsEndsAndFocusesOnceOnTrigger)
{
    const BU_S32 s32Sharp = focus();
    run("manual");
    AF_API_SetFocusAct(0, FOCUS_ACTION_E_NEAR, 8);
    EXPECT_EQ(settled(), 7095);
    AF_API_SetFocusAct(0, FOCUS_ACTION_E_FAR, 8);
    EXPECT_EQ(settled(), 175);
    AF_API_SetFocusAct(0, FOCUS_ACTION_E_NEAR, 4);
    run("wait1000");
    AF_API_SetFocusAct(0, FOCUS_ACTION_E_STOP, 4);
    run("wait200");
    const BU_S32 s32Stopped = focus();
    EXPECT_NEAR(s32Stopped, 175 + 1977 - 1977 / 28, 60) << "4/14 of 6920 a second, less the start, plus the braking";
    EXPECT_EQ(settled(), s32Stopped);
    run("once wait10");
    EXPECT_NE(focus(), s32Sharp) << "focusing takes a moment";
    EXPECT_EQ(settled(), s32Sharp);
    for (const BU_S32 s32Outside : {174, 7096}) {
        EXPECT_EQ(AF_API_SetFocusPos(0, s32Outside), -1);
        EXPECT_EQ(AF_API_SetFocusAbs(0, s32Outside, BU_TRUE, BU_TRUE), -1);
    }
    EXPECT_EQ(settled(), s32Sharp);
}

TEST_F(ZoomFocusTest, FocusesAfterTheZoomUnlessTheZoomWasTakenOver)
{
    run("zoom16384");
    const BU_S32 s32SharpTele = settled();
    ZF_MOTION_CTRL_S stZoom = lens(ZF_E_ZOOM_DIRECT_POS, 16384);
    stZoom.bTriggerFocusAfterZoom = BU_TRUE;
    for (const bool bTakenOver : {false, true}) {
        run("manual zoom0 focus6000 wait20000");
        command(stZoom);
        run("wait1000 focused6000");
        if (bTakenOver) run("zoomstop");
        EXPECT_EQ(settled(), bTakenOver ? 6000 : s32SharpTele);
    }
}

TEST_F(ZoomFocusTest, StoredManualFocusComesBackAtTheStart)
{
    run("manual");
    AF_API_SetFocusAbs(0, 4321, BU_TRUE, BU_TRUE);
    EXPECT_EQ(settled(), 4321);
    AF_API_SetFocusPos(0, 1000);
    EXPECT_EQ(settled(), 1000);
    ZF_API_StartService();
    EXPECT_EQ(focus(), 4321);
}

TEST_F(ZoomFocusTest, NearFacesPullTheFocus)
{
    const BU_S32 s32Scene = focus();
    const tagFaceRectInfo astFaces[] = {{1, 0, 0, 0.1f, 0.1f, 0}, {2, 0.4f, 0.3f, 0.6f, 0.7f, 0}};
    AF_API_SetFaceInfo(astFaces, 2); // not wanted
    EXPECT_EQ(settled(), s32Scene);
    AF_API_SetFaceAF(0, BU_TRUE, BU_FALSE, BU_FALSE);
    AF_API_SetFaceInfo(astFaces, 1);
    const BU_S32 s32Far = settled();
    AF_API_SetFaceInfo(astFaces, 2);
    EXPECT_EQ(focus(), s32Far) << "no jump";
    EXPECT_GT(settled(), s32Far);
    EXPECT_GT(s32Far, s32Scene);
    AF_API_SetFaceInfo(nullptr, 0);
    EXPECT_EQ(settled(), s32Scene);
    EXPECT_EQ(AF_API_SetFaceInfo(nullptr, 1), -1);
}
} // namespace
