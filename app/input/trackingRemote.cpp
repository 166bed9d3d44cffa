// The tracking remote.
#include "camera/menu.h"
#include "camera/network.h"
#include "camera/power.h"
#include "camera/preset.h"
#include "camera/serial.h"
#include "directionKeys.h"
#include "keyActions.h"

#include <linux/input.h>

namespace
{
using namespace input;

constexpr const BU_CHAR *RESET_IP = "192.168.100.100";

void enterOrGoHome()
{
    if (isMenuOpen())
        CMD_MENU_HandeHomeBtn();
    else
        goHome();
}

/// Recalls its preset; with a command waiting, whichever it is and pressed or released, stores it.
template <BU_S32 Digit> BU_S32 presetKey(KEY_EVENT_E enEvent)
{
    if (BR_GetKeyPresetPointsData()->enKeyType != PRESET_POINT_TYPE_E_BUTT) {
        stopEntryTimer();
        BR_GetKeyPresetPointsData()->enKeyType = PRESET_POINT_TYPE_E_BUTT;
        PRESET_API_SetCur(Digit, presetName(Digit));
    } else if (isPress(enEvent)) {
        recall(Digit);
    }
    return 0;
}

/// The camera answers the remotes of this address from now on.
template <BU_U8 Addr> void setAddress() { IR_API_SetAddr(Addr, BU_TRUE, IRADDR_SWITCH_E_SOFT); }

void resetIp()
{
    if (NET_API_SetIpAddr("NetCard0", RESET_IP) == 0) PROMPT_API_ShowIpaddr(RESET_IP);
}

// clang-format off
constexpr KeyRow KEYS[] = {
    {16,  KEY_TYPE_E_POWER,       onPress<SYSTEM_API_SleepAppService>},           // YM_COMMON_PowerBtn
    {30,  KEY_TYPE_E_MENU,        onPress<CMD_MENU_HandleMenuBtn>},               // YM_COMMON_MenuBtn
    {28,  KEY_TYPE_E_ZOOM_OUT,    zoom<ZOOM_ACTION_E_WIDE, 5>},                   // YM_COMMON_ZoomOutBtn
    {29,  KEY_TYPE_E_ZOOM_IN,     zoom<ZOOM_ACTION_E_TELE, 5>},                   // YM_COMMON_ZoomInBtn
    {32,  KEY_TYPE_E_UP,          direction<UP, FAMILY_YM>},                      // YM_COMMON_UpBtn
    {33,  KEY_TYPE_E_DOWN,        direction<DOWN, FAMILY_YM>},                    // YM_COMMON_DownBtn
    {34,  KEY_TYPE_E_LEFT,        direction<LEFT, FAMILY_YM>},                    // YM_COMMON_LeftBtn
    {35,  KEY_TYPE_E_RIGHT,       direction<RIGHT, FAMILY_YM>},                   // YM_COMMON_RightBtn
    {15,  KEY_TYPE_E_HOME,        onPress<enterOrGoHome>},                        // YM_COMMON_HomeBtn
    {23,  KEY_TYPE_E_FOCUS_NEAR,  focus<FOCUS_ACTION_E_NEAR, 5>},                 // YM_COMMON_FocusNearBtn
    {24,  KEY_TYPE_E_FOCUS_FAR,   focus<FOCUS_ACTION_E_FAR, 5>},                  // YM_COMMON_FocusFarBtn
    {20,  KEY_TYPE_E_FOCUS_AUTO,  onPress<focusAuto>},                            // YM_COMMON_FocusAutoBtn
    {31,  KEY_TYPE_E_BACK,        onPress<CMD_MENU_OnlyReturnMenu>},              // YM_COMMON_BackBtn
    {39,  KEY_TYPE_E_SET,         onPress<awaitNumber<PRESET_POINT_TYPE_E_SET>>}, // YM_COMMON_SetBtn
    {2,   KEY_TYPE_E_NUM1,        presetKey<1>},                                  // YM_COMMON_Num1Btn
    {3,   KEY_TYPE_E_NUM2,        presetKey<2>},                                  // YM_COMMON_Num2Btn
    {4,   KEY_TYPE_E_NUM3,        presetKey<3>},                                  // YM_COMMON_Num3Btn
    {5,   KEY_TYPE_E_NUM4,        presetKey<4>},                                  // YM_COMMON_Num4Btn
    {11,  KEY_TYPE_E_TRACK,       onPress<toggleTracking>},                       // YM_COMMON_F1Btn
    {12,  KEY_TYPE_E_TRACK_FAR,   onPress<trackFullBody>},                        // YM_COMMON_F2Btn
    {13,  KEY_TYPE_E_TRACK_MID,   onPress<trackHalfBody>},                        // YM_COMMON_F3Btn
    {14,  KEY_TYPE_E_TRACK_NEAR,  onPress<trackCloseUp>},                         // YM_COMMON_F4Btn
    {102, KEY_TYPE_E_ID1,         onPress<setAddress<1>>},                        // YM_COMMON_ID1Btn
    {103, KEY_TYPE_E_ID2,         onPress<setAddress<2>>},                        // YM_COMMON_ID2Btn
    {104, KEY_TYPE_E_ID3,         onPress<setAddress<3>>},                        // YM_COMMON_ID3Btn
    {105, KEY_TYPE_E_ID4,         onPress<setAddress<4>>},                        // YM_COMMON_ID4Btn
    {89,  KEY_TYPE_E_LONG_PRESS1, nullptr},                                       // means something to the remote only
    {90,  KEY_TYPE_E_LONG_PRESS2, nullptr},                                       // means something to the remote only
    {91,  KEY_TYPE_E_LONG_PRESS3, onPress<resetIp>},                              // YM_COMMON_IPResetBtn
};
// clang-format on
} // namespace

void YM_COMMON_InputEventCb(const input_event *pstEvent)
{
    if (KeyEvent stKey; readRemote(*pstEvent, stKey)) pressAndTrace(TABLES<KEYS>, stKey);
}
