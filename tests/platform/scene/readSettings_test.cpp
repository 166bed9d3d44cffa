// What the camera services hold, as the picture takes it.
#include "scene/scene.h"

#include "camera/focus.h"
#include "camera/menu.h"
#include "camera/motion.h"
#include "camera/picture.h"
#include "camera/settingEvent.h"
#include "camera/zoom.h"
#include "vocabulary/tables.h"

#include "support/platformTest.h"

#include <algorithm>

namespace
{
struct ReadSettings : PlatformTest {
    static PICTURE_SETTINGS_S read(BU_S32 s32Pipe)
    {
        PICTURE_SETTINGS_S st;
        EXPECT_EQ(PICTURE_ReadSettings(s32Pipe, &st), 0);
        return st;
    }
};

TEST_F(ReadSettings, FactorySettingsAreNeutral)
{
    EXPECT_EQ(read(0), PICTURE_SETTINGS_S{});
    EXPECT_EQ(read(1), PICTURE_SETTINGS_S{});
    PICTURE_SETTINGS_S st;
    EXPECT_EQ(PICTURE_ReadSettings(2, &st), -1);
    EXPECT_EQ(PICTURE_ReadSettings(0, nullptr), -1);
}

TEST_F(ReadSettings, EndsOfRangesAndUnits)
{
    const auto set = [](const char *pcKey, BU_S32 s32Value) {
        EXPECT_EQ(CFG_SETTING_Set(pcKey, 0, s32Value, BU_FALSE, BU_TRUE), 0) << pcKey;
    };
    // clang-format off
    for (const auto &[pcKey, s32Value] : {
             std::pair{"Brightness", 14}, {"Contrast", 0}, {"Hue", 14}, {"Sharpness", 15}, {"Gamma", 4}, {"Nr2d", 0},
             {"GColorHue", -10}, {"MColorSat", 100}, {"WdrSwi", 1}, {"WdrMode", 5}, {"ImageStyle", 6}, {"RGain", 64},
             {"ExposureMode", 4}, {"IrisLevel", 0}, {"Gain", 27}, {"ND-Filter", 2}, {"ExposureCompLevel", 5}})
        // clang-format on
        set(pcKey, s32Value);
    EXPECT_EQ(ISP_API_SetShutter(0, SHUTTER_TIME_725, BU_FALSE, BU_TRUE), 0);
    PICTURE_SETTINGS_S stExpected;
    stExpected.fBrightness = stExpected.fHue = stExpected.fSharpness = stExpected.fGamma = 1;
    stExpected.fContrast = stExpected.afColourHue[2] = -1;
    stExpected.fNr2d = stExpected.fIrisF = 0;
    stExpected.afColourSat[5] = 1, stExpected.afGain[0] = 0.5F;
    stExpected.s32Wdr = 6, stExpected.fNdStops = 4, stExpected.fGainDb = 27, stExpected.fShutterS = 1.0F / 725;
    stExpected.enStyle = Bright_STYLE, stExpected.enAeMode = AE_MODE_E_MANUAL;
    EXPECT_EQ(read(0), stExpected) << "compensation is off";
    EXPECT_EQ(read(1), PICTURE_SETTINGS_S{});

    set("ExposureCompensation", 1);
    set("ShutterMode", 0); // free: the value counts, not the step
    EXPECT_EQ(ISP_API_SetShutterValue(0, 333, BU_FALSE, BU_TRUE), 0);
    EXPECT_FLOAT_EQ(read(0).fExpCompStops, 2);
    EXPECT_FLOAT_EQ(read(0).fShutterS, 1.0F / 333);

    set("ViewFollowExposure", 1); // the full view follows the close-up where it is told to, and in nothing else
    EXPECT_EQ(read(1).enAeMode, AE_MODE_E_MANUAL);
    EXPECT_EQ(read(1).afGain[0], 1);
    set("ViewFollowWB", 1);
    EXPECT_EQ(read(1).afGain[0], 0.5F);
    EXPECT_EQ(read(1).fBrightness, 0);
}

/// The words of the steps hold the denominator of the time and the f-number.
TEST_F(ReadSettings, StepsAreWhatTheirWordsSay)
{
    for (const auto &row : MAP_SHUTTER_TIME) {
        EXPECT_EQ(ISP_API_SetShutter(0, row.value, BU_FALSE, BU_TRUE), 0);
        EXPECT_FLOAT_EQ(read(0).fShutterS, 1 / std::stof(row.text + 2)) << row.text;
    }
    for (const auto &row : MAP_IRIS_LEVEL) {
        std::string strNumber = row.value == 0 ? "IlF0" : row.text;
        std::ranges::replace(strNumber, 'P', '.');
        EXPECT_EQ(ISP_API_SetIrisLevel(0, row.value, BU_FALSE, BU_TRUE), 0);
        EXPECT_FLOAT_EQ(read(0).fIrisF, std::stof(strNumber.substr(3))) << row.text;
    }
}

TEST_F(ReadSettings, CeilingTurnsTheCloseUpBy180Degrees)
{
    for (const auto &[s32Mount, s32Mirror, s32Flip, bMirror, bFlip] :
         {std::tuple{1, 1, 0, true, false}, {0, 0, 0, true, true}, {0, 1, 0, false, true}}) {
        SYS_API_SetMountMode(s32Mount, BU_FALSE, BU_TRUE);
        SYS_API_SetMirror(s32Mirror, BU_FALSE, BU_TRUE);
        SYS_API_SetFlip(s32Flip, BU_FALSE, BU_TRUE);
        EXPECT_EQ(read(0).bMirror, bMirror) << s32Mount;
        EXPECT_EQ(read(0).bFlip, bFlip) << s32Mount;
        EXPECT_EQ(read(1).bMirror, BU_FALSE);
    }
}

TEST_F(ReadSettings, ViewFollowsHeadAndLens)
{
    BSP_PTProcInit(0, nullptr);
    ZF_API_StartService();
    const auto view = [] {
        SCENE_VIEW_S st;
        EXPECT_EQ(PICTURE_ReadView(&st), 0);
        return st;
    };
    EXPECT_EQ(view(), SCENE_VIEW_S{});
    // clang-format off
    const PT_MOTION_CTRL_S stMove{.u32PTDev = 0, .enMotionType = PT_MOTION_E_ABS_POS, .stPos = {585000, 525000}, // 30, -10 degrees
                                  .stSpd = {24, 24}, .u16SpdMul = 1};
    // clang-format on
    EXPECT_EQ(BSP_PTCtrlMotion(PT_CTRL_E_FROM_OTHER, &stMove, nullptr), 1);
    EXPECT_EQ(PTZ_API_SetZoomTime(0, 4, 7), 0);
    clock().advance(60'000);
    EXPECT_NEAR(view().fPan, 30, 0.01);
    EXPECT_NEAR(view().fTilt, -10, 0.01);
    EXPECT_NEAR(view().fMagnification, 4, 0.01);
    EXPECT_EQ(view().fDefocus, 0) << "the automatic focus has followed";

    EXPECT_EQ(AF_API_SetFocusAuto(0, BU_FALSE, BU_FALSE, BU_TRUE), 0);
    EXPECT_EQ(AF_API_SetFocusPos(0, 7095), 0);
    clock().advance(10'000);
    EXPECT_GT(view().fDefocus, 1) << "set to the near end";
    EXPECT_EQ(AF_API_TriggerAutoFocus(0), 0);
    clock().advance(20'000);
    EXPECT_NEAR(view().fDefocus, 0, 0.02);
    EXPECT_EQ(PICTURE_ReadView(nullptr), -1);
    for (const char *pc : {"BSP_PTGetCurPos", "PTZ_API_GetFieldOfView", "AF_API_GetFocusPos", "PTZ_API_GetZoomPos"}) {
        SCENE_VIEW_S st;
        journal::inject(pc, 7);
        EXPECT_EQ(PICTURE_ReadView(&st), -1) << pc;
    }
}
} // namespace
