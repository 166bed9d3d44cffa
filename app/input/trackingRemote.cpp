// The tracking remote.
#include "camera/menu.h"
#include "camera/network.h"
#include "camera/preset.h"
#include "camera/serial.h"
#include "camera/systemService.h"
#include "input/directionKeys.h"
#include "input/keyActions.h"

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

void awaitStoreNumber() { awaitNumber(PRESET_POINT_TYPE_E_SET, KEY_TYPE_E_SET); }

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

constexpr KEY_FUNC YM_COMMON_PowerBtn = onPress<SYSTEM_API_SleepAppService>;
constexpr KEY_FUNC YM_COMMON_MenuBtn = onPress<CMD_MENU_HandleMenuBtn>;
constexpr KEY_FUNC YM_COMMON_ZoomOutBtn = zoom<ZOOM_ACTION_E_WIDE, 5>;
constexpr KEY_FUNC YM_COMMON_ZoomInBtn = zoom<ZOOM_ACTION_E_TELE, 5>;
constexpr KEY_FUNC YM_COMMON_UpBtn = direction<UP, FAMILY_E_YM>;
constexpr KEY_FUNC YM_COMMON_DownBtn = direction<DOWN, FAMILY_E_YM>;
constexpr KEY_FUNC YM_COMMON_LeftBtn = direction<LEFT, FAMILY_E_YM>;
constexpr KEY_FUNC YM_COMMON_RightBtn = direction<RIGHT, FAMILY_E_YM>;
constexpr KEY_FUNC YM_COMMON_HomeBtn = onPress<enterOrGoHome>;
constexpr KEY_FUNC YM_COMMON_FocusNearBtn = focus<FOCUS_ACTION_E_NEAR, 5>;
constexpr KEY_FUNC YM_COMMON_FocusFarBtn = focus<FOCUS_ACTION_E_FAR, 5>;
constexpr KEY_FUNC YM_COMMON_FocusAutoBtn = onPress<focusAuto>;
constexpr KEY_FUNC YM_COMMON_BackBtn = onPress<CMD_MENU_OnlyReturnMenu>;
constexpr KEY_FUNC YM_COMMON_SetBtn = onPress<awaitStoreNumber>;
constexpr KEY_FUNC YM_COMMON_Num1Btn = presetKey<1>;
constexpr KEY_FUNC YM_COMMON_Num2Btn = presetKey<2>;
constexpr KEY_FUNC YM_COMMON_Num3Btn = presetKey<3>;
constexpr KEY_FUNC YM_COMMON_Num4Btn = presetKey<4>;
constexpr KEY_FUNC YM_COMMON_F1Btn = onPress<toggleTracking>;
constexpr KEY_FUNC YM_COMMON_F2Btn = onPress<trackFullBody>;
constexpr KEY_FUNC YM_COMMON_F3Btn = onPress<trackHalfBody>;
constexpr KEY_FUNC YM_COMMON_F4Btn = onPress<trackCloseUp>;
constexpr KEY_FUNC YM_COMMON_ID1Btn = onPress<setAddress<1>>;
constexpr KEY_FUNC YM_COMMON_ID2Btn = onPress<setAddress<2>>;
constexpr KEY_FUNC YM_COMMON_ID3Btn = onPress<setAddress<3>>;
constexpr KEY_FUNC YM_COMMON_ID4Btn = onPress<setAddress<4>>;
constexpr KEY_FUNC YM_COMMON_IPResetBtn = onPress<resetIp>;

