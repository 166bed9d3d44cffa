/// The still part of the scene, drawn once in tiles of several finenesses and scaled to the picture.
#pragma once

#include "draw/canvas.h"

#include <cmath>
#include <list>
#include <unordered_map>

namespace scene
{
using namespace draw;

/// How directions map to a picture.
struct Projection {
    float fPan, fTilt; // at the middle of the picture
    float fPixelsPerDegree;
    float fMiddleX, fMiddleY;

    Projection(float fPanDeg, float fTiltDeg, float fFov, const SCENE_FRAME_S &stFrame)
        : fPan(fPanDeg), fTilt(fTiltDeg), fPixelsPerDegree(static_cast<float>(stFrame.s32Width) / fFov),
          fMiddleX(static_cast<float>(stFrame.s32Width) / 2), fMiddleY(static_cast<float>(stFrame.s32Height) / 2)
    {
    }
    Point at(float fPanDeg, float fTiltDeg) const;
    /// Whether a thing around a direction may be in sight. What lies behind must not be drawn: it would be torn apart
    /// where the directions wrap around.
    bool isAhead(float fPanDeg) const { return std::abs(std::remainder(fPanDeg - fPan, 360.0F)) < 130; }
    bool operator==(const Projection &) const = default;
};

/// Part of an NV12 image: left, top and size in its pixels, fractions too.
struct Window {
    double dLeft, dTop, dWidth, dHeight;
};
/// Scales a part of an image to a whole picture with bilinear weights; pixels beyond the image repeat its edge.
class Stretcher
{
public:
    void stretch(const SCENE_FRAME_S &stIn, const Window &stWindow, const SCENE_FRAME_S &stOut);

private:
    std::vector<BU_U8> m_vecRows;
    std::vector<BU_U32> m_vecSteps;
};

class Background
{
public:
    void draw(const Projection &stView, const SCENE_FRAME_S &stOut);

private:
    struct Tile {
        BU_U64 u64Key;
        std::vector<BU_U8> vecNv12;
    };
    const Tile &tile(int s32Level, int s32X, int s32Y);
    void drawFresh(const Projection &stView, const SCENE_FRAME_S &stOut);

    std::list<Tile> m_listTiles; // the last used first
    std::unordered_map<BU_U64, std::list<Tile>::iterator> m_mapTiles;
    std::vector<BU_U8> m_vecSource; // the tiles of a view, joined
    Stretcher m_stStretcher;
    // The picture of the last view, complete: most cameras stand still most of the time.
    std::vector<BU_U8> m_vecLast;
    Projection m_stLast{0, 0, 1, {}};
    int m_s32LastWidth = 0, m_s32LastHeight = 0;
};
} // namespace scene
