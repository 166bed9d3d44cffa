// How an axis speeds up, runs and brakes: the stretches of a drive, and where it is at a time.
#include "axis.h"

#include <algorithm>
#include <cmath>

namespace motion
{
namespace
{
constexpr double US_PER_S = 1e6;

AxisState after(AxisState stStart, double dAccel, double dSeconds)
{
    return {stStart.dPos + (stStart.dSpeed + dAccel * dSeconds / 2) * dSeconds, stStart.dSpeed + dAccel * dSeconds};
}
} // namespace

void AxisPath::add(AxisState stStart, double dAccel, double dSeconds)
{
    if (dSeconds <= 0 || m_u32Count == m_astStretches.size()) return;
    m_astStretches[m_u32Count++] = {m_dEndS, stStart, dAccel};
    m_dEndS += dSeconds;
}

void AxisPath::plan(AxisState stFrom, double dTarget, Drive stDrive)
{
    const double dAccel = stDrive.dAccel;
    const double dRestPos = stFrom.dPos + stFrom.dSpeed * std::abs(stFrom.dSpeed) / (2 * dAccel);
    const double dSign = dTarget >= dRestPos ? 1 : -1;

    // In the direction of travel: way to go, speed now, greatest speed on the way.
    const double dWay = dSign * (dTarget - stFrom.dPos);
    const double dNow = dSign * stFrom.dSpeed;
    const double dPeak = std::min(stDrive.dSpeed, std::sqrt(std::max(0.0, dAccel * dWay + dNow * dNow / 2)));
    const double dGain = dNow <= dPeak ? dAccel : -dAccel; // too fast for this order: slow down first
    const double dGainS = (dPeak - dNow) / dGain;
    const double dGainWay = (dNow + dPeak) / 2 * dGainS;
    const double dBrakeWay = dPeak * dPeak / (2 * dAccel);
    const double dCruiseWay = std::max(0.0, dWay - dGainWay - dBrakeWay);

    add(stFrom, dSign * dGain, dGainS);
    add({stFrom.dPos + dSign * dGainWay, dSign * dPeak}, 0, dPeak > 0 ? dCruiseWay / dPeak : 0);
    add({dTarget - dSign * dBrakeWay, dSign * dPeak}, -dSign * dAccel, dPeak / dAccel);
    m_dTarget = dTarget;
}

AxisPath AxisPath::move(BU_S64 s64StartUs, AxisState stFrom, double dTarget, Drive stDrive)
{
    AxisPath path(stFrom.dPos);
    path.m_s64StartUs = s64StartUs;
    path.plan(stFrom, dTarget, stDrive);
    return path;
}

AxisPath AxisPath::brake(BU_S64 s64StartUs, AxisState stFrom, double dAccel)
{
    const double dSeconds = std::abs(stFrom.dSpeed) / dAccel;
    AxisPath path(stFrom.dPos + stFrom.dSpeed * dSeconds / 2);
    path.m_s64StartUs = s64StartUs;
    path.add(stFrom, stFrom.dSpeed > 0 ? -dAccel : dAccel, dSeconds);
    return path;
}

AxisPath &AxisPath::then(double dTarget, Drive stDrive)
{
    plan({m_dTarget, 0}, dTarget, stDrive);
    return *this;
}

AxisState AxisPath::at(BU_S64 s64Us) const
{
    const double dSeconds = static_cast<double>(s64Us - m_s64StartUs) / US_PER_S;
    if (dSeconds >= m_dEndS || m_u32Count == 0) return {m_dTarget, 0};
    if (dSeconds < 0) return {m_astStretches[0].stStart.dPos, 0};
    BU_U32 u32 = m_u32Count - 1;
    while (m_astStretches[u32].dStartS > dSeconds) --u32;
    const Stretch &stStretch = m_astStretches[u32];
    return after(stStretch.stStart, stStretch.dAccel, dSeconds - stStretch.dStartS);
}

BU_S64 AxisPath::endUs() const
{
    return m_s64StartUs + static_cast<BU_S64>(std::ceil(m_dEndS * US_PER_S - 1e-6)); // 1.75 s are 1750000 us
}
} // namespace motion
