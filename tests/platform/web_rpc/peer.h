/// A web server's end of the socket, by hand: packets out, packets in.
#pragma once

#include "support/socket.h"
#include "web_client/message.h"
#include "web_client/socketFile.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <string>

class Peer
{
public:
    /// Connects to the running service; fails the test when nobody listens. A wait ends after 20 s.
    Peer()
    {
        EXPECT_GE(m_fd, 0) << "nobody listens";
        fcntl(m_fd, F_SETFL, 0);
        limitWaits(m_fd, 20);
    }

    bool send(const std::string &strPacket) const ///< false: the other end has gone
    {
        return ::send(m_fd, strPacket.data(), strPacket.size(), MSG_NOSIGNAL) >= 0;
    }
    void call(BU_U32 u32Id, BU_U32 u32Event, const std::string &strImage) const
    {
        const web_client::Head stHead{.enKind = web_client::Kind::CALL, .u32Id = u32Id, .u32Subject = u32Event};
        send(std::string(reinterpret_cast<const char *>(&stHead), sizeof(stHead)) + strImage);
    }
    bool ask(BU_U32 u32Id, const std::string &strQuestion, const std::string &strJson = "") const
    {
        return send(web_client::encodeQuestion(u32Id, strQuestion, strJson));
    }

    struct Packet {
        web_client::Kind enKind{}; ///< 0: the end of the connection
        BU_S32 s32Result = 0;
        BU_U32 u32Id = 0;
        std::string strBytes;
    };
    Packet receive() const
    {
        thread_local std::string strBuffer(web_client::FROM_CAMERA_MAX, '\0');
        const ssize_t length = recv(m_fd, strBuffer.data(), strBuffer.size(), 0);
        EXPECT_FALSE(length < 0 && errno == EAGAIN) << "waited in vain";
        const auto message = web_client::decode({strBuffer.data(), length > 0 ? static_cast<std::size_t>(length) : 0});
        if (!message) return {};
        return {message->stHead.enKind, message->stHead.s16Result, message->stHead.u32Id, std::string(message->bytes)};
    }
    /// The next answer, or the next news; what else comes is passed over.
    Packet answer() const { return receiveKind(web_client::Kind::ANSWER); }
    std::string news() const { return receiveKind(web_client::Kind::NEWS).strBytes; }
    bool isEnded() const ///< nothing more comes
    {
        while (receive().enKind != web_client::Kind{}) {}
        return true; // or the wait has failed the test
    }

private:
    Packet receiveKind(web_client::Kind enKind) const
    {
        Packet st = receive();
        while (st.enKind != enKind && st.enKind != web_client::Kind{}) st = receive();
        EXPECT_EQ(st.enKind, enKind) << "the connection has ended";
        return st;
    }
    util::FileDescriptor m_fd{web_client::connectTo(web_client::SOCKET_PATH)};
};
