#include "viscaLibTest.h"

#include "protocol/viscaNet.h"
#include "support/socket.h"

#include <netinet/tcp.h>
#include <poll.h>
#include <random>
#include <sys/resource.h>
#include <sys/socket.h>

using namespace visca;

namespace
{
const char *const ABS = "81 01 06 02 05 05 00 01 00 00 00 00 00 00 FF";
const char *const INQUIRY = "81 09 04 00 FF";
constexpr int PATIENCE_MS = 20'000;

/// A controller with a socket of its own.
class Controller
{
public:
    Controller(int type, BU_U16 u16Port) : m_fd(loopback(type, u16Port, ::connect)) {}
    bool send(const Bytes &data) const { return ::send(m_fd, data.data(), data.size(), MSG_NOSIGNAL) >= 0; }
    bool send(const std::string &strHex) const { return send(bytes(strHex)); }
    void shutdown() const { ::shutdown(m_fd, SHUT_WR); }

    /// The next datagram, or everything of a stream up to so many bytes; "" at its end or when nothing comes.
    std::string receive(std::size_t size = 0, int waitMs = PATIENCE_MS) const
    {
        Bytes data;
        do {
            pollfd stPoll{m_fd, POLLIN, 0};
            if (::poll(&stPoll, 1, waitMs) != 1) break;
            BU_U8 au8[512];
            const ssize_t got = ::recv(m_fd, au8, size ? std::min(sizeof au8, size - data.size()) : sizeof au8, 0);
            if (got <= 0) break;
            data.insert(data.end(), au8, au8 + got);
        } while (data.size() < size);
        return hex(data);
    }
    bool isSilent() const { return receive(0, 0).empty(); }
    /// Asks for the power and is told.
    bool isServed(int waitMs = PATIENCE_MS) const { return send(INQUIRY) && receive(4, waitMs) == "90 50 02 FF"; }

private:
    util::FileDescriptor m_fd;
};

class Network : public ViscaLibTest
{
protected:
    Network()
    {
        Service::payload = {2};
        open(0);
    }
    /// @param s32OverIp  the port of VISCA over IP; 0, as of the others: a free one
    static void open(BU_S32 s32OverIp)
    {
        VISCA_TRAN_CALL_FUNC_S stTrans = captured();
        stTrans.stViscaTransHandlers[4].pfnViscaCallTrans = VISCA_OverIpSendMsg;
        stTrans.stViscaTransHandlers[5].pfnViscaCallTrans = VISCA_NetUdpSendMsg;
        stTrans.stViscaTransHandlers[6].pfnViscaCallTrans = VISCA_NetTcpSendMsg;
        start({1, 2, 0, 0, ""}, {1, 0, s32OverIp, 0, ""}, stTrans);
    }
    static Controller overIp() { return {SOCK_DGRAM, network().portOf(CMD_FROM_E_OVER_IP_IN)}; }
    static Controller udp() { return {SOCK_DGRAM, network().portOf(CMD_FROM_E_NET_UDP_IN)}; }
    static Controller tcp() { return {SOCK_STREAM, network().portOf(CMD_FROM_E_NET_TCP_IN)}; }
};
} // namespace

TEST_F(Network, OverIpAnswersCarryTheNumberOfTheirMessage)
{
    pend({VISCA_CMD_E_PAN_TILT});
    const Controller a = overIp(), b = overIp();
    a.send("01 00 00 0F 00 00 00 21 " + std::string(ABS));
    EXPECT_EQ(a.receive(), "01 11 00 03 00 00 00 21 90 41 FF");
    a.send("01 10 00 05 00 00 00 22 " + std::string(INQUIRY));
    EXPECT_EQ(a.receive(), "01 11 00 04 00 00 00 22 90 50 02 FF");
    b.send("01 00 00 06 FF FF FF FF 82 01 04 35 00 FF");
    EXPECT_EQ(b.receive(), "01 11 00 03 FF FF FF FF A0 41 FF");
    EXPECT_EQ(b.receive(), "01 11 00 03 FF FF FF FF A0 51 FF");
    a.send("01 10 00 05 00 00 00 22 " + std::string(INQUIRY));
    EXPECT_EQ(a.receive(), "02 01 00 02 00 00 00 22 0F 01");
    EXPECT_EQ(finish(0), 0); // from this thread, as a motion's end
    EXPECT_EQ(a.receive(), "01 11 00 03 00 00 00 21 90 51 FF");
    EXPECT_TRUE(b.isServed()) << "without header on the same port";
}

TEST_F(Network, PlainDatagramsHoldOneOrMorePackets)
{
    const Controller a = udp();
    a.send(std::string(INQUIRY) + " 81 01 04 07 00 FF 81 01 04");
    for (const char *pcOut : {"90 50 02 FF", "90 41 FF", "90 51 FF", "90 60 02 FF" /* a packet without end */})
        EXPECT_EQ(a.receive(), pcOut);
    a.send("00 11 22 " + std::string(INQUIRY));
    EXPECT_TRUE(a.isServed()) << "noise is not answered";
}

