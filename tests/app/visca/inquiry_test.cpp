// Inquiries of settings and positions.
#include "viscaTest.h"

#include "camera/focus.h"
#include "camera/image.h"
#include "camera/system.h"
#include "camera/tracking.h"

// clang-format off
TEST_F(ViscaInquiry, LensAndMotion)
{
    const auto memory = [](VISCA_CTRL_MEMORY_E enType) { return [=](INFO &st) { st.stMemoryCtrl = {enType, 5}; }; };
    check({
        {VISCA_INQ_E_ZOOM_SPEED,            {{"ZoomSpd", 7}},         "07"},
        {VISCA_INQ_E_DZOOM_LIMIT,           {{"DZoomTime", 10}},      "0A"},
        {VISCA_INQ_E_DZOOM_LIMIT,           {{"DZoomTime", 16}},      "00"},
        {VISCA_INQ_E_DZOOM_MODE,            {{"DZoom", 1}},           "02"},
        {VISCA_INQ_E_DZOOM_MODE,            {{"DZoom", 0}},           "03"},
        {VISCA_INQ_E_FOCUS_MODE,            {{"FocusAuto", 1}},       "02"},
        {VISCA_INQ_E_FOCUS_MODE,            {{"FocusAuto", 0}},       "03"},
        {VISCA_INQ_E_PAN_TILT_MAX_SPEED,    {},                       "18 14"},
        {VISCA_INQ_E_TKV_PT_SPEED,          {{"PanSpeed", 0x17}, {"TileSpeed", 0x05}}, "01 07 00 05"},
        {VISCA_INQ_E_TKV_PT_SPEED_MATCH,    {{"SpeedMatch", 1}},      "02"},
        {VISCA_INQ_E_TKV_PT_SPEED_MATCH,    {{"SpeedMatch", 0}},      "03"},
        {VISCA_INQ_E_TKV_PT_SPEED_ACCUARCY, {{"SpeedAccuracy", 1}},   "00"},
        {VISCA_INQ_E_TKV_PT_SPEED_ACCUARCY, {{"SpeedAccuracy", 10}},  "01"},
        {VISCA_INQ_E_TKV_PT_SPEED_ACCUARCY, {{"SpeedAccuracy", 100}}, "02"},
        {VISCA_INQ_E_MEMORY_STATUE,         {{"PresetSpeed", 24}},    "08", memory(VISCA_MSG_E_MEMORY_SPEED)}, // 0x18
        {VISCA_INQ_E_MEMORY_STATUE,         {{"PowerUpPtzPos", 9}},   "09", memory(VISCA_MSG_E_MEMORY_POWERUP)},
        {VISCA_INQ_E_MEMORY_STATUE,         {{"PowerUpPtzPos", -1}},  "00", memory(VISCA_MSG_E_MEMORY_POWERUP)},
        {VISCA_INQ_E_MEMORY_STATUE,         {{"!PresetMode", 1}},     "02", memory(VISCA_MSG_E_MEMORY_MODE)},
    });
}

