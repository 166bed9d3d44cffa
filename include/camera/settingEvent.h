/// The settings by their keys, for what works on all of them: menus, pages, picture styles, and whoever wants to know
/// of changes.
#pragma once

#include "base/types.h"
#include "util/words.h"

#include <functional>
#include <span>
#include <vector>

/// A setting has changed and the change was announced (bUpdate).
struct CFG_SETTING_EVENT_S {
    const BU_CHAR *pcKey; ///< outlives the event
    BU_S32 s32Pipe;       ///< pipeline or device; 0 for a setting of the whole camera
    BU_S32 s32Value;      ///< the running value
};
typedef std::function<void(const CFG_SETTING_EVENT_S &)> FN_CFG_SETTING_LISTENER;

/// Registers a listener. @return its id, > 0; -1 for an empty one
/// Thread: any. The listener runs on the thread of whoever changes the setting and must return soon.
BU_S32 CFG_SETTING_Listen(FN_CFG_SETTING_LISTENER fnListener);

/// Takes a listener away. A call that runs right now may still reach it. @return 0, or -1: no such id
BU_S32 CFG_SETTING_Unlisten(BU_S32 s32Id);

/// Reads and writes a setting by its key, with the rules of its own getter and setter (see base/setting.h). The keys
/// "ShutterSpeed" and "ShutterValue" stand for the setting of the present frame rate.
/// @param s32Pipe  pipeline or device; 0 for a setting of the whole camera
/// @return 0, or -1: also for an unknown key
BU_S32 CFG_SETTING_Get(const BU_CHAR *pcKey, BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread);
BU_S32 CFG_SETTING_Set(const BU_CHAR *pcKey, BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);

struct CFG_SETTING_INFO_S {
    const BU_CHAR *pcKey;
    const BU_CHAR *pcSection; ///< of the close-up pipeline, the device or the camera
    BU_S32 s32Pipes;          ///< values it has: 2 of the pipelines, else 1
};
std::vector<CFG_SETTING_INFO_S> CFG_SETTING_List();
/// The words of a setting's values, in the order in which a user sees them; none: its values are numbers.
std::span<const STR2ENUM_MAP_S> CFG_SETTING_Words(const BU_CHAR *pcKey);

/// Reads every setting from the store again, as at a start: running and stored values become the same, listeners hear
/// nothing. For a store that was opened anew.
void CFG_SETTING_Reload();
