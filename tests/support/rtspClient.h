/// An RTSP client made of a socket. Everything it waits for comes within seconds, or counts as not coming.
#pragma once

#include "base/types.h"
#include "util/fileDescriptor.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct tagANSWER_S {
    int s32Status = 0; ///< 0: the connection ended
    std::string strHead, strBody;
    std::string header(const std::string &strName) const; ///< the first of that name
};

struct tagRTP_S {
    int s32Stream = -1; ///< 0 video, 1 audio; -1: nothing came
    BU_U8 u8Type = 0;   ///< payload type
    bool bMarker = false;
    BU_U16 u16Sequence = 0;
    BU_U32 u32Time = 0;
    std::vector<BU_U8> payload;
};

enum class Way { Tcp, Udp, Http };

class RtspClient
{
public:
    /// @param s32HttpPort  of the tunnel; only for Way::Http
    explicit RtspClient(int s32Port, Way enWay = Way::Tcp, int s32HttpPort = 0);

    /// Also sends bytes that are no request.
    bool send(std::string_view text);
    tagANSWER_S answer();
    tagANSWER_S request(const std::string &strMethod, const std::string &strUrl,
                        const std::map<std::string, std::string> &headers = {});

    /// DESCRIBE, SETUP of every stream, PLAY. @return the last answer, or the first that is not 200
    tagANSWER_S play(const std::string &strSession);
    const std::string &description() const { return m_strDescription; }

    tagRTP_S rtp();
    /// Reads until the server has closed the connection. @return false: it did not
    bool isClosed();

    std::string url(const std::string &strPath) const;

private:
    bool receive(); ///< more into m_strIn
    std::optional<std::string> interleaved();
    tagANSWER_S setup(std::size_t index, const std::string &strControl);
    tagRTP_S receiveUdp();

    Way m_enWay;
    int m_s32Port;
    util::FileDescriptor m_fd, m_fdPost;         // the second one sends, in a tunnel
    std::vector<util::FileDescriptor> m_udp;     // RTP sockets, by stream
    std::vector<util::FileDescriptor> m_control; // their RTCP sockets
    std::string m_strIn, m_strSession, m_strDescription;
    int m_s32Sequence = 0;
};

util::FileDescriptor connectTo(int s32Port);
/// A port that nobody listens on.
int freePort();
