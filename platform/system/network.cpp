// The network card: its record, what can be an address, what controllers reach.
#include "camera/network.h"

#include "base/ipv4.h"
#include "board/profile.h"
#include "store/record.h"
#include "util/journal.h"
#include "util/log.h"
#include "util/platform.h"

namespace
{
// A PC takes its addresses from its own system: the camera shows one card whose record is kept but drives nothing.
constexpr const BU_CHAR *CARD_NAME = "NetCard0";
constexpr BU_CHAR INTERFACE[] = "eth0";
constexpr BU_S32 DHCP_TIMEOUT_MAX_S = 3600, ADDRESS = sizeof(NETWORK_IP_INFO_S::acIpAddr) - 1;
constexpr std::size_t HOST_NAME_MAX_LENGTH = 63;

bool isMachine(std::string_view text)
{
    const auto address = base::Ipv4::parse(text);
    return address && address->isMachine();
}
bool isMask(std::string_view text)
{
    const auto address = base::Ipv4::parse(text);
    return address && address->isMask();
}
bool isMachineOrEmpty(std::string_view text) { return text.empty() || isMachine(text); }
bool isMaskOrEmpty(std::string_view text) { return text.empty() || isMask(text); }
bool isHostName(std::string_view name)
{
    constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-_.";
    return !name.empty() && name.size() <= HOST_NAME_MAX_LENGTH && name.find_first_not_of(letters) == name.npos;
}

constexpr NETWORK_IP_INFO_S FACTORY = {"192.168.100.100", "255.255.255.0", "192.168.100.1"};
struct Card {
    tagNETWORK_CFG_S stCfg{BU_TRUE, "eth0", IP_MODE_E_DHCP, FACTORY, DNS_MODE_E_AUTO, {}, {}};
    NETWORK_IP_INFO_S stFallback = FACTORY;
    BU_U32 u32DhcpTimeout = 30;
};

using Cfg = tagNETWORK_CFG_S;
using Ip = NETWORK_IP_INFO_S;
using Dns = decltype(Cfg::stDnsInfo);
using store::number, store::text;
// clang-format off
constexpr store::Field<Card> FIELDS[] = {
    number<&Card::stCfg, &Cfg::bEnable>("Enable"),
    number<&Card::stCfg, &Cfg::enIpMode>("IpMode", IP_MODE_E_DHCP, IP_MODE_E_STATIC),
    number<&Card::stCfg, &Cfg::enDnsMode>("DnsMode", DNS_MODE_E_AUTO, DNS_MODE_E_MANUAL),
    text<&Card::stCfg, &Cfg::stIpInfo, &Ip::acIpAddr>("IpAddr", ADDRESS, isMachine),
    text<&Card::stCfg, &Cfg::stIpInfo, &Ip::acNetMask>("NetMask", ADDRESS, isMaskOrEmpty),
    text<&Card::stCfg, &Cfg::stIpInfo, &Ip::acGateWay>("GateWay", ADDRESS, isMachineOrEmpty),
    text<&Card::stCfg, &Cfg::stDnsInfo, &Dns::acDns, 0>("Dns1", ADDRESS, isMachineOrEmpty),
    text<&Card::stCfg, &Cfg::stDnsInfo, &Dns::acDns, 1>("Dns2", ADDRESS, isMachineOrEmpty),
    text<&Card::stFallback, &Ip::acIpAddr>("FallbackIpAddr", ADDRESS, isMachine),
    text<&Card::stFallback, &Ip::acNetMask>("FallbackNetMask", ADDRESS, isMask),
    text<&Card::stFallback, &Ip::acGateWay>("FallbackGateWay", ADDRESS, isMachineOrEmpty),
    number<&Card::u32DhcpTimeout>("DhcpTimeout", 1, DHCP_TIMEOUT_MAX_S),
};
// clang-format on
const store::Record<Card> CARD{"Network/*/", FIELDS, SYSTEM_RESTORE_E_NETWORK};

struct Host {
    BU_CHAR acName[HOST_NAME_MAX_LENGTH + 1]{};
};
constexpr store::Field<Host> HOST_FIELDS[] = {text<&Host::acName>("HostName", HOST_NAME_MAX_LENGTH, isHostName)};
const store::Record<Host> HOST{"Network/", HOST_FIELDS, SYSTEM_RESTORE_E_NETWORK};

bool isCard(const BU_CHAR *pcCard) { return pcCard && std::string_view(pcCard) == CARD_NAME; }

BU_S32 keep(const BU_CHAR *pcCard, const store::Values &listValues)
{
    if (!isCard(pcCard) || CARD.put(listValues, pcCard) != 0) return -1;
    for (const auto &[strKey, strValue] : listValues)
        LOG_INFO("%s %s is \"%s\"; this machine keeps its own\n", pcCard, strKey.c_str(), strValue.c_str());
    return 0;
}

/// A setter of one field: noted as the call of that function, checked, kept.
BU_S32 set(const BU_CHAR *pcFunction, const BU_CHAR *pcCard, const BU_CHAR *pcKey, const BU_CHAR *pcText)
{
    if (const auto injected = journal::call(pcFunction, pcCard, pcText)) return *injected;
    return pcText ? keep(pcCard, {{pcKey, pcText}}) : -1;
}
BU_S32 set(const BU_CHAR *pcFunction, const BU_CHAR *pcCard, const BU_CHAR *pcKey, BU_S32 s32Value)
{
    if (const auto injected = journal::call(pcFunction, pcCard, s32Value)) return *injected;
    return keep(pcCard, {{pcKey, std::to_string(s32Value)}});
}

BU_S32 keepFallback(const BU_CHAR *pcCard, const std::string &strIp, const std::string &strMask,
                    const std::string &strGateway)
{
    return keep(pcCard, {{"FallbackIpAddr", strIp}, {"FallbackNetMask", strMask}, {"FallbackGateWay", strGateway}});
}
} // namespace

