/// A browser made of bytes, and a preview made of bytes.
#pragma once

#include "base/types.h"
#include "util/fileDescriptor.h"

#include <algorithm>
#include <arpa/inet.h>
#include <cctype>
#include <cerrno>
#include <netinet/in.h>
#include <string>
#include <string_view>
#include <sys/socket.h>
#include <sys/time.h>

struct tagANSWER_S {
    int s32Status = 0; ///< 0: the connection ended first
    std::string strHead, strBody;
    std::string header(std::string_view name) const ///< in small letters; empty: absent
    {
        std::string strLower = strHead;
        for (char &c : strLower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        const std::size_t begin = strLower.find("\r\n" + std::string(name) + ": ");
        if (begin == std::string::npos) return "";
        const std::size_t value = begin + name.size() + 4;
        return strHead.substr(value, strHead.find("\r\n", value) - value);
    }
};

/// A stream of bytes. Every wait ends after 20 seconds with what an ended connection gives.
class Peer
{
public:
    explicit Peer(util::FileDescriptor fd) : m_fd(std::move(fd))
    {
        const timeval stLimit{20, 0};
        for (const int s32Option : {SO_RCVTIMEO, SO_SNDTIMEO})
            setsockopt(m_fd, SOL_SOCKET, s32Option, &stLimit, sizeof(stLimit));
    }
    virtual ~Peer() = default;
    Peer(Peer &&) = default;
    Peer &operator=(Peer &&) = default;

    virtual bool send(std::string_view bytes)
    {
        while (!bytes.empty()) {
            const ssize_t sent = ::send(m_fd, bytes.data(), bytes.size(), MSG_NOSIGNAL);
            if (sent <= 0) return false;
            bytes.remove_prefix(static_cast<std::size_t>(sent));
        }
        return true;
    }
    std::string readSome()
    {
        std::string str(65536, '\0');
        const ssize_t got = receive(str);
        str.resize(got > 0 ? static_cast<std::size_t>(got) : 0);
        return str;
    }
    std::string readUntil(std::string_view end) ///< with it; shorter: the connection has ended
    {
        for (std::string strSome = "?"; m_strInput.find(end) == std::string::npos && !strSome.empty();)
            m_strInput += strSome = readSome();
        return read(std::min(m_strInput.find(end), m_strInput.size()) + end.size());
    }
    std::string read(std::size_t length)
    {
        for (std::string strSome = "?"; m_strInput.size() < length && !strSome.empty();)
            m_strInput += strSome = readSome();
        std::string str = m_strInput.substr(0, length);
        m_strInput.erase(0, length);
        return str;
    }
    tagANSWER_S readAnswer(bool bBody = true)
    {
        tagANSWER_S st;
        st.strHead = readUntil("\r\n\r\n");
        if (!st.strHead.starts_with("HTTP/1.1 ") || !st.strHead.ends_with("\r\n\r\n")) return {};
        st.s32Status = std::stoi(st.strHead.substr(9, 3));
        const std::string strLength = st.header("content-length");
        if (bBody && !strLength.empty()) st.strBody = read(std::stoul(strLength));
        return st;
    }
    tagANSWER_S ask(const std::string &strRequest)
    {
        send(strRequest);
        return readAnswer();
    }
    bool isEnded() ///< waits for the end, whatever comes before
    {
        errno = 0;
        while (!readSome().empty()) {}
        return errno == 0 || errno == ECONNRESET;
    }
    int fd() const { return m_fd; }
    void close() { m_fd = {}; }

protected:
    virtual ssize_t receive(std::string &str) { return recv(m_fd, str.data(), str.size(), 0); }

private:
    util::FileDescriptor m_fd;
    std::string m_strInput;
};

/// Listens on any free port of this machine.
class Listener
{
public:
    Listener()
    {
        socklen_t length = sizeof(m_stAddress);
        bind(m_fd, reinterpret_cast<const sockaddr *>(&m_stAddress), length);
        ::listen(m_fd, 8);
        getsockname(m_fd, reinterpret_cast<sockaddr *>(&m_stAddress), &length);
    }
    BU_S32 port() const { return ntohs(m_stAddress.sin_port); }
    Peer accept() { return Peer(util::FileDescriptor(accept4(m_fd, nullptr, nullptr, SOCK_CLOEXEC))); }
    void close() { m_fd = {}; }

private:
    util::FileDescriptor m_fd{socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)};
    sockaddr_in m_stAddress{AF_INET, 0, {htonl(INADDR_LOOPBACK)}, {}};
};

/// Connects to a port of this machine. @param s32ReceiveBuffer  [bytes]; 0: the system's own
inline Peer connectTo(BU_S32 s32Port, int s32ReceiveBuffer = 0)
{
    util::FileDescriptor fd(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    if (s32ReceiveBuffer) setsockopt(fd, SOL_SOCKET, SO_RCVBUF, &s32ReceiveBuffer, sizeof(s32ReceiveBuffer));
    const sockaddr_in stAddress{AF_INET, htons(static_cast<BU_U16>(s32Port)), {htonl(INADDR_LOOPBACK)}, {}};
    if (connect(fd, reinterpret_cast<const sockaddr *>(&stAddress), sizeof(stAddress)) != 0) fd = {};
    return Peer(std::move(fd));
}

/// "GET /path HTTP/1.1", a host, the other headers and the empty line.
inline std::string get(const std::string &strPath, const std::string &strHeaders = "")
{
    return "GET " + strPath + " HTTP/1.1\r\nHost: localhost\r\n" + strHeaders + "\r\n";
}

inline std::string post(const std::string &strPath, const std::string &strBody)
{
    return "POST " + strPath + " HTTP/1.1\r\nHost: localhost\r\nContent-Type: application/json\r\nContent-Length: " +
           std::to_string(strBody.size()) + "\r\n\r\n" + strBody;
}
