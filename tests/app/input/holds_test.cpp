// Short presses and holds, the number keys as sequences, and what happens around a press: menu opened or closed, press
// or release lost.
#include "inputTest.h"

namespace
{
class Holds : public InputTest, public testing::WithParamInterface<tagPLAY_CASE_S>
{
};
TEST_P(Holds, Do) { EXPECT_EQ(play(GetParam().remote, GetParam().pcSteps), GetParam().effects) << GetParam().pcSteps; }

const Effects NONE;
const std::string STOP = "CMD_PT_StopMove()", UP = "CMD_PT_HandeUpBtn()", LEFT = "CMD_PT_HandeLeftBtn()";
const std::string HOME = "PRESET_API_GotoHome(2, NULL)", STORE_HOME = "PRESET_API_SetCur(0, \"PresetHome\")";
const auto goTo = [](int n) { return "PRESET_API_GotoById(" + std::to_string(n) + ", 2, NULL)"; };
const auto store = [](int n) {
    return "PRESET_API_SetCur(" + std::to_string(n) + ", \"Preset" + std::to_string(n) + "\")";
};
const std::string MENU_LEFT = "CMD_MENU_HandeLeftBtn()", STEP_LEFT = "CMD_MENU_HandeLeftUpdateParam()";
const std::string MENU_RIGHT = "CMD_MENU_HandeRightBtn()", STEP_RIGHT = "CMD_MENU_HandeRightUpdateParam()";
const std::string APPLY = "CMD_MENU_HandeSetParam()";
const std::string RESTORE = "SYSTEM_API_FactoryRestoreConfiguration(0)", REBOOT = "UTIL_CMD_RunSafe(\"reboot\")";

INSTANTIATE_TEST_SUITE_P(
    Limits, Holds,
    testing::ValuesIn<tagPLAY_CASE_S>({
        {SMALL, "home", {HOME}},
        {SMALL, "+home ~2999 -home", {HOME}},
        {SMALL, "+home ~3000 -home", {STORE_HOME}},
        {SMALL, "+home ~3001 -home", {STORE_HOME}},
        {BIG, "+7 ~2999 -7", {goTo(7)}},
        {BIG, "+7 ~3000 -7", {store(7)}},
        {BIG, "+0 ~3001 -0 +1 ~3000 -1 9", {store(0), store(1), goTo(9)}},
        {FRONT, "+reset ~9999 -reset", NONE},
        {FRONT, "+reset ~10000 -reset", {RESTORE, REBOOT}},
        {FRONT, "+reset ~10001 -reset", {RESTORE, REBOOT}},
        {BIG, "[open] +left ~499 -left ~2000", {MENU_LEFT}},
        {BIG, "[open] +left ~500 -left ~2000", {MENU_LEFT, STEP_LEFT, APPLY}},
        {BIG, "[open] +right ~1600 -right ~2000", {MENU_RIGHT, STEP_RIGHT, STEP_RIGHT, STEP_RIGHT, APPLY}},
        {BIG, "[open] +left ~500 -left left", {MENU_LEFT, STEP_LEFT, APPLY, MENU_LEFT}}, // the tap applies nothing
    }));

INSTANTIATE_TEST_SUITE_P(
    Numbers, Holds,
    testing::ValuesIn<tagPLAY_CASE_S>({
        {BIG, "call 1 2 confirm", {goTo(12)}},
        {BIG, "set 5 confirm", {"PRESET_API_SetCur(5, NULL)"}},
        {BIG, "delete 3 0 confirm", {"PRESET_API_DeleteById(30)"}},
        {BIG, "call ~2999 4 ~2999 confirm", {goTo(4)}},
        {BIG, "call ~2999 +4 ~60000 -4 ~2999 confirm", {goTo(4)}}, // a pressed digit waits for its release
        {BIG, "call 4 ~3000 confirm", NONE},                       // too late
        {BIG, "call ~3000 4", {goTo(4)}},                          // cancelled, a direct key
        {BIG, "call ~3000 +4 ~3000 -4", {store(4)}},
        {BIG, "call 4 ~3000 confirm 6 confirm", {goTo(6)}}, // the late command is gone with the next digit
        {BIG, "call confirm confirm", {goTo(0)}},
        {BIG, "call 1 set 2 confirm", {"PRESET_API_SetCur(2, NULL)"}}, // a new command starts a new number
        {BIG, "call 1 2 3 4 5 6 7 8 9 confirm", {goTo(123456789)}},
        {BIG, "call 9 9 9 9 9 9 9 9 9 9 9 confirm", {goTo(999999999)}}, // no tenth digit
        {BIG, "call 0 0 0 0 0 0 0 0 0 0 7 confirm", {goTo(7)}},
        {BIG, "+1 call -1 2 confirm", {goTo(1), goTo(2)}},     // a release while a command waits
        {BIG, "call confirm +1 ~2999 -1", {goTo(0), goTo(1)}}, // the hold starts with its own press
    }));

INSTANTIATE_TEST_SUITE_P(MenuInBetween, Holds,
                         testing::ValuesIn<tagPLAY_CASE_S>({
                             {BIG, "+up [open] -up", {UP, STOP}},
                             {TRACKING, "+left [open] -left", {LEFT, STOP}},
                             {BIG, "+left [open] -left ~2000", {LEFT, STOP}},
                             {BIG, "[open] +up [close] -up", {"CMD_MENU_HandeUpBtn()", STOP}},
                             {BIG, "[open] +left [close] -left ~2000", {MENU_LEFT, STOP}},
                             {BIG, "[open] +left ~700 [close] -left ~2000", {MENU_LEFT, STEP_LEFT, STOP}},
                             {BIG, "[open] [track] +left ~700 [close] -left ~2000", {MENU_LEFT, STEP_LEFT}},
                             {BIG, "+left [track] -left", {LEFT, STOP}},
                             {BIG, "[track] +left [untrack] -left", {"ALG_API_LockLastTarget()", STOP}},
                             {BIG, "+7 [open] ~3000 -7 [close] -7", NONE},
                             {BIG, "[open] +7 [close] ~3000 -7", NONE},
                             {SMALL, "+home [open] ~3000 -home [close] -home", NONE},
                             {SMALL, "[open] +home [close] ~3000 -home", {"CMD_MENU_HandeHomeBtn()"}},
                         }));

INSTANTIATE_TEST_SUITE_P(
    Lost, Holds,
    testing::ValuesIn<tagPLAY_CASE_S>({
        {FRONT, "-reset ~20000 -reset", NONE}, // held since before the start
        {FRONT, "+reset ~10000 -reset -reset", {RESTORE, REBOOT}},
        {FRONT, "+reset -reset ~10000 -reset", NONE},
        {FRONT, "+reset ~60000 +reset ~100 -reset", NONE}, // its first release lost: a new press is a new hold
        {FRONT, "+reset ~9000 *reset ~1000 *reset ~1 -reset", {RESTORE, REBOOT}},
        {SMALL, "-home", NONE},
        {SMALL, "+home ~250 *home ~33 *home ~3000 *home -home", {HOME}}, // the first repeat is the release
        {BIG, "-7 ~3000 -7", NONE},
        {BIG, "7 ~3000 -7", {goTo(7)}},
        {BIG, "call -7 confirm", {goTo(0)}},
        {BIG, "[open] -left", NONE},
        {BIG, "[open] +left ~500 +left ~400 -left ~1000", {MENU_LEFT, STEP_LEFT, MENU_LEFT}},
        {BIG, "+left [open] +left -left", {LEFT, STOP, MENU_LEFT}}, // the head stops with the next press at the latest
        {BIG, "+up [open] +up", {UP, STOP, "CMD_MENU_HandeUpBtn()"}},
        {TRACKING, "+left [track] +left", {LEFT, STOP, "ALG_API_LockLastTarget()"}},
        {BIG, "-up", {STOP}},
        {SMALL, "-zoom+", {"PTZ_API_SetZoomAct(0, 0, 5)"}},
    }));
} // namespace
