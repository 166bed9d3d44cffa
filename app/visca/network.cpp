// Network address: kept until the controller asks to apply it.
#include "camera/network.h"
#include "base/ipv4.h"
#include "handlers.h"
#include "table.h"
#include "util/log.h"

#include <cstdio>
#include <mutex>

using namespace visca;

namespace
{
constexpr const BU_CHAR *CARD = "NetCard0";

/// What a controller has sent so far, until it asks to apply it. An address, its mask and its gateway belong together,
/// so the lock guards all three and is held for each store and for the whole apply.
struct IpInfo {
    std::mutex lock;
    BU_CHAR acAddress[32]{}, acMask[32]{}, acGateway[32]{};
};
IpInfo g_stIpInfo;

typedef BU_CHAR (IpInfo::*IP_TEXT)[32];
constexpr Coded<IP_TEXT> IP_TEXTS[] = {{VISCA_MSG_E_IP_ADDRESS, &IpInfo::acAddress},
                                       {VISCA_MSG_E_IP_MASK, &IpInfo::acMask},
                                       {VISCA_MSG_E_IP_GATEWAY, &IpInfo::acGateway}};

BU_S32 keep(IP_TEXT pacText, BU_U32 u32Ip)
{
    const std::string strText = base::Ipv4{u32Ip}.text();
    UTIL_TRACE_Print("Ip info: %s\n", strText.c_str());
    const std::lock_guard guard(g_stIpInfo.lock);
    auto &acText = g_stIpInfo.*pacText;
    std::snprintf(acText, sizeof(acText), "%s", strText.c_str());
    return 0;
}

BU_S32 apply()
{
    const std::lock_guard guard(g_stIpInfo.lock);
    UTIL_TRACE_Print("visca set:\n  IP: %s\n  Mask: %s\n  Gateway: %s\n", g_stIpInfo.acAddress, g_stIpInfo.acMask,
                     g_stIpInfo.acGateway);
    NET_API_SetIpAddr(CARD, g_stIpInfo.acAddress);
    NET_API_SetNetMask(CARD, g_stIpInfo.acMask);
    return NET_API_SetGateWay(CARD, g_stIpInfo.acGateway);
}
} // namespace

BU_S32 viscaCtrlIp(tagVISCA_CTRL_INFO_S *pstInfo)
{
    const auto enType = pstInfo->stIpCtrl.enIpType;
    TRACE("%d\n", enType);
    if (const auto *ppacText = find(IP_TEXTS, enType)) return keep(*ppacText, pstInfo->stIpCtrl.u32IpVal);
    switch (enType) {
    case VISCA_MSG_E_IP_DHCP_ON:
        return NET_API_SetIpMode(CARD, IP_MODE_E_DHCP);
    case VISCA_MSG_E_IP_DHCP_OFF:
        return NET_API_SetIpMode(CARD, IP_MODE_E_STATIC);
    case VISCA_MSG_E_IP_APPLYA:
        return apply();
    default:
        return refuseType(enType);
    }
}
