/// Taking connections.
#pragma once

#include "net/socket.h"

#include <cstddef>
#include <functional>
#include <mutex>
#include <sys/socket.h>

namespace net
{
/// A socket that listens, of any family, without waiting. A connection for which there is no descriptor would stay in
/// the queue of the system and wake its event loop for ever: one that is kept in reserve serves to turn it away.
/// Thread: any, several at once.
class Listener
{
public:
    typedef std::function<void(util::FileDescriptor, const sockaddr_storage &stFrom)> FN_TAKE;

    /// @param pcWhom  whose connections these are, for the log. @param most  taken at once
    Listener(Socket socket, const char *pcWhom, std::size_t most = 64);

    /// Takes what waits. fnTake gets sockets that do not wait, and lets go of one by doing nothing with it.
    /// @return false: descriptors have run out, even to turn somebody away; to be asked again after a while, and not
    ///         watched until then
    bool accept(const FN_TAKE &fnTake);
    int fd() const { return *m_socket; }

private:
    bool turnAway();

    const Socket m_socket;
    const char *const m_pcWhom;
    const std::size_t m_most;
    std::mutex m_lock; // guards m_reserve
    util::FileDescriptor m_reserve;
};
} // namespace net
