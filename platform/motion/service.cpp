// The running head and lens, and the timer that fires at the next end of a move.
#include "service.h"

#include "motion/standby.h"
#include "speed.h"

#include <algorithm>
#include <atomic>

namespace motion
{
namespace
{
constexpr BU_S32 PRIVATE_SIZE_MAX = 65536;
std::atomic<bool> g_bStandby{false};
} // namespace

bool setStandby(bool bOn) { return g_bStandby.exchange(bOn); }
bool isStandby() { return g_bStandby; }

Motion &motion()
{
    static auto *pstMotion = new Motion; // its queue's thread lives as long as the process
    return *pstMotion;
}

void Motion::adopt(BU_S64 s64NowUs, const LensSettings &stSettings)
{
    if (lens.adopt(s64NowUs, stSettings)) moves.supersede(FOCUS);
}

Session::Session(const LensSettings &stSettings) : s64NowUs(UTIL_TIME_NowUs()), m_guard(motion().lock)
{
    motion().adopt(s64NowUs, stSettings);
}

BU_S32 registerEnd(Source &stSource, PFN_END pfnEnd, BU_S32 s32PrivateSize)
{
    if (s32PrivateSize < 0 || s32PrivateSize > PRIVATE_SIZE_MAX) return -1;
    const std::lock_guard guard(motion().lock);
    stSource = {pfnEnd, s32PrivateSize};
    return 0;
}

Position currentPosition()
{
    const Session session;
    return {session->head.at(session.s64NowUs), session->lens.zoomAt(session.s64NowUs),
            session->lens.focusAt(session.s64NowUs)};
}

void place(const Position &stPosition)
{
    const Session session;
    session->moves.supersede(HEAD | ZOOM | FOCUS);
    session->head.place(stPosition.stHead);
    session->lens.place(stPosition.s32Zoom, stPosition.focus.value_or(session->lens.focusAt(session.s64NowUs)));
}

namespace
{
/// One report of a superseded recall, if somebody gave data and wants to hear of it.
std::shared_ptr<Recall> recallRecord(const Session &session, PT_CTRL_FROM_E enFrom, const End &stHeadEnd,
                                     const End &stLensEnd)
{
    if (!stHeadEnd.pfnEnd && !stLensEnd.pfnEnd) return nullptr;
    auto recall = std::make_shared<Recall>();
    recall->pfnSuperseded = session->apfnSuperseded[enFrom];
    recall->enFrom = enFrom;
    recall->data = stHeadEnd.pfnEnd ? stHeadEnd.data : stLensEnd.data;
    return recall;
}

BU_S64 recallHead(const Session &session, HeadPos stTarget, HeadSpeed stSpeed, bool bTogether)
{
    if (!session->bHeadStarted) return session.s64NowUs;
    return session->head.moveTo(session.s64NowUs, stTarget, stSpeed, bTogether);
}

BU_S64 recallLens(const Session &session, BU_S32 s32Zoom, std::optional<BU_S32> focus)
{
    if (!session->bLensStarted) return session.s64NowUs;
    BU_S64 s64EndUs = session->lens.zoomTo(session.s64NowUs, s32Zoom, ZOOM_SPEED_MAX);
    if (focus) s64EndUs = std::max(s64EndUs, session->lens.focusTo(session.s64NowUs, *focus, FOCUS_SPEED_MAX));
    return s64EndUs;
}
} // namespace

BU_S32 recall(const Position &stPosition, PT_CTRL_FROM_E enFrom, const void *pvPrivate)
{
    if (enFrom < 0 || enFrom >= PT_CTRL_E_FROM_BUTT || isStandby()) return -1;
    const HeadSpeed stSpeed = presetHeadSpeed();
    const bool bTogether = arrivesTogether(PT_CTRL_E_FROM_PRESET);
    const Session session;
    if (!session->bHeadStarted && !session->bLensStarted) return -1;

    const bool bMovesFocus = stPosition.focus && !session->lens.isAuto();
    const Units lensUnits = bMovesFocus ? ZOOM | FOCUS : ZOOM;
    session->moves.supersede(HEAD | lensUnits);
    if (session->lens.isAuto()) session->moves.supersede(FOCUS); // it follows the zoom again
    const BU_S64 s64HeadEndUs = recallHead(session, stPosition.stHead, stSpeed, bTogether);
    const BU_S64 s64LensEndUs = recallLens(session, stPosition.s32Zoom, bMovesFocus ? stPosition.focus : std::nullopt);

    End stHeadEnd(session->astHeadSources[enFrom], pvPrivate), stLensEnd;
    if (static_cast<BU_S32>(enFrom) < ZF_CTRL_E_FROM_BUTT) stLensEnd = End(session->astLensSources[enFrom], pvPrivate);
    const auto record = recallRecord(session, enFrom, stHeadEnd, stLensEnd);
    const bool bEnds = stHeadEnd.pfnEnd || stLensEnd.pfnEnd;
    session->moves.begin(HEAD, s64HeadEndUs, std::move(stHeadEnd), record);
    session->moves.begin(lensUnits, s64LensEndUs, std::move(stLensEnd), record);
    return bEnds ? 1 : 0;
}
} // namespace motion
