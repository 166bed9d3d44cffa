/// Sessions and formats that change, and the life of the server.
#include "rtspTest.h"

#include <sys/socket.h>

namespace
{
using testing::HasSubstr;
}

TEST_F(RtspTest, NewFormatSendsViewersAwayToComeAgain)
{
    struct tagCASE_S {
        STREAM_PACKET_METADATA_S stVideo, stAudio;
        std::string strLine;
    };
    const tagCASE_S cases[] = {
        {videoFormat(STREAM_TYPE_H265), audioFormat(), "H265/90000"},      // codec
        {videoFormat(STREAM_TYPE_H265, 320), audioFormat(), "H265/90000"}, // size
        {videoFormat(STREAM_TYPE_H265, 320), audioFormat(16000), "config=1410"},
        {videoFormat(STREAM_TYPE_H264, 320), audioFormat(16000), "H264/90000"},
    };
    start();
    addSession("live/other", m_other);
    ASSERT_TRUE(isThere("live/other"));
    RtspClient bystander = viewerOf("live/other", m_other);
    for (const auto &[stVideo, stAudio, strLine] : cases) {
        RtspClient before = viewer();
        EXPECT_TRUE(isServed(before));
        m_video.setFormat(stVideo);
        m_audio.setFormat(stAudio);
        EXPECT_EQ(RTSP_checkAllMediaSubsessionCorrect(&m_pstSession), 0);
        EXPECT_TRUE(before.isClosed());
        RtspClient after = viewer();
        EXPECT_THAT(after.description(), HasSubstr(strLine));
        EXPECT_TRUE(isServed(after));
    }
    EXPECT_TRUE(isServed(bystander, m_other));
}

TEST_F(RtspTest, NewRatesInterruptNobody)
{
    start();
    RtspClient one = viewer();
    STREAM_PACKET_METADATA_S stFormat = videoFormat(STREAM_TYPE_H264);
    stFormat.s32FrameRateNum = 30000;
    stFormat.s32FrameRateDen = 1001;
    m_video.setFormat(stFormat);
    m_video.setBitRate(750);
    EXPECT_EQ(RTSP_checkAllMediaSubsessionCorrect(&m_pstSession), 0);
    EXPECT_EQ(RTSP_updateSubsessionBitRateAndFrameRate(m_pstSession), 0);
    RtspClient two = viewer(); // both calls have been carried out
    EXPECT_TRUE(isServed(one));
    EXPECT_TRUE(isServed(two));
    RtspClient curious = client();
    const std::string strDescription = curious.request("DESCRIBE", curious.url("live/main")).strBody;
    EXPECT_THAT(strDescription, HasSubstr("b=AS:750"));
    EXPECT_THAT(strDescription, HasSubstr("a=framerate:29.970"));
}

TEST_F(RtspTest, SessionsComeAndGoWhileOthersAreWatched)
{
    start();
    RtspClient one = viewer();
    RTSP_MEDIA_SESSION_T *pstOther = addSession("live/other", m_other);
    for (int i = 0; i < 3; ++i) {
        ASSERT_TRUE(isThere("live/other"));
        RtspClient two = viewerOf("live/other", m_other);
        EXPECT_TRUE(isServed(two, m_other));
        EXPECT_EQ(RTSP_destroyMediaSession(&pstOther), 0);
        EXPECT_TRUE(two.isClosed());
        EXPECT_FALSE(m_other.cache().isWanted());
        EXPECT_EQ(client().play("live/other").s32Status, 404);
        pstOther = addSession("live/other", m_other);
    }
    EXPECT_TRUE(isServed(one));
}

TEST_F(RtspTest, StopsWithClientsOfEveryKindAndStartsAgainElsewhere)
{
    for (int i = 0; i < 3; ++i) {
        start();
        std::vector<RtspClient> clients;
        for (int j = 0; j < 20; ++j) clients.push_back(viewer(std::array{Way::Tcp, Way::Udp, Way::Http}[j % 3]));
        clients.push_back(client());
        clients.back().send("DESCRIBE half a requ");
        stop();
        for (RtspClient &one : clients) EXPECT_TRUE(one.isClosed());
        EXPECT_FALSE(m_video.cache().isWanted());
        EXPECT_LT(connectTo(m_s32Port), 0);
        EXPECT_LT(connectTo(m_s32HttpPort), 0);
    }
}

TEST_F(RtspTest, PauseAcceptsNoMoreButServesOn)
{
    start();
    RtspClient one = viewer();
    RTSP_ServicePause();
    EXPECT_EQ(RTSP_updateSubsessionBitRateAndFrameRate(m_pstSession), 0);
    EXPECT_TRUE(isServed(one));
    EXPECT_NE(client().request("OPTIONS", "*").s32Status, 200);
}

TEST_F(RtspTest, TakenPortIsToldAndTheServerStillUsable)
{
    prepare();
    const util::FileDescriptor fd(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    EXPECT_EQ(RTSP_SetRtspOverHttpPort(m_s32Port), 0); // one port cannot be both
    EXPECT_EQ(RTSP_ServiceStart(), -1);
    EXPECT_LT(connectTo(m_s32Port), 0);
    EXPECT_EQ(RTSP_SetRtspOverHttpPort(m_s32HttpPort), 0);
    EXPECT_EQ(RTSP_ServiceStart(), 0);
    RtspClient one = viewer();
    EXPECT_TRUE(isServed(one));
}

TEST_F(RtspTest, CallsOutOfPlaceAreRefused)
{
    RTSP_MEDIA_SESSION_T *pstSession = nullptr, *pstStale = nullptr;
    RTSP_MEDIA_SUBSESSION_T *pstSub = nullptr;
    EXPECT_EQ(RTSP_ServiceStart(), -1);
    EXPECT_EQ(RTSP_ServiceStop(), 0);
    EXPECT_EQ(RTSP_ServiceInit(0), -1);
    EXPECT_EQ(RTSP_ServiceInit(65536), -1);
    start();
    pstStale = m_pstSession;
    EXPECT_EQ(RTSP_ServiceInit(m_s32Port), -1) << "it runs";
    EXPECT_EQ(RTSP_SetRtspOverHttpPort(m_s32HttpPort), -1);
    EXPECT_EQ(RTSP_SetAuthentication("", "x"), -1);
    EXPECT_EQ(RTSP_SetAuthentication(nullptr, "x"), -1);
    EXPECT_EQ(RTSP_createMediaSession(&pstSession, ""), -1);
    EXPECT_EQ(RTSP_createMediaSession(&pstSession, "live/main"), -1) << "the name is in use";
    EXPECT_EQ(pstSession, nullptr);
    EXPECT_EQ(RTSP_createSubsession(&pstSub, nullptr, "video", 0), -1);
    EXPECT_EQ(RTSP_addMediaSubsession(m_pstSession, nullptr), -1);
    EXPECT_EQ(RTSP_addMediaSession(nullptr), -1);
    EXPECT_EQ(RTSP_addMediaSession(m_pstSession), -1) << "it is there";
    EXPECT_EQ(RTSP_destroyMediaSession(&pstSession), -1);
    EXPECT_EQ(RTSP_checkAllMediaSubsessionCorrect(&pstSession), -1);
    EXPECT_EQ(RTSP_updateSubsessionBitRateAndFrameRate(nullptr), -1);
    stop();
    EXPECT_EQ(RTSP_checkAllMediaSubsessionCorrect(&pstStale), -1) << "it went with the server";
}
