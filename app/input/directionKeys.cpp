// The direction keys: what a press has started, its release ends, whatever has changed meanwhile.
#include "directionKeys.h"

#include "keyActions.h"

#include <utility>

namespace
{
constexpr BU_S32 STEP_MS = 500;

void startStepping(const input::Direction &stDirection)
{
    stDirection.pfnMenu();
    input::startTimer(SR_BR_GetTimerData(), stDirection.enKey, BU_TIMER_E_PERIODIC, STEP_MS,
                      stDirection.pfnStepTimerCb);
}

/// @return whether the value was stepped by the hold
bool stopStepping()
{
    KEY_EVENT_TIME_DATA_S &stParam = SR_BR_GetTimerData()->stParam;
    if (stParam.bTimerRunning.exchange(BU_FALSE)) UTIL_TIMER_Stop(&SR_BR_GetTimerData()->stTimerHandle);
    return !stParam.bValid.exchange(BU_FALSE);
}
} // namespace

namespace input
{
void pressDirection(const Direction &stDirection, Family enFamily, KEY_EVENT_E enEvent)
{
    // Menu and tracking may have changed since the press: first ends what it started. A press that finds something
    // started has missed its release.
    Started &enStarted = startedBy(enFamily, stDirection.enKey);
    const Started enBefore = std::exchange(enStarted, Started::NOTHING);
    const bool bStepped = enBefore == Started::STEPPING && stopStepping();
    const bool bMenu = isMenuOpen(), bTarget = !bMenu && stDirection.pfnTarget && isTracking();
    if (enBefore == Started::MOVE && (bMenu || bTarget)) CMD_PT_StopMove();

    if (!isPress(enEvent)) {
        if (bMenu && bStepped)
            CMD_MENU_HandeSetParam();
        else if (!bMenu && !bTarget)
            CMD_PT_StopMove();
    } else if (bMenu && stDirection.pfnStepTimerCb) {
        enStarted = Started::STEPPING;
        startStepping(stDirection);
    } else if (bMenu) {
        stDirection.pfnMenu();
    } else if (bTarget) {
        stDirection.pfnTarget();
    } else {
        enStarted = Started::MOVE;
        stDirection.pfnMove(0);
    }
}
} // namespace input
