/// A helper process that runs as long as this one wants: started again when it ends, ended when this process ends,
/// however it ends.
#pragma once

#include "util/fileDescriptor.h"
#include "util/thread.h"
#include "util/time.h"

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

namespace util
{
class ChildProcess
{
public:
    static constexpr BU_S64 RESTART_MS = 500, RESTART_MAX_MS = 30000; ///< after each end twice as long
    static constexpr BU_S64 STEADY_MS = 10000;                        ///< who has run so long starts again soon
    static constexpr BU_S64 TERM_MS = 3000;                           ///< from the request to end to the kill

    /// Starts the program with the arguments and "--report-fd N": what it writes there comes to fnReport, line by line,
    /// on the thread that looks after it. It reads nothing, and writes to this one's standard error.
    ChildProcess(std::string strProgram, std::vector<std::string> arguments,
                 std::function<void(std::string_view line)> fnReport);
    ~ChildProcess(); ///< asks it to end, kills it when it does not
    ChildProcess(const ChildProcess &) = delete;
    ChildProcess &operator=(const ChildProcess &) = delete;

    /// Waits until the program has closed its report, or ended, or for that time.
    void waitForReport(BU_S64 s64Ms);
    pid_t pid() const { return m_pid; } ///< 0: it does not run now

private:
    struct Child {
        pid_t pid = -1;
        FileDescriptor handle, report;
    };
    Child start();
    void work();
    void watch(Child &stChild);
    void readReport(Child &stChild, std::string &strLine);
    void endReport(Child &stChild);
    void pause(BU_S64 s64Ms);
    void wakeAt(BU_S64 s64DueMs);

    const std::string m_strProgram;
    const std::vector<std::string> m_arguments;
    const std::function<void(std::string_view)> m_fnReport;
    const FileDescriptor m_wake;
    std::atomic<bool> m_bStop{false};
    std::atomic<pid_t> m_pid{0};
    std::mutex m_lock; // guards m_bReported
    std::condition_variable m_reported;
    bool m_bReported = false;
    TimerQueue m_queue{"childTimer"};
    Thread m_thread; // last: ends first. The child dies with it, so it lives as long as the child may.
};

/// All child processes have ended while it lives: for what replaces this process.
class ChildrenStopped
{
public:
    ChildrenStopped(); ///< asks them to end, kills those which do not within ChildProcess::TERM_MS; waits for all
    ~ChildrenStopped();
    ChildrenStopped(const ChildrenStopped &) = delete;
    ChildrenStopped &operator=(const ChildrenStopped &) = delete;
};
} // namespace util
