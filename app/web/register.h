/// Registration of the web events, group by group; no group is registered twice, none is taken back.
#pragma once

#include "web/webRpc.h"

/// Registers a handler and the factories of its request and its response.
template <class Req, class Res>
void WEB_RPC_RegisterHandler(tag_WEB_RPC_EVENT_GROUP_E enEvent, void (*pfnHandler)(Req *, Res *))
{
    // The library calls it with payloads that its own factories made, so the pointers are what they are cast from.
    WEB_RPC_RegisterMainHandler(enEvent,
                                reinterpret_cast<void (*)(WEB_RPC_PAYLOAD_S *, WEB_RPC_PAYLOAD_S *)>(pfnHandler));
    WEB_RPC_RegisterReqPayloadCreator(enEvent, fnCreatePayloadInstance<Req>);
    WEB_RPC_RegisterResPayloadCreator(enEvent, fnCreatePayloadInstance<Res>);
}

// Each @return 0.
BU_S32 WEB_CMD_InitIspHandler();
BU_S32 WEB_CMD_InitColorMatrixHandler();
BU_S32 WEB_CMD_InitLensHandler();
BU_S32 WEB_CMD_InitPtHandler();
BU_S32 WEB_CMD_InitSysHandler();
BU_S32 WEB_CMD_InitBusinessHandler();
BU_S32 WEB_CMD_InitTrackHandler();
BU_S32 WEB_CMD_InitMppHandler();
BU_S32 WEB_CMD_InitMediaHandler();
BU_S32 WEB_CMD_InitRecordHandler();
BU_S32 WEB_CMD_InitCustomHandler(); ///< the four after it
BU_S32 WEB_CMD_InitGeneralHandler();
BU_S32 WEB_CMD_InitDashBoardHandle();
BU_S32 WEB_CMD_InitNetworkHandler();
BU_S32 WEB_CMD_InitAVideoHandler();
