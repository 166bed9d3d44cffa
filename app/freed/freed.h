/// FreeD camera-tracking data.
#pragma once

#include "base/types.h"

/// Registers with the protocol library. @return 0
BU_S32 FREED_InitProcess();
/// Starts or stops sending on the serial port in use, as its protocol says; after a change of either. @return 0
BU_S32 FREED_UpdateSerialActivePushMsg();
