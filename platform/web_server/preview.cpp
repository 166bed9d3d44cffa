// The bytes between a viewer and the preview.
#include "preview.h"

#include "base/types.h"

#include <algorithm>
#include <libwebsockets.h>
#include <sys/socket.h>

namespace web_server
{
namespace
{
constexpr std::size_t HEAD_MAX = 4 << 10;
constexpr int RECEIVE_BUFFER = 64 << 10; // [bytes] small: what waits for a slow viewer is old when it gets there
constexpr std::string_view GONE = "the camera is not there", END_OF_HEAD = "\r\n\r\n";
} // namespace

PreviewLink::~PreviewLink()
{
    if (!m_pstWsi) return;
    lws_set_opaque_user_data(m_pstWsi, nullptr);
    lws_set_timeout(m_pstWsi, PENDING_TIMEOUT_USER_OK, LWS_TO_KILL_ASYNC);
}

void PreviewLink::open(lws_context *pstContext, lws_vhost *pstVhost, const std::string &strHost, int s32Port,
                       std::string_view path, std::string_view key)
{
    m_output.push("GET " + std::string(path) + " HTTP/1.1\r\nHost: " + strHost + ':' + std::to_string(s32Port) +
                  "\r\nUpgrade: websocket\r\nConnection: Upgrade\r\nSec-WebSocket-Version: 13\r\nSec-WebSocket-Key: " +
                  std::string(key) + END_OF_HEAD.data());
    lws_client_connect_info stInfo{};
    stInfo.context = pstContext;
    stInfo.vhost = pstVhost;
    stInfo.address = stInfo.host = strHost.c_str();
    stInfo.port = s32Port;
    stInfo.path = "/";
    stInfo.method = "RAW";
    stInfo.local_protocol_name = "preview";
    stInfo.opaque_user_data = this;
    lws *const pstWsi = lws_client_connect_via_info(&stInfo);
    if (pstWsi && !m_bOver) m_pstWsi = pstWsi;
    if (!pstWsi) onClosed();
}

void PreviewLink::send(std::string_view bytes)
{
    m_output.push(std::string(bytes));
    if (m_pstWsi) lws_callback_on_writable(m_pstWsi);
}

void PreviewLink::setReading(bool bReading)
{
    if (bReading == m_bReading || !m_pstWsi) return;
    m_bReading = bReading;
    lws_rx_flow_control(m_pstWsi, bReading);
}

bool PreviewLink::onConnected(lws *pstWsi)
{
    m_pstWsi = pstWsi;
    setsockopt(lws_get_socket_fd(pstWsi), SOL_SOCKET, SO_RCVBUF, &RECEIVE_BUFFER, sizeof(RECEIVE_BUFFER));
    lws_callback_on_writable(pstWsi);
    return true;
}

bool PreviewLink::onBytes(std::string_view bytes)
{
    if (m_bOver) return false;
    if (m_bOpen) {
        m_events.fnBytes(bytes);
        return true;
    }
    m_strHead += bytes;
    return onHead();
}

/// Looks at what the preview answered so far.
bool PreviewLink::onHead()
{
    const std::size_t end = m_strHead.find(END_OF_HEAD);
    if (end == std::string::npos && m_strHead.size() < HEAD_MAX) return true;
    const std::string strRest = end == std::string::npos ? "" : m_strHead.substr(end + END_OF_HEAD.size());
    m_bOpen = m_strHead.starts_with("HTTP/1.1 101 ");
    m_bOver = !m_bOpen;
    m_strHead.clear();
    if (!m_bOpen) {
        const std::string_view sentence = std::string_view(strRest).substr(0, strRest.find('\n'));
        m_events.fnRefuse(sentence.empty() ? "the camera does not show this" : sentence);
        return false;
    }
    m_events.fnOpen();
    if (!strRest.empty()) m_events.fnBytes(strRest);
    return true;
}

bool PreviewLink::onWritable()
{
    if (!m_output.flush(m_pstWsi)) return false;
    if (m_bOpen) m_events.fnSent();
    return true;
}

void PreviewLink::onClosed()
{
    m_pstWsi = nullptr;
    if (m_bOver) return;
    m_bOver = true;
    if (m_bOpen)
        m_events.fnEnd();
    else
        m_events.fnRefuse(GONE);
}
} // namespace web_server
