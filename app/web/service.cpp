// Start and stop of the web service.
#include "web/web.h"

#include "api/api.h"
#include "camera/webPort.h"
#include "model/model.h"
#include "pages/page.h"
#include "pages/virtualKey.h"
#include "util/log.h"

namespace
{
constexpr BU_S32 HTTP_PORT = 80, HTTPS_PORT = 443;
} // namespace

BU_S32 BSP_StartHttpService()
{
    TRACE("DeviceModel=%s\n", model::name().c_str());
    for (const web::Page *pstPage : web::PAGES)
        for (const auto registerEvent : *pstPage) registerEvent();
    WEB_CMD_VirInit();
    for (const web::Subject *pstSubject : web::SUBJECTS) pstSubject->pfnStart();
    WEB_RPC_InitForAppMain();
    UTIL_TRACE_Print("[Info][AppService:Web] Rpc listener init ok.\n");
    SYSTEM_API_SetHttpPort(HTTP_PORT, HTTPS_PORT);
    return 0;
}

BU_S32 BSP_StopHttpService()
{
    SYSTEM_API_StopHttpDaemon();
    WEB_RPC_UnInitForAppMain(BU_FALSE);
    for (const web::Subject *pstSubject : web::SUBJECTS)
        if (pstSubject->pfnStop) pstSubject->pfnStop();
    WEB_CMD_VirDestroy();
    return 0;
}

BU_BOOL _WEB_CMD_ParamCheckReturn(const void *p1, const void *p2)
{
    if (p1 && p2) return BU_FALSE;
    constexpr BU_CHAR TEXT[] = "%s, %d, param is error, p1:%p, p2:%p\n";
    UTIL_TRACE_Print(TEXT, __func__, __LINE__, p1, p2);
    UTIL_LOG_Print(UTIL_LOG_LEVEL_E_ERROR, nullptr, TEXT, __func__, __LINE__, p1, p2);
    return BU_TRUE;
}
