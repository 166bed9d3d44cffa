// The running and the stored values of the settings: how they change, what is stored, who hears.
#include "settings/settings.h"

#include "camera/focus.h"
#include "camera/settingEvent.h"
#include "store/restore.h"
#include "store/store.h"
#include "util/log.h"
#include "vocabulary/tables.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <iterator>
#include <mutex>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace settings
{
namespace
{
constexpr SettingRow ROWS[] = {
#define SETTING(scope, family, name, functions, section, key, min, max, def, step, rule, words, meaning)               \
    {Scope::scope, Section::section, key, min, max, def, step, Rule::rule, words},
#include "settings/settings.def"
#undef SETTING
};
static_assert(std::ranges::all_of(ROWS, [](const auto &st) {
    return st.s32Min <= st.s32Def && st.s32Def <= st.s32Max && st.s32Step > 0;
}));

constexpr auto sortedByKey()
{
    std::array<Row, ROW_COUNT> aenRows{};
    for (BU_U16 u16 = 0; u16 < ROW_COUNT; ++u16) aenRows[u16] = static_cast<Row>(u16);
    std::ranges::sort(aenRows, {}, [](Row en) { return std::string_view(ROWS[en].pcKey); });
    return aenRows;
}
constexpr auto BY_KEY = sortedByKey();
static_assert(std::ranges::adjacent_find(BY_KEY, {}, [](Row en) { return std::string_view(ROWS[en].pcKey); }) ==
                  BY_KEY.end(),
              "each key stands once");

struct Slot {
    std::atomic<BU_S32> s32Running, s32Stored;
};
Slot g_astSlots[ROW_COUNT][2];

std::atomic<bool> g_bLoaded{false};
std::atomic<BU_U32> g_u32Generation{1};
std::mutex g_lockLoad;   // guards the first filling of the slots
std::mutex g_lockChange; // guards changes of slots; held over the write to the store, which calls nobody back

std::string storeKey(Row enRow, BU_S32 s32Instance)
{
    return std::string(sectionName(ROWS[enRow].enSection, s32Instance)) + '/' + ROWS[enRow].pcKey;
}

bool isAllowed(Row enRow, BU_S32 s32Value)
{
    const SettingRow &stRow = ROWS[enRow];
    if (s32Value < stRow.s32Min || s32Value > stRow.s32Max) return false;
    return stRow.enRule != Rule::LISTED ||
           std::ranges::find(stRow.words, s32Value, &STR2ENUM_MAP_S::value) != stRow.words.end();
}

BU_S32 storedOrDefault(Row enRow, BU_S32 s32Instance)
{
    BU_S32 s32Value = 0;
    const std::string strKey = storeKey(enRow, s32Instance);
    if (CFG_STORE_GetInt(strKey.c_str(), &s32Value) != 0) return ROWS[enRow].s32Def;
    if (isAllowed(enRow, s32Value)) return s32Value;
    LOG_WARN("%s: stored value %d is outside its range, the default is taken\n", strKey.c_str(), s32Value);
    return ROWS[enRow].s32Def;
}

void loadAll()
{
    for (BU_U16 u16 = 0; u16 < ROW_COUNT; ++u16)
        for (BU_S32 i = 0; i < ROWS[u16].instances(); ++i) {
            const BU_S32 s32Value = storedOrDefault(static_cast<Row>(u16), i);
            g_astSlots[u16][i].s32Running.store(s32Value, std::memory_order_relaxed);
            g_astSlots[u16][i].s32Stored.store(s32Value, std::memory_order_relaxed);
        }
    g_bLoaded.store(true, std::memory_order_release);
}

void ensureLoaded()
{
    if (g_bLoaded.load(std::memory_order_acquire)) return;
    const std::lock_guard guard(g_lockLoad);
    if (!g_bLoaded.load(std::memory_order_relaxed)) loadAll();
}

bool isInstance(Row enRow, BU_S32 s32Instance) { return s32Instance >= 0 && s32Instance < ROWS[enRow].instances(); }

/// The running value never waits for the store. Both change together as well, so that the last of several threads
/// leaves the same value in both.
BU_S32 changeAndStore(Row enRow, BU_S32 s32Instance, BU_S32 s32Value, bool bAtOnce)
{
    Slot &stSlot = g_astSlots[enRow][s32Instance];
    if (bAtOnce) stSlot.s32Running.store(s32Value, std::memory_order_relaxed);
    const std::lock_guard guard(g_lockChange);
    if (bAtOnce) stSlot.s32Running.store(s32Value, std::memory_order_relaxed);
    if (CFG_STORE_SetInt(storeKey(enRow, s32Instance).c_str(), s32Value) != 0) return -1;
    stSlot.s32Stored.store(s32Value, std::memory_order_relaxed);
    return 0;
}

void restoreRow(Row enRow, BU_S32 s32Instance)
{
    const SettingRow &stRow = ROWS[enRow];
    Slot &stSlot = g_astSlots[enRow][s32Instance];
    BU_S32 s32Before = 0;
    {
        const std::lock_guard guard(g_lockChange);
        stSlot.s32Stored.store(stRow.s32Def, std::memory_order_relaxed);
        s32Before = stSlot.s32Running.exchange(stRow.s32Def, std::memory_order_relaxed);
    }
    if (s32Before != stRow.s32Def) announce(stRow.pcKey, s32Instance, stRow.s32Def);
}

/// Which settings a bit of the factory restore takes back.
constexpr std::pair<SYSTEM_RESTORE_E, Section> RESTORED[] = {
    {SYSTEM_RESTORE_E_IMAGE, Section::Image},        {SYSTEM_RESTORE_E_IMAGE, Section::Exposure},
    {SYSTEM_RESTORE_E_IMAGE, Section::WhiteBalance}, {SYSTEM_RESTORE_E_PTZ, Section::Lens},
    {SYSTEM_RESTORE_E_PTZ, Section::PanTilt},        {SYSTEM_RESTORE_E_TRACK, Section::Track},
    {SYSTEM_RESTORE_E_SYSTEM, Section::System},      {SYSTEM_RESTORE_E_SYSTEM, Section::Video},
    {SYSTEM_RESTORE_E_SYSTEM, Section::Audio},       {SYSTEM_RESTORE_E_SYSTEM, Section::Lamp},
    {SYSTEM_RESTORE_E_CONTROL, Section::Control},
};
[[maybe_unused]] const bool REGISTERED = [] {
    for (const auto &[enBit, enSection] : RESTORED) store::onRestore(enBit, [en = enSection] { return restore(en); });
    return true;
}();
} // namespace

const SettingRow &row(Row enRow) { return ROWS[enRow]; }

const BU_CHAR *sectionName(Section enSection, BU_S32 s32Instance)
{
    static constexpr const BU_CHAR *NAMES[][2] = {
        {"Image0", "Image1"},   {"Exposure0", "Exposure1"}, {"WhiteBalance0", "WhiteBalance1"},
        {"Lens0", "Lens1"},     {"PanTilt0", "PanTilt1"},   {"Track", "Track"},
        {"System", "System"},   {"Video", "Video"},         {"Audio", "Audio"},
        {"Control", "Control"}, {"Lamp", "Lamp"},
    };
    static_assert(std::size(NAMES) == static_cast<std::size_t>(Section::Lamp) + 1);
    return NAMES[static_cast<std::size_t>(enSection)][s32Instance];
}

Row find(const BU_CHAR *pcKey)
{
    if (!pcKey) return ROW_COUNT;
    const std::string_view strKey = pcKey;
    if (strKey == "ShutterSpeed") return shutterRow();
    if (strKey == "ShutterValue") return shutterValueRow();
    const auto keyOf = [](Row en) { return std::string_view(ROWS[en].pcKey); };
    const auto penRow = std::ranges::lower_bound(BY_KEY, strKey, {}, keyOf);
    return penRow != BY_KEY.end() && keyOf(*penRow) == strKey ? *penRow : ROW_COUNT;
}

BU_S32 get(Row enRow, BU_S32 s32Instance, BU_S32 *ps32Value, BU_BOOL bReread)
{
    if (!ps32Value || !isInstance(enRow, s32Instance)) return -1;
    ensureLoaded();
    const Slot &stSlot = g_astSlots[enRow][s32Instance];
    *ps32Value = (bReread ? stSlot.s32Stored : stSlot.s32Running).load(std::memory_order_relaxed);
    return 0;
}

BU_S32 value(Row enRow, BU_S32 s32Instance)
{
    ensureLoaded();
    return g_astSlots[enRow][s32Instance].s32Running.load(std::memory_order_relaxed);
}

BU_S32 set(Row enRow, BU_S32 s32Instance, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate)
{
    const SettingRow &stRow = ROWS[enRow];
    if (!isInstance(enRow, s32Instance)) return -1;
    if (stRow.enRule == Rule::CLAMP && s32Value != INT32_MIN) // what an unknown word stands for is not a value
        s32Value = std::clamp(s32Value, stRow.s32Min, stRow.s32Max);
    if (!isAllowed(enRow, s32Value)) return -1;
    ensureLoaded();
    const bool bAtOnce = bUpdate || stRow.enRule != Rule::NEXT_START;
    BU_S32 s32Ret = 0;
    if (bSaveCfg)
        s32Ret = changeAndStore(enRow, s32Instance, s32Value, bAtOnce);
    else if (bAtOnce)
        g_astSlots[enRow][s32Instance].s32Running.store(s32Value, std::memory_order_relaxed);
    if (bUpdate) announce(stRow.pcKey, s32Instance, s32Value);
    return s32Ret;
}

BU_S32 setTogether(std::span<const Change> spanChanges, BU_BOOL bSaveCfg, BU_BOOL bUpdate)
{
    if (!std::ranges::all_of(spanChanges, [](const auto &st) { return isAllowed(st.enRow, st.s32Value); })) return -1;
    ensureLoaded();
    std::vector<std::pair<std::string, std::string>> listValues;
    for (const Change &st : spanChanges) listValues.emplace_back(storeKey(st.enRow, 0), std::to_string(st.s32Value));
    BU_S32 s32Ret = 0;
    {
        const std::lock_guard guard(g_lockChange);
        if (bSaveCfg) s32Ret = CFG_STORE_SetTexts(listValues);
        for (const Change &st : spanChanges) {
            Slot &stSlot = g_astSlots[st.enRow][0];
            stSlot.s32Running.store(st.s32Value, std::memory_order_relaxed);
            if (bSaveCfg && s32Ret == 0) stSlot.s32Stored.store(st.s32Value, std::memory_order_relaxed);
        }
    }
    if (bUpdate)
        for (const Change &st : spanChanges) announce(row(st.enRow).pcKey, 0, st.s32Value);
    return s32Ret;
}

BU_S32 restore(Section enSection, BU_S32 s32Instance)
{
    ensureLoaded();
    const auto isAsked = [&](BU_S32 i) { return s32Instance == -1 || s32Instance == i; };
    for (const BU_S32 i : {0, 1})
        if (isAsked(i) && CFG_STORE_Erase((std::string(sectionName(enSection, i)) + '/').c_str()) != 0) return -1;
    for (BU_U16 u16 = 0; u16 < ROW_COUNT; ++u16)
        for (BU_S32 i = 0; i < ROWS[u16].instances(); ++i)
            if (ROWS[u16].enSection == enSection && isAsked(i)) restoreRow(static_cast<Row>(u16), i);
    ++g_u32Generation;
    return 0;
}

void reload()
{
    const std::scoped_lock guard(g_lockLoad, g_lockChange);
    loadAll();
    ++g_u32Generation;
}

BU_U32 generation() { return g_u32Generation; }
} // namespace settings
