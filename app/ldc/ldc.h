/// Lens-distortion correction.
#pragma once

#include "base/types.h"

/// Starts the correction when it is switched on. @return 0
BU_S32 LDC_Init();
