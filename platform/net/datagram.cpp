// How datagrams leave.
#include "net/datagram.h"

#include <algorithm>
#include <cerrno>

namespace net
{
bool sendDatagram(int s32Socket, const sockaddr_in &stTo, std::span<const BU_U8> head, std::span<const BU_U8> body)
{
    iovec astPart[] = {{const_cast<BU_U8 *>(head.data()), head.size()},
                       {const_cast<BU_U8 *>(body.data()), body.size()}};
    msghdr stMessage{};
    stMessage.msg_name = const_cast<sockaddr_in *>(&stTo);
    stMessage.msg_namelen = sizeof(stTo);
    stMessage.msg_iov = astPart;
    stMessage.msg_iovlen = std::size(astPart);
    return ::sendmsg(s32Socket, &stMessage, MSG_DONTWAIT | MSG_NOSIGNAL) >= 0;
}

DatagramBatch::DatagramBatch(std::size_t maxBytes)
    : m_maxBytes(maxBytes), m_bytes(BATCH * maxBytes), m_datagram(BATCH), m_header(BATCH)
{
}

void DatagramBatch::add(int s32Socket, const sockaddr_in &stTo, std::span<const BU_U8> head,
                        std::span<const BU_U8> body)
{
    if (head.size() + body.size() > m_maxBytes) return;
    if (m_count == BATCH) flush();
    BU_U8 *const pu8 = m_bytes.data() + m_count * m_maxBytes;
    std::ranges::copy(body, std::ranges::copy(head, pu8).out);
    Datagram &datagram = m_datagram[m_count];
    datagram = {stTo, {pu8, head.size() + body.size()}, s32Socket};
    msghdr &stHeader = m_header[m_count].msg_hdr;
    stHeader = {};
    stHeader.msg_name = &datagram.stTo;
    stHeader.msg_namelen = sizeof(datagram.stTo);
    stHeader.msg_iov = &datagram.stPart;
    stHeader.msg_iovlen = 1;
    ++m_count;
}

void DatagramBatch::flush()
{
    for (std::size_t first = 0; first < m_count;) {
        std::size_t last = first + 1;
        while (last < m_count && m_datagram[last].s32Socket == m_datagram[first].s32Socket) ++last;
        const int sent =
            ::sendmmsg(m_datagram[first].s32Socket, &m_header[first], static_cast<unsigned>(last - first), 0);
        if (sent < 0 && errno == EINTR) continue;
        first += sent > 0 ? static_cast<std::size_t>(sent) : 1;
    }
    m_count = 0;
}
} // namespace net
