/// The VISCA module inside: one handler a message type, the state they share.
///
/// A handler reads the fields that its message carries; an inquiry writes the fields that its reply carries.
/// It returns 0 for done, -1 for refused (nothing has changed), or passes a camera service's result through: 1 for a
/// move whose end is reported later, another code for a failure that is not answered.
/// Thread: the receivers of the VISCA library, several at once.
#pragma once

#include "visca/visca.h"

#include <atomic>

/// Motion ends that a preset recall still waits for: the recall sets it to 2, each end takes one away.
inline std::atomic<BU_S32> gs_s32PresetFlag{0};

// clang-format off
// commands: system
BU_S32 viscaCtrlCancel(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlAddress(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlPower(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlIrRecv(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlIrCtrl(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlVideoResolution(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlIp(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlSystemFactory(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlSysMenu(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlAudioVol(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlAudioMute(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlTallyLed(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlYMTally(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlTKVTally(tagVISCA_CTRL_INFO_S *pstInfo);

// commands: lens and motion
BU_S32 viscaCtrlZoom(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlDZoom(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlFocus(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlZoomFocus(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlPanTilt(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlPTSpeed(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlMemory(tagVISCA_CTRL_INFO_S *pstInfo);

// commands: picture
BU_S32 viscaCtrlWbMode(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlWbColorTmp(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlRGain(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlBGain(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlGGain(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlAwbGain(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlAE(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlShutter(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlIris(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlGain(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlExpBright(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlExpComp(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlWDR(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlBacklight(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlAperture(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlVideoParam(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlExtraISP(tagVISCA_CTRL_INFO_S *pstInfo);

// commands: tracking
BU_S32 viscaCtrlAutoTracking(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlAutoZoom(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlAutoTilt(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlIndcator(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlTrackingStartPreset(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlOsdPeminder(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlFigureSize(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlSelectSubject(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlPlacement(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlATSpeed(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaCtrlTKVTrack(tagVISCA_CTRL_INFO_S *pstInfo);

// inquiries: system
BU_S32 viscaInquiryAddress(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryPower(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryIrRecv(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryIrInfo(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryVideoResolution(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryAudioVol(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryAudioMute(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryIP(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryIpDhcpMode(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryIpInfoAscll(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryVersion(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryMenu(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryTallyMode(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryNDITallyMode(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryCustomTally(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquirySystemStatus(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryBlockData(tagVISCA_CTRL_INFO_S *pstInfo);

// inquiries: lens and motion
BU_S32 viscaInquiryZoomPos(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryZoomSpd(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryDZoomLimit(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryDzoomMode(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryFocusMode(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryFocusPos(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryPanTiltPos(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryPanTiltMaxSpeed(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryPTSpeed(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryPTSpeedMatch(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryPTSpeedAccuarcy(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryMemoryStatue(tagVISCA_CTRL_INFO_S *pstInfo);

// inquiries: picture
BU_S32 viscaInquiryWbMode(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryRGain(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryBGain(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryGGain(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryAwbGain(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryWbColorTemp(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryAeMode(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryShutterPos(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryIrisPos(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryGainPos(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryExpBright(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryExpCompMode(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryExpCompPos(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryBacklightMode(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryAperture(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryVideoParam(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryExtraStatue(tagVISCA_CTRL_INFO_S *pstInfo);

// inquiries: tracking
BU_S32 viscaInquiryAutoTrackingStatue(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryAutoZoomStatus(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryAutoTiltStatus(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryDetectedIndicatorStatus(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryTrackingStart(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryTrackingStartPosition(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryOsdReminderStatus(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryFigureSize(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryCurrentCustomizedFigureSize(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryPlacementStatus(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryAutoStrackingSpeed(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryTKVHeadPos(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryTKVATSpeed(tagVISCA_CTRL_INFO_S *pstInfo);
BU_S32 viscaInquiryGestureDetect(tagVISCA_CTRL_INFO_S *pstInfo);
// clang-format on

/// Presses the menu key of a pan/tilt direction; keys come again after a pause of 500 ms.
/// @return 0 taken by the menu, -1 not a direction
BU_S32 VISCA_CtrlMenu(VISCA_CTRL_PT_E enType);
/// Ends the pause between two menu keys. Runs on the timer thread. @return 0
BU_S32 VISCA_delay(void *pvUser);
