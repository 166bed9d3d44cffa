/// A queue from any thread to the one that takes, and how that one is woken.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <stop_token>
#include <utility>

namespace util
{
/// Things, or work, on their way to one thread, taken in the order of their posting. The taking thread is woken by a
/// call (eventfd_write, lws_cancel_service), or waits in next(). Whoever may post after the taker's end shares the
/// mailbox through a pointer; close() ends it for all of them.
/// Thread: any. What is dropped or taken is destroyed without the lock.
template <class T = std::function<void()>> class Mailbox
{
public:
    /// @param fnWake  makes the taking thread look in. Called with the lock held when something comes to lie in the
    ///                empty mailbox (until it is taken the wake-up is on its way), never after close(): must only
    ///                signal
    /// @param max     so many things may wait
    explicit Mailbox(std::function<void()> fnWake = nullptr, std::size_t max = SIZE_MAX)
        : m_fnWake(std::move(fnWake)), m_max(max)
    {
    }
    Mailbox(const Mailbox &) = delete;
    Mailbox &operator=(const Mailbox &) = delete;

    /// @return false: closed, or too much waits already
    bool post(T item)
    {
        const std::lock_guard guard(m_lock);
        if (m_bClosed || m_waiting.size() >= m_max) return false;
        m_waiting.push_back(std::move(item));
        m_posted.notify_one();
        if (m_waiting.size() == 1 && m_fnWake) m_fnWake();
        return true;
    }
    /// Makes the taking thread look in although nothing was posted.
    void wake()
    {
        const std::lock_guard guard(m_lock);
        if (!m_bClosed && m_fnWake) m_fnWake();
    }
    /// Drops what waits and what is posted from now on.
    void close()
    {
        std::deque<T> dropped;
        const std::lock_guard guard(m_lock);
        m_bClosed = true;
        m_waiting.swap(dropped);
        m_posted.notify_all();
    }
    /// All that waits.
    std::deque<T> take()
    {
        const std::lock_guard guard(m_lock);
        return std::exchange(m_waiting, {});
    }
    /// Takes work and does it.
    void run()
    {
        for (T &fn : take()) fn();
    }
    /// Waits for the next thing. @return empty: stop was requested, or closed
    std::optional<T> next(const std::stop_token &stop)
    {
        std::unique_lock guard(m_lock);
        m_posted.wait(guard, stop, [this] { return m_bClosed || !m_waiting.empty(); });
        if (stop.stop_requested() || m_bClosed) return std::nullopt;
        std::optional<T> item(std::move(m_waiting.front()));
        m_waiting.pop_front();
        return item;
    }

private:
    const std::function<void()> m_fnWake;
    const std::size_t m_max;
    std::mutex m_lock; // guards everything below
    std::condition_variable_any m_posted;
    bool m_bClosed = false;
    std::deque<T> m_waiting;
};
} // namespace util
