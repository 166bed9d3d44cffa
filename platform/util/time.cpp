/// The clock, real or a test's, and the queues that run functions at their time.
#include "util/time.h"
#include "util/log.h"
#include "util/thread.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <vector>

namespace
{
typedef std::chrono::steady_clock Steady;
constexpr BU_S64 REAL_TIME = -1;

/// What all queues and the clock share. One lock for all: a manual clock runs the queues in one common order.
struct Time {
    std::mutex lock; // guards all members but s64ManualUs, and all members of every queue
    std::set<util::TimerQueue::Impl *> queues;
    util::TimerQueue::Id lastId = 0;
    std::condition_variable sleep; // the manual clock moved or ended, or a thread began to sleep
    BU_U32 u32Sleepers = 0;
    BU_U32 u32Clock = 0;                        // counts the manual clocks
    std::atomic<BU_S64> s64ManualUs{REAL_TIME}; // written under the lock, read without
};
Time &shared()
{
    static auto *pstTime = new Time;
    return *pstTime;
}

bool isManual() { return shared().s64ManualUs.load(std::memory_order_acquire) != REAL_TIME; }

BU_S64 realUs()
{
    return std::chrono::duration_cast<std::chrono::microseconds>(Steady::now().time_since_epoch()).count();
}
} // namespace

struct util::TimerQueue::Impl {
    typedef std::pair<BU_S64, Id> Due; // in milliseconds, with the order of giving
    const BU_CHAR *pcName;
    std::map<Due, std::function<void()>> waiting;
    bool bRunning = false, bEnding = false;
    std::condition_variable wake;  // something new waits, or the queue ends
    std::condition_variable ended; // the running function has ended
    std::optional<Thread> thread;

    /// Runs the first function. The lock is free meanwhile.
    void runFirst(std::unique_lock<std::mutex> &guard)
    {
        auto node = waiting.extract(waiting.begin());
        bRunning = true;
        guard.unlock();
        node.mapped()();
        node = {};
        guard.lock();
        bRunning = false;
        ended.notify_all();
    }

    void loop()
    {
        std::unique_lock guard(shared().lock);
        while (!bEnding) {
            if (isManual() || waiting.empty()) {
                wake.wait(guard);
                continue;
            }
            const Steady::time_point due(std::chrono::milliseconds(waiting.begin()->first.first));
            if (Steady::now() < due)
                wake.wait_until(guard, due);
            else
                runFirst(guard);
        }
    }

    void startThread()
    {
        if (thread || isManual()) return;
        try {
            thread.emplace(pcName, [this](const std::stop_token &) { loop(); });
        } catch (const std::exception &error) {
            LOG_ERROR("timer thread %s: %s", pcName, error.what());
        }
    }
};

namespace util
{
TimerQueue::TimerQueue(const BU_CHAR *pcName) : m_pstImpl(new Impl)
{
    m_pstImpl->pcName = pcName;
    const std::lock_guard guard(shared().lock);
    shared().queues.insert(m_pstImpl);
}

TimerQueue::~TimerQueue()
{
    decltype(m_pstImpl->waiting) dropped; // ends after the lock is free
    {
        std::unique_lock guard(shared().lock);
        shared().queues.erase(m_pstImpl);
        dropped.swap(m_pstImpl->waiting);
        m_pstImpl->bEnding = true;
        m_pstImpl->wake.notify_all();
        m_pstImpl->ended.wait(guard, [this] { return !m_pstImpl->bRunning; });
    }
    delete m_pstImpl;
}

TimerQueue::Id TimerQueue::at(BU_S64 s64DueMs, std::function<void()> fn)
{
    const std::lock_guard guard(shared().lock);
    const Id id = ++shared().lastId;
    m_pstImpl->waiting.emplace(Impl::Due(s64DueMs, id), std::move(fn));
    m_pstImpl->startThread();
    m_pstImpl->wake.notify_all();
    return id;
}

bool TimerQueue::cancel(Id id)
{
    decltype(m_pstImpl->waiting)::node_type dropped; // ends after the lock is free
    const std::lock_guard guard(shared().lock);
    auto &waiting = m_pstImpl->waiting;
    const auto entry = std::ranges::find_if(waiting, [id](const auto &due) { return due.first.second == id; });
    if (entry == waiting.end()) return false;
    dropped = waiting.extract(entry);
    return true;
}

ManualClock::ManualClock()
{
    const std::lock_guard guard(shared().lock);
    shared().u32Clock++;
    shared().s64ManualUs = realUs() / 1000 * 1000;
}

ManualClock::~ManualClock()
{
    std::vector<std::map<TimerQueue::Impl::Due, std::function<void()>>> dropped; // ends after the lock is free
    const std::lock_guard guard(shared().lock);
    for (auto *pstQueue : shared().queues) dropped.emplace_back().swap(pstQueue->waiting);
    shared().u32Clock++;
    shared().s64ManualUs = REAL_TIME;
    shared().sleep.notify_all();
}

void ManualClock::advance(BU_S64 s64Ms)
{
    std::unique_lock guard(shared().lock);
    const BU_S64 s64EndUs = shared().s64ManualUs + s64Ms * 1000;
    const auto moveTo = [](BU_S64 s64Us) {
        shared().s64ManualUs = std::max(shared().s64ManualUs.load(), s64Us);
        shared().sleep.notify_all();
    };
    for (;;) {
        TimerQueue::Impl *pstNext = nullptr;
        for (auto *pstQueue : shared().queues) {
            if (pstQueue->waiting.empty() || pstQueue->waiting.begin()->first.first > s64EndUs / 1000) continue;
            if (!pstNext || pstQueue->waiting.begin()->first < pstNext->waiting.begin()->first) pstNext = pstQueue;
        }
        if (!pstNext) break;
        moveTo(pstNext->waiting.begin()->first.first * 1000);
        pstNext->runFirst(guard);
    }
    moveTo(s64EndUs);
}

void ManualClock::waitForSleepers(BU_U32 u32Count)
{
    std::unique_lock guard(shared().lock);
    shared().sleep.wait(guard, [=] { return shared().u32Sleepers >= u32Count; });
}
} // namespace util

BU_S64 UTIL_TIME_NowUs()
{
    const BU_S64 s64ManualUs = shared().s64ManualUs.load(std::memory_order_acquire);
    return s64ManualUs == REAL_TIME ? realUs() : s64ManualUs;
}

BU_S64 UTIL_TIME_NowMs() { return UTIL_TIME_NowUs() / 1000; }

void UTIL_TIME_SleepMs(BU_S64 s64Ms)
{
    std::unique_lock guard(shared().lock);
    if (!isManual()) {
        guard.unlock();
        std::this_thread::sleep_for(std::chrono::milliseconds(s64Ms));
        return;
    }
    const BU_U32 u32Clock = shared().u32Clock;
    const BU_S64 s64EndUs = shared().s64ManualUs + s64Ms * 1000;
    shared().u32Sleepers++;
    shared().sleep.notify_all();
    shared().sleep.wait(guard, [=] { return shared().u32Clock != u32Clock || shared().s64ManualUs >= s64EndUs; });
    shared().u32Sleepers--;
}
