// Packets of pan, tilt and presets.
#include "table.h"

namespace visca
{
// clang-format off
static constexpr Row s_astMotion[] = {
    {VISCA_CMD_E_PAN_TILT, "01 06 01 vv ww 03 01", "move up; pan speed v, tilt speed w (00: configured)", Drives{PAN_TILT}, SET(stPTCtlr.enPanTiltType, VISCA_MSG_E_PT_UP), VAL('v', stPTCtlr.u8PanSpeed, 0, 0x18), VAL('w', stPTCtlr.u8TiltSpeed, 0, 0x18)},
    {VISCA_CMD_E_PAN_TILT, "01 06 01 vv ww 03 02", "move down; pan speed v, tilt speed w (00: configured)", Drives{PAN_TILT}, SET(stPTCtlr.enPanTiltType, VISCA_MSG_E_PT_DOWN), VAL('v', stPTCtlr.u8PanSpeed, 0, 0x18), VAL('w', stPTCtlr.u8TiltSpeed, 0, 0x18)},
    {VISCA_CMD_E_PAN_TILT, "01 06 01 vv ww 01 03", "move left; pan speed v, tilt speed w (00: configured)", Drives{PAN_TILT}, SET(stPTCtlr.enPanTiltType, VISCA_MSG_E_PT_LEFT), VAL('v', stPTCtlr.u8PanSpeed, 0, 0x18), VAL('w', stPTCtlr.u8TiltSpeed, 0, 0x18)},
    {VISCA_CMD_E_PAN_TILT, "01 06 01 vv ww 02 03", "move right; pan speed v, tilt speed w (00: configured)", Drives{PAN_TILT}, SET(stPTCtlr.enPanTiltType, VISCA_MSG_E_PT_RIGHT), VAL('v', stPTCtlr.u8PanSpeed, 0, 0x18), VAL('w', stPTCtlr.u8TiltSpeed, 0, 0x18)},
    {VISCA_CMD_E_PAN_TILT, "01 06 01 vv ww 01 01", "move up left; pan speed v, tilt speed w (00: configured)", Drives{PAN_TILT}, SET(stPTCtlr.enPanTiltType, VISCA_MSG_E_PT_UP_LEFT), VAL('v', stPTCtlr.u8PanSpeed, 0, 0x18), VAL('w', stPTCtlr.u8TiltSpeed, 0, 0x18)},
    {VISCA_CMD_E_PAN_TILT, "01 06 01 vv ww 02 01", "move up right; pan speed v, tilt speed w (00: configured)", Drives{PAN_TILT}, SET(stPTCtlr.enPanTiltType, VISCA_MSG_E_PT_UP_RIGHT), VAL('v', stPTCtlr.u8PanSpeed, 0, 0x18), VAL('w', stPTCtlr.u8TiltSpeed, 0, 0x18)},
    {VISCA_CMD_E_PAN_TILT, "01 06 01 vv ww 01 02", "move down left; pan speed v, tilt speed w (00: configured)", Drives{PAN_TILT}, SET(stPTCtlr.enPanTiltType, VISCA_MSG_E_PT_DOWN_LEFT), VAL('v', stPTCtlr.u8PanSpeed, 0, 0x18), VAL('w', stPTCtlr.u8TiltSpeed, 0, 0x18)},
    {VISCA_CMD_E_PAN_TILT, "01 06 01 vv ww 02 02", "move down right; pan speed v, tilt speed w (00: configured)", Drives{PAN_TILT}, SET(stPTCtlr.enPanTiltType, VISCA_MSG_E_PT_DOWN_RIGHT), VAL('v', stPTCtlr.u8PanSpeed, 0, 0x18), VAL('w', stPTCtlr.u8TiltSpeed, 0, 0x18)},
    {VISCA_CMD_E_PAN_TILT, "01 06 01 vv ww 03 03", "stop pan and tilt", stops(PAN_TILT), SET(stPTCtlr.enPanTiltType, VISCA_MSG_E_PT_STOP), VAL('v', stPTCtlr.u8PanSpeed, 0, 0xFE), VAL('w', stPTCtlr.u8TiltSpeed, 0, 0xFE)},
    {VISCA_CMD_E_PAN_TILT, "01 06 02 vv ww 0p 0p 0p 0p 0q 0q 0q 0q", "move to pan p, tilt q (two's complement)", Moves{PAN_TILT}, SET(stPTCtlr.enPanTiltType, VISCA_MSG_E_PT_ABS_POS), VAL('v', stPTCtlr.u8PanSpeed, 0, 0x18), VAL('w', stPTCtlr.u8TiltSpeed, 0, 0x18), VAL('p', stPTCtlr.u16PanPos, 0, 0xFFFF), VAL('q', stPTCtlr.u16TiltPos, 0, 0xFFFF)},
    {VISCA_CMD_E_PAN_TILT, "01 06 03 vv ww 0p 0p 0p 0p 0q 0q 0q 0q", "move by pan p, tilt q (two's complement) from here", Moves{PAN_TILT}, SET(stPTCtlr.enPanTiltType, VISCA_MSG_E_PT_REL_POS), VAL('v', stPTCtlr.u8PanSpeed, 0, 0x18), VAL('w', stPTCtlr.u8TiltSpeed, 0, 0x18), VAL('p', stPTCtlr.u16PanPos, 0, 0xFFFF), VAL('q', stPTCtlr.u16TiltPos, 0, 0xFFFF)},
    {VISCA_CMD_E_PAN_TILT, "01 06 04", "home position, zoom wide", Moves{PAN_TILT | ZOOM}, SET(stPTCtlr.enPanTiltType, VISCA_MSG_E_PT_HOME)},
    {VISCA_CMD_E_PAN_TILT, "01 06 05", "pan/tilt reset", Moves{PAN_TILT}, SET(stPTCtlr.enPanTiltType, VISCA_MSG_E_PT_RESET)},
    {VISCA_CMD_E_PAN_TILT, "01 7E 34 01 0v 0v 0w 0w 03 01", "move up, fine: pan speed v, tilt speed w (00: configured)", Drives{PAN_TILT}, SET(stPTCtlr.enPanTiltType, VISCA_MSG_E_PT_UP_PRECISE), VAL('v', stPTCtlr.u8PanSpeed, 0, 0xFF), VAL('w', stPTCtlr.u8TiltSpeed, 0, 0xFF)},
    {VISCA_CMD_E_PAN_TILT, "01 7E 34 01 0v 0v 0w 0w 03 02", "move down, fine: pan speed v, tilt speed w (00: configured)", Drives{PAN_TILT}, SET(stPTCtlr.enPanTiltType, VISCA_MSG_E_PT_DOWN_PRECISE), VAL('v', stPTCtlr.u8PanSpeed, 0, 0xFF), VAL('w', stPTCtlr.u8TiltSpeed, 0, 0xFF)},
    {VISCA_CMD_E_PAN_TILT, "01 7E 34 01 0v 0v 0w 0w 01 03", "move left, fine: pan speed v, tilt speed w (00: configured)", Drives{PAN_TILT}, SET(stPTCtlr.enPanTiltType, VISCA_MSG_E_PT_LEFT_PRECISE), VAL('v', stPTCtlr.u8PanSpeed, 0, 0xFF), VAL('w', stPTCtlr.u8TiltSpeed, 0, 0xFF)},
    {VISCA_CMD_E_PAN_TILT, "01 7E 34 01 0v 0v 0w 0w 02 03", "move right, fine: pan speed v, tilt speed w (00: configured)", Drives{PAN_TILT}, SET(stPTCtlr.enPanTiltType, VISCA_MSG_E_PT_RIGHT_PRECISE), VAL('v', stPTCtlr.u8PanSpeed, 0, 0xFF), VAL('w', stPTCtlr.u8TiltSpeed, 0, 0xFF)},
    {VISCA_CMD_E_PAN_TILT, "01 7E 34 01 0v 0v 0w 0w 01 01", "move up left, fine: pan speed v, tilt speed w (00: configured)", Drives{PAN_TILT}, SET(stPTCtlr.enPanTiltType, VISCA_MSG_E_PT_UP_LEFT_PRECISE), VAL('v', stPTCtlr.u8PanSpeed, 0, 0xFF), VAL('w', stPTCtlr.u8TiltSpeed, 0, 0xFF)},
    {VISCA_CMD_E_PAN_TILT, "01 7E 34 01 0v 0v 0w 0w 02 01", "move up right, fine: pan speed v, tilt speed w (00: configured)", Drives{PAN_TILT}, SET(stPTCtlr.enPanTiltType, VISCA_MSG_E_PT_UP_RIGHT_PRECISE), VAL('v', stPTCtlr.u8PanSpeed, 0, 0xFF), VAL('w', stPTCtlr.u8TiltSpeed, 0, 0xFF)},
    {VISCA_CMD_E_PAN_TILT, "01 7E 34 01 0v 0v 0w 0w 01 02", "move down left, fine: pan speed v, tilt speed w (00: configured)", Drives{PAN_TILT}, SET(stPTCtlr.enPanTiltType, VISCA_MSG_E_PT_DOWN_LEFT_PRECISE), VAL('v', stPTCtlr.u8PanSpeed, 0, 0xFF), VAL('w', stPTCtlr.u8TiltSpeed, 0, 0xFF)},
    {VISCA_CMD_E_PAN_TILT, "01 7E 34 01 0v 0v 0w 0w 02 02", "move down right, fine: pan speed v, tilt speed w (00: configured)", Drives{PAN_TILT}, SET(stPTCtlr.enPanTiltType, VISCA_MSG_E_PT_DOWN_RIGHT_PRECISE), VAL('v', stPTCtlr.u8PanSpeed, 0, 0xFF), VAL('w', stPTCtlr.u8TiltSpeed, 0, 0xFF)},
    {VISCA_CMD_E_PAN_TILT, "01 7E 34 01 0v 0v 0w 0w 03 03", "stop pan and tilt", stops(PAN_TILT), SET(stPTCtlr.enPanTiltType, VISCA_MSG_E_PT_STOP), VAL('v', stPTCtlr.u8PanSpeed, 0, 0xFF), VAL('w', stPTCtlr.u8TiltSpeed, 0, 0xFF)},
    {VISCA_CMD_E_TKV_PT_SPEED, "01 7E 34 02 02", "pan/tilt speed follows the zoom: on", SET(stPTSpeedCtrl.enPanTiltType, VISCA_MSG_E_PTSPEED_MATCH_ON)},
    {VISCA_CMD_E_TKV_PT_SPEED, "01 7E 34 02 03", "pan/tilt speed follows the zoom: off", SET(stPTSpeedCtrl.enPanTiltType, VISCA_MSG_E_PTSPEED_MATCH_OFF)},
    {VISCA_CMD_E_TKV_PT_SPEED, "01 7E 34 03 0p 0p", "configured pan speed p", SET(stPTSpeedCtrl.enPanTiltType, VISCA_MSG_E_PAN_SPEED), VAL('p', stPTSpeedCtrl.u32PTSpeedParam, 0, 0xFF)},
    {VISCA_CMD_E_TKV_PT_SPEED, "01 7E 34 04 0p 0p", "configured tilt speed p", SET(stPTSpeedCtrl.enPanTiltType, VISCA_MSG_E_Tilt_SPEED), VAL('p', stPTSpeedCtrl.u32PTSpeedParam, 0, 0xFF)},
    {VISCA_CMD_E_TKV_PT_SPEED, "01 7E 34 05 0p 0p 0p 0p", "configured pan and tilt speed (refused; use 03 and 04)", SET(stPTSpeedCtrl.enPanTiltType, VISCA_MSG_E_PanTilt_SPEED), VAL('p', stPTSpeedCtrl.u32PTSpeedParam, 0, 0xFFFF)},
    {VISCA_CMD_E_TKV_PT_SPEED, "01 7E 34 06 0p", "speed accuracy: 00 one, 01 ten, 02 hundred steps a level", SET(stPTSpeedCtrl.enPanTiltType, VISCA_MSG_E_PTSPEED_ACCURACY), VAL('p', stPTSpeedCtrl.u32PTSpeedParam, 0, 2)},

    {VISCA_INQ_E_PAN_TILT_POS, "09 06 12", "pan position p, tilt position q", Reply{"0p 0p 0p 0p 0q 0q 0q 0q"}},
    {VISCA_INQ_E_PAN_TILT_MAX_SPEED, "09 06 11", "highest pan speed p, tilt speed q", Reply{"pp qq"}},
    {VISCA_INQ_E_TKV_PT_SPEED, "09 7E 34 05", "configured pan speed p, tilt speed q", Reply{"0p 0p 0q 0q"}},
    {VISCA_INQ_E_TKV_PT_SPEED_MATCH, "09 7E 34 02", "pan/tilt speed follows the zoom: 02 on, 03 off", Reply{"pp"}},
    {VISCA_INQ_E_TKV_PT_SPEED_ACCUARCY, "09 7E 34 06", "speed accuracy: 00 one, 01 ten, 02 hundred steps a level", Reply{"0p"}},
};
static constexpr Row s_astPreset[] = {
    {VISCA_CMD_E_MEMORY, "01 04 3F 00 pp", "delete preset p", SET(stMemoryCtrl.enMemoryType, VISCA_MSG_E_MEMORY_RESET), VAL('p', stMemoryCtrl.u8MemVal, 0, 0xFE)},
    {VISCA_CMD_E_MEMORY, "01 04 3F 01 pp", "store the position as preset p", SET(stMemoryCtrl.enMemoryType, VISCA_MSG_E_MEMORY_SET), VAL('p', stMemoryCtrl.u8MemVal, 0, 0xFE)},
    {VISCA_CMD_E_MEMORY, "01 04 3F 02 pp", "recall preset p", Moves{PAN_TILT | ZOOM | FOCUS}, SET(stMemoryCtrl.enMemoryType, VISCA_MSG_E_MEMORY_RECALL), VAL('p', stMemoryCtrl.u8MemVal, 0, 0xFE)},
    {VISCA_CMD_E_MEMORY, "01 06 01 pp", "preset recall speed p", SET(stMemoryCtrl.enMemoryType, VISCA_MSG_E_MEMORY_SPEED), VAL('p', stMemoryCtrl.u8MemVal, 0, 0xFE)},
    {VISCA_CMD_E_MEMORY, "01 7E 35 01 pp", "position after power-up: preset p, 00 none", SET(stMemoryCtrl.enMemoryType, VISCA_MSG_E_MEMORY_POWERUP), VAL('p', stMemoryCtrl.u8MemVal, 0, 0xFE)},
    {VISCA_CMD_E_MEMORY, "01 7E 35 02 02", "preset mode on", SET(stMemoryCtrl.enMemoryType, VISCA_MSG_E_MEMORY_MODE), SET(stMemoryCtrl.u8MemVal, 2)},
    {VISCA_CMD_E_MEMORY, "01 7E 35 02 03", "preset mode off", SET(stMemoryCtrl.enMemoryType, VISCA_MSG_E_MEMORY_MODE), SET(stMemoryCtrl.u8MemVal, 3)},

    {VISCA_INQ_E_MEMORY_STATUE, "09 06 01", "preset recall speed, low 4 bits", Reply{"0p"}, SET(stMemoryCtrl.enMemoryType, VISCA_MSG_E_MEMORY_SPEED)},
    {VISCA_INQ_E_MEMORY_STATUE, "09 7E 35 01", "position after power-up: preset p, low 4 bits", Reply{"0p"}, SET(stMemoryCtrl.enMemoryType, VISCA_MSG_E_MEMORY_POWERUP)},
    {VISCA_INQ_E_MEMORY_STATUE, "09 7E 35 02", "preset mode: 02 on, 03 off", Reply{"0p"}, SET(stMemoryCtrl.enMemoryType, VISCA_MSG_E_MEMORY_MODE)},
};
// clang-format on
const std::span<const Row> g_motionRows = s_astMotion;
const std::span<const Row> g_presetRows = s_astPreset;
} // namespace visca
