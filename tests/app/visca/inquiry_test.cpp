// Inquiries of settings and positions.
#include "viscaTest.h"

#include "camera/focus.h"
#include "camera/image.h"
#include "camera/preset.h"
#include "camera/system.h"
#include "camera/systemService.h"
#include "camera/tracking.h"
#include "camera/zoom.h"

namespace
{
void output(const char *pcFormat, const char *pcFps) { SYSTEM_API_SetHdmiCfg(pcFormat, pcFps, HDMI_CS_E_YUV422, RAM); }
} // namespace

TEST_F(ViscaInquiry, LensAndMotion)
{
    check({
        {"zoom speed", VISCA_INQ_E_ZOOM_SPEED, [](INFO &) { PTZ_API_SetZoomSpd(0, 7, RAM, NOW); }, "07"},
        {"zoom limit", VISCA_INQ_E_DZOOM_LIMIT, [](INFO &) { PTZ_API_SetMaxDZoomTime(0, 10, RAM, NOW); }, "0A"},
        {"largest zoom limit", VISCA_INQ_E_DZOOM_LIMIT, [](INFO &) { PTZ_API_SetMaxDZoomTime(0, 16, RAM, NOW); }, "00"},
        {"digital zoom on", VISCA_INQ_E_DZOOM_MODE, [](INFO &) { PTZ_API_SetDZoomMode(0, 1, RAM, NOW); }, "02"},
        {"digital zoom off", VISCA_INQ_E_DZOOM_MODE, [](INFO &) { PTZ_API_SetDZoomMode(0, 0, RAM, NOW); }, "03"},
        {"automatic focus", VISCA_INQ_E_FOCUS_MODE, [](INFO &) { AF_API_SetFocusAuto(0, 1, RAM, NOW); }, "02"},
        {"manual focus", VISCA_INQ_E_FOCUS_MODE, [](INFO &) { AF_API_SetFocusAuto(0, 0, RAM, NOW); }, "03"},
        {"largest speeds", VISCA_INQ_E_PAN_TILT_MAX_SPEED, [](INFO &) {}, "18 14"},
        {"speed levels", VISCA_INQ_E_TKV_PT_SPEED,
         [](INFO &) {
             PT_API_SetPanSpeed(0, 0x17, RAM, NOW);
             PT_API_SetTileSpeed(0, 0x05, RAM, NOW);
         },
         "01 07 00 05"},
        {"speed match on", VISCA_INQ_E_TKV_PT_SPEED_MATCH, [](INFO &) { PT_API_SetPtSpeedMatch(0, 1, RAM, NOW); },
         "02"},
        {"speed match off", VISCA_INQ_E_TKV_PT_SPEED_MATCH, [](INFO &) { PT_API_SetPtSpeedMatch(0, 0, RAM, NOW); },
         "03"},
        {"accuracy 1", VISCA_INQ_E_TKV_PT_SPEED_ACCUARCY, [](INFO &) { PT_API_SetSpeedAccuracy(0, 1, RAM); }, "00"},
        {"accuracy 10", VISCA_INQ_E_TKV_PT_SPEED_ACCUARCY, [](INFO &) { PT_API_SetSpeedAccuracy(0, 10, RAM); }, "01"},
        {"accuracy 100", VISCA_INQ_E_TKV_PT_SPEED_ACCUARCY, [](INFO &) { PT_API_SetSpeedAccuracy(0, 100, RAM); }, "02"},
        {"preset speed", VISCA_INQ_E_MEMORY_STATUE,
         [](INFO &st) {
             PRESET_API_SetPresetSpeed(0, 24, RAM, NOW);
             st.stMemoryCtrl.enMemoryType = VISCA_MSG_E_MEMORY_SPEED;
         },
         "08"}, // 0x18
        {"power-up preset", VISCA_INQ_E_MEMORY_STATUE,
         [](INFO &st) {
             PT_API_SetPowerUpPtzPos(0, 9, RAM, NOW);
             st.stMemoryCtrl.enMemoryType = VISCA_MSG_E_MEMORY_POWERUP;
         },
         "09"},
        {"home at power-up", VISCA_INQ_E_MEMORY_STATUE,
         [](INFO &st) {
             PT_API_SetPowerUpPtzPos(0, -1, RAM, NOW);
             st.stMemoryCtrl = {VISCA_MSG_E_MEMORY_POWERUP, 5};
         },
         "00"},
        {"preset mode", VISCA_INQ_E_MEMORY_STATUE,
         [](INFO &st) {
             SYS_API_SetPresetMode(1, BU_TRUE, NOW); // the stored value is asked for
             st.stMemoryCtrl.enMemoryType = VISCA_MSG_E_MEMORY_MODE;
         },
         "02"},
    });
}

