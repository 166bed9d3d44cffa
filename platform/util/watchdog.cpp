/// The watchdog of the start-up.
#include "util/watchdog.h"

#include "internal.h"
#include "util/log.h"
#include "util/platform.h"
#include "util/time.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <unistd.h>

namespace
{
constexpr int EXIT_STATUS = 70;

struct Watchdog {
    std::mutex lock; // guards queue
    // A thread of its own: a timer callback that hangs must not stop the watchdog.
    std::unique_ptr<util::TimerQueue> queue;
};
Watchdog &watchdog()
{
    static auto *pstWatchdog = new Watchdog;
    return *pstWatchdog;
}

void bite(BU_S32 s32Seconds)
{
    LOG_ERROR("not done within %d s, the process ends", s32Seconds);
    _exit(EXIT_STATUS);
}
} // namespace

BU_S32 UTIL_WDT_SW_StartTimeout(BU_S32 s32Seconds)
{
    if (s32Seconds < 1) return -1;
    util::startProcess();
    const std::lock_guard guard(watchdog().lock);
    watchdog().queue = std::make_unique<util::TimerQueue>("watchdog");
    watchdog().queue->at(UTIL_TIME_NowMs() + 1000LL * s32Seconds, [s32Seconds] { bite(s32Seconds); });
    return 0;
}

BU_S32 UTIL_WDT_SW_StopTimeout()
{
    {
        const std::lock_guard guard(watchdog().lock);
        watchdog().queue.reset();
    }
    static std::atomic<bool> bReady{false};
    if (!bReady.exchange(true)) PLATFORM_Ready();
    return 0;
}
