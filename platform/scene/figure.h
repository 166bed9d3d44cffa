/// A standing or walking person, drawn in metres on an upright sheet that faces the camera.
#pragma once

#include "background.h"
#include "room.h"

#include <algorithm>
#include <array>
#include <initializer_list>

namespace scene
{
enum class Act { STROLL, SPEAK, WAVE };

struct Look {
    Rgb stSkin, stHair, stTop, stTrousers;
    float fHeight;
    bool bLongHair, bTie;
};
struct Standing {
    float x, y;
    float fFacing; // -1 walks to the picture's left, 1 to its right, 0 looks to the camera
    float fStride; // phase of the walk [radians]
};

/// An upright sheet at the person's place: metres to the right of the feet and above them, to picture pixels.
struct Sheet {
    const Projection &stView;
    float fPan, fDistance, fFeetZ;

    Sheet(const Projection &st, float x, float y, float z)
        : stView(st), fPan(std::atan2(x, y) / DEGREE), fDistance(std::hypot(x, y)), fFeetZ(z)
    {
    }
    Point at(float fAside, float fUp) const
    {
        return stView.at(fPan + fAside / fDistance / DEGREE, std::atan2(fFeetZ + fUp, fDistance) / DEGREE);
    }
    float pixels(float fMetres) const { return fMetres / fDistance / DEGREE * stView.fPixelsPerDegree; }
};

/// Draws with a sheet's metres.
struct Brush {
    Canvas &stCanvas;
    const Sheet &stSheet;

    void limb(Point a, float fRadiusA, Point b, float fRadiusB, const Paint &stPaint) const
    {
        stCanvas.capsule(stSheet.at(a.x, a.y), stSheet.pixels(fRadiusA), stSheet.at(b.x, b.y), stSheet.pixels(fRadiusB),
                         stPaint);
    }
    void disc(Point st, float fRadiusX, float fRadiusY, const Paint &stPaint) const
    {
        stCanvas.ellipse(stSheet.at(st.x, st.y), stSheet.pixels(fRadiusX), stSheet.pixels(fRadiusY), stPaint);
    }
    void shape(std::initializer_list<Point> listCorners, const Paint &stPaint) const
    {
        std::array<Point, 16> ast;
        std::ranges::transform(listCorners, ast.begin(), [this](Point st) { return stSheet.at(st.x, st.y); });
        stCanvas.polygon({ast.data(), listCorners.size()}, stPaint);
    }
};

/// @param fTime  seconds, for gestures and the face
void drawFigure(const Brush &stBrush, const Look &stLook, Act enAct, const Standing &stAt, float fTime);
} // namespace scene
