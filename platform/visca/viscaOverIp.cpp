#include "viscaOverIp.h"

namespace visca::overip
{
namespace
{
constexpr BU_U8 kReset = 0x01, kError = 0x0F;
constexpr BU_U8 kBadSequence = 0x01, kBadMessage = 0x02;

BU_U16 get16(std::span<const BU_U8> bytes, std::size_t at)
{
    return static_cast<BU_U16>(bytes[at] << 8 | bytes[at + 1]);
}
BU_U32 get32(std::span<const BU_U8> bytes, std::size_t at)
{
    return static_cast<BU_U32>(get16(bytes, at)) << 16 | get16(bytes, at + 2);
}

Received answer(Received received, OVER_IP_MSG_TYPE_E enMsgType, Packet packet)
{
    received.enKind = Received::Answer;
    received.enMsgType = enMsgType;
    received.answer = packet;
    return received;
}

Received error(Received received, BU_U8 u8Reason)
{
    return answer(received, OVER_IP_MSG_E_CTRL_CMD, {{kError, u8Reason}, 2});
}
} // namespace

Received receive(std::span<const BU_U8> datagram, Sequence &sequence)
{
    Received received;
    if (datagram.size() < kHeader) return received;
    received.u32Sequence = get32(datagram, 4);
    const BU_U16 u16Type = get16(datagram, 0);
    const auto payload = datagram.subspan(kHeader);
    const bool bLengthFits = get16(datagram, 2) == payload.size() && !payload.empty() && payload.size() <= kMaxPayload;
    if (u16Type == kControl) {
        if (!bLengthFits || payload[0] != kReset || payload.size() != 1) return error(received, kBadMessage);
        sequence = {}; // the next number is 0 or any other; this message's own number does not count
        return answer(received, OVER_IP_MSG_E_CTRL_CMD, {{kReset}, 1});
    }
    if (u16Type != kCommand && u16Type != kInquiry && u16Type != kDeviceSetting) return error(received, kBadMessage);
    if (!bLengthFits) return answer(received, OVER_IP_MSG_E_VISCA_CMD, faultOf(1, 0, Fault::Length));
    if (sequence.bKnown && sequence.u32Last == received.u32Sequence) return error(received, kBadSequence);
    sequence = {true, received.u32Sequence};
    received.enKind = Received::Deliver;
    received.packet = payload;
    received.enMsgType = u16Type == kInquiry         ? OVER_IP_MSG_E_VISCA_INQ
                         : u16Type == kDeviceSetting ? OVER_IP_MSG_E_VISCA_SET_CMD
                                                     : OVER_IP_MSG_E_VISCA_CMD;
    return received;
}

void writeHeader(BU_U8 *pu8Out, OVER_IP_MSG_TYPE_E enMsgType, BU_U32 u32Len, BU_U32 u32Sequence)
{
    const bool bControl = enMsgType == OVER_IP_MSG_E_CTRL_CMD || enMsgType == OVER_IP_MSG_E_CTRL_REPLY;
    const BU_U32 u32First = static_cast<BU_U32>(bControl ? kControlReply : kReply) << 16 | u32Len;
    for (BU_U32 i = 0; i < 4; ++i) {
        pu8Out[i] = static_cast<BU_U8>(u32First >> (24 - 8 * i));
        pu8Out[4 + i] = static_cast<BU_U8>(u32Sequence >> (24 - 8 * i));
    }
}
} // namespace visca::overip
