/// The full-bandwidth NDI encoder, a device of its own that the service only configures.
#pragma once

#include "base/types.h"

/// Switches the encoder on or off and returns at once. @return 0 or -1. Thread: any.
BU_S32 BSP_FULL_NDI_SetNDIEncode(BU_BOOL bEnable);
