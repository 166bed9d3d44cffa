/// The fan.
#pragma once

#include "base/types.h"

/// Starts the control loop. @return 0
BU_S32 APP_FAN_init();
