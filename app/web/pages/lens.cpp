// Lens panel. There is one lens, device 0.
#include "camera/focus.h"
#include "panel.h"
#include "util/log.h"

#include <cstdlib>

namespace
{
using namespace web;

/// Unlike the zoom drive, the page chooses the speed: it is the magnitude of the value.
void driveFocus(BU_S32 s32Dev, const Request &req, Response &)
{
    const BU_S32 s32Drive = req.s32Value0;
    const auto u8Speed = static_cast<BU_U8>(std::llabs(s32Drive));
    AF_API_SetFocusAct(s32Dev,
                       s32Drive == 0  ? FOCUS_ACTION_E_STOP
                       : s32Drive > 0 ? FOCUS_ACTION_E_FAR
                                      : FOCUS_ACTION_E_NEAR,
                       u8Speed);
}

void correctCurve(BU_S32, const Request &, Response &) { AF_API_TriggerCurveCorrection(); }

constexpr Item ITEMS[] = {
    {1, AF_API_GetFocusModel, set<AF_API_SetFocusModel>}, {2, AF_API_GetFaceAF, set<AF_API_SetFaceAF>},
    {3, AF_API_GetFocusArea, set<AF_API_SetFocusArea>},   {4, AF_API_GetPtzTrigAf, set<AF_API_SetPtzTrigAf>},
    {5, AF_API_GetFocusAuto, set<AF_API_SetFocusAuto>},   {6, nullptr, driveFocus},
    {7, AF_API_GetFocusSpd, set<AF_API_SetFocusSpd>},     {8, nullptr, correctCurve},
};

void webRpcGetAfHandler(Request *req, Response *res)
{
    res->bEnabled = BU_TRUE;
    UTIL_TRACE_Print("-- Af Get %d\n", req->s32EventType);
    answerGet(find(ITEMS, req->s32EventType), 0, *res);
}

void webRpcSetAfHandler(Request *req, Response *res) { answerSet(find(ITEMS, req->s32EventType), 0, *req, *res); }

constexpr void (*EVENTS[])() = {WEB_RPC_RegisterHandler<WEB_RPC_EVENT_GROUP_E_GET_AF, webRpcGetAfHandler>,
                                WEB_RPC_RegisterHandler<WEB_RPC_EVENT_GROUP_E_SET_AF, webRpcSetAfHandler>};
} // namespace

const web::Page web::LENS{EVENTS};
