/// The server: who may connect and watch, what a viewer may say, when a connection ends.
#include "server.h"

#include "admission.h"
#include "broadcast.h"
#include "handshake.h"
#include "http/library.h"
#include "net/admission.h"
#include "net/hostRule.h"
#include "registry.h"
#include "util/log.h"
#include "util/thread.h"
#include "util/time.h"

#include <map>
#include <optional>
#include <sys/socket.h>

static_assert(preview::Message::HEADROOM >= LWS_PRE);

namespace
{
using namespace preview;

constexpr BU_S32 SEND_BUFFER = 128 << 10;  // [bytes] small, so that a slow viewer is noticed while it is little behind
constexpr std::size_t CLIENT_MESSAGE = 16; // [bytes] what a viewer may say
constexpr std::string_view KEY_REQUEST = "key";
constexpr lws_retry_bo_t LIVENESS{nullptr, 0, 0, 20, 60, 0}; // a ping after 20 s of silence, gone after 60 s

struct Connection {
    lws *pstWsi = nullptr;
    std::string strAddress;
    BU_S64 s64DeadlineMs = 0; // for its request; 0: kept
    MessageMeter meter;
    Viewer stViewer;
};

/// Everything but the inbox belongs to the service thread while it runs.
class LwsServer final : public Server
{
public:
    explicit LwsServer(const std::string &strAddress)
        : m_admission(strAddress, PER_ADDRESS_MAX, CONNECTIONS_MAX), m_originRule(strAddress, net::machineName()),
          m_context(nullptr, lws_context_destroy)
    {
    }
    ~LwsServer() override;
    bool listen(const std::string &strAddress, BU_S32 s32Port);
    BU_S32 port() const override { return m_s32Port; }
    std::shared_ptr<Inbox> inbox() const override { return m_pstInbox; }

    int handle(lws *pstWsi, lws_callback_reasons enReason, void *pvUser, void *pvIn, std::size_t length);

private:
    void run(const std::stop_token &stop);
    void enter(lws *pstWsi);
    void leave(lws *pstWsi);
    bool mayConnect(const void *pvUser) const;
    int admit(lws *pstWsi, std::string_view protocol);
    void establish(lws *pstWsi);
    int receive(lws *pstWsi, std::string_view text);
    int send(lws *pstWsi);
    void dropLate();

