// Who may connect, and which event of the library goes to which connection.
#include "server.h"

#include "connection.h"
#include "http/library.h"
#include "net/admission.h"
#include "util/file.h"

#include <algorithm>
#include <atomic>
#include <map>
#include <openssl/ssl.h>
#include <sys/socket.h>

namespace
{
using namespace web_server;

constexpr std::size_t SPARE_DESCRIPTORS =
    128;                                    // the library's own, connections to the preview, and some to turn away with
constexpr unsigned READ_AT_ONCE = 32 << 10; // [bytes]
constexpr int SEND_BUFFER = 256 << 10;      // [bytes] what a thousand slow readers hold is bounded
constexpr unsigned TLS_HANDSHAKE_S = 10;

/// Everything but the inbox and the stop flag belongs to the thread that runs it.
class LwsServer final : public Server
{
public:
    LwsServer(const ServerConfig &stConfig, const Decisions &stDecisions)
        : m_context(nullptr, lws_context_destroy), m_site(stConfig, stDecisions),
          m_visitors(stConfig.strBind, stConfig.perAddressMax)
    {
    }
    ~LwsServer() override;
    bool create();
    BU_S32 listen(bool bTls, BU_S32 s32Port) override;
    bool stopOn(int s32Fd) override;
    void run() override;
    void stop() override;
    void tell(std::string_view json) override;
    void setCamera(bool bUp) override;

    int onBrowser(lws *pstWsi, lws_callback_reasons enReason, void *pvUser, std::string_view in);
    int onPreview(lws *pstWsi, lws_callback_reasons enReason, std::string_view in);
    int onWatched(lws_callback_reasons enReason);

private:
    bool enter(lws *pstWsi);
    void leave(lws *pstWsi);
    bool mayConnect(const void *pvUser);
    void makeRoom();
    void tellAll(const std::string &strJson);

