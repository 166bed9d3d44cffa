/// The ring of packets: where newcomers start, how readers and sinks keep up, what handlers hear.
#include "streamCache.h"

#include <algorithm>
#include <chrono>

using media::PacketSink;
using media::Place;

void PacketSink::give(const STREAM_PACKET_REF &pstPacket)
{
    if (m_bAwaitKey && !pstPacket->bKeyFrame) return;
    {
        const std::lock_guard guard(m_lock);
        if (m_bEnded) return;
        m_running = std::this_thread::get_id();
    }
    m_bAwaitKey = false;
    m_fn(pstPacket);
    const std::lock_guard guard(m_lock);
    m_running = {};
    m_idle.notify_all();
}

void PacketSink::end()
{
    std::unique_lock guard(m_lock);
    m_bEnded = true;
    m_idle.wait(guard, [this] { return m_running == std::thread::id() || m_running == std::this_thread::get_id(); });
}

void STREAM_CACHE_S::write(const STREAM_PACKET_REF &pstPacket)
{
    {
        const std::lock_guard guard(m_lock);
        if (!isWanted()) return;
        m_bytes += pstPacket->u32Length;
        m_packets.push_back(pstPacket);
        while (m_packets.size() > PACKETS_MAX || (m_bytes > BYTES_MAX && m_packets.size() > 1)) {
            m_bytes -= m_packets.front()->u32Length;
            m_packets.pop_front();
            ++m_u64First;
        }
    }
    for (const auto pstSinks = m_sinks.get(); const auto &pstSink : *pstSinks) pstSink->give(pstPacket);
    m_written.notify_all();
}

bool STREAM_CACHE_S::setMetadata(const STREAM_PACKET_METADATA_S &stMetadata)
{
    const std::lock_guard guard(m_lock);
    m_stMetadata = stMetadata;
    return m_stMetadata.s32EncodeType != 0 && m_stMetadata != m_stTold;
}

void STREAM_CACHE_S::introduce(const STREAM_PACKET_METADATA_S &stMetadata)
{
    const std::lock_guard guard(m_lock);
    m_stMetadata = m_stTold = stMetadata;
}

void STREAM_CACHE_S::announce()
{
    std::vector<std::shared_ptr<const FN_STREAM_METADATA>> handlers;
    {
        const std::lock_guard guard(m_lock);
        if (m_stMetadata.s32EncodeType == 0 || m_stMetadata == m_stTold) return;
        m_stTold = m_stMetadata;
        for (const auto &[strName, pfn] : m_handlers) handlers.push_back(pfn);
    }
    for (const auto &pfn : handlers) (*pfn)();
}

STREAM_PACKET_METADATA_S STREAM_CACHE_S::metadata() const
{
    const std::lock_guard guard(m_lock);
    return m_stMetadata;
}

BU_S32 STREAM_CACHE_S::bitRate() const
{
    constexpr BU_U64 WINDOW_US = 2'000'000, LEAST_US = 900'000;
    {
        const std::lock_guard guard(m_lock);
        BU_U64 u64Bytes = 0, u64Seen = 0, u64Us = 0;
        for (auto it = m_packets.rbegin(); it != m_packets.rend() && u64Us < WINDOW_US; ++it) {
            u64Us = m_packets.back()->u64Timestamp - (*it)->u64Timestamp;
            u64Bytes = u64Seen; // the oldest packet only marks where the time begins
            u64Seen += (*it)->u32Length;
        }
        if (u64Us >= LEAST_US) return static_cast<BU_S32>(u64Bytes * 8000 / u64Us);
    }
    return m_stWriter.fnBitRate();
}

/// The newest key frame is in the ring and young enough to start with.
bool STREAM_CACHE_S::hasFreshKey() const
{
    const auto it = std::find_if(m_packets.rbegin(), m_packets.rend(), [](const auto &pst) { return pst->bKeyFrame; });
    return it != m_packets.rend() && m_packets.back()->u64Timestamp - (*it)->u64Timestamp <= FRESH_US;
}

