// The two answers that carry many settings at once.
#include "viscaTest.h"

#include "board/lamp.h"
#include "camera/focus.h"
#include "camera/image.h"
#include "camera/menu.h"
#include "camera/system.h"
#include "camera/systemService.h"
#include "camera/tracking.h"

namespace
{
constexpr BU_BOOL STORED = BU_TRUE;

class ViscaReplies : public ViscaTest
{
};
} // namespace

TEST_F(ViscaReplies, SystemStatus)
{
    SYSTEM_API_SetHdmiCfg("Format-1080P", "Fps50", HDMI_CS_E_YUV422, RAM);
    ISP_API_SetWbMode(0, WB_MODE_E_STATIC, RAM, NOW);
    ISP_API_SetRGain(0, 0x12, RAM, NOW);
    ISP_API_SetBGain(0, 0xFE, RAM, NOW);
    AF_API_SetFocusAuto(0, 0, RAM, NOW);
    CMD_MENU_OnlyCloseMenu();
    EXPECT_EQ(answer(VISCA_INQ_E_YM_SYSTEM_STATUS), "0D 08 0B 01 02 0F 0E 03 03 00 00 00");

    // The delivered bits stay; the shown menu adds its own. A format without a number leaves the delivered one.
    CMD_MENU_OnlyOpenMenu();
    AF_API_SetFocusAuto(0, 1, RAM, NOW);
    SYSTEM_API_SetHdmiCfg("Format-1080P", "Fps24", HDMI_CS_E_YUV422, RAM);
    INFO stInfo{};
    stInfo.stSystemStatue.AA = 0x80;
    stInfo.enVideoCtrl = VISCA_MSG_E_VIDEO_1280x720P5994;
    EXPECT_EQ(answer(VISCA_INQ_E_YM_SYSTEM_STATUS, stInfo), "9D 12 0B 01 02 0F 0E 02 03 00 00 00");
    CMD_MENU_OnlyCloseMenu();
}

namespace
{
/// Values that are all different where the answer has room for it, so that two exchanged fields show.
void setEverything()
{
    const std::pair<const char *, BU_S32> SETTINGS[] = {
        // clang-format off
        {"ExposureMode", AE_MODE_E_BRIGHT}, {"GainLimit", 14}, {"Gain", 27}, {"ExposureCompensation", 1}, {"ExposureCompLevel", 5},
        {"IrisLevel", 11}, {"Format", HDMI_FORMAT_E_1080P}, {"Fps", HDMI_FPS_E_FPS50}, {"ShutterSpeedFps50", SHUTTER_TIME_10000},
        {"ExposureBrightness", 22}, {"WbMode", WB_MODE_E_STATIC}, {"RGain", 0xA1}, {"BGain", 0xB2}, {"ColorTemp", 5600},
        {"Brightness", 13}, {"Sharpness", 15}, {"Flip", 1}, {"Mirror", 0}, {"WdrSwi", 1}, {"Contrast", 9},
        {"AntiFlicker", FREQ_MODE_E_60HZ}, {"Nr2d", 4}, {"Nr3d", 7}, {"BacklightCompensation", 1}, {"Gamma", 1},
        {"Saturation", 6}, {"Hue", 14}, {"TrackMode", TRACK_MODE_E_STAGE_TRACKING}, {"TrackEnabled", 1}, {"TrackDebug", 0},
        {"TallyIndicator", 1}, {"AutoZoom", 1}, {"AutoTilt", 0}, {"AutoPan", 1}, {"LostTime", 2}, {"BodySize", 1},
        {"BodySizeCustom", 0x123}, {"StartPos", -2}, {"PeoplePos", TRACK_PEOPLE_POS_RIGHT}, {"FocusAuto", 0},
        {"AudioMute", 1}, {"TallyMode", LED_TALLY_MODE_E_COLOR_CUSTOM},
        // clang-format on
    };
    for (const auto &[pcKey, s32Value] : SETTINGS) EXPECT_EQ(CFG_SETTING_Set(pcKey, 0, s32Value, RAM, NOW), 0) << pcKey;
    SYS_API_SetImageFreeze(1, STORED, NOW);
    for (BU_S32 s32Colour = 1; s32Colour <= 6; ++s32Colour) {
        ISP_API_SetColorHue(0, s32Colour, s32Colour, STORED, NOW); // 11...16 above the least, -10
        ISP_API_SetColorSat(0, s32Colour, 0x40 + s32Colour, STORED, NOW);
    }
    CMD_MENU_OnlyCloseMenu();
}
} // namespace

