// The words of settings: every word with its value, the look-ups, and the setters that take a word.
#include "support/platformTest.h"
#include "vocabulary/wordSetters.h"

#include <climits>
#include <span>
#include <string>

namespace
{
// clang-format off
#define WORDS(table, words) {#table, table, words}
/// The words of a table in its order, each with its value.
const struct { const char *pcName; std::span<const STR2ENUM_MAP_S> rows; const char *pcWords; } TABLES[] = {
    WORDS(MAP_SWITCH, "Off 0, On 1"), WORDS(MAP_MOUNT_MODE, "Ceiling 0, Stand 1"), WORDS(MAP_HDMI_OUTPUT, "CloseUp 0, Panorama 1"),
    WORDS(MAP_AUDIO_INPUT, "MicIn 1, MicIn48V 2, LineIn 0"), WORDS(MAP_AUDIO_BITRATE, "A48Kbps 48000, A64Kbps 64000, A96Kbps 96000, A128Kbps 128000"),
    WORDS(MAP_PT_REVERSE, "Off 0, Pan 1, Tilt 2, PanTilt 3"), WORDS(MAP_HDMI_FORMAT, "Format-4K 0, Format-1080P 1, Format-1080I 2, Format-720P 3"),
    WORDS(MAP_HDMI_FPS, "Fps60 0, Fps59p94 1, Fps50 2, Fps30 3, Fps29p97 4, Fps25 5, Fps24 6, Fps23p98 7"),
    WORDS(MAP_HDMI_CS, "RGB 0, YUV444 2, YUV422 1, YUV420 3"), WORDS(MAP_LENS, "CloseUp 0, Panorama 1"),
    WORDS(MAP_SYSTEM_DATEFORMAT, "YearHead 0, MonthHead 1, DayHead 2"),
    WORDS(MAP_SYSTEM_DATE_SETTING_TYPE, "SyncComputer 0, ManualSetting 1, SyncNtp 2"), WORDS(MAP_SERIAL_TYPE, "RS232 0, RS422 1"),
    WORDS(MAP_PROTOCOL_TYPE, "Visca 0, PelcoP 1, PelcoD 2, Freed 3"), WORDS(MAP_BAUDRATE, "N2400 0, N4800 1, N9600 2, N38400 3"),
    WORDS(MAP_USB, "Device 1, Host 0"), WORDS(MAP_EINK, "Off 255, On 251, Rotate 250"), WORDS(MAP_PIP_MAIN_VIDEO, "CloseUp 0, Panorama 1"),
    WORDS(MAP_PIP_POS, "TopLeft 0, TopRight 1, BottomLeft 2, BottomRight 3"), WORDS(MAP_PIP_SIZE, "Large 0, Middle 1, Small 2"),
    WORDS(MAP_SYS_LANGUAGE, "Chinese 0, English 1"),
    WORDS(MAP_TRACK_MODE, "EverywhereTracking 0, ZoneTracking 2, StageTracking 1, AutoFraming 3, SingleTracking 4, EverythingTracking 5"),
    WORDS(MAP_LOST_ACTION, "PresetHome -1, Preset0 0, Preset1 1, None -2"), WORDS(MAP_TARGET_LOST_TIMEOUT, "T2 0, T4 1, T6 2"),
    WORDS(MAP_TRACK_SENSITIVITY, "Low 0, Mid 1, High 2"), WORDS(MAP_TRACK_SPEED, "Low 0, Mid 1, High 2, Smooth 3, Fast 4"),
    WORDS(MAP_BODY_SIZE, "Full 0, HalfBody 1, CloseUpSize 2, Customized 3"), WORDS(MAP_PEOPLE_POS, "Left 2, Right 1, Center 0"),
    WORDS(MAP_HEAD_POS, "Upward 0, Normal 1, Lower 2"), WORDS(MAP_TRACK_STRATEGY, "Binocular 0, Monocular 1"),
    WORDS(MAP_ANTI_FLICKER, "Hz50 0, Hz60 1, Off 2"), WORDS(MAP_SHUTTER_MODE, "Stardard 1, Flex 0"),
    WORDS(MAP_SHUTTER_TIME, "Ss24 0, Ss25 1, Ss30 2, Ss48 3, Ss50 4, Ss60 5, Ss75 6, Ss90 7, Ss96 8, Ss100 9, Ss120 10, "
                            "Ss125 11, Ss150 12, Ss180 13, Ss215 14, Ss250 15, Ss300 16, Ss350 17, Ss425 18, Ss500 19, Ss600 20, Ss725 21, "
                            "Ss1000 22, Ss1250 23, Ss1500 24, Ss1750 25, Ss2000 26, Ss2500 27, Ss3000 28, Ss3500 29, Ss4000 30, Ss6000 31, Ss10000 32"),
    WORDS(MAP_IRIS_LEVEL, "Close 0, IlF14 1, IlF11 2, IlF9P6 3, IlF8 4, IlF6P8 5, IlF5P6 6, IlF4P8 7, IlF4 8, IlF3P4 9, IlF2P8 10, IlF2P4 11, IlF2 12, IlF1P6 13"),
    WORDS(MAP_AE_MODE, "AutoMode 0, ManualMode 4, BrightFirst 1, ShutterFirst 2, IrisFirst 3"),
    WORDS(MAP_AE_METER_MODE, "AVG 0, CENTER 1, TOP 2, BOTTOM 3, LEFT 4, RIGHT 5"), WORDS(MAP_AWB_SENSITIVITY, "Low 0, Middle 1, High 2"),
    WORDS(MAP_WB_MODE, "AutoMode 0, ManualMode 1, InDoor 2, OutDoor 3, StaticWb 4, OnePushWb 5"), WORDS(MAP_RUN_SCENE, "Indoor 0"),
    WORDS(MAP_ND_FILTER, "Flt100 0, Flt25 1, Flt6p3 2, Flt1p6 3"), WORDS(MAP_STATIC_WB, "Custom 0, InDoor 1, OutDoor 2"),
    WORDS(MAP_ISP_BIN_USAGE, "Default 0, Bright 6, Soft 7"),
    WORDS(MAP_MATARIX_SATURATION, "RColorSat 1, YColorSat 2, GColorSat 3, CColorSat 4, BColorSat 5, MColorSat 6"),
    WORDS(MAP_MATARIX_HUE, "RColorHue 1, YColorHue 2, GColorHue 3, CColorHue 4, BColorHue 5, MColorHue 6"),
    WORDS(MAP_FOCUS_AREA, "Global 0, Center 1, Upper 2, Down 3, Future 4"), WORDS(MAP_FOCUS_MODE, "FocusCDAF 0, FocusPDAF 1, FocusTOF 2"),
    WORDS(MAP_FOCUS_RANGE, "V1 0, V2 1, V3 2, V4 3, V5 4"),
    WORDS(MAP_DZOOM_TIME, "X0 0, X1 1, X2 2, X3 3, X4 4, X5 5, X6 6, X7 7, X8 8, X9 9, X10 10, X11 11, X12 12, X13 13, X14 14, X15 15, X16 16"),
    WORDS(MAP_PTZ_POS, "PresetHome -1, Preset0 0, Preset1 1, Preset2 2, Preset3 3, Preset4 4, Preset5 5, Preset6 6, Preset7 7, Preset8 8, Preset9 9"),
    WORDS(MAP_PT_SPEED_ACCURACY, "Acc1 1, Acc10 10, Acc100 100"), WORDS(MAP_PT_SPEED_MODE, "Standard 0, Superfine 1"),
    WORDS(MAP_LED_TALLY_MODE_E, "Close 0, White 1, Red 2, Green 3, Blue 4, Custom 6, RGBCircle 7"),
};
// clang-format on
#undef WORDS

TEST(Vocabulary, WordsAndTheirValues)
{
    for (const auto &[pcName, rows, pcWords] : TABLES) {
        std::string strWords;
        for (const auto &row : rows)
            strWords += (strWords.empty() ? "" : ", ") + std::string(row.text) + " " + std::to_string(row.value);
        EXPECT_EQ(strWords, pcWords) << pcName;
    }
}

/// Exactly, or not at all.
TEST(Vocabulary, LookUps)
{
    for (const auto &[pcWord, s32Value] :
         {std::pair{"Off", 0}, {"On", 1}, {"on", INT_MIN}, {"On ", INT_MIN}, {"O", INT_MIN}, {"", INT_MIN}})
        EXPECT_EQ(sysSwitchStr2Enum(pcWord), s32Value) << pcWord;
    EXPECT_EQ(sysSwitchStr2Enum(nullptr), INT_MIN);
    EXPECT_STREQ(sysSwitchEnum2Str(1), "On");
    EXPECT_STREQ(ispAntiFlickerEnum2Str(1), "Hz60");
    EXPECT_STREQ(ispIrisEnum2Str(13), "IlF1P6");
    EXPECT_STREQ(ispAeModeEnum2Str(4), "ManualMode");
    EXPECT_STREQ(ispWbModeEnum2Str(5), "OnePushWb");
    EXPECT_STREQ(ispAeModeEnum2Str(5), "");
}

/// A call of a word setter and the value call it must become. The words are chosen so that another table would give
/// another value or none.
struct WordSetter {
    BU_S32 (*pfnCall)(const char *pcWord);
    const char *pcWord, *pcEffect;
};
// clang-format off
#define DEV(fn, word, value) {[](const char *pc) { return fn(0, pc, BU_TRUE, BU_FALSE); }, word, #fn "(0, " #value ", 1, 0)"}
#define CAM(fn, word, value) {[](const char *pc) { return fn(pc, BU_FALSE, BU_TRUE); }, word, #fn "(" #value ", 0, 1)"}
const WordSetter WORD_SETTERS[] = {
    DEV(ISP_API_SetAeMode, "ManualMode", 4), DEV(ISP_API_SetShutter, "Ss10000", 32), DEV(ISP_API_SetShutterMode, "Stardard", 1),
    DEV(ISP_API_SetIrisLevel, "IlF1P6", 13), DEV(ISP_API_SetAeMeterMode, "RIGHT", 5), DEV(ISP_API_SetAntiFlicker, "Off", 2),
    DEV(ISP_API_SetWbMode, "OnePushWb", 5), DEV(ISP_API_SetStaticMode, "InDoor", 1), DEV(ISP_API_SetAwbSensitivity, "Middle", 1),
    DEV(ISP_API_SetNDFilter, "Flt1p6", 3), DEV(ISP_API_SetIspBinUsage, "Soft", 7), DEV(ISP_API_SetBackLight, "On", 1),
    DEV(ISP_API_SetDrcSwi, "On", 1), DEV(ISP_API_SetExpCompSwi, "Off", 0), DEV(ISP_API_SetMonoChromeSwi, "On", 1),
    DEV(ISP_API_SetOnePushAwb, "Off", 0), DEV(ISP_API_SetExposureFullViewFollow, "On", 1), DEV(ISP_API_SetWhiteBalanceFullViewFollow, "On", 1),
    DEV(ISP_API_SetAutoIrisSwi, "Off", 0), DEV(PT_API_SetPtSpeedMatch, "On", 1), DEV(PT_API_SetPowerUpPtzPos, "PresetHome", -1),
    DEV(PTZ_API_SetMaxDZoomTime, "X16", 16), DEV(PTZ_API_SetDZoomMode, "On", 1), DEV(AF_API_SetFocusRange, "V5", 4),
    DEV(AF_API_SetFocusArea, "Future", 4), DEV(AF_API_SetPtzTrigAf, "On", 1), DEV(AF_API_SetFocusModel, "FocusPDAF", 1),
    DEV(AF_API_SetFaceAF, "On", 1), CAM(AF_API_SetDistortionCorrection, "On", 1), CAM(SYS_API_SetMirror, "On", 1), CAM(SYS_API_SetFlip, "On", 1),
    CAM(SYS_API_SetPrompt, "Off", 0), CAM(SYS_API_SetSensorCrop, "On", 1), CAM(SYS_API_SetImageFreeze, "On", 1), CAM(ALG_API_SetEnable, "On", 1),
    CAM(SYS_API_SetMountMode, "Stand", 1), CAM(ALG_API_SetTrackMode, "SingleTracking", 4), CAM(ALG_API_SetTrackStrategyBinocular, "AutoFraming", 3),
    CAM(ALG_API_SetTrackStrategyMonocular, "ZoneTracking", 2), CAM(ALG_API_SetTrackStrategy, "Monocular", 1),
    {[](const char *pc) { return PT_API_SetSpeedAccuracy(0, pc, BU_TRUE); }, "Acc100", "PT_API_SetSpeedAccuracy(0, 100, 1)"},
    {[](const char *pc) { return USB_API_SetMode(pc, BU_TRUE); }, "Device", "USB_API_SetMode(1, 1)"},
};
// clang-format on
#undef DEV
#undef CAM

class WordSetters : public PlatformTest
{
};

TEST_F(WordSetters, BecomeTheValueCallAndPassItsResultOn)
{
    for (const auto &[pfnCall, pcWord, pcEffect] : WORD_SETTERS) {
        const std::string strEffect = pcEffect;
        journal::inject(strEffect.substr(0, strEffect.find('(')).c_str(), 42);
        EXPECT_EQ(pfnCall(pcWord), 42) << pcEffect;
        EXPECT_THAT(journal::effects(), testing::ElementsAre(strEffect));
        EXPECT_NE(pfnCall("on"), 0) << pcEffect;
        EXPECT_NE(pfnCall(nullptr), 0) << pcEffect;
        journal::effects();
    }
}

// The number 0 must mean the value, never a missing word.
TEST_F(WordSetters, ALiteralZeroIsAValue)
{
    EXPECT_EQ(ISP_API_SetDrcSwi(0, 0, BU_TRUE, BU_TRUE), 0);
    EXPECT_EQ(SYS_API_SetMountMode(0, BU_TRUE, BU_TRUE), 0);
    EXPECT_EQ(AF_API_SetFocusArea(0, 0, BU_TRUE, BU_TRUE), 0);
}
} // namespace
