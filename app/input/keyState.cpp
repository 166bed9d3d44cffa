// What the key handlers remember.
#include "keyState.h"

#include <array>

namespace
{
constexpr BU_S32 ENTRY_MS = 3000;

KEY_EVENT_TIME_HANDLE_S gs_stIrKeyTimer, gs_stKeypadKeyTimer;
KEY_PRESET_POINT_HANDLE_S gs_stKeyPresetPoints{0, PRESET_POINT_TYPE_E_BUTT};
std::array<std::array<input::Started, KEY_TYPE_E_BUTT>, input::FAMILY_BUTT> gs_aenStarted;

void clear(KEY_EVENT_TIME_HANDLE_S &stTimer)
{
    UTIL_TIMER_Stop(&stTimer.stTimerHandle);
    stTimer.stTimerHandle = {};
    stTimer.stParam.bValid = stTimer.stParam.bTimerRunning = BU_FALSE;
    stTimer.stParam.enKeyType = KEY_TYPE_E_POWER;
}
} // namespace

void SR_BR_InitKeyTimer()
{
    clear(gs_stIrKeyTimer);
    gs_stKeyPresetPoints.s32Value = 0;
    gs_stKeyPresetPoints.enKeyType = PRESET_POINT_TYPE_E_BUTT;
    for (const auto enFamily : {input::FAMILY_SR, input::FAMILY_BR, input::FAMILY_YM}) gs_aenStarted[enFamily] = {};
}

void KEYPAD_InitKeyTimer()
{
    clear(gs_stKeypadKeyTimer);
    gs_aenStarted[input::FAMILY_KEYPAD] = {};
}

KEY_EVENT_TIME_HANDLE_S *SR_BR_GetTimerData() { return &gs_stIrKeyTimer; }
KEY_EVENT_TIME_HANDLE_S *KEYPAD_GetTimerData() { return &gs_stKeypadKeyTimer; }
KEY_PRESET_POINT_HANDLE_S *BR_GetKeyPresetPointsData() { return &gs_stKeyPresetPoints; }

BU_S32 SR_COMMON_TimerCb(void *)
{
    gs_stIrKeyTimer.stParam.bTimerRunning = BU_FALSE;
    return 0;
}

BU_S32 KEYPAD_COMMON_TimerCb(void *)
{
    gs_stKeypadKeyTimer.stParam.bTimerRunning = BU_FALSE;
    return 0;
}

namespace input
{
void startTimer(KEY_EVENT_TIME_HANDLE_S *pstTimer, KEY_TYPE_E enKey, BU_TIMER_TYPE_E enType, BU_S32 s32Ms,
                BU_S32 (*pfnExpired)(void *))
{
    pstTimer->stParam.bValid = pstTimer->stParam.bTimerRunning = BU_TRUE;
    pstTimer->stParam.enKeyType = enKey;
    UTIL_TIMER_Start(enType, s32Ms, pfnExpired, nullptr, &pstTimer->stTimerHandle);
}

void startEntryTimer(KEY_TYPE_E enKey)
{
    startTimer(SR_BR_GetTimerData(), enKey, BU_TIMER_E_ONCE, ENTRY_MS, SR_COMMON_TimerCb);
}

void stopEntryTimer() { UTIL_TIMER_Stop(&gs_stIrKeyTimer.stTimerHandle); }

bool isEntryTimerRunning() { return gs_stIrKeyTimer.stParam.bTimerRunning; }

Started &startedBy(Family enFamily, KEY_TYPE_E enKey) { return gs_aenStarted[enFamily][enKey]; }
} // namespace input
