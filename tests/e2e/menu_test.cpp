// The menu as a viewer sees it: a remote walks through it, and the decoded picture shows the menu and what it changes.
#include "player.h"
#include "support/cameraProcess.h"
#include "support/place.h"

#include <gtest/gtest.h>

namespace
{
/// Mean luma inside the corner of the menu, the upper left one, and outside.
struct tagLUMA_S {
    double dCorner = 0, dRest = 0;
    explicit tagLUMA_S(const tagGRAY_S &st)
    {
        constexpr int WIDTH = tagGRAY_S::WIDTH, CORNER = WIDTH / 5 * (tagGRAY_S::HEIGHT / 3);
        for (int i = 0; i < static_cast<int>(st.points.size()); ++i)
            (i % WIDTH < WIDTH / 5 && i / WIDTH < tagGRAY_S::HEIGHT / 3 ? dCorner : dRest) +=
                st.points[static_cast<std::size_t>(i)];
        dCorner /= CORNER;
        dRest /= WIDTH * tagGRAY_S::HEIGHT - CORNER;
    }
};

TEST(MenuInPicture, ARemoteMakesThePictureBrighter)
{
    CameraProcess stCamera;
    GrayPlayer player("rtsp://127.0.0.1:" + std::to_string(stCamera.port(554)) + "/closeup_sub");
    const tagLUMA_S stPlain(player.next());
    const auto seenAfter = [&](const std::string &strKeys, auto isExpected) {
        const std::string strRemote = place::source("scripts/remote") + " --root '" + stCamera.path("") + "' big ";
        EXPECT_EQ(std::system((strRemote + strKeys).c_str()), 0);
        tagLUMA_S stSeen = stPlain;
        EXPECT_TRUE(player.sees([&](const tagGRAY_S &st) { return isExpected(stSeen = tagLUMA_S(st)); }, 500))
            << strKeys << ": corner " << stSeen.dCorner << ", rest " << stSeen.dRest;
        return stSeen;
    };
    const tagLUMA_S stOpen = seenAfter("menu enter down", // Image, Brightness
                                       [&](const tagLUMA_S &st) { return st.dCorner < stPlain.dCorner - 8; });
    EXPECT_NEAR(stOpen.dRest, stPlain.dRest, 5);
    const tagLUMA_S stBright =
        seenAfter("right right right right", [&](const tagLUMA_S &st) { return st.dRest > stPlain.dRest + 20; });
    EXPECT_LT(stBright.dCorner, stPlain.dCorner + 5); // what lies over the picture keeps its own brightness
    seenAfter("menu", [&](const tagLUMA_S &st) { return st.dCorner > stPlain.dCorner + 15; });
}
} // namespace
