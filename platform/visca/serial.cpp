// The serial ports: each is a stream of packets with a controller at its end.
#include "serial.h"

#include "session.h"

#include "system/serialPort.h"

namespace visca
{
namespace
{
/// One port; used by its receiver's thread only.
struct Port {
    Splitter splitter;
    Peer peer;
    Job job;
};
std::array<Port, UART_INSTANCE_TYPE_BULL> &ports()
{
    static auto *s_pastPort = new std::array<Port, UART_INSTANCE_TYPE_BULL>;
    return *s_pastPort;
}

void receive(UART_INSTANCE_TYPE enPort, const BU_U8 *pu8Data, BU_U32 u32Len)
{
    if (enPort < 0 || enPort >= UART_INSTANCE_TYPE_BULL) return;
    Port &port = ports()[enPort];
    VISCA_MSG_PRI_S stFrom{};
    stFrom.enFrom = enPort == UART_INSTANCE_TYPE_RS232 ? CMD_FROM_E_UART_RS232 : CMD_FROM_E_UART_RS422;
    std::span stream(pu8Data, u32Len);
    while (const auto result = port.splitter.next(stream)) {
        if (result->bTooLong) {
            refuseLength(result->packet[0], stFrom, port.peer);
            continue;
        }
        accept(result->packet, stFrom, port.peer, port.job);
        run(port.job, [] {});
    }
}
} // namespace

void startSerial() { UART_RegisterReceiver(RS_PROTO_E_VISCA, receive); }

void stopSerial()
{
    UART_RegisterReceiver(RS_PROTO_E_VISCA, nullptr);
    for (Port &port : ports()) {
        library().sockets.forget(port.peer);
        port.splitter = {};
    }
}
} // namespace visca
