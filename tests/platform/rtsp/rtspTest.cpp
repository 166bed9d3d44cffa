#include "rtspTest.h"

#include <array>
#include <span>

namespace
{
/// Annex B units; the last byte of the picture is the mark.
std::vector<BU_U8> accessUnit(BU_S32 s32EncodeType, bool bKeyFrame, BU_U8 u8Mark)
{
    constexpr BU_U8 SPS4[] = {0, 0, 0, 1, 0x67, 0x42, 0xC0, 0x1E, 0xD9, 0x00, 0xA0, 0x47, 0xFE, 0xC8};
    constexpr BU_U8 PPS4[] = {0, 0, 0, 1, 0x68, 0xCE, 0x38, 0x80};
    constexpr BU_U8 VPS5[] = {0, 0, 0, 1, 0x40, 0x01, 0x0C, 0x01, 0xFF, 0xFF, 0x01, 0x60, 0, 0, 3, 0, 0x90, 0, 0, 3};
    constexpr BU_U8 SPS5[] = {0, 0, 0, 1, 0x42, 0x01, 0x01, 0x01, 0x60, 0, 0, 3, 0, 0x90, 0, 0, 3, 0, 0, 3, 0, 0x5D};
    constexpr BU_U8 PPS5[] = {0, 0, 0, 1, 0x44, 0x01, 0xC1, 0x72, 0xB4, 0x62, 0x40};
    std::vector<BU_U8> unit;
    const auto add = [&unit](std::span<const BU_U8> bytes) { unit.insert(unit.end(), bytes.begin(), bytes.end()); };
    if (s32EncodeType == STREAM_TYPE_AAC) {
        unit = {0x21, 0x10, 0x05, u8Mark};
    } else if (s32EncodeType == STREAM_TYPE_H265) {
        if (bKeyFrame) add(VPS5), add(SPS5), add(PPS5);
        add(std::array<BU_U8, 9>{0, 0, 0, 1, BU_U8(bKeyFrame ? 0x26 : 0x02), 0x01, 0xAF, 0x08, u8Mark});
    } else {
        if (bKeyFrame) add(SPS4), add(PPS4);
        add(std::array<BU_U8, 8>{0, 0, 0, 1, BU_U8(bKeyFrame ? 0x65 : 0x41), 0x88, 0x84, u8Mark});
    }
    return unit;
}
} // namespace

STREAM_PACKET_METADATA_S videoFormat(BU_S32 s32EncodeType, BU_S32 s32Width)
{
    STREAM_PACKET_METADATA_S st{};
    st.s32EncodeType = s32EncodeType;
    st.s32Width = s32Width;
    st.s32Height = 360;
    st.s32FrameRateNum = 30;
    st.s32FrameRateDen = 1;
    return st;
}

STREAM_PACKET_METADATA_S audioFormat(BU_S32 s32SampleRate)
{
    STREAM_PACKET_METADATA_S st{};
    st.s32EncodeType = STREAM_TYPE_AAC;
    st.s32SampleRate = s32SampleRate;
    st.s32ChannelNum = 2;
    st.s32FrameSampleNum = 1024;
    return st;
}

FakeEncoder::FakeEncoder(BU_S32 s32EncodeType)
    : m_cache({[this] {
                   const std::lock_guard guard(m_lock);
                   m_changed.notify_all();
               },
               [this] {
                   const std::lock_guard guard(m_lock);
                   ++m_s32KeyRequests;
                   m_changed.notify_all();
                   return 0;
               },
               [this] { return m_s32BitRate.load(); }})
{
    setFormat(s32EncodeType == STREAM_TYPE_AAC ? audioFormat() : videoFormat(s32EncodeType));
}

