// Inquiries of power, network, versions, menu, lamps, audio, video output and the system status.
#include "base/ipv4.h"
#include "inquiry.h"

#include "board/device.h"
#include "board/lamp.h"
#include "camera/menu.h"
#include "camera/network.h"
#include "camera/serial.h"
#include "camera/sound.h"
#include "camera/video.h"
#include "media/audio.h"
#include "media/pipeline.h"
#include "util/log.h"

#include <cstdio>
#include <optional>

using namespace visca;

namespace
{
constexpr const BU_CHAR *NET_CARD = "NetCard0", *TALLY_LED = "TallyLed";

/// Output formats by their height, and rates as the pipeline counts them: frames per second, fractional ones in
/// thousandths.
constexpr Coded<HDMI_FORMAT_E> FORMATS[] = {
    {2160, HDMI_FORMAT_E_4K}, {1080, HDMI_FORMAT_E_1080P}, {720, HDMI_FORMAT_E_720P}};
constexpr Coded<HDMI_FPS_E> RATES[] = {{60, HDMI_FPS_E_FPS60}, {59940, HDMI_FPS_E_FPS59P94}, {50, HDMI_FPS_E_FPS50},
                                       {30, HDMI_FPS_E_FPS30}, {29970, HDMI_FPS_E_FPS29P97}, {25, HDMI_FPS_E_FPS25}};

BU_S32 videoCode(const MPP_VOUT_CFG_S &stCfg)
{
    const auto *penFormat = find(FORMATS, static_cast<BU_S32>(stCfg.stResolution.u32Height));
    const auto *penFps = find(RATES, stCfg.s32Fps);
    if (!penFormat || !penFps) return NONE;
    const BU_S32 s32Progressive = codeOf<codes::VIDEO_FORMATS>(codes::video(*penFormat, *penFps));
    if (!stCfg.bInterlaced || *penFormat != HDMI_FORMAT_E_1080P) return s32Progressive;
    // An interlaced format that has no number is told by its progressive one.
    const BU_S32 s32Interlaced = codeOf<codes::VIDEO_FORMATS>(codes::video(HDMI_FORMAT_E_1080I, *penFps));
    return s32Interlaced != NONE ? s32Interlaced : s32Progressive;
}

std::optional<NETWORK_CFG_S> readNetwork()
{
    NETWORK_CFG_S stCfg{};
    if (NET_API_GetAllParamCur(NET_CARD, &stCfg) != 0) return std::nullopt;
    return stCfg;
}
} // namespace

BU_S32 viscaInquiryAddress(tagVISCA_CTRL_INFO_S *pstInfo)
{
    const BU_S32 s32Ret = VISCA_API_GetAddr(&pstInfo->u8Address, BU_TRUE);
    if (s32Ret != 0) {
        UTIL_TRACE_Print("[%s:%d]: get addr %d error\n", __func__, __LINE__, pstInfo->u8Address);
        return -1;
    }
    TRACE("addr %d\n", pstInfo->u8Address);
    return 0;
}

BU_S32 viscaInquiryPower(tagVISCA_CTRL_INFO_S *pstInfo) { return store<Power>(pstInfo, VISCA_MSG_E_POWER_ON); }

BU_S32 viscaInquiryIrRecv(tagVISCA_CTRL_INFO_S *pstInfo)
{
    return storeOnOff<IrRecv>(pstInfo, ask<IR_API_GetSwitch>(BU_TRUE));
}

BU_S32 viscaInquiryIrInfo(tagVISCA_CTRL_INFO_S *pstInfo)
{
    BU_S32 s32Ret = -1;
    if (pstInfo->stIrCtrl.enIrType == VISCA_MSG_E_IR_MODE) {
        BU_S32 s32Switch = UNREAD;
        s32Ret = IR_API_GetSwitch(&s32Switch, BU_FALSE);
        storeOnOff<IrValue>(pstInfo, s32Switch);
    } else if (pstInfo->stIrCtrl.enIrType == VISCA_MSG_E_IR_ADDR) {
        s32Ret = IR_API_GetAddr(&pstInfo->stIrCtrl.u8IrVal, BU_FALSE);
    } else {
        return -1;
    }
    TRACE("IrVal %d\n", pstInfo->stIrCtrl.u8IrVal);
    return s32Ret;
}

BU_S32 viscaInquiryVideoResolution(tagVISCA_CTRL_INFO_S *pstInfo)
{
    MPP_VOUT_CFG_S stCfg{};
    if (const BU_S32 s32Ret = MPP_GetVoutCfg(MPP_VOUT_ID_2, &stCfg); s32Ret < 0) {
        TRACE("call MPP_GetVoutCfg failed, ret:%d\n", s32Ret);
        return s32Ret;
    }
    const BU_S32 s32Code = videoCode(stCfg);
    if (s32Code == NONE) return -1;
    TRACE("0x%X\n", s32Code);
    return store<VideoFormat>(pstInfo, s32Code);
}

BU_S32 viscaInquiryAudioVol(tagVISCA_CTRL_INFO_S *pstInfo)
{
    AI_ATTR_S stAttr{UNREAD, 0, 0};
    AUDIO_AI_GetAttr(AUDIO_AI_GetFirstEnabledId(), &stAttr);
    return store<AudioVolume>(pstInfo, stAttr.s32Volume);
}

BU_S32 viscaInquiryAudioMute(tagVISCA_CTRL_INFO_S *pstInfo)
{
    return store<AudioMute>(pstInfo, codeOf<codes::AUDIO_MUTES>(ask<SYS_API_GetAudioMute>()));
}

