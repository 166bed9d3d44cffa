/// The on-screen menu.
#pragma once

#include "base/types.h"

/// Starts the menu library with the bridge's callbacks. @return 0, or non-zero
BU_S32 OSD_MENU_RegisterModule();
