// Byte streams of three controllers, one of them serial, cut into pieces: head byte (controller, length), piece. A head
// of length 0 ends the oldest move.
#include "viscaDouble.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *pu8Data, size_t size)
{
    using namespace visca;
    static Turn s_turn([] {}, [] {});
    std::array<Peer, 3> peers;
    std::array<Splitter, 3> splitters;
    constexpr std::array from = {CMD_FROM_E_NET_TCP_IN, CMD_FROM_E_NET_TCP_IN, CMD_FROM_E_UART_RS232};
    for (fuzz::Input input(pu8Data, size); !input.isEmpty();) {
        s_turn.begin();
        std::array<int, 3> lane{-1, -1, -1};
        for (int i = 0; i < 4 && !input.isEmpty(); ++i) {
            const BU_U8 u8Head = input.byte();
            const std::size_t who = (u8Head >> 6) % 3;
            if ((u8Head & 0x3F) == 0) fuzz::endOldest(u8Head & 0x40);
            VISCA_MSG_PRI_S stFrom{};
            stFrom.enFrom = from[who];
            stFrom.stIpMsg.u64IpAddr = who;
            if (lane[who] < 0) lane[who] = s_turn.addLane(peers[who]);
            s_turn.addStream(static_cast<BU_U16>(lane[who]), stFrom, input.chunk(u8Head & 0x3F), &splitters[who]);
        }
        s_turn.process();
        if (library().sockets.running() > 6) std::abort();
    }
    fuzz::reset();
    return 0;
}
