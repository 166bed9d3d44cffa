/// The HDMI input bridge.
#pragma once

#include "base/types.h"

/// Before the pipeline is up. @return 0
BU_S32 APP_HdmiIn_prepare();
/// @return 0, or non-zero: no bridge
BU_S32 APP_HdmiIn_init();
