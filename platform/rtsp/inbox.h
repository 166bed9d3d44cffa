/// How other threads reach the server's.
#pragma once

#include <functional>
#include <mutex>
#include <vector>

typedef struct _GMainContext GMainContext;

namespace rtsp
{
/// Work for the server's thread. Outlives the server for those who still have something to say.
class Inbox
{
public:
    Inbox();
    ~Inbox();
    Inbox(const Inbox &) = delete;
    Inbox &operator=(const Inbox &) = delete;
    void post(std::function<void()> fn); ///< thread: any
    void waitAndRun();                   ///< waits for work or events, and does them
    void runEvents();                    ///< does the events that are there
    GMainContext *context() const { return m_pstContext; }

private:
    void runPosted();

    GMainContext *m_pstContext;
    std::mutex m_lock; ///< guards the one below
    std::vector<std::function<void()>> m_listPosted;
};
} // namespace rtsp
