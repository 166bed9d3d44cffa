// Presets: recall, store, delete; the home position; special presets and their handlers.
#include "camera/preset.h"

#include "service.h"
#include "store/restore.h"
#include "store/store.h"
#include "util/journal.h"
#include "util/listeners.h"

#include <algorithm>
#include <cstring>
#include <map>

namespace
{
using namespace motion;

constexpr BU_S32 PRESET_MAX = 999;
constexpr BU_S32 PRESET_HOME = -1;
constexpr BU_S32 HOME_NUMBER = 0; // becomes home under its name
constexpr const BU_CHAR *HOME_NAME = "PresetHome";
constexpr std::size_t PRESET_NAME_SIZE = sizeof(PRESET_INFO_S::acName) - 1;

util::Listeners<BU_S32> g_listeners;

BU_S32 deleteAll()
{
    const auto listPresets = CFG_STORE_ListPresets();
    if (CFG_STORE_DeleteAllPresets() != 0) return -1;
    for (const CFG_PRESET_S &stPreset : listPresets) g_listeners.tell(stPreset.s32Id);
    return 0;
}
[[maybe_unused]] const bool REGISTERED = (store::onRestore(SYSTEM_RESTORE_E_PRESET, deleteAll), true);

struct Special {
    std::string strName;
    FN_PRESET_INTERRUPT_CALL fnHandler;
    void *pvUser;
};
struct Specials {
    std::mutex lock; // guards the map
    std::map<BU_S32, std::shared_ptr<const Special>> byNumber;
    util::TimerQueue queue{"preset"}; // runs the handlers
};
Specials &specials()
{
    static auto *pstSpecials = new Specials;
    return *pstSpecials;
}

std::shared_ptr<const Special> special(BU_S32 s32Preset)
{
    const std::lock_guard guard(specials().lock);
    const auto entry = specials().byNumber.find(s32Preset);
    return entry == specials().byNumber.end() ? nullptr : entry->second;
}

bool isNumber(BU_S32 s32Preset) { return s32Preset >= 0 && s32Preset <= PRESET_MAX; }

Position positionOf(const CFG_PRESET_S &st) { return {{st.s32PanPos, st.s32TiltPos}, st.s32ZoomPos, st.s32FocusPos}; }

Position homePosition()
{
    CFG_PRESET_S stPreset;
    if (CFG_STORE_GetPreset(HOME_NUMBER, &stPreset) == 0 && stPreset.strName == HOME_NAME) return positionOf(stPreset);
    return {{MOTOR_CENTRE, MOTOR_CENTRE}, 0, std::nullopt};
}

PRESET_INFO_S infoOf(const CFG_PRESET_S &st)
{
    PRESET_INFO_S stInfo{st.s32Id, {}, st.s32PanPos, st.s32TiltPos, st.s32ZoomPos, st.s32FocusPos};
    st.strName.copy(stInfo.acName, PRESET_NAME_SIZE);
    return stInfo;
}

std::string nameFor(BU_S32 s32Preset, const BU_CHAR *pcName)
{
    if (pcName && *pcName) return std::string(pcName, strnlen(pcName, PRESET_NAME_SIZE));
    CFG_PRESET_S stPreset;
    if (CFG_STORE_GetPreset(s32Preset, &stPreset) == 0 && !stPreset.strName.empty()) return stPreset.strName;
    return "Preset" + std::to_string(s32Preset);
}
} // namespace

BU_S32 PRESET_API_GotoById(BU_S32 s32Preset, PT_CTRL_FROM_E enFrom, void *pvPrivate)
{
    if (const auto injected = journal::call(__func__, s32Preset, enFrom, pvPrivate)) return *injected;
    if (s32Preset == PRESET_HOME) return recall(homePosition(), enFrom, pvPrivate);
    if (auto entry = special(s32Preset)) {
        specials().queue.at(UTIL_TIME_NowMs(), [entry = std::move(entry)] { entry->fnHandler(entry->pvUser); });
        return 0;
    }
    CFG_PRESET_S stPreset;
    if (!isNumber(s32Preset) || CFG_STORE_GetPreset(s32Preset, &stPreset) != 0) return -1;
    return recall(positionOf(stPreset), enFrom, pvPrivate);
}

