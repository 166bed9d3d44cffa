// The big remote.
#include "camera/image.h"
#include "camera/menu.h"
#include "camera/picture.h"
#include "camera/power.h"
#include "directionKeys.h"
#include "keyActions.h"
#include "numberKeys.h"
#include "vocabulary/wordSetters.h"

#include <linux/input.h>

namespace
{
using namespace input;

template <ZOOM_ACTION_E Action> BU_S32 zoomAtSetSpeed(KEY_EVENT_E enEvent)
{
    BU_U8 u8Speed = 5;
    PTZ_API_GetZoomSpd(0, &u8Speed, BU_FALSE);
    PTZ_API_SetZoomAct(0, isPress(enEvent) ? Action : ZOOM_ACTION_E_STOP, u8Speed);
    return 0;
}

template <BU_S32 (*Step)()> BU_S32 stepTimerCb(void *)
{
    SR_BR_GetTimerData()->stParam.bValid = BU_FALSE;
    return Step();
}
constexpr auto BR_COMMON_LeftTimerCb = stepTimerCb<CMD_MENU_HandeLeftUpdateParam>;
constexpr auto BR_COMMON_RightTimerCb = stepTimerCb<CMD_MENU_HandeRightUpdateParam>;

constexpr Direction withStepTimer(Direction stDirection, BU_S32 (*pfnStepTimerCb)(void *))
{
    stDirection.pfnStepTimerCb = pfnStepTimerCb;
    return stDirection;
}
constexpr Direction STEPPING_LEFT = withStepTimer(LEFT, BR_COMMON_LeftTimerCb);
constexpr Direction STEPPING_RIGHT = withStepTimer(RIGHT, BR_COMMON_RightTimerCb);

void enterInMenu()
{
    if (isMenuOpen()) CMD_MENU_HandeHomeBtn();
}

void focusManual() { AF_API_SetFocusAuto(0, BU_FALSE, BU_TRUE, BU_TRUE); }

void focusOnce() { AF_API_TriggerAutoFocus(0); }

/// One aperture stop; the exposure follows the iris from now on.
template <BU_S32 Step> void stepIris()
{
    ISP_API_SetAeMode(0, "IrisFirst", BU_TRUE, BU_TRUE);
    BU_S32 s32Level = IRIS_LEVEL_E_CLOSE;
    ISP_API_GetIrisLevel(0, &s32Level, BU_FALSE);
    constexpr BU_S32 END = Step > 0 ? IRIS_LEVEL_E_IL_F1P6 : IRIS_LEVEL_E_CLOSE;
    if (Step > 0 ? s32Level < END : s32Level > END) s32Level += Step;
    ISP_API_SetIrisLevel(0, s32Level, BU_TRUE, BU_TRUE);
}

void resetIris() { ISP_API_SetIrisDefLevel(0, BU_TRUE, BU_TRUE); }

void toggleBackLight()
{
    BU_BOOL bOn = BU_FALSE;
    ISP_API_GetBackLight(0, &bOn, BU_TRUE);
    ISP_API_SetBackLight(0, bOn ? "Off" : "On", BU_TRUE, BU_TRUE);
}

void togglePrompt()
{
    BU_BOOL bOn = BU_TRUE;
    SYS_API_GetPrompt(&bOn, BU_TRUE);
    SYS_API_SetPrompt(!bOn, BU_TRUE, BU_TRUE);
}

// clang-format off
constexpr KeyRow KEYS[] = {
    {16, KEY_TYPE_E_POWER,        onPress<SYSTEM_API_SleepAppService>},             // BR_COMMON_PowerBtn
    {30, KEY_TYPE_E_MENU,         onPress<CMD_MENU_HandleMenuBtn>},                 // BR_COMMON_MenuBtn
    {28, KEY_TYPE_E_ZOOM_OUT,     zoomAtSetSpeed<ZOOM_ACTION_E_WIDE>},              // BR_COMMON_ZoomOutBtn
    {29, KEY_TYPE_E_ZOOM_IN,      zoomAtSetSpeed<ZOOM_ACTION_E_TELE>},              // BR_COMMON_ZoomInBtn
    {32, KEY_TYPE_E_UP,           direction<UP, FAMILY_BR>},                        // BR_COMMON_UpBtn
    {33, KEY_TYPE_E_DOWN,         direction<DOWN, FAMILY_BR>},                      // BR_COMMON_DownBtn
    {34, KEY_TYPE_E_LEFT,         direction<STEPPING_LEFT, FAMILY_BR>},             // BR_COMMON_LeftBtn
    {35, KEY_TYPE_E_RIGHT,        direction<STEPPING_RIGHT, FAMILY_BR>},            // BR_COMMON_RightBtn
    {15, KEY_TYPE_E_HOME,         onPress<goHome>},                                 // BR_COMMON_HomeBtn
    {23, KEY_TYPE_E_FOCUS_NEAR,   focus<FOCUS_ACTION_E_NEAR, 3>},                   // BR_COMMON_FocusNearBtn
    {24, KEY_TYPE_E_FOCUS_FAR,    focus<FOCUS_ACTION_E_FAR, 3>},                    // BR_COMMON_FocusFarBtn
    {20, KEY_TYPE_E_FOCUS_AUTO,   onPress<focusAuto>},                              // BR_COMMON_FocusAutoBtn
    {21, KEY_TYPE_E_FOCUS_Manual, onPress<focusManual>},                            // BR_COMMON_FocusManualMBtn
    {22, KEY_TYPE_E_FOCUS_Adjust, onPress<focusOnce>},                              // BR_COMMON_FocusAdjustMBtn
    {25, KEY_TYPE_E_IRIS_ADD,     onPress<stepIris<1>>},                            // BR_COMMON_IrisBigBtn
    {26, KEY_TYPE_E_IRIS_SUB,     onPress<stepIris<-1>>},                           // BR_COMMON_IrisSmallBtn
    {27, KEY_TYPE_E_IRIS_RESET,   onPress<resetIris>},                              // BR_COMMON_IrisResetBtn
    {31, KEY_TYPE_E_BACK,         onPress<CMD_MENU_OnlyReturnMenu>},                // BR_COMMON_BackBtn
    {36, KEY_TYPE_E_ENTRY,        onPress<enterInMenu>},                            // BR_COMMON_EntryBtn
    {37, KEY_TYPE_E_OSD_DATA,     onPress<togglePrompt>},                           // BR_COMMON_OsdDataBtn
    {38, KEY_TYPE_E_CALL,         onPress<awaitNumber<PRESET_POINT_TYPE_E_CALL>>},  // BR_COMMON_CallBtn
    {39, KEY_TYPE_E_SET,          onPress<awaitNumber<PRESET_POINT_TYPE_E_SET>>},   // BR_COMMON_SetBtn
    {40, KEY_TYPE_E_DELETE,       onPress<awaitNumber<PRESET_POINT_TYPE_E_CLEAR>>}, // BR_COMMON_DeleteBtn
    {41, KEY_TYPE_E_CLEAR,        nothing},                                         // BR_COMMON_ClearBtn
    {42, KEY_TYPE_E_CONFIRM,      onPress<confirmNumber>},                          // BR_COMMON_ConfirmBtn
    {11, KEY_TYPE_E_F1,           onPress<toggleTracking>},                         // BR_COMMON_F1Btn
    {12, KEY_TYPE_E_F2,           onPress<trackCloseUp>},                           // BR_COMMON_F2Btn
    {13, KEY_TYPE_E_F3,           onPress<trackHalfBody>},                          // BR_COMMON_F3Btn
    {14, KEY_TYPE_E_F4,           onPress<trackFullBody>},                          // BR_COMMON_F4Btn
    {1,  KEY_TYPE_E_NUM0,         numberKey<0>},                                    // BR_COMMON_Num0Btn
    {2,  KEY_TYPE_E_NUM1,         numberKey<1>},                                    // BR_COMMON_Num1Btn
    {3,  KEY_TYPE_E_NUM2,         numberKey<2>},                                    // BR_COMMON_Num2Btn
    {4,  KEY_TYPE_E_NUM3,         numberKey<3>},                                    // BR_COMMON_Num3Btn
    {5,  KEY_TYPE_E_NUM4,         numberKey<4>},                                    // BR_COMMON_Num4Btn
    {6,  KEY_TYPE_E_NUM5,         numberKey<5>},                                    // BR_COMMON_Num5Btn
    {7,  KEY_TYPE_E_NUM6,         numberKey<6>},                                    // BR_COMMON_Num6Btn
    {8,  KEY_TYPE_E_NUM7,         numberKey<7>},                                    // BR_COMMON_Num7Btn
    {9,  KEY_TYPE_E_NUM8,         numberKey<8>},                                    // BR_COMMON_Num8Btn
    {10, KEY_TYPE_E_NUM9,         numberKey<9>},                                    // BR_COMMON_Num9Btn
    {19, KEY_TYPE_E_BACK_LIGHT,   onPress<toggleBackLight>},                        // BR_COMMON_BackLightBtn
};
// clang-format on
} // namespace

void BR_COMMON_InputEventCb(const input_event *pstEvent)
{
    if (KeyEvent stKey; readRemote(*pstEvent, stKey)) pressAndTrace(TABLES<KEYS>, stKey);
}
