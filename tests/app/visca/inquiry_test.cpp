// Inquiries: settings of the camera, and the payload worked out by hand.
#include "viscaTest.h"

#include "board/device.h"
#include "board/lamp.h"
#include "camera/image.h"
#include "camera/menu.h"
#include "camera/motion.h"
#include "camera/network.h"
#include "camera/sound.h"
#include "media/audio.h"

#include <array>

namespace
{
struct Row {
    Message message;
    Numbers numbers;     ///< that the inquiry carries
    const char *pcCases; ///< "Gain 27: 00 00 01 0B; Gain 3: ...": settings, and the payload
};

class ViscaInquiry : public ViscaTest
{
protected:
    static void check(const std::vector<Row> &rows)
    {
        for (const auto &[message, numbers, pcCases] : rows) {
            std::istringstream cases(pcCases);
            for (std::string strCase; std::getline(cases >> std::ws, strCase, ';');) {
                const auto colon = strCase.find(':');
                EXPECT_EQ(answer(message, numbers, strCase.substr(0, colon)), strCase.substr(colon + 2))
                    << message.enType << ' ' << strCase;
            }
        }
    }
};

// clang-format off
TEST_F(ViscaInquiry, LensAndMotion)
{
    const Message MEMORY{VISCA_INQ_E_MEMORY_STATUE, put<&Info::stMemoryCtrl>};
    check({{{VISCA_INQ_E_ZOOM_SPEED}, {}, "ZoomSpd 7: 07"}, {{VISCA_INQ_E_DZOOM_LIMIT}, {}, "DZoomTime 10: 0A; DZoomTime 16: 00"},
           {{VISCA_INQ_E_DZOOM_MODE}, {}, "DZoom 1: 02; DZoom 0: 03"}, {{VISCA_INQ_E_FOCUS_MODE}, {}, "FocusAuto 1: 02; FocusAuto 0: 03"},
           {{VISCA_INQ_E_PAN_TILT_MAX_SPEED}, {}, ": 18 14"}, {{VISCA_INQ_E_TKV_PT_SPEED}, {}, "PanSpeed 0x17, TileSpeed 0x05: 01 07 00 05"},
           {{VISCA_INQ_E_TKV_PT_SPEED_MATCH}, {}, "SpeedMatch 1: 02; SpeedMatch 0: 03"},
           {{VISCA_INQ_E_TKV_PT_SPEED_ACCUARCY}, {}, "SpeedAccuracy 1: 00; SpeedAccuracy 10: 01; SpeedAccuracy 100: 02"},
           {MEMORY, {3, 5}, "PresetSpeed 24: 08"}, {MEMORY, {4, 5}, "PowerUpPtzPos 9: 09; PowerUpPtzPos -1: 00"},
           {MEMORY, {5, 5}, "!PresetMode 1: 02; !PresetMode 0: 03"}});

    ZF_MOTION_CTRL_S stLens{};
    stLens.enMotionType = ZF_E_ZOOM_DIRECT_POS;
    stLens.u8ZoomSpd = stLens.u8FocusSpd = 7;
    stLens.u32ZoomPos = 0x1234;
    stLens.u32FocusPos = 0x1ABC;
    BSP_ZFCtrlMotion(ZF_CTRL_E_FROM_OTHER, &stLens, nullptr);
    PT_MOTION_CTRL_S stMove{};
    stMove.enMotionType = PT_MOTION_E_ABS_POS;
    stMove.stPos = {0x0123, 0xFF80}; // tilt below the horizon
    stMove.stSpd = {6000, 6000};
    stMove.u16SpdMul = 100;
    BSP_PTPosFromVisca(0, &stMove.stPos);
    BSP_PTCtrlMotion(PT_CTRL_E_FROM_OTHER, &stMove, nullptr);
    clock().advance(60000);
    stLens.enMotionType = ZF_E_FOCUS_DIRECT_POS;
    prepare("FocusAuto 0");
    BSP_ZFCtrlMotion(ZF_CTRL_E_FROM_OTHER, &stLens, nullptr);
    clock().advance(60000);
    check({{{VISCA_INQ_E_ZOOM_POS}, {}, ": 01 02 03 04"}, {{VISCA_INQ_E_FOCUS_POS}, {}, ": 01 0A 0B 0C"},
           {{VISCA_INQ_E_PAN_TILT_POS}, {}, ": 00 01 02 03 0F 0F 08 00"}});
}

TEST_F(ViscaInquiry, ExposureAndWhiteBalance)
{
    const Message STRENGTH{VISCA_INQ_E_AWB_GAIN, put<&Info::stAwbGainCtrl>};
    prepare("RStrength 0x12, GStrength 0x34, BStrength 0xF6");
    check({{{VISCA_INQ_E_AE_MODE}, {}, "ExposureMode 0: 00; ExposureMode 1: 0D; ExposureMode 2: 0A; ExposureMode 3: 0B; ExposureMode 4: 03"},
           {{VISCA_INQ_E_SHUTTER_POS}, {}, "Fps 1, ShutterSpeedFps60 32: 00 00 01 05; Fps 5, ShutterSpeedFps25 10: 00 00 00 09"},
           {{VISCA_INQ_E_IRIS_POS}, {}, "IrisLevel 13: 00 00 00 0D"}, {{VISCA_INQ_E_GAIN_POS}, {}, "Gain 27: 00 00 01 0B"},
           {{VISCA_INQ_E_BRIGHT_POS}, {}, "ExposureBrightness 29: 00 00 01 0D"},
           {{VISCA_INQ_E_EXP_COMP_MODE}, {}, "ExposureCompensation 1: 02; ExposureCompensation 0: 03"},
           {{VISCA_INQ_E_EXP_COMP_POS}, {}, "ExposureCompLevel 7: 00 00 00 0E; ExposureCompLevel -7: 00 00 00 00"},
           {{VISCA_INQ_E_BACKLIGHT_MODE}, {}, "BacklightCompensation 1: 02; BacklightCompensation 0: 03"},
           {{VISCA_INQ_E_APERTURE}, {}, "Sharpness 15: 00 00 00 0F"},
           {{VISCA_INQ_E_WB_MODE}, {}, "WbMode 0: 00; WbMode 1: 05; WbMode 2: 01; WbMode 3: 02; WbMode 4: 0B; WbMode 5: 03"},
           {{VISCA_INQ_E_RGAIN}, {}, "RGain 0xA5: 00 00 0A 05"}, {{VISCA_INQ_E_BGAIN}, {}, "BGain 255: 00 00 0F 0F"},
           {{VISCA_INQ_E_GGAIN}, {}, "GGain 16: 00 00 01 00"}, {STRENGTH, {0}, ": 01 02"}, {STRENGTH, {1}, ": 0F 06"}, {STRENGTH, {2}, ": 03 04"},
           {{VISCA_INQ_E_WB_COLOR_TMP}, {}, "ColorTemp 6500: 02 05; ColorTemp 2950: 00 01"}});
}

TEST_F(ViscaInquiry, Picture)
{
    const Message PARAM{VISCA_INQ_E_VIDEO_PARAMETER, put<&Info::stVideoParamCtrl>}, EXTRA{VISCA_INQ_E_EXTRA_STATUE, put<&Info::stExtraIspCtrl>};
    check({{PARAM, {0}, "Sharpness 12: 00 0C"}, {PARAM, {1}, "Brightness 11: 00 0B"}, {PARAM, {2}, "Contrast 10: 00 0A"},
           {PARAM, {3}, "Saturation 9: 00 09"}, {PARAM, {4}, "Hue 8: 00 08"}, {PARAM, {5}, "Nr2d 5: 05"}, {PARAM, {6}, "Nr3d 8: 08"},
           {PARAM, {7}, "Gamma 4: 04"}, {PARAM, {8}, "WdrSwi 1, WdrMode 3: 04"}, {PARAM, {8, 0x5A}, "WdrSwi 0: 5A"},
           {PARAM, {9}, "Mirror 1, Flip 0: 02"}, {PARAM, {10}, "Mirror 1, Flip 0: 03"}, {PARAM, {9}, "Mirror 0, Flip 1: 03"}, {PARAM, {10}, ": 02"},
           {PARAM, {11}, "!AntiFlicker 0: 01; !AntiFlicker 1: 02; !AntiFlicker 2: 00"}, {PARAM, {12}, "!ImageFreeze 1: 02; !ImageFreeze 0: 03"},
           {PARAM, {13}, ": refused"}, {PARAM, {-1}, ": refused"}, {EXTRA, {0}, "ViewFollowExposure 1, ViewFollowWB 0: 02"},
           {EXTRA, {1}, ": 03; ViewFollowWB 1: 02"}, {EXTRA, {6}, "WbSensitivity 0: 00"}, {EXTRA, {10}, "ND-Filter 3: 03"},
           {EXTRA, {7}, "MountMode 1: 02; MountMode 0: 03"}, {EXTRA, {8}, "!DistortionCorre 1: 02"}, {EXTRA, {11}, "SensorCrop 1: 02"},
           {EXTRA, {12}, "FaceAF 1, AutoIris 0: 02"}, {EXTRA, {13}, ": 03"}, {EXTRA, {2}, ": refused"}, {EXTRA, {9}, ": refused"}});
    Info stInfo{}; // parameters that only commands know have no payload
    stInfo.stVideoParamCtrl = {VISCA_MSG_E_DIRECT_EXP_METER, 9};
    EXPECT_EQ(payload(VISCA_INQ_E_VIDEO_PARAMETER, stInfo), "");
}

TEST_F(ViscaInquiry, Tracking)
{
    check({{{VISCA_INQ_E_YM_AUTO_TRACKING_STATUS}, {}, "TrackEnabled 1: 02; TrackEnabled 0: 03"},
           {{VISCA_INQ_E_YM_ZOOM_STATUS}, {}, "AutoZoom 0, AutoTilt 1: 03"}, {{VISCA_INQ_E_YM_TILT_STATUS}, {}, ": 02"},
           {{VISCA_INQ_E_YM_DETECTED_INDICATOR}, {}, "TallyIndicator 0: 03"},
           {{VISCA_INQ_E_YM_TRACKING_START}, {}, "StartPos 0: 02; StartPos 1: 00; StartPos -1: refused; StartPos 2: refused"},
           {{VISCA_INQ_E_YM_TRACKING_START_POSITION}, {}, "StartPos 0x5C: 05 0C; StartPos -1: 0F 0F"},
           {{VISCA_INQ_E_YM_OSD_REMINDER}, {}, "TrackDebug 1: 01; TrackDebug 0: 00"}, {{VISCA_INQ_E_YM_FIGURE_SIZE}, {}, "BodySize 3: 03"},
           {{VISCA_INQ_E_YM_CURRENT_CUSTOMIZED_FIGURE_SIZE}, {}, "BodySizeCustom 360: 00 01 06 08"},
           {{VISCA_INQ_E_YM_PLACEMENT_STATUS}, {}, "PeoplePos 0: 01; PeoplePos 1: 02; PeoplePos 2: 00"},
           {{VISCA_INQ_E_YM_AUTO_TRACKING_SPEED}, {}, "TrackSpeed 0: 02; TrackSpeed 1: 01; TrackSpeed 2: 00; TrackSpeed 4: 00"},
           {{VISCA_INQ_E_TKV_TRACKSPEED}, {}, "TrackSpeed 3: 00; TrackSpeed 4: 01; TrackSpeed 0: 01"},
           {{VISCA_INQ_E_TKV_HEAD_POS}, {}, "HeadPos 2: 02"}, {{VISCA_INQ_E_TKV_GESTURE_DETECT}, {}, "Gesture 1: 02; Gesture 0: 03"}});
}

TEST_F(ViscaInquiry, System)
{
    const Message POWER{VISCA_INQ_E_POWER, put<&Info::enPowerCtrl>}, IR{VISCA_INQ_E_IR_INFO, put<&Info::stIrCtrl>}, TALLY{VISCA_INQ_E_TALLY_MODE, put<&Info::stTKVtTally>},
        MENU_ON{VISCA_INQ_E_MENU, [](Info &, const Numbers &) { CMD_MENU_OnlyOpenMenu(); }}, MENU_OFF{VISCA_INQ_E_MENU, [](Info &, const Numbers &) { CMD_MENU_OnlyCloseMenu(); }},
        VOLUME{VISCA_INQ_E_AUDIO_VOLUME, [](Info &, const Numbers &) {
            AI_ATTR_S stAttr{};
            AUDIO_AI_GetAttr(AUDIO_AI_GetFirstEnabledId(), &stAttr);
            stAttr.s32Volume = 0x4D;
            AUDIO_AI_SetAttr(AUDIO_AI_GetFirstEnabledId(), &stAttr, BU_FALSE);
        }};
    check({{POWER, {VISCA_MSG_E_POWER_OFF}, ": 02"}, {MENU_ON, {}, ": 02"}, {MENU_OFF, {}, ": 03"}, {VOLUME, {}, ": 04 0D"},
           {{VISCA_INQ_E_IR_RECV}, {}, "IrSwitch 1: 02; IrSwitch 0: 03"}, {IR, {0}, "IrSwitch 0, IrAddr 4: 03"}, {IR, {1}, ": 04"},
           {IR, {2}, ": refused"}, {TALLY, {}, "!TallyMode 0: 0A; !TallyMode 1: 0B; !TallyMode 6: 0C; !TallyMode 7: 0D"},
           {TALLY, {0, 2}, "!TallyMode 2: 02"}, {{VISCA_INQ_E_NDI_TALLY_MODE}, {}, "TallyOnBoard 1: 02; TallyOnBoard 0: 03"},
           {{VISCA_INQ_E_CUSTOM_TALLY}, {}, "TallyCustomColor 0x12ABEF: 01 02 0A 0B 0E 0F"},
           {{VISCA_INQ_E_TKV_AUDIO}, {}, "AudioMute 1: 03; AudioMute 0: 02"}});

    Info stInfo{};
    VISCA_API_SetAddr(6, BU_TRUE);
    EXPECT_EQ(dispatch({VISCA_INQ_E_GET_ADDRESS}, {}, "", &stInfo), 0);
    EXPECT_EQ(stInfo.u8Address, 6);
    VISCA_API_SetAddr(1, BU_TRUE);

    FIRMWARE_INFO_V2_S stFw{};
    BSP_VER_GetProductVersion(&stFw);
    const BU_U32 u32Version = (stFw.au8CamVersion[0] << 12) + (stFw.au8CamVersion[1] % 16 << 8) + stFw.au8CamVersion[2];
    char acPayload[32];
    std::snprintf(acPayload, sizeof(acPayload), "02 01 06 07 %02X %02X 02", u32Version >> 8 & 0xFF, u32Version & 0xFF);
    EXPECT_EQ(answer({VISCA_INQ_E_VERSION}), acPayload);
}

TEST_F(ViscaInquiry, Network)
{
    const Message IP{VISCA_INQ_E_IP, put<&Info::stIpCtrl>};
    NET_API_SetIpMode("NetCard0", IP_MODE_E_STATIC);
    NET_API_SetIpAddr("NetCard0", "192.168.1.10");
    NET_API_SetNetMask("NetCard0", "255.255.255.0");
    NET_API_SetGateWay("NetCard0", "192.168.1.254");
    check({{IP, {4}, ": 0C 00 0A 08 00 01 00 0A"}, {IP, {5}, ": 0F 0F 0F 0F 0F 0F 00 00"}, {IP, {6}, ": 0C 00 0A 08 00 01 0F 0E"},
           {IP, {7}, ": refused"}, {IP, {0}, ": refused"}, {{VISCA_INQ_E_IP_DHCP_MODE}, {}, ": 03"}});
    std::string strHex; // of the text
    for (const char c : std::string("192.168.1.10:255.255.255.0:192.168.1.254")) strHex += (strHex.empty() ? "" : " ") + std::string(c == '.' ? "2E" : c == ':' ? "3A" : "3") + (isdigit(c) ? std::string(1, c) : "");
    EXPECT_EQ(answer({VISCA_INQ_E_IP_INFO_ASCLL}), strHex);
    NET_API_SetIpMode("NetCard0", IP_MODE_E_DHCP);
    EXPECT_EQ(answer({VISCA_INQ_E_IP_DHCP_MODE}), "02");

    // The bytes of the answer so far are traced with its head.
    Info stInfo{};
    stInfo.stIpCtrl.u32IpVal = 0xC0A8010A;
    tagVISCA_MSG_REQ_S stReq{};
    stReq.acCmd[0] = 0x90;
    stReq.acCmd[1] = 0x50;
    EXPECT_EQ(traceOf([&] { viscaCompleteHandlerCallFunc(&stInfo, &stReq, VISCA_INQ_E_IP, 2); }), "90,50,c,0,a,8,0,1,0,a,\n");
}

TEST_F(ViscaInquiry, VideoFormat)
{
    // Rates of each format: the code of the inquiry ("": refused) and the one in the block answer.
    // In the order of the rates: 60, 59.94, 50, 30, 29.97, 25, 24, 23.98.
    const struct { BU_S32 s32Format; std::vector<std::array<const char *, 2>> codes; } ROWS[] = {
        {0, {{"06", "38"}, {"", "37"},   {"0E", "36"}, {"07", "35"}, {"", "34"},   {"0F", "33"}, {"", "38"}}},
        {1, {{"00", "08"}, {"10", "07"}, {"08", "06"}, {"01", "05"}, {"11", "04"}, {"09", "03"}, {"", "38"}, {"", "38"}}},
        {2, {{"02", "15"}, {"10", "14"}, {"08", "13"}, {},           {},           {"0A", "38"}}},
        {3, {{"03", "28"}, {"12", "38"}, {"0B", "26"}, {"04", "38"}, {"", "38"},   {"0C", "38"}}}};
    for (const auto &row : ROWS)
        for (std::size_t fps = 0; fps < row.codes.size(); ++fps) {
            const auto [pcCode, pcBlockCode] = row.codes[fps];
            if (!pcCode) continue;
            prepare("Format " + std::to_string(row.s32Format) + ", Fps " + std::to_string(fps));
            EXPECT_EQ(answer({VISCA_INQ_E_VIDEO_RESOLUTION}), *pcCode ? pcCode : "refused") << row.s32Format << ' ' << fps;
            EXPECT_EQ(answer({VISCA_INQ_E_TKV_BLOCK_DATA}).substr(85 * 3, 2), pcBlockCode) << row.s32Format << ' ' << fps;
        }
    EXPECT_EQ(answer({VISCA_INQ_E_VIDEO_RESOLUTION}, {}, "@MPP_GetVoutCfg -3"), "silent");
}

TEST_F(ViscaInquiry, SystemStatus)
{
    CMD_MENU_OnlyCloseMenu();
    EXPECT_EQ(answer({VISCA_INQ_E_YM_SYSTEM_STATUS}, {}, "Format 1, Fps 2, WbMode 4, RGain 0x12, BGain 0xFE, FocusAuto 0"), "0D 08 0B 01 02 0F 0E 03 03 00 00 00");
    // The delivered bits stay; the shown menu adds its own. A format without a number leaves the delivered one.
    CMD_MENU_OnlyOpenMenu();
    Info stInfo{};
    stInfo.stSystemStatue.AA = 0x80;
    stInfo.enVideoCtrl = VISCA_MSG_E_VIDEO_1280x720P5994;
    EXPECT_EQ(answer({VISCA_INQ_E_YM_SYSTEM_STATUS}, {}, "Fps 6, FocusAuto 1", stInfo), "9D 12 0B 01 02 0F 0E 02 03 00 00 00");
    CMD_MENU_OnlyCloseMenu();
}

TEST_F(ViscaInquiry, BlockCarriesEverySetting)
{
    // Values that are all different where the answer has room for it, so that two exchanged fields show.
    prepare("ExposureMode 1, GainLimit 14, Gain 27, ExposureCompensation 1, ExposureCompLevel 5, IrisLevel 11, Format 1, Fps 2, ShutterSpeedFps50 32, ExposureBrightness 22, "
            "WbMode 4, RGain 0xA1, BGain 0xB2, ColorTemp 5600, Brightness 13, Sharpness 15, Flip 1, Mirror 0, WdrSwi 1, Contrast 9, AntiFlicker 1, Nr2d 4, Nr3d 7, "
            "BacklightCompensation 1, Gamma 1, Saturation 6, Hue 14, TrackMode 1, TrackEnabled 1, TrackDebug 0, TallyIndicator 1, AutoZoom 1, AutoTilt 0, AutoPan 1, LostTime 2, "
            "BodySize 1, BodySizeCustom 0x123, StartPos -2, PeoplePos 1, FocusAuto 0, AudioMute 1, TallyMode 6, !ImageFreeze 1");
    for (BU_S32 s32Colour = 1; s32Colour <= 6; ++s32Colour) {
        ISP_API_SetColorHue(0, s32Colour, s32Colour, BU_TRUE, BU_TRUE); // 11...16 above the least, -10
        ISP_API_SetColorSat(0, s32Colour, 0x40 + s32Colour, BU_TRUE, BU_TRUE);
    }
    CMD_MENU_OnlyCloseMenu();
    const std::string strTrace = traceOf([] {
        EXPECT_EQ(answer({VISCA_INQ_E_TKV_BLOCK_DATA}), "EE 0D 03 03 03 0E 1B 02 0C 03 0B 15 16 0B A1 B2 " // 0: exposure and white balance
                  "E0 15 03 03 03 03 03 03 0D 0F 03 03 03 02 03 02 " // 16: 5600 K is 0x15E0; brightness ... dynamic range
                  "09 03 02 04 07 03 03 03 03 02 03 01 06 0E 03 03 " // 32: contrast ... hue
                  "03 46 41 42 43 44 45 10 0B 0C 0D 0E 0F 02 04 03 " // 48: saturations, hues, tracking
                  "02 05 06 01 23 03 03 02 02 02 03 03 03 03 03 06 " // 64: ... focus, freeze, power, placement, lost time
                  "03 03 03 03 02 06 00 30 0C 03 A5 5A");            // 80: menu, mute, format, version, tally
    });
    EXPECT_EQ(strTrace, "[Block Data] ExpMode=0x0D, GainLimit=14, Gain=27, ExpCompMode=2, ExpCompLevel=12, Iris=11, Shutter=21, Bright=22, WbMode=11, RGain=161, BGain=178, "
              "ColorTemp=5600, Brightness=13, Sharpness=15, Flip=2, Mirror=3, WideDynamic=2, Contrast=9, AntiFlicker=2, TwoDNR=4, ThreeDNR=7, BackLight=2, Gamma=1, Saturation=6, "
              "Hue=14, RedHue=11, YellowHue=12, GreenHue=13, CayennHue=14, BlueHue=15, MagentaHue=16, RedSat=65, YellowSat=66, GreenSat=67, CayennSat=68, BlueSat=69, MagentaSat=70, "
              "AiTrack=2, AiMode=4, AiHumanoidFrame=3, AiTrackingHint=2, AiAutomations=0x05, AiLostTime=6, AiBodySize=1, AiBodySizeadjust=291, AiStartPos=3, AiCharacterPosition=2, "
              "Focus=3, Freeze=2, Power=2, MenuDisaply=3, Mute=2, VideoFormat=0x06, CameraVersion=48, Tally=12\n");
}

TEST_F(ViscaInquiry, BlockModes)
{
    const auto byteAt = [](int iOffset, const std::string &strSettings) {
        Info stInfo{};
        stInfo.stTkvBlockStatue.AiMode = stInfo.stTkvBlockStatue.AiStartPos = stInfo.stTkvBlockStatue.Tally = 0x77; // kept where there is no number
        return answer({VISCA_INQ_E_TKV_BLOCK_DATA}, {}, strSettings, stInfo).substr(iOffset * 3, 2);
    };
    const std::pair<int, const char *> TRACK_MODES[] = {{0, "02"}, {1, "04"}, {2, "03"}, {3, "00"}, {4, "01"}, {5, "77"}},
                                       STARTS[] = {{-1, "00"}, {0, "01"}, {1, "02"}, {-2, "03"}, {2, "77"}};
    for (const auto &[iMode, pcByte] : TRACK_MODES) EXPECT_EQ(byteAt(62, "TrackMode " + std::to_string(iMode)), pcByte) << iMode;
    for (const auto &[iStart, pcByte] : STARTS) EXPECT_EQ(byteAt(69, "StartPos " + std::to_string(iStart)), pcByte) << iStart;
    EXPECT_EQ(byteAt(88, "TallyMode 3"), "77");
    EXPECT_EQ(byteAt(65, "AutoZoom 0, AutoTilt 1, AutoPan 0"), "02");
    CMD_MENU_OnlyOpenMenu();
    EXPECT_EQ(byteAt(83, ""), "02");
    CMD_MENU_OnlyCloseMenu();
}

/// What a message that carried 2s in its fields is told when a service does not answer.
TEST_F(ViscaInquiry, AServiceThatDoesNotAnswerLeavesTheDeliveredValue)
{
    const struct { Type enType; const char *pcGetter, *pcPayload; } ROWS[] = {
        {VISCA_INQ_E_ZOOM_POS, "PTZ_API_GetZoomPos", "00 00 00 02"},           {VISCA_INQ_E_RGAIN, "ISP_API_GetRGain", "00 00 00 02"},
        {VISCA_INQ_E_SHUTTER_POS, "ISP_API_GetShutter", "00 00 00 02"},        {VISCA_INQ_E_EXP_COMP_POS, "ISP_API_GetExpCompLevel", "00 00 00 02"},
        {VISCA_INQ_E_BACKLIGHT_MODE, "ISP_API_GetBackLight", "02"},            {VISCA_INQ_E_TKV_AUDIO, "SYS_API_GetAudioMute", "02"},
        {VISCA_INQ_E_TKV_PT_SPEED, "PT_API_GetPanSpeed", "00 02 00 05"},       {VISCA_INQ_E_TKV_PT_SPEED_ACCUARCY, "PT_API_GetSpeedAccuracy", "02"},
        {VISCA_INQ_E_VIDEO_PARAMETER, "ISP_API_GetContrast", "00 02"},
        // Switches that count as on until they are read.
        {VISCA_INQ_E_IR_RECV, "IR_API_GetSwitch", "02"},                       {VISCA_INQ_E_YM_AUTO_TRACKING_STATUS, "ALG_API_GetEnable", "02"},
        // A mode that is not known cannot be told.
        {VISCA_INQ_E_WB_MODE, "ISP_API_GetWbMode", "refused"},                 {VISCA_INQ_E_AE_MODE, "ISP_API_GetAeMode", "refused"},
        {VISCA_INQ_E_IP_DHCP_MODE, "NET_API_GetAllParamCur", "refused"},       {VISCA_INQ_E_IP_INFO_ASCLL, "NET_API_GetAllParamCur", "refused"},
        {VISCA_INQ_E_GET_ADDRESS, "VISCA_API_GetAddr", "refused"},
        // Results of some services are passed through.
        {VISCA_INQ_E_TALLY_MODE, "LED_API_GetTallyMode", "silent"},            {VISCA_INQ_E_CUSTOM_TALLY, "LED_API_GetTallyCustomColor", "silent"},
        {VISCA_INQ_E_IR_INFO, "IR_API_GetSwitch", "silent"},                   {VISCA_INQ_E_MEMORY_STATUE, "PRESET_API_GetPresetSpeed", "silent"},
        {VISCA_INQ_E_EXTRA_STATUE, "ISP_API_GetNDFilter", "silent"}};
    for (const auto &[enType, pcGetter, pcPayload] : ROWS) {
        Info stInfo{};
        stInfo.stZoomCtrl.u16ZoomPos = stInfo.stRGainCtrl.u8RGainDirect = stInfo.stShutterCtrl.u8ShutterDirect = stInfo.stExpCompCtrl.u8ExpCompDirect = 2;
        stInfo.enBalklightCtrl = VISCA_MSG_E_BACKLIGHT_ON;
        stInfo.enAudioMuteCtrl = VISCA_MSG_E_AUDIO_MUTE_OFF;
        stInfo.stPTSpeedCtrl.u32PTSpeedParam = 2 << 16 | 2;
        stInfo.stVideoParamCtrl = {VISCA_MSG_E_DIRECT_CONTRAST, 2};
        stInfo.stMemoryCtrl.enMemoryType = VISCA_MSG_E_MEMORY_SPEED;
        stInfo.stExtraIspCtrl.enExtraIspType = VISCA_MSG_E_EXP_ND_FILTER;
        EXPECT_EQ(answer({enType}, {}, "TileSpeed 5, AudioMute 1, @" + std::string(pcGetter) + " -7", stInfo), pcPayload) << pcGetter;
    }
}

TEST_F(ViscaInquiry, UnknownSubtypesAreRefusedAndNamed)
{
    const std::pair<Message, const char *> ROWS[] = {{{VISCA_INQ_E_MEMORY_STATUE, put<&Info::stMemoryCtrl>}, " unknow type 1\n"},
                                                     {{VISCA_INQ_E_AWB_GAIN, put<&Info::stAwbGainCtrl>}, " unknow Type 3\n"},
                                                     {{VISCA_INQ_E_VIDEO_PARAMETER, put<&Info::stVideoParamCtrl>}, " unknow Type 13\n"},
                                                     {{VISCA_INQ_E_IP, put<&Info::stIpCtrl>}, " unknow Type 2\n"}};
    for (const auto &[message, pcTrace] : ROWS) {
        const BU_S32 s32Type = std::stoi(std::string(pcTrace).substr(std::string(pcTrace).rfind(' ')));
        EXPECT_THAT(traceOf([&, &m = message] { EXPECT_EQ(answer(m, {s32Type}), "refused"); }), testing::EndsWith(std::string("]") + pcTrace));
    }
}
// clang-format on
} // namespace
