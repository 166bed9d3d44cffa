// Writes the seeds of a fuzz target: seed_corpus TARGET FOLDER. Every packet of the table, in the target's form.
#include "viscaOverIp.h"

#include <fstream>
#include <string>
#include <vector>

using namespace visca;

namespace
{
typedef std::vector<BU_U8> Bytes;

std::vector<Bytes> packets()
{
    std::vector<Bytes> list;
    for (const Topic &topic : topics())
        for (const Row &row : topic.rows) {
            tagVISCA_CTRL_INFO_S stInfo{};
            for (std::size_t i = 0; i < row.u8Parts; ++i)
                writeField(stInfo, row.astPart[i].place, row.astPart[i].u32Max - (row.astPart[i].cLetter ? 1 : 0));
            const Packet packet = encode(row, stInfo);
            list.emplace_back(packet.bytes().begin(), packet.bytes().end());
        }
    return list;
}

Bytes datagram(const Bytes &packet, BU_U32 u32Sequence)
{
    const auto u16Type = packet[1] == 0x09 ? overip::kInquiry : overip::kCommand;
    Bytes bytes(1 + overip::kHeader);
    bytes[0] = static_cast<BU_U8>(overip::kHeader + packet.size());
    overip::writeHeader(&bytes[1], OVER_IP_MSG_E_VISCA_REPLY, static_cast<BU_U32>(packet.size()), u32Sequence);
    bytes[1] = u16Type >> 8;
    bytes[2] = u16Type & 0xFF;
    bytes.insert(bytes.end(), packet.begin(), packet.end());
    return bytes;
}

Bytes piece(const Bytes &packet)
{
    Bytes bytes{static_cast<BU_U8>(packet.size())};
    bytes.insert(bytes.end(), packet.begin(), packet.end());
    return bytes;
}
} // namespace

int main(int argc, char **argv)
{
    if (argc != 3) return 1;
    const std::string strTarget = argv[1], strFolder = argv[2];
    if (!strTarget.starts_with("fuzz_visca_")) return 0;
    BU_U32 u32Number = 0;
    for (const Bytes &packet : packets()) {
        const Bytes seed = strTarget == "fuzz_visca_packet"    ? packet
                           : strTarget == "fuzz_visca_over_ip" ? datagram(packet, u32Number)
                                                               : piece(packet);
        std::ofstream file(strFolder + "/seed-" + std::to_string(u32Number++), std::ios::binary);
        file.write(reinterpret_cast<const char *>(seed.data()), static_cast<std::streamsize>(seed.size()));
    }
    return 0;
}
