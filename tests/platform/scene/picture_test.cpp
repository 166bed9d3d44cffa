// Image settings on tiny pictures; expected bytes are worked out by hand.
#include "support/picture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <set>

namespace
{
constexpr BU_S64 SECOND = 1'000'000;

typedef std::function<void(PICTURE_SETTINGS_S &)> Change;
PICTURE_SETTINGS_S with(const Change &change)
{
    PICTURE_SETTINGS_S st;
    change(st);
    return st;
}
Picture applied(const PICTURE_SETTINGS_S &st, Picture picture)
{
    PICTURE_STATE_S stState;
    PICTURE_Apply(st, stState, 0, picture.frame());
    return picture;
}

// Manual exposure with a shutter that sees no flicker: 1/50 s is 0.263 stops above the hall's 1/60.
Change manual(float fStops)
{
    return [=](PICTURE_SETTINGS_S &st) {
        st.enAeMode = AE_MODE_E_MANUAL, st.fShutterS = 1.0F / 50, st.fNdStops = 0.26303F - fStops;
    };
}
typedef std::array<int, 3> Yuv;
#define SET(...) [](PICTURE_SETTINGS_S &st) { st.__VA_ARGS__; }
TEST(Settings, MakeOfOnePixelAnother)
{
    // clang-format off
    const struct { Change change; Yuv in, expected; } rows[] = {
        {SET(fHue = 0), {100, 140, 90}, {100, 140, 90}}, // neutral
        {SET(fBrightness = 1), {100, 140, 90}, {155, 140, 90}}, // a quarter of 219 up
        {SET(fBrightness = -1), {60, 140, 90}, {16, 140, 90}}, // and stops at black
        {SET(fContrast = -1), {60, 128, 128}, {93, 128, 128}}, // (60 + 125.5) / 2
        {SET(fGamma = 1), {60, 128, 128}, {114, 128, 128}}, // 16 + 219 * sqrt(44 / 219)
        {SET(fSaturation = -1), {100, 150, 90}, {100, 128, 128}}, {SET(fSaturation = 1), {100, 150, 90}, {100, 172, 52}},
        {SET(fSaturation = 1), {100, 220, 40}, {100, 240, 16}}, // clips
        {SET(fHue = 1), {100, 156, 128}, {100, 153, 141}}, // 28 turned by 28 degrees
        {SET(bMonochrome = BU_TRUE), {100, 150, 90}, {100, 128, 128}},
        {SET(enWbMode = WB_MODE_E_INDOOR), {125, 128, 128}, {125, 138, 122}}, // white in lamp light: the hall goes blue
        {SET(enWbMode = WB_MODE_E_MANUAL, st.afGain[0] = 2), {125, 128, 128}, {125, 117, 174}}, // grey 1.2126: r 1.649, b 0.825
        {manual(-1), {116, 156, 128}, {89, 148, 128}}, // 100 and 28 times 0.7297
        {manual(1), {76, 128, 128}, {98, 128, 128}}, // 60 / 0.7297
        {manual(2), {235, 128, 128}, {235, 128, 128}}, // white stays white
        {SET(fIrisF = 4), {116, 128, 128}, {69, 128, 128}}, // two stops darker
        {SET(fIrisF = 0), {116, 128, 128}, {17, 128, 128}}, // shut
        {SET(afColourSat[4] = 1), {100, 220, 116}, {100, 240, 104}}, // clips
        {SET(afColourSat[1] = 1), {100, 40, 134}, {100, 16, 140}},
        {SET(s32Wdr = 6), {16, 128, 128}, {16, 128, 128}}, {SET(s32Wdr = 6), {235, 128, 128}, {235, 128, 128}},
        {SET(s32Wdr = 6), {64, 128, 128}, {112, 128, 128}}, // 2.8 x / (1 + 1.8 x), x = 48 / 219
        {SET(enStyle = USB_STYLE), {64, 190, 128}, {65, 193, 128}}, // slope 2^0.04, +2.7; 62 * 1.05
        {SET(enStyle = Beauty_STYLE), {64, 190, 128}, {77, 193, 128}}, // power 1 / 1.1, slope 2^-0.08, +3.3; 62 * 1.05
        {SET(enStyle = HDMI_STYLE), {64, 190, 128}, {60, 194, 128}}, // slope 2^0.1; 62 * 1.06
        {SET(enStyle = Soft_STYLE), {64, 190, 128}, {74, 184, 128}}, // slope 2^-0.22, +1.1; 62 * 0.9
        {SET(enStyle = Bright_STYLE), {16, 128, 128}, {19, 128, 128}}, // slope 2^0.08 around the middle, +8.8
    };
    // clang-format on
    for (const auto &[change, in, expected] : rows) {
        PICTURE_SETTINGS_S st = with(manual(0)); // no automatic exposure comes between
        change(st);
        // As wide as an odd number of vectors and a rest, so that both ways through a row are taken.
        Picture out = applied(st, Picture(44, 16, BU_U8(in[0]), BU_U8(in[1]), BU_U8(in[2])));
        for (const BU_S32 x : {0, 21, 43}) EXPECT_EQ(out.at(x, 9), expected) << testing::PrintToString(in);
    }
}

TEST(ColourMatrix, ActsOnItsOwnColourOnly)
{
    // fully saturated, half bright: red, yellow, green, cyan, blue, magenta
    constexpr BU_U8 COLOURS[][2] = {{115, 184}, {72, 133}, {85, 77}, {141, 72}, {184, 123}, {171, 179}};
    for (int i = 0; i < 6; ++i) {
        PICTURE_SETTINGS_S stGrey, stTurned;
        stGrey.afColourSat[i] = -1, stTurned.afColourHue[i] = 1;
        for (int k = 0; k < 6; ++k) {
            const auto &[u, v] = COLOURS[k];
            Picture grey = applied(stGrey, Picture(16, 16, 100, u, v)),
                    turned = applied(stTurned, Picture(16, 16, 100, u, v));
            EXPECT_NEAR(grey.u(4, 4), k == i ? 128 : u, 4) << i << k;
            EXPECT_NEAR(grey.v(4, 4), k == i ? 128 : v, 4) << i << k;
            const int s32Moved = std::abs(turned.u(4, 4) - u) + std::abs(turned.v(4, 4) - v);
            EXPECT_TRUE(k == i ? s32Moved > 15 : s32Moved <= 4) << i << k << ' ' << s32Moved;
        }
    }
}

TEST(Sharpness, MovesBothSidesOfAnEdge)
{
    Picture in(44, 16, 100);
    for (BU_S32 y = 0; y < 16; ++y)
        for (BU_S32 x = 22; x < 44; ++x) in.y(x, y) = 140;
    typedef std::array<int, 4> Around;
    const std::pair<float, Around> rows[] = {{1, {100, 80, 160, 140}}, // half of the difference of 40
                                             {0, {100, 100, 140, 140}},
                                             {-1, {100, 105, 135, 140}}}; // an eighth towards it
    for (const auto &[fSharpness, around] : rows) {
        PICTURE_SETTINGS_S st;
        st.fSharpness = fSharpness;
        Picture out = applied(st, in);
        for (const BU_S32 y : {0, 7, 15})
            EXPECT_EQ((Around{out.y(20, y), out.y(21, y), out.y(22, y), out.y(23, y)}), around) << y;
    }
}

TEST(Noise, GrowsWithGainAndShrinksWithReduction)
{
    const auto grain = [](float fGainDb, float fNr) {
        PICTURE_SETTINGS_S st = with(manual(0));
        st.fNdStops += fGainDb / 6.02F; // the picture stays as bright
        st.fGainDb = fGainDb;
        st.fNr2d = st.fNr3d = fNr;
        Picture out = applied(st, Picture(64, 64, 125));
        double dSum = 0;
        for (BU_S32 i = 0; i < 64 * 64; ++i) dSum += std::pow(out.y(i % 64, i / 64) - out.y(0, 0), 2);
        return std::sqrt(dSum / (64 * 64));
    };
    EXPECT_EQ(grain(0, 0), 0);
    EXPECT_GT(grain(12, 0), 0.8);
    EXPECT_GT(grain(27, 0), 2 * grain(12, 0));
    EXPECT_LT(grain(20, 1), 0.6 * grain(20, 0));
    Picture out = applied(with([](auto &st) { manual(-4)(st), st.fGainDb = 24; }), Picture(44, 16, 125));
    EXPECT_THAT((std::array{out.y(0, 9), out.y(1, 9), out.y(31, 9), out.y(32, 9), out.y(43, 9)}),
                testing::ElementsAre(124, 129, 133, 129, 120));
}

TEST(Flicker, ShowsBandsUnlessTheShutterFitsTheLamps)
{
    for (const auto &[s32Hz, bBands] : {std::pair{25, false}, {50, false}, {100, false}, {60, true}, {500, true}}) {
        PICTURE_SETTINGS_S st;
        st.enAeMode = AE_MODE_E_SHUTTER, st.fShutterS = 1.0F / static_cast<float>(s32Hz), st.fNr2d = st.fNr3d = 1;
        Picture out = applied(st, Picture(16, 120, 90));
        std::set<int> column;
        for (BU_S32 y = 0; y < 120; ++y) column.insert(out.y(3, y));
        EXPECT_EQ(*column.rbegin() - *column.begin() >= 2, bBands) << s32Hz << ' ' << testing::PrintToString(column);
    }
}

// Automatic exposure: brightness of a picture that is far too dark, by what the mode may change.
TEST(Exposure, CompensatesWithinItsLimits)
{
    const auto shown = [](const Change &change) {
        Picture out = applied(with(change), Picture(32, 32, 40));
        return std::accumulate(out.frame().pu8Y, out.frame().pu8Y + 32 * 32, 0) / (32 * 32);
    };
    const int s32Auto = shown([](auto &) {});
    EXPECT_NEAR(s32Auto, 68, 1); // 24 and 2.48 stops; 1.1 stops too dark is left alone
    EXPECT_LT(shown(SET(fGainLimitDb = 3)), s32Auto - 8);
    EXPECT_NEAR(shown(SET(enAeMode = AE_MODE_E_SHUTTER, st.fShutterS = 0.01F, st.fGainLimitDb = 30)), s32Auto, 2);
    EXPECT_LT(shown(SET(enAeMode = AE_MODE_E_SHUTTER, st.fShutterS = 1.0F / 4000)), s32Auto - 8);
    EXPECT_LT(shown(SET(enAeMode = AE_MODE_E_IRIS, st.fIrisF = 14)), s32Auto - 8);
    EXPECT_NEAR(shown(SET(enAeMode = AE_MODE_E_IRIS, st.fIrisF = 0)), 16, 1); // a closed iris lets nothing in
    EXPECT_GT(shown(SET(fExpCompStops = 1, st.fGainLimitDb = 30)), s32Auto + 4);
    EXPECT_EQ(shown(SET(fBrightStops = 1)), s32Auto); // of the bright mode only
    EXPECT_GT(shown(SET(enAeMode = AE_MODE_E_BRIGHT, st.fBrightStops = 1, st.fGainLimitDb = 30)), s32Auto + 4);
    EXPECT_GT(shown(SET(bBackLight = BU_TRUE)), s32Auto + 4);
}

TEST(Exposure, MetersThePartThatIsChosen)
{
    Picture in(64, 64, 200); // bright above, dark below
    for (BU_S32 i = 32 * 64; i < 64 * 64; ++i) in.y(i % 64, i / 64) = 20;
    const auto stops = [&](tagAE_METER_MODE_E en) {
        PICTURE_STATE_S stState;
        PICTURE_Apply(with([&](auto &st) { st.enMeter = en; }), stState, 0, Picture(in).frame());
        return stState.fStops;
    };
    EXPECT_LT(stops(AE_METER_MODE_E_TOP), -0.5F);
    EXPECT_GT(stops(AE_METER_MODE_E_BOTTOM), 0.5F);
    EXPECT_EQ(stops(AE_METER_MODE_E_AVG), 0);
    EXPECT_EQ(stops(AE_METER_MODE_E_LEFT), 0);
}

TEST(Settling, TakesAboutASecond)
{
    PICTURE_STATE_S stState;
    PICTURE_SETTINGS_S st;
    const auto show = [&](BU_U8 u8Y, BU_S64 s64Us) {
        Picture picture(32, 32, u8Y);
        PICTURE_Apply(st, stState, s64Us, picture.frame());
        return stState.fStops;
    };
    EXPECT_EQ(show(100, 0), 0);
    const float fSoon = show(24, SECOND / 30), fLater = show(24, SECOND + SECOND / 30), fEnd = show(24, 20 * SECOND);
    EXPECT_GT(fSoon, 0);
    EXPECT_LT(fSoon, 0.3F * fEnd);
    EXPECT_GT(fLater, 0.9F * fEnd);

    st.enWbMode = WB_MODE_E_INDOOR; // set by hand: at once
    show(100, 21 * SECOND);
    EXPECT_NEAR(stState.afWb[2], 1.1702F, 5e-5); // the root of 4300 / 3200, over the grey
    st.enWbMode = WB_MODE_E_AUTO;                // finds its way back in time
    show(100, 21 * SECOND + SECOND / 10);
    EXPECT_GT(stState.afWb[2], 1.1F);
    show(100, 30 * SECOND);
    EXPECT_EQ(stState.afWb[2], 1);
}
} // namespace
