/// The words of settings and their values, one table a setting, in the order in which they are listed to a user.
///
/// Every channel (menu, web page, protocols) names a setting's choices by these words. Words are case-sensitive and
/// distinct within a table; the same word may stand for another value in another table, so a word is always looked up
/// in the table of its setting.
#pragma once

#include "base/types.h"
#include "util/words.h"

inline constexpr STR2ENUM_MAP_S MAP_SWITCH[] = {{"Off", 0}, {"On", 1}};
inline constexpr STR2ENUM_MAP_S MAP_MOUNT_MODE[] = {{"Ceiling", 0}, {"Stand", 1}};
inline constexpr STR2ENUM_MAP_S MAP_HDMI_OUTPUT[] = {{"CloseUp", 0}, {"Panorama", 1}};
inline constexpr STR2ENUM_MAP_S MAP_AUDIO_INPUT[] = {{"MicIn", 1}, {"MicIn48V", 2}, {"LineIn", 0}};
/// Values in bits per second.
inline constexpr STR2ENUM_MAP_S MAP_AUDIO_BITRATE[] = {
    {"A48Kbps", 48000}, {"A64Kbps", 64000}, {"A96Kbps", 96000}, {"A128Kbps", 128000}};
inline constexpr STR2ENUM_MAP_S MAP_PT_REVERSE[] = {{"Off", 0}, {"Pan", 1}, {"Tilt", 2}, {"PanTilt", 3}};
inline constexpr STR2ENUM_MAP_S MAP_HDMI_FORMAT[] = {{"Format-4K", HDMI_FORMAT_E_4K},
                                                     {"Format-1080P", HDMI_FORMAT_E_1080P},
                                                     {"Format-1080I", HDMI_FORMAT_E_1080I},
                                                     {"Format-720P", HDMI_FORMAT_E_720P}};
inline constexpr STR2ENUM_MAP_S MAP_HDMI_FPS[] = {{"Fps60", HDMI_FPS_E_FPS60},       {"Fps59p94", HDMI_FPS_E_FPS59P94},
                                                  {"Fps50", HDMI_FPS_E_FPS50},       {"Fps30", HDMI_FPS_E_FPS30},
                                                  {"Fps29p97", HDMI_FPS_E_FPS29P97}, {"Fps25", HDMI_FPS_E_FPS25},
                                                  {"Fps24", HDMI_FPS_E_FPS24},       {"Fps23p98", HDMI_FPS_E_FPS23P98}};
inline constexpr STR2ENUM_MAP_S MAP_HDMI_CS[] = {
    {"RGB", HDMI_CS_E_RGB}, {"YUV444", HDMI_CS_E_YUV444}, {"YUV422", HDMI_CS_E_YUV422}, {"YUV420", HDMI_CS_E_YUV420}};
inline constexpr STR2ENUM_MAP_S MAP_LENS[] = {{"CloseUp", 0}, {"Panorama", 1}};
inline constexpr STR2ENUM_MAP_S MAP_SYSTEM_DATEFORMAT[] = {{"YearHead", 0}, {"MonthHead", 1}, {"DayHead", 2}};
inline constexpr STR2ENUM_MAP_S MAP_SYSTEM_DATE_SETTING_TYPE[] = {
    {"SyncComputer", 0}, {"ManualSetting", 1}, {"SyncNtp", 2}};
inline constexpr STR2ENUM_MAP_S MAP_SERIAL_TYPE[] = {{"RS232", 0}, {"RS422", 1}};
inline constexpr STR2ENUM_MAP_S MAP_PROTOCOL_TYPE[] = {{"Visca", 0}, {"PelcoP", 1}, {"PelcoD", 2}, {"Freed", 3}};
inline constexpr STR2ENUM_MAP_S MAP_BAUDRATE[] = {{"N2400", 0}, {"N4800", 1}, {"N9600", 2}, {"N38400", 3}};
inline constexpr STR2ENUM_MAP_S MAP_USB[] = {{"Device", 1}, {"Host", 0}};
inline constexpr STR2ENUM_MAP_S MAP_EINK[] = {{"Off", 255}, {"On", 251}, {"Rotate", 250}};
inline constexpr STR2ENUM_MAP_S MAP_PIP_MAIN_VIDEO[] = {{"CloseUp", 0}, {"Panorama", 1}};
inline constexpr STR2ENUM_MAP_S MAP_PIP_POS[] = {
    {"TopLeft", 0}, {"TopRight", 1}, {"BottomLeft", 2}, {"BottomRight", 3}};
inline constexpr STR2ENUM_MAP_S MAP_PIP_SIZE[] = {{"Large", 0}, {"Middle", 1}, {"Small", 2}};
inline constexpr STR2ENUM_MAP_S MAP_SYS_LANGUAGE[] = {{"Chinese", 0}, {"English", 1}};

