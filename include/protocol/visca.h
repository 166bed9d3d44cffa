/// VISCA records: the decoded control record, the reply buffer, the call tables, and the calls of the VISCA library.
///
/// Packet formats: the VISCA command lists of PTZ camera manuals; docs/visca.md lists every packet of this camera.
#pragma once

#include "base/types.h"
#include "protocol/viscaEnums.h"
#include "protocol/viscaNet.h"

#include <cstddef>

struct VISCA_CTRL_CANCEL_S {
    tagVISCA_CMD_INQ_TYPE_E enMsgType;
    BU_U8 u8Cancel; ///< socket number to cancel
};
struct VISCA_CTRL_ZOOM_S {
    VISCA_CTRL_ZOOM_E enZoomType;
    BU_U8 u8ZoomVariable; ///< speed 0...7
    BU_U16 u16ZoomPos;
};
struct VISCA_CTRL_DZOOM_S {
    VISCA_CTRL_DZOOM_E enDZoomType;
    BU_U8 u8DzoomLimit; ///< largest digital magnification, 1...16
};
struct VISCA_CTRL_FOCUS_S {
    VISCA_CTRL_FOCUS_E enFocusType;
    BU_U8 u8FocusVariable; ///< speed 0...7
    BU_U16 u16FocusPos;
};
struct VISCA_CTRL_ZOOM_FOCUS_S {
    BU_U16 u16ZoomPos, u16FocusPos;
};
struct VISCA_CTRL_RGAIN_S {
    VISCA_CTRL_RGAIN_E enRGainType;
    BU_U8 u8RGainDirect;
};
struct VISCA_CTRL_BGAIN_S {
    VISCA_CTRL_BGAIN_E enBGainType;
    BU_U8 u8BGainDirect;
};
struct VISCA_CTRL_GGAIN_S {
    VISCA_CTRL_GGAIN_E enGGainType;
    BU_U8 u8GGainDirect;
};
struct VISCA_CTRL_AWB_GAIN_S {
    VISCA_CTRL_AWB_GAIN_E enAwbGainType;
    BU_U8 u8AwbGainDirect;
};
struct VISCA_CTRL_COLORTEMP_S {
    VISCA_CTRL_COLORTEMP_E enColorTempType;
    BU_U8 u8RGainDirect;
};
struct VISCA_CTRL_AE_S {
    VISCA_CTRL_AE_E enAEType;
    BU_U8 u8AeGainLimit;
};
struct VISCA_CTRL_SHUTTER_S {
    VISCA_CTRL_SHUTTER_E enShutterType;
    BU_U8 u8ShutterDirect;
};
struct VISCA_CTRL_IRIS_S {
    VISCA_CTRL_IRIS_E enIrisType;
    BU_U8 u8IrisDirect;
};
struct VISCA_CTRL_GAIN_S {
    VISCA_CTRL_GAIN_E enGainType;
    BU_U8 u8GainDirect;
};
struct VISCA_CTRL_BRIGHT_S {
    VISCA_CTRL_BRIGHT_E enBrightType;
    BU_U8 u8BrightDirect;
};
struct VISCA_CTRL_EXP_COMP_S {
    VISCA_CTRL_EXP_COMP_E enExpCompType;
    BU_U8 u8ExpCompDirect;
};
struct VISCA_CTRL_WDR_S {
    VISCA_CTRL_WDR_E enWDRType;
    BU_U8 u8WDRDirect;
};
struct VISCA_CTRL_APERTURE_S {
    VISCA_CTRL_APERTURE_E enApertureType;
    BU_U8 u8ApertureDirect;
};
struct VISCA_CTRL_MEMORY_S {
    VISCA_CTRL_MEMORY_E enMemoryType;
    BU_U8 u8MemVal;
};
struct VISCA_CTRL_AUDIO_VOL_S {
    VISCA_CTRL_AUDIO_VOL_E enAudioVolType;
    BU_U8 u8AudioVolDirect;
};
struct VISCA_CTRL_VIDEO_PARAM_S {
    VISCA_CTRL_VIDEO_PARAM_E enVideoParamType;
    BU_U8 u8VideoParamDirect;
};
struct VISCA_CTRL_IR_S {
    VISCA_CTRL_IR_E enIrType;
    BU_U8 u8IrVal;
};
struct VISCA_CTRL_EXTRA_ISP_S {
    VISCA_CTRL_EXTREA_ISP_E enExtraIspType;
    BU_U8 u8Val;
};
struct VISCA_CTRL_PT_S {
    VISCA_CTRL_PT_E enPanTiltType;
    BU_U8 u8PanSpeed, u8TiltSpeed;            ///< speed levels; 0 selects the configured speed
    BU_U16 u16PanPos, u16TiltPos;             ///< VISCA positions, two's complement
    BU_U32 u32PanPos, u32TiltPos, u32ZoomPos; ///< not read by the service
};
struct VISCA_CTRL_PTSPEED_S {
    VISCA_CTRL_PTSPEED_E enPanTiltType;
    BU_U32 u32PTSpeedParam;
};
struct VISCA_CTRL_IP_S {
    VISCA_CTRL_IP_E enIpType;
    BU_U32 u32IpVal; ///< first octet in bits 31...24
    BU_CHAR acIpInfoAscll[128];
};
/// Where on the network a message came from. Besides port and address the library keeps its own marks of a command in
/// the upper halves; a record is routed by what it holds, also as a copy and also after a restart.
struct VISCA_OVER_IP_MSG_S {
    OVER_IP_MSG_TYPE_E enMsgType;
    BU_U32 u32SnNum;  ///< sequence number, echoed in every answer
    BU_U32 u32Port;   ///< bits 0...15: UDP port of the controller
    BU_U64 u64IpAddr; ///< bits 0...31: its IPv4 address, first octet highest; TCP: the number of the connection
    BU_BOOL bEnable;  ///< it came with the 8-byte header, and answers get one
};
struct VISCA_MSG_PRI_S {
    tagVISCA_CMD_INQ_TYPE_E enMsgType;
    CMD_FROM_E enFrom;
    BU_U8 u8SocketNum; ///< 1 or 2; 0 for inquiries
    VISCA_OVER_IP_MSG_S stIpMsg;
};
struct VISCA_MSG_SYSTEM_STATUE_S {
    BU_S32 AA, VideoFormat, WebMod, RGain, BGain, FocusMode, IrisMode, AgcMode, VideoFlip, PtSpeed;
};
struct VISCA_MSG_AUTO_TRACKING_S {
    VISCA_CTRL_AUTO_TRACKING_E enAutoTrackingCtrl;
    tagVISCA_CTRL_AUTO_TRACK_MDOE_E enAutoTrackModeCtrl;
    VISCA_CTRL_SWITCH_E enAutoZoomCtrl, enAUtoTiltCtrl, enAUtoPanCtrl;
    VISCA_CTRL_INDICATOR_E enDetectedIndicatorCtrl;
    BU_S32 s32TrackingStartPositionpreset;
    VISCA_CTRL_OSD_REMINDER_E enOsdReminderCtrl;
    VISCA_CTRL_FIGURE_SIZE_E enFigureSizeCtrl;
    BU_S32 s32FigureSize; ///< 1...360
    VISCA_CTRL_SELECT_SUBJECT_E enSelectSubjectCtrl;
    VISCA_CTRL_PLACEMENT_E enPlacementCtrl;
    VISCA_CTRL_AT_SPEED_E enAtSpeedCtrl;
    BU_S32 s32AtLostTime; ///< seconds
    VISCA_CTRL_TRACK_PARAM_E enTRackParamType;
    BU_S32 s32PresetAreaId;
    VISCA_CTRL_PRESET_AREA_E enPresetAreaType;
    BU_S32 s32HeadPos, s32TrackSpeed;
    VISCA_CTRL_SWITCH_E enGestureDetect;
};
struct VISCA_MSG_TKV_TALLY_TYPE_S {
    BU_S32 RGBLed; ///< 0xRRGGBB
    VISCA_MSG_TKV_TALLY_TYPE_E enledmode;
};
struct VISCA_MSG_TKV_BLOCK_STATUE_S {
    BU_S32 ExpMode, GainLimit, Gain, ExpCompMode, ExpCompLevel, Iris, Shutter, Bright, WbMode, RGain, BGain, ColorTemp;
    BU_S32 Brightness, Sharpness, Flip, Mirror, WideDynamic, Contrast, AntiFlicker, TwoDNR, ThreeDNR, BackLight, Gamma;
    BU_S32 Saturation, Hue;
    BU_S32 RedHue, YellowHue, GreenHue, CayennHue, BlueHue, MagentaHue;
    BU_S32 RedSat, YellowSat, GreenSat, CayennSat, BlueSat, MagentaSat;
    BU_S32 AiTrack, AiMode, AiHumanoidFrame, AiTrackingHint, AiAutomations, AiLostTime, AiBodySize, AiBodySizeadjust;
    BU_S32 AiStartPos, AiCharacterPosition, Focus, Freeze, Power, MenuDisaply, Mute, VideoFormat, CameraVersion, Tally;
};
/// Extension pan/tilt data: a record, whatever its suffix says.
struct VISCA_MSG_YM_PAN_TILT_E {
    BU_U32 u32Type, u32PanSpeed, u32TiltSpeed, u32PanPos, u32TiltPos;
};
struct VISCA_MSG_YM_REVERSE_S {
    VISCA_MSG_YM_SWITCH_E enPanReverse, enTiltReverse;
};
struct VISCA_MSG_YM_VERSION_S {
    BU_U32 ModelCode, McpuVersion, FpgaVersion, MotorCtlVersion;
};

