/// The controllers on UDP: what is known of each address and port. Bounded; the one not heard of for longest makes
/// room.
#pragma once

#include "overIp.h"
#include "sockets.h"

#include <list>
#include <unordered_map>

namespace visca
{
struct UdpPeer {
    ErrorLimit errors;
    Peer peer{{}, &errors}; ///< stays where it is
    overip::Sequence sequence;
    BU_U64 u64Key = 0;
    BU_U32 u32Turn = 0; ///< the turn that last heard of it, and its lane there
    BU_U16 u16Lane = 0;
};

/// Not for several threads at once. A peer found stays where it is until as many others as fit have been asked for.
class PeerTable
{
public:
    explicit PeerTable(std::size_t capacity = 1024) : m_capacity(capacity) {}
    /// The peer of an address, made when unknown.
    UdpPeer &get(CMD_FROM_E enFrom, BU_U32 u32Address, BU_U16 u16Port);
    std::size_t size() const { return m_peers.size(); }

private:
    std::size_t m_capacity;
    std::list<UdpPeer> m_peers; ///< the one heard of last in front
    std::unordered_map<BU_U64, std::list<UdpPeer>::iterator> m_byKey;
};
} // namespace visca