constexpr KEY_TRANS_MAP_S YM_COMMON_KEY_MAP[] = {
    {16, KEY_TYPE_E_POWER},       {30, KEY_TYPE_E_MENU},        {28, KEY_TYPE_E_ZOOM_OUT},
    {29, KEY_TYPE_E_ZOOM_IN},     {32, KEY_TYPE_E_UP},          {33, KEY_TYPE_E_DOWN},
    {34, KEY_TYPE_E_LEFT},        {35, KEY_TYPE_E_RIGHT},       {15, KEY_TYPE_E_HOME},
    {23, KEY_TYPE_E_FOCUS_NEAR},  {24, KEY_TYPE_E_FOCUS_FAR},   {20, KEY_TYPE_E_FOCUS_AUTO},
    {31, KEY_TYPE_E_BACK},        {39, KEY_TYPE_E_SET},         {2, KEY_TYPE_E_NUM1},
    {3, KEY_TYPE_E_NUM2},         {4, KEY_TYPE_E_NUM3},         {5, KEY_TYPE_E_NUM4},
    {11, KEY_TYPE_E_TRACK},       {12, KEY_TYPE_E_TRACK_FAR},   {13, KEY_TYPE_E_TRACK_MID},
    {14, KEY_TYPE_E_TRACK_NEAR},  {102, KEY_TYPE_E_ID1},        {103, KEY_TYPE_E_ID2},
    {104, KEY_TYPE_E_ID3},        {105, KEY_TYPE_E_ID4},        {89, KEY_TYPE_E_LONG_PRESS1},
    {90, KEY_TYPE_E_LONG_PRESS2}, {91, KEY_TYPE_E_LONG_PRESS3},
};

// The first two long presses mean something to the remote only.
constexpr KEY_CB_S astKeyCb[] = {
    {KEY_TYPE_E_POWER, YM_COMMON_PowerBtn},
    {KEY_TYPE_E_MENU, YM_COMMON_MenuBtn},
    {KEY_TYPE_E_ZOOM_OUT, YM_COMMON_ZoomOutBtn},
    {KEY_TYPE_E_ZOOM_IN, YM_COMMON_ZoomInBtn},
    {KEY_TYPE_E_UP, YM_COMMON_UpBtn},
    {KEY_TYPE_E_DOWN, YM_COMMON_DownBtn},
    {KEY_TYPE_E_LEFT, YM_COMMON_LeftBtn},
    {KEY_TYPE_E_RIGHT, YM_COMMON_RightBtn},
    {KEY_TYPE_E_HOME, YM_COMMON_HomeBtn},
    {KEY_TYPE_E_FOCUS_NEAR, YM_COMMON_FocusNearBtn},
    {KEY_TYPE_E_FOCUS_FAR, YM_COMMON_FocusFarBtn},
    {KEY_TYPE_E_FOCUS_AUTO, YM_COMMON_FocusAutoBtn},
    {KEY_TYPE_E_BACK, YM_COMMON_BackBtn},
    {KEY_TYPE_E_SET, YM_COMMON_SetBtn},
    {KEY_TYPE_E_NUM1, YM_COMMON_Num1Btn},
    {KEY_TYPE_E_NUM2, YM_COMMON_Num2Btn},
    {KEY_TYPE_E_NUM3, YM_COMMON_Num3Btn},
    {KEY_TYPE_E_NUM4, YM_COMMON_Num4Btn},
    {KEY_TYPE_E_TRACK, YM_COMMON_F1Btn},
    {KEY_TYPE_E_TRACK_FAR, YM_COMMON_F2Btn},
    {KEY_TYPE_E_TRACK_MID, YM_COMMON_F3Btn},
    {KEY_TYPE_E_TRACK_NEAR, YM_COMMON_F4Btn},
    {KEY_TYPE_E_ID1, YM_COMMON_ID1Btn},
    {KEY_TYPE_E_ID2, YM_COMMON_ID2Btn},
    {KEY_TYPE_E_ID3, YM_COMMON_ID3Btn},
    {KEY_TYPE_E_ID4, YM_COMMON_ID4Btn},
    {KEY_TYPE_E_LONG_PRESS3, YM_COMMON_IPResetBtn},
};
static_assert(std::size(YM_COMMON_KEY_MAP) == 29 && std::size(astKeyCb) == 27);
} // namespace

void YM_COMMON_InputEventCb(const input_event *pstEvent)
{
    if (tagKEY_EVENT_S stKey; readRemote(*pstEvent, stKey)) pressAndTrace({YM_COMMON_KEY_MAP, astKeyCb}, stKey);
}
