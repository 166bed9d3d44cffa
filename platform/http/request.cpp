// Which bytes are a request, and what it says.
#include "http/request.h"

#include "util/text.h"

#include <algorithm>
#include <charconv>

namespace
{
using namespace http;

constexpr std::string_view END_OF_LINE = "\r\n", END_OF_HEAD = "\r\n\r\n";

constexpr Refusal BAD_LINE{400, "this is no HTTP request"};
constexpr Refusal BAD_HEADER{400, "a header of the request is malformed"};
constexpr Refusal TWICE{400, "a header of the request came twice"};
constexpr Refusal LONG_LINE{414, "the address is too long"};
constexpr Refusal LONG_HEAD{431, "the headers are too long"};
constexpr Refusal MANY_HEADERS{431, "there are too many headers"};
constexpr Refusal BAD_VERSION{505, "only HTTP/1.1 and HTTP/1.0 are spoken here"};
constexpr Refusal BAD_LENGTH{400, "Content-Length is malformed"};
constexpr Refusal TWO_LENGTHS{400, "a body has either a Content-Length or a Transfer-Encoding"};

constexpr bool isTokenChar(char c)
{
    return util::isAlphaNumeric(c) || std::string_view("!#$%&'*+-.^_`|~").find(c) != std::string_view::npos;
}
constexpr bool isVisible(char c) { return c > 0x20 && c < 0x7F; }
constexpr bool isValueChar(char c) { return c == '\t' || (static_cast<unsigned char>(c) >= 0x20 && c != 0x7F); }

/// Whether a comma list holds the word, in any case.
bool holds(std::string_view list, std::string_view word)
{
    while (!list.empty())
        if (util::isSameWord(util::takePart(list, ','), word)) return true;
    return false;
}

/// What the connection headers said so far; decided upon when all are read.
struct ConnectionSays {
    bool bClose = false, bKeepAlive = false, bUpgrade = false, bWebSocket = false;
};

const Refusal *put(std::optional<std::string> &strTo, std::string_view value)
{
    if (strTo) return &TWICE;
    strTo = value;
    return nullptr;
}

const Refusal *putLength(Request &stRequest, std::string_view value)
{
    if (stRequest.u64BodyBytes) return &TWICE;
    unsigned long long u64 = 0;
    const auto [pcEnd, error] = std::from_chars(value.data(), value.data() + value.size(), u64);
    if (value.empty() || error != std::errc() || pcEnd != value.data() + value.size()) return &BAD_LENGTH;
    stRequest.u64BodyBytes = u64;
    return nullptr;
}

struct OnceRow {
    std::string_view name;
    std::optional<std::string> Request::*pTo;
};
constexpr OnceRow ONCE[] = {
    {"host", &Request::strHost},
    {"origin", &Request::strOrigin},
    {"content-type", &Request::strContentType},
    {"sec-fetch-site", &Request::strFetchSite},
};
struct LastRow {
    std::string_view name;
    std::string Head::*pTo;
};
constexpr LastRow LAST[] = {
    // of those that came twice the last one counts
    {"if-none-match", &Head::strIfNoneMatch},
    {"sec-websocket-key", &Head::strWebSocketKey},
    {"sec-websocket-version", &Head::strWebSocketVersion},
};

const Refusal *putHeader(Head &stHead, ConnectionSays &stSays, std::string_view name, std::string_view value)
{
    const auto is = [&](std::string_view other) { return util::isSameWord(name, other); };
    Request &st = stHead.stRequest;
    for (const auto &[once, pTo] : ONCE)
        if (is(once)) return put(st.*pTo, value);
    for (const auto &[last, pTo] : LAST)
        if (is(last)) stHead.*pTo = value;
    if (is("content-length")) return putLength(st, value);
    if (is("cookie"))
        st.strCookie = st.strCookie ? *st.strCookie + "; " + std::string(value) : std::string(value);
    else if (is("transfer-encoding"))
        st.bChunked = true;
    else if (is("connection")) {
        stSays.bClose |= holds(value, "close");
        stSays.bKeepAlive |= holds(value, "keep-alive");
        stSays.bUpgrade |= holds(value, "upgrade");
    } else if (is("upgrade"))
        stSays.bWebSocket |= holds(value, "websocket");
    else if (is("expect"))
        stHead.bExpectContinue = util::isSameWord(value, "100-continue");
    return nullptr;
}

/// "GET /path?query HTTP/1.1"
const Refusal *parseLine(std::string_view line, Head &stHead, bool &bOld)
{
    const std::size_t afterMethod = line.find(' '), beforeVersion = line.rfind(' ');
    if (afterMethod == std::string_view::npos || afterMethod == beforeVersion) return &BAD_LINE;
    const std::string_view method = line.substr(0, afterMethod), version = line.substr(beforeVersion + 1),
                           target = line.substr(afterMethod + 1, beforeVersion - afterMethod - 1);
    if (method.empty() || !std::ranges::all_of(method, isTokenChar)) return &BAD_LINE;
    if (!target.starts_with('/') || !std::ranges::all_of(target, isVisible)) return &BAD_LINE;
    if (target.find('#') != std::string_view::npos || !version.starts_with("HTTP/")) return &BAD_LINE;
    bOld = version == "HTTP/1.0";
    if (!bOld && version != "HTTP/1.1") return &BAD_VERSION;
    const std::size_t question = std::min(target.find('?'), target.size());
    stHead.stRequest.strMethod = method;
    stHead.stRequest.strPath = target.substr(0, question);
    stHead.stRequest.strQuery = target.substr(std::min(question + 1, target.size()));
    return nullptr;
}

const Refusal *parseHeader(std::string_view line, Head &stHead, ConnectionSays &stSays)
{
    const std::size_t colon = line.find(':');
    if (colon == std::string_view::npos || colon == 0) return &BAD_HEADER;
    const std::string_view name = line.substr(0, colon), value = util::trimmed(line.substr(colon + 1));
    if (!std::ranges::all_of(name, isTokenChar) || !std::ranges::all_of(value, isValueChar)) return &BAD_HEADER;
    return putHeader(stHead, stSays, name, value);
}

std::string_view takeLine(std::string_view &rest)
{
    const std::string_view line = rest.substr(0, rest.find(END_OF_LINE));
    rest.remove_prefix(std::min(line.size() + END_OF_LINE.size(), rest.size()));
    return line;
}
} // namespace

