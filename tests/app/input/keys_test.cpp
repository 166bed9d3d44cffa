// What each key does: in the menu and outside, tapped and held, with a press or a release lost.
#include "inputTest.h"

namespace
{
using Keys = InputTest;

// clang-format off
TEST_F(Keys, OfTheSmallRemote) { expect(SMALL, {
        {"power focus-auto f1 f2 1 2 3", ""}, {"menu", "MENU_HandleMenu"}, {"-zoom-in", "SetZoomAct(0, 0, 5)"},
        {"zoom-in zoom-out", "SetZoomAct(0, 2, 5) SetZoomAct(0, 0, 5) SetZoomAct(0, 3, 5) SetZoomAct(0, 0, 5)"},
        {"[open] [track] up down", "PT_Up PT_StopMove PT_Down PT_StopMove"}, // neither menu nor tracking matters
        {"[open] [track] left right", "PT_Left PT_StopMove PT_Right PT_StopMove"}, {"home", "GotoHome(2)"},
        {"focus-near focus-far", "Focus(0, 3, 5) Focus(0, 0, 5) Focus(0, 2, 5) Focus(0, 0, 5)"}, {"-home", ""},
        {"+home ~2999 -home", "GotoHome(2)"}, {"+up *up", "PT_Up PT_StopMove"}, // a repeat counts as a release here
        {"+home ~3000 -home", "SetCur(0, 'PresetHome')"}, {"[open] home", "MENU_Home"},
        {"+home [open] ~3000 -home [close] -home", ""}, {"[open] +home [close] ~3000 -home", "MENU_Home"},
        {"+home ~250 *home ~33 *home ~3000 *home -home", "GotoHome(2)"}, // the first repeat is the release
}); }

TEST_F(Keys, OfTheBigRemote) { expect(BIG, {
        {"power", "SleepAppService"}, {"menu", "MENU_HandleMenu"}, {"iris-reset", "SetIrisDefLevel(0, 1, 1)"},
        {"focus-near focus-far", "Focus(0, 3, 3) Focus(0, 0, 3) Focus(0, 2, 3) Focus(0, 0, 3)"}, {"-up", "PT_StopMove"},
        {"focus-auto focus-manual focus-once", "SetFocusAuto(0, 1, 1, 1) SetFocusAuto(0, 0, 1, 1) TriggerAutoFocus(0)"},
        {"backlight backlight", "SetBackLight(0, 1, 1, 1) SetBackLight(0, 0, 1, 1)"}, {"clear confirm enter", ""},
        {"osd osd", "SetPrompt(0, 1, 1) SetPrompt(1, 1, 1)"}, {"f1 f1", "SetEnable(1, 1, 1) SetEnable(0, 1, 1)"},
        {"f2 f3 f4", "SetBodySize(2, 1, 1) SetBodySize(1, 1, 1) SetBodySize(0, 1, 1)"}, {"back", "MENU_OnlyReturnMenu"},
        {"home [open] home", "GotoHome(2) GotoHome(2)"}, {"[open] enter", "MENU_Home"}, {"[open] -left", ""},
        {"[track] up down", "PT_Up PT_StopMove PT_Down PT_StopMove"}, {"[open] up down", "MENU_Up MENU_Down"},
        {"left right", "PT_Left PT_StopMove PT_Right PT_StopMove"}, {"+up *up *up -up", "PT_Up PT_StopMove"},
        {"[track] left right", "LockLastTarget LockNextTarget"}, {"[open] [track] left right", "MENU_Left MENU_Right"},
        {"[open] +left ~499 -left ~2000", "MENU_Left"}, {"[open] +left ~500 -left ~2000", "MENU_Left MENU_LeftUpdateParam MENU_SetParam"},
        {"[open] +right ~1600 -right ~2000", "MENU_Right MENU_RightUpdateParam MENU_RightUpdateParam MENU_RightUpdateParam MENU_SetParam"},
        {"[open] +left ~500 -left left", "MENU_Left MENU_LeftUpdateParam MENU_SetParam MENU_Left"}, // the tap applies nothing
        {"[open] +left ~500 +left ~400 -left ~1000", "MENU_Left MENU_LeftUpdateParam MENU_Left"}, // the first release lost
}); }

TEST_F(Keys, OfTheTrackingRemote) { expect(TRACKING, {
        {"power", "SleepAppService"}, {"menu", "MENU_HandleMenu"}, {"home [open] home", "GotoHome(2) MENU_Home"},
        {"zoom-in zoom-out", "SetZoomAct(0, 2, 5) SetZoomAct(0, 0, 5) SetZoomAct(0, 3, 5) SetZoomAct(0, 0, 5)"},
        {"focus-near focus-far", "Focus(0, 3, 5) Focus(0, 0, 5) Focus(0, 2, 5) Focus(0, 0, 5)"}, {"long1 long2", ""},
        {"focus-auto back", "SetFocusAuto(0, 1, 1, 1) MENU_OnlyReturnMenu"}, {"[open] up down", "MENU_Up MENU_Down"},
        {"up down", "PT_Up PT_StopMove PT_Down PT_StopMove"}, {"[track] left right", "LockLastTarget LockNextTarget"},
        {"left right", "PT_Left PT_StopMove PT_Right PT_StopMove"}, {"set 3 3", "SetCur(3, 'Preset3') GotoById(3, 2)"},
        {"[open] +left ~2000 -left right", "MENU_Left MENU_Right"}, {"id4", "SetAddr(4, 1, 0)"},
        {"1 2 3 4", "GotoById(1, 2) GotoById(2, 2) GotoById(3, 2) GotoById(4, 2)"},
        {"set ~3000 3", "SetCur(3, 'Preset3')"}, // stays pending after the entry timer
        {"set 1 set 4", "SetCur(1, 'Preset1') SetCur(4, 'Preset4')"},
        {"+2 set -2", "GotoById(2, 2) SetCur(2, 'Preset2')"}, {"track track", "SetEnable(1, 1, 1) SetEnable(0, 1, 1)"},
        {"track-far track-mid track-near", "SetBodySize(0, 1, 1) SetBodySize(1, 1, 1) SetBodySize(2, 1, 1)"},
        {"id1 id2 id3", "SetAddr(1, 1, 0) SetAddr(2, 1, 0)"}, // the remote has address 1, and id3 is not heard
        {"ip-reset", "SetIpAddr('NetCard0', '192.168.100.100') ShowIpaddr('192.168.100.100')"},
}); }

TEST_F(Keys, OfTheFront) { expect(FRONT, {
        {"+reset ~9999 -reset", ""}, {"-reset ~20000 -reset", ""}, // held since before the start
        {"+reset ~10000 -reset -reset", "FactoryRestoreConfiguration(0) UTIL_RunSafe('reboot')"}, {"+reset -reset ~10000 -reset", ""},
        {"+reset ~60000 +reset ~100 -reset", ""}, // its first release lost: a new press is a new hold
        {"+reset ~9000 *reset ~1000 *reset ~1 -reset", "FactoryRestoreConfiguration(0) UTIL_RunSafe('reboot')"},
}); }

TEST_F(Keys, OfNumbers) { expect(BIG, {
        {"0 1 2 3 4", "GotoById(0, 2) GotoById(1, 2) GotoById(2, 2) GotoById(3, 2) GotoById(4, 2)"},
        {"5 6 7 8 9", "GotoById(5, 2) GotoById(6, 2) GotoById(7, 2) GotoById(8, 2) GotoById(9, 2)"},
        {"+7 ~2999 -7", "GotoById(7, 2)"}, {"+7 ~3000 -7", "SetCur(7, 'Preset7')"}, {"set 5 confirm", "SetCur(5)"},
        {"+0 ~3001 -0 +1 ~3000 -1 9", "SetCur(0, 'Preset0') SetCur(1, 'Preset1') GotoById(9, 2)"}, {"-7 ~3000 -7", ""},
        {"call 1 2 confirm", "GotoById(12, 2)"}, {"delete 3 0 confirm", "DeleteById(30)"}, {"[open] 7 +7 ~3000 -7", ""},
        {"call ~2999 4 ~2999 confirm", "GotoById(4, 2)"}, {"call 4 ~3000 confirm", ""}, // too late
        {"call ~2999 +4 ~60000 -4 ~2999 confirm", "GotoById(4, 2)"}, // a pressed digit waits for its release
        {"call confirm confirm", "GotoById(0, 2)"}, {"call ~3000 4", "GotoById(4, 2)"}, // cancelled, a direct key
        {"call ~3000 +4 ~3000 -4", "SetCur(4, 'Preset4')"}, {"call 0 0 0 0 0 0 0 0 0 0 7 confirm", "GotoById(7, 2)"},
        {"call 4 ~3000 confirm 6 confirm", "GotoById(6, 2)"}, // the late command is gone with the next digit
        {"[open] +7 [close] ~3000 -7", ""}, {"call 1 set 2 confirm", "SetCur(2)"}, // a new command starts a new number
        {"call 1 2 3 4 5 6 7 8 9 confirm", "GotoById(123456789, 2)"}, {"+7 [open] ~3000 -7 [close] -7", ""},
        {"call 9 9 9 9 9 9 9 9 9 9 9 confirm", "GotoById(999999999, 2)"}, // no tenth digit
        {"+1 call -1 2 confirm", "GotoById(1, 2) GotoById(2, 2)"}, // a release while a command waits
        {"call confirm +1 ~2999 -1", "GotoById(0, 2) GotoById(1, 2)"}, // the hold starts with its own press
        {"7 ~3000 -7", "GotoById(7, 2)"}, {"call -7 confirm", "GotoById(0, 2)"},
}); }

/// The record of the timer says whose hold or wait it measures.
TEST_F(Keys, AreNamedByTheTimerTheyStart)
{
    for (const auto &[remote, pcSteps, enKey] : {
             std::tuple{BIG, "+0", KEY_TYPE_E_NUM0}, {BIG, "+1", KEY_TYPE_E_NUM1}, {BIG, "+9", KEY_TYPE_E_NUM9}, {SMALL, "+home", KEY_TYPE_E_HOME},
             {BIG, "call", KEY_TYPE_E_CALL}, {BIG, "set", KEY_TYPE_E_SET}, {BIG, "delete", KEY_TYPE_E_DELETE}, {BIG, "call 5", KEY_TYPE_E_NUM5},
             {BIG, "call ~3000 6", KEY_TYPE_E_NUM6}, {BIG, "[open] +left", KEY_TYPE_E_LEFT}, {BIG, "[open] +right", KEY_TYPE_E_RIGHT}}) {
        reset();
        play(remote, pcSteps);
        EXPECT_EQ(SR_BR_GetTimerData()->stParam.enKeyType, enKey) << pcSteps;
    }
}

/// Menu and tracking change while a direction is held: the head stops with the release, or the next press at the latest.
TEST_F(Keys, OfDirectionsWhoseMeaningChanges) { expect(BIG, {
        {"+up [open] -up", "PT_Up PT_StopMove"}, {"+left [open] -left ~2000", "PT_Left PT_StopMove"},
        {"[open] +up [close] -up", "MENU_Up PT_StopMove"}, {"+left [track] -left", "PT_Left PT_StopMove"},
        {"[open] +left [close] -left ~2000", "MENU_Left PT_StopMove"}, {"+up [open] +up", "PT_Up PT_StopMove MENU_Up"},
        {"[open] +left ~700 [close] -left ~2000", "MENU_Left MENU_LeftUpdateParam PT_StopMove"},
        {"[open] [track] +left ~700 [close] -left ~2000", "MENU_Left MENU_LeftUpdateParam"},
        {"[track] +left [untrack] -left", "LockLastTarget PT_StopMove"}, {"+left [open] +left -left", "PT_Left PT_StopMove MENU_Left"},
    });
    expect(TRACKING, {{"+left [open] -left", "PT_Left PT_StopMove"},
                      {"+left [track] +left", "PT_Left PT_StopMove LockLastTarget"}}); }

/// "[Key=value]" is a setting's running value, not stored.
TEST_F(Keys, StartFromTheRunningOrTheStoredValue) { expect(BIG, {
        {"[ZoomSpd=2] zoom-in zoom-out", "SetZoomAct(0, 2, 2) SetZoomAct(0, 0, 2) SetZoomAct(0, 3, 2) SetZoomAct(0, 0, 2)"},
        {"[IrisLevel=12] iris-open iris-open", "SetAeMode(0, 3, 1, 1) SetIrisLevel(0, 13, 1, 1) SetAeMode(0, 3, 1, 1) SetIrisLevel(0, 13, 1, 1)"},
        {"[IrisLevel=1] iris-close iris-close", "SetAeMode(0, 3, 1, 1) SetIrisLevel(0, 0, 1, 1) SetAeMode(0, 3, 1, 1) SetIrisLevel(0, 0, 1, 1)"},
        {"[TrackMode=0] f4", "SetBodySize(0, 1, 1)"}, {"[TrackMode=1] f4", ""}, {"[TrackMode=3] f4", ""},
        {"[TrackMode=2] f4", "SetBodySize(0, 1, 1)"}, {"[TrackMode=4] f4", ""}, {"[TrackMode=5] f4", ""},
        {"[BacklightCompensation=1] backlight", "SetBackLight(0, 1, 1, 1)"}, {"[Prompt=0] osd", "SetPrompt(0, 1, 1)"},
    });
    expect(TRACKING, {{"[TrackMode=1] track-far", ""}, {"[TrackMode=2] track-far", "SetBodySize(0, 1, 1)"}});
}

/// "[!Function]": from here on it fails.
TEST_F(Keys, HaveAValueToStartFromWhenNoneCanBeRead) {
    expect(TRACKING, {{"[!NET_API_SetIpAddr] ip-reset", "SetIpAddr('NetCard0', '192.168.100.100')"}});
    expect(BIG, {
        {"[ZoomSpd=2] [!PTZ_API_GetZoomSpd] +zoom-in", "SetZoomAct(0, 2, 5)"}, {"[TrackMode=1] [!ALG_API_GetTrackMode] f4", "SetBodySize(0, 1, 1)"},
        {"backlight [!ISP_API_GetBackLight] backlight", "SetBackLight(0, 1, 1, 1) SetBackLight(0, 1, 1, 1)"},
        {"osd [!SYS_API_GetPrompt] osd", "SetPrompt(0, 1, 1) SetPrompt(0, 1, 1)"},
        {"[track] [!ALG_API_GetEnable] f1 +left", "SetEnable(1, 1, 1) PT_Left"},
}); }
// clang-format on
} // namespace
