// The camera and its web server.
#include "mediaCamera.h"
#include "support/fakeWebServer.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sys/syscall.h>

namespace
{
constexpr int LONG_MS = 20'000;

TEST(WebServerProcess, ComesBackAndDiesWithTheCameraHoweverThatEnds)
{
    const PreparedRoot root;
    const FakeWebServer server(root.path());
    CameraProcess camera({.env = {"CAMERA_WEB_SERVER=" + server.path()}});
    const pid_t first = server.waitForStart(LONG_MS).pid;
    ASSERT_GT(first, 0);
    kill(first, SIGKILL);
    const pid_t second = server.waitForStart(LONG_MS).pid;
    ASSERT_GT(second, 0);
    pollfd stWatch{static_cast<int>(syscall(SYS_pidfd_open, second, 0)), POLLIN, 0};
    camera.stop(SIGKILL);
    EXPECT_EQ(poll(&stWatch, 1, LONG_MS), 1) << "it has outlived its camera";
    close(stWatch.fd);
}
} // namespace
