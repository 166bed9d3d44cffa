#include "listener.h"

#include "util/log.h"
#include "util/platform.h"

#include <arpa/inet.h>
#include <cerrno>
#include <cstring>
#include <sys/socket.h>

namespace rtsp
{
namespace
{
constexpr BU_S32 PRIVILEGED = 1024, UNPRIVILEGED_OFFSET = 10000;
constexpr int BACKLOG = 256;

/// @return negative: errno says why
util::FileDescriptor tryPort(BU_S32 s32Port)
{
    sockaddr_in stAddress{};
    stAddress.sin_family = AF_INET;
    stAddress.sin_port = htons(static_cast<BU_U16>(s32Port));
    ::inet_pton(AF_INET, PLATFORM_BindAddress().c_str(), &stAddress.sin_addr);
    util::FileDescriptor fd(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    const int s32On = 1;
    ::setsockopt(fd, SOL_SOCKET, SO_REUSEADDR, &s32On, sizeof s32On);
    if (::bind(fd, reinterpret_cast<const sockaddr *>(&stAddress), sizeof stAddress) == 0 && ::listen(fd, BACKLOG) == 0)
        return fd;
    const int s32Error = errno;
    fd = {};
    errno = s32Error;
    return fd;
}
} // namespace

Listener listenOn(BU_S32 s32Port)
{
    BU_S32 s32Own = PLATFORM_Port(s32Port);
    util::FileDescriptor fd = tryPort(s32Own);
    if (fd < 0 && errno == EACCES && s32Own < PRIVILEGED) {
        const BU_S32 s32Instead = PLATFORM_Port(s32Port + UNPRIVILEGED_OFFSET);
        LOG_WARN("port %d is for root only, RTSP is on port %d instead", s32Own, s32Instead);
        fd = tryPort(s32Own = s32Instead);
    }
    if (fd < 0) LOG_ERROR("RTSP cannot listen on port %d: %s", s32Own, std::strerror(errno));
    return {std::move(fd), s32Own};
}
} // namespace rtsp
