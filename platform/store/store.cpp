#include "store/store.h"
#include "config/config.h"

#include "database.h"
#include "util/file.h"
#include "util/journal.h"
#include "util/log.h"

#include <atomic>
#include <charconv>
#include <cstdio>
#include <filesystem>
#include <mutex>
#include <optional>
#include <shared_mutex>

namespace
{
constexpr const BU_CHAR *DEFAULT_PATH = "/cfg0/settings.db";

/// Everything stored, in memory: reads never touch the disk and never wait for a write to it.
struct tagSTORE_S {
    std::mutex writeLock; // guards database and s32OpenResult; held over a whole write, taken before valueLock
    std::unique_ptr<Database> database; // none: in memory only
    BU_S32 s32OpenResult = 0;
    std::atomic<bool> bOpen{false}; // written under writeLock
    std::shared_mutex valueLock;    // guards settings and presets
    SettingMap settings;
    PresetMap presets;
};
tagSTORE_S &store()
{
    static auto *pstStore = new tagSTORE_S;
    return *pstStore;
}

void setAside(const std::string &strPath)
{
    for (const BU_CHAR *pcSuffix : {"", "-wal", "-shm"}) {
        const std::string strFile = strPath + pcSuffix;
        std::rename(strFile.c_str(), (strPath + ".damaged" + pcSuffix).c_str());
    }
}

/// Opens the database, a fresh one in place of a damaged one. None when that is impossible.
std::unique_ptr<Database> openDatabase(const std::string &strPath, SettingMap &settings, PresetMap &presets)
{
    for (const bool bAgain : {false, true}) {
        auto database = std::make_unique<Database>();
        SettingMap readSettings;
        PresetMap readPresets;
        const DATABASE_OPEN_E enResult = database->open(strPath, readSettings, readPresets);
        if (enResult == DATABASE_OPEN_E_OK || enResult == DATABASE_OPEN_E_READONLY) {
            settings = std::move(readSettings);
            presets = std::move(readPresets);
        }
        if (enResult == DATABASE_OPEN_E_OK) return database;
        const std::string strReason = database->reason();
        database.reset();
        if (enResult == DATABASE_OPEN_E_DAMAGED && !bAgain) {
            LOG_ERROR("%s is damaged (%s): set aside as %s.damaged, all settings have their defaults", strPath.c_str(),
                      strReason.c_str(), strPath.c_str());
            setAside(strPath);
            continue;
        }
        LOG_ERROR("%s cannot be written (%s): settings are kept in memory only and are lost when the camera ends",
                  strPath.c_str(), strReason.c_str());
        break;
    }
    return nullptr;
}

/// With the write lock held.
BU_S32 openLocked(const BU_CHAR *pcPath)
{
    SettingMap settings;
    PresetMap presets;
    store().database.reset();
    if (pcPath) {
        const std::string strPath = UTIL_ROOT_Path(pcPath);
        std::error_code error;
        const bool bNew = !std::filesystem::exists(strPath, error);
        store().database = openDatabase(strPath, settings, presets);
        if (bNew && store().database) LOG_INFO("%s is new: all settings have their defaults", strPath.c_str());
    }
    {
        const std::unique_lock guard(store().valueLock);
        store().settings = std::move(settings);
        store().presets = std::move(presets);
    }
    store().bOpen = true;
    store().s32OpenResult = pcPath && !store().database ? -1 : 0;
    return store().s32OpenResult;
}

/// The first use opens the store of the device root.
void ensureOpen()
{
    if (store().bOpen.load(std::memory_order_acquire)) return;
    const std::lock_guard guard(store().writeLock);
    if (!store().bOpen) openLocked(DEFAULT_PATH);
}

/// Puts a change on the disk, then in memory: readers never see what is not stored.
template <class Write, class Apply> BU_S32 change(Write write, Apply apply)
{
    ensureOpen();
    std::string strReason;
    {
        const std::lock_guard guard(store().writeLock);
        if (!store().database || write(*store().database)) {
            const std::unique_lock values(store().valueLock);
            apply(store());
            return 0;
        }
        strReason = store().database->reason();
    }
    LOG_ERROR("settings not written: %s", strReason.c_str());
    return -1;
}

std::optional<std::string> textOf(const BU_CHAR *pcKey)
{
    if (!pcKey) return std::nullopt;
    ensureOpen();
    const std::shared_lock guard(store().valueLock);
    const auto setting = store().settings.find(std::string_view(pcKey));
    return setting == store().settings.end() ? std::nullopt : std::optional(setting->second);
}
} // namespace

