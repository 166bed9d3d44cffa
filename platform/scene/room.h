/// The hall: its measures, its colours, and what a ray from the camera meets.
///
/// Metres; the camera is the origin, x to the right, y towards the stage, z up.
#pragma once

#include "draw/canvas.h"

#include <numbers>

namespace scene
{
using namespace draw;

constexpr float FLOOR_Z = -2.4F, CEILING_Z = 5, FRONT_Y = 12, BACK_Y = -8, SIDE_X = 9;
constexpr float STAGE_Y = 8, STAGE_Z = -1.4F, STAGE_X = 7.6F;
/// The projection screen on the front wall.
constexpr float SCREEN_X = 3.2F, SCREEN_LOW_Z = 0.25F, SCREEN_HIGH_Z = 3.65F;
/// The clock on the right side wall.
constexpr float CLOCK_Y = 2.4F, CLOCK_Z = 2.2F, CLOCK_RADIUS = 0.55F;
/// Chair rows: places from the aisle outwards.
constexpr float CHAIR_ROWS_Y[] = {2.4F, 3.4F, 4.4F, 5.4F, 6.4F};
constexpr float CHAIR_AISLE_X = 0.9F, CHAIR_PITCH = 0.64F, CHAIR_END_X = 6.66F, CHAIR_TOP_Z = FLOOR_Z + 0.95F;

constexpr float DEGREE = std::numbers::pi_v<float> / 180;

/// One vertical line of the picture: what depends on pan alone.
class RoomColumn
{
public:
    /// @param fFootprint  size of a picture point [radians]: edges are smoothed over it
    RoomColumn(float fPan, float fFootprint);

    /// @param fSlope  tangent of the tilt
    Rgb colourAt(float fSlope) const;

private:
    enum class Wall { FRONT, BACK, LEFT, RIGHT };
    /// A plane across the hall that the ray may pass before it meets a wall.
    struct Crossing {
        float fWay, x; // horizontal distance; 0: not met
    };
    Crossing cross(float y) const;

    bool chairs(float fSlope, Rgb &stSum, float &fRest) const;
    bool truss(float fSlope, Rgb &stSum, float &fRest) const;
    bool stage(float fSlope, Rgb &stSum, float &fRest) const;
    Rgb frontWall(float x, float z, float w) const;
    Rgb sideWall(float y, float z, float w) const;
    Rgb backWall(float x, float z, float w) const;
    Rgb floorAt(float x, float y, float w) const;
    Rgb ceilingAt(float x, float y, float w) const;

    float m_fSin, m_fCos, m_fFootprint;
    float m_fWallWay, m_fWallAt; // horizontal distance and place along the wall
    Wall m_enWall;
    Crossing m_astRows[std::size(CHAIR_ROWS_Y)], m_stStage, m_stCurtain, m_stTruss;
};
} // namespace scene
