// The small remote. Repeats of a held key reach its handlers, as releases.
#include "camera/menu.h"
#include "camera/preset.h"
#include "directionKeys.h"
#include "keyActions.h"

#include <linux/input.h>
#include <utility>

namespace
{
using namespace input;

/// Enter in an open menu. Otherwise a short press goes home and a hold stores the position as home.
BU_S32 SR_COMMON_HomeBtn(KEY_EVENT_E enEvent)
{
    Started &enStarted = startedBy(FAMILY_SR, KEY_TYPE_E_HOME);
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

// clang-format off
constexpr KeyRow KEYS[] = {
    {16, KEY_TYPE_E_POWER,      nothing},                         // SR_COMMON_PowerBtn
    {30, KEY_TYPE_E_MENU,       onPress<CMD_MENU_HandleMenuBtn>}, // SR_COMMON_MenuBtn
    {28, KEY_TYPE_E_ZOOM_OUT,   zoom<ZOOM_ACTION_E_WIDE, 5>},     // SR_COMMON_ZoomOutBtn
    {29, KEY_TYPE_E_ZOOM_IN,    zoom<ZOOM_ACTION_E_TELE, 5>},     // SR_COMMON_ZoomInBtn
    {32, KEY_TYPE_E_UP,         headMove<UP>},                    // SR_COMMON_UpBtn
    {33, KEY_TYPE_E_DOWN,       headMove<DOWN>},                  // SR_COMMON_DownBtn
    {34, KEY_TYPE_E_LEFT,       headMove<LEFT>},                  // SR_COMMON_LeftBtn
    {35, KEY_TYPE_E_RIGHT,      headMove<RIGHT>},                 // SR_COMMON_RightBtn
    {15, KEY_TYPE_E_HOME,       SR_COMMON_HomeBtn},               // SR_COMMON_HomeBtn
    {23, KEY_TYPE_E_FOCUS_NEAR, focus<FOCUS_ACTION_E_NEAR, 5>},   // SR_COMMON_FocusNearBtn
    {24, KEY_TYPE_E_FOCUS_FAR,  focus<FOCUS_ACTION_E_FAR, 5>},    // SR_COMMON_FocusFarBtn
    {20, KEY_TYPE_E_FOCUS_AUTO, nothing},                         // SR_COMMON_FocusAutoBtn
    {11, KEY_TYPE_E_F1,         nothing},                         // SR_COMMON_F1Btn
    {12, KEY_TYPE_E_F2,         nothing},                         // SR_COMMON_F2Btn
    {2,  KEY_TYPE_E_NUM1,       nothing},                         // SR_COMMON_Num1Btn
    {3,  KEY_TYPE_E_NUM2,       nothing},                         // SR_COMMON_Num2Btn
    {4,  KEY_TYPE_E_NUM3,       nothing},                         // SR_COMMON_Num3Btn
};
// clang-format on
} // namespace

void SR_COMMON_InputEventCb(const input_event *pstEvent)
{
    if (KeyEvent stKey; readRemote(*pstEvent, stKey)) press(TABLES<KEYS>, stKey);
}
