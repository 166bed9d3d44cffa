// The handlers by event, and how a call goes through one.
#include "events.h"

#include "service.h"
#include "util/journal.h"
#include "util/log.h"
#include "web_client/client.h"

#include <array>

namespace
{
typedef void (*PFN_HANDLER)(WEB_RPC_PAYLOAD_S *, WEB_RPC_PAYLOAD_S *);
typedef WEB_RPC_PAYLOAD_S *(*PFN_CREATE)();
struct Event {
    PFN_HANDLER pfnHandler = nullptr;
    PFN_CREATE pfnRequest = nullptr, pfnResponse = nullptr;
};
/// Written while the service is stopped, read while it runs.
std::array<Event, WEB_RPC_EVENT_GROUP_E_BUTT> g_astEvents;

template <class T> BU_S32 registerAt(tag_WEB_RPC_EVENT_GROUP_E enEvent, T Event::*member, T pfn)
{
    const bool bEvent = enEvent > WEB_RPC_EVENT_GROUP_E_UNKNOW && enEvent < WEB_RPC_EVENT_GROUP_E_BUTT;
    if (!bEvent || !pfn) return -1;
    return web_rpc::whileStopped([=] { g_astEvents[static_cast<std::size_t>(enEvent)].*member = pfn; }) ? 0 : -1;
}

web_rpc::Result refused(WEB_CLIENT_RESULT_E enResult, std::string strWhy)
{
    LOG_WARN("%s\n", strWhy.c_str());
    return {enResult, std::move(strWhy)};
}
} // namespace

BU_S32 WEB_RPC_RegisterMainHandler(tag_WEB_RPC_EVENT_GROUP_E enEvent,
                                   void (*pfnHandler)(WEB_RPC_PAYLOAD_S *, WEB_RPC_PAYLOAD_S *))
{
    if (const auto injected = journal::call(__func__, enEvent)) return *injected;
    return registerAt(enEvent, &Event::pfnHandler, pfnHandler);
}

BU_S32 WEB_RPC_RegisterReqPayloadCreator(tag_WEB_RPC_EVENT_GROUP_E enEvent, WEB_RPC_PAYLOAD_S *(*pfnCreate)())
{
    if (const auto injected = journal::call(__func__, enEvent)) return *injected;
    return registerAt(enEvent, &Event::pfnRequest, pfnCreate);
}

BU_S32 WEB_RPC_RegisterResPayloadCreator(tag_WEB_RPC_EVENT_GROUP_E enEvent, WEB_RPC_PAYLOAD_S *(*pfnCreate)())
{
    if (const auto injected = journal::call(__func__, enEvent)) return *injected;
    return registerAt(enEvent, &Event::pfnResponse, pfnCreate);
}

web_rpc::Result web_rpc::callEvent(BU_U32 u32Event, const std::string &strImage)
{
    if (const auto injected = journal::ask("WEB_RPC_Call", u32Event)) return {*injected, "refused"};
    const Event stEvent = u32Event < g_astEvents.size() ? g_astEvents[u32Event] : Event{};
    if (!stEvent.pfnHandler || !stEvent.pfnRequest || !stEvent.pfnResponse)
        return refused(WEB_CLIENT_RESULT_E_UNKNOWN, "nobody handles event " + std::to_string(u32Event));
    const std::unique_ptr<WEB_RPC_PAYLOAD_S> pstRequest(stEvent.pfnRequest());
    if (strImage.size() != pstRequest->getSize())
        return refused(WEB_CLIENT_RESULT_E_REFUSED, "event " + std::to_string(u32Event) + " takes " +
                                                        std::to_string(pstRequest->getSize()) + " bytes, not " +
                                                        std::to_string(strImage.size()));
    std::string strRequest = strImage; // loadBytes takes no constant bytes
    pstRequest->loadBytes(strRequest.data(), static_cast<unsigned int>(strRequest.size()));
    const std::unique_ptr<WEB_RPC_PAYLOAD_S> pstResponse(stEvent.pfnResponse());
    stEvent.pfnHandler(pstRequest.get(), pstResponse.get());
    std::string strResponse(pstResponse->getSize(), '\0');
    pstResponse->dumpBytes(strResponse.data(), static_cast<unsigned int>(strResponse.size()));
    return {WEB_CLIENT_RESULT_E_OK, std::move(strResponse)};
}
