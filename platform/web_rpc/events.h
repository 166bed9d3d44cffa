/// The handlers by event.
#pragma once

#include "server.h"
#include "web/webRpc.h"

namespace web_rpc
{
/// Makes request and response, has the event handled, takes the image of the response.
Result callEvent(BU_U32 u32Event, const std::string &strImage);
} // namespace web_rpc
