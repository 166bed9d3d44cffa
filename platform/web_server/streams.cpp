/// What stays open: the event stream and the preview.
#include "connection.h"
#include "http/headers.h"
#include "util/log.h"

#include <libwebsockets.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

namespace web_server
{
namespace
{
constexpr std::size_t EVENTS_MAX = 256, EVENT_BYTES_MAX = 64 << 10; // that wait for one page
constexpr std::string_view HEARTBEAT = ":\n\n", RESYNC = "data: {\"resync\":true}\n\n";
constexpr int PREVIEW_SEND_BUFFER =
    128 << 10; // [bytes] small, so that a slow viewer is noticed while it is little behind
constexpr BU_U32 TRY_AGAIN_LATER = 1013;
constexpr unsigned int UNHEARD_MS = 8'000; // a page that confirms nothing for so long is gone
constexpr BU_U32 STOP_TIMEOUT_MS = 3'000;
} // namespace

void Connection::carryOut(const NewsStream &stNews)
{
    if (m_bHeadOnly) return send(problem(405, "this has no end to tell beforehand"), false);
    m_strSession = stNews.strSession;
    setsockopt(lws_get_socket_fd(m_pstWsi), IPPROTO_TCP, TCP_USER_TIMEOUT, &UNHEARD_MS, sizeof(UNHEARD_MS));
    m_output.push(http::answerHead({200, "text/event-stream", std::nullopt, false, unixNow()},
                                   {{"Cache-Control", "no-store"}}, securityHeaders()) +
                  "retry: 1000\n\ndata: {\"camera\":" + (m_site.bCamera ? "true" : "false") + "}\n\n");
    m_site.newsReaders.insert(this);
    enter(State::NEWS, m_site.stConfig.s64HeartbeatMs);
    lws_callback_on_writable(m_pstWsi);
}

/// The stream of a page ended: without another page its user has no means any more to stop what moves.
void Connection::stopDrives()
{
    for (const Connection *pstOther : m_site.newsReaders)
        if (pstOther->m_strSession == m_strSession) return;
    for (const Drives::Stop &st : m_site.drives.take(m_strSession))
        WEB_CLIENT_Call(st.enEvent, st.strImage, STOP_TIMEOUT_MS, [](WEB_CLIENT_RESULT_E, std::string_view) {});
}

void Connection::tell(const http::Output::Piece &pstEvent)
{
    if (m_output.pieces() >= EVENTS_MAX || m_output.bytes() + pstEvent->size() > EVENT_BYTES_MAX) {
        m_output.drop();
        m_output.push(std::string(RESYNC));
    } else
        m_output.push(pstEvent);
    lws_callback_on_writable(m_pstWsi);
}

/// Now and then: does the session go on, is the other end alive?
bool Connection::beat()
{
    if (m_enState == State::PREVIEW && !m_pstPreview->isOpen()) {
        refusePreview("the camera does not answer");
        return true;
    }
    if (!m_site.stDecisions.fnIsOpen(m_strSession, unixNow())) return false;
    lws_set_timer_usecs(m_pstWsi, m_site.stConfig.s64HeartbeatMs * 1000);
    if (m_enState == State::PREVIEW) return true; // the preview asks its viewers itself
    if (m_output.bytes() > 0 || lws_partial_buffered(m_pstWsi)) return ++m_missedBeats <= MISSED_BEATS_MAX || abandon();
    m_missedBeats = 0;
    m_output.push(std::string(HEARTBEAT));
    lws_callback_on_writable(m_pstWsi);
    return true;
}

bool Connection::isUpgradeSound()
{
    if (m_stHead.strWebSocketVersion == "13" && http::isWebSocketKey(m_stHead.strWebSocketKey)) return true;
    Reply stReply = problem(426, "this is a WebSocket of version 13");
    stReply.headers.emplace_back("Upgrade", "websocket");
    stReply.headers.emplace_back("Sec-WebSocket-Version", "13");
    send(stReply, false);
    return false;
}

void Connection::carryOut(const PreviewProxy &stPreview)
{
    if (!isUpgradeSound()) return;
    m_strSession = stPreview.strSession;
    setsockopt(lws_get_socket_fd(m_pstWsi), SOL_SOCKET, SO_SNDBUF, &PREVIEW_SEND_BUFFER, sizeof(PREVIEW_SEND_BUFFER));
    m_pstPreview = std::make_unique<PreviewLink>(
        PreviewLink::Events{[this] {
                                m_output.push(http::switchingHead(m_stHead.strWebSocketKey, securityHeaders()));
                                enter(State::PREVIEW, m_site.stConfig.s64HeartbeatMs);
                                lws_callback_on_writable(m_pstWsi);
                            },
                            [this](std::string_view bytes) {
                                m_output.push(std::string(bytes));
                                if (m_output.bytes() > PREVIEW_HIGH) m_pstPreview->setReading(false);
                                lws_callback_on_writable(m_pstWsi);
                            },
                            [this](std::string_view sentence) { refusePreview(sentence); },
                            [this] {
                                m_bKeepAlive = false;
                                enter(State::SEND, m_site.stConfig.s64LingerMs);
                                lws_callback_on_writable(m_pstWsi);
                            },
                            [this] { updateReading(); }});
    enter(State::PREVIEW, m_site.stConfig.s64RequestMs);
    const bool bSound = m_stHead.stRequest.strQuery == "audio=1";
    m_pstPreview->open(lws_get_context(m_pstWsi), m_site.pstClientVhost, m_site.stConfig.strPreviewHost,
                       m_site.stConfig.s32PreviewPort, "/" + stPreview.strChannel + (bSound ? "?audio=1" : ""),
                       m_stHead.strWebSocketKey);
}

/// A page learns why only from a WebSocket that was open.
void Connection::refusePreview(std::string_view sentence)
{
    m_output.push(http::switchingHead(m_stHead.strWebSocketKey, securityHeaders()) +
                  http::closeFrame(TRY_AGAIN_LATER, sentence));
    m_bKeepAlive = false;
    enter(State::SEND, m_site.stConfig.s64LingerMs);
    lws_callback_on_writable(m_pstWsi);
}
} // namespace web_server
