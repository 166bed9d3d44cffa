/// Who hears of presets that were stored or deleted.
#pragma once

#include "base/types.h"

namespace presets
{
void announce(BU_S32 s32Preset);
} // namespace presets
