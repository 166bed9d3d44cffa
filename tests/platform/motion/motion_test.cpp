#include "motion/standby.h"
#include "motionTest.h"

#include "camera/menu.h"
#include "camera/picture.h"

namespace
{
using testing::ElementsAre;
using testing::IsEmpty;
constexpr double CLOSE = 0.001; // degrees

// The head accelerates with 240 degrees per second squared and brakes on a stop with twice as much.

struct tagSAMPLE_S {
    BU_S64 s64AtMs;
    double dPan;
};
struct tagTRAJECTORY_S {
    const char *pcName;
    std::vector<std::pair<BU_S64, PT_MOTION_CTRL_S>> commands; // when, what
    std::vector<tagSAMPLE_S> samples;
};
std::ostream &operator<<(std::ostream &out, const tagTRAJECTORY_S &st) { return out << st.pcName; }

class Trajectory : public MotionTest, public testing::WithParamInterface<tagTRAJECTORY_S>
{
public:
    using MotionTest::drive;
    using MotionTest::moveTo;
};
TEST_P(Trajectory, FollowsTheArithmetic)
{
    const tagTRAJECTORY_S &st = GetParam();
    auto next = st.commands.begin();
    BU_S64 s64Now = 0;
    for (const tagSAMPLE_S &stSample : st.samples) {
        for (; next != st.commands.end() && next->first <= stSample.s64AtMs; ++next) {
            clock().advance(next->first - s64Now);
            s64Now = next->first;
            command(next->second);
        }
        clock().advance(stSample.s64AtMs - s64Now);
        s64Now = stSample.s64AtMs;
        EXPECT_NEAR(pan(), stSample.dPan, CLOSE) << "at " << stSample.s64AtMs << " ms";
    }
}
const auto RIGHT_60 = Trajectory::drive(PT_MOTION_E_RIGHT, 60), LEFT_60 = Trajectory::drive(PT_MOTION_E_LEFT, 60),
           STOP = Trajectory::drive(PT_MOTION_E_STOP, 0);
// clang-format off
INSTANTIATE_TEST_SUITE_P(Head, Trajectory, testing::ValuesIn<tagTRAJECTORY_S>({
    {"trapezoid", {{0, Trajectory::moveTo(90, 0)}}, {{250, 7.5}, {1000, 52.5}, {1500, 82.5}, {1750, 90}, {9000, 90}}},
    {"triangle, never at full speed", {{0, Trajectory::moveTo(2.4, 0)}}, {{100, 1.2}, {150, 2.1}, {200, 2.4}}},
    {"backwards", {{0, Trajectory::moveTo(-90, 0)}}, {{1000, -52.5}, {1750, -90}}},
    {"turns round smoothly", {{0, RIGHT_60}, {1000, LEFT_60}},
        {{1000, 52.5}, {1100, 57.3}, {1250, 60}, {1400, 57.3}, {1500, 52.5}, {2500, -7.5}}},
    // 60 degrees is the turning point; then a triangle of 7.5 degrees with 42.426 degrees per second at its peak
    {"a target behind while driving", {{0, RIGHT_60}, {1000, Trajectory::moveTo(52.5, 0)}},
        {{1250, 60}, {1250 + 177, 56.241}, {1250 + 354, 52.5}}},
    {"a nearer target on the way", {{0, RIGHT_60}, {1000, Trajectory::moveTo(60, 0)}}, {{1100, 57.3}, {1250, 60}, {3000, 60}}},
    {"stop brakes", {{0, RIGHT_60}, {1000, STOP}}, {{1000, 52.5}, {1125, 56.25}, {5000, 56.25}}},
    {"slower while driving", {{0, RIGHT_60}, {1000, Trajectory::drive(PT_MOTION_E_RIGHT, 12)}}, {{1200, 59.7}, {2200, 71.7}}},
    {"faster while driving", {{0, RIGHT_60}, {1000, Trajectory::drive(PT_MOTION_E_RIGHT, 120)}}, {{1250, 75}, {1350, 87}}},
    {"into the end of travel", {{0, Trajectory::drive(PT_MOTION_E_RIGHT, 120)}}, {{500, 30}, {1917, 170}, {9000, 170}}},
    {"out of the end of travel", {{0, Trajectory::drive(PT_MOTION_E_LEFT, 120)}, {5000, RIGHT_60}}, {{5000, -170}, {6000, -117.5}}},
    {"a target beyond the end", {{0, Trajectory::moveTo(-200, 0, 120)}}, {{9000, -170}}},
    {"no speed is full speed", {{0, Trajectory::moveTo(90, 0, 0, 0)}}, {{500, 30}, {1250, 90}}},
    {"a drive without speed stays", {{0, Trajectory::drive(PT_MOTION_E_RIGHT, 0)}}, {{2000, 0}}},
    {"never above the limit", {{0, Trajectory::drive(PT_MOTION_E_RIGHT, 600)}}, {{1000, 90}}},
    {"home, at full speed", {{0, Trajectory::moveTo(90, 0)}, {3000, Trajectory::drive(PT_MOTION_E_HOME, 1, 1)}}, {{3500, 60}, {4250, 0}}},
    {"reset runs to both ends, then home", {{0, Trajectory::drive(PT_MOTION_E_RESET, 1, 1)}},
        {{1917, -170}, {1917 + 3334, 170}, {7167, 0}}},
}));
// clang-format on

TEST_F(MotionTest, PositionsRunInBothAxesWhileSomebodyAsks)
{
    command(moveTo(-80, 60, 30, 20));
    double dPan = pan(), dTilt = tilt();
    for (int i = 0; i < 100; ++i) {
        clock().advance(16);
        EXPECT_LT(pan(), dPan);
        EXPECT_GT(tilt(), dTilt);
        dPan = pan(), dTilt = tilt();
    }
    command(drive(PT_MOTION_E_RIGHT, 60)); // tilt is not part of it
    clock().advance(1000);
    dTilt = tilt();
    clock().advance(1000);
    EXPECT_EQ(tilt(), dTilt);
}

TEST_F(MotionTest, DirectionsLeadToTheirCorners)
{
    const struct {
        PT_MOTION_TYPE_E enType;
        double dPan, dTilt;
    } CORNERS[] = {{PT_MOTION_E_UP, 0, 90},         {PT_MOTION_E_DOWN, 0, -30},
                   {PT_MOTION_E_LEFT, -170, 0},     {PT_MOTION_E_RIGHT, 170, 0},
                   {PT_MOTION_E_LEFT_UP, -170, 90}, {PT_MOTION_E_LEFT_DOWN, -170, -30},
                   {PT_MOTION_E_RIGHT_UP, 170, 90}, {PT_MOTION_E_RIGHT_DOWN, 170, -30}};
    for (const auto &st : CORNERS) {
        for (const BU_S32 s32Mount : {1, 0}) { // standing, hanging: the camera hangs and the picture is turned
            BSP_PTProcInit(0, nullptr);
            SYS_API_SetMountMode(s32Mount, BU_FALSE, BU_TRUE);
            PT_MOTION_CTRL_S stMotion = drive(st.enType, 120, 90);
            PT_API_CalcMotionType(&stMotion.enMotionType);
            EXPECT_EQ(command(stMotion), 0);
            clock().advance(10000);
            const auto end = [&](double dDegrees, double dOpposite) {
                return s32Mount ? dDegrees : dDegrees == 0 ? 0 : dOpposite;
            };
            EXPECT_NEAR(pan(), end(st.dPan, -st.dPan), CLOSE) << st.enType;
            EXPECT_NEAR(tilt(), end(st.dTilt, st.dTilt > 0 ? -30 : 90), CLOSE) << st.enType;
        }
    }
    PT_MOTION_TYPE_E enType = PT_MOTION_E_ABS_POS; // hanging still
    PT_API_CalcMotionType(&enType);
    EXPECT_EQ(enType, PT_MOTION_E_ABS_POS);
}

TEST_F(MotionTest, SpeedMatchBringsPanAndTiltToTheTargetTogether)
{
    PT_SPEED_CALC_SET_S stEntry{FROM, BU_TRUE, 0, 0, 0, 0, 0, PT_CalcSpeedLevelMap_Simple, 1, nullptr, 0};
    constexpr PT_SPEED_LIMIT_T LIMITS{5, 12000, 5, 9000, 100};
    PT_API_InitByXml(&LIMITS, {stEntry});
    for (const BU_S32 s32On : {BU_TRUE, BU_FALSE}) {
        PT_API_SetPtSpeedMatch(0, s32On, BU_FALSE, BU_FALSE);
        BSP_PTProcInit(0, nullptr);
        command(moveTo(90, 15), 1);
        clock().advance(1700);
        EXPECT_LT(pan(), 90);
        EXPECT_EQ(tilt() < 15, s32On == BU_TRUE);
        clock().advance(50);
        EXPECT_NEAR(pan(), 90, CLOSE);
        EXPECT_NEAR(tilt(), 15, CLOSE);
        EXPECT_THAT(reports(), ElementsAre("pt 1 done"));
        reports().clear();
    }
}

/// What is reported after the moves of a script, and after all is over.
struct tagREPORT_CASE_S {
    const char *pcScript;
    std::vector<std::string> atOnce, later;
};
std::ostream &operator<<(std::ostream &out, const tagREPORT_CASE_S &st) { return out << st.pcScript; }

class Reports : public MotionTest, public testing::WithParamInterface<tagREPORT_CASE_S>
{
};
TEST_P(Reports, ExactlyOneForEachMoveWithTargetAndData)
{
    run(GetParam().pcScript);
    EXPECT_THAT(reports(), IsEmpty()) << "a report inside the call";
    clock().advance(1);
    EXPECT_EQ(reports(), GetParam().atOnce);
    clock().advance(60000);
    EXPECT_EQ(reports(), GetParam().later);
}
// clang-format off
INSTANTIATE_TEST_SUITE_P(Motion, Reports, testing::ValuesIn<tagREPORT_CASE_S>({
    {"move#1=1",            {}, {"pt 1 done"}},
    {"here#1=1",            {"pt 1 done"}, {"pt 1 done"}},
    {"home#1=1",            {"pt 1 done"}, {"pt 1 done"}},
    {"reset#1=1",           {}, {"pt 1 done"}},
    {"move=1",              {}, {}}, // without data
    {"right#1=0",           {}, {}},
    {"stop#1=0",            {}, {}},
    {"tele#1=0",            {}, {}},
    {"zoom#1=1",            {}, {"zf 1 done"}},
    {"focus#1=1",           {}, {"zf 1 done"}},
    {"both#1=1",            {}, {"zf 1 done"}}, // zoom and focus end once
    {"move#1 back#2",       {"pt 1 left"}, {"pt 1 left", "pt 2 done"}},
    {"move#1 left",         {"pt 1 left"}, {"pt 1 left"}},
    {"move#1 stop",         {"pt 1 left"}, {"pt 1 left"}},
    {"zoom#1 focus#2 move#3 stop", {"pt 3 left"}, {"pt 3 left", "zf 2 done", "zf 1 done"}}, // the head leaves the lens alone
    {"both#1 focus#2 zoomstop",    {"zf 1 left"}, {"zf 1 left", "zf 2 done"}},              // and the zoom the focus
    {"both#1 zoomstop",     {"zf 1 left"}, {"zf 1 left"}},
    {"move#0 back#1 move#2 back#3", {"pt 0 left", "pt 1 left", "pt 2 left"}, {"pt 0 left", "pt 1 left", "pt 2 left", "pt 3 done"}},
}));
// clang-format on

const auto FAR_AWAY = Trajectory::moveTo(90, 0);

TEST_F(MotionTest, OtherSourcesMoveTooAndHaveNoReports)
{
    int iData = 1;
    const auto stZoom = lens(ZF_E_ZOOM_DIRECT_POS, 16384);
    EXPECT_EQ(BSP_PTCtrlMotion(PT_CTRL_E_FROM_OTHER, &FAR_AWAY, &iData), 1);
    EXPECT_EQ(BSP_ZFCtrlMotion(ZF_CTRL_E_FROM_OTHER, &stZoom, &iData), 1);
    clock().advance(60000);
    EXPECT_THAT(reports(), IsEmpty());
    run("back#1 wide wait60000 zoom#2");
    BSP_PTCtrlMotion(PT_CTRL_E_FROM_REMOTE, &LEFT_60, nullptr);
    PTZ_API_SetZoomAct(0, ZOOM_ACTION_E_WIDE, 3);
    clock().advance(60000);
    EXPECT_THAT(reports(), ElementsAre("pt 1 done", "zf 2 left"));
    run("move#3");
    BSP_PTCtrlMotion(PT_CTRL_E_FROM_REMOTE, &LEFT_60, nullptr);
    clock().advance(1);
    EXPECT_EQ(reports().back(), "pt 3 left");
}

TEST_F(MotionTest, ReportComesAtTheEndAndMayCommandAgain)
{
    const PT_CTRL_CALL_FUNC_S stAgain{PT_CTRL_E_FROM_CMS,
                                      [](void *, BU_BOOL) -> BU_S32 { return command(moveTo(0, 0), 2); }, 0};
    BSP_PTRegisterRetCallFunc(0, PT_CTRL_E_FROM_CMS, &stAgain);
    int iData = 0;
    BSP_PTCtrlMotion(PT_CTRL_E_FROM_CMS, &FAR_AWAY, &iData);
    clock().advance(1750); // there, and on the way back
    EXPECT_NEAR(pan(), 90, CLOSE);
    clock().advance(1749);
    EXPECT_THAT(reports(), IsEmpty());
    clock().advance(1);
    EXPECT_THAT(reports(), ElementsAre("pt 2 done"));
}

TEST_F(MotionTest, RefusesWithoutAnyEffect)
{
    command(FAR_AWAY, 1);
    PT_MOTION_CTRL_S stOtherDevice = STOP, stNoType = drive(PT_MOTION_E_BUTT, 1), stWrong = STOP;
    stOtherDevice.u32PTDev = 1;
    stWrong.enMotionType = static_cast<PT_MOTION_TYPE_E>(-1);
    for (const auto &st : {stOtherDevice, stNoType, stWrong}) EXPECT_EQ(command(st, 2), -1);
    EXPECT_EQ(BSP_PTCtrlMotion(FROM, nullptr, nullptr), -1);
    EXPECT_EQ(BSP_PTCtrlMotion(PT_CTRL_E_FROM_BUTT, &STOP, nullptr), -1);
    ZF_MOTION_CTRL_S stNoLens = lens(ZF_E_ZOOM_TELE), stNoZoom = lens(static_cast<ZF_MOTION_TYPE_E>(9));
    stNoLens.u32ZfDev = 1;
    for (const auto &st : {stNoLens, stNoZoom}) EXPECT_EQ(command(st, 2), -1);
    clock().advance(1750);
    EXPECT_THAT(reports(), ElementsAre("pt 1 done"));
    EXPECT_EQ(zoom(), 0);
}

/// Whoever asks: refused with nothing moved; what ran runs on, and stops stop it.
TEST_F(MotionTest, AsleepItRefusesMovesAndCarriesOutStops)
{
    clock().advance(1000);
    PRESET_API_SetCur(7, nullptr);
    run("right=0 tele=0 near=0");
    clock().advance(500);
    motion::setStandby(true);
    run("move=-1 back#1=-1 right=-1 left=-1 home=-1 reset=-1 zoom=-1 focus=-1 both=-1 tele=-1 wide=-1 near=-1 "
        "recall7=-1");
    EXPECT_EQ(PRESET_API_GotoHome(FROM, nullptr), -1);
    EXPECT_EQ(AF_API_TriggerAutoFocus(0), -1);
    EXPECT_EQ(PTZ_API_SetZoomAct(0, ZOOM_ACTION_E_TELE, 5), -1);
    EXPECT_EQ(AF_API_SetFocusPos(0, 1000), -1);
    run("stop=0 zoomstop=0 focusstop=0");
    clock().advance(1000);
    const double dPan = pan();
    const BU_S32 s32Zoom = zoom(), s32Focus = focus();
    EXPECT_GT(dPan, 0);
    clock().advance(10000);
    EXPECT_EQ(std::tuple(pan(), zoom(), focus()), std::tuple(dPan, s32Zoom, s32Focus));
    motion::setStandby(false);
    run("recall7=0 move#2=1");
    EXPECT_THAT(reports(), IsEmpty());
}

TEST_F(MotionTest, JournalNamesTheMotion)
{
    journal::effects();
    int iData = 1;
    const PT_MOTION_CTRL_S stUp = drive(PT_MOTION_E_UP, 33, 25);
    ZF_MOTION_CTRL_S stHome = lens(ZF_E_ZOOM_DIRECT_POS), stBoth = lens(ZF_E_ZOOM_FOCUS_DIRECT_POS, 6000);
    stHome.bUseZoomTime = stHome.bTriggerFocusAfterZoom = BU_TRUE;
    stHome.fZoomTime = 1;
    BSP_PTCtrlMotion(FROM, &stUp, &iData);
    BSP_PTCtrlMotion(FROM, &FAR_AWAY, nullptr);
    BSP_PTCtrlMotion(FROM, &STOP, nullptr);
    BSP_ZFCtrlMotion(ZF_FROM, &stHome, nullptr);
    BSP_ZFCtrlMotion(ZF_FROM, &stBoth, nullptr);
    EXPECT_THAT(journal::effects(),
                ElementsAre("BSP_PTCtrlMotion(1, {UP, pan 3300, tilt 2500}, &)",
                            "BSP_PTCtrlMotion(1, {ABS_POS 675000 540000, pan 6000, tilt 6000}, NULL)",
                            "BSP_PTCtrlMotion(1, {STOP}, NULL)",
                            "BSP_ZFCtrlMotion(1, {ZOOM_DIRECT_POS x1.00, speed 7, then focus}, NULL)",
                            "BSP_ZFCtrlMotion(1, {ZOOM_FOCUS_DIRECT_POS 6000 6000, speed 7, speed 7}, NULL)"));
}
} // namespace
