#include "viscaPeers.h"

#include "viscaSession.h"

#include <bit>

namespace visca
{
PeerTable::PeerTable(BU_U16 u16Capacity) : m_peer(u16Capacity + 1u), m_chain(std::bit_ceil(2u * u16Capacity)) {}

BU_U16 &PeerTable::chainOf(BU_U64 u64Key)
{
    return m_chain[(u64Key * 0x9E3779B97F4A7C15u >> 32) & (m_chain.size() - 1)];
}

UdpPeer &PeerTable::get(CMD_FROM_E enFrom, BU_U32 u32Address, BU_U16 u16Port)
{
    const BU_U64 u64Key = static_cast<BU_U64>(enFrom) << 48 | static_cast<BU_U64>(u32Address) << 16 | u16Port;
    BU_U16 u16Peer = chainOf(u64Key);
    while (u16Peer && m_peer[u16Peer].u64Key != u64Key) u16Peer = m_peer[u16Peer].u16Chain;
    if (u16Peer) {
        if (u16Peer == m_u16Newest) return m_peer[u16Peer];
        unlink(u16Peer);
    } else {
        u16Peer = place();
        m_peer[u16Peer].u64Key = u64Key;
        m_peer[u16Peer].u16Chain = std::exchange(chainOf(u64Key), u16Peer);
    }
    pushNewest(u16Peer);
    return m_peer[u16Peer];
}

void PeerTable::unlink(BU_U16 u16Peer)
{
    const UdpPeer &peer = m_peer[u16Peer];
    (peer.u16Older ? m_peer[peer.u16Older].u16Newer : m_u16Oldest) = peer.u16Newer;
    (peer.u16Newer ? m_peer[peer.u16Newer].u16Older : m_u16Newest) = peer.u16Older;
}

void PeerTable::pushNewest(BU_U16 u16Peer)
{
    UdpPeer &peer = m_peer[u16Peer];
    peer.u16Older = m_u16Newest;
    peer.u16Newer = 0;
    (m_u16Newest ? m_peer[m_u16Newest].u16Newer : m_u16Oldest) = u16Peer;
    m_u16Newest = u16Peer;
}

/// A free place, or that of the peer not heard of for longest; its commands go on and are answered by address.
BU_U16 PeerTable::place()
{
    if (m_size + 1 < m_peer.size()) return static_cast<BU_U16>(++m_size);
    const BU_U16 u16Peer = m_u16Oldest;
    unlink(u16Peer);
    UdpPeer &peer = m_peer[u16Peer];
    BU_U16 *pu16Chain = &chainOf(peer.u64Key);
    while (*pu16Chain != u16Peer) pu16Chain = &m_peer[*pu16Chain].u16Chain;
    *pu16Chain = peer.u16Chain;
    library().sockets.detach(peer.peer);
    peer = {};
    return u16Peer;
}
} // namespace visca
