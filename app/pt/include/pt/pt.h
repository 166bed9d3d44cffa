/// Pan/tilt speed of this camera model: which speed a speed level stands for.
#pragma once

#include "camera/motion.h"

/// Fills the list with the speed entries of the model, one a class of control source; what the list held is dropped.
/// Entries with bLoadSpeedRange get their range and multiplier from the motion service before it calls a map.
/// @return 0
BU_S32 APP_PT_GetSpeedCalcSet_TKV_MX(std::vector<PT_SPEED_CALC_SET_S> &listSpeedCalcSet);

/// Speed maps: levels 1...24 and 1...255, whatever maximum level is announced. Speeds are in degrees per second times
/// the entry's multiplier. Levels outside are clamped. Thread: any.
void PT_CalcSpeedLevelMap_TKV_MX_Standard(PT_SPD_S *pstSpd, BU_S32 s32PanSpdLevel, BU_S32 s32PanSpdMaxLevel,
                                          BU_S32 s32TiltSpdLevel, BU_S32 s32TiltSpdMaxLevel,
                                          const PT_SPEED_CALC_SET_S *pstSetup);
void PT_CalcSpeedLevelMap_TKV_MX_Superfine(PT_SPD_S *pstSpd, BU_S32 s32PanSpdLevel, BU_S32 s32PanSpdMaxLevel,
                                           BU_S32 s32TiltSpdLevel, BU_S32 s32TiltSpdMaxLevel,
                                           const PT_SPEED_CALC_SET_S *pstSetup);

/// Speed of a level on three straight lines through (Lmin, Vmin), (L1, V1), (L2, V2), (Lmax, Vmax).
/// Whole numbers, quotients cut towards zero; a line of no length gives its lower speed.
BU_S32 PT_CalcSpeedLevelMap_TKV_MX_ThreeStage(BU_S32 s32SpdLevel, BU_S32 Lmin, BU_S32 L1, BU_S32 L2, BU_S32 Lmax,
                                              BU_S32 Vmin, BU_S32 V1, BU_S32 V2, BU_S32 Vmax);
