// The dispatch table: which handler runs a message and how its answer is written; start of the module.
#include "handlers.h"
#include "replies.h"

#include "camera/motion.h"
#include "camera/serial.h"
#include "protocol/viscaNet.h"
#include "util/log.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <functional>
#include <iterator>

namespace
{
using namespace visca;

struct DispatchRow {
    tagVISCA_CMD_INQ_TYPE_E enType;
    Handler *pfnHandle;
    PFN_REPLY pfnReply = nullptr; ///< none: the terminator alone
};
// clang-format off
constexpr DispatchRow ROWS[] = {
    {VISCA_CMD_E_CANCEL,                   viscaCtrlCancel},
    {VISCA_CMD_E_SET_ADDRESS,              viscaCtrlAddress},
    {VISCA_CMD_E_POWER,                    viscaCtrlPower},
    {VISCA_CMD_E_ZOOM,                     viscaCtrlZoom},
    {VISCA_CMD_E_DZOOM,                    viscaCtrlDZoom},
    {VISCA_CMD_E_FOCUS,                    viscaCtrlFocus},
    {VISCA_CMD_E_ZOOM_FOCUS,               viscaCtrlZoomFocus},
    {VISCA_CMD_E_WB_MODE,                  viscaCtrlWbMode},
    {VISCA_CMD_E_WB_COLOR_TMP,             viscaCtrlWbColorTmp},
    {VISCA_CMD_E_RGAIN,                    viscaCtrlRGain},
    {VISCA_CMD_E_BGAIN,                    viscaCtrlBGain},
    {VISCA_CMD_E_GGAIN,                    viscaCtrlGGain},
    {VISCA_CMD_E_AWB_GAIN,                 viscaCtrlAwbGain},
    {VISCA_CMD_E_AE,                       viscaCtrlAE},
    {VISCA_CMD_E_SHUTTER,                  viscaCtrlShutter},
    {VISCA_CMD_E_IRIS,                     viscaCtrlIris},
    {VISCA_CMD_E_GAIN,                     viscaCtrlGain},
    {VISCA_CMD_E_BRIGHT,                   viscaCtrlExpBright},
    {VISCA_CMD_E_EXP_COMP,                 viscaCtrlExpComp},
    {VISCA_CMD_E_WDR,                      viscaCtrlWDR},
    {VISCA_CMD_E_BACKLIGHT,                viscaCtrlBacklight},
    {VISCA_CMD_E_APERTURE,                 viscaCtrlAperture},
    {VISCA_CMD_E_MEMORY,                   viscaCtrlMemory},
    {VISCA_CMD_E_TALLYLED,                 viscaCtrlTallyLed},
    {VISCA_CMD_E_IR_RECV,                  viscaCtrlIrRecv},
    {VISCA_CMD_E_IRCTRL,                   viscaCtrlIrCtrl},
    {VISCA_CMD_E_VIDEO_RESOLUTION,         viscaCtrlVideoResolution},
    {VISCA_CMD_E_PAN_TILT,                 viscaCtrlPanTilt},
    {VISCA_CMD_E_AUDIO_VOLUME,             viscaCtrlAudioVol},
    {VISCA_CMD_E_VIDEO_PARAMETER,          viscaCtrlVideoParam},
    {VISCA_CMD_E_IP,                       viscaCtrlIp},
    {VISCA_CMD_E_SYSTEM_FACTORY,           viscaCtrlSystemFactory},
    {VISCA_CMD_E_SYS_MENU,                 viscaCtrlSysMenu},
    {VISCA_CMD_E_EXTRA_ISP,                viscaCtrlExtraISP},
    {VISCA_CMD_E_YM_AUTO_TRACKING,         viscaCtrlAutoTracking},
    {VISCA_CMD_E_YM_AUTO_ZOOM,             viscaCtrlAutoZoom},
    {VISCA_CMD_E_YM_AUTO_TILT,             viscaCtrlAutoTilt},
    {VISCA_CMD_E_YM_INDICATOR,             viscaCtrlIndcator},
    {VISCA_CMD_E_YM_TRACKING_START_PRESET, viscaCtrlTrackingStartPreset},
    {VISCA_CMD_E_YM_OSD_REMINDER,          viscaCtrlOsdPeminder},
    {VISCA_CMD_E_YM_FIGURE_SIZE,           viscaCtrlFigureSize},
    {VISCA_CMD_E_YM_SELECY_SUBJECT,        viscaCtrlSelectSubject},
    {VISCA_CMD_E_YM_PLACEMENT,             viscaCtrlPlacement},
    {VISCA_CMD_E_YM_AT_SPEED,              viscaCtrlATSpeed},
    {VISCA_CMD_E_YM_TALLY_LED,             viscaCtrlYMTally},
    {VISCA_CMD_E_TKV_TRACKING,             viscaCtrlTKVTrack},
    {VISCA_CMD_E_TKV_AUDIO,                viscaCtrlAudioMute},
    {VISCA_CMD_E_TKV_TALLY_LED,            viscaCtrlTKVTally},
    {VISCA_CMD_E_TKV_PT_SPEED,             viscaCtrlPTSpeed},

    {VISCA_INQ_E_GET_ADDRESS,        viscaInquiryAddress},
    {VISCA_INQ_E_POWER,              viscaInquiryPower,           reply<Byte<Power>>},
    {VISCA_INQ_E_ZOOM_POS,           viscaInquiryZoomPos,         reply<Nibbles<4, ZoomPos>>},
    {VISCA_INQ_E_ZOOM_SPEED,         viscaInquiryZoomSpd,         reply<Low<ZoomSpeed>>},
    {VISCA_INQ_E_DZOOM_LIMIT,        viscaInquiryDZoomLimit,      reply<Low<DZoomLimit>>},
    {VISCA_INQ_E_FOCUS_MODE,         viscaInquiryFocusMode,       replyFocusMode},
    {VISCA_INQ_E_FOCUS_POS,          viscaInquiryFocusPos,        reply<Nibbles<4, FocusPos>>},
    {VISCA_INQ_E_WB_MODE,            viscaInquiryWbMode,          reply<Byte<WbMode>>},
    {VISCA_INQ_E_RGAIN,              viscaInquiryRGain,           reply<Nibbles<4, RGain>>},
    {VISCA_INQ_E_BGAIN,              viscaInquiryBGain,           reply<Nibbles<4, BGain>>},
    {VISCA_INQ_E_GGAIN,              viscaInquiryGGain,           reply<Nibbles<4, GGain>>},
    {VISCA_INQ_E_AE_MODE,            viscaInquiryAeMode,          reply<Byte<AeMode>>},
    {VISCA_INQ_E_SHUTTER_POS,        viscaInquiryShutterPos,      reply<Nibbles<4, Shutter>>},
    {VISCA_INQ_E_IRIS_POS,           viscaInquiryIrisPos,         reply<Nibbles<4, Iris>>},
    {VISCA_INQ_E_GAIN_POS,           viscaInquiryGainPos,         reply<Nibbles<4, Gain>>},
    {VISCA_INQ_E_BRIGHT_POS,         viscaInquiryExpBright,       reply<Nibbles<4, Bright>>},
    {VISCA_INQ_E_EXP_COMP_MODE,      viscaInquiryExpCompMode,     reply<Byte<ExpCompMode>>},
    {VISCA_INQ_E_EXP_COMP_POS,       viscaInquiryExpCompPos,      reply<Nibbles<4, ExpCompPos>>},
    {VISCA_INQ_E_DZOOM_MODE,         viscaInquiryDzoomMode,       reply<Byte<DZoomMode>>},
    {VISCA_INQ_E_BACKLIGHT_MODE,     viscaInquiryBacklightMode,   reply<Byte<Backlight>>},
    {VISCA_INQ_E_APERTURE,           viscaInquiryAperture,        reply<Nibbles<4, Aperture>>},
    {VISCA_INQ_E_IR_RECV,            viscaInquiryIrRecv,          reply<Byte<IrRecv>>},
    {VISCA_INQ_E_IR_INFO,            viscaInquiryIrInfo,          reply<Byte<IrValue>>},
    {VISCA_INQ_E_VIDEO_RESOLUTION,   viscaInquiryVideoResolution, reply<Byte<VideoFormat>>},
    {VISCA_INQ_E_PAN_TILT_POS,       viscaInquiryPanTiltPos,      reply<Nibbles<4, PanPos>, Nibbles<4, TiltPos>>},
    {VISCA_INQ_E_PAN_TILT_MAX_SPEED, viscaInquiryPanTiltMaxSpeed, reply<Byte<PanSpeed>, Byte<TiltSpeed>>},
    {VISCA_INQ_E_AUDIO_VOLUME,       viscaInquiryAudioVol,        reply<Nibbles<2, AudioVolume>>},
    {VISCA_INQ_E_VIDEO_PARAMETER,    viscaInquiryVideoParam,      replyVideoParam},
    {VISCA_INQ_E_AWB_GAIN,           viscaInquiryAwbGain,         reply<Nibbles<2, AwbGain>>},
    {VISCA_INQ_E_WB_COLOR_TMP,       viscaInquiryWbColorTemp,     reply<Nibbles<2, ColorTemp>>},
    {VISCA_INQ_E_IP,                 viscaInquiryIP,              replyIp},
    {VISCA_INQ_E_IP_DHCP_MODE,       viscaInquiryIpDhcpMode,      reply<Byte<IpMode>>},
    {VISCA_INQ_E_IP_INFO_ASCLL,      viscaInquiryIpInfoAscll,     replyIpText},
    {VISCA_INQ_E_VERSION,            viscaInquiryVersion,         replyVersion},
    {VISCA_INQ_E_MENU,               viscaInquiryMenu,            reply<Byte<Menu>>},
    {VISCA_INQ_E_TALLY_MODE,         viscaInquiryTallyMode,       reply<Byte<TallyMode>>},
    {VISCA_INQ_E_NDI_TALLY_MODE,     viscaInquiryNDITallyMode,    reply<Byte<TallyMode>>},
    {VISCA_INQ_E_CUSTOM_TALLY,       viscaInquiryCustomTally,     reply<Nibbles<6, TallyColor>>},
    {VISCA_INQ_E_YM_SYSTEM_STATUS,   viscaInquirySystemStatus,    replySystemStatus},

    {VISCA_INQ_E_YM_AUTO_TRACKING_STATUS,           viscaInquiryAutoTrackingStatue,          reply<Byte<TrackingMode>>},
    {VISCA_INQ_E_YM_ZOOM_STATUS,                    viscaInquiryAutoZoomStatus,              reply<Byte<AutoZoom>>},
    {VISCA_INQ_E_YM_TILT_STATUS,                    viscaInquiryAutoTiltStatus,              reply<Byte<AutoTilt>>},
    {VISCA_INQ_E_YM_DETECTED_INDICATOR,             viscaInquiryDetectedIndicatorStatus,     reply<Byte<Indicator>>},
    {VISCA_INQ_E_YM_TRACKING_START,                 viscaInquiryTrackingStart,               reply<Byte<StartPreset>>},
    {VISCA_INQ_E_YM_TRACKING_START_POSITION,        viscaInquiryTrackingStartPosition,       reply<Nibbles<2, StartPreset>>},
    {VISCA_INQ_E_YM_OSD_REMINDER,                   viscaInquiryOsdReminderStatus,           reply<Byte<OsdReminder>>},
    {VISCA_INQ_E_YM_FIGURE_SIZE,                    viscaInquiryFigureSize,                  reply<Byte<FigureSize>>},
    {VISCA_INQ_E_YM_CURRENT_CUSTOMIZED_FIGURE_SIZE, viscaInquiryCurrentCustomizedFigureSize, reply<Nibbles<4, FigureSizeCustom>>},
    {VISCA_INQ_E_YM_PLACEMENT_STATUS,               viscaInquiryPlacementStatus,             reply<Byte<Placement>>},
    {VISCA_INQ_E_YM_AUTO_TRACKING_SPEED,            viscaInquiryAutoStrackingSpeed,          reply<Byte<AtSpeed>>},

    {VISCA_INQ_E_TKV_BLOCK_DATA,        viscaInquiryBlockData,       replyBlock},
    {VISCA_INQ_E_TKV_AUDIO,             viscaInquiryAudioMute,       reply<Byte<AudioMute>>},
    {VISCA_INQ_E_TKV_PT_SPEED,          viscaInquiryPTSpeed,         reply<Nibbles<2, PTSpeedParam, 16>, Nibbles<2, PTSpeedParam>>},
    {VISCA_INQ_E_TKV_PT_SPEED_MATCH,    viscaInquiryPTSpeedMatch,    reply<Byte<PTSpeedMatch>>},
    {VISCA_INQ_E_TKV_PT_SPEED_ACCUARCY, viscaInquiryPTSpeedAccuarcy, reply<Low<PTSpeedParam>>},
    {VISCA_INQ_E_TKV_HEAD_POS,          viscaInquiryTKVHeadPos,      reply<Byte<HeadPos>>},
    {VISCA_INQ_E_TKV_TRACKSPEED,        viscaInquiryTKVATSpeed,      reply<Byte<TrackSpeed>>},
    {VISCA_INQ_E_TKV_GESTURE_DETECT,    viscaInquiryGestureDetect,   reply<Byte<Gesture>>},
    {VISCA_INQ_E_MEMORY_STATUE,         viscaInquiryMemoryStatue,    reply<Low<Memory>>},
    {VISCA_INQ_E_EXTRA_STATUE,          viscaInquiryExtraStatue,     reply<Low<ExtraIsp>>},
};
// clang-format on
static_assert(std::ranges::adjacent_find(ROWS, std::ranges::greater_equal{}, &DispatchRow::enType) == std::end(ROWS),
              "one row per type, in type order");

constexpr auto ROW_BY_TYPE = [] {
    std::array<const DispatchRow *, VISCA_CMD_INQ_E_BUTT> apstRow{};
    for (const auto &stRow : ROWS) apstRow[stRow.enType] = &stRow;
    return apstRow;
}();

const DispatchRow *rowOf(tagVISCA_CMD_INQ_TYPE_E type)
{
    return type >= 0 && type < VISCA_CMD_INQ_E_BUTT ? ROW_BY_TYPE[type] : nullptr;
}

constexpr VISCA_TRANS_HANDLER_S g_stViscaTransHandlers[] = {
    {CMD_FROM_E_UART_RS232, UART_RS232DevSend},
    {CMD_FROM_E_UART_RS422, UART_RS422DevSend},
    {CMD_FROM_E_NET_IN, nullptr},
    {CMD_FROM_E_NET_OUT, nullptr},
    {CMD_FROM_E_OVER_IP_IN, VISCA_OverIpSendMsg},
    {CMD_FROM_E_NET_UDP_IN, VISCA_NetUdpSendMsg},
    {CMD_FROM_E_NET_TCP_IN, VISCA_NetTcpSendMsg},
};

constexpr PT_CTRL_CALL_FUNC_S gs_stPTEndCallVisca{PT_CTRL_E_FROM_VISCA, VISCA_PTCtrlRet, sizeof(tagVISCA_CTRL_INFO_S)};
} // namespace

