/// What the sources of this library share beside their classes.
#pragma once

#include "media/encoder.h"
#include "media/stream.h"
#include "scene/scene.h"

namespace media
{
/// The clock of the scene: the time of day, carried on by the monotonic clock so that it never jumps.
BU_S64 sceneTimeUs(BU_S64 s64MonotonicUs);

constexpr BU_S32 AUDIO_CACHE = 6, AUDIO_BIT_RATE = 128'000; // [bit/s]
/// The sound of the camera as AAC. @return null: the board has no audio
STREAM_CACHE_S *audioCache();
/// Makes the audio thread, once; it works only while the cache has a consumer.
void startAudio();

struct StoredVenc {
    bool bEnabled;
    MPP_VENC_PARAM_S stParam;
};
/// The stored parameters of a channel, or its default where something is missing or cannot be.
StoredVenc loadVenc(BU_S32 s32Chn);
/// @return 0 or -1, as the store
BU_S32 storeVenc(BU_S32 s32Chn, const MPP_VENC_PARAM_S &stParam);
BU_S32 storeVencEnabled(BU_S32 s32Chn, bool bEnabled);
/// Lets the channels of the stream caches, once started, run as stored. @return 0
BU_S32 reloadChannels();
/// Other encoder parameters by hand, for the length of a run: reads lines such as "1 h265 1280x720 2000" from the debug
/// file of the encoders: channel, format, size and bit rate [kbit/s]; what is left out stays.
void openVencConsole();

/// Overlays as the pipes see them. Target: bit number in the mask of MPP_OSD_OneToManyCreate; -1 has never any.
namespace overlay
{
bool isShown(BU_S32 s32Target);
/// Draws what is shown on a target over a picture. Thread: any, one at a time for each target.
void blend(BU_S32 s32Target, const SCENE_FRAME_S &stFrame);
} // namespace overlay
} // namespace media
