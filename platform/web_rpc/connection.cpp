// What goes to a web server, and what waits while it has no room.
#include "connection.h"

#include "util/log.h"
#include "web_client/socketFile.h"

#include <cerrno>
#include <sys/epoll.h>
#include <sys/socket.h>
#include <utility>

namespace web_rpc
{
namespace
{
std::string_view bytesOf(const Head &stHead) { return {reinterpret_cast<const BU_CHAR *>(&stHead), sizeof(stHead)}; }

std::span<const BU_U8> octets(std::string_view text)
{
    return {reinterpret_cast<const BU_U8 *>(text.data()), text.size()};
}
} // namespace

Connection::Connection(util::FileDescriptor fd, int s32Epoll, BU_U64 u64Number)
    : m_fd(std::move(fd)), m_s32Epoll(s32Epoll), m_u64Number(u64Number)
{
}

void Connection::answer(BU_U32 u32Id, BU_S32 s32Result, std::string_view bytes)
{
    const std::lock_guard guard(m_lock);
    post({.enKind = Kind::ANSWER, .s16Result = static_cast<BU_S16>(s32Result), .u32Id = u32Id}, bytes);
}

void Connection::tell(const std::string &strSubject, std::string_view json)
{
    const std::lock_guard guard(m_lock);
    if (m_bCut) return;
    const Head stHead{.enKind = Kind::NEWS};
    if (m_news.empty() && m_outbox.isEmpty() && send(bytesOf(stHead), json)) return;
    m_news.insert_or_assign(strSubject, std::string(json));
    watch();
}

void Connection::post(const Head &stHead, std::string_view bytes)
{
    if (m_bCut || (m_outbox.isEmpty() && send(bytesOf(stHead), bytes))) return;
    if (m_outbox.add(octets(bytesOf(stHead)), octets(bytes))) return watch();
    LOG_WARN("a web server does not take its answers: cut off\n");
    m_bCut = true;
    shutdown(m_fd, SHUT_RDWR);
}

bool Connection::send(std::string_view head, std::string_view bytes)
{
    const int s32Error = sendPacket(m_fd, head, bytes);
    if (s32Error == EAGAIN) return false;
    if (s32Error == EMSGSIZE) LOG_ERROR("an answer of %zu bytes is too long to be sent\n", bytes.size());
    return true; // whatever else: the reader sees the end
}

void Connection::flush()
{
    const std::lock_guard guard(m_lock);
    for (int s32Error = -1; s32Error != 0 && s32Error != EAGAIN;) { // whatever else: the reader sees the end
        s32Error = m_outbox.send(m_fd);
        if (s32Error == EMSGSIZE) LOG_ERROR("an answer is too long to be sent\n");
    }
    const Head stHead{.enKind = Kind::NEWS};
    while (m_outbox.isEmpty() && !m_news.empty() && send(bytesOf(stHead), m_news.begin()->second))
        m_news.erase(m_news.begin());
    watch();
}

bool Connection::claim()
{
    const std::lock_guard guard(m_lock);
    return std::exchange(m_bArmed, false);
}

ssize_t Connection::read(std::vector<BU_CHAR> &buffer) const
{
    return recv(m_fd, buffer.data(), buffer.size(), MSG_DONTWAIT | MSG_TRUNC);
}

void Connection::arm()
{
    const std::lock_guard guard(m_lock);
    m_bArmed = true;
    watch();
}

void Connection::watch()
{
    if (!m_bArmed) return; // the thread that reads will
    const bool bWaits = !m_outbox.isEmpty() || !m_news.empty();
    epoll_event stEvent{};
    stEvent.events = EPOLLIN | EPOLLONESHOT | (bWaits ? EPOLLOUT : 0U);
    stEvent.data.u64 = m_u64Number;
    epoll_ctl(m_s32Epoll, m_bRegistered ? EPOLL_CTL_MOD : EPOLL_CTL_ADD, m_fd, &stEvent);
    m_bRegistered = true;
}

void Connection::cut()
{
    const std::lock_guard guard(m_lock);
    m_bCut = true;
    shutdown(m_fd, SHUT_RDWR);
}

bool Clients::add(std::shared_ptr<Connection> pst)
{
    const std::lock_guard guard(m_lock);
    return m_connections.size() < COUNT_MAX && m_connections.emplace(pst->number(), std::move(pst)).second;
}

std::shared_ptr<Connection> Clients::find(BU_U64 u64Number) const
{
    const std::lock_guard guard(m_lock);
    const auto it = m_connections.find(u64Number);
    return it == m_connections.end() ? nullptr : it->second;
}

void Clients::remove(BU_U64 u64Number)
{
    const std::lock_guard guard(m_lock);
    m_connections.erase(u64Number);
}

std::size_t Clients::count() const
{
    const std::lock_guard guard(m_lock);
    return m_connections.size();
}

void Clients::tell(const std::string &strSubject, std::string_view json)
{
    const std::lock_guard guard(m_lock);
    for (const auto &[u64Number, pst] : m_connections) pst->tell(strSubject, json);
}

void Clients::clear()
{
    const std::lock_guard guard(m_lock);
    for (const auto &[u64Number, pst] : m_connections) pst->cut();
    m_connections.clear();
}
} // namespace web_rpc
