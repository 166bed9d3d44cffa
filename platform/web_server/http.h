/// HTTP/1.1 as bytes: the head of a request in, the head of an answer out. Strict: what is not plainly a request is
/// refused, and nothing is parsed before its size is known to be small. No sockets here.
#pragma once

#include "request.h"

#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace web::http
{
constexpr std::size_t LINE_MAX_BYTES = 4 << 10;  ///< request line
constexpr std::size_t HEAD_MAX_BYTES = 16 << 10; ///< request line and headers
constexpr std::size_t HEADERS_MAX = 64;
constexpr std::size_t BODY_MAX_BYTES = 64 << 10;

struct Head {
    Request stRequest; ///< what the head tells; addresses, time and body are not filled in
    bool bKeepAlive = true;
    bool bExpectContinue = false; ///< the body comes when it was asked for
    std::string strIfNoneMatch;
    std::string strWebSocketKey, strWebSocketVersion;
};

/// Why a request is not taken.
struct Refusal {
    BU_U32 u32Status = 0;
    const char *pcSentence = "";
};

typedef std::variant<Head, Refusal> Parsed;

/// @param head  from the request line up to and with the empty line, within the limits
Parsed parseHead(std::string_view head);

/// Finds the head at the begin of what came so far.
class HeadReader
{
public:
    /// Takes a head off the begin of strInput, as soon as it is whole or known to be too much.
    /// @return none: more must come first
    std::optional<Parsed> take(std::string &strInput);

private:
    std::size_t m_scanned = 0; // no head ends before this
};

struct AnswerHead {
    BU_U32 u32Status = 200;
    std::string_view type;             ///< empty: no body, no Content-Type
    std::optional<std::size_t> length; ///< none: the body goes on until the connection ends
    bool bKeepAlive = false;
    BU_S64 s64Unix = 0; ///< now
};
/// Status line to empty line, with the security headers. Texts with control characters in them are left out.
std::string answerHead(const AnswerHead &stHead, const std::vector<std::pair<std::string, std::string>> &headers);

/// The answer that makes a connection a WebSocket. @param key  Sec-WebSocket-Key
std::string switchingHead(std::string_view key);
/// An unmasked close frame. @param reason  at most 123 bytes are sent
std::string closeFrame(BU_U32 u32Code, std::string_view reason);
/// Whether a Sec-WebSocket-Key is 16 bytes of base64.
bool isWebSocketKey(std::string_view key);
/// Whether If-None-Match names the tag.
bool isTagIn(std::string_view ifNoneMatch, std::string_view tag);
} // namespace web::http
