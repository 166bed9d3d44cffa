// What a page of the menu and a line of text look like.
#include <SDL2/SDL_ttf.h>

#include "painter.h"

#include "draw/fonts.h"

#include <algorithm>
#include <cmath>
#include <libyuv/convert_from_argb.h>

namespace menu
{
namespace
{
// Colours, 0xAARRGGBB. Alpha and colours keep to what 4 bits a channel can show.
constexpr Uint32 PANEL = 0xDD112233, ACCENT = 0xFF3399EE, SELECTED = 0xFF1166BB, TEXT = 0xFFDDDDDD, BRIGHT = 0xFFFFFFFF,
                 DIM = 0xFFAABBCC, PENDING = 0xFFFFCC44, TRACK = 0xFF334455, PLATE = 0xAA000000;

Surface surfaceOf(int w, int h)
{
    return Surface(SDL_CreateRGBSurfaceWithFormat(0, w, h, 32, SDL_PIXELFORMAT_ARGB8888));
}

void fill(SDL_Surface &st, SDL_Rect stRect, Uint32 u32Argb) { SDL_FillRect(&st, &stRect, u32Argb); }

/// A filled rectangle with round, smooth corners, on a surface that is empty there.
void fillRound(SDL_Surface &st, SDL_Rect rect, int s32Radius, Uint32 u32Argb)
{
    fill(st, rect, u32Argb);
    auto *pu8Pixels = static_cast<Uint8 *>(st.pixels);
    for (int dy = 0; dy < s32Radius; ++dy)
        for (int dx = 0; dx < s32Radius; ++dx) {
            const double dOut = std::hypot(s32Radius - dx - 0.5, s32Radius - dy - 0.5) - s32Radius + 0.5;
            if (dOut <= 0) continue;
            const auto u32Alpha = static_cast<Uint32>((u32Argb >> 24) * std::max(0.0, 1 - dOut));
            for (const int y : {rect.y + dy, rect.y + rect.h - 1 - dy})
                for (const int x : {rect.x + dx, rect.x + rect.w - 1 - dx})
                    *reinterpret_cast<Uint32 *>(pu8Pixels + y * st.pitch + x * 4) =
                        u32Alpha << 24 | (u32Argb & 0xFFFFFF);
        }
}

SDL_Color colorOf(Uint32 u32Argb)
{
    const auto part = [u32Argb](int s32Shift) { return static_cast<Uint8>(u32Argb >> s32Shift); };
    return {part(16), part(8), part(0), part(24)};
}

struct Style {
    Font font;
    Uint32 u32Argb;
};

/// Draws a line, its middle at s32MiddleY. @return its width
int draw(SDL_Surface &st, const std::string &strText, Style style, int x, int s32MiddleY, int s32MaxWidth,
         bool bRightAligned = false)
{
    if (strText.empty() || s32MaxWidth <= 0) return 0;
    const auto runs = runsOf(style.font, fitted(style.font, strText, s32MaxWidth));
    int s32Width = 0;
    for (const Run &run : runs) s32Width += run.s32Width;
    int s32Left = bRightAligned ? x - s32Width : x;
    const int s32Top = s32MiddleY - heightOf(style.font) / 2;
    for (const Run &run : runs) {
        const Surface part(TTF_RenderUTF8_Blended(run.pstFont, run.strText.c_str(), colorOf(style.u32Argb)));
        SDL_Rect stTo{s32Left, s32Top - run.s32Rise, 0, 0};
        if (part) SDL_BlitSurface(part.get(), nullptr, &st, &stTo);
        s32Left += run.s32Width;
    }
    return s32Width;
}

/// Sizes of a page, all from its height: title, rows, foot.
class Layout
{
public:
    Layout(int w, int h) : s32Row(h * 10 / 108), s32Text(std::max(8, s32Row * 56 / 100)), s32Pad(s32Row * 45 / 100)
    {
        const int s32Margin = std::max(1, h / 60);
        stPanel = {s32Margin, s32Margin, w - 2 * s32Margin, h - 2 * s32Margin};
        s32Title = s32Row * 118 / 100;
        s32RowsTop = stPanel.y + s32Title + s32Row / 8;
        s32FootTop = stPanel.y + stPanel.h - s32Row * 85 / 100;
        s32Left = stPanel.x + s32Pad;
        s32Right = stPanel.x + stPanel.w - s32Pad;
        const int s32Space = (s32FootTop - s32RowsTop) / static_cast<int>(PAGE_ROWS);
        s32Row = std::min(s32Row, s32Space);
    }
    int s32Row, s32Text, s32Pad, s32Title = 0, s32RowsTop = 0, s32FootTop = 0, s32Left = 0, s32Right = 0;
    SDL_Rect stPanel{};
};

/// The value of the selected row stands between its arrows; the room of the arrows is kept in the other rows as well,
/// so that values keep their place.
void drawValue(SDL_Surface &st, const Layout &layout, const Row &row, int s32Middle, int s32From)
{
    const int s32Arrow = layout.s32Text * 3 / 4, s32Small = layout.s32Text * 7 / 10;
    if (row.bOpens) {
        draw(st, "►", {{Face::REGULAR, s32Small}, row.bSelected ? BRIGHT : DIM}, layout.s32Right, s32Middle,
             s32Arrow * 2, true);
        return;
    }
    const int s32Right = layout.s32Right - s32Arrow;
    const Uint32 u32Color = row.bPending ? PENDING : row.bSelected ? BRIGHT : TEXT;
    const Style style{{row.bSelected ? Face::BOLD : Face::REGULAR, layout.s32Text}, u32Color};
    const int s32Width = draw(st, row.strValue, style, s32Right, s32Middle, s32Right - s32From - s32Arrow, true);
    if (row.bMore) draw(st, "►", {{Face::REGULAR, s32Small}, BRIGHT}, layout.s32Right, s32Middle, s32Arrow * 2, true);
    if (row.bLess)
        draw(st, "◄", {{Face::REGULAR, s32Small}, BRIGHT}, s32Right - s32Width - layout.s32Text / 4, s32Middle,
             s32Arrow * 2, true);
    if (row.s32Cursor < 0) return;
    const auto at = static_cast<std::size_t>(row.s32Cursor);
    const int x = s32Right - s32Width + widthOf(style.font, row.strValue.substr(0, at));
    fill(st,
         {x, s32Middle + layout.s32Text * 55 / 100, widthOf(style.font, row.strValue.substr(at, 1)),
          std::max(2, layout.s32Text / 8)},
         PENDING);
}

void drawRow(SDL_Surface &st, const Layout &layout, const Row &row, int y)
{
    const int s32Middle = y + layout.s32Row / 2;
    const SDL_Rect stBar{layout.stPanel.x, y, layout.stPanel.w, layout.s32Row};
    if (row.bSelected) {
        fill(st, stBar, SELECTED);
        fill(st, {stBar.x, y, std::max(2, layout.s32Pad / 4), layout.s32Row}, BRIGHT);
    }
    const Uint32 u32Color = row.bHeading ? ACCENT : row.bSelected ? BRIGHT : TEXT;
    const Style style{{row.bSelected || row.bHeading ? Face::BOLD : Face::REGULAR, layout.s32Text}, u32Color};
    // A label may fill the row as far as the value leaves it room, and has more than half of it in any case.
    const int s32Whole = layout.s32Right - layout.s32Left;
    const int s32Value = row.strValue.empty() ? 0 : widthOf(style.font, row.strValue) + layout.s32Text * 5 / 2;
    const int s32Label = std::max(s32Whole - s32Value, s32Whole * (row.bOpens || s32Value == 0 ? 100 : 35) / 100);
    const int s32Width = draw(st, row.strLabel, style, layout.s32Left, s32Middle, s32Label);
    drawValue(st, layout, row, s32Middle, layout.s32Left + s32Width + layout.s32Text / 2);
    if (row.s32Permille >= 0 && row.bSelected) {
        const int h = std::max(2, layout.s32Row / 12);
        fill(st, {layout.s32Left, y + layout.s32Row - h, s32Whole, h}, TRACK);
        fill(st, {layout.s32Left, y + layout.s32Row - h, s32Whole * row.s32Permille / 1000, h}, BRIGHT);
    }
}

void drawScrollBar(SDL_Surface &st, const Layout &layout, const View &view)
{
    const int s32Shown = static_cast<int>(PAGE_ROWS);
    if (view.s32Total <= s32Shown) return;
    const int w = std::max(2, layout.s32Pad / 5), x = layout.stPanel.x + layout.stPanel.w - w - 1,
              h = layout.s32Row * s32Shown;
    fill(st, {x, layout.s32RowsTop, w, h}, TRACK);
    fill(st, {x, layout.s32RowsTop + h * view.s32First / view.s32Total, w, h * s32Shown / view.s32Total}, ACCENT);
}
} // namespace

void SurfaceDeleter::operator()(SDL_Surface *pstSurface) const { SDL_FreeSurface(pstSurface); }

Surface paintPage(const View &view, BU_S32 s32Width, BU_S32 s32Height)
{
    Surface surface = surfaceOf(s32Width, s32Height);
    if (!surface || !loadFonts()) return nullptr;
    SDL_Surface &st = *surface;
    const Layout layout(s32Width, s32Height);
    const SDL_Rect &panel = layout.stPanel;
    fillRound(st, panel, layout.s32Row / 3, PANEL);
    const int s32Line = std::max(2, layout.s32Row / 14);
    fill(st, {panel.x, panel.y + layout.s32Title - s32Line, panel.w, s32Line}, ACCENT);
    draw(st, view.strTitle, {{Face::BOLD, layout.s32Text * 115 / 100}, BRIGHT}, layout.s32Left,
         panel.y + layout.s32Title / 2, layout.s32Right - layout.s32Left);
    int y = layout.s32RowsTop;
    for (const Row &row : view.listRows) {
        drawRow(st, layout, row, y);
        y += layout.s32Row;
    }
    drawScrollBar(st, layout, view);
    fill(st, {layout.s32Left, layout.s32FootTop, layout.s32Right - layout.s32Left, std::max(1, s32Line / 2)}, TRACK);
    draw(st, view.strFoot, {{Face::REGULAR, layout.s32Text * 86 / 100}, DIM}, layout.s32Left,
         layout.s32FootTop + layout.s32Row * 42 / 100, layout.s32Right - layout.s32Left);
    return surface;
}

Surface paintLine(const std::string &strText, BU_S32 s32Height, BU_S32 s32MaxWidth)
{
    const Font font{Face::REGULAR, std::max(8, s32Height * 6 / 10)};
    const int s32Pad = s32Height / 2;
    if (!loadFonts()) return nullptr;
    const int w = std::min((widthOf(font, strText) + 2 * s32Pad + 1) & ~1, s32MaxWidth);
    Surface surface = surfaceOf(w, s32Height);
    if (!surface) return nullptr;
    fillRound(*surface, {0, 0, w, s32Height}, s32Height / 4, PLATE);
    draw(*surface, strText, {font, BRIGHT}, s32Pad, s32Height / 2, w - 2 * s32Pad);
    return surface;
}

BU_S32 widthOf(const SDL_Surface &stSurface) { return stSurface.w; }

void copyPixels(SDL_Surface *pstFrom, SDL_Surface *pstTo)
{
    if (pstTo->format->format != SDL_PIXELFORMAT_ARGB4444) {
        SDL_SetSurfaceBlendMode(pstFrom, SDL_BLENDMODE_NONE);
        SDL_BlitSurface(pstFrom, nullptr, pstTo, nullptr);
        return;
    }
    libyuv::ARGBToARGB4444(static_cast<const Uint8 *>(pstFrom->pixels), pstFrom->pitch,
                           static_cast<Uint8 *>(pstTo->pixels), pstTo->pitch, std::min(pstFrom->w, pstTo->w),
                           std::min(pstFrom->h, pstTo->h)); // the usual case, many times faster than the blit
}
} // namespace menu
