// What a datagram is, and where its answer goes.
#include "udp.h"

#include "util/time.h"

namespace visca
{
namespace
{
VISCA_MSG_PRI_S originOf(CMD_FROM_E enFrom, const sockaddr_in &stFrom)
{
    VISCA_MSG_PRI_S stPri{};
    stPri.enFrom = enFrom;
    stPri.stIpMsg.u64IpAddr = ntohl(stFrom.sin_addr.s_addr);
    stPri.stIpMsg.u32Port = ntohs(stFrom.sin_port);
    return stPri;
}
} // namespace

void UdpPorts::set(CMD_FROM_E enFrom, net::Socket socket)
{
    m_out.flush();
    const std::lock_guard lock(m_mutex);
    (enFrom == CMD_FROM_E_OVER_IP_IN ? m_overIp : m_plain) = std::move(socket);
}

net::Socket UdpPorts::socketOf(CMD_FROM_E enFrom) const
{
    const std::lock_guard lock(m_mutex);
    return enFrom == CMD_FROM_E_OVER_IP_IN ? m_overIp : m_plain;
}

std::size_t UdpPorts::receive(CMD_FROM_E enFrom, Turn &turn, BU_U32 u32Turn, std::span<std::array<BU_U8, 512>> buffers)
{
    const net::Socket socket = socketOf(enFrom);
    if (!socket) return 0;
    return net::receiveDatagrams(*socket, buffers, [&](const sockaddr_in &stFrom, std::span<const BU_U8> bytes) {
        addDatagram(enFrom, stFrom, bytes, turn, u32Turn);
    });
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
    else if (received.enKind == overip::Received::Answer ||
             (received.enKind == overip::Received::Refuse && peer.errors.take(UTIL_TIME_NowMs())))
        transmit(stPri, received.answer.bytes());
}

BU_S32 UdpPorts::send(const VISCA_MSG_PRI_S &stPri, std::span<const BU_U8> bytes, bool bGather)
{
    std::array<BU_U8, overip::HEADER> header;
    const bool bHeader = stPri.enFrom == CMD_FROM_E_OVER_IP_IN && stPri.stIpMsg.bEnable;
    if (bHeader)
        overip::writeHeader(header.data(), stPri.stIpMsg.enMsgType, static_cast<BU_U32>(bytes.size()),
                            stPri.stIpMsg.u32SnNum);
    const std::span<const BU_U8> head(header.data(), bHeader ? header.size() : 0);
    const sockaddr_in stTo = net::socketAddress(origin::peerOf(stPri), origin::portOf(stPri));
    const net::Socket socket = socketOf(stPri.enFrom);
    if (!socket) return -1;
    if (!bGather) return net::sendDatagram(*socket, stTo, head, bytes) ? 0 : -1;
    m_out.add(*socket, stTo, head, bytes);
    return 0;
}
} // namespace visca
