/// The lamp managers, for the rest of this library.
#pragma once

#include "board/lamp.h"

namespace lamp
{
/// The state that the settings ask for while no other source does.
LED_TALLY_STATE_S restState();

/// Takes the rest state from the settings in every manager and shows what wins.
void refresh();

/// LED_API_TriggerLedUpdateFrom without the journal.
BU_S32 triggerUpdate(LED_EVENT_FROM_E enFrom);
} // namespace lamp
