/// GPIO lines and the I2C bus. On the PC a line is the file /sys/gpio/<module name>/value of the device root, "0" or
/// "1"; its lines are those of the board profile. All calls: any thread.
#pragma once

#include "base/types.h"

enum BSP_GPIO_TYPE_E : BU_S32 { BSP_GPIO_TYPE_PWR = 0 };
struct BSP_GPIO_GETIDX {
    BU_CHAR acModuleName[64];
    BSP_GPIO_TYPE_E enType;
};
enum IO_DIR_E : BU_S32 { IO_DIR_E_IN = 0, IO_DIR_E_OUT = 1 };

/// The number of a line. @return 0 or more, negative: no such line
BU_S32 BSP_GetGpioNum(const BSP_GPIO_GETIDX *pstLine);
/// Takes a line into use. @return 0, negative: no such line
BU_S32 BSP_RequestGpioMode(BU_S32 s32Gpio);
/// @return 0, negative: no such line
BU_S32 BSP_SetGpioDir(BU_S32 s32Gpio, IO_DIR_E enDir);
/// The level of a line, 0 or 1; 0 for one that does not exist.
BU_S32 BSP_GetGpioValue(BU_S32 s32Gpio);

/// Reads a register of an I2C device. The PC has no bus.
/// @param pu32Value  two bytes as one 16-bit value, the first byte read high; untouched on failure
/// @return 0, negative: failed
BU_S32 BSP_I2cRead(BU_S32 s32Fd, BU_U32 u32Dev, BU_U32 u32Reg, BU_U32 u32RegWidth, BU_U32 u32Length, BU_U32 *pu32Value);