TEST_F(ViscaInquiry, PositionsAreThoseTheCameraHasMovedTo)
{
    ZF_MOTION_CTRL_S stZoom{};
    stZoom.enMotionType = ZF_E_ZOOM_DIRECT_POS;
    stZoom.u8ZoomSpd = 7;
    stZoom.u32ZoomPos = 0x1234;
    BSP_ZFCtrlMotion(ZF_CTRL_E_FROM_OTHER, &stZoom, nullptr);
    PT_MOTION_CTRL_S stMove{};
    stMove.enMotionType = PT_MOTION_E_ABS_POS;
    stMove.stPos = {0x0123, 0xFF80}; // tilt below the horizon
    stMove.stSpd = {6000, 6000};
    stMove.u16SpdMul = 100;
    BSP_PTPosFromVisca(0, &stMove.stPos);
    BSP_PTCtrlMotion(PT_CTRL_E_FROM_OTHER, &stMove, nullptr);
    clock().advance(60000);
    EXPECT_EQ(answer(VISCA_INQ_E_ZOOM_POS), "01 02 03 04");
    EXPECT_EQ(answer(VISCA_INQ_E_PAN_TILT_POS), "00 01 02 03 0F 0F 08 00");

    AF_API_SetFocusAuto(0, 0, RAM, NOW);
    ZF_MOTION_CTRL_S stFocus{};
    stFocus.enMotionType = ZF_E_FOCUS_DIRECT_POS;
    stFocus.u8FocusSpd = 7;
    stFocus.u32FocusPos = 0x1ABC;
    BSP_ZFCtrlMotion(ZF_CTRL_E_FROM_OTHER, &stFocus, nullptr);
    clock().advance(60000);
    EXPECT_EQ(answer(VISCA_INQ_E_FOCUS_POS), "01 0A 0B 0C");
}

