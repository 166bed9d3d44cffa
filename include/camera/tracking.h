/// Tracking settings.
#pragma once

#include "base/setting.h"
#include <vector>

enum tagTRACK_MODE_E : BU_S32 {
    TRACK_MODE_E_EVERYWHERE_TRACKING = 0,
    TRACK_MODE_E_STAGE_TRACKING,
    TRACK_MODE_E_ZONE_TRACKING,
    TRACK_MODE_E_AUTO_FRAMEING,
    TRACK_MODE_E_DUAL_TRACKING,
    TRACK_MODE_E_EVERYTHING_TRACKING
};
typedef tagTRACK_MODE_E TRACK_MODE_E;
enum tagTRACK_BODY_SIZE_E : BU_S32 {
    TRACK_BODY_SIZE_E_FULL = 0,
    TRACK_BODY_SIZE_E_HALF,
    TRACK_BODY_SIZE_E_CLOSE_UP,
    TRACK_BODY_SIZE_E_CUSTOM
};
typedef tagTRACK_BODY_SIZE_E TRACK_BODY_SIZE_E;
enum tagTRACK_LOST_ACTION_E : BU_S32 {
    TRACK_LOST_ACTION_E_NONE = -2,
    TRACK_LOST_ACTION_E_PRESET_HOME = -1,
    TRACK_LOST_ACTION_E_PRESET_0 = 0,
    TRACK_LOST_ACTION_E_PRESET_1 = 1
};
enum tagTRACK_PEOPLE_POS_E : BU_S32 { TRACK_PEOPLE_POS_CENTER = 0, TRACK_PEOPLE_POS_RIGHT, TRACK_PEOPLE_POS_LEFT };
enum tagTRACK_HEAD_POS_E : BU_S32 { TRACK_HEAD_POS_E_UPWARD = 0, TRACK_HEAD_POS_E_NORMAL, TRACK_HEAD_POS_E_LOWER };
enum tagTRACK_STRATEGY_E : BU_S32 { TRACK_STRATEGY_E_BINOCULAR = 0, TRACK_STRATEGY_E_MONOCULAR };
enum tagTRACK_POS_CORRECT_ACTION_E : BU_S32 {
    TRACK_POS_CORRECT_ACTION_E_START = 0,
    TRACK_POS_CORRECT_ACTION_E_CANCEL,
    TRACK_POS_CORRECT_ACTION_E_SAVE,
    TRACK_POS_CORRECT_ACTION_E_UP,
    TRACK_POS_CORRECT_ACTION_E_DOWN,
    TRACK_POS_CORRECT_ACTION_E_LEFT,
    TRACK_POS_CORRECT_ACTION_E_RIGHT,
    TRACK_POS_CORRECT_ACTION_E_STOP
};
enum tagTRACK_AREA_E : BU_S32 {
    TRACK_AREA_E_PLATFORM = 0,
    TRACK_AREA_E_SHIELD,
    TRACK_AREA_E_PRIORITY,
    TRACK_AREA_E_PRESET,
    TRACK_AREA_E_BLACKBOARD
};
/// A rectangle in the 3840 x 2160 picture.
struct tagTRACK_AREA_S {
    BU_BOOL bEnable;
    BU_S32 x, y, w, h, s32PresetId, workMode;
};
constexpr BU_S32 TRACK_AREA_MAX = 8; ///< areas of a type

/// Model of the tracking engine: which one, and how many instances it adds.
enum AlgType : BU_S32 { REID_TRACK = 8, HEAD_DTC = 9, TRACK_KCF = 17 };
struct AlgArgs {
    BU_S32 algNum;
    AlgType algType;
};
struct AlgParam {
    BU_S32 models_reset_flag;
};
/// Somebody in the panorama picture; the box in fractions of width and height, 0-1.
struct _AlgTargetPos_S_ {
    float id, xmin, ymin, xmax, ymax;
};

