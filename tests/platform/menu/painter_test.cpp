#include <SDL2/SDL_surface.h>

#include "draw/fonts.h"
#include "menuTest.h"
#include "painter.h"
#include "prompt.h"

using testing::EndsWith;

namespace
{
Uint32 pixel(const SDL_Surface &st, int x, int y)
{
    return *reinterpret_cast<const Uint32 *>(static_cast<const Uint8 *>(st.pixels) + y * st.pitch + x * 4);
}

menu::View viewOf(const std::string &strText)
{
    menu::View view{strText, strText, {}, 0, 8};
    for (int i = 0; i < 8; ++i) {
        menu::Row &row = view.listRows.emplace_back();
        row.strLabel = row.strValue = strText;
        row.bSelected = row.bLess = row.bMore = i == 3;
    }
    return view;
}

constexpr SDL_Point SIZES[] = {{256, 240}, {384, 360}, {640, 540}, {768, 720}};

TEST(MenuPainter, TextsOfAnyLengthStayInsideThePanel)
{
    const std::string strLong(3000, 'W'), strInvalid = "\xff\xc3(\xe4\xb8";
    for (const std::string &strText : {std::string(), std::string("7"), strLong, strInvalid, std::string("菜单菜单")})
        for (const auto &[w, h] : SIZES) {
            const auto surface = menu::paintPage(viewOf(strText), w, h), empty = menu::paintPage(viewOf(""), w, h);
            ASSERT_NE(surface, nullptr);
            for (int y = 0; y < h; ++y)
                for (const int x : {0, 1, w - 1}) EXPECT_EQ(pixel(*surface, x, y) >> 24, pixel(*empty, x, y) >> 24);
        }
}

/// The selected row stands out by far; the others are all alike.
TEST(MenuPainter, TheSelectedRowIsObvious)
{
    for (const auto &[w, h] : SIZES) {
        const auto surface = menu::paintPage(viewOf(""), w, h);
        int s32Selected = 0, s32Plain = 0;
        const Uint32 u32Panel = pixel(*surface, w / 2, h / 5);
        for (int y = h / 7; y < h * 4 / 5; ++y) {
            const Uint32 u32 = pixel(*surface, w / 2, y);
            s32Plain += u32 == u32Panel;
            s32Selected += (u32 & 0xFF) >= (u32Panel & 0xFF) + 0x50;
        }
        EXPECT_NEAR(s32Selected, h * 10 / 110, 3);
        EXPECT_GT(s32Plain, 6 * s32Selected);
    }
}

/// Sums of all channels in quarters across and thirds down, weighed so that no part moves unseen.
TEST(MenuPainter, ThePageLooksAsItDid)
{
    menu::View view = viewOf("A 1.2");
    view.listRows[0].bHeading = view.listRows[1].bOpens = view.listRows[2].bPending = true;
    view.listRows[3].s32Permille = 400, view.listRows[4].s32Cursor = 2, view.s32First = 3, view.s32Total = 12;
    const auto surface = menu::paintPage(view, 640, 540);
    std::array<unsigned, 12> sums{};
    for (int y = 0; y < 540; ++y)
        for (int x = 0; x < 640; ++x)
            for (const int s32Shift : {0, 8, 16, 24})
                sums[x / 160 + y / 180 * 4] += (pixel(*surface, x, y) >> s32Shift & 0xFF) * (x % 16 + y % 16);
    EXPECT_THAT(sums, testing::ElementsAre(144176954, 134652240, 134652240, 129404205, 177614934, 169536240, 166170240,
                                           170114775, 134780150, 133564240, 133564240, 131388552));
}

constexpr menu::Font FONT{draw::Face::REGULAR, 20};

TEST(MenuPainter, CutTextsKeepWholeCharacters)
{
    EXPECT_EQ(menu::fitted(FONT, "Brightness", 1000), "Brightness");
    for (int s32Width = 30; s32Width < 200; s32Width += 7) {
        const std::string strCut = menu::fitted(FONT, "äöüäöüäöüäöüäöüäöüäöü", s32Width);
        EXPECT_THAT(strCut, EndsWith("…"));
        EXPECT_EQ(strCut.size() % 2, 1U) << strCut; // two bytes each, and the three of the ellipsis
        EXPECT_LE(draw::widthOf(FONT, strCut), s32Width);
    }
}

/// The Chinese font has no arrows, the Latin one no Chinese: a line takes each from where it is.
TEST(MenuPainter, ALineMixesFonts)
{
    if (!menu::canShow("更")) GTEST_SKIP() << "no Chinese font is installed";
    EXPECT_TRUE(menu::canShow("◄ ► 更改"));
    EXPECT_FALSE(menu::canShow("\U000F0000"));
    const auto runs = menu::runsOf(FONT, "◄ ► 更改 2D");
    ASSERT_EQ(runs.size(), 3U);
    EXPECT_EQ(runs[0].pstFont, runs[2].pstFont);
    EXPECT_EQ(runs[1].strText, "更改");
    int s32Width = 0;
    for (const menu::Run &run : runs) s32Width += run.s32Width;
    EXPECT_EQ(draw::widthOf(FONT, "◄ ► 更改 2D"), s32Width);
}

TEST(MenuPainter, FourBitsAChannelKeepColourAndAlpha)
{
    const auto surface = menu::paintPage(viewOf("Text"), 256, 240);
    menu::Surface small(SDL_CreateRGBSurfaceWithFormat(0, 256, 240, 16, SDL_PIXELFORMAT_ARGB4444));
    menu::copyPixels(surface.get(), small.get());
    for (int y = 0; y < 240; ++y)
        for (int x = 0; x < 256; ++x) {
            const Uint32 u32 = pixel(*surface, x, y);
            const unsigned u32Small = static_cast<const Uint16 *>(small->pixels)[y * small->pitch / 2 + x];
            ASSERT_EQ((u32Small >> 12), u32 >> 28) << x << ' ' << y;
            ASSERT_EQ(u32Small & 0xF, u32 >> 4 & 0xF) << x << ' ' << y;
        }
}

/// The plate is as wide as its text: "1.0x" was cut where the text had an odd width.
TEST(MenuPainter, ALineHasRoomForItsText)
{
    constexpr BU_S32 HEIGHT = 34, PAD = HEIGHT / 2;
    for (std::string strText = "2"; strText.size() < 60; strText += "i.x") {
        const int s32Text = draw::widthOf({draw::Face::REGULAR, HEIGHT * 6 / 10}, strText);
        const auto surface = menu::paintLine(strText, HEIGHT, 4000);
        EXPECT_GE(surface->w, s32Text + 2 * PAD) << strText;
        EXPECT_LE(menu::paintLine(strText, HEIGHT, 100)->w, 100) << strText;
    }
}

TEST(MenuStatus, TheLineHoldsWhatIsThere)
{
    std::tm st{};
    st.tm_hour = 4, st.tm_mday = 8, st.tm_mon = 5, st.tm_year = 125;
    // clang-format off
    const std::pair<menu::Status, std::string> rows[] = { {{1, {}, ""}, "1.0x"}, {{12.34F, 5, ""}, "12.3x   Preset 5"},
         {{20, 0, "Stage"}, "20.0x   Preset 0   Tracking: Stage"}};
    // clang-format on
    for (const auto &[status, strLine] : rows)
        EXPECT_EQ(menu::statusLine(st, status), "2025-06-08 04:00:00   " + strLine);
}
} // namespace
