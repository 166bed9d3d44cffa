/// HTTP/1.1 as bytes: the head of an answer, and the little of a WebSocket that its handshake needs. Thread: any.
#pragma once

#include "base/types.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace http
{
/// An answer. Content-Length, Date and Connection are of whoever sends it.
struct Reply {
    BU_U32 u32Status = 200;
    std::string strType = "application/json"; ///< Content-Type; not sent when the body is empty
    std::string strBody;
    std::vector<std::pair<std::string, std::string>> headers; ///< Set-Cookie, Retry-After, Allow, Cache-Control
};

struct Header {
    const char *pcName;
    const char *pcValue;
};
struct AnswerHead {
    BU_U32 u32Status = 200;
    std::string_view type;             ///< empty: no body, no Content-Type
    std::optional<std::size_t> length; ///< none: the body goes on until the connection ends
    bool bKeepAlive = false;
    BU_S64 s64Unix = 0; ///< now
};
/// Status line to empty line. Texts with control characters in them are left out.
/// @param always  what this server adds to every answer
std::string answerHead(const AnswerHead &stHead, const std::vector<std::pair<std::string, std::string>> &headers,
                       std::span<const Header> always);

/// To who expects it before they send a body.
constexpr std::string_view CONTINUE = "HTTP/1.1 100 Continue\r\n\r\n";

/// The answer that makes a connection a WebSocket. @param key  Sec-WebSocket-Key
std::string switchingHead(std::string_view key, std::span<const Header> always);
/// An unmasked close frame. @param reason  at most 123 bytes are sent
std::string closeFrame(BU_U32 u32Code, std::string_view reason);
} // namespace http
