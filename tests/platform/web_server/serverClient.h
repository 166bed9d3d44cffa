/// A browser made of bytes, and a preview made of bytes.
#pragma once

#include "base/types.h"
#include "util/fileDescriptor.h"

#include <memory>
#include <string>
#include <string_view>

struct tagANSWER_S {
    int s32Status = 0; ///< 0: the connection ended first
    std::string strHead, strBody;
    std::string header(std::string_view name) const; ///< in small letters; empty: absent
};

/// A stream of bytes. Every wait ends after 20 seconds with what an ended connection gives.
class Peer
{
public:
    Peer() = default;
    explicit Peer(util::FileDescriptor fd);
    virtual ~Peer() = default;
    Peer(Peer &&) = default;
    Peer &operator=(Peer &&) = default;

    virtual bool send(std::string_view bytes);
    virtual std::string readSome();
    std::string readUntil(std::string_view end); ///< with it; shorter: the connection has ended
    std::string read(std::size_t length);
    tagANSWER_S readAnswer(bool bBody = true);
    tagANSWER_S ask(const std::string &strRequest);
    bool isEnded(); ///< waits for the end, whatever comes before
    int fd() const { return m_fd; }
    void close() { m_fd = {}; }

protected:
    util::FileDescriptor m_fd;
    std::string m_strInput;
};

/// Connects to a port of this machine. @param s32ReceiveBuffer  [bytes]; 0: the system's own
Peer connectTo(BU_S32 s32Port, int s32ReceiveBuffer = 0);

/// "GET /path HTTP/1.1", a host, the other headers and the empty line.
std::string get(const std::string &strPath, const std::string &strHeaders = "");
std::string post(const std::string &strPath, const std::string &strBody);
std::string upgrade(const std::string &strPath);

/// Listens on any free port of this machine.
class Listener
{
public:
    Listener();
    BU_S32 port() const { return m_s32Port; }
    Peer accept();
    void close() { m_fd = {}; }

private:
    util::FileDescriptor m_fd;
    BU_S32 m_s32Port = 0;
};
