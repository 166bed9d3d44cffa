#include "camera/network.h"
#include "store/store.h"
#include "store/stored.h"

#include "board/profile.h"
#include "util/journal.h"
#include "util/log.h"

#include <algorithm>
#include <string_view>

namespace
{
// A PC takes its addresses from its own system: the camera shows one card whose record is kept but drives nothing.
constexpr const BU_CHAR *CARD = "NetCard0";
constexpr const BU_CHAR *INTERFACE = "eth0";
constexpr BU_S32 DHCP_TIMEOUT_S = 30;
constexpr std::size_t HOST_NAME_MAX_LENGTH = 63;

bool isCard(const BU_CHAR *pcCard) { return pcCard && std::string_view(pcCard) == CARD; }

bool isHostName(std::string_view name)
{
    constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-_.";
    return !name.empty() && name.size() <= HOST_NAME_MAX_LENGTH && name.find_first_not_of(letters) == name.npos;
}
} // namespace

BU_S32 CFG_NETWORK_GetCards(tagNETWORK_CARDS_S *pstCards)
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    if (!pstCards) return -1;
    *pstCards = {};
    copyText(pstCards->acCards[0], CARD);
    copyText(pstCards->acEthName[0], INTERFACE);
    pstCards->s32Cnt = 1;
    return 0;
}

BU_S32 CFG_NETWORK_GetCardIntf(const BU_CHAR *pcCard, tagNETWORK_CFG_S *pstCfg)
{
    if (const auto injected = journal::ask(__func__, pcCard)) return *injected;
    if (!isCard(pcCard) || !pstCfg) return -1;
    const StoredSection section(std::string("Network/") + pcCard);
    *pstCfg = {};
    pstCfg->bEnable = section.number("Enable", BU_TRUE, BU_FALSE, BU_TRUE);
    copyText(pstCfg->acIntf, INTERFACE);
    pstCfg->enIpMode = static_cast<IP_MODE_E>(section.number("IpMode", IP_MODE_E_DHCP, 0, IP_MODE_E_STATIC));
    pstCfg->enDnsMode = static_cast<DNS_MODE_E>(section.number("DnsMode", DNS_MODE_E_AUTO, 0, DNS_MODE_E_MANUAL));
    copyText(pstCfg->stIpInfo.acIpAddr, section.text("IpAddr", "192.168.100.100"));
    copyText(pstCfg->stIpInfo.acNetMask, section.text("NetMask", "255.255.255.0"));
    copyText(pstCfg->stIpInfo.acGateWay, section.text("GateWay", "192.168.100.1"));
    copyText(pstCfg->stDnsInfo.acDns[0], section.text("Dns1", ""));
    copyText(pstCfg->stDnsInfo.acDns[1], section.text("Dns2", ""));
    return 0;
}

BU_S32 CFG_NETWORK_GetIpInfoFallback(const BU_CHAR *pcCard, NETWORK_IP_INFO_S *pstInfo)
{
    if (const auto injected = journal::ask(__func__, pcCard)) return *injected;
    if (!isCard(pcCard) || !pstInfo) return -1;
    const StoredSection section(std::string("Network/") + pcCard);
    *pstInfo = {};
    copyText(pstInfo->acIpAddr, section.text("FallbackIpAddr", "192.168.100.100"));
    copyText(pstInfo->acNetMask, section.text("FallbackNetMask", "255.255.255.0"));
    copyText(pstInfo->acGateWay, section.text("FallbackGateWay", "192.168.100.1"));
    return 0;
}

BU_S32 CFG_NETWORK_SetIpInfoFallback(const BU_CHAR *pcCard, const NETWORK_IP_INFO_S *pstInfo)
{
    if (const auto injected = journal::call(__func__, pcCard, pstInfo)) return *injected;
    if (!isCard(pcCard) || !pstInfo) return -1;
    const std::string strAddress = textOf(pstInfo->acIpAddr), strMask = textOf(pstInfo->acNetMask),
                      strGateway = textOf(pstInfo->acGateWay);
    if (!isAddress(strAddress) || !isAddress(strMask) || (!strGateway.empty() && !isAddress(strGateway))) return -1;
    const std::string strSection = std::string("Network/") + pcCard;
    return CFG_STORE_SetTexts({{strSection + "/FallbackIpAddr", strAddress},
                               {strSection + "/FallbackNetMask", strMask},
                               {strSection + "/FallbackGateWay", strGateway}});
}

BU_S32 CFG_NETWORK_GetDhcpTimeout(const BU_CHAR *pcCard, BU_U32 *pu32Timeout)
{
    if (const auto injected = journal::ask(__func__, pcCard)) return *injected;
    if (!isCard(pcCard) || !pu32Timeout) return -1;
    const StoredSection section(std::string("Network/") + pcCard);
    *pu32Timeout = static_cast<BU_U32>(section.number("DhcpTimeout", DHCP_TIMEOUT_S, 0, INT32_MAX));
    return 0;
}

BU_S32 CFG_NETWORK_GetHostname(BU_CHAR *pcBuffer, BU_S32 s32Size)
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    if (!pcBuffer || s32Size < 1) return -1;
    const std::string strName =
        StoredSection("Network").text("HostName", BSP_PROFILE_GetText("hostName", "ptz-camera"));
    copyText({pcBuffer, static_cast<std::size_t>(s32Size)}, strName);
    return 0;
}

BU_S32 CFG_NETWORK_SetHostname(const BU_CHAR *pcName)
{
    if (const auto injected = journal::call(__func__, pcName)) return *injected;
    if (pcName && isHostName(pcName)) return CFG_STORE_SetText("Network/HostName", pcName);
    LOG_WARN("\"%s\" is no host name", pcName ? pcName : "");
    return -1;
}
