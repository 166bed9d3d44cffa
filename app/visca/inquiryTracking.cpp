// Inquiries of tracking.
#include "inquiry.h"

using namespace visca;

namespace
{
constexpr codes::Column OTHER = &codes::Row::s32ViscaOther;
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
    const BU_S32 s32Preset = codeOf<codes::START_POSITIONS, OTHER>(ask<ALG_API_GetStartPos>());
    return s32Preset == UNREAD ? -1 : store<StartPreset>(pstInfo, s32Preset);
}

BU_S32 viscaInquiryTrackingStartPosition(tagVISCA_CTRL_INFO_S *pstInfo)
{
    return store<StartPreset>(pstInfo, ask<ALG_API_GetStartPos>());
}

BU_S32 viscaInquiryOsdReminderStatus(tagVISCA_CTRL_INFO_S *pstInfo)
{
    return store<OsdReminder>(pstInfo, codeOf<codes::OSD_REMINDERS>(ask<ALG_API_GetDebug>()));
}

BU_S32 viscaInquiryFigureSize(tagVISCA_CTRL_INFO_S *pstInfo)
{
    return store<FigureSize>(pstInfo, codeOf<codes::BODY_SIZES>(ask<ALG_API_GetBodySize>()));
}

BU_S32 viscaInquiryCurrentCustomizedFigureSize(tagVISCA_CTRL_INFO_S *pstInfo)
{
    return store<FigureSizeCustom>(pstInfo, ask<ALG_API_GetBodySizeCustom>());
}

BU_S32 viscaInquiryPlacementStatus(tagVISCA_CTRL_INFO_S *pstInfo)
{
    return store<Placement>(pstInfo, codeOf<codes::PLACEMENTS>(ask<ALG_API_GetPeoplePos>()));
}

BU_S32 viscaInquiryAutoStrackingSpeed(tagVISCA_CTRL_INFO_S *pstInfo)
{
    return store<AtSpeed>(pstInfo, codeOf<codes::TRACK_SPEEDS>(ask<ALG_API_GetTrackSpeed>()));
}

BU_S32 viscaInquiryTKVHeadPos(tagVISCA_CTRL_INFO_S *pstInfo)
{
    return store<HeadPos>(pstInfo, ask<ALG_API_GetHeadPos>());
}

BU_S32 viscaInquiryTKVATSpeed(tagVISCA_CTRL_INFO_S *pstInfo)
{
    return store<TrackSpeed>(pstInfo, codeOf<codes::TRACK_SPEEDS, OTHER>(ask<ALG_API_GetTrackSpeed>()));
}

BU_S32 viscaInquiryGestureDetect(tagVISCA_CTRL_INFO_S *pstInfo)
{
    return storeOnOff<Gesture>(pstInfo, ask<ALG_API_GetGesture>());
}
