// The database file: one table of settings, one of presets; damage is found before anything is used.
#include "database.h"

#include <sqlite3.h>
#include <unistd.h>

namespace
{
constexpr BU_S32 FORMAT = 1;
constexpr int BUSY_TIMEOUT_MS = 2000;

// WAL with full synchronisation: one write to the log and one fsync for a change, no loss at a power cut.
constexpr const BU_CHAR *SET_UP = "PRAGMA journal_mode=WAL; PRAGMA synchronous=FULL;"
                                  "CREATE TABLE IF NOT EXISTS setting(key TEXT PRIMARY KEY, value TEXT NOT NULL)"
                                  " WITHOUT ROWID;"
                                  "CREATE TABLE IF NOT EXISTS preset(id INTEGER PRIMARY KEY, name TEXT NOT NULL,"
                                  " pan INTEGER NOT NULL, tilt INTEGER NOT NULL, zoom INTEGER NOT NULL,"
                                  " focus INTEGER NOT NULL);"
                                  "PRAGMA user_version=1;";
static_assert(FORMAT == 1, "as SET_UP writes it");

// In the order of Query.
constexpr const BU_CHAR *STATEMENTS[] = {
    "BEGIN IMMEDIATE",
    "COMMIT",
    "ROLLBACK",
    "INSERT INTO setting VALUES(?1, ?2) ON CONFLICT(key) DO UPDATE SET value = ?2",
    "DELETE FROM setting WHERE substr(key, 1, length(?1)) = ?1",
    "INSERT OR REPLACE INTO preset VALUES(?1, ?2, ?3, ?4, ?5, ?6)",
    "DELETE FROM preset WHERE id = ?1",
    "DELETE FROM preset",
};

void bindText(sqlite3_stmt *pstStatement, int s32Index, const std::string &strText)
{
    sqlite3_bind_text(pstStatement, s32Index, strText.data(), static_cast<int>(strText.size()), SQLITE_STATIC);
}

std::string columnText(sqlite3_stmt *pstStatement, int s32Column)
{
    const auto *pcText = reinterpret_cast<const BU_CHAR *>(sqlite3_column_text(pstStatement, s32Column));
    return pcText ? std::string(pcText, static_cast<std::size_t>(sqlite3_column_bytes(pstStatement, s32Column))) : "";
}
} // namespace