BU_S32 PRESET_API_GotoHome(PT_CTRL_FROM_E enFrom, void *pvPrivate)
{
    if (const auto injected = journal::call(__func__, enFrom, pvPrivate)) return *injected;
    return recall(homePosition(), enFrom, pvPrivate);
}

BU_S32 PRESET_API_GotoPowerUpPosition()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    BU_S32 s32Preset = PRESET_HOME;
    PT_API_GetPowerUpPtzPos(0, &s32Preset);
    CFG_PRESET_S stPreset;
    const bool bStored = isNumber(s32Preset) && CFG_STORE_GetPreset(s32Preset, &stPreset) == 0;
    place(bStored ? positionOf(stPreset) : homePosition());
    return 0;
}

BU_S32 PRESET_API_RegisterSuperseded(PT_CTRL_FROM_E enFrom, PFN_PRESET_SUPERSEDED pfn)
{
    if (const auto injected = journal::call(__func__, enFrom)) return *injected;
    if (enFrom < 0 || enFrom >= PT_CTRL_E_FROM_BUTT) return -1;
    const std::lock_guard guard(motion::motion().lock);
    motion::motion().apfnSuperseded[enFrom] = pfn;
    return 0;
}

BU_S32 PRESET_API_SetCur(BU_S32 s32Preset, const BU_CHAR *pcName)
{
    if (const auto injected = journal::call(__func__, s32Preset, pcName)) return *injected;
    if (!isNumber(s32Preset) || special(s32Preset)) return -1;
    const Position st = currentPosition();
    const BU_S32 s32Ret = CFG_STORE_SetPreset({s32Preset, nameFor(s32Preset, pcName), st.stHead.s32Pan,
                                               st.stHead.s32Tilt, st.s32Zoom, st.focus.value_or(FOCUS_FAR_END)});
    if (s32Ret == 0) g_listeners.tell(s32Preset);
    return s32Ret;
}

BU_S32 PRESET_API_DeleteById(BU_S32 s32Preset)
{
    if (const auto injected = journal::call(__func__, s32Preset)) return *injected;
    if (!isNumber(s32Preset) || CFG_STORE_DeletePreset(s32Preset) != 0) return -1;
    g_listeners.tell(s32Preset);
    return 0;
}

BU_S32 PRESET_API_QueryById(BU_S32 s32Preset, PRESET_INFO_S *pstInfo)
{
    if (const auto injected = journal::ask(__func__, s32Preset)) return *injected;
    CFG_PRESET_S stPreset;
    if (!pstInfo || CFG_STORE_GetPreset(s32Preset, &stPreset) != 0) return -1;
    *pstInfo = infoOf(stPreset);
    return 0;
}

std::vector<PRESET_INFO_S> PRESET_API_List()
{
    std::vector<PRESET_INFO_S> list;
    std::ranges::transform(CFG_STORE_ListPresets(), std::back_inserter(list), infoOf);
    return list;
}

BU_S32 PRESET_API_QuerySpecialById(BU_S32 s32Preset)
{
    if (const auto injected = journal::ask(__func__, s32Preset)) return *injected;
    return special(s32Preset) ? 0 : -1;
}

BU_S32 PRESET_API_RegisterIdInterrupt(BU_S32 s32Preset, const BU_CHAR *pcName, FN_PRESET_INTERRUPT_CALL fnHandler,
                                      void *pvUser)
{
    if (const auto injected = journal::call(__func__, s32Preset, pcName)) return *injected;
    if (!isNumber(s32Preset) || !fnHandler) return -1;
    auto entry = std::make_shared<const Special>(Special{pcName ? pcName : "", std::move(fnHandler), pvUser});
    const std::lock_guard guard(specials().lock);
    specials().byNumber[s32Preset] = std::move(entry);
    return 0;
}

BU_S32 PRESET_API_Listen(std::function<void(BU_S32)> fnListener) { return g_listeners.add(std::move(fnListener)); }

BU_S32 PRESET_API_Unlisten(BU_S32 s32Id) { return g_listeners.remove(s32Id); }
