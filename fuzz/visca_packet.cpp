// Any bytes as one packet: what is decoded can be written again, and reads the same.
#include "codec.h"

#include <cstdlib>
#include <cstring>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *pu8Data, size_t size)
{
    using namespace visca;
    if (size == 0 || pu8Data[0] < 0x81 || pu8Data[0] > BROADCAST) return 0; // the receivers look at the head
    tagVISCA_CTRL_INFO_S stInfo, stAgain;
    const Row *row = decode({pu8Data, size}, stInfo);
    if (!row) return 0;
    const Packet packet = encode(*row, stInfo, addressOf(pu8Data[0]));
    if (packet.u8Size != size) std::abort();
    if (decode(packet.bytes(), stAgain) != row || std::memcmp(&stInfo, &stAgain, sizeof stInfo) != 0) std::abort();
    const Packet typed = encode(row->enType, stInfo);
    if (!decode(typed.bytes(), stAgain) || std::memcmp(&stInfo, &stAgain, sizeof stInfo) != 0) std::abort();
    return 0;
}
