/// Network cards. Their names are those of CFG_NETWORK_GetCards: "NetCard0" is the first. The setters store at once and
/// log what they would apply; on a PC the machine keeps its own addresses. Thread: any.
#pragma once

#include "base/types.h"

/// IPv4 addresses as dotted text; empty: none.
struct NETWORK_IP_INFO_S {
    BU_CHAR acIpAddr[32], acNetMask[32], acGateWay[32];
};
struct tagNETWORK_CFG_S {
    BU_BOOL bEnable;
    BU_CHAR acIntf[16]; ///< interface, "eth0"
    IP_MODE_E enIpMode;
    NETWORK_IP_INFO_S stIpInfo;
    DNS_MODE_E enDnsMode;
    struct {
        BU_CHAR acDns[2][32];
    } stDnsInfo;
    struct {
        BU_S32 s32Reserved[4];
    } stLinkInfo;
};
typedef tagNETWORK_CFG_S NETWORK_CFG_S;
/// The cards that are there: their names and their interfaces.
struct tagNETWORK_CARDS_S {
    BU_CHAR acCards[3][16], acEthName[3][16];
    BU_S32 s32Cnt;
};

/// Applies the stored records of the cards; once, at the start. @return 0
BU_S32 NET_API_InitCfgParam();
/// What a card works with: the stored record; with DHCP the address at which the camera is reached instead of the
/// stored ones. @return 0, or -1: no such card, null
BU_S32 NET_API_GetAllParamCur(const BU_CHAR *pcCard, tagNETWORK_CFG_S *pstCfg);

// Each @return 0, or -1: no such card, a value that cannot be, or not stored.
BU_S32 NET_API_SetIpMode(const BU_CHAR *pcCard, IP_MODE_E enMode);
BU_S32 NET_API_SetDnsMode(const BU_CHAR *pcCard, DNS_MODE_E enMode);
BU_S32 NET_API_SetNetMode(const BU_CHAR *pcCard, BU_BOOL bEnable);
BU_S32 NET_API_SetIpAddr(const BU_CHAR *pcCard, const BU_CHAR *pcIp);       ///< of one machine; not empty
BU_S32 NET_API_SetNetMask(const BU_CHAR *pcCard, const BU_CHAR *pcMask);    ///< ones, then zeros; or empty
BU_S32 NET_API_SetGateWay(const BU_CHAR *pcCard, const BU_CHAR *pcGateway); ///< of one machine; or empty
BU_S32 NET_API_SetDns1(const BU_CHAR *pcCard, const BU_CHAR *pcDns);        ///< of one machine; or empty
BU_S32 NET_API_SetDns2(const BU_CHAR *pcCard, const BU_CHAR *pcDns);
/// @param enMode  the card's mode, for which the time counts  @param u32Timeout  seconds, 1-3600
BU_S32 NET_API_SetDhcpTimeout(const BU_CHAR *pcCard, IP_MODE_E enMode, BU_U32 u32Timeout);

/// Whether another machine has the address. A PC asks nobody: only an address that no machine can have is in conflict.
/// @return 0 free, else in conflict
BU_S32 NET_API_CheckIpConflict(const BU_CHAR *pcIp);
/// The addresses that the DHCP client falls back to. @return 0, or -1 as above; the gateway may be empty
BU_S32 NET_API_FallbackIPReplaceDefaultScript(const BU_CHAR *pcIp, const BU_CHAR *pcMask, const BU_CHAR *pcGateway);
/// The camera's host name. @param s32Size  of the buffer, 128. @return 0 or -1
BU_S32 NET_API_GetHostCoreName(BU_CHAR *pcName, BU_S32 s32Size);

/// The network cards, main card first; entries that are not used are empty texts.
BU_S32 CFG_NETWORK_GetCards(tagNETWORK_CARDS_S *pstCards);

/// The stored record of a card; what is not stored has its default (DHCP, 192.168.100.100/24). Store keys below
/// "Network/<card>/": Enable, IpMode, DnsMode (numbers), IpAddr, NetMask, GateWay, Dns1, Dns2 (dotted addresses).
/// @param pcCard  "NetCard0", or an entry of acCards
/// @return 0, or -1: no such card
BU_S32 CFG_NETWORK_GetCardIntf(const BU_CHAR *pcCard, tagNETWORK_CFG_S *pstCfg);

/// The address that a card takes when DHCP gives none. Store keys below "Network/<card>/": FallbackIpAddr,
/// FallbackNetMask, FallbackGateWay (may be empty). @return 0, or -1: no such card, not an address of one machine, no
/// mask, or not stored
BU_S32 CFG_NETWORK_GetIpInfoFallback(const BU_CHAR *pcCard, NETWORK_IP_INFO_S *pstInfo);
BU_S32 CFG_NETWORK_SetIpInfoFallback(const BU_CHAR *pcCard, const NETWORK_IP_INFO_S *pstInfo);

/// How long a card waits for DHCP, in seconds (store key "Network/<card>/DhcpTimeout", 1-3600, default 30).
BU_S32 CFG_NETWORK_GetDhcpTimeout(const BU_CHAR *pcCard, BU_U32 *pu32Timeout);

/// The camera's name in the network (store key "Network/HostName"); until one is set, the profile's hostName.
/// @param s32Size  of the buffer; a longer name is cut and always terminated
BU_S32 CFG_NETWORK_GetHostname(BU_CHAR *pcBuffer, BU_S32 s32Size);
/// @return 0, or -1: empty, longer than 63 characters, or other characters than letters, digits, '-', '_' and '.'
BU_S32 CFG_NETWORK_SetHostname(const BU_CHAR *pcName);
