#include "http/answer.h"
#include "http/headers.h"
#include "http/request.h"

#include <gmock/gmock.h>

#include <string>

namespace
{
using namespace http;
using namespace std::string_literals;
using testing::ElementsAre;

BU_U32 statusOf(const std::optional<Parsed> &parsed)
{
    if (!parsed) return 0;
    const auto *pst = std::get_if<Refusal>(&*parsed);
    return pst ? pst->u32Status : 200;
}

std::string headers(std::size_t count)
{
    std::string str;
    for (std::size_t i = 0; i < count; ++i) str += "A: b\r\n";
    return str;
}

/// A head of exactly that many bytes.
std::string headOf(std::size_t size)
{
    std::string str = "GET / HTTP/1.1\r\n";
    while (str.size() + 1003 < size) str += "A: " + std::string(995, 'x') + "\r\n";
    return str + "A: " + std::string(size - str.size() - 7, 'x') + "\r\n\r\n";
}

TEST(HttpHead, IsTakenOrRefusedByItsBytes)
{
    const std::string strGet = "GET / HTTP/1.1\r\n";
    // clang-format off
    const struct { const char *pcName; std::string strBytes; BU_U32 u32Status; } HEADS[] = { // 0: more is awaited
        {"plain", strGet + "Host: a\r\n\r\n", 200}, {"HTTP/1.0", "GET / HTTP/1.0\r\n\r\n", 200},
        {"an empty line before it", "\r\n" + strGet + "\r\n", 200}, {"unknown method", "BREW / HTTP/1.1\r\n\r\n", 200},
        {"half a line", "GET /", 0}, {"half a head", strGet + "Host: a\r\n", 0}, {"nothing", "", 0},
        {"TLS", "\x16\x03\x01\x02"s, 400}, {"zeros", std::string(4, '\0'), 400}, {"no version", "GET /\r\n\r\n", 400},
        {"two blanks", "GET  / HTTP/1.1\r\n\r\n", 400}, {"blank in the path", "GET /a b HTTP/1.1\r\n\r\n", 400},
        {"zero in the path", "GET /a\0b HTTP/1.1\r\n\r\n"s, 400},
        {"high bytes in the path", "GET /\xC3\xA9 HTTP/1.1\r\n\r\n", 400},
        {"fragment", "GET /#a HTTP/1.1\r\n\r\n", 400}, {"whole address", "GET http://a/ HTTP/1.1\r\n\r\n", 400},
        {"all", "OPTIONS * HTTP/1.1\r\n\r\n", 400}, {"method with brackets", "G(T / HTTP/1.1\r\n\r\n", 400},
        {"another protocol", "GET / RTSP/1.0\r\n\r\n", 400}, {"HTTP/2", "GET / HTTP/2.0\r\n\r\n", 505},
        {"HTTP/1.11", "GET / HTTP/1.11\r\n\r\n", 505}, {"bare line feeds", "GET / HTTP/1.1\nHost: a\n\r\n\r\n", 400},
        {"header without colon", strGet + "Host\r\n\r\n", 400}, {"header without name", strGet + ": a\r\n\r\n", 400},
        {"blank before the colon", strGet + "Host : a\r\n\r\n", 400},
        {"folded header", strGet + "A: b\r\n c\r\n\r\n", 400},
        {"line feed in a value", strGet + "A: b\nHost: a\r\n\r\n", 400},
        {"zero in a value", strGet + "A: \0\r\n\r\n"s, 400}, {"two hosts", strGet + "Host: a\r\nhost: b\r\n\r\n", 400},
        {"two origins", strGet + "Origin: a\r\nOrigin: a\r\n\r\n", 400},
        {"two lengths", strGet + "Content-Length: 1\r\nContent-Length: 1\r\n\r\n", 400},
        {"length and chunks", strGet + "Content-Length: 1\r\nTransfer-Encoding: chunked\r\n\r\n", 400},
        {"negative length", strGet + "Content-Length: -1\r\n\r\n", 400},
        {"length with a sign", strGet + "Content-Length: +1\r\n\r\n", 400},
        {"hexadecimal length", strGet + "Content-Length: 0x10\r\n\r\n", 400},
        {"list of lengths", strGet + "Content-Length: 1, 1\r\n\r\n", 400},
        {"no length", strGet + "Content-Length:\r\n\r\n", 400},
        {"length beyond 64 bits", strGet + "Content-Length: 99999999999999999999\r\n\r\n", 400},
        {"longest line", "GET /" + std::string(LINE_MAX_BYTES - 14, 'x') + " HTTP/1.1\r\n\r\n", 200},
        {"line too long", "GET /" + std::string(LINE_MAX_BYTES - 13, 'x') + " HTTP/1.1\r\n\r\n", 414},
        {"line without end", "GET /" + std::string(LINE_MAX_BYTES, 'x'), 414},
        {"most headers", strGet + headers(HEADERS_MAX) + "\r\n", 200},
        {"too many headers", strGet + headers(HEADERS_MAX + 1) + "\r\n", 431},
        {"longest head", headOf(HEAD_MAX_BYTES), 200}, {"head too long", headOf(HEAD_MAX_BYTES + 1), 431},
        {"head without end", strGet + "A: " + std::string(HEAD_MAX_BYTES, 'x'), 431},
    };
    // clang-format on
    for (const auto &[pcName, strBytes, u32Status] : HEADS) {
        std::string strInput = strBytes;
        HeadReader reader;
        EXPECT_EQ(statusOf(reader.take(strInput)), u32Status) << pcName;
        std::optional<Parsed> parsed; // the same, byte by byte
        HeadReader slow;
        strInput.clear();
        for (std::size_t i = 0; i < strBytes.size() && !parsed; ++i) parsed = slow.take(strInput += strBytes[i]);
        EXPECT_EQ(statusOf(parsed), u32Status) << pcName << ", slowly";
    }
}

TEST(HttpHead, LeavesWhatFollowsIt)
{
    std::string strInput =
        "POST /a?b=%41?c HTTP/1.1\r\nhOST:  camera \t\r\nContent-Length: 4\r\nCookie: x=1\r\nCookie: y=2\r\n"
        "Sec-Fetch-Site: none\r\nIf-None-Match: \"t\"\r\nExpect: 100-continue\r\nSec-WebSocket-Version: "
        "13\r\n\r\nbodyGET / HTTP/1.1\r\n\r\n";
    HeadReader reader;
    const Head stHead = std::get<Head>(reader.take(strInput).value());
    const Request &st = stHead.stRequest;
    EXPECT_THAT((std::vector{st.strMethod, st.strPath, st.strQuery, st.strHost.value_or("-"),
                             st.strCookie.value_or("-"), st.strFetchSite.value_or("-"), st.strOrigin.value_or("-"),
                             stHead.strIfNoneMatch, stHead.strWebSocketVersion}),
                ElementsAre("POST", "/a", "b=%41?c", "camera", "x=1; y=2", "none", "-", "\"t\"", "13"));
    EXPECT_EQ(st.u64BodyBytes, 4U);
    EXPECT_TRUE(stHead.bExpectContinue);
    EXPECT_TRUE(strInput.starts_with("bodyGET"));
    strInput.erase(0, 4);
    EXPECT_EQ(statusOf(reader.take(strInput)), 200U) << "the same reader takes the next one";
    EXPECT_EQ(strInput, "");
}

TEST(HttpHead, TellsHowTheConnectionGoesOn)
{
    // clang-format off
    constexpr struct { const char *pcVersion, *pcHeaders; bool bKeepAlive, bUpgrade; } CONNECTIONS[] = {
        {"1.1", "", true, false}, {"1.0", "", false, false}, {"1.0", "Connection: Keep-Alive\r\n", true, false},
        {"1.1", "Connection: foo, CLOSE\r\n", false, false}, {"1.1", "Connection: closet\r\n", true, false},
        {"1.1", "Connection: keep-alive, Upgrade\r\nUpgrade: WebSocket\r\n", true, true},
        {"1.1", "Upgrade: websocket\r\n", true, false}, {"1.1", "Connection: Upgrade\r\nUpgrade: h2c\r\n", true, false},
    };
    // clang-format on
    for (const auto &[pcVersion, pcHeaders, bKeepAlive, bUpgrade] : CONNECTIONS) {
        const Parsed parsed = parseHead(std::string("GET / HTTP/") + pcVersion + "\r\n" + pcHeaders + "\r\n");
        EXPECT_EQ(std::get<Head>(parsed).bKeepAlive, bKeepAlive) << pcHeaders;
        EXPECT_EQ(std::get<Head>(parsed).stRequest.bUpgrade, bUpgrade) << pcHeaders;
    }
}

TEST(HttpTag, IsFoundInAList)
{
    const std::string strTag = R"("a")";
    for (const char *pcList : {R"("a")", R"(W/"a")", R"("b" ,W/"a")", "*"}) EXPECT_TRUE(isTagIn(pcList, strTag));
    for (const char *pcList : {"", "a", R"("b")", ","}) EXPECT_FALSE(isTagIn(pcList, strTag)) << pcList;
}

TEST(HttpAnswer, HasNoPlaceForForeignLines)
{
    const std::string str = answerHead({200, "text/plain", 3, true, 784111777},
                                       {{"Set-Cookie", "a=b\r\nEvil: 1"}, {"Retry-After", "1"}}, {});
    EXPECT_TRUE(str.starts_with("HTTP/1.1 200 OK\r\nDate: Sun, 06 Nov 1994 08:49:37 GMT\r\n")) << str;
    EXPECT_EQ(str.find("Evil"), std::string::npos);
    EXPECT_NE(str.find("\r\nRetry-After: 1\r\n"), std::string::npos);
    constexpr Header ALWAYS[] = {{"X-Frame-Options", "DENY"}};
    const std::string strSame = answerHead({304, "", 3, true, 0}, {}, ALWAYS);
    EXPECT_EQ(strSame.find("Content-Length"), std::string::npos);
    EXPECT_NE(strSame.find("\r\nX-Frame-Options: DENY\r\n"), std::string::npos);
}

TEST(HttpWebSocket, IsAnsweredAsItsStandardShows)
{
    EXPECT_NE(switchingHead("dGhlIHNhbXBsZSBub25jZQ==", {})
                  .find("\r\nSec-WebSocket-Accept: s3pPLMBiTxaQ9kYGzzhZRbK+xOo=\r\n"),
              std::string::npos);
    EXPECT_EQ(closeFrame(1013, "no"), "\x88\x04\x03\xF5no");
    EXPECT_EQ(closeFrame(1013, std::string(200, 'x')).size(), 127U) << "a control frame has one byte of length";
    for (const char *pcBad :
         {"", "dGhlIHNhbXBsZSBub25jZQ=", "dGhlIHNhbXBsZSBub25jZQ==\r\n", "dGhlIHNhbXBsZSBub25jZ-=="})
        EXPECT_FALSE(isWebSocketKey(pcBad)) << pcBad;
}

TEST(ContentType, IsJsonInUtf8)
{
    for (const char *pcType : {"application/json", "Application/JSON; charset=UTF-8",
                               "application/json;charset=\"utf-8\"", "application/json; profile=x"})
        EXPECT_TRUE(isJsonType(pcType)) << pcType;
    for (const char *pcType : {"", "text/plain", "application/x-www-form-urlencoded", "application/jsonx",
                               "text/plain; application/json", "application/json; charset=utf-16"})
        EXPECT_FALSE(isJsonType(pcType)) << pcType;
}

TEST(Cookies, SurviveGarbageAndForgery)
{
    EXPECT_THAT(cookies("a=1; s=one; sx=2; xs=3;s = two", "s"), ElementsAre("one", "two"));
    EXPECT_THAT(cookies("s=1;s=2;s=3;s=4;s=5", "s").size(), 4U);
    EXPECT_THAT(cookies(";;=;s;=s; =s=1;s=", "s"), ElementsAre(""));
    EXPECT_THAT(cookies("s=a=b", "s"), ElementsAre("a=b"));
    EXPECT_TRUE(cookies("", "s").empty());
    EXPECT_TRUE(cookies(std::string(100000, ';') + "\xFF\x01", "s").empty());
}

TEST(PagePath, StaysInsideTheFolder)
{
    EXPECT_EQ(pagePath("/"), "index.html");
    EXPECT_EQ(pagePath("/js/pan-tilt_2.mjs"), "js/pan-tilt_2.mjs");
    for (const char *pcPath :
         {"", "app.js", "//etc/passwd", "/../users.json", "/js/../../x", "/js/..", "/.git/config", "/js/.hidden",
          "/js/", "/js//x", "/%2e%2e/x", "/..%2fx", "/a\\..\\x", "/a b", "/a\nb", "/a?b", "/~root", "/\xC3\xBC"})
        EXPECT_FALSE(pagePath(pcPath)) << pcPath;
    EXPECT_FALSE(pagePath("/" + std::string(300, 'a')));
    EXPECT_FALSE(pagePath(std::string("/a\0b", 4)));
}
} // namespace
