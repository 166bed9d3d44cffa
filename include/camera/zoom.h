/// Zoom of the lens. One lens, device 0, has a motor.
#pragma once

#include "base/setting.h"

#include <array>

enum ZOOM_ACTION_E : BU_S32 { ZOOM_ACTION_E_STOP = 0, ZOOM_ACTION_E_TELE = 2, ZOOM_ACTION_E_WIDE = 3 };

/// Ends of the zoom range, by the greatest magnification of the digital zoom: 1 (the lens alone) ... 16.
inline constexpr std::array<BU_S32, 16> PTZ_ZOOM_ENDS = {16384, 19248, 22113, 24978, 26410, 27843, 28559, 29275,
                                                         29705, 30135, 30421, 30708, 30912, 31117, 31270, 31424};

/// Starts or stops the zoom drive and returns at once. @param u8Speed  0 slowest ... 7 fastest. @return 0 or -1
BU_S32 PTZ_API_SetZoomAct(BU_S32 s32Dev, ZOOM_ACTION_E enAction, BU_U8 u8Speed);
/// Where the zoom is now: 0 wide, the first of PTZ_ZOOM_ENDS tele, above with digital zoom. @return 0 or -1
BU_S32 PTZ_API_GetZoomPos(BU_S32 s32Dev, BU_S32 *ps32Pos);
/// The same as magnification, 1.0 at the wide end. @return 0 or -1
BU_S32 PTZ_API_GetZoomTime(BU_S32 s32Dev, BU_FLOAT *pfTimes);
/// Horizontal field of view of the close-up picture at this moment [degrees], with all that brings it closer: lens,
/// digital zoom, tele mode, distortion correction. A picture maps degrees to pixels evenly. @return 0 or -1
BU_S32 PTZ_API_GetFieldOfView(BU_S32 s32Dev, BU_FLOAT *pfDegrees);
/// Moves to a magnification and returns at once. @return 0 or -1
BU_S32 PTZ_API_SetZoomTime(BU_S32 s32Dev, BU_FLOAT fTimes, BU_U8 u8Speed);

// settings: PTZ_API_Lens
/// of a drive without a speed of its own: 0...7, default 5 [ZoomSpd]
BU_S32 PTZ_API_GetZoomSpd(BU_S32 s32Dev, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 PTZ_API_SetZoomSpd(BU_S32 s32Dev, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// greatest magnification of the digital zoom: 1...16, default 1 [DZoomTime]
BU_S32 PTZ_API_GetMaxDZoomTime(BU_S32 s32Dev, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 PTZ_API_SetMaxDZoomTime(BU_S32 s32Dev, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// digital zoom: switch, default off [DZoom]
BU_S32 PTZ_API_GetDZoomMode(BU_S32 s32Dev, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 PTZ_API_SetDZoomMode(BU_S32 s32Dev, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
// end of settings
BU_S32 PTZ_API_GetZoomSpd(BU_S32 s32Dev, BU_U8 *pu8Speed, BU_BOOL bReread = BU_FALSE);
