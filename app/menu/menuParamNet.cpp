// Handlers of menu items: serial ports, protocol addresses, network, NDI.
#include "camera/network.h"
#include "camera/serial.h"
#include "config/config.h"
#include "live/pipelineLive.h"
#include "menu/menuParam.h"
#include "modules.h"
#include "protocol/freed.h"
#include "protocol/visca.h"
#include "vocabulary/words.h"

#include <string_view>

namespace
{
constexpr const BU_CHAR *CARD = "NetCard0";

BU_S32 setProtocolType(BU_S32 enPort, ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg)
{
    menuTraceOption(*pstItem);
    SERIAL_API_SetProtocolType(enPort, menuOption(*pstItem), bSaveCfg);
    FREED_UpdateSerialActivePushMsg();
    return 0;
}

BU_S32 setBaudrate(BU_S32 enPort, ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg)
{
    menuTraceOption(*pstItem);
    SERIAL_API_SetBaudrate(enPort, menuOption(*pstItem), bSaveCfg);
    return 0;
}

BU_S32 setPelcoAddr(BU_S32 s32Protocol, ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg)
{
    menuTraceInt(*pstItem);
    SERIAL_API_SetProtocolPelcoAddr(menuInt(*pstItem), s32Protocol, bSaveCfg);
    return 0;
}
} // namespace

BU_S32 menuParamSetRs232ProtocolType(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg)
{
    return setProtocolType(UART_INSTANCE_TYPE_RS232, pstItem, bSaveCfg);
}
BU_S32 menuParamSetRs422ProtocolType(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg)
{
    return setProtocolType(UART_INSTANCE_TYPE_RS422, pstItem, bSaveCfg);
}
BU_S32 menuParamSetRs232Baudrate(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg)
{
    return setBaudrate(UART_INSTANCE_TYPE_RS232, pstItem, bSaveCfg);
}
BU_S32 menuParamSetRs422Baudrate(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg)
{
    return setBaudrate(UART_INSTANCE_TYPE_RS422, pstItem, bSaveCfg);
}

BU_S32 menuParamSetCOMMode(ITEM_NODE_S *pstItem, BU_BOOL)
{
    menuTraceOption(*pstItem);
    const std::string_view strPort = menuOption(*pstItem);
    if (strPort.starts_with("RS232")) UART_Change_SerialRs422or232(UART_INSTANCE_TYPE_RS232);
    if (strPort.starts_with("RS422")) UART_Change_SerialRs422or232(UART_INSTANCE_TYPE_RS422);
    FREED_UpdateSerialActivePushMsg();
    return 0;
}

BU_S32 menuParamSetIrAddr(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg)
{
    menuTraceInt(*pstItem);
    IR_API_SetAddr(static_cast<BU_U8>(menuInt(*pstItem)), bSaveCfg, IRADDR_SWITCH_E_SOFT);
    return 0;
}

BU_S32 menuParamSetProtocolAddrVisca(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg)
{
    menuTraceInt(*pstItem);
    VISCA_API_SetAddr(static_cast<BU_U8>(menuInt(*pstItem)), bSaveCfg);
    return 0;
}
BU_S32 menuParamSetProtocolAddrPelcoP(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg)
{
    return setPelcoAddr(0, pstItem, bSaveCfg);
}
BU_S32 menuParamSetProtocolAddrPelcoD(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg)
{
    return setPelcoAddr(1, pstItem, bSaveCfg);
}

BU_S32 menuParamSetFreedCamera(ITEM_NODE_S *pstItem, BU_BOOL)
{
    menuTraceInt(*pstItem);
    SetCammeraId(menuInt(*pstItem), BU_TRUE);
    return 0;
}

BU_S32 menuParamSetIpMode(ITEM_NODE_S *pstItem, BU_BOOL)
{
    menuTraceOption(*pstItem);
    const bool bStatic = std::string_view(menuOption(*pstItem)) == "StaticIp";
    NET_API_SetIpMode(CARD, bStatic ? IP_MODE_E_STATIC : IP_MODE_E_DHCP);
    return 0;
}

BU_S32 menuParamDnsMode(ITEM_NODE_S *pstItem, BU_BOOL)
{
    menuTraceOption(*pstItem);
    const bool bManual = std::string_view(menuOption(*pstItem)) == "ManualMode";
    NET_API_SetDnsMode(CARD, bManual ? DNS_MODE_E_MANUAL : DNS_MODE_E_AUTO);
    return 0;
}

BU_S32 menuParamNdi(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg)
{
    menuTraceOption(*pstItem);
    CFG_NDI_SESSION_S stConfig;
    MPP_NDI_GetInstance(0, stConfig);
    stConfig.bEnabled = sysSwitchStr2Enum(menuOption(*pstItem));
    MPP_NDI_UpdateInstance(stConfig, BU_TRUE);
    CFG_COM_SetTxtParams("Ndi", sysSwitchEnum2Str(stConfig.bEnabled), bSaveCfg);
    return 0;
}
