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
    return [=](Info &st) {
        st.stPTCtlr.enPanTiltType = static_cast<VISCA_CTRL_PT_E>(s32Type);
        st.stPTCtlr.u8PanSpeed = u8Pan;
        st.stPTCtlr.u8TiltSpeed = u8Tilt;
        st.stPTCtlr.u16PanPos = 0x0123;
        st.stPTCtlr.u16TiltPos = 0xFF00;
    };
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

    static tagCOMMAND_CASE_S row(const char *pcName, std::function<void(Info &)> fill, Effects effects,
                                 BU_S32 s32Result = 0)
    {
        return {pcName, viscaCtrlPanTilt, std::move(fill), std::move(effects), s32Result, "BSP_PTCtrlMotion"};
    }

    /// A direction while the menu is shown. @return what the camera is asked to do
    static Effects press(BU_S32 s32Type)
    {
        EXPECT_EQ(run(row("", drive(s32Type), {})), 0);
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
        check({row("plain", drive(i), {moves(DIRECTIONS[i], 5, 7)}),
               row("configured", drive(i, 0, 0), {moves(DIRECTIONS[i], 9, 11)}),
               row("precise", drive(13 + i, 200, 7), {moves(DIRECTIONS[i], 200, 7, true)}),
               row("configured precise", drive(13 + i, 0, 0), {moves(DIRECTIONS[i], 90, 110, true)})});
    }
    check({row("one level of two", drive(VISCA_MSG_E_PT_LEFT, 0, 7), {moves(PT_MOTION_E_LEFT, 9, 7)}),
           row("stop", drive(VISCA_MSG_E_PT_STOP), {moves(PT_MOTION_E_STOP, 5, 7)})});
}

TEST_F(CommandPanTilt, DirectionsTurnRoundUnderTheCeiling)
{
    SYS_API_SetMountMode(0, BU_FALSE, BU_TRUE);
    check({row("up", drive(VISCA_MSG_E_PT_UP), {moves(PT_MOTION_E_DOWN, 5, 7)}),
           row("right", drive(VISCA_MSG_E_PT_RIGHT), {moves(PT_MOTION_E_LEFT, 5, 7)})});
}

