#include "motion/presetListeners.h"

#include "camera/preset.h"
#include "util/listeners.h"

namespace
{
util::Listeners<BU_S32> g_listeners;
} // namespace

void presets::announce(BU_S32 s32Preset) { g_listeners.tell(s32Preset); }

BU_S32 PRESET_API_Listen(std::function<void(BU_S32)> fnListener) { return g_listeners.add(std::move(fnListener)); }

BU_S32 PRESET_API_Unlisten(BU_S32 s32Id) { return g_listeners.remove(s32Id); }
