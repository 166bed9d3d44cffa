#include "inbox.h"

#include <utility>

namespace preview
{
void Inbox::put(tagARRIVAL_S stArrival)
{
    const std::lock_guard guard(m_lock);
    if (!m_fnWake) return;
    if (m_stWaiting.arrivals.size() >= PACKETS_MAX || m_bytes > BYTES_MAX) {
        m_stWaiting = {{}, true};
        m_bytes = 0;
    }
    m_bytes += stArrival.pstPacket->u32Length;
    m_stWaiting.arrivals.push_back(std::move(stArrival));
    if (m_stWaiting.arrivals.size() == 1) m_fnWake(); // else the wake-up is on its way
}

void Inbox::wake()
{
    const std::lock_guard guard(m_lock);
    if (m_fnWake) m_fnWake();
}

void Inbox::close()
{
    const std::lock_guard guard(m_lock);
    m_fnWake = nullptr;
    m_stWaiting = {};
}

Inbox::tagBATCH_S Inbox::take()
{
    const std::lock_guard guard(m_lock);
    m_bytes = 0;
    return std::exchange(m_stWaiting, {});
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
