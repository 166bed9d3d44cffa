#include "rtspClient.h"
#include "hex.h"
#include "socket.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <glib.h>
#include <poll.h>

namespace
{
constexpr int PATIENCE_S = 10;

int portOf(int fd)
{
    sockaddr_in stAddress{};
    socklen_t size = sizeof stAddress;
    ::getsockname(fd, reinterpret_cast<sockaddr *>(&stAddress), &size);
    return ntohs(stAddress.sin_port);
}

tagRTP_S parseRtp(int s32Stream, std::string_view packet)
{
    if (packet.size() < 12) return {};
    const auto u16Type = static_cast<BU_U16>(number(packet, 0, 2)),
               u16Sequence = static_cast<BU_U16>(number(packet, 2, 2));
    return {s32Stream,   static_cast<BU_U8>(u16Type & 0x7F),        (u16Type & 0x80) != 0,
            u16Sequence, static_cast<BU_U32>(number(packet, 4, 4)), {packet.begin() + 12, packet.end()}};
}
} // namespace

util::FileDescriptor connectTo(int s32Port) { return loopback(SOCK_STREAM, s32Port, ::connect); }
int freePort() { return portOf(loopback(SOCK_STREAM, 0, ::bind)); }

std::string tagANSWER_S::header(const std::string &strName) const
{
    const auto start = strHead.find("\r\n" + strName + ": ");
    if (start == std::string::npos) return {};
    const auto value = start + strName.size() + 4;
    return strHead.substr(value, strHead.find("\r\n", value) - value);
}

RtspClient::RtspClient(int s32Port, Way enWay, int s32HttpPort)
    : m_enWay(enWay), m_s32Port(s32Port), m_fd(connectTo(enWay == Way::Http ? s32HttpPort : s32Port))
{
    if (enWay != Way::Http) return;
    const std::string strHead = " /live HTTP/1.0\r\nx-sessioncookie: " + std::to_string(m_fd) + "c" +
                                std::to_string(freePort()) + "\r\n",
                      strType = "application/x-rtsp-tunnelled\r\n";
    send("GET" + strHead + "Accept: " + strType + "\r\n");
    answer();
    m_fdPost = connectTo(s32HttpPort);
    const std::string strPost = "POST" + strHead + "Content-Type: " + strType + "Content-Length: 32767\r\n\r\n";
    static_cast<void>(::send(m_fdPost, strPost.data(), strPost.size(), MSG_NOSIGNAL));
}