namespace http
{
Parsed parseHead(std::string_view head)
{
    Head stHead;
    ConnectionSays stSays;
    bool bOld = false;
    if (const Refusal *pst = parseLine(takeLine(head), stHead, bOld)) return *pst;
    std::size_t count = 0;
    for (std::string_view line = takeLine(head); !line.empty(); line = takeLine(head)) {
        if (++count > HEADERS_MAX) return MANY_HEADERS;
        if (const Refusal *pst = parseHeader(line, stHead, stSays)) return *pst;
    }
    if (stHead.stRequest.bChunked && stHead.stRequest.u64BodyBytes) return TWO_LENGTHS;
    stHead.bKeepAlive = !stSays.bClose && (!bOld || stSays.bKeepAlive);
    stHead.stRequest.bUpgrade = stSays.bUpgrade && stSays.bWebSocket;
    return stHead;
}

std::optional<Parsed> HeadReader::take(std::string &strInput)
{
    std::size_t blank = 0; // empty lines before a request are tolerated
    while (std::string_view(strInput).substr(blank).starts_with(END_OF_LINE)) blank += END_OF_LINE.size();
    if (blank > 0) m_scanned = (strInput.erase(0, blank), 0);
    const std::size_t end = strInput.find(END_OF_HEAD, m_scanned);
    const std::size_t size = end == std::string::npos ? strInput.size() : end + END_OF_HEAD.size();
    if (std::min(strInput.find('\r'), size) > LINE_MAX_BYTES) return LONG_LINE;
    if (size > HEAD_MAX_BYTES) return LONG_HEAD;
    m_scanned = std::max(size, END_OF_HEAD.size()) - END_OF_HEAD.size() + 1;
    if (end == std::string::npos) {
        // What cannot become a request is told at once: a TLS greeting has no empty line to wait for.
        if (!strInput.empty() && !isTokenChar(strInput[0]) && strInput[0] != '\r') return BAD_LINE;
        return std::nullopt;
    }
    m_scanned = 0;
    Parsed parsed = parseHead(std::string_view(strInput).substr(0, size));
    strInput.erase(0, size);
    return parsed;
}

} // namespace http
