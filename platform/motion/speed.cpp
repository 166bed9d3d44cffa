// Speeds of the head by level and by zoom.
#include "speed.h"

#include "camera/preset.h"
#include "camera/zoom.h"
#include "journalText.h"
#include "util/journal.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <mutex>

namespace motion
{
namespace
{
constexpr PT_SPEED_LIMIT_T DEFAULT_LIMITS{5, 12000, 5, 9000, 100};
constexpr PT_SPEED_CALC_SET_S DEFAULT_ENTRY{PT_CTRL_E_FROM_OTHER,
                                            BU_TRUE,
                                            DEFAULT_LIMITS.s32MinPanSpeedDps,
                                            DEFAULT_LIMITS.s32MaxPanSpeedDps,
                                            DEFAULT_LIMITS.s32MinTiltSpeedDps,
                                            DEFAULT_LIMITS.s32MaxTiltSpeedDps,
                                            DEFAULT_LIMITS.s32SpeedMul,
                                            PT_CalcSpeedLevelMap_Simple,
                                            0,
                                            PT_CalcSpeedRate_Simple,
                                            0};

/// Top of a source's own level scale; 24 for those not listed.
constexpr struct {
    PT_CTRL_FROM_E enFrom;
    BU_S32 s32Top;
} OWN_TOPS[] = {{PT_CTRL_E_FROM_ALG, 64}, {PT_CTRL_E_FROM_TKV_SUPERFINE, 255}};
constexpr BU_S32 COMMON_TOP = 24;

/// Per source, so that a question is one copy under the lock.
struct Speeds {
    std::mutex lock; // guards the members below
    PT_SPEED_LIMIT_T stLimits = DEFAULT_LIMITS;
    std::array<PT_SPEED_CALC_SET_S, PT_CTRL_E_FROM_BUTT> astEntries;
    Speeds() { astEntries.fill(DEFAULT_ENTRY); }
};
Speeds &speeds()
{
    static auto *pstSpeeds = new Speeds;
    return *pstSpeeds;
}

bool isSource(PT_CTRL_FROM_E enFrom) { return enFrom >= 0 && enFrom < PT_CTRL_E_FROM_BUTT; }

PT_SPEED_CALC_SET_S entryOf(PT_CTRL_FROM_E enFrom)
{
    const std::lock_guard guard(speeds().lock);
    return speeds().astEntries[enFrom];
}

PT_SPEED_LIMIT_T limits()
{
    const std::lock_guard guard(speeds().lock);
    return speeds().stLimits;
}

BU_S32 topOf(PT_CTRL_FROM_E enFrom)
{
    const auto *pst = std::ranges::find(OWN_TOPS, enFrom, [](const auto &st) { return st.enFrom; });
    return pst == std::end(OWN_TOPS) ? COMMON_TOP : pst->s32Top;
}

bool isSpeedMatchOn()
{
    BU_S32 s32On = BU_FALSE;
    return PT_API_GetPtSpeedMatch(0, &s32On) == 0 && s32On;
}

bool isDrive(PT_MOTION_TYPE_E enType) { return enType >= PT_MOTION_E_UP && enType <= PT_MOTION_E_RIGHT_DOWN; }

/// Slower as the picture is magnified, but never below the slowest speed of the entry.
void slowDown(PT_SPD_S &stSpd, const PT_SPEED_CALC_SET_S &stEntry)
{
    BU_FLOAT fMagnification = 1;
    PTZ_API_GetZoomTime(0, &fMagnification);
    const double dRate = stEntry.fnCalcRate(fMagnification, &stEntry);
    const auto scaled = [dRate](BU_U32 u32Speed, BU_S32 s32Min) {
        const auto u32Least = std::min(u32Speed, static_cast<BU_U32>(std::max(s32Min, 0)));
        return std::max(static_cast<BU_U32>(std::lround(u32Speed * dRate)), u32Least);
    };
    stSpd = {scaled(stSpd.u32PanSpd, stEntry.s32MinPanSpeed), scaled(stSpd.u32TiltSpd, stEntry.s32MinTiltSpeed)};
}

void calculate(PT_CTRL_FROM_E enFrom, PT_MOTION_CTRL_S &stMotion, BU_S32 s32PanLevel, BU_S32 s32PanMax,
               BU_S32 s32TiltLevel, BU_S32 s32TiltMax)
{
    const PT_SPEED_CALC_SET_S stEntry = entryOf(enFrom);
    stEntry.fnMapSpeedLevel(&stMotion.stSpd, s32PanLevel, s32PanMax, s32TiltLevel, s32TiltMax, &stEntry);
    stMotion.u16SpdMul = static_cast<BU_U16>(stEntry.s32SpeedMul);
    if (isDrive(stMotion.enMotionType) && stEntry.fnCalcRate && stEntry.s32SpeedMatchFlag != 2 && isSpeedMatchOn())
        slowDown(stMotion.stSpd, stEntry);
}

BU_U32 simpleSpeed(BU_S32 s32Level, BU_S32 s32Top, BU_S32 s32Min, BU_S32 s32Max)
{
    const BU_S64 s64Speed = static_cast<BU_S64>(s32Max) * s32Level / std::max(1, s32Top);
    return static_cast<BU_U32>(std::min<BU_S64>(std::max<BU_S64>(s64Speed, s32Min), s32Max));
}
} // namespace

HeadSpeed fullHeadSpeed()
{
    const PT_SPEED_LIMIT_T st = limits();
    const double dMul = st.s32SpeedMul;
    return {st.s32MaxPanSpeedDps / dMul, st.s32MaxTiltSpeedDps / dMul};
}

HeadSpeed headSpeed(const PT_MOTION_CTRL_S &stMotion, bool bFullForNone)
{
    const double dMul = stMotion.u16SpdMul ? stMotion.u16SpdMul : limits().s32SpeedMul;
    const auto limited = [=](BU_U32 u32Speed, double dMax) {
        return bFullForNone && u32Speed == 0 ? dMax : std::min(u32Speed / dMul, dMax);
    };
    const HeadSpeed stFull = fullHeadSpeed();
    return {limited(stMotion.stSpd.u32PanSpd, stFull.dPan), limited(stMotion.stSpd.u32TiltSpd, stFull.dTilt)};
}

HeadSpeed presetHeadSpeed()
{
    BU_S32 s32Level = COMMON_TOP;
    PRESET_API_GetPresetSpeed(0, &s32Level);
    PT_MOTION_CTRL_S stMotion{};
    stMotion.enMotionType = PT_MOTION_E_ABS_POS;
    calculate(PT_CTRL_E_FROM_PRESET, stMotion, s32Level, COMMON_TOP, s32Level, COMMON_TOP);
    return headSpeed(stMotion, true);
}

bool arrivesTogether(PT_CTRL_FROM_E enFrom) { return entryOf(enFrom).s32SpeedMatchFlag != 0 && isSpeedMatchOn(); }
} // namespace motion

