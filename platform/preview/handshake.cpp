// What the server reads and answers before a connection is a WebSocket.
#include "handshake.h"

#include "http/answer.h"

#include <array>
#include <ctime>
#include <libwebsockets.h>

namespace preview
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
    std::string str(LWS_PRE, '\0'); // room for what the library puts in front
    str += http::answerHead({status, "text/plain", text.size(), false, std::time(nullptr)}, {}, {});
    str += text;
    auto *pu8 = reinterpret_cast<unsigned char *>(str.data()) + LWS_PRE;
    return lws_write(pstWsi, pu8, str.size() - LWS_PRE, LWS_WRITE_HTTP_FINAL) < 0 ? -1 : 1;
}
} // namespace preview
