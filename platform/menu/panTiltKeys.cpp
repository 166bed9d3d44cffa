// The direction keys of a remote outside the menu.
#include "camera/menu.h"
#include "camera/motion.h"
#include "util/journal.h"

namespace
{
BU_S32 move(const BU_CHAR *pcFunction, PT_MOTION_TYPE_E enType)
{
    if (const auto injected = journal::call(pcFunction)) return *injected;
    PT_MOTION_CTRL_S stMotion{};
    stMotion.enMotionType = enType;
    PT_API_CalcMotionType(&stMotion.enMotionType);
    BU_S32 s32Pan = 1, s32Tilt = 1;
    PT_API_GetPanSpeed(0, &s32Pan);
    PT_API_GetTileSpeed(0, &s32Tilt);
    PT_API_CalcMotionSpeed(PT_CTRL_E_FROM_REMOTE, &stMotion, s32Pan, s32Tilt);
    return BSP_PTCtrlMotion(PT_CTRL_E_FROM_REMOTE, &stMotion, nullptr);
}
} // namespace

BU_S32 CMD_PT_HandeUpBtn(BU_S32) { return move(__func__, PT_MOTION_E_UP); }
BU_S32 CMD_PT_HandeDownBtn(BU_S32) { return move(__func__, PT_MOTION_E_DOWN); }
BU_S32 CMD_PT_HandeLeftBtn(BU_S32) { return move(__func__, PT_MOTION_E_LEFT); }
BU_S32 CMD_PT_HandeRightBtn(BU_S32) { return move(__func__, PT_MOTION_E_RIGHT); }
BU_S32 CMD_PT_StopMove() { return move(__func__, PT_MOTION_E_STOP); }
