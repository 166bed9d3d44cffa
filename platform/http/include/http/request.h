/// HTTP/1.1 as bytes: the head of a request. Strict: what is not plainly a request is refused, and nothing is parsed
/// before its size is known to be small. No sockets here. Thread: any.
#pragma once

#include "base/types.h"

#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace http
{
constexpr std::size_t LINE_MAX_BYTES = 4 << 10;  ///< request line
constexpr std::size_t HEAD_MAX_BYTES = 16 << 10; ///< request line and headers
constexpr std::size_t HEADERS_MAX = 64;
constexpr std::size_t BODY_MAX_BYTES = 64 << 10;

/// Texts are as they came: nothing is decoded, nothing may be trusted. An absent header is none.
struct Request {
    std::string strMethod; ///< "GET"
    std::string strPath;   ///< begins with '/', without the query, percent signs as they came
    std::string strQuery;  ///< behind the '?', without it
    std::optional<std::string> strHost, strOrigin, strCookie, strContentType;
    std::optional<std::string> strFetchSite;        ///< Sec-Fetch-Site
    std::optional<unsigned long long> u64BodyBytes; ///< Content-Length; none: no body, or one of unknown length
    bool bChunked = false;                          ///< Transfer-Encoding: the body's length is not known yet
    bool bUpgrade = false;                          ///< asks to become a WebSocket
    bool bTls = false;
    std::string strRemote; ///< address of the other end as text, without port
    std::string strBody;   ///< whole; empty while headers are judged
    BU_S64 s64NowMs = 0;   ///< UTIL_TIME_NowMs, when the headers were there
    BU_S64 s64Unix = 0;    ///< the same moment [s since 1970]
};

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
} // namespace http
