/// The display bridge.
#pragma once

#include "base/types.h"

/// Starts the bridge and its watch thread. @return 0, or non-zero
BU_S32 APP_DSI_LT9211_Init();
