// The tally lamp, by colour and by mode.
#include "board/lamp.h"
#include "handlers.h"
#include "led/led.h"
#include "table.h"
#include "util/log.h"

using namespace visca;

namespace
{
constexpr const BU_CHAR *LAMP = "TallyLed";
constexpr BU_U32 RED = 0xFF0000, GREEN = 0x00FF00, BLUE = 0x0000FF, WHITE = 0xFF000000;

constexpr LED_TALLY_STATE_S state(LED_WORK_MODE_E enMode, BU_U32 u32Color, BU_S32 s32Flicker = 0)
{
    return {enMode, u32Color, LED_BRIGHTNESS_80, s32Flicker, 0};
}

// clang-format off
constexpr Coded<LED_TALLY_STATE_S> LAMP_STATES[] = {
    {VISCA_MSG_E_LED_RED_SWITCH,    state(LED_WORK_MODE_E_HOLD,  RED)},
    {VISCA_MSG_E_LED_GREEN_SWITCH,  state(LED_WORK_MODE_E_HOLD,  GREEN)},
    {VISCA_MSG_E_LED_BLUE_SWITCH,   state(LED_WORK_MODE_E_HOLD,  BLUE)},
    {VISCA_MSG_E_LED_ALL_ON,        state(LED_WORK_MODE_E_HOLD,  WHITE)},
    {VISCA_MSG_E_LED_ALL_OFF,       state(LED_WORK_MODE_E_OFF,   0)},
    {VISCA_MSG_E_LED_RED_FLICKER,   state(LED_WORK_MODE_E_FLICK, RED,   LED_MODE_FLICKER_1HZ)},
    {VISCA_MSG_E_LED_GREEN_FLICKER, state(LED_WORK_MODE_E_FLICK, GREEN, LED_MODE_FLICKER_1HZ)},
    {VISCA_MSG_E_LED_BLUE_FLICKER,  state(LED_WORK_MODE_E_FLICK, BLUE,  LED_MODE_FLICKER_1HZ)},
};

constexpr Coded<LED_TALLY_STATE_S> NDI_STATES[] = {
    {VISCA_MSG_TKV_NDI_TALLY_PREVIEW, state(LED_WORK_MODE_E_HOLD, GREEN)},
    {VISCA_MSG_TKV_NDI_TALLY_PROGRAM, state(LED_WORK_MODE_E_HOLD, RED)},
    {VISCA_MSG_TKV_NDI_TALLY_CLOSE,   state(LED_WORK_MODE_E_OFF,  0)},
};
// clang-format on

BU_S32 applyTally(const VISCA_MSG_TKV_TALLY_TYPE_S &stTally)
{
    if (const auto *pstState = find(NDI_STATES, stTally.enledmode)) {
        TKV_MX_NDITally_Manual(BU_TRUE, pstState);
        LED_API_TriggerLedUpdateFrom(LED_EVENT_FROM_E_NDI);
        return 0;
    }
    if (const BU_S32 s32Mode = cameraOf<codes::TALLY_MODES>(stTally.enledmode); s32Mode != NONE)
        return LED_API_SetTallyMode(LAMP, s32Mode, BU_TRUE, BU_TRUE);
    switch (stTally.enledmode) {
    case VISCA_MSG_TKV_NDI_TALLY_ON:
        return LED_API_SetTallyOnBoard(LAMP, BU_TRUE, BU_TRUE, BU_TRUE);
    case VISCA_MSG_TKV_NDI_TALLY_OFF:
        return LED_API_SetTallyOnBoard(LAMP, BU_FALSE, BU_TRUE, BU_TRUE);
    case VISCA_MSG_TKV_NORMAL_TALLY_CUSTOM_SAVE:
        return LED_API_SetTallyCustomColor(LAMP, stTally.RGBLed, BU_TRUE, BU_TRUE);
    default:
        return -1;
    }
}
} // namespace

BU_S32 viscaCtrlTallyLed(tagVISCA_CTRL_INFO_S *pstInfo)
{
    const auto *pstState = find(LAMP_STATES, pstInfo->enTallyLed);
    LED_API_SetLedStateInfoFrom(LAMP, LED_EVENT_FROM_E_VISCA, pstState ? *pstState : LED_TALLY_STATE_S{});
    TRACE("To restore factory settings value %d\n", pstInfo->enTallyLed);
    return 0;
}

BU_S32 viscaCtrlYMTally(tagVISCA_CTRL_INFO_S *pstInfo)
{
    const auto enType = pstInfo->enTallyType;
    if (enType == VISCA_MSG_YM_TALLY_OFF) LED_API_SetTallyOnBoard(LAMP, BU_FALSE, BU_TRUE, BU_TRUE);
    if (enType == VISCA_MSG_YM_TALLY_ON) LED_API_SetTallyOnBoard(LAMP, BU_TRUE, BU_TRUE, BU_TRUE);
    TRACE("Type[%d]  \n", enType);
    return 0;
}

BU_S32 viscaCtrlTKVTally(tagVISCA_CTRL_INFO_S *pstInfo)
{
    const BU_S32 s32Ret = applyTally(pstInfo->stTKVtTally);
    TRACE("Type[%d]  \n", pstInfo->stTKVtTally.enledmode);
    return s32Ret;
}
