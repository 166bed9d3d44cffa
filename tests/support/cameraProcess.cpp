#include "cameraProcess.h"
#include "place.h"
#include "socket.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sched.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace
{
bool isFree(int s32Type, int s32Port) { return loopback(s32Type, s32Port, ::bind) >= 0; }

/// An offset at which the ports of VISCA and RTSP are free; the highest, 52381, must stay below 65536.
int freeOffset()
{
    for (int i = 0; i < 500; ++i) {
        const int s32Offset = 2000 + (getpid() * 7 + i * 13) % 10000;
        if (isFree(SOCK_DGRAM, 52381 + s32Offset) && isFree(SOCK_DGRAM, 1259 + s32Offset) &&
            isFree(SOCK_STREAM, 5678 + s32Offset) && isFree(SOCK_STREAM, 554 + s32Offset))
            return s32Offset;
    }
    throw std::runtime_error("no free ports");
}
} // namespace

void pinTo(int s32Cpu)
{
    if (s32Cpu < 0) return;
    cpu_set_t set;
    CPU_ZERO(&set);
    CPU_SET(static_cast<unsigned>(s32Cpu), &set);
    sched_setaffinity(0, sizeof(set), &set);
}

CameraProcess::CameraProcess(tagCAMERA_OPTIONS_S stOptions) : m_stOptions(std::move(stOptions))
{
    if (m_stOptions.strRoot.empty()) {
        char acFolder[] = "/tmp/camera-process-XXXXXX";
        m_stOptions.strRoot = mkdtemp(acFolder);
        m_bOwnRoot = true;
    }
    if (m_stOptions.s32PortOffset == 0) m_stOptions.s32PortOffset = freeOffset();

    int as32Pipe[2];
    if (pipe2(as32Pipe, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    const auto start = std::chrono::steady_clock::now();
    m_pid = fork();
    if (m_pid == 0) {
        pinTo(m_stOptions.s32Cpu);
        dup2(as32Pipe[1], STDOUT_FILENO);
        dup2(open("/dev/null", O_WRONLY), STDERR_FILENO);
        setenv("CAMERA_ROOT", m_stOptions.strRoot.c_str(), 1);
        setenv("CAMERA_PORT_OFFSET", std::to_string(m_stOptions.s32PortOffset).c_str(), 1);
        setenv("CAMERA_WEB_SERVER", "", 1); // none, unless asked for
        for (std::string &strVariable : m_stOptions.env) putenv(strVariable.data());
        execl(place::built("app/camera").c_str(), "camera", nullptr);
        _exit(127);
    }
    close(as32Pipe[1]);
    readUntilReady(as32Pipe[0]);
    m_startTime = std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - start);
}

void CameraProcess::readUntilReady(int fd)
{
    FILE *pstOut = fdopen(fd, "r");
    std::string strSeen;
    for (char acLine[512]; std::fgets(acLine, sizeof(acLine), pstOut);) {
        if (std::string(acLine) == "camera ready\n") {
            m_drain = std::thread([pstOut] {
                for (char acRest[512]; std::fgets(acRest, sizeof(acRest), pstOut);) {}
                std::fclose(pstOut);
            });
            return;
        }
        strSeen += acLine;
    }
    std::fclose(pstOut);
    const int s32Status = stop(SIGKILL);
    throw std::runtime_error("the camera ended with " + std::to_string(s32Status) + ":\n" + strSeen);
}

int CameraProcess::stop(int s32Signal)
{
    if (m_pid <= 0) return -1;
    kill(m_pid, s32Signal);
    int s32Status = 0;
    waitpid(m_pid, &s32Status, 0);
    m_pid = -1;
    if (m_drain.joinable()) m_drain.join();
    return WIFEXITED(s32Status) ? WEXITSTATUS(s32Status) : 128 + WTERMSIG(s32Status);
}

CameraProcess::~CameraProcess()
{
    stop(SIGTERM);
    if (m_bOwnRoot) std::filesystem::remove_all(m_stOptions.strRoot);
}

long CameraProcess::residentKiB() const
{
    std::ifstream in("/proc/" + std::to_string(m_pid) + "/status");
    std::string strWord;
    while (in >> strWord && strWord != "VmRSS:") {}
    long lKiB = 0;
    in >> lKiB;
    return lKiB;
}

double CameraProcess::cpuSeconds() const
{
    std::ifstream in("/proc/" + std::to_string(m_pid) + "/stat");
    std::string strSkip;
    for (int i = 0; i < 13; ++i) in >> strSkip;
    double dUser = 0, dSystem = 0;
    in >> dUser >> dSystem;
    return (dUser + dSystem) / static_cast<double>(sysconf(_SC_CLK_TCK));
}
