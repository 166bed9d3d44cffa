/// Stand-by.
#pragma once

#include "base/types.h"

/// Stand-by: head and lens refuse every move whoever asks, stops are carried out, and the lamp shows it. Asleep
/// already: no effect. @return 0
BU_S32 SYSTEM_API_SleepAppService();
/// Ends stand-by: hands the record of the power-off command over to the next start ("/var/ViscaCtrlPowerOff" becomes
/// "/app/ViscaCtrlPowerOn") and restarts the camera. @return 0, or -1: not asleep
BU_S32 SYSTEM_API_WakeAppService();
BU_BOOL SYSTEM_API_IsAsleep();
