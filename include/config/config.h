/// Configuration: ranges, texts, feature list, network endpoints. All calls: any thread. Records given back are filled
/// completely; on a result other than 0 they are untouched.
#pragma once

#include "base/types.h"
#include "camera/network.h"
#include "config/feature.h"
#include "protocol/viscaNet.h"

struct CFG_VALUE_TXT_S {
    BU_CHAR acDef[64];
    BU_CHAR acCur[64];
};

/// The feature list of the board profile. @return 0, or -1: the profile is missing or faulty, see the log
BU_S32 CFG_FEATURE_GetConfiguration(tagCFG_FEATURE_LIST_S *pstList);

/// Opens the settings store of the device root, unless one is open, and checks its file.
/// @return 0, or -1: settings are kept in memory only
BU_S32 CFG_VerifyFileFormat();

/// Range and current value of an integer setting, by its key alone ("Gain"). @return 0, or -1: no such setting
BU_S32 CFG_COM_GetIntParams(const BU_CHAR *pcKey, CFG_VALUE_INT_S *pstRange);

/// Default and current text of a setting, by its key alone. @return 0, or -1: no such setting
BU_S32 CFG_COM_GetTxtParams(const BU_CHAR *pcKey, CFG_VALUE_TXT_S *pstValue);
/// Sets a setting from its text. @return 0, or -1: no such setting, or a text that it does not take
BU_S32 CFG_COM_SetTxtParams(const BU_CHAR *pcKey, const BU_CHAR *pcValue, BU_BOOL bSaveCfg);
/// The same by section and key. @param pcBuffer  64 bytes; longer texts are cut
BU_S32 CFG_COM_GetTxtParam(const BU_CHAR *pcSection, const BU_CHAR *pcKey, BU_CHAR *pcBuffer);
BU_S32 CFG_COM_SetTxtParam(const BU_CHAR *pcSection, const BU_CHAR *pcKey, const BU_CHAR *pcValue, BU_BOOL bSaveCfg);

/// The network cards, main card first; entries that are not used are empty texts.
BU_S32 CFG_NETWORK_GetCards(tagNETWORK_CARDS_S *pstCards);

/// The stored record of a card; what is not stored has its default (DHCP, 192.168.100.100/24). Store keys below
/// "Network/<card>/": Enable, IpMode, DnsMode (numbers), IpAddr, NetMask, GateWay, Dns1, Dns2 (dotted addresses).
/// @param pcCard  "NetCard0", or an entry of acCards
/// @return 0, or -1: no such card
BU_S32 CFG_NETWORK_GetCardIntf(const BU_CHAR *pcCard, tagNETWORK_CFG_S *pstCfg);

/// The address that a card takes when DHCP gives none. Store keys below "Network/<card>/": FallbackIpAddr,
/// FallbackNetMask, FallbackGateWay. @return 0, or -1: no such card, no addresses, or not stored
BU_S32 CFG_NETWORK_GetIpInfoFallback(const BU_CHAR *pcCard, NETWORK_IP_INFO_S *pstInfo);
BU_S32 CFG_NETWORK_SetIpInfoFallback(const BU_CHAR *pcCard, const NETWORK_IP_INFO_S *pstInfo);

/// How long a card waits for DHCP, in seconds (store key "Network/<card>/DhcpTimeout", default 30).
BU_S32 CFG_NETWORK_GetDhcpTimeout(const BU_CHAR *pcCard, BU_U32 *pu32Timeout);

/// The camera's name in the network (store key "Network/HostName"); until one is set, the profile's hostName.
/// @param s32Size  of the buffer; a longer name is cut and always terminated
BU_S32 CFG_NETWORK_GetHostname(BU_CHAR *pcBuffer, BU_S32 s32Size);
/// @return 0, or -1: empty, longer than 63 characters, or other characters than letters, digits, '-', '_' and '.'
BU_S32 CFG_NETWORK_SetHostname(const BU_CHAR *pcName);

/// The plain VISCA endpoint: UDP on PortNum, default 1259, and TCP, which always has 5678. Store keys below
/// "ViscaNet/": Enable, ProtocolType, PortNum, WorkMode (numbers), IpAddr (text).
BU_S32 CFG_SYSTEM_GetViscaNet(tagCFG_VISCA_NET_S *pstCfg);
/// The VISCA over IP endpoint, UDP 52381 by default. Store keys below "ViscaOverIp/", the same names.
BU_S32 CFG_SYSTEM_GetViscaOverIp(tagCFG_VISCA_NET_S *pstCfg);

/// Ports of the web server, before the port offset; either pointer may be null. Store keys "Http/Port", default 80, and
/// "Http/SecurePort", default 443.
BU_S32 CFG_SYSTEM_GetHttpPort(BU_S32 *ps32Http, BU_S32 *ps32Https);
