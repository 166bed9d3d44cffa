/// ONVIF media profiles.
#pragma once

#include "base/types.h"

/// Starts the ONVIF server with the media callbacks. @return 0, or non-zero
BU_S32 ONVIF_InitProcess();
