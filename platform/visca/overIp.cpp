// VISCA over IP: which datagrams are taken, answered or dropped.
#include "overIp.h"

#include "util/bytes.h"

namespace visca::overip
{
namespace
{
constexpr BU_U8 RESET = 0x01, ERROR = 0x0F;
constexpr BU_U8 BAD_SEQUENCE = 0x01, BAD_MESSAGE = 0x02;

Received answer(Received received, Received::Kind enKind, OVER_IP_MSG_TYPE_E enMsgType, Packet packet)
{
    received.enKind = enKind;
    received.enMsgType = enMsgType;
    received.answer = packet;
    return received;
}

Received error(Received received, BU_U8 u8Reason)
{
    return answer(received, Received::Refuse, OVER_IP_MSG_E_CTRL_CMD, {{ERROR, u8Reason}, 2});
}
} // namespace

Received receive(std::span<const BU_U8> datagram, Sequence &sequence)
{
    Received received;
    util::ByteReader reader(datagram);
    const BU_U64 u64Type = reader.big<2>(), u64Length = reader.big<2>();
    received.u32Sequence = static_cast<BU_U32>(reader.big<4>());
    if (reader.isShort()) return received;
    const auto payload = reader.rest();
    const bool bLengthFits = u64Length == payload.size() && !payload.empty() && payload.size() <= MAX_PAYLOAD;
    const bool bError = u64Type == CONTROL && !payload.empty() && payload[0] == ERROR;
    if (u64Type == REPLY || u64Type == CONTROL_REPLY || bError) return received;
    if (u64Type == CONTROL) {
        if (!bLengthFits || payload[0] != RESET || payload.size() != 1) return error(received, BAD_MESSAGE);
        sequence = {}; // the next number is 0 or any other; this message's own number does not count
        return answer(received, Received::Answer, OVER_IP_MSG_E_CTRL_CMD, {{RESET}, 1});
    }
    if (u64Type != COMMAND && u64Type != INQUIRY && u64Type != DEVICE_SETTING) return error(received, BAD_MESSAGE);
    if (!bLengthFits) return answer(received, Received::Refuse, OVER_IP_MSG_E_VISCA_CMD, faultOf(1, 0, Fault::Length));
    if (sequence.bKnown && sequence.u32Last == received.u32Sequence) return error(received, BAD_SEQUENCE);
    sequence = {true, received.u32Sequence};
    received.enKind = Received::Deliver;
    received.packet = payload;
    received.enMsgType = u64Type == INQUIRY          ? OVER_IP_MSG_E_VISCA_INQ
                         : u64Type == DEVICE_SETTING ? OVER_IP_MSG_E_VISCA_SET_CMD
                                                     : OVER_IP_MSG_E_VISCA_CMD;
    return received;
}

void writeHeader(BU_U8 *pu8Out, OVER_IP_MSG_TYPE_E enMsgType, BU_U32 u32Len, BU_U32 u32Sequence)
{
    const bool bControl = enMsgType == OVER_IP_MSG_E_CTRL_CMD || enMsgType == OVER_IP_MSG_E_CTRL_REPLY;
    util::ByteWriter writer({pu8Out, HEADER});
    writer.big<2>(bControl ? CONTROL_REPLY : REPLY);
    writer.big<2>(u32Len);
    writer.big<4>(u32Sequence);
}
} // namespace visca::overip
