// What happens to a connection when there is a descriptor for it, and when there is none.
#include "net/listener.h"

#include "util/log.h"

#include <cerrno>
#include <fcntl.h>

namespace net
{
namespace
{
util::FileDescriptor reserve() { return util::FileDescriptor(::open("/dev/null", O_RDONLY | O_CLOEXEC)); }
} // namespace

Listener::Listener(Socket socket, const char *pcWhom, std::size_t most)
    : m_socket(std::move(socket)), m_pcWhom(pcWhom), m_most(most), m_reserve(reserve())
{
}

bool Listener::accept(const FN_TAKE &fnTake)
{
    for (std::size_t i = 0; i < m_most; ++i) {
        sockaddr_storage stFrom{};
        socklen_t size = sizeof(stFrom);
        util::FileDescriptor taken(
            ::accept4(fd(), reinterpret_cast<sockaddr *>(&stFrom), &size, SOCK_NONBLOCK | SOCK_CLOEXEC));
        if (taken >= 0)
            fnTake(std::move(taken), stFrom);
        else if (errno == EMFILE || errno == ENFILE) {
            if (!turnAway()) return false;
        } else if (errno != EINTR && errno != ECONNABORTED)
            return true;
    }
    return true;
}

bool Listener::turnAway()
{
    const std::lock_guard guard(m_lock);
    if (m_reserve < 0) m_reserve = reserve();
    if (m_reserve < 0) return false;
    m_reserve = {};
    const bool bTurnedAway = util::FileDescriptor(::accept4(fd(), nullptr, nullptr, SOCK_CLOEXEC)) >= 0;
    m_reserve = reserve();
    if (bTurnedAway) LOG_WARN("no file descriptor for a %s, turned away\n", m_pcWhom);
    return bTurnedAway;
}
} // namespace net
