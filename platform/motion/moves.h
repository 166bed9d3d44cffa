/// Moves with a target that run, and the report of their ends.
#pragma once

#include "camera/preset.h"
#include "util/time.h"

#include <array>
#include <cstddef>
#include <memory>
#include <mutex>
#include <vector>

namespace motion
{
typedef BU_U8 Units; ///< set of the units that move independently
constexpr Units HEAD = 1, ZOOM = 2, FOCUS = 4;

typedef BU_S32 (*PFN_END)(void *pvPrivate, BU_BOOL bResult);

/// Who hears of the ends of a source's moves.
struct Source {
    PFN_END pfnEnd = nullptr;
    BU_S32 s32PrivateSize = 0;
};

/// One report that is due at a move's end; empty when nobody wants it.
struct End {
    PFN_END pfnEnd = nullptr;
    std::vector<std::byte> data;

    End() = default;
    End(const Source &stSource, const void *pvPrivate);
};

/// What the two moves of a preset recall share.
struct Recall {
    PFN_PRESET_SUPERSEDED pfnSuperseded;
    PT_CTRL_FROM_E enFrom;
    std::vector<std::byte> data;
    bool bSuperseded = false;
};

/// Every function but the constructor wants the lock given to it to be held. Reports run on the queue's thread, without
/// the lock.
class Moves
{
public:
    Moves(std::mutex &lock, util::TimerQueue &queue) : m_lock(lock), m_queue(queue) {}

    /// A move that reaches its target at s64EndUs. Its units are free: supersede was called for them.
    void begin(Units units, BU_S64 s64EndUs, End stEnd, std::shared_ptr<Recall> recall = nullptr);
    /// Ends every move of these units before its target.
    void supersede(Units units);
    /// Forgets the moves of these units without a report.
    void drop(Units units);

private:
    struct Move {
        Units units = 0; ///< none: the slot is free
        BU_U64 u64Number = 0;
        util::TimerQueue::Id timer = 0;
        End stEnd;
        std::shared_ptr<Recall> recall;
    };
    void reached(BU_U64 u64Number);
    void reportSuperseded(Move &stMove);
    void post(std::function<void()> fn) { m_queue.at(UTIL_TIME_NowMs(), std::move(fn)); }

    std::mutex &m_lock; // guards the members below
    util::TimerQueue &m_queue;
    std::array<Move, 3> m_astMoves; // the units never overlap, so there are at most three
    BU_U64 m_u64LastNumber = 0;
};
} // namespace motion
