/// The listening socket, its connections, and the threads that read, run and answer calls.
#pragma once

#include "connection.h"
#include "lanes.h"
#include "net/listener.h"
#include "util/thread.h"

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace web_rpc
{
/// What the camera answers: WEB_CLIENT_RESULT_E and the bytes.
struct Result {
    BU_S32 s32Result;
    std::string strBytes;
};

class Server
{
public:
    static constexpr std::size_t HANDLERS = 4; ///< calls that run at once; one more thread goes on reading

    /// @param fnRun  runs a call or answers a question, on a thread of the server
    /// @return null: cannot listen, the reason is logged
    static std::unique_ptr<Server> open(std::function<Result(const Call &)> fnRun);
    /// Waits for calls that run; never from inside one.
    ~Server();
    Server(const Server &) = delete;
    Server &operator=(const Server &) = delete;

    /// Outlives the server, so that news may be told at any time.
    std::shared_ptr<Clients> clients() const { return m_pstClients; }

private:
    Server(util::FileDescriptor listener, std::function<Result(const Call &)> fnRun);
    bool watch();
    void work();
    void enter(util::FileDescriptor fd);
    void serve(BU_U64 u64Number, BU_U32 u32Events, std::vector<BU_CHAR> &buffer);
    void part(Connection &connection);
    void receive(const std::shared_ptr<Connection> &pst, const Message &stMessage);
    void run(Call stCall);

    net::Listener m_listener;
    const util::FileDescriptor m_epoll, m_stop;
    const std::function<Result(const Call &)> m_fnRun;
    const std::shared_ptr<Clients> m_pstClients = std::make_shared<Clients>();
    Lanes m_lanes{HANDLERS};
    std::atomic<BU_U64> m_u64Last;
    std::vector<util::Thread> m_threads; // last: end first
};
} // namespace web_rpc
