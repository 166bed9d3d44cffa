// Which output runs for which channel: start and stop, protocols of a channel, restart; outputs with an instance a
// channel; preview and Dante.
#include "doubles.h"
#include "perChannel.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
TEST_F(LiveMedia, StartsTheOutputsInOrderAndStopsThem)
{
    for (const char *pcKey : {"LiveMedia/2/rtsp/Enable", "LiveMedia/3/rtsp/Enable", "LiveMedia/4/rtsp/Enable"})
        CFG_STORE_SetText(pcKey, "0");
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
                    "RTSP_ServiceStart()"));
    EXPECT_EQ(APP_LM_DeInit(), 0);
    EXPECT_THAT(journal::effects(),
                ElementsAre("WEBSOCKET_StopService()", "RTSP_ServicePause()", "RTSP_ServiceStop()"));
}

TEST_F(LiveMedia, OtherModelsLeaveTheOutputsToThePipeline)
{
    BSP_PROFILE_Load("minimal");
    APP_LM_Init();
    APP_LM_DeInit();
    EXPECT_THAT(journal::effects(),
                ElementsAre("MPP_LM_LoadAllLiveMediaService()", "MPP_LM_StopAllLiveMediaService()"));
    BSP_PROFILE_Load("QLS-500");
    APP_LM_Init();
    EXPECT_EQ(libraries().served.size(), 4U);
    BU_BOOL bDante = 77;
    EXPECT_EQ(APP_LM_DANTE_GetEnable(&bDante), 0);
    EXPECT_EQ(bDante, 77) << "an output without anything behind it";
}

TEST_F(LiveMedia, AChannelThatCannotBeLoadedStaysOff)
{
    journal::inject("CFG_LM_LoadAllOfChn", -1, 3); // channels 0, 1 and 2
    start();
    EXPECT_EQ(libraries().served, (Served{{"panorama", "video:3 audio:6"}, {"panorama_sub", "video:4 audio:6"}}));
}

TEST_F(LiveMedia, ExclusiveChannelsCountTheirProtocolOthersTheFlags)
{
    using Row = std::pair<Texts, std::vector<BU_S32>>; // the last: protocols 0 to 5: none, RTSP, RTMP, NDI, SRT, none
                                                       // clang-format off
    for (const auto &[stored, enabled] : {
             Row{{{"3/Exclusive", "0"}, {"3/Protocol", "4"}}, {0, 0, 0, 0, 0, 0}},
             Row{{{"3/Protocol", "4"}, {"3/rtsp/Enable", "1"}, {"3/srt/Enable", "1"}}, {0, 1, 0, 0, 1, 0}},
             Row{{{"3/rtmp/Enable", "1"}}, {0, 0, 1, 0, 0, 0}},
             Row{{{"3/ndi/Enable", "1"}}, {0, 0, 0, 1, 0, 0}},
             Row{{{"3/Exclusive", "1"}, {"3/Protocol", "0"}, {"3/rtsp/Enable", "1"}}, {1, 0, 0, 0, 0, 0}},
             Row{{{"3/Exclusive", "1"}, {"3/Protocol", "4"}, {"3/rtsp/Enable", "1"}}, {0, 0, 0, 0, 1, 0}},
             Row{{{"3/Exclusive", "1"}, {"3/Protocol", "1"}, {"3/srt/Enable", "1"}}, {0, 1, 0, 0, 0, 0}},
         }) {
        // clang-format on
        CFG_STORE_Open(nullptr);
        CFG_STORE_SetText("LiveMedia/3/rtsp/Enable", "0");
        start(stored);
        for (BU_S32 i = 0; i < 6; ++i)
            EXPECT_EQ(APP_LM_GetProtocolEnable(PANORAMA, static_cast<CFG_LM_PROTO_E>(i)), enabled[i])
                << testing::PrintToString(stored) << i;
        EXPECT_EQ(libraries().served.contains("panorama"), enabled[1] == 1);
        APP_LM_DeinitBusiness();
    }
}

