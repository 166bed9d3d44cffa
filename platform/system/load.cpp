// How busy the machine is, from the counters that the system keeps.
#include "camera/load.h"
#include "util/journal.h"
#include "util/time.h"

#include <algorithm>
#include <fstream>
#include <mutex>
#include <sstream>
#include <string>

namespace
{
constexpr double PORT_BYTES_PER_MS = 1e9 / 8 / 1000;

struct CpuTimes {
    BU_U64 u64Idle = 0, u64All = 0;
};
CpuTimes cpuTimes()
{
    CpuTimes stTimes;
    std::ifstream in("/proc/stat");
    std::string strName;
    in >> strName;
    BU_U64 u64Ticks = 0;
    for (int i = 0; i < 8 && in >> u64Ticks; ++i) { // user, nice, system, idle, waiting for input/output, ...
        stTimes.u64All += u64Ticks;
        if (i == 3 || i == 4) stTimes.u64Idle += u64Ticks;
    }
    return stTimes;
}

struct NetBytes {
    BU_S64 s64Ms = 0;
    BU_U64 u64Received = 0, u64Sent = 0;
};
NetBytes netBytes()
{
    NetBytes stBytes{UTIL_TIME_NowMs()};
    std::ifstream in("/proc/net/dev");
    for (std::string strLine; std::getline(in, strLine);) {
        const auto colon = strLine.find(':');
        if (colon == std::string::npos) continue; // the two head lines
        std::istringstream fields(strLine.substr(colon + 1));
        BU_U64 au64[9]{}; // bytes received, seven other counters, bytes sent
        for (BU_U64 &u64 : au64) fields >> u64;
        stBytes.u64Received += au64[0];
        stBytes.u64Sent += au64[8];
    }
    return stBytes;
}

std::mutex g_lockLast; // guards the two below, what the last question found
CpuTimes g_stLastCpu;
NetBytes g_stLastNet;

BU_FLOAT share(BU_U64 u64Bytes, BU_S64 s64Ms)
{
    if (s64Ms <= 0) return 0;
    return static_cast<BU_FLOAT>(
        std::clamp(static_cast<double>(u64Bytes) / (PORT_BYTES_PER_MS * static_cast<double>(s64Ms)), 0.0, 1.0));
}
} // namespace

BU_S32 SYSTEM_API_GetCpuIdlePrecent()
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    const CpuTimes stNow = cpuTimes();
    const std::lock_guard guard(g_lockLast);
    const bool bFirst = g_stLastCpu.u64All == 0;
    const BU_U64 u64All = stNow.u64All - g_stLastCpu.u64All, u64Idle = stNow.u64Idle - g_stLastCpu.u64Idle;
    g_stLastCpu = stNow;
    return bFirst || u64All == 0 ? 100 : static_cast<BU_S32>(u64Idle * 100 / u64All);
}

BU_S32 SYSTEM_API_GetNetUsagePrecent(BU_FLOAT &fReceived, BU_FLOAT &fSent)
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    const NetBytes stNow = netBytes();
    const std::lock_guard guard(g_lockLast);
    const BU_S64 s64Ms = g_stLastNet.s64Ms ? stNow.s64Ms - g_stLastNet.s64Ms : 0;
    fReceived = share(stNow.u64Received - g_stLastNet.u64Received, s64Ms);
    fSent = share(stNow.u64Sent - g_stLastNet.u64Sent, s64Ms);
    g_stLastNet = stNow;
    return 0;
}