TEST_F(ViscaInquiry, Exposure)
{
    const auto mode = [](BU_S32 s32Mode) { return [=](INFO &) { ISP_API_SetAeMode(0, s32Mode, RAM, NOW); }; };
    check({
        {"AutoMode", VISCA_INQ_E_AE_MODE, mode(AE_MODE_E_AUTO), "00"},
        {"BrightFirst", VISCA_INQ_E_AE_MODE, mode(AE_MODE_E_BRIGHT), "0D"},
        {"ShutterFirst", VISCA_INQ_E_AE_MODE, mode(AE_MODE_E_SHUTTER), "0A"},
        {"IrisFirst", VISCA_INQ_E_AE_MODE, mode(AE_MODE_E_IRIS), "0B"},
        {"ManualMode", VISCA_INQ_E_AE_MODE, mode(AE_MODE_E_MANUAL), "03"},
        {"shutter at 59.94", VISCA_INQ_E_SHUTTER_POS,
         [](INFO &) {
             output("Format-1080P", "Fps59p94");
             ISP_API_SetShutter(0, SHUTTER_TIME_10000, RAM, NOW);
         },
         "00 00 01 05"},
        {"shutter at 25", VISCA_INQ_E_SHUTTER_POS,
         [](INFO &) {
             output("Format-1080P", "Fps25");
             ISP_API_SetShutter(0, SHUTTER_TIME_120, RAM, NOW);
         },
         "00 00 00 09"},
        {"iris", VISCA_INQ_E_IRIS_POS, [](INFO &) { ISP_API_SetIrisLevel(0, 13, RAM, NOW); }, "00 00 00 0D"},
        {"gain", VISCA_INQ_E_GAIN_POS, [](INFO &) { ISP_API_SetGain(0, 27, RAM, NOW); }, "00 00 01 0B"},
        {"brightness", VISCA_INQ_E_BRIGHT_POS, [](INFO &) { ISP_API_SetExpBrightness(0, 29, RAM, NOW); },
         "00 00 01 0D"},
        {"compensation on", VISCA_INQ_E_EXP_COMP_MODE, [](INFO &) { ISP_API_SetExpCompSwi(0, 1, RAM, NOW); }, "02"},
        {"compensation off", VISCA_INQ_E_EXP_COMP_MODE, [](INFO &) { ISP_API_SetExpCompSwi(0, 0, RAM, NOW); }, "03"},
        {"most compensation", VISCA_INQ_E_EXP_COMP_POS, [](INFO &) { ISP_API_SetExpCompLevel(0, 7, RAM, NOW); },
         "00 00 00 0E"}, // counted from the least, -7
        {"least compensation", VISCA_INQ_E_EXP_COMP_POS, [](INFO &) { ISP_API_SetExpCompLevel(0, -7, RAM, NOW); },
         "00 00 00 00"},
        {"backlight on", VISCA_INQ_E_BACKLIGHT_MODE, [](INFO &) { ISP_API_SetBackLight(0, 1, RAM, NOW); }, "02"},
        {"backlight off", VISCA_INQ_E_BACKLIGHT_MODE, [](INFO &) { ISP_API_SetBackLight(0, 0, RAM, NOW); }, "03"},
        {"aperture", VISCA_INQ_E_APERTURE, [](INFO &) { ISP_API_SetSharpness(0, 15, RAM, NOW); }, "00 00 00 0F"},
    });
}

TEST_F(ViscaInquiry, WhiteBalance)
{
    const auto mode = [](BU_S32 s32Mode) { return [=](INFO &) { ISP_API_SetWbMode(0, s32Mode, RAM, NOW); }; };
    const auto strength = [](VISCA_CTRL_AWB_GAIN_E enType) {
        return [=](INFO &st) {
            ISP_API_SetRStrength(0, 0x12, RAM, NOW);
            ISP_API_SetGStrength(0, 0x34, RAM, NOW);
            ISP_API_SetBStrength(0, 0xF6, RAM, NOW);
            st.stAwbGainCtrl.enAwbGainType = enType;
        };
    };
    check({
        {"AutoMode", VISCA_INQ_E_WB_MODE, mode(WB_MODE_E_AUTO), "00"},
        {"ManualMode", VISCA_INQ_E_WB_MODE, mode(WB_MODE_E_MANUAL), "05"},
        {"InDoor", VISCA_INQ_E_WB_MODE, mode(WB_MODE_E_INDOOR), "01"},
        {"OutDoor", VISCA_INQ_E_WB_MODE, mode(WB_MODE_E_OUTDOOR), "02"},
        {"StaticWb", VISCA_INQ_E_WB_MODE, mode(WB_MODE_E_STATIC), "0B"},
        {"OnePushWb", VISCA_INQ_E_WB_MODE, mode(WB_MODE_E_ONE_PUSH), "03"},
        {"red", VISCA_INQ_E_RGAIN, [](INFO &) { ISP_API_SetRGain(0, 0xA5, RAM, NOW); }, "00 00 0A 05"},
        {"blue", VISCA_INQ_E_BGAIN, [](INFO &) { ISP_API_SetBGain(0, 255, RAM, NOW); }, "00 00 0F 0F"},
        {"green", VISCA_INQ_E_GGAIN, [](INFO &) { ISP_API_SetGGain(0, 0x10, RAM, NOW); }, "00 00 01 00"},
        {"red strength", VISCA_INQ_E_AWB_GAIN, strength(VISCA_MSG_E_AWB_RGAIN), "01 02"},
        {"blue strength", VISCA_INQ_E_AWB_GAIN, strength(VISCA_MSG_E_AWB_BGAIN), "0F 06"},
        {"green strength", VISCA_INQ_E_AWB_GAIN, strength(VISCA_MSG_E_AWB_GGAIN), "03 04"},
        {"6500 K is the 37th step of 100 from 2800", VISCA_INQ_E_WB_COLOR_TMP,
         [](INFO &) { ISP_API_SetStWbMode(0, 6500, RAM, NOW); }, "02 05"},
        {"2950 K is in the first step", VISCA_INQ_E_WB_COLOR_TMP,
         [](INFO &) { ISP_API_SetStWbMode(0, 2950, RAM, NOW); }, "00 01"},
    });
}

