// Image panel: items, and when they can be operated.
#include "board/lamp.h"
#include "camera/focus.h"
#include "camera/image.h"
#include "camera/picture.h"
#include "camera/sound.h"
#include "webTest.h"

#include <sstream>

using testing::ElementsAre;

namespace
{
constexpr BU_U32 GET = WEB_RPC_EVENT_GROUP_E_GET_ISP, SET = WEB_RPC_EVENT_GROUP_E_SET_ISP;
constexpr BU_S32 AE_MODE = 4, WB_MODE = 22, ONE_PUSH = 31, DRC_MODE = 46, PRESET = 55;

class Image : public WebTest
{
protected:
    static void setModes(BU_S32 s32Pipe, BU_S32 s32Ae, BU_S32 s32Wb, BU_BOOL bSwitches)
    {
        ISP_API_SetAeMode(s32Pipe, s32Ae, BU_FALSE, BU_FALSE);
        ISP_API_SetWbMode(s32Pipe, s32Wb, BU_FALSE, BU_FALSE);
        ISP_API_SetExpCompSwi(s32Pipe, bSwitches, BU_FALSE, BU_FALSE);
        ISP_API_SetDrcSwi(s32Pipe, bSwitches, BU_FALSE, BU_FALSE);
    }
    /// Which items of a line of numbers are enabled.
    static std::string enabled(BU_S32 s32Pipe, const std::string &strItems)
    {
        std::string strEnabled;
        std::istringstream items(strItems);
        for (BU_S32 s32Item; items >> s32Item;)
            if (call(GET, s32Item, s32Pipe).bEnabled)
                strEnabled += (strEnabled.empty() ? "" : " ") + std::to_string(s32Item);
        return strEnabled;
    }
};

TEST_F(Image, ItemsAreReadAndSetOnBothPipes)
{
    // clang-format off
    constexpr ItemCase ITEMS[] = {
        {2, "ISP_API_*ExposureFullViewFollow", 1}, {3, "ISP_API_*NDFilter", 3}, {4, "ISP_API_*AeMode", 2, 0xDFFF0},
        {5, "ISP_API_*AeMeterMode", 5}, {6, "ISP_API_*AntiFlicker", 2}, {7, "ISP_API_*BackLight", 1},
        {8, "ISP_API_*ExpCompSwi", 1, 512}, {9, "ISP_API_*ExpCompLevel", -4}, {10, "ISP_API_*Gain", 11},
        {11, "ISP_API_*GainLimit", 12}, {12, "ISP_API_*Shutter", 20}, {13, "ISP_API_*IrisLevel", 3},
        {14, "ISP_API_*IrisLevel", 4}, {15, "ISP_API_*ExpBrightness", 21}, {16, "ISP_API_*AutoIrisSwi", 1},
        {18, "ISP_API_*ShutterMode", 1}, {19, "ISP_API_*ShutterValue", 250},
        {21, "ISP_API_*WhiteBalanceFullViewFollow", 1}, {22, "ISP_API_*WbMode", 3, 0x2FFC00000},
        {23, "ISP_API_*RGain", 23}, {24, "ISP_API_*BGain", 24}, {25, "ISP_API_*GGain", 25},
        {26, "ISP_API_*RStrength", 26}, {27, "ISP_API_*GStrength", 27}, {28, "ISP_API_*BStrength", 28},
        {29, "ISP_API_*AwbSensitivity", 2}, {30, "ISP_API_*Hue", 13}, {33, "ISP_API_*StWbMode", 3300},
        {35, "ISP_API_*IspBinUsage", 8}, {36, "ISP_API_*MonoChromeSwi", 1}, {38, "ISP_API_*Sharpness", 9},
        {39, "ISP_API_*Brightness", 10}, {40, "ISP_API_*Contrast", 11}, {41, "ISP_API_*Saturation", 12},
        {42, "ISP_API_*Gamma", 4}, {43, "ISP_API_*2DNR", 5}, {44, "ISP_API_*3DNR", 7},
        {45, "ISP_API_*DrcSwi", 1, 0x400000000000}, {46, "ISP_API_*DrcMode", 5}, {47, "SYS_API_*Mirror", 1, 0, true},
        {48, "SYS_API_*Flip", 1, 0, true}, {50, "SYS_API_*ImageFreeze", 1, 0, true},
        {51, "AF_API_*DistortionCorrection", 1, 0, true}, {52, "SYS_API_*HdrSwi", 1, 0, true}};
    // clang-format on
    for (const ItemCase &st : ITEMS)
        for (const BU_S32 s32Pipe : {0, 1}) check(st, GET, SET, s32Pipe);
}

TEST_F(Image, TheModesDecideWhichItemsAreEnabled)
{
    const std::string strExposure = "3 5 6 7 8 9 10 11 12 13 14 15 16 18 19", strWhite = "23 24 25 26 27 28 29 31 33";
    const std::string strFree = "1 2 4 17 20 21 22 30 32 34 35 36 37 38 39 40 41 42 43 44 45 47 48 49 50 51 52 53 54 "
                                "55 0 -1 56 2147483647";
    // Modes; the switches of exposure compensation and dynamic range; enabled on the close-up, the panorama, of white.
    const std::tuple<BU_S32, BU_S32, BU_BOOL, std::string, std::string, std::string> rows[] = {
        {AE_MODE_E_AUTO, WB_MODE_E_AUTO, 0, "3 5 6 7 8 11 16", "5 6 7 8 11", "26 27 28 29"},
        {AE_MODE_E_AUTO, WB_MODE_E_MANUAL, 1, "3 5 6 7 8 9 11 16", "5 6 7 8 9 11", "23 24 25"},
        {AE_MODE_E_BRIGHT, WB_MODE_E_INDOOR, 1, "3 15 16", "15", ""},
        {AE_MODE_E_SHUTTER, WB_MODE_E_OUTDOOR, 1, "3 11 12 16 18 19", "11 12 18 19", ""},
        {AE_MODE_E_IRIS, WB_MODE_E_STATIC, 1, "3 13 14", "", "33"},
        {AE_MODE_E_MANUAL, WB_MODE_E_ONE_PUSH, 1, "3 10 12 13 14 18 19", "10 12 18 19", "31"}};
    for (const auto &[s32Ae, s32Wb, bSwitches, strCloseUp, strPanorama, strEnabledWhite] : rows)
        for (const BU_S32 s32Pipe : {0, 1}) {
            setModes(s32Pipe, s32Ae, s32Wb, bSwitches);
            EXPECT_EQ(call(GET, AE_MODE, s32Pipe).s32Value, s32Ae);
            EXPECT_EQ(call(GET, WB_MODE, s32Pipe).s32Value, s32Wb);
            EXPECT_EQ(enabled(s32Pipe, strExposure), s32Pipe ? strPanorama : strCloseUp) << s32Ae;
            EXPECT_EQ(enabled(s32Pipe, strWhite), strEnabledWhite) << s32Wb;
            EXPECT_EQ(enabled(s32Pipe, strFree), strFree);
            EXPECT_EQ(call(GET, DRC_MODE, s32Pipe).bEnabled, bSwitches);
        }
    setModes(0, AE_MODE_E_MANUAL, WB_MODE_E_MANUAL, BU_TRUE); // what cannot be read counts as automatic, and off
    for (const char *pcGet : {"ISP_API_GetAeMode", "ISP_API_GetWbMode", "ISP_API_GetExpCompSwi", "ISP_API_GetDrcSwi"})
        journal::inject(pcGet, -1, 100);
    EXPECT_EQ(enabled(0, strExposure + " " + strWhite + " 46"), "3 5 6 7 8 11 16 26 27 28 29");
    EXPECT_EQ(call(GET, AE_MODE).s32Value + call(GET, WB_MODE).s32Value, 0);
}

TEST_F(Image, SomeItemsAnswerTheStoredValue)
{
    ISP_API_SetShutterMode(0, 0, BU_FALSE, BU_FALSE);
    ISP_API_SetShutterValue(0, 250, BU_FALSE, BU_FALSE);
    AF_API_SetDistortionCorrection(BU_TRUE, BU_FALSE, BU_FALSE);
    SYS_API_SetHdrSwi(BU_TRUE, BU_FALSE, BU_FALSE);
    SYS_API_SetImageFreeze(BU_TRUE, BU_FALSE, BU_FALSE);
    ISP_API_SetGamma(0, 3, BU_FALSE, BU_FALSE);
    for (const auto &[s32Item, s32Value] :
         {std::pair{18, 1}, {19, 60}, {51, 0}, {52, 0}, {50, 1}, {42, 3}, {1, 1}, {20, 1}})
        EXPECT_EQ(call(GET, s32Item).s32Value, s32Value) << s32Item;
}

TEST_F(Image, ActionsAndWhatIsPrinted)
{
    for (const auto &[s32Selector, pcFunction, pcArguments, s32Refused] :
         {std::tuple{-1, "", "", 0},
          {0, "IMAGEPRESET_API_SetCur", R"((12, ""))", -1},
          {1, "IMAGE_PRESET_API_GotoById", "(12, 8, NULL)", 0},
          {2, "IMAGE_PRESET_API_DeleteById", "(12)", -1},
          {3, "", "", 0}}) {
        journal::inject(pcFunction, -1);
        const Response res = call(SET, PRESET, 0, s32Selector, 12);
        EXPECT_EQ(journal::effects(), *pcFunction ? Effects{std::string(pcFunction) + pcArguments} : Effects{});
        EXPECT_EQ(std::pair(res.s32Value, res.s32SideEffectBitmap), std::pair(s32Refused, BU_U64{0})) << s32Selector;
    }
    for (const BU_S32 s32Item : {1, 17, 20, 32, 34, 37, 53, 54, 0, -1, 56, 64, INT32_MAX})
        EXPECT_THAT(effects(SET, s32Item, 0, 1), ElementsAre()) << s32Item;
    EXPECT_EQ(call(GET, ONE_PUSH, 1).s32Value, 0); // asking starts it, too
    EXPECT_THAT(effects(SET, ONE_PUSH, 1, 1),
                ElementsAre("ISP_API_TriggerAwbOnePush(1, 0)", "ISP_API_SetOnePushAwb(1, 1, 1, 1)"));
    EXPECT_THAT(effects(SET, 49, 1, 1), ElementsAre("ISP_API_Reset(1)"));
    for (const auto &[u32Event, s32Item, pcEnd] : {std::tuple(GET, 38, "-- Isp Get 38\n"),
                                                   {SET, 38, ""},
                                                   {SET, 16, "=======ISP_API_SetAutoIrisSwi========="},
                                                   {SET, ONE_PUSH, "ISP_API_SetOnePushAwb ok"},
                                                   {SET, 52, "] ===== isp hdr =====req->s32Value0 =1\n"},
                                                   {SET, 49, "] ===== isp reset =====\n"}}) {
        const std::string strPrinted = printed([u = u32Event, s = s32Item] { call(u, s, 0, 1); });
        EXPECT_THAT(strPrinted, testing::EndsWith(pcEnd));
        EXPECT_EQ(strPrinted.empty(), !*pcEnd);
    }
}
} // namespace
