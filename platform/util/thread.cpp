/// Threads of the service's own kind: repeating ones, and functions run once.
#include "util/thread.h"

#include "util/log.h"

#include <condition_variable>
#include <map>
#include <mutex>
#include <pthread.h>
#include <system_error>
#include <unistd.h>

namespace
{
struct Repeat {
    std::string strName;
    std::function<void(void *)> fn;
    void *pvArg;
};

struct Threads {
    std::mutex lock; // guards all members
    std::condition_variable asyncEnded;
    BU_U32 u32AsyncRunning = 0;
    std::uintptr_t lastId = 0;
    std::map<std::uintptr_t, Repeat> prepared; // by the id in a handle; gone once started
};
Threads &threads()
{
    static auto *pstThreads = new Threads;
    return *pstThreads;
}

void endAsync()
{
    const std::lock_guard guard(threads().lock);
    threads().u32AsyncRunning--;
    threads().asyncEnded.notify_all();
}
} // namespace

BU_S32 UTIL_THREAD_InitData(UTIL_THREAD_DATA_S *pstData, const BU_CHAR *pcName, std::function<void(void *)> fn,
                            void *pvArg)
{
    if (!pstData || !fn) return -1;
    const std::lock_guard guard(threads().lock);
    threads().prepared.erase(reinterpret_cast<std::uintptr_t>(pstData->priv));
    threads().prepared[++threads().lastId] = {pcName ? pcName : "", std::move(fn), pvArg};
    pstData->priv = reinterpret_cast<void *>(threads().lastId);
    return 0;
}

BU_S32 UTIL_THREAD_Create(UTIL_THREAD_DATA_S *pstData)
{
    if (!pstData) return -1;
    std::unique_lock guard(threads().lock);
    auto node = threads().prepared.extract(reinterpret_cast<std::uintptr_t>(pstData->priv));
    guard.unlock();
    if (node.empty()) return -1;
    return util::startDetached(node.mapped().strName.c_str(), [stRepeat = node.mapped()] {
        for (;;) stRepeat.fn(stRepeat.pvArg);
    });
}

BU_S32 UTIL_THREAD_RunFuncAsync(std::function<void(void *)> fn, void *pvArg)
{
    if (!fn) return -1;
    {
        const std::lock_guard guard(threads().lock);
        threads().u32AsyncRunning++;
    }
    const BU_S32 s32Ret = util::startDetached("async", [fn = std::move(fn), pvArg]() mutable {
        fn(pvArg);
        fn = nullptr; // what it holds ends with it, before it counts as ended
        endAsync();
    });
    if (s32Ret != 0) endAsync();
    return s32Ret;
}

void UTIL_THREAD_WaitAsync()
{
    std::unique_lock guard(threads().lock);
    threads().asyncEnded.wait(guard, [] { return threads().u32AsyncRunning == 0; });
}

void util::nameThread(const BU_CHAR *pcName)
{
    pthread_setname_np(pthread_self(), std::string(pcName).substr(0, 15).c_str());
}

BU_S32 util::startDetached(const BU_CHAR *pcName, std::function<void()> fn)
{
    const QuitSignalsBlocked blocked;
    try {
        std::thread([strName = std::string(pcName), fn = std::move(fn)] {
            nameThread(strName.c_str());
            fn();
        }).detach();
    } catch (const std::system_error &error) {
        LOG_ERROR("thread %s: %s", pcName, error.what());
        return -1;
    }
    return 0;
}

util::QuitSignalsBlocked::QuitSignalsBlocked()
{
    sigset_t stQuit;
    sigemptyset(&stQuit);
    for (const int s32Signal : {SIGQUIT, SIGINT, SIGTERM}) sigaddset(&stQuit, s32Signal);
    pthread_sigmask(SIG_BLOCK, &stQuit, &m_stEarlier);
}

util::QuitSignalsBlocked::~QuitSignalsBlocked() { pthread_sigmask(SIG_SETMASK, &m_stEarlier, nullptr); }
