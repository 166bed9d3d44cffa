/// The tracking engine.
#pragma once

#include "base/types.h"

/// Starts the engine for the configured mode. @return 0, or non-zero
BU_S32 ALG_Init();
/// Lets the media pipeline stop and start the engine around its own restarts. @return 0
BU_S32 ALG_RegisterInitDestroy();
