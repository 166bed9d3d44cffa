/// One axis of the head or the lens: where it is at any time, by plain arithmetic with the time handed in.
///
/// Positions and speeds are in the axis' own units; time is the clock of UTIL_TIME_NowUs. Nothing runs in the
/// background: a path is planned once and asked as often as somebody wants to know.
#pragma once

#include "base/types.h"

#include <array>

namespace motion
{
struct AxisState {
    double dPos, dSpeed; ///< units, units per second
};

/// What a motor is asked for.
struct Drive {
    double dSpeed; ///< greatest speed, units per second, > 0
    double dAccel; ///< acceleration and deceleration, units per second squared, > 0
};

/// A run of stretches of constant acceleration, at rest before and after.
class AxisPath
{
public:
    explicit AxisPath(double dPos = 0) : m_dTarget(dPos) {}

    /// From a state to a target, at rest there: acceleration, cruise, deceleration. A state that moves away from the
    /// target, or towards it too fast to stop there, turns around without a break in speed.
    static AxisPath move(BU_S64 s64StartUs, AxisState stFrom, double dTarget, Drive stDrive);
    /// Brakes to rest.
    static AxisPath brake(BU_S64 s64StartUs, AxisState stFrom, double dAccel);

    /// A further move after the last one.
    AxisPath &then(double dTarget, Drive stDrive);

    AxisState at(BU_S64 s64Us) const;
    double target() const { return m_dTarget; }
    BU_S64 startUs() const { return m_s64StartUs; }
    BU_S64 endUs() const;

private:
    struct Stretch {
        double dStartS; // after m_s64StartUs
        AxisState stStart;
        double dAccel;
    };
    void add(AxisState stStart, double dAccel, double dSeconds);
    void plan(AxisState stFrom, double dTarget, Drive stDrive);

    BU_S64 m_s64StartUs = 0;
    double m_dEndS = 0, m_dTarget;
    std::array<Stretch, 9> m_astStretches{}; // three moves
    BU_U32 m_u32Count = 0;
};
} // namespace motion
