/// Scales of position: every conversion between motor units, VISCA positions, degrees, zoom positions, magnification
/// and focus positions stands here. docs/positions.md has the tables.
#pragma once

#include "camera/motion.h"
#include "motion/lensCurve.h"

namespace motion
{
constexpr BU_S32 MOTOR_CENTRE = PT_MOTOR_CENTRE, MOTOR_PER_DEGREE = PT_MOTOR_PER_DEGREE;

/// Where the head stops, in motor units, from the board profile.
struct Stops {
    BU_S32 s32PanMin, s32PanMax, s32TiltMin, s32TiltMax;
};
Stops stops();
/// Magnification at the tele end of the lens, from the board profile.
BU_S32 opticalZoom();
/// Reads both from the board profile again.
void loadGeometry();

/// Signed scales, rounded to the nearest: VISCA positions (14.4 a degree) and hundredths of a degree.
BU_S32 viscaFromMotor(BU_S32 s32Motor);
BU_S32 motorFromVisca(BU_S32 s32Visca);
BU_S32 centiDegreesFromMotor(BU_S32 s32Motor);
BU_S32 motorFromCentiDegrees(BU_S32 s32CentiDegrees);

constexpr BU_S32 ZOOM_OPTICAL_END = lens_curve::TELE_END;
/// Greatest zoom position of a digital-zoom limit (1...16; anything else counts as 1).
BU_S32 zoomEnd(BU_S32 s32DigitalLimit);
double magnificationOf(BU_S32 s32ZoomPos);
/// The position closest to a magnification, 0 up to the digital end; below 1 and not a number: 0.
BU_S32 zoomPosOf(double dMagnification);

constexpr BU_S32 FOCUS_FAR_END = AF_FAR_END;
constexpr BU_S32 FOCUS_NEAR_END = AF_NEAR_END;
/// Where the focus stands when the picture is sharp: the lens curve of a scene at that distance.
double sharpFocus(double dZoomPos, BU_S32 s32DistanceCm);
/// Distance of a face that fills the fraction dHeight of the picture height.
BU_S32 faceDistanceCm(double dHeight, double dMagnification);
} // namespace motion
