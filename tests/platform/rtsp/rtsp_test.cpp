/// The RTSP library between stream caches that the test writes and clients made of sockets.
#include "live/rtsp.h"
#include "streamCache.h"
#include "support/await.h"
#include "support/platformTest.h"
#include "support/rtspClient.h"

#include <chrono>
#include <glib.h>

namespace
{
using namespace std::string_literals;
using testing::HasSubstr;

/// Annex B units; the last byte of the picture is the mark.
// clang-format off
std::string accessUnit(BU_S32 s32EncodeType, bool bKeyFrame, char mark)
{
    if (s32EncodeType == STREAM_TYPE_AAC) return "\x21\x10\x05"s + mark;
    if (s32EncodeType == STREAM_TYPE_H265)
        return (bKeyFrame ? "\0\0\0\1\x40\1\x0C\1\xFF\xFF\1\x60\0\0\3\0\x90\0\0\3"
                            "\0\0\0\1\x42\1\1\1\x60\0\0\3\0\x90\0\0\3\0\0\3\0\x5D"
                            "\0\0\0\1\x44\1\xC1\x72\xB4\x62\x40" "\0\0\0\1\x26\1\xAF\x08"s : "\0\0\0\1\x02\1\xAF\x08"s) + mark;
    return (bKeyFrame ? "\0\0\0\1\x67\x42\xC0\x1E\xD9\0\xA0\x47\xFE\xC8" "\0\0\0\1\x68\xCE\x38\x80"
                        "\0\0\0\1\x65\x88\x84"s : "\0\0\0\1\x41\x88\x84"s) + mark;
}
// clang-format on

STREAM_PACKET_METADATA_S videoFormat(BU_S32 s32EncodeType, BU_S32 s32Width = 640)
{
    return {s32EncodeType, s32Width, 360, 30, 1, 0, 0, 0};
}
STREAM_PACKET_METADATA_S audioFormat(BU_S32 s32SampleRate = 48000)
{
    return {STREAM_TYPE_AAC, 0, 0, 0, 0, s32SampleRate, 2, 1024};
}

/// An encoder that does what the test says, and remembers what is wanted of it.
struct FakeEncoder {
    explicit FakeEncoder(const STREAM_PACKET_METADATA_S &stFormat) { cache.introduce(stFormat); }

    /// Writes a packet of the present format. @param u8Mark  byte that tells it from others, its last
    void write(bool bKeyFrame, BU_S64 s64AtUs, BU_U8 u8Mark = 0)
    {
        const BU_S32 s32Type = cache.metadata().s32EncodeType;
        const auto pst = std::make_shared<std::pair<std::string, STREAM_PACKET_S>>(
            accessUnit(s32Type, bKeyFrame, static_cast<char>(u8Mark)), STREAM_PACKET_S{});
        pst->second = {reinterpret_cast<const BU_U8 *>(pst->first.data()), static_cast<BU_U32>(pst->first.size()),
                       static_cast<BU_U64>(s64AtUs), bKeyFrame, s32Type};
        cache.write(STREAM_PACKET_REF(pst, &pst->second));
    }
    bool waitWanted(bool bWanted) ///< until somebody, or nobody, consumes the cache
    {
        return await([&] { return cache.isWanted() == bWanted; });
    }
    bool waitKeyRequests(int s32Count)
    {
        return await([&] { return s32KeyRequests >= s32Count; });
    }

    std::atomic<int> s32KeyRequests{0};
    std::atomic<BU_S32> s32BitRate{2000};
    STREAM_CACHE_S cache{{[] {}, [this] { return ++s32KeyRequests, 0; }, [this] { return s32BitRate.load(); }}};
};

class Rtsp : public PlatformTest, public testing::WithParamInterface<Way>
{
protected:
    ~Rtsp() override { stop(); }

    /// Starts the server on fresh ports, with the session "live/main" of picture and sound.
    void start(const std::vector<std::pair<std::string, std::string>> &credentials = {})
    {
        m_s32Port = freePort();
        do m_s32HttpPort = freePort();
        while (m_s32HttpPort == m_s32Port);
        ASSERT_EQ(RTSP_ServiceInit(m_s32Port) + RTSP_SetRtspOverHttpPort(m_s32HttpPort), 0);
        for (const auto &[strUser, strPassword] : credentials)
            ASSERT_EQ(RTSP_SetAuthentication(strUser.c_str(), strPassword.c_str()), 0);
        m_pstSession = addSession("live/main", {{"video", &m_video}, {"audio", &m_audio}});
        ASSERT_EQ(RTSP_ServiceStart(), 0);
    }
    static RTSP_MEDIA_SESSION_T *addSession(const char *pcName,
                                            const std::vector<std::pair<const char *, FakeEncoder *>> &streams)
    {
        RTSP_MEDIA_SESSION_T *pstSession = nullptr;
        EXPECT_EQ(RTSP_createMediaSession(&pstSession, pcName), 0);
        for (const auto &[pcStream, pstEncoder] : streams) {
            RTSP_MEDIA_SUBSESSION_T *pstSub = nullptr;
            EXPECT_EQ(RTSP_createSubsession(&pstSub, &pstEncoder->cache, pcStream, pstEncoder->s32BitRate), 0);
            EXPECT_EQ(RTSP_addMediaSubsession(pstSession, pstSub), 0);
        }
        EXPECT_EQ(RTSP_addMediaSession(pstSession), 0);
        return pstSession;
    }
    static void stop()
    {
        RTSP_ServicePause();
        RTSP_ServiceStop();
    }

