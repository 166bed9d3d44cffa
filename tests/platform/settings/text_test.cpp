// Settings as texts: the words of their rows, numbers, free texts; the pipeline by its section.
#include "camera/settingEvent.h"
#include "settingsTest.h"

#include <cstring>
#include <utility>

namespace
{
using namespace std::string_literals;
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
/// Each section with the values that its settings have; least, greatest and default (by its word) of each, and a step
/// that is not 1.
TEST_F(SettingText, RangesAreThese)
{
    const std::string EXPECTED =
        "Image0 2, Sharpness 0 15 6, Brightness 0 14 7, Contrast 0 14 7, Saturation 0 14 7, Gamma 0 4 0, Nr2d 0 5 2"
        ", Nr3d 0 8 3, WdrSwi 0 1 Off, WdrMode 0 5 0, ImageStyle 0 9 Default, MonoChrome 0 1 Off, RColorHue -10 10 0"
        ", YColorHue -10 10 0, GColorHue -10 10 0, CColorHue -10 10 0, BColorHue -10 10 0, MColorHue -10 10 0"
        ", RColorSat 0 100 50, YColorSat 0 100 50, GColorSat 0 100 50, CColorSat 0 100 50, BColorSat 0 100 50"
        ", MColorSat 0 100 50\n"
        "Exposure0 2, ExposureMode 0 4 AutoMode, AEMeterMode 0 5 AVG, AntiFlicker 0 2 Hz50"
        ", BacklightCompensation 0 1 Off, ExposureCompensation 0 1 Off, ExposureCompLevel -7 7 0, Gain 0 27 0"
        ", GainLimit 0 15 10, ExposureBrightness 0 31 15, IrisLevel 0 13 IlF2, AutoIris 0 1 On, ND-Filter 0 3 Flt100"
        ", ShutterMode 0 1 Stardard, ViewFollowExposure 0 1 Off, ShutterSpeedFps60 0 32 5, ShutterSpeedFps50 0 32 4"
        ", ShutterSpeedFps30 0 32 2, ShutterSpeedFps25 0 32 1, ShutterSpeedFps24 0 32 0, ShutterValueFps60 60 10000 60"
        ", ShutterValueFps50 50 10000 50, ShutterValueFps30 30 10000 30, ShutterValueFps25 25 10000 25"
        ", ShutterValueFps24 24 10000 24\n"
        "WhiteBalance0 2, WbMode 0 5 AutoMode, ColorTemp 2800 6500 5600 100, StaticMode 0 2 Custom"
        ", WbSensitivity 0 2 Middle, RGain 0 255 128, GGain 0 255 128, BGain 0 255 128, RStrength 0 255 128"
        ", GStrength 0 255 128, BStrength 0 255 128, Hue 0 14 7, ViewFollowWB 0 1 Off\n"
        "Lens0 1, ZoomSpd 0 7 5, DZoomTime 1 16 X1, DZoom 0 1 Off, FocusAuto 0 1 On, FocusAbs 175 7095 175"
        ", FocusSpd 0 7 4, FocusArea 0 4 Global, FocusModel 0 2 FocusCDAF, FocusDistance 0 4 V1, PtzTrigAf 0 1 On"
        ", FaceAF 0 1 Off, DistortionCorre 0 1 Off\n"
        "PanTilt0 1, PanSpeed 1 24 12, TileSpeed 1 24 12, PanSpeedSuperfine 1 255 128, TileSpeedSuperfine 1 255 128"
        ", PowerUpPtzPos -1 254 PresetHome, SpeedMatch 0 1 On, SpeedAccuracy 1 100 Acc1, SpeedMode 0 1 Standard"
        ", PresetSpeed 1 24 20\n"
        "Track 1, TrackEnabled 0 1 Off, TrackMode 0 5 EverywhereTracking, TrackStrategy 0 1 Binocular"
        ", BinocularStrategy 0 5 EverywhereTracking, MonocularStrategy 0 5 EverywhereTracking, BodySize 0 3 Full"
        ", BodySizeCustom 1 360 180, PeoplePos 0 2 Center, HeadPos 0 2 Normal, TrackSpeed 0 4 Mid, LostTime 0 2 T4"
        ", LostAction -2 254 PresetHome, TrackSensitivity 0 2 Mid, StartPos -2 254 -1, Gesture 0 1 Off"
        ", TrackDebug 0 1 Off, AutoZoom 0 1 On, AutoTilt 0 1 On, AutoPan 0 1 On, TallyIndicator 0 1 On\n"
        "System 1, Mirror 0 1 Off, Flip 0 1 Off, MountMode 0 1 Stand, ImageFreeze 0 1 Off, SensorCrop 0 1 Off"
        ", Prompt 0 1 On, HdrSwi 0 1 Off, PresetMode 0 1 Off, AtemTally 0 1 Off, Language 0 1 English"
        ", NtpEnable 0 1 Off, DevUSB 0 1 Device, EinkMode 250 255 On\n"
        "Video 1, Format 0 3 Format-1080P, Fps 0 7 Fps60, HdmiCs 0 3 YUV422, SdiFormat 0 3 Format-1080P"
        ", SdiFps 0 7 Fps60, SdiCs 0 3 YUV422, HdmiOutput 0 1 CloseUp, PanoramaSdi 0 1 Off, ScreenSaver 0 2 0"
        ", StreamToNet 0 1 On, PipEnable 0 1 Off, PipMainVideo 0 2 CloseUp, PipSubVideo 0 2 1, PipDefaultVideo 0 2 0"
        ", PipPos 0 3 BottomRight, PipSize 0 2 Middle\n"
        "Audio 1, AudioMute 0 1 Off, AudioInput 0 2 LineIn, AudioVolume 0 100 50\n"
        "Control 1, IrSwitch 0 1 On, IrAddr 1 4 1, IrAddrCtrl 0 1 Off, COM-Mode 0 1 RS232, RS232ProtocolType 0 3 0"
        ", RS422ProtocolType 0 3 0, RS232Baudrate 0 3 N9600, RS422Baudrate 0 3 N9600, PelcoPAddr 1 32 1"
        ", PelcoDAddr 1 255 1\n"
        "Lamp 1, TallyOnBoard 0 1 On, TallyMode 0 7 Close, TallyCustomColor 0 16777215 16744448\n";
    std::string strAll, strSection;
    for (const auto &st : CFG_SETTING_List()) {
        const CFG_VALUE_INT_S stRange = rangeOf(st.pcKey);
        CFG_VALUE_TXT_S stText{};
        CFG_COM_GetTxtParams(st.pcKey, &stText);
        if (std::exchange(strSection, st.pcSection) != st.pcSection)
            strAll += (strAll.empty() ? "" : "\n") + strSection + ' ' + std::to_string(st.s32Pipes);
        strAll += ", "s + st.pcKey + ' ' + std::to_string(stRange.s32Min) + ' ' + std::to_string(stRange.s32Max);
        strAll += " "s + stText.acDef;
        if (stRange.s32Step != 1) strAll += ' ' + std::to_string(stRange.s32Step);
    }
    EXPECT_EQ(strAll + '\n', EXPECTED);
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
