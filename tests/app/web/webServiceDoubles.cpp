#include "webServiceDoubles.h"

#include "camera/systemService.h"
#include "util/journal.h"

std::map<BU_S32, tagREGISTRATION_S> &registrations()
{
    static std::map<BU_S32, tagREGISTRATION_S> map;
    return map;
}

BU_S32 WEB_RPC_RegisterMainHandler(tag_WEB_RPC_EVENT_GROUP_E enEvent,
                                   void (*pfnHandler)(WEB_RPC_PAYLOAD_S *, WEB_RPC_PAYLOAD_S *))
{
    registrations()[enEvent].pfnHandler = pfnHandler;
    return journal::call(__func__, enEvent).value_or(0);
}

BU_S32 WEB_RPC_RegisterReqPayloadCreator(tag_WEB_RPC_EVENT_GROUP_E enEvent, WEB_RPC_PAYLOAD_S *(*pfnCreate)())
{
    registrations()[enEvent].pfnRequest = pfnCreate;
    return journal::call(__func__, enEvent).value_or(0);
}

BU_S32 WEB_RPC_RegisterResPayloadCreator(tag_WEB_RPC_EVENT_GROUP_E enEvent, WEB_RPC_PAYLOAD_S *(*pfnCreate)())
{
    registrations()[enEvent].pfnResponse = pfnCreate;
    return journal::call(__func__, enEvent).value_or(0);
}

BU_S32 WEB_RPC_InitForAppMain() { return journal::call(__func__).value_or(0); }
BU_S32 WEB_RPC_UnInitForAppMain(BU_BOOL bReserved) { return journal::call(__func__, bReserved).value_or(0); }
BU_S32 SYSTEM_API_StopHttpDaemon() { return journal::call(__func__).value_or(0); }
BU_S32 SYSTEM_API_SetHttpPort(BU_S32 s32Http, BU_S32 s32Https)
{
    return journal::call(__func__, s32Http, s32Https).value_or(0);
}
