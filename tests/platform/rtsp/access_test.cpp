/// Who is let in, and what happens to those who do not behave.
#include "rtspTest.h"

#include <glib.h>
#include <sys/resource.h>

namespace
{
std::string md5(const std::string &strText)
{
    gchar *pcSum = g_compute_checksum_for_string(G_CHECKSUM_MD5, strText.c_str(), -1);
    const std::string strSum = pcSum;
    g_free(pcSum);
    return strSum;
}

std::string basic(const std::string &strUser, const std::string &strPassword)
{
    const std::string strBoth = strUser + ":" + strPassword;
    gchar *pcText = g_base64_encode(reinterpret_cast<const guchar *>(strBoth.data()), strBoth.size());
    const std::string strText = std::string("Basic ") + pcText;
    g_free(pcText);
    return strText;
}

/// The answer to the challenge that a first request brings.
std::string digest(RtspClient &one, const std::string &strUser, const std::string &strPassword)
{
    const std::string strUrl = one.url("live/main"), strHead = one.request("DESCRIBE", strUrl).strHead;
    const auto field = [&](const std::string &strName) {
        const auto start = strHead.find(strName + "=\"", strHead.find("Digest ")) + strName.size() + 2;
        return strHead.substr(start, strHead.find('"', start) - start);
    };
    const std::string strRealm = field("realm"), strNonce = field("nonce");
    const std::string strResponse =
        md5(md5(strUser + ":" + strRealm + ":" + strPassword) + ":" + strNonce + ":" + md5("DESCRIBE:" + strUrl));
    return "Digest username=\"" + strUser + "\", realm=\"" + strRealm + "\", nonce=\"" + strNonce + "\", uri=\"" +
           strUrl + "\", response=\"" + strResponse + "\"";
}
} // namespace

TEST_F(RtspTest, EveryCredentialLetsInAndNothingElse)
{
    struct tagCASE_S {
        const char *pcUser, *pcPassword;
        int s32Status;
    };
    constexpr tagCASE_S CASES[] = {{"admin", "secret", 200},
                                   {"onvif", "p:w", 200},
                                   {"admin", "p:w", 401},
                                   {"nobody", "secret", 401},
                                   {"admin", "", 401}};
    start({{"admin", "secret"}, {"onvif", "p:w"}});
    for (const auto &[pcUser, pcPassword, s32Status] : CASES) {
        RtspClient one = client();
        const auto statusWith = [&](const std::string &strCredential) {
            return one.request("DESCRIBE", one.url("live/main"), {{"Authorization", strCredential}}).s32Status;
        };
        EXPECT_EQ(statusWith(basic(pcUser, pcPassword)), s32Status) << pcUser << " " << pcPassword;
        EXPECT_EQ(statusWith(digest(one, pcUser, pcPassword)), s32Status) << pcUser << " " << pcPassword;
    }
    EXPECT_EQ(client().play("live/main").s32Status, 401);
    EXPECT_EQ(client().play("unknown").s32Status, 401) << "which names there are is told to no stranger";
    EXPECT_EQ(client(Way::Http).play("live/main").s32Status, 401);
    EXPECT_FALSE(m_video.cache().isWanted());
}

TEST_F(RtspTest, WrongRequestsAreRefused)
{
    struct tagCASE_S {
        const char *pcMethod, *pcPath;
        std::map<std::string, std::string> headers;
        int s32Status;
    };
    const tagCASE_S cases[] = {
        {"DESCRIBE", "unknown", {}, 404},
        {"DESCRIBE", "", {}, 404},
        {"SETUP", "live/main/stream=0", {}, 461},
        {"SETUP", "live/main/stream=0", {{"Transport", "RTP/AVP;multicast"}}, 461},
        {"SETUP", "live/main/stream=0", {{"Transport", "RTP/AVP/TCP;interleaved=300-70000"}}, 461},
        {"SETUP", "live/main/stream=99999999999", {{"Transport", "RTP/AVP/TCP;interleaved=0-1"}}, 404},
        {"PLAY", "live/main", {{"Session", "12345"}}, 454},
        {"RECORD", "live/main", {}, 454},
        {"NONSENSE", "live/main", {}, 400},
    };
    start();
    for (const auto &[pcMethod, pcPath, headers, s32Status] : cases) {
        RtspClient one = client();
        EXPECT_EQ(one.request(pcMethod, one.url(pcPath), headers).s32Status, s32Status) << pcMethod << " " << pcPath;
    }
}