TEST_F(ViscaInquiry, PictureParameters)
{
    const auto param = [](BU_S32 s32Type, std::function<void()> set, BU_U8 u8Delivered = 0) {
        return [=](INFO &st) {
            if (set) set();
            st.stVideoParamCtrl = {static_cast<VISCA_CTRL_VIDEO_PARAM_E>(s32Type), u8Delivered};
        };
    };
    constexpr auto TYPE = VISCA_INQ_E_VIDEO_PARAMETER;
    check({
        {"sharpness", TYPE, param(0, [] { ISP_API_SetSharpness(0, 12, RAM, NOW); }), "00 0C"},
        {"brightness", TYPE, param(1, [] { ISP_API_SetBrightness(0, 11, RAM, NOW); }), "00 0B"},
        {"contrast", TYPE, param(2, [] { ISP_API_SetContrast(0, 10, RAM, NOW); }), "00 0A"},
        {"saturation", TYPE, param(3, [] { ISP_API_SetSaturation(0, 9, RAM, NOW); }), "00 09"},
        {"hue", TYPE, param(4, [] { ISP_API_SetHue(0, 8, RAM, NOW); }), "00 08"},
        {"2D noise reduction", TYPE, param(5, [] { ISP_API_Set2DNR(0, 5, RAM, NOW); }), "05"},
        {"3D noise reduction", TYPE, param(6, [] { ISP_API_Set3DNR(0, 8, RAM, NOW); }), "08"},
        {"gamma", TYPE, param(7, [] { ISP_API_SetGamma(0, 4, RAM, NOW); }), "04"},
        {"dynamic range", TYPE,
         param(8,
               [] {
                   ISP_API_SetDrcSwi(0, 1, RAM, NOW);
                   ISP_API_SetDrcMode(0, 3, RAM, NOW);
               }),
         "04"},
        {"no dynamic range", TYPE,
         param(
             8, [] { ISP_API_SetDrcSwi(0, 0, RAM, NOW); }, 0x5A),
         "5A"},
        {"mirror", TYPE, param(9, [] { SYS_API_SetMirror(1, RAM, NOW); }), "02"},
        {"no mirror", TYPE, param(9, [] { SYS_API_SetMirror(0, RAM, NOW); }), "03"},
        {"flip", TYPE, param(10, [] { SYS_API_SetFlip(1, RAM, NOW); }), "02"},
        {"50 Hz", TYPE, param(11, [] { ISP_API_SetAntiFlicker(0, 0, BU_TRUE, NOW); }), "01"},
        {"60 Hz", TYPE, param(11, [] { ISP_API_SetAntiFlicker(0, 1, BU_TRUE, NOW); }), "02"},
        {"no anti-flicker", TYPE, param(11, [] { ISP_API_SetAntiFlicker(0, 2, BU_TRUE, NOW); }), "00"},
        {"freeze", TYPE, param(12, [] { SYS_API_SetImageFreeze(1, BU_TRUE, NOW); }), "02"},
        {"a parameter without inquiry", TYPE, param(13, nullptr), "refused"},
        {"no parameter", TYPE, param(-1, nullptr), "refused"},
    });
    INFO stInfo{}; // parameters that only commands know have no payload
    stInfo.stVideoParamCtrl = {VISCA_MSG_E_DIRECT_EXP_METER, 9};
    EXPECT_EQ(payload(TYPE, stInfo), "");
}

