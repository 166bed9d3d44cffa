/// Motion of pan, tilt, zoom and focus.
///
/// Pan and tilt are one unit, zoom and focus are two more; the three move independently. A command acts at once: it
/// takes over from whatever its unit does, at the position and speed of that moment. Commands of all sources count the
/// same, the newest holds.
///
/// A command is either a drive (a direction, tele, wide, far, near: it runs until a stop or until the end of travel), a
/// stop, or a move with a target. Only a move with a target has an end that is reported: to the callback its source
/// registered, with a copy of the data given with the command, on the motion thread, exactly once and never inside the
/// call that starts or ends it. The result is BU_TRUE when the target was reached (also when the axes stood there
/// already) and BU_FALSE when a newer command took over first. No data or no registration: no report.
///
/// Positions are motor units, see docs/positions.md: so many a degree around the middle, right and up are positive.
#pragma once

#include "base/setting.h"

#include <vector>

inline constexpr BU_S32 PT_MOTOR_CENTRE = 540000, PT_MOTOR_PER_DEGREE = 1500;

enum PT_CTRL_FROM_E : BU_S32 {
    PT_CTRL_E_FROM_ALG = 0,
    PT_CTRL_E_FROM_VISCA,
    PT_CTRL_E_FROM_REMOTE,
    PT_CTRL_E_FROM_CMS,
    PT_CTRL_E_FROM_MENU,
    PT_CTRL_E_FROM_UVC,
    PT_CTRL_E_FROM_PRESET,
    PT_CTRL_E_FROM_ONVIF,
    PT_CTRL_E_FROM_OTHER,
    PT_CTRL_E_FROM_SLEEP,
    PT_CTRL_E_FROM_TKV_SUPERFINE,
    PT_CTRL_E_FROM_BUTT
};
enum ZF_CTRL_FROM_E : BU_S32 {
    ZF_CTRL_E_FROM_ALG = 0,
    ZF_CTRL_E_FROM_VISCA,
    ZF_CTRL_E_FROM_REMOTE,
    ZF_CTRL_E_FROM_CMS,
    ZF_CTRL_E_FROM_MENU,
    ZF_CTRL_E_FROM_UVC,
    ZF_CTRL_E_FROM_PRESET,
    ZF_CTRL_E_FROM_ONVIF,
    ZF_CTRL_E_FROM_OTHER,
    ZF_CTRL_E_FROM_SLEEP,
    ZF_CTRL_E_FROM_BUTT
};
enum PT_MOTION_TYPE_E : BU_S32 {
    PT_MOTION_E_UP = 0,
    PT_MOTION_E_DOWN,
    PT_MOTION_E_LEFT,
    PT_MOTION_E_RIGHT,
    PT_MOTION_E_LEFT_UP,
    PT_MOTION_E_LEFT_DOWN,
    PT_MOTION_E_RIGHT_UP,
    PT_MOTION_E_RIGHT_DOWN,
    PT_MOTION_E_STOP,
    PT_MOTION_E_ABS_POS,
    PT_MOTION_E_HOME,
    PT_MOTION_E_RESET,
    PT_MOTION_E_BUTT
};
struct PT_POS_S {
    BU_U32 u32PanPos, u32TiltPos;
};
/// Degrees per second times the multiplier that stands beside it.
struct PT_SPD_S {
    BU_U32 u32PanSpd, u32TiltSpd;
};
struct tagPT_MOTION_CTRL_S {
    BU_U32 u32PTDev; ///< 0
    PT_MOTION_TYPE_E enMotionType;
    PT_POS_S stPos;   ///< PT_MOTION_E_ABS_POS: motor position; beyond the end of travel: its end
    PT_SPD_S stSpd;   ///< of a drive: 0 leaves that axis at rest; of PT_MOTION_E_ABS_POS: 0 is the greatest speed
    BU_U16 u16SpdMul; ///< multiplier of stSpd; 0 is that of the speed limits
};
typedef tagPT_MOTION_CTRL_S PT_MOTION_CTRL_S;
enum ZF_MOTION_TYPE_E : BU_S32 {
    ZF_E_ZOOM_STOP = 0,
    ZF_E_ZOOM_TELE,
    ZF_E_ZOOM_WIDE,
    ZF_E_ZOOM_DIRECT_POS,
    ZF_E_FOCUS_STOP,
    ZF_E_FOCUS_FAR,
    ZF_E_FOCUS_NEAR,
    ZF_E_FOCUS_DIRECT_POS,
    ZF_E_ZOOM_FOCUS_DIRECT_POS
};
struct ZF_MOTION_CTRL_S {
    BU_U32 u32ZfDev; ///< 0
    ZF_MOTION_TYPE_E enMotionType;
    BU_U8 u8ZoomSpd;                ///< 0...7, greater counts as 7
    BU_U32 u32ZoomPos;              ///< 0...16384 in the lens, above that digital; beyond the present end: the end
    BU_BOOL bUseZoomTime;           ///< ZF_E_ZOOM_DIRECT_POS: the target is the magnification fZoomTime
    BU_FLOAT fZoomTime;             ///< magnification, 1.0 is the wide end
    BU_BOOL bTriggerFocusAfterZoom; ///< focus once when the zoom has reached its target
    BU_U8 u8FocusSpd;               ///< 1...8 of far and near, others count as the nearest; direct positions run at 8
    BU_U32 u32FocusPos;             ///< 175 far...7095 near; beyond: the end
};
/// Who hears of a source's ends. s32PrivateSize bytes of the data given with a command are copied and handed back.
struct PT_CTRL_CALL_FUNC_S {
    PT_CTRL_FROM_E enFrom;
    BU_S32 (*pfnPTCtrlEndCall)(void *priv, BU_BOOL result);
    BU_S32 s32PrivateSize; ///< 0...65536
};
struct ZF_CTRL_CALL_FUNC_S {
    ZF_CTRL_FROM_E enFrom;
    BU_S32 (*pfnZFCtrlEndCall)(void *priv, BU_BOOL result);
    BU_S32 s32PrivateSize;
};
enum PT_DEV_TYPE_E : BU_S32 { PT_DEV_TYPE_PAN_TILE_E = 2 };
struct PT_DEGREE_S {
    BU_S32 s32PanDegree, s32TiltDegree;
};
/// Speed range of the head: degrees per second times s32SpeedMul.
struct PT_SPEED_LIMIT_T {
    BU_S32 s32MinPanSpeedDps, s32MaxPanSpeedDps, s32MinTiltSpeedDps, s32MaxTiltSpeedDps, s32SpeedMul;
};
struct PT_SPEED_CALC_SET_S;
/// Speeds of a pan and a tilt level: (speeds, pan level, its top, tilt level, its top, entry). Called on the thread
/// that asks for the speed.
typedef void (*FN_SPEED_LEVEL_MAP)(PT_SPD_S *, BU_S32, BU_S32, BU_S32, BU_S32, const PT_SPEED_CALC_SET_S *);
/// Share of the speed, 0...1, that a drive keeps at a magnification (1.0 or more).
typedef double (*FN_SPEED_SCALE_RATE_CALC)(double, const PT_SPEED_CALC_SET_S *);
/// How speed levels of one source become speeds. A source without an entry of its own uses that of
/// PT_CTRL_E_FROM_OTHER.
struct PT_SPEED_CALC_SET_S {
    PT_CTRL_FROM_E eFrom;
    BU_BOOL bLoadSpeedRange; ///< take range and multiplier from the speed limits
    BU_S32 s32MinPanSpeed, s32MaxPanSpeed, s32MinTiltSpeed, s32MaxTiltSpeed, s32SpeedMul;
    FN_SPEED_LEVEL_MAP fnMapSpeedLevel;
    /// What speed match (PT_API_SetPtSpeedMatch) does for the source: 0 drives slow down as the zoom goes in, by
    /// fnCalcRate; 1 the same, and a move to a position brings pan and tilt there together; 2 the latter only.
    BU_S32 s32SpeedMatchFlag;
    FN_SPEED_SCALE_RATE_CALC fnCalcRate;
    BU_S32 s32SpeedAccuracyFlag; ///< without effect: the motors of this head keep the finest accuracy at any speed
};
enum PT_SPEED_MODE : BU_S32 { PT_SPEED_MODE_STANDARD = 0, PT_SPEED_MODE_SUPERFINE = 1 };

