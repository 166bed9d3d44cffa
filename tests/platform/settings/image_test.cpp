// Image settings that are more than a row: shutter by frame rate, colours, one-push, reset; and the keys of them all.
#include "camera/focus.h"
#include "camera/image.h"
#include "camera/motion.h"
#include "camera/preset.h"
#include "camera/sound.h"
#include "camera/tracking.h"
#include "camera/video.h"
#include "camera/zoom.h"
#include "settingsTest.h"
#include "vocabulary/wordSetters.h"

using testing::ElementsAre;

using ImageSettings = PlatformTest;

// clang-format off
/// The keys are the menu's; functions have other names.
TEST_F(ImageSettings, SettersReachTheSettingsOfTheMenu)
{
    using SetDev = BU_S32 (*)(BU_S32, BU_S32, BU_BOOL, BU_BOOL);
    using Set = BU_S32 (*)(BU_S32, BU_BOOL, BU_BOOL);
    const std::tuple<SetDev, Set, const BU_CHAR *> rows[] = {
        {ISP_API_Set2DNR, nullptr, "Nr2d"}, {ISP_API_Set3DNR, nullptr, "Nr3d"}, {ISP_API_SetDrcSwi, nullptr, "WdrSwi"},
        {ISP_API_SetDrcMode, nullptr, "WdrMode"}, {ISP_API_SetBackLight, nullptr, "BacklightCompensation"},
        {ISP_API_SetExpCompSwi, nullptr, "ExposureCompensation"}, {ISP_API_SetAeMode, nullptr, "ExposureMode"},
        {ISP_API_SetExpBrightness, nullptr, "ExposureBrightness"}, {ISP_API_SetAeMeterMode, nullptr, "AEMeterMode"},
        {ISP_API_SetNDFilter, nullptr, "ND-Filter"}, {ISP_API_SetStWbMode, nullptr, "ColorTemp"},
        {ISP_API_SetAwbSensitivity, nullptr, "WbSensitivity"}, {ISP_API_SetIspBinUsage, nullptr, "ImageStyle"},
        {ISP_API_SetExposureFullViewFollow, nullptr, "ViewFollowExposure"}, {PTZ_API_SetDZoomMode, nullptr, "DZoom"},
        {ISP_API_SetWhiteBalanceFullViewFollow, nullptr, "ViewFollowWB"},
        {ISP_API_SetShutter, nullptr, "ShutterSpeedFps60"}, {ISP_API_SetShutterValue, nullptr, "ShutterValueFps60"},
        {PTZ_API_SetMaxDZoomTime, nullptr, "DZoomTime"},
        {AF_API_SetFocusRange, nullptr, "FocusDistance"}, {PT_API_SetPtSpeedMatch, nullptr, "SpeedMatch"},
        {PRESET_API_SetPresetSpeed, nullptr, "PresetSpeed"},
        {nullptr, AF_API_SetDistortionCorrection, "DistortionCorre"}, {nullptr, ALG_API_SetEnable, "TrackEnabled"},
        {nullptr, SYS_API_SetAudioinput, "AudioInput"},
    };
    for (const auto &[pfnSetDev, pfnSet, pcKey] : rows) {
        BU_S32 s32Default = 0, s32Set = 0;
        ASSERT_EQ(ISP_AF_GetDefVal(pcKey, &s32Default), 0) << pcKey;
        for (const BU_S32 s32 : {s32Default + 1, s32Default - 1}) // one of the two is in every range
            if ((pfnSet ? pfnSet(s32, BU_FALSE, BU_TRUE) : pfnSetDev(0, s32, BU_FALSE, BU_TRUE)) == 0) s32Set = s32;
        EXPECT_EQ(running(pcKey), s32Set) << pcKey;
    }
}

TEST_F(ImageSettings, EachRateKeepsAShutterOfItsOwn)
{
    const struct { const BU_CHAR *pcFps, *pcKey; BU_S32 s32Default; } rows[] = {
        {"Fps60", "ShutterSpeedFps60", SHUTTER_TIME_60}, {"Fps59p94", "ShutterSpeedFps60", SHUTTER_TIME_60},
        {"Fps50", "ShutterSpeedFps50", SHUTTER_TIME_50}, {"Fps30", "ShutterSpeedFps30", SHUTTER_TIME_30},
        {"Fps29p97", "ShutterSpeedFps60", SHUTTER_TIME_60}, {"Fps25", "ShutterSpeedFps25", SHUTTER_TIME_25},
        {"Fps24", "ShutterSpeedFps24", SHUTTER_TIME_24}, {"Fps23p98", "ShutterSpeedFps60", SHUTTER_TIME_60},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.pcFps);
        CFG_STORE_Open(nullptr);
        CFG_SETTING_Reload();
        ISP_API_SetShutter(0, SHUTTER_TIME_10000, BU_TRUE, BU_TRUE); // at 60
        ASSERT_EQ(SYSTEM_API_SetHdmiFps(row.pcFps, BU_TRUE), 0);
        HDMI_FPS_E enFps{};
        SYSTEM_API_GetHdmiFps(&enFps);
        EXPECT_STREQ(ISP_API_GetShutterConfigNameByHdmiFps(enFps), row.pcKey);
        BU_S32 s32Shutter = -1, s32Default = -1;
        ISP_AF_GetDefVal("ShutterSpeed", &s32Default);
        EXPECT_EQ(s32Default, row.s32Default);
        ISP_API_GetShutter(0, &s32Shutter);
        const bool bOwn = row.pcKey != std::string("ShutterSpeedFps60");
        EXPECT_EQ(s32Shutter, bOwn ? row.s32Default : SHUTTER_TIME_10000);
        ISP_API_SetShutter(0, SHUTTER_TIME_500, BU_TRUE, BU_TRUE);
        EXPECT_EQ(running(row.pcKey), SHUTTER_TIME_500);
        SYSTEM_API_SetHdmiFps("Fps60", BU_TRUE);
        ISP_API_GetShutter(0, &s32Shutter);
        EXPECT_EQ(s32Shutter, bOwn ? SHUTTER_TIME_10000 : SHUTTER_TIME_500);
    }
}
// clang-format on

