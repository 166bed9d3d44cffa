// The people of the panorama picture: whom the camera follows and whom the user has pre-selected.
#include "camera/tracking.h"

#include "util/journal.h"

#include <algorithm>
#include <cmath>
#include <mutex>
#include <utility>

namespace
{
constexpr BU_S32 NOBODY = -1;

struct Targets {
    std::mutex lock;                    // guards all members
    std::vector<_AlgTargetPos_S_> list; // from left to right
    BU_S32 s32Current = NOBODY, s32PreSelected = NOBODY;
};
Targets g_stTargets;

BU_S32 idOf(const _AlgTargetPos_S_ &st) { return static_cast<BU_S32>(st.id); }
float middleX(const _AlgTargetPos_S_ &st) { return (st.xmin + st.xmax) / 2; }
float middleY(const _AlgTargetPos_S_ &st) { return (st.ymin + st.ymax) / 2; }

/// Moves a selection one person on (1) or back (-1), round the ends; from nobody to the first or the last.
BU_S32 step(BU_S32 &s32Selected, BU_S32 s32Step)
{
    const auto &list = g_stTargets.list;
    if (list.empty()) return -1;
    const auto s32Size = static_cast<BU_S32>(list.size());
    const auto now = std::ranges::find(list, s32Selected, idOf);
    const BU_S32 s32Now = now != list.end() ? static_cast<BU_S32>(now - list.begin()) : s32Step > 0 ? -1 : s32Size;
    s32Selected = idOf(list[static_cast<std::size_t>((s32Now + s32Step + s32Size) % s32Size)]);
    return 0;
}

/// The pre-selection starts from the one that is followed.
BU_S32 stepPreSelected(BU_S32 s32Step)
{
    const std::lock_guard guard(g_stTargets.lock);
    if (g_stTargets.s32PreSelected == NOBODY) g_stTargets.s32PreSelected = g_stTargets.s32Current;
    return step(g_stTargets.s32PreSelected, s32Step);
}

BU_S32 stepCurrent(BU_S32 s32Step)
{
    const std::lock_guard guard(g_stTargets.lock);
    return step(g_stTargets.s32Current, s32Step);
}
} // namespace

BU_S32 ALG_API_UpdatePanoramaTargets(const std::vector<_AlgTargetPos_S_> &listTargets)
{
    if (const auto injected = journal::ask(__func__, listTargets.size())) return *injected; // every frame: no effect
    auto list = listTargets;
    std::ranges::sort(list, {}, middleX);
    const std::lock_guard guard(g_stTargets.lock);
    g_stTargets.list = std::move(list);
    return 0;
}

BU_S32 ALG_API_LockLastTarget()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    return stepCurrent(-1);
}

BU_S32 ALG_API_LockNextTarget()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    return stepCurrent(1);
}

BU_S32 ALG_API_PreSelectLastTarget()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    return stepPreSelected(-1);
}

BU_S32 ALG_API_PreSelectNextTarget()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    return stepPreSelected(1);
}

BU_S32 ALG_API_ApplyPreSelectTarget()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    const std::lock_guard guard(g_stTargets.lock);
    if (g_stTargets.s32PreSelected == NOBODY) return -1;
    g_stTargets.s32Current = std::exchange(g_stTargets.s32PreSelected, NOBODY);
    return 0;
}

BU_S32 ALG_API_SelectTargetByBodyPosWithPanoramaTargets(float fX, float fY)
{
    if (const auto injected = journal::call(__func__, fX, fY)) return *injected;
    const std::lock_guard guard(g_stTargets.lock);
    const _AlgTargetPos_S_ *pstNearest = nullptr;
    for (const auto &st : g_stTargets.list) {
        if (fX < st.xmin || fX > st.xmax || fY < st.ymin || fY > st.ymax) continue;
        const auto distance = [&](const _AlgTargetPos_S_ &a) { return std::hypot(middleX(a) - fX, middleY(a) - fY); };
        if (!pstNearest || distance(st) < distance(*pstNearest)) pstNearest = &st;
    }
    if (!pstNearest) return -1;
    g_stTargets.s32Current = idOf(*pstNearest);
    return 0;
}

BU_S32 ALG_API_GetCurTargetId()
{
    const std::lock_guard guard(g_stTargets.lock);
    return g_stTargets.s32Current;
}

BU_S32 ALG_API_SetCurTargetId(BU_S32 s32Id)
{
    if (const auto injected = journal::call(__func__, s32Id)) return *injected;
    const std::lock_guard guard(g_stTargets.lock);
    g_stTargets.s32Current = s32Id;
    return 0;
}

BU_S32 ALG_API_GetPreSelectTargetId()
{
    const std::lock_guard guard(g_stTargets.lock);
    return g_stTargets.s32PreSelected;
}
