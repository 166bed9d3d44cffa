/// Starts child processes, watches and ends them.
#include "util/childProcess.h"

#include "util/log.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <optional>
#include <poll.h>
#include <set>
#include <sys/eventfd.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace util
{
namespace
{
constexpr std::size_t LINE_MAX_SIZE = 256;

/// The child, up to the program: what may be called between fork and exec, nothing else.
[[noreturn]] void become(const char *pcProgram, char *const *ppcArguments, int s32Report, pid_t parent)
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent) _exit(EXIT_FAILURE); // it was quicker than the line above
    sigset_t stNone;
    sigemptyset(&stNone);
    pthread_sigmask(SIG_SETMASK, &stNone, nullptr); // the threads of this process block some
    dup2(STDERR_FILENO, STDOUT_FILENO);
    close_range(STDERR_FILENO + 1, ~0U, CLOSE_RANGE_CLOEXEC);
    fcntl(s32Report, F_SETFD, 0);
    execv(pcProgram, ppcArguments);
    _exit(127);
}

/// The children of this process that are not reaped yet.
struct Children {
    std::mutex lock; // guards the rest
    std::condition_variable gone;
    std::set<pid_t> running;
    bool bStopped = false; // none may be started
};
Children &children()
{
    static auto *pstChildren = new Children;
    return *pstChildren;
}

/// Takes leave of a child that has ended or is about to. @return its status; empty: it was stopped with all others
std::optional<int> reap(pid_t pid)
{
    const std::lock_guard guard(children().lock); // no signal goes to a number that may be somebody else's by now
    int s32Status = 0;
    waitpid(pid, &s32Status, 0);
    children().running.erase(pid);
    children().gone.notify_all();
    return children().bStopped ? std::nullopt : std::optional(s32Status);
}
} // namespace

