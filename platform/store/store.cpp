// What is stored: in memory for reading; a write reaches the disk first.
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

using namespace store;

namespace
{
constexpr const BU_CHAR *DEFAULT_PATH = "/cfg0/settings.db";

/// Everything stored, in memory: reads never touch the disk and never wait for a write to it.
struct State {
    std::mutex writeLock; // guards database and s32OpenResult; held over a whole write, taken before valueLock
    std::unique_ptr<Database> database; // none: in memory only
    BU_S32 s32OpenResult = 0;
    std::atomic<bool> bOpen{false}; // written under writeLock
    std::shared_mutex valueLock;    // guards settings and presets
    SettingMap settings;
    PresetMap presets;
};
State &state()
{
    static auto *pst = new State;
    return *pst;
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
        const Opened enResult = database->open(strPath, readSettings, readPresets);
        if (enResult == Opened::OK || enResult == Opened::READONLY) {
            settings = std::move(readSettings);
            presets = std::move(readPresets);
        }
        if (enResult == Opened::OK) return database;
        const std::string strReason = database->reason();
        database.reset();
        if (enResult == Opened::DAMAGED && !bAgain) {
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
    state().database.reset();
    if (pcPath) {
        const std::string strPath = UTIL_ROOT_Path(pcPath);
        std::error_code error;
        const bool bNew = !std::filesystem::exists(strPath, error);
        state().database = openDatabase(strPath, settings, presets);
        if (bNew && state().database) LOG_INFO("%s is new: all settings have their defaults", strPath.c_str());
    }
    {
        const std::unique_lock guard(state().valueLock);
        state().settings = std::move(settings);
        state().presets = std::move(presets);
    }
    state().bOpen = true;
    state().s32OpenResult = pcPath && !state().database ? -1 : 0;
    return state().s32OpenResult;
}

/// The first use opens the store of the device root.
void ensureOpen()
{
    if (state().bOpen.load(std::memory_order_acquire)) return;
    const std::lock_guard guard(state().writeLock);
    if (!state().bOpen) openLocked(DEFAULT_PATH);
}

/// Puts a change on the disk, then in memory: readers never see what is not stored.
template <class Write, class Apply> BU_S32 change(Write write, Apply apply)
{
    ensureOpen();
    std::string strReason;
    {
        const std::lock_guard guard(state().writeLock);
        if (!state().database || write(*state().database)) {
            const std::unique_lock values(state().valueLock);
            apply(state());
            return 0;
        }
        strReason = state().database->reason();
    }
    LOG_ERROR("settings not written: %s", strReason.c_str());
    return -1;
}

std::optional<std::string> textOf(const BU_CHAR *pcKey)
{
    if (!pcKey) return std::nullopt;
    ensureOpen();
    const std::shared_lock guard(state().valueLock);
    const auto setting = state().settings.find(std::string_view(pcKey));
    return setting == state().settings.end() ? std::nullopt : std::optional(setting->second);
}
} // namespace

BU_S32 CFG_STORE_Open(const BU_CHAR *pcPath)
{
    const std::lock_guard guard(state().writeLock);
    return openLocked(pcPath);
}

void CFG_STORE_Close()
{
    const std::lock_guard guard(state().writeLock);
    state().database.reset();
    state().bOpen = false;
}

BU_S32 CFG_VerifyFileFormat()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    ensureOpen();
    const std::lock_guard guard(state().writeLock);
    return state().s32OpenResult;
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
                const auto setting = state().settings.find(value.first);
                if (setting == state().settings.end() || setting->second != value.second) changed.push_back(value);
            }
            return changed.empty() || database.put(changed);
        },
        [&](State &st) {
            for (const auto &[strKey, strValue] : listValues) st.settings[strKey] = strValue;
        });
}

BU_S32 CFG_STORE_Erase(const BU_CHAR *pcPrefix)
{
    const std::string strPrefix = pcPrefix ? pcPrefix : "";
    if (const auto injected = journal::ask(__func__, strPrefix.c_str())) return *injected;
    return change([&](Database &database) { return database.erase(strPrefix); },
                  [&](State &st) {
                      std::erase_if(st.settings,
                                    [&](const auto &setting) { return setting.first.starts_with(strPrefix); });
                  });
}

BU_S32 CFG_STORE_GetPreset(BU_S32 s32Id, CFG_PRESET_S *pstPreset)
{
    ensureOpen();
    const std::shared_lock guard(state().valueLock);
    const auto preset = state().presets.find(s32Id);
    if (preset == state().presets.end() || !pstPreset) return -1;
    *pstPreset = preset->second;
    return 0;
}

BU_S32 CFG_STORE_SetPreset(const CFG_PRESET_S &stPreset)
{
    if (const auto injected = journal::ask(__func__, stPreset.s32Id)) return *injected;
    return change([&](Database &database) { return database.putPreset(stPreset); },
                  [&](State &st) { st.presets[stPreset.s32Id] = stPreset; });
}

BU_S32 CFG_STORE_DeletePreset(BU_S32 s32Id)
{
    if (const auto injected = journal::ask(__func__, s32Id)) return *injected;
    return change([=](Database &database) { return database.deletePreset(s32Id); },
                  [=](State &st) { st.presets.erase(s32Id); });
}

BU_S32 CFG_STORE_DeleteAllPresets()
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    return change([](Database &database) { return database.deleteAllPresets(); },
                  [](State &st) { st.presets.clear(); });
}

std::vector<CFG_PRESET_S> CFG_STORE_ListPresets()
{
    ensureOpen();
    const std::shared_lock guard(state().valueLock);
    std::vector<CFG_PRESET_S> list;
    for (const auto &[s32Id, stPreset] : state().presets) list.push_back(stPreset);
    return list;
}
