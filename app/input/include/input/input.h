/// Remotes, the front key and the switch that sets the remotes' address.
#pragma once

#include "base/types.h"

/// Starts the monitors of the input devices and the thread of the address switch. A device that cannot be watched is
/// left out. Called once, at the start. @return 0
BU_S32 BSP_RegisterInputDevice();
/// Ends the monitors. @return 0
BU_S32 BSP_UnRegisterInputDevice();

/// Starts and ends the thread that follows the address switch. @return 0, or -1: no thread could be made, or none runs
BU_S32 BSP_DipSwitchIrIdInit();
BU_S32 BSP_DipSwitchIrIdDeinit();
