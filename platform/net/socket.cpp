// How a listening socket is made.
#include "net/socket.h"

#include <arpa/inet.h>
#include <cerrno>
#include <sys/socket.h>

namespace net
{
namespace
{
constexpr int BACKLOG = 512;

/// @param s32Value  of the option; 0: left alone
Socket bound(int s32Type, const std::string &strAddress, BU_S32 s32Port, int s32Option, int s32Value)
{
    sockaddr_in stAddress = socketAddress(0, static_cast<BU_U16>(s32Port));
    if (::inet_pton(AF_INET, strAddress.c_str(), &stAddress.sin_addr) != 1) {
        errno = EINVAL;
        return {};
    }
    util::FileDescriptor fd(::socket(AF_INET, s32Type | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    if (fd >= 0 && s32Value) ::setsockopt(fd, SOL_SOCKET, s32Option, &s32Value, sizeof(s32Value));
    if (fd >= 0 && ::bind(fd, reinterpret_cast<const sockaddr *>(&stAddress), sizeof(stAddress)) == 0 &&
        (s32Type != SOCK_STREAM || ::listen(fd, BACKLOG) == 0))
        return std::make_shared<const util::FileDescriptor>(std::move(fd));
    const int s32Error = errno;
    fd = {}; // which may change it
    errno = s32Error;
    return {};
}
} // namespace

Socket listenTcp(const std::string &strAddress, BU_S32 s32Port)
{
    return bound(SOCK_STREAM, strAddress, s32Port, SO_REUSEADDR, 1); // past connections in TIME_WAIT
}

Socket bindUdp(const std::string &strAddress, BU_S32 s32Port, int receiveBytes)
{
    return bound(SOCK_DGRAM, strAddress, s32Port, SO_RCVBUF, receiveBytes);
}

BU_U16 boundPort(int s32Socket)
{
    sockaddr_in stAddress{};
    socklen_t size = sizeof(stAddress);
    ::getsockname(s32Socket, reinterpret_cast<sockaddr *>(&stAddress), &size);
    return ntohs(stAddress.sin_port);
}

sockaddr_in socketAddress(BU_U32 u32Address, BU_U16 u16Port)
{
    sockaddr_in stAddress{};
    stAddress.sin_family = AF_INET;
    stAddress.sin_addr.s_addr = htonl(u32Address);
    stAddress.sin_port = htons(u16Port);
    return stAddress;
}
} // namespace net
