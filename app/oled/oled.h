/// The status display.
#pragma once

#include "base/types.h"

/// Starts the display's threads. @return 0
BU_S32 OLED_InitService();
