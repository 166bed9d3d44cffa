/// The sound of the virtual room: quiet air, and a beep when a second of the scene's clock begins.
#pragma once

#include "base/types.h"

#include <span>

namespace media
{
constexpr BU_S32 AUDIO_RATE = 48000, AUDIO_CHANNELS = 2, AUDIO_FRAME = 1024; // samples of a channel

/// @param s64First  number of the first sample on the monotonic clock; the same sample always sounds the same
void renderTone(BU_S64 s64First, std::span<float> out);

/// The factor of a volume setting: 0 silent, 50 as recorded, 100 twelve decibels more.
constexpr float gainOf(BU_S32 s32Volume) { return static_cast<float>(s32Volume * s32Volume) / 2500; }
} // namespace media
