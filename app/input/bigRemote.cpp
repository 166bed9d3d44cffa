// The big remote.
#include "camera/image.h"
#include "camera/menu.h"
#include "camera/system.h"
#include "camera/systemService.h"
#include "input/directionKeys.h"
#include "input/keyActions.h"
#include "input/numberKeys.h"
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

constexpr tagDIRECTION_S withStepTimer(tagDIRECTION_S stDirection, BU_S32 (*pfnStepTimerCb)(void *))
{
    stDirection.pfnStepTimerCb = pfnStepTimerCb;
    return stDirection;
}
constexpr tagDIRECTION_S STEPPING_LEFT = withStepTimer(LEFT, BR_COMMON_LeftTimerCb);
constexpr tagDIRECTION_S STEPPING_RIGHT = withStepTimer(RIGHT, BR_COMMON_RightTimerCb);

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

template <PRESET_POINT_KEY_TYPE_E Command, KEY_TYPE_E Key> void command() { awaitNumber(Command, Key); }

constexpr KEY_FUNC BR_COMMON_PowerBtn = onPress<SYSTEM_API_SleepAppService>;
constexpr KEY_FUNC BR_COMMON_MenuBtn = onPress<CMD_MENU_HandleMenuBtn>;
constexpr KEY_FUNC BR_COMMON_ZoomOutBtn = zoomAtSetSpeed<ZOOM_ACTION_E_WIDE>;
constexpr KEY_FUNC BR_COMMON_ZoomInBtn = zoomAtSetSpeed<ZOOM_ACTION_E_TELE>;
constexpr KEY_FUNC BR_COMMON_UpBtn = direction<UP, FAMILY_E_BR>;
constexpr KEY_FUNC BR_COMMON_DownBtn = direction<DOWN, FAMILY_E_BR>;
constexpr KEY_FUNC BR_COMMON_LeftBtn = direction<STEPPING_LEFT, FAMILY_E_BR>;
constexpr KEY_FUNC BR_COMMON_RightBtn = direction<STEPPING_RIGHT, FAMILY_E_BR>;
constexpr KEY_FUNC BR_COMMON_HomeBtn = onPress<goHome>;
constexpr KEY_FUNC BR_COMMON_FocusNearBtn = focus<FOCUS_ACTION_E_NEAR, 3>;
constexpr KEY_FUNC BR_COMMON_FocusFarBtn = focus<FOCUS_ACTION_E_FAR, 3>;
constexpr KEY_FUNC BR_COMMON_FocusAutoBtn = onPress<focusAuto>;
constexpr KEY_FUNC BR_COMMON_FocusManualMBtn = onPress<focusManual>;
constexpr KEY_FUNC BR_COMMON_FocusAdjustMBtn = onPress<focusOnce>;
constexpr KEY_FUNC BR_COMMON_IrisBigBtn = onPress<stepIris<1>>;
constexpr KEY_FUNC BR_COMMON_IrisSmallBtn = onPress<stepIris<-1>>;
constexpr KEY_FUNC BR_COMMON_IrisResetBtn = onPress<resetIris>;
constexpr KEY_FUNC BR_COMMON_BackBtn = onPress<CMD_MENU_OnlyReturnMenu>;
constexpr KEY_FUNC BR_COMMON_EntryBtn = onPress<enterInMenu>;
constexpr KEY_FUNC BR_COMMON_OsdDataBtn = onPress<togglePrompt>;
constexpr KEY_FUNC BR_COMMON_CallBtn = onPress<command<PRESET_POINT_TYPE_E_CALL, KEY_TYPE_E_CALL>>;
constexpr KEY_FUNC BR_COMMON_SetBtn = onPress<command<PRESET_POINT_TYPE_E_SET, KEY_TYPE_E_SET>>;
constexpr KEY_FUNC BR_COMMON_DeleteBtn = onPress<command<PRESET_POINT_TYPE_E_CLEAR, KEY_TYPE_E_DELETE>>;
constexpr KEY_FUNC BR_COMMON_ClearBtn = nothing;
constexpr KEY_FUNC BR_COMMON_ConfirmBtn = onPress<confirmNumber>;
constexpr KEY_FUNC BR_COMMON_F1Btn = onPress<toggleTracking>;
constexpr KEY_FUNC BR_COMMON_F2Btn = onPress<trackCloseUp>;
constexpr KEY_FUNC BR_COMMON_F3Btn = onPress<trackHalfBody>;
constexpr KEY_FUNC BR_COMMON_F4Btn = onPress<trackFullBody>;
constexpr KEY_FUNC BR_COMMON_Num0Btn = numberKey<0, KEY_TYPE_E_NUM0>;
constexpr KEY_FUNC BR_COMMON_Num1Btn = numberKey<1, KEY_TYPE_E_NUM1>;
constexpr KEY_FUNC BR_COMMON_Num2Btn = numberKey<2, KEY_TYPE_E_NUM2>;
constexpr KEY_FUNC BR_COMMON_Num3Btn = numberKey<3, KEY_TYPE_E_NUM3>;
constexpr KEY_FUNC BR_COMMON_Num4Btn = numberKey<4, KEY_TYPE_E_NUM4>;
constexpr KEY_FUNC BR_COMMON_Num5Btn = numberKey<5, KEY_TYPE_E_NUM5>;
constexpr KEY_FUNC BR_COMMON_Num6Btn = numberKey<6, KEY_TYPE_E_NUM6>;
constexpr KEY_FUNC BR_COMMON_Num7Btn = numberKey<7, KEY_TYPE_E_NUM7>;
constexpr KEY_FUNC BR_COMMON_Num8Btn = numberKey<8, KEY_TYPE_E_NUM8>;
constexpr KEY_FUNC BR_COMMON_Num9Btn = numberKey<9, KEY_TYPE_E_NUM9>;
constexpr KEY_FUNC BR_COMMON_BackLightBtn = onPress<toggleBackLight>;

