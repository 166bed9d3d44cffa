/// What all servers on libwebsockets share.
#pragma once

#include "util/log.h"

#include <exception>
#include <libwebsockets.h>
#include <memory>
#include <string>

namespace http
{
/// lws_protocols::tx_packet_size: without one, what is sent would be cut into pieces of the size of what is received.
constexpr std::size_t WHOLE = 1 << 30;

typedef std::unique_ptr<lws_context, decltype(&lws_context_destroy)> Context;

/// What the library complains of goes to the log of this process.
/// @param bStrangers  most of it is what strangers send: its errors are worth as much as its warnings
void takeLibraryLog(bool bStrangers);

/// IPv4, ports opened one by one.
/// @param pvServer  what onEvent calls
lws_context_creation_info serverInfo(void *pvServer, const lws_protocols *pstProtocols, std::size_t descriptors,
                                     unsigned timeoutS);

/// Address of the other end, without port.
std::string addressOf(lws *pstWsi);
/// The same before anything of it is read. @param pvUser  that of LWS_CALLBACK_FILTER_NETWORK_CONNECTION
std::string addressOf(const void *pvUser);

/// A callback of the library; nothing that happens on a connection may end the server.
/// @tparam Handle  given the server and what the callback was given
template <class SERVER, auto Handle>
int onEvent(lws *pstWsi, lws_callback_reasons enReason, void *pvUser, void *pvIn, std::size_t length)
{
    auto *pstServer = static_cast<SERVER *>(lws_context_user(lws_get_context(pstWsi)));
    try {
        return pstServer ? Handle(*pstServer, pstWsi, enReason, pvUser, pvIn, length) : 0;
    } catch (const std::exception &error) {
        LOG_ERROR("a connection ends: %s\n", error.what());
        return -1;
    }
}
} // namespace http