using namespace motion;

BU_S32 PT_API_InitByXml(const PT_SPEED_LIMIT_T *pstLimits, std::vector<PT_SPEED_CALC_SET_S> listCalcSet)
{
    if (const auto injected = journal::call(__func__, pstLimits, listCalcSet.size())) return *injected;
    if (!pstLimits || pstLimits->s32SpeedMul < 1 || pstLimits->s32MaxPanSpeedDps < 1 ||
        pstLimits->s32MaxTiltSpeedDps < 1)
        return -1;
    for (PT_SPEED_CALC_SET_S &stEntry : listCalcSet) {
        if (!isSource(stEntry.eFrom) || !stEntry.fnMapSpeedLevel) return -1;
        if (!stEntry.bLoadSpeedRange) continue;
        stEntry.s32MinPanSpeed = pstLimits->s32MinPanSpeedDps;
        stEntry.s32MaxPanSpeed = pstLimits->s32MaxPanSpeedDps;
        stEntry.s32MinTiltSpeed = pstLimits->s32MinTiltSpeedDps;
        stEntry.s32MaxTiltSpeed = pstLimits->s32MaxTiltSpeedDps;
        stEntry.s32SpeedMul = pstLimits->s32SpeedMul;
    }
    const auto other = std::ranges::find(listCalcSet, PT_CTRL_E_FROM_OTHER, &PT_SPEED_CALC_SET_S::eFrom);
    const std::lock_guard guard(speeds().lock);
    speeds().stLimits = *pstLimits;
    speeds().astEntries.fill(other == listCalcSet.end() ? DEFAULT_ENTRY : *other);
    for (const PT_SPEED_CALC_SET_S &stEntry : listCalcSet) speeds().astEntries[stEntry.eFrom] = stEntry;
    return 0;
}

