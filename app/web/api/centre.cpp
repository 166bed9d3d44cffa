// Click to centre: turns the head so that a point of the picture comes into its middle.
#include "api.h"
#include "camera/menu.h"
#include "camera/picture.h"
#include "camera/zoom.h"
#include "position.h"

#include <cmath>

namespace
{
struct Point {
    BU_FLOAT x = -1, y = -1; ///< of the close-up picture: 0, 0 left above, 1, 1 right below
};
} // namespace

WEB_FIELDS(Point, WEB_FIELD(x, 0), WEB_FIELD(y, 0));

namespace
{
constexpr double PICTURE_ASPECT = 16.0 / 9;

bool isOn(BU_S32 (*pfnGet)(BU_S32 *, BU_BOOL))
{
    BU_S32 s32Value = 0;
    pfnGet(&s32Value, BU_FALSE);
    return s32Value != 0;
}

/// The picture maps degrees to pixels evenly, so the way follows from the present field of view. It ends at the end of
/// travel: then the point comes as near to the middle as the head can bring it.
const BU_CHAR *centre(const Point &stPoint, web::Direction &stAnswer)
{
    const auto isInside = [](BU_FLOAT f) { return f >= 0 && f <= 1; };
    if (!isInside(stPoint.x) || !isInside(stPoint.y))
        return "\"x\" and \"y\" are numbers from 0 to 1: a point of the picture";
    BU_FLOAT fFov = 0;
    PT_MOTION_CTRL_S stMotion{};
    stMotion.enMotionType = PT_MOTION_E_ABS_POS;
    if (PTZ_API_GetFieldOfView(0, &fFov) != 0 || BSP_PTGetCurPos(0, &stMotion.stPos, PT_DEV_TYPE_PAN_TILE_E) != 0)
        return "the camera does not know where it looks";
    const bool bHangs = !isOn(SYS_API_GetMountMode); // its picture is turned round
    const auto way = [](BU_FLOAT fPoint, bool bTurned, double dDegrees) {
        const double dShare = fPoint - 0.5;
        return static_cast<BU_S32>(std::lround((bTurned ? -dShare : dShare) * dDegrees * PT_MOTOR_PER_DEGREE));
    };
    const PT_DEGREE_S stTarget{static_cast<BU_S32>(stMotion.stPos.u32PanPos) +
                                   way(stPoint.x, isOn(SYS_API_GetMirror) != bHangs, fFov),
                               static_cast<BU_S32>(stMotion.stPos.u32TiltPos) -
                                   way(stPoint.y, isOn(SYS_API_GetFlip) != bHangs, fFov / PICTURE_ASPECT)};
    BSP_PTDegreeToPos(0, &stMotion.stPos, &stTarget, 1);
    if (BSP_PTCtrlMotion(PT_CTRL_E_FROM_OTHER, &stMotion, nullptr) < 0) return "the head does not move";
    stAnswer = web::directionOf(stMotion.stPos);
    return nullptr;
}
} // namespace

const web::Subject web::CENTRE{[] { registerQuestion<Point, Direction, centre>("centre"); }};
