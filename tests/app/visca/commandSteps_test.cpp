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
constexpr auto redGain = with<&Info::stRGainCtrl, BU_S32, BU_S32>;
constexpr auto blueGain = with<&Info::stBGainCtrl, BU_S32, BU_S32>;
constexpr auto greenGain = with<&Info::stGGainCtrl, BU_S32, BU_S32>;
constexpr auto iris = with<&Info::stIrisCtrl, BU_S32, BU_S32>;
constexpr auto gain = with<&Info::stGainCtrl, BU_S32, BU_S32>;
constexpr auto bright = with<&Info::stBrightCtrl, BU_S32, BU_S32>;
constexpr auto expComp = with<&Info::stExpCompCtrl, BU_S32, BU_S32>;
constexpr auto aperture = with<&Info::stApertureCtrl, BU_S32, BU_S32>;

Effects sets(const char *pcSetter, BU_S32 s32Value)
{
    return {std::string("ISP_API_Set") + pcSetter + "(0, " + std::to_string(s32Value) + ", 1, 1)"};
}

// clang-format off
TEST_F(CommandSteps, ColourGainsStepAndWrap)
{
    passes(viscaCtrlRGain, {{redGain(UP, 0),      sets("RGain", 201), 0, holds(ISP_API_SetRGain, 200)},
                            {redGain(UP, 0),      sets("RGain", 0),   0, holds(ISP_API_SetRGain, 255)},
                            {redGain(DOWN, 0),    sets("RGain", 199), 0, holds(ISP_API_SetRGain, 200)},
                            {redGain(DOWN, 0),    sets("RGain", 255), 0, holds(ISP_API_SetRGain, 0)},
                            {redGain(DIRECT, 255), sets("RGain", 255), 0, holds(ISP_API_SetRGain, 3)}});
    passes(viscaCtrlBGain, {{blueGain(UP, 0),     sets("BGain", 0),   0, holds(ISP_API_SetBGain, 255)},
                            {blueGain(DOWN, 0),   sets("BGain", 255), 0, holds(ISP_API_SetBGain, 0)},
                            {blueGain(DIRECT, 9), sets("BGain", 9),   0, holds(ISP_API_SetBGain, 3)}});
    passes(viscaCtrlGGain, {{greenGain(UP, 0),     sets("GGain", 256), 0, holds(ISP_API_SetGGain, 255)},
                            {greenGain(DOWN, 0),   sets("GGain", -1),  0, holds(ISP_API_SetGGain, 0)},
                            {greenGain(DIRECT, 7), sets("GGain", 7),   0, holds(ISP_API_SetGGain, 3)}});
}

TEST_F(CommandSteps, IrisIsDoneWhateverTheLensSays)
{
    check(viscaCtrlIris, {{iris(UP, 0),      sets("IrisLevel", 13), 0, holds(ISP_API_SetIrisLevel, 12)},
                          {iris(UP, 0),      sets("IrisLevel", 0),  0, holds(ISP_API_SetIrisLevel, 13)},
                          {iris(DOWN, 0),    sets("IrisLevel", 13), 0, holds(ISP_API_SetIrisLevel, 0)},
                          {iris(DIRECT, 13), sets("IrisLevel", 13), 0, holds(ISP_API_SetIrisLevel, 3)},
                          {iris(DIRECT, 14), {}, REFUSED}});
}

TEST_F(CommandSteps, GainAndBrightnessChangeInTheirExposureModeOnly)
{
    const auto manual = [](BU_S32 s32From) { return holds(ISP_API_SetGain, s32From, AE_MODE_E_MANUAL); };
    passes(viscaCtrlGain, {{gain(UP, 0),      sets("Gain", 27), 0, manual(26)},
                           {gain(UP, 0),      sets("Gain", 0),  0, manual(27)},
                           {gain(DOWN, 0),    sets("Gain", 27), 0, manual(0)},
                           {gain(DIRECT, 27), sets("Gain", 27), 0, manual(3)},
                           {gain(DIRECT, 28), {}, REFUSED, manual(3)}});
    const auto inBright = [](BU_S32 s32From) { return holds(ISP_API_SetExpBrightness, s32From, AE_MODE_E_BRIGHT); };
    passes(viscaCtrlExpBright, {{bright(UP, 0),      sets("ExpBrightness", 11), 0, inBright(10)},
                                {bright(DOWN, 0),    sets("ExpBrightness", 9),  0, inBright(10)},
                                {bright(DIRECT, 12), sets("ExpBrightness", 12), 0, inBright(10)}});
    for (const BU_S32 s32Mode : {AE_MODE_E_AUTO, AE_MODE_E_BRIGHT, AE_MODE_E_SHUTTER, AE_MODE_E_IRIS, AE_MODE_E_MANUAL})
        for (const BU_S32 s32Type : {RESET, UP, DOWN, DIRECT}) {
            if (s32Mode != AE_MODE_E_MANUAL)
                check(viscaCtrlGain, {{gain(s32Type, 5), {}, REFUSED, holds(ISP_API_SetGain, 3, s32Mode)}});
            if (s32Mode != AE_MODE_E_BRIGHT)
                check(viscaCtrlExpBright, {{bright(s32Type, 5), {}, REFUSED, holds(ISP_API_SetExpBrightness, 10, s32Mode)}});
        }
}

