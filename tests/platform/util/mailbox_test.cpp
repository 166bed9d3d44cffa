/// Hand-overs between threads, and lists of listeners that change while they are walked.
#include "support/await.h"
#include "util/listeners.h"
#include "util/mailbox.h"
#include "util/thread.h"

#include <future>
#include <gmock/gmock.h>
#include <thread>

using testing::ElementsAre;

namespace
{
TEST(Mailbox, WakesOnceForAllThatLiesInItKeepsItsLimitAndIsSilentOnceClosed)
{
    BU_S32 s32Woken = 0;
    util::Mailbox<BU_S32> box([&] { ++s32Woken; }, 2);
    EXPECT_THAT((std::vector{box.post(1), box.post(2), box.post(3)}), ElementsAre(true, true, false));
    EXPECT_EQ(s32Woken, 1);
    EXPECT_THAT(box.take(), ElementsAre(1, 2));
    EXPECT_TRUE(box.post(4));
    box.wake();
    EXPECT_EQ(s32Woken, 3);
    box.close();
    box.wake();
    EXPECT_FALSE(box.post(5));
    EXPECT_THAT(box.take(), ElementsAre());
    EXPECT_EQ(s32Woken, 3);
    util::Mailbox<std::shared_ptr<void>> other; // what is dropped may post in its destructor
    other.post({nullptr, [&](void *) { other.post(nullptr); }});
    other.close();
}

TEST(Mailbox, WaitingTakerGetsEachInOrderAndGoesWhenStoppedOrClosed)
{
    for (const bool bClose : {false, true}) {
        util::Mailbox<> work;
        std::vector<BU_S32> done;
        std::promise<void> second, ended;
        util::Thread taker("taker", [&](const std::stop_token &stop) {
            while (const auto fn = work.next(stop)) (*fn)();
            ended.set_value();
        });
        work.post([&] { done.push_back(1), work.post([&] { done.push_back(2), second.set_value(); }); });
        soon(second);
        if (bClose) work.close(), soon(ended);
        taker = {};
        EXPECT_THAT(done, ElementsAre(1, 2));
    }
}

TEST(Listeners, AreToldInOrderByThoseWhoWereThereWhenItBegan)
{
    util::Listeners<const std::string &> listeners;
    std::vector<std::string> heard;
    EXPECT_EQ(listeners.add(nullptr), -1);
    BU_S32 s32First = 0, s32Second = 0;
    s32First = listeners.add([&](const std::string &str) {
        heard.push_back("1" + str);
        EXPECT_EQ(listeners.remove(s32Second), heard.size() == 1 ? 0 : -1);
        listeners.add([&](const std::string &strLater) { heard.push_back("3" + strLater); });
    });
    s32Second = listeners.add([&](const std::string &str) { heard.push_back("2" + str); });
    listeners.tell("a");
    EXPECT_THAT(heard, ElementsAre("1a", "2a"));
    listeners.tell("b");
    EXPECT_EQ(listeners.remove(s32First), 0);
    listeners.tell("c");
    EXPECT_THAT(heard, ElementsAre("1a", "2a", "1b", "3b", "3c", "3c"));
}
} // namespace
