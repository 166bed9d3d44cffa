/// The way of packets from the pipeline's threads and from playback to the service thread.
#pragma once

#include "media/stream.h"

#include <functional>
#include <mutex>
#include <set>
#include <vector>

namespace preview
{
struct tagARRIVAL_S {
    BU_U32 u32Source; ///< number of the channel, or AUDIO
    STREAM_PACKET_REF pstPacket;
    STREAM_PACKET_METADATA_S stMetadata;
};
constexpr BU_U32 AUDIO = ~0U;

/// Thread: any.
class Inbox
{
public:
    static constexpr std::size_t PACKETS_MAX = 256, BYTES_MAX = 16 << 20;

    /// @param fnWake  makes the service thread look in; called with the lock held, must only signal
    explicit Inbox(std::function<void()> fnWake) : m_fnWake(std::move(fnWake)) {}

    /// Never waits for the service thread. What it leaves lying beyond the limits is lost.
    void put(tagARRIVAL_S stArrival);
    void wake();
    void close(); ///< nothing is taken in and nobody woken after this

    struct tagBATCH_S {
        std::vector<tagARRIVAL_S> arrivals;
        bool bLost = false; ///< packets before these were lost
    };
    tagBATCH_S take();

    void watch(BU_U32 u32Source, bool bWatched); ///< whether anybody wants the packets
    bool isWatched(BU_U32 u32Source) const;

private:
    mutable std::mutex m_lock; // guards everything below
    std::function<void()> m_fnWake;
    tagBATCH_S m_stWaiting;
    std::size_t m_bytes = 0;
    std::set<BU_U32> m_watched;
};
} // namespace preview
