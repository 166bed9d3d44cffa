/// NDI PTZ control and tally.
#pragma once

#include "base/types.h"

/// The tally that NDI receivers ask for: 1 when any source is in preview, on program. @return 0. Thread: any.
BU_S32 NDI_PTZ_GetTallyState(BU_U8 *pu8Preview, BU_U8 *pu8Program);
