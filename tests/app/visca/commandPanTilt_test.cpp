// Head motion, menu keys pressed by the head's directions, speed settings, presets.
#include "board/profile.h"
#include "camera/focus.h"
#include "camera/menu.h"
#include "camera/preset.h"
#include "camera/system.h"
#include "commandTest.h"
#include "pt/pt.h"

namespace
{
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::function<void(Info &)> drive(BU_S32 s32Type, BU_U8 u8Pan = 5, BU_U8 u8Tilt = 7)
{
    return with<&Info::stPTCtlr>(s32Type, u8Pan, u8Tilt, 0x0123, 0xFF00, 0, 0, 0);
}

class CommandPanTilt : public CommandTest
{
protected:
    CommandPanTilt()
    {
        BSP_PROFILE_Load("TKV-MX");
        const PT_SPEED_LIMIT_T stLimits{5, 12000, 5, 9000, 100};
        std::vector<PT_SPEED_CALC_SET_S> listSets;
        APP_PT_GetSpeedCalcSet_TKV_MX(listSets);
        PT_API_InitByXml(&stLimits, listSets);
        PT_API_SetPanSpeed(0, 9, BU_FALSE, BU_FALSE);
        PT_API_SetTileSpeed(0, 11, BU_FALSE, BU_FALSE);
        PT_API_SetPanSpeedSuperfine(0, 90, BU_FALSE, BU_FALSE);
        PT_API_SetTileSpeedSuperfine(0, 110, BU_FALSE, BU_FALSE);
        CMD_MENU_OnlyCloseMenu();
        journal::effects();
    }
    ~CommandPanTilt() override
    {
        CMD_MENU_OnlyCloseMenu();
        clock().advance(500); // the pause between menu keys is over before the next test
        BSP_PROFILE_Load("TKV-MX");
    }

    /// What the head is asked for: the direction and these speed levels, at the record's position.
    static std::string moves(PT_MOTION_TYPE_E enType, BU_S32 s32Pan, BU_S32 s32Tilt, bool bPrecise = false)
    {
        PT_MOTION_CTRL_S st{};
        st.enMotionType = enType;
        st.stPos = {0x0123, 0xFF00};
        if (bPrecise)
            PT_API_CalcMotionSpeed(PT_CTRL_E_FROM_TKV_SUPERFINE, &st, s32Pan, 255, s32Tilt, 255);
        else
            PT_API_CalcMotionSpeed(PT_CTRL_E_FROM_VISCA, &st, s32Pan, s32Tilt);
        BSP_PTPosFromVisca(0, &st.stPos);
        return "BSP_PTCtrlMotion(1, " + journal::argument(&st) + ", &)";
    }

