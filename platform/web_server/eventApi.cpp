#include "eventApi.h"

#include "json.h"
#include "web/events.h"

namespace web
{
namespace
{
struct tagRULE_S {
    tag_WEB_RPC_EVENT_GROUP_E enEvent;
    Role enRole;
};
// Where the name of an event does not say who may call it: what changes the camera's place in the network or takes
// everything back, and what answers with passwords and stream keys.
constexpr std::array RULES{
    tagRULE_S{WEB_RPC_EVENT_GROUP_E_SYSTEM_FACTORY_RESET, Role::ADMIN},
    tagRULE_S{WEB_RPC_EVENT_GROUP_E_SET_ETH_CFG, Role::ADMIN},
    tagRULE_S{WEB_RPC_EVENT_GROUP_E_SET_SYSTEM_INFO, Role::ADMIN},
    tagRULE_S{WEB_RPC_EVENT_TKVMX_E_SET_ETH_CFG, Role::ADMIN},
    tagRULE_S{WEB_RPC_EVENT_TKVMX_E_SET_NDI_NET_CFG, Role::ADMIN},
    tagRULE_S{WEB_RPC_EVENT_TKVMX_E_SET_DANTE_CFG, Role::ADMIN},
    tagRULE_S{WEB_RPC_EVENT_GROUP_E_GET_MEDIA_PROTOCOL, Role::OPERATOR},
    tagRULE_S{WEB_RPC_EVENT_GROUP_E_GET_MEDIA_PROTOCOL_GLOBAL, Role::OPERATOR},
    tagRULE_S{WEB_RPC_EVENT_TKVMX_E_GET_ENCODER_SETTING_CFG, Role::OPERATOR},
};

BU_CHAR *bytesOf(WEB_RPC_PAYLOAD_S &stPayload) { return reinterpret_cast<BU_CHAR *>(&stPayload); }
} // namespace

Role roleOf(const WEB_EVENT_S &stEvent)
{
    if (const auto rule = std::ranges::find(RULES, stEvent.enEvent, &tagRULE_S::enEvent); rule != RULES.end())
        return rule->enRole;
    return std::string_view(stEvent.pcName).find("_E_GET_") != std::string_view::npos ? Role::VIEWER : Role::OPERATOR;
}

std::string readRequest(const WEB_EVENT_S &stEvent, std::string_view strJson, std::string &strImage)
{
    const std::unique_ptr<WEB_RPC_PAYLOAD_S> pstRequest(stEvent.stRequest.fnCreate());
    std::string strFault = readRecord(*stEvent.stRequest.pstRecord, strJson, bytesOf(*pstRequest));
    if (!strFault.empty()) return strFault;
    strImage.assign(pstRequest->getSize(), '\0');
    pstRequest->dumpBytes(strImage.data(), pstRequest->getSize());
    return {};
}

std::string writeResponse(const WEB_EVENT_S &stEvent, std::string_view strImage)
{
    const std::unique_ptr<WEB_RPC_PAYLOAD_S> pstResponse(stEvent.stResponse.fnCreate());
    if (strImage.size() != pstResponse->getSize()) return {};
    std::string strCopy(strImage);
    pstResponse->loadBytes(strCopy.data(), pstResponse->getSize());
    return writeRecord(*stEvent.stResponse.pstRecord, bytesOf(*pstResponse));
}
} // namespace web
