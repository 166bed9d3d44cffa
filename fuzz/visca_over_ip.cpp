// Datagrams of two controllers on the VISCA-over-IP port: length byte, datagram; the upper bit of the length names the
// controller; length 0 ends the oldest move.
#include "peers.h"
#include "viscaDouble.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *pu8Data, size_t size)
{
    using namespace visca;
    static Turn s_turn([] {}, [] {});
    PeerTable peers(4);
    for (fuzz::Input input(pu8Data, size); !input.isEmpty();) {
        const BU_U8 u8Length = input.byte();
        if (u8Length == 0) fuzz::endOldest(true);
        const auto datagram = input.chunk(u8Length & 0x3F);
        UdpPeer &peer = peers.get(CMD_FROM_E_OVER_IP_IN, u8Length >> 7, 52381);
        VISCA_MSG_PRI_S stFrom{};
        stFrom.enFrom = CMD_FROM_E_OVER_IP_IN;
        s_turn.begin();
        const BU_U16 u16Lane = s_turn.addLane(peer.peer);
        if (overip::isBare(datagram)) {
            s_turn.addStream(u16Lane, stFrom, datagram, nullptr);
        } else {
            const overip::Received received = overip::receive(datagram, peer.sequence);
            stFrom.stIpMsg.enMsgType = received.enMsgType;
            if (received.enKind == overip::Received::Deliver) s_turn.addPacket(u16Lane, stFrom, received.packet);
            if (received.answer.u8Size > 0) transmit(stFrom, received.answer.bytes());
        }
        s_turn.process();
    }
    fuzz::reset();
    return 0;
}
