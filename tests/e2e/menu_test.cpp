// The menu as a viewer sees it: a remote walks through it, and the decoded picture shows the menu and what it changes.
#include "../support/cameraProcess.h"
#include "support/place.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>
#include <memory>

namespace
{
using namespace std::chrono_literals;

constexpr int WIDTH = 160, HEIGHT = 90;
constexpr int MENU_WIDTH = WIDTH / 5, MENU_HEIGHT = HEIGHT / 3; // the upper left corner is the menu's

/// Mean luma of a decoded picture, inside the menu's corner and outside.
struct tagLUMA_S {
    double dCorner = 0, dRest = 0;
};

/// Watches the sub stream as any player would, over RTSP.
class Viewer
{
public:
    explicit Viewer(int s32Port) : m_player(popen(command(s32Port).c_str(), "r"), pclose) {}

    /// The first picture that is as expected; the last one seen when none comes in time.
    tagLUMA_S await(const std::function<bool(const tagLUMA_S &)> &isExpected)
    {
        const auto deadline = std::chrono::steady_clock::now() + 20s;
        tagLUMA_S stLuma;
        do {
            if (std::fread(m_picture.data(), m_picture.size(), 1, m_player.get()) != 1) {
                ADD_FAILURE() << "the stream has ended";
                break;
            }
            stLuma = measure();
        } while (!isExpected(stLuma) && std::chrono::steady_clock::now() < deadline);
        EXPECT_TRUE(isExpected(stLuma)) << "corner " << stLuma.dCorner << ", rest " << stLuma.dRest;
        return stLuma;
    }

private:
    static std::string command(int s32Port)
    {
        return "exec ffmpeg -nostdin -v fatal -rtsp_transport tcp -timeout 10000000 -i rtsp://127.0.0.1:" +
               std::to_string(s32Port) + "/closeup_sub -an -vf scale=" + std::to_string(WIDTH) + ":" +
               std::to_string(HEIGHT) + " -pix_fmt gray -f rawvideo -";
    }
    tagLUMA_S measure() const
    {
        constexpr int CORNER = MENU_WIDTH * MENU_HEIGHT;
        double dCorner = 0, dAll = 0;
        for (int y = 0; y < HEIGHT; ++y)
            for (int x = 0; x < WIDTH; ++x) {
                const double d = m_picture[static_cast<std::size_t>(y * WIDTH + x)];
                dAll += d;
                if (x < MENU_WIDTH && y < MENU_HEIGHT) dCorner += d;
            }
        return {dCorner / CORNER, (dAll - dCorner) / (WIDTH * HEIGHT - CORNER)};
    }

    std::unique_ptr<FILE, int (*)(FILE *)> m_player;
    std::array<unsigned char, std::size_t{WIDTH} * HEIGHT> m_picture;
};

TEST(MenuInPicture, ARemoteMakesThePictureBrighter)
{
    CameraProcess stCamera;
    const auto press = [&](const std::string &strKeys) {
        const std::string strRemote = place::source("scripts/remote") + " --root '" + stCamera.path("") + "' big ";
        EXPECT_EQ(std::system((strRemote + strKeys).c_str()), 0);
    };
    Viewer viewer(stCamera.port(554));
    const tagLUMA_S stPlain = viewer.await([](const tagLUMA_S &st) { return st.dRest > 0; });

    press("menu enter down"); // Image, Brightness
    const auto isOpen = [&](const tagLUMA_S &st) { return st.dCorner < stPlain.dCorner - 8; };
    const tagLUMA_S stOpen = viewer.await(isOpen);
    EXPECT_NEAR(stOpen.dRest, stPlain.dRest, 5);

    press("right right right right");
    const tagLUMA_S stBright = viewer.await([&](const tagLUMA_S &st) { return st.dRest > stPlain.dRest + 20; });
    EXPECT_LT(stBright.dCorner, stPlain.dCorner + 5); // what lies over the picture keeps its own brightness

    press("menu");
    viewer.await([&](const tagLUMA_S &st) { return st.dCorner > stPlain.dCorner + 15; });
}
} // namespace
