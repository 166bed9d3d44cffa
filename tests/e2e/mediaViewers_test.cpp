// Viewers beside each other: formats that change, those that do not behave, the preview.
#include "mediaCamera.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <algorithm>
#include <cmath>
#include <fstream>

namespace
{
constexpr int H264 = 17, H265 = 18;

TEST(MediaViewers, ChangedFormatReachesThoseWhoWatch)
{
    const MediaCamera camera;
    RtspClient bystander = camera.client();
    ASSERT_EQ(bystander.play("closeup").s32Status, 200);
    Watcher other(bystander);
    Viewer preview = camera.viewer("ch1");
    ASSERT_EQ(preview.readMessage().s32Codec, H264);

    const std::tuple<const char *, const char *, int, BU_U32> CASES[] = {
        {"1 h265", "hevc,640,360 aac,48000,2", H265, 640},
        {"1 h265 320x180", "hevc,320,180 aac,48000,2", H265, 320},
        {"1 h264 480x270", "h264,480,270 aac,48000,2", H264, 480}};
    for (const auto &[pcEncoder, pcProbed, s32Codec, u32Width] : CASES) {
        RtspClient viewer = camera.client();
        ASSERT_EQ(viewer.play("closeup_sub").s32Status, 200) << pcEncoder;
        EXPECT_EQ(Watcher(viewer).watch(3), 3) << pcEncoder;
        camera.setEncoder(pcEncoder);
        EXPECT_TRUE(viewer.isClosed()) << pcEncoder << ": a player has to ask anew";
        EXPECT_EQ(probe(camera.url("closeup_sub")), pcProbed);
        tagPICTURE_MESSAGE_S st = preview.readMessage();
        while (st.s32Codec != 0 && (st.s32Codec != s32Codec || st.u32Width != u32Width)) st = preview.readMessage();
        EXPECT_TRUE(st.bKeyFrame) << pcEncoder << ": the preview goes on at a key frame";
    }
    EXPECT_EQ(other.watch(30), 30) << "another stream goes on without a gap";
}

TEST(MediaViewers, PreviewIsWhatADecoderTakes)
{
    const MediaCamera camera;
    Viewer viewer = camera.viewer("ch2");
    const PreparedRoot root;
    std::ofstream out(root.path() + "/pictures.h264");
    tagPICTURE_MESSAGE_S stLast;
    int s32InStep = 0;
    for (int i = 0; i < 15; ++i) {
        const tagPICTURE_MESSAGE_S st = viewer.readMessage();
        ASSERT_EQ(st.s32Codec, H264);
        if (i == 0) {
            EXPECT_TRUE(st.bKeyFrame);
        } else {
            EXPECT_EQ(st.u32Sequence, stLast.u32Sequence + 1);
            const double dFrames = static_cast<double>(st.u64Timestamp - stLast.u64Timestamp) * 60 / 1e6;
            EXPECT_NEAR(dFrames, std::max(std::round(dFrames), 1.0), 0.002) << "on the output's grid";
            s32InStep += std::lround(dFrames) % 4 == 0; // 15 a second, but for key frames that somebody waits for
        }
        out << st.strPacket;
        stLast = st;
    }
    out.close();
    EXPECT_GE(s32InStep, 10);
    const tagENDED_S st = runCommand("ffprobe -v warning -count_frames -show_entries stream=width,height,nb_read_frames"
                                     " -of csv=print_section=0 " +
                                     root.path() + "/pictures.h264");
    EXPECT_EQ(st.strOut, "640,360,15\n");
    EXPECT_EQ(st.strErr, "");
    EXPECT_EQ(camera.viewer("ch9").status(), 404);
}

TEST(MediaViewers, StoppedReadersNonsenseAndCrowdsDisturbNobody)
{
    rlimit stLimit{};
    getrlimit(RLIMIT_NOFILE, &stLimit);
    stLimit.rlim_cur = std::min<rlim_t>(stLimit.rlim_max, 4096);
    setrlimit(RLIMIT_NOFILE, &stLimit);
    const MediaCamera camera;
    const int s32Small = 4096; // [bytes] fills at once
    std::vector<RtspClient> stoppedClients;
    std::vector<Viewer> stoppedViewers;
    for (int i = 0; i < 8; ++i) {
        stoppedClients.push_back(camera.client());
        ASSERT_EQ(stoppedClients.back().play(i % 2 ? "closeup_sub" : "closeup").s32Status, 200);
        stoppedViewers.push_back(camera.viewer("ch1", s32Small));
    }
    RtspClient good = camera.client();
    ASSERT_EQ(good.play("closeup").s32Status, 200);
    Viewer preview = camera.viewer("ch1");
    Watcher watcher(good);
    BU_U32 u32Sequence = preview.readMessage().u32Sequence;
    EXPECT_EQ(watcher.watch(5), 5);
    const long lBefore = camera.residentKiB();
    for (int i = 0; i < 12; ++i) {
        EXPECT_EQ(watcher.watch(5), 5);
        for (int j = 0; j < 5; ++j) EXPECT_EQ(preview.readMessage().u32Sequence, ++u32Sequence);
    }
    EXPECT_LT(camera.residentKiB(), lBefore + 24 * 1024);
    const std::string NONSENSE[] = {
        "PLAY rtsp://127.0.0.1/closeup RTSP/9.9\r\nCSeq: x\r\n\r\n",
        "GET /closeup HTTP/1.1\r\nUpgrade: websocket\r\n\r\n",
        "POST /closeup HTTP/1.0\r\nx-sessioncookie: nobody\r\nContent-Length: 4\r\n\r\n====", std::string(5000, '$')};
    std::vector<util::FileDescriptor> crowd;
    for (int i = 0; i < 1000; ++i) {
        const std::string &strNonsense = NONSENSE[static_cast<std::size_t>(i % 4)];
        crowd.push_back(connectTo(camera.port(i % 3 == 0 ? 12345 : i % 3 == 1 ? 554 : 8554)));
        if (i < 24) static_cast<void>(write(crowd.back(), strNonsense.data(), strNonsense.size()));
    }
    EXPECT_EQ(watcher.watch(15), 15);
    crowd.clear();
    EXPECT_EQ(watcher.watch(15), 15);
    EXPECT_EQ(probe(camera.url("closeup_sub")), "h264,640,360 aac,48000,2");
}
} // namespace
