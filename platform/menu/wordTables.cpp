// Which vocabulary tables a description may name.
#include "wordTables.h"

#include "vocabulary/tables.h"

#include <algorithm>

namespace menu
{
namespace
{
struct WordTable {
    std::string_view strName;
    std::span<const STR2ENUM_MAP_S> words;
};
const WordTable WORD_TABLES[] = {
    {"SWITCH", MAP_SWITCH},
    {"MOUNT_MODE", MAP_MOUNT_MODE},
    {"AUDIO_INPUT", MAP_AUDIO_INPUT},
    {"HDMI_FORMAT", MAP_HDMI_FORMAT},
    {"HDMI_FPS", MAP_HDMI_FPS},
    {"LENS", MAP_LENS},
    {"SERIAL_TYPE", MAP_SERIAL_TYPE},
    {"BAUDRATE", MAP_BAUDRATE},
    {"USB", MAP_USB},
    {"SYS_LANGUAGE", MAP_SYS_LANGUAGE},
    {"TRACK_MODE", MAP_TRACK_MODE},
    {"TRACK_STRATEGY", MAP_TRACK_STRATEGY},
    {"ANTI_FLICKER", MAP_ANTI_FLICKER},
    {"SHUTTER_MODE", MAP_SHUTTER_MODE},
    {"SHUTTER_TIME", MAP_SHUTTER_TIME},
    {"IRIS_LEVEL", MAP_IRIS_LEVEL},
    {"AE_MODE", MAP_AE_MODE},
    {"AE_METER_MODE", MAP_AE_METER_MODE},
    {"AWB_SENSITIVITY", MAP_AWB_SENSITIVITY},
    {"WB_MODE", MAP_WB_MODE},
    {"ND_FILTER", MAP_ND_FILTER},
    {"STATIC_WB", MAP_STATIC_WB},
    {"ISP_BIN_USAGE", MAP_ISP_BIN_USAGE},
    {"FOCUS_AREA", MAP_FOCUS_AREA},
    {"FOCUS_MODE", MAP_FOCUS_MODE},
    {"FOCUS_RANGE", MAP_FOCUS_RANGE},
    {"DZOOM_TIME", MAP_DZOOM_TIME},
    {"PTZ_POS", MAP_PTZ_POS},
    {"PT_SPEED_ACCURACY", MAP_PT_SPEED_ACCURACY},
};
} // namespace

std::span<const STR2ENUM_MAP_S> wordTable(std::string_view name)
{
    const auto *pst = std::ranges::find(WORD_TABLES, name, &WordTable::strName);
    return pst == std::end(WORD_TABLES) ? std::span<const STR2ENUM_MAP_S>() : pst->words;
}
} // namespace menu
