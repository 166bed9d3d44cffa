/// The settings store: integers and texts under keys, presets; kept in one database file, /cfg0/settings.db.
///
/// A write that returns 0 survives a killed process and a power cut. A missing database starts empty; a damaged one is
/// set aside as settings.db.damaged and the store starts empty; both are logged. Reads come from memory and never wait
/// for the disk; writing a value that is stored already needs no disk either. All calls: any thread.
#pragma once

#include "base/types.h"

#include <string>
#include <utility>
#include <vector>

/// Opens the store in the device root; null opens one in memory, for tests. Opening again closes the earlier one.
/// Without it the first use opens /cfg0/settings.db.
/// @return 0, or -1: the folder cannot be written; the store then works in memory only (writes return 0), and says so
BU_S32 CFG_STORE_Open(const BU_CHAR *pcPath);
void CFG_STORE_Close(); ///< the next use opens it again

/// @param pcKey  "section/key", e.g. "Image0/Contrast"
/// @return 0, or -1: nothing stored under the key (or not a number); the output is untouched
BU_S32 CFG_STORE_GetInt(const BU_CHAR *pcKey, BU_S32 *ps32Value);
BU_S32 CFG_STORE_GetText(const BU_CHAR *pcKey, std::string *pstrValue);

/// @return 0, or -1: not written (disk full, read-only); the earlier value stays; the reason is logged
BU_S32 CFG_STORE_SetInt(const BU_CHAR *pcKey, BU_S32 s32Value);
BU_S32 CFG_STORE_SetText(const BU_CHAR *pcKey, const BU_CHAR *pcValue);

/// Several values in one step: all or none.
BU_S32 CFG_STORE_SetTexts(const std::vector<std::pair<std::string, std::string>> &listValues);

/// Forgets every key that begins with the prefix ("" forgets all settings; presets stay). @return 0 or -1
BU_S32 CFG_STORE_Erase(const BU_CHAR *pcPrefix);

/// A stored camera position, in motor units (see camera/motion.h).
struct CFG_PRESET_S {
    BU_S32 s32Id = 0;
    std::string strName;
    BU_S32 s32PanPos = 0, s32TiltPos = 0, s32ZoomPos = 0, s32FocusPos = 0;
    bool operator==(const CFG_PRESET_S &) const = default;
};
/// @return 0, or -1: no such preset / not written
BU_S32 CFG_STORE_GetPreset(BU_S32 s32Id, CFG_PRESET_S *pstPreset);
BU_S32 CFG_STORE_SetPreset(const CFG_PRESET_S &stPreset);
BU_S32 CFG_STORE_DeletePreset(BU_S32 s32Id); ///< 0 also when there was none
BU_S32 CFG_STORE_DeleteAllPresets();
std::vector<CFG_PRESET_S> CFG_STORE_ListPresets(); ///< by number
