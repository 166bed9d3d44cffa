// Handlers of menu items that do more than pass a value on: serial ports, protocol addresses, network, NDI.
#include "camera/network.h"
#include "camera/serial.h"
#include "config/config.h"
#include "live/pipelineLive.h"
#include "modules.h"
#include "param.h"
#include "protocol/freed.h"
#include "protocol/visca.h"
#include "vocabulary/words.h"

#include <string_view>

using namespace menu;

BU_S32 menuParamSetCOMMode(ITEM_NODE_S *pstItem, BU_BOOL)
{
    const std::string_view strPort = wordOf(*pstItem);
    if (strPort.starts_with("RS232")) UART_Change_SerialRs422or232(UART_INSTANCE_TYPE_RS232);
    if (strPort.starts_with("RS422")) UART_Change_SerialRs422or232(UART_INSTANCE_TYPE_RS422);
    FREED_UpdateSerialActivePushMsg();
    return 0;
}

BU_S32 menuParamSetIrAddr(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg)
{
    IR_API_SetAddr(static_cast<BU_U8>(numberOf(*pstItem)), bSaveCfg, IRADDR_SWITCH_E_SOFT);
    return 0;
}

BU_S32 menuParamSetProtocolAddrVisca(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg)
{
    VISCA_API_SetAddr(static_cast<BU_U8>(numberOf(*pstItem)), bSaveCfg);
    return 0;
}

BU_S32 menuParamSetFreedCamera(ITEM_NODE_S *pstItem, BU_BOOL)
{
    SetCammeraId(numberOf(*pstItem), BU_TRUE);
    return 0;
}

BU_S32 menuParamSetIpMode(ITEM_NODE_S *pstItem, BU_BOOL)
{
    const bool bStatic = std::string_view(wordOf(*pstItem)) == "StaticIp";
    NET_API_SetIpMode("NetCard0", bStatic ? IP_MODE_E_STATIC : IP_MODE_E_DHCP);
    return 0;
}

BU_S32 menuParamDnsMode(ITEM_NODE_S *pstItem, BU_BOOL)
{
    const bool bManual = std::string_view(wordOf(*pstItem)) == "ManualMode";
    NET_API_SetDnsMode("NetCard0", bManual ? DNS_MODE_E_MANUAL : DNS_MODE_E_AUTO);
    return 0;
}

BU_S32 menuParamNdi(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg)
{
    CFG_NDI_SESSION_S stConfig;
    MPP_NDI_GetInstance(0, stConfig);
    stConfig.bEnabled = sysSwitchStr2Enum(wordOf(*pstItem));
    MPP_NDI_UpdateInstance(stConfig, BU_TRUE);
    CFG_COM_SetTxtParams("Ndi", sysSwitchEnum2Str(stConfig.bEnabled), bSaveCfg);
    return 0;
}