/// Takes the speed limits and the entries; range and multiplier of those with bLoadSpeedRange are filled in.
/// @return 0, or -1 and no change: null, a multiplier or maximum below 1, an entry without map
/// Thread: any.
BU_S32 PT_API_InitByXml(const PT_SPEED_LIMIT_T *pstLimits, std::vector<PT_SPEED_CALC_SET_S> listCalcSet);

/// Turns a direction round, in place, when the camera hangs from the ceiling: up for down, left for right. Other kinds
/// of motion stay. @return 0, or -1: null
BU_S32 PT_API_CalcMotionType(PT_MOTION_TYPE_E *penType);

/// Fills stSpd and u16SpdMul through the source's speed entry. Speeds of drives (by enMotionType) may come out slower
/// at a high zoom, see s32SpeedMatchFlag.
///
/// Two arguments: the greatest speed. Four: levels on the source's own scale, whose tops are 24, of tracking 64, of the
/// superfine source 255. Six: levels with their tops.
/// @return 0, or -1: null or an unknown source
/// Thread: any.
BU_S32 PT_API_CalcMotionSpeed(PT_CTRL_FROM_E enFrom, PT_MOTION_CTRL_S *pstMotion);
BU_S32 PT_API_CalcMotionSpeed(PT_CTRL_FROM_E enFrom, PT_MOTION_CTRL_S *pstMotion, BU_S32 s32PanLevel,
                              BU_S32 s32TiltLevel);
