// The serial ports: open, send, and which protocol gets the bytes.
#include "system/serialPort.h"

#include "board/profileData.h"
#include "camera/settingEvent.h"
#include "pseudoTerminal.h"
#include "util/file.h"
#include "util/journal.h"
#include "util/log.h"
#include "util/platform.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <condition_variable>
#include <cstdio>
#include <cstring>

namespace
{
constexpr std::size_t PORTS = 2;
constexpr std::array<const BU_CHAR *, PORTS> THREADS = {"rs232", "rs422"};
// By tagRS_PROTO_E.
constexpr std::array<const BU_CHAR *, 4> PROTOCOLS = {"VISCA", "Pelco-D", "Pelco-P", "FreeD"};

struct Receiver {
    std::shared_ptr<const FN_UART_RECEIVER> fn;
    BU_U32 u32Running = 0;
};

struct Uart {
    std::mutex portLock; // guards ports
    std::array<std::shared_ptr<PseudoTerminal>, PORTS> ports;
    std::mutex receiverLock;                          // guards receivers
    std::array<Receiver, PROTOCOLS.size()> receivers; // by tagRS_PROTO_E
    std::condition_variable ended;                    // a receiver's call has ended
};
Uart &uart()
{
    static auto *pstUart = new Uart;
    return *pstUart;
}

bool isProtocol(BU_S32 s32Protocol) { return s32Protocol >= 0 && s32Protocol < static_cast<BU_S32>(PROTOCOLS.size()); }

/// Hands bytes to the library of the port's protocol; without one they are lost, as on a line that nobody listens to.
void deliver(UART_INSTANCE_TYPE enPort, std::span<const BU_U8> bytes)
{
    const BU_S32 s32Protocol = SERIAL_API_GetProtocolType(enPort);
    if (!isProtocol(s32Protocol)) return;
    Receiver &stReceiver = uart().receivers[static_cast<std::size_t>(s32Protocol)];
    std::unique_lock guard(uart().receiverLock);
    const auto fn = stReceiver.fn;
    if (!fn) return;
    stReceiver.u32Running++;
    guard.unlock();
    (*fn)(enPort, bytes.data(), static_cast<BU_U32>(bytes.size()));
    guard.lock();
    stReceiver.u32Running--;
    uart().ended.notify_all();
}

std::shared_ptr<PseudoTerminal> openPort(const board::SerialNode &stNode)
{
    const std::string strLink = UTIL_ROOT_Path(stNode.strDevice.c_str());
    std::shared_ptr<PseudoTerminal> port =
        PseudoTerminal::open(strLink, THREADS[stNode.enPort],
                             [enPort = stNode.enPort](std::span<const BU_U8> bytes) { deliver(enPort, bytes); });
    if (!port) {
        LOG_ERROR("serial port %s: %s", strLink.c_str(), std::strerror(errno));
        return nullptr;
    }
    port->setBaudrate(SERIAL_API_GetBaudrate(stNode.enPort));
    const BU_S32 s32Protocol = SERIAL_API_GetProtocolType(stNode.enPort);
    PLATFORM_AddEndpoint("serial:" + strLink + " " +
                         (isProtocol(s32Protocol) ? PROTOCOLS[static_cast<std::size_t>(s32Protocol)] : ""));
    return port;
}

std::shared_ptr<PseudoTerminal> portOf(BU_S32 s32Port)
{
    if (s32Port < 0 || s32Port >= static_cast<BU_S32>(PORTS)) return nullptr;
    const std::lock_guard guard(uart().portLock);
    return uart().ports[static_cast<std::size_t>(s32Port)];
}

/// A port follows its speed setting while it is open.
void followBaudrate(const CFG_SETTING_EVENT_S &stEvent)
{
    static constexpr std::array<const BU_CHAR *, PORTS> KEYS = {"RS232Baudrate", "RS422Baudrate"};
    const auto key = std::find_if(KEYS.begin(), KEYS.end(),
                                  [&](const BU_CHAR *pcKey) { return !std::strcmp(pcKey, stEvent.pcKey); });
    if (key == KEYS.end()) return;
    const auto s32Port = static_cast<BU_S32>(key - KEYS.begin());
    if (const auto port = portOf(s32Port)) port->setBaudrate(SERIAL_API_GetBaudrate(s32Port));
}

/// A message in the journal: its bytes in hexadecimal.
struct Bytes {
    std::span<const BU_U8> bytes;
};
std::string journalText(const Bytes &stBytes)
{
    std::string strText;
    for (const BU_U8 u8 : stBytes.bytes) {
        BU_CHAR acByte[4];
        std::snprintf(acByte, sizeof(acByte), "%s%02X", strText.empty() ? "" : " ", u8);
        strText += acByte;
    }
    return strText;
}

BU_S32 send(const BU_CHAR *pcFunction, UART_INSTANCE_TYPE enPort, const BU_U8 *pu8Buf, BU_U32 u32Len)
{
    if (!pu8Buf && u32Len > 0) return -1;
    const std::span bytes(pu8Buf, u32Len);
    if (const auto injected = journal::call(pcFunction, Bytes{bytes})) return *injected;
    const auto port = portOf(enPort);
    return port ? port->send(bytes) : -1;
}
} // namespace

BU_S32 UART_RegisterReceiver(tagRS_PROTO_E enProtocol, FN_UART_RECEIVER fnReceiver)
{
    if (!isProtocol(enProtocol)) return -1;
    Receiver &stReceiver = uart().receivers[static_cast<std::size_t>(enProtocol)];
    std::unique_lock guard(uart().receiverLock);
    auto earlier = std::exchange(stReceiver.fn, nullptr);
    if (fnReceiver)
        stReceiver.fn = std::make_shared<const FN_UART_RECEIVER>(std::move(fnReceiver));
    else
        uart().ended.wait(guard, [&] { return stReceiver.u32Running == 0; });
    guard.unlock(); // the earlier receiver ends without the lock
    return 0;
}

BU_S32 UART_DevAllInit()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    static const BU_S32 s32Listener = CFG_SETTING_Listen(followBaudrate);
    BU_S32 s32Ret = s32Listener > 0 ? 0 : -1;
    for (const board::SerialNode &stNode : board::currentProfile()->serial) {
        auto port = openPort(stNode);
        if (!port) s32Ret = -1;
        const std::lock_guard guard(uart().portLock);
        uart().ports[static_cast<std::size_t>(stNode.enPort)].swap(port);
    }
    return s32Ret;
}

BU_S32 UART_Change_SerialRs422or232(BU_S32 s32Port)
{
    if (const auto injected = journal::call(__func__, s32Port)) return *injected;
    const auto port = portOf(s32Port);
    if (!port) return -1;
    // One transceiver serves both lines on a camera. Here each port has a terminal of its own and both stay open.
    port->setBaudrate(SERIAL_API_GetBaudrate(s32Port));
    LOG_INFO("serial port in use: %s", THREADS[static_cast<std::size_t>(s32Port)]);
    return 0;
}

BU_S32 UART_RS232DevSend(BU_U8 *pu8Buf, BU_U32 u32Len, void *, void *)
{
    return send(__func__, UART_INSTANCE_TYPE_RS232, pu8Buf, u32Len);
}

BU_S32 UART_RS422DevSend(BU_U8 *pu8Buf, BU_U32 u32Len, void *, void *)
{
    return send(__func__, UART_INSTANCE_TYPE_RS422, pu8Buf, u32Len);
}
