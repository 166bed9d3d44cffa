/// One thread for what is slow, such as the hash of a password.
#pragma once

#include "util/thread.h"

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>

namespace web
{
/// Thread: any.
class Worker
{
public:
    static constexpr std::size_t WAITING_MAX = 8;

    /// @return false: too much waits already
    bool run(std::function<void()> fn)
    {
        const std::lock_guard guard(m_lock);
        if (m_waiting.size() >= WAITING_MAX) return false;
        m_waiting.push_back(std::move(fn));
        m_more.notify_one();
        return true;
    }

private:
    void work(const std::stop_token &stop)
    {
        std::unique_lock guard(m_lock);
        while (m_more.wait(guard, stop, [this] { return !m_waiting.empty(); })) {
            const std::function<void()> fn = std::move(m_waiting.front());
            m_waiting.pop_front();
            guard.unlock();
            fn();
            guard.lock();
            if (stop.stop_requested()) return;
        }
    }

    std::mutex m_lock; // guards m_waiting
    std::condition_variable_any m_more;
    std::deque<std::function<void()>> m_waiting;
    util::Thread m_thread{"webWorker", [this](const std::stop_token &stop) { work(stop); }}; // last: ends first
};
} // namespace web
