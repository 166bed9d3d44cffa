// Pan and tilt: commands, registration, position.
#include "camera/motion.h"

#include "camera/menu.h"
#include "camera/picture.h"
#include "journalText.h"
#include "motion/standby.h"
#include "service.h"
#include "speed.h"
#include "util/journal.h"

#include <iterator>

namespace
{
using namespace motion;

constexpr BU_S32 MOUNT_CEILING = 0;

/// The eight directions: their signs (right and up are positive), and each one's opposite.
constexpr struct {
    BU_S32 s32Pan, s32Tilt;
    PT_MOTION_TYPE_E enOpposite;
} DIRECTIONS[] = {
    {0, 1, PT_MOTION_E_DOWN},        // up
    {0, -1, PT_MOTION_E_UP},         // down
    {-1, 0, PT_MOTION_E_RIGHT},      // left
    {1, 0, PT_MOTION_E_LEFT},        // right
    {-1, 1, PT_MOTION_E_RIGHT_DOWN}, // left up
    {-1, -1, PT_MOTION_E_RIGHT_UP},  // left down
    {1, 1, PT_MOTION_E_LEFT_DOWN},   // right up
    {1, -1, PT_MOTION_E_LEFT_UP},    // right down
};
static_assert(std::size(DIRECTIONS) == PT_MOTION_E_STOP);

bool isDirection(PT_MOTION_TYPE_E enType) { return enType >= PT_MOTION_E_UP && enType < PT_MOTION_E_STOP; }
bool isSource(PT_CTRL_FROM_E enFrom) { return enFrom >= 0 && enFrom < PT_CTRL_E_FROM_BUTT; }
bool isType(PT_MOTION_TYPE_E enType) { return enType >= PT_MOTION_E_UP && enType < PT_MOTION_E_BUTT; }

/// Starts a move with a target. @return when it ends
BU_S64 startMove(const Session &session, const PT_MOTION_CTRL_S &stMotion, HeadSpeed stSpeed, bool bTogether)
{
    const auto position = [](BU_U32 u32) { return static_cast<BU_S32>(u32); };
    switch (stMotion.enMotionType) {
    case PT_MOTION_E_RESET:
        return session->head.calibrate(session.s64NowUs, stSpeed);
    case PT_MOTION_E_HOME:
        return session->head.moveTo(session.s64NowUs, {MOTOR_CENTRE, MOTOR_CENTRE}, stSpeed, bTogether);
    default:
        return session->head.moveTo(session.s64NowUs,
                                    {position(stMotion.stPos.u32PanPos), position(stMotion.stPos.u32TiltPos)}, stSpeed,
                                    bTogether);
    }
}

BU_S32 moveWithTarget(PT_CTRL_FROM_E enFrom, const PT_MOTION_CTRL_S &stMotion, const void *pvPrivate)
{
    const bool bAbsolute = stMotion.enMotionType == PT_MOTION_E_ABS_POS;
    const HeadSpeed stSpeed = bAbsolute ? headSpeed(stMotion, true) : fullHeadSpeed();
    const bool bTogether = arrivesTogether(enFrom);
    const Session session;
    if (!session->bHeadStarted) return -1;
    session->moves.supersede(HEAD);
    const BU_S64 s64EndUs = startMove(session, stMotion, stSpeed, bTogether);
    session->moves.begin(HEAD, s64EndUs, End(session->astHeadSources[enFrom], pvPrivate));
    return 1;
}

BU_S32 drive(const PT_MOTION_CTRL_S &stMotion)
{
    const HeadSpeed stSpeed = headSpeed(stMotion, false);
    const Session session;
    if (!session->bHeadStarted) return -1;
    session->moves.supersede(HEAD);
    if (isDirection(stMotion.enMotionType)) {
        const auto &stDirection = DIRECTIONS[stMotion.enMotionType];
        session->head.drive(session.s64NowUs, stDirection.s32Pan, stDirection.s32Tilt, stSpeed);
    } else
        session->head.stop(session.s64NowUs);
    return 0;
}
} // namespace

BU_S32 PT_API_CalcMotionType(PT_MOTION_TYPE_E *penType)
{
    if (const auto injected = journal::ask(__func__, penType)) return *injected;
    if (!penType) return -1;
    BU_S32 s32Mount = MOUNT_CEILING + 1;
    SYS_API_GetMountMode(&s32Mount);
    if (s32Mount == MOUNT_CEILING && isDirection(*penType)) *penType = DIRECTIONS[*penType].enOpposite;
    return 0;
}

BU_S32 PT_Register()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    return Session()->bHeadStarted ? 0 : -1;
}

BU_S32 BSP_PTProcInit(BU_S32 s32Dev, void *pvParam)
{
    if (const auto injected = journal::call(__func__, s32Dev, pvParam)) return *injected;
    if (s32Dev != 0) return -1;
    loadGeometry();
    const Session session;
    session->moves.drop(HEAD);
    session->head.place({MOTOR_CENTRE, MOTOR_CENTRE});
    session->bHeadStarted = true;
    return 0;
}

BU_S32 BSP_PTCtrlMotion(PT_CTRL_FROM_E enFrom, const PT_MOTION_CTRL_S *pstMotion, void *pvPrivate)
{
    if (const auto injected = journal::call(__func__, enFrom, pstMotion, pvPrivate)) return *injected;
    if (!pstMotion || pstMotion->u32PTDev != 0 || !isSource(enFrom) || !isType(pstMotion->enMotionType)) return -1;
    if (isStandby() && pstMotion->enMotionType != PT_MOTION_E_STOP) return -1;
    return pstMotion->enMotionType <= PT_MOTION_E_STOP ? drive(*pstMotion)
                                                       : moveWithTarget(enFrom, *pstMotion, pvPrivate);
}

BU_S32 BSP_PTRegisterRetCallFunc(BU_S32 s32Dev, PT_CTRL_FROM_E enFrom, const PT_CTRL_CALL_FUNC_S *pstRegistration)
{
    if (const auto injected = journal::call(__func__, s32Dev, enFrom, pstRegistration)) return *injected;
    if (s32Dev != 0 || !isSource(enFrom) || !pstRegistration || pstRegistration->enFrom != enFrom) return -1;
    return registerEnd(motion::motion().astHeadSources[enFrom], pstRegistration->pfnPTCtrlEndCall,
                       pstRegistration->s32PrivateSize);
}

BU_S32 BSP_PTGetCurPos(BU_S32 s32Dev, PT_POS_S *pstPos, PT_DEV_TYPE_E enType)
{
    if (const auto injected = journal::ask(__func__, s32Dev, pstPos, enType)) return *injected;
    if (s32Dev != 0 || !pstPos || enType != PT_DEV_TYPE_PAN_TILE_E) return -1;
    const HeadPos stPos = currentPosition().stHead;
    *pstPos = {static_cast<BU_U32>(stPos.s32Pan), static_cast<BU_U32>(stPos.s32Tilt)};
    return 0;
}
