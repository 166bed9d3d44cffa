// What hangs on the walls.
#include "parts.h"

#include "room.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace scene
{
namespace
{
constexpr float PI = std::numbers::pi_v<float>;

Point project(const Projection &stView, float x, float y, float z)
{
    return stView.at(std::atan2(x, y) / DEGREE, std::atan2(z, std::hypot(x, y)) / DEGREE);
}
bool isSeen(const Canvas &stCanvas, Point a, Point b)
{
    return std::max(a.x, b.x) > 0 && std::min(a.x, b.x) < stCanvas.width() && std::max(a.y, b.y) > 0 &&
           std::min(a.y, b.y) < stCanvas.height();
}

/// Draws in metres on the front wall.
struct FrontWall {
    Canvas &stCanvas;
    const Projection &stView;

    Point at(float x, float z) const { return project(stView, x, FRONT_Y, z); }
    void box(float x0, float z0, float x1, float z1, const Paint &stPaint) const
    {
        const std::array<Point, 4> ast{at(x0, z0), at(x1, z0), at(x1, z1), at(x0, z1)};
        stCanvas.polygon(ast, stPaint);
    }
    void text(std::string_view str, float x, float z, float fHeight, const Paint &stPaint) const
    {
        const Point stLow = at(x, z);
        stCanvas.text(str, stLow, stLow.y - at(x, z + fHeight).y, stPaint);
    }
};

void drawScreen(Canvas &stCanvas, const Projection &stView, double dSeconds)
{
    const FrontWall stWall{stCanvas, stView};
    if (!stView.isAhead(0) || !isSeen(stCanvas, stWall.at(-SCREEN_X, SCREEN_HIGH_Z), stWall.at(SCREEN_X, SCREEN_LOW_Z)))
        return;
    const Paint stBright{{0.97F, 0.98F, 1.0F}}, stDim{{0.68F, 0.80F, 0.95F}};
    const auto s64Tenths = static_cast<long long>(dSeconds * 10);
    BU_CHAR acTime[24];
    std::snprintf(acTime, sizeof acTime, "%02lld:%02lld:%02lld.%lld", s64Tenths / 36000 % 24, s64Tenths / 600 % 60,
                  s64Tenths / 10 % 60, s64Tenths % 10);
    stWall.text("CAMERA HALL", -2.75F, 3.05F, 0.26F, stDim);
    stWall.text(acTime, -2.2F, 2.05F, 0.55F, stBright);
    stWall.box(-2.75F, 2.86F, 2.75F, 2.875F, stDim);

    // A chart that moves slowly, and the seconds of the minute as a growing bar.
    for (int i = 0; i < 8; ++i) {
        const float f =
            0.25F + 0.6F * std::abs(std::sin(static_cast<float>(dSeconds) * 0.23F + static_cast<float>(i) * 1.1F));
        const float x = -2.6F + 0.42F * static_cast<float>(i);
        const Rgb stBar = i % 3 == 1 ? Rgb{0.95F, 0.68F, 0.30F} : Rgb{0.42F, 0.74F, 0.86F};
        stWall.box(x, 0.62F, x + 0.28F, 0.62F + f, {stBar, 1.05F, 0.9F});
    }
    stWall.box(-2.7F, 0.58F, 0.8F, 0.61F, stDim);
    for (int i = 0; i < 4; ++i)
        stWall.box(1.2F, 1.32F - 0.2F * static_cast<float>(i), 2.65F - 0.22F * static_cast<float>(i * i % 3),
                   1.38F - 0.2F * static_cast<float>(i), stDim);
    const float fMinute = static_cast<float>(std::fmod(dSeconds, 60.0) / 60);
    stWall.box(-2.75F, 0.38F, 2.75F, 0.42F, {{0.12F, 0.20F, 0.36F}});
    stWall.box(-2.75F, 0.38F, -2.75F + 5.5F * fMinute, 0.42F, stBright);
    if (std::fmod(dSeconds, 1.0) < 0.5)
        stCanvas.ellipse(stWall.at(2.6F, 3.2F), stView.fPixelsPerDegree * 0.45F, stView.fPixelsPerDegree * 0.45F,
                         {{0.93F, 0.20F, 0.18F}});
}

void drawClock(Canvas &stCanvas, const Projection &stView, double dSeconds)
{
    const auto at = [&](float fTurn, float fRadius) { // clockwise from the top, as parts of a full turn
        return project(stView, SIDE_X, CLOCK_Y - fRadius * std::sin(2 * PI * fTurn),
                       CLOCK_Z + fRadius * std::cos(2 * PI * fTurn));
    };
    const float fPixels = std::abs(at(0, CLOCK_RADIUS).y - at(0.5F, CLOCK_RADIUS).y) / 2;
    const Point stMiddle = at(0, 0);
    const float fReach = fPixels * 1.3F;
    if (!stView.isAhead(std::atan2(SIDE_X, CLOCK_Y) / DEGREE) ||
        !isSeen(stCanvas, {stMiddle.x - fReach, stMiddle.y - fReach}, {stMiddle.x + fReach, stMiddle.y + fReach}))
        return;
    const auto disc = [&](float fRadius, const Paint &stPaint) {
        std::array<Point, 48> ast;
        for (std::size_t i = 0; i < ast.size(); ++i) ast[i] = at(static_cast<float>(i) / 48, fRadius);
        stCanvas.polygon(ast, stPaint);
    };
    disc(CLOCK_RADIUS * 1.12F, {{0.16F, 0.15F, 0.15F}, 1.5F, 0.8F});
    disc(CLOCK_RADIUS, {{0.94F, 0.93F, 0.90F}, 1.0F, 0.94F});
    for (int i = 0; i < 60; ++i) {
        const bool bHour = i % 5 == 0;
        if (!bHour && fPixels < 60) continue;
        const float f = static_cast<float>(i) / 60;
        stCanvas.line(at(f, CLOCK_RADIUS * (bHour ? 0.80F : 0.88F)), at(f, CLOCK_RADIUS * 0.94F),
                      fPixels * (bHour ? 0.045F : 0.02F), {{0.12F, 0.12F, 0.13F}});
    }
    const auto hand = [&](double dTurn, float fFrom, float fTo, float fWidth, Rgb st) {
        const float f = static_cast<float>(std::fmod(dTurn, 1.0));
        stCanvas.line(at(f, -fFrom * CLOCK_RADIUS), at(f, fTo * CLOCK_RADIUS), fWidth * fPixels, {st});
    };
    hand(dSeconds / 43200, 0.1F, 0.5F, 0.08F, {0.12F, 0.12F, 0.13F});
    hand(dSeconds / 3600, 0.1F, 0.76F, 0.055F, {0.12F, 0.12F, 0.13F});
    hand(std::floor(dSeconds) / 60, 0.18F, 0.86F, 0.022F, {0.80F, 0.12F, 0.10F});
    disc(0.05F * CLOCK_RADIUS, {{0.80F, 0.12F, 0.10F}});
}

void drawExitSign(Canvas &stCanvas, const Projection &stView)
{
    const Point stLow = project(stView, SIDE_X, -2.25F, 0.18F), stHigh = project(stView, SIDE_X, -2.9F, 0.32F);
    if (stView.isAhead(106) && isSeen(stCanvas, stLow, stHigh))
        stCanvas.text("EXIT", stLow, stLow.y - stHigh.y, {{0.88F, 0.98F, 0.90F}});
}

} // namespace

void drawDressing(Canvas &stCanvas, const Projection &stView, double dSeconds)
{
    drawScreen(stCanvas, stView, dSeconds);
    drawClock(stCanvas, stView, dSeconds);
    drawExitSign(stCanvas, stView);
}
} // namespace scene
