// Which call runs now, which waits, which is refused.
#include "lanes.h"

#include "web/events.h"

#include <functional>
#include <utility>

namespace web_rpc
{
BU_U64 Call::lane() const
{
    constexpr BU_U64 QUESTIONS = BU_U64{1} << 63, NO_EVENT = BU_U64{1} << 62;
    if (!strQuestion.empty()) return QUESTIONS | std::hash<std::string>()(strQuestion);
    const WEB_EVENT_S *pstEvent = findWebEvent(u32Event);
    return pstEvent ? static_cast<BU_U64>(pstEvent->enPage) : NO_EVENT;
}

Lanes::Verdict Lanes::take(Call &stCall)
{
    const std::lock_guard guard(m_lock);
    const BU_U64 u64Lane = stCall.lane();
    if (m_running < m_runningMax && !m_lanes.contains(u64Lane)) {
        m_lanes[u64Lane].bRuns = true;
        ++m_running;
        return Verdict::RUN;
    }
    const auto ofConnection = m_waitingOf.find(stCall.pstFrom.get());
    if (m_waiting >= WAITING_MAX ||
        (ofConnection != m_waitingOf.end() && ofConnection->second >= WAITING_PER_CONNECTION_MAX))
        return Verdict::BUSY;
    ++m_waitingOf[stCall.pstFrom.get()];
    ++m_waiting;
    Lane &stLane = m_lanes[u64Lane];
    stLane.waiting.push_back(std::move(stCall));
    makeReady(u64Lane, stLane);
    return Verdict::WAITS;
}

void Lanes::makeReady(BU_U64 u64Lane, Lane &stLane)
{
    if (stLane.bRuns || stLane.bReady) return;
    stLane.bReady = true;
    m_ready.push_back(u64Lane);
}

std::optional<Call> Lanes::next(BU_U64 u64Lane)
{
    const std::lock_guard guard(m_lock);
    const auto own = m_lanes.find(u64Lane);
    own->second.bRuns = false;
    if (own->second.waiting.empty())
        m_lanes.erase(own);
    else
        makeReady(u64Lane, own->second); // behind the other lanes: none of them starves
    if (m_ready.empty()) {
        --m_running;
        return std::nullopt;
    }
    Lane &stLane = m_lanes[m_ready.front()];
    m_ready.pop_front();
    stLane.bReady = false;
    stLane.bRuns = true;
    Call stCall = std::move(stLane.waiting.front());
    stLane.waiting.pop_front();
    --m_waiting;
    const auto ofConnection = m_waitingOf.find(stCall.pstFrom.get());
    if (--ofConnection->second == 0) m_waitingOf.erase(ofConnection);
    return stCall;
}
} // namespace web_rpc
