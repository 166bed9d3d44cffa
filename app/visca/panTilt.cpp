// Head motion, the menu keys that directions press while the menu is shown, and the settings of speed.
#include "camera/focus.h"
#include "camera/menu.h"
#include "camera/motion.h"
#include "handlers.h"
#include "model/model.h"
#include "table.h"
#include "util/log.h"
#include "util/time.h"

#include <atomic>

using namespace visca;

namespace
{
constexpr BU_S32 FINE_LEVELS = 255; ///< top level of the precise directions
constexpr BU_S32 MENU_PAUSE_MS = 500;

/// Set while no menu key may be pressed: a controller repeats its pan/tilt command far faster than a menu is read.
std::atomic<BU_BOOL> bdelay{BU_FALSE};
BU_TIMER_DATA_S stTimerHandle;

/// What a direction drives: the head, or the menu while it is shown.
struct Direction {
    PT_MOTION_TYPE_E enMotion;
    BU_S32 (*pfnMenuKey)();
};
// clang-format off
constexpr Coded<Direction> DIRECTIONS[] = {
    {VISCA_MSG_E_PT_UP,         {PT_MOTION_E_UP,         CMD_MENU_HandeUpBtn}},
    {VISCA_MSG_E_PT_DOWN,       {PT_MOTION_E_DOWN,       CMD_MENU_HandeDownBtn}},
    {VISCA_MSG_E_PT_LEFT,       {PT_MOTION_E_LEFT,       CMD_MENU_HandeLeftBtn}},
    {VISCA_MSG_E_PT_RIGHT,      {PT_MOTION_E_RIGHT,      CMD_MENU_HandeRightBtn}},
    {VISCA_MSG_E_PT_UP_LEFT,    {PT_MOTION_E_LEFT_UP,    CMD_MENU_HandeUpLeftBtn}},
    {VISCA_MSG_E_PT_UP_RIGHT,   {PT_MOTION_E_RIGHT_UP,   CMD_MENU_HandeUpRightBtn}},
    {VISCA_MSG_E_PT_DOWN_LEFT,  {PT_MOTION_E_LEFT_DOWN,  CMD_MENU_HandeDownLeftBtn}},
    {VISCA_MSG_E_PT_DOWN_RIGHT, {PT_MOTION_E_RIGHT_DOWN, CMD_MENU_HandeDownRightBtn}},
};
constexpr Coded<PT_MOTION_TYPE_E> OTHER_MOTIONS[] = {
    {VISCA_MSG_E_PT_STOP,    PT_MOTION_E_STOP},
    {VISCA_MSG_E_PT_ABS_POS, PT_MOTION_E_ABS_POS},
    {VISCA_MSG_E_PT_REL_POS, PT_MOTION_E_ABS_POS},
    {VISCA_MSG_E_PT_HOME,    PT_MOTION_E_HOME},
    {VISCA_MSG_E_PT_RESET,   PT_MOTION_E_RESET},
};
// clang-format on

bool isPrecisePTCommand(VISCA_CTRL_PT_E enType)
{
    return enType >= VISCA_MSG_E_PT_UP_PRECISE && enType <= VISCA_MSG_E_PT_DOWN_RIGHT_PRECISE;
}

/// Null for what is not a direction. The precise directions are the plain ones again, in the same order.
const Direction *directionOf(VISCA_CTRL_PT_E enType)
{
    return find(DIRECTIONS, isPrecisePTCommand(enType) ? enType - VISCA_MSG_E_PT_UP_PRECISE : BU_S32(enType));
}

PT_MOTION_TYPE_E viscaTypeToPTMotion(VISCA_CTRL_PT_E enType)
{
    if (const auto *pstDirection = directionOf(enType)) return pstDirection->enMotion;
    const auto *penMotion = find(OTHER_MOTIONS, enType);
    return penMotion ? *penMotion : PT_MOTION_E_BUTT;
}

typedef BU_S32 (*PFN_GET_LEVEL)(BU_S32, BU_S32 *, BU_BOOL);
BU_S32 speedLevel(BU_U8 u8Level, PFN_GET_LEVEL pfnGetConfigured)
{
    BU_S32 s32Level = u8Level;
    if (s32Level < 1) pfnGetConfigured(0, &s32Level, BU_FALSE);
    return s32Level;
}

void setSpeed(const VISCA_CTRL_PT_S &stCtrl, PT_MOTION_CTRL_S *pstMotion)
{
    if (isPrecisePTCommand(stCtrl.enPanTiltType))
        PT_API_CalcMotionSpeed(PT_CTRL_E_FROM_TKV_SUPERFINE, pstMotion,
                               speedLevel(stCtrl.u8PanSpeed, PT_API_GetPanSpeedSuperfine), FINE_LEVELS,
                               speedLevel(stCtrl.u8TiltSpeed, PT_API_GetTileSpeedSuperfine), FINE_LEVELS);
    else
        PT_API_CalcMotionSpeed(PT_CTRL_E_FROM_VISCA, pstMotion, speedLevel(stCtrl.u8PanSpeed, PT_API_GetPanSpeed),
                               speedLevel(stCtrl.u8TiltSpeed, PT_API_GetTileSpeed));
}

/// Home is wide as well. Nobody waits for this move: the answer follows the head's.
BU_S32 zoomHome()
{
    BU_S32 bAuto = BU_FALSE;
    AF_API_GetFocusAuto(0, &bAuto, BU_FALSE);
    ZF_MOTION_CTRL_S stMotion{};
    stMotion.enMotionType = ZF_E_ZOOM_DIRECT_POS;
    stMotion.u8ZoomSpd = 7;
    stMotion.bUseZoomTime = BU_TRUE;
    stMotion.fZoomTime = 1.0F;
    stMotion.bTriggerFocusAfterZoom = !bAuto;
    return BSP_ZFCtrlMotion(ZF_CTRL_E_FROM_VISCA, &stMotion, nullptr);
}
} // namespace

