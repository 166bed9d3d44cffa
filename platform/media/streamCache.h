/// One stream cache: a bounded ring of shared packets between the writer, a pipeline thread, and the consumers.
#pragma once

#include "media/stream.h"
#include "util/listeners.h"

#include <atomic>
#include <condition_variable>
#include <deque>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace media
{
/// What a cache tells its writer, on the thread of the consumer that causes it.
struct Writer {
    std::function<void()> fnDemand;     ///< the first consumer came or the last one left
    std::function<BU_S32()> fnKeyFrame; ///< a key frame is wanted soon; 0, or -1: no encoder runs
    std::function<BU_S32()> fnBitRate;  ///< what the encoder is set to [kbit/s]
};

/// Where a reader is.
struct Place {
    BU_U64 u64Next = 0;     ///< number of the packet to read next
    bool bAwaitKey = false; ///< passes over everything up to the next key frame
    bool bAsked = false;    ///< a key frame was asked for since it awaits one
};

class PacketSink;
} // namespace media

struct STREAM_CACHE_S {
    static constexpr std::size_t PACKETS_MAX = 256, BYTES_MAX = 16 << 20;
    /// A key frame this old is no good start any more: the newcomer would stay so far behind. [us]
    static constexpr BU_U64 FRESH_US = 500'000;

    explicit STREAM_CACHE_S(media::Writer stWriter) : m_stWriter(std::move(stWriter)) {}

    // The writer's side.
    bool isWanted() const { return m_u32Consumers.load(std::memory_order_relaxed) != 0; }
    /// Thread: the pipeline's, one at a time.
    void write(const STREAM_PACKET_REF &pstPacket);
    /// @return true: the handlers have to hear of it, through announce. All zero while no encoder is there.
    bool setMetadata(const STREAM_PACKET_METADATA_S &stMetadata);
    /// Calls the handlers when the metadata differ from what they were told last. Thread: the pipeline's.
    void announce();
    /// Sets the metadata and takes them for told.
    void introduce(const STREAM_PACKET_METADATA_S &stMetadata);

    // The consumers' side.
    STREAM_PACKET_METADATA_S metadata() const;
    BU_S32 bitRate() const;
    BU_S32 requestKeyFrame() const { return m_stWriter.fnKeyFrame(); }
    media::Place join();
    void leave();
    /// @param s32TimeoutMs  as STREAM_READER_S::setReadTimeout. @return null: the time-out passed
    STREAM_PACKET_REF read(media::Place &stPlace, BU_S32 s32TimeoutMs);
    void addHandler(const std::string &strName, FN_STREAM_METADATA fn);
    bool removeHandler(const std::string &strName);
    void addSink(const std::string &strName, FN_STREAM_PACKET fn);
    bool removeSink(const std::string &strName);
    void clear(); ///< drops all packets

private:
    typedef std::vector<std::shared_ptr<media::PacketSink>> Sinks;

    STREAM_PACKET_REF take(media::Place &stPlace) const;
    bool hasFreshKey() const;
    std::shared_ptr<media::PacketSink> exchangeSink(const std::string &strName, std::shared_ptr<media::PacketSink> pst);

    const media::Writer m_stWriter;
    std::atomic<BU_U32> m_u32Consumers{0};
    mutable std::mutex m_lock; // guards everything below
    std::condition_variable m_written;
    std::deque<STREAM_PACKET_REF> m_packets;
    BU_U64 m_u64First = 0; // number of m_packets.front()
    std::size_t m_bytes = 0;
    STREAM_PACKET_METADATA_S m_stMetadata{}, m_stTold{};
    std::map<std::string, std::shared_ptr<const FN_STREAM_METADATA>> m_handlers;
    util::CopyOnWrite<Sinks> m_sinks; // has a lock of its own
};

namespace media
{
/// A sink with what is needed to end it while a call may be running.
class PacketSink
{
public:
    PacketSink(std::string strName, FN_STREAM_PACKET fn) : m_strName(std::move(strName)), m_fn(std::move(fn)) {}
    const std::string &name() const { return m_strName; }
    void give(const STREAM_PACKET_REF &pstPacket); ///< thread: the writer's
    /// No call begins after this; waits for a running one, unless it is this thread's.
    void end();

private:
    const std::string m_strName;
    const FN_STREAM_PACKET m_fn;
    bool m_bAwaitKey = true; // the writer's
    std::mutex m_lock;       // guards the two below
    bool m_bEnded = false;
    std::thread::id m_running; // the thread inside m_fn
    std::condition_variable m_idle;
};
} // namespace media