    RtspClient client(Way enWay = Way::Tcp) const { return RtspClient(m_s32Port, enWay, m_s32HttpPort); }
    /// A client that plays, and whose key frame has been asked for.
    RtspClient viewer(Way enWay = Way::Tcp) { return viewerOf("live/main", m_video, enWay); }
    RtspClient viewerOf(const std::string &strSession, FakeEncoder &video, Way enWay = Way::Tcp) const
    {
        const int s32Before = video.s32KeyRequests;
        RtspClient viewer = client(enWay);
        EXPECT_EQ(viewer.play(strSession).s32Status, 200);
        EXPECT_TRUE(video.waitKeyRequests(s32Before + 1));
        return viewer;
    }
    int statusOf(const char *pcMethod, const std::string &strPath) const
    {
        RtspClient one = client();
        return one.request(pcMethod, one.url(strPath)).s32Status;
    }
    /// A key frame written now reaches the viewer.
    static bool isServed(RtspClient &viewer, FakeEncoder &video)
    {
        static BU_U8 u8Mark = 0;
        video.write(true, 1000, ++u8Mark);
        for (tagRTP_S stRtp; (stRtp = viewer.rtp()).s32Stream >= 0;)
            if (stRtp.s32Stream == 0 && stRtp.payload.back() == u8Mark) return true;
        return false;
    }
    bool isServed(RtspClient &viewer) { return isServed(viewer, m_video); }

