/// The few things of HTTP.
#include "http.h"

#include <algorithm>
#include <array>
#include <libwebsockets.h>

namespace preview::http
{
std::optional<std::string> header(lws *pstWsi, int s32Token)
{
    const auto enToken = static_cast<lws_token_indexes>(s32Token);
    if (lws_hdr_total_length(pstWsi, enToken) == 0) return std::nullopt;
    std::array<char, 512> acValue{};
    const int s32Length = lws_hdr_copy(pstWsi, acValue.data(), static_cast<int>(acValue.size()), enToken);
    return s32Length < 0 ? "?" : std::string(acValue.data(), static_cast<std::size_t>(s32Length));
}

std::string argument(lws *pstWsi, const char *pcName)
{
    std::array<char, 64> acValue{};
    const std::string strKey = std::string(pcName) + "=";
    const char *pcValue =
        lws_get_urlarg_by_name(pstWsi, strKey.c_str(), acValue.data(), static_cast<int>(acValue.size()));
    return pcValue ? pcValue : "";
}

int answer(lws *pstWsi, unsigned status, std::string_view text)
{
    std::array<unsigned char, LWS_PRE + 512> aBuffer{};
    unsigned char *const pStart = aBuffer.data() + LWS_PRE,
                         *pNext = pStart, *const pEnd = aBuffer.data() + aBuffer.size();
    constexpr std::string_view CLOSE = "close";
    if (lws_add_http_common_headers(pstWsi, status, "text/plain", text.size(), &pNext, pEnd) ||
        lws_add_http_header_by_token(pstWsi, WSI_TOKEN_CONNECTION,
                                     reinterpret_cast<const unsigned char *>(CLOSE.data()),
                                     static_cast<int>(CLOSE.size()), &pNext, pEnd) ||
        lws_finalize_write_http_header(pstWsi, pStart, &pNext, pEnd))
        return -1;
    const std::size_t length = std::min(text.size(), aBuffer.size() - LWS_PRE);
    std::copy_n(text.begin(), length, pStart);
    return lws_write(pstWsi, pStart, length, LWS_WRITE_HTTP_FINAL) < 0 ? -1 : 1;
}
} // namespace preview::http