TEST_F(ViscaInquiry, ExtraImageSettings)
{
    const auto extra = [](VISCA_CTRL_EXTREA_ISP_E enType, std::function<void()> set) {
        return [=](INFO &st) {
            set();
            st.stExtraIspCtrl.enExtraIspType = enType;
        };
    };
    constexpr auto TYPE = VISCA_INQ_E_EXTRA_STATUE;
    check({
        {"exposure follows", TYPE,
         extra(VISCA_MSG_E_EXP_FULLVIEW_FOLLOW_MODE, [] { ISP_API_SetExposureFullViewFollow(0, 1, RAM, NOW); }), "02"},
        {"white balance follows", TYPE,
         extra(VISCA_MSG_E_WB_FULLVIEW_FOLLOW_MODE, [] { ISP_API_SetWhiteBalanceFullViewFollow(0, 1, RAM, NOW); }),
         "02"},
        {"sensitivity", TYPE, extra(VISCA_MSG_E_WB_SENSI, [] { ISP_API_SetAwbSensitivity(0, 0, RAM, NOW); }), "00"},
        {"on a stand", TYPE, extra(VISCA_MSG_E_INSTALL_MODE, [] { SYS_API_SetMountMode(1, RAM, NOW); }), "02"},
        {"on the ceiling", TYPE, extra(VISCA_MSG_E_INSTALL_MODE, [] { SYS_API_SetMountMode(0, RAM, NOW); }), "03"},
        {"lens correction", TYPE,
         extra(VISCA_MSG_E_LENS_CORRECTION_MODE, [] { AF_API_SetDistortionCorrection(1, BU_TRUE, NOW); }), "02"},
        {"filter", TYPE, extra(VISCA_MSG_E_EXP_ND_FILTER, [] { ISP_API_SetNDFilter(0, 3, RAM, NOW); }), "03"},
        {"tele mode", TYPE, extra(VISCA_MSG_E_TELE_MODE, [] { SYS_API_SetSensorCrop(1, RAM, NOW); }), "02"},
        {"face focus", TYPE, extra(VISCA_MSG_E_FACE_AF_MODE, [] { AF_API_SetFaceAF(0, 1, RAM, NOW); }), "02"},
        {"manual iris", TYPE, extra(VISCA_MSG_E_IRIS_AUTO_MODE, [] { ISP_API_SetAutoIrisSwi(0, 0, RAM, NOW); }), "03"},
        {"a picture style", TYPE, extra(VISCA_MSG_E_ISP_STYLE_DEFAULT, [] {}), "refused"},
        {"image reset", TYPE, extra(VISCA_MSG_E_IMAGE_RESET, [] {}), "refused"},
    });
}