TEST_F(ViscaReplies, BlockCarriesEverySetting)
{
    setEverything();
    EXPECT_EQ(answer(VISCA_INQ_E_TKV_BLOCK_DATA),
              "EE 0D 03 03 03 0E 1B 02 0C 03 0B 15 16 0B A1 B2 " // 0: exposure and white balance
              "E0 15 03 03 03 03 03 03 0D 0F 03 03 03 02 03 02 " // 16: 5600 K is 0x15E0; brightness ... dynamic range
              "09 03 02 04 07 03 03 03 03 02 03 01 06 0E 03 03 " // 32: contrast ... hue
              "03 46 41 42 43 44 45 10 0B 0C 0D 0E 0F 02 04 03 " // 48: saturations, hues, tracking
              "02 05 06 01 23 03 03 02 02 02 03 03 03 03 03 06 " // 64: ... focus, freeze, power, placement, lost time
              "03 03 03 03 02 06 00 30 0C 03 A5 5A");            // 80: menu, mute, format, version, tally
}

TEST_F(ViscaReplies, BlockModes)
{
    const auto byteAt = [](int iOffset) {
        INFO stInfo{};
        stInfo.stTkvBlockStatue.AiMode = stInfo.stTkvBlockStatue.AiStartPos = stInfo.stTkvBlockStatue.Tally = 0x77;
        return answer(VISCA_INQ_E_TKV_BLOCK_DATA, stInfo).substr(iOffset * 3, 2);
    };
    const std::pair<TRACK_MODE_E, const char *> MODES[] = {
        {TRACK_MODE_E_EVERYWHERE_TRACKING, "02"}, {TRACK_MODE_E_STAGE_TRACKING, "04"},
        {TRACK_MODE_E_ZONE_TRACKING, "03"},       {TRACK_MODE_E_AUTO_FRAMEING, "00"},
        {TRACK_MODE_E_DUAL_TRACKING, "01"},       {TRACK_MODE_E_EVERYTHING_TRACKING, "77"}};
    for (const auto &[enMode, pcByte] : MODES) {
        ALG_API_SetTrackMode(enMode, RAM, NOW);
        EXPECT_EQ(byteAt(62), pcByte) << enMode;
    }
    const std::pair<BU_S32, const char *> STARTS[] = {{-1, "00"}, {0, "01"}, {1, "02"}, {-2, "03"}, {2, "77"}};
    for (const auto &[s32Start, pcByte] : STARTS) {
        ALG_API_SetStartPos(s32Start, RAM, NOW);
        EXPECT_EQ(byteAt(69), pcByte) << s32Start;
    }
    LED_API_SetTallyMode("TallyLed", LED_TALLY_MODE_E_COLOR_G, RAM, 0);
    EXPECT_EQ(byteAt(88), "77");
    CMD_MENU_OnlyOpenMenu();
    EXPECT_EQ(byteAt(83), "02");
    CMD_MENU_OnlyCloseMenu();
}

TEST_F(ViscaReplies, BlockIsTracedWithEveryName)
{
    setEverything();
    testing::internal::CaptureStdout();
    answer(VISCA_INQ_E_TKV_BLOCK_DATA);
    const std::string strLine = testing::internal::GetCapturedStdout();
    EXPECT_TRUE(strLine.starts_with("[Block Data] ExpMode=0x0D, GainLimit=14, Gain=27, ExpCompMode=2, ")) << strLine;
    EXPECT_EQ(std::ranges::count(strLine, '='), 55);
    EXPECT_NE(strLine.find("ColorTemp=5600, "), std::string::npos);
    EXPECT_NE(strLine.find("AiAutomations=0x05, "), std::string::npos);
    EXPECT_NE(strLine.find("VideoFormat=0x06, CameraVersion=48, "), std::string::npos);
}