bool RtspClient::send(std::string_view text)
{
    std::string strSent(text);
    if (m_fdPost >= 0) {
        gchar *pcEncoded = g_base64_encode(reinterpret_cast<const guchar *>(text.data()), text.size());
        strSent = pcEncoded;
        g_free(pcEncoded);
    }
    const int fd = m_fdPost >= 0 ? m_fdPost : m_fd;
    return ::send(fd, strSent.data(), strSent.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(strSent.size());
}

bool RtspClient::receive()
{
    char acBuffer[65536];
    const ssize_t length = ::recv(m_fd, acBuffer, sizeof acBuffer, 0);
    if (length > 0) m_strIn.append(acBuffer, static_cast<std::size_t>(length));
    return length > 0;
}

/// The next packet between the answers, with its channel in front; none: an answer is next, or nothing more comes.
std::optional<std::string> RtspClient::interleaved()
{
    while (m_strIn.size() < 4)
        if (!receive()) return {};
    if (m_strIn.front() != '$') return {};
    const std::size_t size = static_cast<BU_U8>(m_strIn[2]) * 256U + static_cast<BU_U8>(m_strIn[3]);
    while (m_strIn.size() < 4 + size)
        if (!receive()) return {};
    const std::string strPacket = m_strIn.substr(1, 1) + m_strIn.substr(4, size);
    m_strIn.erase(0, 4 + size);
    return strPacket;
}

tagANSWER_S RtspClient::answer()
{
    while (interleaved()) {}
    std::size_t end = 0;
    while ((end = m_strIn.find("\r\n\r\n")) == std::string::npos)
        if (!receive()) return {};
    tagANSWER_S stAnswer;
    stAnswer.strHead = m_strIn.substr(0, end + 2);
    m_strIn.erase(0, end + 4);
    stAnswer.s32Status = std::atoi(stAnswer.strHead.c_str() + std::min<std::size_t>(9, end));
    const auto size = static_cast<std::size_t>(std::atoi(stAnswer.header("Content-Length").c_str()));
    while (m_strIn.size() < size)
        if (!receive()) return {};
    stAnswer.strBody = m_strIn.substr(0, size);
    m_strIn.erase(0, size);
    if (const std::string strSession = stAnswer.header("Session"); !strSession.empty())
        m_strSession = strSession.substr(0, strSession.find(';'));
    return stAnswer;
}

std::string RtspClient::url(const std::string &strPath) const
{
    return "rtsp://127.0.0.1:" + std::to_string(m_s32Port) + "/" + strPath;
}

tagANSWER_S RtspClient::request(const std::string &strMethod, const std::string &strUrl,
                                const std::map<std::string, std::string> &headers)
{
    std::string strText = strMethod + " " + strUrl + " RTSP/1.0\r\nCSeq: " + std::to_string(++m_s32Sequence) + "\r\n";
    if (!m_strSession.empty()) strText += "Session: " + m_strSession + "\r\n";
    for (const auto &[strName, strValue] : headers) strText += strName + ": " + strValue + "\r\n";
    send(strText + "\r\n");
    return answer();
}

tagANSWER_S RtspClient::setup(std::size_t index, const std::string &strControl)
{
    const auto pair = [](auto first, auto second) { return std::to_string(first) + "-" + std::to_string(second); };
    std::string strTransport = "RTP/AVP/TCP;unicast;interleaved=" + pair(2 * index, 2 * index + 1);
    if (m_enWay == Way::Udp) {
        util::FileDescriptor fd, fdControl;
        do { // two neighbours
            fd = loopback(SOCK_DGRAM, 0, ::bind);
            if (portOf(fd) % 2 == 0) fdControl = loopback(SOCK_DGRAM, portOf(fd) + 1, ::bind);
        } while (fdControl < 0);
        strTransport = "RTP/AVP;unicast;client_port=" + pair(portOf(fd), portOf(fdControl));
        m_udp.push_back(std::move(fd));
        m_control.push_back(std::move(fdControl));
    }
    return request("SETUP", strControl, {{"Transport", strTransport}});
}

tagANSWER_S RtspClient::play(const std::string &strSession)
{
    tagANSWER_S stAnswer = request("DESCRIBE", url(strSession), {{"Accept", "application/sdp"}});
    m_strDescription = stAnswer.strBody;
    std::vector<std::string> controls;
    for (std::size_t at = 0; (at = m_strDescription.find("a=control:", at)) != std::string::npos; ++at)
        controls.push_back(m_strDescription.substr(at + 10, m_strDescription.find("\r\n", at) - at - 10));
    std::erase(controls, "*");
    for (std::size_t i = 0; i < controls.size() && stAnswer.s32Status == 200; ++i)
        stAnswer = setup(i, url(strSession) + "/" + controls[i]);
    return stAnswer.s32Status == 200 ? request("PLAY", url(strSession)) : stAnswer;
}

tagRTP_S RtspClient::receiveUdp()
{
    std::vector<pollfd> polled;
    for (const auto &fd : m_udp) polled.push_back({fd, POLLIN, 0});
    if (::poll(polled.data(), polled.size(), PATIENCE_S * 1000) <= 0) return {};
    const auto ready = std::ranges::find_if(polled, [](const pollfd &st) { return st.revents != 0; });
    char acBuffer[65536];
    const ssize_t length = ::recv(ready->fd, acBuffer, sizeof acBuffer, 0);
    return parseRtp(static_cast<int>(ready - polled.begin()),
                    {acBuffer, static_cast<std::size_t>(std::max(0L, length))});
}

tagRTP_S RtspClient::rtp()
{
    if (m_enWay == Way::Udp) return receiveUdp();
    const auto until = std::chrono::steady_clock::now() + std::chrono::seconds(PATIENCE_S);
    for (std::optional<std::string> packet; std::chrono::steady_clock::now() < until && (packet = interleaved());)
        if (packet->front() % 2 == 0) return parseRtp(packet->front() / 2, std::string_view(*packet).substr(1));
    return {};
}

bool RtspClient::isClosed()
{
    while (receive()) {}
    char cByte = 0;
    return ::recv(m_fd, &cByte, 1, MSG_DONTWAIT) == 0 || (errno != EAGAIN && errno != EWOULDBLOCK);
}
