#include "draw/canvas.h"
#include "support/picture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace
{
constexpr BU_S32 WIDTH = 640, HEIGHT = 360;

Picture closeUp(SCENE_S *pst, const SCENE_VIEW_S &stView, BU_S64 s64Us = 0, BU_S32 s32Width = WIDTH,
                BU_S32 s32Height = HEIGHT)
{
    Picture picture(s32Width, s32Height);
    EXPECT_EQ(SCENE_RenderCloseUp(pst, stView, s64Us, picture.frame()), 0);
    return picture;
}

MATCHER_P(Near, most, "") { return std::abs(std::get<0>(arg) - std::get<1>(arg)) <= most; }

struct View : testing::Test {
    const Scene scene{SCENE_Open("synthetic")};
};

/// Mean luma of the eight parts of a picture, four across [tenths].
std::array<int, 8> parts(Picture picture)
{
    std::array<int, 8> sums{};
    const BU_S32 w = picture.width(), h = picture.height();
    for (BU_S32 i = 0; i < w * h; ++i)
        sums[static_cast<std::size_t>(i % w * 4 / w + i / w * 2 / h * 4)] += picture.y(i % w, i / w);
    for (int &s32 : sums) s32 = s32 * 10 / (w * h / 8);
    return sums;
}

/// Column of the strongest thin bright vertical line in some rows, and the same of rows.
BU_S32 lineAt(Picture &picture, BU_S32 s32From, BU_S32 s32To, bool bVertical)
{
    std::pair<BU_S32, BU_S32> best(-1, -1);
    for (BU_S32 i = 4; i < (bVertical ? WIDTH : HEIGHT) - 4; ++i) {
        BU_S32 s32Sum = 0;
        for (BU_S32 k = s32From; k < s32To; ++k) {
            const auto at = [&](BU_S32 s32) -> int { return bVertical ? picture.y(s32, k) : picture.y(k, s32); };
            s32Sum += 2 * at(i) - at(i - 3) - at(i + 3);
        }
        best = std::max(best, {s32Sum, i});
    }
    return best.second;
}

// There is a cross on the walls at every ten degrees. At magnification 8 a degree is 640 * 8 / 60 = 85.3 pixels.
TEST_F(View, CrossStandsWhereItsDirectionIs)
{
    const std::tuple<float, float, BU_S32, BU_S32> rows[] = {
        {30, 10, 320, 180},   {31, 10, 235, 180},       {29.5F, 10, 363, 180}, {30, 11, 320, 265},
        {29, 9.5F, 405, 137}, {30 - 360, 10, 320, 180}, {-150, 10, 320, 180}};
    for (const auto &[fPan, fTilt, x, y] : rows) {
        Picture picture = closeUp(scene.get(), {.fPan = fPan, .fTilt = fTilt, .fMagnification = 8});
        // The arms are a quarter of a degree, 21 pixels long.
        EXPECT_NEAR(lineAt(picture, y + 4, y + 18, true), x, 1) << fPan << '/' << fTilt;
        EXPECT_NEAR(lineAt(picture, x - 18, x - 4, false), y, 1) << fPan << '/' << fTilt;
    }
    for (const float f : {1.0F, 1.03F}) { // from afar, up to 12 pixels a degree, there are none
        Picture picture = closeUp(scene.get(), {.fPan = 30, .fTilt = 10, .fMagnification = f}, 0, 720, 360);
        EXPECT_EQ(picture.y(360, 180) > picture.y(356, 176) + 24, f > 1) << f;
    }
}

/// Scales with their marks and numbers, crosses, furniture, people.
TEST_F(View, TheHallLooksAsItDid)
{
    // clang-format off
    const std::pair<SCENE_VIEW_S, std::array<int, 8>> rows[] = {
        {{.fPan = 10, .fTilt = 20, .fMagnification = 4}, {587, 627, 675, 738, 761, 737, 684, 670}},
        {{.fPan = -60, .fTilt = 20.5F, .fMagnification = 20}, {1561, 1584, 1588, 1549, 1580, 1568, 1556, 1545}},
        {{.fPan = 45, .fTilt = -26, .fMagnification = 6}, {600, 639, 659, 650, 593, 625, 588, 558}},
        {{.fPan = 175, .fTilt = -4, .fMagnification = 2}, {1048, 1011, 1023, 1010, 971, 956, 968, 949}},
        {{.fPan = 30, .fTilt = 10, .fMagnification = 10}, {493, 493, 525, 466, 525, 535, 523, 498}},
        {{.fPan = 15, .fTilt = 55, .fMagnification = 12}, {1196, 1179, 1167, 1146, 1190, 1174, 1162, 1142}},
        {{.fPan = -90, .fTilt = 0}, {1736, 1813, 1720, 1719, 891, 917, 894, 881}},
        {{.fPan = 0, .fTilt = -5, .fMagnification = 3}, {722, 870, 870, 814, 868, 1004, 1006, 933}}};
    // clang-format on
    for (const auto &[stView, expected] : rows)
        EXPECT_THAT(parts(closeUp(scene.get(), stView, 2'000'000)), testing::Pointwise(Near(2), expected))
            << stView.fPan;
}

TEST_F(View, MovesSmoothlyByPartsOfAPixel)
{
    // A quarter of a pixel a step: every picture differs from the one before, and by little.
    Picture before = closeUp(scene.get(), {.fPan = 40});
    for (int i = 1; i <= 8; ++i) {
        const Picture now = closeUp(scene.get(), {.fPan = 40 + static_cast<float>(i) * 15 / WIDTH / 4});
        EXPECT_GT(now.difference(before), 0.033) << i;
        EXPECT_LT(now.difference(before), 2.7) << i;
        before = now;
    }
}

TEST_F(View, SameTimeSamePicture)
{
    const Scene other(SCENE_Open(""));
    const SCENE_VIEW_S stView{.fPan = 5, .fMagnification = 1.5F};
    Picture first = closeUp(scene.get(), stView, 12'300'000);
    for (float f = 0; f < 30; ++f) closeUp(other.get(), {.fPan = 12 * f, .fMagnification = 1 + f}); // fills its memory
    EXPECT_EQ(closeUp(other.get(), stView, 12'300'000), first);
    EXPECT_EQ(closeUp(other.get(), stView, 12'300'000), first) << "when it stands still";
    EXPECT_NE(closeUp(scene.get(), stView, 12'350'000), first) << "somebody moves";
}

// The screen shows tenths of a second; the last digit lies around pan 11, tilt 11.
TEST_F(View, ClockRunsWithTheTimeHandedIn)
{
    const SCENE_VIEW_S stDigits{.fPan = 11, .fTilt = 10.9F, .fMagnification = 10};
    const Picture stNow = closeUp(scene.get(), stDigits, 12'310'000);
    EXPECT_EQ(closeUp(scene.get(), stDigits, 12'390'000), stNow);
    EXPECT_NE(closeUp(scene.get(), stDigits, 12'400'000), stNow);
    EXPECT_EQ(closeUp(scene.get(), stDigits, 24 * 3'600'000'000 + 12'310'000), stNow) << "a day later";
}

TEST_F(View, PeopleAreWhereTheListSays)
{
    for (const BU_S64 s64Us : {2'000'000, 31'000'000})
        for (const SCENE_PERSON_S &st : SCENE_ListPeople(s64Us)) {
            EXPECT_GT(st.fHeadTilt, st.fTilt);
            // The middle of a face, close by: skin is redder than it is blue.
            Picture face =
                closeUp(scene.get(), {.fPan = st.fHeadPan, .fTilt = st.fHeadTilt, .fMagnification = 60}, s64Us, 64, 36);
            EXPECT_GT(face.v(32, 18), face.u(32, 18) + 6) << st.fPan;
        }
    const auto pan = [](BU_S64 s64Us) { return SCENE_ListPeople(s64Us).back().fPan; };
    EXPECT_NE(pan(1'000'000), pan(2'000'000)) << "the nearest walks";
}

TEST_F(View, DefocusSoftens)
{
    const auto edges = [&](float fDefocus, float fMagnification) {
        Picture picture =
            closeUp(scene.get(), {.fPan = 12, .fTilt = 5, .fMagnification = fMagnification, .fDefocus = fDefocus});
        return picture.steps(1, 0);
    };
    EXPECT_GT(closeUp(scene.get(), {.fMagnification = 20, .fDefocus = 60}, 0, 640, 360).steps(1, 0), 0) << "not black";
    Picture most = closeUp(scene.get(), {.fPan = 10, .fMagnification = 20, .fDefocus = 60}, 0, 960, 540);
    EXPECT_NEAR(most.steps(1, 0), 107817, 500) << "no more than that";
    EXPECT_LT(edges(4, 1), 0.8 * edges(0, 1));
    EXPECT_LT(edges(8, 1), 0.9 * edges(4, 1));
    EXPECT_LT(edges(-4, 1), 0.8 * edges(0, 1));
    EXPECT_EQ(edges(0.1F, 1), edges(0, 1)) << "within the depth of field";
    EXPECT_LT(edges(0.1F, 16), edges(0, 16)) << "which a long lens has less of";
}

TEST_F(View, MirrorAndFlipTurnThePicture)
{
    const SCENE_VIEW_S stView{.fPan = 20};
    const auto turned = [&](BU_BOOL bMirror, BU_BOOL bFlip) {
        Picture picture(64, 36);
        PICTURE_SETTINGS_S st;
        st.bMirror = bMirror, st.bFlip = bFlip;
        PICTURE_STATE_S stState;
        EXPECT_EQ(PICTURE_Render(scene.get(), &stView, st, stState, 0, picture.frame()), 0);
        return picture;
    };
    Picture upright = turned(BU_FALSE, BU_FALSE);
    for (int s32Case = 0; s32Case < 4; ++s32Case) {
        const bool bMirror = s32Case & 1, bFlip = s32Case & 2;
        Picture picture = turned(bMirror, bFlip);
        for (BU_S32 i = 0; i < 64 * 36; ++i) {
            const BU_S32 x = i % 64, y = i / 64;
            ASSERT_EQ(picture.at(x, y), upright.at(bMirror ? 63 - x : x, bFlip ? 35 - y : y)) << bMirror << bFlip << i;
        }
    }
}

TEST_F(View, HoldsThePictureUntilReleased)
{
    PICTURE_SETTINGS_S st;
    PICTURE_STATE_S stState;
    SCENE_VIEW_S stView;
    const auto show = [&](BU_S64 s64Us, BU_S32 s32Width = 320) {
        Picture picture(s32Width, 180);
        EXPECT_EQ(PICTURE_Render(scene.get(), &stView, st, stState, s64Us, picture.frame()), 0);
        return picture;
    };
    st.bFreeze = BU_TRUE;
    const Picture held = show(0);
    stView.fPan = 50;
    EXPECT_EQ(show(5'000'000), held);
    EXPECT_EQ(show(6'000'000, 352).width(), 352) << "another size cannot show it";
    st.bFreeze = BU_FALSE;
    EXPECT_NE(show(7'000'000), held);
}

TEST_F(View, BadFramesAndScenes)
{
    Picture picture(64, 64);
    const auto render = [&](SCENE_S *pst, BU_S32 s32Width, BU_S32 s32Height) {
        SCENE_FRAME_S st = picture.frame();
        st.s32Width = s32Width, st.s32Height = s32Height;
        PICTURE_STATE_S stState;
        return std::pair(SCENE_RenderPanorama(pst, 0, st), PICTURE_Render(pst, nullptr, {}, stState, 0, st));
    };
    const std::pair stRefused(-1, -1);
    for (const auto &[w, h] : {std::pair{63, 64}, {64, 14}, {64, -64}, {16384, 64}})
        EXPECT_EQ(render(scene.get(), w, h), stRefused) << w << 'x' << h;
    EXPECT_EQ(render(nullptr, 64, 64), stRefused);
    EXPECT_EQ(render(scene.get(), 64, 64), std::pair(0, 0));
    SCENE_Close(nullptr);
}

/// Ink of every letter, weighed by its place; then of all of them so small that thin lines do.
TEST(Canvas, LettersKeepTheirStrokes)
{
    std::vector<int> inks;
    const auto draw = [&](std::string_view strText, float fHeight) {
        Picture picture(640, 48, 16);
        draw::Canvas(picture.frame()).text(strText, {4, 40}, fHeight, {{1, 1, 1}});
        int &s32Sum = inks.emplace_back();
        for (BU_S32 i = 0; i < 640 * 48; ++i) s32Sum += (picture.y(i % 640, i / 640) - 16) * (i % 640 + i / 320);
    };
    const std::string strAll = "%+-./0123456789:ABCDEFGHIJKLMNOPQRSTUVWXYZ";
    for (std::size_t i = 0; i < strAll.size(); ++i) draw(strAll.substr(i, 1), 30);
    draw(strAll, 12);
    for (int &s32 : inks) s32 /= 1000;
    // clang-format off
    EXPECT_EQ(inks, (std::vector{2859, 2605, 1440, 318, 2428, 5476, 3417, 5338, 5524, 4479, 5386, 5952, 2949, 6379,
        5977, 431, 4748, 6710, 4283, 5288, 5125, 3280, 5707, 5072, 3225, 4011, 4795, 3572, 5496, 5859, 5476, 3968, 6566,
        5436, 5341, 2678, 5101, 3855, 5675, 4559, 2958, 4797, 159374}));
    // clang-format on
}

TEST(Scale, KeepsPlaceAndBrightness)
{
    Picture in(64, 64, 60, 100, 180), out(32, 32);
    for (BU_S32 i = 0; i < 32 * 64; ++i) in.y(32 + i % 32, i / 32) = 200;
    EXPECT_EQ(SCENE_Scale(in.frame(), out.frame()), 0);
    EXPECT_EQ(out.at(8, 16), (std::array{60, 100, 180}));
    EXPECT_EQ(out.y(24, 16), 200);
}
} // namespace
