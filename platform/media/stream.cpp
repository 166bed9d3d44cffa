// Stream caches, readers, sinks and sources, from the outside.
#include "media/stream.h"

#include "internal.h"
#include "util/journal.h"
#include "vencChannel.h"

#include <utility>

using media::channelAt;
using media::channelOfCache;
using media::VencChannel;

namespace
{
STREAM_CACHE_S *cacheOf(BU_S32 s32Id)
{
    if (s32Id == media::AUDIO_CACHE) return media::audioCache();
    const VencChannel *pst = channelOfCache(s32Id);
    return pst ? pst->cache() : nullptr;
}

class Reader : public STREAM_READER_S
{
public:
    explicit Reader(STREAM_CACHE_S &cache) : m_cache(cache), m_stPlace(cache.join()) {}
    ~Reader() override { m_cache.leave(); }
    void setReadTimeout(BU_S32 s32Ms) override { m_s32TimeoutMs = s32Ms; }
    BU_S32 requestKeyFrame() override { return m_cache.requestKeyFrame(); }
    BU_S32 readPacket(BU_U8 **ppu8Data, BU_S32, BU_U32 *pu32Length, BU_U64 *pu64Timestamp, BU_BOOL *pbKeyFrame) override
    {
        if (!ppu8Data || !pu32Length || !pu64Timestamp) return -1;
        m_pstHeld = nullptr; // its memory may be the one the next packet needs
        m_pstHeld = m_cache.read(m_stPlace, m_s32TimeoutMs);
        const STREAM_PACKET_S stNone{}, &st = m_pstHeld ? *m_pstHeld : stNone;
        *ppu8Data = const_cast<BU_U8 *>(st.pu8Data); // the callers' libraries take it so; nobody writes
        *pu32Length = st.u32Length;
        *pu64Timestamp = st.u64Timestamp;
        if (pbKeyFrame) *pbKeyFrame = st.bKeyFrame;
        return 0;
    }

private:
    STREAM_CACHE_S &m_cache;
    media::Place m_stPlace;
    BU_S32 m_s32TimeoutMs = -1;
    STREAM_PACKET_REF m_pstHeld;
};
} // namespace

/// A source is its channel's; the callers only hold the pointer.
struct STREAM_SOURCE_S {
    BU_S32 s32Chn;
};
namespace
{
STREAM_SOURCE_S g_astSources[] = {{0}, {1}, {2}, {3}};

VencChannel *channelOf(const STREAM_SOURCE_S *pstSource) { return pstSource ? channelAt(pstSource->s32Chn) : nullptr; }
VencChannel *sourceOf(BU_S32 s32Chn)
{
    VencChannel *pst = channelAt(s32Chn);
    return pst && pst->cache() ? pst : nullptr;
}
BU_S32 listen(VencChannel *pst, bool bOn)
{
    if (!pst) return -1;
    pst->listen(bOn);
    return 0;
}
} // namespace

STREAM_CACHE_S *STREAM_getStreamCacheById(BU_S32 s32Id) { return cacheOf(s32Id); }

STREAM_PACKET_METADATA_S STREAM_getStreamCacheMetadata(STREAM_CACHE_S *pstCache)
{
    return pstCache ? pstCache->metadata() : STREAM_PACKET_METADATA_S{};
}

BU_S32 STREAM_getStreamCacheBitRate(STREAM_CACHE_S *pstCache)
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    return pstCache ? pstCache->bitRate() : 0;
}

BU_S32 STREAM_getStreamCacheCurrentVencChn(BU_S32 s32CacheId)
{
    if (const auto injected = journal::ask(__func__, s32CacheId)) return *injected;
    const VencChannel *pst = channelOfCache(s32CacheId);
    MPP_VENC_PARAM_S stParam;
    return pst && pst->status(stParam) ? s32CacheId - 1 : -1;
}

BU_S32 STREAM_isStreamCacheIdle(BU_S32 s32CacheId)
{
    if (const auto injected = journal::ask(__func__, s32CacheId)) return *injected;
    const STREAM_CACHE_S *pstCache = cacheOf(s32CacheId);
    return pstCache && !pstCache->isWanted();
}

BU_S32 STREAM_destroyStreamCache(BU_S32 s32CacheId, BU_BOOL bSaveCfg)
{
    if (const auto injected = journal::call(__func__, s32CacheId, bSaveCfg)) return *injected;
    STREAM_CACHE_S *pstCache = cacheOf(s32CacheId);
    if (!pstCache || pstCache->isWanted()) return -1;
    pstCache->clear();
    return 0;
}

BU_S32 STREAM_registerCacheMetadataHandler(STREAM_CACHE_S *pstCache, const BU_CHAR *pcName, FN_STREAM_METADATA fnCb)
{
    if (const auto injected = journal::call(__func__, pstCache, pcName)) return *injected;
    if (!pstCache || !pcName || !fnCb) return -1;
    pstCache->addHandler(pcName, std::move(fnCb));
    return 0;
}

