// The monitors that run, by the device record of their caller.
#include "board/input.h"

#include "monitor.h"
#include "util/file.h"
#include "util/journal.h"
#include "util/log.h"
#include "util/platform.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <linux/input.h>
#include <map>
#include <mutex>
#include <sys/ioctl.h>
#include <sys/stat.h>

using namespace input;

namespace
{
struct Monitors {
    std::mutex lock; // guards running
    std::map<const BSP_INPUT_THREAD_S *, std::unique_ptr<Monitor>> running;
};
Monitors &monitors()
{
    static auto *pclMonitors = new Monitors;
    return *pclMonitors;
}

/// The name of a device; empty when it is no plain file name.
std::string nameOf(const BSP_INPUT_THREAD_S &stInput)
{
    const std::string strName(stInput.acDeviceName, strnlen(stInput.acDeviceName, sizeof(stInput.acDeviceName)));
    return strName.find('/') == std::string::npos && strName != "." && strName != ".." ? strName : "";
}

std::string machineFolder()
{
    const BU_CHAR *pcFolder = std::getenv("CAMERA_INPUT");
    return pcFolder ? pcFolder : "/dev/input";
}
} // namespace

BU_S32 BSP_INPUT_StartMonitorEvent(BSP_INPUT_THREAD_S *pstInput)
{
    const std::string strName = pstInput ? nameOf(*pstInput) : "";
    if (const auto injected = journal::call(__func__, strName.c_str())) return *injected;
    if (strName.empty() || !pstInput->pfEventCb) return -1;
    const std::lock_guard guard(monitors().lock);
    auto &monitor = monitors().running[pstInput];
    if (monitor) return -1;
    monitor = Monitor::start(strName, machineFolder(), pstInput->pfEventCb);
    if (!monitor) {
        LOG_ERROR("input device %s: %s", strName.c_str(), std::strerror(errno));
        monitors().running.erase(pstInput);
        return -1;
    }
    pstInput->s32Pid = monitor->thread();
    pstInput->bStart = BU_TRUE;
    PLATFORM_AddEndpoint("input:" + monitor->link());
    return 0;
}

BU_S32 BSP_INPUT_StopMonitorEvent(BSP_INPUT_THREAD_S *pstInput)
{
    if (const auto injected = journal::call(__func__, pstInput ? nameOf(*pstInput).c_str() : nullptr)) return *injected;
    std::unique_lock guard(monitors().lock);
    const auto entry = monitors().running.find(pstInput);
    if (entry == monitors().running.end() || entry->second->thread() == gettid()) return -1;
    const auto ending = monitors().running.extract(entry); // ends, with its thread, after the lock is free
    guard.unlock();
    pstInput->s32Pid = 0;
    pstInput->bStart = BU_FALSE;
    return 0;
}

BU_S32 BSP_INPUT_GetDeviceName(BU_S32 s32Fd, BU_CHAR *pcName, BU_S32 s32Size)
{
    if (const auto injected = journal::ask(__func__, s32Fd)) return *injected;
    if (!pcName || s32Size <= 0) return -1;
    const BU_S32 s32Room = std::min(s32Size, 256); // what the number of the kernel's call can say is limited
    if (ioctl(s32Fd, EVIOCGNAME(s32Room), pcName) >= 0) {
        pcName[s32Room - 1] = '\0';
        return 0;
    }
    struct stat stStatus;
    if (fstat(s32Fd, &stStatus) != 0 || !S_ISCHR(stStatus.st_mode)) return -1;
    const std::lock_guard guard(monitors().lock);
    for (const auto &[pstInput, monitor] : monitors().running)
        if (monitor->terminal() == stStatus.st_rdev) {
            std::snprintf(pcName, static_cast<std::size_t>(s32Size), "%s", monitor->name().c_str());
            return 0;
        }
    return -1;
}
