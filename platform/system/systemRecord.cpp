#include "camera/webPort.h"
#include "protocol/viscaNet.h"
#include "store/stored.h"

#include "util/journal.h"

namespace
{
constexpr BU_S32 PORT_MAX = 65535;
constexpr BU_S32 PROTOCOL_BOTH = 2;

BU_S32 viscaEndpoint(const BU_CHAR *pcSection, BU_S32 s32DefaultPort, tagCFG_VISCA_NET_S *pstCfg)
{
    if (!pstCfg) return -1;
    const StoredSection section(pcSection);
    *pstCfg = {};
    pstCfg->bEnable = static_cast<BU_U8>(section.number("Enable", BU_TRUE, BU_FALSE, BU_TRUE));
    pstCfg->bProtocolType = static_cast<BU_U8>(section.number("ProtocolType", PROTOCOL_BOTH, 0, PROTOCOL_BOTH));
    pstCfg->PortNum = section.number("PortNum", s32DefaultPort, 1, PORT_MAX);
    pstCfg->bWorkMode = static_cast<BU_U8>(section.number("WorkMode", 0, 0, UINT8_MAX));
    copyText(pstCfg->IpAddr, section.text("IpAddr", ""));
    return 0;
}
} // namespace

BU_S32 CFG_SYSTEM_GetViscaNet(tagCFG_VISCA_NET_S *pstCfg)
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    return viscaEndpoint("ViscaNet", 1259, pstCfg);
}

BU_S32 CFG_SYSTEM_GetViscaOverIp(tagCFG_VISCA_NET_S *pstCfg)
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    return viscaEndpoint("ViscaOverIp", 52381, pstCfg);
}

BU_S32 CFG_SYSTEM_GetHttpPort(BU_S32 *ps32Http, BU_S32 *ps32Https)
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    const StoredSection section("Http");
    if (ps32Http) *ps32Http = section.number("Port", 80, 1, PORT_MAX);
    if (ps32Https) *ps32Https = section.number("SecurePort", 443, 1, PORT_MAX);
    return 0;
}
