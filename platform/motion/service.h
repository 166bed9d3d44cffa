/// The motion service: head, lens and the moves that run, behind one lock.
#pragma once

#include "head.h"
#include "lens.h"
#include "moves.h"

#include <optional>

namespace motion
{
struct Motion {
    std::mutex lock;                  // guards every other member but the queue
    util::TimerQueue queue{"motion"}; // ends and reports
    bool bHeadStarted = false, bLensStarted = false;
    Head head;
    Lens lens;
    BU_S32 s32SceneCm = 500; // distance of a scene without faces
    Moves moves{lock, queue};
    std::array<Source, PT_CTRL_E_FROM_BUTT> astHeadSources{};
    std::array<Source, ZF_CTRL_E_FROM_BUTT> astLensSources{};
    std::array<PFN_PRESET_SUPERSEDED, PT_CTRL_E_FROM_BUTT> apfnSuperseded{};

    /// Takes over the settings of the lens, with the lock held.
    void adopt(BU_S64 s64NowUs, const LensSettings &stSettings);
};
Motion &motion();

/// The lock, taken, with the time that the command or question has and the present settings of the lens taken over.
class Session
{
public:
    Session() : Session(lensSettings()) {}
    Motion *operator->() const { return &motion(); }
    const BU_S64 s64NowUs;

private:
    explicit Session(const LensSettings &stSettings);
    std::unique_lock<std::mutex> m_guard;
};

/// A whole position, as a preset has it.
struct Position {
    HeadPos stHead;
    BU_S32 s32Zoom;
    std::optional<BU_S32> focus; ///< none: stays as it is
};
Position currentPosition();
/// Both units to a position, with two ends. @return 1, or -1: unknown source, neither head nor lens is started
BU_S32 recall(const Position &stPosition, PT_CTRL_FROM_E enFrom, const void *pvPrivate);
/// Stands at the position at once, for the start.
void place(const Position &stPosition);

BU_S32 registerEnd(Source &stSource, PFN_END pfnEnd, BU_S32 s32PrivateSize);
/// What BSP_ZFCtrlMotion does, for the service's own calls.
BU_S32 lensMotion(ZF_CTRL_FROM_E enFrom, const ZF_MOTION_CTRL_S &stMotion, const void *pvPrivate);
} // namespace motion
