// The camera process and scripts/remote.
#include "support/place.h"
#include "viscaClient.h"

#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <linux/input.h>
#include <unistd.h>

namespace
{
using namespace std::chrono_literals;

int remote(const CameraProcess &stCamera, const std::string &strKeys)
{
    return std::system((place::source("scripts/remote") + " --root '" + stCamera.path("") + "' " + strKeys).c_str());
}

/// The position once it stands still.
std::string restingPosition(ViscaClient &stClient)
{
    std::string strEarlier, strNow = stClient.ask(POSITION_INQ);
    while (strNow != strEarlier) {
        std::this_thread::sleep_for(150ms);
        strEarlier = std::exchange(strNow, stClient.ask(POSITION_INQ));
    }
    return strNow;
}

TEST(Remote, EachFamilyMovesTheCameraOfItsAddress)
{
    CameraProcess stCamera;
    ViscaClient client(stCamera);
    std::string strBefore = restingPosition(client);
    for (const std::string strFamily : {"small", "big", "tracking"}) {
        EXPECT_EQ(remote(stCamera, strFamily + " left up --hold 200ms --address 2"), 0);
        EXPECT_EQ(restingPosition(client), strBefore);
        EXPECT_EQ(remote(stCamera, strFamily + " left up --hold 200ms"), 0);
        const std::string strAfter = restingPosition(client);
        EXPECT_NE(strAfter, strBefore) << strFamily;
        strBefore = strAfter;
    }
    // Stores preset 4 here, moves away and comes back.
    EXPECT_EQ(remote(stCamera, "big set 4 confirm right:300ms 4"), 0);
    EXPECT_EQ(restingPosition(client), strBefore);
    EXPECT_NE(remote(stCamera, "big warp 2>/dev/null"), 0);
}

TEST(Remote, StormOfKeysLeavesTheCameraInControl)
{
    CameraProcess stCamera;
    ViscaClient client(stCamera);
    constexpr int EVENTS = 100'000;
    std::vector<input_event> events(EVENTS);
    for (int i = 0; i < EVENTS; ++i) {
        const int s32Codes[] = {32, 33, 34, 35, 28, 29, 127, 0x2FF};
        events[i].type = EV_KEY;
        events[i].code = static_cast<unsigned short>(s32Codes[i / 2 % 8]);
        events[i].value = i % 2 == 0;
    }
    const int fd = open(stCamera.path("/dev/input/NecBr").c_str(), O_WRONLY | O_NOCTTY | O_CLOEXEC);
    ASSERT_GE(fd, 0);
    const auto *pcBytes = reinterpret_cast<const char *>(events.data());
    for (std::size_t left = EVENTS * sizeof(input_event); left > 0;) {
        const ssize_t size = write(fd, pcBytes, left);
        ASSERT_GT(size, 0);
        pcBytes += size;
        left -= static_cast<std::size_t>(size);
    }
    close(fd);
    EXPECT_EQ(client.ask(POWER_INQ), ON);
    const std::string strBefore = restingPosition(client); // nothing is left running
    EXPECT_EQ(remote(stCamera, "small left --hold 200ms"), 0);
    EXPECT_NE(restingPosition(client), strBefore);
}
} // namespace
