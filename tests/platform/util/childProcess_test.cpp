#include "support/fakeWebServer.h"
#include "support/platformTest.h"
#include "util/childProcess.h"

#include <csignal>
#include <future>

namespace
{
using util::ChildProcess;

constexpr int LONG_MS = 20'000;

bool isGone(pid_t pid) { return kill(pid, 0) != 0 && errno == ESRCH; }

class ChildProcessTest : public PlatformTest
{
protected:
    /// What starts next, after so long.
    std::pair<pid_t, BU_S64> nextStart(const FakeWebServer &server, const ChildProcess &child)
    {
        BU_S64 s64WaitedMs = 0;
        for (int i = 0; i < 4000; ++i) {
            if (child.pid() == 0) clock().advance(100), s64WaitedMs += 100;
            if (const auto st = server.waitForStart(5); st.pid != 0) return {st.pid, s64WaitedMs};
        }
        return {};
    }
};

TEST_F(ChildProcessTest, StartsAgainAndEndsWhenAsked)
{
    const FakeWebServer server(root());
    pid_t pid = 0;
    std::vector<std::string> listReport; // the thread of the child ends before it is read
    {
        ChildProcess daemon(server.path(), {"--http", "80"},
                            [&](std::string_view line) { listReport.emplace_back(line); });
        daemon.waitForReport(LONG_MS);
        const auto stFirst = server.waitForStart(LONG_MS);
        EXPECT_THAT(stFirst.strArguments, testing::StartsWith("--http 80 --report-fd "));
        pid = stFirst.pid;
        for (BU_S64 s64PauseMs = ChildProcess::RESTART_MS; const int s32Signal : {SIGKILL, SIGTERM}) {
            kill(pid, s32Signal);
            const auto [next, s64WaitedMs] = nextStart(server, daemon);
            EXPECT_NE(next, pid);
            EXPECT_TRUE(isGone(pid));
            EXPECT_GE(s64WaitedMs, s64PauseMs);
            s64PauseMs *= 2;
            pid = next;
        }
        EXPECT_FALSE(isGone(pid));
    }
    EXPECT_TRUE(isGone(pid));
    EXPECT_THAT(listReport,
                testing::ElementsAre("http 8080", "https 8443", "http 8080", "https 8443", "http 8080", "https 8443"));
}

TEST_F(ChildProcessTest, IsKilledWhenItDoesNotEnd)
{
    const FakeWebServer server(root(), "trap '' TERM");
    auto daemon = std::make_unique<ChildProcess>(server.path(), std::vector<std::string>(), [](std::string_view) {});
    const pid_t pid = server.waitForStart(LONG_MS).pid;
    auto ended = std::async(std::launch::async, [&] { daemon.reset(); });
    for (int i = 0; i < 1000 && ended.wait_for(std::chrono::milliseconds(20)) != std::future_status::ready; ++i)
        clock().advance(ChildProcess::TERM_MS);
    EXPECT_TRUE(isGone(pid));
    const ChildProcess folder(root(), {}, [](std::string_view) {}); // cannot run: tried again until it is stopped
    clock().advance(100'000);
}
} // namespace
