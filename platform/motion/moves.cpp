// Which moves run, who takes over whose motor, and who hears of an end.
#include "moves.h"

#include <algorithm>
#include <utility>

namespace motion
{
namespace
{
constexpr BU_S64 US_PER_MS = 1000;
}

End::End(const Source &stSource, const void *pvPrivate)
{
    if (!pvPrivate || !stSource.pfnEnd) return;
    const auto *pst = static_cast<const std::byte *>(pvPrivate);
    pfnEnd = stSource.pfnEnd;
    data.assign(pst, pst + stSource.s32PrivateSize);
}

void Moves::begin(Units units, BU_S64 s64EndUs, End stEnd, std::shared_ptr<Recall> recall)
{
    if (!stEnd.pfnEnd && !recall) return; // nobody wants to know
    Move &stMove = *std::ranges::find(m_astMoves, Units{0}, &Move::units);
    const BU_U64 u64Number = ++m_u64LastNumber;
    const auto timer = m_queue.at((s64EndUs + US_PER_MS - 1) / US_PER_MS, [this, u64Number] { reached(u64Number); });
    stMove = {units, u64Number, timer, std::move(stEnd), std::move(recall)};
}

void Moves::reached(BU_U64 u64Number)
{
    std::unique_lock guard(m_lock);
    const auto move = std::ranges::find(m_astMoves, u64Number, &Move::u64Number);
    if (move == m_astMoves.end()) return; // superseded while the timer was on its way
    Move stMove = std::exchange(*move, {});
    const bool bTell = stMove.stEnd.pfnEnd && !(stMove.recall && stMove.recall->bSuperseded);
    guard.unlock();
    if (bTell) stMove.stEnd.pfnEnd(stMove.stEnd.data.data(), BU_TRUE);
}

void Moves::supersede(Units units)
{
    for (Move &stMove : m_astMoves) {
        if (!(stMove.units & units)) continue;
        m_queue.cancel(stMove.timer);
        reportSuperseded(stMove);
        stMove = {};
    }
}

void Moves::reportSuperseded(Move &stMove)
{
    if (!stMove.recall)
        post([end = std::move(stMove.stEnd)]() mutable { end.pfnEnd(end.data.data(), BU_FALSE); });
    else if (!std::exchange(stMove.recall->bSuperseded, true) && stMove.recall->pfnSuperseded)
        post([recall = std::move(stMove.recall)] {
            recall->pfnSuperseded(recall->enFrom, recall->data.data(), static_cast<BU_S32>(recall->data.size()));
        });
}

void Moves::drop(Units units)
{
    for (Move &stMove : m_astMoves) {
        if (!(stMove.units & units)) continue;
        m_queue.cancel(stMove.timer);
        stMove = {};
    }
}
} // namespace motion
