// How clients come, are read, answered and go.
#include "tcp.h"

#include "util/log.h"

#include <cerrno>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/epoll.h>
#include <sys/socket.h>

namespace visca
{
namespace
{
constexpr BU_U32 INDEX_BITS = 10;
static_assert(TcpClients::MAX_CLIENTS <= 1u << INDEX_BITS);

/// A peer that vanished without a word is found within two minutes; a client that is only silent stays.
void prepare(int fd)
{
    const auto set = [fd](int level, int option, int value) { ::setsockopt(fd, level, option, &value, sizeof value); };
    set(IPPROTO_TCP, TCP_NODELAY, 1);
    set(SOL_SOCKET, SO_KEEPALIVE, 1);
    set(IPPROTO_TCP, TCP_KEEPIDLE, 60);
    set(IPPROTO_TCP, TCP_KEEPINTVL, 15);
    set(IPPROTO_TCP, TCP_KEEPCNT, 4);
}
} // namespace

TcpClients::TcpClients() : m_client(MAX_CLIENTS)
{
    for (std::size_t i = MAX_CLIENTS; i-- > 0;) m_free.push_back(static_cast<BU_U16>(i));
    m_dirty.reserve(MAX_CLIENTS);
}

BU_U32 TcpClients::idOf(const Client &client) const
{
    return client.u32Generation << INDEX_BITS | static_cast<BU_U32>(&client - m_client.data());
}

TcpClients::Client *TcpClients::find(BU_U32 u32Id)
{
    const BU_U32 u32Index = u32Id & ((1u << INDEX_BITS) - 1);
    if (u32Index >= m_client.size()) return nullptr;
    Client &client = m_client[u32Index];
    return client.fd >= 0 && idOf(client) == u32Id ? &client : nullptr;
}

bool TcpClients::acceptFrom(net::Listener &listener, int s32Epoll)
{
    return listener.accept([&](util::FileDescriptor fd, const sockaddr_storage &stFrom) {
        admit(std::move(fd), s32Epoll, ntohs(reinterpret_cast<const sockaddr_in &>(stFrom).sin_port));
    });
}

void TcpClients::admit(util::FileDescriptor fd, int s32Epoll, BU_U16 u16Port)
{
    if (m_free.empty()) {
        LOG_WARN("%zu VISCA clients are connected, the next is turned away\n", m_size);
        return;
    }
    prepare(fd);
    Client &client = m_client[m_free.back()];
    {
        const std::lock_guard lock(m_mutex);
        client.u32Generation = (client.u32Generation + 1) & (0xFFFFFFFFu >> INDEX_BITS);
        client.fd = std::move(fd);
        client.u16Port = u16Port;
        client.bLeft = false;
        client.u32Events = EPOLLIN;
        m_s32Epoll = s32Epoll;
    }
    client.splitter = {};
    client.u32Turn = 0;
    library().sockets.forget(client.peer);
    epoll_event stEvent{};
    stEvent.events = EPOLLIN;
    stEvent.data.u64 = idOf(client);
    if (::epoll_ctl(m_s32Epoll, EPOLL_CTL_ADD, client.fd, &stEvent) == 0) {
        m_free.pop_back();
        ++m_size;
        return;
    }
    const std::lock_guard lock(m_mutex);
    client.fd = {};
}

bool TcpClients::handle(BU_U32 u32Id, BU_U32 u32Events, Turn &turn, BU_U32 u32Turn, std::span<BU_U8> buffer)
{
    Client *client = find(u32Id); // only this thread changes what find reads
    if (!client) return false;
    if (u32Events & (EPOLLERR | EPOLLHUP) && !(u32Events & EPOLLIN)) {
        close(*client);
        return false;
    }
    if (u32Events & EPOLLOUT) {
        const std::lock_guard lock(m_mutex);
        sendOut(*client, u32Id);
    }
    return u32Events & EPOLLIN && readFrom(*client, u32Id, turn, u32Turn, buffer);
}

bool TcpClients::readFrom(Client &client, BU_U32 u32Id, Turn &turn, BU_U32 u32Turn, std::span<BU_U8> buffer)
{
    if (turn.isFull()) return false;
    const ssize_t size = ::recv(client.fd, buffer.data(), buffer.size(), 0);
    if (size == 0 && client.u32Turn != u32Turn) onLeft(client, u32Id); // else when its packets are done
    if (size < 0 && errno != EAGAIN && errno != EINTR) close(client);
    if (size <= 0) return false;
    if (client.u32Turn != u32Turn) {
        client.u32Turn = u32Turn;
        client.u16Lane = turn.addLane(client.peer);
    }
    VISCA_MSG_PRI_S stFrom{};
    stFrom.enFrom = CMD_FROM_E_NET_TCP_IN;
    stFrom.stIpMsg.u64IpAddr = u32Id;
    stFrom.stIpMsg.u32Port = client.u16Port;
    turn.addStream(client.u16Lane, stFrom, buffer.first(static_cast<std::size_t>(size)), &client.splitter);
    return true;
}

/// The client has closed its side. It still gets the answers of what it has sent.
void TcpClients::onLeft(Client &client, BU_U32 u32Id)
{
    if (library().sockets.isEnding(client.peer)) return; // we hear of it again at once
    const bool bWaits = library().sockets.isBusy(client.peer);
    {
        const std::lock_guard lock(m_mutex);
        client.bLeft = true;
        if (bWaits || !client.out.isEmpty()) return listenFor(client, u32Id);
    }
    close(client);
}

void TcpClients::close(Client &client)
{
    library().sockets.forget(client.peer);
    const std::lock_guard lock(m_mutex);
    client.fd = {};
    client.out.clear();
    client.bDirty = false;
    m_free.push_back(static_cast<BU_U16>(&client - m_client.data()));
    --m_size;
}

void TcpClients::closeAll()
{
    for (Client &client : m_client)
        if (client.fd >= 0) close(client);
}

BU_S32 TcpClients::send(const VISCA_MSG_PRI_S &stPri, std::span<const BU_U8> bytes, bool bGather)
{
    const BU_U32 u32Id = origin::peerOf(stPri);
    const std::lock_guard lock(m_mutex);
    Client *client = find(u32Id);
    if (!client) return -1;
    if (!client->out.add(bytes)) {
        ::shutdown(client->fd, SHUT_RDWR); // the network thread hears of it and closes
        return -1;
    }
    if (!bGather)
        sendOut(*client, u32Id);
    else if (!std::exchange(client->bDirty, true))
        m_dirty.push_back(u32Id);
    return 0;
}

void TcpClients::flush()
{
    const std::lock_guard lock(m_mutex);
    for (const BU_U32 u32Id : m_dirty)
        if (Client *client = find(u32Id)) {
            client->bDirty = false;
            sendOut(*client, u32Id);
        }
    m_dirty.clear();
}

/// Sends what the client takes; the rest waits until it takes more.
void TcpClients::sendOut(Client &client, BU_U32 u32Id)
{
    if (const int s32Error = client.out.send(client.fd); s32Error != 0 && s32Error != EAGAIN) {
        client.out.clear();
        ::shutdown(client.fd, SHUT_RDWR);
        return;
    }
    if (client.out.isEmpty() && client.bLeft && !library().sockets.isBusy(client.peer))
        ::shutdown(client.fd, SHUT_RDWR); // all answered
    listenFor(client, u32Id);
}

void TcpClients::listenFor(Client &client, BU_U32 u32Id)
{
    epoll_event stEvent{};
    stEvent.events = (client.bLeft ? 0u : BU_U32{EPOLLIN}) | (client.out.isEmpty() ? 0u : BU_U32{EPOLLOUT});
    stEvent.data.u64 = u32Id;
    if (stEvent.events == client.u32Events) return;
    client.u32Events = stEvent.events;
    ::epoll_ctl(m_s32Epoll, EPOLL_CTL_MOD, client.fd, &stEvent);
}
} // namespace visca
