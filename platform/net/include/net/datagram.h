/// Datagrams in batches: one call of the system for many.
#pragma once

#include "base/types.h"

#include <array>
#include <netinet/in.h>
#include <span>
#include <sys/socket.h>
#include <vector>

namespace net
{
/// Reads what waits, up to as many datagrams as there are buffers; what is longer than a buffer is cut.
/// @param fn  is given (const sockaddr_in &from, std::span<const BU_U8> bytes) of each
/// @return the buffers used
template <std::size_t SIZE, class F>
std::size_t receiveDatagrams(int s32Socket, std::span<std::array<BU_U8, SIZE>> buffers, F fn)
{
    constexpr std::size_t BATCH = 32;
    std::array<mmsghdr, BATCH> header;
    std::array<iovec, BATCH> part;
    std::array<sockaddr_in, BATCH> from;
    const std::size_t count = std::min(BATCH, buffers.size());
    for (std::size_t i = 0; i < count; ++i) {
        part[i] = {buffers[i].data(), SIZE};
        header[i].msg_hdr = {};
        header[i].msg_hdr.msg_name = &from[i];
        header[i].msg_hdr.msg_namelen = sizeof(from[i]);
        header[i].msg_hdr.msg_iov = &part[i];
        header[i].msg_hdr.msg_iovlen = 1;
    }
    const int received = ::recvmmsg(s32Socket, header.data(), static_cast<unsigned>(count), MSG_DONTWAIT, nullptr);
    const std::size_t used = received > 0 ? static_cast<std::size_t>(received) : 0;
    for (std::size_t i = 0; i < used; ++i) fn(from[i], std::span<const BU_U8>(buffers[i].data(), header[i].msg_len));
    return used;
}

/// Sends body behind head at once; never waits. @return whether the system took it
bool sendDatagram(int s32Socket, const sockaddr_in &stTo, std::span<const BU_U8> head, std::span<const BU_U8> body);

/// Datagrams on their way out, which leave together. One that cannot be sent is lost, as on any network; the others
/// leave. Not for several threads at once.
class DatagramBatch
{
public:
    /// @param maxBytes  of a datagram
    explicit DatagramBatch(std::size_t maxBytes);
    /// Adds body behind head; the socket must stay open until they have left. What is too long is left out.
    void add(int s32Socket, const sockaddr_in &stTo, std::span<const BU_U8> head, std::span<const BU_U8> body);
    void flush();

private:
    static constexpr std::size_t BATCH = 64;
    struct Datagram {
        sockaddr_in stTo;
        iovec stPart;
        int s32Socket;
    };
    const std::size_t m_maxBytes;
    std::vector<BU_U8> m_bytes;
    std::vector<Datagram> m_datagram;
    std::vector<mmsghdr> m_header;
    std::size_t m_count = 0;
};
} // namespace net
