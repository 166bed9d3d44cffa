/// Clocks, timers and threads. With a manual clock but where the queue's own thread matters.
#include "support/await.h"
#include "util/thread.h"
#include "util/time.h"

#include <atomic>
#include <future>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <vector>

using testing::ElementsAre;
using util::ManualClock;
using util::TimerQueue;

namespace
{
/// What the callbacks did, in order, with the time since the start of the case.
struct Record {
    BU_S64 s64StartMs = UTIL_TIME_NowMs();
    std::vector<std::string> entries;
    void note(const std::string &strName)
    {
        entries.push_back(strName + "@" + std::to_string(UTIL_TIME_NowMs() - s64StartMs));
    }
};

struct TimerCase : Record {
    BU_S32 (*pfnInside)(TimerCase &) = nullptr; // what the callback does beside noting
    BU_TIMER_DATA_S stHandle{};
    BU_S32 s32Calls = 0;
};
BU_S32 onTimer(void *pvCase)
{
    auto &stCase = *static_cast<TimerCase *>(pvCase);
    stCase.s32Calls++;
    stCase.note("timer");
    EXPECT_EQ(stCase.pfnInside ? stCase.pfnInside(stCase) : 0, 0);
    return 0;
}

BU_S32 startAgain(TimerCase &st) { return UTIL_TIMER_Start(BU_TIMER_E_ONCE, 30, onTimer, &st, &st.stHandle); }
BU_S32 slowDown(TimerCase &st) { return UTIL_TIMER_UpdatePeriod(&st.stHandle, 30); }

TEST(ManualClock, AllQueuesFireInOneOrderOfTimeThenOfGiving)
{
    TimerQueue early("early"); // made before the clock
    ManualClock clock;
    TimerQueue late("late");
    Record stRecord;
    const auto at = [&](TimerQueue &queue, BU_S64 s64Ms, std::string strName) {
        queue.at(stRecord.s64StartMs + s64Ms, [&stRecord, strName] { stRecord.note(strName); });
    };
    for (const auto &[pst, s32Ms, pcName] :
         {std::tuple(&late, 30, "c"), {&early, 20, "a"}, {&late, 20, "b"}, {&early, -5, "past"}, {&early, 41, "later"}})
        at(*pst, s32Ms, pcName);
    early.at(stRecord.s64StartMs + 30, [&] { at(late, 35, "given inside"); });
    clock.advance(40);
    EXPECT_THAT(stRecord.entries, ElementsAre("past@0", "a@20", "b@20", "c@30", "given inside@35"));
    EXPECT_EQ(UTIL_TIME_NowMs(), stRecord.s64StartMs + 40);
}

TEST(ManualClock, SleepersWakeAtTheirTimeAndAtTheEndWhenWhatStillWaitsIsDropped)
{
    auto clock = std::make_unique<ManualClock>();
    std::atomic<BU_S32> s32Woken{0};
    const auto sleeper = [&](BU_S32 s32Ms) {
        return std::thread([&, s32Ms] { UTIL_TIME_SleepMs(s32Ms), s32Woken++; });
    };
    std::thread first = sleeper(1000), second = sleeper(5000);
    clock->waitForSleepers(2);
    clock->advance(999);
    EXPECT_EQ(s32Woken, 0);
    clock->advance(1);
    first.join();
    EXPECT_EQ(s32Woken, 1);
    TimerQueue queue("queue");
    queue.at(UTIL_TIME_NowMs() + 10, [] { FAIL() << "waited still when the clock ended"; });
    clock.reset();
    second.join();
    ManualClock().advance(100000);
}

TEST(Timer, CallbackMayChangeItsOwnTimer)
{
    // clang-format off
    const struct { BU_TIMER_TYPE_E enType; BU_S32 (*pfnInside)(TimerCase &); std::vector<std::string> at; } cases[] = {
        {BU_TIMER_E_ONCE, nullptr, {"timer@20"}}, // in 100 ms of a 20 ms timer
        {BU_TIMER_E_ONCE, [](TimerCase &st) { return st.s32Calls < 3 ? startAgain(st) : 0; },
         {"timer@20", "timer@50", "timer@80"}},
        {BU_TIMER_E_ONCE, [](TimerCase &st) { return slowDown(st) + 1; }, {"timer@20"}}, // is over when it fires
        {BU_TIMER_E_PERIODIC, nullptr, {"timer@20", "timer@40", "timer@60", "timer@80", "timer@100"}},
        {BU_TIMER_E_PERIODIC, [](TimerCase &st) { return st.s32Calls == 2 ? UTIL_TIMER_Stop(&st.stHandle) : 0; },
         {"timer@20", "timer@40"}},
        {BU_TIMER_E_PERIODIC, slowDown, {"timer@20", "timer@50", "timer@80"}},
    };
    // clang-format on
    for (const auto &[enType, pfnInside, entries] : cases) {
        ManualClock clock;
        TimerCase stCase{{}, pfnInside};
        ASSERT_EQ(UTIL_TIMER_Start(enType, 20, onTimer, &stCase, &stCase.stHandle), 0);
        clock.advance(100);
        UTIL_TIMER_Stop(&stCase.stHandle);
        clock.advance(1000);
        EXPECT_EQ(stCase.entries, entries);
    }
}

TEST(Timer, RestartCountsFromNowWithTheNewValuesAndWhatCannotRunIsRefused)
{
    ManualClock clock;
    TimerCase stCase;
    UTIL_TIMER_Start(BU_TIMER_E_PERIODIC, 20, onTimer, &stCase, &stCase.stHandle);
    clock.advance(15);
    UTIL_TIMER_Start(BU_TIMER_E_ONCE, 20, onTimer, &stCase, &stCase.stHandle);
    clock.advance(200);
    EXPECT_THAT(stCase.entries, ElementsAre("timer@35"));
    BU_TIMER_DATA_S stHandle{};
    EXPECT_THAT((std::vector{UTIL_TIMER_Start(BU_TIMER_E_ONCE, 0, onTimer, nullptr, &stHandle),
                             UTIL_TIMER_Start(BU_TIMER_E_ONCE, 1, nullptr, nullptr, &stHandle),
                             UTIL_TIMER_Start(BU_TIMER_E_ONCE, 1, onTimer, nullptr, nullptr),
                             UTIL_TIMER_UpdatePeriod(&stHandle, 5), UTIL_TIMER_Stop(&stHandle)}),
                ElementsAre(-1, -1, -1, -1, 0)); // never started
}

// With the real clock: what the queue's own thread does.
TEST(TimerQueue, CancelsInTimeRunsTheEarliestFirstAndEndsBehindTheRunningFunction)
{
    std::promise<void> started, release;
    std::atomic<bool> bEnded{false};
    {
        TimerQueue queue("queue");
        queue.at(UTIL_TIME_NowMs() + 3600000, [] { FAIL() << "an hour has not passed"; });
        const auto running = queue.at(UTIL_TIME_NowMs() + 1, [&] {
            started.set_value();
            soon(release);
            UTIL_TIME_SleepMs(5);
            bEnded = true;
        });
        const auto waiting = queue.at(UTIL_TIME_NowMs() + 1, [] { FAIL() << "was cancelled"; });
        soon(started);
        EXPECT_THAT((std::vector{queue.cancel(running), queue.cancel(waiting), queue.cancel(waiting)}),
                    ElementsAre(false, true, false));
        queue.at(0, [] { FAIL() << "waited still"; });
        release.set_value();
    }
    EXPECT_TRUE(bEnded);
}

/// A callback must not begin once Stop has returned and no callback was under way.
TEST(Timer, StopHoldsAgainstTheTimerThread)
{
    static std::atomic<BU_S32> s32Forbidden, s32Calls;
    static std::atomic<bool> bStopped;
    const auto onTick = [](void *) -> BU_S32 { return s32Calls++, s32Forbidden += bStopped; };
    const auto pass = [](void *pv) -> BU_S32 { return static_cast<std::promise<void> *>(pv)->set_value(), 0; };
    BU_TIMER_DATA_S stHandle{}, stBarrier{};
    for (int round = 0; round < 50; round++) {
        UTIL_TIMER_Start(BU_TIMER_E_PERIODIC, 1, onTick, nullptr, &stHandle);
        std::thread restarter([&] { UTIL_TIMER_UpdatePeriod(&stHandle, 1); });
        ASSERT_TRUE(await([&] { return s32Calls > round; }));
        restarter.join();
        UTIL_TIMER_Stop(&stHandle);
        std::promise<void> passed; // one way through the timer thread: a callback that had begun is over then
        UTIL_TIMER_Start(BU_TIMER_E_ONCE, 1, pass, &passed, &stBarrier);
        soon(passed);
        bStopped = true;
        UTIL_TIME_SleepMs(2);
        bStopped = false;
    }
    EXPECT_EQ(s32Forbidden, 0);
}

TEST(Thread, RepeatsPreparedFunctionAndRefusesASecondStart)
{
    static std::promise<void> thrice;
    static std::atomic<BU_S32> s32Calls{0};
    UTIL_THREAD_DATA_S stData{};
    EXPECT_THAT(
        (std::vector{UTIL_THREAD_Create(&stData), UTIL_THREAD_Create(nullptr),
                     UTIL_THREAD_InitData(&stData, "none", {}, nullptr), UTIL_THREAD_RunFuncAsync({}, nullptr)}),
        testing::Each(-1));
    const auto repeat = [](void *) {
        if (++s32Calls == 3) thrice.set_value();
        if (s32Calls >= 3) UTIL_TIME_SleepMs(3600000);
    };
    ASSERT_EQ(UTIL_THREAD_InitData(&stData, "a name of more than 15 characters", repeat, nullptr), 0);
    EXPECT_EQ(UTIL_THREAD_Create(&stData), 0);
    EXPECT_EQ(UTIL_THREAD_Create(&stData), -1) << "running already";
    soon(thrice);
}

TEST(Thread, AsyncFunctionsRunSideBySideAndAreWaitedFor)
{
    std::promise<void> second;
    std::atomic<BU_S32> s32Ended{0};
    UTIL_THREAD_RunFuncAsync([&](void *) { soon(second), s32Ended++; }, nullptr);
    UTIL_THREAD_RunFuncAsync([&](void *pv) { static_cast<std::promise<void> *>(pv)->set_value(), s32Ended++; },
                             &second);
    UTIL_THREAD_WaitAsync();
    EXPECT_EQ(s32Ended, 2);
}
} // namespace
