// The speed levels of this model: three straight lines to a speed, and which map a source of moves takes.
#include "pt/pt.h"

#include <algorithm>

namespace
{
/// Level ranges of a map and the speeds, in degrees per second, at its two knees.
struct SpeedMap {
    BU_S32 Lmin, L1, L2, Lmax;
    BU_S32 s32MinScale; ///< the slowest speed, in multiples of the entry's minimum
};
constexpr SpeedMap STANDARD{1, 6, 20, 24, 10};
constexpr SpeedMap SUPERFINE{1, 64, 212, 255, 1};

struct Knees {
    BU_S32 s32Lower, s32Upper;
};
constexpr Knees PAN_KNEES{6, 60};
constexpr Knees TILT_KNEES{5, 45};

void mapLevels(const SpeedMap &stMap, PT_SPD_S *pstSpd, BU_S32 s32PanLevel, BU_S32 s32TiltLevel,
               const PT_SPEED_CALC_SET_S &stSetup)
{
    const auto speed = [&](BU_S32 s32Level, BU_S32 s32Min, const Knees &stKnees, BU_S32 s32Max) {
        return PT_CalcSpeedLevelMap_TKV_MX_ThreeStage(
            s32Level, stMap.Lmin, stMap.L1, stMap.L2, stMap.Lmax, s32Min * stMap.s32MinScale,
            stSetup.s32SpeedMul * stKnees.s32Lower, stSetup.s32SpeedMul * stKnees.s32Upper, s32Max);
    };
    pstSpd->u32PanSpd = speed(s32PanLevel, stSetup.s32MinPanSpeed, PAN_KNEES, stSetup.s32MaxPanSpeed);
    pstSpd->u32TiltSpd = speed(s32TiltLevel, stSetup.s32MinTiltSpeed, TILT_KNEES, stSetup.s32MaxTiltSpeed);
}

// clang-format off
constexpr PT_SPEED_CALC_SET_S PT_SPEED_CALC_REF_TKV_MX[] = {
    {PT_CTRL_E_FROM_ALG,           BU_FALSE, 100, 6400, 100, 3200, 100, PT_CalcSpeedLevelMap_Simple,           1, PT_CalcSpeedRate_Advanced, 2},
    {PT_CTRL_E_FROM_PRESET,        BU_TRUE,  0,   0,    0,   0,    0,   PT_CalcSpeedLevelMap_Simple,           2, PT_CalcSpeedRate_Simple,   2},
    {PT_CTRL_E_FROM_OTHER,         BU_TRUE,  0,   0,    0,   0,    0,   PT_CalcSpeedLevelMap_TKV_MX_Standard,  0, PT_CalcSpeedRate_Simple,   2},
    {PT_CTRL_E_FROM_TKV_SUPERFINE, BU_TRUE,  0,   0,    0,   0,    0,   PT_CalcSpeedLevelMap_TKV_MX_Superfine, 0, PT_CalcSpeedRate_Simple,   2},
};
// clang-format on
} // namespace

BU_S32 APP_PT_GetSpeedCalcSet_TKV_MX(std::vector<PT_SPEED_CALC_SET_S> &listSpeedCalcSet)
{
    listSpeedCalcSet.assign(std::begin(PT_SPEED_CALC_REF_TKV_MX), std::end(PT_SPEED_CALC_REF_TKV_MX));
    return 0;
}

void PT_CalcSpeedLevelMap_TKV_MX_Standard(PT_SPD_S *pstSpd, BU_S32 s32PanSpdLevel, BU_S32, BU_S32 s32TiltSpdLevel,
                                          BU_S32, const PT_SPEED_CALC_SET_S *pstSetup)
{
    mapLevels(STANDARD, pstSpd, s32PanSpdLevel, s32TiltSpdLevel, *pstSetup);
}

void PT_CalcSpeedLevelMap_TKV_MX_Superfine(PT_SPD_S *pstSpd, BU_S32 s32PanSpdLevel, BU_S32, BU_S32 s32TiltSpdLevel,
                                           BU_S32, const PT_SPEED_CALC_SET_S *pstSetup)
{
    mapLevels(SUPERFINE, pstSpd, s32PanSpdLevel, s32TiltSpdLevel, *pstSetup);
}

BU_S32 PT_CalcSpeedLevelMap_TKV_MX_ThreeStage(BU_S32 s32SpdLevel, BU_S32 Lmin, BU_S32 L1, BU_S32 L2, BU_S32 Lmax,
                                              BU_S32 Vmin, BU_S32 V1, BU_S32 V2, BU_S32 Vmax)
{
    const BU_S32 s32Level = std::max(std::min(s32SpdLevel, Lmax), Lmin);
    const auto line = [s32Level](BU_S32 La, BU_S32 Va, BU_S32 Lb, BU_S32 Vb) {
        return La == Lb ? Va : Va + (Vb - Va) * (s32Level - La) / (Lb - La);
    };
    if (s32Level < L1) return line(Lmin, Vmin, L1, V1);
    if (s32Level < L2) return line(L1, V1, L2, V2);
    return line(L2, V2, Lmax, Vmax);
}
