// The scales of position and their conversions.
#include "position.h"

#include "board/profile.h"
#include "camera/motion.h"
#include "util/journal.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>

namespace motion
{
namespace
{
constexpr BU_S32 motorOf(BU_S32 s32Degree) { return MOTOR_CENTRE + s32Degree * MOTOR_PER_DEGREE; }

struct Geometry {
    std::atomic<BU_S32> panMin{motorOf(-170)}, panMax{motorOf(170)}, tiltMin{motorOf(-30)}, tiltMax{motorOf(90)};
    std::atomic<BU_S32> opticalZoom{20};
};
Geometry g_stGeometry;

/// Quotient rounded to the nearest, halves away from zero.
constexpr BU_S32 divided(BU_S64 s64, BU_S64 s64By)
{
    return static_cast<BU_S32>((s64 + (s64 < 0 ? -s64By : s64By) / 2) / s64By);
}

/// 14.4 VISCA units a degree: 625 motor units are 6 of them.
constexpr BU_S64 VISCA_PART = 6, MOTOR_PART = 625;
static_assert(MOTOR_PART * 144 == VISCA_PART * MOTOR_PER_DEGREE * 10);
constexpr BU_S32 MOTOR_PER_CENTIDEGREE = MOTOR_PER_DEGREE / 100;

constexpr double FACE_HEIGHT_CM = 24, PICTURE_HEIGHT_PER_CM = 1.15; // of a scene, without zoom, per cm of distance
} // namespace

Stops stops()
{
    const auto &st = g_stGeometry;
    const auto value = [](const std::atomic<BU_S32> &s32) { return s32.load(std::memory_order_relaxed); };
    return {value(st.panMin), value(st.panMax), value(st.tiltMin), value(st.tiltMax)};
}

BU_S32 opticalZoom() { return g_stGeometry.opticalZoom.load(std::memory_order_relaxed); }

void loadGeometry()
{
    const auto stop = [](const BU_CHAR *pcPath, BU_S32 s32Default, BU_S32 s32Least, BU_S32 s32Most) {
        return motorOf(std::clamp(BSP_PROFILE_GetInt(pcPath, s32Default), s32Least, s32Most));
    };
    g_stGeometry.panMin = stop("panTilt/panMinDegrees", -170, -180, 0);
    g_stGeometry.panMax = stop("panTilt/panMaxDegrees", 170, 0, 180);
    g_stGeometry.tiltMin = stop("panTilt/tiltMinDegrees", -30, -180, 0);
    g_stGeometry.tiltMax = stop("panTilt/tiltMaxDegrees", 90, 0, 180);
    g_stGeometry.opticalZoom = std::max(1, BSP_PROFILE_GetInt("lens/opticalZoom", 20));
}

BU_S32 viscaFromMotor(BU_S32 s32Motor)
{
    return divided((static_cast<BU_S64>(s32Motor) - MOTOR_CENTRE) * VISCA_PART, MOTOR_PART);
}
BU_S32 motorFromVisca(BU_S32 s32Visca) { return MOTOR_CENTRE + divided(s32Visca * MOTOR_PART, VISCA_PART); }
BU_S32 centiDegreesFromMotor(BU_S32 s32Motor)
{
    return divided(static_cast<BU_S64>(s32Motor) - MOTOR_CENTRE, MOTOR_PER_CENTIDEGREE);
}
BU_S32 motorFromCentiDegrees(BU_S32 s32CentiDegrees)
{
    const BU_S64 s64Motor = MOTOR_CENTRE + static_cast<BU_S64>(s32CentiDegrees) * MOTOR_PER_CENTIDEGREE;
    return static_cast<BU_S32>(std::clamp<BU_S64>(s64Motor, INT32_MIN, INT32_MAX));
}

BU_S32 zoomEnd(BU_S32 s32DigitalLimit)
{
    const bool bKnown = s32DigitalLimit >= 1 && s32DigitalLimit <= static_cast<BU_S32>(PTZ_ZOOM_ENDS.size());
    return bKnown ? PTZ_ZOOM_ENDS[s32DigitalLimit - 1] : ZOOM_OPTICAL_END;
}

double magnificationOf(BU_S32 s32ZoomPos)
{
    const BU_S32 s32Pos = std::clamp(s32ZoomPos, 0, PTZ_ZOOM_ENDS.back());
    if (s32Pos <= ZOOM_OPTICAL_END) return std::pow(opticalZoom(), static_cast<double>(s32Pos) / ZOOM_OPTICAL_END);
    const auto above = std::ranges::lower_bound(PTZ_ZOOM_ENDS, s32Pos);
    const BU_S32 s32Below = *(above - 1);
    const double dFactor = static_cast<double>(above - PTZ_ZOOM_ENDS.begin()) +
                           static_cast<double>(s32Pos - s32Below) / (*above - s32Below);
    return opticalZoom() * dFactor;
}

BU_S32 zoomPosOf(double dMagnification)
{
    if (!(dMagnification > 1)) return 0;
    if (dMagnification <= opticalZoom())
        return static_cast<BU_S32>(std::lround(ZOOM_OPTICAL_END * std::log(dMagnification) / std::log(opticalZoom())));
    const double dFactor = std::min<double>(dMagnification / opticalZoom(), PTZ_ZOOM_ENDS.size());
    const auto row = std::min<std::size_t>(static_cast<std::size_t>(dFactor), PTZ_ZOOM_ENDS.size() - 1);
    const double dShare = dFactor - static_cast<double>(row);
    return static_cast<BU_S32>(
        std::lround(PTZ_ZOOM_ENDS[row - 1] + dShare * (PTZ_ZOOM_ENDS[row] - PTZ_ZOOM_ENDS[row - 1])));
}

double sharpFocus(double dZoomPos, BU_S32 s32DistanceCm)
{
    return lens_curve::focusPos(dZoomPos, 100.0 / std::max(1, s32DistanceCm));
}

BU_S32 faceDistanceCm(double dHeight, double dMagnification)
{
    const double dCm = FACE_HEIGHT_CM * dMagnification / (PICTURE_HEIGHT_PER_CM * std::max(dHeight, 0.001));
    return static_cast<BU_S32>(std::clamp(dCm, 100 * lens_curve::CLOSEST_M, 100000.0));
}

namespace
{
enum : BU_S32 { DEGREE_MODE_HUNDREDTHS = 0, DEGREE_MODE_MOTOR = 1 };

/// Within the stops, so that a stored or commanded position is one that the head can reach.
PT_POS_S reachable(BU_S64 s64Pan, BU_S64 s64Tilt)
{
    const Stops st = stops();
    return {static_cast<BU_U32>(std::clamp<BU_S64>(s64Pan, st.s32PanMin, st.s32PanMax)),
            static_cast<BU_U32>(std::clamp<BU_S64>(s64Tilt, st.s32TiltMin, st.s32TiltMax))};
}
} // namespace
} // namespace motion

