/// Overlays as the pipes see them. Target: bit number in the mask of MPP_OSD_OneToManyCreate; -1 has never any.
#pragma once

#include "scene/scene.h"

namespace media::overlay
{
bool isShown(BU_S32 s32Target);
/// Draws what is shown on a target over a picture. Thread: any, one at a time for each target.
void blend(BU_S32 s32Target, const SCENE_FRAME_S &stFrame);
} // namespace media::overlay
