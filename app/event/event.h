/// Device and configuration events.
#pragma once

#include "base/types.h"

/// Starts the network and hot-plug monitors. @return 0, or non-zero: a monitor did not start
BU_S32 DEV_EVENT_StartMonitor();
/// Registers for configuration changes. @return 0, or non-zero
BU_S32 CFG_EVENT_RegisterService();
