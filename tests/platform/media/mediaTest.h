/// Base of the tests of the running pipeline: a store in memory, a device root of its own, both pipes, real time at 60
/// pictures a second, small pictures.
#pragma once

#include "media/encoder.h"
#include "media/pipeline.h"
#include "media/stream.h"
#include "support/await.h"
#include "support/platformTest.h"

#include <memory>

inline MPP_VENC_PARAM_S smallVideo(MPP_VENC_FORMAT_E enType = MPP_VENC_FORMAT_E_H264)
{
    MPP_VENC_PARAM_S st{};
    st.enType = enType, st.u32Width = 160, st.u32Height = 90, st.u32FrmRate = 60, st.u32BitRate = 200, st.u32GOP = 120;
    return st;
}

struct MediaTest : FreshDevice {
    MediaTest()
    {
        usePipes(2);
        MPP_InitStream();
        const MPP_VENC_PARAM_S stSmall = smallVideo();
        for (BU_S32 i = 0; i < 4; ++i) {
            MPP_EnableVenc(MPP_GetVencSource(i), i, &stSmall, nullptr, BU_FALSE);
            STREAM_startListenStreamSource_VENC(i);
        }
    }
    static void usePipes(BU_S32 s32Count)
    {
        MPP_BUSINESS_CFG_S stCfg{};
        stCfg.s32PipeCnt = s32Count, stCfg.s32Width = stCfg.s32Height = 1080;
        MPP_InitCfg(&stCfg);
    }
};

/// A reader that ends with its scope and fails the test when nothing comes.
class TestReader
{
public:
    explicit TestReader(BU_S32 s32Cache)
    {
        STREAM_createStreamReader(s32Cache, m_pst);
        m_pst->setReadTimeout(10'000);
    }
    ~TestReader() { STREAM_destroyStreamReader(m_pst); }
    TestReader(TestReader &&) = delete;
    STREAM_READER_S *operator->() const { return m_pst; }

    struct Packet {
        std::vector<BU_U8> vec;
        BU_U64 u64Timestamp = 0;
        BU_BOOL bKeyFrame = BU_FALSE;
    };
    Packet read()
    {
        BU_U8 *pu8 = nullptr;
        BU_U32 u32Length = 0;
        Packet st;
        EXPECT_EQ(m_pst->readPacket(&pu8, 0, &u32Length, &st.u64Timestamp, &st.bKeyFrame), 0);
        st.vec.assign(pu8, pu8 + u32Length);
        EXPECT_FALSE(st.vec.empty());
        return st;
    }

private:
    STREAM_READER_S *m_pst = nullptr;
};
