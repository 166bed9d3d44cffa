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
    constexpr unsigned short CODES[] = {32, 33, 34, 35, 28, 29, 127, 0x2FF};
    std::vector<input_event> events;
    for (int i = 0; i < EVENTS; ++i) events.push_back({{}, EV_KEY, CODES[i / 2 % 8], i % 2 == 0});
    {
        const util::FileDescriptor device(
            open(stCamera.path("/dev/input/NecBr").c_str(), O_WRONLY | O_NOCTTY | O_CLOEXEC));
        for (auto rest = std::as_bytes(std::span(events)); !rest.empty();) {
            const ssize_t size = write(device, rest.data(), rest.size());
            ASSERT_GT(size, 0);
            rest = rest.subspan(static_cast<std::size_t>(size));
        }
    }
    EXPECT_EQ(client.ask(POWER_INQ), ON);
    const std::string strBefore = restingPosition(client); // nothing is left running
    EXPECT_EQ(remote(stCamera, "small left --hold 200ms"), 0);
    EXPECT_NE(restingPosition(client), strBefore);
}
} // namespace
