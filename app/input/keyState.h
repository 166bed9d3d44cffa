/// What the key handlers remember: hold timers, the preset number being typed, and what pressed keys have started.
///
/// The monitors of the remotes and the timer thread share it without a lock: each field is a flag or a number of its
/// own, the last write wins.
#pragma once

#include "keys.h"
#include "util/time.h"

#include <atomic>

struct KEY_EVENT_TIME_DATA_S {
    std::atomic<BU_BOOL> bValid, bTimerRunning;
    std::atomic<KEY_TYPE_E> enKeyType; ///< the key that started the timer
};
struct KEY_EVENT_TIME_HANDLE_S {
    BU_TIMER_DATA_S stTimerHandle;
    KEY_EVENT_TIME_DATA_S stParam;
};

/// The preset command that waits for its number.
enum PRESET_POINT_KEY_TYPE_E : BU_S32 {
    PRESET_POINT_TYPE_E_CALL = 0,
    PRESET_POINT_TYPE_E_SET,
    PRESET_POINT_TYPE_E_CLEAR,
    PRESET_POINT_TYPE_E_BUTT ///< none
};
struct KEY_PRESET_POINT_HANDLE_S {
    std::atomic<BU_S32> s32Value; ///< the number typed so far
    std::atomic<PRESET_POINT_KEY_TYPE_E> enKeyType;
};

/// Forget timers, typed numbers and pressed keys. Called once, before the monitors start.
void SR_BR_InitKeyTimer();  ///< of the remotes
void KEYPAD_InitKeyTimer(); ///< of the front key

KEY_EVENT_TIME_HANDLE_S *SR_BR_GetTimerData();          ///< the hold timer of all remotes
KEY_EVENT_TIME_HANDLE_S *KEYPAD_GetTimerData();         ///< that of the front key
KEY_PRESET_POINT_HANDLE_S *BR_GetKeyPresetPointsData(); ///< of all remotes

/// Expiry of the hold timers: they run no longer. Thread: timer.
BU_S32 SR_COMMON_TimerCb(void *);
BU_S32 KEYPAD_COMMON_TimerCb(void *);

namespace input
{
/// Starts a hold timer again: it runs until it expires. Stopping it leaves its flag as it is, which then says "ended
/// early" until the next start.
void startTimer(KEY_EVENT_TIME_HANDLE_S *pstTimer, KEY_TYPE_E enKey, BU_TIMER_TYPE_E enType, BU_S32 s32Ms,
                BU_S32 (*pfnExpired)(void *));

/// The entry timer, 3 s: it tells a short press from a hold and limits the wait for the next digit.
void startEntryTimer(KEY_TYPE_E enKey);
void stopEntryTimer();
bool isEntryTimerRunning();

enum Family : BU_S32 { FAMILY_SR = 0, FAMILY_BR, FAMILY_YM, FAMILY_KEYPAD, FAMILY_BUTT };

/// What the press of a key has started and its release ends. A release that finds nothing counts for nothing: a key
/// held since before the start, a second release, a repeat.
enum class Started : BU_U8 { NOTHING, HOLD, MOVE, STEPPING };
/// Thread: the monitor of the family.
Started &startedBy(Family enFamily, KEY_TYPE_E enKey);
} // namespace input
