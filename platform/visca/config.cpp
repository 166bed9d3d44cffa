// The calls of the library: start and stop, transmitters, address, endpoints.
#include "net.h"
#include "serial.h"

#include "protocol/viscaNet.h"
#include "store/record.h"
#include "util/journal.h"
#include "util/log.h"
#include "util/platform.h"
#include "util/thread.h"

using namespace visca;

namespace
{
constexpr BU_S32 UDP_PORT = 1259, TCP_PORT = 5678, OVER_IP_PORT = 52381, MAX_PORT = 65535, MAX_RUN = 0xFFF;
enum Protocols : BU_U8 { UDP_ONLY = 0, TCP_ONLY = 1, UDP_AND_TCP = 2 };

using store::number, store::text;
using Stored = tagCFG_VISCA_NET_S;
constexpr store::Field<Stored> ENDPOINT_FIELDS[] = {
    number<&Stored::bEnable>("Enable"),
    number<&Stored::bProtocolType>("ProtocolType", UDP_ONLY, UDP_AND_TCP),
    number<&Stored::PortNum>("PortNum", 1, MAX_PORT),
    number<&Stored::bWorkMode>("WorkMode", 0, UINT8_MAX),
    text<&Stored::IpAddr>("IpAddr", sizeof(Stored::IpAddr) - 1),
};
struct Own {
    BU_U8 u8Address = 1;
    BU_S32 s32Run = 0; ///< number of the last start
};
constexpr store::Field<Own> OWN_FIELDS[] = {number<&Own::u8Address>("Address", 1, 7),
                                            number<&Own::s32Run>("Run", 0, MAX_RUN)};
BU_S32 reload();
const store::Record<Stored> NET{"ViscaNet/", ENDPOINT_FIELDS, SYSTEM_RESTORE_E_CONTROL};
const store::Record<Stored> OVER_IP{"ViscaOverIp/", ENDPOINT_FIELDS, SYSTEM_RESTORE_E_CONTROL};
const store::Record<Own> OWN{"Visca/", OWN_FIELDS, SYSTEM_RESTORE_E_CONTROL, reload};

Stored storedNet() { return NET.load("", {BU_TRUE, UDP_AND_TCP, UDP_PORT, 0, {}}); }
Stored storedOverIp() { return OVER_IP.load("", {BU_TRUE, UDP_AND_TCP, OVER_IP_PORT, 0, {}}); }

struct Config {
    std::mutex updating; // one change of endpoints at a time
    std::mutex mutex;    // guards both records
    Stored stNet{}, stOverIp{};
    std::atomic<BU_S32> s32Run{0}; // of this start
};
Config &config()
{
    static Config *s_pstConfig = new Config;
    return *s_pstConfig;
}

Endpoint endpointOf(CMD_FROM_E enFrom, const Stored &stCfg, BU_S32 s32Port)
{
    const std::string strAddress = store::textOf(stCfg.IpAddr);
    return {enFrom, strAddress.empty() ? PLATFORM_BindAddress() : strAddress, PLATFORM_Port(s32Port)};
}

/// UDP and TCP have a usual port each. Where both are on and the port is one of the usual, each takes its own.
std::vector<Endpoint> endpointsOf(const Stored &stNet, const Stored &stOverIp)
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
        const BU_U16 u16Port = network().portOf(endpoint.enFrom);
        if (!u16Port) continue;
        const bool bTcp = endpoint.enFrom == CMD_FROM_E_NET_TCP_IN, bOverIp = endpoint.enFrom == CMD_FROM_E_OVER_IP_IN;
        PLATFORM_AddEndpoint((bTcp ? "tcp://" : "udp://") + endpoint.strAddress + ":" + std::to_string(u16Port) +
                             (bOverIp ? " VISCA over IP" : " VISCA"));
    }
}

BU_S32 current(Stored *pstCfg, const Stored Config::*pstWhich)
{
    if (!pstCfg) return -1;
    const std::lock_guard lock(config().mutex);
    *pstCfg = config().*pstWhich;
    return 0;
}

/// Opens what two records say in place of what is open, and keeps them. @return false: fnStore said no, or a port is
/// taken: all as before
bool change(const Stored &stNet, const Stored &stOverIp, const std::function<bool()> &fnStore)
{
    if (!(network().isRunning() ? network().change(endpointsOf(stNet, stOverIp), fnStore) : fnStore())) return false;
    const std::lock_guard lock(config().mutex);
    config().stNet = stNet;
    config().stOverIp = stOverIp;
    return true;
}

