#include "support/platformTest.h"
#include "vocabulary/wordSetters.h"

#include <climits>
#include <set>
#include <span>
#include <string>

using testing::ElementsAre;

namespace
{
struct tagTABLE_S {
    const char *pcName;
    std::span<const STR2ENUM_MAP_S> rows;
};
#define TABLE(name)                                                                                                    \
    tagTABLE_S { #name, name }
const tagTABLE_S TABLES[] = {TABLE(MAP_SWITCH),
                             TABLE(MAP_MOUNT_MODE),
                             TABLE(MAP_HDMI_OUTPUT),
                             TABLE(MAP_AUDIO_INPUT),
                             TABLE(MAP_AUDIO_BITRATE),
                             TABLE(MAP_PT_REVERSE),
                             TABLE(MAP_HDMI_FORMAT),
                             TABLE(MAP_HDMI_FPS),
                             TABLE(MAP_HDMI_CS),
                             TABLE(MAP_LENS),
                             TABLE(MAP_SYSTEM_DATEFORMAT),
                             TABLE(MAP_SYSTEM_DATE_SETTING_TYPE),
                             TABLE(MAP_SERIAL_TYPE),
                             TABLE(MAP_PROTOCOL_TYPE),
                             TABLE(MAP_BAUDRATE),
                             TABLE(MAP_USB),
                             TABLE(MAP_EINK),
                             TABLE(MAP_PIP_MAIN_VIDEO),
                             TABLE(MAP_PIP_POS),
                             TABLE(MAP_PIP_SIZE),
                             TABLE(MAP_SYS_LANGUAGE),
                             TABLE(MAP_TRACK_MODE),
                             TABLE(MAP_LOST_ACTION),
                             TABLE(MAP_TARGET_LOST_TIMEOUT),
                             TABLE(MAP_TRACK_SENSITIVITY),
                             TABLE(MAP_TRACK_SPEED),
                             TABLE(MAP_BODY_SIZE),
                             TABLE(MAP_PEOPLE_POS),
                             TABLE(MAP_HEAD_POS),
                             TABLE(MAP_TRACK_STRATEGY),
                             TABLE(MAP_ANTI_FLICKER),
                             TABLE(MAP_SHUTTER_MODE),
                             TABLE(MAP_SHUTTER_TIME),
                             TABLE(MAP_IRIS_LEVEL),
                             TABLE(MAP_AE_MODE),
                             TABLE(MAP_AE_METER_MODE),
                             TABLE(MAP_AWB_SENSITIVITY),
                             TABLE(MAP_WB_MODE),
                             TABLE(MAP_RUN_SCENE),
                             TABLE(MAP_ND_FILTER),
                             TABLE(MAP_STATIC_WB),
                             TABLE(MAP_ISP_BIN_USAGE),
                             TABLE(MAP_MATARIX_SATURATION),
                             TABLE(MAP_MATARIX_HUE),
                             TABLE(MAP_FOCUS_AREA),
                             TABLE(MAP_FOCUS_MODE),
                             TABLE(MAP_FOCUS_RANGE),
                             TABLE(MAP_DZOOM_TIME),
                             TABLE(MAP_PTZ_POS),
                             TABLE(MAP_PT_SPEED_ACCURACY),
                             TABLE(MAP_PT_SPEED_MODE),
                             TABLE(MAP_LED_TALLY_MODE_E)};
#undef TABLE
} // namespace

// A word or a value that stands twice would make one row unreachable in one direction.
TEST(Vocabulary, EveryWordAndValueOfATableLeadsToTheOther)
{
    for (const auto &[pcName, rows] : TABLES)
        for (const auto &row : rows) {
            EXPECT_EQ(sysStr2Enum(rows.data(), rows.size(), row.text), row.value) << pcName << " " << row.text;
            EXPECT_STREQ(sysEnum2Str(rows.data(), rows.size(), row.value), row.text) << pcName << " " << row.value;
        }
}

TEST(Vocabulary, WordsMatchExactlyAndStrangersAreToldApart)
{
    for (const auto &[pcName, rows] : TABLES) {
        for (const auto &row : rows) {
            const std::string strWord = row.text;
            std::string strOtherCase = strWord;
            for (char &c : strOtherCase) c = islower(c) ? toupper(c) : tolower(c);
            for (const std::string &strWrong : {strOtherCase, strWord + " ", strWord.substr(1)})
                EXPECT_EQ(sysStr2Enum(rows.data(), rows.size(), strWrong.c_str()), INT_MIN) << pcName << strWrong;
        }
        EXPECT_EQ(sysStr2Enum(rows.data(), rows.size(), nullptr), INT_MIN) << pcName;
        EXPECT_STREQ(sysEnum2Str(rows.data(), rows.size(), 12345), "") << pcName;
    }
}

TEST(Vocabulary, NumberedWordsCarryTheirNumber)
{
    BU_S32 s32Slower = 0;
    for (BU_S32 i = 0; i < SHUTTER_TIME_BUTT; ++i) {
        const BU_S32 s32Denominator = std::stoi(std::string(MAP_SHUTTER_TIME[i].text).substr(2));
        EXPECT_EQ(MAP_SHUTTER_TIME[i].value, i);
        EXPECT_GT(s32Denominator, s32Slower);
        s32Slower = s32Denominator;
    }
    EXPECT_EQ(ispShutterStr2Enum("Ss24"), 0);
    EXPECT_EQ(ispShutterStr2Enum("Ss215"), 14);
    EXPECT_EQ(ispShutterStr2Enum("Ss1000"), 22);
    EXPECT_EQ(ispShutterStr2Enum("Ss10000"), 32);
    ASSERT_EQ(std::size(MAP_DZOOM_TIME), 17u);
    for (BU_S32 i = 0; i <= 16; ++i) EXPECT_EQ(ptzDZoomTimeStr2Enum(("X" + std::to_string(i)).c_str()), i);
    for (BU_S32 i = 0; i <= 9; ++i) EXPECT_EQ(ptzPtzPosStr2Enum(("Preset" + std::to_string(i)).c_str()), i);
}

TEST(Vocabulary, ValueToWordHelpersReadTheirOwnTable)
{
    EXPECT_STREQ(sysSwitchEnum2Str(1), "On");
    EXPECT_STREQ(ispAntiFlickerEnum2Str(1), "Hz60");
    EXPECT_STREQ(ispIrisEnum2Str(13), "IlF1P6");
    EXPECT_STREQ(ispAeModeEnum2Str(4), "ManualMode");
    EXPECT_STREQ(ispWbModeEnum2Str(5), "OnePushWb");
    EXPECT_STREQ(ispAeModeEnum2Str(5), "");
}

namespace
{
/// A call of a word setter and the value call it must become. The words are chosen so that another table would give
/// another value or none.
struct tagWORD_SETTER_S {
    BU_S32 (*pfnCall)(const char *pcWord);
    const char *pcWord, *pcEffect;
};
#define DEV(fn, word, value)                                                                                           \
    {                                                                                                                  \
        [](const char *pc) { return fn(0, pc, BU_TRUE, BU_FALSE); }, word, #fn "(0, " #value ", 1, 0)"                 \
    }
#define CAM(fn, word, value)                                                                                           \
    {                                                                                                                  \
        [](const char *pc) { return fn(pc, BU_FALSE, BU_TRUE); }, word, #fn "(" #value ", 0, 1)"                       \
    }
const tagWORD_SETTER_S WORD_SETTERS[] = {
    DEV(ISP_API_SetAeMode, "ManualMode", 4),
    DEV(ISP_API_SetShutter, "Ss10000", 32),
    DEV(ISP_API_SetShutterMode, "Stardard", 1),
    DEV(ISP_API_SetIrisLevel, "IlF1P6", 13),
    DEV(ISP_API_SetAeMeterMode, "RIGHT", 5),
    DEV(ISP_API_SetAntiFlicker, "Off", 2),
    DEV(ISP_API_SetWbMode, "OnePushWb", 5),
    DEV(ISP_API_SetStaticMode, "InDoor", 1),
    DEV(ISP_API_SetAwbSensitivity, "Middle", 1),
    DEV(ISP_API_SetNDFilter, "Flt1p6", 3),
    DEV(ISP_API_SetIspBinUsage, "Soft", 7),
    DEV(ISP_API_SetBackLight, "On", 1),
    DEV(ISP_API_SetDrcSwi, "On", 1),
    DEV(ISP_API_SetExpCompSwi, "Off", 0),
    DEV(ISP_API_SetMonoChromeSwi, "On", 1),
    DEV(ISP_API_SetOnePushAwb, "Off", 0),
    DEV(ISP_API_SetExposureFullViewFollow, "On", 1),
    DEV(ISP_API_SetWhiteBalanceFullViewFollow, "On", 1),
    DEV(ISP_API_SetAutoIrisSwi, "Off", 0),
    DEV(PT_API_SetPtSpeedMatch, "On", 1),
    DEV(PT_API_SetPowerUpPtzPos, "PresetHome", -1),
    {[](const char *pc) { return PT_API_SetSpeedAccuracy(0, pc, BU_TRUE); }, "Acc100",
     "PT_API_SetSpeedAccuracy(0, 100, 1)"},
    DEV(PTZ_API_SetMaxDZoomTime, "X16", 16),
    DEV(PTZ_API_SetDZoomMode, "On", 1),
    DEV(AF_API_SetFocusRange, "V5", 4),
    DEV(AF_API_SetFocusArea, "Future", 4),
    DEV(AF_API_SetPtzTrigAf, "On", 1),
    DEV(AF_API_SetFocusModel, "FocusPDAF", 1),
    DEV(AF_API_SetFaceAF, "On", 1),
    CAM(AF_API_SetDistortionCorrection, "On", 1),
    CAM(SYS_API_SetMirror, "On", 1),
    CAM(SYS_API_SetFlip, "On", 1),
    CAM(SYS_API_SetPrompt, "Off", 0),
    CAM(SYS_API_SetSensorCrop, "On", 1),
    CAM(SYS_API_SetImageFreeze, "On", 1),
    CAM(ALG_API_SetEnable, "On", 1),
    CAM(SYS_API_SetMountMode, "Stand", 1),
    {[](const char *pc) { return USB_API_SetMode(pc, BU_TRUE); }, "Device", "USB_API_SetMode(1, 1)"},
    CAM(ALG_API_SetTrackMode, "SingleTracking", 4),
    CAM(ALG_API_SetTrackStrategyBinocular, "AutoFraming", 3),
    CAM(ALG_API_SetTrackStrategyMonocular, "ZoneTracking", 2),
    CAM(ALG_API_SetTrackStrategy, "Monocular", 1),
};
#undef DEV
#undef CAM

class WordSetters : public PlatformTest
{
};
} // namespace

TEST_F(WordSetters, BecomeTheValueCallAndPassItsResultOn)
{
    for (const auto &[pfnCall, pcWord, pcEffect] : WORD_SETTERS) {
        const std::string strEffect = pcEffect;
        journal::inject(strEffect.substr(0, strEffect.find('(')).c_str(), 42);
        EXPECT_EQ(pfnCall(pcWord), 42) << pcEffect;
        EXPECT_THAT(journal::effects(), ElementsAre(strEffect));
    }
}

TEST_F(WordSetters, AnUnknownWordIsRefused)
{
    for (const auto &[pfnCall, pcWord, pcEffect] : WORD_SETTERS) {
        EXPECT_NE(pfnCall("on"), 0) << pcEffect;
        EXPECT_NE(pfnCall(nullptr), 0) << pcEffect;
    }
}

// The number 0 must mean the value, never a missing word.
TEST_F(WordSetters, ALiteralZeroIsAValue)
{
    EXPECT_EQ(ISP_API_SetDrcSwi(0, 0, BU_TRUE, BU_TRUE), 0);
    EXPECT_EQ(SYS_API_SetMountMode(0, BU_TRUE, BU_TRUE), 0);
    EXPECT_EQ(AF_API_SetFocusArea(0, 0, BU_TRUE, BU_TRUE), 0);
}
