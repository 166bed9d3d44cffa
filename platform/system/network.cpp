#include "camera/network.h"

#include "store/store.h"
#include "util/journal.h"
#include "util/log.h"
#include "util/platform.h"

#include <bit>
#include <cstdio>
#include <cstring>
#include <optional>
#include <string>

namespace
{
constexpr BU_U32 DHCP_TIMEOUT_MAX_S = 3600;
constexpr const BU_CHAR *FALLBACK_CARD = "NetCard0"; // the one that the DHCP client serves

/// An address in host order; four decimal numbers of 0-255 without anything around them.
std::optional<BU_U32> addressOf(const BU_CHAR *pcText)
{
    BU_U32 u32Address = 0;
    for (int i = 0; i < 4; ++i) {
        BU_U32 u32Part = 0;
        int nDigits = 0;
        for (; pcText && *pcText >= '0' && *pcText <= '9' && nDigits < 4; ++pcText, ++nDigits)
            u32Part = u32Part * 10 + static_cast<BU_U32>(*pcText - '0');
        if (nDigits == 0 || nDigits > 3 || u32Part > 255) return std::nullopt;
        if (i < 3 && *pcText++ != '.') return std::nullopt;
        u32Address = u32Address << 8 | u32Part;
    }
    return *pcText ? std::nullopt : std::optional(u32Address);
}

/// An address that one machine can have: neither "this network" nor a group nor everybody.
bool isMachine(const BU_CHAR *pcText)
{
    const auto address = addressOf(pcText);
    return address && *address >> 24 != 0 && *address >> 24 < 224;
}
bool isMask(const BU_CHAR *pcText)
{
    const auto address = addressOf(pcText);
    return address && *address != 0 && std::countl_one(*address) + std::countr_zero(*address) == 32;
}
bool isEmpty(const BU_CHAR *pcText) { return pcText && !*pcText; }
bool isMachineOrEmpty(const BU_CHAR *pcText) { return isEmpty(pcText) || isMachine(pcText); }
bool isMaskOrEmpty(const BU_CHAR *pcText) { return isEmpty(pcText) || isMask(pcText); }

bool isCard(const BU_CHAR *pcCard)
{
    tagNETWORK_CARDS_S stCards{};
    if (!pcCard || CFG_NETWORK_GetCards(&stCards) != 0) return false;
    for (BU_S32 i = 0; i < stCards.s32Cnt; ++i)
        if (std::strcmp(pcCard, stCards.acCards[i]) == 0) return true;
    return false;
}

BU_S32 keep(const BU_CHAR *pcCard, const BU_CHAR *pcKey, const std::string &strValue)
{
    if (!isCard(pcCard)) return -1;
    const std::string strKey = std::string("Network/") + pcCard + '/' + pcKey;
    const BU_S32 s32Ret = CFG_STORE_SetText(strKey.c_str(), strValue.c_str());
    if (s32Ret == 0) LOG_INFO("%s %s is \"%s\"; this machine keeps its own\n", pcCard, pcKey, strValue.c_str());
    return s32Ret;
}

BU_S32 refuse(const BU_CHAR *pcKey, const BU_CHAR *pcText)
{
    LOG_WARN("\"%s\" is no %s\n", pcText ? pcText : "", pcKey);
    return -1;
}

/// A setter of a text: noted as the call of that function, checked, kept.
BU_S32 setText(const BU_CHAR *pcFunction, const BU_CHAR *pcCard, const BU_CHAR *pcKey, const BU_CHAR *pcText,
               bool (*pfnIsGood)(const BU_CHAR *))
{
    if (const auto injected = journal::call(pcFunction, pcCard, pcText)) return *injected;
    return pfnIsGood(pcText) ? keep(pcCard, pcKey, pcText) : refuse(pcKey, pcText);
}

BU_S32 setNumber(const BU_CHAR *pcFunction, const BU_CHAR *pcCard, const BU_CHAR *pcKey, BU_S32 s32Value, BU_S32 s32Max)
{
    if (const auto injected = journal::call(pcFunction, pcCard, s32Value)) return *injected;
    return s32Value >= 0 && s32Value <= s32Max ? keep(pcCard, pcKey, std::to_string(s32Value)) : -1;
}
} // namespace

BU_S32 NET_API_InitCfgParam()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    tagNETWORK_CARDS_S stCards{};
    CFG_NETWORK_GetCards(&stCards);
    for (BU_S32 i = 0; i < stCards.s32Cnt; ++i) {
        tagNETWORK_CFG_S stCfg{};
        if (NET_API_GetAllParamCur(stCards.acCards[i], &stCfg) != 0) continue;
        LOG_INFO("%s (%s): %s %s\n", stCards.acCards[i], stCfg.acIntf,
                 stCfg.enIpMode == IP_MODE_E_DHCP ? "DHCP" : "static", stCfg.stIpInfo.acIpAddr);
    }
    return 0;
}