BU_S32 viscaInquiryIP(tagVISCA_CTRL_INFO_S *pstInfo)
{
    const auto stCfg = readNetwork();
    if (!stCfg) {
        TRACE("NET_API_GetAllParamCur error\n");
        return -1;
    }
    const auto enType = pstInfo->stIpCtrl.enIpType;
    const BU_CHAR *pcText = nullptr;
    switch (enType) {
    case VISCA_MSG_E_IP_ADDRESS:
        pcText = stCfg->stIpInfo.acIpAddr;
        break;
    case VISCA_MSG_E_IP_MASK:
        pcText = stCfg->stIpInfo.acNetMask;
        break;
    case VISCA_MSG_E_IP_GATEWAY:
        pcText = stCfg->stIpInfo.acGateWay;
        break;
    default:
        TRACE("unknow Type %d\n", enType);
        return -1;
    }
    const auto ip = base::Ipv4::parse(pcText).value_or(base::Ipv4{});
    pstInfo->stIpCtrl.u32IpVal = ip.u32;
    UTIL_TRACE_Print("[%s:%d]: %d, %s\n", __func__, __LINE__, enType, ip.text().c_str());
    return 0;
}

BU_S32 viscaInquiryIpDhcpMode(tagVISCA_CTRL_INFO_S *pstInfo)
{
    const auto stCfg = readNetwork();
    if (!stCfg) {
        TRACE("NET_API_GetAllParamCur error\n");
        return -1;
    }
    return store<IpMode>(pstInfo,
                         stCfg->enIpMode == IP_MODE_E_STATIC ? VISCA_MSG_E_IP_DHCP_OFF : VISCA_MSG_E_IP_DHCP_ON);
}

BU_S32 viscaInquiryIpInfoAscll(tagVISCA_CTRL_INFO_S *pstInfo)
{
    const auto stCfg = readNetwork();
    if (!stCfg) return -1;
    const auto &stIp = stCfg->stIpInfo;
    auto &acInfo = pstInfo->stIpCtrl.acIpInfoAscll;
    std::snprintf(acInfo, sizeof(acInfo), "%.31s:%.31s:%.31s", stIp.acIpAddr, stIp.acNetMask, stIp.acGateWay);
    return 0;
}

BU_S32 viscaInquiryVersion(tagVISCA_CTRL_INFO_S *pstInfo)
{
    FIRMWARE_INFO_V2_S stFw{};
    BSP_VER_GetProductVersion(&stFw);
    const BU_U32 u32Major = stFw.au8CamVersion[0], u32Minor = stFw.au8CamVersion[1], u32Patch = stFw.au8CamVersion[2];
    Version::set(*pstInfo, (u32Major << 12) + ((u32Minor << 8) & 0x0F00) + u32Patch);
    TRACE("%d, %d.%d.%d\n", pstInfo->u16Version, u32Major, u32Minor, u32Patch);
    return 0;
}

BU_S32 viscaInquiryMenu(tagVISCA_CTRL_INFO_S *pstInfo) { return storeOnOff<Menu>(pstInfo, CMD_MENU_GetMenuStatus()); }

BU_S32 viscaInquiryTallyMode(tagVISCA_CTRL_INFO_S *pstInfo)
{
    BU_S32 s32Mode = UNREAD;
    const BU_S32 s32Ret = LED_API_GetTallyMode(TALLY_LED, &s32Mode, BU_TRUE);
    store<TallyMode>(pstInfo, codeOf<codes::TALLY_MODES>(s32Mode));
    return s32Ret;
}

BU_S32 viscaInquiryNDITallyMode(tagVISCA_CTRL_INFO_S *pstInfo)
{
    BU_BOOL bOn = UNREAD;
    LED_API_GetTallyOnBoard(TALLY_LED, &bOn, BU_FALSE);
    return storeOnOff<TallyMode>(pstInfo, bOn);
}

BU_S32 viscaInquiryCustomTally(tagVISCA_CTRL_INFO_S *pstInfo)
{
    BU_U32 u32Color = TallyColor::get(*pstInfo);
    const BU_S32 s32Ret = LED_API_GetTallyCustomColor(TALLY_LED, &u32Color, BU_FALSE);
    TallyColor::set(*pstInfo, u32Color);
    return s32Ret;
}

BU_S32 viscaInquirySystemStatus(tagVISCA_CTRL_INFO_S *pstInfo)
{
    constexpr BU_S32 POWER = 1 << 0, TALLY = 1 << 2 | 1 << 3, MENU_SHIFT = 4;
    auto &stStatus = pstInfo->stSystemStatue;
    const BU_S32 s32Menu = CMD_MENU_GetMenuStatus();
    viscaInquiryVideoResolution(pstInfo);
    store<StatusWbMode>(pstInfo, codeOf<codes::WB_MODES>(ask<ISP_API_GetWbMode>()));
    store<StatusBGain>(pstInfo, ask<ISP_API_GetBGain>());
    store<StatusRGain>(pstInfo, ask<ISP_API_GetRGain>());
    storeOnOff<StatusFocusMode>(pstInfo, ask<AF_API_GetFocusAuto>());

    stStatus.AA |= POWER | TALLY | (s32Menu & 1) << MENU_SHIFT;
    stStatus.VideoFormat = pstInfo->enVideoCtrl;
    stStatus.IrisMode = 3;
    stStatus.AgcMode = stStatus.VideoFlip = stStatus.PtSpeed = 0;
    TRACE("%d\n", stStatus.AA);
    return 0;
}
