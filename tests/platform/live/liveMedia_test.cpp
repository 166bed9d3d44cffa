// The settings of the network outputs: what a fresh camera has, keys, rules of whole records.
#include "config/liveMedia.h"

#include "support/platformTest.h"

#include <sstream>

using testing::ElementsAre;
using namespace std::string_literals;

namespace
{
using LiveMediaStore = PlatformTest;

constexpr auto CLOSEUP = CFG_LM_CHN_E_CLOSEUP_MAIN;
constexpr auto SUB = CFG_LM_CHN_E_CLOSEUP_SUB;

CFG_LM_CHANNEL_S load(CFG_LM_CHN_E enChn)
{
    CFG_LM_CHANNEL_S st;
    EXPECT_EQ(CFG_LM_LoadAllOfChn(enChn, &st), 0);
    return st;
}
CFG_LM_GENERAL_S loadGeneral()
{
    CFG_LM_GENERAL_S st;
    EXPECT_EQ(CFG_LM_LoadGeneralCfgAll(&st), 0);
    return st;
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
    const CFG_LM_GENERAL_S st = loadGeneral();
    EXPECT_EQ(std::tuple(st.rtsp.s32Port, st.rtsp.s32HttpPort, st.ndi.sGroupName), std::tuple(554, 8554, "Public"));
}

/// The stored values of "folder key ...".
std::string stored(const std::string &strKeys)
{
    std::istringstream in(strKeys);
    std::string strFolder, strText;
    in >> strFolder;
    for (std::string strKey; in >> strKey;) {
        std::string strValue = "-";
        CFG_STORE_GetText(("LiveMedia/" + strFolder + strKey).c_str(), &strValue);
        strText += (strText.empty() ? "" : "|") + strValue;
    }
    return strText;
}

// clang-format off
// Every field has its own key, which released cameras know, and comes back from it.
TEST_F(LiveMediaStore, EveryFieldHasItsKeyBothWays)
{
    const CFG_LM_RTMP_S stRtmp{1, std::string(349, 'u'), std::string(349, 'k'), 1, "user", "pass", -5, CFG_LM_AUDIO_MODE_E_AAC};
    const CFG_LM_SRT_S stSrt{1, 0, "#!::r=live", std::string(64, 'h'), 65535, 24, std::string(80, 'p'), 81, CFG_LM_AUDIO_MODE_E_PCM};
    CFG_LM_CHANNEL_S st{BU_FALSE, CFG_LM_PROTO_E_SRT, {1, "stage/left-1.h264", CFG_LM_AUDIO_MODE_E_G711U}, stRtmp, {1, "Halle süd"}, stSrt, {}, {}};
    CFG_LM_GENERAL_S stGeneral{{8000, 0, 0, 1, "viewer", "se cret"},
                               {"machine", "group", 1, "239.1.1.1", "255.0.0.0", 9, 3, 0, "10.0.0.2", "hb", 1, 7, "a", "b", "c", "d", "e", "f", "g", 0}, {}, {}};
    const std::pair<const BU_CHAR *, std::string> rows[] = {
        {"1/ Protocol", "4"},
        {"1/rtsp/ Enable SessionName Audio", "1|stage/left-1.h264|4"},
        {"1/rtmp/ Enable AuthEnable Username Password Video Audio", "1|1|user|pass|-5|2"},
        {"1/rtmp/ Server StreamCode", stRtmp.sServer + "|" + stRtmp.sStreamCode},
        {"1/ndi/ Enable StreamName", "1|Halle süd"},
        {"1/srt/ Enable Listener StreamId Port AesMode Latency Audio", "1|0|#!::r=live|65535|24|81|1"},
        {"1/srt/ Hostname Password", stSrt.sHostname + "|" + stSrt.sPassword},
        {"general/rtsp/ Port HttpEnable HttpPort AuthEnable Username Password", "8000|0|0|1|viewer|se cret"},
        {"general/ndi/ MachineName GroupName MulticastEnable MulticastIp MulticastNetmask MulticastTTL", "machine|group|1|239.1.1.1|255.0.0.0|9"},
        {"general/ndi/ TransmitMethod DiscoveryEnable DiscoveryServer StreamNameHB HBEnable HBIpMode", "3|0|10.0.0.2|hb|1|7"},
        {"general/ndi/ HBIpaddr HBNetmask HBGateway HBDns HBIpaddrFallback HBNetmaskFallback HBGatewayFallback AudioEnable", "a|b|c|d|e|f|g|0"},
    };
    for (const bool bAgain : {false, true}) { // the second time what was read
        EXPECT_EQ(CFG_LM_SetRtspCfgOfChn(CLOSEUP, &st.rtsp) + CFG_LM_SetRtmpCfgOfChn(CLOSEUP, &st.rtmp) + CFG_LM_SetNdiCfgOfChn(CLOSEUP, &st.ndi) +
                  CFG_LM_SetSrtCfgOfChn(CLOSEUP, &st.srt) + CFG_LM_SetStreamProtocol(CLOSEUP, st.enProto, BU_TRUE) +
                  CFG_LM_SaveRtspGeneralCfg(&stGeneral.rtsp) + CFG_LM_SaveNdiGeneralCfg(&stGeneral.ndi), 0);
        for (const auto &[pcKeys, strValues] : rows) EXPECT_EQ(stored(pcKeys), strValues) << pcKeys << bAgain;
        EXPECT_EQ(load(SUB).rtsp.sSessionName, "closeup_sub");
        st = load(CLOSEUP), stGeneral = loadGeneral();
        CFG_STORE_Open(nullptr);
    }
}

TEST_F(LiveMediaStore, SessionNamesAreUsableInAUrlAndUnique)
{
    const struct { std::string strName; BU_BOOL bEnabled; BU_S32 s32Result; } rows[] = {
        {"a", 1, 0}, {"live/a_b-c.1", 1, 0}, {std::string(64, 'n'), 1, 0}, {std::string(65, 'n'), 1, -1}, {"", 0, 0},
        {"", 1, -1}, {"closeup_sub", 1, -1}, {"closeup_sub", 0, -1}, {"Closeup_sub", 1, 0}, {"two words", 1, -1},
        {"a?b", 1, -1}, {"a%2e", 1, -1}, {"größe", 1, -1}, {"/a", 1, -1}, {"a/", 1, -1}, {"../a", 1, -1},
        {"a/.", 1, -1}, {"a\nb", 1, -1}, {std::string("a\0b", 3), 1, -1}, {"a", 2, -1},
    };
    for (const auto &st : rows) {
        const CFG_LM_RTSP_S stCfg{st.bEnabled, st.strName};
        EXPECT_EQ(CFG_LM_SetRtspCfgOfChn(CLOSEUP, &stCfg), st.s32Result) << '"' << st.strName << '"' << st.bEnabled;
    }
    // A name that was given up is free, one that was taken over is not.
    const CFG_LM_RTSP_S stMine{BU_TRUE, "closeup"}, stTheirs{BU_TRUE, "a"};
    for (const auto &[enChn, st, s32Result] : {std::tuple(SUB, stMine, 0), {CLOSEUP, stMine, -1}, {CLOSEUP, stTheirs, 0}})
        EXPECT_EQ(CFG_LM_SetRtspCfgOfChn(enChn, &st), s32Result);
}

TEST_F(LiveMediaStore, TheRtspServerGetsUsablePortsAndCredentials)
{
    const std::pair<CFG_LM_RTSP_GENERAL_S, BU_S32> rows[] = {
        {{1, 1, 0, 0, "", ""}, 0}, {{65535, 1, 65534, 0, "", ""}, 0}, {{0, 1, 8554, 0, "", ""}, -1},
        {{65536, 1, 8554, 0, "", ""}, -1}, {{554, 1, -1, 0, "", ""}, -1}, {{554, 1, 65536, 0, "", ""}, -1},
        {{8554, 1, 8554, 0, "", ""}, -1}, {{554, 1, 8554, 1, "user", "p"}, 0}, {{554, 1, 8554, 1, "", "p"}, -1},
        {{554, 1, 8554, 1, "user", ""}, -1}, {{554, 1, 8554, 0, "us:er", ""}, -1},
        {{554, 1, 8554, 1, "u", "p\x7f"}, -1}, {{554, 1, 8554, 0, std::string(65, 'u'), ""}, -1},
    };
    for (const auto &[stCfg, s32Result] : rows)
        EXPECT_EQ(CFG_LM_SaveRtspGeneralCfg(&stCfg), s32Result)
            << stCfg.s32Port << ' ' << stCfg.s32HttpPort << ' ' << stCfg.sUsername;
}

// clang-format on

TEST_F(LiveMediaStore, ARefusedRecordLeavesEveryStoredFieldAlone)
{
    CFG_LM_RTMP_S stServer, stKey;
    stServer.sServer = stKey.sStreamCode = std::string(350, 'x');
    EXPECT_EQ(CFG_LM_SetRtmpCfgOfChn(CLOSEUP, &stServer) + CFG_LM_SetRtmpCfgOfChn(CLOSEUP, &stKey), -2);
    CFG_LM_SRT_S stSrt{BU_TRUE, BU_TRUE, "id", "", 9000, 16, "0123456789", 120};
    ASSERT_EQ(CFG_LM_SetSrtCfgOfChn(CLOSEUP, &stSrt), 0);
    for (const auto &[strHost, s32Aes] :
         {std::pair("host"s, 15), {"host"s, 17}, {"host"s, -16}, {"host"s, 256}, {std::string(65, 'h'), 32}}) {
        stSrt = {BU_FALSE, BU_FALSE, "other", strHost, 1, s32Aes, "", 500};
        EXPECT_EQ(CFG_LM_SetSrtCfgOfChn(CLOSEUP, &stSrt), -1) << s32Aes;
    }
    EXPECT_EQ(std::pair(load(CLOSEUP).srt.sStreamId, load(CLOSEUP).srt.s32Port), std::pair("id"s, 9000));
}

TEST_F(LiveMediaStore, AStoredRecordAgainstItsRuleIsPassedOver)
{
    CFG_STORE_SetTexts({{"LiveMedia/1/rtsp/SessionName", "../etc"}, {"LiveMedia/2/rtsp/Audio", "9"}});
    CFG_STORE_SetTexts({{"LiveMedia/2/rtsp/Enable", "0"}, {"LiveMedia/2/Protocol", "17"}});
    EXPECT_EQ(load(CLOSEUP).rtsp.sSessionName, "closeup");
    const CFG_LM_CHANNEL_S st = load(SUB); // the sound field beside the others counts
    EXPECT_EQ(std::tuple(st.rtsp.eAudio, st.rtsp.bEnabled, st.enProto),
              std::tuple(CFG_LM_AUDIO_MODE_E_AAC, BU_FALSE, CFG_LM_PROTO_E_NONE));
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
    const CFG_LM_RTMP_S stRtmp{1, "rtmp://host", "secret", 1, "user", "secret", 0, CFG_LM_AUDIO_MODE_E_AAC};
    const CFG_LM_SRT_S stSrt{1, 0, "id", "host", 9000, 16, "secret", 120, CFG_LM_AUDIO_MODE_E_AAC};
    EXPECT_EQ(CFG_LM_SaveRtspGeneralCfg(&stCfg) + CFG_LM_SetRtmpCfgOfChn(SUB, &stRtmp) +
                  CFG_LM_SetSrtCfgOfChn(SUB, &stSrt),
              0);
    EXPECT_THAT(journal::effects(),
                ElementsAre(R"(CFG_LM_SaveRtspGeneralCfg({554, 1, 8554, 1, "user", "***"}))",
                            R"(CFG_LM_SetRtmpCfgOfChn(2, {1, "rtmp://host", "***", 1, "user", "***", 0, 2}))",
                            R"(CFG_LM_SetSrtCfgOfChn(2, {1, 0, "id", "host", 9000, 16, "***", 120, 2}))"));
}
} // namespace