/// One decoded message. The library fills the fields that the message carries and zeroes the rest; inquiry handlers
/// write the fields that the reply carries. Its raw image is kept in a file over a power cycle, so the size is fixed.
struct tagVISCA_CTRL_INFO_S {
    BU_U8 u8Address;
    VISCA_CTRL_CANCEL_S stCancelCtrl;
    VISCA_CTRL_POWER_E enPowerCtrl;
    VISCA_CTRL_ZOOM_S stZoomCtrl;
    VISCA_CTRL_DZOOM_S stDZoomCtrl;
    VISCA_CTRL_FOCUS_S stFocusCtrl;
    VISCA_CTRL_ZOOM_FOCUS_S stZoomFocusCtrl;
    VISCA_CTRL_WB_MODE_E enWbModeCtrl;
    VISCA_CTRL_RGAIN_S stRGainCtrl;
    VISCA_CTRL_BGAIN_S stBGainCtrl;
    VISCA_CTRL_GGAIN_S stGGainCtrl;
    VISCA_CTRL_AWB_GAIN_S stAwbGainCtrl;
    VISCA_CTRL_COLORTEMP_S stColorTempCtrl;
    VISCA_CTRL_AE_S stAECtrl;
    VISCA_CTRL_SHUTTER_S stShutterCtrl;
    VISCA_CTRL_IRIS_S stIrisCtrl;
    VISCA_CTRL_GAIN_S stGainCtrl;
    VISCA_CTRL_BRIGHT_S stBrightCtrl;
    VISCA_CTRL_EXP_COMP_S stExpCompCtrl;
    VISCA_CTRL_WDR_S stWDRCtrl;
    VISCA_CTRL_BACKLIGHT_E enBalklightCtrl;
    VISCA_CTRL_APERTURE_S stApertureCtrl;
    VISCA_CTRL_MEMORY_S stMemoryCtrl;
    VISCA_CTRL_LED_E enTallyLed;
    VISCA_CTRL_IR_RECV_E enIrRecvCtrl;
    VISCA_CTRL_VIDEO_RESOLUTION_E enVideoCtrl;
    VISCA_CTRL_PT_S stPTCtlr;
    VISCA_CTRL_PTSPEED_S stPTSpeedCtrl;
    VISCA_CTRL_AUDIO_VOL_S stAudioVolCtrl;
    VISCA_CTRL_VIDEO_PARAM_S stVideoParamCtrl;
    VISCA_CTRL_IP_S stIpCtrl;
    VISCA_CTRL_AUDIO_MUTE_E enAudioMuteCtrl;
    VISCA_CTRL_QLS500_MODEL_E enQLS500Model;
    VISCA_CTRL_EXTRA_ISP_S stExtraIspCtrl;
    BU_U8 u8WbColorTmpDirect;
    VISCA_CTRL_IR_S stIrCtrl;
    VISCA_MSG_SYS_MENU_E eSysMenuOpt;
    BU_U16 u16Version;
    VISCA_MSG_PRI_S stMsgPri; ///< origin; the library routes the answer by it
    VISCA_MSG_SYSTEM_STATUE_S stSystemStatue;
    VISCA_MSG_AUTO_TRACKING_S stAutoTracking;
    VISCA_MSG_YM_TALLY_TYPE_E enTallyType;
    VISCA_MSG_TKV_TALLY_TYPE_S stTKVtTally;
    VISCA_MSG_TKV_BLOCK_STATUE_S stTkvBlockStatue;
    VISCA_MSG_YM_PAN_TILT_E stYMPt;
    VISCA_MSG_YM_RECORD_E enYMRecord;
    VISCA_MSG_YM_REVERSE_S stYMReverse;
    VISCA_MSG_YM_VERSION_S stYMVersion;
    VISCA_MSG_YM_PAN_TILT_E stYMPTCtrl;
    BU_S32 s32LastMemoryOperated;
};
typedef tagVISCA_CTRL_INFO_S VISCA_CTRL_INFO_S;
static_assert(sizeof(tagVISCA_CTRL_INFO_S) == 872 && sizeof(VISCA_OVER_IP_MSG_S) == 32);
static_assert(offsetof(tagVISCA_CTRL_INFO_S, stMsgPri) == 400 && offsetof(tagVISCA_CTRL_INFO_S, stSystemStatue) == 448);
static_assert(offsetof(tagVISCA_CTRL_INFO_S, stAutoTracking) == 488 && offsetof(tagVISCA_CTRL_INFO_S, stYMPt) == 800);
static_assert(offsetof(tagVISCA_CTRL_INFO_S, stTkvBlockStatue) == 580);
static_assert(offsetof(tagVISCA_CTRL_INFO_S, s32LastMemoryOperated) == 868);

