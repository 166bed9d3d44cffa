// The web server program: its ports, and what it reports.
#include "camera/webPort.h"
#include "support/fakeWebServer.h"
#include "support/platformTest.h"
#include "util/platform.h"

#include <csignal>
#include <sys/wait.h>

namespace
{
using testing::HasSubstr;

constexpr int LONG_MS = 20'000;

bool isGone(pid_t pid) { return kill(pid, 0) != 0 && errno == ESRCH; }

class HttpControl : public PlatformTest
{
protected:
    ~HttpControl() override
    {
        SYSTEM_API_StopHttpDaemon();
        unsetenv("CAMERA_WEB_SERVER");
    }
    static void use(const std::string &strProgram) { setenv("CAMERA_WEB_SERVER", strProgram.c_str(), 1); }
};

TEST_F(HttpControl, PortsGoToTheWebServerAndItsReportToTheEndpoints)
{
    const FakeWebServer server(root());
    use(server.path());
    setenv("CAMERA_PORT_OFFSET", "1000", 1);
    EXPECT_EQ(SYSTEM_API_SetHttpPort(0, 443), -1);
    EXPECT_EQ(SYSTEM_API_SetHttpPort(80, 65536), -1);
    const pid_t other = fork();
    if (other == 0) _exit(7);
    EXPECT_EQ(SYSTEM_API_SetHttpPort(80, 443), 0);
    int s32Status = 0;
    EXPECT_EQ(waitpid(other, &s32Status, 0), other) << "a child that is not its own";
    const auto stFirst = server.waitForStart(LONG_MS);
    EXPECT_THAT(stFirst.strArguments, testing::StartsWith("--root " + UTIL_ROOT_Path("/") +
                                                          " --bind 127.0.0.1 --http 1080 --https 1443 --report-fd "));
    EXPECT_EQ(SYSTEM_API_SetHttpPort(80, 443), 0);
    EXPECT_FALSE(isGone(stFirst.pid)) << "nothing has changed";
    CFG_STORE_SetTexts({{"Http/Port", "1"}, {"Http/SecurePort", "70000"}}); // the user's, and none
    EXPECT_EQ(SYSTEM_API_SetHttpPort(80, 444), 0);
    EXPECT_TRUE(isGone(stFirst.pid));
    const auto stNext = server.waitForStart(LONG_MS);
    EXPECT_THAT(stNext.strArguments, HasSubstr("--http 1001 --https 1444"));
    unsetenv("CAMERA_PORT_OFFSET");
    EXPECT_EQ(SYSTEM_API_StopHttpDaemon(), 0);
    EXPECT_TRUE(isGone(stNext.pid));
    BU_S32 s32Http = 0;
    CFG_STORE_GetInt("Http/Port", &s32Http);
    EXPECT_EQ(s32Http, 1) << "still the user's";
    testing::internal::CaptureStdout();
    PLATFORM_Ready();
    EXPECT_THAT(testing::internal::GetCapturedStdout(),
                HasSubstr("\nhttp://127.0.0.1:8080/ web page\nhttps://127.0.0.1:8443/ web page\n"));

    use(root() + "/missing");
    EXPECT_EQ(SYSTEM_API_SetHttpPort(80, 443), 0);
}
} // namespace
