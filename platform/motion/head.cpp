// What a command makes of the two axes of the head.
#include "head.h"

#include <algorithm>
#include <cmath>

namespace motion
{
namespace
{
constexpr double ACCEL = 240.0 * MOTOR_PER_DEGREE; // up to 120 degrees per second in half a second
constexpr double STOP_ACCEL = 2 * ACCEL;

Drive driveOf(double dDegreesPerS) { return {dDegreesPerS * MOTOR_PER_DEGREE, ACCEL}; }

AxisPath driven(const AxisPath &path, BU_S64 s64NowUs, BU_S32 s32Direction, double dDegreesPerS, BU_S32 s32Min,
                BU_S32 s32Max)
{
    if (s32Direction == 0 || dDegreesPerS <= 0) return AxisPath::brake(s64NowUs, path.at(s64NowUs), STOP_ACCEL);
    return AxisPath::move(s64NowUs, path.at(s64NowUs), s32Direction > 0 ? s32Max : s32Min, driveOf(dDegreesPerS));
}

/// The slowest drive that still arrives by s64EndUs.
AxisPath stretched(const AxisPath &path, AxisState stFrom, double dDegreesPerS, BU_S64 s64EndUs)
{
    double dSlow = 0, dFast = dDegreesPerS;
    const auto plan = [&](double dSpeed) {
        return AxisPath::move(path.startUs(), stFrom, path.target(), driveOf(dSpeed));
    };
    for (BU_S32 i = 0; i < 24; ++i) {
        const double dMiddle = (dSlow + dFast) / 2;
        (plan(dMiddle).endUs() > s64EndUs ? dSlow : dFast) = dMiddle;
    }
    return plan(dFast);
}
} // namespace

void Head::place(HeadPos stPos)
{
    m_pan = AxisPath(stPos.s32Pan);
    m_tilt = AxisPath(stPos.s32Tilt);
}

HeadPos Head::at(BU_S64 s64NowUs) const
{
    const auto whole = [&](const AxisPath &path) { return static_cast<BU_S32>(std::lround(path.at(s64NowUs).dPos)); };
    return {whole(m_pan), whole(m_tilt)};
}

void Head::drive(BU_S64 s64NowUs, BU_S32 s32PanDirection, BU_S32 s32TiltDirection, HeadSpeed stSpeed)
{
    const Stops st = stops();
    m_pan = driven(m_pan, s64NowUs, s32PanDirection, stSpeed.dPan, st.s32PanMin, st.s32PanMax);
    m_tilt = driven(m_tilt, s64NowUs, s32TiltDirection, stSpeed.dTilt, st.s32TiltMin, st.s32TiltMax);
}

BU_S64 Head::moveTo(BU_S64 s64NowUs, HeadPos stTarget, HeadSpeed stSpeed, bool bTogether)
{
    const Stops st = stops();
    const AxisState stPan = m_pan.at(s64NowUs), stTilt = m_tilt.at(s64NowUs);
    m_pan =
        AxisPath::move(s64NowUs, stPan, std::clamp(stTarget.s32Pan, st.s32PanMin, st.s32PanMax), driveOf(stSpeed.dPan));
    m_tilt = AxisPath::move(s64NowUs, stTilt, std::clamp(stTarget.s32Tilt, st.s32TiltMin, st.s32TiltMax),
                            driveOf(stSpeed.dTilt));
    const BU_S64 s64EndUs = std::max(m_pan.endUs(), m_tilt.endUs());
    if (bTogether && m_pan.endUs() < s64EndUs) m_pan = stretched(m_pan, stPan, stSpeed.dPan, s64EndUs);
    if (bTogether && m_tilt.endUs() < s64EndUs) m_tilt = stretched(m_tilt, stTilt, stSpeed.dTilt, s64EndUs);
    return s64EndUs;
}

BU_S64 Head::calibrate(BU_S64 s64NowUs, HeadSpeed stSpeed)
{
    const Stops st = stops();
    const auto run = [&](AxisPath &path, BU_S32 s32Min, BU_S32 s32Max, double dSpeed) {
        path = AxisPath::move(s64NowUs, path.at(s64NowUs), s32Min, driveOf(dSpeed));
        path.then(s32Max, driveOf(dSpeed)).then(MOTOR_CENTRE, driveOf(dSpeed));
    };
    run(m_pan, st.s32PanMin, st.s32PanMax, stSpeed.dPan);
    run(m_tilt, st.s32TiltMin, st.s32TiltMax, stSpeed.dTilt);
    return std::max(m_pan.endUs(), m_tilt.endUs());
}
} // namespace motion
