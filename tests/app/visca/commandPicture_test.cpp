// Commands of white balance, exposure, stepped settings, picture parameters and the extra image settings.
#include "commandTest.h"

namespace
{
using CommandPicture = CommandTest;
using testing::HasSubstr;

/// The kind stands in one group, the direct value beside it.
void colourTemperature(Info &st, const Numbers &numbers)
{
    put<&Info::stColorTempCtrl, &VISCA_CTRL_COLORTEMP_S::enColorTempType>(st, numbers);
    st.u8WbColorTmpDirect = static_cast<BU_U8>(numbers.size() > 1 ? numbers[1] : 0);
}

// clang-format off
const Message WB{VISCA_CMD_E_WB_MODE, put<&Info::enWbModeCtrl>}, TEMPERATURE{VISCA_CMD_E_WB_COLOR_TMP, colourTemperature},
    STRENGTH{VISCA_CMD_E_AWB_GAIN, put<&Info::stAwbGainCtrl>}, AE{VISCA_CMD_E_AE, put<&Info::stAECtrl>},
    SHUTTER{VISCA_CMD_E_SHUTTER, put<&Info::stShutterCtrl>}, WDR{VISCA_CMD_E_WDR, put<&Info::stWDRCtrl>, true},
    BACKLIGHT{VISCA_CMD_E_BACKLIGHT, put<&Info::enBalklightCtrl>}, PARAM{VISCA_CMD_E_VIDEO_PARAMETER, put<&Info::stVideoParamCtrl>},
    EXTRA{VISCA_CMD_E_EXTRA_ISP, put<&Info::stExtraIspCtrl>};

TEST_F(CommandPicture, WhiteBalance)
{
    check({each(WB, "ISP WbMode %", {{0, 0}, {1, 2}, {2, 3}, {3, 5}, {5, 1}, {11, 4}}), each(WB, "ISP OnePushAwb %", {{12, 0}})});
    check(Rows{{STRENGTH, {0, 77}, "ISP RStrength 77"}, {STRENGTH, {1, 77}, "ISP BStrength 77"}, {STRENGTH, {2, 77}, "ISP GStrength 77"},
               {TEMPERATURE, {0}, "ISP StWbMode 5600", "ColorTemp 4000"}, // 2800 K to 6500 K in steps of 100 K
               {TEMPERATURE, {1}, "ISP StWbMode 4100", "ColorTemp 4000"}, {TEMPERATURE, {1}, "ISP StWbMode 6500", "ColorTemp 6500"},
               {TEMPERATURE, {2}, "ISP StWbMode 3900", "ColorTemp 4000"}, {TEMPERATURE, {2}, "ISP StWbMode 2800", "ColorTemp 2800"},
               {TEMPERATURE, {3, 1}, "ISP StWbMode 2900"}, {TEMPERATURE, {3, 37}, "ISP StWbMode 6500"}, {TEMPERATURE, {3, 38}, REFUSED}});
    EXPECT_THAT(traceOf([] { dispatch(TEMPERATURE, {3, 38}); }), HasSubstr("]: 38 out of rang[0 ~ 0x25]\n"));
}

TEST_F(CommandPicture, ExposureAndShutter)
{
    check(each(AE, "ISP AeMode %", {{0, 0}, {3, 4}, {10, 2}, {11, 3}, {13, 1}}));
    check(Rows{{AE, {14, 9}, "ISP GainLimit 9", "ExposureMode 0"}, {AE, {14, 9}, REFUSED, "ExposureMode 1"}, {AE, {14, 9}, REFUSED, "ExposureMode 2"},
               {AE, {14, 9}, REFUSED, "ExposureMode 3"}, {AE, {14, 9}, REFUSED, "ExposureMode 4"},
               {WDR, {2, 5}, "ISP DrcSwi 1"}, {WDR, {3, 5}, "ISP DrcSwi 0"}, {WDR, {4, 5}, REFUSED}, {WDR, {5, 5}, REFUSED}, {WDR, {6, 5}, REFUSED}, {WDR, {7, 5}, REFUSED},
               {BACKLIGHT, {2}, "ISP BackLight 1"}, {BACKLIGHT, {3}, "ISP BackLight 0"},
               // Shutters are 0...32 for 1/24 ... 1/10000; the lists follow the output rate: 0 is 60, 2 is 50, 5 is 25.
               {SHUTTER, {1}, "ISP Shutter 11", "Fps 0, ShutterSpeedFps60 9"},  {SHUTTER, {1}, "ISP Shutter 5", "Fps 0, ShutterSpeedFps60 32"},
               {SHUTTER, {1}, "ISP Shutter 10", "Fps 2, ShutterSpeedFps50 9"},  {SHUTTER, {2}, "ISP Shutter 7", "Fps 0, ShutterSpeedFps60 9"},
               {SHUTTER, {2}, "ISP Shutter 32", "Fps 5, ShutterSpeedFps25 1"},  {SHUTTER, {3, 6}, "ISP Shutter 5", "Fps 0"},
               {SHUTTER, {3, 21}, "ISP Shutter 32", "Fps 0"},                   {SHUTTER, {3, 12}, "ISP Shutter 16", "Fps 5"},
               {SHUTTER, {3, 5}, REFUSED, "Fps 0"}, {SHUTTER, {3, 22}, REFUSED, "Fps 0"}, {SHUTTER, {4}, REFUSED, "Fps 0"},
               {SHUTTER, {1}, "", "@ISP_API_GetShutter -7", -7}, {SHUTTER, {2}, "", "@ISP_API_GetShutter -7", -7},
               // The factory setting: that of 60 for rates that have none.
               {SHUTTER, {0}, "ISP Shutter 5", "Fps 0"}, {SHUTTER, {0}, "ISP Shutter 5", "Fps 1"}, {SHUTTER, {0}, "ISP Shutter 4", "Fps 2"},
               {SHUTTER, {0}, "ISP Shutter 2", "Fps 3"}, {SHUTTER, {0}, "ISP Shutter 5", "Fps 4"}, {SHUTTER, {0}, "ISP Shutter 1", "Fps 5"},
               {SHUTTER, {0}, "ISP Shutter 0", "Fps 6"}, {SHUTTER, {0}, "ISP Shutter 5", "Fps 7"}});
}

/// Settings that are stepped: reset, up and down with the ends of the range, a value of its own.
TEST_F(CommandPicture, SteppedSettings)
{
    constexpr BU_S32 REFUSES = 9999;
    // s32First: the kind that means reset; s32AeMode: in which it may change; a step: kind after the first, direct value,
    // the setting before and after.
    const struct { Message message; const char *pcSetter, *pcKey; BU_S32 s32First, s32AeMode; std::vector<std::array<BU_S32, 4>> steps; } ROWS[] = {
        {{VISCA_CMD_E_RGAIN, put<&Info::stRGainCtrl>}, "RGain", "RGain", 0, 0, {{0, 9, 3, 128}, {1, 9, 200, 201}, {1, 9, 255, 0}, {2, 9, 200, 199}, {2, 9, 0, 255}, {3, 254, 3, 254}}},
        {{VISCA_CMD_E_BGAIN, put<&Info::stBGainCtrl>}, "BGain", "BGain", 0, 0, {{0, 9, 3, 128}, {1, 9, 200, 201}, {1, 9, 255, 0}, {2, 9, 200, 199}, {2, 9, 0, 255}, {3, 254, 3, 254}}},
        {{VISCA_CMD_E_GGAIN, put<&Info::stGGainCtrl>}, "GGain", "GGain", 0, 0, {{0, 9, 3, 128}, {1, 9, 255, 256}, {2, 9, 0, -1}, {3, 7, 3, 7}}},
        {{VISCA_CMD_E_IRIS, put<&Info::stIrisCtrl>, true}, "IrisLevel", "IrisLevel", 0, 0, {{0, 9, 3, 12}, {1, 9, 12, 13}, {1, 9, 13, 0}, {2, 9, 0, 13}, {3, 13, 3, 13}, {3, 14, 3, REFUSES}}},
        {{VISCA_CMD_E_GAIN, put<&Info::stGainCtrl>}, "Gain", "Gain", 0, 4, {{0, 9, 3, 0}, {1, 9, 26, 27}, {1, 9, 27, 0}, {2, 9, 0, 27}, {3, 27, 3, 27}, {3, 28, 3, REFUSES}}},
        {{VISCA_CMD_E_BRIGHT, put<&Info::stBrightCtrl>}, "ExpBrightness", "ExposureBrightness", 0, 1, {{0, 9, 3, 15}, {1, 9, 10, 11}, {2, 9, 10, 9}, {3, 12, 3, 12}}},
        {{VISCA_CMD_E_EXP_COMP, put<&Info::stExpCompCtrl>}, "ExpCompLevel", "ExposureCompLevel", 4, 0, {{0, 9, 3, 0}, {1, 9, -3, -2}, {2, 9, -3, -4}, {3, 0x27, 0, 7}, {3, 0x19, 0, -7}}},
        {{VISCA_CMD_E_APERTURE, put<&Info::stApertureCtrl>}, "Sharpness", "Sharpness", 0, 0, {{0, 9, 3, 6}, {1, 9, 5, 6}, {2, 9, 5, 4}, {3, 11, 3, 11}}}};
    for (const auto &row : ROWS) {
        for (const auto &[s32Kind, s32Direct, s32Before, s32After] : row.steps)
            for (BU_S32 s32Mode = 0; s32Mode < 5; ++s32Mode) {
                const bool bRefused = s32After == REFUSES || (row.s32AeMode && s32Mode != row.s32AeMode);
                check(Rows{{row.message, {row.s32First + s32Kind, s32Direct}, bRefused ? REFUSED : "ISP " + std::string(row.pcSetter) + " " + std::to_string(s32After),
                            "ExposureMode " + std::to_string(s32Mode) + ", " + row.pcKey + " " + std::to_string(s32Before)}});
            }
        const std::string strTrace = traceOf([&] { check(Rows{{row.message, {row.s32First + 4}, REFUSED, "ExposureMode " + std::to_string(row.s32AeMode)}}); });
        EXPECT_THAT(strTrace, testing::ContainsRegex("\\[viscaCtrl[A-Za-z]+:[0-9]+\\] unknow type [48]\n"));
    }
    check(each({VISCA_CMD_E_EXP_COMP, put<&Info::stExpCompCtrl>}, "ISP ExpCompSwi %", {{2, 1}, {3, 0}}));
}

TEST_F(CommandPicture, ParametersReachTheirSettings)
{
    const char *const SETTERS[] = {"Sharpness", "Brightness", "Contrast", "Saturation", "Hue", "2DNR", "3DNR", "Gamma"};
    for (BU_S32 i = 0; i < 8; ++i) check(Rows{{PARAM, {i, 3}, "ISP " + std::string(SETTERS[i]) + " 3"}});
    const char *const COLOURS[] = {"5", "4", "3", "1", "2", "6"}; // blue, cyan, green, red, yellow, magenta
    for (BU_S32 i = 0; i < 6; ++i) // hues count from the lowest, which is -10
        check(Rows{{PARAM, {15 + i, 3},  std::string("ISP_API_SetColorHue(0, ") + COLOURS[i] + ", -7, 1, 1)"},
                   {PARAM, {21 + i, 90}, std::string("ISP_API_SetColorSat(0, ") + COLOURS[i] + ", 90, 1, 1)"}});
    const Message RANGE{PARAM.enType, PARAM.fill, false, "ISP_API_SetDrcMode"}, DONE{PARAM.enType, PARAM.fill, true};
    check(Rows{{RANGE, {8, 1}, "ISP DrcSwi 1; ISP DrcMode 0"}, {RANGE, {8, 6}, "ISP DrcSwi 1; ISP DrcMode 5"}, {DONE, {8, 0}, "ISP DrcSwi 0"},
               {PARAM, {11, 0}, "ISP AntiFlicker 2"}, {PARAM, {11, 1}, "ISP AntiFlicker 0"}, {PARAM, {11, 2}, "ISP AntiFlicker 1"}, {PARAM, {11, 3}, REFUSED},
               {DONE, {12, 2}, "SYS ImageFreeze 1"}, {DONE, {12, 3}, "SYS ImageFreeze 0"}, {PARAM, {13, 4}, "ISP AeMeterMode 4"},
               {PARAM, {14, 0}, "ISP IspBinUsage 0"}, {PARAM, {14, 1}, "ISP IspBinUsage 6"}, {PARAM, {14, 2}, "ISP IspBinUsage 7"}, {PARAM, {14, 3}, REFUSED}});
    for (const BU_S32 s32Value : {0, 1, 4, 255}) check(refused(PARAM, {{9, s32Value}, {10, s32Value}, {12, s32Value}}));
}

/// Mirror, flip and mount restart the camera, but only when they were set.
TEST_F(CommandPicture, ExtraSettings)
{
    const std::string strReboot = "; UTIL_CMD_RunSafe(\"sync; reboot\")";
    const struct { Message message; BU_S32 s32Type; const char *pcEffect; bool bReboots = false; } ROWS[] = {
        {PARAM, 9, "SYS Mirror ", true}, {PARAM, 10, "SYS Flip ", true}, {EXTRA, 7, "SYS MountMode ", true},
        {EXTRA, 0, "ISP ExposureFullViewFollow "}, {EXTRA, 1, "ISP WhiteBalanceFullViewFollow "}, {EXTRA, 12, "AF_API_SetFaceAF(0, "},
        {EXTRA, 8, "AF_API_SetDistortionCorrection("}, {EXTRA, 13, "ISP AutoIrisSwi "}};
    for (const auto &row : ROWS)
        for (const BU_S32 s32Code : {2, 3}) {
            const std::string strEffect = row.pcEffect + std::string(s32Code == 2 ? "1" : "0") + (strchr(row.pcEffect, '(') ? ", 1, 1)" : "");
            if (!row.bReboots) {
                check(Rows{{row.message, {row.s32Type, s32Code}, strEffect}});
                continue;
            }
            const std::string strSet = longForm(strEffect), strFunction = strSet.substr(0, strSet.find('('));
            EXPECT_EQ(dispatch(row.message, {row.s32Type, s32Code}), 0);
            EXPECT_EQ(effects(), strSet + strReboot + "; " + answered(row.message.enType));
            EXPECT_EQ(dispatch(row.message, {row.s32Type, s32Code}, "@" + strFunction + " -3"), -3);
            EXPECT_EQ(effects(), strSet + "; ");
        }
    check(Rows{{EXTRA, {2}, "IMAGE_PRESET_API_GotoById(-250, 8, NULL)"}, {EXTRA, {3}, "IMAGE_PRESET_API_GotoById(-1, 8, NULL)"},
               {EXTRA, {4}, "IMAGE_PRESET_API_GotoById(-2, 8, NULL)"},   {EXTRA, {5}, "IMAGE_PRESET_API_GotoById(-3, 8, NULL)"},
               {EXTRA, {6, 2}, "ISP AwbSensitivity 2"}, {EXTRA, {10, 3}, "ISP NDFilter 3"},
               {EXTRA, {11, 2}, "SYS SensorCrop 1", "SensorCrop 0"}, {EXTRA, {11, 3}, "SYS SensorCrop 0", "SensorCrop 1"}, // tele mode
               {EXTRA, {11, 2}, "", "SensorCrop 1"},                 {EXTRA, {11, 3}, "", "SensorCrop 0"}});
    check(Rows{{{EXTRA.enType, EXTRA.fill, true}, {9}, "ISP_API_Reset(0); ISP_API_Reset(1)"}});
    journal::inject("ISP_API_Reset", -3, 2);
    EXPECT_EQ(dispatch(EXTRA, {9}), -3) << "that of the second pipeline";
    for (const BU_S32 s32Value : {0, 1, 4, 255})
        for (const BU_S32 s32Type : {0, 1, 7, 8, 11, 12, 13}) check(refused(EXTRA, {{s32Type, s32Value}}));
}
// clang-format on
} // namespace
