/// What waits for the service thread, within its limits.
#include "inbox.h"

#include <utility>

namespace preview
{
void Inbox::put(Arrival stArrival)
{
    const std::lock_guard guard(m_lock);
    if (m_packets >= PACKETS_MAX || m_bytes > BYTES_MAX) {
        m_arrivals.take();
        m_packets = m_bytes = 0;
        m_bLost = true;
    }
    ++m_packets;
    m_bytes += stArrival.pstPacket->u32Length;
    m_arrivals.post(std::move(stArrival));
}

Inbox::Batch Inbox::take()
{
    const std::lock_guard guard(m_lock);
    m_packets = m_bytes = 0;
    return {m_arrivals.take(), std::exchange(m_bLost, false)};
}

void Inbox::watch(BU_U32 u32Source, bool bWatched)
{
    const std::lock_guard guard(m_lock);
    if (bWatched)
        m_watched.insert(u32Source);
    else
        m_watched.erase(u32Source);
}

bool Inbox::isWatched(BU_U32 u32Source) const
{
    const std::lock_guard guard(m_lock);
    return m_watched.contains(u32Source);
}
} // namespace preview
