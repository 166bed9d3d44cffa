/// The web service.
#pragma once

#include "base/types.h"

/// Registers the web events and starts the web server. @return 0
BU_S32 BSP_StartHttpService();
