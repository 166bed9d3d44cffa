#include "connection.h"

#include "util/log.h"

#include <gio/gio.h>
#include <linux/tcp.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <utility>

namespace rtsp
{
struct Connection::Impl {
    // The library closes a socket by letting go of it: a reference of ours would keep it open.
    GWeakRef stSocket;
    BU_U64 u64Received = 0;

    explicit Impl(GSocket *pstSocket) { g_weak_ref_init(&stSocket, pstSocket); }
    ~Impl() { g_weak_ref_clear(&stSocket); }
    Impl(const Impl &) = delete;
    Impl &operator=(const Impl &) = delete;
};

Connection::Connection(GSocket *pstSocket) : m_pstImpl(std::make_unique<Impl>(pstSocket))
{
    const auto set = [fd = g_socket_get_fd(pstSocket)](int level, int option, int value) {
        ::setsockopt(fd, level, option, &value, sizeof value);
    };
    set(IPPROTO_TCP, TCP_NODELAY, 1);
    set(SOL_SOCKET, SO_KEEPALIVE, 1);
    set(IPPROTO_TCP, TCP_KEEPIDLE, 60);
    set(IPPROTO_TCP, TCP_KEEPINTVL, 15);
}
Connection::~Connection() = default;

void Connection::end()
{
    if (auto *pstSocket = static_cast<GSocket *>(g_weak_ref_get(&m_pstImpl->stSocket))) {
        ::shutdown(g_socket_get_fd(pstSocket), SHUT_RDWR);
        g_object_unref(pstSocket);
    }
}

bool Connection::check()
{
    auto *pstSocket = static_cast<GSocket *>(g_weak_ref_get(&m_pstImpl->stSocket));
    if (!pstSocket) return false;
    tcp_info stInfo{};
    socklen_t size = sizeof stInfo;
    const int fd = g_socket_get_fd(pstSocket);
    if (::getsockopt(fd, IPPROTO_TCP, TCP_INFO, &stInfo, &size) == 0) {
        const BU_U64 u64Before = std::exchange(m_pstImpl->u64Received, stInfo.tcpi_bytes_received);
        if (stInfo.tcpi_bytes_received - u64Before > RECEIVED_PER_CHECK_MAX) {
            LOG_WARN("rtsp: a client that sends too much is cut off");
            ::shutdown(fd, SHUT_RDWR);
        }
    }
    g_object_unref(pstSocket);
    return true;
}
} // namespace rtsp
