/// The lens curve of docs/positions.md: where the focus stands for a distance. The motor follows it, and the picture is
/// as sharp as it says.
#pragma once

#include "camera/focus.h"
#include "camera/zoom.h"

namespace lens_curve
{
constexpr BU_S32 TELE_END = PTZ_ZOOM_ENDS[0]; ///< zoom position at the tele end of the lens
constexpr double CLOSEST_M = 0.3;             ///< nearest distance that can be sharp

/// At infinity the sharp position rises with the zoom.
constexpr double AT_INFINITY_RISE = 1500;
constexpr double teleShare(double dZoomPos)
{
    return dZoomPos <= 0 ? 0 : dZoomPos >= TELE_END ? 1 : dZoomPos / TELE_END;
}
/// What the closest distance pulls towards the near end, the more the longer the focal length.
constexpr double pull(double dTele)
{
    constexpr double WIDE_SHARE = 0.3;
    return (AF_NEAR_END - AF_FAR_END - AT_INFINITY_RISE) * (WIDE_SHARE + (1 - WIDE_SHARE) * dTele);
}

/// @param dDioptres  1 / distance [1/m]; nearer than the closest counts as the closest
constexpr double focusPos(double dZoomPos, double dDioptres)
{
    const double dNear = dDioptres <= 0 ? 0 : dDioptres * CLOSEST_M >= 1 ? 1 : dDioptres * CLOSEST_M;
    return AF_FAR_END + AT_INFINITY_RISE * teleShare(dZoomPos) + pull(teleShare(dZoomPos)) * dNear;
}
/// Backwards: 1 / distance of what is sharp [1/m]; negative: beyond infinity, nothing is.
constexpr double dioptres(double dZoomPos, double dFocusPos)
{
    return (dFocusPos - AF_FAR_END - AT_INFINITY_RISE * teleShare(dZoomPos)) / pull(teleShare(dZoomPos)) / CLOSEST_M;
}
} // namespace lens_curve
