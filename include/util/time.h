/// Time: clock, sleep, timers. Everything that waits goes through here, so that tests can own the time.
#pragma once

#include "base/types.h"

#include <functional>

/// Monotonic time since an arbitrary start. Under a manual clock: that clock's time. Thread: any.
BU_S64 UTIL_TIME_NowMs();
BU_S64 UTIL_TIME_NowUs();

/// Blocks the calling thread. Under a manual clock until the clock has been advanced as far, or ends.
void UTIL_TIME_SleepMs(BU_S64 s64Ms);

enum BU_TIMER_TYPE_E : BU_S32 { BU_TIMER_E_ONCE = 0, BU_TIMER_E_PERIODIC = 1 };

/// A timer's handle; zero before first use. Owned by the caller, needs no release.
struct BU_TIMER_DATA_S {
    void *priv;
};

/// Starts a timer; a running one of the same handle is restarted. A one-shot timer may start itself again in its
/// callback. A periodic one keeps its rate; periods missed while a callback took too long are left out.
/// @param s32Ms  1 or more
/// @param pfnCb  called on the timer thread, which all timers share; must not block it; its result is ignored
/// @return 0, or -1 on a null callback or handle, or a period below 1
/// Thread: any.
BU_S32 UTIL_TIMER_Start(BU_TIMER_TYPE_E enType, BU_S32 s32Ms, BU_S32 (*pfnCb)(void *), void *pvUser,
                        BU_TIMER_DATA_S *pstHandle);

/// Stops a timer; a stopped or never started one is tolerated. Does not wait for a running callback. @return 0
/// Thread: any, also the timer's own callback.
BU_S32 UTIL_TIMER_Stop(BU_TIMER_DATA_S *pstHandle);

/// Changes the period of a running timer and counts it from now. @return 0, or -1: not running, or below 1
/// Thread: any, also the timer's own callback.
BU_S32 UTIL_TIMER_UpdatePeriod(BU_TIMER_DATA_S *pstHandle, BU_S32 s32Ms);

namespace util
{
/// A thread of its own that runs functions when they are due, in order of their time. For services whose work is
/// driven by time: motion ends, hold-offs. The thread is made with the first function and costs nothing while it waits.
/// Under a manual clock the functions run inside ManualClock::advance.
class TimerQueue
{
public:
    /// @param pcName  thread name, at most 15 characters; the text must outlive the queue
    explicit TimerQueue(const BU_CHAR *pcName);
    /// Drops what is still waiting, waits for a running function, ends the thread. Never from inside such a function.
    ~TimerQueue();
    TimerQueue(const TimerQueue &) = delete;
    TimerQueue &operator=(const TimerQueue &) = delete;

    typedef BU_U64 Id; ///< 0 is never given

    /// Runs fn once at s64DueMs (UTIL_TIME_NowMs scale; the past means at once). Functions due at the same time run in
    /// the order they were given. Thread: any, also from inside fn.
    Id at(BU_S64 s64DueMs, std::function<void()> fn);
    /// @return true: removed before it ran; false: ran, runs, or unknown. Thread: any, also from inside fn.
    bool cancel(Id id);

    struct Impl;

private:
    Impl *m_pstImpl;
};

/// While one exists, time stands still and moves only through advance. Timers and timer queues fire inside advance, in
/// order of their time across all queues, on the thread that calls it; sleepers wake. What still waits when the clock
/// ends is dropped and sleepers return, so that nothing of one test reaches the next. For tests: one at a time, created
/// before use.
class ManualClock
{
public:
    ManualClock();
    ~ManualClock();
    ManualClock(const ManualClock &) = delete;
    ManualClock &operator=(const ManualClock &) = delete;

    /// Steps to each due time on the way, runs what is due there, then goes on to now + s64Ms.
    void advance(BU_S64 s64Ms);

    /// Waits until so many threads are inside UTIL_TIME_SleepMs: call it before advance wakes them.
    void waitForSleepers(BU_U32 u32Count);
};
} // namespace util
