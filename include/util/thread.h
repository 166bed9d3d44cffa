/// Threads. The signals that end the process (SIGQUIT, SIGINT, SIGTERM) are blocked in all of them: their handlers
/// never interrupt a thread of the platform.
#pragma once

#include "base/types.h"

#include <functional>
#include <signal.h>
#include <stop_token>
#include <string>
#include <thread>

/// A repeating thread's handle; zero before first use. Owned by the caller, needs no release.
struct UTIL_THREAD_DATA_S {
    void *priv;
};

/// Prepares a thread that repeats fn. Preparing a handle again leaves a running thread as it is.
/// @param pcName  at most 15 characters are used
/// @return 0, or -1 on a null handle or function
/// Thread: any.
BU_S32 UTIL_THREAD_InitData(UTIL_THREAD_DATA_S *pstData, const BU_CHAR *pcName, std::function<void(void *)> fn,
                            void *pvArg);

/// Starts the prepared thread: it runs the function again and again for the life of the process.
/// @return 0, or -1: not prepared, running already, or no thread could be made
/// Thread: any.
BU_S32 UTIL_THREAD_Create(UTIL_THREAD_DATA_S *pstData);

/// Runs fn once on a worker thread of its own and returns at once. @return 0, or -1: no thread could be made
/// Thread: any. Several functions run side by side, in no order.
BU_S32 UTIL_THREAD_RunFuncAsync(std::function<void(void *)> fn, void *pvArg);

/// Waits until every function given to UTIL_THREAD_RunFuncAsync so far has ended. For tests and for an orderly end;
/// never from inside such a function.
void UTIL_THREAD_WaitAsync();

namespace util
{
/// Names the calling thread, for debuggers and logs; at most 15 characters are used.
void nameThread(const BU_CHAR *pcName);

/// Runs a function on a named thread of its own that nobody joins. @return 0, or -1: none could be made
BU_S32 startDetached(const BU_CHAR *pcName, std::function<void()> fn);

/// While it lives, the calling thread, and every thread made by it, takes no signal that ends the process.
class QuitSignalsBlocked
{
public:
    QuitSignalsBlocked();
    ~QuitSignalsBlocked();
    QuitSignalsBlocked(const QuitSignalsBlocked &) = delete;
    QuitSignalsBlocked &operator=(const QuitSignalsBlocked &) = delete;

private:
    sigset_t m_stEarlier;
};

/// A named thread that is asked to stop and joined when it is destroyed. Throws std::system_error when none can be
/// made.
class Thread
{
public:
    Thread() = default;
    template <class F> Thread(const BU_CHAR *pcName, F fn) : m_thread(start(pcName, std::move(fn))) {}

private:
    template <class F> static std::jthread start(std::string strName, F fn)
    {
        const QuitSignalsBlocked blocked;
        return std::jthread([strName = std::move(strName), fn = std::move(fn)](std::stop_token stop) mutable {
            nameThread(strName.c_str());
            fn(stop);
        });
    }

    std::jthread m_thread;
};
} // namespace util
