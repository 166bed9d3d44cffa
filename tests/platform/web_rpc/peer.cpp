// Packets by hand.
#include "peer.h"

#include "web_client/socketFile.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/time.h>

using namespace web_client;

Peer::Peer() : m_fd(connectTo(SOCKET_PATH))
{
    EXPECT_GE(m_fd, 0) << "nobody listens";
    fcntl(m_fd, F_SETFL, 0);
    const timeval stLimit{20, 0};
    setsockopt(m_fd, SOL_SOCKET, SO_RCVTIMEO, &stLimit, sizeof(stLimit));
}

bool Peer::send(const std::string &strPacket) const
{
    return ::send(m_fd, strPacket.data(), strPacket.size(), MSG_NOSIGNAL) >= 0;
}

void Peer::call(BU_U32 u32Id, BU_U32 u32Event, const std::string &strImage) const
{
    const Head stHead{.enKind = Kind::CALL, .u32Id = u32Id, .u32Subject = u32Event};
    send(std::string(reinterpret_cast<const char *>(&stHead), sizeof(stHead)) + strImage);
}

bool Peer::ask(BU_U32 u32Id, const std::string &strQuestion, const std::string &strJson) const
{
    return send(encodeQuestion(u32Id, strQuestion, strJson));
}

Peer::Packet Peer::receive() const
{
    thread_local std::string strBuffer(FROM_CAMERA_MAX, '\0');
    const ssize_t length = recv(m_fd, strBuffer.data(), strBuffer.size(), 0);
    EXPECT_FALSE(length < 0 && errno == EAGAIN) << "waited in vain";
    const auto message = decode({strBuffer.data(), length > 0 ? static_cast<std::size_t>(length) : 0});
    if (!message) return {};
    return {message->stHead.enKind, message->stHead.s16Result, message->stHead.u32Id, std::string(message->bytes)};
}

Peer::Packet Peer::receiveKind(Kind enKind) const
{
    Packet st = receive();
    while (st.enKind != enKind && st.enKind != Kind{}) st = receive();
    EXPECT_EQ(st.enKind, enKind) << "the connection has ended";
    return st;
}

Peer::Packet Peer::answer() const { return receiveKind(Kind::ANSWER); }
std::string Peer::news() const { return receiveKind(Kind::NEWS).strBytes; }

bool Peer::isEnded() const
{
    Packet st = receive();
    while (st.enKind != Kind{}) st = receive();
    return true; // or the wait has failed the test
}
