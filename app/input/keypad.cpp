// The front key.
#include "camera/restore.h"
#include "keyActions.h"
#include "util/file.h"

#include <linux/input.h>
#include <utility>

namespace
{
using namespace input;

constexpr BU_S32 KEYPAD_KEY_TYPE_E_RESET = 249;
constexpr BU_S32 RESET_HOLD_MS = 10000;

/// A hold restores the factory defaults and restarts the camera, on the release.
BU_S32 KEYPAD_COMMON_ResetBtn(KEY_EVENT_E enEvent)
{
    KEY_EVENT_TIME_HANDLE_S *pstTimer = KEYPAD_GetTimerData();
    Started &enStarted = startedBy(FAMILY_KEYPAD, KEY_TYPE_E_RESET);
    const bool bHeld = std::exchange(enStarted, Started::NOTHING) == Started::HOLD;
    if (isPress(enEvent)) {
        enStarted = Started::HOLD;
        startTimer(pstTimer, KEY_TYPE_E_RESET, BU_TIMER_E_ONCE, RESET_HOLD_MS, KEYPAD_COMMON_TimerCb);
    } else if (bHeld && pstTimer->stParam.bTimerRunning) {
        UTIL_TIMER_Stop(&pstTimer->stTimerHandle);
    } else if (bHeld) {
        SYSTEM_API_FactoryRestoreConfiguration(0);
        UTIL_CMD_RunSafe("reboot");
    }
    return 0;
}

constexpr KeyRow KEYS[] = {{KEYPAD_KEY_TYPE_E_RESET, KEY_TYPE_E_RESET, KEYPAD_COMMON_ResetBtn}};
} // namespace

void KEYPAD_COMMON_InputEventCb(const input_event *pstEvent)
{
    if (pstEvent->type != EV_KEY) return;
    pressAndTrace(TABLES<KEYS>, {pstEvent->code, static_cast<KEY_EVENT_E>(pstEvent->value)});
}
