// The pipeline's session records: kept over a restart, refused as a whole.
#include "live/pipelineLive.h"
#include "support/platformTest.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
class PipelineSessions : public PlatformTest
{
protected:
    PipelineSessions() { restart(); }
    ~PipelineSessions() override { CFG_STORE_Close(); }
    static void restart() { CFG_STORE_Open("/cfg0/settings.db"); }

    /// "session: stream=cache stream=cache"
    static std::vector<std::string> sessions()
    {
        std::vector<std::string> list;
        for (const auto &pst : MPP_RTSP_ListMediaSession()) {
            list.push_back(pst->sName + ":");
            for (const auto &st : pst->subsession)
                list.back() += " " + st.sName + "=" + std::to_string(st.s32StreamCacheId);
        }
        return list;
    }
};

TEST_F(PipelineSessions, NdiKeepsWhatIsSavedAndForgetsTheRest)
{
    CFG_NDI_SESSION_S st;
    EXPECT_EQ(MPP_NDI_UpdateInstance(st, BU_TRUE), -1) << "no instance -1";
    EXPECT_EQ(MPP_NDI_GetInstance(1, st), -1);
    EXPECT_EQ(st.s32Id, -1);
    ASSERT_EQ(MPP_NDI_GetInstance(0, st), 0);
    EXPECT_EQ(std::pair(st.bEnabled, st.s32SubVideoStreamCacheId), std::pair(BU_S32{BU_FALSE}, 2));
    st.bEnabled = BU_TRUE;
    st.sGroupName = "hall";
    EXPECT_EQ(MPP_NDI_UpdateInstance(st, BU_TRUE), 0);
    st.sGroupName = "stage";
    EXPECT_EQ(MPP_NDI_UpdateInstance(st, BU_FALSE), 0);
    CFG_NDI_SESSION_S stNow;
    MPP_NDI_GetInstance(0, stNow);
    EXPECT_EQ(stNow.sGroupName, "stage");
    st.s32MulticastTTL = 256;
    for (const BU_BOOL bSave : {BU_TRUE, BU_FALSE}) EXPECT_EQ(MPP_NDI_UpdateInstance(st, bSave), -1);
    st.s32MulticastTTL = 255;
    st.bEnabled = INT32_MIN; // an unknown word
    EXPECT_EQ(MPP_NDI_UpdateInstance(st, BU_TRUE), -1);
    st.bEnabled = BU_TRUE;
    EXPECT_EQ(MPP_NDI_UpdateInstance(st, BU_TRUE), 0);
    restart();
    MPP_NDI_GetInstance(0, stNow);
    EXPECT_EQ(std::pair(stNow.sGroupName, stNow.s32MulticastTTL), std::pair(std::string("stage"), 255));
}

TEST_F(PipelineSessions, RtspSessionsGrowShrinkAndSurvive)
{
    EXPECT_THAT(sessions(), IsEmpty());
    for (const auto &[pcSession, pcSub, s32Cache] :
         {std::tuple("a", "video", 1), {"b", "video", 3}, {"a", "audio", 6}, {"a", "video", -1}})
        EXPECT_EQ(MPP_RTSP_AddOrUpdateMediaSubsession(pcSession, pcSub, s32Cache), 0);
    EXPECT_THAT(sessions(), ElementsAre("a: video=-1 audio=6", "b: video=3"));
    // clang-format off
    for (const auto &[pcSession, pcSub, s32Cache] : std::initializer_list<std::tuple<const char *, const char *, int>>{
        {nullptr, "video", 1}, {"a", nullptr, 1}, {"", "video", 1}, {"a\tb", "video", 1}, {"a", "v\n", 1}, {"a", "video", -2}, {"a", "video", 100}})
        // clang-format on
        EXPECT_EQ(MPP_RTSP_AddOrUpdateMediaSubsession(pcSession, pcSub, s32Cache), -1);
    EXPECT_EQ(MPP_RTSP_DeleteMediaSession("c", BU_TRUE), -1);
    EXPECT_EQ(MPP_RTSP_DeleteMediaSession("b", BU_FALSE), 0); // until the next start
    EXPECT_EQ(MPP_RTSP_AddOrUpdateMediaSubsession("d", "video", 2), 0);
    EXPECT_THAT(sessions(), ElementsAre("a: video=-1 audio=6", "d: video=2"));
    EXPECT_EQ(MPP_RTSP_DeleteMediaSession("a", BU_TRUE), 0);
    EXPECT_THAT(sessions(), ElementsAre("d: video=2"));
    journal::inject("CFG_STORE_SetText", -1, 2); // a full disk
    EXPECT_EQ(MPP_RTSP_AddOrUpdateMediaSubsession("e", "video", 1), -1);
    EXPECT_THAT(sessions(), ElementsAre("d: video=2"));
    EXPECT_EQ(MPP_RTSP_DeleteMediaSession("d", BU_TRUE), -1);
}

TEST_F(PipelineSessions, SessionsAreBounded)
{
    BU_S32 s32Taken = 0;
    while (s32Taken < 1000 && MPP_RTSP_AddOrUpdateMediaSubsession(std::to_string(s32Taken).c_str(), "v", 1) == 0)
        ++s32Taken;
    EXPECT_EQ(std::pair(s32Taken, sessions().size()), std::pair(32, std::size_t{32}));
}
} // namespace
