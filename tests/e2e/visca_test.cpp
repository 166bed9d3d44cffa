// The camera process and real controllers.
#include "mediaCamera.h"
#include "viscaClient.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>

namespace
{
using namespace std::chrono_literals;

const std::string LEFT = "81 01 06 01 18 14 01 03 FF", STOP = "81 01 06 01 18 14 03 03 FF";

using OverEveryTransport = testing::TestWithParam<Transport>;

TEST_P(OverEveryTransport, AnswersMovesStopsAndReturns)
{
    CameraProcess stCamera;
    ViscaClient client(stCamera, GetParam());
    EXPECT_EQ(client.ask(POWER_INQ), ON);
    const std::string strStart = client.ask(POSITION_INQ);
    ASSERT_TRUE(client.isDone(LEFT));
    std::string strEarlier = strStart;
    for (int i = 0; i < 3; ++i) { // the position runs while the camera moves
        std::this_thread::sleep_for(100ms);
        const std::string strNow = client.ask(POSITION_INQ);
        EXPECT_NE(strNow, strEarlier);
        strEarlier = strNow;
    }
    ASSERT_TRUE(client.isDone(STOP));
    std::this_thread::sleep_for(300ms);
    const std::string strStopped = client.ask(POSITION_INQ);
    std::this_thread::sleep_for(100ms);
    EXPECT_EQ(client.ask(POSITION_INQ), strStopped);
    // The move back is acknowledged at once and completed when it has ended.
    EXPECT_TRUE(client.isDone("81 01 06 02 18 14" + strStart.substr(5), 10000));
    EXPECT_EQ(client.ask(POSITION_INQ), strStart);
}
constexpr Transport ALL[] = {Transport::OverIp, Transport::Udp, Transport::Tcp, Transport::Rs232, Transport::Rs422};
INSTANTIATE_TEST_SUITE_P(Visca, OverEveryTransport, testing::ValuesIn(ALL));

TEST(Visca, SettingsAndPresetsSurviveKill)
{
    const PreparedRoot root;
    std::string strStored;
    {
        CameraProcess stCamera({.strRoot = root.path()});
        ViscaClient client(stCamera);
        ASSERT_TRUE(client.isDone(LEFT));
        std::this_thread::sleep_for(300ms);
        ASSERT_TRUE(client.isDone(STOP));
        std::this_thread::sleep_for(300ms);
        strStored = client.ask(POSITION_INQ);
        ASSERT_TRUE(client.isDone("81 01 04 3F 01 05 FF")); // store preset 5
        ASSERT_TRUE(client.isDone("81 01 04 35 01 FF"));    // white balance: indoor
        EXPECT_EQ(stCamera.stop(SIGKILL), 128 + SIGKILL);
    }
    {
        CameraProcess stCamera({.strRoot = root.path()});
        ViscaClient client(stCamera);
        EXPECT_EQ(client.ask("81 09 04 35 FF"), "90 50 01 FF");
        EXPECT_NE(client.ask(POSITION_INQ), strStored);
        EXPECT_TRUE(client.isDone("81 01 04 3F 02 05 FF", 10000));
        EXPECT_EQ(client.ask(POSITION_INQ), strStored);
        EXPECT_FALSE(client.isDone("81 01 04 3F 02 06 FF")) << "preset 6 was never stored";
    }
}

TEST(Visca, OccupiedPortLeavesTheOthers)
{
    CameraProcess stFirst;
    const int s32Offset = stFirst.port(0);
    CameraProcess stSecond({.s32PortOffset = s32Offset}); // every network port is taken
    EXPECT_EQ(ViscaClient(stSecond, Transport::Rs232).ask(POWER_INQ), ON);
    CameraProcess stThird({.s32PortOffset = s32Offset, .env = {"CAMERA_BIND=127.0.0.2"}}); // the same ports there
    EXPECT_EQ(ViscaClient(stThird, Transport::OverIp, "127.0.0.2").ask(POWER_INQ), ON);
}

TEST(Visca, UnusableDeviceRootStillGivesACamera)
{
    CameraProcess stCamera({.strRoot = "/proc/no-such-folder"});
    EXPECT_TRUE(ViscaClient(stCamera).isDone(LEFT));
}

TEST(Visca, SignalsEndItCleanly)
{
    for (const int s32Signal : {SIGQUIT, SIGINT, SIGTERM}) EXPECT_EQ(CameraProcess().stop(s32Signal), 0) << s32Signal;
}

TEST(Visca, PowerCycleAnswersThePowerOffAfterTheRestart)
{
    CameraProcess stCamera;
    ViscaClient client(stCamera, Transport::OverIp);
    EXPECT_EQ(client.ask("81 01 04 00 03 FF"), "90 41 FF");
    std::this_thread::sleep_for(200ms);
    EXPECT_EQ(client.ask(POWER_INQ), "90 50 03 FF");
    EXPECT_TRUE(ViscaClient(stCamera, Transport::Udp).isDone("81 01 04 00 02 FF"));
    EXPECT_EQ(client.next(15000), "90 51 FF");
    EXPECT_EQ(client.ask(POWER_INQ), ON);
}
} // namespace