/// Who sends in another camera's name can neither make the two answer each other for ever nor have one flooded.
TEST_F(Network, ForgedDatagramsAreHardlyAnswered)
{
    const auto answers = [](const Controller &controller) { // up to that of an inquiry, which has its answer always
        int count = -1;
        EXPECT_TRUE(controller.send(INQUIRY));
        for (std::string strAnswer; strAnswer != "90 50 02 FF"; ++count)
            if ((strAnswer = controller.receive()).empty()) return -2;
        return count;
    };
    const auto repeat = [](const char *pcHex, int count) {
        std::string strAll;
        for (int i = 0; i < count; ++i) strAll += pcHex;
        return strAll;
    };
    pend({VISCA_CMD_E_PAN_TILT});
    const Controller over = overIp(), plain = udp();
    for (const Controller *controller : {&over, &plain}) {
        controller->send(std::string(ABS) + " 88 01 00 01 FF 88 30 01 FF");
        EXPECT_EQ(controller->receive(), "90 41 FF");
        EXPECT_EQ(controller->receive(), "88 30 02 FF") << "and the broadcast of clear has no answer";
        controller->send(ABS);
        EXPECT_EQ(controller->receive(), "90 41 FF") << "but it was obeyed";
        controller->send(repeat("81 FF ", 150));
        EXPECT_EQ(answers(*controller), 8);
    }
    clock().advance(1000);
    for (int second = 0; second < 2; ++second) {
        for (int i = 0; i < 60; ++i) over.send("07 77 00 01 00 00 00 01 00");
        EXPECT_EQ(answers(over), 50);
        clock().advance(999);
        over.send("07 77 00 01 00 00 00 01 00");
        plain.send("81 FF");
        EXPECT_EQ(answers(over), 0);
        EXPECT_EQ(answers(plain), 1) << "another controller";
        clock().advance(1);
    }
}

