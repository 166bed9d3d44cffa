/// Serial ports as byte streams, for the protocol libraries: what arrives goes to the library that the port's protocol
/// setting names. On the PC a port is a pseudo-terminal, linked as the profile's device file in the device root
/// ("/dev/ttyS_RS232"): a controller opens that file. The calls to open and to send are in camera/serial.h.
#pragma once

#include "camera/serial.h"

#include <functional>

/// Gets the bytes of a port, as they arrive. Thread: the port's receiver.
typedef std::function<void(UART_INSTANCE_TYPE enPort, const BU_U8 *pu8Data, BU_U32 u32Len)> FN_UART_RECEIVER;

/// Registers the library of a protocol; null unregisters and returns after a running call has ended (not from inside
/// the receiver itself). @return 0, or -1: no such protocol. Thread: any.
BU_S32 UART_RegisterReceiver(tagRS_PROTO_E enProtocol, FN_UART_RECEIVER fnReceiver);
