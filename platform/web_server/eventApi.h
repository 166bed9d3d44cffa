/// The camera's events as JSON: who may call them, and their payloads as text. Pure functions; thread: any.
#pragma once

#include "request.h"

struct WEB_EVENT_S;

namespace web_server
{
Role roleOf(const WEB_EVENT_S &stEvent);
/// Who may send this request. @param strImage  of readRequest
Role roleOf(const WEB_EVENT_S &stEvent, std::string_view strImage);

/// Makes the image of a request from its fields as JSON. @return what is wrong, a sentence; empty: nothing
std::string readRequest(const WEB_EVENT_S &stEvent, std::string_view strJson, std::string &strImage);
/// The fields of the response to a request as JSON. @return empty: the image has another size than the response
std::string writeResponse(const WEB_EVENT_S &stEvent, std::string_view strRequest, std::string_view strImage);
} // namespace web_server
