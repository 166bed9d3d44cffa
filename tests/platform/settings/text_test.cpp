// Settings as texts: the words of their rows, numbers, free texts; the pipeline by its section.
#include "camera/settingEvent.h"
#include "settingsTest.h"

#include <cstring>
#include <map>

namespace
{
using SettingText = PlatformTest;

TEST_F(SettingText, WordsNumbersAndFreeTextsGoBothWays)
{
    // clang-format off
    const struct { const char *pcKey, *pcDefault, *pcValue, *pcRefused; } rows[] = {
        {"Format", "Format-1080P", "Format-720P", "Format-8K"}, {"Mirror", "Off", "On", "on"},
        {"AntiFlicker", "Hz50", "Off", "Hz70"}, // "Off" is 2 here, not 0
        {"ColorTemp", "5600", "2800", "2799"}, {"Contrast", "7", "14", "14x"}, // numbers, with their range
        {"LostAction", "PresetHome", "12", "255"}, // words for some, numbers for the others
        {"Ndi", "Off", "On", nullptr}, {"DeviceName", nullptr, "Hall 2", nullptr}}; // free texts take anything
    // clang-format on
    for (const auto &row : rows) {
        CFG_VALUE_TXT_S stValue{};
        ASSERT_EQ(CFG_COM_GetTxtParams(row.pcKey, &stValue), 0) << row.pcKey;
        for (const char *pcNow : {stValue.acDef, stValue.acCur})
            EXPECT_STREQ(pcNow, row.pcDefault ? row.pcDefault : pcNow);
        EXPECT_EQ(CFG_COM_SetTxtParams(row.pcKey, row.pcValue, BU_TRUE), 0) << row.pcKey;
        EXPECT_TRUE(!row.pcRefused || CFG_COM_SetTxtParams(row.pcKey, row.pcRefused, BU_TRUE) == -1) << row.pcKey;
        ASSERT_EQ(CFG_COM_GetTxtParams(row.pcKey, &stValue), 0);
        EXPECT_STREQ(stValue.acCur, row.pcValue);
    }
}

// clang-format off
TEST_F(SettingText, DefaultsAreKnownByTheirWords)
{
    const std::map<std::string, std::string> words = {
        {"ImageStyle", "Default"}, {"ExposureMode", "AutoMode"}, {"AEMeterMode", "AVG"}, {"AntiFlicker", "Hz50"},
        {"IrisLevel", "IlF2"}, {"ND-Filter", "Flt100"}, {"ShutterMode", "Stardard"}, {"WbMode", "AutoMode"},
        {"StaticMode", "Custom"}, {"WbSensitivity", "Middle"}, {"DZoomTime", "X1"}, {"FocusArea", "Global"},
        {"FocusModel", "FocusCDAF"}, {"FocusDistance", "V1"}, {"PowerUpPtzPos", "PresetHome"},
        {"SpeedAccuracy", "Acc1"}, {"SpeedMode", "Standard"}, {"TrackMode", "EverywhereTracking"},
        {"TrackStrategy", "Binocular"}, {"BinocularStrategy", "EverywhereTracking"},
        {"MonocularStrategy", "EverywhereTracking"}, {"BodySize", "Full"}, {"PeoplePos", "Center"},
        {"HeadPos", "Normal"}, {"TrackSpeed", "Mid"}, {"LostTime", "T4"}, {"LostAction", "PresetHome"},
        {"TrackSensitivity", "Mid"}, {"MountMode", "Stand"}, {"Language", "English"}, {"DevUSB", "Device"},
        {"EinkMode", "On"}, {"Format", "Format-1080P"}, {"Fps", "Fps60"}, {"HdmiCs", "YUV422"},
        {"SdiFormat", "Format-1080P"}, {"SdiFps", "Fps60"}, {"SdiCs", "YUV422"}, {"HdmiOutput", "CloseUp"},
        {"PipMainVideo", "CloseUp"}, {"PipPos", "BottomRight"}, {"PipSize", "Middle"}, {"AudioInput", "LineIn"},
        {"COM-Mode", "RS232"}, {"RS232Baudrate", "N9600"}, {"RS422Baudrate", "N9600"}, {"TallyMode", "Close"},
    };
    for (const auto &st : CFG_SETTING_List()) {
        CFG_VALUE_TXT_S stText{};
        const CFG_VALUE_INT_S stRange = rangeOf(st.pcKey);
        CFG_COM_GetTxtParams(st.pcKey, &stText);
        const auto word = words.find(st.pcKey);
        const bool bSwitch = stRange.s32Min == 0 && stRange.s32Max == 1;
        const std::string strElse = bSwitch ? stRange.s32Def ? "On" : "Off" : std::to_string(stRange.s32Def);
        EXPECT_EQ(stText.acDef, word != words.end() ? word->second : strElse) << st.pcKey;
    }
}
// clang-format on

TEST_F(SettingText, TheSectionNamesThePipeline)
{
    char acText[64];
    EXPECT_EQ(CFG_COM_SetTxtParam("Image1", "Contrast", "3", BU_TRUE), 0);
    for (const auto &[pcSection, pcText] : {std::pair("Image1", "3"), {"Image0", "7"}}) {
        ASSERT_EQ(CFG_COM_GetTxtParam(pcSection, "Contrast", acText), 0);
        EXPECT_STREQ(acText, pcText);
    }
    EXPECT_EQ(CFG_COM_GetTxtParam("Lens0", "Contrast", acText), -1);
    EXPECT_EQ(CFG_COM_SetTxtParam("System", "NoSuchKey", "1", BU_TRUE), -1);
    EXPECT_EQ(CFG_COM_SetTxtParam("System", "DeviceName", std::string(64, 'x').c_str(), BU_TRUE), -1);
}
} // namespace
