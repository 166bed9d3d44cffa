// The web server's end.
#include "support/await.h"
#include "webRpcTest.h"
#include "web_client/socketFile.h"

#include <fcntl.h>
#include <mutex>
#include <sys/socket.h>

namespace
{
/// What the client has told, in order: "up", "down", news; answers as "name result bytes".
class Story
{
public:
    void add(std::string strLine)
    {
        const std::lock_guard guard(m_lock);
        m_lines.push_back(std::move(strLine));
    }
    FN_WEB_CLIENT_ANSWER answerTo(const std::string &strName)
    {
        return [this, strName](WEB_CLIENT_RESULT_E enResult, std::string_view strAnswer) {
            add(strName + " " + std::to_string(enResult) +
                (strAnswer.size() == 32 ? "" : " " + std::string(strAnswer)));
        };
    }
    std::string next()
    {
        if (!await([this] { return !isOver(); })) return "";
        const std::lock_guard guard(m_lock);
        return m_lines[m_read++];
    }
    bool isOver()
    {
        const std::lock_guard guard(m_lock);
        return m_read == m_lines.size();
    }

private:
    std::mutex m_lock; // guards the others
    std::vector<std::string> m_lines;
    std::size_t m_read = 0;
};

constexpr auto EVENT_SUM = static_cast<tag_WEB_RPC_EVENT_GROUP_E>(SUM);
constexpr auto EVENT_GATED = static_cast<tag_WEB_RPC_EVENT_GROUP_E>(GATED);

class ClientTest : public WebRpcTest
{
protected:
    explicit ClientTest(Time enTime = Time::REAL) : WebRpcTest("", enTime) {}
    ~ClientTest() override { WEB_CLIENT_Stop(); }
    void start()
    {
        EXPECT_EQ(WEB_CLIENT_Start([this](BU_BOOL bUp) { story.add(bUp ? "up" : "down"); },
                                   [this](std::string_view strJson) {
                                       if (strJson.find("position") == std::string_view::npos)
                                           story.add("news " + std::string(strJson));
                                   }),
                  0);
    }
    Story story;
};

TEST_F(ClientTest, AsksAndComesBackAfterTheCameraWasAway)
{
    WEB_RPC_UnInitForAppMain(BU_FALSE);
    start();
    EXPECT_EQ(WEB_CLIENT_Start(nullptr, nullptr), -1);
    WEB_CLIENT_Call(EVENT_SUM, request(1), 5000, story.answerTo("early"));
    EXPECT_EQ(story.next(), "early -1 ");
    for (int i = 0; i < 3; ++i) {
        WEB_RPC_InitForAppMain();
        EXPECT_EQ(story.next(), "up");
        for (const auto &[strImage, pcAnswer] : {std::pair(request(1), " 0"),
                                                 {std::string(20'000, 'x'), " -4 "},
                                                 {request(1) + "x", " -4 event 1 takes 32 bytes, not 33"}}) {
            WEB_CLIENT_Call(EVENT_SUM, strImage, 5000, story.answerTo(""));
            EXPECT_EQ(story.next(), pcAnswer);
        }
        WEB_CLIENT_Ask("weather", "", 5000, story.answerTo("question"));
        EXPECT_EQ(story.next(), "question -3 nobody knows the question");
        WEB_RPC_UnInitForAppMain(BU_FALSE);
        EXPECT_EQ(story.next(), "down");
    }
    WEB_CLIENT_Stop();
    EXPECT_TRUE(story.isOver());
}

TEST_F(ClientTest, EveryCallIsAnsweredOnceWhateverHappens)
{
    start();
    EXPECT_EQ(story.next(), "up");
    std::atomic<int> s32Answers{0}, s32Busy{0};
    constexpr int CALLS = 1000;
    for (int i = 0; i < CALLS; ++i)
        WEB_CLIENT_Call(EVENT_GATED, request(1), 60'000, [&](WEB_CLIENT_RESULT_E enResult, std::string_view) {
            ++s32Answers;
            s32Busy += enResult == WEB_CLIENT_RESULT_E_BUSY;
        });
    WEB_CLIENT_Call(EVENT_SUM, request(1), 60'000, [&](WEB_CLIENT_RESULT_E, std::string_view) { ++s32Answers; });
    gate().waitFor(1);
    WEB_CLIENT_Stop(); // the rest is answered before it returns
    EXPECT_EQ(s32Answers, CALLS + 1);
    EXPECT_GT(s32Busy, 0);
    WEB_CLIENT_Call(EVENT_SUM, request(1), 60'000, story.answerTo("late"));
    EXPECT_EQ(story.next(), "late -1 ");
}

/// A camera that accepts and says nothing by itself.
class SilentCameraTest : public ClientTest
{
protected:
    SilentCameraTest() : ClientTest(Time::MANUAL)
    {
        WEB_RPC_UnInitForAppMain(BU_FALSE);
        m_listener = web_client::listenAt(web_client::SOCKET_PATH);
        fcntl(m_listener, F_SETFL, 0);
        start();
        EXPECT_EQ(story.next(), "up");
        m_fd = util::FileDescriptor(accept(m_listener, nullptr, nullptr));
    }
    void answer(BU_U32 u32Id, const std::string &strText) const
    {
        const web_client::Head stHead{.enKind = web_client::Kind::ANSWER, .u32Id = u32Id};
        web_client::sendPacket(m_fd, {reinterpret_cast<const char *>(&stHead), sizeof(stHead)}, strText);
    }
    util::FileDescriptor m_listener, m_fd;
};

TEST_F(SilentCameraTest, TimesOutEachCallOnItsOwn)
{
    WEB_CLIENT_Call(EVENT_SUM, request(1), 3000, story.answerTo("long"));
    WEB_CLIENT_Call(EVENT_SUM, request(1), 1000, story.answerTo("short"));
    WEB_CLIENT_Ask("position", "", 2000, story.answerTo("middle"));
    clock().advance(1000);
    EXPECT_EQ(story.next(), "short -2 ");
    answer(2, "too late");
    answer(3, "in time");
    EXPECT_EQ(story.next(), "middle 0 in time");
    clock().advance(1999);
    WEB_CLIENT_Call(EVENT_SUM, request(1), 1000, story.answerTo("other"));
    answer(4, "");
    EXPECT_EQ(story.next(), "other 0 ");
    clock().advance(1);
    EXPECT_EQ(story.next(), "long -2 ");
}

TEST_F(SilentCameraTest, WhatWaitsWhenTheCameraGoesIsGone)
{
    WEB_CLIENT_Call(EVENT_SUM, request(1), 3000, story.answerTo("call"));
    m_fd = {};
    for (const char *pc : {"call -1 ", "down", "up"}) EXPECT_EQ(story.next(), pc); // up at once: somebody listens
    m_fd = util::FileDescriptor(accept(m_listener, nullptr, nullptr));
    send(m_fd, "nonsense", 8, MSG_NOSIGNAL);
    EXPECT_EQ(story.next(), "down") << "it does not speak the same language";
}
} // namespace
