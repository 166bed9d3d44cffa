/// A browser made of bytes, and a preview made of bytes.
#pragma once

#include "support/socket.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string>
#include <string_view>

struct tagANSWER_S {
    int s32Status = 0; ///< 0: the connection ended first
    std::string strHead, strBody;
    std::string header(const std::string &strName) const ///< empty: absent
    {
        const char *pc = strcasestr(strHead.c_str(), ("\r\n" + strName + ": ").c_str());
        return pc ? std::string(pc + strName.size() + 4, std::strchr(pc + 2, '\r')) : "";
    }
};

/// A stream of bytes. Every wait ends after 20 seconds with what an ended connection gives.
class Peer
{
public:
    explicit Peer(util::FileDescriptor fd) : m_fd(std::move(fd)) { limitWaits(m_fd, 20); }
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
    Listener() { ::listen(m_fd, 8); }
    BU_S32 port() const
    {
        sockaddr_in stAddress{};
        socklen_t length = sizeof(stAddress);
        getsockname(m_fd, reinterpret_cast<sockaddr *>(&stAddress), &length);
        return ntohs(stAddress.sin_port);
    }
    Peer accept() { return Peer(util::FileDescriptor(accept4(m_fd, nullptr, nullptr, SOCK_CLOEXEC))); }
    void close() { m_fd = {}; }

private:
    util::FileDescriptor m_fd = loopback(SOCK_STREAM, 0, ::bind);
};

/// Connects to a port of this machine. @param s32ReceiveBuffer  [bytes]; 0: the system's own
inline Peer connectTo(BU_S32 s32Port, int s32ReceiveBuffer = 0)
{
    return Peer(loopback(SOCK_STREAM, s32Port, ::connect, s32ReceiveBuffer));
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
