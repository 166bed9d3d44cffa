/// The head: two axes that are commanded together. Plain state with the time handed in; the caller holds the lock.
#pragma once

#include "axis.h"
#include "position.h"

namespace motion
{
/// Greatest speeds of an order, degrees per second.
struct HeadSpeed {
    double dPan, dTilt;
};
struct HeadPos {
    BU_S32 s32Pan, s32Tilt; ///< motor units
};

class Head
{
public:
    void place(HeadPos stPos);
    HeadPos at(BU_S64 s64NowUs) const;

    /// Directions -1, 0 or 1; an axis without direction or speed brakes.
    void drive(BU_S64 s64NowUs, BU_S32 s32PanDirection, BU_S32 s32TiltDirection, HeadSpeed stSpeed);
    void stop(BU_S64 s64NowUs) { drive(s64NowUs, 0, 0, {0, 0}); }

    /// @param bTogether  the axis that would arrive first runs slower, so that both arrive at once
    /// @return when the later axis arrives
    BU_S64 moveTo(BU_S64 s64NowUs, HeadPos stTarget, HeadSpeed stSpeed, bool bTogether);
    /// To all ends of travel, then home. @return when it is over
    BU_S64 calibrate(BU_S64 s64NowUs, HeadSpeed stSpeed);

private:
    AxisPath m_pan{MOTOR_CENTRE}, m_tilt{MOTOR_CENTRE};
};
} // namespace motion
