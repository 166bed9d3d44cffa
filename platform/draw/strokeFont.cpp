// The letters of the canvas as strokes.
#include "draw/canvas.h"

#include <algorithm>
#include <array>

namespace draw
{
namespace
{
/// Letters as pen strokes on a grid 4 wide and 6 high: pairs of digits are points, a comma lifts the pen.
struct Glyph {
    char cLetter;
    const char *pcStrokes;
};
constexpr Glyph g_astGlyphs[] = {
    {'%', "0046,1515,3131"},
    {'+', "2125,0343"},
    {'-', "0343"},
    {'.', "2020"},
    {'/', "0046"},
    {'0', "103041453616050110"},
    {'1', "0426,2620,1030"},
    {'2', "0516364544030040"},
    {'3', "05163645443313334241301001"},
    {'4', "30360242"},
    {'5', "460603334241301001"},
    {'6', "453616050110304142331302"},
    {'7', "064610"},
    {'8', "13334445361605041302011030414233"},
    {'9', "011030414536160504133344"},
    {':', "2222,2424"},
    {'A', "002640,1232"},
    {'B', "000636454433033342413000"},
    {'C', "4536160501103041"},
    {'D', "00062644422000"},
    {'E', "46060040,0333"},
    {'F', "000646,0333"},
    {'G', "45361605011030414323"},
    {'H', "0006,4046,0343"},
    {'I', "1030,2026,1636"},
    {'J', "4641301001"},
    {'K', "0006,0246,1340"},
    {'L', "060040"},
    {'M', "0006234640"},
    {'N', "00064046"},
    {'O', "103041453616050110"},
    {'P', "00063645443303"},
    {'Q', "103041453616050110,2240"},
    {'R', "00063645443303,2340"},
    {'S', "011030414233130405163645"},
    {'T', "0646,2026"},
    {'U', "060110304146"},
    {'V', "062046"},
    {'W', "0610233046"},
    {'X', "0046,0640"},
    {'Y', "0623,4623,2320"},
    {'Z', "06460040"},
};
static_assert(std::ranges::is_sorted(g_astGlyphs, {}, &Glyph::cLetter));
} // namespace

void Canvas::text(std::string_view strText, Point stAt, float fHeight, const Paint &stPaint)
{
    const float fGrid = fHeight / 6;
    for (const char c : strText) {
        const auto *pst = std::ranges::lower_bound(g_astGlyphs, c, {}, &Glyph::cLetter);
        const auto at = [&](const char *pc) {
            return Point{stAt.x + fGrid * static_cast<float>(pc[0] - '0'),
                         stAt.y - fGrid * static_cast<float>(pc[1] - '0')};
        };
        if (pst != std::end(g_astGlyphs) && pst->cLetter == c && stAt.x > -fHeight && stAt.x < width())
            for (const char *pc = pst->pcStrokes; *pc && pc[2]; pc += 2) {
                if (pc[2] == ',') { // the next stroke begins behind it
                    ++pc;
                    continue;
                }
                if (fHeight > 24 && stPaint.fAlpha == 1) // round ends where they show
                    capsule(at(pc), fGrid * 0.45F, at(pc + 2), fGrid * 0.45F, stPaint);
                else
                    line(at(pc), at(pc + 2), fGrid * 0.9F, stPaint);
            }
        stAt.x += LETTER_ADVANCE * fHeight;
    }
}
} // namespace draw
