#include "daemon.h"

#include "camera/systemService.h"
#include "config/config.h"
#include "support/fakeWebServer.h"
#include "support/platformTest.h"
#include "util/platform.h"

#include <csignal>
#include <future>

namespace
{
using testing::HasSubstr;
using testing::Not;
using web_rpc::Daemon;

constexpr int LONG_MS = 20'000;

bool isGone(pid_t pid) { return kill(pid, 0) != 0 && errno == ESRCH; }

class DaemonTest : public PlatformTest
{
protected:
    ~DaemonTest() override
    {
        SYSTEM_API_StopHttpDaemon();
        unsetenv("CAMERA_WEB_SERVER");
    }
    /// What starts next, while the clock goes on.
    FakeWebServer::tagSTART_S nextStart(const FakeWebServer &server)
    {
        FakeWebServer::tagSTART_S st;
        for (int i = 0; i < 1000 && st.pid == 0; ++i) {
            clock().advance(Daemon::RESTART_MS);
            st = server.waitForStart(20);
        }
        return st;
    }
    static void use(const std::string &strProgram) { setenv("CAMERA_WEB_SERVER", strProgram.c_str(), 1); }
};

TEST_F(DaemonTest, StartsAgainAndEndsWhenAsked)
{
    const FakeWebServer server(root());
    pid_t pid = 0;
    std::vector<std::string> listReport; // the thread of the daemon ends before it is read
    {
        Daemon daemon(server.path(), {"--http", "80"}, [&](std::string_view line) { listReport.emplace_back(line); });
        daemon.waitForReport(LONG_MS);
        const auto stFirst = server.waitForStart(LONG_MS);
        EXPECT_THAT(stFirst.strArguments, testing::StartsWith("--http 80 --report-fd "));
        for (pid = stFirst.pid; const int s32Signal : {SIGKILL, SIGTERM}) {
            kill(pid, s32Signal);
            const auto stNext = nextStart(server);
            EXPECT_NE(stNext.pid, pid);
            EXPECT_TRUE(isGone(pid));
            pid = stNext.pid;
        }
        EXPECT_FALSE(isGone(pid));
    }
    EXPECT_TRUE(isGone(pid));
    EXPECT_THAT(listReport,
                testing::ElementsAre("http 8080", "https 8443", "http 8080", "https 8443", "http 8080", "https 8443"));
}

TEST_F(DaemonTest, IsKilledWhenItDoesNotEnd)
{
    const FakeWebServer server(root(), "trap '' TERM");
    auto daemon = std::make_unique<Daemon>(server.path(), std::vector<std::string>(), [](std::string_view) {});
    const pid_t pid = server.waitForStart(LONG_MS).pid;
    auto ended = std::async(std::launch::async, [&] { daemon.reset(); });
    for (int i = 0; i < 1000 && ended.wait_for(std::chrono::milliseconds(20)) != std::future_status::ready; ++i)
        clock().advance(Daemon::TERM_MS);
    EXPECT_TRUE(isGone(pid));
}

TEST_F(DaemonTest, ProgramThatCannotRunIsTriedAgainUntilStopped)
{
    const Daemon daemon(root(), {}, [](std::string_view) {}); // a folder
    clock().advance(100'000);
}

TEST_F(DaemonTest, PortsGoToTheWebServerAndItsReportToTheEndpoints)
{
    const FakeWebServer server(root());
    use(server.path());
    setenv("CAMERA_PORT_OFFSET", "1000", 1);
    EXPECT_EQ(SYSTEM_API_SetHttpPort(0, 443), -1);
    EXPECT_EQ(SYSTEM_API_SetHttpPort(80, 65536), -1);
    EXPECT_EQ(SYSTEM_API_SetHttpPort(80, 443), 0);
    const auto stFirst = server.waitForStart(LONG_MS);
    EXPECT_THAT(stFirst.strArguments, testing::StartsWith("--root " + UTIL_ROOT_Path("/") +
                                                          " --bind 127.0.0.1 --http 1080 --https 1443 --report-fd "));
    EXPECT_EQ(SYSTEM_API_SetHttpPort(80, 443), 0);
    EXPECT_FALSE(isGone(stFirst.pid)) << "nothing has changed";
    EXPECT_EQ(SYSTEM_API_SetHttpPort(81, 444), 0);
    EXPECT_TRUE(isGone(stFirst.pid));
    const auto stNext = server.waitForStart(LONG_MS);
    EXPECT_THAT(stNext.strArguments, HasSubstr("--http 1081 --https 1444"));
    unsetenv("CAMERA_PORT_OFFSET");
    EXPECT_EQ(SYSTEM_API_StopHttpDaemon(), 0);
    EXPECT_TRUE(isGone(stNext.pid));
    BU_S32 s32Http = 0, s32Https = 0;
    CFG_SYSTEM_GetHttpPort(&s32Http, &s32Https);
    EXPECT_EQ(std::pair(s32Http, s32Https), std::pair(81, 444));
    testing::internal::CaptureStdout();
    PLATFORM_Ready();
    EXPECT_THAT(testing::internal::GetCapturedStdout(),
                HasSubstr("\nhttp://127.0.0.1:8080/ web page\nhttps://127.0.0.1:8443/ web page\n"));

    use(root() + "/missing");
    EXPECT_EQ(SYSTEM_API_SetHttpPort(80, 443), 0);
}
} // namespace