BU_S32 VISCA_InitProcess()
{
    BSP_PTRegisterRetCallFunc(0, PT_CTRL_E_FROM_VISCA, &gs_stPTEndCallVisca);
    BSP_ZFRegisterRetCallFunc(ZF_CTRL_E_FROM_VISCA, &gs_stPTEndCallVisca);

    VISCA_TRAN_CALL_FUNC_S stTrans{std::size(g_stViscaTransHandlers), {}, nullptr};
    std::ranges::copy(g_stViscaTransHandlers, stTrans.stViscaTransHandlers);
    const VISCA_CTRL_CALL_FUNC_S stCtrl{viscaCtrlHandlerCallFunc, viscaCompleteHandlerCallFunc};
    tagCFG_VISCA_NET_S stNet{}, stOverIp{};
    CFG_SYSTEM_GetViscaNet(&stNet);
    CFG_SYSTEM_GetViscaOverIp(&stOverIp);
    VISCA_HandlerInit(&stTrans, &stCtrl, &stNet, &stOverIp);
    return 0;
}

BU_S32 VISCA_ExitProcess()
{
    VISCA_HandlerExit();
    return 0;
}

BU_S32 viscaCtrlHandlerCallFunc(tagVISCA_CMD_INQ_TYPE_E type, tagVISCA_CTRL_INFO_S *info)
{
    const auto *pstRow = rowOf(type);
    if (!pstRow) UTIL_TRACE_Print("unknow visca ctrl type %d\n", type);
    const BU_S32 s32Ret = pstRow ? pstRow->pfnHandle(info) : -1;
    if (s32Ret == 0 || s32Ret == -1) VISCA_CtrlMsgReturn(info, s32Ret == 0 ? BU_TRUE : BU_FALSE);
    return s32Ret;
}

BU_S32 viscaCompleteHandlerCallFunc(tagVISCA_CTRL_INFO_S *info, tagVISCA_MSG_REQ_S *req, tagVISCA_CMD_INQ_TYPE_E type,
                                    BU_U32 offset)
{
    ReplyWriter writer(*req, offset);
    const auto *pstRow = rowOf(type);
    if (pstRow && pstRow->pfnReply) pstRow->pfnReply(*info, writer);
    writer.finish();
    return 0;
}

BU_S32 VISCA_PTCtrlRet(void *priv, BU_BOOL result)
{
    if (!priv) return 0;
    tagVISCA_CTRL_INFO_S stInfo;
    std::memcpy(&stInfo, priv, sizeof(stInfo));
    // The last end of a preset recall is answered.
    if (stInfo.stMemoryCtrl.enMemoryType == VISCA_MSG_E_MEMORY_RECALL && viscaRecallGoesOn()) return 0;
    return VISCA_CtrlMsgReturn(&stInfo, result);
}