    /// A direction while the menu is shown. @return what the camera is asked to do
    static Effects press(BU_S32 s32Type)
    {
        EXPECT_EQ(run(viscaCtrlPanTilt, {drive(s32Type), {}}), 0);
        return journal::effects();
    }
};

constexpr PT_MOTION_TYPE_E DIRECTIONS[] = {PT_MOTION_E_UP,        PT_MOTION_E_DOWN,      PT_MOTION_E_LEFT,
                                           PT_MOTION_E_RIGHT,     PT_MOTION_E_LEFT_UP,   PT_MOTION_E_RIGHT_UP,
                                           PT_MOTION_E_LEFT_DOWN, PT_MOTION_E_RIGHT_DOWN};

TEST_F(CommandPanTilt, DirectionsDriveAtTheirLevels)
{
    ASSERT_NE(moves(PT_MOTION_E_UP, 5, 7), moves(PT_MOTION_E_UP, 9, 11)) << "speeds must show in the journal";
    for (BU_S32 i = 0; i < 8; ++i) {
        SCOPED_TRACE(i);
        passes(viscaCtrlPanTilt, {{drive(i), {moves(DIRECTIONS[i], 5, 7)}},
                                  {drive(i, 0, 0), {moves(DIRECTIONS[i], 9, 11)}}, // as configured
                                  {drive(13 + i, 200, 7), {moves(DIRECTIONS[i], 200, 7, true)}},
                                  {drive(13 + i, 0, 0), {moves(DIRECTIONS[i], 90, 110, true)}}});
    }
    passes(viscaCtrlPanTilt, {{drive(VISCA_MSG_E_PT_LEFT, 0, 7), {moves(PT_MOTION_E_LEFT, 9, 7)}},
                              {drive(VISCA_MSG_E_PT_STOP), {moves(PT_MOTION_E_STOP, 5, 7)}}});
    SYS_API_SetMountMode(0, BU_FALSE, BU_TRUE); // directions turn round under the ceiling
    passes(viscaCtrlPanTilt, {{drive(VISCA_MSG_E_PT_UP), {moves(PT_MOTION_E_DOWN, 5, 7)}},
                              {drive(VISCA_MSG_E_PT_RIGHT), {moves(PT_MOTION_E_LEFT, 5, 7)}}});
}

/// Also while the menu is shown. A relative move goes to the given position.
TEST_F(CommandPanTilt, MovesWithATargetReportTheirEndLater)
{
    for (int i = 0; i < 2; ++i) {
        passes(viscaCtrlPanTilt, {{drive(VISCA_MSG_E_PT_ABS_POS), {moves(PT_MOTION_E_ABS_POS, 5, 7)}, 1},
                                  {drive(VISCA_MSG_E_PT_REL_POS), {moves(PT_MOTION_E_ABS_POS, 5, 7)}, 1},
                                  {drive(VISCA_MSG_E_PT_RESET), {moves(PT_MOTION_E_RESET, 5, 7)}, 1},
                                  {drive(VISCA_MSG_E_PT_STOP), {moves(PT_MOTION_E_STOP, 5, 7)}}});
        EXPECT_EQ(run(viscaCtrlPanTilt, {drive(VISCA_MSG_E_PT_HOME), {}}), 1);
        EXPECT_EQ(journal::effects().size(), 2U);
        CMD_MENU_OnlyOpenMenu();
    }
    BSP_PROFILE_Load("minimal"); // a model without menu
    passes(viscaCtrlPanTilt, {{drive(VISCA_MSG_E_PT_UP), {moves(PT_MOTION_E_UP, 5, 7)}}});
}

TEST_F(CommandPanTilt, HomeMovesHeadAndLensAndReportsTheLens)
{
    for (const BU_BOOL bAuto : {BU_TRUE, BU_FALSE}) {
        AF_API_SetFocusAuto(0, bAuto, BU_FALSE, BU_FALSE);
        ZF_MOTION_CTRL_S stZoom{};
        stZoom.enMotionType = ZF_E_ZOOM_DIRECT_POS;
        stZoom.u8ZoomSpd = 7;
        stZoom.bUseZoomTime = BU_TRUE;
        stZoom.fZoomTime = 1.0F;
        stZoom.bTriggerFocusAfterZoom = !bAuto;
        tagCOMMAND_CASE_S stHome{
            drive(VISCA_MSG_E_PT_HOME), {moves(PT_MOTION_E_HOME, 5, 7), lensMotion(stZoom, "NULL")}, 1};
        passes(viscaCtrlPanTilt, {stHome}, "BSP_ZFCtrlMotion");
        stHome.setUp = [] { journal::inject("BSP_PTCtrlMotion", -1); };
        EXPECT_EQ(run(viscaCtrlPanTilt, stHome), 1) << "the lens decides";
    }
}

TEST_F(CommandPanTilt, DirectionsPressKeysWhileTheMenuIsShown)
{
    const char *apcKeys[] = {"CMD_MENU_HandeUpBtn()",       "CMD_MENU_HandeDownBtn()",
                             "CMD_MENU_HandeLeftBtn()",     nullptr,
                             "CMD_MENU_HandeUpLeftBtn()",   "CMD_MENU_HandeUpRightBtn()",
                             "CMD_MENU_HandeDownLeftBtn()", "CMD_MENU_HandeDownRightBtn()"};
    for (const BU_S32 s32First : {0, 13})
        for (BU_S32 i = 0; i < 8; ++i)
            if (apcKeys[i]) {
                CMD_MENU_OnlyOpenMenu();
                EXPECT_THAT(press(s32First + i), ElementsAre(apcKeys[i]));
                clock().advance(500);
            }
}

TEST_F(CommandPanTilt, RightEntersASubPageOnOneModelOnly)
{
    struct {
        const char *pcModel;
        BU_S32 s32SubPage;
        const char *pcKey;
    } const rows[] = {{"TKV-MX", 1, "CMD_MENU_HandeHomeBtn()"},
                      {"TKV-MX", 0, "CMD_MENU_HandeRightBtn()"},
                      {"QLS-500", 1, "CMD_MENU_HandeRightBtn()"}};
    for (const auto &row : rows)
        for (const BU_S32 s32Type : {VISCA_MSG_E_PT_RIGHT, VISCA_MSG_E_PT_RIGHT_PRECISE}) {
            BSP_PROFILE_Load(row.pcModel);
            CMD_MENU_OnlyOpenMenu();
            journal::inject("OSD_Menu_HasSubPage", row.s32SubPage);
            EXPECT_THAT(press(s32Type), ElementsAre(row.pcKey)) << row.pcModel;
            clock().advance(500);
        }
}

TEST_F(CommandPanTilt, MenuKeysComeAgainAfterAPauseOf500Ms)
{
    CMD_MENU_OnlyOpenMenu();
    EXPECT_THAT(press(VISCA_MSG_E_PT_UP), ElementsAre("CMD_MENU_HandeUpBtn()"));
    clock().advance(200);
    EXPECT_THAT(press(VISCA_MSG_E_PT_DOWN), IsEmpty());
    clock().advance(499); // counted from the last direction
    EXPECT_THAT(press(VISCA_MSG_E_PT_DOWN), IsEmpty());
    clock().advance(500);
    EXPECT_THAT(press(VISCA_MSG_E_PT_DOWN), ElementsAre("CMD_MENU_HandeDownBtn()"));
}

constexpr auto memory = with<&Info::stMemoryCtrl, VISCA_CTRL_MEMORY_E, BU_S32>;

TEST_F(CommandPanTilt, SpeedAndPresetSettings)
{
    const auto speed = with<&Info::stPTSpeedCtrl, VISCA_CTRL_PTSPEED_E, BU_S32>;
    // clang-format off
    passes(viscaCtrlPTSpeed, {{speed(VISCA_MSG_E_PTSPEED_MATCH_ON, 0),  {"PT_API_SetPtSpeedMatch(0, 1, 1, 1)"}},
                              {speed(VISCA_MSG_E_PTSPEED_MATCH_OFF, 0), {"PT_API_SetPtSpeedMatch(0, 0, 1, 1)"}},
                              {speed(VISCA_MSG_E_PAN_SPEED, 8),         {"PT_API_SetPanSpeed(0, 8, 1, 1)"}},
                              {speed(VISCA_MSG_E_Tilt_SPEED, 8),        {"PT_API_SetTileSpeed(0, 8, 1, 1)"}},
                              {speed(VISCA_MSG_E_PTSPEED_ACCURACY, 0),  {"PT_API_SetSpeedAccuracy(0, 1, 1)"}},
                              {speed(VISCA_MSG_E_PTSPEED_ACCURACY, 1),  {"PT_API_SetSpeedAccuracy(0, 10, 1)"}},
                              {speed(VISCA_MSG_E_PTSPEED_ACCURACY, 2),  {"PT_API_SetSpeedAccuracy(0, 100, 1)"}},
                              {speed(VISCA_MSG_E_PTSPEED_ACCURACY, 3),  {}, REFUSED},
                              {speed(VISCA_MSG_E_PanTilt_SPEED, 8),     {}, REFUSED}});
    passes(viscaCtrlMemory, {{memory(VISCA_MSG_E_MEMORY_SET, 5),     {"PRESET_API_SetCur(5, \"ByVisca\")"}},
                             {memory(VISCA_MSG_E_MEMORY_RESET, 5),   {"PRESET_API_DeleteById(5)"}},
                             {memory(VISCA_MSG_E_MEMORY_SPEED, 9),   {"PRESET_API_SetPresetSpeed(0, 9, 1, 1)"}},
                             {memory(VISCA_MSG_E_MEMORY_POWERUP, 0), {"PT_API_SetPowerUpPtzPos(0, -1, 1, 1)"}}, // nowhere
                             {memory(VISCA_MSG_E_MEMORY_POWERUP, 1), {"PT_API_SetPowerUpPtzPos(0, 1, 1, 1)"}},
                             {memory(VISCA_MSG_E_MEMORY_MODE, 2),    {"SYS_API_SetPresetMode(1, 1, 1)"}},
                             {memory(VISCA_MSG_E_MEMORY_MODE, 3),    {"SYS_API_SetPresetMode(0, 1, 1)"}},
                             {memory(VISCA_MSG_E_MEMORY_MODE, 1),    {}, REFUSED},
                             {memory(VISCA_MSG_E_MEMORY_MODE, 4),    {}, REFUSED}});
    // clang-format on
}

TEST_F(CommandPanTilt, OnlyARecallThatMovesWaitsForTwoEnds)
{
    constexpr BU_S32 OTHERS = 7; // ends that another recall still waits for
    struct {
        bool bStored, bSpecial;
        BU_S32 s32Result, s32Ends;
        Effects effects;
    } const rows[] = {{true, false, 1, 2, {"PRESET_API_GotoById(5, 1, &)"}},
                      {false, true, 0, OTHERS, {"PRESET_API_GotoById(5, 1, &)"}},
                      {true, true, 0, OTHERS, {"PRESET_API_GotoById(5, 1, &)"}},
                      {false, false, REFUSED, OTHERS, {}}};
    tagCOMMAND_CASE_S stRecall{memory(VISCA_MSG_E_MEMORY_RECALL, 5), {}};
    for (const auto &row : rows) {
        stRecall.setUp = [&row] {
            gs_s32PresetFlag = OTHERS;
            journal::inject("PRESET_API_QueryById", row.bStored ? 0 : -1);
            journal::inject("PRESET_API_QuerySpecialById", row.bSpecial ? 0 : -1);
            if (row.s32Result != REFUSED) journal::inject("PRESET_API_GotoById", row.s32Result);
        };
        EXPECT_EQ(run(viscaCtrlMemory, stRecall), row.s32Result);
        EXPECT_EQ(journal::effects(), row.effects);
        EXPECT_EQ(gs_s32PresetFlag, row.s32Ends);
    }
    EXPECT_THAT(traceOf(viscaCtrlMemory, stRecall), HasSubstr("] can't find preset 5\n"));
}
} // namespace