Place STREAM_CACHE_S::join()
{
    Place stPlace;
    bool bFirst = false;
    {
        const std::lock_guard guard(m_lock);
        bFirst = m_u32Consumers++ == 0;
        stPlace.u64Next = m_u64First + m_packets.size();
        stPlace.bAwaitKey = true;
        if (hasFreshKey()) do
                --stPlace.u64Next;
            while (!m_packets[stPlace.u64Next - m_u64First]->bKeyFrame);
    }
    if (bFirst) m_stWriter.fnDemand();
    return stPlace;
}

void STREAM_CACHE_S::leave()
{
    if (m_u32Consumers-- != 1) return;
    clear(); // what is left is old when the next one comes
    m_stWriter.fnDemand();
}

void STREAM_CACHE_S::clear()
{
    std::deque<STREAM_PACKET_REF> dropped;
    const std::lock_guard guard(m_lock);
    m_u64First += m_packets.size();
    m_packets.swap(dropped);
    m_bytes = 0;
}

/// Lock held.
STREAM_PACKET_REF STREAM_CACHE_S::take(Place &stPlace) const
{
    if (stPlace.u64Next < m_u64First) stPlace = {m_u64First, true, false};
    while (stPlace.u64Next < m_u64First + m_packets.size()) {
        const STREAM_PACKET_REF &pstPacket = m_packets[stPlace.u64Next++ - m_u64First];
        if (stPlace.bAwaitKey && !pstPacket->bKeyFrame) continue;
        stPlace.bAwaitKey = false;
        return pstPacket;
    }
    return nullptr;
}

STREAM_PACKET_REF STREAM_CACHE_S::read(Place &stPlace, BU_S32 s32TimeoutMs)
{
    const auto until = std::chrono::steady_clock::now() + std::chrono::milliseconds(s32TimeoutMs);
    std::unique_lock guard(m_lock);
    for (;;) {
        if (STREAM_PACKET_REF pstPacket = take(stPlace)) return pstPacket;
        if (stPlace.bAwaitKey && !stPlace.bAsked) {
            stPlace.bAsked = true;
            guard.unlock();
            requestKeyFrame();
            guard.lock();
        } else if (s32TimeoutMs < 0)
            m_written.wait(guard);
        else if (m_written.wait_until(guard, until) == std::cv_status::timeout)
            return take(stPlace);
    }
}

void STREAM_CACHE_S::addHandler(const std::string &strName, FN_STREAM_METADATA fn)
{
    const std::lock_guard guard(m_lock);
    m_handlers[strName] = std::make_shared<const FN_STREAM_METADATA>(std::move(fn));
}

bool STREAM_CACHE_S::removeHandler(const std::string &strName)
{
    const std::lock_guard guard(m_lock);
    return m_handlers.erase(strName) != 0;
}

/// Puts a sink, or null for none, in the place of the one of that name, which is returned.
std::shared_ptr<PacketSink> STREAM_CACHE_S::exchangeSink(const std::string &strName, std::shared_ptr<PacketSink> pst)
{
    return m_sinks.change([&](Sinks &sinks) {
        std::shared_ptr<PacketSink> pstOld;
        const auto it = std::ranges::find(sinks, strName, &PacketSink::name);
        if (it != sinks.end()) {
            pstOld = std::move(*it);
            sinks.erase(it);
        }
        if (pst) sinks.push_back(std::move(pst));
        return pstOld;
    });
}

void STREAM_CACHE_S::addSink(const std::string &strName, FN_STREAM_PACKET fn)
{
    join();
    if (const auto pstOld = exchangeSink(strName, std::make_shared<PacketSink>(strName, std::move(fn)))) {
        pstOld->end();
        leave();
    }
    requestKeyFrame();
}

bool STREAM_CACHE_S::removeSink(const std::string &strName)
{
    const auto pstOld = exchangeSink(strName, nullptr);
    if (!pstOld) return false;
    pstOld->end();
    leave();
    return true;
}
