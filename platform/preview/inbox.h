/// The way of packets from the pipeline's threads and from playback to the service thread.
#pragma once

#include "media/stream.h"
#include "util/mailbox.h"

#include <deque>
#include <functional>
#include <mutex>
#include <set>

namespace preview
{
struct Arrival {
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
    explicit Inbox(std::function<void()> fnWake) : m_arrivals(std::move(fnWake)) {}

    /// Never waits for the service thread. What it leaves lying beyond the limits is lost.
    void put(Arrival stArrival);
    void wake() { m_arrivals.wake(); }
    void close() { m_arrivals.close(); } ///< nothing is taken in and nobody woken after this

    struct Batch {
        std::deque<Arrival> arrivals;
        bool bLost = false; ///< packets before these were lost
    };
    Batch take();

    void watch(BU_U32 u32Source, bool bWatched); ///< whether anybody wants the packets
    bool isWatched(BU_U32 u32Source) const;

private:
    mutable std::mutex m_lock; // guards everything below, so that the numbers fit the mailbox
    util::Mailbox<Arrival> m_arrivals;
    std::size_t m_packets = 0, m_bytes = 0; // in it
    bool m_bLost = false;
    std::set<BU_U32> m_watched;
};
} // namespace preview
