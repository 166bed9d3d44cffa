/// Serial ports as pseudo terminals: bytes both ways, controllers of every pace.
#include "board/profile.h"
#include "support/await.h"
#include "support/platformTest.h"
#include "system/serialPort.h"
#include "util/fileDescriptor.h"
#include "util/mailbox.h"

#include <algorithm>
#include <fcntl.h>
#include <future>
#include <numeric>
#include <poll.h>
#include <span>
#include <termios.h>

using testing::ElementsAre;

namespace
{
typedef std::vector<BU_U8> Bytes;

struct SerialTest : PlatformTest {
    SerialTest()
    {
        BSP_PROFILE_Load("TKV-MX");
        UART_RegisterReceiver(RS_PROTO_E_VISCA, [this](UART_INSTANCE_TYPE enPort, const BU_U8 *pu8Data, BU_U32 u32Len) {
            for (const BU_U8 u8 : std::span(pu8Data, u32Len)) m_received[enPort].post(u8);
        });
        EXPECT_EQ(UART_DevAllInit(), 0);
    }
    ~SerialTest() override { UART_RegisterReceiver(RS_PROTO_E_VISCA, nullptr); }

    /// A controller on the port's device file. It sets nothing up: the port is raw as it is.
    util::FileDescriptor controller(const BU_CHAR *pcPort) const
    {
        util::FileDescriptor clPort(open((root() + "/dev/ttyS_" + pcPort).c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC));
        EXPECT_GE(clPort, 0);
        return clPort;
    }
    Bytes take(UART_INSTANCE_TYPE enPort, std::size_t count)
    {
        Bytes bytes;
        for (int i = 0; i < 20'000 && bytes.size() < count; i++, usleep(1000))
            std::ranges::copy(m_received[enPort].take(), std::back_inserter(bytes));
        return bytes;
    }
    static void put(int s32Fd, const Bytes &bytes)
    {
        EXPECT_EQ(write(s32Fd, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    }
    static Bytes get(int s32Fd, std::size_t count)
    {
        Bytes bytes;
        for (BU_U8 u8 = 0; bytes.size() < count && !isSilent(s32Fd, 20'000) && read(s32Fd, &u8, 1) == 1;)
            bytes.push_back(u8);
        return bytes;
    }
    static bool isSilent(int s32Fd, int s32Ms = 0)
    {
        pollfd stPoll{s32Fd, POLLIN, 0};
        return poll(&stPoll, 1, s32Ms) == 0;
    }

    util::Mailbox<BU_U8> m_received[2]; // by port
};

/// Every byte value: a terminal that is not raw changes line ends, acts on control characters or echoes.
TEST_F(SerialTest, EveryByteGoesBothWaysUnchangedAndPortsAreApart)
{
    Bytes all(256);
    std::iota(all.begin(), all.end(), 0);
    const auto rs232 = controller("RS232"), rs422 = controller("RS422");
    put(rs232, all);
    EXPECT_EQ(take(UART_INSTANCE_TYPE_RS232, all.size()), all);
    EXPECT_TRUE(isSilent(rs232)) << "nothing comes back of what was sent";
    EXPECT_EQ(UART_RS232DevSend(all.data(), 256, nullptr, nullptr), 0);
    EXPECT_EQ(get(rs232, all.size()), all);
    put(rs422, {0x81, 0x09, 0x04, 0x00, 0xFF});
    EXPECT_EQ(take(UART_INSTANCE_TYPE_RS422, 5).size(), 5u);
    Bytes reply{0x90, 0x50, 0x02, 0xFF};
    EXPECT_EQ(UART_RS422DevSend(reply.data(), 4, nullptr, nullptr), 0);
    EXPECT_EQ(get(rs422, 4), reply);
    EXPECT_TRUE(isSilent(rs232));
    EXPECT_THAT(journal::effects(), testing::IsSupersetOf({"UART_DevAllInit()", "UART_RS422DevSend(90 50 02 FF)"}));
}

TEST_F(SerialTest, ControllersComeAndGoAndASecondStartOpensFreshPortsUnderTheSameNames)
{
    for (BU_U8 u8 = 0; u8 < 20; u8++) {
        EXPECT_EQ(u8 == 10 ? UART_DevAllInit() : 0, 0);
        const auto port = controller("RS232");
        put(port, {u8});
        EXPECT_THAT(take(UART_INSTANCE_TYPE_RS232, 1), ElementsAre(u8));
        EXPECT_EQ(UART_RS232DevSend(&u8, 1, nullptr, nullptr), 0);
        EXPECT_THAT(get(port, 1), ElementsAre(u8));
    }
}

/// Nobody reads for a while: sending never waits, old bytes make room, and the newest message is there to be read.
TEST_F(SerialTest, ControllerThatDoesNotReadGetsTheNewestBytes)
{
    const auto port = controller("RS232");
    Bytes old{0x90, 0x41, 0xFF}, newest{0x90, 0x51, 0xFF};
    constexpr std::size_t SENT = 50000;
    for (std::size_t i = 0; i < SENT; i++) UART_RS232DevSend(old.data(), 3, nullptr, nullptr);
    EXPECT_TRUE(await([&] { return UART_RS232DevSend(newest.data(), 3, nullptr, nullptr) == 0; }));
    Bytes seen;
    while (!std::ranges::equal(std::span(seen).last(std::min<std::size_t>(seen.size(), 3)), newest) && !HasFailure()) {
        ASSERT_FALSE(isSilent(port, 20'000)) << "the newest bytes do not come";
        seen.push_back(get(port, 1).at(0));
    }
    EXPECT_LT(seen.size(), 3 * SENT / 2);
}

TEST_F(SerialTest, UnregisteringWaitsForTheRunningCall)
{
    std::promise<void> started, release;
    std::atomic<bool> bEnded{false};
    UART_RegisterReceiver(RS_PROTO_E_VISCA, [&](UART_INSTANCE_TYPE, const BU_U8 *, BU_U32) {
        started.set_value();
        soon(release);
        bEnded = true;
    });
    put(controller("RS232"), {1});
    soon(started);
    auto unregistered = std::async(std::launch::async, [&] {
        UART_RegisterReceiver(RS_PROTO_E_VISCA, nullptr);
        return bEnded.load();
    });
    release.set_value();
    EXPECT_TRUE(unregistered.get());
}

TEST_F(SerialTest, PortFollowsItsSpeedSettingAndMissingPortsAreRefused)
{
    const auto rs232 = controller("RS232"), rs422 = controller("RS422");
    const auto speeds = [&] {
        std::vector<speed_t> list;
        for (const int s32Fd : {int(rs232), int(rs422)}) {
            termios stMode;
            tcgetattr(s32Fd, &stMode);
            list.push_back(cfgetospeed(&stMode));
        }
        return list;
    };
    EXPECT_THAT(speeds(), ElementsAre(B9600, B9600));
    CFG_SETTING_Set("RS422Baudrate", 0, 3, BU_FALSE, BU_TRUE);
    EXPECT_THAT(speeds(), ElementsAre(B9600, B38400));
    BSP_PROFILE_Load("minimal");
    EXPECT_EQ(UART_RegisterReceiver(static_cast<tagRS_PROTO_E>(9), nullptr), -1);
    for (const BU_S32 s32Port : {-1, static_cast<BU_S32>(UART_INSTANCE_TYPE_RS485), 99})
        EXPECT_EQ(UART_Change_SerialRs422or232(s32Port), -1);
    EXPECT_EQ(UART_RS232DevSend(nullptr, 4, nullptr, nullptr), -1);
}
} // namespace
