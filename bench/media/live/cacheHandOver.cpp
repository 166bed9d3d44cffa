#include "cacheHandOver.h"

#include "baselines.h"
#include "streamCache.h"

#include <chrono>
#include <climits>
#include <linux/futex.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace
{
using Clock = std::chrono::steady_clock;

constexpr BU_U64 CONSUMERS = 100, PACKETS = 120, GROUP = 60;
constexpr std::chrono::microseconds FRAME(33'333);

STREAM_PACKET_REF packet(BU_U64 u64Number)
{
    static const BU_U8 s_au8Data[16'000] = {};
    return std::make_shared<const STREAM_PACKET_S>(
        STREAM_PACKET_S{s_au8Data, sizeof s_au8Data, u64Number * 33'333, u64Number % GROUP == 0, STREAM_TYPE_H264});
}

/// @param fnWake  gives the packet of that number. @param fnWait  waits until all consumers have so many
template <class Wake, class Wait> double loadWhile(bool bPaced, Wake fnWake, Wait fnWait)
{
    const double dBefore = cpuSeconds(getpid());
    auto due = Clock::now();
    for (BU_U64 u64Number = 0; u64Number < PACKETS; ++u64Number) {
        if (bPaced) std::this_thread::sleep_until(due += FRAME);
        fnWake(u64Number);
        fnWait(u64Number + 1);
    }
    return (cpuSeconds(getpid()) - dBefore) / PACKETS * 30 * 100;
}

/// A hundred threads, each of which waits for one packet after the other. @param fnWait  makes what waits, for a thread
template <class Wait, class Wake> double loadOfThreads(bool bPaced, Wait fnWait, Wake fnWake)
{
    std::atomic<BU_U64> u64Got = 0;
    std::vector<std::jthread> threads;
    for (BU_U32 i = 0; i < CONSUMERS; ++i)
        threads.emplace_back([&, fnNext = fnWait()]() mutable {
            for (BU_U32 u32 = 0; u32 < PACKETS && fnNext(); ++u32) ++u64Got;
        });
    std::this_thread::sleep_for(std::chrono::milliseconds(200)); // all of them wait
    return loadWhile(bPaced, fnWake, [&](BU_U64 u64Packets) {
        while (u64Got < CONSUMERS * u64Packets) std::this_thread::sleep_for(std::chrono::microseconds(50));
    });
}

media::Writer writer()
{
    return {[] {}, [] { return 0; }, [] { return 0; }};
}
} // namespace

double loadOfReaders(bool bPaced)
{
    STREAM_CACHE_S cache(writer());
    return loadOfThreads(
        bPaced, [&] { return [&, stPlace = cache.join()]() mutable { return cache.read(stPlace, 5000) != nullptr; }; },
        [&](BU_U64 u64Number) { cache.write(packet(u64Number)); });
}

double loadOfBareThreads(bool bPaced)
{
    std::atomic<BU_U32> u32Number = 0;
    return loadOfThreads(
        bPaced,
        [&] {
            return [&, u32Seen = BU_U32{0}]() mutable {
                while (u32Number == u32Seen)
                    syscall(SYS_futex, &u32Number, FUTEX_WAIT_PRIVATE, u32Seen, nullptr, nullptr, 0);
                ++u32Seen;
                return true;
            };
        },
        [&](BU_U64) {
            ++u32Number;
            syscall(SYS_futex, &u32Number, FUTEX_WAKE_PRIVATE, INT_MAX, nullptr, nullptr, 0);
        });
}

double loadOfSinks(bool bPaced)
{
    STREAM_CACHE_S cache(writer());
    std::atomic<BU_U64> u64Got = 0;
    for (BU_U32 i = 0; i < CONSUMERS; ++i) cache.addSink(std::to_string(i), [&](const auto &) { ++u64Got; });
    return loadWhile(
        bPaced, [&](BU_U64 u64Number) { cache.write(packet(u64Number)); }, [](BU_U64) {});
}
