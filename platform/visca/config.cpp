// The calls of the library: start and stop, transmitters, address, endpoints.
#include "net.h"
#include "serial.h"

#include "store/store.h"
#include "util/journal.h"
#include "util/log.h"
#include "util/platform.h"

#include <cstring>

using namespace visca;

namespace
{
constexpr BU_S32 UDP_PORT = 1259, TCP_PORT = 5678, MAX_PORT = 65535;
constexpr BU_CHAR ADDRESS_KEY[] = "Visca/Address", RUN_KEY[] = "Visca/Run";
constexpr BU_S32 MAX_RUN = 0xFFF;
enum Protocols : BU_U8 { UDP_ONLY = 0, TCP_ONLY = 1, UDP_AND_TCP = 2 };

struct Config {
    std::mutex updating; // one change of endpoints at a time
    std::mutex mutex;    // guards both records
    tagCFG_VISCA_NET_S stNet{}, stOverIp{};
};
Config &config()
{
    static Config *s_pstConfig = new Config;
    return *s_pstConfig;
}

Endpoint endpointOf(CMD_FROM_E enFrom, const tagCFG_VISCA_NET_S &stCfg, BU_S32 s32Port)
{
    const std::string strAddress(stCfg.IpAddr, strnlen(stCfg.IpAddr, sizeof stCfg.IpAddr));
    return {enFrom, strAddress.empty() ? PLATFORM_BindAddress() : strAddress, PLATFORM_Port(s32Port)};
}

/// UDP and TCP have a usual port each. Where both are on and the port is one of the usual, each takes its own.
std::vector<Endpoint> endpointsOf(const tagCFG_VISCA_NET_S &stNet, const tagCFG_VISCA_NET_S &stOverIp)
{
    std::vector<Endpoint> list;
    if (stOverIp.bEnable) list.push_back(endpointOf(CMD_FROM_E_OVER_IP_IN, stOverIp, stOverIp.PortNum));
    if (!stNet.bEnable) return list;
    const bool bUsual = stNet.bProtocolType == UDP_AND_TCP && (stNet.PortNum == UDP_PORT || stNet.PortNum == TCP_PORT);
    if (stNet.bProtocolType != TCP_ONLY)
        list.push_back(endpointOf(CMD_FROM_E_NET_UDP_IN, stNet, bUsual ? UDP_PORT : stNet.PortNum));
    if (stNet.bProtocolType != UDP_ONLY)
        list.push_back(endpointOf(CMD_FROM_E_NET_TCP_IN, stNet, bUsual ? TCP_PORT : stNet.PortNum));
    return list;
}

void announce(const std::vector<Endpoint> &list)
{
    for (const Endpoint &endpoint : list) {
        const BU_U16 u16Port = net().portOf(endpoint.enFrom);
        if (!u16Port) continue;
        const bool bTcp = endpoint.enFrom == CMD_FROM_E_NET_TCP_IN, bOverIp = endpoint.enFrom == CMD_FROM_E_OVER_IP_IN;
        PLATFORM_AddEndpoint((bTcp ? "tcp://" : "udp://") + endpoint.strAddress + ":" + std::to_string(u16Port) +
                             (bOverIp ? " VISCA over IP" : " VISCA"));
    }
}

bool store(const std::string &strSection, const tagCFG_VISCA_NET_S &stCfg)
{
    const std::string strAddress(stCfg.IpAddr, strnlen(stCfg.IpAddr, sizeof stCfg.IpAddr));
    return CFG_STORE_SetTexts({{strSection + "/Enable", std::to_string(stCfg.bEnable)},
                               {strSection + "/ProtocolType", std::to_string(stCfg.bProtocolType)},
                               {strSection + "/PortNum", std::to_string(stCfg.PortNum)},
                               {strSection + "/WorkMode", std::to_string(stCfg.bWorkMode)},
                               {strSection + "/IpAddr", strAddress}}) == 0;
}

BU_S32 current(tagCFG_VISCA_NET_S *pstCfg, const tagCFG_VISCA_NET_S Config::*pstWhich)
{
    if (!pstCfg) return -1;
    const std::lock_guard lock(config().mutex);
    *pstCfg = config().*pstWhich;
    return 0;
}

BU_S32 update(const tagCFG_VISCA_NET_S *pstCfg, tagCFG_VISCA_NET_S Config::*pstWhich, const BU_CHAR *pcSection)
{
    if (!pstCfg || pstCfg->PortNum < 1 || pstCfg->PortNum > MAX_PORT || pstCfg->bProtocolType > UDP_AND_TCP) return -1;
    const std::unique_lock updating(config().updating, std::try_to_lock);
    if (!updating) return -1; // another change is under way
    tagCFG_VISCA_NET_S stNet, stOverIp;
    current(&stNet, &Config::stNet);
    current(&stOverIp, &Config::stOverIp);
    (pstWhich == &Config::stNet ? stNet : stOverIp) = *pstCfg;
    const auto fnStore = [&] { return store(pcSection, *pstCfg); };
    const bool bOk = net().isRunning() ? net().change(endpointsOf(stNet, stOverIp), fnStore) : fnStore();
    const std::lock_guard lock(config().mutex);
    if (bOk) config().*pstWhich = *pstCfg;
    return bOk ? 0 : -1;
}

/// The number of this start: one more than the last, so that a record kept over a restart is never taken for one of
/// now.
BU_U32 nextRun()
{
    BU_S32 s32Run = 0;
    if (CFG_STORE_GetInt(RUN_KEY, &s32Run) != 0 || s32Run < 0) s32Run = 0;
    s32Run = s32Run % MAX_RUN + 1;
    if (CFG_STORE_SetInt(RUN_KEY, s32Run) != 0) LOG_WARN("the number of this VISCA start could not be stored\n");
    return static_cast<BU_U32>(s32Run);
}

void install(const VISCA_TRAN_CALL_FUNC_S *pstTrans, const VISCA_CTRL_CALL_FUNC_S *pstCtrl)
{
    for (auto &pfnTransmit : library().pfnTransmit) pfnTransmit = nullptr;
    for (BU_U32 i = 0; pstTrans && i < std::min<BU_U32>(pstTrans->u32FuncNum, CMD_FROM_E_BUTT); ++i) {
        const VISCA_TRANS_HANDLER_S &stRow = pstTrans->stViscaTransHandlers[i];
        if (stRow.enCmdFrom >= 0 && stRow.enCmdFrom < CMD_FROM_E_BUTT)
            library().pfnTransmit[stRow.enCmdFrom] = stRow.pfnViscaCallTrans;
    }
    library().pfnControl = pstCtrl ? pstCtrl->pfnViscaMsgCtrl : nullptr;
    library().pfnComplete = pstCtrl ? pstCtrl->pfnViscaMsgComplete : nullptr;
}

BU_S32 send(BU_U8 *pu8Buf, BU_U32 u32Len, void *pvPrivate,
            BU_S32 (Net::*pfnSend)(const VISCA_MSG_PRI_S &, std::span<const BU_U8>))
{
    if (!pu8Buf || !pvPrivate) return -1;
    return (net().*pfnSend)(*static_cast<const VISCA_MSG_PRI_S *>(pvPrivate), {pu8Buf, u32Len});
}
} // namespace