void FakeEncoder::write(bool bKeyFrame, BU_S64 s64AtUs, BU_U8 u8Mark, BU_U32 u32Filling)
{
    struct tagOWNED_S {
        std::vector<BU_U8> bytes;
        STREAM_PACKET_S stPacket;
    };
    auto pstOwned = std::make_shared<tagOWNED_S>();
    const BU_S32 s32Type = m_cache.metadata().s32EncodeType;
    pstOwned->bytes = accessUnit(s32Type, bKeyFrame, u8Mark);
    pstOwned->bytes.insert(pstOwned->bytes.end() - 1, u32Filling, 0x55);
    pstOwned->stPacket = {pstOwned->bytes.data(), static_cast<BU_U32>(pstOwned->bytes.size()),
                          static_cast<BU_U64>(s64AtUs), bKeyFrame, s32Type};
    m_cache.write(STREAM_PACKET_REF(pstOwned, &pstOwned->stPacket));
}

bool FakeEncoder::waitWanted(bool bWanted)
{
    return wait([&] { return m_cache.isWanted() == bWanted; });
}
bool FakeEncoder::waitKeyRequests(int s32Count)
{
    return wait([&] { return m_s32KeyRequests >= s32Count; });
}
int FakeEncoder::keyRequests()
{
    const std::lock_guard guard(m_lock);
    return m_s32KeyRequests;
}

void RtspTest::prepare(const std::vector<std::pair<std::string, std::string>> &credentials)
{
    m_s32Port = freePort();
    do m_s32HttpPort = freePort();
    while (m_s32HttpPort == m_s32Port);
    ASSERT_EQ(RTSP_ServiceInit(m_s32Port), 0);
    ASSERT_EQ(RTSP_SetRtspOverHttpPort(m_s32HttpPort), 0);
    for (const auto &[strUser, strPassword] : credentials)
        ASSERT_EQ(RTSP_SetAuthentication(strUser.c_str(), strPassword.c_str()), 0);
    m_pstSession = addSession("live/main", m_video, &m_audio);
}

void RtspTest::start(const std::vector<std::pair<std::string, std::string>> &credentials)
{
    prepare(credentials);
    ASSERT_EQ(RTSP_ServiceStart(), 0);
}

RTSP_MEDIA_SESSION_T *RtspTest::addSession(const char *pcName, FakeEncoder &video, FakeEncoder *pstAudio)
{
    RTSP_MEDIA_SESSION_T *pstSession = nullptr;
    RTSP_MEDIA_SUBSESSION_T *pstSub = nullptr;
    EXPECT_EQ(RTSP_createMediaSession(&pstSession, pcName), 0);
    EXPECT_EQ(RTSP_createSubsession(&pstSub, &video.cache(), "video", STREAM_getStreamCacheBitRate(&video.cache())), 0);
    EXPECT_EQ(RTSP_addMediaSubsession(pstSession, pstSub), 0);
    if (pstAudio) {
        EXPECT_EQ(RTSP_createSubsession(&pstSub, &pstAudio->cache(), "audio", 0), 0);
        EXPECT_EQ(RTSP_addMediaSubsession(pstSession, pstSub), 0);
    }
    EXPECT_EQ(RTSP_addMediaSession(pstSession), 0);
    return pstSession;
}

void RtspTest::stop()
{
    RTSP_ServicePause();
    RTSP_ServiceStop();
}

RtspClient RtspTest::viewerOf(const std::string &strSession, FakeEncoder &video, Way enWay) const
{
    const int s32Before = video.keyRequests();
    RtspClient viewer = client(enWay);
    EXPECT_EQ(viewer.play(strSession).s32Status, 200);
    EXPECT_TRUE(video.waitKeyRequests(s32Before + 1));
    return viewer;
}

bool RtspTest::isServed(RtspClient &viewer, FakeEncoder &video)
{
    static BU_U8 u8Mark = 0;
    video.write(true, 1000, ++u8Mark);
    for (tagRTP_S stRtp; (stRtp = viewer.rtp()).s32Stream >= 0;)
        if (stRtp.s32Stream == 0 && stRtp.payload.back() == u8Mark) return true;
    return false;
}

bool RtspTest::isThere(const std::string &strSession) const
{
    RtspClient curious = client();
    int s32Status = 404;
    for (int i = 0; i < 1000 && s32Status == 404; ++i)
        s32Status = curious.request("DESCRIBE", curious.url(strSession)).s32Status;
    return s32Status == 200;
}
