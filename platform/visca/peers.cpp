// Which controller a datagram is from; the one not heard of for longest makes room for a new one.
#include "peers.h"

#include "session.h"

namespace visca
{
UdpPeer &PeerTable::get(CMD_FROM_E enFrom, BU_U32 u32Address, BU_U16 u16Port)
{
    const BU_U64 u64Key = static_cast<BU_U64>(enFrom) << 48 | static_cast<BU_U64>(u32Address) << 16 | u16Port;
    if (const auto found = m_byKey.find(u64Key); found != m_byKey.end()) {
        m_peers.splice(m_peers.begin(), m_peers, found->second);
        return m_peers.front();
    }
    if (m_peers.size() == m_capacity) { // its commands go on and are answered by address
        library().sockets.detach(m_peers.back().peer);
        m_byKey.erase(m_peers.back().u64Key);
        m_peers.pop_back();
    }
    m_peers.emplace_front().u64Key = u64Key;
    m_byKey[u64Key] = m_peers.begin();
    return m_peers.front();
}
} // namespace visca
