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
struct tagRECORD_S {
    BU_S64 s64StartMs = UTIL_TIME_NowMs();
    std::vector<std::string> entries;
    void note(const std::string &strName)
    {
        entries.push_back(strName + "@" + std::to_string(UTIL_TIME_NowMs() - s64StartMs));
    }
};

struct tagTIMER_CASE_S {
    tagRECORD_S *pstRecord;
    BU_TIMER_DATA_S stHandle{};
    BU_S32 (*pfnInside)(tagTIMER_CASE_S &) = nullptr; // what the callback does beside noting
    BU_S32 s32Calls = 0;
};
BU_S32 onTimer(void *pvCase)
{
    auto &stCase = *static_cast<tagTIMER_CASE_S *>(pvCase);
    stCase.s32Calls++;
    stCase.pstRecord->note("timer");
    return stCase.pfnInside ? stCase.pfnInside(stCase) : 0;
}

TEST(ManualClock, AllQueuesFireInOneOrderOfTimeThenOfGiving)
{
    TimerQueue early("early"); // made before the clock
    ManualClock clock;
    TimerQueue late("late");
    tagRECORD_S stRecord;
    const auto at = [&](TimerQueue &queue, BU_S64 s64Ms, std::string strName) {
        queue.at(stRecord.s64StartMs + s64Ms, [&stRecord, strName] { stRecord.note(strName); });
    };
    at(late, 30, "c");
    at(early, 20, "a");
    at(late, 20, "b");
    at(early, -5, "past");
    at(early, 41, "later");
    early.at(stRecord.s64StartMs + 30, [&] { at(late, 35, "given inside"); });
    clock.advance(40);
    EXPECT_THAT(stRecord.entries, ElementsAre("past@0", "a@20", "b@20", "c@30", "given inside@35"));
    EXPECT_EQ(UTIL_TIME_NowMs(), stRecord.s64StartMs + 40);
}

TEST(ManualClock, WhatStillWaitsAtItsEndNeverRuns)
{
    TimerQueue queue("queue");
    tagRECORD_S stRecord;
    {
        ManualClock clock;
        queue.at(UTIL_TIME_NowMs() + 10, [&] { stRecord.note("dropped"); });
    }
    ManualClock clock;
    clock.advance(100000);
    EXPECT_THAT(stRecord.entries, ElementsAre());
}

TEST(ManualClock, SleepersWakeAtTheirTimeAndAtTheEnd)
{
    auto clock = std::make_unique<ManualClock>();
    std::atomic<BU_S32> s32Woken{0};
    std::thread first([&] { UTIL_TIME_SleepMs(1000), s32Woken++; }),
        second([&] { UTIL_TIME_SleepMs(5000), s32Woken++; });
    clock->waitForSleepers(2);
    clock->advance(999);
    EXPECT_EQ(s32Woken, 0);
    clock->advance(1);
    first.join();
    EXPECT_EQ(s32Woken, 1);
    clock.reset();
    second.join();
}

