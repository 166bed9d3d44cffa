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
    ISP_API_SetAeMode(0, AE_MODE_E_BRIGHT, RAM, NOW);
    ISP_API_SetGainLimit(0, 14, RAM, NOW);
    ISP_API_SetGain(0, 27, RAM, NOW);
    ISP_API_SetExpCompSwi(0, 1, RAM, NOW);
    ISP_API_SetExpCompLevel(0, 5, RAM, NOW);
    ISP_API_SetIrisLevel(0, 11, RAM, NOW);
    SYSTEM_API_SetHdmiCfg("Format-1080P", "Fps50", HDMI_CS_E_YUV422, RAM);
    ISP_API_SetShutter(0, SHUTTER_TIME_10000, RAM, NOW);
    ISP_API_SetExpBrightness(0, 22, RAM, NOW);
    ISP_API_SetWbMode(0, WB_MODE_E_STATIC, RAM, NOW);
    ISP_API_SetRGain(0, 0xA1, RAM, NOW);
    ISP_API_SetBGain(0, 0xB2, RAM, NOW);
    ISP_API_SetStWbMode(0, 5600, RAM, NOW);
    ISP_API_SetBrightness(0, 13, RAM, NOW);
    ISP_API_SetSharpness(0, 15, RAM, NOW);
    SYS_API_SetFlip(1, RAM, NOW);
    SYS_API_SetMirror(0, RAM, NOW);
    ISP_API_SetDrcSwi(0, 1, RAM, NOW);
    ISP_API_SetContrast(0, 9, RAM, NOW);
    ISP_API_SetAntiFlicker(0, FREQ_MODE_E_60HZ, RAM, NOW);
    ISP_API_Set2DNR(0, 4, RAM, NOW);
    ISP_API_Set3DNR(0, 7, RAM, NOW);
    ISP_API_SetBackLight(0, 1, RAM, NOW);
    ISP_API_SetGamma(0, 1, RAM, NOW);
    ISP_API_SetSaturation(0, 6, RAM, NOW);
    ISP_API_SetHue(0, 14, RAM, NOW);
    for (BU_S32 s32Colour = 1; s32Colour <= 6; ++s32Colour) {
        ISP_API_SetColorHue(0, s32Colour, s32Colour, STORED, NOW); // 11...16 above the least, -10
        ISP_API_SetColorSat(0, s32Colour, 0x40 + s32Colour, STORED, NOW);
    }
    ALG_API_SetTrackMode(TRACK_MODE_E_STAGE_TRACKING, RAM, NOW);
    ALG_API_SetEnable(1, RAM, NOW);
    ALG_API_SetDebug(0, RAM, NOW);
    ALG_API_SetTallyIndicator(1, RAM, NOW);
    ALG_API_SetAutoZoom(1, RAM, NOW);
    ALG_API_SetAutoTilt(0, RAM, NOW);
    ALG_API_SetAutoPan(1, RAM, NOW);
    ALG_API_SetLostTime(2, RAM, NOW);
    ALG_API_SetBodySize(1, RAM, NOW);
    ALG_API_SetBodySizeCustom(0x123, RAM, NOW);
    ALG_API_SetStartPos(-2, RAM, NOW);
    ALG_API_SetPeoplePos(TRACK_PEOPLE_POS_RIGHT, RAM, NOW);
    AF_API_SetFocusAuto(0, 0, RAM, NOW);
    SYS_API_SetImageFreeze(1, STORED, NOW);
    SYS_API_SetAudioMute(1, RAM, NOW);
    LED_API_SetTallyMode("TallyLed", LED_TALLY_MODE_E_COLOR_CUSTOM, RAM, 0);
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