TEST_F(LiveMedia, ChannelsAndProtocolsThatDoNotExistChangeNothing)
{
    start();
    for (const auto enChn : {static_cast<CFG_LM_CHN_E>(-1), CFG_LM_CHN_E_BUTT, CFG_LM_CHN_E_FULL_NDI}) {
        CFG_LM_PROTO_E enProto{};
        CFG_LM_RTSP_S stRtsp{BU_TRUE, "x"};
        EXPECT_EQ(APP_LM_GetProtocolEnable(enChn, CFG_LM_PROTO_E_RTSP), 0);
        for (const auto enSet : {CFG_LM_PROTO_E_RTSP, CFG_LM_PROTO_E_SRT})
            EXPECT_EQ(APP_LM_SetProtocolEnable(enChn, enSet, BU_TRUE), -1);
        EXPECT_EQ(APP_LM_GetProtocol(enChn, &enProto), -1);
        EXPECT_EQ(APP_LM_SetProtocol(enChn, CFG_LM_PROTO_E_SRT), -1);
        EXPECT_EQ(APP_LM_RTSP_GetChnCfg(enChn, &stRtsp), -1);
        EXPECT_EQ(APP_LM_RTSP_SetChnCfg(enChn, &stRtsp, BU_TRUE), -1);
        EXPECT_EQ(APP_LM_RTSP_CreateMediaSession(enChn, &stRtsp), -1);
    }
    for (const auto enProto : {CFG_LM_PROTO_E_NONE, CFG_LM_PROTO_E_BUTT})
        EXPECT_EQ(APP_LM_SetProtocolEnable(CLOSEUP, enProto, BU_TRUE), 0);
    EXPECT_THAT(journal::effects(), IsEmpty());
    EXPECT_EQ(APP_LM_SetProtocolEnable(CFG_LM_CHN_E_NONE, CFG_LM_PROTO_E_RTSP, BU_TRUE), -1);
    EXPECT_EQ(libraries().served.size(), 4U);
}

TEST_F(LiveMedia, AnExclusiveChannelLeavesAndReturnsToRtspWhateverTheFlagSays)
{
    for (const BU_CHAR *pcRtspFlag : {"0", "1"}) {
        startRtspOn({2}, {{"1/Exclusive", "1"}, {"1/Protocol", "1"}});
        CFG_STORE_SetText("LiveMedia/1/rtsp/Enable", pcRtspFlag);
        start();
        ASSERT_TRUE(libraries().served.contains("closeup"));
        EXPECT_EQ(APP_LM_SetProtocol(CLOSEUP, CFG_LM_PROTO_E_RTSP), 0); // it has it
        EXPECT_EQ(APP_LM_SetProtocol(PANORAMA, CFG_LM_PROTO_E_SRT), 0); // not exclusive
        EXPECT_THAT(journal::effects(), IsEmpty());

        EXPECT_EQ(APP_LM_SetProtocol(CLOSEUP, CFG_LM_PROTO_E_SRT), 0);
        EXPECT_EQ(libraries().served, (Served{{"closeup_sub", "video:2 audio:6"}})) << pcRtspFlag;
        journal::effects();
        APP_LM_SetProtocolEnable(CLOSEUP, CFG_LM_PROTO_E_RTSP, BU_FALSE);
        EXPECT_THAT(journal::effects(), IsEmpty()); // it has left

        EXPECT_EQ(APP_LM_SetProtocol(CLOSEUP, CFG_LM_PROTO_E_RTSP), 0);
        EXPECT_TRUE(libraries().served.contains("closeup")) << pcRtspFlag;
        APP_LM_DeinitBusiness();
    }
}

TEST_F(LiveMedia, AnExclusiveChannelSwitchesTheOldProtocolOffBeforeTheNewOneOn)
{
    start({{"1/Exclusive", "1"}, {"1/Protocol", "2"}, {"1/rtmp/Enable", "1"}});
    EXPECT_EQ(APP_LM_SetProtocol(CLOSEUP, CFG_LM_PROTO_E_NDI), 0);
    EXPECT_THAT(journal::effects(), ElementsAre("CFG_LM_SetStreamProtocol(1, 3, 1)",
                                                R"(CFG_LM_SetRtmpCfgOfChn(1, {0, "", "***", 0, "", "***", 0, 0}))",
                                                R"(CFG_LM_SetNdiCfgOfChn(1, {1, ""}))"));
    CFG_LM_PROTO_E enProto{};
    EXPECT_EQ(APP_LM_GetProtocol(CLOSEUP, &enProto), 0);
    EXPECT_EQ(enProto, CFG_LM_PROTO_E_NDI);
    start(); // as after a power cycle
    EXPECT_EQ(APP_LM_GetProtocolEnable(CLOSEUP, CFG_LM_PROTO_E_NDI), 1);

    journal::inject("CFG_LM_SetStreamProtocol", -7); // refused: nothing changes
    EXPECT_EQ(APP_LM_SetProtocol(CLOSEUP, CFG_LM_PROTO_E_RTSP), -1);
    EXPECT_THAT(journal::effects(), ElementsAre("CFG_LM_SetStreamProtocol(1, 1, 1)"));
    EXPECT_EQ(APP_LM_GetProtocolEnable(CLOSEUP, CFG_LM_PROTO_E_NDI), 1);
}