BU_S32 CFG_STORE_Open(const BU_CHAR *pcPath)
{
    const std::lock_guard guard(store().writeLock);
    return openLocked(pcPath);
}

void CFG_STORE_Close()
{
    const std::lock_guard guard(store().writeLock);
    store().database.reset();
    store().bOpen = false;
}

BU_S32 CFG_VerifyFileFormat()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    ensureOpen();
    const std::lock_guard guard(store().writeLock);
    return store().s32OpenResult;
}

BU_S32 CFG_STORE_GetInt(const BU_CHAR *pcKey, BU_S32 *ps32Value)
{
    const auto text = textOf(pcKey);
    BU_S32 s32Value = 0;
    if (!text || !ps32Value) return -1;
    const auto [end, error] = std::from_chars(text->data(), text->data() + text->size(), s32Value);
    if (error != std::errc() || end != text->data() + text->size()) return -1;
    *ps32Value = s32Value;
    return 0;
}

BU_S32 CFG_STORE_GetText(const BU_CHAR *pcKey, std::string *pstrValue)
{
    auto text = textOf(pcKey);
    if (!text || !pstrValue) return -1;
    *pstrValue = std::move(*text);
    return 0;
}

BU_S32 CFG_STORE_SetInt(const BU_CHAR *pcKey, BU_S32 s32Value)
{
    return CFG_STORE_SetText(pcKey, std::to_string(s32Value).c_str());
}

BU_S32 CFG_STORE_SetText(const BU_CHAR *pcKey, const BU_CHAR *pcValue)
{
    if (const auto injected = journal::ask(__func__, pcKey, pcValue)) return *injected;
    if (!pcKey || !pcValue) return -1;
    return CFG_STORE_SetTexts({{pcKey, pcValue}});
}

BU_S32 CFG_STORE_SetTexts(const std::vector<std::pair<std::string, std::string>> &listValues)
{
    if (const auto injected = journal::ask(__func__, listValues.size())) return *injected;
    return change(
        [&](Database &database) {
            // What is on the disk already needs no write. No other writer is under way here.
            std::vector<std::pair<std::string, std::string>> changed;
            for (const auto &value : listValues) {
                const auto setting = store().settings.find(value.first);
                if (setting == store().settings.end() || setting->second != value.second) changed.push_back(value);
            }
            return changed.empty() || database.put(changed);
        },
        [&](tagSTORE_S &stStore) {
            for (const auto &[strKey, strValue] : listValues) stStore.settings[strKey] = strValue;
        });
}

BU_S32 CFG_STORE_Erase(const BU_CHAR *pcPrefix)
{
    const std::string strPrefix = pcPrefix ? pcPrefix : "";
    if (const auto injected = journal::ask(__func__, strPrefix.c_str())) return *injected;
    return change([&](Database &database) { return database.erase(strPrefix); },
                  [&](tagSTORE_S &stStore) {
                      std::erase_if(stStore.settings,
                                    [&](const auto &setting) { return setting.first.starts_with(strPrefix); });
                  });
}

BU_S32 CFG_STORE_GetPreset(BU_S32 s32Id, CFG_PRESET_S *pstPreset)
{
    ensureOpen();
    const std::shared_lock guard(store().valueLock);
    const auto preset = store().presets.find(s32Id);
    if (preset == store().presets.end() || !pstPreset) return -1;
    *pstPreset = preset->second;
    return 0;
}

BU_S32 CFG_STORE_SetPreset(const CFG_PRESET_S &stPreset)
{
    if (const auto injected = journal::ask(__func__, stPreset.s32Id)) return *injected;
    return change([&](Database &database) { return database.putPreset(stPreset); },
                  [&](tagSTORE_S &stStore) { stStore.presets[stPreset.s32Id] = stPreset; });
}

BU_S32 CFG_STORE_DeletePreset(BU_S32 s32Id)
{
    if (const auto injected = journal::ask(__func__, s32Id)) return *injected;
    return change([=](Database &database) { return database.deletePreset(s32Id); },
                  [=](tagSTORE_S &stStore) { stStore.presets.erase(s32Id); });
}

BU_S32 CFG_STORE_DeleteAllPresets()
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    return change([](Database &database) { return database.deleteAllPresets(); },
                  [](tagSTORE_S &stStore) { stStore.presets.clear(); });
}

std::vector<CFG_PRESET_S> CFG_STORE_ListPresets()
{
    ensureOpen();
    const std::shared_lock guard(store().valueLock);
    std::vector<CFG_PRESET_S> list;
    for (const auto &[s32Id, stPreset] : store().presets) list.push_back(stPreset);
    return list;
}
