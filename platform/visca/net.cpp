// Which ports are open, and what the network thread does when something happens there.
#include "net.h"

#include "util/log.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <future>
#include <sys/epoll.h>

namespace visca
{
namespace
{
// What an event is about: a TCP client has its number, the others stand above all of them.
constexpr BU_U64 WAKE = 1ull << 32, LISTENER = 2ull << 32, OVER_IP = 3ull << 32, PLAIN = 4ull << 32;
constexpr int RETRY_LISTEN_MS = 1000;
constexpr int SOCKET_BUFFER = 1 << 20; // a burst of datagrams waits while a command works

const char *nameOf(CMD_FROM_E enFrom)
{
    return enFrom == CMD_FROM_E_OVER_IP_IN   ? "VISCA over IP"
           : enFrom == CMD_FROM_E_NET_TCP_IN ? "VISCA (tcp)"
                                             : "VISCA (udp)";
}

/// @return null: not possible, the reason is logged
net::Socket openSocket(const Endpoint &endpoint)
{
    const net::Socket socket = endpoint.enFrom == CMD_FROM_E_NET_TCP_IN
                                   ? net::listenTcp(endpoint.strAddress, endpoint.s32Port)
                                   : net::bindUdp(endpoint.strAddress, endpoint.s32Port, SOCKET_BUFFER);
    if (socket) return socket;
    LOG_ERROR("%s cannot listen at %s:%d: %s\n", nameOf(endpoint.enFrom), endpoint.strAddress.c_str(), endpoint.s32Port,
              std::strerror(errno));
    return nullptr;
}
} // namespace

Net &network()
{
    static Net *s_pstNet = new Net;
    return *s_pstNet;
}

bool Net::start(const std::vector<Endpoint> &listEndpoints)
{
    m_epoll = util::FileDescriptor(::epoll_create1(EPOLL_CLOEXEC));
    m_wake = util::FileDescriptor(::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC));
    watch(m_wake, WAKE);
    std::vector<Open> listOpen;
    for (const Endpoint &endpoint : listEndpoints)
        if (const net::Socket socket = openSocket(endpoint))
            listOpen.push_back({endpoint, socket, net::boundPort(*socket)});
    const bool bAny = !listOpen.empty();
    m_udp.forgetPeers();
    install(listOpen);
    m_thread = std::make_unique<util::Thread>("visca_net", [this](const std::stop_token &stop) { loop(stop); });
    return bAny;
}

void Net::stop()
{
    if (!m_thread) return;
    m_thread.reset();
    install({});
    m_tcp.closeAll();
    m_wake = {};
    m_epoll = {};
}

bool Net::change(const std::vector<Endpoint> &listEndpoints, const std::function<bool()> &fnCommit)
{
    std::vector<Open> listOpen;
    {
        const std::lock_guard lock(m_mutexOpen);
        listOpen = m_listOpen;
    }
    std::vector<Open> listNext;
    for (const Endpoint &endpoint : listEndpoints) {
        const auto open = std::ranges::find(listOpen, endpoint, &Open::endpoint);
        const net::Socket socket = open == listOpen.end() ? openSocket(endpoint) : open->socket;
        if (!socket) return false;
        listNext.push_back({endpoint, socket, net::boundPort(*socket)});
    }
    if (!fnCommit()) return false;
    onNetThread([&] { install(listNext); });
    return true;
}

void Net::watch(int s32Fd, BU_U64 u64What)
{
    epoll_event stEvent{EPOLLIN, {}};
    stEvent.data.u64 = u64What;
    ::epoll_ctl(m_epoll, EPOLL_CTL_ADD, s32Fd, &stEvent);
}