BU_S32 VISCA_HandlerInit(const VISCA_TRAN_CALL_FUNC_S *pstTrans, const VISCA_CTRL_CALL_FUNC_S *pstCtrl,
                         const tagCFG_VISCA_NET_S *pstNet, const tagCFG_VISCA_NET_S *pstOverIp)
{
    if (const auto injected = journal::call(__func__)) return *injected;
    if (!pstTrans || !pstCtrl || !pstNet || !pstOverIp) return -1;
    VISCA_HandlerExit();
    library().sockets.begin(nextRun());
    install(pstTrans, pstCtrl);
    BU_U8 u8Address = 1;
    VISCA_API_GetAddr(&u8Address, BU_TRUE);
    startWatch();
    std::vector<Endpoint> list;
    {
        const std::lock_guard lock(config().mutex);
        config().stNet = *pstNet;
        config().stOverIp = *pstOverIp;
        list = endpointsOf(*pstNet, *pstOverIp);
    }
    const bool bAny = net().start(list);
    announce(list);
    startSerial();
    return bAny || list.empty() ? 0 : -1;
}

BU_S32 VISCA_HandlerExit()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    stopSerial();
    net().stop();
    stopWatch();
    library().sockets.clear();
    install(nullptr, nullptr);
    return 0;
}

BU_S32 VISCA_OverIpSendMsg(BU_U8 *pu8Buf, BU_U32 u32Len, void *pvPrivate, void *)
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    return send(pu8Buf, u32Len, pvPrivate, &Net::sendUdp);
}

BU_S32 VISCA_NetUdpSendMsg(BU_U8 *pu8Buf, BU_U32 u32Len, void *pvPrivate, void *)
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    return send(pu8Buf, u32Len, pvPrivate, &Net::sendUdp);
}

BU_S32 VISCA_NetTcpSendMsg(BU_U8 *pu8Buf, BU_U32 u32Len, void *pvPrivate, void *)
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    return send(pu8Buf, u32Len, pvPrivate, &Net::sendTcp);
}

BU_S32 VISCA_API_GetAddr(BU_U8 *pu8Addr, BU_BOOL bReread)
{
    if (const auto injected = journal::ask(__func__, bReread)) return *injected;
    if (!pu8Addr) return -1;
    BU_S32 s32Stored = 0;
    if (bReread && CFG_STORE_GetInt(ADDRESS_KEY, &s32Stored) == 0 && s32Stored >= 1 && s32Stored <= 7)
        library().u8Address = static_cast<BU_U8>(s32Stored);
    *pu8Addr = library().u8Address;
    return 0;
}

BU_S32 VISCA_API_SetAddr(BU_U8 u8Addr, BU_BOOL bSaveCfg)
{
    if (const auto injected = journal::call(__func__, u8Addr, bSaveCfg)) return *injected;
    if (u8Addr < 1 || u8Addr > 7) return -1;
    library().u8Address = u8Addr;
    return bSaveCfg ? CFG_STORE_SetInt(ADDRESS_KEY, u8Addr) : 0;
}

BU_S32 VISCA_NET_GetCurConfig(tagCFG_VISCA_NET_S *pstCfg)
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    return current(pstCfg, &Config::stNet);
}

BU_S32 VISCA_NET_UpdateConfig(const tagCFG_VISCA_NET_S *pstCfg)
{
    if (const auto injected = journal::call(__func__, pstCfg)) return *injected;
    return update(pstCfg, &Config::stNet, "ViscaNet");
}

BU_S32 VISCA_OverIp_GetCurConfig(tagCFG_VISCA_NET_S *pstCfg)
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    return current(pstCfg, &Config::stOverIp);
}

BU_S32 VISCA_OverIp_UpdateConfig(const tagCFG_VISCA_NET_S *pstCfg)
{
    if (const auto injected = journal::call(__func__, pstCfg)) return *injected;
    return update(pstCfg, &Config::stOverIp, "ViscaOverIp");
}
