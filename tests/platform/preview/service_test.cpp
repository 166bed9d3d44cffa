/// The running service: real viewers on the loopback, the test writes the caches.
#include "fakeCaches.h"
#include "live/websocket.h"
#include "server.h"
#include "support/await.h"
#include "support/platformTest.h"
#include "support/viewer.h"

#include <atomic>
#include <deque>
#include <set>
#include <thread>

namespace
{
using namespace std::string_literals;

class Preview : public PlatformTest
{
protected:
    Preview()
    {
        FakeCaches::reset();
        static const BU_S32 s_s32AtFirst = WEBSOCKET_HasInitd();
        EXPECT_EQ(s_s32AtFirst, 0);
        WEBSOCKET_InitService();
        for (const auto &[s32Cache, pcChannel] : {std::pair{2, "ch1"}, {4, "ch2"}, {5, "ch5"}})
            WEBSOCKET_RegisterChannelMap(s32Cache, pcChannel);
        EXPECT_EQ(WEBSOCKET_StartService(0), 0);
    }
    ~Preview() override { EXPECT_EQ(WEBSOCKET_StopService(), 0); }
    static int port() { return preview::servicePort(); }
    /// A viewer that the service sends to.
    static Viewer watch(const std::string &strPath, int s32ReceiveBuffer = 0)
    {
        Viewer viewer(port(), strPath, "", s32ReceiveBuffer);
        EXPECT_EQ(viewer.status(), 101);
        EXPECT_TRUE(viewer.settle());
        return viewer;
    }
};

TEST_F(Preview, StartsAtAKeyFrameWithItsHeader)
{
    Viewer viewer = watch("/ch1");
    EXPECT_EQ(FakeCaches::keyRequests(2), 1U);
    FakeCaches::write(2, "delta", false);
    const BU_U64 u64Key = FakeCaches::write(2, "key frame", true);
    const auto st = viewer.readMessage();
    EXPECT_EQ(std::tuple(st.strPacket, st.s32Codec, st.bKeyFrame, st.u64Timestamp, st.u32Width, st.u32Height),
              std::tuple("key frame", 17, true, u64Key, 640U, 360U));
    FakeCaches::write(2, "next", false);
    const auto stNext = viewer.readMessage();
    EXPECT_EQ(std::tuple(stNext.strPacket, stNext.bKeyFrame, stNext.u32Sequence),
              std::tuple("next", false, st.u32Sequence + 1));
    Viewer late = watch("/ch1"); // joins within a group of pictures
    EXPECT_EQ(FakeCaches::keyRequests(2), 2U);
    late.sendText("key");
    EXPECT_TRUE(late.settle());
    EXPECT_EQ(FakeCaches::keyRequests(2), 3U);
    FakeCaches::write(2, "not for the late one", false);
    FakeCaches::write(2, std::string(70000, 'k'), true);
    EXPECT_EQ(viewer.readMessage().strPacket, "not for the late one");
    EXPECT_EQ(viewer.readMessage().strPacket.size(), 70000U);
    EXPECT_EQ(late.readMessage().strPacket.size(), 70000U);
}

void expectConsumers(const std::set<BU_S32> &caches)
{
    for (const BU_S32 i : {2, 4, 6}) EXPECT_TRUE(FakeCaches::waitForConsumers(i, caches.contains(i))) << i;
}

TEST_F(Preview, EncodersRunOnlyForViewers)
{
    expectConsumers({});
    {
        const Viewer first = watch("/ch1");
        {
            const Viewer second = watch("/ch1?audio=1");
            expectConsumers({2, 6}); // nobody watches the other channel
        }
        expectConsumers({2});
        WEBSOCKET_RegisterChannelMap(4, "ch1"); // viewers follow their channel to its new cache
        expectConsumers({4});
        WEBSOCKET_RegisterChannelMap(2, "ch1");
        expectConsumers({2});
    }
    expectConsumers({});
}

TEST_F(Preview, SoundForThoseWhoWantItBehindTheFirstPicture)
{
    Viewer silent = watch("/ch2"), listener = watch("/ch2?audio=1");
    FakeCaches::write(6, "too early", true);
    ASSERT_TRUE(listener.settle()); // the sound has passed
    FakeCaches::write(4, "picture", true);
    EXPECT_EQ(listener.readMessage().strPacket, "picture");
    FakeCaches::write(6, "sound", true);
    const auto st = listener.readMessage();
    EXPECT_EQ(std::tuple(st.strPacket, st.s32Codec, st.u32SampleRate, st.u32Channels),
              std::tuple("sound", 34, 48000U, 2U));
    FakeCaches::write(4, "second", false);
    EXPECT_EQ(silent.readMessage().s32Codec, 18);
    EXPECT_EQ(silent.readMessage().strPacket, "second");
}

TEST_F(Preview, SlowViewerGoesOnAtAKeyFrameAndHoldsNobodyUp)
{
    Viewer slow = watch("/ch1", 16 << 10), fast = watch("/ch1");
    constexpr BU_U32 COUNT = 200;
    const std::string strPicture(50000, 'p');
    for (BU_U32 i = 0; i < COUNT; ++i) {
        FakeCaches::write(2, strPicture, i % 40 == 0);
        ASSERT_EQ(fast.readMessage().u32Sequence, i) << "lost by a viewer that reads";
    }
    auto stLast = slow.readMessage();
    EXPECT_EQ(stLast.u32Sequence, 0U);
    FakeCaches::write(2, "end", true);
    BU_U32 u32Gaps = 0;
    while (stLast.s32Codec && stLast.strPacket != "end") {
        const auto st = slow.readMessage();
        ASSERT_GT(st.u32Sequence, stLast.u32Sequence);
        const bool bGap = st.u32Sequence != stLast.u32Sequence + 1;
        EXPECT_TRUE(!bGap || st.bKeyFrame) << "a gap that does not end at a key frame, at " << st.u32Sequence;
        u32Gaps += bGap;
        stLast = st;
    }
    EXPECT_EQ(stLast.strPacket, "end");
    EXPECT_GE(u32Gaps, 1U);
}

TEST_F(Preview, ARecordingReachesTheViewersOfItsChannel)
{
    const auto push = [](const char *pcChannel, const std::string &str) {
        return WEBSOCKET_SendRecodPlayPack(pcChannel, reinterpret_cast<const BU_U8 *>(str.data()),
                                           static_cast<BU_U32>(str.size()));
    };
    const std::string strKey = "\0\0\0\x01\x67..."s, strDelta = "\0\0\0\x01\x41..."s;
    for (const char *pcChannel : {"ch9", static_cast<const char *>(nullptr)}) EXPECT_EQ(push(pcChannel, strKey), -1);
    EXPECT_EQ(push("ch5", strKey), 0);
    EXPECT_EQ(WEBSOCKET_SendRecodPlayPack("ch5", nullptr, 3), -1);
    Viewer viewer = watch("/ch5"), other = watch("/ch1");
    for (const auto &str : {strDelta, strKey, strDelta}) EXPECT_EQ(push("ch5", str), 0);
    const auto stKey = viewer.readMessage(), stDelta = viewer.readMessage();
    EXPECT_EQ(std::tuple(stKey.strPacket, stKey.bKeyFrame, stDelta.strPacket, stDelta.s32Codec),
              std::tuple(strKey, true, strDelta, 17));
    FakeCaches::write(2, "live", true);
    EXPECT_EQ(other.readMessage().strPacket, "live") << "the recording is for its channel only";
}

TEST_F(Preview, ViolationsEndTheirConnectionOnly)
{
    // clang-format off
    const std::pair<std::string, int> VIOLATIONS[] = {
        {"\x81\x05hello", 1008}, {std::string(20, '\xFF'), 1002}, // unmasked; garbage
        {Viewer::masked(0x83, ""), 1002}, {Viewer::masked(0xC1, "key"), 1002}, // unknown opcode, reserved bit
        {Viewer::masked(0x09, "x"), 1002}, {Viewer::masked(0x80, "x"), 1002}, // part of a ping; continues nothing
        {Viewer::masked(0x81, "seventeen letters"), 1009},
        {"\x82\xFF\0\0\0\0\x3F\xFF\xFF\xFF\1\2\3\4"s + std::string(64, 'x'), 1009}, // a gigabyte
        {Viewer::masked(0x81, "hello"), 1008}, {Viewer::masked(0x01, "ke"), 1008}, // no such message; half of one
    };
    // clang-format on
    Viewer witness = watch("/ch1");
    for (const auto &[strBytes, s32Code] : VIOLATIONS) {
        Viewer viewer = watch("/ch1");
        viewer.send(strBytes);
        EXPECT_EQ(viewer.readCloseCode(), s32Code) << testing::PrintToString(strBytes);
    }
    Viewer eager = watch("/ch1");
    for (int i = 0; i < 21; ++i) eager.sendText("key");
    EXPECT_EQ(eager.readCloseCode(), 1008) << "more than 20 messages in a second";
    FakeCaches::write(2, "still here", true);
    EXPECT_EQ(witness.readMessage().strPacket, "still here");
}

TEST_F(Preview, WhoMayWatch)
{
    // clang-format off
    constexpr std::tuple<const char *, const char *, int> REQUESTS[] = {
        {"/ch1", "", 101}, {"/ch9", "", 404}, {"/", "", 404}, {"/ch1/x", "", 404},
        {"/ch1", "Origin: http://127.0.0.1:8080\r\n", 101}, {"/ch1", "Origin: https://LOCALHOST\r\n", 101},
        {"/ch1", "Origin: http://elsewhere.example\r\n", 403}, {"/ch9", "Origin: null\r\n", 403},
    };
    // clang-format on
    for (const auto &[pcPath, pcHeaders, s32Status] : REQUESTS) {
        Viewer viewer(port(), pcPath, pcHeaders);
        EXPECT_EQ(viewer.status(), s32Status) << pcPath << pcHeaders;
        EXPECT_TRUE(s32Status == 101 || viewer.isEnded()) << pcPath << pcHeaders;
    }
    const std::pair<std::string, int> PLAIN[] = {
        // 0: anything but a welcome
        {"\x16\x03\x01\x02\0\x01"s + std::string(512, 'x'), 0},
        {"\r\n\r\n\r\n", 0},
        {"GET /ch1 HTTP/1.1\r\nX: " + std::string(100000, 'x'), 0},
        {"GET / HTTP/1.1\r\nHost: camera\r\n\r\n", 404},
        {"GET /../../etc/passwd HTTP/1.1\r\nHost: camera\r\n\r\n", 404},
        {"POST /ch1 HTTP/1.1\r\nHost: camera\r\nContent-Length: 3\r\n\r\nabc", 404},
        {"GET /ch1 HTTP/1.1\r\nHost: camera\r\nUpgrade: h2c\r\nConnection: Upgrade\r\n\r\n", 400},
    };
    for (const auto &[strRequest, s32Status] : PLAIN) {
        Viewer viewer(port());
        viewer.send(strRequest);
        const int s32Got = viewer.readStatus();
        EXPECT_TRUE(s32Status ? s32Got == s32Status : s32Got != 101) << strRequest.substr(0, 40) << s32Got;
        EXPECT_TRUE(viewer.isEnded()) << strRequest.substr(0, 40);
    }
}

TEST_F(Preview, SilentConnectionsEndAtTheirDeadline)
{
    Viewer silent(port()), half(port());
    for (Viewer *pViewer : {&silent, &half}) pViewer->limitWaits(5); // the WebSocket library would end them after ten
    half.send("GET /ch1 HT");
    Viewer witness = watch("/ch1"); // connected later, so the two were accepted
    clock().advance(preview::HANDSHAKE_MS);
    EXPECT_TRUE(silent.isEnded() && half.isEnded());
    EXPECT_TRUE(witness.settle());
}

TEST_F(Preview, LimitsOfViewersAndConnections)
{
    std::deque<Viewer> viewers;
    for (int i = 0; i < 64; ++i) viewers.push_back(watch(i % 2 ? "/ch1" : "/ch2"));
    EXPECT_EQ(Viewer(port(), "/ch1").status(), 503);
    viewers.pop_front();
    EXPECT_TRUE(await([] { return Viewer(port(), "/ch1").status() == 101; })) << "that one has left";

    std::deque<Viewer> silent;
    for (int i = 0; i < 150; ++i) silent.emplace_back(port());
    EXPECT_TRUE(silent.back().isEnded()) << "more than it takes are turned away at once";
    FakeCaches::write(2, "to all", true);
    EXPECT_EQ(viewers.front().readMessage().strPacket, "to all");
    clock().advance(preview::HANDSHAKE_MS);
    EXPECT_TRUE(silent.front().isEnded());
    EXPECT_EQ(Viewer(port(), "/ch9").status(), 404) << "and there is room again";
}

TEST_F(Preview, StopsWithViewersAndStartsAgain)
{
    EXPECT_EQ(WEBSOCKET_StartService(0), 0) << "runs already";
    for (int i = 0; i < 3; ++i) {
        Viewer viewer = watch("/ch1"), stuck = watch("/ch1", 16 << 10), silent(port());
        for (int k = 0; k < 80; ++k) FakeCaches::write(2, std::string(20000, 'p'), k == 0);
        EXPECT_EQ(viewer.readMessage().strPacket.size(), 20000U);
        EXPECT_EQ(WEBSOCKET_StopService(), 0);
        EXPECT_EQ(std::pair(WEBSOCKET_isServiceRunning(), WEBSOCKET_HasInitd()), std::pair(0, 1));
        EXPECT_TRUE(FakeCaches::waitForConsumers(2, false));
        for (Viewer *pViewer : {&viewer, &stuck, &silent}) EXPECT_TRUE(pViewer->isEnded());
        const BU_U8 u8Packet = 1;
        EXPECT_EQ(WEBSOCKET_SendRecodPlayPack("ch5", &u8Packet, 1), 0);
        EXPECT_EQ(WEBSOCKET_StartService(0), 0);
    }
}

TEST_F(Preview, OccupiedPortIsRefused)
{
    const int s32Taken = port();
    WEBSOCKET_StopService();
    auto pstOther = preview::Server::open("127.0.0.1", s32Taken);
    EXPECT_EQ(WEBSOCKET_StartService(s32Taken), -1);
    EXPECT_EQ(WEBSOCKET_isServiceRunning(), 0);
    pstOther.reset();
    for (const BU_S32 s32Port : {-1, 65536}) EXPECT_EQ(WEBSOCKET_StartService(s32Port), -1);
    EXPECT_EQ(WEBSOCKET_StartService(s32Taken), 0) << "free again";
    EXPECT_EQ(port(), s32Taken);
}

/// Writers, playback, viewers that come and go, and a service that is stopped and started, all at once.
TEST_F(Preview, EverythingAtOnce)
{
    std::atomic<bool> bEnd = false;
    const auto repeat = [&](auto fn) {
        return std::jthread([&bEnd, fn] {
            for (unsigned i = 0; !bEnd; ++i, std::this_thread::yield()) fn(i);
        });
    };
    const BU_U8 au8Key[] = {0, 0, 1, 0x65, 1};
    {
        const std::jthread threads[] = {
            repeat([](unsigned i) { FakeCaches::write(2, std::string(3000, 'a'), i % 8 == 0); }),
            repeat([](unsigned i) { FakeCaches::write(4, std::string(300, 'b'), i % 8 == 0); }),
            repeat([](unsigned) { FakeCaches::write(6, "c", true); }),
            repeat([&](unsigned) { WEBSOCKET_SendRecodPlayPack("ch5", au8Key, sizeof(au8Key)); }),
        };
        for (int i = 0; i < 60; ++i) {
            Viewer one(port(), "/ch1?audio=1"), two(port(), "/ch2"), three(port(), "/ch5");
            EXPECT_TRUE(one.readMessage().bKeyFrame);
            EXPECT_EQ(two.readMessage().s32Codec, 18);
            EXPECT_EQ(three.readMessage().strPacket.size(), sizeof(au8Key));
            if (i % 20 == 19) {
                WEBSOCKET_StopService();
                EXPECT_EQ(WEBSOCKET_StartService(0), 0);
            }
        }
        bEnd = true;
    }
}
} // namespace
