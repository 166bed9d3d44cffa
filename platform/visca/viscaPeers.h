/// The controllers on UDP: what is known of each address and port. Bounded; the one not heard of for longest makes
/// room.
#pragma once

#include "viscaOverIp.h"
#include "viscaSockets.h"

#include <vector>

namespace visca
{
struct UdpPeer {
    Peer peer;
    overip::Sequence sequence;
    BU_U64 u64Key = 0;
    BU_U32 u32Turn = 0; ///< the turn that last heard of it, and its lane there
    BU_U16 u16Lane = 0;
    BU_U16 u16Older = 0, u16Newer = 0, u16Chain = 0; ///< places in the table; 0: none
};

/// Not for several threads at once. A peer found stays where it is until as many others as fit have been asked for.
class PeerTable
{
public:
    explicit PeerTable(BU_U16 u16Capacity = 1024);
    /// The peer of an address, made when unknown.
    UdpPeer &get(CMD_FROM_E enFrom, BU_U32 u32Address, BU_U16 u16Port);
    std::size_t size() const { return m_size; }

private:
    BU_U16 &chainOf(BU_U64 u64Key);
    void unlink(BU_U16 u16Peer);
    void pushNewest(BU_U16 u16Peer);
    BU_U16 place();

    std::vector<UdpPeer> m_peer; ///< from 1
    std::vector<BU_U16> m_chain;
    std::size_t m_size = 0;
    BU_U16 m_u16Oldest = 0, m_u16Newest = 0;
};
} // namespace visca
