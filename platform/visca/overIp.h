/// VISCA over IP: the 8-byte header, control messages and sequence numbers. Pure functions of bytes.
#pragma once

#include "codec.h"

namespace visca::overip
{
constexpr std::size_t HEADER = 8;
constexpr std::size_t MAX_PAYLOAD = 16;

enum PayloadType : BU_U16 {
    COMMAND = 0x0100,
    INQUIRY = 0x0110,
    REPLY = 0x0111,
    DEVICE_SETTING = 0x0120,
    CONTROL = 0x0200,
    CONTROL_REPLY = 0x0201
};

/// The sequence number a controller sent last.
struct Sequence {
    bool bKnown = false;
    BU_U32 u32Last = 0;
};

struct Received {
    enum Kind : BU_U8 {
        Drop,    ///< too short for a header, or itself an answer or an error, which are never answered
        Deliver, ///< `packet` is a message of the controller
        Answer,  ///< `answer` is the payload of the answer
        Refuse   ///< the same, of an error
    } enKind = Drop;
    std::span<const BU_U8> packet;
    Packet answer;
    OVER_IP_MSG_TYPE_E enMsgType{}; ///< of the datagram; decides the payload type of answers
    BU_U32 u32Sequence = 0;
};

/// Whether a datagram is a bare packet without header, as some controllers send to this port.
inline bool isBare(std::span<const BU_U8> datagram) { return !datagram.empty() && (datagram[0] & 0xF0) == 0x80; }

/// Reads a datagram with header; keeps the controller's sequence state.
Received receive(std::span<const BU_U8> datagram, Sequence &sequence);

/// Writes the header in front of an answer of u32Len bytes.
void writeHeader(BU_U8 *pu8Out, OVER_IP_MSG_TYPE_E enMsgType, BU_U32 u32Len, BU_U32 u32Sequence);
} // namespace visca::overip
