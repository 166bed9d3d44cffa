// The RTSP output: when the server is rebuilt, what it carries, what an encoder's notice does.
#include "doubles.h"

#include <atomic>

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace
{
CFG_LM_RTSP_GENERAL_S general()
{
    CFG_LM_RTSP_GENERAL_S stCfg;
    APP_LM_RTSP_GetGeneralCfg(&stCfg);
    return stCfg;
}

TEST_F(LiveMedia, AnAppliedChangeRebuildsTheServerADeferredOneWaits)
{
    startRtspOn({});
    APP_LM_SetProtocolEnable(CLOSEUP, CFG_LM_PROTO_E_RTSP, BU_TRUE);
    EXPECT_THAT(journal::effects(), Not(Contains("RTSP_ServiceStop()"))); // nothing ran before
    EXPECT_EQ(APP_LM_SetProtocolEnable(PANORAMA, CFG_LM_PROTO_E_RTSP, BU_TRUE), 0);
    EXPECT_EQ(libraries().served, (Served{{"closeup", "video:1 audio:6"}, {"panorama", "video:3 audio:6"}}));
    auto effects = journal::effects();
    effects.resize(4);
    EXPECT_THAT(effects, ElementsAre(R"(CFG_LM_SetRtspCfgOfChn(3, {1, "panorama", 2}))", "RTSP_ServicePause()",
                                     "RTSP_ServiceStop()", "RTSP_ServiceInit(554)"));
    CFG_LM_RTSP_S stChn = rtspOf(PANORAMA);
    stChn.sSessionName = "stage/left";
    CFG_LM_RTSP_GENERAL_S stGeneral = general();
    stGeneral.s32Port = 10554;
    EXPECT_EQ(APP_LM_RTSP_SetChnCfg(PANORAMA, &stChn, BU_FALSE), 0);
    EXPECT_EQ(APP_LM_RTSP_SetGeneralCfg(&stGeneral, BU_FALSE), 0);
    EXPECT_EQ(journal::effects().size(), 2U); // stored
    APP_LM_RestartAllSingletonProtocolIfNeed();
    EXPECT_TRUE(libraries().served.contains("stage/left"));
    EXPECT_THAT(journal::effects(), Contains("RTSP_ServiceInit(10554)"));
    EXPECT_EQ(APP_LM_RestartAllSingletonProtocolIfNeed(), 0);
    EXPECT_THAT(journal::effects(), IsEmpty());

    APP_LM_SetProtocolEnable(PANORAMA, CFG_LM_PROTO_E_RTSP, BU_FALSE);
    journal::effects();
    APP_LM_SetProtocolEnable(CLOSEUP, CFG_LM_PROTO_E_RTSP, BU_FALSE); // the last channel
    EXPECT_THAT(journal::effects(), ElementsAre(R"(CFG_LM_SetRtspCfgOfChn(1, {0, "closeup", 2}))",
                                                "RTSP_ServicePause()", "RTSP_ServiceStop()"));
}

TEST_F(LiveMedia, AChangeOfTheGeneralSettingsReachesTheRebuiltServer)
{
    const std::string strInit = "RTSP_ServiceInit(554)", strHttp = "RTSP_SetRtspOverHttpPort(8554)";
    // clang-format off
    // How the rebuilt server is prepared; empty: nothing is saved or rebuilt.
    const std::pair<void (*)(CFG_LM_RTSP_GENERAL_S &), std::vector<std::string>> ROWS[] = {
        {[](auto &st) { st.bHttpEnable = !st.bHttpEnable; }, {}},
        {[](auto &st) { st.s32Port = 8000; },        {"RTSP_ServiceInit(8000)", strHttp}},
        {[](auto &st) { st.s32HttpPort = 0; },       {strInit}},
        {[](auto &st) { st.bAuthEnable = BU_TRUE; }, {strInit, strHttp, R"(RTSP_SetAuthentication("user", "secret"))"}},
        {[](auto &st) { st.sUsername = "other"; },   {strInit, strHttp}},
        {[](auto &st) { st.sPassword = "other"; },   {strInit, strHttp}},
    };
    // clang-format on
    startRtspOn({1});
    CFG_LM_RTSP_GENERAL_S stOld = general();
    stOld.sUsername = "user";
    stOld.sPassword = "secret";
    for (const auto &[pfnChange, prepared] : ROWS) {
        CFG_LM_RTSP_GENERAL_S stCfg = stOld;
        APP_LM_RTSP_SetGeneralCfg(&stOld, BU_TRUE);
        journal::effects();
        pfnChange(stCfg);
        EXPECT_EQ(APP_LM_RTSP_SetGeneralCfg(&stCfg, BU_TRUE), 0);
        auto effects = journal::effects(); // saved, paused, stopped, prepared, then the sessions
        const auto end = std::ranges::find(effects, R"(RTSP_createMediaSession("closeup"))");
        EXPECT_EQ(std::vector(std::min(effects.begin() + 3, end), end), prepared);
        EXPECT_EQ(effects.empty(), prepared.empty());
        EXPECT_TRUE(effects.empty() || effects[0].starts_with("CFG_LM_SaveRtspGeneralCfg("));
    }
}

TEST_F(LiveMedia, ARefusalOfTheStoreLeavesRecordAndServerAlone)
{
    startRtspOn({1, 3});
    CFG_LM_RTSP_S stChn = rtspOf(PANORAMA);
    stChn.sSessionName = "closeup"; // in use by another channel
    EXPECT_NE(APP_LM_RTSP_SetChnCfg(PANORAMA, &stChn, BU_TRUE), 0);
    CFG_LM_RTSP_GENERAL_S stGeneral = general();
    stGeneral.s32Port = 65536;
    EXPECT_NE(APP_LM_RTSP_SetGeneralCfg(&stGeneral, BU_TRUE), 0);
    journal::effects();

    APP_LM_RTSP_RestartIfNeed();
    EXPECT_THAT(journal::effects(), IsEmpty());
    EXPECT_EQ(std::pair(rtspOf(PANORAMA).sSessionName, general().s32Port), std::pair(std::string("panorama"), 554));
}

TEST_F(LiveMedia, OnlyWhatHasStreamCachesIsServed)
{
    libraries().caches = {1, 4, 6};
    start({{"5/rtsp/Enable", "1"}, {"5/rtsp/SessionName", "second"}}); // no caches at all
    EXPECT_EQ(libraries().served, (Served{{"closeup", "video:1 audio:6"},
                                          {"closeup_sub", "audio:6"},
                                          {"panorama", "audio:6"},
                                          {"panorama_sub", "video:4 audio:6"}}));
    libraries().caches = {1};
    APP_LM_SetProtocolEnable(CFG_LM_CHN_E_PANORAMA_SUB, CFG_LM_PROTO_E_RTSP, BU_FALSE);
    EXPECT_EQ(libraries().served, (Served{{"closeup", "video:1"}}));
    EXPECT_THAT(journal::effects(), Contains(R"(RTSP_destroyMediaSession("panorama"))"));

    APP_LM_RTSP_ValidateStreamEncoder();
    EXPECT_THAT(journal::effects(), Contains("RTSP_updateSubsessionBitRateAndFrameRate(NULL)")); // the destroyed one

    // Its session is missing for good: that alone is no reason to interrupt the viewers of the others.
    APP_LM_SetProtocolEnable(CFG_LM_CHN_E_CLOSEUP1_MAIN, CFG_LM_PROTO_E_RTSP, BU_TRUE);
    EXPECT_THAT(journal::effects(), IsEmpty());
}

TEST_F(LiveMedia, FurtherCredentialsCountFromTheNextRebuild)
{
    startRtspOn({1});
    for (const auto &[pcUser, pcPassword] : {std::pair("first", "one"), {"second", "two"}, {"first", "new"}})
        APP_LM_RTSP_AddExtraAuth({APP_LM_RTSP_EXTRA_AUTH_FROM_E_ONVIF, pcUser, pcPassword});
    EXPECT_THAT(journal::effects(), IsEmpty());
    APP_LM_RTSP_RestartIfNeed();
    auto effects = journal::effects();
    std::erase_if(effects, [](const auto &str) { return !str.starts_with("RTSP_SetAuthentication"); });
    EXPECT_THAT(effects,
                ElementsAre(R"(RTSP_SetAuthentication("first", "new"))", R"(RTSP_SetAuthentication("second", "two"))"));

    APP_LM_RTSP_RemoveExtraAuth(APP_LM_RTSP_EXTRA_AUTH_FROM_E_ONVIF);
    APP_LM_RTSP_RestartIfNeed();
    EXPECT_THAT(journal::effects(), Not(Contains(StartsWith("RTSP_SetAuthentication"))));
}

TEST_F(LiveMedia, AnEncodersNoticeReachesTheSessionsAtOnceOrAfterTheRebuildItMeets)
{
    startRtspOn({1});
    EXPECT_EQ(libraries().metadataHandlers.at(1)(), 0);
    EXPECT_THAT(journal::effects(), ElementsAre(R"(RTSP_checkAllMediaSubsessionCorrect("closeup"))",
                                                R"(RTSP_updateSubsessionBitRateAndFrameRate("closeup"))"));
    libraries().fnOnRtspStart = [] {
        libraries().fnOnRtspStart = nullptr;
        const std::jthread pipeline(APP_LM_RTSP_ValidateStreamEncoder); // its end is awaited here
        CFG_LM_RTSP_GENERAL_S stCfg = general();
        stCfg.s32Port = 8000;
        APP_LM_RTSP_SetGeneralCfg(&stCfg, BU_FALSE);
    };
    APP_LM_SetProtocolEnable(PANORAMA, CFG_LM_PROTO_E_RTSP, BU_TRUE);
    auto effects = journal::effects();
    effects.erase(effects.begin(), std::ranges::find(effects, "RTSP_ServiceStart()"));
    EXPECT_THAT(effects, ElementsAre("RTSP_ServiceStart()", R"(RTSP_checkAllMediaSubsessionCorrect("closeup"))",
                                     R"(RTSP_updateSubsessionBitRateAndFrameRate("closeup"))",
                                     R"(RTSP_checkAllMediaSubsessionCorrect("panorama"))",
                                     R"(RTSP_updateSubsessionBitRateAndFrameRate("panorama"))"));
    APP_LM_RTSP_RestartIfNeed(); // the change during the rebuild is due for the next
    EXPECT_THAT(journal::effects(), Contains("RTSP_ServiceInit(8000)"));
}

TEST_F(LiveMedia, WebThreadsAndThePipelineMayComeTogether)
{
    startRtspOn({1});
    const std::string strLong(60, 'l'), strShort = "s";
    std::atomic<bool> bTorn{false};
    {
        std::jthread reader([&](std::stop_token stop) {
            while (!stop.stop_requested()) {
                const std::string strName = rtspOf(CLOSEUP).sSessionName;
                if (strName != "closeup" && strName != strLong && strName != strShort) bTorn = true;
                APP_LM_RTSP_ValidateStreamEncoder();
            }
        });
        const auto rename = [](CFG_LM_CHN_E enChn, const std::string &strOdd, const std::string &strEven) {
            for (BU_S32 i = 0; i < 100; ++i) {
                const CFG_LM_RTSP_S stCfg{BU_TRUE, i % 2 ? strOdd : strEven};
                APP_LM_RTSP_SetChnCfg(enChn, &stCfg, BU_TRUE);
            }
        };
        std::jthread other(rename, PANORAMA, "other", "panorama");
        rename(CLOSEUP, strLong, strShort);
    }
    EXPECT_FALSE(bTorn);
    EXPECT_EQ(libraries().served, (Served{{strLong, "video:1 audio:6"}, {"other", "video:3 audio:6"}}));
}
} // namespace
