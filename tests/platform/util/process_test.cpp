/// The process: watchdog, readiness, signals, crash, ports, log, restart in place.
#include "rootFolder.h"
#include "support/await.h"
#include "util/childProcess.h"
#include "util/debug.h"
#include "util/fileDescriptor.h"
#include "util/journal.h"
#include "util/log.h"
#include "util/platform.h"
#include "util/time.h"
#include "util/watchdog.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using testing::HasSubstr;

namespace
{
struct ProcessTest : RootTest {
    ProcessTest() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};
typedef ProcessTest ProcessDeathTest;

TEST_F(ProcessDeathTest, WatchdogEndsAStartUpThatHangs)
{
    const auto process = [&] {
        util::ManualClock clock;
        UTIL_WDT_SW_StartTimeout(300);
        clock.advance(200000);
        UTIL_WDT_SW_StartTimeout(300); // counts anew
        clock.advance(299999);
        std::fprintf(stderr, "still there\n");
        clock.advance(1);
    };
    EXPECT_EXIT(process(), testing::ExitedWithCode(70), "still there\n.*300 s");
}

TEST_F(ProcessDeathTest, StoppedWatchdogTellsReadinessOnce)
{
    const auto process = [&] {
        dup2(STDERR_FILENO, STDOUT_FILENO);
        util::ManualClock clock;
        UTIL_WDT_SW_StartTimeout(300);
        constexpr const BU_CHAR *SERIAL = "serial:/dev/ttyS_RS232 VISCA";
        for (const BU_CHAR *pc : {"udp://127.0.0.1:52381 VISCA over IP", SERIAL, SERIAL}) PLATFORM_AddEndpoint(pc);
        for (int i = 0; i < 2; ++i) UTIL_WDT_SW_StopTimeout();
        PLATFORM_AddEndpoint(SERIAL);
        PLATFORM_AddEndpoint("http://127.0.0.1:8080/ web page"); // of a process that was late
        clock.advance(1000000);
        std::printf("end\n");
        std::fflush(stdout);
        _exit(0);
    };
    EXPECT_EXIT(process(), testing::ExitedWithCode(0),
                "\ncamera ready\nudp://127.0.0.1:52381 VISCA over IP\nserial:/dev/ttyS_RS232 VISCA\n"
                "http://127.0.0.1:8080/ web page\nend\n");
}

TEST_F(ProcessDeathTest, JournalStreamsOnceItsDebugFileSaysSoAndStaysBounded)
{
    const auto process = [&] {
        UTIL_WDT_SW_StartTimeout(300);
        write("/var/debug/app/platform/journal", "1\n");
        await([] { return journal::g_bOn.load(); });
        journal::call("ISP_API_SetGain", 0, 12, 1, 1);
        journal::ask("ISP_API_GetGain", 0);
        const std::string strFirst = read("/var/debug/app/platform/journal.log");
        for (BU_S32 i = 0; i < 10000; i++) journal::call("f", std::string(1000, 'x').c_str());
        const bool bBounded = read("/var/debug/app/platform/journal.log").size() < 5000000 &&
                              read("/var/debug/app/platform/journal.log.1").size() < 5000000;
        write("/var/debug/app/platform/journal", "0\n");
        await([] { return !journal::g_bOn; });
        std::fprintf(stderr, "<%s>", strFirst.c_str());
        _exit(bBounded ? 0 : 1);
    };
    EXPECT_EXIT(process(), testing::ExitedWithCode(0), "<[0-9]+\\.[0-9]{6} ISP_API_SetGain\\(0, 12, 1, 1\\)\n>");
}

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
TEST_F(ProcessDeathTest, CrashPrintsTheCallStack)
{
    const auto process = [&] {
        UTIL_DUMPSTACK_PrintCallStack();
        raise(SIGSEGV);
    };
    EXPECT_EXIT(process(), testing::KilledBySignal(SIGSEGV), "crash by signal SEGV, call stack:\n.*libc");
}
#endif

TEST_F(ProcessTest, ReadinessReachesTheServiceManager)
{
    const std::string strSocket = outside() + "/notify";
    sockaddr_un stAddress{.sun_family = AF_UNIX, .sun_path = {}};
    strSocket.copy(stAddress.sun_path, sizeof(stAddress.sun_path) - 1);
    const util::FileDescriptor s32Fd(socket(AF_UNIX, SOCK_DGRAM, 0));
    ASSERT_EQ(bind(s32Fd, reinterpret_cast<const sockaddr *>(&stAddress), sizeof(stAddress)), 0);
    setenv("NOTIFY_SOCKET", strSocket.c_str(), 1);
    PLATFORM_Ready();
    unsetenv("NOTIFY_SOCKET");
    std::array<BU_CHAR, 64> acText{};
    EXPECT_EQ(recv(s32Fd, acText.data(), acText.size(), MSG_DONTWAIT), 7);
    EXPECT_STREQ(acText.data(), "READY=1");
}

TEST_F(ProcessTest, NoWatchdogWithoutATime) { EXPECT_EQ(UTIL_WDT_SW_StartTimeout(0), -1); }

TEST_F(ProcessTest, PortsMoveByTheOffsetButNeverBeyondThePorts)
{
    // clang-format off
    const std::tuple<const BU_CHAR *, BU_S32, BU_S32> rows[] = {
        {nullptr, 1259, 1259}, {"1000", 1259, 2259}, {"1000", 0, 0}, {"13154", 52381, 65535}, {"13155", 52381, 52381},
        {"-1258", 1259, 1}, {"-1259", 1259, 1259}, {"", 1259, 1259}};
    // clang-format on
    for (const auto &[pcOffset, s32Port, s32Expected] : rows) {
        pcOffset ? setenv("CAMERA_PORT_OFFSET", pcOffset, 1) : unsetenv("CAMERA_PORT_OFFSET");
        EXPECT_EQ(PLATFORM_Port(s32Port), s32Expected) << (pcOffset ? pcOffset : "no offset");
    }
    unsetenv("CAMERA_PORT_OFFSET");
    setenv("CAMERA_BIND", "no address", 1);
    EXPECT_EQ(PLATFORM_BindAddress(), "127.0.0.1");
    unsetenv("CAMERA_BIND");
}

TEST_F(ProcessTest, LogFollowsTheRootAndOutlivesAFullDisk)
{
    LOG_INFO("value %d\n\n", 42);
    EXPECT_THAT(read("/var/log/camera.log"), HasSubstr("] value 42\n"));
    LOG_WARN("name %s", "a\n2026-01-01 E forged\x1B[2J\x7F\n");
    EXPECT_THAT(read("/var/log/camera.log"), HasSubstr("] name a?2026-01-01 E forged?[2J?\n"));
    LOG_WARN("%s", std::string(5000, 'x').c_str());
    EXPECT_LT(read("/var/log/camera.log").size(), 2048u);
    const std::string strFull = outside() + "/full/var/log";
    std::filesystem::create_directories(strFull);
    std::filesystem::create_symlink("/dev/full", strFull + "/camera.log");
    UTIL_ROOT_Set((outside() + "/full").c_str());
    testing::internal::CaptureStderr();
    for (const BU_CHAR *pc : {"first", "second"}) LOG_INFO("%s", pc);
    const std::string strConsole = testing::internal::GetCapturedStderr();
    EXPECT_THAT(strConsole, testing::AllOf(HasSubstr("first"), HasSubstr("second")));
    EXPECT_EQ(strConsole.find("log file"), strConsole.rfind("log file")) << strConsole;
}

// Run by RestartKeepsArgumentsAndLeavesNoFileAndNoChildBehind in a process of its own, before and after the restart.
TEST(DISABLED_Restarted, Stage)
{
    const BU_CHAR *pcMark = std::getenv("RESTART_MARK");
    ASSERT_TRUE(pcMark);
    const auto hasChild = [] { return waitpid(-1, nullptr, WNOHANG) >= 0; };
    if (std::filesystem::exists(pcMark)) _exit(fcntl(100, F_GETFD) < 0 && !hasChild() ? 42 : 43);
    std::ofstream(pcMark) << "restarting";
    dup2(STDERR_FILENO, 100);
    const util::ChildProcess child("/bin/sh", {"-c", "exec sleep 1000"}, [](std::string_view) {});
    ASSERT_TRUE(await([&] { return child.pid() != 0; }));
    UTIL_CMD_RunSafe("sync; reboot");
    for (;;) pause();
}

TEST_F(ProcessTest, RestartKeepsArgumentsAndLeavesNoFileAndNoChildBehind)
{
    setenv("RESTART_MARK", (outside() + "/mark").c_str(), 1);
    const pid_t pid = fork();
    constexpr const char *FILTER = "--gtest_filter=*Restarted.Stage";
    if (pid == 0) _exit(execl("/proc/self/exe", "camera", "--gtest_also_run_disabled_tests", FILTER, nullptr));
    int s32Status = 0;
    waitpid(pid, &s32Status, 0);
    unsetenv("RESTART_MARK");
    EXPECT_TRUE(WIFEXITED(s32Status) && WEXITSTATUS(s32Status) == 42) << s32Status;
}
} // namespace
