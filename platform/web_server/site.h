/// What all connections share.
#pragma once

#include "drives.h"
#include "files.h"
#include "server.h"
#include "util/mailbox.h"
#include "worker.h"

#include <functional>
#include <set>

struct lws_vhost;

namespace web_server
{
class Connection;

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
    std::shared_ptr<util::Mailbox<>> pstInbox;           // the way back to the network thread
    lws_vhost *pstClientVhost = nullptr;                 // of connections to the preview
    std::function<void(BU_U64, const Reply &)> fnAnswer; // on the network thread: the reply of a connection, by number
    std::set<Connection *> newsReaders;
    Drives drives;
    bool bCamera = false;
    Worker worker; // last: ends first
};
} // namespace web_server