BU_S32 VISCA_delay(void *)
{
    bdelay = BU_FALSE;
    return 0;
}

BU_S32 VISCA_CtrlMenu(VISCA_CTRL_PT_E enType)
{
    const auto *pstDirection = directionOf(enType);
    if (!pstDirection) return -1;
    if (!bdelay.exchange(BU_TRUE)) {
        const bool bEnter =
            pstDirection->enMotion == PT_MOTION_E_RIGHT && model::isModel(model::TKV_MX) && OSD_Menu_HasSubPage() == 1;
        const auto pfnKey = bEnter ? CMD_MENU_HandeHomeBtn : pstDirection->pfnMenuKey;
        pfnKey();
    }
    UTIL_TIMER_Start(BU_TIMER_E_ONCE, MENU_PAUSE_MS, VISCA_delay, nullptr, &stTimerHandle);
    return 0;
}

BU_S32 viscaCtrlPanTilt(tagVISCA_CTRL_INFO_S *pstInfo)
{
    const auto &stCtrl = pstInfo->stPTCtlr;
    UTIL_TRACE_Print("acDeviceModel = %s\n", model::name().c_str());
    if (model::isModel(model::QLS_500, model::TKV_MX) && CMD_MENU_GetMenuStatus() == 1 &&
        VISCA_CtrlMenu(stCtrl.enPanTiltType) == 0)
        return 0;

    PT_MOTION_CTRL_S stMotion{};
    stMotion.enMotionType = viscaTypeToPTMotion(stCtrl.enPanTiltType);
    stMotion.stPos = {stCtrl.u16PanPos, stCtrl.u16TiltPos};
    PT_API_CalcMotionType(&stMotion.enMotionType);
    setSpeed(stCtrl, &stMotion);
    BSP_PTPosFromVisca(0, &stMotion.stPos);
    const BU_S32 s32Ret = BSP_PTCtrlMotion(PT_CTRL_E_FROM_VISCA, &stMotion, pstInfo);
    if (stCtrl.enPanTiltType != VISCA_MSG_E_PT_HOME) return s32Ret;

    const BU_S32 s32ZoomRet = zoomHome();
    if (s32ZoomRet == -1) LOG_INFO("zf goto preset error\n");
    return s32ZoomRet;
}

BU_S32 viscaCtrlPTSpeed(tagVISCA_CTRL_INFO_S *pstInfo)
{
    const auto [enType, u32Param] = pstInfo->stPTSpeedCtrl;
    BU_S32 s32Ret = -1;
    switch (enType) {
    case VISCA_MSG_E_PTSPEED_MATCH_ON:
    case VISCA_MSG_E_PTSPEED_MATCH_OFF:
        s32Ret = coded<PT_API_SetPtSpeedMatch>(enType);
        break;
    case VISCA_MSG_E_PAN_SPEED:
        s32Ret = direct<PT_API_SetPanSpeed>(u32Param);
        break;
    case VISCA_MSG_E_Tilt_SPEED:
        s32Ret = direct<PT_API_SetTileSpeed>(u32Param);
        break;
    case VISCA_MSG_E_PTSPEED_ACCURACY:
        if (const BU_S32 s32Accuracy = cameraOf<codes::SPEED_ACCURACIES>(u32Param); s32Accuracy != NONE)
            s32Ret = PT_API_SetSpeedAccuracy(0, s32Accuracy, BU_TRUE);
        break;
    default:
        break; // refused
    }
    TRACE("Type[%d]  \n", enType);
    return s32Ret;
}