struct tagINSIDE_CASE_S {
    const BU_CHAR *pcName;
    BU_TIMER_TYPE_E enType;
    BU_S32 (*pfnInside)(tagTIMER_CASE_S &);
    std::vector<std::string> entries; // in 100 ms of a 20 ms timer
};
class TimerCallback : public testing::TestWithParam<tagINSIDE_CASE_S>
{
};
TEST_P(TimerCallback, MayChangeItsOwnTimer)
{
    ManualClock clock;
    tagRECORD_S stRecord;
    tagTIMER_CASE_S stCase{&stRecord, {}, GetParam().pfnInside};
    ASSERT_EQ(UTIL_TIMER_Start(GetParam().enType, 20, onTimer, &stCase, &stCase.stHandle), 0);
    clock.advance(100);
    EXPECT_EQ(stRecord.entries, GetParam().entries);
    UTIL_TIMER_Stop(&stCase.stHandle);
    clock.advance(1000);
    EXPECT_EQ(stRecord.entries, GetParam().entries);
}
BU_S32 startOnceAgain(tagTIMER_CASE_S &stCase)
{
    return stCase.s32Calls < 3 ? UTIL_TIMER_Start(BU_TIMER_E_ONCE, 30, onTimer, &stCase, &stCase.stHandle) : 0;
}
BU_S32 stopAtSecond(tagTIMER_CASE_S &stCase) { return stCase.s32Calls == 2 ? UTIL_TIMER_Stop(&stCase.stHandle) : 0; }
BU_S32 slowDown(tagTIMER_CASE_S &stCase) { return UTIL_TIMER_UpdatePeriod(&stCase.stHandle, 30); }
BU_S32 noMorePeriod(tagTIMER_CASE_S &stCase)
{
    EXPECT_EQ(UTIL_TIMER_UpdatePeriod(&stCase.stHandle, 30), -1) << "a one-shot timer is over when it fires";
    return 0;
}
INSTANTIATE_TEST_SUITE_P(
    Inside, TimerCallback,
    testing::ValuesIn<tagINSIDE_CASE_S>({
        {"Once", BU_TIMER_E_ONCE, nullptr, {"timer@20"}},
        {"OnceAgain", BU_TIMER_E_ONCE, startOnceAgain, {"timer@20", "timer@50", "timer@80"}},
        {"OnceIsOver", BU_TIMER_E_ONCE, noMorePeriod, {"timer@20"}},
        {"Periodic", BU_TIMER_E_PERIODIC, nullptr, {"timer@20", "timer@40", "timer@60", "timer@80", "timer@100"}},
        {"PeriodicStops", BU_TIMER_E_PERIODIC, stopAtSecond, {"timer@20", "timer@40"}},
        {"PeriodChanges", BU_TIMER_E_PERIODIC, slowDown, {"timer@20", "timer@50", "timer@80"}},
    }),
    [](const auto &row) { return std::string(row.param.pcName); });

TEST(Timer, RestartCountsFromNowWithTheNewValues)
{
    ManualClock clock;
    tagRECORD_S stRecord;
    tagTIMER_CASE_S stCase{&stRecord};
    UTIL_TIMER_Start(BU_TIMER_E_PERIODIC, 20, onTimer, &stCase, &stCase.stHandle);
    clock.advance(15);
    UTIL_TIMER_Start(BU_TIMER_E_ONCE, 20, onTimer, &stCase, &stCase.stHandle);
    clock.advance(200);
    EXPECT_THAT(stRecord.entries, ElementsAre("timer@35"));
}

TEST(Timer, RefusesWhatCannotRun)
{
    BU_TIMER_DATA_S stHandle{};
    EXPECT_EQ(UTIL_TIMER_Start(BU_TIMER_E_ONCE, 0, onTimer, nullptr, &stHandle), -1);
    EXPECT_EQ(UTIL_TIMER_Start(BU_TIMER_E_ONCE, 1, nullptr, nullptr, &stHandle), -1);
    EXPECT_EQ(UTIL_TIMER_Start(BU_TIMER_E_ONCE, 1, onTimer, nullptr, nullptr), -1);
    EXPECT_EQ(UTIL_TIMER_UpdatePeriod(&stHandle, 5), -1) << "never started";
    EXPECT_EQ(UTIL_TIMER_Stop(&stHandle), 0);
}

// With the real clock: what the queue's own thread does.
TEST(TimerQueue, CancelSaysWhetherItWasInTime)
{
    std::promise<void> started, release;
    TimerQueue queue("queue"); // after what its functions use
    const auto running = queue.at(0, [&] {
        started.set_value();
        release.get_future().wait();
    });
    const auto waiting = queue.at(0, [] { FAIL() << "was cancelled"; });
    started.get_future().wait();
    EXPECT_FALSE(queue.cancel(running));
    EXPECT_TRUE(queue.cancel(waiting));
    EXPECT_FALSE(queue.cancel(waiting));
    release.set_value();
}

