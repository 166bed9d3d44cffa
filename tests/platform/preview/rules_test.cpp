#include "admission.h"
#include "inbox.h"
#include "playback.h"
#include "viewerQueue.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <string>

namespace
{
using namespace preview;
using namespace std::string_literals;

TEST(Recording, TellsKeyFramesAndTypes)
{
    const std::tuple<const char *, std::string, BU_S32, bool> ROWS[] = {
        {"H.264 delimiter, parameter sets, IDR", "\0\0\0\1\x09\xF0\0\0\0\1\x67\x42\0\0\1\x68\0\0\1\x65"s, 17, true},
        {"H.264 IDR alone", "\0\0\1\x25\x88"s, 17, true},
        {"H.264 PPS and slice", "\0\0\1\x28\xEE\0\0\0\1\x41\x9A"s, 0, false},
        {"H.264 SEI and slice", "\0\0\1\x06\x05\0\0\1\x01\x9A"s, 0, false},
        {"H.265 delimiter and parameter sets", "\0\0\0\1\x46\1\0\0\0\1\x40\1\0\0\0\1\x42\1"s, 18, true},
        {"H.265 SPS alone", "\0\0\1\x42\1"s, 18, true},
        {"H.265 clean random access", "\0\0\1\x2A\1"s, 18, true},
        {"H.265 IDR alone", "\0\0\1\x26\1"s, 18, true},
        {"H.265 slice", "\0\0\0\1\x02\1\xD0"s, 0, false},
        {"start code cut off", "\0\0\0\1\x41\0\0\1"s, 0, false},
        {"length-prefixed", "\0\0\0\x09\x65\x88\x84\0\0\1\x41\0\0"s, 0, true},
        {"one byte", "x", 0, true},
    };
    for (const auto &[pcName, str, s32EncodeType, bKeyFrame] : ROWS) {
        const auto st = pictureOf({reinterpret_cast<const BU_U8 *>(str.data()), str.size()});
        EXPECT_EQ(std::pair(st.s32EncodeType, st.bKeyFrame), std::pair(s32EncodeType, bKeyFrame)) << pcName;
    }
}

MessageRef message(BU_S32 s32Codec, bool bKeyFrame, std::size_t size)
{
    Header stHeader;
    stHeader.u8Codec = static_cast<BU_U8>(s32Codec);
    stHeader.u8Flags = bKeyFrame ? Header::KEY_FRAME : 0;
    return std::make_shared<Message>(stHeader, std::vector<BU_U8>(size));
}

TEST(ViewerQueue, LosesEverythingWhenFullUpToTheNextKeyFrame)
{
    using Row = std::tuple<const char *, std::size_t, std::size_t>; // the last: so many fit
    for (const auto &[pcName, size, fits] : {Row{"by number", 100, 90}, Row{"by bytes", 100'000, 20}}) {
        ViewerQueue queue;
        EXPECT_FALSE(queue.offer(message(34, true, 10))) << "sound is no start";
        EXPECT_TRUE(queue.offer(message(17, true, size)));
        for (std::size_t i = 1; i < fits; ++i) ASSERT_TRUE(queue.offer(message(17, false, size))) << pcName << i;
        EXPECT_FALSE(queue.offer(message(17, false, size))) << pcName;
        EXPECT_TRUE(queue.isEmpty()) << pcName;
        EXPECT_FALSE(queue.offer(message(34, true, 10))) << pcName;
        EXPECT_TRUE(queue.offer(message(17, true, 5'000'000))) << "one message of any size";
        EXPECT_FALSE(queue.awaitsKeyFrame());
        EXPECT_TRUE(queue.offer(message(17, true, size))) << "a key frame takes the place of what is lost";
        EXPECT_EQ(queue.take()->size(), size + 32);
        EXPECT_EQ(queue.take(), nullptr);
    }
}

TEST(Inbox, KeepsWithinItsLimitsWhenNobodyLooksIn)
{
    for (const auto &[u32Length, u32Count, bLost] :
         {std::tuple(10U, 1000U, true), {10U, 257U, true}, {10U, 256U, false}, {1U << 20, 40U, true}}) {
        BU_U32 u32Woken = 0;
        Inbox inbox([&] { ++u32Woken; });
        const std::string strBytes(u32Length, 'x');
        for (BU_U32 i = 0; i < u32Count; ++i)
            inbox.put({0, recordedPacket({reinterpret_cast<const BU_U8 *>(strBytes.data()), u32Length}), {}});
        const auto stBatch = inbox.take();
        EXPECT_EQ(stBatch.bLost, bLost) << u32Count;
        EXPECT_LE(stBatch.arrivals.size(), std::min<std::size_t>(256, (18 << 20) / u32Length));
        EXPECT_LE(u32Woken, 5U) << "one wake-up for all that waits";
        EXPECT_FALSE(inbox.take().bLost);
    }
}
} // namespace
