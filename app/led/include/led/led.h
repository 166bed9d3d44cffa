/// Tally and power lamps.
#pragma once

#include "board/lamp.h"

/// Opens the lamps and shows the start-up indication. @return 0
BU_S32 LED_InitDev();
BU_S32 LED_UnInitDev();

/// Ends the start-up indication: from now on the lamps show what their sources ask for. @return 0
BU_S32 LED_API_AppOver();

/// Overrides the NDI tally by hand, or gives it back to NDI.
/// @param pstState  read while bManual is set; may be null otherwise
/// @return 0, or -1: no state given
/// Thread: any.
BU_S32 TKV_MX_NDITally_Manual(BU_BOOL bManual, const LED_TALLY_STATE_S *pstState);
inline BU_S32 TKV_MX_NDITally_Manual(BU_BOOL bManual, LED_TALLY_STATE_S stState)
{
    return TKV_MX_NDITally_Manual(bManual, &stState);
}
