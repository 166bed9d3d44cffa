/// Look-ups of words in the tables of their settings.
///
/// Word to value: a word that is in no row gives INT32_MIN, a value that every setter refuses.
/// Value to word: a value that is in no row gives "". The text is static. Thread: any.
#pragma once

#include "vocabulary/tables.h"

#include <iterator>

namespace vocabulary
{
template <const auto &astTable> BU_S32 valueOf(const BU_CHAR *pcWord)
{
    return sysStr2Enum(astTable, std::size(astTable), pcWord);
}
template <const auto &astTable> const BU_CHAR *wordOf(BU_S32 s32Value)
{
    return sysEnum2Str(astTable, std::size(astTable), s32Value);
}
} // namespace vocabulary

// clang-format off
inline BU_S32 sysSwitchStr2Enum(const BU_CHAR *pcWord)          { return vocabulary::valueOf<MAP_SWITCH>(pcWord); }
/// 1 for "Stand", 0 for "Ceiling".
inline BU_S32 sysMountModeIsStrStand(const BU_CHAR *pcWord)     { return vocabulary::valueOf<MAP_MOUNT_MODE>(pcWord); }
inline BU_S32 sysUsbModeStr2Enum(const BU_CHAR *pcWord)         { return vocabulary::valueOf<MAP_USB>(pcWord); }
inline BU_S32 ispAeModeStr2Enum(const BU_CHAR *pcWord)          { return vocabulary::valueOf<MAP_AE_MODE>(pcWord); }
inline BU_S32 ispAntiFlickerStr2Enum(const BU_CHAR *pcWord)     { return vocabulary::valueOf<MAP_ANTI_FLICKER>(pcWord); }
inline BU_S32 ispShutterStr2Enum(const BU_CHAR *pcWord)         { return vocabulary::valueOf<MAP_SHUTTER_TIME>(pcWord); }
inline BU_S32 ispIrisStr2Enum(const BU_CHAR *pcWord)            { return vocabulary::valueOf<MAP_IRIS_LEVEL>(pcWord); }
inline BU_S32 ispAeMeterModeStr2Enum(const BU_CHAR *pcWord)     { return vocabulary::valueOf<MAP_AE_METER_MODE>(pcWord); }
inline BU_S32 ispAwbSensitivityStr2Enum(const BU_CHAR *pcWord)  { return vocabulary::valueOf<MAP_AWB_SENSITIVITY>(pcWord); }
inline BU_S32 ispWbModeStr2Enum(const BU_CHAR *pcWord)          { return vocabulary::valueOf<MAP_WB_MODE>(pcWord); }
inline BU_S32 ispNdFilterStr2Enum(const BU_CHAR *pcWord)        { return vocabulary::valueOf<MAP_ND_FILTER>(pcWord); }
inline BU_S32 ispBinUsageStr2Enum(const BU_CHAR *pcWord)        { return vocabulary::valueOf<MAP_ISP_BIN_USAGE>(pcWord); }
inline BU_S32 ispStaticWBStr2Enum(const BU_CHAR *pcWord)        { return vocabulary::valueOf<MAP_STATIC_WB>(pcWord); }
inline BU_S32 ispShutterModeStr2Enum(const BU_CHAR *pcWord)     { return vocabulary::valueOf<MAP_SHUTTER_MODE>(pcWord); }
inline BU_S32 ptzPtzPosStr2Enum(const BU_CHAR *pcWord)          { return vocabulary::valueOf<MAP_PTZ_POS>(pcWord); }
inline BU_S32 ptzSpeedAccuracyStr2Enum(const BU_CHAR *pcWord)   { return vocabulary::valueOf<MAP_PT_SPEED_ACCURACY>(pcWord); }
inline BU_S32 ptzDZoomTimeStr2Enum(const BU_CHAR *pcWord)       { return vocabulary::valueOf<MAP_DZOOM_TIME>(pcWord); }
inline BU_S32 ptzFocusAreaStr2Enum(const BU_CHAR *pcWord)       { return vocabulary::valueOf<MAP_FOCUS_AREA>(pcWord); }
inline BU_S32 ptzFocusModeStr2Enum(const BU_CHAR *pcWord)       { return vocabulary::valueOf<MAP_FOCUS_MODE>(pcWord); }
inline BU_S32 ptzFocusRangeStr2Enum(const BU_CHAR *pcWord)      { return vocabulary::valueOf<MAP_FOCUS_RANGE>(pcWord); }
inline BU_S32 algTrackeModeStr2Enum(const BU_CHAR *pcWord)      { return vocabulary::valueOf<MAP_TRACK_MODE>(pcWord); }
inline BU_S32 algTrackeStrategyStr2Enum(const BU_CHAR *pcWord)  { return vocabulary::valueOf<MAP_TRACK_STRATEGY>(pcWord); }

inline const BU_CHAR *sysSwitchEnum2Str(BU_S32 s32Value)        { return vocabulary::wordOf<MAP_SWITCH>(s32Value); }
inline const BU_CHAR *ispAntiFlickerEnum2Str(BU_S32 s32Value)   { return vocabulary::wordOf<MAP_ANTI_FLICKER>(s32Value); }
inline const BU_CHAR *ispIrisEnum2Str(BU_S32 s32Value)          { return vocabulary::wordOf<MAP_IRIS_LEVEL>(s32Value); }
inline const BU_CHAR *ispAeModeEnum2Str(BU_S32 s32Value)        { return vocabulary::wordOf<MAP_AE_MODE>(s32Value); }
inline const BU_CHAR *ispWbModeEnum2Str(BU_S32 s32Value)        { return vocabulary::wordOf<MAP_WB_MODE>(s32Value); }
// clang-format on