constexpr KEY_TRANS_MAP_S BR_COMMON_KEY_MAP[] = {
    {16, KEY_TYPE_E_POWER},        {30, KEY_TYPE_E_MENU},         {28, KEY_TYPE_E_ZOOM_OUT},
    {29, KEY_TYPE_E_ZOOM_IN},      {32, KEY_TYPE_E_UP},           {33, KEY_TYPE_E_DOWN},
    {34, KEY_TYPE_E_LEFT},         {35, KEY_TYPE_E_RIGHT},        {15, KEY_TYPE_E_HOME},
    {23, KEY_TYPE_E_FOCUS_NEAR},   {24, KEY_TYPE_E_FOCUS_FAR},    {20, KEY_TYPE_E_FOCUS_AUTO},
    {21, KEY_TYPE_E_FOCUS_Manual}, {22, KEY_TYPE_E_FOCUS_Adjust}, {25, KEY_TYPE_E_IRIS_ADD},
    {26, KEY_TYPE_E_IRIS_SUB},     {27, KEY_TYPE_E_IRIS_RESET},   {31, KEY_TYPE_E_BACK},
    {36, KEY_TYPE_E_ENTRY},        {37, KEY_TYPE_E_OSD_DATA},     {38, KEY_TYPE_E_CALL},
    {39, KEY_TYPE_E_SET},          {40, KEY_TYPE_E_DELETE},       {41, KEY_TYPE_E_CLEAR},
    {42, KEY_TYPE_E_CONFIRM},      {11, KEY_TYPE_E_F1},           {12, KEY_TYPE_E_F2},
    {13, KEY_TYPE_E_F3},           {14, KEY_TYPE_E_F4},           {1, KEY_TYPE_E_NUM0},
    {2, KEY_TYPE_E_NUM1},          {3, KEY_TYPE_E_NUM2},          {4, KEY_TYPE_E_NUM3},
    {5, KEY_TYPE_E_NUM4},          {6, KEY_TYPE_E_NUM5},          {7, KEY_TYPE_E_NUM6},
    {8, KEY_TYPE_E_NUM7},          {9, KEY_TYPE_E_NUM8},          {10, KEY_TYPE_E_NUM9},
    {19, KEY_TYPE_E_BACK_LIGHT},
};

