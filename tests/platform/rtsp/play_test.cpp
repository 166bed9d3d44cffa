/// What a viewer gets.
#include "rtspTest.h"

namespace
{
using testing::HasSubstr;

class Transport : public RtspTest, public testing::WithParamInterface<Way>
{
};
} // namespace

TEST_P(Transport, StartsAtAKeyFrameThatIsAskedForAtOnce)
{
    start();
    RtspClient first = viewer(GetParam());
    ASSERT_TRUE(m_audio.waitKeyRequests(1));
    m_video.write(false, 1'000'000);
    m_video.write(true, 1'040'000, 7);
    m_audio.write(true, 1'050'000, 9);
    tagRTP_S picture = first.rtp(), sound = first.rtp();
    if (picture.s32Stream != 0) std::swap(picture, sound);
    ASSERT_EQ(picture.u8Type, 96);
    EXPECT_EQ(picture.payload.front() & 0x1F, 24) << "parameter sets and picture in one packet";
    EXPECT_EQ(picture.payload.size(), 1U + (2 + 10) + (2 + 4) + (2 + 4)) << "each of them once";
    EXPECT_EQ(picture.payload.back(), 7);
    EXPECT_TRUE(picture.bMarker) << "the end of the picture is told with it";
    ASSERT_EQ(sound.u8Type, 97);
    EXPECT_EQ(sound.payload.back(), 9);

    RtspClient second = viewer(GetParam());
    EXPECT_EQ(second.request("TEARDOWN", second.url("live/main")).s32Status, 200);
    EXPECT_TRUE(isServed(first));
}
INSTANTIATE_TEST_SUITE_P(All, Transport, testing::Values(Way::Tcp, Way::Udp, Way::Http));

TEST_F(RtspTest, PacketsKeepTheDistancesOfTheirTimestamps)
{
    start();
    RtspClient one = viewer();
    ASSERT_TRUE(m_audio.waitKeyRequests(1));
    const auto timeOfNext = [&](FakeEncoder &encoder, BU_S64 s64AtUs) {
        encoder.write(true, s64AtUs);
        return one.rtp().u32Time;
    };
    const BU_U32 u32Picture = timeOfNext(m_video, 5'000'000), u32Sound = timeOfNext(m_audio, 5'000'000);
    EXPECT_EQ(timeOfNext(m_video, 5'000'000 - 1'000) - u32Picture, BU_U32(-90)) << "late, but at its time";
    EXPECT_EQ(timeOfNext(m_audio, 5'000'000 - 1'000) - u32Sound, BU_U32(-48));
}

TEST_F(RtspTest, PlayTellsWhereTheStreamsGoOn)
{
    start();
    for (int i = 0; i < 2; ++i) { // before the first packet, and after the last viewer has left
        RtspClient one = client();
        const int s32Before = m_video.keyRequests();
        const std::string strInfo = one.play("live/main").header("RTP-Info");
        ASSERT_TRUE(m_video.waitKeyRequests(s32Before + 1));
        m_video.write(true, 1000);
        EXPECT_THAT(strInfo, HasSubstr("stream=0;seq=" + std::to_string(one.rtp().u16Sequence) + ";rtptime="));
        EXPECT_THAT(strInfo, HasSubstr("stream=1;seq="));
        one.request("TEARDOWN", one.url("live/main"));
        ASSERT_TRUE(m_video.waitWanted(false));
    }
}

TEST_F(RtspTest, EncodersRunOnlyWhileSomebodyPlays)
{
    start();
    RtspClient curious = client();
    EXPECT_EQ(curious.request("DESCRIBE", curious.url("live/main")).s32Status, 200);
    EXPECT_FALSE(m_video.cache().isWanted());

    const std::vector<std::function<void(RtspClient &)>> waysToLeave = {
        [](RtspClient &one) { one.request("TEARDOWN", one.url("live/main")); },
        [](RtspClient &one) { one.request("PAUSE", one.url("live/main")); },
        [](RtspClient &one) { one = RtspClient(0); },
    };
    for (std::size_t i = 0; i < waysToLeave.size(); ++i) {
        RtspClient one = viewer();
        EXPECT_TRUE(m_audio.waitWanted(true));
        waysToLeave[i](one);
        EXPECT_TRUE(m_video.waitWanted(false)) << i;
        EXPECT_TRUE(m_audio.waitWanted(false)) << i;
    }
}

TEST_F(RtspTest, WhoDoesNotReadHoldsUpNobody)
{
    start();
    RtspClient stuck = viewer();
    {
        RtspClient reader = viewer();
        for (BU_U8 i = 1; i <= 30; ++i) { // more than a connection takes
            m_video.write(true, 1'000'000 + i, i, 300'000);
            while (reader.rtp().payload.back() != i) {}
        }
    }
    for (int i = 0; i < 5; ++i) m_video.write(true, 2'000'000 + i);
    RtspClient late = viewer();
    EXPECT_TRUE(isServed(late));
}

TEST_F(RtspTest, PausedViewerGoesOn)
{
    start();
    RtspClient one = viewer();
    EXPECT_EQ(one.request("PAUSE", one.url("live/main")).s32Status, 200);
    ASSERT_TRUE(m_video.waitWanted(false));
    const int s32Before = m_video.keyRequests();
    EXPECT_EQ(one.request("PLAY", one.url("live/main")).s32Status, 200);
    ASSERT_TRUE(m_video.waitKeyRequests(s32Before + 1));
    EXPECT_TRUE(isServed(one));
}

TEST_F(RtspTest, IdleServerDescribesByTheFormatOfItsCaches)
{
    struct tagCASE_S {
        STREAM_PACKET_METADATA_S stVideo, stAudio;
        std::vector<std::string> lines;
    };
    const tagCASE_S cases[] = {
        {videoFormat(STREAM_TYPE_H264),
         audioFormat(),
         {"a=rtpmap:96 H264/90000", "packetization-mode=1", "a=rtpmap:97 MPEG4-GENERIC/48000/2", "config=1190",
          "b=AS:2000", "a=framerate:30.000", "s=live/main"}},
        {videoFormat(STREAM_TYPE_H265),
         audioFormat(16000),
         {"a=rtpmap:96 H265/90000", "a=rtpmap:97 MPEG4-GENERIC/16000/2", "config=1410"}},
    };
    for (const auto &[stVideo, stAudio, lines] : cases) {
        m_video.setFormat(stVideo);
        m_audio.setFormat(stAudio);
        start();
        RtspClient one = client();
        const std::string strDescription = one.request("DESCRIBE", one.url("live/main?x=1")).strBody;
        for (const std::string &strLine : lines) EXPECT_THAT(strDescription, HasSubstr(strLine));
        stop();
    }
}

TEST_F(RtspTest, StreamWithoutEncoderIsLeftOut)
{
    m_audio.setFormat({});
    start();
    RtspClient one = viewer();
    EXPECT_THAT(one.description(), testing::Not(HasSubstr("m=audio")));
    EXPECT_TRUE(isServed(one));
}