inline constexpr STR2ENUM_MAP_S MAP_TRACK_MODE[] = {{"EverywhereTracking", 0}, {"ZoneTracking", 2},
                                                    {"StageTracking", 1},      {"AutoFraming", 3},
                                                    {"SingleTracking", 4},     {"EverythingTracking", 5}};
inline constexpr STR2ENUM_MAP_S MAP_LOST_ACTION[] = {{"PresetHome", -1}, {"Preset0", 0}, {"Preset1", 1}, {"None", -2}};
inline constexpr STR2ENUM_MAP_S MAP_TARGET_LOST_TIMEOUT[] = {{"T2", 0}, {"T4", 1}, {"T6", 2}};
inline constexpr STR2ENUM_MAP_S MAP_TRACK_SENSITIVITY[] = {{"Low", 0}, {"Mid", 1}, {"High", 2}};
inline constexpr STR2ENUM_MAP_S MAP_TRACK_SPEED[] = {{"Low", 0}, {"Mid", 1}, {"High", 2}, {"Smooth", 3}, {"Fast", 4}};
inline constexpr STR2ENUM_MAP_S MAP_BODY_SIZE[] = {{"Full", 0}, {"HalfBody", 1}, {"CloseUpSize", 2}, {"Customized", 3}};
inline constexpr STR2ENUM_MAP_S MAP_PEOPLE_POS[] = {{"Left", 2}, {"Right", 1}, {"Center", 0}};
inline constexpr STR2ENUM_MAP_S MAP_HEAD_POS[] = {{"Upward", 0}, {"Normal", 1}, {"Lower", 2}};
inline constexpr STR2ENUM_MAP_S MAP_TRACK_STRATEGY[] = {{"Binocular", 0}, {"Monocular", 1}};

inline constexpr STR2ENUM_MAP_S MAP_ANTI_FLICKER[] = {{"Hz50", 0}, {"Hz60", 1}, {"Off", 2}};
inline constexpr STR2ENUM_MAP_S MAP_SHUTTER_MODE[] = {{"Stardard", 1}, {"Flex", 0}};
/// The number in a word is the denominator of the exposure time.
// clang-format off
inline constexpr STR2ENUM_MAP_S MAP_SHUTTER_TIME[] = {
    {"Ss24", SHUTTER_TIME_24},     {"Ss25", SHUTTER_TIME_25},     {"Ss30", SHUTTER_TIME_30},
    {"Ss48", SHUTTER_TIME_48},     {"Ss50", SHUTTER_TIME_50},     {"Ss60", SHUTTER_TIME_60},
    {"Ss75", SHUTTER_TIME_75},     {"Ss90", SHUTTER_TIME_90},     {"Ss96", SHUTTER_TIME_96},
    {"Ss100", SHUTTER_TIME_100},   {"Ss120", SHUTTER_TIME_120},   {"Ss125", SHUTTER_TIME_125},
    {"Ss150", SHUTTER_TIME_150},   {"Ss180", SHUTTER_TIME_180},   {"Ss215", SHUTTER_TIME_215},
    {"Ss250", SHUTTER_TIME_250},   {"Ss300", SHUTTER_TIME_300},   {"Ss350", SHUTTER_TIME_350},
    {"Ss425", SHUTTER_TIME_425},   {"Ss500", SHUTTER_TIME_500},   {"Ss600", SHUTTER_TIME_600},
    {"Ss725", SHUTTER_TIME_725},   {"Ss1000", SHUTTER_TIME_1000}, {"Ss1250", SHUTTER_TIME_1250},
    {"Ss1500", SHUTTER_TIME_1500}, {"Ss1750", SHUTTER_TIME_1750}, {"Ss2000", SHUTTER_TIME_2000},
    {"Ss2500", SHUTTER_TIME_2500}, {"Ss3000", SHUTTER_TIME_3000}, {"Ss3500", SHUTTER_TIME_3500},
    {"Ss4000", SHUTTER_TIME_4000}, {"Ss6000", SHUTTER_TIME_6000}, {"Ss10000", SHUTTER_TIME_10000}};
// clang-format on
static_assert(sizeof(MAP_SHUTTER_TIME) / sizeof(MAP_SHUTTER_TIME[0]) == SHUTTER_TIME_BUTT);
inline constexpr STR2ENUM_MAP_S MAP_IRIS_LEVEL[] = {
    {"Close", 0},  {"IlF14", 1}, {"IlF11", 2},  {"IlF9P6", 3},  {"IlF8", 4},    {"IlF6P8", 5}, {"IlF5P6", 6},
    {"IlF4P8", 7}, {"IlF4", 8},  {"IlF3P4", 9}, {"IlF2P8", 10}, {"IlF2P4", 11}, {"IlF2", 12},  {"IlF1P6", 13}};
