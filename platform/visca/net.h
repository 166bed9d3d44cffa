/// The network receiver: one thread for all ports and clients.
#pragma once

#include "tcp.h"
#include "udp.h"
#include "util/mailbox.h"
#include "util/thread.h"

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <sys/eventfd.h>

namespace visca
{
/// Where a receiver listens.
struct Endpoint {
    CMD_FROM_E enFrom{}; ///< OVER_IP_IN, NET_UDP_IN or NET_TCP_IN
    std::string strAddress;
    BU_S32 s32Port = 0; ///< 0: any free one
    bool operator==(const Endpoint &) const = default;
};

class Net
{
public:
    /// Opens what can be opened and starts to receive. What cannot is logged. @return whether something listens
    bool start(const std::vector<Endpoint> &listEndpoints);
    /// Returns when the thread has ended; every connection is closed.
    void stop();
    bool isRunning() const { return m_thread != nullptr; }

    /// Makes `listEndpoints` the open ones: those open already stay as they are, others are closed. First calls
    /// `fnCommit` when all new ones could be opened. @return false: one could not, or fnCommit said no: all as before
    bool change(const std::vector<Endpoint> &listEndpoints, const std::function<bool()> &fnCommit);

    /// The port that a kind of receiver got; 0: it does not listen.
    BU_U16 portOf(CMD_FROM_E enFrom) const;

    /// Answers that the network thread sends are gathered: they leave together when it has done what it was asked.
    BU_S32 sendUdp(const VISCA_MSG_PRI_S &stPri, std::span<const BU_U8> bytes)
    {
        return m_udp.send(stPri, bytes, isNetThread());
    }
    BU_S32 sendTcp(const VISCA_MSG_PRI_S &stPri, std::span<const BU_U8> bytes)
    {
        return m_tcp.send(stPri, bytes, isNetThread());
    }

private:
    struct Open {
        Endpoint endpoint;
        net::Socket socket;
        BU_U16 u16Port = 0;
    };
    bool isNetThread() const { return m_threadId == std::this_thread::get_id(); }
    void loop(const std::stop_token &stop);
    void collect(int timeoutMs);
    void handleEvent(BU_U64 u64What, BU_U32 u32Events);
    void onNetThread(const std::function<void()> &fnTask);
    void watch(int s32Fd, BU_U64 u64What);
    void install(const std::vector<Open> &listOpen);
    void listenForClients(bool bOn);
    void flush();

    mutable std::mutex m_mutexOpen; ///< guards m_listOpen
    std::vector<Open> m_listOpen;
    std::atomic<std::thread::id> m_threadId; ///< of the network thread while it runs
    util::FileDescriptor m_epoll, m_wake;
    util::Mailbox<> m_tasks{[this] { ::eventfd_write(m_wake, 1); }};
    // Of the network thread:
    std::unique_ptr<net::Listener> m_pstListener;
    bool m_bListening = false;
    UdpPorts m_udp;
    TcpClients m_tcp;
    std::vector<std::array<BU_U8, 512>> m_buffer{Turn::MAX_SOURCES};
    std::size_t m_buffers = 0; ///< in use in this turn
    BU_U32 m_u32Turn = 0;
    Turn m_turn{[this] { flush(); }, [this] { collect(0); }};
    std::unique_ptr<util::Thread> m_thread;
};
/// The camera's one; it lives as long as the process.
Net &network();
} // namespace visca
