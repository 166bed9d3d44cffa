/// The database file behind the store.
#pragma once

#include "base/types.h"
#include "store/store.h"

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <string>

struct sqlite3;
struct sqlite3_stmt;

namespace store
{
typedef std::map<std::string, std::string, std::less<>> SettingMap;
typedef std::map<BU_S32, CFG_PRESET_S> PresetMap;

/// Why a database could not be opened, in the order of what helps.
enum class Opened : BU_U8 {
    OK,
    READONLY,  ///< read, but not writable: its values are loaded
    DAMAGED,   ///< no database, or not consistent, or of another format
    IMPOSSIBLE ///< no such folder, no access
};

/// The database file of the store. Writing calls return when the data is on the disk. Not safe for several threads.
class Database
{
public:
    Database();
    ~Database();
    Database(const Database &) = delete;
    Database &operator=(const Database &) = delete;

    /// Opens or makes the file and reads everything in it.
    Opened open(const std::string &strPath, SettingMap &settings, PresetMap &presets);

    bool put(const std::vector<std::pair<std::string, std::string>> &listValues); ///< all or none
    bool erase(const std::string &strPrefix);
    bool putPreset(const CFG_PRESET_S &stPreset);
    bool deletePreset(BU_S32 s32Id);
    bool deleteAllPresets();

    std::string reason() const; ///< of the last failure

private:
    enum Query { BEGIN, COMMIT, ROLLBACK, PUT, ERASE, PUT_PRESET, DELETE_PRESET, DELETE_PRESETS, COUNT };
    typedef std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt *)> Statement;

    bool run(const BU_CHAR *pcSql);
    bool isSound();
    bool prepareAll();
    bool load(SettingMap &settings, PresetMap &presets);
    bool step(Query enStatement, const std::function<void(sqlite3_stmt *)> &bind = {});
    bool query(const BU_CHAR *pcSql, const std::function<void(sqlite3_stmt *)> &onRow);

    std::unique_ptr<sqlite3, int (*)(sqlite3 *)> m_clHandle;
    std::vector<Statement> m_statements; // by Query; released before the handle
    std::string m_strReason;
};
} // namespace store