    FakeEncoder m_video{videoFormat(STREAM_TYPE_H264)}, m_audio{audioFormat()}, m_other{videoFormat(STREAM_TYPE_H265)};
    RTSP_MEDIA_SESSION_T *m_pstSession = nullptr;
    int m_s32Port = 0, m_s32HttpPort = 0;
};

TEST_P(Rtsp, StartsAtAKeyFrameThatIsAskedForAtOnce)
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
INSTANTIATE_TEST_SUITE_P(All, Rtsp, testing::Values(Way::Tcp, Way::Udp, Way::Http));

TEST_F(Rtsp, PacketsKeepTheDistancesOfTheirTimestamps)
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

TEST_F(Rtsp, PlayTellsWhereTheStreamsGoOn)
{
    start();
    for (int i = 0; i < 2; ++i) { // before the first packet, and after the last viewer has left
        RtspClient one = client();
        const int s32Before = m_video.s32KeyRequests;
        const std::string strInfo = one.play("live/main").header("RTP-Info");
        ASSERT_TRUE(m_video.waitKeyRequests(s32Before + 1));
        m_video.write(true, 1000);
        EXPECT_THAT(strInfo, HasSubstr("stream=0;seq=" + std::to_string(one.rtp().u16Sequence) + ";rtptime="));
        EXPECT_THAT(strInfo, HasSubstr("stream=1;seq="));
        one.request("TEARDOWN", one.url("live/main"));
        ASSERT_TRUE(m_video.waitWanted(false));
    }
}

TEST_F(Rtsp, EncodersRunOnlyWhileSomebodyPlays)
{
    start();
    RtspClient curious = client();
    EXPECT_EQ(curious.request("DESCRIBE", curious.url("live/main")).s32Status, 200);
    EXPECT_FALSE(m_video.cache.isWanted());

    RtspClient one = viewer();
    EXPECT_TRUE(m_audio.waitWanted(true));
    const auto leaves = [&](auto &&how) {
        how();
        EXPECT_TRUE(m_video.waitWanted(false));
        EXPECT_TRUE(m_audio.waitWanted(false));
    };
    leaves([&] { one.request("PAUSE", one.url("live/main")); });
    const int s32Before = m_video.s32KeyRequests;
    EXPECT_EQ(one.request("PLAY", one.url("live/main")).s32Status, 200);
    ASSERT_TRUE(m_video.waitKeyRequests(s32Before + 1));
    EXPECT_TRUE(isServed(one)) << "it goes on";
    leaves([&] { one.request("TEARDOWN", one.url("live/main")); });
    one = viewer();
    leaves([&] { one = RtspClient(0); });
}

TEST_F(Rtsp, IdleServerDescribesByTheFormatOfItsCaches)
{
    start();
    RtspClient one = client();
    const std::string strDescription = one.request("DESCRIBE", one.url("live/main?x=1")).strBody;
    for (const char *pcLine : {"a=rtpmap:96 H264/90000", "packetization-mode=1", "a=rtpmap:97 MPEG4-GENERIC/48000/2",
                               "config=1190", "b=AS:2000", "a=framerate:30.000", "s=live/main"})
        EXPECT_THAT(strDescription, HasSubstr(pcLine));
}

TEST_F(Rtsp, StreamWithoutEncoderIsLeftOut)
{
    m_audio.cache.introduce({});
    start();
    RtspClient one = viewer();
    EXPECT_THAT(one.description(), testing::Not(HasSubstr("m=audio")));
    EXPECT_TRUE(isServed(one));
}

TEST_F(Rtsp, NewFormatSendsViewersAwayToComeAgain)
{
    start();
    addSession("live/other", {{"video", &m_other}});
    ASSERT_TRUE(await([&] { return statusOf("DESCRIBE", "live/other") == 200; }));
    RtspClient bystander = viewerOf("live/other", m_other);
    for (const auto &[stVideo, stAudio, pcLine] :
         {std::tuple(videoFormat(STREAM_TYPE_H265), audioFormat(), "H265/90000"),
          {videoFormat(STREAM_TYPE_H265), audioFormat(16000), "MPEG4-GENERIC/16000/2"}}) {
        RtspClient before = viewer();
        EXPECT_TRUE(isServed(before));
        m_video.cache.introduce(stVideo);
        m_audio.cache.introduce(stAudio);
        EXPECT_EQ(RTSP_checkAllMediaSubsessionCorrect(&m_pstSession), 0);
        EXPECT_TRUE(before.isClosed());
        RtspClient after = viewer();
        EXPECT_THAT(after.description(), HasSubstr(pcLine));
        EXPECT_TRUE(isServed(after));
    }
    EXPECT_TRUE(isServed(bystander, m_other));
}

TEST_F(Rtsp, NewRatesInterruptNobody)
{
    start();
    RtspClient one = viewer();
    STREAM_PACKET_METADATA_S stFormat = videoFormat(STREAM_TYPE_H264);
    stFormat.s32FrameRateNum = 30000;
    stFormat.s32FrameRateDen = 1001;
    m_video.cache.introduce(stFormat);
    m_video.s32BitRate = 750;
    EXPECT_EQ(RTSP_checkAllMediaSubsessionCorrect(&m_pstSession), 0);
    EXPECT_EQ(RTSP_updateSubsessionBitRateAndFrameRate(m_pstSession), 0);
    const auto isTold = [&](const char *pcLine) {
        RtspClient two = client();
        return two.request("DESCRIBE", two.url("live/main")).strBody.find(pcLine) != std::string::npos;
    };
    EXPECT_TRUE(await([&] { return isTold("b=AS:750") && isTold("a=framerate:29.970"); }));
    EXPECT_TRUE(isServed(one));
}

TEST_F(Rtsp, ASessionThatGoesTakesItsViewersAlong)
{
    start();
    RtspClient one = viewer();
    RTSP_MEDIA_SESSION_T *pstOther = addSession("live/other", {{"video", &m_other}});
    ASSERT_TRUE(await([&] { return statusOf("DESCRIBE", "live/other") == 200; }));
    RtspClient two = viewerOf("live/other", m_other);
    EXPECT_TRUE(isServed(two, m_other));
    EXPECT_EQ(RTSP_destroyMediaSession(&pstOther), 0);
    EXPECT_TRUE(two.isClosed());
    EXPECT_FALSE(m_other.cache.isWanted());
    EXPECT_EQ(client().play("live/other").s32Status, 404);
    EXPECT_TRUE(isServed(one));
}

TEST_F(Rtsp, StopsWithClientsOfEveryKindAndStartsAgainElsewhere)
{
    for (int i = 0; i < 2; ++i) {
        start();
        std::vector<RtspClient> clients;
        for (const Way enWay : {Way::Tcp, Way::Udp, Way::Http}) clients.push_back(viewer(enWay));
        clients.push_back(client());
        clients.back().send("DESCRIBE half a requ");
        stop();
        for (RtspClient &one : clients) EXPECT_TRUE(one.isClosed());
        EXPECT_FALSE(m_video.cache.isWanted());
        EXPECT_LT(connectTo(m_s32Port), 0);
        EXPECT_LT(connectTo(m_s32HttpPort), 0);
    }
}

std::string taken(gchar *pcText)
{
    const std::string strText = pcText;
    g_free(pcText);
    return strText;
}

std::string md5(const std::string &strText)
{
    return taken(g_compute_checksum_for_string(G_CHECKSUM_MD5, strText.c_str(), -1));
}

std::string basic(const std::string &strUser, const std::string &strPassword)
{
    const std::string strBoth = strUser + ":" + strPassword;
    return "Basic " + taken(g_base64_encode(reinterpret_cast<const guchar *>(strBoth.data()), strBoth.size()));
}

/// The answer to the challenge that a first request brings.
std::string digest(RtspClient &one, const std::string &strUser, const std::string &strPassword)
{
    const std::string strUrl = one.url("live/main"), strHead = one.request("DESCRIBE", strUrl).strHead;
    const auto field = [&](const std::string &strName) {
        const auto start = strHead.find(strName + "=\"", strHead.find("Digest ")) + strName.size() + 2;
        return strHead.substr(start, strHead.find('"', start) - start);
    };
    const std::string strRealm = field("realm"), strNonce = field("nonce");
    const std::string strResponse =
        md5(md5(strUser + ":" + strRealm + ":" + strPassword) + ":" + strNonce + ":" + md5("DESCRIBE:" + strUrl));
    return "Digest username=\"" + strUser + "\", realm=\"" + strRealm + "\", nonce=\"" + strNonce + "\", uri=\"" +
           strUrl + "\", response=\"" + strResponse + "\"";
}
TEST_F(Rtsp, EveryCredentialLetsInAndNothingElse)
{
    start({{"admin", "secret"}, {"onvif", "p:w"}});
    for (const auto &[pcUser, pcPassword, s32Status] : {std::tuple("admin", "secret", 200),
                                                        {"onvif", "p:w", 200},
                                                        {"admin", "p:w", 401},
                                                        {"nobody", "secret", 401}}) {
        RtspClient one = client();
        for (const auto &strCredential : {basic(pcUser, pcPassword), digest(one, pcUser, pcPassword)})
            EXPECT_EQ(one.request("DESCRIBE", one.url("live/main"), {{"Authorization", strCredential}}).s32Status,
                      s32Status)
                << strCredential;
    }
    EXPECT_EQ(client().play("live/main").s32Status, 401);
    EXPECT_EQ(client().play("unknown").s32Status, 401) << "which names there are is told to no stranger";
    EXPECT_EQ(client(Way::Http).play("live/main").s32Status, 401);
    EXPECT_FALSE(m_video.cache.isWanted());
}

TEST_F(Rtsp, WrongRequestsAreRefused)
{
    const std::tuple<const char *, const char *, std::map<std::string, std::string>, int> ROWS[] = {
        {"DESCRIBE", "unknown", {}, 404},
        {"SETUP", "live/main/stream=0", {{"Transport", "RTP/AVP;multicast"}}, 461},
        {"SETUP", "live/main/stream=99999999999", {{"Transport", "RTP/AVP/TCP;interleaved=0-1"}}, 404},
        {"PLAY", "live/main", {{"Session", "12345"}}, 454},
        {"NONSENSE", "live/main", {}, 400},
    };
    start();
    for (const auto &[pcMethod, pcPath, headers, s32Status] : ROWS) {
        RtspClient one = client();
        EXPECT_EQ(one.request(pcMethod, one.url(pcPath), headers).s32Status, s32Status) << pcMethod << " " << pcPath;
    }
}

TEST_F(Rtsp, GarbageEndsItsOwnConnectionOnly)
{
    start();
    RtspClient good = viewer();
    std::vector<RtspClient> bad;
    for (const std::string &strGarbage :
         {std::string("HELLO\r\n\r\n"), "OPTIONS rtsp://" + std::string(20000, 'a') + " RTSP/1.0\r\nCSeq: 1\r\n\r\n",
          std::string("ANNOUNCE rtsp://127.0.0.1/live/main RTSP/1.0\r\nCSeq: 1\r\nContent-Length: 1000000000\r\n\r\n"),
          std::string("$\0\xFF\xFF", 4) + std::string(65535, 'z'), std::string("GET /live HTTP/1.0\r\n\r\n")}) {
        bad.push_back(client());
        bad.back().send(strGarbage);
    }
    EXPECT_EQ(client().request("OPTIONS", "*").s32Status, 200); // clients are taken in the order they came
    EXPECT_TRUE(isServed(good));
    // What still waits for more, or for a better request, has no session: it may not stay.
    clock().advance(31'000);
    for (std::size_t i = 0; i < bad.size(); ++i) EXPECT_TRUE(bad[i].isClosed()) << i;
    EXPECT_TRUE(isServed(good));
}

} // namespace
