// Commands of lens, head and presets; the menu keys that the head's directions press.
#include "camera/menu.h"
#include "commandTest.h"
#include "pt/pt.h"

#include <thread>

namespace
{
using testing::HasSubstr;
using CommandLens = CommandTest;

const Message ZOOM{VISCA_CMD_E_ZOOM, put<&Info::stZoomCtrl>}, DZOOM{VISCA_CMD_E_DZOOM, put<&Info::stDZoomCtrl>},
    FOCUS{VISCA_CMD_E_FOCUS, put<&Info::stFocusCtrl>}, FOCUS_SETTING{VISCA_CMD_E_FOCUS, put<&Info::stFocusCtrl>, true},
    ZOOM_FOCUS{VISCA_CMD_E_ZOOM_FOCUS, put<&Info::stZoomFocusCtrl>};

// clang-format off
TEST_F(CommandLens, ZoomAndFocus)
{
    check(Rows{
        {ZOOM, {0, 2, 7}, "lens ZOOM_STOP", "ZoomSpd 6"}, {ZOOM, {1, 2, 7}, "lens ZOOM_TELE, speed 6", "ZoomSpd 6"},
        {ZOOM, {2, 2, 7}, "lens ZOOM_WIDE, speed 6", "ZoomSpd 6"}, {ZOOM, {3, 2, 7}, "lens ZOOM_TELE, speed 2", "ZoomSpd 6"},
        {ZOOM, {4, 2, 7}, "lens ZOOM_WIDE, speed 2", "ZoomSpd 6"}, {ZOOM, {5, 2, 9000}, "lens ZOOM_DIRECT_POS 9000, speed 4", "ZoomSpd 6", 1},
        {ZOOM_FOCUS, {0x1234, 0x0678}, "lens ZOOM_FOCUS_DIRECT_POS 4660 1656, speed 6, speed 0", "ZoomSpd 6", 1},
        {DZOOM, {2, 9}, "PTZ_API_SetDZoomMode(0, 1, 1, 1)", "!SensorCrop 0"}, {DZOOM, {3, 9}, "PTZ_API_SetDZoomMode(0, 0, 1, 1)", "!SensorCrop 0"},
        {DZOOM, {4, 12}, "PTZ_API_SetMaxDZoomTime(0, 12, 1, 1)", "!SensorCrop 0"}, {DZOOM, {2, 9},  REFUSED, "!SensorCrop 1"},
        {DZOOM, {3, 9}, REFUSED, "!SensorCrop 1"}, {DZOOM, {4, 3}, REFUSED, "!SensorCrop 1"},
        {FOCUS, {6, 3}, "lens FOCUS_STOP", "!SensorCrop 0, FocusAuto 0"}, {FOCUS, {7, 3}, "lens FOCUS_FAR, speed 4"}, // one more than the record's
        {FOCUS, {8, 3}, "lens FOCUS_NEAR, speed 4"}, {FOCUS, {9, 3}, "lens FOCUS_FAR, speed 4"}, {FOCUS, {10, 3}, "lens FOCUS_NEAR, speed 4"},
        {FOCUS, {11, 3, 175}, "lens FOCUS_DIRECT_POS 175, speed 4", "FocusAuto 0", 1},
        {FOCUS, {11, 3, 7095}, "lens FOCUS_DIRECT_POS 7095, speed 4", "FocusAuto 0", 1}, {FOCUS, {11, 3, 174},  REFUSED},
        {FOCUS, {11, 3, 7096}, REFUSED}, {FOCUS_SETTING, {2}, "AF_API_SetFocusAuto(0, 1, 1, 1)"},
        {FOCUS_SETTING, {3}, "AF_API_SetFocusAuto(0, 0, 1, 1)"}, {FOCUS_SETTING, {4}, "AF_API_SetFocusAuto(0, 0, 1, 1)", "FocusAuto 1"},
        {FOCUS_SETTING, {4}, "AF_API_SetFocusAuto(0, 1, 1, 1)", "FocusAuto 0"}, {FOCUS_SETTING, {5}, "AF_API_TriggerAutoFocus(0)"},
    });
    check(each(FOCUS_SETTING, "AF_API_SetFocusArea(0, %, 1, 1)", {{12, 2}, {13, 1}, {14, 3}, {15, 0}, {16, 4}}));
    EXPECT_THAT(traceOf([] { dispatch(DZOOM, {2}, "!SensorCrop 1"); }), HasSubstr("] sensor crop is on, reject dzoom\n"));
    EXPECT_THAT(traceOf([] { dispatch(FOCUS, {11, 3, 7096}); }), HasSubstr("] focus pos 7096 out of range\n"));
}
// clang-format on

/// The greatest position at each digital-zoom limit.
TEST_F(CommandLens, ZoomPositionIsLimitedByTheDigitalZoom)
{
    BU_S32 s32Limit = 0;
    for (const BU_S32 s32End : {0x4000, 0x4B30, 0x5661, 0x6192, 0x672A, 0x6CC3, 0x6F8F, 0x725B, 0x7409, 0x75B7, 0x76D5,
                                0x77F4, 0x78C0, 0x798D, 0x7A26, 0x7AC0}) {
        const std::string strLimit = "DZoomTime " + std::to_string(++s32Limit), strEnd = std::to_string(s32End);
        check(Rows{{ZOOM, {5, 0, s32End}, "lens ZOOM_DIRECT_POS " + strEnd + ", speed 4", strLimit, 1}});
        EXPECT_THAT(traceOf([&] {
                        check(Rows{{ZOOM, {5, 0, s32End + 1}, REFUSED, strLimit}});
                    }),
                    HasSubstr("] zoom pos " + std::to_string(s32End + 1) + " > max zoom pos " + strEnd + "\n"));
    }
}

const Message HEAD{VISCA_CMD_E_PAN_TILT, put<&Info::stPTCtlr>};
const Message HOME{VISCA_CMD_E_PAN_TILT, put<&Info::stPTCtlr>, false, "BSP_ZFCtrlMotion"};
const std::string CONFIGURED = "PanSpeed 9, TileSpeed 11, PanSpeedSuperfine 90, TileSpeedSuperfine 110";

class CommandPanTilt : public CommandTest
{
protected:
    CommandPanTilt()
    {
        const PT_SPEED_LIMIT_T stLimits{5, 12000, 5, 9000, 100};
        std::vector<PT_SPEED_CALC_SET_S> listSets;
        APP_PT_GetSpeedCalcSet_TKV_MX(listSets);
        PT_API_InitByXml(&stLimits, listSets);
        prepare(CONFIGURED);
        CMD_MENU_OnlyCloseMenu();
    }
    ~CommandPanTilt() override
    {
        CMD_MENU_OnlyCloseMenu();
        clock().advance(500); // the pause between menu keys is over before the next test
        BSP_PROFILE_Load("TKV-MX");
    }
    /// A direction while the menu is shown. @return what the camera is asked to do
    static std::string press(BU_S32 s32Type)
    {
        EXPECT_EQ(dispatch(HEAD, {s32Type}), 0);
        const std::string strAll = effects();
        return strAll.substr(0, strAll.rfind(answered(VISCA_CMD_E_PAN_TILT)));
    }
};

// clang-format off
TEST_F(CommandPanTilt, DirectionsDriveAtTheirLevels)
{
    const char *const DIRECTIONS[] = {"UP", "DOWN", "LEFT", "RIGHT", "LEFT_UP", "RIGHT_UP", "LEFT_DOWN", "RIGHT_DOWN"};
    for (BU_S32 i = 0; i < 8; ++i) {
        const std::string strHead = std::string("head ") + DIRECTIONS[i];
        check(Rows{{HEAD, {i, 5, 7},          strHead + ", pan 490, tilt 785"},
                   {HEAD, {i},                strHead + ", pan 1757, tilt 1928"}, // as configured
                   {HEAD, {13 + i, 200, 7},   strHead + ", pan 5562, tilt 52"},
                   {HEAD, {13 + i},           strHead + ", pan 1548, tilt 1743"}});
    }
    check(Rows{{HEAD, {2, 0, 7}, "head LEFT, pan 1757, tilt 785"},
               {HEAD, {8, 5, 7}, "head STOP"},
               {HEAD, {0, 5, 7}, "head DOWN, pan 490, tilt 785",  "MountMode 0"}, // directions turn round under the ceiling
               {HEAD, {3, 5, 7}, "head LEFT, pan 490, tilt 785",  "MountMode 0"}});
}

/// Also while the menu is shown. A relative move goes to the given position; home is wide, and the lens decides.
TEST_F(CommandPanTilt, MovesWithATargetReportTheirEndLater)
{
    const std::string strHome = "head HOME, pan 490, tilt 785; BSP_ZFCtrlMotion(1, {ZOOM_DIRECT_POS x1.00, speed 7";
    for (int i = 0; i < 2; ++i) {
        check(Rows{{HEAD, {9, 5, 7, 0x0123, 0xFF00},  "head ABS_POS 570313 513333, pan 490, tilt 785", "", 1},
                   {HEAD, {10, 5, 7, 0x0123, 0xFF00}, "head ABS_POS 570313 513333, pan 490, tilt 785", "", 1},
                   {HEAD, {12, 5, 7},                 "head RESET, pan 490, tilt 785", "", 1},
                   {HEAD, {8, 5, 7},                  "head STOP"},
                   {HOME, {11, 5, 7}, strHome + "}, NULL)",             "FocusAuto 1", 1},
                   {HOME, {11, 5, 7}, strHome + ", then focus}, NULL)", "FocusAuto 0, @BSP_PTCtrlMotion -1", 1}});
        CMD_MENU_OnlyOpenMenu();
    }
    BSP_PROFILE_Load("minimal"); // a model without menu
    check(Rows{{HEAD, {0, 5, 7}, "head UP, pan 490, tilt 785"}});
}

TEST_F(CommandPanTilt, DirectionsPressKeysWhileTheMenuIsShown)
{
    const struct { const char *pcModel; BU_S32 s32Direction; const char *pcKey, *pcSubPage = ""; } ROWS[] = {
        {"TKV-MX",  0, "Up"},        {"TKV-MX",  1, "Down"},     {"TKV-MX", 2, "Left"},     {"TKV-MX", 4, "UpLeft"},
        {"TKV-MX",  5, "UpRight"},   {"TKV-MX",  6, "DownLeft"}, {"TKV-MX", 7, "DownRight"},
        {"TKV-MX",  3, "Right", "@OSD_Menu_HasSubPage 0"}, // enters a sub-page, on one model only
        {"TKV-MX",  3, "Home",  "@OSD_Menu_HasSubPage 1"},
        {"QLS-500", 3, "Right", "@OSD_Menu_HasSubPage 1"}};
    for (const auto &row : ROWS)
        for (const BU_S32 s32First : {0, 13}) {
            BSP_PROFILE_Load(row.pcModel);
            CMD_MENU_OnlyOpenMenu();
            prepare(row.pcSubPage);
            EXPECT_EQ(press(s32First + row.s32Direction), std::string("CMD_MENU_Hande") + row.pcKey + "Btn(); ") << row.pcModel;
            clock().advance(500);
        }
}
// clang-format on

TEST_F(CommandPanTilt, MenuKeysComeAgainAfterAPauseOf500Ms)
{
    CMD_MENU_OnlyOpenMenu();
    EXPECT_EQ(press(VISCA_MSG_E_PT_UP), "CMD_MENU_HandeUpBtn(); ");
    for (const BU_S32 s32PauseMs : {200, 499, 500}) { // counted from the last direction
        clock().advance(s32PauseMs);
        EXPECT_EQ(press(VISCA_MSG_E_PT_DOWN), s32PauseMs < 500 ? "" : "CMD_MENU_HandeDownBtn(); ");
    }
}

const Message SPEED{VISCA_CMD_E_TKV_PT_SPEED, put<&Info::stPTSpeedCtrl>},
    MEMORY{VISCA_CMD_E_MEMORY, put<&Info::stMemoryCtrl>};

// clang-format off
TEST_F(CommandPanTilt, SpeedAndPresetSettings)
{
    check(Rows{
        {SPEED, {2, 9}, "PT_API_SetPtSpeedMatch(0, 1, 1, 1)"},    {SPEED, {3, 9}, "PT_API_SetPtSpeedMatch(0, 0, 1, 1)"},
        {SPEED, {4, 8}, "PT_API_SetPanSpeed(0, 8, 1, 1)"},        {SPEED, {5, 8}, "PT_API_SetTileSpeed(0, 8, 1, 1)"},
        {SPEED, {7, 0}, "PT_API_SetSpeedAccuracy(0, 1, 1)"},      {SPEED, {7, 1}, "PT_API_SetSpeedAccuracy(0, 10, 1)"},
        {SPEED, {7, 2}, "PT_API_SetSpeedAccuracy(0, 100, 1)"},    {SPEED, {7, 3}, REFUSED}, {SPEED, {6, 8}, REFUSED},
        {MEMORY, {0, 5}, "PRESET_API_DeleteById(5)"},             {MEMORY, {1, 5}, "PRESET_API_SetCur(5, \"ByVisca\")", "@PRESET_API_SetCur 0"},
        {MEMORY, {3, 9}, "PRESET_API_SetPresetSpeed(0, 9, 1, 1)"},
        {MEMORY, {4, 0}, "PT_API_SetPowerUpPtzPos(0, -1, 1, 1)"}, {MEMORY, {4, 1}, "PT_API_SetPowerUpPtzPos(0, 1, 1, 1)"},
        {MEMORY, {5, 2}, "SYS_API_SetPresetMode(1, 1, 1)"},       {MEMORY, {5, 3}, "SYS_API_SetPresetMode(0, 1, 1)"},
        {MEMORY, {5, 1}, REFUSED}, {MEMORY, {5, 4}, REFUSED}});
}
// clang-format on

class ViscaRecall : public CommandTest
{
protected:
    static constexpr const char *MOVES = ", @PRESET_API_GotoById 1";
    ViscaRecall() { put<&Info::stMemoryCtrl>(m_stInfo, {VISCA_MSG_E_MEMORY_RECALL, 5}); }
    static BU_S32 recall(BU_S32 s32Stored, BU_S32 s32Special, const char *pcResult)
    {
        return dispatch(MEMORY, {2, 5},
                        "@PRESET_API_QueryById " + std::to_string(s32Stored) + ", @PRESET_API_QuerySpecialById " +
                            std::to_string(s32Special) + pcResult);
    }
    /// A motion of a recall ends. @return the answer
    std::string end(BU_BOOL bOk = BU_TRUE)
    {
        m_stInfo.stMsgPri.enMsgType = VISCA_CMD_E_MEMORY;
        VISCA_PTCtrlRet(&m_stInfo, bOk);
        return effects();
    }
    Info m_stInfo{};
};
/// Head and lens each report an end, and the last is answered. A special preset moves nothing.
TEST_F(ViscaRecall, OnlyARecallThatMovesWaitsForTwoEnds)
{
    const std::string strGoto = "PRESET_API_GotoById(5, 1, &); ", strDone = answered(VISCA_CMD_E_MEMORY),
                      strFailed = answered(VISCA_CMD_E_MEMORY, false);
    for (const auto &[bFirst, bLast] : {std::pair{BU_TRUE, BU_TRUE}, {BU_FALSE, BU_TRUE}, {BU_TRUE, BU_FALSE}}) {
        EXPECT_EQ(recall(0, -1, MOVES), 1);
        EXPECT_EQ(effects(), strGoto);
        EXPECT_EQ(end(bFirst), "");
        for (const BU_S32 s32Stored : {-1, 0}) { // special ones leave the ends alone that another recall waits for
            EXPECT_EQ(recall(s32Stored, 0, ", @PRESET_API_GotoById 0"), 0);
            EXPECT_EQ(effects(), strGoto + strDone);
        }
        EXPECT_THAT(traceOf([] { EXPECT_EQ(recall(-1, -1, ""), -1); }), HasSubstr("] can't find preset 5\n"));
        EXPECT_EQ(effects(), strFailed);
        EXPECT_EQ(end(bLast), bLast ? strDone : strFailed);
    }
    EXPECT_EQ(end(), strDone) << "nobody waits: still answered";
}

TEST_F(ViscaRecall, TwoEndsAtOnceAnswerOnce)
{
    for (int i = 0; i < 200; ++i) {
        recall(0, -1, MOVES);
        effects();
        {
            const std::jthread pan([stCopy = m_stInfo]() mutable { VISCA_PTCtrlRet(&stCopy, BU_TRUE); });
            VISCA_PTCtrlRet(&m_stInfo, BU_TRUE);
        }
        ASSERT_EQ(journal::effects().size(), 1u);
    }
}
} // namespace
