// Tracking: commands of their own, and the same as sub-commands of one grouped command. A value that means nothing is
// ignored and answered as done, unless a handler refuses it.
#include "camera/tracking.h"
#include "camera/preset.h"
#include "handlers.h"
#include "table.h"
#include "util/log.h"

using namespace visca;

namespace
{
typedef tagVISCA_CTRL_INFO_S I;
constexpr codes::Column OTHER = &codes::Row::s32ViscaOther;
constexpr BU_S32 MAX_FIGURE_SIZE = 360;
constexpr Coded<BU_S32 (*)()> SUBJECT_KEYS[] = {
    {VISCA_MSG_E_SELECT_SUBJECT_LEFT, ALG_API_PreSelectLastTarget},
    {VISCA_MSG_E_SELECT_SUBJECT_RIGHT, ALG_API_PreSelectNextTarget},
    {VISCA_MSG_E_SELECT_SUBJECT_SELECT, ALG_API_ApplyPreSelectTarget},
};

/// Sets and stores what the code stands for and traces the handler.
/// @return the setter's result, 0 for a code that means nothing
template <PFN_SET Set, const auto &TABLE = codes::SWITCHES, codes::Column COLUMN = &codes::Row::s32Visca>
BU_S32 setAndReport(BU_S32 s32Code, const BU_CHAR *pcHandler = __builtin_FUNCTION(), int iLine = __builtin_LINE())
{
    UTIL_TRACE_Print("[%s:%d]  \n", pcHandler, iLine);
    const BU_S32 s32Value = cameraOf<TABLE, COLUMN>(s32Code);
    return s32Value == NONE ? 0 : direct<Set>(s32Value);
}

/// The same, answered as done whatever the setter says.
template <PFN_SET Set, const auto &TABLE = codes::SWITCHES, codes::Column COLUMN = &codes::Row::s32Visca>
BU_S32 set(BU_S32 s32Code, const BU_CHAR *pcHandler = __builtin_FUNCTION(), int iLine = __builtin_LINE())
{
    setAndReport<Set, TABLE, COLUMN>(s32Code, pcHandler, iLine);
    return 0;
}

/// The preset of the zone a message names. @return false: not in zone tracking, or no such zone
bool zonePreset(const I &stInfo, BU_S32 *ps32Preset)
{
    BU_S32 s32Mode = -1, s32Count = 0;
    ALG_API_GetTrackMode(&s32Mode, BU_FALSE);
    if (s32Mode != TRACK_MODE_E_ZONE_TRACKING) return false;
    tagTRACK_AREA_S astAreas[8]{};
    TRACK_GetAreaList(TRACK_AREA_E_PRESET, astAreas, &s32Count);
    const BU_S32 s32Id = stInfo.stAutoTracking.s32PresetAreaId;
    if (s32Id < 0 || s32Id >= std::min<BU_S32>(s32Count, std::size(astAreas))) return false;
    *ps32Preset = astAreas[s32Id].s32PresetId;
    return true;
}

BU_S32 viscaCtrlAutoTrackMode(I *pstInfo)
{
    return set<ALG_API_SetTrackMode, codes::TRACK_MODES>(pstInfo->stAutoTracking.enAutoTrackModeCtrl);
}

BU_S32 viscaCtrlAutoPan(I *pstInfo) { return set<ALG_API_SetAutoPan>(pstInfo->stAutoTracking.enAUtoPanCtrl); }

BU_S32 viscaCtrlTKVTrackingStartPreset(I *pstInfo)
{
    const BU_S32 s32Preset = pstInfo->stAutoTracking.s32TrackingStartPositionpreset;
    if (cameraOf<codes::START_POSITIONS>(s32Preset) == NONE) return -1;
    return set<ALG_API_SetStartPos, codes::START_POSITIONS>(s32Preset);
}

BU_S32 viscaCtrlATLostTime(I *pstInfo)
{
    return setAndReport<ALG_API_SetLostTime, codes::LOST_TIMES>(pstInfo->stAutoTracking.s32AtLostTime);
}

BU_S32 viscaCtrlATZoneSettingsArea(I *pstInfo)
{
    TRACE(" \n");
    BU_S32 s32Preset = 0;
    return zonePreset(*pstInfo, &s32Preset) ? PRESET_API_SetCur(s32Preset, "") : -1;
}

BU_S32 viscaCtrlATZoneSettingsTrigger(I *)
{
    TRACE(" \n");
    return -1;
}

BU_S32 viscaCtrlATZoneTrackingStartArea(I *)
{
    TRACE(" \n");
    return -1;
}

BU_S32 viscaCtrlATZoneCall(I *pstInfo)
{
    TRACE(" \n");
    BU_S32 s32Preset = 0;
    // Without the record: two ends of a recall would answer this message twice.
    return zonePreset(*pstInfo, &s32Preset) ? PRESET_API_GotoById(s32Preset, PT_CTRL_E_FROM_VISCA, nullptr) : -1;
}

BU_S32 viscaCtrlATHeadPos(I *pstInfo)
{
    TRACE(" \n");
    return ALG_API_SetHeadPos(pstInfo->stAutoTracking.s32HeadPos, BU_TRUE, BU_TRUE);
}

BU_S32 viscaCtrlTrackSpeed(I *pstInfo)
{
    const BU_S32 s32Speed = pstInfo->stAutoTracking.s32TrackSpeed;
    if (cameraOf<codes::TRACK_SPEEDS, OTHER>(s32Speed) == NONE) return -1;
    return set<ALG_API_SetTrackSpeed, codes::TRACK_SPEEDS, OTHER>(s32Speed);
}

BU_S32 viscaCtrlATGestureDetect(I *pstInfo)
{
    return setAndReport<ALG_API_SetGesture>(pstInfo->stAutoTracking.enGestureDetect);
}

// clang-format off
constexpr Coded<Handler *> SUB_COMMANDS[] = {
    {VISCA_MSG_E_TKV_AUTO_TRACKING,            viscaCtrlAutoTracking},
    {VISCA_MSG_E_TKV_AUTO_TRACKING_MODE,       viscaCtrlAutoTrackMode},
    {VISCA_MSG_E_TKV_AUTO_ZOOM,                viscaCtrlAutoZoom},
    {VISCA_MSG_E_TKV_AUTO_TILT,                viscaCtrlAutoTilt},
    {VISCA_MSG_E_TKV_AUTO_PAN,                 viscaCtrlAutoPan},
    {VISCA_MSG_E_TKV_TRACKING_START_PRESET,    viscaCtrlTKVTrackingStartPreset},
    {VISCA_MSG_E_TKV_FIGURE_SIZE,              viscaCtrlFigureSize},
    {VISCA_MSG_E_TKV_SELECY_SUBJECT,           viscaCtrlSelectSubject},
    {VISCA_MSG_E_TKV_PLACEMENT,                viscaCtrlPlacement},
    {VISCA_MSG_E_TKV_LOSTTIME,                 viscaCtrlATLostTime},
    {VISCA_MSG_E_TKV_ZONE_SETTINGS_AREA,       viscaCtrlATZoneSettingsArea},
    {VISCA_MSG_E_TKV_ZONE_SETTINGS_TRIGGER,    viscaCtrlATZoneSettingsTrigger},
    {VISCA_MSG_E_TKV_ZONE_TRACKING_START_AREA, viscaCtrlATZoneTrackingStartArea},
    {VISCA_MSG_E_TKV_ZONE_ZONE_CALL,           viscaCtrlATZoneCall},
    {VISCA_MSG_E_TKV_HUMANOID_FRAME,           viscaCtrlOsdPeminder},
    {VISCA_MSG_E_TKV_TRACKING_HIT,             viscaCtrlIndcator},
    {VISCA_MSG_E_TKV_HEADPOS,                  viscaCtrlATHeadPos},
    {VISCA_MSG_E_TKV_TRACKSPEED,               viscaCtrlTrackSpeed},
    {VISCA_MSG_E_TKV_GESTURE_DETECT,           viscaCtrlATGestureDetect},
};
// clang-format on
} // namespace

