// Inquiries of tracking.
#include "visca/viscaInquiry.h"

using namespace visca;

namespace
{
constexpr tagVISCA_MAP_S START_PRESETS[] = {{TRACK_LOST_ACTION_E_PRESET_0, 2}, {TRACK_LOST_ACTION_E_PRESET_1, 0}};
constexpr tagVISCA_MAP_S AT_SPEEDS[] = {{0, VISCA_MSG_E_AT_SPEED_SLOW}, {1, VISCA_MSG_E_AT_SPEED_MID}}; // "Low", "Mid"
constexpr tagVISCA_MAP_S TRACK_SPEEDS[] = {{3, 0}};                                                     // "Smooth"
constexpr tagVISCA_MAP_S GESTURES[] = {{1, ON}};
} // namespace

BU_S32 viscaInquiryAutoTrackingStatue(tagVISCA_CTRL_INFO_S *pstInfo)
{
    return storeOnOff<TrackingMode>(pstInfo, ask<ALG_API_GetEnable>(BU_TRUE));
}

BU_S32 viscaInquiryAutoZoomStatus(tagVISCA_CTRL_INFO_S *pstInfo)
{
    return storeOnOff<AutoZoom>(pstInfo, ask<ALG_API_GetAutoZoom>());
}

BU_S32 viscaInquiryAutoTiltStatus(tagVISCA_CTRL_INFO_S *pstInfo)
{
    return storeOnOff<AutoTilt>(pstInfo, ask<ALG_API_GetAutoTilt>());
}

BU_S32 viscaInquiryDetectedIndicatorStatus(tagVISCA_CTRL_INFO_S *pstInfo)
{
    return storeOnOff<Indicator>(pstInfo, ask<ALG_API_GetTallyIndicator>());
}

BU_S32 viscaInquiryTrackingStart(tagVISCA_CTRL_INFO_S *pstInfo)
{
    const BU_S32 s32Preset = mapped<START_PRESETS>(ask<ALG_API_GetStartPos>());
    return s32Preset == UNREAD ? -1 : store<StartPreset>(pstInfo, s32Preset);
}

BU_S32 viscaInquiryTrackingStartPosition(tagVISCA_CTRL_INFO_S *pstInfo)
{
    return store<StartPreset>(pstInfo, ask<ALG_API_GetStartPos>());
}

BU_S32 viscaInquiryOsdReminderStatus(tagVISCA_CTRL_INFO_S *pstInfo)
{
    const BU_S32 s32Debug = ask<ALG_API_GetDebug>();
    return store<OsdReminder>(pstInfo, s32Debug == UNREAD ? UNREAD : s32Debug != 0);
}

BU_S32 viscaInquiryFigureSize(tagVISCA_CTRL_INFO_S *pstInfo)
{
    return store<FigureSize>(pstInfo, ask<ALG_API_GetBodySize>());
}

BU_S32 viscaInquiryCurrentCustomizedFigureSize(tagVISCA_CTRL_INFO_S *pstInfo)
{
    return store<FigureSizeCustom>(pstInfo, ask<ALG_API_GetBodySizeCustom>());
}

BU_S32 viscaInquiryPlacementStatus(tagVISCA_CTRL_INFO_S *pstInfo)
{
    return store<Placement>(pstInfo, mappedOr<PLACEMENTS, VISCA_MSG_E_PLACEMENT_LEFT>(ask<ALG_API_GetPeoplePos>()));
}

BU_S32 viscaInquiryAutoStrackingSpeed(tagVISCA_CTRL_INFO_S *pstInfo)
{
    return store<AtSpeed>(pstInfo, mappedOr<AT_SPEEDS, VISCA_MSG_E_AT_SPEED_FASET>(ask<ALG_API_GetTrackSpeed>()));
}

BU_S32 viscaInquiryTKVHeadPos(tagVISCA_CTRL_INFO_S *pstInfo)
{
    return store<HeadPos>(pstInfo, ask<ALG_API_GetHeadPos>());
}

BU_S32 viscaInquiryTKVATSpeed(tagVISCA_CTRL_INFO_S *pstInfo)
{
    return store<TrackSpeed>(pstInfo, mappedOr<TRACK_SPEEDS, 1>(ask<ALG_API_GetTrackSpeed>()));
}

BU_S32 viscaInquiryGestureDetect(tagVISCA_CTRL_INFO_S *pstInfo)
{
    return store<Gesture>(pstInfo, mappedOr<GESTURES, OFF>(ask<ALG_API_GetGesture>()));
}
