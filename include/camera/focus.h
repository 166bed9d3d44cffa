/// Focus of the lens and lens corrections. One lens, device 0, has a motor.
#pragma once

#include "base/setting.h"

enum FOCUS_ACTION_E : BU_S32 { FOCUS_ACTION_E_STOP = 0, FOCUS_ACTION_E_FAR = 2, FOCUS_ACTION_E_NEAR = 3 };
/// A face in the picture; its box in fractions of width and height, 0-1.
struct tagFaceRectInfo {
    BU_S32 id;
    float xmin, ymin, xmax, ymax;
    BU_S32 updatelevel;
};

constexpr BU_S32 AF_FAR_END = 175, AF_NEAR_END = 7095; ///< focus positions

/// Starts or stops the focus drive and returns at once. @param u8Speed  1 slowest ... 8 fastest. @return 0 or -1
BU_S32 AF_API_SetFocusAct(BU_S32 s32Dev, FOCUS_ACTION_E enAction, BU_U8 u8Speed);
/// Focus position from end to end; the setter moves there and returns at once, its flags change nothing more.
BU_S32 AF_API_GetFocusAbs(BU_S32 s32Dev, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 AF_API_SetFocusAbs(BU_S32 s32Dev, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
BU_S32 AF_API_GetFocusPos(BU_S32 s32Dev, BU_S32 *ps32Pos);
BU_S32 AF_API_SetFocusPos(BU_S32 s32Dev, BU_S32 s32Pos);
/// Focuses once, in manual focus too. @return 0 or -1
BU_S32 AF_API_TriggerAutoFocus(BU_S32 s32Dev);

// settings: AF_API_Lens
/// switch, default on [FocusAuto]
BU_S32 AF_API_GetFocusAuto(BU_S32 s32Dev, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 AF_API_SetFocusAuto(BU_S32 s32Dev, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// of a drive without a speed of its own: 0...7, default 4 [FocusSpd]
BU_S32 AF_API_GetFocusSpd(BU_S32 s32Dev, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 AF_API_SetFocusSpd(BU_S32 s32Dev, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// 0 whole picture, 1 centre, 2 upper, 3 lower, 4 what comes: 0...4, default 0 [FocusArea]
BU_S32 AF_API_GetFocusArea(BU_S32 s32Dev, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 AF_API_SetFocusArea(BU_S32 s32Dev, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// how it measures, 0 contrast, 1 phase, 2 time of flight: 0...2, default 0 [FocusModel]
BU_S32 AF_API_GetFocusModel(BU_S32 s32Dev, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 AF_API_SetFocusModel(BU_S32 s32Dev, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// step of the nearest distance: 0...4, default 0 [FocusDistance]
BU_S32 AF_API_SetFocusRange(BU_S32 s32Dev, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// focus after a move: switch, default on [PtzTrigAf]
BU_S32 AF_API_GetPtzTrigAf(BU_S32 s32Dev, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 AF_API_SetPtzTrigAf(BU_S32 s32Dev, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// faces first: switch, default off [FaceAF]
BU_S32 AF_API_GetFaceAF(BU_S32 s32Dev, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 AF_API_SetFaceAF(BU_S32 s32Dev, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// switch, default off [DistortionCorre]
BU_S32 AF_API_GetDistortionCorrection(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 AF_API_SetDistortionCorrection(BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
// end of settings

/// @param pcText  64 characters. @return 0 or -1
BU_S32 AF_API_GetAFVersion(BU_S32 s32Dev, BU_CHAR *pcText);
/// The rate at which focusing looks at frames. @param s32Fps  frames/s, 1 or more. @return 0 or -1
BU_S32 AF_API_SetAFFrame(BU_S32 s32Dev, BU_S32 s32Fps);
/// The faces of the latest frame, for FaceAF. @param s32Count  0 and more; the first 16 are taken. @return 0 or -1
BU_S32 AF_API_SetFaceInfo(const tagFaceRectInfo *pstFaces, BU_S32 s32Count);
/// Measures the curve of focus over zoom again. @return 0
BU_S32 AF_API_TriggerCurveCorrection();
/// Starts and stops the correction of lens distortion in the picture. @return 0; other values are for the log
BU_S32 AF_API_StartLdc();
BU_S32 AF_API_StopLdc();
/// Readies the lens for the sensor set-up; registered with MPP_RegisterBeforeInit. @return 0
BU_S32 AF_Callback_MppIkSetup(void *pvParam);
