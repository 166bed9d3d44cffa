#include "net.h"

#include "util/log.h"

#include <algorithm>
#include <arpa/inet.h>
#include <cerrno>
#include <cstring>
#include <future>
#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <unistd.h>

namespace visca
{
namespace
{
// What an event is about: a TCP client has its number, the others stand above all of them.
constexpr BU_U64 WAKE = 1ull << 32, LISTENER = 2ull << 32, OVER_IP = 3ull << 32, PLAIN = 4ull << 32;
constexpr int RETRY_LISTEN_MS = 1000;
constexpr int SOCKET_BUFFER = 1 << 20; // a burst of datagrams waits while a command works

thread_local const Net *t_pstNet = nullptr;

const char *nameOf(CMD_FROM_E enFrom)
{
    return enFrom == CMD_FROM_E_OVER_IP_IN   ? "VISCA over IP"
           : enFrom == CMD_FROM_E_NET_TCP_IN ? "VISCA (tcp)"
                                             : "VISCA (udp)";
}

BU_U16 boundPort(int fd)
{
    sockaddr_in stAddress{};
    socklen_t size = sizeof stAddress;
    ::getsockname(fd, reinterpret_cast<sockaddr *>(&stAddress), &size);
    return ntohs(stAddress.sin_port);
}

/// A socket that listens at the endpoint; -1 with the reason logged.
int openSocket(const Endpoint &endpoint)
{
    const bool bTcp = endpoint.enFrom == CMD_FROM_E_NET_TCP_IN;
    sockaddr_in stAddress{};
    stAddress.sin_family = AF_INET;
    stAddress.sin_port = htons(static_cast<BU_U16>(endpoint.s32Port));
    const int fd = ::socket(AF_INET, (bTcp ? SOCK_STREAM : SOCK_DGRAM) | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    const int on = 1;
    if (fd >= 0 && bTcp) ::setsockopt(fd, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on); // past connections in TIME_WAIT
    if (fd >= 0 && !bTcp) ::setsockopt(fd, SOL_SOCKET, SO_RCVBUF, &SOCKET_BUFFER, sizeof SOCKET_BUFFER);
    errno = EINVAL;
    if (fd >= 0 && ::inet_pton(AF_INET, endpoint.strAddress.c_str(), &stAddress.sin_addr) == 1 &&
        ::bind(fd, reinterpret_cast<const sockaddr *>(&stAddress), sizeof stAddress) == 0 &&
        (!bTcp || ::listen(fd, 512) == 0))
        return fd;
    LOG_ERROR("%s cannot listen at %s:%d: %s\n", nameOf(endpoint.enFrom), endpoint.strAddress.c_str(), endpoint.s32Port,
              std::strerror(errno));
    if (fd >= 0) ::close(fd);
    return -1;
}
} // namespace

Net &net()
{
    static Net *s_pstNet = new Net;
    return *s_pstNet;
}

bool Net::start(const std::vector<Endpoint> &listEndpoints)
{
    m_fdEpoll = ::epoll_create1(EPOLL_CLOEXEC);
    m_fdWake = ::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);
    epoll_event stWake{EPOLLIN, {}};
    stWake.data.u64 = WAKE;
    ::epoll_ctl(m_fdEpoll, EPOLL_CTL_ADD, m_fdWake, &stWake);
    std::vector<Open> listOpen;
    for (const Endpoint &endpoint : listEndpoints)
        if (const int fd = openSocket(endpoint); fd >= 0) listOpen.push_back({endpoint, fd, boundPort(fd)});
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
    ::close(std::exchange(m_fdWake, -1));
    ::close(std::exchange(m_fdEpoll, -1));
}

bool Net::change(const std::vector<Endpoint> &listEndpoints, const std::function<bool()> &fnCommit)
{
    std::vector<Open> listOpen;
    std::vector<int> listNew;
    {
        const std::lock_guard lock(m_mutexOpen);
        listOpen = m_listOpen;
    }
    std::vector<Open> listNext;
    for (const Endpoint &endpoint : listEndpoints) {
        const auto open = std::ranges::find(listOpen, endpoint, &Open::endpoint);
        if (open == listOpen.end()) listNew.push_back(openSocket(endpoint));
        const int fd = open == listOpen.end() ? listNew.back() : open->fd;
        listNext.push_back({endpoint, fd, fd >= 0 ? boundPort(fd) : BU_U16{0}});
    }
    const bool bOk = std::ranges::find(listNew, -1) == listNew.end() && fnCommit();
    if (!bOk)
        std::ranges::for_each(listNew, [](int fd) {
            if (fd >= 0) ::close(fd);
        });
    else
        onNetThread([&] { install(listNext); });
    return bOk;
}

/// Thread: network, or none running.
void Net::install(const std::vector<Open> &listOpen)
{
    std::vector<Open> listOld;
    {
        const std::lock_guard lock(m_mutexOpen);
        listOld = std::exchange(m_listOpen, listOpen);
    }
    const auto fdOf = [](const std::vector<Open> &list, CMD_FROM_E enFrom) {
        const auto open = std::ranges::find(list, enFrom, [](const Open &o) { return o.endpoint.enFrom; });
        return open == list.end() ? -1 : open->fd;
    };
    for (const auto &[enFrom, u64What] : {std::pair{CMD_FROM_E_OVER_IP_IN, OVER_IP},
                                          {CMD_FROM_E_NET_UDP_IN, PLAIN},
                                          {CMD_FROM_E_NET_TCP_IN, LISTENER}}) {
        const int fdOld = fdOf(listOld, enFrom), fdNew = fdOf(listOpen, enFrom);
        if (fdOld == fdNew) continue;
        if (enFrom == CMD_FROM_E_NET_TCP_IN) {
            m_tcp.closeAll();
            if (fdOld >= 0) ::close(fdOld);
            m_fdListen = fdNew;
            m_bListening = fdNew >= 0;
        } else {
            m_udp.set(enFrom, fdNew);
        }
        epoll_event stEvent{EPOLLIN, {}};
        stEvent.data.u64 = u64What;
        if (fdNew >= 0) ::epoll_ctl(m_fdEpoll, EPOLL_CTL_ADD, fdNew, &stEvent);
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
    if (t_pstNet == this || !m_thread) return fnTask();
    std::promise<void> done;
    {
        const std::lock_guard lock(m_mutexTask);
        m_listTask.push_back([&] {
            fnTask();
            done.set_value();
        });
    }
    ::eventfd_write(m_fdWake, 1);
    done.get_future().wait();
}

void Net::runTasks()
{
    eventfd_t count = 0;
    ::eventfd_read(m_fdWake, &count);
    std::vector<std::function<void()>> listTask;
    {
        const std::lock_guard lock(m_mutexTask);
        listTask.swap(m_listTask);
    }
    for (const auto &fnTask : listTask) fnTask();
}

void Net::loop(const std::stop_token &stop)
{
    t_pstNet = this;
    m_udp.gatherHere();
    m_tcp.gatherHere();
    const std::stop_callback wake(stop, [this] { ::eventfd_write(m_fdWake, 1); });
    while (!stop.stop_requested()) {
        m_buffers = 0;
        m_u32Turn = m_turn.begin();
        const bool bPaused = m_fdListen >= 0 && !m_bListening;
        collect(bPaused ? RETRY_LISTEN_MS : -1);
        m_turn.process();
        flush();
        if (bPaused) listenForClients(true);
    }
    t_pstNet = nullptr;
}

void Net::collect(int timeoutMs)
{
    std::array<epoll_event, 64> event;
    if (m_buffers == m_buffer.size()) return;
    const int count = ::epoll_wait(m_fdEpoll, event.data(), static_cast<int>(event.size()), timeoutMs);
    for (int i = 0; i < count; ++i) handleEvent(event[i].data.u64, event[i].events);
}

void Net::handleEvent(BU_U64 u64What, BU_U32 u32Events)
{
    const auto buffers = std::span(m_buffer).subspan(m_buffers);
    if (u64What == WAKE)
        runTasks();
    else if (u64What == LISTENER)
        listenForClients(m_tcp.acceptFrom(m_fdListen, m_fdEpoll));
    else if (buffers.empty())
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
    if (bOn == m_bListening || m_fdListen < 0) return;
    m_bListening = bOn;
    if (!bOn) LOG_WARN("no file descriptors for VISCA clients, new ones wait\n");
    epoll_event stEvent{bOn ? BU_U32{EPOLLIN} : 0u, {}};
    stEvent.data.u64 = LISTENER;
    ::epoll_ctl(m_fdEpoll, EPOLL_CTL_MOD, m_fdListen, &stEvent);
}

void Net::flush()
{
    m_udp.flush();
    m_tcp.flush();
}
} // namespace visca
