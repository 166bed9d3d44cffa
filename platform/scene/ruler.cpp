// The scales of degrees and the crosses.
#include "parts.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace scene
{
namespace
{
constexpr Rgb CHALK{0.93F, 0.91F, 0.84F};

/// What the ruler draws lies within these degrees.
struct Range {
    float fLow, fHigh;
};
BU_CHAR *number(BU_CHAR (&acText)[16], float f)
{
    std::snprintf(acText, sizeof acText, "%d", static_cast<int>(std::lround(f)));
    return acText;
}

/// One scale along a line of equal tilt (bPan) or pan: a mark a degree, a number every ten; tenths when near.
void drawScale(Canvas &stCanvas, const Projection &stView, bool bPan, float fAt, Range stRange)
{
    const float fUnit = stView.fPixelsPerDegree;
    const Paint stPaint{CHALK, 1, 1, 0.5F}, stLetters{CHALK * 0.8F};
    const auto at = [&](float f, float fOff) { return bPan ? stView.at(f, fAt + fOff) : stView.at(fAt + fOff, f); };
    const float fWidth = std::clamp(0.03F * fUnit, 1.0F, 3.0F);
    stCanvas.line(at(stRange.fLow, 0), at(stRange.fHigh, 0), fWidth, stPaint);
    const int s32Parts = fUnit > 150 ? 10 : 1;
    if (fUnit < 3) return;
    for (int i = static_cast<int>(std::ceil(stRange.fLow)) * s32Parts;
         i <= static_cast<int>(stRange.fHigh * static_cast<float>(s32Parts)); ++i) {
        const float f = static_cast<float>(i) / static_cast<float>(s32Parts);
        const bool bWhole = i % s32Parts == 0, bTen = i % (10 * s32Parts) == 0, bFive = i % (5 * s32Parts) == 0;
        if (fUnit < 6 && !bFive) continue;
        const float fLength = bTen ? 0.8F : bFive ? 0.55F : bWhole ? 0.35F : 0.12F;
        stCanvas.line(at(f, 0), at(f, fLength), fWidth, stPaint);
        BU_CHAR acText[16];
        if (bTen && fUnit >= 6) {
            const float fHeight = 0.75F * fUnit;
            Point st = at(f, 0.95F);
            if (bPan)
                st.x -= (textWidth(number(acText, f), fHeight) - 0.2F * fHeight) / 2;
            else
                st.y += fHeight / 2;
            stCanvas.text(number(acText, f), st, fHeight, stLetters);
        }
    }
}
} // namespace

void drawRuler(Canvas &stCanvas, const Projection &stView)
{
    const float fUnit = stView.fPixelsPerDegree, fHalfX = stCanvas.width() / 2 / fUnit + 2,
                fHalfY = stCanvas.height() / 2 / fUnit + 2;
    const Range stPan{std::max(stView.fPan - fHalfX, -180.0F), std::min(stView.fPan + fHalfX, 180.0F)};
    const Range stTilt{std::max(stView.fTilt - fHalfY, -80.0F), std::min(stView.fTilt + fHalfY, 80.0F)};
    for (const float fTilt : {20.0F, -26.0F})
        if (fTilt > stTilt.fLow && fTilt < stTilt.fHigh) drawScale(stCanvas, stView, true, fTilt, stPan);
    for (int i = -165; i < 180; i += 30)
        if (static_cast<float>(i) > stPan.fLow && static_cast<float>(i) < stPan.fHigh)
            drawScale(stCanvas, stView, false, static_cast<float>(i),
                      {std::max(stTilt.fLow, -40.0F), std::min(stTilt.fHigh, 60.0F)});

    const float fArm = 0.25F, fWidth = std::clamp(0.02F * fUnit, 1.0F, 2.0F), fHeight = 0.22F * fUnit;
    const Paint stPaint{CHALK, 1, 1, 0.4F};
    for (float fPan = std::ceil(stPan.fLow / 10) * 10; fPan <= stPan.fHigh && fUnit > 12; fPan += 10)
        for (float fTilt = std::ceil(stTilt.fLow / 10) * 10; fTilt <= stTilt.fHigh; fTilt += 10) {
            if (fTilt == 20) continue; // on the ruler
            stCanvas.line(stView.at(fPan - fArm, fTilt), stView.at(fPan + fArm, fTilt), fWidth, stPaint);
            stCanvas.line(stView.at(fPan, fTilt - fArm), stView.at(fPan, fTilt + fArm), fWidth, stPaint);
            if (fHeight < 11) continue;
            BU_CHAR acText[32];
            std::snprintf(acText, sizeof acText, "%d/%d", static_cast<int>(fPan), static_cast<int>(fTilt));
            stCanvas.text(acText, stView.at(fPan + 0.1F, fTilt + 0.1F), fHeight, {CHALK * 0.75F});
        }
}
} // namespace scene
