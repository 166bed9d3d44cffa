/// The server at work: a thread that takes clients in and looks after the sessions, above GStreamer's RTSP server.
#pragma once

#include "connection.h"
#include "inbox.h"
#include "listener.h"
#include "mount.h"
#include "util/thread.h"

typedef struct _GSource GSource;
typedef struct _GstRTSPClient GstRTSPClient;

namespace rtsp
{
struct Credential {
    std::string strUser, strPassword;
};

class Server
{
public:
    static constexpr BU_U32 CLIENTS_MAX = 512;
    static constexpr BU_S64 SILENT_MAX_MS = 30'000; ///< for which a client may stay without a session

    /// GStreamer is loaded by the new thread, beside whatever the caller goes on with.
    Server();
    /// Sends all clients away and frees everything.
    ~Server();

    // Thread: any. Carried out later, in this order.
    void serve(std::vector<Listener> listListeners, std::vector<Credential> listCredentials);
    void addMount(std::string strName, std::vector<Track> listTracks);
    void removeMount(std::string strName);
    void withMount(std::string strName, void (Mount::*pfn)());
    void refuseClients();
    void tick(); ///< once a second

    void greet(GstRTSPClient *pstClient); ///< a client that is being made; thread: server

private:
    void run(const std::stop_token &stop);
    void setUp();
    void tearDown();
    void acceptFrom(int fdListener);
    void admit(int fd);
    void onRequest(const GstRTSPMedia *pstPlayed);
    void onGone(const std::vector<std::string> &listSessions);
    void followViewers(const GstRTSPMedia *pstPlayed);
    void lookAgainSoon();

    /// Where call-backs on GStreamer's threads leave word for the server's.
    struct Desk {
        std::shared_ptr<Inbox> pstInbox;
        Server *pstServer; ///< for what is posted: it is gone when nobody empties the inbox any more
    };

    std::shared_ptr<Inbox> m_pstInbox = std::make_shared<Inbox>();
    // Of the server's thread:
    GstRTSPServer *m_pstServer = nullptr; ///< null: GStreamer could not be loaded
    std::vector<Listener> m_listListeners;
    std::vector<GSource *> m_listSources;
    std::vector<std::unique_ptr<Mount>> m_listMounts;
    std::vector<std::shared_ptr<Connection>> m_listConnections; ///< perhaps gone already
    BU_U32 m_u32Clients = 0;
    util::FileDescriptor m_fdReserve; ///< given up to take and close a connection when descriptors run out

    util::Thread m_thread; ///< last: it uses the rest
};
} // namespace rtsp
