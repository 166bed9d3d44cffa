// The library of the web calls as a table that the tests look into.
#pragma once

#include "web/webRpc.h"

#include <map>

struct tagREGISTRATION_S {
    void (*pfnHandler)(WEB_RPC_PAYLOAD_S *, WEB_RPC_PAYLOAD_S *) = nullptr;
    WEB_RPC_PAYLOAD_S *(*pfnRequest)() = nullptr;
    WEB_RPC_PAYLOAD_S *(*pfnResponse)() = nullptr;
};
/// By event; grows with every registration.
std::map<BU_S32, tagREGISTRATION_S> &registrations();