TEST_F(ImageSettings, ColoursAreSixAndApart)
{
    const BU_CHAR *const apcHue[] = {"RColorHue", "YColorHue", "GColorHue", "CColorHue", "BColorHue", "MColorHue"};
    const BU_CHAR *const apcSat[] = {"RColorSat", "YColorSat", "GColorSat", "CColorSat", "BColorSat", "MColorSat"};
    for (BU_S32 i = 1; i <= 6; ++i) {
        EXPECT_EQ(ISP_API_SetColorHue(1, i, -i, BU_TRUE, BU_TRUE), 0);
        EXPECT_EQ(ISP_API_SetColorSat(1, i, 10 * i, BU_TRUE, BU_TRUE), 0);
    }
    for (BU_S32 i = 1; i <= 6; ++i)
        EXPECT_EQ(std::pair(running(apcHue[i - 1], 1), running(apcSat[i - 1], 1)), std::pair(-i, 10 * i));
    BU_S32 s32Value = 0;
    for (const BU_S32 s32Color : {0, 7, -1}) {
        EXPECT_EQ(ISP_API_SetColorHue(0, s32Color, 0, BU_TRUE, BU_TRUE), -1);
        EXPECT_EQ(ISP_API_GetColorSat(0, s32Color, &s32Value, BU_TRUE), -1);
    }
}

TEST_F(ImageSettings, OnePushEndsByItselfAndStartsAnewWhenAskedAgain)
{
    const Heard heard;
    EXPECT_EQ(ISP_API_SetOnePushAwb(0, "Off", BU_TRUE, BU_TRUE), 0); // the way a controller triggers it
    clock().advance(500);
    EXPECT_EQ(ISP_API_SetOnePushAwb(0, 1, BU_TRUE, BU_TRUE), 0);
    EXPECT_THAT(heard.texts, ElementsAre("OnePush/0=1", "OnePush/0=1"));
    clock().advance(500); // past the end of the first
    BU_BOOL bDone = BU_TRUE;
    EXPECT_EQ(ISP_API_TriggerAwbOnePush(1, &bDone), 0);
    EXPECT_FALSE(bDone);
    clock().advance(1000);
    EXPECT_THAT(heard.texts, ElementsAre("OnePush/0=1", "OnePush/0=1", "OnePush/1=1", "OnePush/0=0", "OnePush/1=0"));
    EXPECT_EQ(ISP_API_SetOnePushAwb(0, "on", BU_TRUE, BU_TRUE), -1);
    EXPECT_EQ(ISP_API_SetOnePushAwb(2, 1, BU_TRUE, BU_TRUE), -1);
}

TEST_F(ImageSettings, ResetTakesBackThePictureOfOnePipelineOnly)
{
    for (const BU_S32 s32Pipe : {0, 1}) {
        ISP_API_SetContrast(s32Pipe, 1, BU_TRUE, BU_TRUE);
        ISP_API_SetColorHue(s32Pipe, 3, 9, BU_TRUE, BU_TRUE);
        ISP_API_SetGain(s32Pipe, 20, BU_TRUE, BU_TRUE);
    }
    EXPECT_EQ(ISP_API_Reset(1), 0);
    CFG_SETTING_Reload(); // stored as well
    for (const auto &[pcKey, s32First, s32Second] :
         {std::tuple("Contrast", 1, 7), {"GColorHue", 9, 0}, {"Gain", 20, 20}})
        EXPECT_EQ(std::pair(running(pcKey, 0), running(pcKey, 1)), std::pair(s32First, s32Second)) << pcKey;
    journal::inject("CFG_STORE_Erase", -1);
    EXPECT_EQ(ISP_API_Reset(0), -1);
    EXPECT_EQ(running("Contrast", 0), 1);
}

TEST_F(ImageSettings, TheMenuSelectsItsPipelines)
{
    EXPECT_EQ(ISP_API_SetCurDevWB("Panorama"), 0);
    EXPECT_EQ(ISP_API_SetCurDevWB("panorama"), -1);
    EXPECT_STREQ(ISP_API_GetCurDevWhiteBalanceName(), "WhiteBalance1");
    EXPECT_STREQ(ISP_API_GetCurDevImageName(), "Image0");
    ISP_API_SetRGain(ISP_API_GetCurDevWhiteBalanceId(), 9, BU_TRUE, BU_TRUE);
    BU_S32 s32Stored = 0;
    EXPECT_EQ(CFG_STORE_GetInt((std::string(ISP_API_GetCurDevWhiteBalanceName()) + "/RGain").c_str(), &s32Stored), 0);
    EXPECT_EQ(s32Stored, 9);
    ISP_API_SetCurDevWB("CloseUp");
}
