// How busy the machine is: shares of what has passed since the last question.
#include "camera/load.h"

#include "net/socket.h"
#include "support/platformTest.h"

#include <arpa/inet.h>
#include <sys/socket.h>

namespace
{
struct Load : PlatformTest {
    /// Sends so much to itself [kB], which the machine's loopback counts both ways, and lets time pass.
    std::pair<BU_FLOAT, BU_FLOAT> networkAfter(int s32KiloBytes, BU_S64 s64Ms)
    {
        const net::Socket socket = net::bindUdp("127.0.0.1", 0);
        const sockaddr_in stTo = net::socketAddress(INADDR_LOOPBACK, net::boundPort(*socket));
        const std::string strData(1000, 'x');
        for (int i = 0; i < s32KiloBytes; ++i)
            sendto(*socket, strData.data(), strData.size(), 0, reinterpret_cast<const sockaddr *>(&stTo), sizeof stTo);
        clock().advance(s64Ms);
        std::pair<BU_FLOAT, BU_FLOAT> share;
        EXPECT_EQ(SYSTEM_API_GetNetUsagePrecent(share.first, share.second), 0);
        return share;
    }
};

TEST_F(Load, NetworkIsTheShareOfAGigabitSinceTheLastQuestion)
{
    EXPECT_EQ(SYS_API_GetSpeed(), 1000); // Mbit/s
    clock().advance(1000);
    EXPECT_EQ(networkAfter(1000, 0), std::pair(0.F, 0.F)) << "nothing to compare with";
    for (const auto &[s64Ms, fLeast, fMost] : {std::tuple{100, 0.8F, 1.F}, {1, 1.F, 1.F}, {100'000, 0.F, 0.05F}}) {
        const auto [fReceived, fSent] = networkAfter(10'000, s64Ms);
        EXPECT_TRUE(fReceived >= fLeast && fReceived <= fMost) << s64Ms << ' ' << fReceived;
        EXPECT_TRUE(fSent >= fLeast && fSent <= fMost) << s64Ms << ' ' << fSent;
    }
    EXPECT_EQ(networkAfter(1000, 0), std::pair(0.F, 0.F)) << "in no time";
}

TEST_F(Load, ProcessorsAreIdleUntilTheyAreAskedAboutAgain)
{
    static const BU_S32 s_s32First = SYSTEM_API_GetCpuIdlePrecent(); // of the process
    EXPECT_EQ(s_s32First, 100);
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(300);
    {
        std::vector<std::jthread> busy;
        for (unsigned i = 0; i < std::thread::hardware_concurrency(); ++i)
            busy.emplace_back([=] {
                while (std::chrono::steady_clock::now() < end) {}
            });
    }
    const BU_S32 s32Idle = SYSTEM_API_GetCpuIdlePrecent();
    EXPECT_TRUE(s32Idle >= 0 && s32Idle < 100) << s32Idle;
}
} // namespace
