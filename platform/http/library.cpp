// How the WebSocket library is set up.
#include "http/library.h"

#include <arpa/inet.h>
#include <array>

namespace http
{
void takeLibraryLog(bool bStrangers)
{
    constexpr auto DEBUG = [](int, const char *pcLine) { LOG_DEBUG("%s", pcLine); };
    constexpr auto BY_LEVEL = [](int s32Level, const char *pcLine) {
        if (s32Level == LLL_ERR)
            LOG_WARN("%s", pcLine);
        else
            LOG_DEBUG("%s", pcLine);
    };
    if (bStrangers)
        lws_set_log_level(LLL_ERR, DEBUG);
    else
        lws_set_log_level(LLL_ERR | LLL_WARN, BY_LEVEL);
}

lws_context_creation_info serverInfo(void *pvServer, const lws_protocols *pstProtocols, std::size_t descriptors,
                                     unsigned timeoutS)
{
    lws_context_creation_info stInfo{};
    stInfo.options = LWS_SERVER_OPTION_EXPLICIT_VHOSTS | LWS_SERVER_OPTION_DISABLE_IPV6;
    stInfo.user = pvServer;
    stInfo.protocols = pstProtocols;
    stInfo.fd_limit_per_thread = static_cast<unsigned>(descriptors);
    stInfo.timeout_secs = timeoutS;
    return stInfo;
}

std::string addressOf(lws *pstWsi)
{
    std::array<char, INET6_ADDRSTRLEN> acAddress{};
    lws_get_peer_simple(pstWsi, acAddress.data(), acAddress.size());
    return acAddress.data();
}

std::string addressOf(const void *pvUser)
{
    const auto &stAddress = static_cast<const lws_filter_network_conn_args *>(pvUser)->cli_addr;
    std::array<char, INET_ADDRSTRLEN> acAddress{};
    inet_ntop(AF_INET, &reinterpret_cast<const sockaddr_in &>(stAddress).sin_addr, acAddress.data(), acAddress.size());
    return acAddress.data();
}
} // namespace http