BU_S32 viscaCtrlTKVTrack(I *pstInfo)
{
    const auto enType = pstInfo->stAutoTracking.enTRackParamType;
    TRACE("Type[%d]  \n", enType);
    const auto *ppfnHandle = find(SUB_COMMANDS, enType);
    return ppfnHandle ? (*ppfnHandle)(pstInfo) : -1;
}

BU_S32 viscaCtrlAutoTracking(I *pstInfo)
{
    const auto enCtrl = pstInfo->stAutoTracking.enAutoTrackingCtrl;
    if (enCtrl != VISCA_MSG_E_AUTO_TRACKING_ON_OFF) return set<ALG_API_SetEnable>(enCtrl);
    BU_S32 bEnable = BU_FALSE;
    ALG_API_GetEnable(&bEnable, BU_FALSE);
    ALG_API_SetEnable(!bEnable, BU_TRUE, BU_TRUE);
    TRACE(" \n");
    return 0;
}

BU_S32 viscaCtrlAutoZoom(I *pstInfo) { return set<ALG_API_SetAutoZoom>(pstInfo->stAutoTracking.enAutoZoomCtrl); }

BU_S32 viscaCtrlAutoTilt(I *pstInfo) { return set<ALG_API_SetAutoTilt>(pstInfo->stAutoTracking.enAUtoTiltCtrl); }

