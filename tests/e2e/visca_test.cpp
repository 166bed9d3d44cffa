// The camera process and real controllers.
#include "../support/cameraProcess.h"
#include "viscaClient.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <random>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
using namespace std::chrono_literals;

const Bytes POWER_INQ = bytes("81 09 04 00 FF");
const Bytes POSITION_INQ = bytes("81 09 06 12 FF");
const Bytes LEFT = bytes("81 01 06 01 18 14 01 03 FF");
const Bytes STOP = bytes("81 01 06 01 18 14 03 03 FF");
const Bytes HOME = bytes("81 01 06 04 FF");

/// An absolute move to a position as the inquiry gives it, at full speed.
Bytes moveTo(const Bytes &position)
{
    Bytes packet = bytes("81 01 06 02 18 14");
    packet.insert(packet.end(), position.begin() + 2, position.end());
    return packet;
}

/// A command that is done at once: acknowledgement and completion with one socket.
testing::AssertionResult isDone(ViscaClient &stClient, const Bytes &command)
{
    const Bytes ack = stClient.ask(command), completion = stClient.next();
    if (ack.size() == 3 && (ack[1] & 0xF0) == 0x40 && completion.size() == 3 &&
        completion[1] == static_cast<std::uint8_t>(ack[1] + 0x10))
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << hex(command) << " answered " << hex(ack) << ", " << hex(completion);
}

enum class Transport { OverIp, Udp, Tcp, Rs232, Rs422 };
std::unique_ptr<ViscaClient> connect(const CameraProcess &stCamera, Transport enTransport)
{
    switch (enTransport) {
    case Transport::OverIp:
        return connectOverIp(stCamera.port(52381));
    case Transport::Udp:
        return connectUdp(stCamera.port(1259));
    case Transport::Tcp:
        return connectTcp(stCamera.port(5678));
    case Transport::Rs232:
        return openSerial(stCamera.path("/dev/ttyS_RS232"));
    case Transport::Rs422:
        return openSerial(stCamera.path("/dev/ttyS_RS422"));
    }
    return nullptr;
}

class OverEveryTransport : public testing::TestWithParam<Transport>
{
};

TEST_P(OverEveryTransport, AnswersMovesStopsAndReturns)
{
    CameraProcess stCamera;
    const auto client = connect(stCamera, GetParam());
    EXPECT_EQ(hex(client->ask(POWER_INQ)), "90 50 02 FF");

    const Bytes start = client->ask(POSITION_INQ);
    ASSERT_EQ(start.size(), 11u) << hex(start);
    ASSERT_TRUE(isDone(*client, LEFT));
    Bytes earlier = start;
    for (int i = 0; i < 3; ++i) { // the position runs while the camera moves
        std::this_thread::sleep_for(100ms);
        const Bytes now = client->ask(POSITION_INQ);
        EXPECT_NE(hex(now), hex(earlier));
        earlier = now;
    }
    ASSERT_TRUE(isDone(*client, STOP));
    std::this_thread::sleep_for(300ms);
    const Bytes stopped = client->ask(POSITION_INQ);
    std::this_thread::sleep_for(100ms);
    EXPECT_EQ(hex(client->ask(POSITION_INQ)), hex(stopped));

    // The move back is acknowledged at once and completed when it has ended.
    const Bytes ack = client->ask(moveTo(start));
    ASSERT_EQ(ack.size(), 3u) << hex(ack);
    EXPECT_EQ(ack[1] & 0xF0, 0x40);
    const Bytes completion = client->next(10000);
    ASSERT_EQ(completion.size(), 3u) << hex(completion);
    EXPECT_EQ(completion[1], ack[1] + 0x10);
    EXPECT_EQ(hex(client->ask(POSITION_INQ)), hex(start));
}
INSTANTIATE_TEST_SUITE_P(Visca, OverEveryTransport,
                         testing::Values(Transport::OverIp, Transport::Udp, Transport::Tcp, Transport::Rs232,
                                         Transport::Rs422));