TEST_F(CommandSteps, CompensationAndApertureStepWithoutWrap)
{
    const auto at = [](BU_S32 s32From) { return holds(ISP_API_SetExpCompLevel, s32From); };
    const auto sharp = holds(ISP_API_SetSharpness, 5);
    passes(viscaCtrlExpComp, {{expComp(VISCA_MSG_E_EXP_COMP_ON, 0),        sets("ExpCompSwi", 1)},
                              {expComp(VISCA_MSG_E_EXP_COMP_OFF, 0),       sets("ExpCompSwi", 0)},
                              {expComp(VISCA_MSG_E_EXP_COMP_UP, 0),        sets("ExpCompLevel", -2), 0, at(-3)},
                              {expComp(VISCA_MSG_E_EXP_COMP_DOWN, 0),      sets("ExpCompLevel", -4), 0, at(-3)},
                              {expComp(VISCA_MSG_E_EXP_COMP_DIRECT, 0x27), sets("ExpCompLevel", 7),  0, at(0)},
                              {expComp(VISCA_MSG_E_EXP_COMP_DIRECT, 0x19), sets("ExpCompLevel", -7), 0, at(0)}});
    passes(viscaCtrlAperture, {{aperture(UP, 0),      sets("Sharpness", 6),  0, sharp},
                               {aperture(DOWN, 0),    sets("Sharpness", 4),  0, sharp},
                               {aperture(DIRECT, 11), sets("Sharpness", 11), 0, sharp}});
}

struct tagRESET_ROW_S {
    PFN_HANDLER pfnHandle;
    std::function<void(Info &)> reset, unknown;
    const char *pcKey, *pcSetter;
    BU_S32 s32AeMode = AE_MODE_E_AUTO;
};
const std::vector<tagRESET_ROW_S> RESETS = {
    {viscaCtrlRGain,     redGain(RESET, 0),   redGain(UNKNOWN, 0),   "RGain", "RGain"},
    {viscaCtrlBGain,     blueGain(RESET, 0),  blueGain(UNKNOWN, 0),  "BGain", "BGain"},
    {viscaCtrlGGain,     greenGain(RESET, 0), greenGain(UNKNOWN, 0), "GGain", "GGain"},
    {viscaCtrlIris,      iris(RESET, 0),      iris(UNKNOWN, 0),      "IrisLevel", "IrisLevel"},
    {viscaCtrlGain,      gain(RESET, 0),      gain(UNKNOWN, 0),      "Gain", "Gain", AE_MODE_E_MANUAL},
    {viscaCtrlExpBright, bright(RESET, 0),    bright(UNKNOWN, 0),    "ExposureBrightness", "ExpBrightness", AE_MODE_E_BRIGHT},
    {viscaCtrlExpComp,   expComp(VISCA_MSG_E_EXP_COMP_RESET, 0), expComp(8, 0), "ExposureCompLevel", "ExpCompLevel"},
    {viscaCtrlAperture,  aperture(RESET, 0),  aperture(UNKNOWN, 0),  "Sharpness", "Sharpness"}};
// clang-format on

TEST_F(CommandSteps, ResetTakesTheFactoryDefaultAndUnknownKindsAreRefused)
{
    for (const auto &row : RESETS) {
        const auto setUp = [&] { ISP_API_SetAeMode(0, row.s32AeMode, BU_FALSE, BU_FALSE); };
        BU_S32 s32Default = -1;
        ASSERT_EQ(ISP_AF_GetDefVal(row.pcKey, &s32Default), 0) << row.pcKey;
        const tagCOMMAND_CASE_S stUnknown{row.unknown, {}, REFUSED, setUp};
        const Cases cases{{row.reset, sets(row.pcSetter, s32Default), 0, setUp}, stUnknown};
        row.pfnHandle == viscaCtrlIris ? check(row.pfnHandle, cases) : passes(row.pfnHandle, cases);
        EXPECT_THAT(traceOf(row.pfnHandle, stUnknown),
                    testing::ContainsRegex("\\[viscaCtrl[A-Za-z]+:[0-9]+\\] unknow type [48]\n"));
    }
}
} // namespace
