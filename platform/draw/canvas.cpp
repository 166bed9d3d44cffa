// How shapes with smooth edges become Y, U and V.
#include "draw/canvas.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <numbers>

namespace draw
{
namespace
{
constexpr int SUB_ROWS = 4;
using Extent = Canvas::Extent;

/// Where a shape begins and ends on each of its lines, SUB_ROWS lines to a pixel row.
struct Outline {
    int s32First, s32End; // pixel rows
    std::vector<Extent> &vecLines;

    std::span<const Extent, SUB_ROWS> row(int y) const
    {
        return std::span<const Extent, SUB_ROWS>(&vecLines[static_cast<std::size_t>(y - s32First) * SUB_ROWS],
                                                 SUB_ROWS);
    }
};

/// Each edge is walked once, over the lines that it crosses.
Outline outlineOf(std::span<const Point> spanCorners, int s32Height, std::vector<Extent> &vecLines)
{
    const auto [itTop, itBottom] = std::ranges::minmax_element(spanCorners, {}, &Point::y);
    const float fLimit = static_cast<float>(s32Height);
    const int s32First = static_cast<int>(std::clamp(std::floor(itTop->y), 0.0F, fLimit));
    const int s32End = static_cast<int>(std::clamp(std::ceil(itBottom->y), 0.0F, fLimit));
    vecLines.assign(static_cast<std::size_t>(s32End - s32First) * SUB_ROWS, {1e9F, -1e9F});
    const float fLines = static_cast<float>(vecLines.size());
    for (std::size_t k = 0, n = spanCorners.size(); k < n; ++k) {
        Point a = spanCorners[k], b = spanCorners[k + 1 == n ? 0 : k + 1];
        if (a.y == b.y) continue;
        if (a.y > b.y) std::swap(a, b);
        const auto line = [&](float y) { return (y - static_cast<float>(s32First)) * SUB_ROWS - 0.5F; };
        const int s32From = static_cast<int>(std::clamp(std::ceil(line(a.y)), 0.0F, fLines));
        const int s32To = static_cast<int>(std::clamp(std::ceil(line(b.y)), 0.0F, fLines));
        const float fStep = (b.x - a.x) / (b.y - a.y) / SUB_ROWS;
        float x = a.x + (static_cast<float>(s32From) - line(a.y)) * fStep;
        for (int i = s32From; i < s32To; ++i, x += fStep) {
            Extent &st = vecLines[static_cast<std::size_t>(i)];
            st = {std::min(st.fLeft, x), std::max(st.fRight, x)};
        }
    }
    return {s32First, s32End, vecLines};
}

float coverage(std::span<const Extent, SUB_ROWS> spanLines, int x)
{
    const float fX = static_cast<float>(x);
    float fSum = 0;
    for (const Extent &st : spanLines) fSum += std::max(std::min(st.fRight, fX + 1) - std::max(st.fLeft, fX), 0.0F);
    return fSum / SUB_ROWS;
}

/// Walks the rows of a shape; put(y, from, to, coverage) gets runs of equal coverage.
template <class Put> void forRuns(const Outline &stOutline, int s32Width, Put put)
{
    const auto clipped = [s32Width](float x) {
        return static_cast<int>(std::clamp(x, 0.0F, static_cast<float>(s32Width)));
    };
    for (int y = stOutline.s32First; y < stOutline.s32End; ++y) {
        const auto spanLines = stOutline.row(y);
        Extent stOuter{1e9F, -1e9F}, stInner{-1e9F, 1e9F};
        for (const Extent &st : spanLines) {
            stOuter = {std::min(stOuter.fLeft, st.fLeft), std::max(stOuter.fRight, st.fRight)};
            stInner = {std::max(stInner.fLeft, st.fLeft), std::min(stInner.fRight, st.fRight)};
        }
        if (stOuter.fLeft > stOuter.fRight) continue;
        const int s32From = clipped(std::floor(stOuter.fLeft)), s32To = clipped(std::ceil(stOuter.fRight));
        const int s32Full = std::min(clipped(std::ceil(stInner.fLeft)), s32To);
        const int s32FullEnd = std::max(clipped(std::floor(stInner.fRight)), s32Full);
        for (int x = s32From; x < s32Full; ++x) put(y, x, x + 1, coverage(spanLines, x));
        if (s32FullEnd > s32Full) put(y, s32Full, s32FullEnd, 1.0F);
        for (int x = s32FullEnd; x < s32To; ++x) put(y, x, x + 1, coverage(spanLines, x));
    }
}

constexpr int OPAQUE = 256;
int alphaOf(float fCover) { return static_cast<int>(OPAQUE * fCover + 0.5F); }
BU_U8 blend(BU_U8 u8Under, BU_U8 u8Over, int s32Alpha)
{
    return static_cast<BU_U8>(u8Under + ((u8Over - u8Under) * s32Alpha) / OPAQUE);
}

/// Brightness changes along x only: one row is worked out, the shape takes its parts of it.
void fillLuma(const SCENE_FRAME_S &stFrame, std::span<const Point> spanCorners, const Paint &stPaint,
              Canvas::Scratch &stScratch)
{
    const auto [itLeft, itRight] = std::ranges::minmax_element(spanCorners, {}, &Point::x);
    const float fLuma = toYuv(stPaint.stColour).y - 16, fWidth = static_cast<float>(stFrame.s32Width);
    const float fSlope = fLuma * (stPaint.fRight - stPaint.fLeft) / std::max(itRight->x - itLeft->x, 1.0F);
    const float fAtZero = 16.5F + fLuma * stPaint.fLeft - fSlope * itLeft->x;
    const int s32First = static_cast<int>(std::clamp(std::floor(itLeft->x), 0.0F, fWidth));
    const int s32End = static_cast<int>(std::clamp(std::ceil(itRight->x), 0.0F, fWidth));
    stScratch.vecRow.resize(static_cast<std::size_t>(stFrame.s32Width));
    BU_U8 *const pu8Shade = stScratch.vecRow.data();
    for (int x = s32First; x < s32End; ++x)
        pu8Shade[x] = static_cast<BU_U8>(std::clamp(fAtZero + fSlope * static_cast<float>(x), 16.0F, 235.0F));

    const Outline stOutline = outlineOf(spanCorners, stFrame.s32Height, stScratch.vecLines);
    forRuns(stOutline, stFrame.s32Width, [&](int y, int s32From, int s32To, float fCover) {
        BU_U8 *pu8Row = stFrame.pu8Y + static_cast<std::ptrdiff_t>(y) * stFrame.s32StrideY;
        const int s32Alpha = alphaOf(fCover * stPaint.fAlpha);
        if (s32Alpha == OPAQUE)
            std::memcpy(pu8Row + s32From, pu8Shade + s32From, static_cast<std::size_t>(s32To - s32From));
        else
            for (int x = s32From; x < s32To; ++x) pu8Row[x] = blend(pu8Row[x], pu8Shade[x], s32Alpha);
    });
}

void fillChroma(const SCENE_FRAME_S &stFrame, std::span<const Point> spanCorners, const Paint &stPaint,
                Canvas::Scratch &stScratch)
{
    std::array<Point, 64> astHalf;
    const std::span<Point> spanHalf(astHalf.data(), spanCorners.size());
    std::ranges::transform(spanCorners, spanHalf.begin(), [](Point st) { return Point{st.x / 2, st.y / 2}; });
    const Yuv stYuv = toYuv(stPaint.stColour);
    const auto u8U = static_cast<BU_U8>(stYuv.u + 0.5F), u8V = static_cast<BU_U8>(stYuv.v + 0.5F);

    const Outline stOutline = outlineOf(spanHalf, stFrame.s32Height / 2, stScratch.vecLines);
    forRuns(stOutline, stFrame.s32Width / 2, [&](int y, int s32From, int s32To, float fCover) {
        BU_U8 *pu8 = stFrame.pu8Uv + static_cast<std::ptrdiff_t>(y) * stFrame.s32StrideUv + 2 * s32From;
        const int s32Alpha = alphaOf(fCover * stPaint.fAlpha);
        if (s32Alpha == OPAQUE)
            for (int x = s32From; x < s32To; ++x, pu8 += 2) {
                pu8[0] = u8U;
                pu8[1] = u8V;
            }
        else
            for (int x = s32From; x < s32To; ++x, pu8 += 2) {
                pu8[0] = blend(pu8[0], u8U, s32Alpha);
                pu8[1] = blend(pu8[1], u8V, s32Alpha);
            }
    });
}
} // namespace

void Canvas::polygon(std::span<const Point> spanCorners, const Paint &stPaint)
{
    if (spanCorners.size() < 3 || spanCorners.size() > 64) return;
    const auto [itLeft, itRight] = std::ranges::minmax_element(spanCorners, {}, &Point::x);
    const auto [itTop, itBottom] = std::ranges::minmax_element(spanCorners, {}, &Point::y);
    if (itRight->x <= 0 || itLeft->x >= width() || itBottom->y <= 0 || itTop->y >= height()) return;
    fillLuma(m_stFrame, spanCorners, stPaint, m_stScratch);
    fillChroma(m_stFrame, spanCorners, stPaint, m_stScratch);
}

void Canvas::ellipse(Point stMiddle, float fRadiusX, float fRadiusY, const Paint &stPaint)
{
    std::array<Point, 64> astCorners;
    const std::size_t n = std::max(fRadiusX, fRadiusY) > 24 ? 64 : 20;
    for (std::size_t i = 0; i < n; ++i) {
        const float f = 2 * std::numbers::pi_v<float> * static_cast<float>(i) / static_cast<float>(n);
        astCorners[i] = {stMiddle.x + fRadiusX * std::cos(f), stMiddle.y + fRadiusY * std::sin(f)};
    }
    polygon({astCorners.data(), n}, stPaint);
}

void Canvas::capsule(Point stA, float fRadiusA, Point stB, float fRadiusB, const Paint &stPaint)
{
    const float dx = stB.x - stA.x, dy = stB.y - stA.y, fLength = std::hypot(dx, dy);
    if (fLength <= std::abs(fRadiusA - fRadiusB))
        return fRadiusA > fRadiusB ? ellipse(stA, fRadiusA, fRadiusA, stPaint)
                                   : ellipse(stB, fRadiusB, fRadiusB, stPaint);
    // Half circles whose ends are the touching points of the common tangents.
    const float fAxis = std::atan2(dy, dx), fTangent = std::acos((fRadiusA - fRadiusB) / fLength);
    const float fLargest = std::max(fRadiusA, fRadiusB);
    const int n = fLargest > 60 ? 30 : fLargest > 12 ? 16 : 7;
    std::array<Point, 62> astCorners;
    std::size_t k = 0;
    const auto arc = [&](Point stMiddle, float fRadius, float fFrom, float fTo) {
        for (int i = 0; i <= n; ++i) {
            const float f = fFrom + (fTo - fFrom) * static_cast<float>(i) / static_cast<float>(n);
            astCorners[k++] = {stMiddle.x + fRadius * std::cos(f), stMiddle.y + fRadius * std::sin(f)};
        }
    };
    arc(stB, fRadiusB, fAxis - fTangent, fAxis + fTangent);
    arc(stA, fRadiusA, fAxis + fTangent, fAxis + 2 * std::numbers::pi_v<float> - fTangent);
    polygon({astCorners.data(), k}, stPaint);
}

void Canvas::line(Point stA, Point stB, float fWidth, const Paint &stPaint)
{
    const float dx = stB.x - stA.x, dy = stB.y - stA.y, fLength = std::hypot(dx, dy);
    const float fX = fLength > 0 ? dx / fLength * fWidth / 2 : fWidth / 2,
                fY = fLength > 0 ? dy / fLength * fWidth / 2 : 0;
    const std::array<Point, 4> astCorners{
        Point{stA.x - fX - fY, stA.y - fY + fX}, Point{stB.x + fX - fY, stB.y + fY + fX},
        Point{stB.x + fX + fY, stB.y + fY - fX}, Point{stA.x - fX + fY, stA.y - fY - fX}};
    polygon(astCorners, stPaint);
}
} // namespace draw

bool draw::isFrame(const SCENE_FRAME_S &st)
{
    const auto isSize = [](BU_S32 s32) { return s32 >= 16 && s32 <= 8192 && s32 % 2 == 0; };
    return st.pu8Y && st.pu8Uv && isSize(st.s32Width) && isSize(st.s32Height);
}
