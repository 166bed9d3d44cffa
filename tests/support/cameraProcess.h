/// A camera process of its own: ports of its own, a device root of its own unless one is given, gone at the end.
#pragma once

#include <chrono>
#include <string>
#include <sys/types.h>
#include <thread>
#include <vector>

struct tagCAMERA_OPTIONS_S {
    int s32Cpu = -1;                ///< processor to run on, -1: any
    std::string strRoot{};          ///< device root that stays; empty: a fresh one, removed at the end
    int s32PortOffset = 0;          ///< 0: a free one is chosen
    std::vector<std::string> env{}; ///< further "NAME=value"
};

class CameraProcess
{
public:
    /// Starts the camera and waits for "camera ready"; throws std::runtime_error with its last lines when it ends
    /// first.
    explicit CameraProcess(tagCAMERA_OPTIONS_S stOptions = {});
    ~CameraProcess();
    CameraProcess(const CameraProcess &) = delete;
    CameraProcess &operator=(const CameraProcess &) = delete;

    int port(int s32Port) const { return s32Port + m_stOptions.s32PortOffset; }
    pid_t pid() const { return m_pid; }
    std::string path(const std::string &strPath) const { return m_stOptions.strRoot + strPath; }
    std::chrono::microseconds startTime() const { return m_startTime; } ///< exec to "camera ready"

    /// Ends it with a signal. @return its exit status, or 128 + the signal that killed it
    int stop(int s32Signal);

    long residentKiB() const;
    double cpuSeconds() const;

private:
    void readUntilReady(int fd);

    tagCAMERA_OPTIONS_S m_stOptions;
    bool m_bOwnRoot = false;
    pid_t m_pid = -1;
    std::chrono::microseconds m_startTime{};
    std::thread m_drain; ///< reads the camera's traces, so that it never blocks on them
};

/// Runs the calling process on one processor; negative: any.
void pinTo(int s32Cpu);
