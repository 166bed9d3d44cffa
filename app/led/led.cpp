// What the lamps show: start-up, upgrade, tallies, tracking, stand-by, and which of them goes first.
#include "led/led.h"

#include "camera/settingEvent.h"
#include "camera/tracking.h"
#include "modules.h"
#include "util/log.h"
#include "util/time.h"

#include <algorithm>
#include <atomic>
#include <iterator>
#include <mutex>
#include <string_view>

namespace
{
constexpr const BU_CHAR *TALLY_LED = "TallyLed";
constexpr BU_U32 RED = 0xFF0000, GREEN = 0x00FF00, BLUE = 0x0000FF, YELLOW = 0xFFFF00, ALL = 0xFF000000;

BSP_LED_HANDLE gs_Tally, gs_Power;
BU_S32 s32Listener;                // of the settings
std::atomic<bool> bAppOver{false}; // start-up is over; written by the main thread
std::atomic<bool> bFirst{true};    // no event has been handled yet

std::mutex lockManual; // guards the two below: VISCA and NDI threads write them, the manager's thread reads
BU_BOOL gs_NDITally_Manual = BU_FALSE;
LED_TALLY_STATE_S gs_NDITally_ManualState{};

constexpr LED_TALLY_STATE_S state(LED_WORK_MODE_E enMode, BU_U32 u32Color, LED_MODE_E enFlick = LED_CLOSE,
                                  BU_S32 s32DurationMs = 0)
{
    return {enMode, u32Color, LED_BRIGHTNESS_80, enFlick, s32DurationMs};
}
constexpr LED_TALLY_STATE_S OFF = state(LED_WORK_MODE_E_OFF, 0);

LED_TALLY_STATE_S trackingState()
{
    BU_BOOL bEnable = BU_FALSE, bIndicator = BU_FALSE;
    ALG_API_GetEnable(&bEnable, BU_FALSE);
    ALG_API_GetTallyIndicator(&bIndicator, BU_FALSE);
    return bEnable && bIndicator ? state(LED_WORK_MODE_E_HOLD, BLUE) : OFF;
}

LED_TALLY_STATE_S ndiReceiverState()
{
    BU_U8 u8Preview = 0, u8Program = 0;
    NDI_PTZ_GetTallyState(&u8Preview, &u8Program);
    if (u8Program) return state(LED_WORK_MODE_E_HOLD, RED);
    return u8Preview ? state(LED_WORK_MODE_E_HOLD, GREEN) : OFF;
}

bool isTallyOnBoard()
{
    BU_BOOL bOn = BU_FALSE;
    LED_API_GetTallyOnBoard(TALLY_LED, &bOn, BU_FALSE);
    return bOn != BU_FALSE;
}

LED_TALLY_STATE_S ndiState()
{
    if (!isTallyOnBoard()) return OFF;
    {
        const std::lock_guard guard(lockManual);
        if (gs_NDITally_Manual) return state(gs_NDITally_ManualState.enMode, gs_NDITally_ManualState.u32ColorRGB);
    }
    return ndiReceiverState();
}

LED_TALLY_STATE_S upgradeState()
{
    switch (MSG_AppGetUpdateTallyState()) {
    case MSG_UPGRADE_INFO_STATE_START:
        return state(LED_WORK_MODE_E_FLICK, GREEN, LED_MODE_FLICKER_2HZ);
    case MSG_UPGRADE_INFO_STATE_FAILED:
        return state(LED_WORK_MODE_E_FLICK_DURATION, RED, LED_MODE_FLICKER_2HZ, 5000);
    case MSG_UPGRADE_INFO_STATE_FINSH:
        return state(LED_WORK_MODE_E_HOLD, GREEN);
    }
    TRACE("unknown type \n");
    return OFF;
}

LED_TALLY_STATE_S sleepState() { return state(LED_WORK_MODE_E_HOLD, YELLOW); }

/// What the lamps show for a source, and which source goes before which.
struct Source {
    LED_EVENT_FROM_E enFrom;
    BU_U32 u32Priority;
    LED_TALLY_STATE_S (*pfnState)(); ///< null: set by whoever asks, or by the settings
};
constexpr Source SOURCES[] = {
    {LED_EVENT_FROM_E_CFG, LED_PRIORITY_BASE, nullptr},
    {LED_EVENT_FROM_E_UPGRADE, 4, upgradeState},
    {LED_EVENT_FROM_E_VISCA, 1, nullptr},
    {LED_EVENT_FROM_E_NDI, 3, ndiState},
    {LED_EVENT_FROM_E_ALG, 2, trackingState},
    {LED_EVENT_FROM_E_IR, LED_PRIORITY_BASE, nullptr},
    {LED_EVENT_FROM_E_SLEEP, 5, sleepState},
    {LED_EVENT_FROM_E_ERR, 6, nullptr},
};

void setState(LED_EVENT_FROM_E enFrom, LED_TALLY_STATE_S stState)
{
    if (enFrom == LED_EVENT_FROM_E_NDI) TRACE("mode=%d color=%08x\n", stState.enMode, stState.u32ColorRGB);
    LED_API_SetLedStateInfoFrom(TALLY_LED, enFrom, stState);
}

BU_S32 led_Api_UpdateDefaultTallyState()
{
    setState(LED_EVENT_FROM_E_ALG, trackingState());
    setState(LED_EVENT_FROM_E_NDI, isTallyOnBoard() ? ndiReceiverState() : OFF);
    return 0;
}

BU_S32 TKV_MX_HandlerTallyEvent(LED_EVENT_FROM_E enFrom)
{
    if (bFirst.exchange(false)) led_Api_UpdateDefaultTallyState();
    if (enFrom == LED_EVENT_FROM_E_CFG) LED_API_HandleCfgUpdateEvent(TALLY_LED);
    const auto *pstSource = std::ranges::find(SOURCES, enFrom, &Source::enFrom);
    if (pstSource != std::end(SOURCES) && pstSource->pfnState) setState(enFrom, pstSource->pfnState());
    return LED_API_ApplyLedStateInfo(TALLY_LED);
}

/// The lamp follows tracking and its switch.
void onSetting(const CFG_SETTING_EVENT_S &stEvent)
{
    const std::string_view strKey = stEvent.pcKey;
    if (strKey == "TrackEnabled" || strKey == "TallyIndicator") LED_API_TriggerLedUpdateFrom(LED_EVENT_FROM_E_ALG);
}

/// Blinks until start-up is over; runs on the manager's thread.
BU_S32 TKV_MX_PowerOnAction(LED_EVENT_FROM_E enFrom)
{
    setState(enFrom, state(LED_WORK_MODE_E_FLICK, ALL, LED_MODE_FLICKER_2HZ));
    while (!bAppOver) UTIL_TIME_SleepMs(100);
    return 0;
}
} // namespace

