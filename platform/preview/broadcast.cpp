/// Which caches are listened to, and which viewer gets which packet.
#include "broadcast.h"

#include "registry.h"
#include "util/log.h"

#include <algorithm>
#include <utility>

namespace
{
constexpr BU_S32 AUDIO_CACHE = 6;

std::span<const BU_U8> bytesOf(const STREAM_PACKET_S &st) { return {st.pu8Data, st.u32Length}; }

preview::Header headerOf(const preview::Arrival &stArrival, BU_S32 s32EncodeType, BU_U32 u32Sequence)
{
    const STREAM_PACKET_METADATA_S &stMetadata = stArrival.stMetadata;
    preview::Header stHeader;
    stHeader.u8Codec = static_cast<BU_U8>(s32EncodeType);
    if (stArrival.pstPacket->bKeyFrame) stHeader.u8Flags = preview::Header::KEY_FRAME;
    stHeader.Sequence.set(u32Sequence);
    stHeader.Width.set(static_cast<BU_U64>(stMetadata.s32Width));
    stHeader.Height.set(static_cast<BU_U64>(stMetadata.s32Height));
    stHeader.TimestampUs.set(stArrival.pstPacket->u64Timestamp);
    stHeader.SampleRate.set(static_cast<BU_U64>(stMetadata.s32SampleRate));
    stHeader.u8Channels = static_cast<BU_U8>(stMetadata.s32ChannelNum);
    return stHeader;
}
} // namespace

namespace preview
{
void Feed::connect(STREAM_CACHE_S *pstCache)
{
    if (pstCache == m_pstCache) return;
    if (m_pstCache) STREAM_unregisterPacketSink(m_pstCache, m_strName.c_str());
    m_pstCache = pstCache;
    if (!pstCache) return;
    const auto fnPut = [pstInbox = m_pstInbox, u32Source = m_u32Source, pstCache](const STREAM_PACKET_REF &pstPacket) {
        pstInbox->put({u32Source, pstPacket, STREAM_getStreamCacheMetadata(pstCache)});
    };
    if (STREAM_registerPacketSink(pstCache, m_strName.c_str(), fnPut) == 0) return;
    LOG_ERROR("no packets for preview source %s\n", m_strName.c_str());
    m_pstCache = nullptr;
}

void Feed::requestKeyFrame() const
{
    if (m_pstCache) STREAM_requestKeyFrame(m_pstCache);
}

Broadcast::Broadcast(const std::shared_ptr<Inbox> &pstInbox, std::function<void(Viewer &)> fnWaiting)
    : m_pstInbox(pstInbox), m_fnWaiting(std::move(fnWaiting)), m_audio(pstInbox, AUDIO, "previewAudio")
{
}

void Broadcast::add(Viewer &stViewer)
{
    Channel &channel = m_channels.try_emplace(stViewer.u32Channel, m_pstInbox, stViewer.u32Channel).first->second;
    channel.viewers.push_back(&stViewer);
    const bool bFirst = channel.viewers.size() == 1;
    if (bFirst) m_pstInbox->watch(stViewer.u32Channel, true);
    connect();
    if (!bFirst) channel.feed.requestKeyFrame(); // a new feed has asked for one itself
}

void Broadcast::remove(Viewer &stViewer)
{
    const auto it = m_channels.find(stViewer.u32Channel);
    if (it == m_channels.end() || std::erase(it->second.viewers, &stViewer) == 0) return;
    if (it->second.viewers.empty()) m_pstInbox->watch(stViewer.u32Channel, false);
    connect();
}

std::size_t Broadcast::size() const
{
    std::size_t count = 0;
    for (const auto &[u32Channel, channel] : m_channels) count += channel.viewers.size();
    return count;
}

/// A feed stays connected exactly while somebody watches: that is what keeps an encoder running.
void Broadcast::connect()
{
    bool bAudio = false;
    for (auto &[u32Channel, channel] : m_channels) {
        channel.feed.connect(channel.viewers.empty() ? nullptr
                                                     : STREAM_getStreamCacheById(registry().idOf(u32Channel)));
        bAudio |= channel.feed.isLive() && std::ranges::any_of(channel.viewers, &Viewer::bAudio);
    }
    m_audio.connect(bAudio ? STREAM_getStreamCacheById(AUDIO_CACHE) : nullptr);
}

void Broadcast::distribute()
{
    connect(); // a channel may have got another id
    const Inbox::Batch stBatch = m_pstInbox->take();
    if (stBatch.bLost)
        for (auto &[u32Channel, channel] : m_channels)
            for (Viewer *pstViewer : channel.viewers) pstViewer->queue.lose();
    for (const Arrival &stArrival : stBatch.arrivals)
        stArrival.u32Source == AUDIO ? giveAudio(stArrival) : give(stArrival);
}

void Broadcast::give(const Arrival &stArrival)
{
    const auto it = m_channels.find(stArrival.u32Source);
    if (it == m_channels.end() || it->second.viewers.empty()) return;
    Channel &channel = it->second;
    const STREAM_PACKET_S &stPacket = *stArrival.pstPacket;
    if (stPacket.s32EncodeType != 0) channel.s32EncodeType = stPacket.s32EncodeType;
    const auto pstMessage =
        std::make_shared<Message>(headerOf(stArrival, channel.s32EncodeType, channel.u32Sequence++), bytesOf(stPacket));
    for (Viewer *pstViewer : channel.viewers) offer(*pstViewer, pstMessage);
}

void Broadcast::giveAudio(const Arrival &stArrival)
{
    const STREAM_PACKET_S &stPacket = *stArrival.pstPacket;
    const auto pstMessage =
        std::make_shared<Message>(headerOf(stArrival, stPacket.s32EncodeType, m_u32AudioSequence++), bytesOf(stPacket));
    for (auto &[u32Channel, channel] : m_channels) {
        if (!channel.feed.isLive()) continue;
        for (Viewer *pstViewer : channel.viewers)
            if (pstViewer->bAudio) offer(*pstViewer, pstMessage);
    }
}

void Broadcast::offer(Viewer &stViewer, const MessageRef &pstMessage)
{
    if (stViewer.queue.offer(pstMessage)) m_fnWaiting(stViewer);
}

void Broadcast::requestKeyFrame(const Viewer &stViewer) const
{
    const auto it = m_channels.find(stViewer.u32Channel);
    if (it != m_channels.end()) it->second.feed.requestKeyFrame();
}
} // namespace preview
