// White balance, exposure, shutter, picture parameters and the extra image settings.
#include "camera/image.h"
#include "camera/system.h"
#include "camera/systemService.h"
#include "commandTest.h"

namespace
{
using CommandPicture = CommandTest;
using testing::HasSubstr;

// clang-format off
TEST_F(CommandPicture, WhiteBalanceModesAreWords)
{
    const auto mode = with<&Info::enWbModeCtrl, VISCA_CTRL_WB_MODE_E>;
    passes(viscaCtrlWbMode, {{mode(VISCA_MSG_E_WB_AUTO),              {"ISP_API_SetWbMode(0, 0, 1, 1)"}},
                             {mode(VISCA_MSG_E_WB_MANUAL),            {"ISP_API_SetWbMode(0, 1, 1, 1)"}},
                             {mode(VISCA_MSG_E_WB_INDOOR),            {"ISP_API_SetWbMode(0, 2, 1, 1)"}},
                             {mode(VISCA_MSG_E_WB_OUTDOOR),           {"ISP_API_SetWbMode(0, 3, 1, 1)"}},
                             {mode(VISCA_MSG_E_WB_COLOR_TEMPERATURE), {"ISP_API_SetWbMode(0, 4, 1, 1)"}},
                             {mode(VISCA_MSG_E_WB_ONE_PUSH_WB),       {"ISP_API_SetWbMode(0, 5, 1, 1)"}},
                             {mode(VISCA_MSG_E_WB_ONE_PUSH_TRIGGER),  {"ISP_API_SetOnePushAwb(0, 0, 1, 1)"}}});
    const auto strength = with<&Info::stAwbGainCtrl, VISCA_CTRL_AWB_GAIN_E, BU_S32>;
    passes(viscaCtrlAwbGain, {{strength(VISCA_MSG_E_AWB_RGAIN, 77), {"ISP_API_SetRStrength(0, 77, 1, 1)"}},
                              {strength(VISCA_MSG_E_AWB_BGAIN, 77), {"ISP_API_SetBStrength(0, 77, 1, 1)"}},
                              {strength(VISCA_MSG_E_AWB_GGAIN, 77), {"ISP_API_SetGStrength(0, 77, 1, 1)"}}});
}

/// 2800 K to 6500 K in steps of 100 K.
TEST_F(CommandPicture, ColourTemperatureStaysInItsRange)
{
    const auto step = [](VISCA_CTRL_COLORTEMP_E enType, BU_U8 u8Index = 0) {
        return [=](Info &st) {
            st.stColorTempCtrl = {enType, 0};
            st.u8WbColorTmpDirect = u8Index;
        };
    };
    const auto at = [](BU_S32 s32Kelvin) { return [=] { ISP_API_SetStWbMode(0, s32Kelvin, BU_FALSE, BU_FALSE); }; };
    const tagCOMMAND_CASE_S stBeyond{step(VISCA_MSG_E_COLORTEMP_DIRECT, 38), {}, REFUSED};
    passes(viscaCtrlWbColorTmp, {{step(VISCA_MSG_E_COLORTEMP_RESET),      {"ISP_API_SetStWbMode(0, 5600, 1, 1)"}},
                                 {step(VISCA_MSG_E_COLORTEMP_UP),         {"ISP_API_SetStWbMode(0, 4100, 1, 1)"}, 0, at(4000)},
                                 {step(VISCA_MSG_E_COLORTEMP_UP),         {"ISP_API_SetStWbMode(0, 6500, 1, 1)"}, 0, at(6500)},
                                 {step(VISCA_MSG_E_COLORTEMP_DOWN),       {"ISP_API_SetStWbMode(0, 3900, 1, 1)"}, 0, at(4000)},
                                 {step(VISCA_MSG_E_COLORTEMP_DOWN),       {"ISP_API_SetStWbMode(0, 2800, 1, 1)"}, 0, at(2800)},
                                 {step(VISCA_MSG_E_COLORTEMP_DIRECT, 1),  {"ISP_API_SetStWbMode(0, 2900, 1, 1)"}},
                                 {step(VISCA_MSG_E_COLORTEMP_DIRECT, 37), {"ISP_API_SetStWbMode(0, 6500, 1, 1)"}},
                                 stBeyond});
    EXPECT_THAT(traceOf(viscaCtrlWbColorTmp, stBeyond), HasSubstr("]: 38 out of rang[0 ~ 0x25]\n"));
}

TEST_F(CommandPicture, ExposureModesAreWordsAndTheGainLimitNeedsAuto)
{
    const auto mode = with<&Info::stAECtrl, VISCA_CTRL_AE_E, BU_S32>;
    const auto runs = [](BU_S32 s32Mode) { return [=] { ISP_API_SetAeMode(0, s32Mode, BU_FALSE, BU_FALSE); }; };
    passes(viscaCtrlAE, {{mode(VISCA_MSG_E_AE_FULL_AUTO, 0),        {"ISP_API_SetAeMode(0, 0, 1, 1)"}},
                         {mode(VISCA_MSG_E_AE_BRIGHT, 0),           {"ISP_API_SetAeMode(0, 1, 1, 1)"}},
                         {mode(VISCA_MSG_E_AE_SHUTTER_PRIORITY, 0), {"ISP_API_SetAeMode(0, 2, 1, 1)"}},
                         {mode(VISCA_MSG_E_AE_IRIS_PRIORITY, 0),    {"ISP_API_SetAeMode(0, 3, 1, 1)"}},
                         {mode(VISCA_MSG_E_AE_NANUAL, 0),           {"ISP_API_SetAeMode(0, 4, 1, 1)"}},
                         {mode(VISCA_MSG_E_AE_GAIN_LIMIT_POS, 9),   {"ISP_API_SetGainLimit(0, 9, 1, 1)"}, 0, runs(AE_MODE_E_AUTO)}});
    for (const BU_S32 s32Mode : {AE_MODE_E_BRIGHT, AE_MODE_E_SHUTTER, AE_MODE_E_IRIS, AE_MODE_E_MANUAL})
        check(viscaCtrlAE, {{mode(VISCA_MSG_E_AE_GAIN_LIMIT_POS, 9), {}, REFUSED, runs(s32Mode)}});
}

TEST_F(CommandPicture, ShutterFollowsTheOutputFrameRate)
{
    const auto step = with<&Info::stShutterCtrl, BU_S32, BU_S32>;
    const auto sets = [](BU_S32 s32) { return Effects{"ISP_API_SetShutter(0, " + std::to_string(s32) + ", 1, 1)"}; };
    const auto at = [](const char *pcFps, BU_S32 s32Shutter = SHUTTER_TIME_100) {
        return [=] {
            SYSTEM_API_SetHdmiFps(pcFps, BU_FALSE);
            ISP_API_SetShutter(0, s32Shutter, BU_FALSE, BU_FALSE);
        };
    };
    const auto RESET = VISCA_MSG_E_SHUTTER_RESET, UP = VISCA_MSG_E_SHUTTER_UP, DOWN = VISCA_MSG_E_SHUTTER_DOWN,
               DIRECT = VISCA_MSG_E_SHUTTER_DIRECT;
    passes(viscaCtrlShutter, {{step(UP, 0),      sets(SHUTTER_TIME_125),   0, at("Fps60")},
                              {step(UP, 0),      sets(SHUTTER_TIME_120),   0, at("Fps50")},
                              {step(UP, 0),      sets(SHUTTER_TIME_60),    0, at("Fps60", SHUTTER_TIME_10000)},
                              {step(DOWN, 0),    sets(SHUTTER_TIME_90),    0, at("Fps60")},
                              {step(DOWN, 0),    sets(SHUTTER_TIME_10000), 0, at("Fps25", SHUTTER_TIME_25)},
                              {step(DIRECT, 6),  sets(SHUTTER_TIME_60),    0, at("Fps60")},
                              {step(DIRECT, 21), sets(SHUTTER_TIME_10000), 0, at("Fps60")},
                              {step(DIRECT, 12), sets(SHUTTER_TIME_300),   0, at("Fps25")},
                              {step(DIRECT, 5),  {}, REFUSED, at("Fps60")}, // too slow for 60
                              {step(DIRECT, 22), {}, REFUSED, at("Fps60")}, // beyond the fastest
                              {step(4, 0),       {}, REFUSED, at("Fps60")}});
    const std::pair<const char *, const char *> DEFAULTS[] = {
        {"Fps60", "60"}, {"Fps59p94", "60"}, {"Fps50", "50"}, {"Fps30", "30"},
        {"Fps29p97", "60"}, {"Fps25", "25"}, {"Fps24", "24"}, {"Fps23p98", "60"}};
    for (const auto &[pcFps, pcKey] : DEFAULTS) {
        BU_S32 s32Default = -1;
        ASSERT_EQ(ISP_AF_GetDefVal((std::string("ShutterSpeedFps") + pcKey).c_str(), &s32Default), 0);
        passes(viscaCtrlShutter, {{step(RESET, 0), sets(s32Default), 0, at(pcFps)}});
    }
    for (const auto enType : {UP, DOWN})
        check(viscaCtrlShutter, {{step(enType, 0), {}, -7, [] { journal::inject("ISP_API_GetShutter", -7); }}});
}

TEST_F(CommandPicture, WideDynamicRangeAndBacklight)
{
    const auto wdr = with<&Info::stWDRCtrl, VISCA_CTRL_WDR_E, BU_S32>;
    check(viscaCtrlWDR, {{wdr(VISCA_MSG_E_WDR_ON, 5),     {"ISP_API_SetDrcSwi(0, 1, 1, 1)"}},
                         {wdr(VISCA_MSG_E_WDR_OFF, 5),    {"ISP_API_SetDrcSwi(0, 0, 1, 1)"}},
                         {wdr(VISCA_MSG_E_WDR_UP, 5),     {}, REFUSED},
                         {wdr(VISCA_MSG_E_WDR_DIRECT, 5), {}, REFUSED}});
    passes(viscaCtrlBacklight, {{with<&Info::enBalklightCtrl>(2), {"ISP_API_SetBackLight(0, 1, 1, 1)"}},
                                {with<&Info::enBalklightCtrl>(3), {"ISP_API_SetBackLight(0, 0, 1, 1)"}}});
}

constexpr auto param = with<&Info::stVideoParamCtrl, BU_S32, BU_S32>;
constexpr auto extra = with<&Info::stExtraIspCtrl, BU_S32, BU_S32>;

TEST_F(CommandPicture, ParametersReachTheirSettings)
{
    passes(viscaCtrlVideoParam, {{param(0, 3),  {"ISP_API_SetSharpness(0, 3, 1, 1)"}},
                                 {param(1, 3),  {"ISP_API_SetBrightness(0, 3, 1, 1)"}},
                                 {param(2, 3),  {"ISP_API_SetContrast(0, 3, 1, 1)"}},
                                 {param(3, 3),  {"ISP_API_SetSaturation(0, 3, 1, 1)"}},
                                 {param(4, 3),  {"ISP_API_SetHue(0, 3, 1, 1)"}},
                                 {param(5, 3),  {"ISP_API_Set2DNR(0, 3, 1, 1)"}},
                                 {param(6, 3),  {"ISP_API_Set3DNR(0, 3, 1, 1)"}},
                                 {param(7, 3),  {"ISP_API_SetGamma(0, 3, 1, 1)"}},
                                 {param(11, 0), {"ISP_API_SetAntiFlicker(0, 2, 1, 1)"}},
                                 {param(11, 1), {"ISP_API_SetAntiFlicker(0, 0, 1, 1)"}},
                                 {param(11, 2), {"ISP_API_SetAntiFlicker(0, 1, 1, 1)"}},
                                 {param(13, 4), {"ISP_API_SetAeMeterMode(0, 4, 1, 1)"}},
                                 {param(14, 0), {"ISP_API_SetIspBinUsage(0, 0, 1, 1)"}},
                                 {param(14, 1), {"ISP_API_SetIspBinUsage(0, 6, 1, 1)"}},
                                 {param(14, 2), {"ISP_API_SetIspBinUsage(0, 7, 1, 1)"}}});
    // Blue, cyan, green, red, yellow, magenta; hues count from the lowest, which is -10.
    const char *const apcColours[] = {"5", "4", "3", "1", "2", "6"};
    for (BU_S32 i = 0; i < 6; ++i)
        passes(viscaCtrlVideoParam, {{param(15 + i, 3),  {std::string("ISP_API_SetColorHue(0, ") + apcColours[i] + ", -7, 1, 1)"}},
                                     {param(21 + i, 90), {std::string("ISP_API_SetColorSat(0, ") + apcColours[i] + ", 90, 1, 1)"}}});
    const std::string strOn = "ISP_API_SetDrcSwi(0, 1, 1, 1)";
    passes(viscaCtrlVideoParam, {{param(8, 1), {strOn, "ISP_API_SetDrcMode(0, 0, 1, 1)"}},
                                 {param(8, 6), {strOn, "ISP_API_SetDrcMode(0, 5, 1, 1)"}}}, "ISP_API_SetDrcMode");
    check(viscaCtrlVideoParam, {{param(8, 0),  {"ISP_API_SetDrcSwi(0, 0, 1, 1)"}},
                                {param(12, 2), {"SYS_API_SetImageFreeze(1, 1, 1)"}},
                                {param(12, 3), {"SYS_API_SetImageFreeze(0, 1, 1)"}}});
}

TEST_F(CommandPicture, MirrorFlipAndMountRebootOnSuccessOnly)
{
    struct {
        PFN_HANDLER pfnHandle;
        std::function<void(Info &)> fill;
        const char *pcSetter, *pcArguments;
    } const rows[] = {{viscaCtrlVideoParam, param(9, 2),  "SYS_API_SetMirror",    "(1, 1, 1)"},
                      {viscaCtrlVideoParam, param(9, 3),  "SYS_API_SetMirror",    "(0, 1, 1)"},
                      {viscaCtrlVideoParam, param(10, 2), "SYS_API_SetFlip",      "(1, 1, 1)"},
                      {viscaCtrlVideoParam, param(10, 3), "SYS_API_SetFlip",      "(0, 1, 1)"},
                      {viscaCtrlExtraISP,   extra(7, 2),  "SYS_API_SetMountMode", "(1, 1, 1)"},
                      {viscaCtrlExtraISP,   extra(7, 3),  "SYS_API_SetMountMode", "(0, 1, 1)"}};
    for (const auto &row : rows) {
        const std::string strSet = std::string(row.pcSetter) + row.pcArguments;
        passes(row.pfnHandle, {{row.fill, {strSet, "UTIL_CMD_RunSafe(\"sync; reboot\")"}},
                               {row.fill, {strSet}, -3, [&] { journal::inject(row.pcSetter, -3); }}});
    }
}

TEST_F(CommandPicture, ExtraSettings)
{
    for (const char cOn : {'1', '0'}) {
        const BU_S32 s32Value = cOn == '1' ? 2 : 3;
        const std::string strOn = cOn + std::string(", 1, 1)");
        passes(viscaCtrlExtraISP, {{extra(0, s32Value),  {"ISP_API_SetExposureFullViewFollow(0, " + strOn}},
                                   {extra(1, s32Value),  {"ISP_API_SetWhiteBalanceFullViewFollow(0, " + strOn}},
                                   {extra(8, s32Value),  {"AF_API_SetDistortionCorrection(" + strOn}},
                                   {extra(12, s32Value), {"AF_API_SetFaceAF(0, " + strOn}},
                                   {extra(13, s32Value), {"ISP_API_SetAutoIrisSwi(0, " + strOn}}});
    }
    passes(viscaCtrlExtraISP, {{extra(2, 0),  {"IMAGE_PRESET_API_GotoById(-250, 8, NULL)"}},
                               {extra(3, 0),  {"IMAGE_PRESET_API_GotoById(-1, 8, NULL)"}},
                               {extra(4, 0),  {"IMAGE_PRESET_API_GotoById(-2, 8, NULL)"}},
                               {extra(5, 0),  {"IMAGE_PRESET_API_GotoById(-3, 8, NULL)"}},
                               {extra(6, 2),  {"ISP_API_SetAwbSensitivity(0, 2, 1, 1)"}},
                               {extra(10, 3), {"ISP_API_SetNDFilter(0, 3, 1, 1)"}}});
    check(viscaCtrlExtraISP, {{extra(9, 0), {"ISP_API_Reset(0)", "ISP_API_Reset(1)"}}});
}

TEST_F(CommandPicture, TeleModeChangesOnlyWhatDiffers)
{
    const auto crop = [](BU_BOOL bOn) { return [=] { SYS_API_SetSensorCrop(bOn, BU_FALSE, BU_FALSE); }; };
    passes(viscaCtrlExtraISP, {{extra(11, 2), {"SYS_API_SetSensorCrop(1, 1, 1)"}, 0, crop(BU_FALSE)},
                               {extra(11, 3), {"SYS_API_SetSensorCrop(0, 1, 1)"}, 0, crop(BU_TRUE)},
                               {extra(11, 2), {}, 0, crop(BU_TRUE)},
                               {extra(11, 3), {}, 0, crop(BU_FALSE)}});
}
// clang-format on

TEST_F(CommandPicture, ValuesOutsideTheirListAreRefused)
{
    for (const BU_S32 s32Value : {0, 1, 4, 255}) {
        for (const BU_S32 s32Type : {9, 10, 12}) check(viscaCtrlVideoParam, {{param(s32Type, s32Value), {}, REFUSED}});
        for (const BU_S32 s32Type : {0, 1, 7, 8, 11, 12, 13})
            check(viscaCtrlExtraISP, {{extra(s32Type, s32Value), {}, REFUSED}});
    }
    check(viscaCtrlVideoParam, {{param(11, 3), {}, REFUSED}, {param(14, 3), {}, REFUSED}});
}
} // namespace
