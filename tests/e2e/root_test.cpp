// Two cameras cannot share a device root.
#include "../support/cameraProcess.h"

#include <csignal>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iterator>
#include <stdexcept>

using testing::HasSubstr;

namespace
{
TEST(DeviceRoot, HasOneCameraAtATime)
{
    CameraProcess stFirst;
    const std::string strRoot = stFirst.path("");
    const auto secondEndsWith = [&] {
        try {
            CameraProcess stSecond({.strRoot = strRoot});
        } catch (const std::runtime_error &error) {
            return std::string(error.what());
        }
        return std::string("it runs");
    };
    EXPECT_THAT(secondEndsWith(), HasSubstr("ended with 75"));
    std::ifstream log(stFirst.path("/var/log/camera.log"));
    EXPECT_THAT(std::string(std::istreambuf_iterator<char>(log), {}),
                HasSubstr(strRoot + " is in use by process " + std::to_string(stFirst.pid())));
    stFirst.stop(SIGKILL);
    EXPECT_EQ(secondEndsWith(), "it runs");
}
} // namespace
