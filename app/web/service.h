/// What the web handlers share, and the handler of actions that belong to no page.
#pragma once

#include "base/types.h"

struct tag_WEB_RPC_PANEL_REQ_PAYLOAD_S;
struct tag_WEB_RPC_PANEL_RES_PAYLOAD_S;

/// Item 1 is a key of the virtual remote; any other does nothing.
void webRpcBusinessHandler(tag_WEB_RPC_PANEL_REQ_PAYLOAD_S *req, tag_WEB_RPC_PANEL_RES_PAYLOAD_S *res);

/// Says so when a payload is missing. @return BU_TRUE: the handler has to return
BU_BOOL _WEB_CMD_ParamCheckReturn(const void *p1, const void *p2);
