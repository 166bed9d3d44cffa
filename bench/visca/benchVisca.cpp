// Speed of the VISCA path of a running camera, each figure beside a bare UDP echo that is measured in turn with it.
#include "support/cameraProcess.h"
#include "viscaPeer.h"

#include <chrono>
#include <cstdio>
#include <map>
#include <stdexcept>
#include <thread>
#include <unistd.h>

namespace
{
using Clock = std::chrono::steady_clock;
constexpr std::uint16_t COMMAND = 0x0100, INQUIRY = 0x0110;
const Bytes POWER_INQ{0x81, 0x09, 0x04, 0x00, 0xFF};
const Bytes BLOCK_INQ{0x81, 0x09, 0x7E, 0x3E, 0x02, 0xFF};
const Bytes DRIVE_LEFT{0x81, 0x01, 0x06, 0x01, 0x0C, 0x0C, 0x01, 0x03, 0xFF};
const Bytes DRIVE_STOP{0x81, 0x01, 0x06, 0x01, 0x0C, 0x0C, 0x03, 0x03, 0xFF};
const Bytes SAVE_PRESET{0x81, 0x01, 0x04, 0x3F, 0x01, 0x05, 0xFF};
constexpr int SERVER_CPU = 0, CLIENT_CPU = 1;

double microseconds(Clock::duration d) { return std::chrono::duration<double, std::micro>(d).count(); }

/// Round trips of one peer, collected in short rounds so that peers can be measured in turn.
struct tagROUND_TRIPS_S {
    UdpPeer stPeer;
    Bytes packet;
    std::uint16_t u16Type = 0; ///< 0: the packet goes as it is
    int s32Answers = 1;        ///< how many answers belong to one packet; the first is timed
    std::uint32_t u32Sequence = 1;
    std::vector<double> first{}, last{};

