// Pan/tilt panel: speeds, moves, presets, zoom. There is one head with one lens, device 0.
#include "camera/menu.h"
#include "camera/motion.h"
#include "camera/picture.h"
#include "camera/preset.h"
#include "camera/zoom.h"
#include "panel.h"
#include "util/log.h"

namespace
{
using namespace web;

bool isSuperfine(BU_S32 s32Dev)
{
    BU_S32 s32Mode = PT_SPEED_MODE_STANDARD;
    PT_API_GetSpeedMode(s32Dev, &s32Mode, BU_FALSE);
    return s32Mode == PT_SPEED_MODE_SUPERFINE;
}

// Each speed has a level of its own in either speed mode.
template <Get Standard, Get Superfine> BU_S32 getSpeed(BU_S32 s32Dev, BU_S32 *ps32Level, BU_BOOL bReread)
{
    return (isSuperfine(s32Dev) ? Superfine : Standard)(s32Dev, ps32Level, bReread);
}
template <Set Standard, Set Superfine> void setSpeed(BU_S32 s32Dev, const Request &req, Response &)
{
    (isSuperfine(s32Dev) ? Superfine : Standard)(s32Dev, req.s32Value0, BU_TRUE, BU_TRUE);
}

void setSpeedMode(BU_S32 s32Dev, const Request &req, Response &)
{
    PT_API_SetSpeedMode(s32Dev, req.s32Value0, BU_TRUE);
}

constexpr struct {
    BU_S32 s32Right, s32Up;
    PT_MOTION_TYPE_E enType;
} DIRECTIONS[] = {
    {-1, -1, PT_MOTION_E_LEFT_DOWN}, {-1, 0, PT_MOTION_E_LEFT}, {-1, 1, PT_MOTION_E_LEFT_UP},
    {0, -1, PT_MOTION_E_DOWN},       {0, 0, PT_MOTION_E_STOP},  {0, 1, PT_MOTION_E_UP},
    {1, -1, PT_MOTION_E_RIGHT_DOWN}, {1, 0, PT_MOTION_E_RIGHT}, {1, 1, PT_MOTION_E_RIGHT_UP},
    {-2, -2, PT_MOTION_E_HOME},
};

void driveHead(BU_S32 s32Dev, const Request &req, Response &)
{
    const auto row = std::ranges::find_if(DIRECTIONS, [&](const auto &stDirection) {
        return stDirection.s32Right == req.s32Value0 && stDirection.s32Up == req.s32Value1;
    });
    if (row == std::end(DIRECTIONS)) return;
    PT_MOTION_CTRL_S stMotion{};
    stMotion.u32PTDev = static_cast<BU_U32>(s32Dev);
    stMotion.enMotionType = row->enType;
    BU_S32 s32Pan = 0, s32Tilt = 0;
    if (isSuperfine(s32Dev)) {
        PT_API_GetPanSpeedSuperfine(s32Dev, &s32Pan, BU_FALSE);
        PT_API_GetTileSpeedSuperfine(s32Dev, &s32Tilt, BU_FALSE);
        PT_API_CalcMotionSpeed(PT_CTRL_E_FROM_TKV_SUPERFINE, &stMotion, s32Pan, s32Tilt);
    } else {
        PT_API_GetPanSpeed(s32Dev, &s32Pan, BU_FALSE);
        PT_API_GetTileSpeed(s32Dev, &s32Tilt, BU_FALSE);
        PT_API_CalcMotionSpeed(PT_CTRL_E_FROM_OTHER, &stMotion, s32Pan, s32Tilt);
    }
    BSP_PTCtrlMotion(PT_CTRL_E_FROM_OTHER, &stMotion, nullptr);
}

/// Saving and deleting answer with their result, where other sets have their side effects.
void onPreset(BU_S32, const Request &req, Response &res)
{
    enum { SAVE, RECALL, DELETE, HOME };
    const BU_S32 s32Preset = req.s32Value1;
    const auto answer = [&res](BU_S32 s32Result) { res.s32SideEffectBitmap = static_cast<BU_U64>(BU_S64{s32Result}); };
    switch (req.s32Value0) {
    case SAVE:
        return answer(PRESET_API_SetCur(s32Preset, ""));
    case RECALL:
        PRESET_API_GotoById(s32Preset, PT_CTRL_E_FROM_OTHER, nullptr);
        return;
    case DELETE:
        return answer(PRESET_API_DeleteById(s32Preset));
    case HOME:
        PRESET_API_GotoHome(PT_CTRL_E_FROM_OTHER, nullptr);
        return;
    default:
        return;
    }
}

/// The request gives the direction only; the speed is the configured one.
void driveZoom(BU_S32 s32Dev, const Request &req, Response &)
{
    BU_S32 s32Speed = 0;
    PTZ_API_GetZoomSpd(s32Dev, &s32Speed, BU_FALSE);
    if (req.s32Value0 == 0)
        PTZ_API_SetZoomAct(s32Dev, ZOOM_ACTION_E_STOP, 0);
    else
        PTZ_API_SetZoomAct(s32Dev, req.s32Value0 > 0 ? ZOOM_ACTION_E_TELE : ZOOM_ACTION_E_WIDE,
                           static_cast<BU_U8>(s32Speed));
}

constexpr Item ITEMS[] = {
    {1, getSpeed<PT_API_GetPanSpeed, PT_API_GetPanSpeedSuperfine>,
     setSpeed<PT_API_SetPanSpeed, PT_API_SetPanSpeedSuperfine>},
    {2, getSpeed<PT_API_GetTileSpeed, PT_API_GetTileSpeedSuperfine>,
     setSpeed<PT_API_SetTileSpeed, PT_API_SetTileSpeedSuperfine>},
    {3, PRESET_API_GetPresetSpeed, set<PRESET_API_SetPresetSpeed>},
    {4, PT_API_GetPowerUpPtzPos, set<PT_API_SetPowerUpPtzPos>},
    {5, PTZ_API_GetZoomSpd, set<PTZ_API_SetZoomSpd>},
    {6, cameraGet<SYS_API_GetMountMode>, cameraSet<SYS_API_SetMountMode>},
    {7, PT_API_GetPtSpeedMatch, set<PT_API_SetPtSpeedMatch>},
    {9, nullptr, driveHead},
    {10, nullptr, onPreset},
    {11, nullptr, driveZoom},
    {12, PTZ_API_GetMaxDZoomTime, set<PTZ_API_SetMaxDZoomTime>},
    {13, PTZ_API_GetDZoomMode, set<PTZ_API_SetDZoomMode>, webItems(12)},
    {14, PT_API_GetSpeedMode, setSpeedMode, webItems(1, 2)},
};

void webRpcGetPtHandler(Request *req, Response *res)
{
    res->bEnabled = BU_TRUE;
    UTIL_TRACE_Print("-- Pt Get %d\n", req->s32EventType);
    answerGet(find(ITEMS, req->s32EventType), 0, *res);
}

void webRpcSetPtHandler(Request *req, Response *res)
{
    UTIL_TRACE_Print("Set %d {%d %d %d %d}\n", req->s32EventType, req->s32Value0, req->s32Value1, req->s32Value2,
                     req->s32Value3);
    res->s32SideEffectBitmap = 0;
    answerSet(find(ITEMS, req->s32EventType), 0, *req, *res);
}

constexpr void (*EVENTS[])() = {WEB_RPC_RegisterHandler<WEB_RPC_EVENT_GROUP_E_GET_PT, webRpcGetPtHandler>,
                                WEB_RPC_RegisterHandler<WEB_RPC_EVENT_GROUP_E_SET_PT, webRpcSetPtHandler>};
} // namespace

const web::Page web::PAN_TILT{EVENTS};