BU_S32 PT_API_CalcMotionSpeed(PT_CTRL_FROM_E enFrom, PT_MOTION_CTRL_S *pstMotion)
{
    if (const auto injected = journal::ask(__func__, enFrom, pstMotion)) return *injected;
    if (!pstMotion || !isSource(enFrom)) return -1;
    const PT_SPEED_CALC_SET_S stEntry = entryOf(enFrom);
    pstMotion->stSpd = {static_cast<BU_U32>(stEntry.s32MaxPanSpeed), static_cast<BU_U32>(stEntry.s32MaxTiltSpeed)};
    pstMotion->u16SpdMul = static_cast<BU_U16>(stEntry.s32SpeedMul);
    return 0;
}

BU_S32 PT_API_CalcMotionSpeed(PT_CTRL_FROM_E enFrom, PT_MOTION_CTRL_S *pstMotion, BU_S32 s32PanLevel,
                              BU_S32 s32TiltLevel)
{
    if (const auto injected = journal::ask(__func__, enFrom, pstMotion, s32PanLevel, s32TiltLevel)) return *injected;
    if (!pstMotion || !isSource(enFrom)) return -1;
    calculate(enFrom, *pstMotion, s32PanLevel, topOf(enFrom), s32TiltLevel, topOf(enFrom));
    return 0;
}

BU_S32 PT_API_CalcMotionSpeed(PT_CTRL_FROM_E enFrom, PT_MOTION_CTRL_S *pstMotion, BU_S32 s32PanLevel, BU_S32 s32PanMax,
                              BU_S32 s32TiltLevel, BU_S32 s32TiltMax)
{
    if (const auto injected =
            journal::ask(__func__, enFrom, pstMotion, s32PanLevel, s32PanMax, s32TiltLevel, s32TiltMax))
        return *injected;
    if (!pstMotion || !isSource(enFrom)) return -1;
    calculate(enFrom, *pstMotion, s32PanLevel, s32PanMax, s32TiltLevel, s32TiltMax);
    return 0;
}

void PT_CalcSpeedLevelMap_Simple(PT_SPD_S *pstSpd, BU_S32 s32PanLevel, BU_S32 s32PanMax, BU_S32 s32TiltLevel,
                                 BU_S32 s32TiltMax, const PT_SPEED_CALC_SET_S *pstSetup)
{
    pstSpd->u32PanSpd = simpleSpeed(s32PanLevel, s32PanMax, pstSetup->s32MinPanSpeed, pstSetup->s32MaxPanSpeed);
    pstSpd->u32TiltSpd = simpleSpeed(s32TiltLevel, s32TiltMax, pstSetup->s32MinTiltSpeed, pstSetup->s32MaxTiltSpeed);
}

double PT_CalcSpeedRate_Simple(double dMagnification, const PT_SPEED_CALC_SET_S *)
{
    return 1 / std::sqrt(std::max(1.0, dMagnification));
}

double PT_CalcSpeedRate_Advanced(double dMagnification, const PT_SPEED_CALC_SET_S *)
{
    return 1 / std::max(1.0, dMagnification);
}