BU_S32 update(const Stored *pstCfg, Stored Config::*pstWhich, const store::Record<Stored> &record)
{
    if (!pstCfg || record.check(*pstCfg) != 0) return -1;
    const std::unique_lock updating(config().updating, std::try_to_lock);
    if (!updating) return -1; // another change is under way
    Stored stNet, stOverIp;
    current(&stNet, &Config::stNet);
    current(&stOverIp, &Config::stOverIp);
    (pstWhich == &Config::stNet ? stNet : stOverIp) = *pstCfg;
    return change(stNet, stOverIp, [&] { return record.save(*pstCfg) == 0; }) ? 0 : -1;
}

/// Not on the caller's thread: it may be that of the network, in the middle of a command.
void reopen(void *)
{
    const std::lock_guard updating(config().updating);
    if (!change(storedNet(), storedOverIp(), [] { return true; }))
        LOG_WARN("the VISCA endpoints stay as they are until the next start\n");
}

/// After a factory restore. The number of the start goes on, so that a record kept over a restart stays apart.
BU_S32 reload()
{
    library().u8Address = OWN.load().u8Address;
    UTIL_THREAD_RunFuncAsync(reopen, nullptr);
    const BU_S32 s32Run = config().s32Run;
    return s32Run ? OWN.put({{"Run", std::to_string(s32Run)}}) : 0;
}

/// The number of this start: one more than the last, so that a record kept over a restart is never taken for one of
/// now.
BU_U32 nextRun()
{
    const BU_S32 s32Run = OWN.load().s32Run % MAX_RUN + 1;
    if (OWN.put({{"Run", std::to_string(s32Run)}}) != 0)
        LOG_WARN("the number of this VISCA start could not be stored\n");
    config().s32Run = s32Run;
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
    return (network().*pfnSend)(*static_cast<const VISCA_MSG_PRI_S *>(pvPrivate), {pu8Buf, u32Len});
}
} // namespace

BU_S32 CFG_SYSTEM_GetViscaNet(tagCFG_VISCA_NET_S *pstCfg)
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    if (pstCfg) *pstCfg = storedNet();
    return pstCfg ? 0 : -1;
}

BU_S32 CFG_SYSTEM_GetViscaOverIp(tagCFG_VISCA_NET_S *pstCfg)
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    if (pstCfg) *pstCfg = storedOverIp();
    return pstCfg ? 0 : -1;
}

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
    const bool bAny = network().start(list);
    announce(list);
    startSerial();
    return bAny || list.empty() ? 0 : -1;
}

BU_S32 VISCA_HandlerExit()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    stopSerial();
    network().stop();
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
    if (bReread) library().u8Address = OWN.load("", {library().u8Address}).u8Address;
    *pu8Addr = library().u8Address;
    return 0;
}

BU_S32 VISCA_API_SetAddr(BU_U8 u8Addr, BU_BOOL bSaveCfg)
{
    if (const auto injected = journal::call(__func__, u8Addr, bSaveCfg)) return *injected;
    if (OWN.check({u8Addr}) != 0) return -1;
    library().u8Address = u8Addr;
    return bSaveCfg ? OWN.put({{"Address", std::to_string(u8Addr)}}) : 0;
}

BU_S32 VISCA_NET_GetCurConfig(tagCFG_VISCA_NET_S *pstCfg)
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    return current(pstCfg, &Config::stNet);
}

BU_S32 VISCA_NET_UpdateConfig(const tagCFG_VISCA_NET_S *pstCfg)
{
    if (const auto injected = journal::call(__func__, pstCfg)) return *injected;
    return update(pstCfg, &Config::stNet, NET);
}

BU_S32 VISCA_OverIp_GetCurConfig(tagCFG_VISCA_NET_S *pstCfg)
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    return current(pstCfg, &Config::stOverIp);
}

BU_S32 VISCA_OverIp_UpdateConfig(const tagCFG_VISCA_NET_S *pstCfg)
{
    if (const auto injected = journal::call(__func__, pstCfg)) return *injected;
    return update(pstCfg, &Config::stOverIp, OVER_IP);
}