TEST(Visca, SettingsAndPresetsSurviveKill)
{
    char acFolder[] = "/tmp/camera-e2e-XXXXXX";
    const std::string strRoot = mkdtemp(acFolder);
    Bytes stored;
    {
        CameraProcess stCamera({.strRoot = strRoot});
        const auto client = connectTcp(stCamera.port(5678));
        ASSERT_TRUE(isDone(*client, LEFT));
        std::this_thread::sleep_for(300ms);
        ASSERT_TRUE(isDone(*client, STOP));
        std::this_thread::sleep_for(300ms);
        stored = client->ask(POSITION_INQ);
        ASSERT_TRUE(isDone(*client, bytes("81 01 04 3F 01 05 FF"))); // store preset 5
        ASSERT_TRUE(isDone(*client, bytes("81 01 04 35 01 FF")));    // white balance: indoor
        EXPECT_EQ(stCamera.stop(SIGKILL), 128 + SIGKILL);
    }
    CameraProcess stCamera({.strRoot = strRoot});
    const auto client = connectTcp(stCamera.port(5678));
    EXPECT_EQ(hex(client->ask(bytes("81 09 04 35 FF"))), "90 50 01 FF");
    EXPECT_NE(hex(client->ask(POSITION_INQ)), hex(stored));
    EXPECT_THAT(hex(client->ask(bytes("81 01 04 3F 02 05 FF"))), testing::MatchesRegex("90 4[12] FF"));
    EXPECT_THAT(hex(client->next(10000)), testing::MatchesRegex("90 5[12] FF"));
    EXPECT_EQ(hex(client->ask(POSITION_INQ)), hex(stored));
    EXPECT_THAT(hex(client->ask(bytes("81 01 04 3F 02 06 FF"))), testing::MatchesRegex("90 4[12] FF"));
    EXPECT_THAT(hex(client->next()), testing::MatchesRegex("90 6[12] 41 FF")) << "preset 6 was never stored";
    stCamera.stop(SIGTERM);
    std::filesystem::remove_all(strRoot);
}

TEST(Visca, EveryControllerGetsItsOwnAnswers)
{
    CameraProcess stCamera;
    const auto mover = connectOverIp(stCamera.port(52381));
    const auto other = connectTcp(stCamera.port(5678));
    const auto serial = openSerial(stCamera.path("/dev/ttyS_RS422"));

    Bytes far = mover->ask(POSITION_INQ);
    ASSERT_EQ(far.size(), 11u);
    far[3] = 0x04; // pan 0x0400
    EXPECT_THAT(hex(mover->ask(moveTo(far))), testing::MatchesRegex("90 4[12] FF"));
    for (int i = 0; i < 20; ++i) {
        EXPECT_EQ(hex(other->ask(POWER_INQ)), "90 50 02 FF");
        EXPECT_EQ(hex(serial->ask(POWER_INQ)), "90 50 02 FF");
    }
    EXPECT_TRUE(isDone(*other, bytes("81 01 04 07 02 FF"))); // zoom tele while the head moves
    EXPECT_THAT(hex(mover->next(10000)), testing::MatchesRegex("90 5[12] FF"));
    EXPECT_TRUE(other->next(200).empty()) << "the end of a foreign move must not reach this controller";
}

TEST(Visca, StopActsWhileTwoLongCommandsRun)
{
    CameraProcess stCamera;
    const auto client = connectTcp(stCamera.port(5678));
    EXPECT_THAT(hex(client->ask(bytes("81 01 04 47 04 00 00 00 FF"))), testing::MatchesRegex("90 4[12] FF")); // zoom in
    EXPECT_THAT(hex(client->ask(bytes("81 01 06 02 01 01 00 09 00 00 00 00 00 00 FF"))),
                testing::MatchesRegex("90 4[12] FF")); // a slow move
    client->send(STOP);
    std::string strAnswers;
    for (Bytes answer = client->next(1000); !answer.empty(); answer = client->next(300))
        strAnswers += hex(answer) + ", ";
    EXPECT_THAT(strAnswers, testing::Not(testing::HasSubstr("60 03"))) << "a stop must never meet a full buffer";
    std::this_thread::sleep_for(300ms);
    const Bytes here = client->ask(POSITION_INQ);
    std::this_thread::sleep_for(200ms);
    EXPECT_EQ(hex(client->ask(POSITION_INQ)), hex(here));
}

TEST(Visca, PacketsMayComeInPiecesAndInBulk)
{
    CameraProcess stCamera;
    const auto client = connectTcp(stCamera.port(5678));
    for (const std::uint8_t u8 : POWER_INQ) {
        client->send({u8});
        std::this_thread::sleep_for(2ms);
    }
    EXPECT_EQ(hex(client->next()), "90 50 02 FF");

    Bytes bulk;
    for (int i = 0; i < 300; ++i) bulk.insert(bulk.end(), POWER_INQ.begin(), POWER_INQ.end());
    client->send(bulk);
    for (int i = 0; i < 300; ++i) ASSERT_EQ(hex(client->next()), "90 50 02 FF") << i;
}

