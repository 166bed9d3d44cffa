// What a pipe renders for whom, driven step by step without its thread.
#include "pipe.h"

#include "camera/pip.h"
#include "mediaTest.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using media::FrameRate;
using media::PictureTaker;
using media::Pipe;
using media::Size;

namespace
{
constexpr FrameRate OUTPUT{60, 1};

struct Taker : PictureTaker {
    Taker(Size stSize, BU_S32 s32Rate) : m_stWish{stSize, *FrameRate::ofCode(s32Rate)} {}
    std::optional<Wish> wish(FrameRate) override { return m_bWants ? std::optional(m_stWish) : std::nullopt; }
    void take(const SCENE_FRAME_S &stFrame, BU_U64 u64TimeUs) override
    {
        EXPECT_EQ((Size{stFrame.s32Width, stFrame.s32Height}), m_stWish.stSize);
        m_times.push_back(static_cast<BU_S64>(u64TimeUs));
        m_luma.assign(stFrame.pu8Y, stFrame.pu8Y + stFrame.s32Width * stFrame.s32Height);
    }
    int at(int x, int y) const { return m_luma[static_cast<std::size_t>(y * m_stWish.stSize.s32Width + x)]; }
    /// How many pixels of a part differ from another picture.
    int differences(const Taker &other, int x0, int y0, int x1, int y1) const
    {
        int n = 0;
        for (int y = y0; y < y1; ++y)
            for (int x = x0; x < x1; ++x) n += at(x, y) != other.at(x, y);
        return n;
    }
    Wish m_stWish;
    bool m_bWants = true;
    std::vector<BU_S64> m_times;
    std::vector<BU_U8> m_luma; ///< of the last one
};

/// Renders what is due up to a frame of the output.
int runTo(Pipe &pipe, BU_S64 s64End)
{
    int s32Rendered = 0;
    for (BU_S64 s64Last = 599;; ++s32Rendered) {
        const auto s64Next = pipe.nextFrame(OUTPUT, s64Last);
        if (!s64Next || *s64Next > s64End) return s32Rendered;
        pipe.render(OUTPUT, *s64Next);
        s64Last = *s64Next;
    }
}

TEST(Pipe, RendersOnceForAllWhoAreDue)
{
    Pipe pipe(media::PIPE_PANORAMA);
    const auto pstMain = std::make_shared<Taker>(Size{320, 180}, 30),
               pstSub = std::make_shared<Taker>(Size{160, 90}, 15),
               pstOff = std::make_shared<Taker>(Size{640, 360}, 60);
    pstOff->m_bWants = false;
    for (const auto &pst : {pstMain, pstSub, pstOff}) pipe.add(pst);
    EXPECT_EQ(runTo(pipe, 611), 6);
    EXPECT_THAT(pstMain->m_times,
                testing::ElementsAre(10'000'000, 10'033'333, 10'066'666, 10'100'000, 10'133'333, 10'166'666));
    EXPECT_THAT(pstSub->m_times, testing::ElementsAre(10'000'000, 10'066'666, 10'133'333));
    EXPECT_THAT(pstOff->m_times, testing::IsEmpty());
    EXPECT_NEAR(pstMain->at(160, 90), pstSub->at(80, 45), 40); // the same place of the same scene
}

TEST(Pipe, NobodyWantsNothingAndOnceTakesTheVeryNext)
{
    Pipe pipe(media::PIPE_PANORAMA);
    const auto pst = std::make_shared<Taker>(Size{160, 90}, 1);
    EXPECT_FALSE(pipe.nextFrame(OUTPUT, 0));
    pipe.add(pst);
    EXPECT_EQ(pipe.nextFrame(OUTPUT, 600), 660);
    pst->m_bWants = false;
    EXPECT_FALSE(pipe.nextFrame(OUTPUT, 600));
    pst->m_bWants = pst->m_stWish.bOnce = true;
    EXPECT_EQ(pipe.nextFrame(OUTPUT, 600), 601);
    pipe.render(OUTPUT, 601);
    EXPECT_EQ(pst->m_times.size(), 1U);
    pipe.remove(pst.get());
    EXPECT_FALSE(pipe.nextFrame(OUTPUT, 602));
}

TEST_F(MediaTest, PictureInPictureLiesInItsCornerOfTheEncodersOnly)
{
    Pipe pipe(media::PIPE_CLOSE_UP), panorama(media::PIPE_PANORAMA);
    const auto pstPlain = std::make_shared<Taker>(Size{320, 180}, 60), pstEncoder = std::make_shared<Taker>(*pstPlain),
               pstPanorama = std::make_shared<Taker>(*pstPlain);
    pstEncoder->m_stWish.s32Target = 0;
    pipe.add(pstPlain);
    pipe.add(pstEncoder);
    panorama.add(pstPanorama);
    const auto show = [&](const MPP_PIP_CONFIG_S &stCfg) {
        ASSERT_EQ(SYS_API_SetPipConfig(&stCfg, BU_FALSE, BU_TRUE), 0);
        for (Pipe *pst : {&pipe, &panorama}) pst->render(OUTPUT, *pst->nextFrame(OUTPUT, 599));
    };
    show({0, 1, 0, BU_FALSE, MPP_PIP_POS_TOP_LEFT, MPP_PIP_SIZE_LARGE});
    EXPECT_EQ(pstEncoder->differences(*pstPlain, 0, 0, 320, 180), 0);
    show({0, 1, 0, BU_TRUE, MPP_PIP_POS_BOTTOM_RIGHT, MPP_PIP_SIZE_SMALL}); // 80 x 44, 8 from the edges
    const int s32Inside = pstEncoder->differences(*pstPlain, 232, 128, 312, 172);
    EXPECT_GT(s32Inside, 80 * 44 / 2);
    EXPECT_EQ(pstEncoder->differences(*pstPlain, 0, 0, 320, 180), s32Inside);
    show({1, 0, 0, BU_TRUE, MPP_PIP_POS_TOP_LEFT, MPP_PIP_SIZE_LARGE}); // the panorama with the close-up in it
    EXPECT_EQ(pstEncoder->differences(*pstPanorama, 170, 0, 320, 180), 0);
    EXPECT_GT(pstEncoder->differences(*pstPanorama, 8, 8, 168, 98), 160 * 90 / 2);
}
} // namespace
