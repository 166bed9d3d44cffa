#include "baselines.h"

#include "support/cameraProcess.h"

#include <csignal>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

BaselineProcess::BaselineProcess(const std::string &strPart, const std::string &strFile, int s32Cpu)
{
    int as32Pipe[2];
    if (pipe(as32Pipe) != 0) throw std::runtime_error("no pipe");
    m_pid = fork();
    if (m_pid == 0) {
        pinTo(s32Cpu);
        dup2(as32Pipe[1], STDOUT_FILENO);
        close(as32Pipe[0]);
        execl("/proc/self/exe", "bench_media", strPart.c_str(), strFile.c_str(), nullptr);
        _exit(127);
    }
    close(as32Pipe[1]);
    FILE *pstOut = fdopen(as32Pipe[0], "r");
    const bool bReady = std::fscanf(pstOut, "ready %d", &m_s32Port) == 1;
    std::fclose(pstOut);
    if (!bReady) throw std::runtime_error(strPart + " did not start");
}

BaselineProcess::~BaselineProcess()
{
    kill(m_pid, SIGKILL);
    waitpid(m_pid, nullptr, 0);
}

double cpuSeconds(pid_t pid)
{
    clockid_t clock = 0;
    timespec st{};
    if (clock_getcpuclockid(pid, &clock) != 0 || clock_gettime(clock, &st) != 0) return 0;
    return static_cast<double>(st.tv_sec) + static_cast<double>(st.tv_nsec) / 1e9;
}

void store(const std::string &strFile, const Pictures &pictures)
{
    std::ofstream out(strFile, std::ios::binary);
    for (const auto &picture : pictures) {
        const auto u32Size = static_cast<std::uint32_t>(picture.size());
        out.write(reinterpret_cast<const char *>(&u32Size), sizeof(u32Size));
        out.write(reinterpret_cast<const char *>(picture.data()), u32Size);
    }
}
