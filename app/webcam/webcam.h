/// The USB webcam.
#pragma once

#include "base/types.h"

/// Starts the gadget service. @return 0, or non-zero
BU_S32 BSP_StartUsbSrv();
