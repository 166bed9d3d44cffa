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

    struct tagPACKET_S {
        web_rpc::Kind enKind{}; ///< 0: the end of the connection
        BU_S32 s32Result = 0;
        BU_U32 u32Id = 0;
        std::string strBytes;
    };
    tagPACKET_S receive() const;
    /// The next answer, or the next news; what else comes is passed over.
    tagPACKET_S answer() const;
    std::string news() const;
    bool isEnded() const; ///< nothing more comes

private:
    tagPACKET_S receiveKind(web_rpc::Kind enKind) const;
    util::FileDescriptor m_fd;
};
