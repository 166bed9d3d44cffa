// Raw frames, stills, images.
#include "decoder.h"
#include "mediaTest.h"
#include "util/thread.h"

#include <SDL2/SDL_rwops.h>

#include <future>
#include <numeric>
#include <thread>

namespace
{
constexpr MPP_YUV_PARAM_S PARAM{MPP_YUV_FORMAT_E_NV12, 128, 72, 60, MPP_MEM_TYPE_E_CV};
using Frames = MediaTest;

TEST_F(Frames, BothPipesAtTheirOwnSizeAndFormat)
{
    // clang-format off
    struct { BU_S32 s32Usage; MPP_YUV_PARAM_S stParam; BU_U32 u32Length; std::vector<BU_U64> times{}; std::promise<std::thread::id> enough{}; } aCases[] = {
        {MPP_PIPE_USAGE_E_TRACK_ALG_CLOSEUP, PARAM, 128 * 72 * 3 / 2},
        {MPP_PIPE_USAGE_E_TRACK_ALG_PANORAMA, {MPP_YUV_FORMAT_E_YUV, 160, 90, 30, MPP_MEM_TYPE_E_CV}, 160 * 90 * 2}};
    // clang-format on
    for (auto &st : aCases) {
        const auto take = [&st](MPP_FRAME_INFO_S *pst) {
            EXPECT_EQ((std::pair{pst->u32Length, pst->u32Width}), (std::pair{st.u32Length, st.stParam.u32Width}));
            EXPECT_EQ((*pst->ps32Index)++, static_cast<int>(st.times.size()));
            st.times.push_back(pst->u64Pts);
            if (st.times.size() == 4) st.enough.set_value(std::this_thread::get_id());
            return 0;
        };
        ASSERT_EQ(MPP_StartYuvStream(st.s32Usage, &st.stParam, take), 0);
    }
    EXPECT_NE(soon(aCases[0].enough), soon(aCases[1].enough)); // a thread each
    for (auto &st : aCases) {
        EXPECT_EQ(MPP_StopYuvStream(st.s32Usage, BU_TRUE), 0);
        EXPECT_TRUE(std::ranges::is_sorted(st.times, std::less_equal{}));
    }
}

TEST_F(Frames, StopWaitsForTheLastCall)
{
    std::promise<void> entered;
    std::atomic<bool> bReturned = false;
    const auto take = [&](MPP_FRAME_INFO_S *pst) {
        entered.set_value();
        bReturned = await([&] { return !std::atomic_ref(pst->bEnable); });
        return 0;
    };
    ASSERT_EQ(MPP_StartYuvStream(11, &PARAM, take), 0);
    EXPECT_EQ(MPP_StartYuvStream(11, &PARAM, [](auto) { return 0; }), -1); // runs already
    soon(entered);
    TestReader(1).read(); // a receiver at work holds up nobody
    EXPECT_EQ(MPP_StopYuvStream(11, BU_TRUE), 0);
    EXPECT_TRUE(bReturned);
    EXPECT_EQ(MPP_StopYuvStream(11, BU_TRUE), 0); // not running
}

TEST_F(Frames, AReceiverMayStopItself)
{
    std::promise<BU_S32> stopped;
    const auto take = [&](auto) { return stopped.set_value(MPP_StopYuvStream(12, BU_TRUE)), 0; };
    ASSERT_EQ(MPP_StartYuvStream(12, &PARAM, take), 0);
    EXPECT_EQ(soon(stopped), 0);
    UTIL_THREAD_WaitAsync();
}

TEST_F(Frames, Refused)
{
    const auto fn = [](MPP_FRAME_INFO_S *) { return 0; };
    for (const BU_S32 s32Usage : {-1, 1, 4, 10, 13, 15, 1000})
        EXPECT_EQ(MPP_StartYuvStream(s32Usage, &PARAM, fn), -1) << s32Usage;
    EXPECT_EQ(MPP_StopYuvStream(15, BU_FALSE), -1);
    EXPECT_EQ(MPP_StartYuvStream(11, nullptr, fn), -1);
    EXPECT_EQ(MPP_StartYuvStream(11, &PARAM, nullptr), -1);
    constexpr auto NV12 = MPP_YUV_FORMAT_E_NV12, NONE = static_cast<MPP_YUV_FORMAT_E>(2);
    for (const MPP_YUV_PARAM_S &st : {MPP_YUV_PARAM_S{NV12, 129, 72, 30, {}},
                                      {NV12, 128, 73, 30, {}},
                                      {NV12, 128, 0, 30, {}},
                                      {NV12, 128, 72, 0, {}},
                                      {NONE, 128, 72, 30, {}}})
        EXPECT_EQ(MPP_StartYuvStream(11, &st, fn), -1) << st.enType << ' ' << st.u32Width << 'x' << st.u32Height;
}

TEST_F(Frames, StillIsAJpegOfItsSize)
{
    std::vector<BU_U8> vec(1 << 20);
    for (const auto enUsage : {MPP_PIPE_USAGE_E_CLOSEUP_FULL, MPP_PIPE_USAGE_E_PANORAMA_CROP0}) {
        SDL_RWops *pstFile = SDL_RWFromMem(vec.data(), static_cast<int>(vec.size()));
        EXPECT_EQ(MPP_SnapImage(enUsage, 640, 360, 90, pstFile, 5000), 0);
        const auto size = static_cast<std::size_t>(SDL_RWtell(pstFile));
        SDL_RWclose(pstFile);
        const auto st = Decoder(STREAM_TYPE_MJPEG).decode({vec.data(), vec.data() + size});
        EXPECT_EQ(std::pair(st.s32Width, st.s32Height), std::pair(640, 360));
        EXPECT_GT(*std::ranges::max_element(st.vecY) - *std::ranges::min_element(st.vecY), 100); // a picture
    }
    constexpr auto FULL = MPP_PIPE_USAGE_E_CLOSEUP_FULL;
    // clang-format off
    for (const auto &[enUsage, u32Width, s32Room] : {std::tuple{FULL, 640U, 100}, {FULL, 641U, 1 << 20},
         {MPP_PIPE_USAGE_E_BUTT, 640U, 1 << 20}, {FULL, 640U, 0}}) {
        // clang-format on
        SDL_RWops *pst = s32Room ? SDL_RWFromMem(vec.data(), s32Room) : nullptr;
        EXPECT_EQ(MPP_SnapImage(enUsage, u32Width, 360, 90, pst, 5000), -1);
        if (pst) SDL_RWclose(pst);
    }
}

TEST(Images, Nv12BecomesPlanesAndScales)
{
    constexpr int W = 32, H = 20, STRIDE = 40;
    std::vector<BU_U8> vecNv12(W * H * 3 / 2), vecRgb(3 * STRIDE * H), vecSmall(3 * 16 * 10);
    for (std::size_t i = 0; i < vecNv12.size(); ++i) { // left red, right white
        const bool bLeft = i % W < W / 2;
        vecNv12[i] = i < W * H ? (bLeft ? 63 : 235) : !bLeft ? 128 : i % 2 ? 240 : 102;
    }
    const auto imageOf = [](std::vector<BU_U8> &vec, int w, int h, int s) {
        return ImgInfo{w, h, {s, s, s}, {vec.data(), vec.data() + s * h, vec.data() + 2 * s * h}};
    };
    MPP_FRAME_INFO_S stFrame{vecNv12.data(), W * H * 3 / 2, BU_TRUE, nullptr, 0, W, H};
    ImgInfo stRgb = imageOf(vecRgb, W, H, STRIDE), stSmall = imageOf(vecSmall, 16, 10, 16);
    ASSERT_EQ(MPP_ImageNv12ToRgbPlanar(&stFrame, &stRgb), 0);
    ASSERT_EQ(MPP_ImageRgbPlanarResize(&stRgb, &stSmall), 0);
    for (const ImgInfo *pst : {&stRgb, &stSmall})
        for (int i = 0; i < 3; ++i)
            for (const int y : {0, pst->iHgt - 1}) {
                EXPECT_NEAR(pst->iData[i][y * pst->iStrd[i] + 2], i == 0 ? 255 : 0, 3);
                EXPECT_NEAR(pst->iData[i][y * pst->iStrd[i] + pst->iWdt - 3], 255, 3);
            }
    stFrame.u32Width = 30;
    EXPECT_EQ(MPP_ImageNv12ToRgbPlanar(&stFrame, &stRgb), -1);
    stSmall.iData[2] = nullptr;
    EXPECT_EQ(MPP_ImageRgbPlanarResize(&stRgb, &stSmall), -1);
}

TEST(DeviceMemory, IsZeroAlignedAndFreedOnce)
{
    MPP_MMZ_MEM_S st{};
    EXPECT_EQ(MPP_MEM_FreeMem(&st), 0);
    ASSERT_EQ(MPP_MEM_AllocMem(1001, BU_TRUE, &st, MPP_MEM_TYPE_E_CV), 0);
    const auto *pu8 = static_cast<const BU_U8 *>(st.pvVirAddr);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(pu8) % 64, 0U);
    EXPECT_EQ(std::accumulate(pu8, pu8 + 1001, 0), 0);
    for (int i = 0; i < 2; ++i) EXPECT_EQ(MPP_MEM_FreeMem(&st), 0);
    EXPECT_EQ(MPP_MEM_FreeMem(nullptr), -1);
}
} // namespace