    void round(int s32Count)
    {
        for (int i = 0; i < s32Count; ++i) {
            const Bytes data = u16Type ? overIp(u16Type, u32Sequence++, packet) : packet;
            const auto start = Clock::now();
            stPeer.send(data);
            stPeer.receive();
            first.push_back(microseconds(Clock::now() - start));
            for (int k = 1; k < s32Answers; ++k) stPeer.receive();
            last.push_back(microseconds(Clock::now() - start));
        }
    }
};

/// Answers a second with a window of packets on the way.
double throughput(UdpPeer &stPeer, const Bytes &packet, std::uint16_t u16Type, std::chrono::milliseconds duration)
{
    constexpr int WINDOW = 32;
    std::uint32_t u32Sequence = 1;
    const auto send = [&] { stPeer.send(u16Type ? overIp(u16Type, u32Sequence++, packet) : packet); };
    for (int i = 0; i < WINDOW; ++i) send();
    const auto start = Clock::now();
    long lCount = 0;
    while (Clock::now() - start < duration)
        for (int i = 0; i < WINDOW; ++i, ++lCount) {
            stPeer.receive();
            send();
        }
    const double dSeconds = microseconds(Clock::now() - start) / 1e6;
    for (int i = 0; i < WINDOW; ++i) stPeer.receive();
    return static_cast<double>(lCount) / dSeconds;
}

void printLatency(const char *pcName, const std::vector<double> &values, const std::vector<double> &baseline)
{
    const double d50 = percentile(values, 50), d99 = percentile(values, 99);
    std::printf("%-34s p50 %7.1f us  p99 %7.1f us   ratio p50 %5.2f  p99 %5.2f\n", pcName, d50, d99,
                d50 / percentile(baseline, 50), d99 / percentile(baseline, 99));
}

std::uint8_t blockInquiryByte(const UdpPeer &stPeer, const Bytes &packet)
{
    std::uint8_t au8Buf[512];
    stPeer.send(overIp(INQUIRY, 1, packet));
    return stPeer.receive(au8Buf, sizeof(au8Buf)) > 90 ? au8Buf[10] : 0;
}

void idleClients(CameraProcess &stCamera)
{
    constexpr int CLIENTS = 400;
    std::vector<int> fds;
    const long lBefore = stCamera.residentKiB();
    for (int i = 0; i < CLIENTS; ++i) fds.push_back(connectTcp(stCamera.port(5678)));
    // Every client says something once, so that what it costs is really there.
    for (const int fd : fds)
        if (write(fd, POWER_INQ.data(), POWER_INQ.size()) != static_cast<ssize_t>(POWER_INQ.size()))
            throw std::runtime_error("cannot write");
    for (const int fd : fds) {
        std::uint8_t au8Buf[16];
        if (read(fd, au8Buf, sizeof(au8Buf)) <= 0) throw std::runtime_error("no answer over TCP");
    }
    const long lAfter = stCamera.residentKiB();
    std::printf("%-34s %.1f KiB (resident, over %d clients)\n", "memory per idle TCP client",
                static_cast<double>(lAfter - lBefore) / CLIENTS, CLIENTS);
    for (const int fd : fds) close(fd);
}

void idleCost(CameraProcess &stCamera)
{
    const double dBefore = stCamera.cpuSeconds();
    std::this_thread::sleep_for(std::chrono::seconds(5));
    std::printf("%-34s %.2f %% of a core over 5 s, %ld KiB resident\n", "idle camera",
                (stCamera.cpuSeconds() - dBefore) / 5 * 100, stCamera.residentKiB());
}

void startTimes()
{
    std::vector<double> times;
    for (int i = 0; i < 7; ++i) times.push_back(CameraProcess().startTime().count() / 1000.0);
    std::printf("%-34s p50 %.0f ms, worst %.0f ms of %zu\n", "process start to camera ready", percentile(times, 50),
                percentile(times, 100), times.size());
}

int run()
{
    startTimes();
    CameraProcess stCamera({.s32Cpu = SERVER_CPU});
    EchoProcess stEcho(SERVER_CPU);
    pinTo(CLIENT_CPU);
    idleCost(stCamera);

    const int s32Port = stCamera.port(52381);
    if (blockInquiryByte(UdpPeer(s32Port), BLOCK_INQ) != 0xEE) throw std::runtime_error("no block inquiry answer");

    tagROUND_TRIPS_S stBare{UdpPeer(stEcho.port()), overIp(INQUIRY, 1, POWER_INQ)};
    tagROUND_TRIPS_S stPower{UdpPeer(s32Port), POWER_INQ, INQUIRY};
    tagROUND_TRIPS_S stBlock{UdpPeer(s32Port), BLOCK_INQ, INQUIRY};
    tagROUND_TRIPS_S stDrive{UdpPeer(s32Port), DRIVE_LEFT, COMMAND, 2};
    tagROUND_TRIPS_S stSave{UdpPeer(s32Port), SAVE_PRESET, COMMAND, 2};
    for (int i = 0; i < 50; ++i) {
        for (tagROUND_TRIPS_S *pst : {&stBare, &stPower, &stBlock, &stDrive}) pst->round(400);
        stSave.round(20);
    }
    tagROUND_TRIPS_S{UdpPeer(s32Port), DRIVE_STOP, COMMAND, 2}.round(1);

    std::printf("\nround trips over UDP, ratio to the bare echo\n");
    printLatency("bare echo", stBare.first, stBare.first);
    printLatency("power inquiry", stPower.first, stBare.first);
    printLatency("block inquiry", stBlock.first, stBare.first);
    printLatency("pan/tilt drive, ack", stDrive.first, stBare.first);
    printLatency("pan/tilt drive, completion", stDrive.last, stBare.first);
    printLatency("store preset, ack", stSave.first, stBare.first);
    printLatency("store preset, completion", stSave.last, stBare.first);
    std::printf("%-34s %.2f\n", "block to power inquiry, p50",
                percentile(stBlock.first, 50) / percentile(stPower.first, 50));

    std::printf("\nanswers a second, camera on one core\n");
    double dBare = 0, dPower = 0;
    for (int i = 0; i < 5; ++i) {
        UdpPeer stBarePeer(stEcho.port()), stPowerPeer(s32Port);
        dBare =
            std::max(dBare, throughput(stBarePeer, overIp(INQUIRY, 1, POWER_INQ), 0, std::chrono::milliseconds(400)));
        dPower = std::max(dPower, throughput(stPowerPeer, POWER_INQ, INQUIRY, std::chrono::milliseconds(400)));
    }
    std::printf("bare echo %.0f/s, power inquiry %.0f/s, ratio %.2f\n\n", dBare, dPower, dPower / dBare);

    idleClients(stCamera);
    return 0;
}
} // namespace

int main()
{
    try {
        return run();
    } catch (const std::exception &e) {
        std::fprintf(stderr, "%s\n", e.what());
        return 1;
    }
}
