/// The clock: set from the network or not. The PC keeps its own clock: the calls are logged and do nothing. Thread:
/// any.
#pragma once

#include "base/setting.h"

// settings: SYSTEM_API_System
/// clock from the network: switch, default off [NtpEnable]
BU_S32 SYSTEM_API_GetNTPEnabled(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
// end of settings
/// Tells the listeners.
BU_S32 SYSTEM_API_SetEnableNTP(BU_BOOL bOn, BU_BOOL bSaveCfg);

// @return 0
BU_S32 NTPD_LoadConfig();
BU_S32 NTPD_StartSchedularTask();
