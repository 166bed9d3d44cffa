// Live video of a running camera, each figure beside a baseline that is measured in the same run.
#include "baselines.h"
#include "cacheHandOver.h"
#include "rtspLoad.h"
#include "support/cameraProcess.h"
#include "support/viewer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <random>
#include <stdexcept>
#include <sys/resource.h>
#include <thread>

namespace
{
using namespace std::chrono_literals;

constexpr int SERVER_CPU = 0, CLIENT_CPU = 1;
constexpr const char *MAIN = "closeup";
constexpr double FRAME_US = 1e6 / 30;

void headline(const char *pcText) { std::printf("\n%s\n", pcText); }

/// What a process uses while fn runs.
struct tagUSED_S {
    double dSeconds, dElapsed;
    double load() const { return dSeconds / dElapsed * 100; } ///< [% of a core]
};
template <class Fn> tagUSED_S used(pid_t pid, Fn fn)
{
    const double dBefore = cpuSeconds(pid);
    const auto start = Clock::now();
    fn();
    return {cpuSeconds(pid) - dBefore, milliseconds(Clock::now() - start) / 1000};
}

void idle(const CameraProcess &stCamera)
{
    headline("nobody watches");
    const tagUSED_S st = used(stCamera.pid(), [] { std::this_thread::sleep_for(5s); });
    std::printf("  idle camera %.2f %% of a core (limit 2), %.1f MiB resident (limit 120)\n", st.load(),
                static_cast<double>(stCamera.residentKiB()) / 1024);
}

/// A server with so many clients. A machine with too much to do sends fewer pictures: costs are those of a picture.
struct tagSERVED_S {
    double dLoad;          ///< [% of a core]
    double dPictureUs;     ///< processor time for a picture to all of them [us]
    double dShare;         ///< pictures that came, of those due
    std::uint64_t u64Gaps; ///< of all clients
};

tagSERVED_S serve(pid_t pid, RtspLoad &clients, std::size_t size)
{
    clients.grow(size);
    clients.run(2s);
    const std::uint64_t u64Gaps = clients.gaps(), u64Pictures = clients.pictures();
    const tagUSED_S st = used(pid, [&] { clients.run(4s); });
    const double dPictures = static_cast<double>(clients.pictures() - u64Pictures) / static_cast<double>(size);
    return {st.load(), st.dSeconds * 1e6 / dPictures, dPictures / (st.dElapsed * 30), clients.gaps() - u64Gaps};
}

/// Camera and encoder take turns, so that what else the machine does meets both.
void endToEnd(const CameraProcess &stCamera)
{
    headline("1080p30 H.264: scene, settings, encoder and RTSP to one client, against the encoder alone");
    std::vector<double> camera, encoder, ratios;
    for (int i = 0; i < 3; ++i) {
        RtspLoad viewer(stCamera.port(554), MAIN);
        camera.push_back(serve(stCamera.pid(), viewer, 1).dPictureUs);
        const BaselineProcess bare("encoder", "", SERVER_CPU);
        std::this_thread::sleep_for(1s);
        const tagUSED_S st = used(bare.pid(), [] { std::this_thread::sleep_for(4s); });
        encoder.push_back(st.dSeconds * 1e6 / (st.dElapsed * 30));
        ratios.push_back(camera.back() / encoder.back());
    }
    std::printf("  camera %.2f ms a picture (%.1f %% of a core), encoder alone %.2f ms (%.1f %%): %.2fx (limit 1.5)\n",
                percentile(camera, 50) / 1000, percentile(camera, 50) * 0.003, percentile(encoder, 50) / 1000,
                percentile(encoder, 50) * 0.003, percentile(ratios, 50));
}

/// @return what one further client costs for a picture [us]
double crowd(const char *pcName, pid_t pid, int s32Port, const std::string &strPath)
{
    RtspLoad clients(s32Port, strPath);
    double dOneUs = 0, dFurtherUs = 0;
    for (const std::size_t size : {1U, 100U, 400U}) {
        const tagSERVED_S st = serve(pid, clients, size);
        if (size == 1) dOneUs = st.dPictureUs;
        if (size == 400) dFurtherUs = (st.dPictureUs - dOneUs) / 399;
        std::printf(
            "  %-14s %3zu clients: %5.1f %% of a core, %8.1f us a picture, %llu gaps, %.1f %% of the pictures\n",
            pcName, size, st.dLoad, st.dPictureUs, static_cast<unsigned long long>(st.u64Gaps), st.dShare * 100);
    }
    if (clients.lost() > 0) std::printf("  %-14s %zu connections lost\n", pcName, clients.lost());
    return dFurtherUs;
}

void crowds(const CameraProcess &stCamera, const std::string &strFile)
{
    headline("RTSP clients of the main stream over TCP, against the same packets sent by others");
    const double dOwn = crowd("camera", stCamera.pid(), stCamera.port(554), MAIN);
    std::printf("  %-14s %.1f MiB resident after 400 clients\n", "camera",
                static_cast<double>(stCamera.residentKiB()) / 1024);
    const auto baseline = [&](const char *pcName, const char *pcPart) {
        const BaselineProcess server(pcPart, strFile, SERVER_CPU);
        return crowd(pcName, server.pid(), server.port(), "test");
    };
    const double dExample = baseline("appsrc example", "example"), dBare = baseline("bare sender", "sender");
    std::printf(
        "  a further client, a picture: %.1f us, %.2fx the appsrc example's (limit 1.0), %.1fx the bare sender's\n",
        dOwn, dOwn / dExample, dOwn / dBare);
}

void printTimes(const char *pcName, const std::vector<double> &times, double dBaseline, const char *pcLimit)
{
    const double d50 = percentile(times, 50), d95 = percentile(times, 95);
    std::printf("  %-34s p50 %6.1f ms  p95 %6.1f ms  worst %6.1f ms  p95 is %.1fx the encoder's; %s\n", pcName, d50,
                d95, percentile(times, 100), d95 / dBaseline, pcLimit);
}

/// Clients come at any moment, but not so often that they would share key frames.
void newClients(const CameraProcess &stCamera, double dEncoder)
{
    headline("a new client's connection to the end of its first key frame");
    std::mt19937 random(1);
    const auto pause = [&] { std::this_thread::sleep_for(std::chrono::milliseconds(510 + random() % 200)); };
    std::vector<double> asleep, awake;
    for (int i = 0; i < 15; ++i) {
        asleep.push_back(firstKeyFrame(stCamera.port(554), MAIN));
        pause();
    }
    RtspLoad other(stCamera.port(554), MAIN);
    other.grow(1);
    std::jthread viewer([&](const std::stop_token &stop) {
        while (!stop.stop_requested()) other.run(100ms);
    });
    std::this_thread::sleep_for(1s);
    for (int i = 0; i < 60; ++i) {
        awake.push_back(firstKeyFrame(stCamera.port(554), MAIN));
        pause();
    }
    printTimes("others watch", awake, dEncoder, "limit p95 60 ms");
    printTimes("nobody watched: the encoder starts", asleep, dEncoder, "");
}

/// A client that waits for a camera which is being started.
double startToKeyFrame(const std::string &strRoot)
{
    const auto start = Clock::now();
    std::optional<CameraProcess> camera;
    const int s32Offset = 1000 + static_cast<int>(std::random_device()() % 900);
    std::thread starter([&] { camera.emplace(tagCAMERA_OPTIONS_S{.strRoot = strRoot, .s32PortOffset = s32Offset}); });
    double dMs = -1;
    for (const auto end = start + 10s; dMs < 0 && Clock::now() < end;) {
        try {
            firstKeyFrame(554 + s32Offset, MAIN);
            dMs = milliseconds(Clock::now() - start);
        } catch (const std::runtime_error &) { // not there yet
            std::this_thread::sleep_for(1ms);
        }
    }
    starter.join();
    return dMs;
}

void starts(const std::string &strFolder)
{
    headline("start of the process to the first key frame at a waiting client, against its start to \"camera ready\"");
    std::vector<double> fresh, again, ready;
    for (int i = 0; i < 5; ++i) {
        const std::string strRoot = strFolder + "/root" + std::to_string(i);
        std::filesystem::create_directories(strRoot);
        fresh.push_back(startToKeyFrame(strRoot));
        again.push_back(startToKeyFrame(strRoot));
        ready.push_back(static_cast<double>(CameraProcess({.strRoot = strRoot}).startTime().count()) / 1000);
    }
    std::printf(
        "  new device root p50 %.0f ms, worst %.0f; root of an earlier start p50 %.0f ms, worst %.0f (limit 1000, "
        "aim 250); ready p50 %.0f ms: %.2fx\n",
        percentile(fresh, 50), percentile(fresh, 100), percentile(again, 50), percentile(again, 100),
        percentile(ready, 50), percentile(again, 50) / percentile(ready, 50));
}

double monotonicUs() { return std::chrono::duration<double, std::micro>(Clock::now().time_since_epoch()).count(); }

/// Pictures are due on a grid of the monotonic clock, frame k at k frame times: the RTP time tells how many frames lie
/// between two pictures, and the least delay is shorter than a frame.
std::vector<double> rtspDelays(int s32Port, int s32Pictures)
{
    RtspClient client(s32Port, MAIN);
    std::vector<double> offsets; // [us] from the first picture's place on the grid, at 0
    std::optional<std::uint32_t> first;
    client.watch([&](const tagRTP_VIEW_S &st) {
        if (!st.bMarker) return true;
        const double dNow = monotonicUs();
        if (!first) first = st.u32Time;
        const double dFrames = std::round(static_cast<double>(static_cast<std::int32_t>(st.u32Time - *first)) / 3000);
        offsets.push_back(dNow - dFrames * FRAME_US);
        return --s32Pictures > 0;
    });
    const double dLeast = *std::ranges::min_element(offsets), dGrid = std::floor(dLeast / FRAME_US) * FRAME_US;
    for (double &d : offsets) d = (d - dGrid) / 1000;
    offsets.erase(offsets.begin(), offsets.begin() + 15); // what waited for the first key frame
    return offsets;
}

std::vector<double> previewDelays(int s32Port, int s32Pictures)
{
    Viewer viewer(s32Port, "/ch1");
    std::vector<double> delays;
    for (int i = 0; i < s32Pictures; ++i) {
        const tagPICTURE_MESSAGE_S st = viewer.readMessage();
        if (st.s32Codec == 0) throw std::runtime_error("the preview ended");
        if (i >= 15) delays.push_back((monotonicUs() - static_cast<double>(st.u64Timestamp)) / 1000);
    }
    return delays;
}

void delays(const CameraProcess &stCamera, double dEncoder)
{
    headline("a picture's time to its arrival; rendering and encoding lie between");
    printTimes("RTSP client of the main stream", rtspDelays(stCamera.port(554), 315), dEncoder, "limit p95 25 ms");
    printTimes("preview client of the sub stream", previewDelays(stCamera.port(12345), 315), dEncoder,
               "limit p95 30 ms");
    RtspLoad other(stCamera.port(554), MAIN);
    other.grow(1);
    std::jthread both([&](const std::stop_token &stop) {
        while (!stop.stop_requested()) other.run(100ms);
    });
    printTimes("preview while the main stream runs", previewDelays(stCamera.port(12345), 315), dEncoder, "");
}

void handOver()
{
    headline("a packet to 100 threads that wait for it, as % of a core at 30 packets a second");
    for (const bool bPaced : {true, false}) {
        const double dCache = loadOfReaders(bPaced), dBare = loadOfBareThreads(bPaced), dSinks = loadOfSinks(bPaced);
        std::printf("  %-12s cache %.2f %% (limit 1), a bare futex %.2f %%: %.2fx; 100 sinks %.3f %%\n",
                    bPaced ? "33 ms apart" : "back to back", dCache, dBare, dCache / dBare, dSinks);
    }
}

void printMachine()
{
    std::array<double, 3> loads{};
    getloadavg(loads.data(), 3);
    std::printf("machine: %u processors, load average %.1f %.1f %.1f\n", std::thread::hardware_concurrency(), loads[0],
                loads[1], loads[2]);
}

void allowManyConnections()
{
    rlimit stLimit{};
    getrlimit(RLIMIT_NOFILE, &stLimit);
    stLimit.rlim_cur = std::min<rlim_t>(stLimit.rlim_max, 4096);
    setrlimit(RLIMIT_NOFILE, &stLimit);
}

/// @param strOnly  one section; empty: all
int run(const std::string &strOnly)
{
    const auto isWanted = [&](std::string_view name) { return strOnly.empty() || strOnly == name; };
    allowManyConnections();
    char acFolder[] = "/tmp/camera-bench-XXXXXX";
    const std::string strFolder = mkdtemp(acFolder);
    setenv("CAMERA_ROOT", strFolder.c_str(), 1); // of this process and the baselines; the camera has another
    printMachine();
    if (isWanted("cache")) handOver();
    if (isWanted("start")) starts(strFolder);
    pinTo(CLIENT_CPU);
    const std::vector<double> encoding = encodeTimes();
    std::printf("\nthe encoder alone, one 1080p picture: p50 %.1f ms, p95 %.1f ms\n", percentile(encoding, 50),
                percentile(encoding, 95));
    const double dEncoder = percentile(encoding, 50);
    const CameraProcess stCamera({.s32Cpu = SERVER_CPU});
    if (isWanted("idle")) idle(stCamera);
    if (isWanted("load")) endToEnd(stCamera);
    if (isWanted("join")) newClients(stCamera, dEncoder);
    if (isWanted("delay")) delays(stCamera, dEncoder);
    if (isWanted("crowd")) {
        store(strFolder + "/pictures", record(stCamera.port(554), MAIN, 120));
        crowds(stCamera, strFolder + "/pictures");
    }
    std::filesystem::remove_all(strFolder);
    std::printf("\n");
    printMachine();
    return 0;
}

int part(const std::string &strPart, const std::string &strFile)
{
    if (strPart == "encoder") return encodeAlone();
    return strPart == "example" ? serveExample(strFile) : serveBare(strFile);
}
} // namespace

/// bench_media [cache | start | idle | load | join | delay | crowd]
int main(int argc, char **argv)
{
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    try {
        return argc == 3 ? part(argv[1], argv[2]) : run(argc == 2 ? argv[1] : "");
    } catch (const std::exception &e) {
        std::fprintf(stderr, "%s\n", e.what());
        return 1;
    }
}
