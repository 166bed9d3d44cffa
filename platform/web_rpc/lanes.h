/// Which call runs when. Calls of one page, or questions of one name, form a lane: they run in the order they came,
/// one at a time, so that a stop never overtakes the start before it, and a read that stores undoes no later set.
/// Different lanes run side by side.
///
/// The threads that read calls also run them, so a call needs no hand-over; one of them always goes on reading. What
/// cannot run at once waits here, up to a limit.
#pragma once

#include "base/types.h"

#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace web_rpc
{
class Connection;

struct Call {
    std::shared_ptr<Connection> pstFrom;
    BU_U32 u32Id = 0;
    BU_U32 u32Event = 0;
    std::string strQuestion; ///< its name; empty: an event
    std::string strBytes;

    BU_U64 lane() const;
};

/// Thread: any.
class Lanes
{
public:
    static constexpr std::size_t WAITING_MAX = 128, WAITING_PER_CONNECTION_MAX = 64;

    /// @param running  how many calls run at most at once
    explicit Lanes(std::size_t running) : m_runningMax(running) {}

    enum class Verdict { RUN, WAITS, BUSY };
    /// RUN: the caller runs it now and then asks next(). Else, but for BUSY, the call has been moved from.
    Verdict take(Call &stCall);
    /// A call of that lane has run. @return what the caller runs next; none: it is free
    std::optional<Call> next(BU_U64 u64Lane);

private:
    struct Lane {
        bool bRuns = false, bReady = false; // ready: stands in m_ready
        std::deque<Call> waiting;
    };
    void makeReady(BU_U64 u64Lane, Lane &stLane);

    const std::size_t m_runningMax;
    std::mutex m_lock; // guards everything below
    std::size_t m_running = 0, m_waiting = 0;
    std::map<BU_U64, Lane> m_lanes; // those in which something runs or waits
    std::map<const Connection *, std::size_t> m_waitingOf;
    std::deque<BU_U64> m_ready; // lanes that only lack a thread
};
} // namespace web_rpc
