/// One thread for what is slow, such as the hash of a password.
#pragma once

#include "util/mailbox.h"
#include "util/thread.h"

namespace web_server
{
/// Thread: any.
class Worker
{
public:
    static constexpr std::size_t WAITING_MAX = 8;

    /// @return false: too much waits already
    bool run(std::function<void()> fn) { return m_jobs.post(std::move(fn)); }

private:
    util::Mailbox<> m_jobs{nullptr, WAITING_MAX};
    util::Thread m_thread{"webWorker", [this](const std::stop_token &stop) {
                              while (const auto fnJob = m_jobs.next(stop)) (*fnJob)();
                          }}; // last: ends first
};
} // namespace web_server
