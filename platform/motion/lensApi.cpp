// Zoom and focus: commands, registration, positions, focusing.
#include "board/profile.h"
#include "camera/focus.h"
#include "camera/motion.h"
#include "camera/picture.h"
#include "camera/settingEvent.h"
#include "camera/zoom.h"
#include "journalText.h"
#include "motion/standby.h"
#include "service.h"
#include "settings/settings.h"
#include "util/journal.h"

#include <algorithm>
#include <cstdio>
#include <string_view>

namespace
{
using namespace motion;

constexpr BU_S32 AF_VERSION_SIZE = 64;
constexpr BU_S32 SCENE_DISTANCE_CM = 500;

bool isSource(ZF_CTRL_FROM_E enFrom) { return enFrom >= 0 && enFrom < ZF_CTRL_E_FROM_BUTT; }

BU_S32 position(BU_U32 u32Pos) { return static_cast<BU_S32>(std::min<BU_U32>(u32Pos, INT32_MAX)); }

BU_S32 zoomTarget(const ZF_MOTION_CTRL_S &stMotion)
{
    return stMotion.bUseZoomTime ? zoomPosOf(stMotion.fZoomTime) : position(stMotion.u32ZoomPos);
}

/// The units that a command moves.
Units unitsOf(ZF_MOTION_TYPE_E enType)
{
    switch (enType) {
    case ZF_E_ZOOM_STOP:
    case ZF_E_ZOOM_TELE:
    case ZF_E_ZOOM_WIDE:
    case ZF_E_ZOOM_DIRECT_POS:
        return ZOOM;
    case ZF_E_FOCUS_STOP:
    case ZF_E_FOCUS_FAR:
    case ZF_E_FOCUS_NEAR:
    case ZF_E_FOCUS_DIRECT_POS:
        return FOCUS;
    case ZF_E_ZOOM_FOCUS_DIRECT_POS:
        return ZOOM | FOCUS;
    }
    return 0;
}

bool hasTarget(ZF_MOTION_TYPE_E enType)
{
    return enType == ZF_E_ZOOM_DIRECT_POS || enType == ZF_E_FOCUS_DIRECT_POS || enType == ZF_E_ZOOM_FOCUS_DIRECT_POS;
}

bool isStop(ZF_MOTION_TYPE_E enType) { return enType == ZF_E_ZOOM_STOP || enType == ZF_E_FOCUS_STOP; }

/// @return when a move with a target ends
BU_S64 start(Lens &lens, BU_S64 s64NowUs, const ZF_MOTION_CTRL_S &stMotion)
{
    BU_S64 s64EndUs = s64NowUs;
    switch (stMotion.enMotionType) {
    case ZF_E_ZOOM_STOP:
        lens.zoomStop(s64NowUs);
        break;
    case ZF_E_ZOOM_TELE:
        lens.zoomTo(s64NowUs, lens.zoomEnd(), stMotion.u8ZoomSpd);
        break;
    case ZF_E_ZOOM_WIDE:
        lens.zoomTo(s64NowUs, 0, stMotion.u8ZoomSpd);
        break;
    case ZF_E_ZOOM_DIRECT_POS:
        s64EndUs = lens.zoomTo(s64NowUs, zoomTarget(stMotion), stMotion.u8ZoomSpd);
        if (stMotion.bTriggerFocusAfterZoom) lens.focusOnce(s64NowUs, s64EndUs);
        break;
    case ZF_E_FOCUS_STOP:
        lens.focusStop(s64NowUs);
        break;
    case ZF_E_FOCUS_FAR:
        lens.focusTo(s64NowUs, FOCUS_FAR_END, stMotion.u8FocusSpd);
        break;
    case ZF_E_FOCUS_NEAR:
        lens.focusTo(s64NowUs, FOCUS_NEAR_END, stMotion.u8FocusSpd);
        break;
    case ZF_E_FOCUS_DIRECT_POS:
        s64EndUs = lens.focusTo(s64NowUs, position(stMotion.u32FocusPos), FOCUS_SPEED_MAX);
        break;
    case ZF_E_ZOOM_FOCUS_DIRECT_POS: {
        s64EndUs = lens.zoomTo(s64NowUs, zoomTarget(stMotion), stMotion.u8ZoomSpd);
        s64EndUs = std::max(s64EndUs, lens.focusTo(s64NowUs, position(stMotion.u32FocusPos), FOCUS_SPEED_MAX));
        break;
    }
    }
    return s64EndUs;
}

/// Focuses once; a focus command that runs is over.
BU_S32 focusNow()
{
    const Session session;
    if (!session->bLensStarted || isStandby()) return -1;
    session->moves.supersede(FOCUS);
    session->lens.focusOnce(session.s64NowUs, session.s64NowUs);
    return 0;
}

BU_S32 focusTo(BU_S32 s32Pos)
{
    if (s32Pos < FOCUS_FAR_END || s32Pos > FOCUS_NEAR_END) return -1;
    ZF_MOTION_CTRL_S stMotion{};
    stMotion.enMotionType = ZF_E_FOCUS_DIRECT_POS;
    stMotion.u8FocusSpd = FOCUS_SPEED_MAX;
    stMotion.u32FocusPos = static_cast<BU_U32>(s32Pos);
    return lensMotion(ZF_CTRL_E_FROM_OTHER, stMotion, nullptr) == 1 ? 0 : -1;
}

/// The height of the nearest face, as a fraction of the picture's; 0: none.
float tallestFace(const tagFaceRectInfo *pstFaces, BU_S32 s32Count)
{
    float fTallest = 0;
    for (BU_S32 i = 0; i < s32Count; ++i) fTallest = std::max(fTallest, pstFaces[i].ymax - pstFaces[i].ymin);
    return fTallest;
}

/// An automatic focus that is switched on or off takes effect at once, not with the next command or question.
void listenToFocusMode()
{
    static const BU_S32 s32Listener = CFG_SETTING_Listen([](const CFG_SETTING_EVENT_S &stEvent) {
        if (std::string_view(stEvent.pcKey) == "FocusAuto") const Session session;
    });
    (void)s32Listener;
}
} // namespace

