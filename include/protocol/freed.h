/// FreeD protocol library. Thread: any.
#pragma once

#include "base/types.h"

/// The camera id in FreeD messages; never null, for the life of the process.
BU_S32 *GetCammeraIdGst();
/// @param s32Id  0-255. @return 0, or -1: another id, or not stored
BU_S32 SetCammeraId(BU_S32 s32Id, BU_BOOL bSaveCfg);
