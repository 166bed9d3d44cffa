/// HDMI audio.
#pragma once

#include "base/types.h"

/// Starts audio on the HDMI output. @return 0
BU_S32 BSP_StartHdmiSrv();
