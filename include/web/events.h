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

/// A payload type of a call. An object's fields lie at their u32Offset from the pointer that the factory returns.
struct WEB_EVENT_PAYLOAD_S {
    const BU_CHAR *pcName; ///< of the type
    const web_layout::Record *pstRecord;
    WEB_RPC_PAYLOAD_S *(*fnCreate)();
};

struct WEB_EVENT_S {
    tag_WEB_RPC_EVENT_GROUP_E enEvent;
    const BU_CHAR *pcName; ///< the enumerator as written
    WEB_EVENT_PAYLOAD_S stRequest, stResponse;
};

/// In the order of their registration.
inline constexpr std::array WEB_EVENTS{
#define WEB_EVENT(group, event, Req, Res, handler)                                                                     \
    WEB_EVENT_S{event,                                                                                                 \
                #event,                                                                                                \
                {#Req, &web_layout::RECORD<Req>, fnCreatePayloadInstance<Req>},                                        \
                {#Res, &web_layout::RECORD<Res>, fnCreatePayloadInstance<Res>}},
#include "web/events.def"
};
static_assert(WEB_EVENTS.size() == 76);

/// @return the call of this name, null when there is none
constexpr const WEB_EVENT_S *findWebEvent(std::string_view strName)
{
    const auto found = std::ranges::find(WEB_EVENTS, strName, &WEB_EVENT_S::pcName);
    return found == WEB_EVENTS.end() ? nullptr : &*found;
}
static_assert(findWebEvent("WEB_RPC_EVENT_TKVMX_E_SET_STREAM_MATRIX_CFG")->enEvent == 115);