TEST_F(RtspTest, GarbageEndsItsOwnConnectionOnly)
{
    const std::string garbage[] = {
        "HELLO\r\n\r\n",
        "OPTIONS * RTSP/1.0\r\n\r\n", // no CSeq
        "OPTIONS rtsp://" + std::string(20000, 'a') + " RTSP/1.0\r\nCSeq: 1\r\n\r\n",
        "ANNOUNCE rtsp://127.0.0.1/live/main RTSP/1.0\r\nCSeq: 1\r\nContent-Length: -5\r\n\r\n",
        "ANNOUNCE rtsp://127.0.0.1/live/main RTSP/1.0\r\nCSeq: 1\r\nContent-Length: 1000000000\r\n\r\nv=0",
        std::string("$\0\xFF\xFF", 4) + std::string(65535, 'z') + "\r\n\r\n",
        std::string("\0\x01\xFF\xFE\r\n\r\n", 8),
        "GET /live HTTP/1.0\r\n\r\n",
    };
    start();
    RtspClient good = viewer();
    std::vector<RtspClient> bad;
    for (const std::string &strGarbage : garbage) {
        bad.push_back(client());
        bad.back().send(strGarbage);
    }
    EXPECT_EQ(client().request("OPTIONS", "*").s32Status, 200); // clients are taken in the order they came
    EXPECT_TRUE(isServed(good));
    // What still waits for more, or for a better request, has no session: it may not stay.
    clock().advance(31'000);
    for (std::size_t i = 0; i < bad.size(); ++i) EXPECT_TRUE(bad[i].isClosed()) << i;
    EXPECT_TRUE(isServed(good));
}

TEST_F(RtspTest, RequestWithoutEndIsCutOff)
{
    start();
    RtspClient good = viewer(), bad = client();
    bad.send("OPTIONS rtsp://127.0.0.1/ RTSP/1.0\r\nCSeq: 1\r\n");
    clock().advance(1000);
    // However the checks cut it in two, one part is too much.
    for (int i = 0; i < 200; ++i) bad.send("X-Header: " + std::string(1000, 'v') + "\r\n");
    EXPECT_TRUE(isServed(good)); // and the flood has arrived
    clock().advance(1000);
    EXPECT_TRUE(bad.isClosed());
    EXPECT_TRUE(isServed(good));
}

TEST_F(RtspTest, OneClientCannotTakeAllSessions)
{
    start();
    RtspClient one = client();
    std::vector<int> statuses;
    for (int i = 0; i < 5; ++i) {
        one.send("SETUP " + one.url("live/main/stream=0") + " RTSP/1.0\r\nCSeq: " + std::to_string(i) +
                 "\r\nTransport: RTP/AVP/TCP;interleaved=0-1\r\n\r\n");
        statuses.push_back(one.answer().s32Status);
    }
    EXPECT_THAT(statuses, testing::ElementsAre(200, 200, 200, 200, 503));
}

TEST_F(RtspTest, OneClientTooManyIsRefusedUntilAnotherLeaves)
{
    rlimit stLimit{};
    getrlimit(RLIMIT_NOFILE, &stLimit);
    stLimit.rlim_cur = std::min<rlim_t>(stLimit.rlim_max, 4096);
    setrlimit(RLIMIT_NOFILE, &stLimit);
    start();
    std::vector<RtspClient> clients;
    for (int i = 0; i < 512; ++i) clients.push_back(client());
    EXPECT_EQ(clients.back().request("OPTIONS", "*").s32Status, 200);
    RtspClient refused = client();
    EXPECT_EQ(refused.answer().s32Status, 503);
    EXPECT_TRUE(refused.isClosed());
    clients.erase(clients.begin());
    int s32Status = 0;
    for (int i = 0; i < 1000 && s32Status != 200; ++i) s32Status = client().request("OPTIONS", "*").s32Status;
    EXPECT_EQ(s32Status, 200);
}
