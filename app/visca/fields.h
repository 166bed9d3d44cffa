/// The fields of the control record that inquiry handlers write and reply encoders read, by name.
#pragma once

#include "protocol/visca.h"

#include <type_traits>

namespace visca
{
using I = tagVISCA_CTRL_INFO_S;

/// A field of the record: the members that lead to it.
template <auto... Path> struct Field {
    using Type = std::remove_reference_t<decltype((std::declval<I &>().*....*Path))>;
    static BU_U32 get(const I &st) { return static_cast<BU_U32>((st.*....*Path)); }
    static void set(I &st, BU_S32 s32Value) { (st.*....*Path) = static_cast<Type>(s32Value); }
};

using Power = Field<&I::enPowerCtrl>;
using ZoomPos = Field<&I::stZoomCtrl, &VISCA_CTRL_ZOOM_S::u16ZoomPos>;
using ZoomSpeed = Field<&I::stZoomCtrl, &VISCA_CTRL_ZOOM_S::u8ZoomVariable>;
using DZoomMode = Field<&I::stDZoomCtrl, &VISCA_CTRL_DZOOM_S::enDZoomType>;
using DZoomLimit = Field<&I::stDZoomCtrl, &VISCA_CTRL_DZOOM_S::u8DzoomLimit>;
using FocusMode = Field<&I::stFocusCtrl, &VISCA_CTRL_FOCUS_S::enFocusType>;
using FocusPos = Field<&I::stFocusCtrl, &VISCA_CTRL_FOCUS_S::u16FocusPos>;
using PanPos = Field<&I::stPTCtlr, &VISCA_CTRL_PT_S::u16PanPos>;
using TiltPos = Field<&I::stPTCtlr, &VISCA_CTRL_PT_S::u16TiltPos>;
using PanSpeed = Field<&I::stPTCtlr, &VISCA_CTRL_PT_S::u8PanSpeed>;
using TiltSpeed = Field<&I::stPTCtlr, &VISCA_CTRL_PT_S::u8TiltSpeed>;
using PTSpeedMatch = Field<&I::stPTSpeedCtrl, &VISCA_CTRL_PTSPEED_S::enPanTiltType>;
using PTSpeedParam = Field<&I::stPTSpeedCtrl, &VISCA_CTRL_PTSPEED_S::u32PTSpeedParam>;
using Memory = Field<&I::stMemoryCtrl, &VISCA_CTRL_MEMORY_S::u8MemVal>;

using WbMode = Field<&I::enWbModeCtrl>;
using RGain = Field<&I::stRGainCtrl, &VISCA_CTRL_RGAIN_S::u8RGainDirect>;
using BGain = Field<&I::stBGainCtrl, &VISCA_CTRL_BGAIN_S::u8BGainDirect>;
using GGain = Field<&I::stGGainCtrl, &VISCA_CTRL_GGAIN_S::u8GGainDirect>;
using AwbGain = Field<&I::stAwbGainCtrl, &VISCA_CTRL_AWB_GAIN_S::u8AwbGainDirect>;
using ColorTemp = Field<&I::u8WbColorTmpDirect>;
using AeMode = Field<&I::stAECtrl, &VISCA_CTRL_AE_S::enAEType>;
using Shutter = Field<&I::stShutterCtrl, &VISCA_CTRL_SHUTTER_S::u8ShutterDirect>;
using Iris = Field<&I::stIrisCtrl, &VISCA_CTRL_IRIS_S::u8IrisDirect>;
using Gain = Field<&I::stGainCtrl, &VISCA_CTRL_GAIN_S::u8GainDirect>;
using Bright = Field<&I::stBrightCtrl, &VISCA_CTRL_BRIGHT_S::u8BrightDirect>;
using ExpCompMode = Field<&I::stExpCompCtrl, &VISCA_CTRL_EXP_COMP_S::enExpCompType>;
using ExpCompPos = Field<&I::stExpCompCtrl, &VISCA_CTRL_EXP_COMP_S::u8ExpCompDirect>;
using Backlight = Field<&I::enBalklightCtrl>;
using Aperture = Field<&I::stApertureCtrl, &VISCA_CTRL_APERTURE_S::u8ApertureDirect>;
using VideoParam = Field<&I::stVideoParamCtrl, &VISCA_CTRL_VIDEO_PARAM_S::u8VideoParamDirect>;
using ExtraIsp = Field<&I::stExtraIspCtrl, &VISCA_CTRL_EXTRA_ISP_S::u8Val>;

using VideoFormat = Field<&I::enVideoCtrl>;
using IrRecv = Field<&I::enIrRecvCtrl>;
using IrValue = Field<&I::stIrCtrl, &VISCA_CTRL_IR_S::u8IrVal>;
using AudioVolume = Field<&I::stAudioVolCtrl, &VISCA_CTRL_AUDIO_VOL_S::u8AudioVolDirect>;
using AudioMute = Field<&I::enAudioMuteCtrl>;
using IpMode = Field<&I::stIpCtrl, &VISCA_CTRL_IP_S::enIpType>;
using IpValue = Field<&I::stIpCtrl, &VISCA_CTRL_IP_S::u32IpVal>;
using Version = Field<&I::u16Version>;
using Menu = Field<&I::eSysMenuOpt>;
using TallyMode = Field<&I::stTKVtTally, &VISCA_MSG_TKV_TALLY_TYPE_S::enledmode>;
using TallyColor = Field<&I::stTKVtTally, &VISCA_MSG_TKV_TALLY_TYPE_S::RGBLed>;

template <auto Member> using Tracking = Field<&I::stAutoTracking, Member>;
using TrackingMode = Tracking<&VISCA_MSG_AUTO_TRACKING_S::enAutoTrackingCtrl>;
using AutoZoom = Tracking<&VISCA_MSG_AUTO_TRACKING_S::enAutoZoomCtrl>;
using AutoTilt = Tracking<&VISCA_MSG_AUTO_TRACKING_S::enAUtoTiltCtrl>;
using Indicator = Tracking<&VISCA_MSG_AUTO_TRACKING_S::enDetectedIndicatorCtrl>;
using StartPreset = Tracking<&VISCA_MSG_AUTO_TRACKING_S::s32TrackingStartPositionpreset>;
using OsdReminder = Tracking<&VISCA_MSG_AUTO_TRACKING_S::enOsdReminderCtrl>;
using FigureSize = Tracking<&VISCA_MSG_AUTO_TRACKING_S::enFigureSizeCtrl>;
using FigureSizeCustom = Tracking<&VISCA_MSG_AUTO_TRACKING_S::s32FigureSize>;
using Placement = Tracking<&VISCA_MSG_AUTO_TRACKING_S::enPlacementCtrl>;
using AtSpeed = Tracking<&VISCA_MSG_AUTO_TRACKING_S::enAtSpeedCtrl>;
using HeadPos = Tracking<&VISCA_MSG_AUTO_TRACKING_S::s32HeadPos>;
using TrackSpeed = Tracking<&VISCA_MSG_AUTO_TRACKING_S::s32TrackSpeed>;
using Gesture = Tracking<&VISCA_MSG_AUTO_TRACKING_S::enGestureDetect>;

template <auto Member> using Status = Field<&I::stSystemStatue, Member>;
using StatusAA = Status<&VISCA_MSG_SYSTEM_STATUE_S::AA>;
using StatusVideoFormat = Status<&VISCA_MSG_SYSTEM_STATUE_S::VideoFormat>;
using StatusWbMode = Status<&VISCA_MSG_SYSTEM_STATUE_S::WebMod>;
using StatusRGain = Status<&VISCA_MSG_SYSTEM_STATUE_S::RGain>;
using StatusBGain = Status<&VISCA_MSG_SYSTEM_STATUE_S::BGain>;
using StatusFocusMode = Status<&VISCA_MSG_SYSTEM_STATUE_S::FocusMode>;
using StatusIrisMode = Status<&VISCA_MSG_SYSTEM_STATUE_S::IrisMode>;
using StatusPtSpeed = Status<&VISCA_MSG_SYSTEM_STATUE_S::PtSpeed>;
using StatusAgcMode = Status<&VISCA_MSG_SYSTEM_STATUE_S::AgcMode>;
} // namespace visca
