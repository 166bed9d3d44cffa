// White balance, exposure, shutter, picture parameters and the extra image settings.
#include "camera/image.h"
#include "camera/system.h"
#include "camera/systemService.h"
#include "commandTest.h"

namespace
{
using CommandPicture = CommandTest;
using testing::HasSubstr;

std::string call(const char *pcSetter, std::initializer_list<BU_S32> values)
{
    std::string strCall = pcSetter + std::string("(");
    for (const BU_S32 s32 : values) strCall += std::to_string(s32) + ", ";
    return strCall + "1, 1)";
}
/// A setter that is called once and whose failure is passed through.
tagCOMMAND_CASE_S sets(
    BU_S32 (*pfnHandle)(Info *), std::function<void(Info &)> fill, const char *pcSetter,
    std::initializer_list<BU_S32> values, std::function<void()> setUp = [] {})
{
    return {pcSetter, pfnHandle, std::move(fill), {call(pcSetter, values)}, 0, pcSetter, std::move(setUp)};
}

TEST_F(CommandPicture, WhiteBalanceModesAreWords)
{
    const auto mode = [](VISCA_CTRL_WB_MODE_E enMode) { return [=](Info &st) { st.enWbModeCtrl = enMode; }; };
    const auto W = viscaCtrlWbMode;
    const char *pcSet = "ISP_API_SetWbMode";
    check({sets(W, mode(VISCA_MSG_E_WB_AUTO), pcSet, {0, 0}), sets(W, mode(VISCA_MSG_E_WB_MANUAL), pcSet, {0, 1}),
           sets(W, mode(VISCA_MSG_E_WB_INDOOR), pcSet, {0, 2}), sets(W, mode(VISCA_MSG_E_WB_OUTDOOR), pcSet, {0, 3}),
           sets(W, mode(VISCA_MSG_E_WB_COLOR_TEMPERATURE), pcSet, {0, 4}),
           sets(W, mode(VISCA_MSG_E_WB_ONE_PUSH_WB), pcSet, {0, 5}),
           sets(W, mode(VISCA_MSG_E_WB_ONE_PUSH_TRIGGER), "ISP_API_SetOnePushAwb", {0, 0})});

    const auto strength = [](VISCA_CTRL_AWB_GAIN_E enType) {
        return [=](Info &st) { st.stAwbGainCtrl = {enType, 77}; };
    };
    check({sets(viscaCtrlAwbGain, strength(VISCA_MSG_E_AWB_RGAIN), "ISP_API_SetRStrength", {0, 77}),
           sets(viscaCtrlAwbGain, strength(VISCA_MSG_E_AWB_BGAIN), "ISP_API_SetBStrength", {0, 77}),
           sets(viscaCtrlAwbGain, strength(VISCA_MSG_E_AWB_GGAIN), "ISP_API_SetGStrength", {0, 77})});
}

TEST_F(CommandPicture, ColourTemperatureStaysInItsRange)
{
    // 2800 K to 6500 K in steps of 100 K.
    const auto C = viscaCtrlWbColorTmp;
    const char *pcSet = "ISP_API_SetStWbMode";
    const auto step = [](VISCA_CTRL_COLORTEMP_E enType, BU_U8 u8Index = 0) {
        return [=](Info &st) {
            st.stColorTempCtrl = {enType, 0};
            st.u8WbColorTmpDirect = u8Index;
        };
    };
    const auto at = [](BU_S32 s32Kelvin) { return [=] { ISP_API_SetStWbMode(0, s32Kelvin, BU_FALSE, BU_FALSE); }; };
    const tagCOMMAND_CASE_S stBeyond{"index 38", C, step(VISCA_MSG_E_COLORTEMP_DIRECT, 38), {}, REFUSED};
    check({sets(C, step(VISCA_MSG_E_COLORTEMP_RESET), pcSet, {0, 5600}),
           sets(C, step(VISCA_MSG_E_COLORTEMP_UP), pcSet, {0, 4100}, at(4000)),
           sets(C, step(VISCA_MSG_E_COLORTEMP_UP), pcSet, {0, 6500}, at(6500)),
           sets(C, step(VISCA_MSG_E_COLORTEMP_DOWN), pcSet, {0, 3900}, at(4000)),
           sets(C, step(VISCA_MSG_E_COLORTEMP_DOWN), pcSet, {0, 2800}, at(2800)),
           sets(C, step(VISCA_MSG_E_COLORTEMP_DIRECT, 1), pcSet, {0, 2900}),
           sets(C, step(VISCA_MSG_E_COLORTEMP_DIRECT, 37), pcSet, {0, 6500}), stBeyond});
    EXPECT_THAT(traceOf(stBeyond), HasSubstr("]: 38 out of rang[0 ~ 0x25]\n"));
}

TEST_F(CommandPicture, ExposureModesAreWordsAndTheGainLimitNeedsAuto)
{
    const auto A = viscaCtrlAE;
    const char *pcSet = "ISP_API_SetAeMode";
    const auto mode = [](VISCA_CTRL_AE_E enType, BU_U8 u8Limit = 0) {
        return [=](Info &st) { st.stAECtrl = {enType, u8Limit}; };
    };
    const auto runs = [](BU_S32 s32Mode) { return [=] { ISP_API_SetAeMode(0, s32Mode, BU_FALSE, BU_FALSE); }; };
    check({sets(A, mode(VISCA_MSG_E_AE_FULL_AUTO), pcSet, {0, 0}), sets(A, mode(VISCA_MSG_E_AE_BRIGHT), pcSet, {0, 1}),
           sets(A, mode(VISCA_MSG_E_AE_SHUTTER_PRIORITY), pcSet, {0, 2}),
           sets(A, mode(VISCA_MSG_E_AE_IRIS_PRIORITY), pcSet, {0, 3}),
           sets(A, mode(VISCA_MSG_E_AE_NANUAL), pcSet, {0, 4}),
           sets(A, mode(VISCA_MSG_E_AE_GAIN_LIMIT_POS, 9), "ISP_API_SetGainLimit", {0, 9}, runs(AE_MODE_E_AUTO))});
    for (const BU_S32 s32Mode : {AE_MODE_E_BRIGHT, AE_MODE_E_SHUTTER, AE_MODE_E_IRIS, AE_MODE_E_MANUAL})
        check({{"limit in another mode",
                A,
                mode(VISCA_MSG_E_AE_GAIN_LIMIT_POS, 9),
                {},
                REFUSED,
                nullptr,
                runs(s32Mode)}});
}

TEST_F(CommandPicture, ShutterFollowsTheOutputFrameRate)
{
    const auto S = viscaCtrlShutter;
    const char *pcSet = "ISP_API_SetShutter";
    const auto step = [](BU_S32 s32Type, BU_U8 u8Direct = 0) {
        return [=](Info &st) { st.stShutterCtrl = {static_cast<VISCA_CTRL_SHUTTER_E>(s32Type), u8Direct}; };
    };
    const auto at = [](const char *pcFps, BU_S32 s32Shutter = SHUTTER_TIME_100) {
        return [=] {
            SYSTEM_API_SetHdmiFps(pcFps, BU_FALSE);
            ISP_API_SetShutter(0, s32Shutter, BU_FALSE, BU_FALSE);
        };
    };
    const auto RESET = VISCA_MSG_E_SHUTTER_RESET, UP = VISCA_MSG_E_SHUTTER_UP, DOWN = VISCA_MSG_E_SHUTTER_DOWN,
               DIRECT = VISCA_MSG_E_SHUTTER_DIRECT;
    check({sets(S, step(UP), pcSet, {0, SHUTTER_TIME_125}, at("Fps60")),
           sets(S, step(UP), pcSet, {0, SHUTTER_TIME_120}, at("Fps50")),
           sets(S, step(UP), pcSet, {0, SHUTTER_TIME_60}, at("Fps60", SHUTTER_TIME_10000)),
           sets(S, step(DOWN), pcSet, {0, SHUTTER_TIME_90}, at("Fps60")),
           sets(S, step(DOWN), pcSet, {0, SHUTTER_TIME_10000}, at("Fps25", SHUTTER_TIME_25)),
           sets(S, step(DIRECT, 6), pcSet, {0, SHUTTER_TIME_60}, at("Fps60")),
           sets(S, step(DIRECT, 21), pcSet, {0, SHUTTER_TIME_10000}, at("Fps60")),
           sets(S, step(DIRECT, 12), pcSet, {0, SHUTTER_TIME_300}, at("Fps25")),
           {"too slow for 60", S, step(DIRECT, 5), {}, REFUSED, nullptr, at("Fps60")},
           {"beyond the fastest", S, step(DIRECT, 22), {}, REFUSED, nullptr, at("Fps60")},
           {"unknown kind", S, step(4), {}, REFUSED, nullptr, at("Fps60")}});
    for (const auto &[pcFps, pcKey] :
         std::vector<std::pair<const char *, const char *>>{{"Fps60", "ShutterSpeedFps60"},
                                                            {"Fps59p94", "ShutterSpeedFps60"},
                                                            {"Fps50", "ShutterSpeedFps50"},
                                                            {"Fps30", "ShutterSpeedFps30"},
                                                            {"Fps29p97", "ShutterSpeedFps60"},
                                                            {"Fps25", "ShutterSpeedFps25"},
                                                            {"Fps24", "ShutterSpeedFps24"},
                                                            {"Fps23p98", "ShutterSpeedFps60"}}) {
        BU_S32 s32Default = -1;
        ASSERT_EQ(ISP_AF_GetDefVal(pcKey, &s32Default), 0);
        check({sets(S, step(RESET), pcSet, {0, s32Default}, at(pcFps))});
    }
}

TEST_F(CommandPicture, AShutterThatCannotBeReadIsNotSet)
{
    for (const auto enType : {VISCA_MSG_E_SHUTTER_UP, VISCA_MSG_E_SHUTTER_DOWN})
        check({{"no shutter",
                viscaCtrlShutter,
                [=](Info &st) {
                    st.stShutterCtrl = {enType, 0};
                },
                {},
                -7,
                nullptr,
                [] { journal::inject("ISP_API_GetShutter", -7); }}});
}

TEST_F(CommandPicture, WideDynamicRangeAndBacklight)
{
    const auto wdr = [](VISCA_CTRL_WDR_E enType) { return [=](Info &st) { st.stWDRCtrl = {enType, 5}; }; };
    const auto light = [](BU_S32 s32Type) {
        return [=](Info &st) { st.enBalklightCtrl = static_cast<VISCA_CTRL_BACKLIGHT_E>(s32Type); };
    };
    check({{"wide on", viscaCtrlWDR, wdr(VISCA_MSG_E_WDR_ON), {"ISP_API_SetDrcSwi(0, 1, 1, 1)"}},
           {"wide off", viscaCtrlWDR, wdr(VISCA_MSG_E_WDR_OFF), {"ISP_API_SetDrcSwi(0, 0, 1, 1)"}},
           {"wide up", viscaCtrlWDR, wdr(VISCA_MSG_E_WDR_UP), {}, REFUSED},
           {"wide direct", viscaCtrlWDR, wdr(VISCA_MSG_E_WDR_DIRECT), {}, REFUSED},
           sets(viscaCtrlBacklight, light(2), "ISP_API_SetBackLight", {0, 1}),
           sets(viscaCtrlBacklight, light(3), "ISP_API_SetBackLight", {0, 0})});
}

std::function<void(Info &)> param(BU_S32 s32Type, BU_U8 u8Value)
{
    return [=](Info &st) { st.stVideoParamCtrl = {static_cast<VISCA_CTRL_VIDEO_PARAM_E>(s32Type), u8Value}; };
}

TEST_F(CommandPicture, ParametersReachTheirSettings)
{
    const auto V = viscaCtrlVideoParam;
    check({sets(V, param(0, 3), "ISP_API_SetSharpness", {0, 3}), sets(V, param(1, 3), "ISP_API_SetBrightness", {0, 3}),
           sets(V, param(2, 3), "ISP_API_SetContrast", {0, 3}), sets(V, param(3, 3), "ISP_API_SetSaturation", {0, 3}),
           sets(V, param(4, 3), "ISP_API_SetHue", {0, 3}), sets(V, param(5, 3), "ISP_API_Set2DNR", {0, 3}),
           sets(V, param(6, 3), "ISP_API_Set3DNR", {0, 3}), sets(V, param(7, 3), "ISP_API_SetGamma", {0, 3}),
           sets(V, param(11, 0), "ISP_API_SetAntiFlicker", {0, 2}),
           sets(V, param(11, 1), "ISP_API_SetAntiFlicker", {0, 0}),
           sets(V, param(11, 2), "ISP_API_SetAntiFlicker", {0, 1}),
           sets(V, param(13, 4), "ISP_API_SetAeMeterMode", {0, 4}),
           sets(V, param(14, 0), "ISP_API_SetIspBinUsage", {0, 0}),
           sets(V, param(14, 1), "ISP_API_SetIspBinUsage", {0, 6}),
           sets(V, param(14, 2), "ISP_API_SetIspBinUsage", {0, 7})});
    // Blue, cyan, green, red, yellow, magenta; hues count from the lowest, which is -10.
    const BU_S32 as32Colours[] = {5, 4, 3, 1, 2, 6};
    for (BU_S32 i = 0; i < 6; ++i)
        check({sets(V, param(15 + i, 3), "ISP_API_SetColorHue", {0, as32Colours[i], -7}),
               sets(V, param(21 + i, 90), "ISP_API_SetColorSat", {0, as32Colours[i], 90})});
}

TEST_F(CommandPicture, WideDynamicRangeLevels)
{
    check({{"off", viscaCtrlVideoParam, param(8, 0), {"ISP_API_SetDrcSwi(0, 0, 1, 1)"}},
           {"level 1",
            viscaCtrlVideoParam,
            param(8, 1),
            {"ISP_API_SetDrcSwi(0, 1, 1, 1)", "ISP_API_SetDrcMode(0, 0, 1, 1)"},
            0,
            "ISP_API_SetDrcMode"},
           {"level 6",
            viscaCtrlVideoParam,
            param(8, 6),
            {"ISP_API_SetDrcSwi(0, 1, 1, 1)", "ISP_API_SetDrcMode(0, 5, 1, 1)"},
            0,
            "ISP_API_SetDrcMode"}});
}

std::function<void(Info &)> extra(BU_S32 s32Type, BU_U8 u8Value)
{
    return [=](Info &st) { st.stExtraIspCtrl = {static_cast<VISCA_CTRL_EXTREA_ISP_E>(s32Type), u8Value}; };
}

TEST_F(CommandPicture, MirrorFlipAndMountRebootOnSuccessOnly)
{
    struct {
        BU_S32 (*pfnHandle)(Info *);
        std::function<void(Info &)> fill;
        const char *pcSetter;
        BU_S32 s32Value;
    } const rows[] = {{viscaCtrlVideoParam, param(9, 2), "SYS_API_SetMirror", 1},
                      {viscaCtrlVideoParam, param(9, 3), "SYS_API_SetMirror", 0},
                      {viscaCtrlVideoParam, param(10, 2), "SYS_API_SetFlip", 1},
                      {viscaCtrlVideoParam, param(10, 3), "SYS_API_SetFlip", 0},
                      {viscaCtrlExtraISP, extra(7, 2), "SYS_API_SetMountMode", 1},
                      {viscaCtrlExtraISP, extra(7, 3), "SYS_API_SetMountMode", 0}};
    for (const auto &row : rows) {
        const auto fail = [&] { journal::inject(row.pcSetter, -3); };
        check({{row.pcSetter,
                row.pfnHandle,
                row.fill,
                {call(row.pcSetter, {row.s32Value}), "UTIL_CMD_RunSafe(\"sync; reboot\")"},
                0,
                row.pcSetter},
               {row.pcSetter, row.pfnHandle, row.fill, {call(row.pcSetter, {row.s32Value})}, -3, row.pcSetter, fail}});
    }
}

TEST_F(CommandPicture, FreezeIsAlwaysDone)
{
    check({{"on", viscaCtrlVideoParam, param(12, 2), {"SYS_API_SetImageFreeze(1, 1, 1)"}},
           {"off", viscaCtrlVideoParam, param(12, 3), {"SYS_API_SetImageFreeze(0, 1, 1)"}}});
}

TEST_F(CommandPicture, ExtraSettings)
{
    const auto E = viscaCtrlExtraISP;
    const auto style = [](const char *pcStyle) {
        return Effects{"IMAGE_PRESET_API_GotoById(" + std::string(pcStyle) + ", 8, NULL)"};
    };
    const char *pcGoto = "IMAGE_PRESET_API_GotoById";
    for (const BU_S32 s32On : {1, 0}) {
        const BU_U8 u8Value = s32On ? 2 : 3;
        check({sets(E, extra(0, u8Value), "ISP_API_SetExposureFullViewFollow", {0, s32On}),
               sets(E, extra(1, u8Value), "ISP_API_SetWhiteBalanceFullViewFollow", {0, s32On}),
               sets(E, extra(8, u8Value), "AF_API_SetDistortionCorrection", {s32On}),
               sets(E, extra(12, u8Value), "AF_API_SetFaceAF", {0, s32On}),
               sets(E, extra(13, u8Value), "ISP_API_SetAutoIrisSwi", {0, s32On})});
    }
    check({{"default style", E, extra(2, 0), style("-250"), 0, pcGoto},
           {"style 1", E, extra(3, 0), style("-1"), 0, pcGoto},
           {"style 2", E, extra(4, 0), style("-2"), 0, pcGoto},
           {"style 3", E, extra(5, 0), style("-3"), 0, pcGoto},
           sets(E, extra(6, 2), "ISP_API_SetAwbSensitivity", {0, 2}),
           sets(E, extra(10, 3), "ISP_API_SetNDFilter", {0, 3}),
           {"image reset", E, extra(9, 0), {"ISP_API_Reset(0)", "ISP_API_Reset(1)"}}});
}

TEST_F(CommandPicture, TeleModeChangesOnlyWhatDiffers)
{
    const auto crop = [](BU_BOOL bOn) { return [=] { SYS_API_SetSensorCrop(bOn, BU_FALSE, BU_FALSE); }; };
    check({sets(viscaCtrlExtraISP, extra(11, 2), "SYS_API_SetSensorCrop", {1}, crop(BU_FALSE)),
           sets(viscaCtrlExtraISP, extra(11, 3), "SYS_API_SetSensorCrop", {0}, crop(BU_TRUE)),
           {"on already", viscaCtrlExtraISP, extra(11, 2), {}, 0, nullptr, crop(BU_TRUE)},
           {"off already", viscaCtrlExtraISP, extra(11, 3), {}, 0, nullptr, crop(BU_FALSE)}});
}

TEST_F(CommandPicture, ValuesOutsideTheirListAreRefused)
{
    for (const BU_U8 u8Value : {0, 1, 4, 255}) {
        for (const BU_S32 s32Type : {9, 10, 12})
            check({{"parameter", viscaCtrlVideoParam, param(s32Type, u8Value), {}, REFUSED}});
        for (const BU_S32 s32Type : {0, 1, 7, 8, 11, 12, 13})
            check({{"extra", viscaCtrlExtraISP, extra(s32Type, u8Value), {}, REFUSED}});
    }
    check({{"anti-flicker", viscaCtrlVideoParam, param(11, 3), {}, REFUSED},
           {"picture style", viscaCtrlVideoParam, param(14, 3), {}, REFUSED}});
}
} // namespace