TEST_F(ViscaInquiry, Tracking)
{
    const auto start = [](BU_S32 s32Pos) { return [=](INFO &) { ALG_API_SetStartPos(s32Pos, RAM, NOW); }; };
    const auto speed = [](BU_S32 s32Speed) { return [=](INFO &) { ALG_API_SetTrackSpeed(s32Speed, RAM, NOW); }; };
    const auto people = [](BU_S32 s32Pos) { return [=](INFO &) { ALG_API_SetPeoplePos(s32Pos, RAM, NOW); }; };
    check({
        {"tracking", VISCA_INQ_E_YM_AUTO_TRACKING_STATUS, [](INFO &) { ALG_API_SetEnable(1, RAM, NOW); }, "02"},
        {"no tracking", VISCA_INQ_E_YM_AUTO_TRACKING_STATUS, [](INFO &) { ALG_API_SetEnable(0, RAM, NOW); }, "03"},
        {"no zoom", VISCA_INQ_E_YM_ZOOM_STATUS, [](INFO &) { ALG_API_SetAutoZoom(0, RAM, NOW); }, "03"},
        {"tilt", VISCA_INQ_E_YM_TILT_STATUS, [](INFO &) { ALG_API_SetAutoTilt(1, RAM, NOW); }, "02"},
        {"indicator", VISCA_INQ_E_YM_DETECTED_INDICATOR, [](INFO &) { ALG_API_SetTallyIndicator(0, RAM, NOW); }, "03"},
        {"start at preset 0", VISCA_INQ_E_YM_TRACKING_START, start(0), "02"},
        {"start at preset 1", VISCA_INQ_E_YM_TRACKING_START, start(1), "00"},
        {"start at home", VISCA_INQ_E_YM_TRACKING_START, start(-1), "refused"},
        {"start at preset 2", VISCA_INQ_E_YM_TRACKING_START, start(2), "refused"},
        {"start position", VISCA_INQ_E_YM_TRACKING_START_POSITION, start(0x5C), "05 0C"},
        {"start position home", VISCA_INQ_E_YM_TRACKING_START_POSITION, start(-1), "0F 0F"},
        {"reminder", VISCA_INQ_E_YM_OSD_REMINDER, [](INFO &) { ALG_API_SetDebug(1, RAM, NOW); }, "01"},
        {"no reminder", VISCA_INQ_E_YM_OSD_REMINDER, [](INFO &) { ALG_API_SetDebug(0, RAM, NOW); }, "00"},
        {"figure", VISCA_INQ_E_YM_FIGURE_SIZE, [](INFO &) { ALG_API_SetBodySize(3, RAM, NOW); }, "03"},
        {"own figure", VISCA_INQ_E_YM_CURRENT_CUSTOMIZED_FIGURE_SIZE,
         [](INFO &) { ALG_API_SetBodySizeCustom(360, RAM, NOW); }, "00 01 06 08"},
        {"in the middle", VISCA_INQ_E_YM_PLACEMENT_STATUS, people(TRACK_PEOPLE_POS_CENTER), "01"},
        {"on the right", VISCA_INQ_E_YM_PLACEMENT_STATUS, people(TRACK_PEOPLE_POS_RIGHT), "02"},
        {"on the left", VISCA_INQ_E_YM_PLACEMENT_STATUS, people(TRACK_PEOPLE_POS_LEFT), "00"},
        {"slow", VISCA_INQ_E_YM_AUTO_TRACKING_SPEED, speed(0), "02"},
        {"middle", VISCA_INQ_E_YM_AUTO_TRACKING_SPEED, speed(1), "01"},
        {"high", VISCA_INQ_E_YM_AUTO_TRACKING_SPEED, speed(2), "00"},
        {"fast", VISCA_INQ_E_YM_AUTO_TRACKING_SPEED, speed(4), "00"},
        {"smooth", VISCA_INQ_E_TKV_TRACKSPEED, speed(3), "00"},
        {"not smooth", VISCA_INQ_E_TKV_TRACKSPEED, speed(4), "01"},
        {"head", VISCA_INQ_E_TKV_HEAD_POS, [](INFO &) { ALG_API_SetHeadPos(2, RAM, NOW); }, "02"},
        {"gestures", VISCA_INQ_E_TKV_GESTURE_DETECT, [](INFO &) { ALG_API_SetGesture(1, RAM, NOW); }, "02"},
        {"no gestures", VISCA_INQ_E_TKV_GESTURE_DETECT, [](INFO &) { ALG_API_SetGesture(0, RAM, NOW); }, "03"},
    });
}