namespace motion
{
BU_S32 lensMotion(ZF_CTRL_FROM_E enFrom, const ZF_MOTION_CTRL_S &stMotion, const void *pvPrivate)
{
    const Session session;
    const Units units = unitsOf(stMotion.enMotionType);
    if (!session->bLensStarted || units == 0 || (isStandby() && !isStop(stMotion.enMotionType))) return -1;
    session->moves.supersede(units);
    // As the zoom starts to move, an automatic focus leaves a command of its own.
    if (session->lens.isAuto() && stMotion.enMotionType != ZF_E_ZOOM_STOP) session->moves.supersede(FOCUS);
    const BU_S64 s64EndUs = start(session->lens, session.s64NowUs, stMotion);
    if (!hasTarget(stMotion.enMotionType)) return 0;
    session->moves.begin(units, s64EndUs, End(session->astLensSources[enFrom], pvPrivate));
    return 1;
}
} // namespace motion

BU_S32 ZF_API_StartService()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    loadGeometry();
    listenToFocusMode();
    const BU_S32 s32Focus = settings::value(settings::AF_API_FocusAbsRange);
    const BU_S32 s32SceneCm = std::max(1, BSP_PROFILE_GetInt("lens/sceneDistanceCm", SCENE_DISTANCE_CM));
    const Session session;
    session->moves.drop(ZOOM | FOCUS);
    session->s32SceneCm = s32SceneCm;
    session->lens.setScene(session.s64NowUs, s32SceneCm);
    session->lens.place(0, s32Focus);
    session->bLensStarted = true;
    return 0;
}

BU_S32 ZF_Register()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    return Session()->bLensStarted ? 0 : -1;
}

BU_S32 BSP_ZFCtrlMotion(ZF_CTRL_FROM_E enFrom, const ZF_MOTION_CTRL_S *pstMotion, void *pvPrivate)
{
    if (const auto injected = journal::call(__func__, enFrom, pstMotion, pvPrivate)) return *injected;
    if (!pstMotion || pstMotion->u32ZfDev != 0 || !isSource(enFrom)) return -1;
    return lensMotion(enFrom, *pstMotion, pvPrivate);
}

BU_S32 BSP_ZFRegisterRetCallFunc(ZF_CTRL_FROM_E enFrom, const ZF_CTRL_CALL_FUNC_S *pstRegistration)
{
    if (const auto injected = journal::call(__func__, enFrom, pstRegistration)) return *injected;
    if (!isSource(enFrom) || !pstRegistration || pstRegistration->enFrom != enFrom) return -1;
    return registerEnd(motion::motion().astLensSources[enFrom], pstRegistration->pfnZFCtrlEndCall,
                       pstRegistration->s32PrivateSize);
}

