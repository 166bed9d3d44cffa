/// How busy the machine and its network port are.
#pragma once

#include "base/types.h"

/// Idle share of the processor since the last question [%]; 100 at the first.
BU_S32 SYSTEM_API_GetCpuIdlePrecent();
/// Share of the network port in use since the last question, receiving and sending, 0-1. @return 0
BU_S32 SYSTEM_API_GetNetUsagePrecent(BU_FLOAT &fReceived, BU_FLOAT &fSent);

/// Speed of the network port [Mbit/s].
BU_S32 SYS_API_GetSpeed();
