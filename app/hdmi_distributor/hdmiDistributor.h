/// The HDMI distributor.
#pragma once

#include "base/types.h"

/// Before the pipeline is up. @return 0
BU_S32 APP_HdmiDistributor_prepare();
/// @return 0, or non-zero: no distributor
BU_S32 APP_HdmiDistributor_init();
