#include "admission.h"
#include "inbox.h"
#include "playback.h"
#include "viewerQueue.h"

#include <gmock/gmock.h>

#include <string>

namespace
{
using namespace preview;
using namespace std::string_literals;

TEST(Origin, IsAllowedFromTheHostItselfAndFromTheCamera)
{
    struct Row {
        const char *pcOwn, *pcOrigin, *pcHost;
        bool bAllowed;
    };
    constexpr Row ROWS[] = {
        {"127.0.0.1", "http://localhost", "127.0.0.1:12345", true},
        {"127.0.0.1", "https://127.0.0.1:8443", "localhost:12345", true},
        {"127.0.0.1", "http://[::1]:8080", "localhost", true},
        {"127.0.0.9", "http://127.0.0.9", "127.0.0.9:12345", true},
        {"127.0.0.9", "http://localhost", "127.0.0.9:12345", false},
        {"127.0.0.9", "http://127.0.0.1:3000", "127.0.0.9:12345", false},
        {"10.0.0.5", "http://10.0.0.5:8080", "10.0.0.5:12345", true},
        {"10.0.0.5", "http://10.0.0.6", "10.0.0.5:12345", false},
        {"10.0.0.5", "http://10.0.0.5", "studio:12345", true},
        {"0.0.0.0", "http://LOCALHOST:8080", "10.0.0.5:12345", true},
        {"0.0.0.0", "http://studio.local:8080", "Studio.Local:12345", true},
        {"0.0.0.0", "http://STUDIO", "studio", true},
        {"0.0.0.0", "https://[fe80::1]", "[FE80::1]:12345", true},
        {"127.0.0.1", "http://camera", "camera:12345", false}, // a name that leads here, but is not ours
        {"127.0.0.1", "http://evil.example:12345", "evil.example:12345", false},
        {"127.0.0.1", "http://localhost", "evil.example", false},
        {"127.0.0.1", "http://studio", "studio.evil.example", false},
        {"127.0.0.1", "http://localhost", "", false},
        {"127.0.0.1", "http://0.0.0.0", "127.0.0.1", false},
        {"127.0.0.1", "", "127.0.0.1", false},
        {"127.0.0.1", "null", "127.0.0.1", false},
        {"127.0.0.1", "localhost", "127.0.0.1", false},
        {"127.0.0.1", "file://", "127.0.0.1", false},
        {"127.0.0.1", "ftp://localhost", "localhost", false},
        {"127.0.0.1", "http://", "", false},
        {"127.0.0.1", "http://127.0.0.1.evil.example", "127.0.0.1", false},
        {"127.0.0.1", "http://localhost.evil.example", "localhost", false},
        {"127.0.0.1", "http://evil.example", "127.0.0.1", false},
        {"127.0.0.1", "http://evil.example#localhost", "127.0.0.1", false},
        {"127.0.0.1", "http://localhost@evil.example", "127.0.0.1", false},
        {"127.0.0.1", "http://localhost:80@evil.example", "127.0.0.1", false},
        {"127.0.0.1", "http://localhost,http://evil.example", "127.0.0.1", false},
        {"127.0.0.1", "http://[::1", "127.0.0.1", false},
    };
    for (const auto &[pcOwn, pcOrigin, pcHost, bAllowed] : ROWS)
        EXPECT_EQ(OriginRule(pcOwn, "Studio").allows(pcOrigin, pcHost), bAllowed)
            << pcOwn << ": " << pcOrigin << " to " << pcHost;
    EXPECT_FALSE(OriginRule("127.0.0.1", "").allows("http://.local", ".local")) << "a machine without a name";
}

TEST(Admission, OneMachineCannotTakeAllConnections)
{
    Admission admission("192.0.2.9");
    for (int i = 0; i < 16; ++i) {
        ASSERT_TRUE(admission.mayConnect("192.0.2.1"));
        admission.enter("192.0.2.1");
    }
    EXPECT_FALSE(admission.mayConnect("192.0.2.1"));
    EXPECT_TRUE(admission.mayConnect("192.0.2.2"));
    admission.leave("192.0.2.1");
    EXPECT_TRUE(admission.mayConnect("192.0.2.1"));
    for (int i = 15; i < 128; ++i) {
        const char *pcHere = i % 2 ? "127.0.0.1" : "192.0.2.9";
        ASSERT_TRUE(admission.mayConnect(pcHere)) << i;
        admission.enter(pcHere);
    }
    EXPECT_FALSE(admission.mayConnect("127.0.0.1"));
}

TEST(Recording, TellsKeyFramesAndTypes)
{
    struct Row {
        const char *pcName;
        std::string strPacket;
        BU_S32 s32EncodeType;
        bool bKeyFrame;
    };
    const Row ROWS[] = {
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
        EXPECT_EQ(st.s32EncodeType, s32EncodeType) << pcName;
        EXPECT_EQ(st.bKeyFrame, bKeyFrame) << pcName;
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
    struct Row {
        const char *pcName;
        std::size_t size, fits;
    };
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
    struct Row {
        BU_U32 u32Length, u32Count;
    };
    for (const auto &[u32Length, u32Count] : {Row{10, 1000}, Row{1 << 20, 40}}) {
        BU_U32 u32Woken = 0;
        Inbox inbox([&] { ++u32Woken; });
        const std::string strBytes(u32Length, 'x');
        for (BU_U32 i = 0; i < u32Count; ++i)
            inbox.put({0, recordedPacket({reinterpret_cast<const BU_U8 *>(strBytes.data()), u32Length}), {}});
        const auto stBatch = inbox.take();
        EXPECT_TRUE(stBatch.bLost);
        EXPECT_LE(stBatch.arrivals.size(), 256U);
        EXPECT_LE(stBatch.arrivals.size() * u32Length, std::size_t{18} << 20);
        EXPECT_LE(u32Woken, 5U) << "one wake-up for all that waits";
        EXPECT_FALSE(inbox.take().bLost);
    }
}
} // namespace
