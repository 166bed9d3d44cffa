/// The clock: set from the network or not. The PC keeps its own clock: the calls are logged and do nothing. Thread:
/// any.
#pragma once

#include "base/setting.h"

/// Clock from the network: switch, default off [NtpEnable]; the setter tells the listeners.
BU_GETTER(SYSTEM_API_, NTPEnabled)
BU_S32 SYSTEM_API_SetEnableNTP(BU_BOOL bOn, BU_BOOL bSaveCfg);

// @return 0
BU_S32 NTPD_LoadConfig();
BU_S32 NTPD_StartSchedularTask();