TEST(Visca, GarbageFloodsLeaveTheCameraAlive)
{
    CameraProcess stCamera;
    const long lBefore = stCamera.residentKiB();
    std::mt19937 random(1);
    const auto overIp = connectUdp(stCamera.port(52381)); // raw datagrams on the port of VISCA over IP
    const auto udp = connectUdp(stCamera.port(1259));
    const auto tcp = connectTcp(stCamera.port(5678));
    for (int i = 0; i < 20000; ++i) {
        Bytes junk(1 + random() % 64);
        for (std::uint8_t &u8 : junk) u8 = static_cast<std::uint8_t>(random());
        (i % 2 ? overIp : udp)->send(junk);
    }
    Bytes stream(200000, 0x81); // never a terminator
    try {
        tcp->send(stream);
    } catch (const std::runtime_error &) { // closing the connection is a fine answer
    }
    const auto client = connectOverIp(stCamera.port(52381));
    Bytes answer;
    for (int i = 0; i < 20 && answer.empty(); ++i)
        answer = client->ask(POWER_INQ, 500); // the flood may have filled a queue
    EXPECT_EQ(hex(answer), "90 50 02 FF");
    EXPECT_LT(stCamera.residentKiB(), lBefore + 16 * 1024);
}

TEST(Visca, FiveHundredTcpClientsAndOneMoreThatReadsNothing)
{
    rlimit limit{4096, 4096};
    getrlimit(RLIMIT_NOFILE, &limit);
    limit.rlim_cur = std::min<rlim_t>(limit.rlim_max, 4096);
    setrlimit(RLIMIT_NOFILE, &limit);

    CameraProcess stCamera;
    std::vector<std::unique_ptr<ViscaClient>> clients;
    for (int i = 0; i < 500; ++i) clients.push_back(connectTcp(stCamera.port(5678)));
    for (const auto &client : clients) client->send(POWER_INQ);
    for (const auto &client : clients) ASSERT_EQ(hex(client->next(5000)), "90 50 02 FF");

    clients.pop_back();
    const auto silent = connectTcp(stCamera.port(5678));
    Bytes bulk;
    for (int i = 0; i < 3000; ++i) bulk.insert(bulk.end(), POWER_INQ.begin(), POWER_INQ.end());
    std::thread sender([&] {
        try {
            for (int i = 0; i < 200; ++i) silent->send(bulk);
        } catch (const std::runtime_error &) { // cut off, as it should be
        }
    });
    EXPECT_EQ(hex(clients.front()->ask(POWER_INQ, 5000)), "90 50 02 FF");
    stCamera.stop(SIGTERM); // also ends the sender
    sender.join();
}

TEST(Visca, OccupiedPortLeavesTheOthers)
{
    CameraProcess stFirst;
    const int s32Offset = stFirst.port(0);
    CameraProcess stSecond({.s32PortOffset = s32Offset}); // every network port is taken
    EXPECT_EQ(hex(openSerial(stSecond.path("/dev/ttyS_RS232"))->ask(POWER_INQ)), "90 50 02 FF");
    // Another address, the same ports.
    CameraProcess stThird({.s32PortOffset = s32Offset, .env = {"CAMERA_BIND=127.0.0.2"}});
    EXPECT_EQ(hex(connectOverIp(stThird.port(52381), "127.0.0.2")->ask(POWER_INQ)), "90 50 02 FF");
}

TEST(Visca, UnusableDeviceRootStillGivesACamera)
{
    CameraProcess stCamera({.strRoot = "/proc/no-such-folder"});
    const auto client = connectTcp(stCamera.port(5678));
    EXPECT_EQ(hex(client->ask(POWER_INQ)), "90 50 02 FF");
    EXPECT_TRUE(isDone(*client, LEFT));
}

TEST(Visca, SignalsEndItCleanly)
{
    for (const int s32Signal : {SIGQUIT, SIGINT, SIGTERM}) EXPECT_EQ(CameraProcess().stop(s32Signal), 0) << s32Signal;
}

TEST(Visca, PowerCycleAnswersThePowerOffAfterTheRestart)
{
    CameraProcess stCamera;
    const auto client = connectOverIp(stCamera.port(52381));
    EXPECT_EQ(hex(client->ask(bytes("81 01 04 00 03 FF"))), "90 41 FF");
    std::this_thread::sleep_for(200ms);
    EXPECT_EQ(hex(client->ask(POWER_INQ)), "90 50 03 FF");

    const auto other = connectUdp(stCamera.port(1259));
    EXPECT_TRUE(isDone(*other, bytes("81 01 04 00 02 FF")));
    EXPECT_EQ(hex(client->next(15000)), "90 51 FF");
    EXPECT_EQ(hex(client->ask(POWER_INQ)), "90 50 02 FF");
}
} // namespace
