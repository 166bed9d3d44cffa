// What the encoders make is what a decoder shows.
#include "videoEncoder.h"

#include "decoder.h"
#include "mediaTest.h"
#include "support/picture.h"

#include <cmath>
#include <span>

using media::FrameRate;
using media::VideoEncoder;

namespace
{
MPP_VENC_PARAM_S paramOf(MPP_VENC_FORMAT_E enType, BU_U32 u32Width = 160, BU_U32 u32Height = 90)
{
    MPP_VENC_PARAM_S st = smallVideo(enType);
    st.u32Width = u32Width, st.u32Height = u32Height, st.u32FrmRate = 30, st.u32BitRate = 500, st.u32GOP = 0;
    return st;
}

struct TestPicture : Picture {
    using Picture::Picture;
    SCENE_FRAME_S draw(int s32Number)
    {
        const SCENE_FRAME_S st = frame();
        for (int i = 0, w = st.s32Width, x = 0, y = 0; y < st.s32Height * 3 / 2; x = ++i % w, y = i / w)
            st.pu8Y[i] = BU_U8(y < st.s32Height ? 40 + (x + y + 2 * s32Number) % 128 : 90 + x / (w / 2) * 70);
        return st;
    }
    /// Mean difference of the luma. @param bFull  the decoded picture has the full range
    double error(const tagDECODED_S &st, bool bFull)
    {
        double d = 0;
        for (std::size_t i = 0; i < st.vecY.size(); ++i)
            d += std::abs(st.vecY[i] - (bFull ? (frame().pu8Y[i] - 16) * 255 / 219 : frame().pu8Y[i]));
        return d / static_cast<double>(st.vecY.size());
    }
};

TEST(VideoEncoders, EachPictureIsAPacketThatDecodes)
{
    for (const MPP_VENC_PARAM_S &stParam : {paramOf(MPP_VENC_FORMAT_E_H264), paramOf(MPP_VENC_FORMAT_E_H264, 322, 182),
                                            paramOf(MPP_VENC_FORMAT_E_H265), paramOf(MPP_VENC_FORMAT_E_MJPEG)}) {
        SCOPED_TRACE(stParam.enType);
        const bool bJpeg = stParam.enType == MPP_VENC_FORMAT_E_MJPEG;
        const auto pstEncoder = VideoEncoder::open(stParam, FrameRate{30, 1});
        ASSERT_TRUE(pstEncoder);
        auto pstDecoder = std::make_unique<Decoder>(media::streamType(stParam.enType));
        TestPicture picture(static_cast<int>(stParam.u32Width), static_cast<int>(stParam.u32Height));
        for (int i = 0; i < 12; ++i) {
            const BU_U64 u64Time = 1'000'000'000 + static_cast<BU_U64>(i) * 33'333;
            const auto pst = pstEncoder->encode(picture.draw(i), u64Time, i % 8 == 0);
            ASSERT_TRUE(pst) << i;
            EXPECT_EQ(pst->u64Timestamp, u64Time);
            EXPECT_EQ(pst->s32EncodeType, media::streamType(stParam.enType));
            EXPECT_EQ(pst->bKeyFrame != 0, bJpeg || i % 8 == 0) << i;
            if (i == 8) pstDecoder = std::make_unique<Decoder>(pst->s32EncodeType); // a viewer who starts here
            const auto st = pstDecoder->decode({pst->pu8Data, pst->pu8Data + pst->u32Length});
            EXPECT_EQ(std::pair(st.s32Width, st.s32Height), std::pair(picture.width(), picture.height()));
            EXPECT_LT(picture.error(st, bJpeg), 8) << i;
        }
    }
}

TEST(EncoderProfiles, AreInTheStream)
{
    constexpr BU_U8 PROFILES[] = {66, 77, 100};
    for (BU_U32 i = 0; i < 3; ++i) {
        MPP_VENC_PARAM_S stParam = paramOf(MPP_VENC_FORMAT_E_H264);
        stParam.u32Profile = i;
        const auto pst = VideoEncoder::open(stParam, FrameRate{30, 1})->encode(TestPicture(160, 90).draw(0), 0, true);
        const std::span packet(pst->pu8Data, pst->u32Length);
        constexpr BU_U8 SPS[] = {0, 0, 0, 1, 0x67};
        const auto found = std::ranges::search(packet, SPS);
        ASSERT_FALSE(found.empty());
        EXPECT_EQ(*found.end(), PROFILES[i]);
    }
}

TEST(EncoderChanges, WhatNeedsANewEncoder)
{
    using P = MPP_VENC_PARAM_S;
    const std::tuple<BU_U32 P::*, BU_U32, bool, bool> rows[] = {
        // which codec changes it while it runs
        {&P::u32GOP, 10, true, true},       {&P::u32BitRate, 100, true, false}, {&P::u32Width, 320, false, false},
        {&P::u32FrmRate, 15, false, false}, {&P::u32Profile, 2, false, false},  {&P::u32QpMaxP, 40, false, false},
    };
    for (const auto enType : {MPP_VENC_FORMAT_E_H264, MPP_VENC_FORMAT_E_H265})
        for (const auto &[pu32Field, u32Value, bH264, bH265] : rows) {
            MPP_VENC_PARAM_S stParam = paramOf(enType);
            const auto pstEncoder = VideoEncoder::open(stParam, FrameRate{30, 1});
            stParam.*pu32Field = u32Value;
            EXPECT_EQ(pstEncoder->change(stParam), enType == MPP_VENC_FORMAT_E_H264 ? bH264 : bH265) << u32Value;
        }
}

TEST(EncoderChanges, BitRateFollowsWhileItRuns)
{
    MPP_VENC_PARAM_S stParam = paramOf(MPP_VENC_FORMAT_E_H264, 320, 180);
    stParam.u32BitRate = 2000;
    const auto pstEncoder = VideoEncoder::open(stParam, FrameRate{30, 1});
    TestPicture picture(320, 180);
    int s32Number = 0;
    const auto second = [&] {
        BU_U32 u32Bytes = 0;
        for (int i = 0; i < 30; ++i, ++s32Number) {
            const auto u64Time = static_cast<BU_U64>(s32Number) * 33'333;
            u32Bytes += pstEncoder->encode(picture.draw(s32Number * s32Number), u64Time, s32Number == 0)->u32Length;
        }
        return u32Bytes * 8 / 1000;
    };
    second();
    const BU_U32 u32Before = second();
    stParam.u32BitRate = 200;
    ASSERT_TRUE(pstEncoder->change(stParam));
    second();
    EXPECT_LT(second(), u32Before / 2);
}

TEST(EncoderParameters, Refused)
{
    using P = MPP_VENC_PARAM_S;
    // clang-format off
    const std::tuple<BU_U32 P::*, BU_U32, BU_U32> cases[] = { // what is just taken, and what is not
        {&P::u32Width, 64, 62}, {&P::u32Width, 162, 161}, {&P::u32Width, 4096, 4098}, {&P::u32Height, 64, 62},
        {&P::u32Height, 2304, 2306}, {&P::u32Height, 92, 91}, {&P::u32FrmRate, 1, 0}, {&P::u32FrmRate, 60, 61}, {&P::u32BitRate, 16, 15},
        {&P::u32GOP, 3600, 3601}, {&P::u32Profile, 2, 3}, {&P::u32QpMinI, 51, 52}, {&P::u32BitRate, 16, UINT32_MAX}};
    // clang-format on
    for (const auto &[pu32Field, u32Taken, u32Refused] : cases) {
        MPP_VENC_PARAM_S stParam = paramOf(MPP_VENC_FORMAT_E_H264);
        for (const auto &[u32Value, bTaken] : {std::pair(u32Taken, true), {u32Refused, false}}) {
            stParam.*pu32Field = u32Value;
            EXPECT_EQ(VideoEncoder::open(stParam, FrameRate{30, 1}) != nullptr, bTaken) << u32Value;
        }
    }
    EXPECT_FALSE(VideoEncoder::open(paramOf(static_cast<MPP_VENC_FORMAT_E>(3)), FrameRate{30, 1}));
}
} // namespace
