/// What all connections share.
#pragma once

#include "drives.h"
#include "files.h"
#include "server.h"
#include "worker.h"

#include <functional>
#include <mutex>
#include <set>
#include <vector>

struct lws_context;
struct lws_vhost;

namespace web
{
class Connection;

/// The way back to the network thread. Thread: any.
class Inbox
{
public:
    explicit Inbox(lws_context *pstContext) : m_pstContext(pstContext) {}
    void post(std::function<void()> fn);
    void close(); ///< what is posted from now on is dropped
    std::vector<std::function<void()>> take();

private:
    std::mutex m_lock; // guards everything below
    lws_context *m_pstContext;
    std::vector<std::function<void()>> m_waiting;
};

/// Thread: the network thread, but for the inbox and the worker.
struct Site {
    Site(const ServerConfig &st, const Decisions &decisions)
        : stConfig(st), stDecisions(decisions), page(st.strPage), device(deviceFolder())
    {
    }
    static std::string deviceFolder();

    const ServerConfig stConfig;
    const Decisions stDecisions;
    Folder page, device;
    std::shared_ptr<Inbox> pstInbox;
    lws_vhost *pstClientVhost = nullptr;                 // of connections to the preview
    std::function<void(BU_U64, const Reply &)> fnAnswer; // on the network thread: the reply of a connection, by number
    std::set<Connection *> newsReaders;
    Drives drives;
    bool bCamera = false;
    Worker worker; // last: ends first
};
} // namespace web
