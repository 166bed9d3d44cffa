/// Sockets on loopback whose waits end.
#pragma once

#include "base/types.h"
#include "util/fileDescriptor.h"

#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/time.h>

inline void limitWaits(int s32Fd, int s32Seconds)
{
    const timeval stLimit{s32Seconds, 0};
    for (const int s32Option : {SO_RCVTIMEO, SO_SNDTIMEO})
        ::setsockopt(s32Fd, SOL_SOCKET, s32Option, &stLimit, sizeof stLimit);
}

/// @param pfnStart  ::connect or ::bind
/// @param s32ReceiveBytes  of its receive buffer; 0: the system's own
/// @return none: it did not succeed
inline util::FileDescriptor loopback(int s32Type, int s32Port, int (*pfnStart)(int, const sockaddr *, socklen_t),
                                     int s32ReceiveBytes = 0)
{
    util::FileDescriptor fd(::socket(AF_INET, s32Type | SOCK_CLOEXEC, 0));
    limitWaits(fd, 10);
    if (s32ReceiveBytes) ::setsockopt(fd, SOL_SOCKET, SO_RCVBUF, &s32ReceiveBytes, sizeof s32ReceiveBytes);
    sockaddr_in stAddress{};
    stAddress.sin_family = AF_INET;
    stAddress.sin_port = htons(static_cast<BU_U16>(s32Port));
    stAddress.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (pfnStart(fd, reinterpret_cast<const sockaddr *>(&stAddress), sizeof stAddress) != 0) return {};
    return fd;
}