TEST_F(LiveMedia, TheOutputsResultIsPassedThrough)
{
    start();
    journal::inject("CFG_LM_SetSrtCfgOfChn", -5);
    EXPECT_EQ(APP_LM_SetProtocolEnable(PANORAMA, CFG_LM_PROTO_E_SRT, BU_TRUE), -5);
    EXPECT_EQ(APP_LM_GetProtocolEnable(PANORAMA, CFG_LM_PROTO_E_SRT), 0);
    journal::inject("CFG_LM_SetRtspCfgOfChn", -9);
    EXPECT_EQ(APP_LM_SetProtocolEnable(PANORAMA, CFG_LM_PROTO_E_RTSP, BU_FALSE), -9);
}

TEST_F(LiveMedia, RestartTogglesWhatIsOnChannelByChannel)
{
    startRtspOn({}, {{"1/srt/Enable", "1"}, {"1/rtmp/Enable", "1"}, {"6/ndi/Enable", "1"}});
    EXPECT_EQ(APP_LM_Restart(), 0);
    auto effects = journal::effects();
    for (std::string &str : effects) str = str.substr(0, str.find(',', str.find('{')));
    EXPECT_THAT(effects, ElementsAre("CFG_LM_SetRtmpCfgOfChn(1, {0", "CFG_LM_SetRtmpCfgOfChn(1, {1",
                                     "CFG_LM_SetSrtCfgOfChn(1, {0", "CFG_LM_SetSrtCfgOfChn(1, {1",
                                     "CFG_LM_SetNdiCfgOfChn(6, {0", "CFG_LM_SetNdiCfgOfChn(6, {1",
                                     "BSP_FULL_NDI_SetNDIEncode(0)", "BSP_FULL_NDI_SetNDIEncode(1)"));
    for (const BU_S32 i : {1, 2, 3, 4})
        APP_LM_SetProtocolEnable(static_cast<CFG_LM_CHN_E>(i), CFG_LM_PROTO_E_RTSP, BU_TRUE);
    APP_LM_Restart();
    EXPECT_EQ(libraries().served.size(), 4U); // all come back
}

TEST_F(LiveMedia, ThePreviewStartsOnceAndKeepsItsChannels)
{
    journal::inject("WEBSOCKET_StartService", -3);
    EXPECT_EQ(APP_LM_WS_Init(), -3);
    EXPECT_EQ(journal::effects().size(), 4U);
    EXPECT_EQ(APP_LM_WS_DeInit(), 0);
    for (int i = 0; i < 2; ++i) EXPECT_EQ(APP_LM_WS_Init(), 0);
    EXPECT_THAT(journal::effects(), ElementsAre("WEBSOCKET_StartService(12345)"));
    journal::inject("WEBSOCKET_StopService", -4);
    EXPECT_EQ(APP_LM_WS_DeInit(), -4);
}

// clang-format off
template <class Out> using Change = std::function<void(typename Out::Record &)>;
/// Each of these changes reaches the store; none of the others does.
template <class Out> void expectCompared(std::initializer_list<Change<Out>> compared, std::initializer_list<Change<Out>> others)
{
    const auto isStored = [](const Change<Out> &fnChange) {
        typename Out::Record stCfg;
        bool bChanged = false;
        EXPECT_EQ(Out::get(PANORAMA, &stCfg), 0);
        fnChange(stCfg);
        EXPECT_EQ(Out::set(PANORAMA, &stCfg, &bChanged), 0);
        EXPECT_EQ(journal::effects().size(), bChanged);
        return bChanged;
    };
    for (const auto &fn : compared) EXPECT_TRUE(isStored(fn)) << &fn - compared.begin();
    for (const auto &fn : others) EXPECT_FALSE(isStored(fn)) << &fn - others.begin();
}
#define TO(member, value) [](auto &st) { st.member = value; }
TEST_F(LiveMedia, OnlySettingsThatAnOutputReactsToReachTheStore)
{
    start();
    expectCompared<live_media::Rtsp>({TO(bEnabled, 0), TO(sSessionName, "a")}, {TO(eAudio, CFG_LM_AUDIO_MODE_E_PCM)});
    expectCompared<live_media::Rtmp>({TO(bEnabled, 1), TO(sServer, "rtmp://a"), TO(sStreamCode, "a"), TO(bAuthEnable, 1),
                                      TO(sUsername, "a"), TO(sPassword, "a")},
                                     {TO(s32Video, 1), TO(eAudio, CFG_LM_AUDIO_MODE_E_PCM)});
    expectCompared<live_media::Ndi>({TO(bEnabled, 1), TO(sStreamName, "a")}, {});
    expectCompared<live_media::Srt>({TO(bEnabled, 1), TO(bIsListener, 1), TO(sStreamId, "a"), TO(sHostname, "a"), TO(s32Port, 1),
                                     TO(s32AesMode, 16), TO(sPassword, "0123456789"), TO(s32Latency, 80)},
                                    {TO(eAudio, CFG_LM_AUDIO_MODE_E_PCM)});
}
// clang-format on