BU_S32 CFG_NETWORK_GetCards(tagNETWORK_CARDS_S *pstCards)
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    if (!pstCards) return -1;
    *pstCards = {};
    store::copyText(pstCards->acCards[0], CARD_NAME);
    store::copyText(pstCards->acEthName[0], INTERFACE);
    pstCards->s32Cnt = 1;
    return 0;
}

BU_S32 CFG_NETWORK_GetCardIntf(const BU_CHAR *pcCard, tagNETWORK_CFG_S *pstCfg)
{
    if (const auto injected = journal::ask(__func__, pcCard)) return *injected;
    if (!isCard(pcCard) || !pstCfg) return -1;
    *pstCfg = CARD.load(pcCard).stCfg;
    return 0;
}

BU_S32 CFG_NETWORK_GetIpInfoFallback(const BU_CHAR *pcCard, NETWORK_IP_INFO_S *pstInfo)
{
    if (const auto injected = journal::ask(__func__, pcCard)) return *injected;
    if (!isCard(pcCard) || !pstInfo) return -1;
    *pstInfo = CARD.load(pcCard).stFallback;
    return 0;
}

BU_S32 CFG_NETWORK_SetIpInfoFallback(const BU_CHAR *pcCard, const NETWORK_IP_INFO_S *pstInfo)
{
    if (const auto injected = journal::call(__func__, pcCard, pstInfo)) return *injected;
    if (!pstInfo) return -1;
    return keepFallback(pcCard, store::textOf(pstInfo->acIpAddr), store::textOf(pstInfo->acNetMask),
                        store::textOf(pstInfo->acGateWay));
}

BU_S32 CFG_NETWORK_GetDhcpTimeout(const BU_CHAR *pcCard, BU_U32 *pu32Timeout)
{
    if (const auto injected = journal::ask(__func__, pcCard)) return *injected;
    if (!isCard(pcCard) || !pu32Timeout) return -1;
    *pu32Timeout = CARD.load(pcCard).u32DhcpTimeout;
    return 0;
}

BU_S32 CFG_NETWORK_GetHostname(BU_CHAR *pcBuffer, BU_S32 s32Size)
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    if (!pcBuffer || s32Size < 1) return -1;
    const std::string strName = store::textOf(HOST.load().acName);
    store::copyText({pcBuffer, static_cast<std::size_t>(s32Size)},
                    strName.empty() ? BSP_PROFILE_GetText("hostName", "ptz-camera") : strName);
    return 0;
}

