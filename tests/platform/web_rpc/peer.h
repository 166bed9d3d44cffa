/// A web server's end of the socket, by hand: packets out, packets in.
#pragma once

#include "util/fileDescriptor.h"
#include "web_client/message.h"

#include <string>

class Peer
{
public:
    /// Connects to the running service; fails the test when nobody listens. A wait ends after 20 s.
    Peer();

    bool send(const std::string &strPacket) const; ///< false: the other end has gone
    void call(BU_U32 u32Id, BU_U32 u32Event, const std::string &strImage) const;
    bool ask(BU_U32 u32Id, const std::string &strQuestion, const std::string &strJson = "") const;

    struct Packet {
        web_client::Kind enKind{}; ///< 0: the end of the connection
        BU_S32 s32Result = 0;
        BU_U32 u32Id = 0;
        std::string strBytes;
    };
    Packet receive() const;
    /// The next answer, or the next news; what else comes is passed over.
    Packet answer() const;
    std::string news() const;
    bool isEnded() const; ///< nothing more comes

private:
    Packet receiveKind(web_client::Kind enKind) const;
    util::FileDescriptor m_fd;
};