// settings: ALG_API_Track
/// switch, default off [TrackEnabled]
BU_S32 ALG_API_GetEnable(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ALG_API_SetEnable(BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// tagTRACK_MODE_E: 0...5, default 0 [TrackMode]
BU_S32 ALG_API_GetTrackMode(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
inline BU_S32 ALG_API_GetTrackMode(tagTRACK_MODE_E *penValue, BU_BOOL bReread = BU_FALSE)
{
    return ALG_API_GetTrackMode(EnumAsNumber(penValue).address(), bReread);
}
/// tagTRACK_STRATEGY_E: 0...1, default 0 [TrackStrategy]
BU_S32 ALG_API_GetTrackStrategy(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
inline BU_S32 ALG_API_GetTrackStrategy(tagTRACK_STRATEGY_E *penValue, BU_BOOL bReread = BU_FALSE)
{
    return ALG_API_GetTrackStrategy(EnumAsNumber(penValue).address(), bReread);
}
/// tagTRACK_BODY_SIZE_E: 0...3, default 0 [BodySize]
BU_S32 ALG_API_GetBodySize(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
inline BU_S32 ALG_API_GetBodySize(tagTRACK_BODY_SIZE_E *penValue, BU_BOOL bReread = BU_FALSE)
{
    return ALG_API_GetBodySize(EnumAsNumber(penValue).address(), bReread);
}
BU_S32 ALG_API_SetBodySize(BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// 1...360, default 180 [BodySizeCustom]
BU_S32 ALG_API_GetBodySizeCustom(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ALG_API_SetBodySizeCustom(BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// tagTRACK_PEOPLE_POS_E: 0...2, default 0 [PeoplePos]
BU_S32 ALG_API_GetPeoplePos(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
inline BU_S32 ALG_API_GetPeoplePos(tagTRACK_PEOPLE_POS_E *penValue, BU_BOOL bReread = BU_FALSE)
{
    return ALG_API_GetPeoplePos(EnumAsNumber(penValue).address(), bReread);
}
BU_S32 ALG_API_SetPeoplePos(BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// tagTRACK_HEAD_POS_E: 0...2, default 1 [HeadPos]
BU_S32 ALG_API_GetHeadPos(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
inline BU_S32 ALG_API_GetHeadPos(tagTRACK_HEAD_POS_E *penValue, BU_BOOL bReread = BU_FALSE)
{
    return ALG_API_GetHeadPos(EnumAsNumber(penValue).address(), bReread);
}
BU_S32 ALG_API_SetHeadPos(BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// 0 low, 1 mid, 2 high, 3 smooth, 4 fast: 0...4, default 1 [TrackSpeed]
BU_S32 ALG_API_GetTrackSpeed(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ALG_API_SetTrackSpeed(BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// 0 two, 1 four, 2 six seconds: 0...2, default 1 [LostTime]
BU_S32 ALG_API_GetLostTime(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ALG_API_SetLostTime(BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// tagTRACK_LOST_ACTION_E or a preset: -2...254, default -1 [LostAction]
BU_S32 ALG_API_GetLostAction(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
inline BU_S32 ALG_API_GetLostAction(tagTRACK_LOST_ACTION_E *penValue, BU_BOOL bReread = BU_FALSE)
{
    return ALG_API_GetLostAction(EnumAsNumber(penValue).address(), bReread);
}
BU_S32 ALG_API_SetLostAction(BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// 0 low, 1 mid, 2 high: 0...2, default 1 [TrackSensitivity]
BU_S32 ALG_API_GetSensitivity(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ALG_API_SetSensitivity(BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// -2 none, -1 home, else a preset: -2...254, default -1 [StartPos]
BU_S32 ALG_API_GetStartPos(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ALG_API_SetStartPos(BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// switch, default off [Gesture]
BU_S32 ALG_API_GetGesture(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ALG_API_SetGesture(BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// boxes around people: switch, default off [TrackDebug]
BU_S32 ALG_API_GetDebug(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ALG_API_SetDebug(BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// switch, default on [AutoZoom]
BU_S32 ALG_API_GetAutoZoom(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ALG_API_SetAutoZoom(BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// switch, default on [AutoTilt]
BU_S32 ALG_API_GetAutoTilt(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ALG_API_SetAutoTilt(BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// switch, default on [AutoPan]
BU_S32 ALG_API_GetAutoPan(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ALG_API_SetAutoPan(BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// lamp while tracking: switch, default on [TallyIndicator]
BU_S32 ALG_API_GetTallyIndicator(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 ALG_API_SetTallyIndicator(BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
// end of settings
/// Brings its mode along.
BU_S32 ALG_API_SetTrackStrategy(BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// Becomes the mode of the present strategy as well, and the registered callback hears of a change.
BU_S32 ALG_API_SetTrackMode(BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// The track mode used under a strategy: tagTRACK_MODE_E, default 0 [BinocularStrategy, MonocularStrategy].
BU_S32 ALG_API_SetTrackStrategyBinocular(BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
BU_S32 ALG_API_SetTrackStrategyMonocular(BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// Boxes around people until the next start; not stored. @return 0, or -1: not a switch, null
BU_S32 ALG_API_GetDebugTemp(BU_S32 *ps32Value);
BU_S32 ALG_API_SetDebugTemp(BU_S32 s32Value);
/// Whether boxes are shown, by either of the two settings.
BU_BOOL ALG_API_CalcDebugEnable();
/// The custom body size back to its default, stored. @return 0 or -1
BU_S32 ALG_API_GetBodySizeReset();
/// @param pcText  64 characters. @return 0 or -1
BU_S32 ALG_API_GetAlgVersion(BU_CHAR *pcText);

// Targets: the people of the latest list, ordered from left to right. "Last" is the next one to the left, "next" to the
// right, round the ends. @return 0, or -1: nobody there
BU_S32 ALG_API_UpdatePanoramaTargets(const std::vector<_AlgTargetPos_S_> &listTargets);
BU_S32 ALG_API_LockLastTarget();
BU_S32 ALG_API_LockNextTarget();
BU_S32 ALG_API_PreSelectLastTarget();
BU_S32 ALG_API_PreSelectNextTarget();
BU_S32 ALG_API_ApplyPreSelectTarget(); ///< follows the pre-selected one, which is none afterwards
/// Follows the one at a place of the panorama picture, in fractions; of several the one whose middle is nearest.
BU_S32 ALG_API_SelectTargetByBodyPosWithPanoramaTargets(float fX, float fY);
/// The followed and the pre-selected target, -1 for none.
BU_S32 ALG_API_GetCurTargetId();
BU_S32 ALG_API_SetCurTargetId(BU_S32 s32Id);
BU_S32 ALG_API_GetPreSelectTargetId();

/// Readies the engine's parameters from the settings; each @return 0, else the engine must not start.
BU_S32 ALG_API_InitParamFromCfg();
BU_S32 ALG_API_ApplyModelParam();
BU_S32 ALG_API_ApplyTrackParam();
/// The engine's model and its parameters; never null, for the life of the process.
AlgArgs *ALG_API_GetModelHandler();
AlgParam *ALG_API_GetModelParam();
/// Called with the new mode on the thread of whoever changes it; registering again replaces, null takes it away.
/// @return 0
BU_S32 ALG_API_RegisterTrackModeCallback(void (*pfnCb)(TRACK_MODE_E));

/// The areas of a type. The list takes 8; the count ends with the last enabled area. @return 0, or -1: no such type,
/// null
BU_S32 TRACK_GetAreaList(tagTRACK_AREA_E enType, tagTRACK_AREA_S *pstList, BU_S32 *ps32Count);
/// Takes all 8 entries. @return 0, or -1: no such type, null, or not stored
BU_S32 TRACK_SetAreaList(tagTRACK_AREA_E enType, const tagTRACK_AREA_S *pstList, BU_BOOL bSaveCfg);
/// Correction of where the panorama picture and the head agree, step by step: tagTRACK_POS_CORRECT_ACTION_E.
/// @return 0, or -1: no such action, or one but START while none is under way
BU_S32 TRACK_DoPosCorrection(BU_S32 s32Action);
/// The correction to go on from, pan and tilt, and stores it. @return 0, or -1: not stored
BU_S32 TRACK_SetLastPosCorrectionPos(BU_S32 s32Pan, BU_S32 s32Tilt);