TEST_F(CommandPanTilt, MovesWithATargetReportTheirEndLater)
{
    check({row("absolute", drive(VISCA_MSG_E_PT_ABS_POS), {moves(PT_MOTION_E_ABS_POS, 5, 7)}, 1),
           row("relative moves to the given position", drive(VISCA_MSG_E_PT_REL_POS),
               {moves(PT_MOTION_E_ABS_POS, 5, 7)}, 1),
           row("reset", drive(VISCA_MSG_E_PT_RESET), {moves(PT_MOTION_E_RESET, 5, 7)}, 1)});
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
        auto stHome =
            row("home", drive(VISCA_MSG_E_PT_HOME), {moves(PT_MOTION_E_HOME, 5, 7), lensMotion(stZoom, "NULL")}, 1);
        stHome.pcPassedThrough = "BSP_ZFCtrlMotion";
        check({stHome});
        stHome.setUp = [] { journal::inject("BSP_PTCtrlMotion", -1); };
        EXPECT_EQ(run(stHome), 1) << "the lens decides";
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

TEST_F(CommandPanTilt, OtherMotionsAndOtherModelsIgnoreTheMenu)
{
    CMD_MENU_OnlyOpenMenu();
    check({row("stop", drive(VISCA_MSG_E_PT_STOP), {moves(PT_MOTION_E_STOP, 5, 7)}),
           row("absolute", drive(VISCA_MSG_E_PT_ABS_POS), {moves(PT_MOTION_E_ABS_POS, 5, 7)}, 1),
           row("relative", drive(VISCA_MSG_E_PT_REL_POS), {moves(PT_MOTION_E_ABS_POS, 5, 7)}, 1),
           row("reset", drive(VISCA_MSG_E_PT_RESET), {moves(PT_MOTION_E_RESET, 5, 7)}, 1)});
    EXPECT_EQ(run(row("home", drive(VISCA_MSG_E_PT_HOME), {})), 1);
    EXPECT_EQ(journal::effects().size(), 2U);
    BSP_PROFILE_Load("minimal");
    check({row("another model", drive(VISCA_MSG_E_PT_UP), {moves(PT_MOTION_E_UP, 5, 7)})});
}

TEST_F(CommandPanTilt, SpeedSettings)
{
    const auto speed = [](VISCA_CTRL_PTSPEED_E enType, BU_U32 u32Param) {
        return [=](Info &st) { st.stPTSpeedCtrl = {enType, u32Param}; };
    };
    const auto S = viscaCtrlPTSpeed;
    const auto ACCURACY = VISCA_MSG_E_PTSPEED_ACCURACY;
    const char *pcMatch = "PT_API_SetPtSpeedMatch", *pcAccuracy = "PT_API_SetSpeedAccuracy";
    check({{"match", S, speed(VISCA_MSG_E_PTSPEED_MATCH_ON, 0), {"PT_API_SetPtSpeedMatch(0, 1, 1, 1)"}, 0, pcMatch},
           {"no match", S, speed(VISCA_MSG_E_PTSPEED_MATCH_OFF, 0), {"PT_API_SetPtSpeedMatch(0, 0, 1, 1)"}, 0, pcMatch},
           {"pan", S, speed(VISCA_MSG_E_PAN_SPEED, 8), {"PT_API_SetPanSpeed(0, 8, 1, 1)"}, 0, "PT_API_SetPanSpeed"},
           {"tilt", S, speed(VISCA_MSG_E_Tilt_SPEED, 8), {"PT_API_SetTileSpeed(0, 8, 1, 1)"}, 0, "PT_API_SetTileSpeed"},
           {"accuracy 0", S, speed(ACCURACY, 0), {"PT_API_SetSpeedAccuracy(0, 1, 1)"}, 0, pcAccuracy},
           {"accuracy 1", S, speed(ACCURACY, 1), {"PT_API_SetSpeedAccuracy(0, 10, 1)"}, 0, pcAccuracy},
           {"accuracy 2", S, speed(ACCURACY, 2), {"PT_API_SetSpeedAccuracy(0, 100, 1)"}, 0, pcAccuracy},
           {"accuracy 3", S, speed(ACCURACY, 3), {}, REFUSED},
           {"pan and tilt", S, speed(VISCA_MSG_E_PanTilt_SPEED, 8), {}, REFUSED}});
}

std::function<void(Info &)> memory(VISCA_CTRL_MEMORY_E enType, BU_U8 u8Val)
{
    return [=](Info &st) { st.stMemoryCtrl = {enType, u8Val}; };
}

TEST_F(CommandPanTilt, PresetSettings)
{
    const auto M = viscaCtrlMemory;
    const char *pcPowerUp = "PT_API_SetPowerUpPtzPos", *pcMode = "SYS_API_SetPresetMode";
    check(
        {{"store", M, memory(VISCA_MSG_E_MEMORY_SET, 5), {"PRESET_API_SetCur(5, \"ByVisca\")"}, 0, "PRESET_API_SetCur"},
         {"delete", M, memory(VISCA_MSG_E_MEMORY_RESET, 5), {"PRESET_API_DeleteById(5)"}, 0, "PRESET_API_DeleteById"},
         {"speed",
          M,
          memory(VISCA_MSG_E_MEMORY_SPEED, 9),
          {"PRESET_API_SetPresetSpeed(0, 9, 1, 1)"},
          0,
          "PRESET_API_SetPresetSpeed"},
         {"power up at 0 is nowhere",
          M,
          memory(VISCA_MSG_E_MEMORY_POWERUP, 0),
          {"PT_API_SetPowerUpPtzPos(0, -1, 1, 1)"},
          0,
          pcPowerUp},
         {"power up at 1",
          M,
          memory(VISCA_MSG_E_MEMORY_POWERUP, 1),
          {"PT_API_SetPowerUpPtzPos(0, 1, 1, 1)"},
          0,
          pcPowerUp},
         {"mode on", M, memory(VISCA_MSG_E_MEMORY_MODE, 2), {"SYS_API_SetPresetMode(1, 1, 1)"}, 0, pcMode},
         {"mode off", M, memory(VISCA_MSG_E_MEMORY_MODE, 3), {"SYS_API_SetPresetMode(0, 1, 1)"}, 0, pcMode},
         {"mode 1", M, memory(VISCA_MSG_E_MEMORY_MODE, 1), {}, REFUSED},
         {"mode 4", M, memory(VISCA_MSG_E_MEMORY_MODE, 4), {}, REFUSED}});
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
    tagCOMMAND_CASE_S stRecall{"", viscaCtrlMemory, memory(VISCA_MSG_E_MEMORY_RECALL, 5), {}};
    for (const auto &row : rows) {
        stRecall.setUp = [&row] {
            gs_s32PresetFlag = OTHERS;
            journal::inject("PRESET_API_QueryById", row.bStored ? 0 : -1);
            journal::inject("PRESET_API_QuerySpecialById", row.bSpecial ? 0 : -1);
            if (row.s32Result != REFUSED) journal::inject("PRESET_API_GotoById", row.s32Result);
        };
        EXPECT_EQ(run(stRecall), row.s32Result);
        EXPECT_EQ(journal::effects(), row.effects);
        EXPECT_EQ(gs_s32PresetFlag, row.s32Ends);
    }
    EXPECT_THAT(traceOf(stRecall), HasSubstr("] can't find preset 5\n"));
}
} // namespace
