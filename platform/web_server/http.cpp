#include "http.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace
{
using namespace web;
using namespace web::http;

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

constexpr bool isAlphaNumeric(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}
constexpr bool isTokenChar(char c)
{
    return isAlphaNumeric(c) || std::string_view("!#$%&'*+-.^_`|~").find(c) != std::string_view::npos;
}
constexpr bool isVisible(char c) { return c > 0x20 && c < 0x7F; }
constexpr bool isValueChar(char c) { return c == '\t' || (static_cast<unsigned char>(c) >= 0x20 && c != 0x7F); }
constexpr char lowered(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }

bool isSame(std::string_view a, std::string_view b) { return std::ranges::equal(a, b, {}, lowered, lowered); }

std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view BLANK = " \t";
    const std::size_t begin = std::min(text.find_first_not_of(BLANK), text.size());
    return text.substr(begin, text.find_last_not_of(BLANK) + 1 - begin);
}

/// Whether a comma list holds the word, in any case.
bool holds(std::string_view list, std::string_view word)
{
    while (!list.empty()) {
        const std::size_t end = std::min(list.find(','), list.size());
        if (isSame(trimmed(list.substr(0, end)), word)) return true;
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return false;
}

/// What the connection headers said so far; decided upon when all are read.
struct tagCONNECTION_SAYS_S {
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

const Refusal *putHeader(Head &stHead, tagCONNECTION_SAYS_S &stSays, std::string_view name, std::string_view value)
{
    Request &st = stHead.stRequest;
    if (isSame(name, "host")) return put(st.strHost, value);
    if (isSame(name, "origin")) return put(st.strOrigin, value);
    if (isSame(name, "content-type")) return put(st.strContentType, value);
    if (isSame(name, "sec-fetch-site")) return put(st.strFetchSite, value);
    if (isSame(name, "content-length")) return putLength(st, value);
    if (isSame(name, "cookie"))
        st.strCookie = st.strCookie ? *st.strCookie + "; " + std::string(value) : std::string(value);
    else if (isSame(name, "transfer-encoding"))
        st.bChunked = true;
    else if (isSame(name, "connection")) {
        stSays.bClose |= holds(value, "close");
        stSays.bKeepAlive |= holds(value, "keep-alive");
        stSays.bUpgrade |= holds(value, "upgrade");
    } else if (isSame(name, "upgrade"))
        stSays.bWebSocket |= holds(value, "websocket");
    else if (isSame(name, "expect"))
        stHead.bExpectContinue = isSame(value, "100-continue");
    else if (isSame(name, "if-none-match"))
        stHead.strIfNoneMatch = value;
    else if (isSame(name, "sec-websocket-key"))
        stHead.strWebSocketKey = value;
    else if (isSame(name, "sec-websocket-version"))
        stHead.strWebSocketVersion = value;
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

const Refusal *parseHeader(std::string_view line, Head &stHead, tagCONNECTION_SAYS_S &stSays)
{
    const std::size_t colon = line.find(':');
    if (colon == std::string_view::npos || colon == 0) return &BAD_HEADER;
    const std::string_view name = line.substr(0, colon), value = trimmed(line.substr(colon + 1));
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

namespace web::http
{
Parsed parseHead(std::string_view head)
{
    Head stHead;
    tagCONNECTION_SAYS_S stSays;
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

bool isTagIn(std::string_view ifNoneMatch, std::string_view tag)
{
    if (trimmed(ifNoneMatch) == "*") return true;
    while (!ifNoneMatch.empty()) {
        const std::size_t end = std::min(ifNoneMatch.find(','), ifNoneMatch.size());
        std::string_view one = trimmed(ifNoneMatch.substr(0, end));
        if (one.starts_with("W/")) one.remove_prefix(2);
        if (one == tag) return true;
        ifNoneMatch.remove_prefix(std::min(end + 1, ifNoneMatch.size()));
    }
    return false;
}

bool isWebSocketKey(std::string_view key)
{
    const auto isBase64 = [](char c) { return isAlphaNumeric(c) || c == '+' || c == '/'; };
    return key.size() == 24 && key.ends_with("==") && std::ranges::all_of(key.substr(0, 22), isBase64);
}
} // namespace web::http
