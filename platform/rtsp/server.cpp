#include "server.h"

#include "gstreamer.h"
#include "media.h"
#include "util/log.h"
#include "util/time.h"
#include "viewers.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <fcntl.h>
#include <gio/gio.h>
#include <glib-unix.h>
#include <gst/rtsp-server/rtsp-server.h>
#include <string_view>
#include <sys/socket.h>

namespace rtsp
{
namespace
{
constexpr guint REQUEST_BODY_MAX = 4096;
constexpr gint CLIENT_THREADS = 4;
constexpr guint LEAVING_MS = 50;
constexpr guint PATIENCE_MS = 2000;              // with clients that are sent away at the end
constexpr const BU_CHAR *OWNER = "camera-owner"; // name of object data
constexpr guint SESSIONS_OF_CLIENT_MAX = 4;

/// The library looks at credentials once it has found the session: its 404 would tell which names there are.
gboolean checkAccess(GstRTSPAuth *pstAuth, GstRTSPContext *pstContext, const gchar *pcCheck)
{
    constexpr int NAMING = GST_RTSP_DESCRIBE | GST_RTSP_SETUP | GST_RTSP_ANNOUNCE | GST_RTSP_RECORD;
    GstRTSPAuthClass *pstClass = GST_RTSP_AUTH_GET_CLASS(pstAuth);
    if (g_str_equal(pcCheck, GST_RTSP_AUTH_CHECK_URL) && (pstContext->method & NAMING) != 0 && !pstContext->token &&
        (!pstClass->authenticate(pstAuth, pstContext) || !pstContext->token)) {
        constexpr GstRTSPStatusCode enStatus = GST_RTSP_STS_UNAUTHORIZED;
        gst_rtsp_message_init_response(pstContext->response, enStatus, gst_rtsp_status_as_text(enStatus),
                                       pstContext->request);
        pstClass->generate_authenticate_header(pstAuth, pstContext);
        gst_rtsp_client_send_message(pstContext->client, pstContext->session, pstContext->response);
        return FALSE;
    }
    return static_cast<GstRTSPAuthClass *>(g_type_class_peek_parent(pstClass))->check(pstAuth, pstContext, pcCheck);
}

GType authType()
{
    static const GType type = g_type_register_static_simple(
        GST_TYPE_RTSP_AUTH, "CameraRtspAuth", sizeof(GstRTSPAuthClass),
        [](gpointer pvClass, gpointer) { static_cast<GstRTSPAuthClass *>(pvClass)->check = checkAccess; },
        sizeof(GstRTSPAuth), nullptr, GTypeFlags{});
    return type;
}

GstRTSPAuth *newAuth(const std::vector<Credential> &listCredentials)
{
    auto *pstAuth = static_cast<GstRTSPAuth *>(g_object_new(authType(), nullptr));
    gst_rtsp_auth_set_supported_methods(pstAuth,
                                        static_cast<GstRTSPAuthMethod>(GST_RTSP_AUTH_BASIC | GST_RTSP_AUTH_DIGEST));
    gst_rtsp_auth_set_realm(pstAuth, "camera");
    GstRTSPToken *pstToken = gst_rtsp_token_new(GST_RTSP_TOKEN_MEDIA_FACTORY_ROLE, G_TYPE_STRING, VIEWER, nullptr);
    for (const auto &[strUser, strPassword] : listCredentials) {
        gchar *pcBasic = gst_rtsp_auth_make_basic(strUser.c_str(), strPassword.c_str());
        gst_rtsp_auth_add_basic(pstAuth, pcBasic, pstToken);
        g_free(pcBasic);
        gst_rtsp_auth_add_digest(pstAuth, strUser.c_str(), strPassword.c_str(), pstToken);
    }
    gst_rtsp_token_unref(pstToken);
    return pstAuth;
}

bool isSilent(GstRTSPClient *pstClient)
{
    return UTIL_TIME_NowMs() - visitOf(pstClient).s64SinceMs >= Server::SILENT_MAX_MS && countSessions(pstClient) == 0;
}

GstRTSPStatusCode allowSetup(GstRTSPClient *pstClient, GstRTSPContext *pstContext)
{
    return pstContext->session || countSessions(pstClient) < SESSIONS_OF_CLIENT_MAX ? GST_RTSP_STS_OK
                                                                                    : GST_RTSP_STS_SERVICE_UNAVAILABLE;
}

void noteSession(GstRTSPClient *pstClient, GstRTSPSession *pstSession)
{
    visitOf(pstClient).listSessions.emplace_back(gst_rtsp_session_get_sessionid(pstSession));
}

void adjustAnswer(GstRTSPClient *, GstRTSPContext *pstContext, GstRTSPMessage *pstAnswer)
{
    if (pstContext && pstContext->media && pstContext->method == GST_RTSP_PLAY)
        tellPosition(pstContext->media, pstAnswer);
}

/// Sessions of a client that has left would stay until they time out, and take the place of others.
void endSessions(GstRTSPServer *pstServer, const std::vector<std::string> &listSessions)
{
    GstRTSPSessionPool *pstPool = gst_rtsp_server_get_session_pool(pstServer);
    for (const std::string &strSession : listSessions)
        if (GstRTSPSession *pst = gst_rtsp_session_pool_find(pstPool, strSession.c_str())) {
            gst_rtsp_session_pool_remove(pstPool, pst);
            g_object_unref(pst);
        }
    g_object_unref(pstPool);
}

/// A client is made known before its thread serves it: afterwards it may have left already.
GstRTSPClient *createClient(GstRTSPServer *pstServer)
{
    GstRTSPServerClass *pstParent = GST_RTSP_SERVER_CLASS(g_type_class_peek_parent(G_OBJECT_GET_CLASS(pstServer)));
    GstRTSPClient *pstClient = pstParent->create_client(pstServer);
    static_cast<Server *>(g_object_get_data(G_OBJECT(pstServer), OWNER))->greet(pstClient);
    return pstClient;
}

GType serverType()
{
    static const GType type = g_type_register_static_simple(
        GST_TYPE_RTSP_SERVER, "CameraRtspServer", sizeof(GstRTSPServerClass),
        [](gpointer pvClass, gpointer) { static_cast<GstRTSPServerClass *>(pvClass)->create_client = createClient; },
        sizeof(GstRTSPServer), nullptr, GTypeFlags{});
    return type;
}
} // namespace

Server::Server() : m_thread("rtsp", [this](const std::stop_token &stop) { run(stop); }) {}
Server::~Server() = default;

void Server::run(const std::stop_token &stop)
{
    const std::stop_callback wake(stop, [this] { m_pstInbox->post([] {}); });
    g_main_context_push_thread_default(m_pstInbox->context());
    if (loadGStreamer()) setUp();
    while (!stop.stop_requested()) m_pstInbox->waitAndRun();
    if (m_pstServer) tearDown();
    g_main_context_pop_thread_default(m_pstInbox->context());
}

void Server::setUp()
{
    m_fdReserve = util::FileDescriptor(::open("/dev/null", O_RDONLY | O_CLOEXEC));
    m_pstServer = static_cast<GstRTSPServer *>(g_object_new(serverType(), nullptr));
    GstRTSPThreadPool *pstThreads = gst_rtsp_server_get_thread_pool(m_pstServer);
    gst_rtsp_thread_pool_set_max_threads(pstThreads, CLIENT_THREADS);
    g_object_unref(pstThreads);
    GstRTSPSessionPool *pstPool = gst_rtsp_server_get_session_pool(m_pstServer);
    gst_rtsp_session_pool_set_max_sessions(pstPool, CLIENTS_MAX);
    g_object_unref(pstPool);
    g_object_set_data(G_OBJECT(m_pstServer), OWNER, this);
}

void Server::serve(std::vector<Listener> listListeners, std::vector<Credential> listCredentials)
{
    // A function that is copied may not hold what cannot be.
    auto pstListeners = std::make_shared<std::vector<Listener>>(std::move(listListeners));
    m_pstInbox->post([this, pstListeners, listCredentials = std::move(listCredentials)] {
        if (!m_pstServer) return;
        if (!listCredentials.empty()) {
            GstRTSPAuth *pstAuth = newAuth(listCredentials);
            gst_rtsp_server_set_auth(m_pstServer, pstAuth);
            g_object_unref(pstAuth);
        }
        m_listListeners = std::move(*pstListeners);
        for (const Listener &stListener : m_listListeners) {
            GSource *pstSource = g_unix_fd_source_new(stListener.fd, G_IO_IN);
            g_source_set_callback(pstSource, G_SOURCE_FUNC(+[](gint fd, GIOCondition, gpointer pv) {
                                      static_cast<Server *>(pv)->acceptFrom(fd);
                                      return G_SOURCE_CONTINUE;
                                  }),
                                  this, nullptr);
            g_source_attach(pstSource, m_pstInbox->context());
            m_listSources.push_back(pstSource);
        }
    });
}

void Server::addMount(std::string strName, std::vector<Track> listTracks)
{
    m_pstInbox->post([this, strName = std::move(strName), listTracks = std::move(listTracks)] {
        if (m_pstServer) m_listMounts.push_back(std::make_unique<Mount>(m_pstServer, strName, listTracks));
    });
}

void Server::removeMount(std::string strName)
{
    m_pstInbox->post([this, strName = std::move(strName)] {
        std::erase_if(m_listMounts, [&](const auto &pst) { return pst->name() == strName; });
    });
}

void Server::withMount(std::string strName, void (Mount::*pfn)())
{
    m_pstInbox->post([this, strName = std::move(strName), pfn] {
        for (const auto &pst : m_listMounts)
            if (pst->name() == strName) ((*pst).*pfn)();
    });
}

void Server::refuseClients()
{
    m_pstInbox->post([this] {
        for (GSource *pstSource : m_listSources) {
            g_source_destroy(pstSource);
            g_source_unref(pstSource);
        }
        m_listSources.clear();
        m_listListeners.clear();
    });
}

void Server::tick()
{
    m_pstInbox->post([this] {
        if (!m_pstServer) return;
        GstRTSPSessionPool *pstPool = gst_rtsp_server_get_session_pool(m_pstServer);
        gst_rtsp_session_pool_cleanup(pstPool);
        g_object_unref(pstPool);
        dismissClients(m_pstServer, isSilent);
        std::erase_if(m_listConnections, [](const auto &pst) { return !pst->check(); });
        for (const auto &pst : m_listMounts) pst->tend();
    });
}

void Server::acceptFrom(int fdListener)
{
    for (;;) {
        const int fd = ::accept4(fdListener, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
        if (fd >= 0) {
            admit(fd);
        } else if (errno == EMFILE || errno == ENFILE) {
            m_fdReserve = {};
            const bool bRefused = util::FileDescriptor(::accept4(fdListener, nullptr, nullptr, SOCK_CLOEXEC)) >= 0;
            m_fdReserve = util::FileDescriptor(::open("/dev/null", O_RDONLY | O_CLOEXEC)); // its place is free again
            if (!bRefused) return;
        } else if (errno != EINTR && errno != ECONNABORTED) {
            return;
        }
    }
}

void Server::admit(int fd)
{
    constexpr std::string_view BUSY = "RTSP/1.0 503 Service Unavailable\r\n\r\n";
    const bool bFull = m_u32Clients >= CLIENTS_MAX;
    if (bFull) static_cast<void>(::send(fd, BUSY.data(), BUSY.size(), MSG_NOSIGNAL));
    GSocket *pstSocket = bFull ? nullptr : g_socket_new_from_fd(fd, nullptr);
    if (!pstSocket) {
        ::close(fd);
        return;
    }
    m_listConnections.push_back(std::make_shared<Connection>(pstSocket)); // greet finds it there
    sockaddr_in stPeer{};
    socklen_t size = sizeof stPeer;
    ::getpeername(fd, reinterpret_cast<sockaddr *>(&stPeer), &size);
    std::array<char, INET_ADDRSTRLEN> acAddress{};
    ::inet_ntop(AF_INET, &stPeer.sin_addr, acAddress.data(), acAddress.size());
    gst_rtsp_server_transfer_connection(m_pstServer, pstSocket, acAddress.data(), ntohs(stPeer.sin_port), nullptr);
}

void Server::greet(GstRTSPClient *pstClient)
{
    ++m_u32Clients;
    gst_rtsp_client_set_content_length_limit(pstClient, REQUEST_BODY_MAX);
    keepVisit(pstClient, {UTIL_TIME_NowMs(), m_listConnections.back(), {}});
    g_signal_connect(pstClient, "pre-setup-request", G_CALLBACK(allowSetup), nullptr);
    g_signal_connect(pstClient, "new-session", G_CALLBACK(noteSession), nullptr);
    g_signal_connect(pstClient, "send-message", G_CALLBACK(adjustAnswer), nullptr);
    const auto onRequest = G_CALLBACK(+[](GstRTSPClient *, GstRTSPContext *pstContext, Desk *pst) {
        // The media is only compared with others: it need not be there any more then.
        const GstRTSPMedia *pstPlayed = pstContext->method == GST_RTSP_PLAY ? pstContext->media : nullptr;
        pst->pstInbox->post([pst = pst->pstServer, pstPlayed] { pst->onRequest(pstPlayed); });
    });
    const auto onClosed = G_CALLBACK(+[](GstRTSPClient *pstGone, Desk *pst) {
        pst->pstInbox->post([pst = pst->pstServer, list = visitOf(pstGone).listSessions] { pst->onGone(list); });
    });
    const auto connect = [&](const BU_CHAR *pcSignal, GCallback pfn) {
        g_signal_connect_data(
            pstClient, pcSignal, pfn, new Desk{m_pstInbox, this},
            [](gpointer pv, GClosure *) { delete static_cast<Desk *>(pv); }, GConnectFlags{});
    };
    connect("play-request", onRequest);
    connect("pause-request", onRequest);
    connect("teardown-request", onRequest);
    connect("closed", onClosed);
}

void Server::onRequest(const GstRTSPMedia *pstPlayed)
{
    followViewers(pstPlayed);
    if (!pstPlayed) lookAgainSoon();
}

void Server::onGone(const std::vector<std::string> &listSessions)
{
    --m_u32Clients;
    endSessions(m_pstServer, listSessions);
    followViewers(nullptr);
    lookAgainSoon();
}

/// The word that a viewer leaves comes from a thread that has yet to let go of him.
void Server::lookAgainSoon()
{
    GSource *pstSource = g_timeout_source_new(LEAVING_MS);
    g_source_set_callback(
        pstSource,
        [](gpointer pv) -> gboolean {
            static_cast<Server *>(pv)->followViewers(nullptr);
            return G_SOURCE_REMOVE;
        },
        this, nullptr);
    g_source_attach(pstSource, m_pstInbox->context());
    g_source_unref(pstSource);
}

void Server::followViewers(const GstRTSPMedia *pstPlayed)
{
    for (const auto &pst : m_listMounts) pst->followViewers(pstPlayed);
}

void Server::tearDown()
{
    refuseClients();
    m_pstInbox->runEvents();
    m_listMounts.clear();
    dismissClients(m_pstServer, [](GstRTSPClient *) { return true; });
    bool bPatient = true;
    GSource *pstPatience = g_timeout_source_new(PATIENCE_MS);
    g_source_set_callback(
        pstPatience, [](gpointer pv) -> gboolean { return *static_cast<bool *>(pv) = false; }, &bPatient, nullptr);
    g_source_attach(pstPatience, m_pstInbox->context());
    while (m_u32Clients > 0 && bPatient) m_pstInbox->waitAndRun();
    g_source_destroy(pstPatience);
    g_source_unref(pstPatience);
    if (m_u32Clients > 0) LOG_WARN("rtsp: %u clients did not leave in time", m_u32Clients);
    m_listConnections.clear();
    g_clear_object(&m_pstServer);
    gst_rtsp_thread_pool_cleanup();
}
} // namespace rtsp
