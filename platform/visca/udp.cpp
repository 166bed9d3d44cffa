#include "udp.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <unistd.h>

namespace visca
{
namespace
{
thread_local bool t_bGather = false;

sockaddr_in socketAddress(BU_U32 u32Address, BU_U16 u16Port)
{
    sockaddr_in stAddress{};
    stAddress.sin_family = AF_INET;
    stAddress.sin_addr.s_addr = htonl(u32Address);
    stAddress.sin_port = htons(u16Port);
    return stAddress;
}

VISCA_MSG_PRI_S originOf(CMD_FROM_E enFrom, const sockaddr_in &stFrom)
{
    VISCA_MSG_PRI_S stPri{};
    stPri.enFrom = enFrom;
    stPri.stIpMsg.u64IpAddr = ntohl(stFrom.sin_addr.s_addr);
    stPri.stIpMsg.u32Port = ntohs(stFrom.sin_port);
    return stPri;
}
} // namespace

UdpOut::UdpOut() : m_datagram(BATCH), m_header(BATCH) {}

void UdpOut::add(int fd, BU_U32 u32Address, BU_U16 u16Port, std::span<const BU_U8> head, std::span<const BU_U8> body)
{
    if (head.size() + body.size() > MAX_DATAGRAM) return;
    if (m_count == BATCH) flush();
    Datagram &datagram = m_datagram[m_count];
    std::ranges::copy(head, datagram.au8.begin());
    std::ranges::copy(body, datagram.au8.begin() + static_cast<std::ptrdiff_t>(head.size()));
    datagram.stTo = socketAddress(u32Address, u16Port);
    datagram.stPart = {datagram.au8.data(), head.size() + body.size()};
    datagram.fd = fd;
    msghdr &stHeader = m_header[m_count].msg_hdr;
    stHeader = {};
    stHeader.msg_name = &datagram.stTo;
    stHeader.msg_namelen = sizeof datagram.stTo;
    stHeader.msg_iov = &datagram.stPart;
    stHeader.msg_iovlen = 1;
    ++m_count;
}

/// A datagram that cannot be sent is lost, as on any network; the others leave.
void UdpOut::flush()
{
    for (std::size_t first = 0; first < m_count;) {
        std::size_t last = first + 1;
        while (last < m_count && m_datagram[last].fd == m_datagram[first].fd) ++last;
        const int sent = ::sendmmsg(m_datagram[first].fd, &m_header[first], static_cast<unsigned>(last - first), 0);
        if (sent < 0 && errno == EINTR) continue;
        first += sent > 0 ? static_cast<std::size_t>(sent) : 1;
    }
    m_count = 0;
}

void UdpPorts::gatherHere() { t_bGather = true; }

void UdpPorts::set(CMD_FROM_E enFrom, int fd)
{
    m_out.flush();
    const std::lock_guard lock(m_mutex);
    const int fdOld = std::exchange(enFrom == CMD_FROM_E_OVER_IP_IN ? m_fdOverIp : m_fdPlain, fd);
    if (fdOld >= 0) ::close(fdOld);
}

std::size_t UdpPorts::receive(CMD_FROM_E enFrom, Turn &turn, BU_U32 u32Turn, std::span<std::array<BU_U8, 512>> buffers)
{
    constexpr std::size_t BATCH = 32;
    std::array<mmsghdr, BATCH> header;
    std::array<iovec, BATCH> part;
    std::array<sockaddr_in, BATCH> from;
    const std::size_t count = std::min(BATCH, buffers.size());
    for (std::size_t i = 0; i < count; ++i) {
        part[i] = {buffers[i].data(), buffers[i].size()};
        header[i].msg_hdr = {};
        header[i].msg_hdr.msg_name = &from[i];
        header[i].msg_hdr.msg_namelen = sizeof from[i];
        header[i].msg_hdr.msg_iov = &part[i];
        header[i].msg_hdr.msg_iovlen = 1;
    }
    const int received = ::recvmmsg(fdOf(enFrom), header.data(), static_cast<unsigned>(count), MSG_DONTWAIT, nullptr);
    for (int i = 0; i < received; ++i)
        addDatagram(enFrom, from[i], {buffers[i].data(), header[i].msg_len}, turn, u32Turn);
    return received > 0 ? static_cast<std::size_t>(received) : 0;
}

void UdpPorts::addDatagram(CMD_FROM_E enFrom, const sockaddr_in &stFrom, std::span<const BU_U8> bytes, Turn &turn,
                           BU_U32 u32Turn)
{
    const bool bBare = overip::isBare(bytes);
    if (!bBare && (enFrom != CMD_FROM_E_OVER_IP_IN || bytes.size() < overip::HEADER)) return; // noise
    VISCA_MSG_PRI_S stPri = originOf(enFrom, stFrom);
    UdpPeer &peer = m_peers.get(enFrom, origin::peerOf(stPri), origin::portOf(stPri));
    if (peer.u32Turn != u32Turn) {
        peer.u32Turn = u32Turn;
        peer.u16Lane = turn.addLane(peer.peer);
    }
    if (bBare) return turn.addStream(peer.u16Lane, stPri, bytes, nullptr);
    const overip::Received received = overip::receive(bytes, peer.sequence);
    stPri.stIpMsg.bEnable = BU_TRUE;
    stPri.stIpMsg.enMsgType = received.enMsgType;
    stPri.stIpMsg.u32SnNum = received.u32Sequence;
    if (received.enKind == overip::Received::Deliver)
        turn.addPacket(peer.u16Lane, stPri, received.packet);
    else if (received.enKind == overip::Received::Answer)
        transmit(stPri, received.answer.bytes());
}

BU_S32 UdpPorts::send(const VISCA_MSG_PRI_S &stPri, std::span<const BU_U8> bytes)
{
    std::array<BU_U8, overip::HEADER> header;
    const bool bHeader = stPri.enFrom == CMD_FROM_E_OVER_IP_IN && stPri.stIpMsg.bEnable;
    if (bHeader)
        overip::writeHeader(header.data(), stPri.stIpMsg.enMsgType, static_cast<BU_U32>(bytes.size()),
                            stPri.stIpMsg.u32SnNum);
    const std::span<const BU_U8> head(header.data(), bHeader ? header.size() : 0);
    if (t_bGather) {
        if (fdOf(stPri.enFrom) < 0) return -1;
        m_out.add(fdOf(stPri.enFrom), origin::peerOf(stPri), origin::portOf(stPri), head, bytes);
        return 0;
    }
    sockaddr_in stTo = socketAddress(origin::peerOf(stPri), origin::portOf(stPri));
    iovec astPart[] = {{header.data(), head.size()}, {const_cast<BU_U8 *>(bytes.data()), bytes.size()}};
    msghdr stMessage{};
    stMessage.msg_name = &stTo;
    stMessage.msg_namelen = sizeof stTo;
    stMessage.msg_iov = astPart;
    stMessage.msg_iovlen = 2;
    const std::lock_guard lock(m_mutex);
    const int fd = fdOf(stPri.enFrom);
    return fd >= 0 && ::sendmsg(fd, &stMessage, MSG_DONTWAIT) >= 0 ? 0 : -1;
}
} // namespace visca
