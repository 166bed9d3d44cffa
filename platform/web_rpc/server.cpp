// The threads that accept, read and run.
#include "server.h"

#include "util/file.h"
#include "util/log.h"
#include "web_client/client.h"
#include "web_client/socketFile.h"

#include <cerrno>
#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

namespace web_rpc
{
namespace
{
// What epoll tells is one of these, or the number of a connection.
enum : BU_U64 { LISTENER = 1, STOP = 2, FIRST_CONNECTION = 3 };

/// Only processes of this camera's user, or of the system's.
bool mayConnect(int s32Fd)
{
    ucred stPeer{};
    socklen_t length = sizeof(stPeer);
    return getsockopt(s32Fd, SOL_SOCKET, SO_PEERCRED, &stPeer, &length) == 0 &&
           (stPeer.uid == geteuid() || stPeer.uid == 0);
}
} // namespace

std::unique_ptr<Server> Server::open(std::function<Result(const Call &)> fnRun)
{
    util::FileDescriptor listener = listenAt(SOCKET_PATH);
    if (listener < 0) return nullptr;
    std::unique_ptr<Server> pst(new Server(std::move(listener), std::move(fnRun)));
    return pst->watch() ? std::move(pst) : nullptr;
}

Server::Server(util::FileDescriptor listener, std::function<Result(const Call &)> fnRun)
    : m_listener(std::make_shared<const util::FileDescriptor>(std::move(listener)), "web server", 1),
      m_epoll(epoll_create1(EPOLL_CLOEXEC)), m_stop(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)), m_fnRun(std::move(fnRun)),
      m_u64Last(FIRST_CONNECTION)
{
}

bool Server::watch()
{
    const auto add = [this](int s32Fd, BU_U64 u64What) {
        epoll_event stEvent{.events = EPOLLIN, .data = {.u64 = u64What}};
        return epoll_ctl(m_epoll, EPOLL_CTL_ADD, s32Fd, &stEvent) == 0;
    };
    if (!add(m_listener.fd(), LISTENER) || !add(m_stop, STOP)) {
        LOG_ERROR("web calls: no event queue\n");
        return false;
    }
    for (std::size_t i = 0; i <= HANDLERS; ++i)
        m_threads.emplace_back("webRpc", [this](const std::stop_token &) { work(); });
    return true;
}

Server::~Server()
{
    unlink(UTIL_ROOT_Path(SOCKET_PATH).c_str()); // first: who is cut off tries again at once
    eventfd_write(m_stop, 1);
    m_threads.clear();
    m_pstClients->clear();
}

void Server::work()
{
    std::vector<BU_CHAR> buffer(TO_CAMERA_MAX);
    for (epoll_event stEvent{};;) {
        if (epoll_wait(m_epoll, &stEvent, 1, -1) < 1) continue;
        if (stEvent.data.u64 == STOP) return;
        if (stEvent.data.u64 == LISTENER)
            m_listener.accept([this](util::FileDescriptor fd, const sockaddr_storage &) { enter(std::move(fd)); });
        else
            serve(stEvent.data.u64, stEvent.events, buffer);
    }
}

void Server::enter(util::FileDescriptor fd)
{
    const bool bMay = mayConnect(fd);
    const auto pst = std::make_shared<Connection>(std::move(fd), m_epoll, m_u64Last++);
    if (!bMay || !m_pstClients->add(pst)) {
        LOG_WARN("web calls: a connection is refused, %s\n", bMay ? "there are too many" : "of another user");
        return;
    }
    pst->arm();
}

void Server::serve(BU_U64 u64Number, BU_U32 u32Events, std::vector<BU_CHAR> &buffer)
{
    const auto pst = m_pstClients->find(u64Number);
    if (!pst) return;
    const bool bReads = (u32Events & ~EPOLLOUT) && pst->claim();
    if (u32Events & EPOLLOUT) pst->flush();
    if (!bReads) return;
    const ssize_t length = pst->read(buffer);
    // A reset comes once, before what lies there to be read: the other end went without having read everything.
    if (length < 0 && (errno == EAGAIN || errno == ECONNRESET)) return pst->arm();
    if (length <= 0) return part(*pst);
    const auto message = static_cast<std::size_t>(length) <= buffer.size()
                             ? decode({buffer.data(), static_cast<std::size_t>(length)})
                             : std::nullopt;
    if (message && message->stHead.enKind <= Kind::QUESTION) return receive(pst, *message);
    LOG_WARN("web calls: a message that is none, the connection ends\n");
    part(*pst);
}

void Server::part(Connection &connection)
{
    connection.cut();
    m_pstClients->remove(connection.number());
}

void Server::receive(const std::shared_ptr<Connection> &pst, const Message &stMessage)
{
    const bool bEvent = stMessage.stHead.enKind == Kind::CALL;
    Call stCall{pst, stMessage.stHead.u32Id, bEvent ? stMessage.stHead.u32Subject : 0,
                std::string(bEvent ? "" : stMessage.name), std::string(stMessage.bytes)};
    const Lanes::Verdict verdict = m_lanes.take(stCall);
    pst->arm(); // the call has its place: the next one may be read
    if (verdict == Lanes::Verdict::RUN)
        run(std::move(stCall));
    else if (verdict == Lanes::Verdict::BUSY)
        pst->answer(stCall.u32Id, WEB_CLIENT_RESULT_E_BUSY, "too many calls are waiting");
}

void Server::run(Call stCall)
{
    for (std::optional<Call> call = std::move(stCall); call;) {
        // Also when its web server has gone by now: it may be what stops the camera.
        const Result stResult = m_fnRun(*call);
        call->pstFrom->answer(call->u32Id, stResult.s32Result, stResult.strBytes);
        call = m_lanes.next(call->lane());
    }
}
} // namespace web_rpc
