// Every image setting of the camera services is seen in the picture, and its way back leaves no trace.
#include "support/picture.h"

#include "camera/focus.h"
#include "camera/motion.h"
#include "camera/settingEvent.h"
#include "camera/zoom.h"
#include "support/platformTest.h"

#include <cmath>

namespace
{
constexpr BU_S32 WIDTH = 320, HEIGHT = 180;

typedef std::vector<std::pair<const char *, BU_S32>> Settings;

struct Effects : PlatformTest {
    Effects() { BSP_PTProcInit(0, nullptr), ZF_API_StartService(); }
    static void set(const Settings &settings)
    {
        for (const auto &[pcKey, s32Value] : settings)
            EXPECT_EQ(CFG_SETTING_Set(pcKey, 0, s32Value, BU_TRUE, BU_TRUE), 0) << pcKey << ' ' << s32Value;
    }
    /// The settled picture of the close-up at one moment of the scene.
    Picture look()
    {
        PICTURE_SETTINGS_S stSettings;
        SCENE_VIEW_S stView;
        PICTURE_STATE_S stState;
        Picture picture(WIDTH, HEIGHT);
        EXPECT_EQ(PICTURE_ReadSettings(0, &stSettings), 0);
        EXPECT_EQ(PICTURE_ReadView(&stView), 0);
        EXPECT_EQ(PICTURE_Render(m_scene.get(), &stView, stSettings, stState, 1'000'000, picture.frame()), 0);
        return picture;
    }
    Scene m_scene{SCENE_Open("synthetic")};
};

const Settings AUTOMATIC, BY_HAND = {{"ExposureMode", AE_MODE_E_MANUAL}}, WB_BY_HAND = {{"WbMode", WB_MODE_E_MANUAL}},
                          WB_STATIC = {{"WbMode", WB_MODE_E_STATIC}},
                          GRAINY = {{"ExposureMode", AE_MODE_E_MANUAL}, {"Gain", 24}, {"ND-Filter", 2}};

TEST_F(Effects, EverySettingIsSeen)
{
    // clang-format off
    const std::tuple<Settings, const char *, BU_S32> astRows[] = { // the first: what it matters with
        {AUTOMATIC, "Brightness", 12}, {AUTOMATIC, "Contrast", 12}, {AUTOMATIC, "Saturation", 14}, {GRAINY, "Nr2d", 0},
        {AUTOMATIC, "Hue", 12}, {AUTOMATIC, "Sharpness", 14}, {AUTOMATIC, "Gamma", 3}, {AUTOMATIC, "MonoChrome", 1},
        {AUTOMATIC, "RColorHue", 8}, {AUTOMATIC, "BColorSat", 0}, {GRAINY, "Nr3d", 0}, {AUTOMATIC, "WdrSwi", 1},
        {{{"WdrSwi", 1}}, "WdrMode", 5}, {AUTOMATIC, "HdrSwi", 1}, {AUTOMATIC, "ImageStyle", Bright_STYLE},
        {BY_HAND, "Gain", 18}, {AUTOMATIC, "ImageStyle", Soft_STYLE}, {AUTOMATIC, "ExposureMode", AE_MODE_E_MANUAL},
        {BY_HAND, "IrisLevel", 4}, {BY_HAND, "ShutterSpeedFps60", SHUTTER_TIME_725}, {BY_HAND, "ND-Filter", 2},
        {{{"ExposureMode", AE_MODE_E_SHUTTER}}, "ShutterSpeedFps60", SHUTTER_TIME_10000}, {WB_BY_HAND, "RGain", 200},
        {{{"ExposureMode", AE_MODE_E_BRIGHT}}, "ExposureBrightness", 27}, {AUTOMATIC, "BacklightCompensation", 1},
        {{{"ExposureMode", AE_MODE_E_IRIS}}, "IrisLevel", 1}, {{{"ExposureCompensation", 1}}, "ExposureCompLevel", 5},
        {{{"ExposureMode", AE_MODE_E_IRIS}, {"IrisLevel", 1}}, "GainLimit", 0}, {AUTOMATIC, "WbMode", WB_MODE_E_INDOOR},
        {AUTOMATIC, "AntiFlicker", FREQ_MODE_E_60HZ}, {WB_BY_HAND, "GGain", 200}, {WB_BY_HAND, "BGain", 200},
        {WB_STATIC, "ColorTemp", 3000}, {WB_STATIC, "StaticMode", 1}, {AUTOMATIC, "RStrength", 200},
        {AUTOMATIC, "SensorCrop", 1}, {AUTOMATIC, "DistortionCorre", 1},
    };
    // clang-format on
    for (const auto &[before, pcKey, s32Value] : astRows) {
        SCOPED_TRACE(std::string(pcKey) + " " + std::to_string(s32Value));
        CFG_STORE_Erase("");
        CFG_SETTING_Reload();
        set(before);
        const Picture plain = look();
        BU_S32 s32Was = 0;
        EXPECT_EQ(CFG_SETTING_Get(pcKey, 0, &s32Was, BU_FALSE), 0);
        set({{pcKey, s32Value}});
        EXPECT_GT(look().difference(plain), 0.15);
        set({{pcKey, s32Was}});
        EXPECT_EQ(look(), plain);
    }
}

TEST_F(Effects, LongShutterSmearsWhatMovesAcross)
{
    tagAE_MODE_E enMode{};
    const auto sharpness = [&](BU_FLOAT fShutterS, BU_FLOAT fTurn, bool bAcross) {
        PICTURE_SETTINGS_S st;
        st.enAeMode = enMode, st.fShutterS = fShutterS;
        PICTURE_STATE_S stState;
        Picture picture(WIDTH, HEIGHT);
        for (int i = 0; i < 3; ++i) {
            const SCENE_VIEW_S stView{.fPan = 0.5F * std::round(fTurn * static_cast<float>(i - 2))};
            EXPECT_EQ(PICTURE_Render(m_scene.get(), &stView, st, stState, 33'333 * i, picture.frame()), 0);
        }
        return picture.steps(bAcross, !bAcross);
    };
    constexpr BU_FLOAT LONG_S = 1.0F / 25, SHORT_S = 1.0F / 60, TURN = 6; // 3 degrees a picture
    for (const auto &[en, bByHand] : {std::pair(AE_MODE_E_AUTO, false),
                                      {AE_MODE_E_MANUAL, true},
                                      {AE_MODE_E_IRIS, false},
                                      {AE_MODE_E_SHUTTER, true}}) {
        enMode = en;
        EXPECT_EQ(sharpness(LONG_S, TURN, true) < 0.6 * sharpness(LONG_S, 0, true), bByHand) << en;
    }
    EXPECT_GT(sharpness(LONG_S, TURN, false), 0.7 * sharpness(LONG_S, 0, false)) << "edges along the way stay";
    EXPECT_EQ(sharpness(SHORT_S, TURN, true), sharpness(SHORT_S, 0, true));
}
} // namespace