namespace store
{
Database::Database() : m_clHandle(nullptr, sqlite3_close_v2) {}
Database::~Database() = default;

std::string Database::reason() const { return m_strReason; }

bool Database::run(const BU_CHAR *pcSql)
{
    if (sqlite3_exec(m_clHandle.get(), pcSql, nullptr, nullptr, nullptr) == SQLITE_OK) return true;
    m_strReason = sqlite3_errmsg(m_clHandle.get());
    return false;
}

bool Database::query(const BU_CHAR *pcSql, const std::function<void(sqlite3_stmt *)> &onRow)
{
    sqlite3_stmt *pstRaw = nullptr;
    int s32Ret = sqlite3_prepare_v2(m_clHandle.get(), pcSql, -1, &pstRaw, nullptr);
    const Statement statement(pstRaw, sqlite3_finalize);
    while (s32Ret == SQLITE_OK && (s32Ret = sqlite3_step(pstRaw)) == SQLITE_ROW) {
        onRow(pstRaw);
        s32Ret = SQLITE_OK;
    }
    if (s32Ret != SQLITE_DONE) m_strReason = sqlite3_errmsg(m_clHandle.get());
    return s32Ret == SQLITE_DONE;
}

bool Database::isSound()
{
    bool bSound = true;
    const bool bRead = query("PRAGMA integrity_check(1)", [&](sqlite3_stmt *pstRow) {
        const std::string strResult = columnText(pstRow, 0);
        if (strResult == "ok") return;
        bSound = false;
        m_strReason = strResult;
    });
    if (!bRead || !bSound) return false;
    return query("PRAGMA user_version",
                 [&](sqlite3_stmt *pstRow) {
                     const BU_S32 s32Format = sqlite3_column_int(pstRow, 0);
                     bSound = s32Format == 0 || s32Format == FORMAT; // 0: just made
                     if (!bSound) m_strReason = "format " + std::to_string(s32Format) + " is not known";
                 }) &&
           bSound;
}

bool Database::prepareAll()
{
    for (const BU_CHAR *pcSql : STATEMENTS) {
        sqlite3_stmt *pstRaw = nullptr;
        const int s32Ret = sqlite3_prepare_v3(m_clHandle.get(), pcSql, -1, SQLITE_PREPARE_PERSISTENT, &pstRaw, nullptr);
        m_statements.emplace_back(pstRaw, sqlite3_finalize);
        if (s32Ret == SQLITE_OK) continue;
        m_strReason = sqlite3_errmsg(m_clHandle.get());
        return false;
    }
    return true;
}

bool Database::load(SettingMap &settings, PresetMap &presets)
{
    return query("SELECT key, value FROM setting",
                 [&](sqlite3_stmt *pstRow) { settings[columnText(pstRow, 0)] = columnText(pstRow, 1); }) &&
           query("SELECT id, name, pan, tilt, zoom, focus FROM preset", [&](sqlite3_stmt *pstRow) {
               const auto number = [=](int s32Column) { return sqlite3_column_int(pstRow, s32Column); };
               presets[number(0)] = {number(0), columnText(pstRow, 1), number(2), number(3), number(4), number(5)};
           });
}

Opened Database::open(const std::string &strPath, SettingMap &settings, PresetMap &presets)
{
    sqlite3 *pstRaw = nullptr;
    constexpr int s32Flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX;
    const int s32Ret = sqlite3_open_v2(strPath.c_str(), &pstRaw, s32Flags, nullptr);
    m_clHandle.reset(pstRaw);
    if (s32Ret != SQLITE_OK) {
        m_strReason = pstRaw ? sqlite3_errmsg(pstRaw) : "no memory";
        return Opened::IMPOSSIBLE;
    }
    sqlite3_busy_timeout(pstRaw, BUSY_TIMEOUT_MS);
    if (sqlite3_db_readonly(pstRaw, "main") == 1) {
        m_strReason = "read-only";
        return isSound() && load(settings, presets) ? Opened::READONLY : Opened::IMPOSSIBLE;
    }
    if (isSound() && run(SET_UP) && load(settings, presets) && prepareAll()) return Opened::OK;
    const int s32Error = sqlite3_errcode(pstRaw) & 0xFF;
    const bool bAccess = s32Error == SQLITE_CANTOPEN || s32Error == SQLITE_IOERR || s32Error == SQLITE_FULL ||
                         s32Error == SQLITE_BUSY || s32Error == SQLITE_READONLY;
    return bAccess ? Opened::IMPOSSIBLE : Opened::DAMAGED;
}

bool Database::step(Query enStatement, const std::function<void(sqlite3_stmt *)> &bind)
{
    sqlite3_stmt *pstStatement = m_statements[enStatement].get();
    if (bind) bind(pstStatement);
    const int s32Ret = sqlite3_step(pstStatement);
    if (s32Ret != SQLITE_DONE) m_strReason = sqlite3_errmsg(m_clHandle.get());
    sqlite3_reset(pstStatement);
    return s32Ret == SQLITE_DONE;
}

bool Database::put(const std::vector<std::pair<std::string, std::string>> &listValues)
{
    const auto putOne = [this](const auto &value) {
        return step(PUT, [&](sqlite3_stmt *pstStatement) {
            bindText(pstStatement, 1, value.first);
            bindText(pstStatement, 2, value.second);
        });
    };
    if (listValues.size() == 1) return putOne(listValues.front());
    if (!step(BEGIN)) return false;
    bool bDone = true;
    for (const auto &value : listValues) bDone = bDone && putOne(value);
    if (bDone && step(COMMIT)) return true;
    const std::string strReason = m_strReason;
    step(ROLLBACK);
    m_strReason = strReason;
    return false;
}

bool Database::erase(const std::string &strPrefix)
{
    return step(ERASE, [&](sqlite3_stmt *pstStatement) { bindText(pstStatement, 1, strPrefix); });
}

bool Database::putPreset(const CFG_PRESET_S &stPreset)
{
    return step(PUT_PRESET, [&](sqlite3_stmt *pstStatement) {
        bindText(pstStatement, 2, stPreset.strName);
        const std::pair<int, BU_S32> numbers[] = {{1, stPreset.s32Id},
                                                  {3, stPreset.s32PanPos},
                                                  {4, stPreset.s32TiltPos},
                                                  {5, stPreset.s32ZoomPos},
                                                  {6, stPreset.s32FocusPos}};
        for (const auto &[s32Index, s32Value] : numbers) sqlite3_bind_int(pstStatement, s32Index, s32Value);
    });
}

bool Database::deletePreset(BU_S32 s32Id)
{
    return step(DELETE_PRESET, [&](sqlite3_stmt *pstStatement) { sqlite3_bind_int(pstStatement, 1, s32Id); });
}

bool Database::deleteAllPresets() { return step(DELETE_PRESETS); }
} // namespace store