TEST_F(Network, StreamsArePipelinedAndCutAnywhere)
{
    const Controller a = tcp();
    std::string strIn, strOut;
    for (int i = 0; i < 200; ++i) {
        strIn += std::string(INQUIRY) + " 81 01 04 35 00 FF ";
        strOut += " 90 50 02 FF 90 41 FF 90 51 FF";
    }
    a.send(strIn);
    EXPECT_EQ(a.receive(200 * 10), strOut.substr(1));
    for (const BU_U8 u8 : bytes(INQUIRY)) a.send(Bytes{u8});
    EXPECT_EQ(a.receive(4), "90 50 02 FF");
    a.send(Bytes(100'000, 0x81)); // never ends
    a.send("FF " + std::string(INQUIRY));
    EXPECT_EQ(a.receive(8), "90 60 01 FF 90 50 02 FF");
}

TEST_F(Network, ClientThatClosesItsSideStillGetsItsAnswers)
{
    pend({VISCA_CMD_E_PAN_TILT});
    const Controller a = tcp();
    a.send(std::string(ABS) + " " + INQUIRY);
    a.shutdown();
    EXPECT_EQ(a.receive(7), "90 41 FF 90 50 02 FF");
    EXPECT_EQ(finish(0), 0);
    EXPECT_EQ(a.receive(4), "90 51 FF") << "and then the end of the stream";
}

TEST_F(Network, AnswerForAClientThatLeftReachesNobody)
{
    pend({VISCA_CMD_E_PAN_TILT});
    {
        const Controller a = tcp();
        a.send(ABS);
        EXPECT_EQ(a.receive(3), "90 41 FF");
    }
    const Controller b = tcp();
    EXPECT_TRUE(b.isServed());
    finish(0);
    EXPECT_TRUE(b.isServed());
    EXPECT_TRUE(b.isSilent());
}

TEST_F(Network, ClientThatNeverReadsIsClosedAndDisturbsNobody)
{
    Service::payload = Bytes(90, 0x55);
    const Controller slow = tcp(), other = tcp();
    std::string strFlood;
    for (int i = 0; i < 1000; ++i) strFlood += std::string(INQUIRY) + " ";
    const Bytes flood = bytes(strFlood);
    for (int i = 0; i < 2000 && slow.send(flood); ++i) {
        if (i % 100) continue;
        other.send(INQUIRY);
        ASSERT_EQ(other.receive(93).size(), 93u * 3 - 1);
    }
    EXPECT_FALSE(slow.send(flood)) << "still connected";
}

TEST_F(Network, ServesAThousandClientsAndTheirSuccessors)
{
    rlimit stLimit{};
    getrlimit(RLIMIT_NOFILE, &stLimit);
    stLimit.rlim_cur = std::min<rlim_t>(stLimit.rlim_max, 4096);
    setrlimit(RLIMIT_NOFILE, &stLimit);
    for (int i = 0; i < 2; ++i) {
        std::vector<Controller> clients;
        for (int j = 0; j < 1000; ++j) clients.push_back(tcp());
        for (const Controller &client : clients) ASSERT_TRUE(client.send(INQUIRY));
        for (const Controller &client : clients) ASSERT_EQ(client.receive(4), "90 50 02 FF");
        EXPECT_FALSE(tcp().isServed()) << "one more";
        EXPECT_TRUE(clients[999].isServed());
        clients.clear();
        await([] { return tcp().isServed(); }); // they are gone
    }
}

/// What the system is told about the camera's own sockets.
TEST_F(Network, VanishedPeersAreFoundAndBurstsOfDatagramsKept)
{
    const auto option = [](CMD_FROM_E enFrom, int level, int name) {
        int value = -1;
        for (int fd = 0; fd < 256; ++fd) { // the last one: a connection comes behind its listener
            sockaddr_in stOwn{};
            socklen_t size = sizeof stOwn;
            if (getsockname(fd, reinterpret_cast<sockaddr *>(&stOwn), &size) == 0 &&
                ntohs(stOwn.sin_port) == network().portOf(enFrom))
                getsockopt(fd, level, name, &value, &(size = sizeof value));
        }
        return value;
    };
    const Controller a = tcp();
    ASSERT_TRUE(a.isServed());
    for (const auto &[name, value] :
         {std::pair{TCP_NODELAY, 1}, {TCP_KEEPIDLE, 60}, {TCP_KEEPINTVL, 15}, {TCP_KEEPCNT, 4}})
        EXPECT_EQ(option(CMD_FROM_E_NET_TCP_IN, IPPROTO_TCP, name), value) << name;
    EXPECT_EQ(option(CMD_FROM_E_NET_TCP_IN, SOL_SOCKET, SO_KEEPALIVE), 1);
    for (const CMD_FROM_E enFrom : {CMD_FROM_E_OVER_IP_IN, CMD_FROM_E_NET_UDP_IN}) // twice the default at least
        EXPECT_GE(option(enFrom, SOL_SOCKET, SO_RCVBUF), 400'000);
}

TEST_F(Network, GarbageIsSurvived)
{
    std::mt19937 random(7);
    const Controller a = overIp(), b = udp();
    for (int i = 0; i < 3000; ++i) {
        Bytes datagram = i % 3 == 0 ? Bytes{0x81} : i % 3 == 1 ? Bytes{0x01, 0x00} : Bytes();
        for (auto size = random() % 40; size > 0; --size) datagram.push_back(static_cast<BU_U8>(random()));
        a.send(datagram);
        b.send(datagram);
    }
    const Controller fresh = overIp();
    bool bServed = false;
    for (int i = 0; i < 50 && !bServed; ++i) bServed = fresh.isServed(400); // one may be lost behind the flood
    EXPECT_TRUE(bServed);
}

TEST_F(Network, EndpointsChangeWhileRunning)
{
    tagCFG_VISCA_NET_S stOverIp{1, 0, network().portOf(CMD_FROM_E_NET_UDP_IN), 0, ""}, stRead{};
    const BU_U16 u16Before = network().portOf(CMD_FROM_E_OVER_IP_IN);
    EXPECT_EQ(VISCA_OverIp_UpdateConfig(&stOverIp), -1) << "the port is taken";
    EXPECT_EQ(network().portOf(CMD_FROM_E_OVER_IP_IN), u16Before);
    for (const BU_S32 s32Port : {0, -1, 65536}) {
        stOverIp.PortNum = s32Port;
        EXPECT_EQ(VISCA_OverIp_UpdateConfig(&stOverIp), -1);
    }
    stOverIp.PortNum = u16Before;
    const Controller client = tcp();
    stOverIp.bEnable = 0;
    EXPECT_EQ(VISCA_OverIp_UpdateConfig(&stOverIp), 0);
    EXPECT_EQ(network().portOf(CMD_FROM_E_OVER_IP_IN), 0);
    stOverIp.bEnable = 1;
    EXPECT_EQ(VISCA_OverIp_UpdateConfig(&stOverIp), 0);
    EXPECT_EQ(network().portOf(CMD_FROM_E_OVER_IP_IN), u16Before);
    EXPECT_EQ(CFG_SYSTEM_GetViscaOverIp(&stRead), 0);
    EXPECT_EQ(stRead.PortNum, u16Before) << "stored";
    EXPECT_TRUE(overIp().isServed());
    EXPECT_TRUE(client.isServed()) << "the other endpoint was not touched";
}

TEST_F(Network, OccupiedPortLeavesTheOthers)
{
    const BU_S32 s32Taken = network().portOf(CMD_FROM_E_NET_TCP_IN);
    const net::Socket holder = net::bindUdp("127.0.0.1", s32Taken);
    ASSERT_TRUE(holder);
    VISCA_HandlerExit();
    open(s32Taken);
    EXPECT_EQ(network().portOf(CMD_FROM_E_OVER_IP_IN), 0);
    EXPECT_TRUE(udp().isServed());
    EXPECT_TRUE(tcp().isServed());
    BU_U8 au8Answer[] = {0x90, 0x50, 0xFF};
    VISCA_MSG_PRI_S stNobody{};
    EXPECT_EQ(VISCA_NetTcpSendMsg(au8Answer, 3, &stNobody, nullptr), -1);
    stNobody.enFrom = CMD_FROM_E_OVER_IP_IN;
    EXPECT_EQ(VISCA_OverIpSendMsg(au8Answer, 3, &stNobody, nullptr), -1);
}