BU_S32 CFG_NETWORK_SetHostname(const BU_CHAR *pcName)
{
    if (const auto injected = journal::call(__func__, pcName)) return *injected;
    return pcName ? HOST.put({{"HostName", pcName}}) : -1;
}

BU_S32 NET_API_InitCfgParam()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    tagNETWORK_CFG_S stCfg{};
    if (NET_API_GetAllParamCur(CARD_NAME, &stCfg) == 0)
        LOG_INFO("%s (%s): %s %s\n", CARD_NAME, stCfg.acIntf, stCfg.enIpMode == IP_MODE_E_DHCP ? "DHCP" : "static",
                 stCfg.stIpInfo.acIpAddr);
    return 0;
}

BU_S32 NET_API_GetAllParamCur(const BU_CHAR *pcCard, tagNETWORK_CFG_S *pstCfg)
{
    if (const auto injected = journal::ask(__func__, pcCard)) return *injected;
    if (!pstCfg || CFG_NETWORK_GetCardIntf(pcCard, pstCfg) != 0) return -1;
    if (pstCfg->enIpMode != IP_MODE_E_DHCP) return 0;
    pstCfg->stIpInfo = {};
    store::copyText(pstCfg->stIpInfo.acIpAddr, PLATFORM_BindAddress());
    store::copyText(pstCfg->stIpInfo.acNetMask, "255.0.0.0");
    return 0;
}

// clang-format off
BU_S32 NET_API_SetIpMode(const BU_CHAR *pcCard, IP_MODE_E enMode)       { return set(__func__, pcCard, "IpMode", enMode); }
BU_S32 NET_API_SetDnsMode(const BU_CHAR *pcCard, DNS_MODE_E enMode)     { return set(__func__, pcCard, "DnsMode", enMode); }
BU_S32 NET_API_SetNetMode(const BU_CHAR *pcCard, BU_BOOL bEnable)       { return set(__func__, pcCard, "Enable", bEnable); }
BU_S32 NET_API_SetIpAddr(const BU_CHAR *pcCard, const BU_CHAR *pcIp)    { return set(__func__, pcCard, "IpAddr", pcIp); }
BU_S32 NET_API_SetNetMask(const BU_CHAR *pcCard, const BU_CHAR *pcMask) { return set(__func__, pcCard, "NetMask", pcMask); }
BU_S32 NET_API_SetGateWay(const BU_CHAR *pcCard, const BU_CHAR *pcWay)  { return set(__func__, pcCard, "GateWay", pcWay); }
BU_S32 NET_API_SetDns1(const BU_CHAR *pcCard, const BU_CHAR *pcDns)     { return set(__func__, pcCard, "Dns1", pcDns); }
BU_S32 NET_API_SetDns2(const BU_CHAR *pcCard, const BU_CHAR *pcDns)     { return set(__func__, pcCard, "Dns2", pcDns); }
// clang-format on

BU_S32 NET_API_SetDhcpTimeout(const BU_CHAR *pcCard, IP_MODE_E enMode, BU_U32 u32Timeout)
{
    if (const auto injected = journal::call(__func__, pcCard, enMode, u32Timeout)) return *injected;
    return keep(pcCard, {{"DhcpTimeout", std::to_string(u32Timeout)}});
}

BU_S32 NET_API_CheckIpConflict(const BU_CHAR *pcIp)
{
    if (const auto injected = journal::ask(__func__, pcIp)) return *injected;
    return pcIp && isMachine(pcIp) ? 0 : -1;
}

BU_S32 NET_API_FallbackIPReplaceDefaultScript(const BU_CHAR *pcIp, const BU_CHAR *pcMask, const BU_CHAR *pcGateway)
{
    if (const auto injected = journal::call(__func__, pcIp, pcMask, pcGateway)) return *injected;
    return pcIp && pcMask && pcGateway ? keepFallback(CARD_NAME, pcIp, pcMask, pcGateway) : -1;
}

BU_S32 NET_API_GetHostCoreName(BU_CHAR *pcName, BU_S32 s32Size)
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    return CFG_NETWORK_GetHostname(pcName, s32Size);
}
