/// A page of the web: how its events get their handlers, and which pages there are.
///
/// A handler gets a request and a response whose fields are all zero. What a camera call returns is not looked at, but
/// where the response has a place for it. Thread: those of the web calls; one at a time in a page, pages side by side.
#pragma once

#include "web/events.h"
#include "web/webRpc.h"

#include <span>

/// The library makes both payloads with the factories of the handler's own types, so they are what they are cast to.
template <class Req, class Res, void (*HANDLE)(Req *, Res *)>
void webCallHandler(WEB_RPC_PAYLOAD_S *pstRequest, WEB_RPC_PAYLOAD_S *pstResponse)
{
    HANDLE(static_cast<Req *>(pstRequest), static_cast<Res *>(pstResponse));
}

template <auto HANDLE> struct WebHandler;
template <class Req, class Res, void (*HANDLE)(Req *, Res *)> struct WebHandler<HANDLE> {
    static constexpr auto CALL = webCallHandler<Req, Res, HANDLE>;
    static constexpr auto REQUEST = fnCreatePayloadInstance<Req>, RESPONSE = fnCreatePayloadInstance<Res>;
};

/// Registers the handler of an event and the factories of its payloads.
template <tag_WEB_RPC_EVENT_GROUP_E EVENT, auto HANDLE> void WEB_RPC_RegisterHandler()
{
    static_assert(std::is_same_v<decltype(HANDLE), typename WEB_EVENT_HANDLER<EVENT>::Type>,
                  "the row of the event in web/events.def has other payloads");
    WEB_RPC_RegisterMainHandler(EVENT, WebHandler<HANDLE>::CALL);
    WEB_RPC_RegisterReqPayloadCreator(EVENT, WebHandler<HANDLE>::REQUEST);
    WEB_RPC_RegisterResPayloadCreator(EVENT, WebHandler<HANDLE>::RESPONSE);
}

/// Says so when a payload is missing. @return BU_TRUE: the handler has to return
BU_BOOL _WEB_CMD_ParamCheckReturn(const void *p1, const void *p2);

namespace web
{
/// The events of a page, each as the call that registers it.
typedef std::span<void (*const)()> Page;
extern const Page IMAGE, COLOR_MATRIX, LENS, PAN_TILT, BUSINESS;

/// Those that are built, in the order of their registration.
inline const Page *const PAGES[] = {&IMAGE, &COLOR_MATRIX, &LENS, &PAN_TILT, &BUSINESS};
} // namespace web