    http::Context m_context;
    Site m_site;
    net::Admission m_visitors;
    std::map<BU_U64, std::unique_ptr<Connection>> m_connections; // by number
    BU_U64 m_u64Last = 0;
    std::atomic<bool> m_bStop{false};
};

Connection *connectionOf(lws *pstWsi) { return static_cast<Connection *>(lws_get_opaque_user_data(pstWsi)); }
PreviewLink *linkOf(lws *pstWsi) { return static_cast<PreviewLink *>(lws_get_opaque_user_data(pstWsi)); }

/// The bytes of an event, if it brings any.
std::string_view bytesOf(lws_callback_reasons enReason, const void *pvIn, std::size_t length)
{
    const bool bBytes = enReason == LWS_CALLBACK_RAW_RX;
    return {bBytes ? static_cast<const char *>(pvIn) : "", bBytes ? length : 0};
}
constexpr auto BROWSER = [](LwsServer &server, lws *pstWsi, lws_callback_reasons enReason, void *pvUser, void *pvIn,
                            std::size_t length) {
    return server.onBrowser(pstWsi, enReason, pvUser, bytesOf(enReason, pvIn, length));
};
constexpr auto PREVIEW = [](LwsServer &server, lws *pstWsi, lws_callback_reasons enReason, void *, void *pvIn,
                            std::size_t length) {
    return server.onPreview(pstWsi, enReason, bytesOf(enReason, pvIn, length));
};
constexpr auto WATCHED = [](LwsServer &server, lws *, lws_callback_reasons enReason, void *, void *, std::size_t) {
    return server.onWatched(enReason);
};
template <auto Handle> constexpr auto ON_EVENT = http::onEvent<LwsServer, Handle>;

constexpr lws_protocols PROTOCOLS[] = {{"browser", ON_EVENT<BROWSER>, 0, 0, 0, nullptr, http::WHOLE},
                                       {"preview", ON_EVENT<PREVIEW>, 0, 0, 0, nullptr, http::WHOLE},
                                       {"watched", ON_EVENT<WATCHED>, 0, 0, 0, nullptr, 0},
                                       {}};

bool LwsServer::create()
{
    http::takeLibraryLog(true);
    lws_context_creation_info stInfo =
        http::serverInfo(this, PROTOCOLS, m_site.stConfig.connectionsMax + SPARE_DESCRIPTORS, TLS_HANDSHAKE_S);
    stInfo.options |= LWS_SERVER_OPTION_DO_SSL_GLOBAL_INIT;
    stInfo.pt_serv_buf_size = READ_AT_ONCE;
    m_context.reset(lws_create_context(&stInfo));
    if (!m_context) return false;
    m_site.pstInbox = std::make_shared<util::Mailbox<>>([pst = m_context.get()] { lws_cancel_service(pst); });
    m_site.fnAnswer = [this](BU_U64 u64Number, const Reply &stReply) {
        const auto it = m_connections.find(u64Number);
        if (it != m_connections.end()) it->second->answer(stReply);
    };
    stInfo.vhost_name = "client";
    stInfo.port = CONTEXT_PORT_NO_LISTEN;
    m_site.pstClientVhost = lws_create_vhost(m_context.get(), &stInfo);
    return m_site.pstClientVhost != nullptr;
}

LwsServer::~LwsServer()
{
    if (m_site.pstInbox) m_site.pstInbox->close(); // the context must not be woken any more
    m_context.reset();                             // takes leave of every connection
}

BU_S32 LwsServer::listen(bool bTls, BU_S32 s32Port)
{
    if (s32Port < 0 || s32Port > 65535) return 0;
    const ServerConfig &st = m_site.stConfig;
    lws_context_creation_info stInfo{};
    stInfo.options = LWS_SERVER_OPTION_DISABLE_IPV6 | LWS_SERVER_OPTION_FAIL_UPON_UNABLE_TO_BIND |
                     LWS_SERVER_OPTION_ADOPT_APPLY_LISTEN_ACCEPT_CONFIG;
    stInfo.protocols = PROTOCOLS;
    stInfo.vhost_name = bTls ? "https" : "http";
    stInfo.listen_accept_role = "raw-skt";
    stInfo.listen_accept_protocol = PROTOCOLS[0].name;
    stInfo.iface = st.strBind.c_str();
    stInfo.port = s32Port;
    if (bTls) {
        stInfo.options |= LWS_SERVER_OPTION_DO_SSL_GLOBAL_INIT;
        stInfo.ssl_cert_filepath = st.strCertificate.c_str();
        stInfo.ssl_private_key_filepath = st.strKey.c_str();
        stInfo.ssl_options_set = SSL_OP_NO_TLSv1 | SSL_OP_NO_TLSv1_1 | SSL_OP_NO_RENEGOTIATION;
        stInfo.ssl_cipher_list = "ECDHE+AESGCM:ECDHE+CHACHA20"; // of TLS 1.2; those of 1.3 are all as good
        stInfo.alpn = ""; // HTTP/1.1, which needs no name; with one, the library would read the bytes itself
    }
    lws_vhost *pstVhost = lws_create_vhost(m_context.get(), &stInfo);
    return pstVhost ? lws_get_vhost_listen_port(pstVhost) : 0;
}

bool LwsServer::stopOn(int s32Fd)
{
    lws_sock_file_fd_type unFd{};
    unFd.filefd = s32Fd;
    return lws_adopt_descriptor_vhost(m_site.pstClientVhost, LWS_ADOPT_RAW_FILE_DESC, unFd, "watched", nullptr);
}

void LwsServer::run()
{
    while (!m_bStop && lws_service(m_context.get(), 0) >= 0) {}
}

void LwsServer::stop()
{
    m_bStop = true;
    lws_cancel_service(m_context.get());
}

void LwsServer::tell(std::string_view json)
{
    m_site.pstInbox->post([this, strJson = std::string(json)] { tellAll(strJson); });
}

void LwsServer::setCamera(bool bUp)
{
    m_site.pstInbox->post([this, bUp] {
        m_site.bCamera = bUp;
        tellAll(bUp ? R"({"camera":true})" : R"({"camera":false})");
    });
}

void LwsServer::tellAll(const std::string &strJson)
{
    const auto pstEvent = std::make_shared<const std::string>("data: " + strJson + "\n\n");
    for (Connection *pst : m_site.newsReaders) pst->tell(pstEvent);
}

int LwsServer::onBrowser(lws *pstWsi, lws_callback_reasons enReason, void *pvUser, std::string_view in)
{
    Connection *const pst = enReason == LWS_CALLBACK_EVENT_WAIT_CANCELLED ? nullptr : connectionOf(pstWsi);
    switch (enReason) {
    case LWS_CALLBACK_FILTER_NETWORK_CONNECTION:
        return mayConnect(pvUser) ? 0 : 1;
    case LWS_CALLBACK_RAW_ADOPT:
        return enter(pstWsi) ? 0 : -1;
    case LWS_CALLBACK_RAW_RX:
        return pst && pst->onBytes(in) ? 0 : -1;
    case LWS_CALLBACK_RAW_WRITEABLE:
        return pst && pst->onWritable() ? 0 : -1;
    case LWS_CALLBACK_TIMER:
        return pst && pst->onTimer() ? 0 : -1;
    case LWS_CALLBACK_RAW_CLOSE:
        leave(pstWsi);
        return 0;
    case LWS_CALLBACK_EVENT_WAIT_CANCELLED:
        if (m_site.pstInbox) m_site.pstInbox->run();
        return 0;
    default:
        return 0;
    }
}

int LwsServer::onPreview(lws *pstWsi, lws_callback_reasons enReason, std::string_view in)
{
    PreviewLink *const pst = enReason == LWS_CALLBACK_EVENT_WAIT_CANCELLED ? nullptr : linkOf(pstWsi);
    switch (enReason) {
    case LWS_CALLBACK_RAW_CONNECTED:
        return pst && pst->onConnected(pstWsi) ? 0 : -1;
    case LWS_CALLBACK_RAW_RX:
        return pst && pst->onBytes(in) ? 0 : -1;
    case LWS_CALLBACK_RAW_WRITEABLE:
        return pst && pst->onWritable() ? 0 : -1;
    case LWS_CALLBACK_CLIENT_CONNECTION_ERROR:
    case LWS_CALLBACK_RAW_CLOSE:
        if (pst) pst->onClosed();
        return 0;
    default:
        return 0;
    }
}

int LwsServer::onWatched(lws_callback_reasons enReason)
{
    if (enReason != LWS_CALLBACK_RAW_RX_FILE && enReason != LWS_CALLBACK_RAW_CLOSE_FILE) return 0;
    m_bStop = true;
    return -1;
}

bool LwsServer::enter(lws *pstWsi)
{
    setsockopt(lws_get_socket_fd(pstWsi), SOL_SOCKET, SO_SNDBUF, &SEND_BUFFER, sizeof(SEND_BUFFER));
    const std::string strAddress = http::addressOf(pstWsi);
    auto pst = std::make_unique<Connection>(m_site, pstWsi, ++m_u64Last, strAddress,
                                            std::string_view(lws_get_vhost_name(lws_get_vhost(pstWsi))) == "https");
    lws_set_opaque_user_data(pstWsi, pst.get());
    m_visitors.enter(strAddress);
    m_connections[m_u64Last] = std::move(pst);
    return true;
}

void LwsServer::leave(lws *pstWsi)
{
    const Connection *const pst = connectionOf(pstWsi);
    if (!pst) return;
    lws_set_opaque_user_data(pstWsi, nullptr);
    m_visitors.leave(pst->remote());
    m_connections.erase(pst->number());
}

/// Before anything of it is read. @param pvUser  lws_filter_network_conn_args
bool LwsServer::mayConnect(const void *pvUser)
{
    if (!m_visitors.mayEnter(http::addressOf(pvUser))) return false;
    const std::size_t most = m_site.stConfig.connectionsMax;
    if (m_connections.size() >= most) makeRoom();
    return m_connections.size() < most;
}

/// Ends the connection that has been idle for the longest time. Where none is idle, it is the oldest of the session
/// that has most of them open; all who take their time to be answered without one count as one.
void LwsServer::makeRoom()
{
    const auto oldest = [this](auto mayGo) {
        Connection *pstOldest = nullptr;
        for (const auto &[u64Number, pst] : m_connections)
            if (mayGo(*pst) && (!pstOldest || pst->since() < pstOldest->since())) pstOldest = pst.get();
        return pstOldest;
    };
    Connection *pstLeaves = oldest([](const Connection &connection) { return connection.isIdle(); });
    if (!pstLeaves) {
        std::map<std::string_view, std::size_t> counts;
        for (const auto &[u64Number, pst] : m_connections) counts[pst->session()] += pst->isSending();
        const auto most = std::ranges::max_element(counts, {}, [](const auto &entry) { return entry.second; });
        pstLeaves = oldest([&](const Connection &connection) {
            return connection.isSending() && connection.session() == most->first;
        });
    }
    if (pstLeaves) pstLeaves->end();
}
} // namespace

namespace web_server
{
std::string Site::deviceFolder() { return UTIL_ROOT_Path("/"); }

std::unique_ptr<Server> Server::make(const ServerConfig &stConfig, const Decisions &stDecisions)
{
    auto pst = std::make_unique<LwsServer>(stConfig, stDecisions);
    if (!pst->create()) return nullptr;
    return pst;
}
} // namespace web_server
