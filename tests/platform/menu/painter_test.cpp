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
        menu::Row row;
        row.strLabel = row.strValue = strText;
        row.bSelected = i == 3;
        row.bLess = row.bMore = i == 3;
        view.listRows.push_back(row);
    }
    return view;
}

constexpr struct {
    int w, h;
} SIZES[] = {{256, 240}, {384, 360}, {640, 540}, {768, 720}};

TEST(MenuPainter, TextsOfAnyLengthStayInsideThePanel)
{
    const std::string strLong(3000, 'W'), strInvalid = "\xff\xc3(\xe4\xb8";
    for (const std::string &strText : {std::string(), std::string("7"), strLong, strInvalid, std::string("菜单菜单")})
        for (const auto &size : SIZES) {
            const auto surface = menu::paintPage(viewOf(strText), size.w, size.h);
            ASSERT_NE(surface, nullptr);
            const auto empty = menu::paintPage(viewOf(""), size.w, size.h);
            for (int y = 0; y < size.h; ++y)
                for (const int x : {0, 1, size.w - 1})
                    EXPECT_EQ(pixel(*surface, x, y) >> 24, pixel(*empty, x, y) >> 24);
        }
}

/// The selected row stands out by far; the others are all alike.
TEST(MenuPainter, TheSelectedRowIsObvious)
{
    for (const auto &size : SIZES) {
        const auto surface = menu::paintPage(viewOf(""), size.w, size.h);
        int s32Selected = 0, s32Plain = 0;
        const Uint32 u32Panel = pixel(*surface, size.w / 2, size.h / 5);
        for (int y = size.h / 7; y < size.h * 4 / 5; ++y) {
            const Uint32 u32 = pixel(*surface, size.w / 2, y);
            s32Plain += u32 == u32Panel;
            s32Selected += (u32 & 0xFF) >= (u32Panel & 0xFF) + 0x50;
        }
        EXPECT_NEAR(s32Selected, size.h * 10 / 110, 3);
        EXPECT_GT(s32Plain, 6 * s32Selected);
    }
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
            const auto *pu16 =
                reinterpret_cast<const Uint16 *>(static_cast<const Uint8 *>(small->pixels) + y * small->pitch);
            ASSERT_EQ(pu16[x] >> 12, u32 >> 28) << x << ' ' << y;
            ASSERT_EQ(pu16[x] & 0xF, u32 >> 4 & 0xF) << x << ' ' << y;
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
    st.tm_year = 125;
    st.tm_mon = 5;
    st.tm_mday = 8;
    st.tm_hour = 4;
    struct {
        menu::Status status;
        const char *pcLine;
    } const rows[] = {{{1, {}, ""}, "2025-06-08 04:00:00   1.0x"},
                      {{12.34F, 5, ""}, "2025-06-08 04:00:00   12.3x   Preset 5"},
                      {{20, 0, "Stage"}, "2025-06-08 04:00:00   20.0x   Preset 0   Tracking: Stage"}};
    for (const auto &row : rows) EXPECT_EQ(menu::statusLine(st, row.status), row.pcLine);
}
} // namespace
