// Which devices are watched, and who takes their events.
#include "board/input.h"
#include "input/input.h"
#include "keyState.h"
#include "util/log.h"

#include <array>
#include <cstdio>

namespace
{
struct Device {
    const BU_CHAR *pcName;
    BSP_INPUT_EventCallBack pfEventCb;
};
constexpr std::array DEVICES{Device{"NecSr", SR_COMMON_InputEventCb}, Device{"NecBr", BR_COMMON_InputEventCb},
                             Device{"gpio-keys", KEYPAD_COMMON_InputEventCb}, Device{"NecYm", YM_COMMON_InputEventCb}};

std::array<BSP_INPUT_THREAD_S, DEVICES.size()> gs_astInputHandle;
} // namespace

BU_S32 BSP_RegisterInputDevice()
{
    SR_BR_InitKeyTimer();
    KEYPAD_InitKeyTimer();
    for (std::size_t i = 0; i < DEVICES.size(); ++i) {
        BSP_INPUT_THREAD_S &stInput = gs_astInputHandle[i];
        stInput.s32Pid = 0;
        stInput.bStart = BU_FALSE;
        std::snprintf(stInput.acDeviceName, sizeof(stInput.acDeviceName), "%s", DEVICES[i].pcName);
        stInput.pfEventCb = DEVICES[i].pfEventCb;
        if (BSP_INPUT_StartMonitorEvent(&stInput) != 0)
            UTIL_TRACE_Print("Warning: BSP_INPUT_StartMonitorEvent failed\n");
    }
    BSP_DipSwitchIrIdInit();
    return 0;
}

BU_S32 BSP_UnRegisterInputDevice()
{
    for (BSP_INPUT_THREAD_S &stInput : gs_astInputHandle)
        if (stInput.s32Pid != 0) BSP_INPUT_StopMonitorEvent(&stInput);
    return 0;
}