/// Thread: network, or none running.
void Net::install(const std::vector<Open> &listOpen)
{
    std::vector<Open> listOld;
    {
        const std::lock_guard lock(m_mutexOpen);
        listOld = std::exchange(m_listOpen, listOpen);
    }
    const auto socketOf = [](const std::vector<Open> &list, CMD_FROM_E enFrom) -> net::Socket {
        const auto open = std::ranges::find(list, enFrom, [](const Open &o) { return o.endpoint.enFrom; });
        return open == list.end() ? nullptr : open->socket;
    };
    for (const auto &[enFrom, u64What] : {std::pair{CMD_FROM_E_OVER_IP_IN, OVER_IP},
                                          {CMD_FROM_E_NET_UDP_IN, PLAIN},
                                          {CMD_FROM_E_NET_TCP_IN, LISTENER}}) {
        const net::Socket old = socketOf(listOld, enFrom), next = socketOf(listOpen, enFrom);
        if (old == next) continue;
        if (old) ::epoll_ctl(m_epoll, EPOLL_CTL_DEL, *old, nullptr);
        if (enFrom == CMD_FROM_E_NET_TCP_IN) {
            m_tcp.closeAll();
            m_pstListener = next ? std::make_unique<net::Listener>(next, "VISCA client") : nullptr;
            m_bListening = next != nullptr;
        } else {
            m_udp.set(enFrom, next);
        }
        if (next) watch(*next, u64What);
    }
}

BU_U16 Net::portOf(CMD_FROM_E enFrom) const
{
    const std::lock_guard lock(m_mutexOpen);
    const auto open = std::ranges::find(m_listOpen, enFrom, [](const Open &o) { return o.endpoint.enFrom; });
    return open == m_listOpen.end() ? BU_U16{0} : open->u16Port;
}

void Net::onNetThread(const std::function<void()> &fnTask)
{
    if (isNetThread() || !m_thread) return fnTask();
    std::promise<void> done;
    m_tasks.post([&] {
        fnTask();
        done.set_value();
    });
    done.get_future().wait();
}

void Net::loop(const std::stop_token &stop)
{
    m_threadId = std::this_thread::get_id();
    const std::stop_callback wake(stop, [this] { m_tasks.wake(); });
    while (!stop.stop_requested()) {
        m_buffers = 0;
        m_u32Turn = m_turn.begin();
        const bool bPaused = m_pstListener && !m_bListening;
        collect(bPaused ? RETRY_LISTEN_MS : -1);
        m_turn.process();
        flush();
        if (bPaused) listenForClients(true);
    }
    m_threadId = std::thread::id();
}

void Net::collect(int timeoutMs)
{
    std::array<epoll_event, 64> event;
    if (m_buffers == m_buffer.size()) return;
    const int count = ::epoll_wait(m_epoll, event.data(), static_cast<int>(event.size()), timeoutMs);
    for (int i = 0; i < count; ++i) handleEvent(event[i].data.u64, event[i].events);
}

void Net::handleEvent(BU_U64 u64What, BU_U32 u32Events)
{
    const auto buffers = std::span(m_buffer).subspan(m_buffers);
    if (u64What == WAKE) {
        eventfd_t count = 0;
        ::eventfd_read(m_wake, &count);
        m_tasks.run();
    } else if (u64What == LISTENER) {
        if (m_pstListener) listenForClients(m_tcp.acceptFrom(*m_pstListener, m_epoll));
    } else if (buffers.empty())
        return; // heard of again in the next turn
    else if (u64What == OVER_IP || u64What == PLAIN)
        m_buffers += m_udp.receive(u64What == OVER_IP ? CMD_FROM_E_OVER_IP_IN : CMD_FROM_E_NET_UDP_IN, m_turn,
                                   m_u32Turn, buffers);
    else if (m_tcp.handle(static_cast<BU_U32>(u64What), u32Events, m_turn, m_u32Turn, buffers.front()))
        ++m_buffers;
}

/// Off: connections wait in the queue of the system without waking the thread.
void Net::listenForClients(bool bOn)
{
    if (bOn == m_bListening || !m_pstListener) return;
    m_bListening = bOn;
    if (!bOn) LOG_WARN("no file descriptors for VISCA clients, new ones wait\n");
    epoll_event stEvent{bOn ? BU_U32{EPOLLIN} : 0u, {}};
    stEvent.data.u64 = LISTENER;
    ::epoll_ctl(m_epoll, EPOLL_CTL_MOD, m_pstListener->fd(), &stEvent);
}

void Net::flush()
{
    m_udp.flush();
    m_tcp.flush();
}
} // namespace visca
