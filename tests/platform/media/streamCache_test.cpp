// The ring of a cache: what readers and sinks get when the writer is ahead of them, and who is told what when.
#include "streamCache.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <latch>
#include <span>
#include <thread>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
constexpr BU_U64 FRAME_US = 33'333;

/// Its contents are its number, again and again.
STREAM_PACKET_REF packetOf(BU_U32 u32Number, bool bKey, std::size_t size = 8)
{
    const auto pst = std::make_shared<std::pair<STREAM_PACKET_S, std::vector<BU_U8>>>();
    auto &[stPacket, vec] = *pst;
    vec.assign(size, static_cast<BU_U8>(u32Number));
    stPacket = {vec.data(), static_cast<BU_U32>(size), u32Number * FRAME_US, bKey, STREAM_TYPE_H264};
    return {pst, &stPacket};
}

struct StreamCache : testing::Test {
    std::atomic<int> m_s32Demands = 0, m_s32KeyRequests = 0; // readers ask on threads of their own
    STREAM_CACHE_S m_cache{{[this] { ++m_s32Demands; }, [this] { return ++m_s32KeyRequests, 0; }, [] { return 4000; }}};

    void write(BU_U32 u32First, BU_U32 u32Count, BU_U32 u32Group, std::size_t size = 8)
    {
        for (BU_U32 i = u32First; i < u32First + u32Count; ++i) m_cache.write(packetOf(i, i % u32Group == 0, size));
    }
    /// The numbers of all packets that a reader gets without waiting.
    std::vector<BU_U64> drain(media::Place &stPlace)
    {
        std::vector<BU_U64> numbers;
        while (const auto pst = m_cache.read(stPlace, 0)) numbers.push_back(pst->u64Timestamp / FRAME_US);
        return numbers;
    }
};

TEST_F(StreamCache, WhereANewcomerStarts)
{
    const std::tuple<BU_U32, BU_U32, std::vector<BU_U64>, int> rows[] = {
        // group, written; first, requests
        {10, 13, {10, 11, 12}, 0}, // a young key frame
        {10, 11, {10}, 0},         // the very last packet
        {60, 30, {}, 1},           // the key frame is a second old: a new one is asked for, once
        {10, 0, {}, 1},            // nothing yet
    };
    for (const auto &[u32Group, u32Written, first, s32Requests] : rows) {
        m_s32KeyRequests = 0;
        m_cache.join(); // without a consumer nothing is kept
        write(0, u32Written, u32Group);
        auto stPlace = m_cache.join();
        EXPECT_EQ(drain(stPlace), first) << u32Group << ' ' << u32Written;
        EXPECT_THAT(drain(stPlace), IsEmpty());
        EXPECT_EQ(m_s32KeyRequests, s32Requests);
        m_cache.leave();
        m_cache.leave();
    }
}

