/// The web calls that the camera answers, as a table: what a web server process needs to know of them.
#pragma once

#include "web/avSetupPayload.h"
#include "web/colorMatrixPayload.h"
#include "web/controlPayload.h"
#include "web/dashboardPayload.h"
#include "web/eventGroup.h"
#include "web/mediaPayload.h"
#include "web/networkPayload.h"
#include "web/panelPayload.h"
#include "web/pipelinePayload.h"
#include "web/recordPayload.h"
#include "web/systemPayload.h"
#include "web/trackingPayload.h"

#include <algorithm>

/// Who may call an event. Each may do what the ones before it may.
enum WEB_ROLE_E : BU_S32 { WEB_ROLE_E_VIEWER = 1, WEB_ROLE_E_OPERATOR, WEB_ROLE_E_ADMIN };

/// Calls of one page run in the order in which they came, one at a time; pages run side by side.
enum WEB_PAGE_E : BU_S32 {
#define WEB_PAGE(page, served) WEB_PAGE_E_##page,
#include "web/events.def"
};
/// By page. Served: whether the service has it; else nobody handles its events.
struct WEB_PAGE_S {
    const BU_CHAR *pcName;
    bool bServed;
};
inline constexpr WEB_PAGE_S WEB_PAGES[] = {
#define WEB_PAGE(page, served) {#page, served},
#include "web/events.def"
};

/// A payload type of a call. An object's fields lie at their u32Offset from the pointer that the factory returns.
struct WEB_EVENT_PAYLOAD_S {
    const BU_CHAR *pcName; ///< of the type
    const web_layout::Record *pstRecord;
    WEB_RPC_PAYLOAD_S *(*fnCreate)();
};

struct WEB_EVENT_S {
    tag_WEB_RPC_EVENT_GROUP_E enEvent;
    const BU_CHAR *pcName; ///< the enumerator as written
    WEB_PAGE_E enPage;
    WEB_EVENT_PAYLOAD_S stRequest, stResponse;
    WEB_ROLE_E enRole;
    BU_U64 u64Movements; ///< of a panel request: the items that move the camera until both of their values are 0
    BU_U32 u32TimeoutMs; ///< how long a web server waits for the answer
};

/// In the order of their registration.
inline constexpr std::array WEB_EVENTS{
#define WEB_EVENT(page, event, Req, Res, role, movements, timeout)                                                     \
    WEB_EVENT_S{event,                                                                                                 \
                #event,                                                                                                \
                WEB_PAGE_E_##page,                                                                                     \
                {#Req, &web_layout::RECORD<Req>, fnCreatePayloadInstance<Req>},                                        \
                {#Res, &web_layout::RECORD<Res>, fnCreatePayloadInstance<Res>},                                        \
                WEB_ROLE_E_##role,                                                                                     \
                movements,                                                                                             \
                timeout},
#include "web/events.def"
};

/// Items of an event that need more than its role.
struct WEB_ITEMS_S {
    tag_WEB_RPC_EVENT_GROUP_E enEvent;
    BU_U64 u64Items;
    WEB_ROLE_E enRole;
};
inline constexpr WEB_ITEMS_S WEB_ITEM_ROLES[] = {
#define WEB_ITEMS(event, items, role) WEB_ITEMS_S{event, items, WEB_ROLE_E_##role},
#include "web/events.def"
};

/// The payload types of an event: a function type that takes them.
template <tag_WEB_RPC_EVENT_GROUP_E> struct WEB_EVENT_HANDLER;
#define WEB_EVENT(page, event, Req, Res, role, movements, timeout)                                                     \
    template <> struct WEB_EVENT_HANDLER<event> {                                                                      \
        typedef void (*Type)(Req *, Res *);                                                                            \
    };
#include "web/events.def"

/// @return the call of this name or number, null when there is none
constexpr const WEB_EVENT_S *findWebEvent(std::string_view strName)
{
    const auto found = std::ranges::find(WEB_EVENTS, strName, &WEB_EVENT_S::pcName);
    return found == WEB_EVENTS.end() ? nullptr : &*found;
}
constexpr const WEB_EVENT_S *findWebEvent(BU_U32 u32Event)
{
    const auto found = std::ranges::find(WEB_EVENTS, u32Event, [](const auto &st) { return BU_U32(st.enEvent); });
    return found == WEB_EVENTS.end() ? nullptr : &*found;
}
static_assert(findWebEvent("WEB_RPC_EVENT_TKVMX_E_SET_STREAM_MATRIX_CFG")->enEvent == 115);
