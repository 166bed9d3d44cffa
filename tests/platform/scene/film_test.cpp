// A video file as the scene. The file is raw and made by hand: pictures of one brightness each, 25 a second.
#include "support/hex.h"
#include "support/picture.h"

#include "support/platformTest.h"

#include <fstream>

namespace
{
struct Film : PlatformTest {
    std::string file(const std::string &strName, const std::string &strContent)
    {
        const std::string strPath = root() + "/" + strName;
        std::ofstream(strPath, std::ios::binary) << strContent;
        return strPath;
    }
    /// The right half of each picture is 20 brighter.
    static std::string video(const std::vector<int> &vecLuma)
    {
        std::string str = "YUV4MPEG2 W64 H36 F25:1 Ip A1:1 C420jpeg\n";
        for (const int s32Luma : vecLuma) {
            str += "FRAME\n";
            for (int y = 0; y < 36; ++y)
                str += std::string(32, static_cast<char>(s32Luma)) + std::string(32, static_cast<char>(s32Luma + 20));
            str += std::string(2 * 32 * 18, static_cast<char>(128));
        }
        return str;
    }
    static int middleOf(SCENE_S *pst, BU_S64 s64Us, const SCENE_VIEW_S &stView = {.fPan = -20})
    {
        Picture picture(64, 36);
        EXPECT_EQ(SCENE_RenderCloseUp(pst, stView, s64Us, picture.frame()), 0);
        return picture.y(32, 18);
    }
};

TEST_F(Film, FollowsTheTimeAndLoops)
{
    // H.264 of 16x16, its pictures without times
    const Bytes untimed =
        bytes("00 00 00 01 67 64 10 0a ac bb d0 80 00 00 03 00 80 00 00 19 02 00 00 01 68 ee 01 0c b2 2c 00 00 01 65 "
              "88 84 3a fe f7 81 bf 32 cb 1f e6 61 00 00 01 65 88 82 0e bf fe f7 81 bf 32 ca a5 89 60 00 00 01 65 88 "
              "84 3a fe f7 81 bf 32 c7 e4 5f 00 00 01 65 88 82 0e bf fe f7 81 bf 32 c6 46 68");
    for (const std::string &strPath :
         {file("film.y4m", video({50, 80, 110, 140})), file("film.h264", {untimed.begin(), untimed.end()})}) {
        const Scene scene(SCENE_Open(strPath.c_str()));
        // forward, passing one over; around, far ahead, back
        // clang-format off
        for (const auto &[s64Ms, s32Luma] : {std::pair<BU_S64, int>{0, 50}, {39, 50}, {40, 80}, {60, 80}, {130, 140},
             {159, 140}, {160, 50}, {205, 80}, {1680, 110}, {80, 110}, {0, 50}})
            // clang-format on
            EXPECT_NEAR(middleOf(scene.get(), s64Ms * 1000), s32Luma, 1) << s64Ms << " ms";
    }
}

TEST_F(Film, HasNoMoreThan4096Pixels)
{
    for (const auto &[w, h] : {std::pair{4096, 16}, {4097, 16}, {16, 4096}, {16, 4098}}) {
        std::string str = "YUV4MPEG2 W" + std::to_string(w) + " H" + std::to_string(h) + " F25:1\nFRAME\n";
        for (int i = 0; i < w * h; ++i) str += (i % w + i / w) % 2 ? '\x50' : '\x20'; // half the size makes it grey
        const Scene scene(SCENE_Open(file("large.y4m", str + std::string(str.size(), '\x7f')).c_str()));
        Picture picture(64, 64);
        SCENE_RenderCloseUp(scene.get(), {.fMagnification = 4}, 0, picture.frame());
        EXPECT_EQ(picture.steps(1, 0) > 1000, w + h == 4096 + 16) << w << 'x' << h;
    }
}

TEST_F(Film, IsMappedOverItsPartOfTheSurroundings)
{
    const Scene scene(SCENE_Open(file("film.y4m", video({50})).c_str()));
    const std::pair<SCENE_VIEW_S, int> rows[] = {{{.fPan = -10, .fMagnification = 4}, 50},
                                                 {{.fPan = 10, .fMagnification = 4}, 70},
                                                 {{.fPan = 170, .fMagnification = 2}, 70}, // beyond its edge: the edge
                                                 {{.fPan = -170, .fTilt = 80}, 50}};
    for (const auto &[stView, s32Luma] : rows) EXPECT_NEAR(middleOf(scene.get(), 0, stView), s32Luma, 1) << stView.fPan;
}

TEST_F(Film, FaultyOnesAreReplacedBySynthetic)
{
    const Scene synthetic(SCENE_Open("synthetic"));
    const int s32Expected = middleOf(synthetic.get(), 0);
    const std::string strWhole = video({50, 80});
    // clang-format off
    for (const std::string &str :
         {root() + "/none.mp4", root(), file("text.mp4", "not a video\n"), file("empty.mp4", ""),
          file("head.y4m", strWhole.substr(0, 44)), std::string("/dev/video-none")})
        // clang-format on
        EXPECT_EQ(middleOf(Scene(SCENE_Open(str.c_str())).get(), 0), s32Expected) << str;
    // Cut off in its second picture: the first goes on.
    const Scene torn(SCENE_Open(file("torn.y4m", strWhole.substr(0, strWhole.size() - 500)).c_str()));
    for (const BU_S64 s64Us : {0, 40'000, 80'000, 1'000'000}) EXPECT_NEAR(middleOf(torn.get(), s64Us), 50, 1) << s64Us;
}

TEST_F(Film, SceneOfTheEnvironment)
{
    setenv("CAMERA_SCENE", file("film.y4m", video({90})).c_str(), 1);
    const Scene scene(SCENE_Open(nullptr));
    unsetenv("CAMERA_SCENE");
    EXPECT_NEAR(middleOf(scene.get(), 0), 90, 1);
}
} // namespace
