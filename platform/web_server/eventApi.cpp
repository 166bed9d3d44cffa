// Who may call an event, and its payloads as text.
#include "eventApi.h"

#include "web/events.h"
#include "web_client/recordJson.h"

namespace web_server
{
namespace
{
using web_layout::Field;

BU_CHAR *bytesOf(WEB_RPC_PAYLOAD_S &stPayload) { return reinterpret_cast<BU_CHAR *>(&stPayload); }

const Field *find(const WEB_EVENT_PAYLOAD_S &st, std::string_view strName)
{
    const auto field = std::ranges::find(st.pstRecord->fields, strName, &Field::pcName);
    return field == st.pstRecord->fields.end() ? nullptr : &*field;
}

/// Some answers with a union leave its selecting field 0: it holds the member that was asked for.
void select(const WEB_EVENT_S &stEvent, std::string_view strRequest, WEB_RPC_PAYLOAD_S &stResponse)
{
    for (const Field &stField : stEvent.stResponse.pstRecord->fields) {
        if (stField.enKind != web_layout::Kind::VARIANT) continue;
        const BU_CHAR *pcName = stField.pstVariant->pcSelector;
        const Field *pstFrom = find(stEvent.stRequest, pcName), *pstTo = find(stEvent.stResponse, pcName);
        const std::string_view zeros("\0\0\0\0\0\0\0\0", pstTo->u32Size);
        BU_CHAR *pcTo = bytesOf(stResponse) + pstTo->u32Offset;
        if (pstFrom && pstFrom->u32Size == pstTo->u32Size && std::string_view(pcTo, pstTo->u32Size) == zeros)
            strRequest.copy(pcTo, pstTo->u32Size, pstFrom->u32Image);
    }
}
} // namespace

Role roleOf(const WEB_EVENT_S &stEvent)
{
    static_assert(static_cast<int>(Role::ADMIN) == WEB_ROLE_E_ADMIN);
    return static_cast<Role>(stEvent.enRole);
}

Role roleOf(const WEB_EVENT_S &stEvent, std::string_view strImage)
{
    typedef tag_WEB_RPC_PANEL_REQ_PAYLOAD_S Panel;
    static_assert(std::ranges::all_of(WEB_ITEM_ROLES, [](const WEB_ITEMS_S &st) {
        return findWebEvent(st.enEvent)->stRequest.pstRecord == &web_layout::RECORD<Panel>;
    }));
    Role enRole = roleOf(stEvent);
    for (const WEB_ITEMS_S &st : WEB_ITEM_ROLES) {
        if (st.enEvent != stEvent.enEvent) continue;
        Panel stPanel;
        web_layout::load(stPanel, strImage.data());
        const BU_S32 s32Item = stPanel.s32EventType;
        if (s32Item >= 0 && s32Item < 64 && (st.u64Items & webItems(s32Item)) != 0)
            enRole = std::max(enRole, static_cast<Role>(st.enRole));
    }
    return enRole;
}

std::string readRequest(const WEB_EVENT_S &stEvent, std::string_view strJson, std::string &strImage)
{
    const std::unique_ptr<WEB_RPC_PAYLOAD_S> pstRequest(stEvent.stRequest.fnCreate());
    std::string strFault = web_client::readRecord(*stEvent.stRequest.pstRecord, strJson, bytesOf(*pstRequest));
    if (!strFault.empty()) return strFault;
    strImage.assign(pstRequest->getSize(), '\0');
    pstRequest->dumpBytes(strImage.data(), pstRequest->getSize());
    return {};
}

std::string writeResponse(const WEB_EVENT_S &stEvent, std::string_view strRequest, std::string_view strImage)
{
    const std::unique_ptr<WEB_RPC_PAYLOAD_S> pstResponse(stEvent.stResponse.fnCreate());
    if (strImage.size() != pstResponse->getSize()) return {};
    std::string strCopy(strImage);
    pstResponse->loadBytes(strCopy.data(), pstResponse->getSize());
    select(stEvent, strRequest, *pstResponse);
    return web_client::writeRecord(*stEvent.stResponse.pstRecord, bytesOf(*pstResponse));
}
} // namespace web_server
