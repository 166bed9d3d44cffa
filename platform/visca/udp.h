/// The two UDP ports: VISCA over IP and plain VISCA.
#pragma once

#include "peers.h"
#include "turn.h"

#include <mutex>
#include <netinet/in.h>
#include <sys/socket.h>

namespace visca
{
/// Datagrams on their way out. Those of the network thread are gathered and leave together.
class UdpOut
{
public:
    UdpOut();
    void add(int fd, BU_U32 u32Address, BU_U16 u16Port, std::span<const BU_U8> head, std::span<const BU_U8> body);
    void flush();

private:
    static constexpr std::size_t BATCH = 64;
    static constexpr std::size_t MAX_DATAGRAM = overip::HEADER + sizeof(tagVISCA_MSG_REQ_S::acCmd);
    struct Datagram {
        std::array<BU_U8, MAX_DATAGRAM> au8;
        sockaddr_in stTo;
        iovec stPart;
        int fd;
    };
    std::vector<Datagram> m_datagram;
    std::vector<mmsghdr> m_header;
    std::size_t m_count = 0;
};

class UdpPorts
{
public:
    /// Gives a port its socket, -1 for none; the earlier one is closed. Thread: network.
    void set(CMD_FROM_E enFrom, int fd);
    int fdOf(CMD_FROM_E enFrom) const { return enFrom == CMD_FROM_E_OVER_IP_IN ? m_fdOverIp : m_fdPlain; }

    /// Reads up to as many datagrams as there are buffers and adds them to the turn. Thread: network.
    /// @return the buffers used
    std::size_t receive(CMD_FROM_E enFrom, Turn &turn, BU_U32 u32Turn, std::span<std::array<BU_U8, 512>> buffers);

    /// Sends an answer of u32Len bytes to the origin of a message. Thread: any.
    BU_S32 send(const VISCA_MSG_PRI_S &stPri, std::span<const BU_U8> bytes);
    void flush() { m_out.flush(); }
    /// Thread: none running.
    void forgetPeers() { m_peers = PeerTable(); }
    /// The calling thread is the network thread: its answers are gathered.
    void gatherHere();

private:
    void addDatagram(CMD_FROM_E enFrom, const sockaddr_in &stFrom, std::span<const BU_U8> bytes, Turn &turn,
                     BU_U32 u32Turn);

    std::mutex m_mutex; ///< guards the two descriptors against being closed while another thread sends
    int m_fdOverIp = -1, m_fdPlain = -1;
    PeerTable m_peers; ///< network thread only, as m_out
    UdpOut m_out;
};
} // namespace visca