TEST_F(ViscaInquiry, Exposure)
{
    check({
        {VISCA_INQ_E_AE_MODE,        {{"ExposureMode", AE_MODE_E_AUTO}},      "00"},
        {VISCA_INQ_E_AE_MODE,        {{"ExposureMode", AE_MODE_E_BRIGHT}},    "0D"},
        {VISCA_INQ_E_AE_MODE,        {{"ExposureMode", AE_MODE_E_SHUTTER}},   "0A"},
        {VISCA_INQ_E_AE_MODE,        {{"ExposureMode", AE_MODE_E_IRIS}},      "0B"},
        {VISCA_INQ_E_AE_MODE,        {{"ExposureMode", AE_MODE_E_MANUAL}},    "03"},
        {VISCA_INQ_E_SHUTTER_POS,    {{"Fps", HDMI_FPS_E_FPS59P94}, {"ShutterSpeedFps60", SHUTTER_TIME_10000}}, "00 00 01 05"},
        {VISCA_INQ_E_SHUTTER_POS,    {{"Fps", HDMI_FPS_E_FPS25}, {"ShutterSpeedFps25", SHUTTER_TIME_120}},      "00 00 00 09"},
        {VISCA_INQ_E_IRIS_POS,       {{"IrisLevel", 13}},             "00 00 00 0D"},
        {VISCA_INQ_E_GAIN_POS,       {{"Gain", 27}},                  "00 00 01 0B"},
        {VISCA_INQ_E_BRIGHT_POS,     {{"ExposureBrightness", 29}},    "00 00 01 0D"},
        {VISCA_INQ_E_EXP_COMP_MODE,  {{"ExposureCompensation", 1}},   "02"},
        {VISCA_INQ_E_EXP_COMP_MODE,  {{"ExposureCompensation", 0}},   "03"},
        {VISCA_INQ_E_EXP_COMP_POS,   {{"ExposureCompLevel", 7}},      "00 00 00 0E"}, // counted from the least, -7
        {VISCA_INQ_E_EXP_COMP_POS,   {{"ExposureCompLevel", -7}},     "00 00 00 00"},
        {VISCA_INQ_E_BACKLIGHT_MODE, {{"BacklightCompensation", 1}},  "02"},
        {VISCA_INQ_E_BACKLIGHT_MODE, {{"BacklightCompensation", 0}},  "03"},
        {VISCA_INQ_E_APERTURE,       {{"Sharpness", 15}},             "00 00 00 0F"},
    });
}

TEST_F(ViscaInquiry, WhiteBalance)
{
    const auto strength = [](VISCA_CTRL_AWB_GAIN_E en) { return [=](INFO &st) { st.stAwbGainCtrl.enAwbGainType = en; }; };
    const std::vector<std::pair<std::string, BU_S32>> strengths = {{"RStrength", 0x12}, {"GStrength", 0x34}, {"BStrength", 0xF6}};
    check({
        {VISCA_INQ_E_WB_MODE,      {{"WbMode", WB_MODE_E_AUTO}},     "00"},
        {VISCA_INQ_E_WB_MODE,      {{"WbMode", WB_MODE_E_MANUAL}},   "05"},
        {VISCA_INQ_E_WB_MODE,      {{"WbMode", WB_MODE_E_INDOOR}},   "01"},
        {VISCA_INQ_E_WB_MODE,      {{"WbMode", WB_MODE_E_OUTDOOR}},  "02"},
        {VISCA_INQ_E_WB_MODE,      {{"WbMode", WB_MODE_E_STATIC}},   "0B"},
        {VISCA_INQ_E_WB_MODE,      {{"WbMode", WB_MODE_E_ONE_PUSH}}, "03"},
        {VISCA_INQ_E_RGAIN,        {{"RGain", 0xA5}},    "00 00 0A 05"},
        {VISCA_INQ_E_BGAIN,        {{"BGain", 255}},     "00 00 0F 0F"},
        {VISCA_INQ_E_GGAIN,        {{"GGain", 0x10}},    "00 00 01 00"},
        {VISCA_INQ_E_AWB_GAIN,     strengths,            "01 02", strength(VISCA_MSG_E_AWB_RGAIN)},
        {VISCA_INQ_E_AWB_GAIN,     strengths,            "0F 06", strength(VISCA_MSG_E_AWB_BGAIN)},
        {VISCA_INQ_E_AWB_GAIN,     strengths,            "03 04", strength(VISCA_MSG_E_AWB_GGAIN)},
        {VISCA_INQ_E_WB_COLOR_TMP, {{"ColorTemp", 6500}}, "02 05"}, // the 37th step of 100 from 2800
        {VISCA_INQ_E_WB_COLOR_TMP, {{"ColorTemp", 2950}}, "00 01"}, // in the first step
    });
}

