/// Many RTSP clients of one process: plain sockets, one epoll. They take the picture only, within the connection.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

using Clock = std::chrono::steady_clock;

inline double milliseconds(Clock::duration d) { return std::chrono::duration<double, std::milli>(d).count(); }

/// An RTP packet that has arrived, valid during the call.
struct tagRTP_VIEW_S {
    std::uint16_t u16Sequence;
    std::uint32_t u32Time;
    bool bMarker;
    const std::uint8_t *pu8Payload;
    std::size_t size;

    bool beginsKeyFrame() const; ///< H.264: an IDR slice, whole or its first part
};

class RtspClient
{
public:
    /// Asks for the picture of a session and begins to play; throws std::runtime_error when the server refuses.
    RtspClient(int s32Port, const std::string &strPath);
    ~RtspClient();
    RtspClient(const RtspClient &) = delete;
    RtspClient &operator=(const RtspClient &) = delete;

    int fd() const { return m_fd; }
    /// Takes what has arrived, without waiting. @return false: the connection has ended
    bool take();
    /// Waits for packets and gives them to fn until it returns false. @return false: nothing came for seconds
    bool watch(const std::function<bool(const tagRTP_VIEW_S &)> &fn);

    std::uint64_t pictures() const { return m_u64Pictures; }
    std::uint64_t gaps() const { return m_u64Gaps; }

private:
    std::string ask(const std::string &strMethod, const std::string &strUrl, const std::string &strHeaders);
    /// Gives the whole packets of the buffer to fn, until it returns false.
    bool parse(const std::function<bool(const tagRTP_VIEW_S &)> *pfn);
    void count(const tagRTP_VIEW_S &st);

    int m_fd = -1;
    int m_s32Sequence = 0;
    std::string m_strSession;
    std::vector<std::uint8_t> m_in;
    std::size_t m_filled = 0;
    bool m_bFirst = true;
    std::uint16_t m_u16Next = 0;
    std::uint64_t m_u64Pictures = 0, m_u64Gaps = 0;
};

/// A crowd of them.
class RtspLoad
{
public:
    RtspLoad(int s32Port, std::string strPath);
    ~RtspLoad();
    RtspLoad(const RtspLoad &) = delete;
    RtspLoad &operator=(const RtspLoad &) = delete;

    void grow(std::size_t clients); ///< to so many
    void run(std::chrono::milliseconds duration);

    std::uint64_t pictures() const;
    std::uint64_t gaps() const;
    std::size_t lost() const { return m_lost; } ///< connections that the server ended
    std::size_t size() const { return m_clients.size(); }

private:
    void poll(int s32TimeoutMs);

    int m_s32Port;
    std::string m_strPath;
    int m_fdEpoll;
    std::size_t m_lost = 0;
    std::vector<std::unique_ptr<RtspClient>> m_clients;
};

/// From the connection to the end of the first key frame [ms]; what came before is counted in.
double firstKeyFrame(int s32Port, const std::string &strPath);

/// An H.264 stream as it was sent: access units in Annex B form, the first one a key frame.
std::vector<std::vector<std::uint8_t>> record(int s32Port, const std::string &strPath, std::size_t pictures);

double percentile(std::vector<double> values, double dPercent);