BU_S32 NET_API_GetAllParamCur(const BU_CHAR *pcCard, tagNETWORK_CFG_S *pstCfg)
{
    if (const auto injected = journal::ask(__func__, pcCard)) return *injected;
    if (!pstCfg || CFG_NETWORK_GetCardIntf(pcCard, pstCfg) != 0) return -1;
    if (pstCfg->enIpMode != IP_MODE_E_DHCP) return 0;
    pstCfg->stIpInfo = {};
    std::snprintf(pstCfg->stIpInfo.acIpAddr, sizeof(pstCfg->stIpInfo.acIpAddr), "%s", PLATFORM_BindAddress().c_str());
    std::snprintf(pstCfg->stIpInfo.acNetMask, sizeof(pstCfg->stIpInfo.acNetMask), "255.0.0.0");
    return 0;
}

BU_S32 NET_API_SetIpMode(const BU_CHAR *pcCard, IP_MODE_E enMode)
{
    return setNumber(__func__, pcCard, "IpMode", enMode, IP_MODE_E_STATIC);
}

BU_S32 NET_API_SetDnsMode(const BU_CHAR *pcCard, DNS_MODE_E enMode)
{
    return setNumber(__func__, pcCard, "DnsMode", enMode, DNS_MODE_E_MANUAL);
}

BU_S32 NET_API_SetNetMode(const BU_CHAR *pcCard, BU_BOOL bEnable)
{
    return setNumber(__func__, pcCard, "Enable", bEnable, BU_TRUE);
}

BU_S32 NET_API_SetIpAddr(const BU_CHAR *pcCard, const BU_CHAR *pcIp)
{
    return setText(__func__, pcCard, "IpAddr", pcIp, isMachine);
}

BU_S32 NET_API_SetNetMask(const BU_CHAR *pcCard, const BU_CHAR *pcMask)
{
    return setText(__func__, pcCard, "NetMask", pcMask, isMaskOrEmpty);
}

BU_S32 NET_API_SetGateWay(const BU_CHAR *pcCard, const BU_CHAR *pcGateway)
{
    return setText(__func__, pcCard, "GateWay", pcGateway, isMachineOrEmpty);
}

BU_S32 NET_API_SetDns1(const BU_CHAR *pcCard, const BU_CHAR *pcDns)
{
    return setText(__func__, pcCard, "Dns1", pcDns, isMachineOrEmpty);
}

BU_S32 NET_API_SetDns2(const BU_CHAR *pcCard, const BU_CHAR *pcDns)
{
    return setText(__func__, pcCard, "Dns2", pcDns, isMachineOrEmpty);
}

BU_S32 NET_API_SetDhcpTimeout(const BU_CHAR *pcCard, IP_MODE_E enMode, BU_U32 u32Timeout)
{
    if (const auto injected = journal::call(__func__, pcCard, enMode, u32Timeout)) return *injected;
    if (u32Timeout < 1 || u32Timeout > DHCP_TIMEOUT_MAX_S) return -1;
    return keep(pcCard, "DhcpTimeout", std::to_string(u32Timeout));
}

BU_S32 NET_API_CheckIpConflict(const BU_CHAR *pcIp)
{
    if (const auto injected = journal::ask(__func__, pcIp)) return *injected;
    return isMachine(pcIp) ? 0 : -1;
}

BU_S32 NET_API_FallbackIPReplaceDefaultScript(const BU_CHAR *pcIp, const BU_CHAR *pcMask, const BU_CHAR *pcGateway)
{
    if (const auto injected = journal::call(__func__, pcIp, pcMask, pcGateway)) return *injected;
    if (!isMachine(pcIp)) return refuse("IpAddr", pcIp);
    if (!isMask(pcMask)) return refuse("NetMask", pcMask);
    if (!isMachineOrEmpty(pcGateway)) return refuse("GateWay", pcGateway);
    const std::string strSection = std::string("Network/") + FALLBACK_CARD + '/';
    return CFG_STORE_SetTexts({{strSection + "FallbackIpAddr", pcIp},
                               {strSection + "FallbackNetMask", pcMask},
                               {strSection + "FallbackGateWay", pcGateway}});
}

BU_S32 NET_API_GetHostCoreName(BU_CHAR *pcName, BU_S32 s32Size)
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    return CFG_NETWORK_GetHostname(pcName, s32Size);
}
