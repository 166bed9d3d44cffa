#include "liveMediaTest.h"

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

namespace
{
constexpr CFG_LM_PROTO_E PROTOCOLS[] = {CFG_LM_PROTO_E_NONE, CFG_LM_PROTO_E_RTSP, CFG_LM_PROTO_E_RTMP,
                                        CFG_LM_PROTO_E_NDI,  CFG_LM_PROTO_E_SRT,  CFG_LM_PROTO_E_BUTT};

TEST_F(LiveMediaTest, StartsTheOutputsInOrderAndStopsThem)
{
    for (const BU_CHAR *pcChannel : {"2", "3", "4"})
        CFG_STORE_SetText(("LiveMedia/" + std::string(pcChannel) + "/rtsp/Enable").c_str(), "0");
    EXPECT_EQ(APP_LM_Init(), 0);
    EXPECT_THAT(
        journal::effects(),
        ElementsAre("WEBSOCKET_InitService()", R"(WEBSOCKET_RegisterChannelMap(2, "ch1"))",
                    R"(WEBSOCKET_RegisterChannelMap(4, "ch2"))", "WEBSOCKET_StartService(12345)",
                    "RTSP_ServiceInit(554)", "RTSP_SetRtspOverHttpPort(8554)", R"(RTSP_createMediaSession("closeup"))",
                    R"(RTSP_createSubsession(1, "video", 1000))", R"(RTSP_addMediaSubsession("closeup", "video:1"))",
                    R"(STREAM_registerCacheMetadataHandler(1, "rtsp"))", R"(RTSP_createSubsession(6, "audio", 0))",
                    R"(RTSP_addMediaSubsession("closeup", "audio:6"))",
                    R"(STREAM_registerCacheMetadataHandler(6, "rtsp"))", R"(RTSP_addMediaSession("closeup"))",
                    "RTSP_ServiceStart()", "APP_LM_RTMP_Init()", "APP_LM_NDI_Init()", "APP_LM_SRT_Init()"));
    EXPECT_EQ(APP_LM_DeInit(), 0);
    EXPECT_THAT(journal::effects(), ElementsAre("WEBSOCKET_StopService()", "RTSP_ServicePause()", "RTSP_ServiceStop()",
                                                "APP_LM_RTMP_DeInit()", "APP_LM_NDI_DeInit()", "APP_LM_SRT_DeInit()"));
}

TEST_F(LiveMediaTest, OtherModelsLeaveTheOutputsToThePipeline)
{
    for (const BU_CHAR *pcModel : {"", "TKV", "TKV-MX2", "qls-500", "a model name that fills all 32 bytes"}) {
        libraries().strModel = pcModel;
        APP_LM_Init();
        APP_LM_DeInit();
        EXPECT_THAT(journal::effects(),
                    ElementsAre("MPP_LM_LoadAllLiveMediaService()", "MPP_LM_StopAllLiveMediaService()"))
            << pcModel;
    }
    libraries().strModel = "QLS-500";
    APP_LM_Init();
    EXPECT_EQ(libraries().served.size(), 4U);
}

TEST_F(LiveMediaTest, AChannelThatCannotBeLoadedStaysOff)
{
    journal::inject("CFG_LM_LoadAllOfChn", -1, 3); // channels 0, 1 and 2
    start();
    EXPECT_EQ(libraries().served, (Served{{"panorama", "video:3 audio:6"}, {"panorama_sub", "video:4 audio:6"}}));
}

struct tagENABLE_CASE_S {
    const BU_CHAR *pcExclusive, *pcProtocol, *pcRtsp, *pcSrt;
    std::vector<BU_S32> enabled; ///< answers for PROTOCOLS
};
std::ostream &operator<<(std::ostream &out, const tagENABLE_CASE_S &st)
{
    return out << "exclusive " << st.pcExclusive << ", protocol " << st.pcProtocol << ", rtsp " << st.pcRtsp << ", srt "
               << st.pcSrt;
}
class ProtocolRule : public LiveMediaTest, public testing::WithParamInterface<tagENABLE_CASE_S>
{
};
TEST_P(ProtocolRule, ExclusiveChannelsCountTheirProtocolOthersTheFlags)
{
    const auto &st = GetParam();
    start({{"LiveMedia/3/Exclusive", st.pcExclusive},
           {"LiveMedia/3/Protocol", st.pcProtocol},
           {"LiveMedia/3/rtsp/Enable", st.pcRtsp},
           {"LiveMedia/3/srt/Enable", st.pcSrt}});
    std::vector<BU_S32> enabled;
    for (const auto enProto : PROTOCOLS)
        enabled.push_back(APP_LM_GetProtocolEnable(CFG_LM_CHN_E_PANORAMA_MAIN, enProto));
    EXPECT_EQ(enabled, st.enabled);
    EXPECT_EQ(libraries().served.contains("panorama"), st.enabled[1] == 1);
}
INSTANTIATE_TEST_SUITE_P(Rows, ProtocolRule,
                         testing::ValuesIn<tagENABLE_CASE_S>({{"0", "4", "0", "0", {0, 0, 0, 0, 0, 0}},
                                                              {"0", "4", "1", "1", {0, 1, 0, 0, 1, 0}},
                                                              {"0", "1", "0", "1", {0, 0, 0, 0, 1, 0}},
                                                              {"1", "0", "1", "1", {1, 0, 0, 0, 0, 0}},
                                                              {"1", "4", "1", "0", {0, 0, 0, 0, 1, 0}},
                                                              {"1", "1", "0", "1", {0, 1, 0, 0, 0, 0}}}));

TEST_F(LiveMediaTest, ChannelsAndProtocolsThatDoNotExistChangeNothing)
{
    start();
    for (const auto enChn : {static_cast<CFG_LM_CHN_E>(-1), CFG_LM_CHN_E_BUTT, CFG_LM_CHN_E_FULL_NDI}) {
        CFG_LM_PROTO_E enProto{};
        CFG_LM_RTSP_S stRtsp{BU_TRUE, "x"};
        EXPECT_EQ(APP_LM_GetProtocolEnable(enChn, CFG_LM_PROTO_E_RTSP), 0);
        EXPECT_EQ(APP_LM_SetProtocolEnable(enChn, CFG_LM_PROTO_E_RTSP, BU_TRUE), -1);
        EXPECT_EQ(APP_LM_GetProtocol(enChn, &enProto), -1);
        EXPECT_EQ(APP_LM_SetProtocol(enChn, CFG_LM_PROTO_E_SRT), -1);
        EXPECT_EQ(APP_LM_RTSP_GetChnCfg(enChn, &stRtsp), -1);
        EXPECT_EQ(APP_LM_RTSP_SetChnCfg(enChn, &stRtsp, BU_TRUE), -1);
        EXPECT_EQ(APP_LM_RTSP_CreateMediaSession(enChn, &stRtsp), -1);
    }
    for (const auto enProto : {CFG_LM_PROTO_E_NONE, CFG_LM_PROTO_E_BUTT})
        EXPECT_EQ(APP_LM_SetProtocolEnable(CFG_LM_CHN_E_CLOSEUP_MAIN, enProto, BU_TRUE), 0);
    EXPECT_THAT(journal::effects(), IsEmpty());
    EXPECT_EQ(APP_LM_SetProtocolEnable(CFG_LM_CHN_E_NONE, CFG_LM_PROTO_E_RTSP, BU_TRUE), -1);
    EXPECT_EQ(libraries().served.size(), 4U);
}

class ExclusiveChannel : public LiveMediaTest
{
protected:
    /// Close-up main carries one protocol at a time; its RTSP flag is stale. Close-up sub streams beside it.
    void startWith(const BU_CHAR *pcProtocol, const BU_CHAR *pcRtspFlag)
    {
        start({{"LiveMedia/1/Exclusive", "1"},
               {"LiveMedia/1/Protocol", pcProtocol},
               {"LiveMedia/1/rtsp/Enable", pcRtspFlag},
               {"LiveMedia/3/rtsp/Enable", "0"},
               {"LiveMedia/4/rtsp/Enable", "0"}});
    }
};

TEST_F(ExclusiveChannel, LeavesAndReturnsToRtspWhateverTheFlagSays)
{
    for (const BU_CHAR *pcRtspFlag : {"0", "1"}) {
        startWith("1", pcRtspFlag);
        ASSERT_TRUE(libraries().served.contains("closeup"));
        EXPECT_EQ(APP_LM_SetProtocol(CFG_LM_CHN_E_CLOSEUP_MAIN, CFG_LM_PROTO_E_SRT), 0);
        EXPECT_EQ(libraries().served, (Served{{"closeup_sub", "video:2 audio:6"}})) << pcRtspFlag;
        EXPECT_EQ(journal::effects().back(), "APP_LM_SRT_SetChnCfg(1, 1)");
        APP_LM_SetProtocolEnable(CFG_LM_CHN_E_CLOSEUP_MAIN, CFG_LM_PROTO_E_RTSP, BU_FALSE);
        EXPECT_THAT(journal::effects(), IsEmpty()); // it has left

        EXPECT_EQ(APP_LM_SetProtocol(CFG_LM_CHN_E_CLOSEUP_MAIN, CFG_LM_PROTO_E_RTSP), 0);
        EXPECT_TRUE(libraries().served.contains("closeup")) << pcRtspFlag;
        APP_LM_DeinitBusiness();
    }
}

TEST_F(ExclusiveChannel, SwitchesTheOldOneOffBeforeTheNewOneOn)
{
    startWith("2", "0");
    EXPECT_EQ(APP_LM_SetProtocol(CFG_LM_CHN_E_CLOSEUP_MAIN, CFG_LM_PROTO_E_NDI), 0);
    EXPECT_THAT(journal::effects(), ElementsAre("CFG_LM_SetStreamProtocol(1, 3, 1)", "APP_LM_RTMP_SetChnCfg(1, 0)",
                                                "APP_LM_NDI_SetChnCfg(1, 1, 1)"));
    CFG_LM_PROTO_E enProto{};
    EXPECT_EQ(APP_LM_GetProtocol(CFG_LM_CHN_E_CLOSEUP_MAIN, &enProto), 0);
    EXPECT_EQ(enProto, CFG_LM_PROTO_E_NDI);
    start(); // as after a power cycle
    EXPECT_EQ(APP_LM_GetProtocolEnable(CFG_LM_CHN_E_CLOSEUP_MAIN, CFG_LM_PROTO_E_NDI), 1);
}

TEST_F(ExclusiveChannel, ARefusalOfTheStoreChangesNothing)
{
    startWith("1", "1");
    journal::inject("CFG_LM_SetStreamProtocol", -7);
    EXPECT_EQ(APP_LM_SetProtocol(CFG_LM_CHN_E_CLOSEUP_MAIN, CFG_LM_PROTO_E_SRT), -1);
    EXPECT_THAT(journal::effects(), ElementsAre("CFG_LM_SetStreamProtocol(1, 4, 1)"));
    EXPECT_EQ(APP_LM_GetProtocolEnable(CFG_LM_CHN_E_CLOSEUP_MAIN, CFG_LM_PROTO_E_RTSP), 1);
}

TEST_F(ExclusiveChannel, SameProtocolOrSharedChannelIsSkipped)
{
    startWith("1", "1");
    EXPECT_EQ(APP_LM_SetProtocol(CFG_LM_CHN_E_CLOSEUP_MAIN, CFG_LM_PROTO_E_RTSP), 0);
    EXPECT_EQ(APP_LM_SetProtocol(CFG_LM_CHN_E_PANORAMA_MAIN, CFG_LM_PROTO_E_SRT), 0);
    EXPECT_THAT(journal::effects(), IsEmpty());
}

TEST_F(LiveMediaTest, TheOutputsResultIsPassedThrough)
{
    start();
    journal::inject("APP_LM_SRT_SetChnCfg", -5);
    EXPECT_EQ(APP_LM_SetProtocolEnable(CFG_LM_CHN_E_PANORAMA_MAIN, CFG_LM_PROTO_E_SRT, BU_TRUE), -5);
    journal::inject("CFG_LM_SetRtspCfgOfChn", -9);
    EXPECT_EQ(APP_LM_SetProtocolEnable(CFG_LM_CHN_E_PANORAMA_MAIN, CFG_LM_PROTO_E_RTSP, BU_FALSE), -9);
}

TEST_F(LiveMediaTest, RestartTogglesWhatIsOnChannelByChannel)
{
    start({{"LiveMedia/1/rtsp/Enable", "0"},
           {"LiveMedia/2/rtsp/Enable", "0"},
           {"LiveMedia/3/rtsp/Enable", "0"},
           {"LiveMedia/4/rtsp/Enable", "0"},
           {"LiveMedia/1/srt/Enable", "1"},
           {"LiveMedia/1/rtmp/Enable", "1"},
           {"LiveMedia/6/ndi/Enable", "1"}});
    EXPECT_EQ(APP_LM_Restart(), 0);
    EXPECT_THAT(journal::effects(), ElementsAre("APP_LM_RTMP_SetChnCfg(1, 0)", "APP_LM_RTMP_SetChnCfg(1, 1)",
                                                "APP_LM_SRT_SetChnCfg(1, 0)", "APP_LM_SRT_SetChnCfg(1, 1)",
                                                "APP_LM_NDI_SetChnCfg(6, 0, 1)", "APP_LM_NDI_SetChnCfg(6, 1, 1)",
                                                "BSP_FULL_NDI_SetNDIEncode(0)", "BSP_FULL_NDI_SetNDIEncode(1)"));
}

TEST_F(LiveMediaTest, RestartBringsEveryRtspSessionBack)
{
    start();
    const Served before = libraries().served;
    APP_LM_Restart();
    EXPECT_EQ(libraries().served, before);
}

TEST_F(LiveMediaTest, ThePreviewStartsOnceAndKeepsItsChannels)
{
    journal::inject("WEBSOCKET_StartService", -3);
    EXPECT_EQ(APP_LM_WS_Init(), -3);
    EXPECT_THAT(journal::effects(),
                ElementsAre("WEBSOCKET_InitService()", R"(WEBSOCKET_RegisterChannelMap(2, "ch1"))",
                            R"(WEBSOCKET_RegisterChannelMap(4, "ch2"))", "WEBSOCKET_StartService(12345)"));
    EXPECT_EQ(APP_LM_WS_DeInit(), 0);
    EXPECT_EQ(APP_LM_WS_Init(), 0);
    EXPECT_EQ(APP_LM_WS_Init(), 0);
    EXPECT_THAT(journal::effects(), ElementsAre("WEBSOCKET_StartService(12345)"));
    journal::inject("WEBSOCKET_StopService", -4);
    EXPECT_EQ(APP_LM_WS_DeInit(), -4);
}

TEST_F(LiveMediaTest, DanteLeavesItsAnswerUntouched)
{
    BU_BOOL bEnable = 77;
    EXPECT_EQ(APP_LM_DANTE_GetEnable(&bEnable), 0);
    EXPECT_EQ(bEnable, 77);
}
} // namespace
