// Calls of events: what reaches a handler, in which order, and what is refused.
#include "webRpcTest.h"
#include "web_client/socketFile.h"

#include <thread>

namespace
{
using namespace std::string_literals;
using testing::AllOf;
using testing::HasSubstr;
using web_client::Kind;

TEST_F(WebRpcTest, RequestReachesTheHandlerAndTheGapsOfTheAnswerAreZero)
{
    const Peer peer;
    peer.call(7, SUM, request(100));
    const auto st = peer.answer();
    EXPECT_EQ(std::pair(st.u32Id, st.s32Result), std::pair(7U, BU_S32{WEB_CLIENT_RESULT_E_OK}));
    EXPECT_EQ(st.strBytes,
              std::string(12, '\0') + "\1\0\0\0\x73\0\0\0\0\0\0\0\x11\x22\x33\x44\x55\x66\x77\x88"s); // the sum
    peer.call(8, SILENT, request(1));
    EXPECT_EQ(peer.answer().strBytes, std::string(32, '\0'));
}

TEST_F(WebRpcTest, WhatCannotBeHandledIsAnsweredAndReachesNoHandler)
{
    const std::string strImage = request(1);
    // clang-format off
    const std::tuple<BU_U32, std::string, const char *> ROWS[] = {
        {0, strImage, "event 0"}, {8, strImage, "event 8"}, {HALF, strImage, "event 38"}, {116, strImage, "event 116"},
        {0xFFFFFFFF, "", "event 4294967295"}, {COUNT, "", "32 bytes, not 0"},
        {COUNT, strImage.substr(1), "32 bytes, not 31"}, {COUNT, strImage + "x", "32 bytes, not 33"},
        {COUNT, std::string((16 << 10) - 16, 'x'), "32 bytes, not 16368"}, // the longest message
    };
    // clang-format on
    const Peer peer;
    BU_U32 u32Id = 0;
    for (const auto &[u32Event, strRow, pcText] : ROWS) {
        peer.call(++u32Id, u32Event, strRow);
        const auto st = peer.answer();
        const BU_S32 s32Wanted = u32Event == COUNT ? WEB_CLIENT_RESULT_E_REFUSED : WEB_CLIENT_RESULT_E_UNKNOWN;
        EXPECT_EQ(std::pair(st.u32Id, st.s32Result), std::pair(u32Id, s32Wanted)) << pcText;
        EXPECT_THAT(st.strBytes, HasSubstr(pcText));
    }
    peer.ask(90, "weather");
    EXPECT_EQ(peer.answer().s32Result, WEB_CLIENT_RESULT_E_UNKNOWN);
    peer.call(91, COUNT, strImage);
    EXPECT_EQ(valueOf(peer.answer().strBytes), 1) << "the first call that a handler sees";
}

TEST_F(WebRpcTest, WhatIsNoMessageEndsThatConnectionAlone)
{
    const auto head = [](Kind enKind, BU_U32 u32Subject) {
        const web_client::Head st{.enKind = enKind, .u32Subject = u32Subject};
        return std::string(reinterpret_cast<const char *>(&st), sizeof(st));
    };
    std::string strOtherMagic = head(Kind::CALL, SUM), strOtherVersion = strOtherMagic;
    strOtherMagic[0] = 'X';
    strOtherVersion[3] = 2;
    const Peer other;
    for (const std::string &strPacket :
         {"x"s, head(Kind::CALL, SUM).substr(0, 15), strOtherMagic, strOtherVersion, head(Kind::ANSWER, 0),
          head(Kind::NEWS, 0), head(Kind{9}, 0), head(Kind::QUESTION, 5) + "name", head(Kind::QUESTION, 0xFFFFFFFF),
          head(Kind::QUESTION, 65) + std::string(65, 'n'), head(Kind::CALL, SUM) + std::string(20000, 'x')}) {
        const Peer peer;
        peer.send(strPacket);
        EXPECT_TRUE(peer.isEnded()) << testing::PrintToString(strPacket.substr(0, 20));
    }
    EXPECT_TRUE(answers(other));
}

TEST_F(WebRpcTest, CallsOfOnePageKeepTheirOrderOthersPass)
{
    const Peer peer, second;
    for (BU_S32 i = 1; i <= 40; ++i) peer.call(static_cast<BU_U32>(i), i % 2 ? GATED : NEIGHBOUR, request(i));
    gate().waitFor(1); // of the forty
    EXPECT_TRUE(answers(peer)) << "another page of the same web server";
    EXPECT_TRUE(answers(second));
    gate().open();
    for (BU_S32 i = 1; i <= 40; ++i) {
        const auto st = peer.answer();
        EXPECT_EQ(std::pair(st.u32Id, valueOf(st.strBytes)), std::pair(static_cast<BU_U32>(i), i));
    }
}

TEST_F(WebRpcTest, SlowHandlersLeaveAReaderThatSaysBusy)
{
    const Peer peer, second;
    for (BU_U32 i = 0; i < 8; ++i) peer.call(i, GATED_EVENTS[i], request(1));
    gate().waitFor(4); // as many as run at once
    for (BU_U32 i = 8; i < 200; ++i) peer.call(i, GATED, request(1));
    // 4 run, 64 of one web server wait
    for (BU_U32 i = 68; i < 200; ++i) {
        const auto st = peer.answer();
        ASSERT_EQ(std::pair(st.s32Result, st.u32Id), std::pair(BU_S32{WEB_CLIENT_RESULT_E_BUSY}, i));
    }
    for (const BU_U32 u32Event : {GATED, SUM}) second.call(1000, u32Event, request(1)); // not kept out by the other
    gate().open();
    for (int i = 0; i < 2; ++i) EXPECT_EQ(second.answer().s32Result, WEB_CLIENT_RESULT_E_OK);
    for (int i = 0; i < 68; ++i) EXPECT_EQ(peer.answer().s32Result, WEB_CLIENT_RESULT_E_OK);
    EXPECT_TRUE(answers(peer));
}

TEST_F(WebRpcTest, WhoGoesOrDoesNotReadDelaysNobody)
{
    const Peer other;
    {
        const Peer gone;
        for (BU_U32 i = 0; i < 8; ++i) gone.call(i, GATED_EVENTS[i], request(1));
        gate().waitFor(4);
        for (BU_U32 i = 8; i < 10; ++i) gone.call(i, COUNT, request(1));
    }
    gate().open();
    BU_S32 s32Own = 0, s32All = 0;
    while (s32All < s32Own + 2) { // what it has asked for is done
        ASSERT_LT(++s32Own, 100'000);
        other.call(1, COUNT, request(1));
        s32All = valueOf(other.answer().strBytes);
    }

    const Peer deaf;
    for (BU_U32 i = 0; deaf.ask(i, "many", R"({"number":1000})"); ++i) { // until it is cut off
        ASSERT_LT(i, 100'000U);
        if (i % 100) continue;
        EXPECT_TRUE(answers(other));
    }
    EXPECT_TRUE(answers(other));
}

TEST_F(WebRpcTest, ManyWebServersAtOnce)
{
    std::vector<std::jthread> threads;
    for (int t = 0; t < 6; ++t)
        threads.emplace_back([t] {
            const Peer peer;
            for (BU_S32 i = 0; i < 300; ++i) {
                peer.call(static_cast<BU_U32>(i), i % 2 ? COUNT : SUM, request(1000 * t));
                const auto st = peer.answer();
                ASSERT_EQ(st.u32Id, static_cast<BU_U32>(i));
                ASSERT_TRUE(i % 2 || valueOf(st.strBytes) == 1000 * t + 15);
            }
        });
}

class DeepRootTest : public WebRpcTest
{
protected:
    DeepRootTest() : WebRpcTest("/" + std::string(100, 'd') + "/" + std::string(100, 'e')) {}
};

TEST_F(DeepRootTest, SocketFileIsItsOwnersAlsoBelowALongPath)
{
    const std::string strFile = UTIL_ROOT_Path(web_client::SOCKET_PATH);
    EXPECT_EQ(std::filesystem::status(strFile).permissions(), std::filesystem::perms(0600));
    const Peer peer;
    EXPECT_TRUE(answers(peer));

    EXPECT_LT(web_client::listenAt(web_client::SOCKET_PATH), 0) << "a second camera must not take its place";
    EXPECT_EQ(WEB_RPC_RegisterMainHandler(WEB_RPC_EVENT_GROUP_E_GET_ISP, nullptr), -1);
    EXPECT_EQ(WEB_RPC_UnInitForAppMain(BU_FALSE), 0);
    EXPECT_TRUE(peer.isEnded());
    EXPECT_LT(web_client::connectTo(web_client::SOCKET_PATH), 0);
    {
        const auto stale = web_client::listenAt(web_client::SOCKET_PATH);
    } // leaves its file behind
    EXPECT_EQ(WEB_RPC_InitForAppMain(), 0);
    const Peer next;
    EXPECT_TRUE(answers(next));
}
} // namespace