TEST_F(ViscaInquiry, PictureParameters)
{
    constexpr auto TYPE = VISCA_INQ_E_VIDEO_PARAMETER;
    const auto param = [](BU_S32 s32Type, BU_U8 u8Delivered = 0) {
        return [=](INFO &st) { st.stVideoParamCtrl = {static_cast<VISCA_CTRL_VIDEO_PARAM_E>(s32Type), u8Delivered}; };
    };
    check({
        {TYPE, {{"Sharpness", 12}},    "00 0C", param(0)},
        {TYPE, {{"Brightness", 11}},   "00 0B", param(1)},
        {TYPE, {{"Contrast", 10}},     "00 0A", param(2)},
        {TYPE, {{"Saturation", 9}},    "00 09", param(3)},
        {TYPE, {{"Hue", 8}},           "00 08", param(4)},
        {TYPE, {{"Nr2d", 5}},          "05",    param(5)},
        {TYPE, {{"Nr3d", 8}},          "08",    param(6)},
        {TYPE, {{"Gamma", 4}},         "04",    param(7)},
        {TYPE, {{"WdrSwi", 1}, {"WdrMode", 3}}, "04", param(8)},
        {TYPE, {{"WdrSwi", 0}},        "5A",    param(8, 0x5A)},
        {TYPE, {{"Mirror", 1}},        "02",    param(9)},
        {TYPE, {{"Mirror", 0}},        "03",    param(9)},
        {TYPE, {{"Flip", 1}},          "02",    param(10)},
        {TYPE, {{"!AntiFlicker", 0}},  "01",    param(11)},
        {TYPE, {{"!AntiFlicker", 1}},  "02",    param(11)},
        {TYPE, {{"!AntiFlicker", 2}},  "00",    param(11)},
        {TYPE, {{"!ImageFreeze", 1}},  "02",    param(12)},
        {TYPE, {},                     "refused", param(13)},
        {TYPE, {},                     "refused", param(-1)},
    });
    INFO stInfo{}; // parameters that only commands know have no payload
    stInfo.stVideoParamCtrl = {VISCA_MSG_E_DIRECT_EXP_METER, 9};
    EXPECT_EQ(payload(TYPE, stInfo), "");
}

TEST_F(ViscaInquiry, ExtraImageSettings)
{
    constexpr auto TYPE = VISCA_INQ_E_EXTRA_STATUE;
    const auto extra = [](VISCA_CTRL_EXTREA_ISP_E en) { return [=](INFO &st) { st.stExtraIspCtrl.enExtraIspType = en; }; };
    check({
        {TYPE, {{"ViewFollowExposure", 1}}, "02", extra(VISCA_MSG_E_EXP_FULLVIEW_FOLLOW_MODE)},
        {TYPE, {{"ViewFollowWB", 1}},       "02", extra(VISCA_MSG_E_WB_FULLVIEW_FOLLOW_MODE)},
        {TYPE, {{"WbSensitivity", 0}},      "00", extra(VISCA_MSG_E_WB_SENSI)},
        {TYPE, {{"MountMode", 1}},          "02", extra(VISCA_MSG_E_INSTALL_MODE)},
        {TYPE, {{"MountMode", 0}},          "03", extra(VISCA_MSG_E_INSTALL_MODE)},
        {TYPE, {{"!DistortionCorre", 1}},   "02", extra(VISCA_MSG_E_LENS_CORRECTION_MODE)},
        {TYPE, {{"ND-Filter", 3}},          "03", extra(VISCA_MSG_E_EXP_ND_FILTER)},
        {TYPE, {{"SensorCrop", 1}},         "02", extra(VISCA_MSG_E_TELE_MODE)},
        {TYPE, {{"FaceAF", 1}},             "02", extra(VISCA_MSG_E_FACE_AF_MODE)},
        {TYPE, {{"AutoIris", 0}},           "03", extra(VISCA_MSG_E_IRIS_AUTO_MODE)},
        {TYPE, {},                          "refused", extra(VISCA_MSG_E_ISP_STYLE_DEFAULT)},
        {TYPE, {},                          "refused", extra(VISCA_MSG_E_IMAGE_RESET)},
    });
}