inline constexpr STR2ENUM_MAP_S MAP_AE_MODE[] = {
    {"AutoMode", 0}, {"ManualMode", 4}, {"BrightFirst", 1}, {"ShutterFirst", 2}, {"IrisFirst", 3}};
inline constexpr STR2ENUM_MAP_S MAP_AE_METER_MODE[] = {{"AVG", 0},    {"CENTER", 1}, {"TOP", 2},
                                                       {"BOTTOM", 3}, {"LEFT", 4},   {"RIGHT", 5}};
inline constexpr STR2ENUM_MAP_S MAP_AWB_SENSITIVITY[] = {{"Low", 0}, {"Middle", 1}, {"High", 2}};
inline constexpr STR2ENUM_MAP_S MAP_WB_MODE[] = {{"AutoMode", 0}, {"ManualMode", 1}, {"InDoor", 2},
                                                 {"OutDoor", 3},  {"StaticWb", 4},   {"OnePushWb", 5}};
inline constexpr STR2ENUM_MAP_S MAP_RUN_SCENE[] = {{"Indoor", 0}};
/// The number in a word is the share of light that passes, in percent.
inline constexpr STR2ENUM_MAP_S MAP_ND_FILTER[] = {{"Flt100", 0}, {"Flt25", 1}, {"Flt6p3", 2}, {"Flt1p6", 3}};
inline constexpr STR2ENUM_MAP_S MAP_STATIC_WB[] = {{"Custom", 0}, {"InDoor", 1}, {"OutDoor", 2}};
inline constexpr STR2ENUM_MAP_S MAP_ISP_BIN_USAGE[] = {{"Default", 0}, {"Bright", 6}, {"Soft", 7}};
inline constexpr STR2ENUM_MAP_S MAP_MATARIX_SATURATION[] = {{"RColorSat", 1}, {"YColorSat", 2}, {"GColorSat", 3},
                                                            {"CColorSat", 4}, {"BColorSat", 5}, {"MColorSat", 6}};
inline constexpr STR2ENUM_MAP_S MAP_MATARIX_HUE[] = {{"RColorHue", 1}, {"YColorHue", 2}, {"GColorHue", 3},
                                                     {"CColorHue", 4}, {"BColorHue", 5}, {"MColorHue", 6}};

inline constexpr STR2ENUM_MAP_S MAP_FOCUS_AREA[] = {
    {"Global", 0}, {"Center", 1}, {"Upper", 2}, {"Down", 3}, {"Future", 4}};
inline constexpr STR2ENUM_MAP_S MAP_FOCUS_MODE[] = {{"FocusCDAF", 0}, {"FocusPDAF", 1}, {"FocusTOF", 2}};
inline constexpr STR2ENUM_MAP_S MAP_FOCUS_RANGE[] = {{"V1", 0}, {"V2", 1}, {"V3", 2}, {"V4", 3}, {"V5", 4}};
/// Largest digital magnification.
inline constexpr STR2ENUM_MAP_S MAP_DZOOM_TIME[] = {
    {"X0", 0}, {"X1", 1},   {"X2", 2},   {"X3", 3},   {"X4", 4},   {"X5", 5},   {"X6", 6},   {"X7", 7},  {"X8", 8},
    {"X9", 9}, {"X10", 10}, {"X11", 11}, {"X12", 12}, {"X13", 13}, {"X14", 14}, {"X15", 15}, {"X16", 16}};
inline constexpr STR2ENUM_MAP_S MAP_PTZ_POS[] = {{"PresetHome", -1}, {"Preset0", 0}, {"Preset1", 1}, {"Preset2", 2},
                                                 {"Preset3", 3},     {"Preset4", 4}, {"Preset5", 5}, {"Preset6", 6},
                                                 {"Preset7", 7},     {"Preset8", 8}, {"Preset9", 9}};
inline constexpr STR2ENUM_MAP_S MAP_PT_SPEED_ACCURACY[] = {{"Acc1", 1}, {"Acc10", 10}, {"Acc100", 100}};
inline constexpr STR2ENUM_MAP_S MAP_PT_SPEED_MODE[] = {{"Standard", 0}, {"Superfine", 1}};

inline constexpr STR2ENUM_MAP_S MAP_LED_TALLY_MODE_E[] = {{"Close", 0}, {"White", 1},  {"Red", 2},      {"Green", 3},
                                                          {"Blue", 4},  {"Custom", 6}, {"RGBCircle", 7}};
