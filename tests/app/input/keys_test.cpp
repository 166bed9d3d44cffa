// What each key does, with the menu closed and open.
#include "inputTest.h"

#include "camera/image.h"
#include "camera/serial.h"
#include "camera/system.h"
#include "camera/zoom.h"

namespace
{
class Keys : public InputTest, public testing::WithParamInterface<tagPLAY_CASE_S>
{
};
TEST_P(Keys, Do) { EXPECT_EQ(play(GetParam().remote, GetParam().pcSteps), GetParam().effects) << GetParam().pcSteps; }

const Effects NONE;
const std::string MANUAL = "AF_API_SetFocusAuto(0, 0, 1, 1)", STOP = "CMD_PT_StopMove()";
const auto goTo = [](int n) { return "PRESET_API_GotoById(" + std::to_string(n) + ", 2, NULL)"; };
const std::string HOME = "PRESET_API_GotoHome(2, NULL)";
const std::string STORE3 = "PRESET_API_SetCur(3, \"Preset3\")";

INSTANTIATE_TEST_SUITE_P(
    SmallRemote, Keys,
    testing::ValuesIn<tagPLAY_CASE_S>({
        {SMALL, "power auto f1 f2 1 2 3", NONE},
        {SMALL, "menu", {"CMD_MENU_HandleMenuBtn()"}},
        {SMALL, "zoom+", {"PTZ_API_SetZoomAct(0, 2, 5)", "PTZ_API_SetZoomAct(0, 0, 5)"}},
        {SMALL, "zoom-", {"PTZ_API_SetZoomAct(0, 3, 5)", "PTZ_API_SetZoomAct(0, 0, 5)"}},
        {SMALL, "[open] [track] up", {"CMD_PT_HandeUpBtn()", STOP}}, // neither menu nor tracking matters
        {SMALL, "down", {"CMD_PT_HandeDownBtn()", STOP}},
        {SMALL, "left", {"CMD_PT_HandeLeftBtn()", STOP}},
        {SMALL, "right", {"CMD_PT_HandeRightBtn()", STOP}},
        {SMALL, "near", {MANUAL, "AF_API_SetFocusAct(0, 3, 5)", MANUAL, "AF_API_SetFocusAct(0, 0, 5)"}},
        {SMALL, "far", {MANUAL, "AF_API_SetFocusAct(0, 2, 5)", MANUAL, "AF_API_SetFocusAct(0, 0, 5)"}},
        {SMALL, "[open] home", {"CMD_MENU_HandeHomeBtn()"}},
        {SMALL, "+up *up", {"CMD_PT_HandeUpBtn()", STOP}}, // a repeat counts as a release here
    }));

INSTANTIATE_TEST_SUITE_P(
    BigRemote, Keys,
    testing::ValuesIn<tagPLAY_CASE_S>({
        {BIG, "power", {"SYSTEM_API_SleepAppService()"}},
        {BIG, "menu", {"CMD_MENU_HandleMenuBtn()"}},
        {BIG, "near", {MANUAL, "AF_API_SetFocusAct(0, 3, 3)", MANUAL, "AF_API_SetFocusAct(0, 0, 3)"}},
        {BIG, "far", {MANUAL, "AF_API_SetFocusAct(0, 2, 3)", MANUAL, "AF_API_SetFocusAct(0, 0, 3)"}},
        {BIG, "auto", {"AF_API_SetFocusAuto(0, 1, 1, 1)"}},
        {BIG, "manual", {MANUAL}},
        {BIG, "adjust", {"AF_API_TriggerAutoFocus(0)"}},
        {BIG, "iris0", {"ISP_API_SetIrisDefLevel(0, 1, 1)"}},
        {BIG, "backlight backlight", {"ISP_API_SetBackLight(0, 1, 1, 1)", "ISP_API_SetBackLight(0, 0, 1, 1)"}},
        {BIG, "osd osd", {"SYS_API_SetPrompt(0, 1, 1)", "SYS_API_SetPrompt(1, 1, 1)"}},
        {BIG, "f1 f1", {"ALG_API_SetEnable(1, 1, 1)", "ALG_API_SetEnable(0, 1, 1)"}},
        {BIG,
         "f2 f3 f4",
         {"ALG_API_SetBodySize(2, 1, 1)", "ALG_API_SetBodySize(1, 1, 1)", "ALG_API_SetBodySize(0, 1, 1)"}},
        {BIG, "clear confirm", NONE},
        {BIG, "back", {"CMD_MENU_OnlyReturnMenu()"}},
        {BIG, "home", {HOME}},
        {BIG, "[open] home", {HOME}},
        {BIG, "entry", NONE},
        {BIG, "[open] entry", {"CMD_MENU_HandeHomeBtn()"}},
        {BIG, "up", {"CMD_PT_HandeUpBtn()", STOP}},
        {BIG, "[track] down", {"CMD_PT_HandeDownBtn()", STOP}},
        {BIG, "[open] up down", {"CMD_MENU_HandeUpBtn()", "CMD_MENU_HandeDownBtn()"}},
        {BIG, "left", {"CMD_PT_HandeLeftBtn()", STOP}},
        {BIG, "right", {"CMD_PT_HandeRightBtn()", STOP}},
        {BIG, "[track] left right", {"ALG_API_LockLastTarget()", "ALG_API_LockNextTarget()"}},
        {BIG, "[open] [track] left right", {"CMD_MENU_HandeLeftBtn()", "CMD_MENU_HandeRightBtn()"}},
        {BIG, "[open] 7 +7 ~3000 -7", NONE},
        {BIG, "+up *up *up -up", {"CMD_PT_HandeUpBtn()", STOP}},
    }));

INSTANTIATE_TEST_SUITE_P(
    TrackingRemote, Keys,
    testing::ValuesIn<tagPLAY_CASE_S>({
        {TRACKING, "power", {"SYSTEM_API_SleepAppService()"}},
        {TRACKING, "menu", {"CMD_MENU_HandleMenuBtn()"}},
        {TRACKING, "zoom+", {"PTZ_API_SetZoomAct(0, 2, 5)", "PTZ_API_SetZoomAct(0, 0, 5)"}},
        {TRACKING, "zoom-", {"PTZ_API_SetZoomAct(0, 3, 5)", "PTZ_API_SetZoomAct(0, 0, 5)"}},
        {TRACKING, "near", {MANUAL, "AF_API_SetFocusAct(0, 3, 5)", MANUAL, "AF_API_SetFocusAct(0, 0, 5)"}},
        {TRACKING, "far", {MANUAL, "AF_API_SetFocusAct(0, 2, 5)", MANUAL, "AF_API_SetFocusAct(0, 0, 5)"}},
        {TRACKING, "auto", {"AF_API_SetFocusAuto(0, 1, 1, 1)"}},
        {TRACKING, "back", {"CMD_MENU_OnlyReturnMenu()"}},
        {TRACKING, "home", {HOME}},
        {TRACKING, "[open] home", {"CMD_MENU_HandeHomeBtn()"}},
        {TRACKING, "up down", {"CMD_PT_HandeUpBtn()", STOP, "CMD_PT_HandeDownBtn()", STOP}},
        {TRACKING, "[open] up down", {"CMD_MENU_HandeUpBtn()", "CMD_MENU_HandeDownBtn()"}},
        {TRACKING, "left right", {"CMD_PT_HandeLeftBtn()", STOP, "CMD_PT_HandeRightBtn()", STOP}},
        {TRACKING, "[track] left right", {"ALG_API_LockLastTarget()", "ALG_API_LockNextTarget()"}},
        {TRACKING, "[open] +left ~2000 -left right", {"CMD_MENU_HandeLeftBtn()", "CMD_MENU_HandeRightBtn()"}},
        {TRACKING, "1 2 3 4", {goTo(1), goTo(2), goTo(3), goTo(4)}},
        {TRACKING, "set 3 3", {STORE3, goTo(3)}},
        {TRACKING, "set ~3000 3", {STORE3}}, // stays pending after the entry timer
        {TRACKING, "+2 set -2", {goTo(2), "PRESET_API_SetCur(2, \"Preset2\")"}},
        {TRACKING, "f1", {"ALG_API_SetEnable(1, 1, 1)"}},
        {TRACKING,
         "f2 f3 f4",
         {"ALG_API_SetBodySize(0, 1, 1)", "ALG_API_SetBodySize(1, 1, 1)", "ALG_API_SetBodySize(2, 1, 1)"}},
        {TRACKING, "long1 long2", NONE},
        {TRACKING, "id2", {"IR_API_SetAddr(2, 1, 0)"}},
        {TRACKING,
         "long3",
         {"NET_API_SetIpAddr(\"NetCard0\", \"192.168.100.100\")", "PROMPT_API_ShowIpaddr(\"192.168.100.100\")"}},
    }));

class KeyState : public InputTest
{
};

TEST_F(KeyState, ZoomOfTheBigRemoteUsesTheSetSpeed)
{
    PTZ_API_SetZoomSpd(0, 2, BU_FALSE, BU_FALSE);
    journal::effects();
    EXPECT_EQ(play(BIG, "zoom+ zoom-"), (Effects{"PTZ_API_SetZoomAct(0, 2, 2)", "PTZ_API_SetZoomAct(0, 0, 2)",
                                                 "PTZ_API_SetZoomAct(0, 3, 2)", "PTZ_API_SetZoomAct(0, 0, 2)"}));
}

TEST_F(KeyState, IrisStepsUpToItsEnds)
{
    struct {
        int s32Level;
        const char *pcKey;
        int s32Expected;
    } const rows[] = {{12, "iris+", 13}, {13, "iris+", 13}, {1, "iris-", 0}, {0, "iris-", 0}};
    for (const auto &row : rows) {
        ISP_API_SetIrisLevel(0, row.s32Level, BU_FALSE, BU_FALSE);
        journal::effects();
        EXPECT_EQ(play(BIG, row.pcKey),
                  (Effects{"ISP_API_SetAeMode(0, 3, 1, 1)",
                           "ISP_API_SetIrisLevel(0, " + std::to_string(row.s32Expected) + ", 1, 1)"}));
    }
}

TEST_F(KeyState, FullBodyOnlyInTwoTrackingModes)
{
    for (const int s32Mode : {0, 1, 2, 3, 4, 5}) {
        ALG_API_SetTrackMode(s32Mode, BU_FALSE, BU_FALSE);
        journal::effects();
        const Effects expected = s32Mode == 0 || s32Mode == 2 ? Effects{"ALG_API_SetBodySize(0, 1, 1)"} : NONE;
        EXPECT_EQ(play(BIG, "f4"), expected) << s32Mode;
        EXPECT_EQ(play(TRACKING, "f2"), expected) << s32Mode;
    }
}

TEST_F(KeyState, TogglesAskForTheStoredValue)
{
    ISP_API_SetBackLight(0, BU_TRUE, BU_FALSE, BU_FALSE); // stored: off
    SYS_API_SetPrompt(BU_FALSE, BU_FALSE, BU_FALSE);      // stored: on
    journal::effects();
    EXPECT_EQ(play(BIG, "backlight osd"), (Effects{"ISP_API_SetBackLight(0, 1, 1, 1)", "SYS_API_SetPrompt(0, 1, 1)"}));
}

TEST_F(KeyState, WhatCannotBeReadHasAValueToStartFrom)
{
    PTZ_API_SetZoomSpd(0, 2, BU_FALSE, BU_FALSE);
    ISP_API_SetBackLight(0, BU_TRUE, BU_TRUE, BU_FALSE);
    SYS_API_SetPrompt(BU_FALSE, BU_TRUE, BU_FALSE);
    ALG_API_SetEnable(BU_TRUE, BU_FALSE, BU_FALSE);
    ALG_API_SetTrackMode(TRACK_MODE_E_STAGE_TRACKING, BU_FALSE, BU_FALSE);
    for (const char *pcGet : {"PTZ_API_GetZoomSpd", "ISP_API_GetBackLight", "SYS_API_GetPrompt", "ALG_API_GetEnable",
                              "ALG_API_GetTrackMode"})
        journal::inject(pcGet, -1, 10);
    journal::effects();
    EXPECT_EQ(play(BIG, "zoom+ backlight osd f1 f4 +left"),
              (Effects{"PTZ_API_SetZoomAct(0, 2, 5)", "PTZ_API_SetZoomAct(0, 0, 5)", "ISP_API_SetBackLight(0, 1, 1, 1)",
                       "SYS_API_SetPrompt(0, 1, 1)", "ALG_API_SetEnable(1, 1, 1)", "ALG_API_SetBodySize(0, 1, 1)",
                       "CMD_PT_HandeLeftBtn()"}));
}

TEST_F(KeyState, RefusedAddressIsNotShown)
{
    journal::inject("NET_API_SetIpAddr", -1);
    EXPECT_EQ(play(TRACKING, "long3"), (Effects{"NET_API_SetIpAddr(\"NetCard0\", \"192.168.100.100\")"}));
}

TEST_F(KeyState, IdKeyMovesTheCameraToTheNextRemote)
{
    play(TRACKING, "id3");
    EXPECT_EQ(play(TRACKING, "home"), NONE); // the remote still has address 1
    send(TRACKING, EV_KEY, 2 << 7 | CODES.at("home"), 1);
    EXPECT_EQ(journal::effects(), (Effects{HOME}));
}
} // namespace