TEST_F(ViscaInquiry, Tracking)
{
    check({
        {VISCA_INQ_E_YM_AUTO_TRACKING_STATUS,    {{"TrackEnabled", 1}},   "02"},
        {VISCA_INQ_E_YM_AUTO_TRACKING_STATUS,    {{"TrackEnabled", 0}},   "03"},
        {VISCA_INQ_E_YM_ZOOM_STATUS,             {{"AutoZoom", 0}},       "03"},
        {VISCA_INQ_E_YM_TILT_STATUS,             {{"AutoTilt", 1}},       "02"},
        {VISCA_INQ_E_YM_DETECTED_INDICATOR,      {{"TallyIndicator", 0}}, "03"},
        {VISCA_INQ_E_YM_TRACKING_START,          {{"StartPos", 0}},       "02"},
        {VISCA_INQ_E_YM_TRACKING_START,          {{"StartPos", 1}},       "00"},
        {VISCA_INQ_E_YM_TRACKING_START,          {{"StartPos", -1}},      "refused"},
        {VISCA_INQ_E_YM_TRACKING_START,          {{"StartPos", 2}},       "refused"},
        {VISCA_INQ_E_YM_TRACKING_START_POSITION, {{"StartPos", 0x5C}},    "05 0C"},
        {VISCA_INQ_E_YM_TRACKING_START_POSITION, {{"StartPos", -1}},      "0F 0F"},
        {VISCA_INQ_E_YM_OSD_REMINDER,            {{"TrackDebug", 1}},     "01"},
        {VISCA_INQ_E_YM_OSD_REMINDER,            {{"TrackDebug", 0}},     "00"},
        {VISCA_INQ_E_YM_FIGURE_SIZE,             {{"BodySize", 3}},       "03"},
        {VISCA_INQ_E_YM_CURRENT_CUSTOMIZED_FIGURE_SIZE, {{"BodySizeCustom", 360}}, "00 01 06 08"},
        {VISCA_INQ_E_YM_PLACEMENT_STATUS,        {{"PeoplePos", TRACK_PEOPLE_POS_CENTER}}, "01"},
        {VISCA_INQ_E_YM_PLACEMENT_STATUS,        {{"PeoplePos", TRACK_PEOPLE_POS_RIGHT}},  "02"},
        {VISCA_INQ_E_YM_PLACEMENT_STATUS,        {{"PeoplePos", TRACK_PEOPLE_POS_LEFT}},   "00"},
        {VISCA_INQ_E_YM_AUTO_TRACKING_SPEED,     {{"TrackSpeed", 0}},     "02"},
        {VISCA_INQ_E_YM_AUTO_TRACKING_SPEED,     {{"TrackSpeed", 1}},     "01"},
        {VISCA_INQ_E_YM_AUTO_TRACKING_SPEED,     {{"TrackSpeed", 2}},     "00"},
        {VISCA_INQ_E_YM_AUTO_TRACKING_SPEED,     {{"TrackSpeed", 4}},     "00"},
        {VISCA_INQ_E_TKV_TRACKSPEED,             {{"TrackSpeed", 3}},     "00"},
        {VISCA_INQ_E_TKV_TRACKSPEED,             {{"TrackSpeed", 4}},     "01"},
        {VISCA_INQ_E_TKV_HEAD_POS,               {{"HeadPos", 2}},        "02"},
        {VISCA_INQ_E_TKV_GESTURE_DETECT,         {{"Gesture", 1}},        "02"},
        {VISCA_INQ_E_TKV_GESTURE_DETECT,         {{"Gesture", 0}},        "03"},
    });
}
// clang-format on

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
