/// The sound of the camera as AAC in its stream cache.
#pragma once

#include "frameRate.h"
#include "streamCache.h"

namespace media
{
STREAM_CACHE_S *audioCache(); ///< null: the board has no audio
/// Makes the audio thread, once; it works only while the cache has a consumer.
void startAudio();
} // namespace media
