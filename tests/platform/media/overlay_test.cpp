// Overlays: hand-worked pixels, and which outputs they reach.
#include <SDL2/SDL_surface.h>

#include "decoder.h"
#include "internal.h"
#include "media/overlay.h"
#include "mediaTest.h"
#include "support/picture.h"

#include <cstring>

namespace
{
constexpr int W = 64, H = 64;
Picture blended(BU_S32 s32Target, int s32Width = W, int s32Height = H)
{
    Picture picture(s32Width, s32Height, 128);
    media::overlay::blend(s32Target, picture.frame());
    return picture;
}
constexpr std::array<int, 3> GREY{128, 128, 128}, RED{63, 102, 240}, GREEN{173, 42, 26};

/// A canvas of that place and format with a surface, shown on some targets.
struct Overlay {
    explicit Overlay(BU_S32 s32Targets, SDL_Rect stRect = {0, 0, W, H}, OSD_FORMAT_E enFormat = OSD_FORMAT_E_ARGB8888)
    {
        m_stCanvas.stMenuRect = stRect, m_stCanvas.stVideoRect = {0, 0, W, H};
        m_stCanvas.fgAlpha = 255, m_stCanvas.enFormat = enFormat;
        m_pstSurface = OSD_COMM_CreateSurface(&m_stCanvas);
        EXPECT_TRUE(m_pstSurface);
        EXPECT_EQ(MPP_OSD_OneToManyCreate(&m_stManager, s32Targets), 0);
        EXPECT_EQ(MPP_OSD_OneToManyInitCanvas(&m_stManager, &m_stCanvas, nullptr), 0);
    }
    ~Overlay()
    {
        MPP_OSD_OneToManyDestroy(&m_stManager);
        OSD_COMM_DestroySurface(&m_stCanvas, &m_pstSurface);
    }
    Overlay(Overlay &&) = delete;
    void box(SDL_Rect stRect, BU_S32 s32Line, BU_U32 u32Argb)
    {
        EXPECT_EQ(OSD_COMM_DrawRect(m_pstSurface, stRect, s32Line, u32Argb), 0);
    }
    void show(BU_BOOL bShow = BU_TRUE)
    {
        EXPECT_EQ(MPP_OSD_OneToManyUpdateAllTarget(&m_stManager, bShow, &m_stCanvas), 0);
    }
    OSD_ONE_TO_MANY_S m_stManager{};
    OSD_MENU_CANVAS_S m_stCanvas{};
    SDL_Surface *m_pstSurface = nullptr;
};

TEST(Overlays, BoxIsBlendedWhereItIsDrawn)
{
    for (const auto enFormat : {OSD_FORMAT_E_ARGB1555, OSD_FORMAT_E_ARGB4444, OSD_FORMAT_E_ARGB8888}) {
        Overlay overlay(3, {0, 0, W, H}, enFormat);
        overlay.box({8, 16, 32, 24}, 4, 0xFFFF0000);
        EXPECT_EQ(blended(0).at(9, 17), GREY); // drawn, not shown yet
        overlay.show();
        Picture target = blended(0);
        for (const auto &[x, y] : {std::pair(8, 16), {39, 39}, {10, 30}, {37, 30}, {20, 18}, {20, 37}})
            EXPECT_EQ(target.at(x, y), RED) << x << ' ' << y;
        for (const auto &[x, y] : {std::pair(7, 16), {8, 15}, {40, 39}, {20, 30}, {12, 20}, {35, 35}})
            EXPECT_EQ(target.at(x, y)[0], 128) << x << ' ' << y;
        std::memset(overlay.m_stCanvas.stMenuMem.pvVirAddr, 0, overlay.m_stCanvas.stMenuMem.u32MemLen);
        EXPECT_EQ(blended(0).at(9, 17), RED); // until it is shown again
        overlay.show();
        EXPECT_EQ(blended(0).at(9, 17), GREY);
    }
}

TEST(Overlays, HalfTransparentAndHidden)
{
    Overlay overlay(1);
    overlay.box({0, 0, 16, 16}, 8, 0x80FFFFFF);
    overlay.show();
    EXPECT_NEAR(blended(0).at(4, 4)[0], 128 + (235 - 128) * 128 / 255, 1);
    EXPECT_FALSE(media::overlay::isShown(1)); // the sub encoder was not chosen
    EXPECT_EQ(blended(1).at(4, 4), GREY);
    overlay.show(BU_FALSE);
    EXPECT_FALSE(media::overlay::isShown(0));
    EXPECT_EQ(blended(0).at(4, 4), GREY);
}

TEST(Overlays, ScaleToEachOutputWithoutFringesAndAreCutAtTheEdge)
{
    Overlay overlay(3, {32, 32, 64, 64}); // half of it beyond the picture of 64
    overlay.box({0, 0, 64, 64}, 16, 0xFF00FF00);
    overlay.show();
    Picture half = blended(1, 32, 32), same = blended(0);
    EXPECT_THAT((std::array{same.at(33, 63), same.at(63, 33), half.at(17, 17), half.at(17, 31)}), testing::Each(GREEN));
    EXPECT_THAT((std::array{same.at(63, 63), half.at(15, 15)}), testing::Each(GREY));
}

TEST(Overlays, LaterOnesLieOnTopAndRefusals)
{
    Overlay overlay(1);
    overlay.box({0, 0, 16, 16}, 8, 0xFFFF0000);
    overlay.show();
    OSD_ONE_TO_MANY_S stSecond{};
    ASSERT_EQ(MPP_OSD_OneToManyCreate(&stSecond, 1), 0);
    overlay.box({0, 0, 16, 16}, 8, 0xFF00FF00);
    MPP_OSD_OneToManyUpdateAllTarget(&stSecond, BU_TRUE, &overlay.m_stCanvas);
    EXPECT_EQ(blended(0).at(4, 4), GREEN);
    MPP_OSD_OneToManyDestroy(&stSecond);
    EXPECT_EQ(blended(0).at(4, 4), RED);

    EXPECT_EQ(MPP_OSD_OneToManyDestroy(&stSecond), 0); // twice
    EXPECT_EQ(MPP_OSD_OneToManyUpdateAllTarget(&stSecond, BU_TRUE, &overlay.m_stCanvas), -1);
    for (const BU_S32 s32Targets : {4, 0}) EXPECT_EQ(MPP_OSD_OneToManyCreate(&stSecond, s32Targets), -1);
    overlay.box({-5, -5, 1000, 1000}, 500, 0); // cut
    EXPECT_EQ(OSD_COMM_DrawRect(overlay.m_pstSurface, {0, 0, -1, 4}, 1, 0), -1);
    EXPECT_EQ(OSD_COMM_DrawRect(nullptr, {0, 0, 1, 4}, 1, 0), -1);
    OSD_MENU_CANVAS_S stEmpty{};
    EXPECT_EQ(OSD_COMM_CreateSurface(&stEmpty), nullptr);
    EXPECT_EQ(MPP_OSD_OneToManyInitCanvas(&overlay.m_stManager, &stEmpty, nullptr), -1);
}

/// The main encoder shows it, raw frames of the same pipe do not.
TEST_F(MediaTest, OverlayReachesTheEncoderAndNotTheRawFrames)
{
    Overlay overlay(1);
    overlay.box({0, 0, W, H}, 32, 0xFF00FF00);
    overlay.show();
    std::atomic<int> s32Green = 0, s32Raw = 0;
    const MPP_YUV_PARAM_S stParam{MPP_YUV_FORMAT_E_NV12, 160, 90, 60, MPP_MEM_TYPE_E_CV};
    MPP_StartYuvStream(MPP_PIPE_USAGE_E_CLOSEUP_FULL, &stParam, [&](MPP_FRAME_INFO_S *pst) {
        const auto *pu8 = static_cast<const BU_U8 *>(pst->virt_addr) + 160 * 90;
        s32Green += std::all_of(pu8, pu8 + 160 * 45, [](BU_U8 u8) { return u8 < 60; });
        ++s32Raw;
        return 0;
    });
    TestReader main(1), sub(2);
    Decoder ofMain(STREAM_TYPE_H264), ofSub(STREAM_TYPE_H264);
    for (int i = 0; i < 5; ++i) {
        const auto stMain = ofMain.decode(main.read().vec), stSub = ofSub.decode(sub.read().vec);
        EXPECT_NEAR(stMain.vecV[80 * 22 + 40], 26, 12);
        EXPECT_GT(*std::ranges::max_element(stSub.vecV), 80);
    }
    EXPECT_TRUE(await([&] { return s32Raw >= 2; }));
    MPP_StopYuvStream(MPP_PIPE_USAGE_E_CLOSEUP_FULL, BU_TRUE);
    EXPECT_EQ(s32Green, 0);
}
} // namespace
