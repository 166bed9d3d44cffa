// Questions and news: JSON by the field lists of their records.
#include "webRpcTest.h"
#include "web_client/recordJson.h"

#include <set>

namespace
{
TEST_F(WebRpcTest, QuestionsAreAnsweredByTheirRecords)
{
    // clang-format off
    constexpr std::tuple<const char *, const char *, BU_S32, const char *> ROWS[] = {
        {"echo", "", WEB_CLIENT_RESULT_E_OK, R"({"number":5,"text":""})"},
        {"echo", R"({"text":"\u00fc"})", WEB_CLIENT_RESULT_E_OK, R"({"number":5,"text":"ü"})"},
        {"echo", R"({"number":-1})", WEB_CLIENT_RESULT_E_REFUSED, "too dark"},
        {"echo", R"({"other":1})", WEB_CLIENT_RESULT_E_REFUSED, "other is no field"},
        {"many", R"({"number":0})", WEB_CLIENT_RESULT_E_OK, "[]"},
        {"many", R"({"number":2})", WEB_CLIENT_RESULT_E_OK,
         R"([{"line":"a \"line\""},{"line":"","more":[{"number":7,"text":"x"}]}])"},
    };
    // clang-format on
    const Peer peer;
    for (const auto &[pcQuestion, pcJson, s32Result, pcAnswer] : ROWS) {
        peer.ask(1, pcQuestion, pcJson);
        const auto st = peer.answer();
        EXPECT_EQ(st.s32Result, s32Result) << pcJson;
        EXPECT_EQ(st.strBytes, pcAnswer);
    }

    peer.ask(3, "many", R"({"number":8000})");
    EXPECT_GT(peer.answer().strBytes.size(), 150'000U) << "as long as it can become";
}

TEST_F(WebRpcTest, EverybodyHearsNewsAndWhoReadsLateTheNewestOfEach)
{
    const Peer late, prompt;
    EXPECT_TRUE(answers(late) && answers(prompt)); // the service knows of them
    constexpr BU_S32 TIMES = 3000;
    for (BU_S32 i = 1; i <= TIMES; ++i) {
        EXPECT_EQ(tell("first", i), 2);
        EXPECT_EQ(tell("second", -i, "two"), 2);
        EXPECT_EQ(prompt.news(), "{\"number\":" + std::to_string(i) + ",\"text\":\"\"}");
        prompt.news();
    }
    late.call(2, SUM, request(1));
    int s32Count = 0;
    for (std::set<std::string> wanted{"", R"({"number":3000,"text":""})", R"({"number":-3000,"text":"two"})"};
         !wanted.empty(); ++s32Count) {
        const auto st = late.receive();
        ASSERT_NE(st.enKind, web_client::Kind{});
        wanted.erase(st.enKind == web_client::Kind::ANSWER ? "" : st.strBytes);
    }
    EXPECT_LT(s32Count, 2 * TIMES) << "nothing was left out: the test shows nothing";
    WEB_RPC_UnInitForAppMain(BU_FALSE);
    EXPECT_EQ(tell("first", 0), 0);
}
} // namespace
