// What each key does: in the menu and outside, tapped and held, with a press or a release lost.
#include "inputTest.h"

#include "camera/image.h"
#include "camera/serial.h"
#include "camera/system.h"
#include "camera/zoom.h"

namespace
{
class Keys : public InputTest
{
};

const std::string MANUAL = "AF_API_SetFocusAuto(0, 0, 1, 1)", STOP = "CMD_PT_StopMove()";
const std::string UP = "CMD_PT_HandeUpBtn()", LEFT = "CMD_PT_HandeLeftBtn()";
const std::string UP_DOWN = UP + " " + STOP + " CMD_PT_HandeDownBtn() " + STOP;
const std::string LEFT_RIGHT = LEFT + " " + STOP + " CMD_PT_HandeRightBtn() " + STOP;
const std::string HOME = "PRESET_API_GotoHome(2, NULL)", STORE_HOME = "PRESET_API_SetCur(0, \"PresetHome\")";
const std::string MENU_UP = "CMD_MENU_HandeUpBtn()", MENU_DOWN = "CMD_MENU_HandeDownBtn()",
                  MENU_LEFT = "CMD_MENU_HandeLeftBtn()", MENU_RIGHT = "CMD_MENU_HandeRightBtn()",
                  MENU_ENTER = "CMD_MENU_HandeHomeBtn()";
const std::string STEP_LEFT = "CMD_MENU_HandeLeftUpdateParam()", STEP_RIGHT = "CMD_MENU_HandeRightUpdateParam()",
                  APPLY = "CMD_MENU_HandeSetParam()";
const std::string TARGETS = "ALG_API_LockLastTarget() ALG_API_LockNextTarget()";
const std::string RESTORE = "SYSTEM_API_FactoryRestoreConfiguration(0) UTIL_CMD_RunSafe(\"reboot\")";

std::string zoom(const std::string &strAction, const std::string &strSpeed)
{
    return "PTZ_API_SetZoomAct(0, " + strAction + ", " + strSpeed + ") PTZ_API_SetZoomAct(0, 0, " + strSpeed + ")";
}
std::string focus(const std::string &strAction, const std::string &strSpeed)
{
    const auto act = [&](const std::string &str) {
        return MANUAL + " AF_API_SetFocusAct(0, " + str + ", " + strSpeed + ")";
    };
    return act(strAction) + " " + act("0");
}
std::string track(const std::string &str) { return "ALG_API_SetEnable(" + str + ", 1, 1)"; }
std::string body(const std::string &str) { return "ALG_API_SetBodySize(" + str + ", 1, 1)"; }
std::string goTo(int n) { return "PRESET_API_GotoById(" + std::to_string(n) + ", 2, NULL)"; }
std::string store(int n) { return "PRESET_API_SetCur(" + std::to_string(n) + ", \"Preset" + std::to_string(n) + "\")"; }
std::string join(const std::vector<std::string> &list)
{
    std::string strAll;
    for (const std::string &str : list) strAll += (strAll.empty() ? "" : " ") + str;
    return strAll;
}

// clang-format off
TEST_F(Keys, OfTheSmallRemote)
{
    expect(SMALL, {
        {"power focus-auto f1 f2 1 2 3", ""},
        {"menu", "CMD_MENU_HandleMenuBtn()"},
        {"zoom-in zoom-out", zoom("2", "5") + " " + zoom("3", "5")},
        {"-zoom-in", "PTZ_API_SetZoomAct(0, 0, 5)"},
        {"[open] [track] up down", UP_DOWN}, // neither menu nor tracking matters
        {"[open] [track] left right", LEFT_RIGHT},
        {"focus-near focus-far", focus("3", "5") + " " + focus("2", "5")},
        {"+up *up", UP + " " + STOP}, // a repeat counts as a release here
        {"home", HOME},
        {"+home ~2999 -home", HOME},
        {"+home ~3000 -home", STORE_HOME},
        {"[open] home", MENU_ENTER},
        {"+home [open] ~3000 -home [close] -home", ""},
        {"[open] +home [close] ~3000 -home", MENU_ENTER},
        {"-home", ""},
        {"+home ~250 *home ~33 *home ~3000 *home -home", HOME}, // the first repeat is the release
    });
}

TEST_F(Keys, OfTheBigRemote)
{
    expect(BIG, {
        {"power", "SYSTEM_API_SleepAppService()"},
        {"menu", "CMD_MENU_HandleMenuBtn()"},
        {"focus-near focus-far", focus("3", "3") + " " + focus("2", "3")},
        {"focus-auto focus-manual focus-once", "AF_API_SetFocusAuto(0, 1, 1, 1) " + MANUAL + " AF_API_TriggerAutoFocus(0)"},
        {"iris-reset", "ISP_API_SetIrisDefLevel(0, 1, 1)"},
        {"backlight backlight", "ISP_API_SetBackLight(0, 1, 1, 1) ISP_API_SetBackLight(0, 0, 1, 1)"},
        {"osd osd", "SYS_API_SetPrompt(0, 1, 1) SYS_API_SetPrompt(1, 1, 1)"},
        {"f1 f1", track("1") + " " + track("0")},
        {"f2 f3 f4", join({body("2"), body("1"), body("0")})},
        {"clear confirm enter", ""},
        {"back", "CMD_MENU_OnlyReturnMenu()"},
        {"home [open] home", HOME + " " + HOME},
        {"[open] enter", MENU_ENTER},
        {"[track] up down", UP_DOWN},
        {"[open] up down", MENU_UP + " " + MENU_DOWN},
        {"left right", LEFT_RIGHT},
        {"[track] left right", TARGETS},
        {"[open] [track] left right", MENU_LEFT + " " + MENU_RIGHT},
        {"+up *up *up -up", UP + " " + STOP},
        {"-up", STOP},
        {"[open] +left ~499 -left ~2000", MENU_LEFT},
        {"[open] +left ~500 -left ~2000", join({MENU_LEFT, STEP_LEFT, APPLY})},
        {"[open] +right ~1600 -right ~2000", join({MENU_RIGHT, STEP_RIGHT, STEP_RIGHT, STEP_RIGHT, APPLY})},
        {"[open] +left ~500 -left left", join({MENU_LEFT, STEP_LEFT, APPLY, MENU_LEFT})}, // the tap applies nothing
        {"[open] -left", ""},
        {"[open] +left ~500 +left ~400 -left ~1000", join({MENU_LEFT, STEP_LEFT, MENU_LEFT})}, // the first release lost
    });
}

TEST_F(Keys, OfTheTrackingRemote)
{
    expect(TRACKING, {
        {"power", "SYSTEM_API_SleepAppService()"},
        {"menu", "CMD_MENU_HandleMenuBtn()"},
        {"zoom-in zoom-out", zoom("2", "5") + " " + zoom("3", "5")},
        {"focus-near focus-far", focus("3", "5") + " " + focus("2", "5")},
        {"focus-auto back", "AF_API_SetFocusAuto(0, 1, 1, 1) CMD_MENU_OnlyReturnMenu()"},
        {"home [open] home", HOME + " " + MENU_ENTER},
        {"up down", UP_DOWN},
        {"[open] up down", MENU_UP + " " + MENU_DOWN},
        {"left right", LEFT_RIGHT},
        {"[track] left right", TARGETS},
        {"[open] +left ~2000 -left right", MENU_LEFT + " " + MENU_RIGHT},
        {"1 2 3 4", join({goTo(1), goTo(2), goTo(3), goTo(4)})},
        {"set 3 3", store(3) + " " + goTo(3)},
        {"set ~3000 3", store(3)}, // stays pending after the entry timer
        {"set 1 set 4", store(1) + " " + store(4)},
        {"+2 set -2", goTo(2) + " " + store(2)},
        {"track track", track("1") + " " + track("0")},
        {"track-far track-mid track-near", join({body("0"), body("1"), body("2")})},
        {"id1 id2 id3", "IR_API_SetAddr(1, 1, 0) IR_API_SetAddr(2, 1, 0)"}, // the remote has address 1, and id3 is not heard
        {"id4", "IR_API_SetAddr(4, 1, 0)"},
        {"long1 long2", ""},
        {"ip-reset", "NET_API_SetIpAddr(\"NetCard0\", \"192.168.100.100\") PROMPT_API_ShowIpaddr(\"192.168.100.100\")"},
    });
    journal::inject("NET_API_SetIpAddr", -1);
    EXPECT_EQ(play(TRACKING, "ip-reset"), "NET_API_SetIpAddr(\"NetCard0\", \"192.168.100.100\")");
}

TEST_F(Keys, OfTheFront)
{
    expect(FRONT, {
        {"+reset ~9999 -reset", ""},
        {"+reset ~10000 -reset -reset", RESTORE},
        {"-reset ~20000 -reset", ""}, // held since before the start
        {"+reset -reset ~10000 -reset", ""},
        {"+reset ~60000 +reset ~100 -reset", ""}, // its first release lost: a new press is a new hold
        {"+reset ~9000 *reset ~1000 *reset ~1 -reset", RESTORE},
    });
}

TEST_F(Keys, OfNumbers)
{
    expect(BIG, {
        {"0 1 2 3 4", join({goTo(0), goTo(1), goTo(2), goTo(3), goTo(4)})},
        {"5 6 7 8 9", join({goTo(5), goTo(6), goTo(7), goTo(8), goTo(9)})},
        {"+7 ~2999 -7", goTo(7)},
        {"+7 ~3000 -7", store(7)},
        {"+0 ~3001 -0 +1 ~3000 -1 9", join({store(0), store(1), goTo(9)})},
        {"call 1 2 confirm", goTo(12)},
        {"set 5 confirm", "PRESET_API_SetCur(5, NULL)"},
        {"delete 3 0 confirm", "PRESET_API_DeleteById(30)"},
        {"call ~2999 4 ~2999 confirm", goTo(4)},
        {"call ~2999 +4 ~60000 -4 ~2999 confirm", goTo(4)}, // a pressed digit waits for its release
        {"call 4 ~3000 confirm", ""},                       // too late
        {"call ~3000 4", goTo(4)},                          // cancelled, a direct key
        {"call ~3000 +4 ~3000 -4", store(4)},
        {"call 4 ~3000 confirm 6 confirm", goTo(6)}, // the late command is gone with the next digit
        {"call confirm confirm", goTo(0)},
        {"call 1 set 2 confirm", "PRESET_API_SetCur(2, NULL)"}, // a new command starts a new number
        {"call 1 2 3 4 5 6 7 8 9 confirm", goTo(123456789)},
        {"call 9 9 9 9 9 9 9 9 9 9 9 confirm", goTo(999999999)}, // no tenth digit
        {"call 0 0 0 0 0 0 0 0 0 0 7 confirm", goTo(7)},
        {"+1 call -1 2 confirm", goTo(1) + " " + goTo(2)},     // a release while a command waits
        {"call confirm +1 ~2999 -1", goTo(0) + " " + goTo(1)}, // the hold starts with its own press
        {"[open] 7 +7 ~3000 -7", ""},
        {"+7 [open] ~3000 -7 [close] -7", ""},
        {"[open] +7 [close] ~3000 -7", ""},
        {"-7 ~3000 -7", ""},
        {"7 ~3000 -7", goTo(7)},
        {"call -7 confirm", goTo(0)},
    });
}

/// Menu and tracking change while a direction is held: the head stops with the release, or the next press at the latest.
TEST_F(Keys, OfDirectionsWhoseMeaningChanges)
{
    expect(BIG, {
        {"+up [open] -up", UP + " " + STOP},
        {"+left [open] -left ~2000", LEFT + " " + STOP},
        {"[open] +up [close] -up", MENU_UP + " " + STOP},
        {"[open] +left [close] -left ~2000", MENU_LEFT + " " + STOP},
        {"[open] +left ~700 [close] -left ~2000", join({MENU_LEFT, STEP_LEFT, STOP})},
        {"[open] [track] +left ~700 [close] -left ~2000", MENU_LEFT + " " + STEP_LEFT},
        {"+left [track] -left", LEFT + " " + STOP},
        {"[track] +left [untrack] -left", "ALG_API_LockLastTarget() " + STOP},
        {"+left [open] +left -left", join({LEFT, STOP, MENU_LEFT})},
        {"+up [open] +up", join({UP, STOP, MENU_UP})},
    });
    expect(TRACKING, {
        {"+left [open] -left", LEFT + " " + STOP},
        {"+left [track] +left", join({LEFT, STOP, "ALG_API_LockLastTarget()"})},
    });
}

TEST_F(Keys, ZoomOfTheBigRemoteUsesTheSetSpeed)
{
    PTZ_API_SetZoomSpd(0, 2, BU_FALSE, BU_FALSE);
    journal::effects();
    EXPECT_EQ(play(BIG, "zoom-in zoom-out"), zoom("2", "2") + " " + zoom("3", "2"));
}

TEST_F(Keys, IrisStepsUpToItsEnds)
{
    const struct {
        int s32Level;
        const char *pcKey, *pcExpected;
    } rows[] = {{12, "iris-open", "13"}, {13, "iris-open", "13"}, {1, "iris-close", "0"}, {0, "iris-close", "0"}};
    for (const auto &row : rows) {
        ISP_API_SetIrisLevel(0, row.s32Level, BU_FALSE, BU_FALSE);
        journal::effects();
        EXPECT_EQ(play(BIG, row.pcKey), std::string("ISP_API_SetAeMode(0, 3, 1, 1) ISP_API_SetIrisLevel(0, ") + row.pcExpected + ", 1, 1)");
    }
}

TEST_F(Keys, FullBodyOnlyInTwoTrackingModes)
{
    for (const int s32Mode : {0, 1, 2, 3, 4, 5}) {
        ALG_API_SetTrackMode(s32Mode, BU_FALSE, BU_FALSE);
        journal::effects();
        for (const auto &strDone : {play(BIG, "f4"), play(TRACKING, "track-far")})
            EXPECT_EQ(strDone, s32Mode == 0 || s32Mode == 2 ? body("0") : "") << s32Mode;
    }
}

TEST_F(Keys, StartFromWhatIsStoredOrFromTheirDefault)
{
    PTZ_API_SetZoomSpd(0, 2, BU_FALSE, BU_FALSE);
    ISP_API_SetBackLight(0, BU_TRUE, BU_FALSE, BU_FALSE); // stored: off
    SYS_API_SetPrompt(BU_FALSE, BU_FALSE, BU_FALSE);      // stored: on
    ALG_API_SetEnable(BU_TRUE, BU_FALSE, BU_FALSE);
    ALG_API_SetTrackMode(TRACK_MODE_E_STAGE_TRACKING, BU_FALSE, BU_FALSE);
    journal::effects();
    const std::string strToggled = "ISP_API_SetBackLight(0, 1, 1, 1) SYS_API_SetPrompt(0, 1, 1)";
    EXPECT_EQ(play(BIG, "backlight osd"), strToggled);
    ISP_API_SetBackLight(0, BU_TRUE, BU_TRUE, BU_FALSE);
    SYS_API_SetPrompt(BU_FALSE, BU_TRUE, BU_FALSE);
    for (const char *pcGet : {"PTZ_API_GetZoomSpd", "ISP_API_GetBackLight", "SYS_API_GetPrompt", "ALG_API_GetEnable", "ALG_API_GetTrackMode"})
        journal::inject(pcGet, -1, 10); // it cannot be read
    journal::effects();
    EXPECT_EQ(play(BIG, "zoom-in backlight osd f1 f4 +left"), join({zoom("2", "5"), strToggled, track("1"), body("0"), LEFT}));
}
// clang-format on
} // namespace