/// Reply buffer. The library writes the head, the encoder the payload and the terminator.
struct tagVISCA_MSG_REQ_S {
    CMD_FROM_E enFrom;
    BU_U8 acCmd[128];
    BU_U32 u32CmdLen; ///< used bytes of acCmd
    VISCA_OVER_IP_MSG_S stIpMsg;
};
typedef tagVISCA_MSG_REQ_S VISCA_MSG_REQ_S;

/// Transmits an answer.
/// @param pvPrivate  the origin of the message: a `const VISCA_MSG_PRI_S *`
/// @param pvExtra    null
/// @return 0 sent, -1 the peer is gone
typedef BU_S32 (*PFN_VISCA_TRANS)(BU_U8 *pu8Buf, BU_U32 u32Len, void *pvPrivate, void *pvExtra);

struct VISCA_TRANS_HANDLER_S {
    CMD_FROM_E enCmdFrom;
    PFN_VISCA_TRANS pfnViscaCallTrans; ///< null: no answers on this origin
};
struct VISCA_TRAN_CALL_FUNC_S {
    BU_U32 u32FuncNum; ///< used entries
    VISCA_TRANS_HANDLER_S stViscaTransHandlers[7];
    void *pvPrivateData;
};

/// pfnViscaMsgCtrl: runs one decoded message, on the receiver's thread; several receivers may call at once.
///   It answers through VISCA_CtrlMsgReturn, now or when the message's motion has ended, and returns 0 or -1 when it
///   has answered, more than 0 when the answer follows, any other value when none will: the library then answers "not
///   executable".
/// pfnViscaMsgComplete: writes the payload of a successful message from acCmd[u32Offset] on, then 0xFF, and sets
///   u32CmdLen; called inside VISCA_CtrlMsgReturn.
struct VISCA_CTRL_CALL_FUNC_S {
    BU_S32 (*pfnViscaMsgCtrl)(tagVISCA_CMD_INQ_TYPE_E enType, tagVISCA_CTRL_INFO_S *pstInfo);
    BU_S32(*pfnViscaMsgComplete)
    (tagVISCA_CTRL_INFO_S *pstInfo, tagVISCA_MSG_REQ_S *pstReq, tagVISCA_CMD_INQ_TYPE_E enType, BU_U32 u32Offset);
};