BU_S32 BSP_ZFRegisterRetCallFunc(ZF_CTRL_FROM_E enFrom, const PT_CTRL_CALL_FUNC_S *pstRegistration)
{
    if (!pstRegistration) return -1;
    const ZF_CTRL_CALL_FUNC_S stRegistration{static_cast<ZF_CTRL_FROM_E>(pstRegistration->enFrom),
                                             pstRegistration->pfnPTCtrlEndCall, pstRegistration->s32PrivateSize};
    return BSP_ZFRegisterRetCallFunc(enFrom, &stRegistration);
}

BU_S32 PTZ_API_SetZoomAct(BU_S32 s32Dev, ZOOM_ACTION_E enAction, BU_U8 u8Speed)
{
    if (const auto injected = journal::call(__func__, s32Dev, enAction, u8Speed)) return *injected;
    ZF_MOTION_CTRL_S stMotion{};
    stMotion.u8ZoomSpd = u8Speed;
    stMotion.enMotionType = enAction == ZOOM_ACTION_E_TELE   ? ZF_E_ZOOM_TELE
                            : enAction == ZOOM_ACTION_E_WIDE ? ZF_E_ZOOM_WIDE
                                                             : ZF_E_ZOOM_STOP;
    const bool bStop = stMotion.enMotionType == ZF_E_ZOOM_STOP;
    if (s32Dev != 0 || (bStop && enAction != ZOOM_ACTION_E_STOP)) return -1;
    return lensMotion(ZF_CTRL_E_FROM_OTHER, stMotion, nullptr);
}

BU_S32 PTZ_API_GetZoomPos(BU_S32 s32Dev, BU_S32 *ps32Pos)
{
    if (const auto injected = journal::ask(__func__, s32Dev, ps32Pos)) return *injected;
    if (s32Dev != 0 || !ps32Pos) return -1;
    *ps32Pos = currentPosition().s32Zoom;
    return 0;
}

BU_S32 PTZ_API_GetZoomTime(BU_S32 s32Dev, BU_FLOAT *pfTimes)
{
    if (const auto injected = journal::ask(__func__, s32Dev, pfTimes)) return *injected;
    if (s32Dev != 0 || !pfTimes) return -1;
    *pfTimes = static_cast<BU_FLOAT>(magnificationOf(currentPosition().s32Zoom));
    return 0;
}

BU_S32 PTZ_API_GetFieldOfView(BU_S32 s32Dev, BU_FLOAT *pfDegrees)
{
    if (const auto injected = journal::ask(__func__, s32Dev, pfDegrees)) return *injected;
    static const auto s_fWide = static_cast<BU_FLOAT>(BSP_PROFILE_GetInt("lens/fovDegrees", 60));
    constexpr BU_FLOAT TELE_MODE = 2, CORRECTED = 1.04F; // the middle of the sensor alone; edges that were bent cut off
    BU_FLOAT fTimes = 1;
    BU_S32 s32Crop = BU_FALSE;
    BU_BOOL bCorrected = BU_FALSE;
    if (!pfDegrees || PTZ_API_GetZoomTime(s32Dev, &fTimes) != 0) return -1;
    SYS_API_GetSensorCrop(&s32Crop, BU_FALSE);
    AF_API_GetDistortionCorrection(&bCorrected, BU_FALSE);
    *pfDegrees = s_fWide / (fTimes * (s32Crop ? TELE_MODE : 1) * (bCorrected ? CORRECTED : 1));
    return 0;
}

BU_S32 PTZ_API_SetZoomTime(BU_S32 s32Dev, BU_FLOAT fTimes, BU_U8 u8Speed)
{
    if (const auto injected = journal::call(__func__, s32Dev, fTimes, u8Speed)) return *injected;
    if (s32Dev != 0) return -1;
    ZF_MOTION_CTRL_S stMotion{};
    stMotion.enMotionType = ZF_E_ZOOM_DIRECT_POS;
    stMotion.bUseZoomTime = BU_TRUE;
    stMotion.fZoomTime = fTimes;
    stMotion.u8ZoomSpd = u8Speed;
    return lensMotion(ZF_CTRL_E_FROM_OTHER, stMotion, nullptr) == 1 ? 0 : -1;
}

