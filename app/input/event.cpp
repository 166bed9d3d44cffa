// From a kernel event to the handler of its key.
#include "camera/serial.h"
#include "keys.h"
#include "util/log.h"

#include <algorithm>
#include <linux/input.h>

namespace
{
constexpr BU_S32 KEY_BITS = 7;
constexpr BU_S32 KEY_MASK = (1 << KEY_BITS) - 1;
constexpr BU_S32 ADDR_MASK = 3;

bool isForThisCamera(BU_S32 s32Code)
{
    IR_SWITCH_E enSwitch = IR_SWITCH_E_OFF;
    IR_API_GetSwitch(&enSwitch, BU_FALSE);
    if (enSwitch != IR_SWITCH_E_ON) return false;
    BU_U8 u8IrAddr = 0;
    IR_API_GetAddr(&u8IrAddr, BU_FALSE);
    return (s32Code >> KEY_BITS & ADDR_MASK) + 1 == u8IrAddr;
}

KEY_TYPE_E keyOf(const input::KeyTables &stTables, BU_S32 s32KernCode)
{
    const auto row = std::ranges::find(stTables.map, s32KernCode, &KEY_TRANS_MAP_S::enKeyKernCode);
    return row == stTables.map.end() ? KEY_TYPE_E_BUTT : row->enKeyUserCode;
}

KEY_FUNC handlerOf(const input::KeyTables &stTables, KEY_TYPE_E enKey)
{
    const auto row = std::ranges::find(stTables.handlers, enKey, &KEY_CB_S::enKeyCode);
    return row == stTables.handlers.end() ? nullptr : row->pfKeyCb;
}
} // namespace

namespace input
{
bool readRemote(const input_event &stEvent, KeyEvent &stKey)
{
    if (!isForThisCamera(stEvent.code) || stEvent.type != EV_KEY) return false;
    stKey = {stEvent.code & KEY_MASK, static_cast<KEY_EVENT_E>(stEvent.value)};
    return true;
}

void press(const KeyTables &stTables, const KeyEvent &stKey)
{
    if (const KEY_FUNC pfKeyCb = handlerOf(stTables, keyOf(stTables, stKey.s32KernCode))) pfKeyCb(stKey.enEvent);
}

void pressAndTrace(const KeyTables &stTables, const KeyEvent &stKey)
{
    if (stKey.enEvent == KEY_REPEAT) return;
    const KEY_TYPE_E enKey = keyOf(stTables, stKey.s32KernCode);
    if (const KEY_FUNC pfKeyCb = handlerOf(stTables, enKey)) {
        UTIL_TRACE_Print("Key: %d, Event: %d\n", stKey.s32KernCode, stKey.enEvent);
        pfKeyCb(stKey.enEvent);
    }
    if (enKey == KEY_TYPE_E_BUTT) UTIL_TRACE_Print("not match key:%d\n", stKey.s32KernCode);
}
} // namespace input
