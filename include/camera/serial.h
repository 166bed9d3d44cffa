/// Infrared, serial ports, USB mode.
#pragma once

#include "base/setting.h"

enum IR_SWITCH_E : BU_S32 { IR_SWITCH_E_OFF = 0, IR_SWITCH_E_ON = 1 };
enum IRaddrCtrl_SWITCH_E : BU_S32 { IRADDR_SWITCH_E_SOFT = 0, IRADDR_SWITCH_E_DIP = 1 };
enum UART_INSTANCE_TYPEtag : BU_S32 {
    UART_INSTANCE_TYPE_RS232 = 0,
    UART_INSTANCE_TYPE_RS422,
    UART_INSTANCE_TYPE_RS485,
    UART_INSTANCE_TYPE_12G_FPGA,
    UART_INSTANCE_TYPE_BULL
};
typedef UART_INSTANCE_TYPEtag UART_INSTANCE_TYPE;
enum tagRS_PROTO_E : BU_S32 {
    RS_PROTO_E_VISCA = 0,
    RS_PROTO_E_PELCO_D = 1,
    RS_PROTO_E_PELCO_P = 2,
    RS_PROTO_E_FREED = 3
};
enum USB_MODE_E : BU_S32 { USB_MODE_E_HOST = 0, USB_MODE_E_DEVICE = 1 };

// The key in brackets names the setting in the store and in range questions. A setter with one flag tells the
// listeners; an empty or unknown word is refused with -1 and changes nothing.

// settings: IR_API_Control
/// infrared receiver, IR_SWITCH_E: switch, default on [IrSwitch]
BU_S32 IR_API_GetSwitch(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
inline BU_S32 IR_API_GetSwitch(IR_SWITCH_E *penValue, BU_BOOL bReread = BU_FALSE)
{
    return IR_API_GetSwitch(EnumAsNumber(penValue).address(), bReread);
}
/// what pages show as source of the address, IRaddrCtrl_SWITCH_E: switch, default off [IrAddrCtrl]
BU_S32 IR_API_GetAddrtrl(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
inline BU_S32 IR_API_GetAddrtrl(IRaddrCtrl_SWITCH_E *penValue, BU_BOOL bReread = BU_FALSE)
{
    return IR_API_GetAddrtrl(EnumAsNumber(penValue).address(), bReread);
}
// end of settings
BU_S32 IR_API_SetSwitch(const BU_CHAR *pcWord, BU_BOOL bSaveCfg); ///< "On" or "Off"
BU_S32 IR_API_SetSwitchByRam(const BU_CHAR *pcWord);              ///< until the next start
/// Which remotes the camera listens to: address 1-4, default 1 [IrAddr].
BU_S32 IR_API_GetAddr(BU_U8 *pu8Addr, BU_BOOL bReread = BU_FALSE);
/// @param enSource  who sets it: IRaddrCtrl_SWITCH_E, whatever [IrAddrCtrl] says. @return 0, or -1: another address
BU_S32 IR_API_SetAddr(BU_U8 u8Addr, BU_BOOL bSaveCfg, BU_S32 enSource);
BU_S32 IR_API_SetAddrCtrl(const BU_CHAR *pcWord, BU_BOOL bSaveCfg); ///< "SoftWare" or "DIPSwitch"

// Ports with settings: UART_INSTANCE_TYPE_RS232 and UART_INSTANCE_TYPE_RS422.
UART_INSTANCE_TYPE SERIAL_API_GetSerialType(); ///< the port in use, default RS232 [COM-Mode]
/// tagRS_PROTO_E, default VISCA; -1: no such port [RS232ProtocolType, RS422ProtocolType].
BU_S32 SERIAL_API_GetProtocolType(BU_S32 s32Port);
/// @param pcWord  "Visca", "PelcoP", "PelcoD" or "Freed". @return 0 or -1
BU_S32 SERIAL_API_SetProtocolType(BU_S32 s32Port, const BU_CHAR *pcWord, BU_BOOL bSaveCfg);
/// Bits per second, default 9600; -1: no such port [RS232Baudrate, RS422Baudrate].
BU_S32 SERIAL_API_GetBaudrate(BU_S32 s32Port);
/// @param pcWord  "N2400", "N4800", "N9600" or "N38400". @return 0 or -1
BU_S32 SERIAL_API_SetBaudrate(BU_S32 s32Port, const BU_CHAR *pcWord, BU_BOOL bSaveCfg);
/// Pelco addresses, default 1. @param s32Protocol  0 Pelco-P, 1-32 [PelcoPAddr]; 1 Pelco-D, 1-255 [PelcoDAddr]
/// @return 0, or -1: another protocol or address, null
BU_S32 SERIAL_API_GetProtocolPelcoAddr(BU_U8 *pu8Addr, BU_S32 s32Protocol, BU_BOOL bReread);
BU_S32 SERIAL_API_SetProtocolPelcoAddr(BU_S32 s32Addr, BU_S32 s32Protocol, BU_BOOL bSaveCfg);

/// Opens the serial ports of the board; once, before the protocols start. @return 0, or -1: one of them is not there
BU_S32 UART_DevAllInit();
/// Puts a port into use. @return 0, or -1: no such port
BU_S32 UART_Change_SerialRs422or232(BU_S32 s32Port);
/// Sends bytes; the two pointers behind them are not used. @return 0, or -1: the port is not open. Thread: any.
BU_S32 UART_RS232DevSend(BU_U8 *pu8Buf, BU_U32 u32Len, void *pvPrivate, void *pvExtra);
BU_S32 UART_RS422DevSend(BU_U8 *pu8Buf, BU_U32 u32Len, void *pvPrivate, void *pvExtra);

// USB port.
// settings: USB_API_System
/// USB_MODE_E: 0...1, default 1 [DevUSB]
BU_S32 USB_API_GetMode(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
inline BU_S32 USB_API_GetMode(USB_MODE_E *penValue, BU_BOOL bReread = BU_FALSE)
{
    return USB_API_GetMode(EnumAsNumber(penValue).address(), bReread);
}
// end of settings
BU_S32 USB_API_SetMode(BU_S32 s32Mode, BU_BOOL bSaveCfg);
