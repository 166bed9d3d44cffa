/// The few things of HTTP that the server needs before a connection is a WebSocket.
#pragma once

#include <optional>
#include <string>
#include <string_view>

struct lws;

namespace preview
{
/// @param s32Token  lws_token_indexes. @return none: absent. One that is too long to be meant seriously: "?"
std::optional<std::string> header(lws *pstWsi, int s32Token);

/// Value of "name=value" in the query, empty when it is not there.
std::string argument(lws *pstWsi, const char *pcName);

/// A whole answer of plain text, after which the connection ends. @return not 0: for the
/// callback that answers to return
int answer(lws *pstWsi, unsigned status, std::string_view text);
} // namespace preview