ChildProcess::ChildProcess(std::string strProgram, std::vector<std::string> arguments,
                           std::function<void(std::string_view)> fnReport)
    : m_strProgram(std::move(strProgram)), m_arguments(std::move(arguments)), m_fnReport(std::move(fnReport)),
      m_wake(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
      m_thread(m_strProgram.substr(m_strProgram.rfind('/') + 1).c_str(), [this](const std::stop_token &) { work(); })
{
}

ChildProcess::~ChildProcess()
{
    m_bStop = true;
    eventfd_write(m_wake, 1);
}

void ChildProcess::waitForReport(BU_S64 s64Ms)
{
    std::unique_lock guard(m_lock);
    m_reported.wait_for(guard, std::chrono::milliseconds(s64Ms), [this] { return m_bReported; });
}

ChildProcess::Child ChildProcess::start()
{
    int as32Pipe[2];
    if (pipe2(as32Pipe, O_CLOEXEC) != 0) return {};
    Child stChild{-1, {}, FileDescriptor(as32Pipe[0])};
    const FileDescriptor theirs(as32Pipe[1]);
    fcntl(stChild.report, F_SETFL, O_NONBLOCK);
    std::vector<std::string> arguments{m_strProgram};
    arguments.insert(arguments.end(), m_arguments.begin(), m_arguments.end());
    arguments.insert(arguments.end(), {"--report-fd", std::to_string(theirs)});
    std::vector<char *> argv;
    argv.reserve(arguments.size() + 1);
    for (std::string &str : arguments) argv.push_back(str.data());
    argv.push_back(nullptr);
    const pid_t parent = getpid();
    {
        const std::lock_guard guard(children().lock);
        if (children().bStopped) return {};
        stChild.pid = fork();
        if (stChild.pid == 0) become(m_strProgram.c_str(), argv.data(), theirs, parent);
        if (stChild.pid < 0) return stChild;
        children().running.insert(stChild.pid);
    }
    stChild.handle = FileDescriptor(static_cast<int>(syscall(SYS_pidfd_open, stChild.pid, 0)));
    if (stChild.handle < 0) { // nobody would notice its end
        kill(stChild.pid, SIGKILL);
        reap(std::exchange(stChild.pid, -1));
        errno = EMFILE;
    }
    return stChild;
}

void ChildProcess::work()
{
    for (BU_S64 s64Pause = RESTART_MS; !m_bStop; s64Pause = std::min(2 * s64Pause, RESTART_MAX_MS)) {
        const BU_S64 s64Start = UTIL_TIME_NowMs();
        Child stChild = start();
        if (stChild.pid > 0) {
            m_pid = stChild.pid;
            watch(stChild);
            m_pid = 0;
        } else
            LOG_ERROR("%s cannot be started: %s\n", m_strProgram.c_str(), std::strerror(errno));
        if (m_bStop) return;
        if (UTIL_TIME_NowMs() - s64Start >= STEADY_MS) s64Pause = RESTART_MS;
        pause(s64Pause);
    }
}

void ChildProcess::watch(Child &stChild)
{
    std::string strLine;
    BU_S64 s64KillMs = 0;
    for (;;) {
        pollfd astWatch[]{{stChild.handle, POLLIN, 0}, {m_wake, POLLIN, 0}, {stChild.report, POLLIN, 0}};
        if (poll(astWatch, std::size(astWatch), -1) < 0) continue;
        if (astWatch[2].revents) readReport(stChild, strLine);
        if (astWatch[0].revents) break;
        if (!astWatch[1].revents) continue;
        eventfd_t count = 0;
        eventfd_read(m_wake, &count);
        if (m_bStop && s64KillMs == 0) {
            kill(stChild.pid, SIGTERM);
            wakeAt(s64KillMs = UTIL_TIME_NowMs() + TERM_MS);
        } else if (m_bStop && UTIL_TIME_NowMs() >= s64KillMs)
            kill(stChild.pid, SIGKILL);
    }
    endReport(stChild);
    const auto status = reap(stChild.pid);
    if (m_bStop || !status) return;
    const bool bExited = WIFEXITED(*status);
    LOG_WARN("%s ended by itself (%s %d)\n", m_strProgram.c_str(), bExited ? "status" : "signal",
             bExited ? WEXITSTATUS(*status) : WTERMSIG(*status));
}

void ChildProcess::readReport(Child &stChild, std::string &strLine)
{
    std::array<char, LINE_MAX_SIZE> acBytes;
    const ssize_t length = read(stChild.report, acBytes.data(), acBytes.size());
    if (length < 0 && errno == EAGAIN) return;
    if (length <= 0) return endReport(stChild);
    for (const char c : std::string_view(acBytes.data(), static_cast<std::size_t>(length)))
        if (c == '\n') {
            m_fnReport(strLine);
            strLine.clear();
        } else if (strLine.size() < LINE_MAX_SIZE)
            strLine += c;
}

void ChildProcess::endReport(Child &stChild)
{
    stChild.report = FileDescriptor();
    const std::lock_guard guard(m_lock);
    m_bReported = true;
    m_reported.notify_all();
}

void ChildProcess::pause(BU_S64 s64Ms)
{
    const BU_S64 s64Due = UTIL_TIME_NowMs() + s64Ms;
    wakeAt(s64Due);
    while (!m_bStop && UTIL_TIME_NowMs() < s64Due) {
        pollfd stWatch{m_wake, POLLIN, 0};
        poll(&stWatch, 1, -1);
        eventfd_t count = 0;
        eventfd_read(m_wake, &count);
    }
}

void ChildProcess::wakeAt(BU_S64 s64DueMs)
{
    m_queue.at(s64DueMs, [this] { eventfd_write(m_wake, 1); });
}

ChildrenStopped::ChildrenStopped()
{
    std::unique_lock guard(children().lock);
    children().bStopped = true;
    for (const int s32Signal : {SIGTERM, SIGKILL}) {
        for (const pid_t pid : children().running) kill(pid, s32Signal);
        const std::chrono::milliseconds wait(ChildProcess::TERM_MS);
        if (children().gone.wait_for(guard, wait, [] { return children().running.empty(); })) return;
    }
}

ChildrenStopped::~ChildrenStopped()
{
    const std::lock_guard guard(children().lock);
    children().bStopped = false;
}
} // namespace util
