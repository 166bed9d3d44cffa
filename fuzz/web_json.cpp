// Any bytes as the body of an event's request (byte 0 chooses it), or as the lines that tell where a request comes
// from.
#include "eventApi.h"
#include "http/headers.h"
#include "require.h"
#include "routes.h"
#include "web/events.h"

namespace
{
/// What is taken as a request has the size of its image, and reads the same when it is written as text.
void body(WEB_EVENT_S stEvent, std::string_view text)
{
    std::string strImage, strAgain;
    if (!web_server::readRequest(stEvent, text, strImage).empty()) return;
    stEvent.stResponse = stEvent.stRequest;
    const std::string strJson = web_server::writeResponse(stEvent, strImage, strImage);
    require(!strJson.empty());
    require(web_server::readRequest(stEvent, strJson, strAgain).empty());
    require(strImage == strAgain);
}

/// Host, Origin, Cookie, Content-Type, method and path, a line each.
void lines(std::string_view text)
{
    std::array<std::string, 6> line;
    for (std::string &strLine : line) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        strLine = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    const auto &[strHost, strOrigin, strCookie, strType, strMethod, strPath] = line;
    static const net::HostNames names("studio.example", "camera");
    if (names.has(strHost)) require(net::isSameOrigin("http://" + strHost, strHost, false));
    if (net::isOwnPage(strOrigin, {}, strHost, true)) require(net::isSameOrigin(strOrigin, strHost, true));
    for (const std::string_view value : http::cookies(strCookie, web_server::SESSION_COOKIE))
        require(value.find(';') == value.npos);
    http::isJsonType(strType);
    if (const auto strFile = http::pagePath(strPath))
        require(("/" + *strFile).find("/.") == std::string::npos && ("/" + *strFile).find("//") == std::string::npos);
    std::string strAllow, strRest;
    if (const auto *pstRoute = web_server::findRoute(strMethod, strPath, strAllow, strRest))
        require(strMethod == pstRoute->pcMethod);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *pu8Data, size_t size)
{
    if (size == 0) return 0;
    const std::string_view text(reinterpret_cast<const char *>(pu8Data) + 1, size - 1);
    if (pu8Data[0] < WEB_EVENTS.size())
        body(WEB_EVENTS[pu8Data[0]], text);
    else
        lines(text);
    return 0;
}