constexpr KEY_CB_S astKeyCb[] = {
    {KEY_TYPE_E_POWER, BR_COMMON_PowerBtn},
    {KEY_TYPE_E_MENU, BR_COMMON_MenuBtn},
    {KEY_TYPE_E_ZOOM_OUT, BR_COMMON_ZoomOutBtn},
    {KEY_TYPE_E_ZOOM_IN, BR_COMMON_ZoomInBtn},
    {KEY_TYPE_E_UP, BR_COMMON_UpBtn},
    {KEY_TYPE_E_DOWN, BR_COMMON_DownBtn},
    {KEY_TYPE_E_LEFT, BR_COMMON_LeftBtn},
    {KEY_TYPE_E_RIGHT, BR_COMMON_RightBtn},
    {KEY_TYPE_E_HOME, BR_COMMON_HomeBtn},
    {KEY_TYPE_E_FOCUS_NEAR, BR_COMMON_FocusNearBtn},
    {KEY_TYPE_E_FOCUS_FAR, BR_COMMON_FocusFarBtn},
    {KEY_TYPE_E_FOCUS_AUTO, BR_COMMON_FocusAutoBtn},
    {KEY_TYPE_E_FOCUS_Manual, BR_COMMON_FocusManualMBtn},
    {KEY_TYPE_E_FOCUS_Adjust, BR_COMMON_FocusAdjustMBtn},
    {KEY_TYPE_E_IRIS_ADD, BR_COMMON_IrisBigBtn},
    {KEY_TYPE_E_IRIS_SUB, BR_COMMON_IrisSmallBtn},
    {KEY_TYPE_E_IRIS_RESET, BR_COMMON_IrisResetBtn},
    {KEY_TYPE_E_BACK, BR_COMMON_BackBtn},
    {KEY_TYPE_E_ENTRY, BR_COMMON_EntryBtn},
    {KEY_TYPE_E_OSD_DATA, BR_COMMON_OsdDataBtn},
    {KEY_TYPE_E_CALL, BR_COMMON_CallBtn},
    {KEY_TYPE_E_SET, BR_COMMON_SetBtn},
    {KEY_TYPE_E_DELETE, BR_COMMON_DeleteBtn},
    {KEY_TYPE_E_CLEAR, BR_COMMON_ClearBtn},
    {KEY_TYPE_E_CONFIRM, BR_COMMON_ConfirmBtn},
    {KEY_TYPE_E_F1, BR_COMMON_F1Btn},
    {KEY_TYPE_E_F2, BR_COMMON_F2Btn},
    {KEY_TYPE_E_F3, BR_COMMON_F3Btn},
    {KEY_TYPE_E_F4, BR_COMMON_F4Btn},
    {KEY_TYPE_E_NUM0, BR_COMMON_Num0Btn},
    {KEY_TYPE_E_NUM1, BR_COMMON_Num1Btn},
    {KEY_TYPE_E_NUM2, BR_COMMON_Num2Btn},
    {KEY_TYPE_E_NUM3, BR_COMMON_Num3Btn},
    {KEY_TYPE_E_NUM4, BR_COMMON_Num4Btn},
    {KEY_TYPE_E_NUM5, BR_COMMON_Num5Btn},
    {KEY_TYPE_E_NUM6, BR_COMMON_Num6Btn},
    {KEY_TYPE_E_NUM7, BR_COMMON_Num7Btn},
    {KEY_TYPE_E_NUM8, BR_COMMON_Num8Btn},
    {KEY_TYPE_E_NUM9, BR_COMMON_Num9Btn},
    {KEY_TYPE_E_BACK_LIGHT, BR_COMMON_BackLightBtn},
};
static_assert(std::size(BR_COMMON_KEY_MAP) == 40 && std::size(astKeyCb) == 40);
} // namespace

void BR_COMMON_InputEventCb(const input_event *pstEvent)
{
    if (tagKEY_EVENT_S stKey; readRemote(*pstEvent, stKey)) pressAndTrace({BR_COMMON_KEY_MAP, astKeyCb}, stKey);
}