TEST_F(LiveMedia, AnInstanceAChannelFollowsTheRecord)
{
    using Inst = live_media::Instance<const BU_CHAR>;
    live_media::PerChannel<live_media::Srt, Inst> channels(
        [](CFG_LM_CHN_E enChn, const CFG_LM_CHANNEL_S &stChn, Inst &inst) -> BU_S32 {
            if (const BU_S32 s32Ret = journal::call("create", enChn, stChn.srt.s32Port).value_or(0)) return s32Ret;
            inst.handler = "runs";
            return 0;
        },
        [](CFG_LM_CHN_E enChn, Inst &) { journal::call("destroy", enChn); });
    const auto set = [&](CFG_LM_CHN_E enChn, BU_BOOL bOn, BU_S32 s32Port, BU_BOOL bCreate = BU_TRUE) {
        CFG_LM_SRT_S stCfg;
        stCfg.bEnabled = bOn;
        stCfg.s32Port = s32Port;
        const BU_S32 s32Ret = channels.setChnCfg(enChn, &stCfg, bCreate);
        auto effects = journal::effects();
        std::erase_if(effects, [](const auto &str) { return str.starts_with("CFG_"); });
        return std::pair(s32Ret, effects);
    };
    using Result = std::pair<BU_S32, std::vector<std::string>>;
    start({{"3/srt/Enable", "1"}});
    channels.init();
    EXPECT_THAT(journal::effects(), ElementsAre("create(3, 0)"));
    EXPECT_EQ(set(CLOSEUP, 1, 1), (Result{0, {"create(1, 1)"}}));
    EXPECT_EQ(set(CLOSEUP, 1, 1), (Result{0, {}}));
    EXPECT_EQ(set(CLOSEUP, 1, 2), (Result{0, {"destroy(1)", "create(1, 2)"}}));
    journal::inject("CFG_LM_SetSrtCfgOfChn", -5);
    EXPECT_EQ(set(CLOSEUP, 1, 3), (Result{-5, {}}));
    EXPECT_EQ(channels.reload(CLOSEUP), 1);
    EXPECT_THAT(journal::effects(), ElementsAre("destroy(1)", "create(1, 2)"));
    EXPECT_EQ(set(CLOSEUP, 0, 2), (Result{0, {"destroy(1)"}}));
    EXPECT_EQ(channels.reload(CLOSEUP), 0);
    EXPECT_EQ(set(CLOSEUP, 0, 3), (Result{0, {}}));
    EXPECT_EQ(set(CLOSEUP, 1, 3, BU_FALSE), (Result{0, {}}));
    journal::inject("create", -1);
    EXPECT_EQ(set(CLOSEUP, 1, 3), (Result{0, {"create(1, 3)"}}));
    EXPECT_EQ(set(CLOSEUP, 1, 3), (Result{0, {"create(1, 3)"}}));      // tried again
    EXPECT_EQ(set(CFG_LM_CHN_E_CLOSEUP1_MAIN, 1, 3), (Result{0, {}})); // no caches feed it
    EXPECT_EQ(set(CFG_LM_CHN_E_BUTT, 1, 3), (Result{-1, {}}));
    APP_LM_GetHandler()->stChnCfg[CLOSEUP].bProtoExclusive = BU_TRUE; // of none of the protocols
    EXPECT_EQ(set(CLOSEUP, 1, 3), (Result{0, {"destroy(1)"}}));
    channels.deInit();
    EXPECT_THAT(journal::effects(), ElementsAre("destroy(3)"));
}
} // namespace
