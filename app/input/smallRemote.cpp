// The small remote. Repeats of a held key reach its handlers, as releases.
#include "camera/menu.h"
#include "camera/preset.h"
#include "input/directionKeys.h"
#include "input/keyActions.h"

#include <linux/input.h>
#include <utility>

namespace
{
using namespace input;

constexpr KEY_FUNC SR_COMMON_PowerBtn = nothing;
constexpr KEY_FUNC SR_COMMON_MenuBtn = onPress<CMD_MENU_HandleMenuBtn>;
constexpr KEY_FUNC SR_COMMON_ZoomOutBtn = zoom<ZOOM_ACTION_E_WIDE, 5>;
constexpr KEY_FUNC SR_COMMON_ZoomInBtn = zoom<ZOOM_ACTION_E_TELE, 5>;
constexpr KEY_FUNC SR_COMMON_UpBtn = headMove<UP>;
constexpr KEY_FUNC SR_COMMON_DownBtn = headMove<DOWN>;
constexpr KEY_FUNC SR_COMMON_LeftBtn = headMove<LEFT>;
constexpr KEY_FUNC SR_COMMON_RightBtn = headMove<RIGHT>;
constexpr KEY_FUNC SR_COMMON_FocusNearBtn = focus<FOCUS_ACTION_E_NEAR, 5>;
constexpr KEY_FUNC SR_COMMON_FocusFarBtn = focus<FOCUS_ACTION_E_FAR, 5>;
constexpr KEY_FUNC SR_COMMON_FocusAutoBtn = nothing;
constexpr KEY_FUNC SR_COMMON_F1Btn = nothing;
constexpr KEY_FUNC SR_COMMON_F2Btn = nothing;
constexpr KEY_FUNC SR_COMMON_Num1Btn = nothing;
constexpr KEY_FUNC SR_COMMON_Num2Btn = nothing;
constexpr KEY_FUNC SR_COMMON_Num3Btn = nothing;

/// Enter in an open menu. Otherwise a short press goes home and a hold stores the position as home.
BU_S32 SR_COMMON_HomeBtn(KEY_EVENT_E enEvent)
{
    Started &enStarted = startedBy(FAMILY_E_SR, KEY_TYPE_E_HOME);
    const bool bHeld = std::exchange(enStarted, Started::NOTHING) == Started::HOLD;
    if (OSD_MENU_GetMenuStatus() == 1) {
        if (isPress(enEvent)) CMD_MENU_HandeHomeBtn();
    } else if (isPress(enEvent)) {
        enStarted = Started::HOLD;
        startEntryTimer(KEY_TYPE_E_HOME);
    } else if (bHeld && isEntryTimerRunning()) {
        stopEntryTimer();
        goHome();
    } else if (bHeld) {
        PRESET_API_SetCur(0, "PresetHome");
    }
    return 0;
}

constexpr KEY_TRANS_MAP_S SR_COMMON_KEY_MAP[] = {
    {16, KEY_TYPE_E_POWER}, {30, KEY_TYPE_E_MENU},       {28, KEY_TYPE_E_ZOOM_OUT},  {29, KEY_TYPE_E_ZOOM_IN},
    {32, KEY_TYPE_E_UP},    {33, KEY_TYPE_E_DOWN},       {34, KEY_TYPE_E_LEFT},      {35, KEY_TYPE_E_RIGHT},
    {15, KEY_TYPE_E_HOME},  {23, KEY_TYPE_E_FOCUS_NEAR}, {24, KEY_TYPE_E_FOCUS_FAR}, {20, KEY_TYPE_E_FOCUS_AUTO},
    {11, KEY_TYPE_E_F1},    {12, KEY_TYPE_E_F2},         {2, KEY_TYPE_E_NUM1},       {3, KEY_TYPE_E_NUM2},
    {4, KEY_TYPE_E_NUM3},
};

constexpr KEY_CB_S astKeyCb[] = {
    {KEY_TYPE_E_POWER, SR_COMMON_PowerBtn},
    {KEY_TYPE_E_MENU, SR_COMMON_MenuBtn},
    {KEY_TYPE_E_ZOOM_OUT, SR_COMMON_ZoomOutBtn},
    {KEY_TYPE_E_ZOOM_IN, SR_COMMON_ZoomInBtn},
    {KEY_TYPE_E_UP, SR_COMMON_UpBtn},
    {KEY_TYPE_E_DOWN, SR_COMMON_DownBtn},
    {KEY_TYPE_E_LEFT, SR_COMMON_LeftBtn},
    {KEY_TYPE_E_RIGHT, SR_COMMON_RightBtn},
    {KEY_TYPE_E_HOME, SR_COMMON_HomeBtn},
    {KEY_TYPE_E_FOCUS_NEAR, SR_COMMON_FocusNearBtn},
    {KEY_TYPE_E_FOCUS_FAR, SR_COMMON_FocusFarBtn},
    {KEY_TYPE_E_FOCUS_AUTO, SR_COMMON_FocusAutoBtn},
    {KEY_TYPE_E_F1, SR_COMMON_F1Btn},
    {KEY_TYPE_E_F2, SR_COMMON_F2Btn},
    {KEY_TYPE_E_NUM1, SR_COMMON_Num1Btn},
    {KEY_TYPE_E_NUM2, SR_COMMON_Num2Btn},
    {KEY_TYPE_E_NUM3, SR_COMMON_Num3Btn},
};
static_assert(std::size(SR_COMMON_KEY_MAP) == 17 && std::size(astKeyCb) == 17);
} // namespace

void SR_COMMON_InputEventCb(const input_event *pstEvent)
{
    if (tagKEY_EVENT_S stKey; readRemote(*pstEvent, stKey)) press({SR_COMMON_KEY_MAP, astKeyCb}, stKey);
}
