// Settings that are stepped: ends of each range, wrap, direct values, and the exposure modes that allow a change.
#include "camera/image.h"
#include "commandTest.h"

namespace
{
using CommandSteps = CommandTest;
constexpr BU_S32 RESET = 0, UP = 1, DOWN = 2, DIRECT = 3, UNKNOWN = 4;

/// Before the step: the setting holds s32From, the exposure mode is s32AeMode.
typedef BU_S32 (*PFN_SET)(BU_S32, BU_S32, BU_BOOL, BU_BOOL);
std::function<void()> holds(PFN_SET pfnSet, BU_S32 s32From, BU_S32 s32AeMode = AE_MODE_E_AUTO)
{
    return [=] {
        ISP_API_SetAeMode(0, s32AeMode, BU_FALSE, BU_FALSE);
        ASSERT_EQ(pfnSet(0, s32From, BU_FALSE, BU_FALSE), 0);
    };
}
template <class Ctrl, class Type, Ctrl Info::*Member> std::function<void(Info &)> step(BU_S32 s32Type, BU_U8 u8Direct)
{
    return [=](Info &st) { st.*Member = {static_cast<Type>(s32Type), u8Direct}; };
}
constexpr auto redGain = step<VISCA_CTRL_RGAIN_S, VISCA_CTRL_RGAIN_E, &Info::stRGainCtrl>;
constexpr auto blueGain = step<VISCA_CTRL_BGAIN_S, VISCA_CTRL_BGAIN_E, &Info::stBGainCtrl>;
constexpr auto greenGain = step<VISCA_CTRL_GGAIN_S, VISCA_CTRL_GGAIN_E, &Info::stGGainCtrl>;
constexpr auto iris = step<VISCA_CTRL_IRIS_S, VISCA_CTRL_IRIS_E, &Info::stIrisCtrl>;
constexpr auto gain = step<VISCA_CTRL_GAIN_S, VISCA_CTRL_GAIN_E, &Info::stGainCtrl>;
constexpr auto bright = step<VISCA_CTRL_BRIGHT_S, VISCA_CTRL_BRIGHT_E, &Info::stBrightCtrl>;
constexpr auto expComp = step<VISCA_CTRL_EXP_COMP_S, VISCA_CTRL_EXP_COMP_E, &Info::stExpCompCtrl>;
constexpr auto aperture = step<VISCA_CTRL_APERTURE_S, VISCA_CTRL_APERTURE_E, &Info::stApertureCtrl>;

std::string sets(const char *pcSetter, BU_S32 s32Value)
{
    return std::string(pcSetter) + "(0, " + std::to_string(s32Value) + ", 1, 1)";
}
/// A step that goes through.
tagCOMMAND_CASE_S goes(const char *pcName, BU_S32 (*pfnHandle)(Info *), std::function<void(Info &)> fill,
                       const char *pcSetter, BU_S32 s32To, std::function<void()> setUp)
{
    return {pcName, pfnHandle, std::move(fill), {sets(pcSetter, s32To)}, 0, pcSetter, std::move(setUp)};
}

TEST_F(CommandSteps, ColourGainsStepAndWrap)
{
    const auto R = viscaCtrlRGain, B = viscaCtrlBGain, G = viscaCtrlGGain;
    check({
        goes("red up", R, redGain(UP, 0), "ISP_API_SetRGain", 201, holds(ISP_API_SetRGain, 200)),
        goes("red up at the top", R, redGain(UP, 0), "ISP_API_SetRGain", 0, holds(ISP_API_SetRGain, 255)),
        goes("red down", R, redGain(DOWN, 0), "ISP_API_SetRGain", 199, holds(ISP_API_SetRGain, 200)),
        goes("red down at the bottom", R, redGain(DOWN, 0), "ISP_API_SetRGain", 255, holds(ISP_API_SetRGain, 0)),
        goes("red direct", R, redGain(DIRECT, 255), "ISP_API_SetRGain", 255, holds(ISP_API_SetRGain, 3)),
        goes("blue up at the top", B, blueGain(UP, 0), "ISP_API_SetBGain", 0, holds(ISP_API_SetBGain, 255)),
        goes("blue down at the bottom", B, blueGain(DOWN, 0), "ISP_API_SetBGain", 255, holds(ISP_API_SetBGain, 0)),
        goes("blue direct", B, blueGain(DIRECT, 9), "ISP_API_SetBGain", 9, holds(ISP_API_SetBGain, 3)),
        goes("green up at the top", G, greenGain(UP, 0), "ISP_API_SetGGain", 256, holds(ISP_API_SetGGain, 255)),
        goes("green down at the bottom", G, greenGain(DOWN, 0), "ISP_API_SetGGain", -1, holds(ISP_API_SetGGain, 0)),
        goes("green direct", G, greenGain(DIRECT, 7), "ISP_API_SetGGain", 7, holds(ISP_API_SetGGain, 3)),
    });
}

TEST_F(CommandSteps, IrisIsDoneWhateverTheLensSays)
{
    const auto I = viscaCtrlIris;
    const auto done = [](tagCOMMAND_CASE_S stCase) {
        stCase.pcPassedThrough = nullptr;
        return stCase;
    };
    check({
        done(goes("up", I, iris(UP, 0), "ISP_API_SetIrisLevel", 13, holds(ISP_API_SetIrisLevel, 12))),
        done(goes("up when open", I, iris(UP, 0), "ISP_API_SetIrisLevel", 0, holds(ISP_API_SetIrisLevel, 13))),
        done(goes("down when closed", I, iris(DOWN, 0), "ISP_API_SetIrisLevel", 13, holds(ISP_API_SetIrisLevel, 0))),
        done(goes("direct 13", I, iris(DIRECT, 13), "ISP_API_SetIrisLevel", 13, holds(ISP_API_SetIrisLevel, 3))),
        {"direct 14", I, iris(DIRECT, 14), {}, REFUSED},
    });
}

TEST_F(CommandSteps, GainChangesInManualExposureOnly)
{
    const auto manual = [](BU_S32 s32From) { return holds(ISP_API_SetGain, s32From, AE_MODE_E_MANUAL); };
    const auto G = viscaCtrlGain;
    check({
        goes("up", G, gain(UP, 0), "ISP_API_SetGain", 27, manual(26)),
        goes("up at the top", G, gain(UP, 0), "ISP_API_SetGain", 0, manual(27)),
        goes("down at the bottom", G, gain(DOWN, 0), "ISP_API_SetGain", 27, manual(0)),
        goes("direct 27", G, gain(DIRECT, 27), "ISP_API_SetGain", 27, manual(3)),
        {"direct 28", G, gain(DIRECT, 28), {}, REFUSED, nullptr, manual(3)},
    });
    for (const BU_S32 s32Mode : {AE_MODE_E_AUTO, AE_MODE_E_BRIGHT, AE_MODE_E_SHUTTER, AE_MODE_E_IRIS})
        for (const BU_S32 s32Type : {RESET, UP, DOWN, DIRECT})
            check({{"another mode", G, gain(s32Type, 5), {}, REFUSED, nullptr, holds(ISP_API_SetGain, 3, s32Mode)}});
}

TEST_F(CommandSteps, BrightnessOfTheExposureChangesInBrightModeOnly)
{
    const auto inBright = [](BU_S32 s32From) { return holds(ISP_API_SetExpBrightness, s32From, AE_MODE_E_BRIGHT); };
    const auto B = viscaCtrlExpBright;
    check({
        goes("up", B, bright(UP, 0), "ISP_API_SetExpBrightness", 11, inBright(10)),
        goes("down", B, bright(DOWN, 0), "ISP_API_SetExpBrightness", 9, inBright(10)),
        goes("direct", B, bright(DIRECT, 12), "ISP_API_SetExpBrightness", 12, inBright(10)),
    });
    for (const BU_S32 s32Mode : {AE_MODE_E_AUTO, AE_MODE_E_MANUAL, AE_MODE_E_SHUTTER, AE_MODE_E_IRIS})
        check({{"another mode", B, bright(UP, 0), {}, REFUSED, nullptr, holds(ISP_API_SetExpBrightness, 10, s32Mode)}});
}

TEST_F(CommandSteps, CompensationAndApertureStepWithoutWrap)
{
    const auto at = [](BU_S32 s32From) { return holds(ISP_API_SetExpCompLevel, s32From); };
    const auto C = viscaCtrlExpComp, A = viscaCtrlAperture;
    const char *pcLevel = "ISP_API_SetExpCompLevel", *pcSwitch = "ISP_API_SetExpCompSwi";
    check({
        {"on", C, expComp(VISCA_MSG_E_EXP_COMP_ON, 0), {sets(pcSwitch, 1)}, 0, pcSwitch},
        {"off", C, expComp(VISCA_MSG_E_EXP_COMP_OFF, 0), {sets(pcSwitch, 0)}, 0, pcSwitch},
        goes("up", C, expComp(VISCA_MSG_E_EXP_COMP_UP, 0), pcLevel, -2, at(-3)),
        goes("down", C, expComp(VISCA_MSG_E_EXP_COMP_DOWN, 0), pcLevel, -4, at(-3)),
        goes("direct 0x27 is 7", C, expComp(VISCA_MSG_E_EXP_COMP_DIRECT, 0x27), pcLevel, 7, at(0)),
        goes("direct 0x19 is -7", C, expComp(VISCA_MSG_E_EXP_COMP_DIRECT, 0x19), pcLevel, -7, at(0)),
        goes("aperture up", A, aperture(UP, 0), "ISP_API_SetSharpness", 6, holds(ISP_API_SetSharpness, 5)),
        goes("aperture down", A, aperture(DOWN, 0), "ISP_API_SetSharpness", 4, holds(ISP_API_SetSharpness, 5)),
        goes("aperture direct", A, aperture(DIRECT, 11), "ISP_API_SetSharpness", 11, holds(ISP_API_SetSharpness, 5)),
    });
}

struct tagRESET_ROW_S {
    BU_S32 (*pfnHandle)(Info *);
    std::function<void(Info &)> reset, unknown;
    const char *pcKey, *pcSetter;
    BU_S32 s32AeMode = AE_MODE_E_AUTO;
};
const std::vector<tagRESET_ROW_S> RESETS = {
    {viscaCtrlRGain, redGain(RESET, 0), redGain(UNKNOWN, 0), "RGain", "ISP_API_SetRGain"},
    {viscaCtrlBGain, blueGain(RESET, 0), blueGain(UNKNOWN, 0), "BGain", "ISP_API_SetBGain"},
    {viscaCtrlGGain, greenGain(RESET, 0), greenGain(UNKNOWN, 0), "GGain", "ISP_API_SetGGain"},
    {viscaCtrlIris, iris(RESET, 0), iris(UNKNOWN, 0), "IrisLevel", "ISP_API_SetIrisLevel"},
    {viscaCtrlGain, gain(RESET, 0), gain(UNKNOWN, 0), "Gain", "ISP_API_SetGain", AE_MODE_E_MANUAL},
    {viscaCtrlExpBright, bright(RESET, 0), bright(UNKNOWN, 0), "ExposureBrightness", "ISP_API_SetExpBrightness",
     AE_MODE_E_BRIGHT},
    {viscaCtrlExpComp, expComp(VISCA_MSG_E_EXP_COMP_RESET, 0), expComp(8, 0), "ExposureCompLevel",
     "ISP_API_SetExpCompLevel"},
    {viscaCtrlAperture, aperture(RESET, 0), aperture(UNKNOWN, 0), "Sharpness", "ISP_API_SetSharpness"}};

TEST_F(CommandSteps, ResetTakesTheFactoryDefaultAndUnknownKindsAreRefused)
{
    for (const auto &row : RESETS) {
        const auto setUp = [&] { ISP_API_SetAeMode(0, row.s32AeMode, BU_FALSE, BU_FALSE); };
        BU_S32 s32Default = -1;
        ASSERT_EQ(ISP_AF_GetDefVal(row.pcKey, &s32Default), 0) << row.pcKey;
        auto stReset = goes(row.pcKey, row.pfnHandle, row.reset, row.pcSetter, s32Default, setUp);
        if (row.pfnHandle == viscaCtrlIris) stReset.pcPassedThrough = nullptr;
        const tagCOMMAND_CASE_S stUnknown{row.pcKey, row.pfnHandle, row.unknown, {}, REFUSED, nullptr, setUp};
        check({stReset, stUnknown});
        EXPECT_THAT(traceOf(stUnknown), testing::ContainsRegex("\\[viscaCtrl[A-Za-z]+:[0-9]+\\] unknow type [48]\n"));
    }
}
} // namespace