BU_S32 AF_API_SetFocusAct(BU_S32 s32Dev, FOCUS_ACTION_E enAction, BU_U8 u8Speed)
{
    if (const auto injected = journal::call(__func__, s32Dev, enAction, u8Speed)) return *injected;
    ZF_MOTION_CTRL_S stMotion{};
    stMotion.u8FocusSpd = u8Speed;
    stMotion.enMotionType = enAction == FOCUS_ACTION_E_FAR    ? ZF_E_FOCUS_FAR
                            : enAction == FOCUS_ACTION_E_NEAR ? ZF_E_FOCUS_NEAR
                                                              : ZF_E_FOCUS_STOP;
    const bool bStop = stMotion.enMotionType == ZF_E_FOCUS_STOP;
    if (s32Dev != 0 || (bStop && enAction != FOCUS_ACTION_E_STOP)) return -1;
    return lensMotion(ZF_CTRL_E_FROM_OTHER, stMotion, nullptr);
}

BU_S32 AF_API_GetFocusPos(BU_S32 s32Dev, BU_S32 *ps32Pos)
{
    if (const auto injected = journal::ask(__func__, s32Dev, ps32Pos)) return *injected;
    if (s32Dev != 0 || !ps32Pos) return -1;
    *ps32Pos = *currentPosition().focus;
    return 0;
}

BU_S32 AF_API_SetFocusPos(BU_S32 s32Dev, BU_S32 s32Pos)
{
    if (const auto injected = journal::call(__func__, s32Dev, s32Pos)) return *injected;
    return s32Dev == 0 ? focusTo(s32Pos) : -1;
}

BU_S32 AF_API_GetFocusAbs(BU_S32 s32Dev, BU_S32 *ps32Pos, BU_BOOL bReread)
{
    if (const auto injected = journal::ask(__func__, s32Dev, ps32Pos, bReread)) return *injected;
    if (s32Dev != 0 || !ps32Pos) return -1;
    *ps32Pos = *currentPosition().focus;
    return 0;
}

BU_S32 AF_API_SetFocusAbs(BU_S32 s32Dev, BU_S32 s32Pos, BU_BOOL bSaveCfg, BU_BOOL bUpdate)
{
    if (const auto injected = journal::call(__func__, s32Dev, s32Pos, bSaveCfg, bUpdate)) return *injected;
    if (s32Dev != 0 || focusTo(s32Pos) != 0) return -1;
    return settings::set(settings::AF_API_FocusAbsRange, 0, s32Pos, bSaveCfg, bUpdate);
}

BU_S32 AF_API_TriggerAutoFocus(BU_S32 s32Dev)
{
    if (const auto injected = journal::call(__func__, s32Dev)) return *injected;
    return s32Dev == 0 ? focusNow() : -1;
}

BU_S32 AF_API_TriggerCurveCorrection()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    return focusNow();
}

BU_S32 AF_API_SetAFFrame(BU_S32 s32Dev, BU_S32 s32Fps)
{
    if (const auto injected = journal::call(__func__, s32Dev, s32Fps)) return *injected;
    if (s32Dev != 0 || s32Fps < 1) return -1;
    Session()->lens.setFrameRate(s32Fps);
    return 0;
}

BU_S32 AF_API_SetFaceInfo(const tagFaceRectInfo *pstFaces, BU_S32 s32Count)
{
    if (const auto injected = journal::ask(__func__, pstFaces, s32Count)) return *injected; // comes with every frame
    if (s32Count < 0 || (s32Count > 0 && !pstFaces)) return -1;
    BU_S32 s32Wanted = BU_FALSE;
    AF_API_GetFaceAF(0, &s32Wanted);
    const float fFace = s32Wanted ? tallestFace(pstFaces, s32Count) : 0;
    const Session session;
    const double dMagnification = magnificationOf(session->lens.zoomAt(session.s64NowUs));
    session->lens.setScene(session.s64NowUs, fFace > 0 ? faceDistanceCm(fFace, dMagnification) : session->s32SceneCm);
    return 0;
}

BU_S32 AF_API_StartLdc()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    return 0;
}

BU_S32 AF_API_StopLdc()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    return 0;
}

BU_S32 AF_Callback_MppIkSetup(void *pvParam)
{
    if (const auto injected = journal::call(__func__, pvParam)) return *injected;
    return 0;
}

BU_S32 AF_API_GetAFVersion(BU_S32 s32Dev, BU_CHAR *pcText)
{
    if (const auto injected = journal::ask(__func__, s32Dev)) return *injected;
    if (s32Dev != 0 || !pcText) return -1;
    std::snprintf(pcText, AF_VERSION_SIZE, "%s", BSP_PROFILE_GetText("versions/af", "1.0.0").c_str());
    return 0;
}