/// Starts the receivers: the plain endpoint (UDP and TCP), VISCA over IP, and the serial ports set to VISCA.
/// The records are copied. A port that cannot be opened is logged; the others run.
/// @return 0, or -1: null, or no receiver of the network could be started
/// Starting again ends what runs first. Not from inside a dispatch, as VISCA_HandlerExit.
BU_S32 VISCA_HandlerInit(const VISCA_TRAN_CALL_FUNC_S *pstTrans, const VISCA_CTRL_CALL_FUNC_S *pstCtrl,
                         const tagCFG_VISCA_NET_S *pstNet, const tagCFG_VISCA_NET_S *pstOverIp);

/// Stops the receivers and closes every connection; commands that still run get no answer. Returns after the last
/// dispatch has ended.
BU_S32 VISCA_HandlerExit();

/// Finishes a message: sends completion, reply or error to the origin in pstInfo->stMsgPri.
/// May be called inside pfnViscaMsgCtrl, later from any thread with a copy of the record, or with one read from a file.
/// A command that has ended already (cancelled, superseded, timed out) is not answered again.
/// @param bOk  BU_FALSE: answered with "not executable", or, when the message has been waiting for its motion, with
///   "cancelled"
/// @return 0 sent or nothing to send, -1 null or the controller is gone
/// Thread: any.
BU_S32 VISCA_CtrlMsgReturn(tagVISCA_CTRL_INFO_S *pstInfo, BU_BOOL bOk);