BU_S32 PT_API_CalcMotionSpeed(PT_CTRL_FROM_E enFrom, PT_MOTION_CTRL_S *pstMotion, BU_S32 s32PanLevel, BU_S32 s32PanMax,
                              BU_S32 s32TiltLevel, BU_S32 s32TiltMax);

// settings: PT_API_PanTilt
/// level of drives that bring none: 1...24, default 12 [PanSpeed]
BU_S32 PT_API_GetPanSpeed(BU_S32 s32Dev, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 PT_API_SetPanSpeed(BU_S32 s32Dev, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// level of drives that bring none: 1...24, default 12 [TileSpeed]
BU_S32 PT_API_GetTileSpeed(BU_S32 s32Dev, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 PT_API_SetTileSpeed(BU_S32 s32Dev, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// level of drives that bring none: 1...255, default 128 [PanSpeedSuperfine]
BU_S32 PT_API_GetPanSpeedSuperfine(BU_S32 s32Dev, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 PT_API_SetPanSpeedSuperfine(BU_S32 s32Dev, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// level of drives that bring none: 1...255, default 128 [TileSpeedSuperfine]
BU_S32 PT_API_GetTileSpeedSuperfine(BU_S32 s32Dev, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 PT_API_SetTileSpeedSuperfine(BU_S32 s32Dev, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// preset the camera starts at, -1 home: -1...254, default -1 [PowerUpPtzPos]
BU_S32 PT_API_GetPowerUpPtzPos(BU_S32 s32Dev, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 PT_API_SetPowerUpPtzPos(BU_S32 s32Dev, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// switch, default on [SpeedMatch]
BU_S32 PT_API_GetPtSpeedMatch(BU_S32 s32Dev, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 PT_API_SetPtSpeedMatch(BU_S32 s32Dev, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// 1, 10 or 100: 1...100, default 1; only those that have a word [SpeedAccuracy]
BU_S32 PT_API_GetSpeedAccuracy(BU_S32 s32Dev, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
/// PT_SPEED_MODE: 0...1, default 0 [SpeedMode]
BU_S32 PT_API_GetSpeedMode(BU_S32 s32Dev, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
inline BU_S32 PT_API_GetSpeedMode(BU_S32 s32Dev, PT_SPEED_MODE *penValue, BU_BOOL bReread = BU_FALSE)
{
    return PT_API_GetSpeedMode(s32Dev, EnumAsNumber(penValue).address(), bReread);
}
// end of settings
BU_S32 PT_API_SetSpeedAccuracy(BU_S32 s32Dev, BU_S32 s32Accuracy, BU_BOOL bSaveCfg);
BU_S32 PT_API_SetSpeedMode(BU_S32 s32Dev, BU_S32 s32Mode, BU_BOOL bSaveCfg);

/// Announces that the speeds are set and the head is in service. @return 0, or -1: BSP_PTProcInit did not succeed
BU_S32 PT_Register();

/// Level map: the speed is the maximum times level / top, kept in the entry's range.
void PT_CalcSpeedLevelMap_Simple(PT_SPD_S *pstSpd, BU_S32 s32PanLevel, BU_S32 s32PanMax, BU_S32 s32TiltLevel,
                                 BU_S32 s32TiltMax, const PT_SPEED_CALC_SET_S *pstSetup);
/// Rate for the hand: 1 / square root of the magnification.
double PT_CalcSpeedRate_Simple(double dMagnification, const PT_SPEED_CALC_SET_S *pstSetup);
/// Rate that keeps the picture's own speed: 1 / magnification.
double PT_CalcSpeedRate_Advanced(double dMagnification, const PT_SPEED_CALC_SET_S *pstSetup);

/// Starts the head: it stands at home, pan and tilt 0 degrees, without a command. Registrations stay.
/// @param pvParam  not used
/// @return 0, or -1: no such device
BU_S32 BSP_PTProcInit(BU_S32 s32Dev, void *pvParam);

/// Starts, changes or stops a pan/tilt motion and returns at once. Home goes to 0 degrees; reset drives to all ends of
/// travel and then home, both at the greatest speed.
/// @param pstMotion  read only during the call
/// @param pvPrivate  handed back at the end of a move with a target; null: no report wanted
/// @return 1: a move with a target runs; 0: done (drive, stop); -1: refused, nothing changed: null, unknown source,
///   device or type, the head is not started, or a move in stand-by
/// Thread: any; takes microseconds.
BU_S32 BSP_PTCtrlMotion(PT_CTRL_FROM_E enFrom, const PT_MOTION_CTRL_S *pstMotion, void *pvPrivate);

/// Registers who hears of the ends of a source's moves; the earlier registration is replaced, moves that run keep
/// theirs. The callback runs on the motion thread without a lock and must not block it.
/// @return 0, or -1: null, unknown source, another source in the record, a size outside
BU_S32 BSP_PTRegisterRetCallFunc(BU_S32 s32Dev, PT_CTRL_FROM_E enFrom, const PT_CTRL_CALL_FUNC_S *pstRegistration);

/// Where the head is now, also while it moves. @return 0, or -1: null, no such device or type
BU_S32 BSP_PTGetCurPos(BU_S32 s32Dev, PT_POS_S *pstPos, PT_DEV_TYPE_E enType);

/// Converts in place. VISCA positions are the low 16 bits, two's complement, 14.4 a degree. A position beyond the end
/// of travel becomes the end; one read with ToVisca and given to FromVisca comes out as the same VISCA position.
/// @return 0, or -1: null or no such device
BU_S32 BSP_PTPosFromVisca(BU_S32 s32Dev, PT_POS_S *pstPos);
BU_S32 BSP_PTPosToVisca(BU_S32 s32Dev, PT_POS_S *pstPos);

/// Degrees and back. @param s32Mode  1: 1/1500 degree around 540000, the motor scale; 0: 1/100 degree around 0
/// @return 0, or -1: null, no such device or mode
BU_S32 BSP_PTPosToDegree(BU_S32 s32Dev, PT_DEGREE_S *pstDegree, const PT_POS_S *pstPos, BU_S32 s32Mode);
BU_S32 BSP_PTDegreeToPos(BU_S32 s32Dev, PT_POS_S *pstPos, const PT_DEGREE_S *pstDegree, BU_S32 s32Mode);

/// The same as BSP_PTCtrlMotion for zoom and focus; -1 also when the lens is not started. A focus command while the
/// focus is automatic acts and holds until the zoom moves or focusing is triggered.
BU_S32 BSP_ZFCtrlMotion(ZF_CTRL_FROM_E enFrom, const ZF_MOTION_CTRL_S *pstMotion, void *pvPrivate);
BU_S32 BSP_ZFRegisterRetCallFunc(ZF_CTRL_FROM_E enFrom, const ZF_CTRL_CALL_FUNC_S *pstRegistration);
/// Takes callback and size of a pan/tilt record.
BU_S32 BSP_ZFRegisterRetCallFunc(ZF_CTRL_FROM_E enFrom, const PT_CTRL_CALL_FUNC_S *pstRegistration);

/// Starts the lens: it stands at the wide end; the focus is sharp, or, when manual, at its stored position. @return 0
BU_S32 ZF_API_StartService();
/// Announces that the lens is in service. @return 0, or -1: ZF_API_StartService did not succeed
BU_S32 ZF_Register();
