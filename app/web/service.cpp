// Start and stop of the web service.
#include "service.h"

#include "camera/systemService.h"
#include "handlers.h"
#include "model/model.h"
#include "register.h"
#include "util/log.h"
#include "web/panelPayload.h"
#include "web/web.h"

namespace
{
constexpr BU_S32 HTTP_PORT = 80, HTTPS_PORT = 443;
constexpr BU_S32 VIRTUAL_KEY = 1; ///< item of the business event

void registerEvents()
{
    WEB_CMD_InitIspHandler();
    WEB_CMD_InitColorMatrixHandler();
    WEB_CMD_InitLensHandler();
    WEB_CMD_InitPtHandler();
    WEB_CMD_InitSysHandler();
    WEB_CMD_InitBusinessHandler();
    WEB_CMD_VirInit();
    WEB_CMD_InitTrackHandler();
    WEB_CMD_InitMppHandler();
    WEB_CMD_InitMediaHandler();
    WEB_CMD_InitRecordHandler();
    WEB_CMD_InitCustomHandler();
}
} // namespace

BU_S32 BSP_StartHttpService()
{
    TRACE("DeviceModel=%s\n", model::name().c_str());
    registerEvents();
    WEB_RPC_InitForAppMain();
    UTIL_TRACE_Print("[Info][AppService:Web] Rpc listener init ok.\n");
    SYSTEM_API_SetHttpPort(HTTP_PORT, HTTPS_PORT);
    return 0;
}

BU_S32 BSP_StopHttpService()
{
    SYSTEM_API_StopHttpDaemon();
    WEB_RPC_UnInitForAppMain(BU_FALSE);
    WEB_CMD_VirDestroy();
    return 0;
}

void webRpcBusinessHandler(tag_WEB_RPC_PANEL_REQ_PAYLOAD_S *req, tag_WEB_RPC_PANEL_RES_PAYLOAD_S *res)
{
    UTIL_TRACE_Print("-- Business Get %d\n", req->s32EventType);
    if (req->s32EventType == VIRTUAL_KEY) WEB_CMD_VirEmit(req, res);
}

BU_BOOL _WEB_CMD_ParamCheckReturn(const void *p1, const void *p2)
{
    if (p1 && p2) return BU_FALSE;
    constexpr BU_CHAR TEXT[] = "%s, %d, param is error, p1:%p, p2:%p\n";
    UTIL_TRACE_Print(TEXT, __func__, __LINE__, p1, p2);
    UTIL_LOG_Print(UTIL_LOG_LEVEL_E_ERROR, nullptr, TEXT, __func__, __LINE__, p1, p2);
    return BU_TRUE;
}
