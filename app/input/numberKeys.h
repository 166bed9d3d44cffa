/// The number keys of the big remote: recall, store and delete presets.
#pragma once

#include "keyState.h"

namespace input
{
void pressNumber(BU_S32 s32Digit, KEY_EVENT_E enEvent);
template <BU_S32 Digit> BU_S32 numberKey(KEY_EVENT_E enEvent)
{
    pressNumber(Digit, enEvent);
    return 0;
}

/// Carries out the command that waits for its number, while the entry timer runs.
void confirmNumber();
} // namespace input
