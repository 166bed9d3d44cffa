#include "serverClient.h"

#include <algorithm>
#include <arpa/inet.h>
#include <cctype>
#include <cerrno>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/time.h>

namespace
{
sockaddr_in loopback(BU_S32 s32Port)
{
    sockaddr_in stAddress{};
    stAddress.sin_family = AF_INET;
    stAddress.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    stAddress.sin_port = htons(static_cast<BU_U16>(s32Port));
    return stAddress;
}

util::FileDescriptor makeSocket()
{
    util::FileDescriptor fd(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    const timeval stLimit{20, 0};
    setsockopt(fd, SOL_SOCKET, SO_RCVTIMEO, &stLimit, sizeof(stLimit));
    setsockopt(fd, SOL_SOCKET, SO_SNDTIMEO, &stLimit, sizeof(stLimit));
    return fd;
}
} // namespace

std::string tagANSWER_S::header(std::string_view name) const
{
    std::string strLower = strHead;
    std::ranges::transform(strLower, strLower.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    const std::size_t begin = strLower.find("\r\n" + std::string(name) + ": ");
    if (begin == std::string::npos) return "";
    const std::size_t value = begin + name.size() + 4;
    return strHead.substr(value, strHead.find("\r\n", value) - value);
}

Peer::Peer(util::FileDescriptor fd) : m_fd(std::move(fd)) {}

bool Peer::send(std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t sent = ::send(m_fd, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
    return true;
}

std::string Peer::readSome()
{
    std::string str(65536, '\0');
    const ssize_t got = recv(m_fd, str.data(), str.size(), 0);
    str.resize(got > 0 ? static_cast<std::size_t>(got) : 0);
    return str;
}

std::string Peer::readUntil(std::string_view end)
{
    for (std::string strSome = "?"; m_strInput.find(end) == std::string::npos && !strSome.empty();)
        m_strInput += strSome = readSome();
    return read(std::min(m_strInput.find(end), m_strInput.size() - std::min(end.size(), m_strInput.size())) +
                end.size());
}

std::string Peer::read(std::size_t length)
{
    for (std::string strSome = "?"; m_strInput.size() < length && !strSome.empty();) m_strInput += strSome = readSome();
    std::string str = m_strInput.substr(0, length);
    m_strInput.erase(0, length);
    return str;
}

tagANSWER_S Peer::readAnswer(bool bBody)
{
    tagANSWER_S st;
    st.strHead = readUntil("\r\n\r\n");
    if (!st.strHead.starts_with("HTTP/1.1 ") || !st.strHead.ends_with("\r\n\r\n")) return {};
    st.s32Status = std::stoi(st.strHead.substr(9, 3));
    const std::string strLength = st.header("content-length");
    if (bBody && !strLength.empty()) st.strBody = read(std::stoul(strLength));
    return st;
}

tagANSWER_S Peer::ask(const std::string &strRequest)
{
    send(strRequest);
    return readAnswer();
}

bool Peer::isEnded()
{
    errno = 0;
    while (!readSome().empty()) {}
    return errno == 0 || errno == ECONNRESET;
}

Peer connectTo(BU_S32 s32Port, int s32ReceiveBuffer)
{
    util::FileDescriptor fd = makeSocket();
    if (s32ReceiveBuffer) setsockopt(fd, SOL_SOCKET, SO_RCVBUF, &s32ReceiveBuffer, sizeof(s32ReceiveBuffer));
    const sockaddr_in stAddress = loopback(s32Port);
    if (connect(fd, reinterpret_cast<const sockaddr *>(&stAddress), sizeof(stAddress)) != 0) fd = {};
    return Peer(std::move(fd));
}

std::string get(const std::string &strPath, const std::string &strHeaders)
{
    return "GET " + strPath + " HTTP/1.1\r\nHost: localhost\r\n" + strHeaders + "\r\n";
}

std::string post(const std::string &strPath, const std::string &strBody)
{
    return "POST " + strPath + " HTTP/1.1\r\nHost: localhost\r\nContent-Type: application/json\r\nContent-Length: " +
           std::to_string(strBody.size()) + "\r\n\r\n" + strBody;
}

std::string upgrade(const std::string &strPath)
{
    return get(strPath, "Upgrade: websocket\r\nConnection: Upgrade\r\nOrigin: http://localhost\r\nCookie: secret=1\r\n"
                        "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\nSec-WebSocket-Version: 13\r\n");
}

Listener::Listener() : m_fd(makeSocket())
{
    sockaddr_in stAddress = loopback(0);
    socklen_t length = sizeof(stAddress);
    bind(m_fd, reinterpret_cast<const sockaddr *>(&stAddress), sizeof(stAddress));
    ::listen(m_fd, 8);
    getsockname(m_fd, reinterpret_cast<sockaddr *>(&stAddress), &length);
    m_s32Port = ntohs(stAddress.sin_port);
}

Peer Listener::accept()
{
    util::FileDescriptor fd(accept4(m_fd, nullptr, nullptr, SOCK_CLOEXEC));
    const timeval stLimit{20, 0};
    setsockopt(fd, SOL_SOCKET, SO_RCVTIMEO, &stLimit, sizeof(stLimit));
    return Peer(std::move(fd));
}