BU_S32 BSP_PTPosFromVisca(BU_S32 s32Dev, PT_POS_S *pstPos)
{
    if (const auto injected = journal::ask(__func__, s32Dev, pstPos)) return *injected;
    if (s32Dev != 0 || !pstPos) return -1;
    const auto motor = [](BU_U32 u32) { return motion::motorFromVisca(static_cast<BU_S16>(u32)); };
    *pstPos = motion::reachable(motor(pstPos->u32PanPos), motor(pstPos->u32TiltPos));
    return 0;
}

BU_S32 BSP_PTPosToVisca(BU_S32 s32Dev, PT_POS_S *pstPos)
{
    if (const auto injected = journal::ask(__func__, s32Dev, pstPos)) return *injected;
    if (s32Dev != 0 || !pstPos) return -1;
    const auto visca = [](BU_U32 u32) -> BU_U32 {
        return static_cast<BU_U16>(motion::viscaFromMotor(static_cast<BU_S32>(u32)));
    };
    *pstPos = {visca(pstPos->u32PanPos), visca(pstPos->u32TiltPos)};
    return 0;
}

BU_S32 BSP_PTPosToDegree(BU_S32 s32Dev, PT_DEGREE_S *pstDegree, const PT_POS_S *pstPos, BU_S32 s32Mode)
{
    if (const auto injected = journal::ask(__func__, s32Dev, pstDegree, pstPos, s32Mode)) return *injected;
    if (s32Dev != 0 || !pstDegree || !pstPos) return -1;
    const auto s32Pan = static_cast<BU_S32>(pstPos->u32PanPos), s32Tilt = static_cast<BU_S32>(pstPos->u32TiltPos);
    if (s32Mode == motion::DEGREE_MODE_MOTOR)
        *pstDegree = {s32Pan, s32Tilt};
    else if (s32Mode == motion::DEGREE_MODE_HUNDREDTHS)
        *pstDegree = {motion::centiDegreesFromMotor(s32Pan), motion::centiDegreesFromMotor(s32Tilt)};
    else
        return -1;
    return 0;
}

BU_S32 BSP_PTDegreeToPos(BU_S32 s32Dev, PT_POS_S *pstPos, const PT_DEGREE_S *pstDegree, BU_S32 s32Mode)
{
    if (const auto injected = journal::ask(__func__, s32Dev, pstPos, pstDegree, s32Mode)) return *injected;
    if (s32Dev != 0 || !pstDegree || !pstPos) return -1;
    if (s32Mode == motion::DEGREE_MODE_MOTOR)
        *pstPos = motion::reachable(pstDegree->s32PanDegree, pstDegree->s32TiltDegree);
    else if (s32Mode == motion::DEGREE_MODE_HUNDREDTHS)
        *pstPos = motion::reachable(motion::motorFromCentiDegrees(pstDegree->s32PanDegree),
                                    motion::motorFromCentiDegrees(pstDegree->s32TiltDegree));
    else
        return -1;
    return 0;
}
