/// The RTSP library between stream caches that the test writes and clients made of sockets.
#pragma once

#include "live/rtsp.h"
#include "streamCache.h"
#include "support/platformTest.h"
#include "support/rtspClient.h"

#include <chrono>

/// An encoder that does what the test says, and remembers what is wanted of it.
class FakeEncoder
{
public:
    explicit FakeEncoder(BU_S32 s32EncodeType);

    STREAM_CACHE_S &cache() { return m_cache; }
    void setFormat(const STREAM_PACKET_METADATA_S &stFormat) { m_cache.introduce(stFormat); }
    void setBitRate(BU_S32 s32BitRate) { m_s32BitRate = s32BitRate; }

    /// Writes a packet of the present format. @param s64AtUs  its time. @param u8Mark  byte that tells it from others,
    /// its last. @param u32Filling  bytes that it is larger by
    void write(bool bKeyFrame, BU_S64 s64AtUs, BU_U8 u8Mark = 0, BU_U32 u32Filling = 0);

    bool waitWanted(bool bWanted); ///< until somebody, or nobody, consumes the cache
    bool waitKeyRequests(int s32Count);
    int keyRequests();

private:
    template <class Condition> bool wait(Condition condition)
    {
        std::unique_lock guard(m_lock);
        return m_changed.wait_for(guard, std::chrono::seconds(10), condition);
    }

    std::mutex m_lock; // guards the two below
    std::condition_variable m_changed;
    int m_s32KeyRequests = 0;
    std::atomic<BU_S32> m_s32BitRate{2000};
    STREAM_CACHE_S m_cache;
};

STREAM_PACKET_METADATA_S videoFormat(BU_S32 s32EncodeType, BU_S32 s32Width = 640);
STREAM_PACKET_METADATA_S audioFormat(BU_S32 s32SampleRate = 48000);

class RtspTest : public PlatformTest
{
protected:
    ~RtspTest() override { stop(); }

    /// Prepares and starts the server on fresh ports, with the session "live/main" of picture and sound.
    void start(const std::vector<std::pair<std::string, std::string>> &credentials = {});
    void prepare(const std::vector<std::pair<std::string, std::string>> &credentials = {});
    static RTSP_MEDIA_SESSION_T *addSession(const char *pcName, FakeEncoder &video, FakeEncoder *pstAudio = nullptr);
    void stop();

    RtspClient client(Way enWay = Way::Tcp) const { return RtspClient(m_s32Port, enWay, m_s32HttpPort); }
    /// A client that plays, and whose key frame has been asked for.
    RtspClient viewer(Way enWay = Way::Tcp) { return viewerOf("live/main", m_video, enWay); }
    RtspClient viewerOf(const std::string &strSession, FakeEncoder &video, Way enWay = Way::Tcp) const;
    /// A session that was added while the server runs can be watched soon.
    bool isThere(const std::string &strSession) const;
    /// A key frame written now reaches the viewer.
    static bool isServed(RtspClient &viewer, FakeEncoder &video);
    bool isServed(RtspClient &viewer) { return isServed(viewer, m_video); }

    FakeEncoder m_video{STREAM_TYPE_H264}, m_audio{STREAM_TYPE_AAC}, m_other{STREAM_TYPE_H265};
    RTSP_MEDIA_SESSION_T *m_pstSession = nullptr;
    int m_s32Port = 0, m_s32HttpPort = 0;
};