TEST(TimerQueue, EarlierFunctionOvertakesTheOneItsThreadWaitsFor)
{
    std::promise<void> ran;
    TimerQueue queue("queue");
    queue.at(UTIL_TIME_NowMs() + 3600000, [] { FAIL() << "an hour has not passed"; });
    queue.at(UTIL_TIME_NowMs() + 1, [&] { ran.set_value(); });
    ran.get_future().wait();
}

TEST(TimerQueue, EndWaitsForTheRunningFunctionAndDropsTheOthers)
{
    std::promise<void> started;
    std::atomic<bool> bEnded{false};
    {
        TimerQueue queue("queue");
        queue.at(0, [&] {
            started.set_value();
            UTIL_TIME_SleepMs(5);
            bEnded = true;
        });
        queue.at(0, [] { FAIL() << "waited still"; });
        started.get_future().wait();
    }
    EXPECT_TRUE(bEnded);
}

/// A callback must not begin once Stop has returned and no callback was under way.
TEST(Timer, StopHoldsAgainstTheTimerThread)
{
    struct tagSHARED_S {
        std::atomic<BU_S32> s32Inside{0}, s32Forbidden{0}, s32Calls{0};
        std::atomic<bool> bStopped{false};
    } stShared;
    const auto onTick = [](void *pvShared) -> BU_S32 {
        auto &st = *static_cast<tagSHARED_S *>(pvShared);
        st.s32Inside++;
        st.s32Calls++;
        if (st.bStopped) st.s32Forbidden++;
        st.s32Inside--;
        return 0;
    };
    BU_TIMER_DATA_S stHandle{};
    for (int round = 0; round < 50; round++) {
        UTIL_TIMER_Start(BU_TIMER_E_PERIODIC, 1, onTick, &stShared, &stHandle);
        std::thread restarter([&] { UTIL_TIMER_UpdatePeriod(&stHandle, 1); });
        while (stShared.s32Calls <= round) std::this_thread::yield();
        restarter.join();
        UTIL_TIMER_Stop(&stHandle);
        std::promise<void> passed; // one way through the timer thread: a callback that had begun is over then
        BU_TIMER_DATA_S stBarrier{};
        UTIL_TIMER_Start(
            BU_TIMER_E_ONCE, 1,
            [](void *pv) -> BU_S32 {
                static_cast<std::promise<void> *>(pv)->set_value();
                return 0;
            },
            &passed, &stBarrier);
        passed.get_future().wait();
        stShared.bStopped = true;
        std::this_thread::yield();
        EXPECT_EQ(stShared.s32Inside, 0);
        stShared.bStopped = false;
    }
    EXPECT_EQ(stShared.s32Forbidden, 0);
}

TEST(Thread, RepeatsPreparedFunctionAndRefusesASecondStart)
{
    static std::promise<void> thrice;
    static std::atomic<BU_S32> s32Calls{0};
    UTIL_THREAD_DATA_S stData{};
    EXPECT_EQ(UTIL_THREAD_Create(&stData), -1) << "not prepared";
    const auto repeat = [](void *) {
        if (++s32Calls == 3) thrice.set_value();
        if (s32Calls >= 3) UTIL_TIME_SleepMs(3600000);
    };
    ASSERT_EQ(UTIL_THREAD_InitData(&stData, "a name of more than 15 characters", repeat, nullptr), 0);
    EXPECT_EQ(UTIL_THREAD_Create(&stData), 0);
    EXPECT_EQ(UTIL_THREAD_Create(&stData), -1) << "running already";
    thrice.get_future().wait();
}

TEST(Thread, AsyncFunctionsRunSideBySideAndAreWaitedFor)
{
    std::promise<void> second;
    std::atomic<BU_S32> s32Ended{0};
    UTIL_THREAD_RunFuncAsync([&](void *) { second.get_future().wait(), s32Ended++; }, nullptr);
    UTIL_THREAD_RunFuncAsync([&](void *pv) { static_cast<std::promise<void> *>(pv)->set_value(), s32Ended++; },
                             &second);
    UTIL_THREAD_WaitAsync();
    EXPECT_EQ(s32Ended, 2);
}
} // namespace
