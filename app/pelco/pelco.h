/// Pelco-D and Pelco-P.
#pragma once

#include "base/types.h"

/// Registers with the protocol library. @return 0
BU_S32 PELCO_InitProcess();
