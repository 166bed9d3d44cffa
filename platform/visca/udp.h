/// The two UDP ports: VISCA over IP and plain VISCA.
#pragma once

#include "net/datagram.h"
#include "net/socket.h"
#include "peers.h"
#include "turn.h"

#include <mutex>

namespace visca
{
class UdpPorts
{
public:
    /// Gives a port its socket, null for none. Thread: network.
    void set(CMD_FROM_E enFrom, net::Socket socket);

    /// Reads up to as many datagrams as there are buffers and adds them to the turn. Thread: network.
    /// @return the buffers used
    std::size_t receive(CMD_FROM_E enFrom, Turn &turn, BU_U32 u32Turn, std::span<std::array<BU_U8, 512>> buffers);

    /// Sends an answer to the origin of a message, or with bGather at the next flush. Thread: any, network to gather.
    BU_S32 send(const VISCA_MSG_PRI_S &stPri, std::span<const BU_U8> bytes, bool bGather);
    void flush() { m_out.flush(); }
    /// Thread: none running.
    void forgetPeers() { m_peers = PeerTable(); }

private:
    static constexpr std::size_t MAX_DATAGRAM = overip::HEADER + sizeof(tagVISCA_MSG_REQ_S::acCmd);

    void addDatagram(CMD_FROM_E enFrom, const sockaddr_in &stFrom, std::span<const BU_U8> bytes, Turn &turn,
                     BU_U32 u32Turn);
    net::Socket socketOf(CMD_FROM_E enFrom) const;

    mutable std::mutex m_mutex; ///< guards the two sockets
    net::Socket m_overIp, m_plain;
    PeerTable m_peers; ///< network thread only, as m_out
    net::DatagramBatch m_out{MAX_DATAGRAM};
};
} // namespace visca
