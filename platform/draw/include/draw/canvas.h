/// Drawing of smooth-edged shapes straight into an NV12 picture.
#pragma once

#include "draw/frame.h"

#include <span>
#include <string_view>
#include <vector>

namespace draw
{
struct Rgb {
    float r, g, b; // 0 to 1, as displayed
    friend constexpr Rgb operator*(Rgb st, float f) { return {st.r * f, st.g * f, st.b * f}; }
    friend constexpr Rgb operator+(Rgb st, Rgb stAdd) { return {st.r + stAdd.r, st.g + stAdd.g, st.b + stAdd.b}; }
};
constexpr Rgb mix(Rgb a, Rgb b, float f) { return a * (1 - f) + b * f; }

/// Y, U, V of a colour in the picture's range, not rounded.
struct Yuv {
    float y, u, v;
};
constexpr Yuv toYuv(Rgb st)
{
    const float y = 0.2126F * st.r + 0.7152F * st.g + 0.0722F * st.b;
    return {16 + 219 * y, 128 + 224 * (st.b - y) / 1.8556F, 128 + 224 * (st.r - y) / 1.5748F};
}

struct Point {
    float x, y; // pixels, y down
};

/// One colour; lit from the left: its brightness runs from fLeft to fRight across the shape.
struct Paint {
    Rgb stColour;
    float fLeft = 1, fRight = 1;
    float fAlpha = 1;
};

/// Shapes beyond the picture's edges are clipped.
class Canvas
{
public:
    explicit Canvas(const SCENE_FRAME_S &stFrame) : m_stFrame(stFrame) {}

    /// A convex polygon in either direction of turning.
    void polygon(std::span<const Point> spanCorners, const Paint &stPaint);
    void ellipse(Point stMiddle, float fRadiusX, float fRadiusY, const Paint &stPaint);
    /// A limb: two circles and what is between them.
    void capsule(Point stA, float fRadiusA, Point stB, float fRadiusB, const Paint &stPaint);
    void line(Point stA, Point stB, float fWidth, const Paint &stPaint);
    /// Text of digits, capitals and " :.-+/%" from the lower left corner.
    void text(std::string_view strText, Point stAt, float fHeight, const Paint &stPaint);

    float width() const { return static_cast<float>(m_stFrame.s32Width); }
    float height() const { return static_cast<float>(m_stFrame.s32Height); }

    /// Where a shape begins and ends on a line.
    struct Extent {
        float fLeft, fRight;
    };
    /// Of the shape being drawn; kept for its memory.
    struct Scratch {
        std::vector<Extent> vecLines;
        std::vector<BU_U8> vecRow;
    };

private:
    SCENE_FRAME_S m_stFrame;
    Scratch m_stScratch;
};
constexpr float LETTER_ADVANCE = 0.9F; // of the height
inline float textWidth(std::string_view strText, float fHeight)
{
    return LETTER_ADVANCE * fHeight * static_cast<float>(strText.size());
}
} // namespace draw
