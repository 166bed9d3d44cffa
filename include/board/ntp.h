/// Time synchronisation. The PC keeps its own clock: the calls are logged and do nothing. @return 0. Thread: any.
#pragma once

#include "base/types.h"

BU_S32 NTPD_LoadConfig();
BU_S32 NTPD_StartSchedularTask();
