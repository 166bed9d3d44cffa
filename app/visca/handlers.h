/// The VISCA module inside: one handler a message type, the state they share.
///
/// A handler reads the fields that its message carries; an inquiry writes the fields that its reply carries.
/// It returns 0 for done, -1 for refused (nothing has changed), or passes a camera service's result through: 1 for a
/// move whose end is reported later, another code for a failure that is not answered.
/// Thread: the receivers of the VISCA library, several at once.
#pragma once

#include "visca/visca.h"

namespace visca
{
typedef BU_S32 Handler(tagVISCA_CTRL_INFO_S *pstInfo);
}

// commands: system
visca::Handler viscaCtrlCancel, viscaCtrlAddress, viscaCtrlPower, viscaCtrlIrRecv, viscaCtrlIrCtrl,
    viscaCtrlVideoResolution, viscaCtrlIp, viscaCtrlSystemFactory, viscaCtrlSysMenu, viscaCtrlAudioVol,
    viscaCtrlAudioMute, viscaCtrlTallyLed, viscaCtrlYMTally, viscaCtrlTKVTally;

// commands: lens and motion
visca::Handler viscaCtrlZoom, viscaCtrlDZoom, viscaCtrlFocus, viscaCtrlZoomFocus, viscaCtrlPanTilt, viscaCtrlPTSpeed,
    viscaCtrlMemory;

// commands: picture
visca::Handler viscaCtrlWbMode, viscaCtrlWbColorTmp, viscaCtrlRGain, viscaCtrlBGain, viscaCtrlGGain, viscaCtrlAwbGain,
    viscaCtrlAE, viscaCtrlShutter, viscaCtrlIris, viscaCtrlGain, viscaCtrlExpBright, viscaCtrlExpComp, viscaCtrlWDR,
    viscaCtrlBacklight, viscaCtrlAperture, viscaCtrlVideoParam, viscaCtrlExtraISP;

// commands: tracking
visca::Handler viscaCtrlAutoTracking, viscaCtrlAutoZoom, viscaCtrlAutoTilt, viscaCtrlIndcator,
    viscaCtrlTrackingStartPreset, viscaCtrlOsdPeminder, viscaCtrlFigureSize, viscaCtrlSelectSubject, viscaCtrlPlacement,
    viscaCtrlATSpeed, viscaCtrlTKVTrack;

// inquiries: system
visca::Handler viscaInquiryAddress, viscaInquiryPower, viscaInquiryIrRecv, viscaInquiryIrInfo,
    viscaInquiryVideoResolution, viscaInquiryAudioVol, viscaInquiryAudioMute, viscaInquiryIP, viscaInquiryIpDhcpMode,
    viscaInquiryIpInfoAscll, viscaInquiryVersion, viscaInquiryMenu, viscaInquiryTallyMode, viscaInquiryNDITallyMode,
    viscaInquiryCustomTally, viscaInquirySystemStatus, viscaInquiryBlockData;

// inquiries: lens and motion
visca::Handler viscaInquiryZoomPos, viscaInquiryZoomSpd, viscaInquiryDZoomLimit, viscaInquiryDzoomMode,
    viscaInquiryFocusMode, viscaInquiryFocusPos, viscaInquiryPanTiltPos, viscaInquiryPanTiltMaxSpeed,
    viscaInquiryPTSpeed, viscaInquiryPTSpeedMatch, viscaInquiryPTSpeedAccuarcy, viscaInquiryMemoryStatue;

// inquiries: picture
visca::Handler viscaInquiryWbMode, viscaInquiryRGain, viscaInquiryBGain, viscaInquiryGGain, viscaInquiryAwbGain,
    viscaInquiryWbColorTemp, viscaInquiryAeMode, viscaInquiryShutterPos, viscaInquiryIrisPos, viscaInquiryGainPos,
    viscaInquiryExpBright, viscaInquiryExpCompMode, viscaInquiryExpCompPos, viscaInquiryBacklightMode,
    viscaInquiryAperture, viscaInquiryVideoParam, viscaInquiryExtraStatue;

// inquiries: tracking
visca::Handler viscaInquiryAutoTrackingStatue, viscaInquiryAutoZoomStatus, viscaInquiryAutoTiltStatus,
    viscaInquiryDetectedIndicatorStatus, viscaInquiryTrackingStart, viscaInquiryTrackingStartPosition,
    viscaInquiryOsdReminderStatus, viscaInquiryFigureSize, viscaInquiryCurrentCustomizedFigureSize,
    viscaInquiryPlacementStatus, viscaInquiryAutoStrackingSpeed, viscaInquiryTKVHeadPos, viscaInquiryTKVATSpeed,
    viscaInquiryGestureDetect;

/// A preset recall has ended a motion: of the head, or of the lens. @return whether another end is still to come
bool viscaRecallGoesOn();

/// Presses the menu key of a pan/tilt direction; keys come again after a pause of 500 ms.
/// @return 0 taken by the menu, -1 not a direction
BU_S32 VISCA_CtrlMenu(VISCA_CTRL_PT_E enType);
/// Ends the pause between two menu keys. Runs on the timer thread. @return 0
BU_S32 VISCA_delay(void *pvUser);