TEST_F(StreamCache, SlowReaderGoesOnAtAKeyFrameAndHoldsUpNobody)
{
    auto stSlow = m_cache.join(), stFast = m_cache.join();
    write(0, 1, 100);
    EXPECT_THAT(drain(stSlow), ElementsAre(0));
    std::vector<BU_U64> fast;
    for (BU_U32 i = 0; i < 10; ++i) {
        write(1 + i * 100, 100, 100);
        std::ranges::copy(drain(stFast), std::back_inserter(fast));
    }
    EXPECT_EQ(fast.size(), 1001U);
    const auto slow = drain(stSlow);
    EXPECT_EQ(slow.front(), 800U); // 1000 - 255 = 745 is the oldest there is
    EXPECT_EQ(slow.size(), 201U);
    write(1001, 299, 10'000); // the last key frame is lost, too: it asks for one
    EXPECT_THAT(drain(stSlow), IsEmpty());
    EXPECT_EQ(m_s32KeyRequests, 1);
    m_cache.write(packetOf(1300, true));
    EXPECT_THAT(drain(stSlow), ElementsAre(1300));
}

TEST_F(StreamCache, BoundedInBytesAndPacketsOutliveTheRing)
{
    auto stPlace = m_cache.join();
    constexpr std::size_t MEGABYTE = 1 << 20;
    m_cache.write(packetOf(0, true, MEGABYTE));
    const auto pstHeld = m_cache.read(stPlace, 0);
    std::weak_ptr<const STREAM_PACKET_S> wpst;
    for (BU_U32 i = 1; i <= 40; ++i) {
        const auto pst = packetOf(i, true, MEGABYTE);
        if (i == 20) wpst = pst;
        m_cache.write(pst);
    }
    EXPECT_TRUE(wpst.expired()); // 16 of them fit
    EXPECT_EQ(pstHeld->pu8Data[MEGABYTE - 1], 0);
    EXPECT_EQ(drain(stPlace).size(), 16U);
}

TEST_F(StreamCache, DemandIsToldOnceForAllConsumers)
{
    for (int i = 0; i < 2; ++i) m_cache.join(), m_cache.addSink("a", [](const auto &) {}); // the second in its place
    EXPECT_EQ(m_s32Demands, 1);
    for (int i = 0; i < 2; ++i) m_cache.leave();
    EXPECT_TRUE(m_cache.isWanted());
    EXPECT_TRUE(m_cache.removeSink("a"));
    EXPECT_FALSE(m_cache.removeSink("a"));
    EXPECT_EQ(m_s32Demands, 2);
    EXPECT_FALSE(m_cache.isWanted());
}

TEST_F(StreamCache, SinkStartsAtAKeyFrameMayEndItselfAndIsNotCalledAnyMoreOnceRemoved)
{
    std::vector<BU_U64> numbers;
    m_cache.addSink("viewer", [&](const STREAM_PACKET_REF &pst) {
        numbers.push_back(pst->u64Timestamp / FRAME_US);
        if (numbers.size() == 3) m_cache.removeSink("viewer");
    });
    EXPECT_EQ(m_s32KeyRequests, 1);
    write(7, 20, 10);
    EXPECT_THAT(numbers, ElementsAre(10, 11, 12));
    EXPECT_FALSE(m_cache.isWanted());

    std::latch entered(1), go(1);
    std::atomic<bool> bReturned = false;
    m_cache.addSink("viewer", [&](const auto &) { entered.count_down(), go.wait(), bReturned = true; });
    std::jthread writer([&] { write(0, 1, 1); });
    entered.wait();
    std::jthread opener([&] { go.count_down(); });
    m_cache.removeSink("viewer");
    EXPECT_TRUE(bReturned);
}

TEST_F(StreamCache, MetadataHandlersHearOfChangesOnly)
{
    constexpr STREAM_PACKET_METADATA_S SMALL{STREAM_TYPE_H264, 160, 90, 30, 1, 0, 0, 0},
        LARGE{STREAM_TYPE_H264, 320, 180, 30, 1, 0, 0, 0};
    std::vector<std::string> calls;
    const auto note = [&](std::string str) { return [&, str] { return calls.push_back(str), 0; }; };
    m_cache.introduce(SMALL);
    for (const auto &[pcName, pcCall] : {std::pair{"rtsp", "old"}, {"rtsp", "rtsp"}, {"srt", "srt"}})
        m_cache.addHandler(pcName, note(pcCall));
    EXPECT_THAT(calls, IsEmpty());
    EXPECT_FALSE(m_cache.setMetadata({})); // the encoder is switched off and on again, as it was
    EXPECT_FALSE(m_cache.setMetadata(SMALL));
    m_cache.announce();
    EXPECT_THAT(calls, IsEmpty());
    EXPECT_TRUE(m_cache.setMetadata(LARGE));
    m_cache.announce();
    m_cache.announce();
    EXPECT_THAT(calls, ElementsAre("rtsp", "srt"));
    m_cache.removeHandler("srt");
    m_cache.addHandler("rtsp", [&] { // a handler may use the cache
        return m_cache.addHandler("new", note("new")), calls.push_back(std::to_string(m_cache.metadata().s32Width)), 0;
    });
    m_cache.setMetadata(SMALL);
    m_cache.announce();
    EXPECT_THAT(calls, ElementsAre("rtsp", "srt", "160"));
}

TEST_F(StreamCache, BitRateIsMeasured)
{
    m_cache.join();
    EXPECT_EQ(m_cache.bitRate(), 4000); // what is set
    write(0, 20, 10, 1000);
    EXPECT_EQ(m_cache.bitRate(), 4000); // too short to tell
    write(20, 100, 10, 1000);
    EXPECT_NEAR(m_cache.bitRate(), 240, 1); // 30 a second of 8 kbit
}

/// Readers of all paces, some come and go: each sees its packets in order, whole, without a gap but before a key frame.
TEST_F(StreamCache, ConcurrentReaders)
{
    constexpr BU_U32 PACKETS = 4000, GROUP = 16;
    std::atomic<bool> bOver = false;
    std::latch joined(5);
    BU_U64 u64LastOfFast = 0;
    const auto follow = [&](BU_U32 u32Pace) {
        auto stPlace = m_cache.join();
        joined.count_down();
        BU_U64 u64Next = 0; // 0: it has just come
        while (!bOver || u32Pace == 0) {
            const auto pst = m_cache.read(stPlace, 20);
            if (!pst && bOver) break;
            if (!pst) continue;
            const BU_U64 u64Number = pst->u64Timestamp / FRAME_US;
            EXPECT_TRUE((u64Next && u64Number == u64Next) || (u64Number >= u64Next && pst->bKeyFrame)) << u64Number;
            EXPECT_THAT(std::span(pst->pu8Data, pst->u32Length), testing::Each(static_cast<BU_U8>(u64Number)));
            u64Next = u64Number + 1;
            for (BU_U32 i = 0; i < u32Pace; ++i) std::this_thread::yield();
            if (u32Pace == 2 && u64Number % 100 == 99) m_cache.leave(), stPlace = m_cache.join(), u64Next = 0;
        }
        m_cache.leave();
        if (u32Pace == 0) u64LastOfFast = u64Next - 1;
    };
    m_cache.join();
    {
        std::vector<std::jthread> readers;
        for (const BU_U32 u32Pace : {0U, 1U, 2U, 2U, 50U}) readers.emplace_back(follow, u32Pace);
        std::jthread sinks([&] {
            while (!bOver)
                m_cache.addSink("sink", [](const auto &pst) { EXPECT_NE(pst->u32Length, 0U); }),
                    m_cache.removeSink("sink");
        });
        joined.wait();
        for (BU_U32 i = 0; i < PACKETS; ++i) write(i, 1, GROUP);
        bOver = true;
    }
    EXPECT_EQ(u64LastOfFast, PACKETS - 1);
}
} // namespace
