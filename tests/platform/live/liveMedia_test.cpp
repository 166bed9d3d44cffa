#include "config/liveMedia.h"

#include "support/platformTest.h"

using testing::ElementsAre;

namespace
{
using LiveMediaStore = PlatformTest;

constexpr auto CLOSEUP = CFG_LM_CHN_E_CLOSEUP_MAIN;
constexpr auto SUB = CFG_LM_CHN_E_CLOSEUP_SUB;

CFG_LM_CHANNEL_S load(CFG_LM_CHN_E enChn)
{
    CFG_LM_CHANNEL_S stChn;
    EXPECT_EQ(CFG_LM_LoadAllOfChn(enChn, &stChn), 0);
    return stChn;
}
CFG_LM_GENERAL_S loadGeneral()
{
    CFG_LM_GENERAL_S stGeneral;
    EXPECT_EQ(CFG_LM_LoadGeneralCfgAll(&stGeneral), 0);
    return stGeneral;
}

TEST_F(LiveMediaStore, AFreshCameraStreamsItsFourEncodersByRtspOnly)
{
    const BU_CHAR *const apcNames[] = {"closeup", "closeup_sub", "panorama", "panorama_sub", "", ""};
    for (BU_S32 i = 1; i <= 6; ++i) {
        const CFG_LM_CHANNEL_S st = load(static_cast<CFG_LM_CHN_E>(i));
        EXPECT_EQ(st.rtsp.sSessionName, apcNames[i - 1]);
        EXPECT_EQ(st.rtsp.bEnabled, i <= 4);
        EXPECT_FALSE(st.bProtoExclusive || st.rtmp.bEnabled || st.ndi.bEnabled || st.srt.bEnabled);
    }
    EXPECT_EQ(loadGeneral().rtsp.s32Port, 554);
    EXPECT_EQ(loadGeneral().rtsp.s32HttpPort, 8554);
    EXPECT_EQ(loadGeneral().ndi.sGroupName, "Public");
}

// Every field comes back: a row of the tables that names another field, or a key used twice, shows here.
TEST_F(LiveMediaStore, EveryFieldSurvivesARestart)
{
    std::filesystem::create_directories(root() + "/cfg0");
    CFG_STORE_Open("/cfg0/settings.db");
    const CFG_LM_RTSP_S stRtsp{BU_TRUE, "stage/left-1.h264", CFG_LM_AUDIO_MODE_E_G711U};
    const CFG_LM_RTMP_S stRtmp{BU_TRUE, "rtmp://host/app",      "key \"1\"", BU_TRUE, "user", "pass",
                               -5,      CFG_LM_AUDIO_MODE_E_AAC};
    const CFG_LM_NDI_S stNdi{BU_TRUE, "Halle süd"};
    const CFG_LM_SRT_S stSrt{
        BU_TRUE, BU_TRUE, "#!::r=live", "10.0.0.1", 65535, 24, std::string(80, 'p'), 80, CFG_LM_AUDIO_MODE_E_PCM};
    const CFG_LM_RTSP_GENERAL_S stRtspGeneral{8000, BU_FALSE, 0, BU_TRUE, "viewer", "se cret"};
    const CFG_LM_NDI_GENERAL_S stNdiGeneral{"machine", "group",    1,    "239.1.1.1", "255.0.0.0", 9,       3,
                                            1,         "10.0.0.2", "hb", 1,           1,           "a",     "b",
                                            "c",       "d",        "e",  "f",         "g",         BU_FALSE};
    EXPECT_EQ(CFG_LM_SetRtspCfgOfChn(CLOSEUP, &stRtsp), 0);
    EXPECT_EQ(CFG_LM_SetRtmpCfgOfChn(CLOSEUP, &stRtmp), 0);
    EXPECT_EQ(CFG_LM_SetNdiCfgOfChn(CLOSEUP, &stNdi), 0);
    EXPECT_EQ(CFG_LM_SetSrtCfgOfChn(CLOSEUP, &stSrt), 0);
    EXPECT_EQ(CFG_LM_SetStreamProtocol(CLOSEUP, CFG_LM_PROTO_E_SRT, BU_TRUE), 0);
    EXPECT_EQ(CFG_LM_SaveRtspGeneralCfg(&stRtspGeneral), 0);
    EXPECT_EQ(CFG_LM_SaveNdiGeneralCfg(&stNdiGeneral), 0);
    CFG_STORE_Open("/cfg0/settings.db");

    const CFG_LM_CHANNEL_S st = load(CLOSEUP);
    const auto rtsp = [](const CFG_LM_RTSP_S &c) { return std::tie(c.bEnabled, c.sSessionName, c.eAudio); };
    const auto rtmp = [](const CFG_LM_RTMP_S &c) {
        return std::tie(c.bEnabled, c.sServer, c.sStreamCode, c.bAuthEnable, c.sUsername, c.sPassword, c.s32Video,
                        c.eAudio);
    };
    const auto srt = [](const CFG_LM_SRT_S &c) {
        return std::tie(c.bEnabled, c.bIsListener, c.sStreamId, c.sHostname, c.s32Port, c.s32AesMode, c.sPassword,
                        c.s32Latency, c.eAudio);
    };
    const auto server = [](const CFG_LM_RTSP_GENERAL_S &c) {
        return std::tie(c.s32Port, c.bHttpEnable, c.s32HttpPort, c.bAuthEnable, c.sUsername, c.sPassword);
    };
    const auto ndi = [](const CFG_LM_NDI_GENERAL_S &c) {
        return std::tie(c.sMachineName, c.sGroupName, c.bMulticastEnabled, c.sMulticastIp, c.sMulticastNetmask,
                        c.s32MulticastTTL, c.s32TransmitMethod, c.bDiscoveryServerEnable, c.sDiscoveryServer,
                        c.sStreamNameHB, c.bNdiHBEnable, c.s32HBIpMode, c.sHBIpaddr, c.sHBNetmask, c.sHBGateway,
                        c.sHBDns, c.sHBIpaddrFallback, c.sHBNetmaskFallback, c.sHBGatewayFallback, c.bAudioEnable);
    };
    EXPECT_EQ(rtsp(st.rtsp), rtsp(stRtsp));
    EXPECT_EQ(rtmp(st.rtmp), rtmp(stRtmp));
    EXPECT_EQ(st.ndi.sStreamName, stNdi.sStreamName);
    EXPECT_EQ(srt(st.srt), srt(stSrt));
    EXPECT_EQ(st.enProto, CFG_LM_PROTO_E_SRT);
    EXPECT_EQ(server(loadGeneral().rtsp), server(stRtspGeneral));
    const CFG_LM_NDI_GENERAL_S stLoaded = loadGeneral().ndi;
    EXPECT_EQ(ndi(stLoaded), ndi(stNdiGeneral));
    EXPECT_EQ(load(SUB).rtsp.sSessionName, "closeup_sub"); // its neighbour is untouched
}

struct tagSESSION_CASE_S {
    std::string strName;
    BU_BOOL bEnabled;
    BU_S32 s32Result;
};
TEST_F(LiveMediaStore, SessionNamesAreUsableInAUrlAndUnique)
{
    const tagSESSION_CASE_S astCases[] = {
        {"a", 1, 0},
        {"live/a_b-c.1", 1, 0},
        {std::string(64, 'n'), 1, 0},
        {std::string(65, 'n'), 1, -1},
        {"", 0, 0},
        {"", 1, -1},
        {"closeup_sub", 1, -1}, // of channel 2
        {"closeup_sub", 0, -1},
        {"Closeup_sub", 1, 0},
        {"two words", 1, -1},
        {"a?b", 1, -1},
        {"a%2e", 1, -1},
        {"größe", 1, -1},
        {"/a", 1, -1},
        {"a/", 1, -1},
        {"a//b", 1, -1},
        {"../a", 1, -1},
        {"a/.", 1, -1},
        {"a\nb", 1, -1},
        {std::string("a\0b", 3), 1, -1},
        {"a", 2, -1},
    };
    for (const auto &st : astCases) {
        const CFG_LM_RTSP_S stCfg{st.bEnabled, st.strName};
        EXPECT_EQ(CFG_LM_SetRtspCfgOfChn(CLOSEUP, &stCfg), st.s32Result) << '"' << st.strName << '"' << st.bEnabled;
    }
    // A name that was given up is free, one that was taken over is not.
    const CFG_LM_RTSP_S stMine{BU_TRUE, "closeup"}, stTheirs{BU_TRUE, "a"};
    EXPECT_EQ(CFG_LM_SetRtspCfgOfChn(SUB, &stMine), 0);
    EXPECT_EQ(CFG_LM_SetRtspCfgOfChn(CLOSEUP, &stMine), -1);
    EXPECT_EQ(CFG_LM_SetRtspCfgOfChn(CLOSEUP, &stTheirs), 0);
}

struct tagSERVER_CASE_S {
    CFG_LM_RTSP_GENERAL_S stCfg;
    BU_S32 s32Result;
};
TEST_F(LiveMediaStore, TheRtspServerGetsUsablePortsAndCredentials)
{
    const tagSERVER_CASE_S astCases[] = {
        {{1, 1, 0, 0, "", ""}, 0},
        {{65535, 1, 65534, 0, "", ""}, 0},
        {{0, 1, 8554, 0, "", ""}, -1},
        {{65536, 1, 8554, 0, "", ""}, -1},
        {{554, 1, -1, 0, "", ""}, -1},
        {{554, 1, 65536, 0, "", ""}, -1},
        {{8554, 1, 8554, 0, "", ""}, -1},
        {{554, 1, 8554, 1, "user", "p"}, 0},
        {{554, 1, 8554, 1, "", "p"}, -1},
        {{554, 1, 8554, 1, "user", ""}, -1},
        {{554, 1, 8554, 0, "us:er", ""}, -1},
        {{554, 1, 8554, 1, "u", "p\x7f"}, -1},
        {{554, 1, 8554, 0, std::string(65, 'u'), ""}, -1},
    };
    for (const auto &st : astCases)
        EXPECT_EQ(CFG_LM_SaveRtspGeneralCfg(&st.stCfg), st.s32Result)
            << st.stCfg.s32Port << ' ' << st.stCfg.s32HttpPort << ' ' << st.stCfg.sUsername;
}

TEST_F(LiveMediaStore, ARefusedRecordLeavesEveryStoredFieldAlone)
{
    CFG_LM_SRT_S stSrt{BU_TRUE, BU_TRUE, "id", "", 9000, 16, "0123456789", 120};
    ASSERT_EQ(CFG_LM_SetSrtCfgOfChn(CLOSEUP, &stSrt), 0);
    for (const BU_S32 s32Bad : {15, 17, -16, 256}) {
        stSrt = {BU_FALSE, BU_FALSE, "other", "host", 1, s32Bad, "", 500};
        EXPECT_EQ(CFG_LM_SetSrtCfgOfChn(CLOSEUP, &stSrt), -1) << s32Bad;
    }
    journal::inject("CFG_STORE_SetTexts", -1); // a full disk
    stSrt.s32AesMode = 32;
    EXPECT_EQ(CFG_LM_SetSrtCfgOfChn(CLOSEUP, &stSrt), -1);
    EXPECT_EQ(load(CLOSEUP).srt.sStreamId, "id");
    EXPECT_EQ(load(CLOSEUP).srt.s32Port, 9000);
}

TEST_F(LiveMediaStore, StoredValuesAgainstTheRulesArePassedOver)
{
    CFG_STORE_SetTexts({{"LiveMedia/1/rtsp/SessionName", "../etc"},
                        {"LiveMedia/2/rtsp/Audio", "9"},
                        {"LiveMedia/2/rtsp/Enable", "0"},
                        {"LiveMedia/2/Protocol", "17"},
                        {"LiveMedia/general/rtsp/Port", "554x"},
                        {"LiveMedia/general/ndi/MulticastTTL", "99999999999"}});
    EXPECT_EQ(load(CLOSEUP).rtsp.sSessionName, "closeup");
    EXPECT_EQ(load(SUB).rtsp.eAudio, CFG_LM_AUDIO_MODE_E_AAC);
    EXPECT_EQ(load(SUB).rtsp.bEnabled, BU_FALSE); // the sound fields beside it count
    EXPECT_EQ(load(SUB).enProto, CFG_LM_PROTO_E_NONE);
    EXPECT_EQ(loadGeneral().rtsp.s32Port, 554);
    EXPECT_EQ(loadGeneral().ndi.s32MulticastTTL, 1);
}

TEST_F(LiveMediaStore, OnlyTheSixChannelsExist)
{
    for (const auto enChn : {static_cast<CFG_LM_CHN_E>(-1), CFG_LM_CHN_E_NONE, CFG_LM_CHN_E_BUTT, CFG_LM_CHN_E_FULL_NDI,
                             static_cast<CFG_LM_CHN_E>(1 << 20)}) {
        CFG_LM_CHANNEL_S st;
        st.rtsp.sSessionName = "untouched";
        EXPECT_EQ(CFG_LM_LoadAllOfChn(enChn, &st), -1);
        EXPECT_EQ(st.rtsp.sSessionName, "untouched");
        EXPECT_EQ(CFG_LM_SetRtspCfgOfChn(enChn, &st.rtsp), -1);
        EXPECT_EQ(CFG_LM_SetStreamProtocol(enChn, CFG_LM_PROTO_E_RTSP, BU_TRUE), -1);
    }
    EXPECT_EQ(CFG_LM_SetStreamProtocol(CLOSEUP, CFG_LM_PROTO_E_BUTT, BU_TRUE), -1);
    EXPECT_EQ(CFG_LM_SetStreamProtocol(CLOSEUP, CFG_LM_PROTO_E_SRT, BU_FALSE), 0);
    EXPECT_EQ(load(CLOSEUP).enProto, CFG_LM_PROTO_E_NONE); // only checked
}

TEST_F(LiveMediaStore, TheJournalShowsNoPassword)
{
    const CFG_LM_RTSP_GENERAL_S stCfg{554, 1, 8554, 1, "user", "secret"};
    CFG_LM_SaveRtspGeneralCfg(&stCfg);
    EXPECT_THAT(journal::effects(), ElementsAre(R"(CFG_LM_SaveRtspGeneralCfg({554, 1, 8554, 1, "user", "***"}))"));
}
} // namespace
