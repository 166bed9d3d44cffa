// The running pipeline: from the settings of an encoder to what a reader gets.
#include "camera/restore.h"
#include "decoder.h"
#include "mediaTest.h"

#include "camera/startup.h"
#include "camera/video.h"
#include "util/thread.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <future>
#include <string>

namespace
{
constexpr BU_S32 CACHE = 2, CHN = 1; // close-up sub

struct Encoder : MediaTest {
    STREAM_CACHE_S *m_pstCache = STREAM_getStreamCacheById(CACHE);
    BU_S32 reconfigure(const MPP_VENC_PARAM_S &st, BU_BOOL bSaveCfg = BU_FALSE)
    {
        STREAM_stopListenStreamSource_VENC(CHN);
        MPP_DisableVenc(MPP_GetVencSource(CHN), CHN, bSaveCfg);
        const BU_S32 s32Ret = MPP_EnableVenc(MPP_PIPE_USAGE_E_CLOSEUP_FULL, CHN, &st, nullptr, bSaveCfg);
        STREAM_startListenStreamSource_VENC(CHN);
        return s32Ret;
    }
    static void change(BU_U32 MPP_VENC_PARAM_S::*pu32Field, BU_U32 u32Value) // while it runs
    {
        MPP_VENC_PARAM_S st = smallVideo();
        st.*pu32Field = u32Value;
        EXPECT_EQ(MPP_EnableVenc(MPP_PIPE_USAGE_E_CLOSEUP_FULL, CHN, &st, nullptr, BU_FALSE), 0);
    }
    /// What a handler hears first after a change, but for pictures of that width: their opening may be told late.
    template <class F> STREAM_PACKET_METADATA_S metadataAfter(F fnChange, BU_S32 s32Width = 0)
    {
        std::promise<STREAM_PACKET_METADATA_S> told;
        STREAM_registerCacheMetadataHandler(m_pstCache, "test", [&] {
            const auto st = STREAM_getStreamCacheMetadata(m_pstCache);
            if (st.s32Width == s32Width) return 0;
            told.set_value(st);
            return STREAM_unregisterCacheMetadataHandler(m_pstCache, "test");
        });
        fnChange();
        return soon(told);
    }
};

TEST_F(Encoder, StreamHasItsCodecSizeAndRate)
{
    for (const auto &[enType, s32StreamType] : {std::pair(MPP_VENC_FORMAT_E_H264, STREAM_TYPE_H264),
                                                {MPP_VENC_FORMAT_E_H265, STREAM_TYPE_H265},
                                                {MPP_VENC_FORMAT_E_MJPEG, STREAM_TYPE_MJPEG}}) {
        ASSERT_EQ(reconfigure(smallVideo(enType)), 0);
        const STREAM_PACKET_METADATA_S stExpected{s32StreamType, 160, 90, 60, 1, 0, 0, 0};
        EXPECT_EQ(STREAM_getStreamCacheMetadata(m_pstCache), stExpected);
        TestReader reader(CACHE);
        Decoder decoder(s32StreamType);
        auto stPacket = reader.read();
        EXPECT_TRUE(stPacket.bKeyFrame);
        EXPECT_EQ(decoder.decode(stPacket.vec).s32Width, 160);
        for (int i = 0; i < 4; ++i) {
            const BU_U64 u64Last = std::exchange(stPacket, reader.read()).u64Timestamp;
            const auto dFrames = static_cast<double>(stPacket.u64Timestamp - u64Last) * 60 / 1e6;
            EXPECT_NEAR(dFrames, std::round(dFrames), 0.001); // on the output's grid
        }
    }
}

TEST_F(Encoder, KeyFramesOnRequestAreLimited)
{
    TestReader reader(CACHE);
    reader.read(); // a key frame of the start
    BU_U64 u64First = 0, u64Last = 0;
    std::vector<BU_U64> keys;
    for (; u64Last <= u64First + 1'200'000 && !HasFailure(); u64First = u64First ? u64First : u64Last) {
        EXPECT_EQ(reader->requestKeyFrame(), 0);
        const auto st = reader.read();
        u64Last = st.u64Timestamp;
        if (st.bKeyFrame) keys.push_back(u64Last);
    }
    ASSERT_EQ(keys.size(), 3U); // at once, and twice in a second
    EXPECT_LE(keys[0] - u64First, 50'000U);
    EXPECT_GE(std::min(keys[1] - keys[0], keys[2] - keys[1]), 500'000U);
}

TEST_F(Encoder, KeyFrameOnRequestDoesNotWaitForASlowStream)
{
    change(&MPP_VENC_PARAM_S::u32FrmRate, 2);
    TestReader reader(CACHE);
    auto stBefore = reader.read();
    while (stBefore.bKeyFrame && !HasFailure()) stBefore = reader.read(); // the start may have asked for more than one
    EXPECT_EQ(reader->requestKeyFrame(), 0);
    const auto stKey = reader.read();
    EXPECT_TRUE(stKey.bKeyFrame);
    EXPECT_LT(stKey.u64Timestamp - stBefore.u64Timestamp, 250'000U) << "the stream's own turn is after 500 ms";
}

TEST_F(Encoder, GroupOfPicturesChangesWhileItRuns)
{
    TestReader reader(CACHE);
    reader.read();
    change(&MPP_VENC_PARAM_S::u32GOP, 3);
    std::string strKeys;
    while (strKeys.size() < 13 && !HasFailure()) strKeys += reader.read().bKeyFrame ? 'K' : '.';
    EXPECT_THAT(strKeys, testing::HasSubstr("K..K..K"));
}

TEST_F(Encoder, SizeChangesWhileSomebodyReads)
{
    TestReader reader(CACHE);
    Decoder decoder(STREAM_TYPE_H264);
    EXPECT_EQ(decoder.decode(reader.read().vec).s32Width, 160);
    MPP_VENC_PARAM_S st = smallVideo();
    st.u32Width = 320, st.u32Height = 180;
    EXPECT_EQ(metadataAfter([&] { ASSERT_EQ(reconfigure(st), 0); }, 160).s32Width, 320);
    TestReader::Packet stPacket;
    int s32Width = 0;
    for (int i = 0; i < 300 && s32Width != 320; ++i) s32Width = decoder.decode((stPacket = reader.read()).vec).s32Width;
    EXPECT_EQ(s32Width, 320);
    EXPECT_TRUE(stPacket.bKeyFrame); // the first of the new size
}

TEST_F(Encoder, OutputRateLimitsAndIsTold)
{
    const auto change = [] { ASSERT_EQ(SYSTEM_API_SetHdmiCfg("Format-1080P", "Fps25", 0, BU_FALSE), 0); };
    EXPECT_EQ(metadataAfter(change).s32FrameRateNum, 25);
    MPP_VENC_PARAM_S st{};
    EXPECT_EQ(MPP_GetVencChnStatus(CHN, st, BU_FALSE), 1);
    EXPECT_EQ((std::array{int(st.u32FrmRate), int(st.u32RunFrmRate), int(st.s32SrcFps)}), (std::array{60, 25, 25}));
    TestReader reader(CACHE);
    const BU_U64 u64First = reader.read().u64Timestamp;
    for (int i = 0; i < 3; ++i) EXPECT_EQ((reader.read().u64Timestamp - u64First) % 40'000, 0U);
}

TEST_F(Encoder, RefusedParametersLeaveItRunning)
{
    const MPP_VENC_PARAM_S stGood = smallVideo();
    MPP_VENC_PARAM_S stBad = stGood, stNow{};
    stBad.u32Width = 10'000;
    TestReader reader(CACHE);
    reader.read();
    const std::tuple<BU_S32, BU_S32, const MPP_VENC_PARAM_S *> rows[] = {
        {0, CHN, &stBad}, {MPP_PIPE_USAGE_E_BUTT, CHN, &stGood}, {0, MPP_VENC_CHN_MAX, &stGood}, {0, CHN, nullptr}};
    for (const auto &[s32Usage, s32Chn, pst] : rows)
        EXPECT_EQ(MPP_EnableVenc(s32Usage, s32Chn, pst, nullptr, BU_TRUE), -1);
    EXPECT_EQ(MPP_GetVencChnStatus(CHN, stNow, BU_FALSE), 1);
    EXPECT_EQ(stNow.u32Width, 160U);
    reader.read();
}

TEST_F(Encoder, StoredParametersComeBack)
{
    MPP_VENC_PARAM_S stStored = smallVideo(MPP_VENC_FORMAT_E_H265), st{};
    stStored.u32BitRate = 321, stStored.enRcMode = MPP_VENC_RC_MODE_VBR;
    stStored.u32QpMinI = 10, stStored.u32QpMaxI = 40, stStored.u32QpMinP = 11, stStored.u32QpMaxP = 41;
    stStored.u32Profile = 1, stStored.u32Quality = 70, stStored.u32BitrateProfile = 5;
    reconfigure(stStored, BU_TRUE);
    reconfigure(smallVideo());
    for (const auto &[bStored, stExpected] : {std::pair(BU_TRUE, stStored), {BU_FALSE, smallVideo()}}) {
        MPP_GetVencChnStatus(CHN, st, bStored);
        st.u32RunFrmRate = 0, st.s32SrcFps = stExpected.s32SrcFps; // what it makes of the output's
        EXPECT_EQ(st, stExpected);
    }
    const auto restart = [&] { return MPP_InitStream(), MPP_GetVencChnStatus(CHN, st, BU_FALSE); };
    EXPECT_EQ(restart(), 1);
    EXPECT_EQ((std::pair{st.enType, st.enRcMode}), (std::pair{MPP_VENC_FORMAT_E_H265, MPP_VENC_RC_MODE_VBR}));
    CFG_STORE_SetInt("Venc/1/Width", 77); // what no encoder takes: the default
    EXPECT_EQ(restart(), 1);
    EXPECT_EQ(st.u32Width, 640U);
    reconfigure(stStored, BU_TRUE);
    EXPECT_EQ(SYSTEM_API_FactoryRestoreConfiguration(SYSTEM_RESTORE_E_MEDIA), 0); // runs so at once
    MPP_GetVencChnStatus(CHN, st, BU_FALSE);
    EXPECT_EQ((std::vector{st.u32Width, st.u32Height, st.u32FrmRate, st.u32BitRate, st.u32GOP}),
              (std::vector<BU_U32>{640, 360, 30, 600, 60}));
    MPP_DisableVenc(MPP_PIPE_USAGE_E_CLOSEUP_FULL, CHN, BU_TRUE);
    EXPECT_EQ(restart(), 0);
    EXPECT_EQ(st.u32Width, 0U);
    EXPECT_EQ(STREAM_getStreamCacheCurrentVencChn(CACHE), -1);
    EXPECT_EQ(STREAM_getStreamCacheMetadata(m_pstCache), STREAM_PACKET_METADATA_S{});
}

/// A borrowed channel: raw packets go to a function that may be held up until the channel is disabled.
TEST_F(Encoder, FrameFunctionGetsThePacketsUntilItIsDisabled)
{
    std::promise<void> third;
    std::atomic<bool> bReturned = false;
    std::vector<BU_S32> indices;
    MPP_VENC_PARAM_S st = smallVideo(MPP_VENC_FORMAT_E_MJPEG);
    const BU_S32 s32Free = MPP_GetUnusedVencChnId();
    ASSERT_GE(s32Free, 4);
    const auto take = [&](MPP_FRAME_INFO_S *pst) {
        EXPECT_EQ(static_cast<BU_U8 *>(pst->virt_addr)[1], 0xD8); // JPEG
        indices.push_back((*pst->ps32Index)++);
        if (indices.size() < 3) return 0;
        third.set_value();
        bReturned = await([&] { return !std::atomic_ref(pst->bEnable); });
        return 0;
    };
    ASSERT_EQ(MPP_EnableVenc(MPP_PIPE_USAGE_E_PANORAMA_CROP0, s32Free, &st, take, BU_FALSE), 0);
    EXPECT_EQ(MPP_GetVencSource(s32Free), MPP_PIPE_USAGE_E_PANORAMA_CROP0);
    soon(third);
    EXPECT_EQ(MPP_DisableVenc(MPP_PIPE_USAGE_E_PANORAMA_CROP0, s32Free, BU_FALSE), 0);
    EXPECT_TRUE(bReturned);
    EXPECT_THAT(indices, testing::ElementsAre(0, 1, 2));
    EXPECT_EQ(MPP_GetUnusedVencChnId(), s32Free);
}

TEST_F(Encoder, OneSensorHasNoPanorama)
{
    usePipes(1);
    EXPECT_EQ(MPP_GetVencSource(2), 15);
    EXPECT_EQ(MPP_GetVencSource(0), MPP_PIPE_USAGE_E_CLOSEUP_FULL);
    for (const BU_S32 s32Id : {0, 3, 4, 5, 7, -1}) EXPECT_EQ(STREAM_getStreamCacheById(s32Id), nullptr) << s32Id;
    usePipes(2);
    EXPECT_NE(STREAM_getStreamCacheById(3), nullptr);
}

TEST_F(Encoder, SourceAndCacheCanBeDestroyedWhenIdle)
{
    auto pstReader = std::make_unique<TestReader>(CACHE);
    EXPECT_EQ(STREAM_isStreamSourceIdle_VENC(CHN), 0);
    for (const bool bIdle : {false, true}) {
        EXPECT_EQ(STREAM_isStreamCacheIdle(CACHE), bIdle);
        EXPECT_EQ(STREAM_destroyStreamCache(CACHE, BU_TRUE), bIdle - 1);
        EXPECT_EQ(STREAM_destroyStreamSource_VENC(CHN, BU_TRUE), bIdle - 1);
        pstReader.reset();
    }
    EXPECT_EQ(STREAM_getStreamSource_Venc(CHN), nullptr);
    EXPECT_EQ(STREAM_startListenStreamSource_VENC(CHN), 0);
    EXPECT_NE(STREAM_getStreamSource_Venc(CHN), nullptr);
    TestReader(CACHE).read();
}

TEST_F(Encoder, NothingIsDoneWithNothing)
{
    STREAM_READER_S *pstReader = nullptr, **ppstNone = nullptr;
    const auto told = [] { return 0; };
    const auto sink = [](const STREAM_PACKET_REF &) {};
    // clang-format off
    const std::vector refused{
        STREAM_registerCacheMetadataHandler(nullptr, "x", told),
        STREAM_registerCacheMetadataHandler(m_pstCache, "x", {}),
        STREAM_registerCacheMetadataHandler(m_pstCache, nullptr, told), STREAM_registerPacketSink(nullptr, "x", sink),
        STREAM_registerPacketSink(m_pstCache, nullptr, sink), STREAM_registerPacketSink(m_pstCache, "x", {}),
        STREAM_unregisterCacheMetadataHandler(nullptr, "x"), STREAM_unregisterCacheMetadataHandler(m_pstCache, "x"),
        STREAM_unregisterPacketSink(nullptr, "x"), STREAM_unregisterPacketSink(m_pstCache, "x"),
        STREAM_requestKeyFrame(nullptr), STREAM_createStreamReader(99, pstReader),
        STREAM_createStreamReader(0, ppstNone), STREAM_destroyStreamReader(ppstNone),
        STREAM_destroyStreamReader(pstReader), STREAM_destroyStreamCache(99, BU_TRUE)};
    // clang-format on
    EXPECT_THAT(refused, testing::Each(-1));
}

/// How often the pipeline's threads of that name gave up the processor.
long switches(const std::string &strName)
{
    long all = 0;
    for (const auto &entry : std::filesystem::directory_iterator("/proc/self/task")) {
        std::ifstream file(entry.path() / "status");
        const std::string str((std::istreambuf_iterator<char>(file)), {}), strField = "\nvoluntary_ctxt_switches:";
        if (str.starts_with("Name:\t" + strName)) all += std::stol(str.substr(str.find(strField) + strField.size()));
    }
    return all;
}

TEST_F(Encoder, WhatNobodyConsumesSleeps)
{
    TestReader reader(CACHE);
    long asleep = 1, awake = 0;
    for (int i = 0; i < 20 && asleep > 0; ++i) { // it prepares itself first
        asleep = -switches("Panorama"), awake = -switches("CloseUp");
        for (int n = 0; n < 10; ++n) reader.read();
        asleep += switches("Panorama"), awake += switches("CloseUp");
    }
    EXPECT_EQ(asleep, 0);
    EXPECT_GE(awake, 5);
}
} // namespace