BU_S32 STREAM_unregisterCacheMetadataHandler(STREAM_CACHE_S *pstCache, const BU_CHAR *pcName)
{
    if (const auto injected = journal::call(__func__, pstCache, pcName)) return *injected;
    return pstCache && pcName && pstCache->removeHandler(pcName) ? 0 : -1;
}

BU_S32 STREAM_createStreamReader(BU_S32 s32CacheId, STREAM_READER_S *&reader)
{
    return STREAM_createStreamReader(s32CacheId, &reader);
}

BU_S32 STREAM_createStreamReader(BU_S32 s32CacheId, STREAM_READER_S **ppstReader)
{
    if (ppstReader) *ppstReader = nullptr;
    if (const auto injected = journal::call(__func__, s32CacheId)) return *injected;
    STREAM_CACHE_S *pstCache = cacheOf(s32CacheId);
    if (!pstCache || !ppstReader) return -1;
    *ppstReader = std::make_unique<Reader>(*pstCache).release();
    return 0;
}

BU_S32 STREAM_destroyStreamReader(STREAM_READER_S *&reader) { return STREAM_destroyStreamReader(&reader); }

BU_S32 STREAM_destroyStreamReader(STREAM_READER_S **ppstReader)
{
    if (const auto injected = journal::call(__func__, ppstReader && *ppstReader)) return *injected;
    if (!ppstReader || !*ppstReader) return -1;
    const std::unique_ptr<STREAM_READER_S> pstReader(std::exchange(*ppstReader, nullptr));
    return 0;
}

BU_S32 STREAM_registerPacketSink(STREAM_CACHE_S *pstCache, const BU_CHAR *pcName, FN_STREAM_PACKET fnCb)
{
    if (const auto injected = journal::call(__func__, pstCache, pcName)) return *injected;
    if (!pstCache || !pcName || !fnCb) return -1;
    pstCache->addSink(pcName, std::move(fnCb));
    return 0;
}

BU_S32 STREAM_unregisterPacketSink(STREAM_CACHE_S *pstCache, const BU_CHAR *pcName)
{
    if (const auto injected = journal::call(__func__, pstCache, pcName)) return *injected;
    return pstCache && pcName && pstCache->removeSink(pcName) ? 0 : -1;
}

BU_S32 STREAM_requestKeyFrame(STREAM_CACHE_S *pstCache)
{
    if (const auto injected = journal::call(__func__, pstCache)) return *injected;
    return pstCache ? pstCache->requestKeyFrame() : -1;
}

STREAM_SOURCE_S *STREAM_getStreamSource_Venc(BU_S32 s32Chn)
{
    const VencChannel *pst = sourceOf(s32Chn);
    return pst && pst->hasSource() ? &g_astSources[s32Chn] : nullptr;
}

BU_S32 STREAM_startListenStreamSource(STREAM_SOURCE_S *pstSource)
{
    VencChannel *pst = channelOf(pstSource);
    if (const auto injected = journal::call(__func__, pst ? pstSource->s32Chn : -1)) return *injected;
    return listen(pst, true);
}

BU_S32 STREAM_stopListenStreamSource(STREAM_SOURCE_S *pstSource)
{
    VencChannel *pst = channelOf(pstSource);
    if (const auto injected = journal::call(__func__, pst ? pstSource->s32Chn : -1)) return *injected;
    return listen(pst, false);
}

BU_S32 STREAM_startListenStreamSource_VENC(BU_S32 s32Chn)
{
    if (const auto injected = journal::call(__func__, s32Chn)) return *injected;
    return listen(sourceOf(s32Chn), true);
}

BU_S32 STREAM_stopListenStreamSource_VENC(BU_S32 s32Chn)
{
    if (const auto injected = journal::call(__func__, s32Chn)) return *injected;
    return listen(sourceOf(s32Chn), false);
}

BU_S32 STREAM_isStreamSourceIdle_VENC(BU_S32 s32Chn)
{
    if (const auto injected = journal::ask(__func__, s32Chn)) return *injected;
    const VencChannel *pst = sourceOf(s32Chn);
    return pst && pst->hasSource() && !pst->cache()->isWanted();
}

BU_S32 STREAM_destroyStreamSource_VENC(BU_S32 s32Chn, BU_BOOL bSaveCfg)
{
    if (const auto injected = journal::call(__func__, s32Chn, bSaveCfg)) return *injected;
    VencChannel *pst = sourceOf(s32Chn);
    if (!pst || !pst->hasSource() || pst->cache()->isWanted()) return -1;
    pst->destroySource();
    return 0;
}
