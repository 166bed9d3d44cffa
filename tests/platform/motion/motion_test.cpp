// The head: where it is when, what it reports, what it refuses.
#include "motion/standby.h"
#include "motionTest.h"

#include "camera/menu.h"
#include "camera/picture.h"

#include <utility>

namespace
{
using testing::ElementsAre;
using testing::IsEmpty;

// clang-format off
// The head accelerates with 240 degrees per second squared and brakes on a stop with twice as much.
TEST_F(MotionTest, FollowsTheArithmetic)
{
    for (const char *pcScript : {
        "to90 wait250 at7.5 wait750 at52.5 wait500 at82.5 wait250 at90 wait7250 at90", // a trapezoid
        "to2.4 wait100 at1.2 wait50 at2.1 wait50 at2.4", // never at full speed
        "to-90 wait1000 at-52.5 wait750 at-90",
        "right wait1000 at52.5 left wait100 at57.3 wait150 at60 wait150 at57.3 wait100 at52.5 wait1000 at-7.5",
        // 60 degrees is the turning point; then a triangle of 7.5 degrees with 42.426 degrees per second at its peak
        "right wait1000 to52.5 wait250 at60 wait177 at56.241 wait177 at52.5",
        "right wait1000 to60 wait100 at57.3 wait150 at60 wait1750 at60", // a nearer target
        "right wait1000 at52.5 stop wait125 at56.25 wait3875 at56.25",
        "right wait1000 speed12 right wait200 at59.7 wait1000 at71.7", // slower while driving
        "right wait1000 speed120 right wait250 at75 wait100 at87", // and faster
        "speed120 right wait500 at30 wait1417 at170 wait7083 at170", // into the end of travel
        "speed120 left wait5000 at-170 speed60 right wait1000 at-117.5", // and out of it
        "speed120 to-200 wait9000 at-170", // a target beyond the end
        "speed0 to90 wait500 at30 wait750 at90", // none is full speed
        "speed0 right wait2000 at0", // but for a drive
        "speed600 right wait1000 at90", // never above the limit
        "to90 wait3000 speed1 home wait500 at60 wait750 at0", // home, at full speed
        "speed1 reset wait1917 at-170 wait3334 at170 wait1916 at0"}) {
        start();
        run(pcScript);
    }
}

TEST_F(MotionTest, DirectionsLeadToTheirCorners)
{
    const struct { PT_MOTION_TYPE_E enType; double dPan, dTilt; } CORNERS[] = {
        {PT_MOTION_E_UP, 0, 90}, {PT_MOTION_E_DOWN, 0, -30}, {PT_MOTION_E_LEFT, -170, 0}, {PT_MOTION_E_RIGHT, 170, 0},
        {PT_MOTION_E_LEFT_UP, -170, 90}, {PT_MOTION_E_LEFT_DOWN, -170, -30},
        {PT_MOTION_E_RIGHT_UP, 170, 90}, {PT_MOTION_E_RIGHT_DOWN, 170, -30}};
    for (const auto &st : CORNERS)
        for (const BU_S32 s32Mount : {1, 0}) { // standing, hanging: the camera hangs and the picture is turned
            BSP_PTProcInit(0, nullptr);
            SYS_API_SetMountMode(s32Mount, BU_FALSE, BU_TRUE);
            PT_MOTION_CTRL_S stMotion = drive(st.enType, 120, 90);
            PT_API_CalcMotionType(&stMotion.enMotionType);
            EXPECT_EQ(command(stMotion), 0);
            clock().advance(10000);
            EXPECT_NEAR(pan(), s32Mount ? st.dPan : -st.dPan, CLOSE) << st.enType;
            EXPECT_NEAR(tilt(), s32Mount || st.dTilt == 0 ? st.dTilt : st.dTilt > 0 ? -30 : 90, CLOSE) << st.enType;
        }
    PT_MOTION_TYPE_E enType = PT_MOTION_E_ABS_POS; // hanging still
    PT_API_CalcMotionType(&enType);
    EXPECT_EQ(enType, PT_MOTION_E_ABS_POS);
}
// clang-format on

TEST_F(MotionTest, PositionsRunInBothAxesWhileSomebodyAsks)
{
    command(moveTo(-80, 60, 30, 20));
    for (int i = 0; i < 100; ++i) {
        const double dPan = pan(), dTilt = tilt();
        clock().advance(16);
        EXPECT_TRUE(pan() < dPan && tilt() > dTilt) << i;
    }
    run("right wait1000"); // tilt is not part of it
    const double dTilt = tilt();
    run("wait1000");
    EXPECT_EQ(tilt(), dTilt);
}

TEST_F(MotionTest, SpeedMatchBringsPanAndTiltToTheTargetTogether)
{
    PT_API_InitByXml(&LIMITS, {{FROM, BU_TRUE, 0, 0, 0, 0, 0, PT_CalcSpeedLevelMap_Simple, 1, nullptr, 0}});
    for (const BU_S32 s32On : {BU_TRUE, BU_FALSE}) {
        PT_API_SetPtSpeedMatch(0, s32On, BU_FALSE, BU_FALSE);
        BSP_PTProcInit(0, nullptr);
        int iData = 1;
        command(moveTo(90, 15), &iData);
        clock().advance(1700);
        EXPECT_LT(pan(), 90);
        EXPECT_EQ(tilt() < 15, s32On == BU_TRUE);
        run("wait50 at90");
        EXPECT_NEAR(tilt(), 15, CLOSE);
        EXPECT_THAT(std::exchange(reports(), {}), ElementsAre("pt 1 done"));
    }
}

// clang-format off
/// What is reported after the moves of a script, and after all is over.
TEST_F(MotionTest, ExactlyOneReportForEachMoveWithTargetAndData)
{
    const struct { const char *pcScript; std::vector<std::string> atOnce, later; } ROWS[] = {
        {"to90#1=1", {}, {"pt 1 done"}}, {"to0#1=1", {"pt 1 done"}, {"pt 1 done"}},
        {"home#1=1", {"pt 1 done"}, {"pt 1 done"}}, {"reset#1=1", {}, {"pt 1 done"}},
        {"to90=1", {}, {}}, // without data
        {"right#1=0", {}, {}}, {"stop#1=0", {}, {}}, {"tele#1=0", {}, {}}, {"zoom16384#1=1", {}, {"zf 1 done"}},
        {"focus5000#1=1", {}, {"zf 1 done"}}, {"both6000#1=1", {}, {"zf 1 done"}}, // zoom and focus end once
        {"to90#1 to-90#2", {"pt 1 left"}, {"pt 1 left", "pt 2 done"}}, {"to90#1 left", {"pt 1 left"}, {"pt 1 left"}},
        {"to90#1 stop", {"pt 1 left"}, {"pt 1 left"}},
        {"zoom16384#1 focus5000#2 to90#3 stop", {"pt 3 left"}, {"pt 3 left", "zf 2 done", "zf 1 done"}}, // not the lens
        {"both6000#1 focus5000#2 zoomstop", {"zf 1 left"}, {"zf 1 left", "zf 2 done"}}, // nor the zoom the focus
        {"both6000#1 zoomstop", {"zf 1 left"}, {"zf 1 left"}},
        {"to90#0 to-90#1 to90#2", {"pt 0 left", "pt 1 left"}, {"pt 0 left", "pt 1 left", "pt 2 done"}},
    };
    for (const auto &st : ROWS) {
        SCOPED_TRACE(st.pcScript);
        start();
        run(st.pcScript);
        EXPECT_THAT(reports(), IsEmpty()) << "a report inside the call";
        run("wait1");
        EXPECT_EQ(reports(), st.atOnce);
        run("wait60000");
        EXPECT_EQ(reports(), st.later);
    }
}
// clang-format on

TEST_F(MotionTest, OtherSourcesMoveTooAndHaveNoReports)
{
    int iData = 1;
    const auto stAway = moveTo(90, 0), stLeft = drive(PT_MOTION_E_LEFT, 60);
    const auto stZoom = lens(ZF_E_ZOOM_DIRECT_POS, 16384);
    EXPECT_EQ(BSP_PTCtrlMotion(PT_CTRL_E_FROM_OTHER, &stAway, &iData), 1);
    EXPECT_EQ(BSP_ZFCtrlMotion(ZF_CTRL_E_FROM_OTHER, &stZoom, &iData), 1);
    run("wait60000");
    EXPECT_THAT(reports(), IsEmpty());
    run("to-90#1 wide wait60000 zoom16384#2");
    BSP_PTCtrlMotion(PT_CTRL_E_FROM_REMOTE, &stLeft, nullptr);
    PTZ_API_SetZoomAct(0, ZOOM_ACTION_E_WIDE, 3);
    run("wait60000");
    EXPECT_THAT(reports(), ElementsAre("pt 1 done", "zf 2 left"));
    run("to90#3");
    BSP_PTCtrlMotion(PT_CTRL_E_FROM_REMOTE, &stLeft, nullptr);
    run("wait1");
    EXPECT_EQ(reports().back(), "pt 3 left");
}

TEST_F(MotionTest, ReportComesAtTheEndAndMayCommandAgain)
{
    int iData = 2;
    const auto again = [](void *pv, BU_BOOL) -> BU_S32 { return command(moveTo(0, 0), static_cast<int *>(pv)); };
    const PT_CTRL_CALL_FUNC_S stAgain{PT_CTRL_E_FROM_CMS, again, sizeof(iData)};
    BSP_PTRegisterRetCallFunc(0, PT_CTRL_E_FROM_CMS, &stAgain);
    const auto stAway = moveTo(90, 0);
    BSP_PTCtrlMotion(PT_CTRL_E_FROM_CMS, &stAway, &iData);
    run("wait1750 at90 wait1749"); // there, and on the way back
    EXPECT_THAT(reports(), IsEmpty());
    run("wait1");
    EXPECT_THAT(reports(), ElementsAre("pt 2 done"));
}

TEST_F(MotionTest, RefusesWithoutAnyEffect)
{
    run("to90#1");
    const auto stStop = drive(PT_MOTION_E_STOP, 0);
    PT_MOTION_CTRL_S stOtherDevice = stStop;
    stOtherDevice.u32PTDev = 1;
    for (const auto &st : {stOtherDevice, drive(PT_MOTION_E_BUTT, 1), drive(static_cast<PT_MOTION_TYPE_E>(-1), 1)})
        EXPECT_EQ(command(st), -1);
    EXPECT_EQ(BSP_PTCtrlMotion(FROM, nullptr, nullptr), -1);
    EXPECT_EQ(BSP_PTCtrlMotion(PT_CTRL_E_FROM_BUTT, &stStop, nullptr), -1);
    ZF_MOTION_CTRL_S stNoLens = lens(ZF_E_ZOOM_TELE);
    stNoLens.u32ZfDev = 1;
    for (const auto &st : {stNoLens, lens(static_cast<ZF_MOTION_TYPE_E>(9))}) EXPECT_EQ(command(st), -1);
    BU_S32 s32 = 0;
    BU_FLOAT f = 0;
    PT_POS_S stPos{};
    PT_DEGREE_S stDegree{};
    BU_CHAR ac[64];
    // clang-format off
    const std::vector refused{ // another device, and nowhere to write to
        PTZ_API_SetZoomAct(1, ZOOM_ACTION_E_TELE, 3), PTZ_API_GetZoomPos(1, &s32), PTZ_API_GetZoomTime(1, &f),
        AF_API_SetAFFrame(0, 0), PTZ_API_GetFieldOfView(1, &f), PTZ_API_SetZoomTime(1, 2, 7),
        AF_API_SetFocusAct(1, FOCUS_ACTION_E_FAR, 3), AF_API_GetAFVersion(1, ac), AF_API_GetFocusPos(1, &s32),
        AF_API_SetFocusPos(1, 5000), AF_API_GetFocusAbs(1, &s32, BU_FALSE),
        AF_API_SetFocusAbs(1, 5000, BU_FALSE, BU_TRUE), AF_API_TriggerAutoFocus(1), AF_API_SetAFFrame(1, 60),
        BSP_PTProcInit(1, nullptr), BSP_PTGetCurPos(1, &stPos, PT_DEV_TYPE_PAN_TILE_E), BSP_PTPosFromVisca(1, &stPos),
        BSP_PTPosToVisca(1, &stPos), BSP_PTPosToDegree(1, &stDegree, &stPos, 0),
        BSP_PTDegreeToPos(1, &stPos, &stDegree, 0), PTZ_API_GetZoomPos(0, nullptr), PTZ_API_GetZoomTime(0, nullptr),
        PTZ_API_GetFieldOfView(0, nullptr), AF_API_GetFocusPos(0, nullptr), AF_API_GetFocusAbs(0, nullptr, BU_FALSE),
        AF_API_GetAFVersion(0, nullptr), PT_API_CalcMotionType(nullptr), BSP_PTPosFromVisca(0, nullptr),
        BSP_PTPosToVisca(0, nullptr), BSP_PTPosToDegree(0, nullptr, &stPos, 0),
        BSP_PTDegreeToPos(0, nullptr, &stDegree, 0), PRESET_API_QueryById(5, nullptr)};
    // clang-format on
    EXPECT_THAT(refused, testing::Each(-1));
    EXPECT_EQ(std::pair(ZF_Register(), PT_Register()), std::pair(0, 0));
    run("wait1750 zoomed0");
    EXPECT_THAT(reports(), ElementsAre("pt 1 done"));
}

/// Whoever asks: refused with nothing moved; what ran runs on, and stops stop it.
TEST_F(MotionTest, AsleepItRefusesMovesAndCarriesOutStops)
{
    run("wait1000");
    PRESET_API_SetCur(7, nullptr);
    run("right=0 tele=0 near=0 wait500");
    motion::setStandby(true);
    run("to90=-1 to-90#1=-1 right=-1 left=-1 home=-1 reset=-1 zoom16384=-1 focus5000=-1 both6000=-1 tele=-1 wide=-1 "
        "near=-1 recall7=-1 once=-1");
    EXPECT_EQ(PRESET_API_GotoHome(FROM, nullptr), -1);
    EXPECT_EQ(PTZ_API_SetZoomAct(0, ZOOM_ACTION_E_TELE, 5), -1);
    EXPECT_EQ(AF_API_SetFocusPos(0, 1000), -1);
    run("stop=0 zoomstop=0 focusstop=0 wait1000");
    const auto stRest = std::tuple(pan(), zoom(), focus());
    EXPECT_GT(pan(), 0);
    run("wait10000");
    EXPECT_EQ(std::tuple(pan(), zoom(), focus()), stRest);
    motion::setStandby(false);
    run("recall7=0 to90#2=1");
    EXPECT_THAT(reports(), IsEmpty());
}
} // namespace