BU_S32 viscaCtrlIndcator(I *pstInfo)
{
    return set<ALG_API_SetTallyIndicator>(pstInfo->stAutoTracking.enDetectedIndicatorCtrl);
}

BU_S32 viscaCtrlTrackingStartPreset(I *pstInfo)
{
    const BU_S32 s32Preset = pstInfo->stAutoTracking.s32TrackingStartPositionpreset;
    if (s32Preset < 1 || s32Preset > 254) return -1;
    ALG_API_SetStartPos(s32Preset, BU_TRUE, BU_TRUE);
    TRACE(" \n");
    return 0;
}

BU_S32 viscaCtrlOsdPeminder(I *pstInfo)
{
    return set<ALG_API_SetDebug, codes::OSD_REMINDERS>(pstInfo->stAutoTracking.enOsdReminderCtrl);
}

BU_S32 viscaCtrlFigureSize(I *pstInfo)
{
    const auto enSize = pstInfo->stAutoTracking.enFigureSizeCtrl;
    const BU_S32 s32Custom = pstInfo->stAutoTracking.s32FigureSize;
    if (enSize == VISCA_MSG_E_FIGURE_SIZE_SAVE) {
        if (s32Custom < 1 || s32Custom > MAX_FIGURE_SIZE) return -1;
        ALG_API_SetBodySizeCustom(s32Custom, BU_TRUE, BU_TRUE);
    } else if (enSize == VISCA_MSG_E_FIGURE_SIZE_BACK_TO_DEFAULT)
        ALG_API_GetBodySizeReset();
    else
        return set<ALG_API_SetBodySize, codes::BODY_SIZES>(enSize);
    TRACE(" \n");
    return 0;
}

BU_S32 viscaCtrlSelectSubject(I *pstInfo)
{
    if (const auto *ppfnKey = find(SUBJECT_KEYS, pstInfo->stAutoTracking.enSelectSubjectCtrl)) (*ppfnKey)();
    TRACE(" \n");
    return 0;
}

BU_S32 viscaCtrlPlacement(I *pstInfo)
{
    return set<ALG_API_SetPeoplePos, codes::PLACEMENTS>(pstInfo->stAutoTracking.enPlacementCtrl);
}

BU_S32 viscaCtrlATSpeed(I *pstInfo)
{
    return set<ALG_API_SetTrackSpeed, codes::TRACK_SPEEDS>(pstInfo->stAutoTracking.enAtSpeedCtrl);
}
