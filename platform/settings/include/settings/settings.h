/// The settings engine: the rows of settings.def with their running and stored values.
///
/// Two values are kept of each setting: the running one, which the camera works with, and the stored one, which it
/// starts with. Both live in memory: answers take no lock and touch no storage; only a stored change writes.
#pragma once

#include "base/types.h"
#include "util/words.h"

#include <cstddef>
#include <span>

namespace settings
{
enum class Scope : BU_U8 { PIPE, DEVICE, CAMERA };
enum class Rule : BU_U8 { REFUSE, CLAMP, LISTED, NEXT_START };
enum class Section : BU_U8 { Image, Exposure, WhiteBalance, Lens, PanTilt, Track, System, Video, Audio, Control, Lamp };

constexpr std::span<const STR2ENUM_MAP_S> NUMBERS; ///< the words of a setting without any

enum Row : BU_U16 {
#define SETTING(scope, family, name, ...) family##name,
#include "settings/settings.def"
#undef SETTING
    ROW_COUNT
};

struct SettingRow {
    Scope enScope;
    Section enSection;
    const BU_CHAR *pcKey;
    BU_S32 s32Min, s32Max, s32Def, s32Step;
    Rule enRule;
    std::span<const STR2ENUM_MAP_S> words;

    /// Values the setting has: two of the pipelines, one of the device and of the camera.
    constexpr BU_S32 instances() const { return enScope == Scope::PIPE ? 2 : 1; }
};

const SettingRow &row(Row enRow);

/// The row of a key; "ShutterSpeed" and "ShutterValue" stand for the row of the present frame rate.
/// @return ROW_COUNT for an unknown or missing key
Row find(const BU_CHAR *pcKey);

/// What every getter does. @param bReread  the stored value instead of the running one
/// @return 0, or -1: null pointer or no such pipeline or device; nothing is written then
BU_S32 get(Row enRow, BU_S32 s32Instance, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);

/// What every setter does: range, running value, store, announcement.
/// @return 0; -1: outside the range or no such instance, nothing changed; or not stored, the running value changed
BU_S32 set(Row enRow, BU_S32 s32Instance, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);

/// Several settings of the camera that belong together: all or none are changed, and stored in one step.
struct Change {
    Row enRow;
    BU_S32 s32Value;
};
BU_S32 setTogether(std::span<const Change> spanChanges, BU_BOOL bSaveCfg, BU_BOOL bUpdate);

/// The running value of an instance that exists.
BU_S32 value(Row enRow, BU_S32 s32Instance = 0);

/// Back to the factory default, running and stored, of every row of a section; announces each change.
/// @param s32Instance  one pipeline of the section, or -1: all
BU_S32 restore(Section enSection, BU_S32 s32Instance = -1);

/// Reads everything from the store again.
void reload();

/// Grows whenever values come from the store anew, from 1; for those who keep stored texts of their own.
BU_U32 generation();

/// Folder of a section in the store; the storage outlives the call.
const BU_CHAR *sectionName(Section enSection, BU_S32 s32Instance = 0);

/// The rows of the shutter at the present output frame rate.
Row shutterRow();
Row shutterValueRow();

/// Tells the listeners of a value, e.g. of one that is derived from several settings.
void announce(const BU_CHAR *pcKey, BU_S32 s32Instance, BU_S32 s32Value);
} // namespace settings
