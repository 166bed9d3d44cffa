/// The clock of the scene: the time of day, carried on by the monotonic clock so that it never jumps.
#pragma once

#include "base/types.h"

namespace media
{
BU_S64 sceneTimeUs(BU_S64 s64MonotonicUs);
}