/// The transmitters of the network origins, for the transmitter table.
BU_S32 VISCA_OverIpSendMsg(BU_U8 *pu8Buf, BU_U32 u32Len, void *pvPrivate, void *pvExtra);
BU_S32 VISCA_NetUdpSendMsg(BU_U8 *pu8Buf, BU_U32 u32Len, void *pvPrivate, void *pvExtra);
BU_S32 VISCA_NetTcpSendMsg(BU_U8 *pu8Buf, BU_U32 u32Len, void *pvPrivate, void *pvExtra);

/// The camera's VISCA address, 1...7.
/// @return 0, or -1: outside the range, or not stored
BU_S32 VISCA_API_GetAddr(BU_U8 *pu8Addr, BU_BOOL bReread);
BU_S32 VISCA_API_SetAddr(BU_U8 u8Addr, BU_BOOL bSaveCfg);

/// The running endpoints; an update stores the record and applies it at once. Connections of a changed endpoint close,
/// an unchanged one is not touched. @return 0, or -1 and all as before: port outside 1...65535, unknown protocol type,
/// port not free, not stored, or another update is under way
BU_S32 VISCA_NET_GetCurConfig(tagCFG_VISCA_NET_S *pstCfg);
BU_S32 VISCA_NET_UpdateConfig(const tagCFG_VISCA_NET_S *pstCfg);
BU_S32 VISCA_OverIp_GetCurConfig(tagCFG_VISCA_NET_S *pstCfg);
BU_S32 VISCA_OverIp_UpdateConfig(const tagCFG_VISCA_NET_S *pstCfg);
