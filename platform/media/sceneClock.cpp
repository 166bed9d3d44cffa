/// The clock of the scene.
#include "internal.h"

#include "media/frame.h"
#include "util/time.h"

#include <ctime>

BU_S64 media::sceneTimeUs(BU_S64 s64MonotonicUs)
{
    static const BU_S64 s64Midnight = [] { // on the monotonic clock
        timespec stNow{};
        clock_gettime(CLOCK_REALTIME, &stNow);
        tm stLocal{};
        localtime_r(&stNow.tv_sec, &stLocal);
        const BU_S64 s64Seconds = (stLocal.tm_hour * 60 + stLocal.tm_min) * 60 + stLocal.tm_sec;
        return UTIL_TIME_NowUs() - s64Seconds * 1'000'000 - stNow.tv_nsec / 1000;
    }();
    constexpr BU_S64 DAY_US = 86'400'000'000;
    const BU_S64 s64Time = s64MonotonicUs - s64Midnight;
    return s64Time >= 0 ? s64Time : (s64Time % DAY_US + DAY_US) % DAY_US;
}

BU_S64 MPP_GetSceneTimeUs(BU_U64 u64Pts) { return media::sceneTimeUs(static_cast<BU_S64>(u64Pts)); }
