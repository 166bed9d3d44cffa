#include "viscaLibTest.h"

using namespace visca;

namespace
{
struct Step {
    const char *pcDatagram;
    const char *pcOutcome; // "deliver BYTES", "answer BYTES" with its header, or "drop"
};
typedef std::vector<Step> Dialogue;

std::string outcome(const char *pcDatagram, overip::Sequence &sequence)
{
    const Bytes datagram = bytes(pcDatagram);
    const overip::Received received = overip::receive(datagram, sequence);
    if (received.enKind == overip::Received::Drop) return "drop";
    if (received.enKind == overip::Received::Deliver) return "deliver " + hex(received.packet);
    const bool bError = received.answer.au8[0] == 0x0F || received.answer.au8[1] == 0x60;
    EXPECT_EQ(received.enKind == overip::Received::Refuse, bError) << pcDatagram;
    Bytes answer(overip::HEADER);
    overip::writeHeader(answer.data(), received.enMsgType, received.answer.u8Size, received.u32Sequence);
    answer.insert(answer.end(), received.answer.bytes().begin(), received.answer.bytes().end());
    return "answer " + hex(answer);
}

// clang-format off
const Dialogue DIALOGUES[] = {
    // any start value, jumps both ways, wrap
    {{"01 10 00 05 00 00 12 34 81 09 04 00 FF", "deliver 81 09 04 00 FF"},
     {"01 10 00 05 00 00 00 02 81 09 04 00 FF", "deliver 81 09 04 00 FF"},
     {"01 00 00 05 FF FF FF FF 81 01 06 04 FF", "deliver 81 01 06 04 FF"},
     {"01 20 00 05 00 00 00 00 81 01 06 04 FF", "deliver 81 01 06 04 FF"},
     {"01 20 00 05 00 00 00 00 81 01 06 04 FF", "answer 02 01 00 02 00 00 00 00 0F 01"}, // the number of the message before
     {"01 10 00 05 00 00 00 01 81 09 04 00 FF", "deliver 81 09 04 00 FF"}},
    // RESET: its own number does not count, the next may be any, also the last one again
    {{"01 10 00 05 00 00 00 00 81 09 04 00 FF", "deliver 81 09 04 00 FF"},
     {"02 00 00 01 00 00 00 00 01", "answer 02 01 00 01 00 00 00 00 01"},
     {"01 10 00 05 00 00 00 00 81 09 04 00 FF", "deliver 81 09 04 00 FF"}},
    // message types and control messages that are none
    {{"01 11 00 03 00 00 00 01 90 50 FF", "drop"},
     {"02 01 00 02 00 00 00 01 0F 02", "drop"}, // answers are not answered, nor errors
     {"07 77 00 03 00 00 00 01 90 50 FF", "answer 02 01 00 02 00 00 00 01 0F 02"},
     {"02 00 00 01 00 00 00 02 05", "answer 02 01 00 02 00 00 00 02 0F 02"},
     {"02 00 00 02 00 00 00 02 0F 01", "drop"},
     {"02 00 00 00 00 00 00 02", "answer 02 01 00 02 00 00 00 02 0F 02"}},
    // payload lengths
    {{"01 00 00 00 00 00 00 01", "answer 01 11 00 04 00 00 00 01 90 60 01 FF"},
     {"01 00 00 06 00 00 00 02 81 09 04 00 FF", "answer 01 11 00 04 00 00 00 02 90 60 01 FF"},
     {"01 00 00 11 00 00 00 03 81 01 02 03 04 05 06 07 08 09 0A 0B 0C 0D 0E 0F FF", "answer 01 11 00 04 00 00 00 03 90 60 01 FF"},
     {"01 00 00 10 00 00 00 03 81 01 02 03 04 05 06 07 08 09 0A 0B 0C 0D 0E FF", "deliver 81 01 02 03 04 05 06 07 08 09 0A 0B 0C 0D 0E FF"},
     {"01 00 00 05 00 00 00", "drop"}}};
// clang-format on
} // namespace

TEST(ViscaOverIp, DialoguesAreAnsweredByTheRules)
{
    for (const Dialogue &dialogue : DIALOGUES) {
        overip::Sequence sequence;
        for (const Step &step : dialogue)
            EXPECT_EQ(outcome(step.pcDatagram, sequence), step.pcOutcome) << step.pcDatagram;
    }
}

TEST(ViscaPeerTable, IsBoundedAndForgetsTheOldest)
{
    PeerTable table(4);
    const auto get = [&](BU_U32 u32Address) -> UdpPeer & {
        return table.get(CMD_FROM_E_OVER_IP_IN, u32Address, 52381);
    };
    for (BU_U32 u32 = 1; u32 <= 4; ++u32) get(u32).sequence = {true, u32};
    get(1); // heard of again: the second is the oldest now
    EXPECT_NE(&table.get(CMD_FROM_E_NET_UDP_IN, 4, 52381), &get(4)) << "the same address on another port of ours";
    EXPECT_TRUE(get(1).sequence.bKnown);
    EXPECT_FALSE(get(2).sequence.bKnown); // made room
    for (BU_U32 u32 = 100; u32 < 5000; ++u32) get(u32).sequence = {true, u32};
    EXPECT_EQ(table.size(), 4u);
    for (BU_U32 u32 = 4996; u32 < 5000; ++u32) EXPECT_EQ(get(u32).sequence.u32Last, u32);
}
