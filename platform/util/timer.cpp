// Timers of the service: handles above one timer queue.
#include "util/time.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <mutex>

namespace
{
struct Timer {
    BU_TIMER_TYPE_E enType;
    BU_S32 s32Ms;
    BU_S32 (*pfnCb)(void *);
    void *pvUser;
    BU_S64 s64DueMs;
    BU_U64 u64Run;               // counts the starts: tells a start from an earlier one whose function is on its way
    util::TimerQueue::Id queued; // in the queue
};

struct Timers {
    std::mutex lock;                         // guards all members but the queue
    std::map<std::uintptr_t, Timer> running; // by the id in a handle
    std::uintptr_t lastHandle = 0;
    BU_U64 u64LastRun = 0;
    util::TimerQueue queue{"timer"};
};
Timers &timers()
{
    static auto *pstTimers = new Timers;
    return *pstTimers;
}

void fire(std::uintptr_t handle, BU_U64 u64Run);

/// With the lock held.
void enqueue(std::uintptr_t handle, Timer &stTimer, BU_S64 s64DueMs)
{
    stTimer.s64DueMs = s64DueMs;
    stTimer.u64Run = ++timers().u64LastRun;
    stTimer.queued = timers().queue.at(s64DueMs, [handle, u64Run = stTimer.u64Run] { fire(handle, u64Run); });
}

void fire(std::uintptr_t handle, BU_U64 u64Run)
{
    std::unique_lock guard(timers().lock);
    const auto timer = timers().running.find(handle);
    if (timer == timers().running.end() || timer->second.u64Run != u64Run) return;
    const Timer stTimer = timer->second;
    if (stTimer.enType == BU_TIMER_E_PERIODIC) {
        const BU_S64 s64Missed = std::max<BU_S64>(0, UTIL_TIME_NowMs() - stTimer.s64DueMs) / stTimer.s32Ms;
        enqueue(handle, timer->second, stTimer.s64DueMs + (s64Missed + 1) * stTimer.s32Ms);
    } else
        timers().running.erase(timer);
    guard.unlock();
    stTimer.pfnCb(stTimer.pvUser);
}
} // namespace

BU_S32 UTIL_TIMER_Start(BU_TIMER_TYPE_E enType, BU_S32 s32Ms, BU_S32 (*pfnCb)(void *), void *pvUser,
                        BU_TIMER_DATA_S *pstHandle)
{
    if (!pstHandle || !pfnCb || s32Ms < 1) return -1;
    const std::lock_guard guard(timers().lock);
    if (!pstHandle->priv) pstHandle->priv = reinterpret_cast<void *>(++timers().lastHandle);
    const auto handle = reinterpret_cast<std::uintptr_t>(pstHandle->priv);
    const auto [timer, bNew] = timers().running.try_emplace(handle);
    if (!bNew) timers().queue.cancel(timer->second.queued);
    timer->second = {enType, s32Ms, pfnCb, pvUser, 0, 0, 0};
    enqueue(handle, timer->second, UTIL_TIME_NowMs() + s32Ms);
    return 0;
}

BU_S32 UTIL_TIMER_Stop(BU_TIMER_DATA_S *pstHandle)
{
    if (!pstHandle) return 0;
    const std::lock_guard guard(timers().lock);
    const auto timer = timers().running.find(reinterpret_cast<std::uintptr_t>(pstHandle->priv));
    if (timer == timers().running.end()) return 0;
    timers().queue.cancel(timer->second.queued);
    timers().running.erase(timer);
    return 0;
}

BU_S32 UTIL_TIMER_UpdatePeriod(BU_TIMER_DATA_S *pstHandle, BU_S32 s32Ms)
{
    if (!pstHandle || s32Ms < 1) return -1;
    const std::lock_guard guard(timers().lock);
    const auto timer = timers().running.find(reinterpret_cast<std::uintptr_t>(pstHandle->priv));
    if (timer == timers().running.end()) return -1;
    timers().queue.cancel(timer->second.queued);
    timer->second.s32Ms = s32Ms;
    enqueue(timer->first, timer->second, UTIL_TIME_NowMs() + s32Ms);
    return 0;
}
