#include "presetListeners.h"

#include "camera/preset.h"

#include <map>
#include <memory>
#include <mutex>

namespace
{
typedef std::map<BU_S32, std::function<void(BU_S32)>> LISTENERS;

std::mutex g_lock; // guards the two below; a change replaces the list, so that it is walked without the lock
std::shared_ptr<const LISTENERS> g_pListeners = std::make_shared<LISTENERS>();
BU_S32 g_s32Last = 0;
} // namespace

void presets::announce(BU_S32 s32Preset)
{
    std::shared_ptr<const LISTENERS> pListeners;
    {
        const std::lock_guard guard(g_lock);
        pListeners = g_pListeners;
    }
    for (const auto &[s32Id, fnListener] : *pListeners) fnListener(s32Preset);
}

BU_S32 PRESET_API_Listen(std::function<void(BU_S32)> fnListener)
{
    if (!fnListener) return -1;
    const std::lock_guard guard(g_lock);
    auto pNew = std::make_shared<LISTENERS>(*g_pListeners);
    pNew->emplace(++g_s32Last, std::move(fnListener));
    g_pListeners = std::move(pNew);
    return g_s32Last;
}

BU_S32 PRESET_API_Unlisten(BU_S32 s32Id)
{
    const std::lock_guard guard(g_lock);
    auto pNew = std::make_shared<LISTENERS>(*g_pListeners);
    if (pNew->erase(s32Id) == 0) return -1;
    g_pListeners = std::move(pNew);
    return 0;
}