BU_S32 LED_InitDev()
{
    bAppOver = false;
    bFirst = true;
    gs_Tally = BSP_LED_Init("/dev/tally_led");
    gs_Power = BSP_LED_Init("/dev/power_led");

    LED_TALLY_INIT_ATTR_S stAttr{};
    stAttr.listDevices = {gs_Tally, gs_Power};
    for (const Source &stSource : SOURCES) stAttr.u32PriorityFrom[stSource.enFrom] = stSource.u32Priority;
    static_assert(std::size(SOURCES) == std::size(stAttr.u32PriorityFrom));
    stAttr.fnEventCallback = TKV_MX_HandlerTallyEvent;
    stAttr.fnSelfTestCallback = TKV_MX_PowerOnAction;
    stAttr.enWhiteMode = LED_WHITE_MODE_E_RGB;
    LED_API_InitMgr(TALLY_LED, &stAttr);
    s32Listener = CFG_SETTING_Listen(onSetting);
    return 0;
}

BU_S32 LED_UnInitDev()
{
    CFG_SETTING_Unlisten(s32Listener);
    LED_API_DestroyMgr(TALLY_LED);
    for (BSP_LED_HANDLE *ppLamp : {&gs_Tally, &gs_Power}) {
        if (*ppLamp) BSP_LED_Destroy(*ppLamp);
        *ppLamp = nullptr;
    }
    return 0;
}

BU_S32 LED_API_AppOver()
{
    LOG_INFO("[%s:%d] app over\n", __func__, __LINE__);
    bAppOver = true;
    UTIL_TIME_SleepMs(150);
    setState(LED_EVENT_FROM_E_ERR, OFF);
    LED_API_TriggerLedUpdateFrom(LED_EVENT_FROM_E_ERR);
    return 0;
}

BU_S32 TKV_MX_NDITally_Manual(BU_BOOL bManual, const LED_TALLY_STATE_S *pstState)
{
    if (bManual && !pstState) return -1;
    const std::lock_guard guard(lockManual);
    gs_NDITally_Manual = bManual;
    if (bManual) gs_NDITally_ManualState = *pstState;
    return 0;
}
