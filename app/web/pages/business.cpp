// Actions that belong to no panel: the keys of the virtual remote.
#include "page.h"
#include "util/log.h"
#include "virtualKey.h"

namespace
{
constexpr BU_S32 VIRTUAL_KEY = 1; // any other item does nothing

void webRpcBusinessHandler(tag_WEB_RPC_PANEL_REQ_PAYLOAD_S *req, tag_WEB_RPC_PANEL_RES_PAYLOAD_S *res)
{
    UTIL_TRACE_Print("-- Business Get %d\n", req->s32EventType);
    if (req->s32EventType == VIRTUAL_KEY) WEB_CMD_VirEmit(req, res);
}

constexpr void (*EVENTS[])() = {WEB_RPC_RegisterHandler<WEB_RPC_EVENT_GROUP_E_BUSINESS, webRpcBusinessHandler>};
} // namespace

const web::Page web::BUSINESS{EVENTS};
