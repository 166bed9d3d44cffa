/// Remotes and the front key.
#pragma once

#include "base/types.h"

/// Starts the monitors of the input devices. @return 0
BU_S32 BSP_RegisterInputDevice();
