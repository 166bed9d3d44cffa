#include "files.h"
#include "serverTest.h"

#include <poll.h>
#include <semaphore>
#include <sys/stat.h>
#include <vector>

namespace
{
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

constexpr int NOTHING_READ = 4096; // [bytes] receive buffer of who is slow

TEST_F(ServerTest, RefusesWithAnAnswerAndGoesOn)
{
    start();
    const std::tuple<const char *, std::string, int> ROWS[] = {
        {"TLS on the plain port", "\x16\x03\x01\x02\x05", 400},
        {"long line", "GET /" + std::string(5000, 'x'), 414},
        {"long head", get("/", "A: " + std::string(20000, 'x') + "\r\n"), 431},
        {"body of 64 KiB and one byte", post("/echo", std::string((64 << 10) + 1, 'x')), 413},
        {"body of 1 MB", post("/echo", std::string(1'000'000, 'x')), 413},
        {"body larger than this place takes", post("/small", std::string(11, 'x')), 413},
        {"announced terabytes", "POST /echo HTTP/1.1\r\nContent-Length: 9999999999999\r\n\r\n", 413},
        {"chunks", "POST /echo HTTP/1.1\r\nTransfer-Encoding: chunked\r\n\r\n5\r\nhello\r\n0\r\n\r\n", 411},
        {"not admitted, with a body", post("/forbidden", std::string(100'000, 'x')), 403},
        {"no WebSocket key", get("/preview/ch1", "Upgrade: websocket\r\nConnection: Upgrade\r\n"), 426},
    };
    Peer witness = connect();
    for (const auto &[pcName, strBytes, s32Status] : ROWS) {
        Peer peer = connect();
        peer.send(strBytes);
        const tagANSWER_S st = peer.readAnswer();
        EXPECT_EQ(st.s32Status, s32Status) << pcName;
        EXPECT_THAT(st.strBody, StartsWith("{\"error\":\"")) << pcName;
        EXPECT_EQ(st.header("connection"), "close") << pcName;
        EXPECT_NE(st.header("content-security-policy"), "") << pcName;
        EXPECT_TRUE(peer.isEnded()) << pcName;
        EXPECT_EQ(witness.ask(post("/echo", "still here")).strBody, "POST:still here") << pcName;
    }
    EXPECT_EQ(witness.ask(post("/echo", std::string(64 << 10, 'x'))).s32Status, 200);
}

TEST_F(ServerTest, NothingBesideThePageIsReached)
{
    write("index.html", "page");
    write("a/b.js", "script");
    write(".hidden", "secret");
    write("../secret.txt", "secret");
    write("..a/c.css", "secret");
    std::filesystem::create_symlink(page() / "../secret.txt", page() / "link.txt");
    std::filesystem::create_directory_symlink(page() / "..", page() / "up");
    ASSERT_EQ(mkfifo((page() / "pipe").c_str(), 0600), 0);
    start();
    Peer peer = connect();
    EXPECT_EQ(peer.ask(get("/index.html")).strBody, "page");
    const tagANSWER_S stScript = peer.ask(get("/a/b.js?v=1"));
    EXPECT_EQ(stScript.strBody + stScript.header("content-type"), "scripttext/javascript; charset=utf-8");
    // clang-format off
    for (const char *pcPath :
         {"/../secret.txt", "/a/../../secret.txt", "/%2e%2e/secret.txt", "/..%2fsecret.txt", "/a/..\\..\\secret.txt",
          "/.hidden", "/./index.html", "//index.html", "/a//b.js", "/a/", "/a", "/", "/link.txt", "/up/secret.txt",
          "/..a/c.css", "/pipe", "/index.html/", "/index.html/x", "/index.html%00.js", "/device/../../secret.txt",
          "/device/etc/passwd", "/nothing"}) {
        // clang-format on
        const tagANSWER_S st = peer.ask(get(pcPath));
        EXPECT_EQ(st.s32Status, 404) << pcPath;
        EXPECT_THAT(st.strBody, Not(HasSubstr("secret"))) << pcPath;
    }
}

TEST_F(ServerTest, AFileIsSentAgainOnlyWhenItChanged)
{
    write("style.css", "first");
    start();
    Peer peer = connect();
    const tagANSWER_S stFirst = peer.ask(get("/style.css"));
    EXPECT_EQ(stFirst.header("cache-control"), "no-cache");
    const std::string strTag = stFirst.header("etag"),
                      strAgain = get("/style.css", "If-None-Match: " + strTag + "\r\n");
    const tagANSWER_S stSame = peer.ask(strAgain);
    EXPECT_EQ(std::pair(stSame.s32Status, stSame.header("etag")), std::pair(304, strTag));
    peer.send("HEAD /style.css HTTP/1.1\r\n\r\n" + get("/style.css"));
    EXPECT_EQ(peer.readAnswer(false).header("content-length"), "5");
    EXPECT_EQ(peer.readAnswer().strBody, "first") << "the answer to HEAD had no body";
    write("style.css", "second");
    const tagANSWER_S stChanged = peer.ask(strAgain);
    EXPECT_EQ(stChanged.strBody, "second");
    EXPECT_NE(stChanged.header("etag"), strTag);
    const std::string strLarge(3'000'000, 'x');
    write("style.css", strLarge);
    EXPECT_EQ(peer.ask(get("/style.css")).strBody, strLarge);
    write("style.css", "");
    EXPECT_EQ(peer.ask(get("/style.css")).header("content-length"), "0");
}

TEST_F(ServerTest, KeepsFilesUpToALimitAndKnowsTheirTypes)
{
    web_server::Folder folder(page());
    const auto keep = [&](const std::string &strName, char content = 'x') {
        write(strName, std::string(7 << 20, content));
        return std::weak_ptr(folder.find(strName)->pstBytes);
    };
    const auto first = keep("0");
    for (char c = 'a'; c < 'g'; ++c) keep("1", c); // one file that changes counts once
    keep("2");
    EXPECT_FALSE(first.expired());
    for (const char *pcName : {"3", "4", "5"}) keep(pcName);
    EXPECT_TRUE(first.expired()) << "more than 32 MiB";
    std::string strTypes;
    for (const char *pc : {".html", ".css", ".svg", ".jpg", ".png", ".ico", ".json", ".webmanifest", ".woff2", ""})
        strTypes += std::string(web_server::typeOfFile(pc)) + " ";
    EXPECT_EQ(strTypes,
              "text/html; charset=utf-8 text/css; charset=utf-8 image/svg+xml image/jpeg image/png image/x-icon "
              "application/json application/manifest+json font/woff2 application/octet-stream ");
}

TEST_F(ServerTest, AnswersInOrderOnOneConnection)
{
    start();
    Peer peer = connect();
    peer.send(post("/call", "image") + post("/echo", "next") + get("/echo").substr(0, 10));
    auto stCall = camera_double::next();
    EXPECT_EQ(stCall.strWhat + "," + stCall.strBytes, "7,image");
    stCall.fnAnswer(WEB_CLIENT_RESULT_E_OK, "done");
    EXPECT_EQ(peer.readAnswer().strBody, "0:done");
    EXPECT_EQ(peer.readAnswer().strBody, "POST:next");
    peer.send(get("/echo").substr(10) + post("/ask", "{}"));
    EXPECT_EQ(peer.readAnswer().strBody, "GET:");
    stCall = camera_double::next();
    EXPECT_EQ(stCall.strWhat + stCall.strBytes, "presets{}");
    stCall.fnAnswer(WEB_CLIENT_RESULT_E_BUSY, "");
    EXPECT_EQ(peer.readAnswer().strBody, std::to_string(WEB_CLIENT_RESULT_E_BUSY) + ":");
    peer.send("POST /echo HTTP/1.1\r\nExpect: 100-continue\r\nContent-Length: 2\r\n\r\n");
    EXPECT_EQ(peer.readUntil("\r\n\r\n"), "HTTP/1.1 100 Continue\r\n\r\n");
    peer.send("hi");
    EXPECT_EQ(peer.readAnswer().strBody, "POST:hi");
    peer.send(get("/echo", "Connection: close\r\n"));
    EXPECT_EQ(peer.readAnswer().header("connection"), "close");
    EXPECT_TRUE(peer.isEnded());
}

TEST_F(ServerTest, WhoIsSlowLosesOnlyItsOwnConnection)
{
    config.s64RequestMs = config.s64IdleMs = config.s64AnswerMs = 60;
    start();
    const std::pair<std::string, int> ROWS[] = {
        {"", 0}, // ended without an answer
        {"GET / HTTP/1.1\r\nA: ", 408},
        {"POST /echo HTTP/1.1\r\nContent-Length: 10\r\n\r\nabc", 408},
        {post("/call", ""), 504}, // a camera that does not answer
        {get("/echo"), 200},      // and no second request
    };
    for (const auto &[strBytes, s32Status] : ROWS) {
        Peer peer = connect();
        peer.send(strBytes);
        EXPECT_EQ(peer.readAnswer().s32Status, s32Status) << strBytes;
        EXPECT_TRUE(peer.isEnded()) << strBytes;
    }
    camera_double::next().fnAnswer(WEB_CLIENT_RESULT_E_OK, "too late for anybody");
    EXPECT_EQ(connect().ask(get("/echo")).s32Status, 200);
}

TEST_F(ServerTest, WhoDoesNotReadIsLeft)
{
    write("large.png", std::string(8'000'000, 'x'));
    config.s64AnswerMs = 100;
    start();
    Peer peer = connect(NOTHING_READ), other = connect();
    peer.send(get("/large.png") + get("/echo"));
    for (int i = 0; i < 50; ++i) ASSERT_EQ(other.ask(get("/echo")).s32Status, 200);
    pollfd stCut{peer.fd(), POLLHUP, 0};
    EXPECT_EQ(poll(&stCut, 1, 20'000), 1) << "cut off";
    EXPECT_LT(peer.read(8'000'000).size(), 8'000'000U);
}

TEST_F(ServerTest, AThousandConnectionsLeaveRoomForOneMore)
{
    config.connectionsMax = 900;
    start();
    std::vector<Peer> crowd;
    for (int i = 0; i < 1000; ++i) {
        crowd.push_back(connect());
        ASSERT_TRUE(crowd.back().send("GET / HT"));
    }
    EXPECT_EQ(connect().ask(get("/echo")).s32Status, 200);
    EXPECT_EQ(crowd.back().ask("TP/1.1\r\n\r\n").s32Status, 404) << "the youngest are kept";
    EXPECT_TRUE(crowd.front().isEnded()) << "the oldest made room";
    crowd.clear();
    EXPECT_EQ(connect().ask(get("/echo")).s32Status, 200);
}

TEST_F(ServerTest, WhoKeepsMostOpenMakesRoomWhereNobodyIdles)
{
    write("large.png", std::string(8'000'000, 'x'));
    config.connectionsMax = 8;
    start();
    Peer page = listener();
    for (const std::string &strRequest : {get("/news?greedy"), get("/large.png")}) {
        SCOPED_TRACE(strRequest);
        std::vector<Peer> crowd;
        for (int i = 0; i < 10; ++i) {
            crowd.push_back(connect(NOTHING_READ));
            crowd.back().send(strRequest);
            ASSERT_NE(crowd.back().read(1), "") << "it is being answered";
        }
        EXPECT_EQ(connect().ask(get("/echo")).s32Status, 200);
        EXPECT_TRUE(crowd.front().isEnded()) << "the oldest of the crowd made room";
        server().tell("{}");
        EXPECT_EQ(page.readUntil("data: {}\n\n"), "data: {}\n\n") << "the page of somebody else goes on";
    }
}

TEST_F(ServerTest, SlowWorkHoldsUpNobodyAndDoesNotPileUp)
{
    std::counting_semaphore<16> begun(0), go(0);
    fnWork = [&] {
        begun.release();
        go.acquire();
        return web_server::Reply{200, "text/plain", "worked", {}};
    };
    start();
    std::vector<Peer> peers;
    const auto order = [&] {
        peers.push_back(connect());
        peers.back().send(get("/work"));
    };
    order();
    ASSERT_TRUE(begun.try_acquire_for(std::chrono::seconds(20)));
    Peer witness = connect();
    for (int i = 0; i < 9; ++i) {
        order();
        EXPECT_EQ(witness.ask(get("/echo")).s32Status, 200) << "while it works";
    }
    const tagANSWER_S stBusy = peers.back().readAnswer();
    EXPECT_EQ(std::to_string(stBusy.s32Status) + stBusy.header("retry-after"), "5031") << "one works, eight wait";
    peers.erase(peers.begin() + 1); // it does not wait any more
    go.release(9);
    for (std::size_t i = 0; i < 8; ++i) EXPECT_EQ(peers[i].readAnswer().strBody, "worked") << i;
}

/// The request of a panel set as its image, in the place of the JSON body.
std::string panel(BU_S32 s32Item, BU_S32 s32Value0, BU_S32 s32Value1 = 0)
{
    const BU_S32 as32Image[8] = {0, 0, s32Item, 0, s32Value0, s32Value1, 0, 0};
    return {reinterpret_cast<const char *>(as32Image), sizeof(as32Image)};
}

TEST_F(ServerTest, WhatAPageMovedIsStoppedWhenItsLastStreamEnds)
{
    start();
    Peer first = listener(), second = listener(), driver = connect();
    const auto drive = [&](const char *pcSession, const std::string &strImage) {
        driver.send(post(std::string("/drive?") + pcSession, strImage));
        const auto stCall = camera_double::next();
        EXPECT_EQ(stCall.strBytes, strImage);
        stCall.fnAnswer(WEB_CLIENT_RESULT_E_OK, "");
        driver.readAnswer();
    };
    drive("session", panel(9, 1, 0));   // to the right
    drive("session", panel(11, 1));     // closer
    drive("session", panel(11, 0));     // and that is over
    drive("session", panel(12, 4));     // no movement
    drive("session", "too short");      // nothing at all
    drive("somebody", panel(9, -1, 0)); // who has no page open
    first.close();
    EXPECT_EQ(connect().ask(get("/echo")).s32Status, 200);
    drive("session", panel(12, 5)); // the next call: none came before it, for the other page is there
    second.close();
    const auto stStop = camera_double::next();
    EXPECT_EQ(stStop.strWhat + stStop.strBytes, std::to_string(WEB_RPC_EVENT_GROUP_E_SET_PT) + panel(9, 0, 0));
    stStop.fnAnswer(WEB_CLIENT_RESULT_E_OK, "");
    const std::string strLast = panel(9, -2, -2); // home ends by itself
    drive("session", strLast);
    listener().close();
    drive("session", strLast); // takes the next call: no stop came before it
}

TEST_F(ServerTest, TellsNewsToEveryPage)
{
    config.s64HeartbeatMs = 50;
    start();
    Peer first = listener(), second = connect();
    const tagANSWER_S st = second.ask(get("/news"));
    EXPECT_EQ(st.header("content-type") + st.header("content-length"), "text/event-stream");
    server().setCamera(true);
    server().tell(R"({"preset":3})");
    for (Peer *pst : {&first, &second}) {
        for (const char *pcEnd : {"data: {\"camera\":true}\n\n", "data: {\"preset\":3}\n\n", ":\n\n"}) // a sign of life
            EXPECT_THAT(pst->readUntil(pcEnd), EndsWith(pcEnd));
    }
    first.close();
    server().tell(R"({"preset":4})");
    EXPECT_THAT(second.readUntil("4}\n\n"), EndsWith("data: {\"preset\":4}\n\n"));
    bSessionOpen = false;
    EXPECT_TRUE(second.isEnded()) << "the session has ended";
}

TEST_F(ServerTest, APageThatReadsTooSlowlyIsToldToLookAgain)
{
    start();
    Peer slow = listener("/news", NOTHING_READ), quick = listener();
    const std::string strLong(10'000, 'x');
    int s32Sent = 0;
    for (; s32Sent < 1000; ++s32Sent) { // far more than the system keeps on its way
        server().tell("{\"n\":" + std::to_string(s32Sent) + ",\"long\":\"" + strLong + "\"}");
        ASSERT_THAT(quick.readUntil("}\n\n"), StartsWith("data: {\"n\":" + std::to_string(s32Sent) + ","));
    }
    server().tell(R"({"last":1})");
    const std::string strGot = slow.readUntil("\ndata: {\"last\":1}\n\n");
    EXPECT_THAT(strGot, HasSubstr("\ndata: {\"resync\":true}\n\n"));
    EXPECT_TRUE(strGot.size() < 9'000'000 && strGot.ends_with("}\n\n"));
}
} // namespace
