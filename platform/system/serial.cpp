// Infrared receiver, serial ports, USB: their settings.
#include "camera/serial.h"

#include "settings/settings.h"
#include "util/journal.h"
#include "vocabulary/words.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace
{
using settings::Row;

// The web page's words, in no vocabulary table.
constexpr STR2ENUM_MAP_S ADDRESS_SOURCES[] = {{"SoftWare", IRADDR_SWITCH_E_SOFT}, {"DIPSwitch", IRADDR_SWITCH_E_DIP}};
/// Protocol words with the numbers of the ports' own enumeration; the vocabulary table counts Pelco the other way
/// round.
constexpr STR2ENUM_MAP_S PROTOCOLS[] = {{"Visca", RS_PROTO_E_VISCA},
                                        {"PelcoP", RS_PROTO_E_PELCO_P},
                                        {"PelcoD", RS_PROTO_E_PELCO_D},
                                        {"Freed", RS_PROTO_E_FREED}};
constexpr BU_S32 BAUDRATES[] = {2400, 4800, 9600, 38400};
static_assert(std::size(BAUDRATES) == std::size(MAP_BAUDRATE));

struct PortRows {
    BU_S32 enPort;
    Row enProtocol, enBaudrate;
};
constexpr PortRows PORTS[] = {
    {UART_INSTANCE_TYPE_RS232, settings::SERIAL_API_Protocol232, settings::SERIAL_API_Baudrate232},
    {UART_INSTANCE_TYPE_RS422, settings::SERIAL_API_Protocol422, settings::SERIAL_API_Baudrate422},
};
const PortRows *portOf(BU_S32 s32Port)
{
    const auto *pst = std::ranges::find(PORTS, s32Port, &PortRows::enPort);
    return pst == std::end(PORTS) ? nullptr : pst;
}

Row pelcoRow(BU_S32 s32Protocol)
{
    return s32Protocol == 0   ? settings::SERIAL_API_PelcoPAddr
           : s32Protocol == 1 ? settings::SERIAL_API_PelcoDAddr
                              : settings::ROW_COUNT;
}
} // namespace

BU_S32 IR_API_SetSwitch(const BU_CHAR *pcWord, BU_BOOL bSaveCfg)
{
    if (const auto injected = journal::call(__func__, pcWord, bSaveCfg)) return *injected;
    return settings::set(settings::IR_API_Switch, 0, sysSwitchStr2Enum(pcWord), bSaveCfg, BU_TRUE);
}

BU_S32 IR_API_SetSwitchByRam(const BU_CHAR *pcWord)
{
    if (const auto injected = journal::call(__func__, pcWord)) return *injected;
    return settings::set(settings::IR_API_Switch, 0, sysSwitchStr2Enum(pcWord), BU_FALSE, BU_TRUE);
}

BU_S32 IR_API_GetAddr(BU_U8 *pu8Addr, BU_BOOL bReread)
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    BU_S32 s32Addr = 0;
    if (!pu8Addr || settings::get(settings::IR_API_Addr, 0, &s32Addr, bReread) != 0) return -1;
    *pu8Addr = static_cast<BU_U8>(s32Addr);
    return 0;
}

BU_S32 IR_API_SetAddr(BU_U8 u8Addr, BU_BOOL bSaveCfg, BU_S32 enSource)
{
    if (const auto injected = journal::call(__func__, u8Addr, bSaveCfg, enSource)) return *injected;
    return settings::set(settings::IR_API_Addr, 0, u8Addr, bSaveCfg, BU_TRUE);
}

BU_S32 IR_API_SetAddrCtrl(const BU_CHAR *pcWord, BU_BOOL bSaveCfg)
{
    if (const auto injected = journal::call(__func__, pcWord, bSaveCfg)) return *injected;
    return settings::set(settings::IR_API_Addrtrl, 0, vocabulary::valueOf<ADDRESS_SOURCES>(pcWord), bSaveCfg, BU_TRUE);
}

UART_INSTANCE_TYPE SERIAL_API_GetSerialType()
{
    return static_cast<UART_INSTANCE_TYPE>(settings::value(settings::SERIAL_API_Type));
}

BU_S32 SERIAL_API_GetProtocolType(BU_S32 s32Port)
{
    if (const auto injected = journal::ask(__func__, s32Port)) return *injected;
    const PortRows *pstPort = portOf(s32Port);
    return pstPort ? settings::value(pstPort->enProtocol) : -1;
}

BU_S32 SERIAL_API_SetProtocolType(BU_S32 s32Port, const BU_CHAR *pcWord, BU_BOOL bSaveCfg)
{
    if (const auto injected = journal::call(__func__, s32Port, pcWord, bSaveCfg)) return *injected;
    const PortRows *pstPort = portOf(s32Port);
    if (!pstPort) return -1;
    return settings::set(pstPort->enProtocol, 0, vocabulary::valueOf<PROTOCOLS>(pcWord), bSaveCfg, BU_TRUE);
}

BU_S32 SERIAL_API_GetBaudrate(BU_S32 s32Port)
{
    if (const auto injected = journal::ask(__func__, s32Port)) return *injected;
    const PortRows *pstPort = portOf(s32Port);
    return pstPort ? BAUDRATES[settings::value(pstPort->enBaudrate)] : -1;
}

BU_S32 SERIAL_API_SetBaudrate(BU_S32 s32Port, const BU_CHAR *pcWord, BU_BOOL bSaveCfg)
{
    if (const auto injected = journal::call(__func__, s32Port, pcWord, bSaveCfg)) return *injected;
    const PortRows *pstPort = portOf(s32Port);
    if (!pstPort) return -1;
    return settings::set(pstPort->enBaudrate, 0, vocabulary::valueOf<MAP_BAUDRATE>(pcWord), bSaveCfg, BU_TRUE);
}

BU_S32 SERIAL_API_GetProtocolPelcoAddr(BU_U8 *pu8Addr, BU_S32 s32Protocol, BU_BOOL bReread)
{
    if (const auto injected = journal::ask(__func__, s32Protocol)) return *injected;
    const Row enRow = pelcoRow(s32Protocol);
    BU_S32 s32Addr = 0;
    if (!pu8Addr || enRow == settings::ROW_COUNT || settings::get(enRow, 0, &s32Addr, bReread) != 0) return -1;
    *pu8Addr = static_cast<BU_U8>(s32Addr);
    return 0;
}

BU_S32 SERIAL_API_SetProtocolPelcoAddr(BU_S32 s32Addr, BU_S32 s32Protocol, BU_BOOL bSaveCfg)
{
    if (const auto injected = journal::call(__func__, s32Addr, s32Protocol, bSaveCfg)) return *injected;
    const Row enRow = pelcoRow(s32Protocol);
    return enRow == settings::ROW_COUNT ? -1 : settings::set(enRow, 0, s32Addr, bSaveCfg, BU_TRUE);
}

BU_S32 USB_API_SetMode(BU_S32 s32Mode, BU_BOOL bSaveCfg)
{
    if (const auto injected = journal::call(__func__, s32Mode, bSaveCfg)) return *injected;
    return settings::set(settings::USB_API_Mode, 0, s32Mode, bSaveCfg, BU_TRUE);
}
