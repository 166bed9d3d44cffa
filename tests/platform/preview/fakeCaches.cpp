/// Caches for the tests, in place of the media library's.
#include "fakeCaches.h"
#include "streamCache.h"
#include "support/await.h"

#include <array>

namespace
{
struct Cache {
    STREAM_PACKET_METADATA_S stMetadata;
    std::atomic<BU_U32> u32KeyRequests{0};
    BU_U64 u64Written = 0;
    STREAM_CACHE_S cache{{[] {}, [this] { return ++u32KeyRequests, 0; }, [] { return 600; }}};
};
std::array<Cache, 3> &caches()
{
    static auto &list = *new std::array<Cache, 3>{Cache{{STREAM_TYPE_H264, 640, 360, 30, 1, 0, 0, 0}},
                                                  Cache{{STREAM_TYPE_H265, 320, 180, 15, 1, 0, 0, 0}},
                                                  Cache{{STREAM_TYPE_AAC, 0, 0, 0, 0, 48000, 2, 1024}}};
    return list;
}
Cache &at(BU_S32 s32Id) { return caches().at(static_cast<std::size_t>(s32Id / 2 - 1)); }
} // namespace

void FakeCaches::reset()
{
    for (Cache &st : caches()) {
        st.cache.clear();
        st.cache.introduce(st.stMetadata);
        st.u32KeyRequests = 0;
    }
}

BU_U64 FakeCaches::write(BU_S32 s32Id, const std::string &strBytes, bool bKeyFrame)
{
    Cache &st = at(s32Id);
    const auto pst = std::make_shared<std::pair<std::string, STREAM_PACKET_S>>(strBytes, STREAM_PACKET_S{});
    const BU_U64 u64Timestamp = 0x0102030405060000 + ++st.u64Written;
    pst->second = {reinterpret_cast<const BU_U8 *>(pst->first.data()), static_cast<BU_U32>(strBytes.size()),
                   u64Timestamp, bKeyFrame, st.stMetadata.s32EncodeType};
    st.cache.write({pst, &pst->second});
    return u64Timestamp;
}

BU_U32 FakeCaches::keyRequests(BU_S32 s32Id) { return at(s32Id).u32KeyRequests; }

bool FakeCaches::waitForConsumers(BU_S32 s32Id, bool bAny)
{
    return await([&] { return at(s32Id).cache.isWanted() == bAny; });
}

STREAM_CACHE_S *STREAM_getStreamCacheById(BU_S32 s32Id)
{
    return s32Id == 2 || s32Id == 4 || s32Id == 6 ? &at(s32Id).cache : nullptr;
}
STREAM_PACKET_METADATA_S STREAM_getStreamCacheMetadata(STREAM_CACHE_S *pstCache) { return pstCache->metadata(); }
BU_S32 STREAM_registerPacketSink(STREAM_CACHE_S *pstCache, const BU_CHAR *pcName, FN_STREAM_PACKET fnCb)
{
    pstCache->addSink(pcName, std::move(fnCb));
    return 0;
}
BU_S32 STREAM_unregisterPacketSink(STREAM_CACHE_S *pstCache, const BU_CHAR *pcName)
{
    return pstCache->removeSink(pcName) ? 0 : -1;
}
BU_S32 STREAM_requestKeyFrame(STREAM_CACHE_S *pstCache) { return pstCache->requestKeyFrame(); }