    std::shared_ptr<Inbox> m_pstInbox;
    std::map<lws *, std::unique_ptr<Connection>> m_connections;
    net::Admission m_admission;
    const net::OriginRule m_originRule;
    std::optional<Broadcast> m_broadcast;
    BU_S32 m_s32Port = 0;
    BU_S64 m_s64NextMs = 0; // when the deadlines are looked at next
    http::Context m_context;
    std::optional<util::TimerQueue> m_deadlines;
    util::Thread m_thread; // last: ends first
};

constexpr auto VIEWER = [](LwsServer &server, lws *pstWsi, lws_callback_reasons enReason, void *pvUser, void *pvIn,
                           std::size_t length) { return server.handle(pstWsi, enReason, pvUser, pvIn, length); };
constexpr lws_protocols PROTOCOLS[] = {
    {"preview", http::onEvent<LwsServer, VIEWER>, 0, CLIENT_MESSAGE + 1, 0, nullptr, http::WHOLE}, {}};

Connection *connectionOf(lws *pstWsi) { return static_cast<Connection *>(lws_get_opaque_user_data(pstWsi)); }

int closeWith(lws *pstWsi, lws_close_status enStatus)
{
    lws_close_reason(pstWsi, enStatus, nullptr, 0);
    return -1;
}

bool LwsServer::listen(const std::string &strAddress, BU_S32 s32Port)
{
    if (s32Port < 0 || s32Port > 65535) return false;
    http::takeLibraryLog(false);
    lws_context_creation_info stInfo =
        http::serverInfo(this, PROTOCOLS, CONNECTIONS_MAX + 16, // its own descriptors, and one to turn away with
                         2 * HANDSHAKE_MS / 1000);
    stInfo.options |= LWS_SERVER_OPTION_FAIL_UPON_UNABLE_TO_BIND;
    stInfo.max_http_header_pool = CONNECTIONS_MAX; // a silent connection holds no other one up
    stInfo.retry_and_idle_policy = &LIVENESS;
    m_context.reset(lws_create_context(&stInfo));
    if (!m_context) return false;
    m_pstInbox = std::make_shared<Inbox>([pstContext = m_context.get()] { lws_cancel_service(pstContext); });
    m_broadcast.emplace(m_pstInbox, [](Viewer &stViewer) {
        lws_callback_on_writable(static_cast<Connection *>(stViewer.pvConnection)->pstWsi);
    });
    m_deadlines.emplace("previewDeadline");
    stInfo.vhost_name = "preview";
    stInfo.iface = strAddress.c_str();
    stInfo.port = s32Port;
    lws_vhost *pstVhost = lws_create_vhost(m_context.get(), &stInfo);
    if (!pstVhost) return false;
    m_s32Port = lws_get_vhost_listen_port(pstVhost);
    m_thread = util::Thread("preview", [this](const std::stop_token &stop) { run(stop); });
    return true;
}

LwsServer::~LwsServer()
{
    m_thread = {};
    if (m_pstInbox) m_pstInbox->close(); // the context must not be woken any more
    m_deadlines.reset();
    m_context.reset(); // takes leave of every connection
    m_broadcast.reset();
}

void LwsServer::run(const std::stop_token &stop)
{
    const std::stop_callback wake(stop, [this] { m_pstInbox->wake(); });
    while (!stop.stop_requested() && lws_service(m_context.get(), 0) >= 0) {}
}

int LwsServer::handle(lws *pstWsi, lws_callback_reasons enReason, void *pvUser, void *pvIn, std::size_t length)
{
    switch (enReason) {
    case LWS_CALLBACK_SERVER_NEW_CLIENT_INSTANTIATED:
        enter(pstWsi);
        return 0;
    case LWS_CALLBACK_WSI_DESTROY:
        leave(pstWsi);
        return 0;
    case LWS_CALLBACK_HTTP:
        return answer(pstWsi, 404, "The preview speaks WebSocket: ws://.../ch1\n");
    case LWS_CALLBACK_HTTP_CONFIRM_UPGRADE:
        return admit(pstWsi, static_cast<const char *>(pvIn));
    case LWS_CALLBACK_ESTABLISHED:
        establish(pstWsi);
        return 0;
    case LWS_CALLBACK_RECEIVE:
        return receive(pstWsi, {static_cast<const char *>(pvIn), length});
    case LWS_CALLBACK_SERVER_WRITEABLE:
        return send(pstWsi);
    case LWS_CALLBACK_EVENT_WAIT_CANCELLED:
        m_broadcast->distribute();
        dropLate();
        return 0;
    case LWS_CALLBACK_FILTER_NETWORK_CONNECTION:
        return mayConnect(pvUser) ? 0 : 1;
    default:
        return 0;
    }
}

void LwsServer::enter(lws *pstWsi)
{
    auto pst = std::make_unique<Connection>();
    pst->pstWsi = pstWsi;
    pst->strAddress = http::addressOf(pstWsi);
    pst->s64DeadlineMs = UTIL_TIME_NowMs() + HANDSHAKE_MS;
    pst->stViewer.pvConnection = pst.get();
    setsockopt(lws_get_socket_fd(pstWsi), SOL_SOCKET, SO_SNDBUF, &SEND_BUFFER, sizeof(SEND_BUFFER));
    lws_set_opaque_user_data(pstWsi, pst.get());
    m_admission.enter(pst->strAddress);
    m_connections[pstWsi] = std::move(pst);
    dropLate();
}

void LwsServer::leave(lws *pstWsi)
{
    const auto it = m_connections.find(pstWsi);
    if (it == m_connections.end()) return;
    m_broadcast->remove(it->second->stViewer);
    m_admission.leave(it->second->strAddress);
    m_connections.erase(it);
}

/// @return 0: the connection becomes a viewer; else it was answered why not
int LwsServer::admit(lws *pstWsi, std::string_view protocol)
{
    const auto strOrigin = header(pstWsi, WSI_TOKEN_ORIGIN), strHost = header(pstWsi, WSI_TOKEN_HOST);
    const std::string strPath = header(pstWsi, WSI_TOKEN_GET_URI).value_or("");
    const auto channel = strPath.starts_with('/') ? registry().find(strPath.substr(1)) : std::nullopt;
    Connection *pst = connectionOf(pstWsi);
    if (!pst || protocol != "websocket") return answer(pstWsi, 400, "The preview speaks WebSocket only\n");
    if (strOrigin && !m_originRule.allows(*strOrigin, strHost.value_or(""))) {
        LOG_WARN("preview: a page of %s may not watch\n", strOrigin->c_str());
        return answer(pstWsi, 403, "Pages of this origin may not watch\n");
    }
    if (!channel) return answer(pstWsi, 404, "No such channel\n");
    if (m_broadcast->size() >= VIEWERS_MAX) return answer(pstWsi, 503, "Too many viewers\n");
    pst->stViewer.u32Channel = *channel;
    pst->stViewer.bAudio = argument(pstWsi, "audio") == "1";
    return 0;
}

void LwsServer::establish(lws *pstWsi)
{
    Connection &connection = *connectionOf(pstWsi);
    connection.s64DeadlineMs = 0;
    m_broadcast->add(connection.stViewer);
}

int LwsServer::receive(lws *pstWsi, std::string_view text)
{
    Connection &connection = *connectionOf(pstWsi);
    if (text.size() + lws_remaining_packet_payload(pstWsi) > CLIENT_MESSAGE)
        return closeWith(pstWsi, LWS_CLOSE_STATUS_MESSAGE_TOO_LARGE);
    const bool bKnown = text == KEY_REQUEST && lws_is_first_fragment(pstWsi) && lws_is_final_fragment(pstWsi);
    if (!bKnown || !connection.meter.count(UTIL_TIME_NowMs()))
        return closeWith(pstWsi, LWS_CLOSE_STATUS_POLICY_VIOLATION);
    m_broadcast->requestKeyFrame(connection.stViewer);
    return 0;
}

int LwsServer::send(lws *pstWsi)
{
    Viewer &stViewer = connectionOf(pstWsi)->stViewer;
    const MessageRef pstMessage = stViewer.queue.take();
    if (!pstMessage) return 0;
    if (lws_write(pstWsi, pstMessage->data(), pstMessage->size(), LWS_WRITE_BINARY) < 0) return -1;
    if (!stViewer.queue.isEmpty())
        lws_callback_on_writable(pstWsi);
    else if (stViewer.queue.awaitsKeyFrame()) // it was slow, and could go on now
        m_broadcast->requestKeyFrame(stViewer);
    return 0;
}

/// Ends connections that let their deadline pass, and has itself called again when the next one is due.
void LwsServer::dropLate()
{
    const BU_S64 s64NowMs = UTIL_TIME_NowMs();
    BU_S64 s64NextMs = 0;
    for (const auto &[pstWsi, pst] : m_connections) {
        if (pst->s64DeadlineMs == 0) continue;
        if (pst->s64DeadlineMs <= s64NowMs) {
            pst->s64DeadlineMs = 0;
            lws_set_timeout(pstWsi, PENDING_TIMEOUT_USER_OK, LWS_TO_KILL_ASYNC);
        } else if (s64NextMs == 0 || pst->s64DeadlineMs < s64NextMs)
            s64NextMs = pst->s64DeadlineMs;
    }
    if (s64NextMs == 0 || m_s64NextMs > s64NowMs) return;
    m_s64NextMs = s64NextMs;
    m_deadlines->at(s64NextMs, [pstInbox = m_pstInbox] { pstInbox->wake(); });
}

/// Before anything of it is read. @param pvUser  lws_filter_network_conn_args
bool LwsServer::mayConnect(const void *pvUser) const { return m_admission.mayEnter(http::addressOf(pvUser)); }
} // namespace

namespace preview
{
std::unique_ptr<Server> Server::open(const std::string &strAddress, BU_S32 s32Port)
{
    auto pstServer = std::make_unique<LwsServer>(strAddress);
    if (!pstServer->listen(strAddress, s32Port)) return nullptr;
    return pstServer;
}
} // namespace preview
