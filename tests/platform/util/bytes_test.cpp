/// Numbers in packets, as in a FreeD report (24 bits, highest first) and a USB request (lowest first).
#include "util/bytes.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace
{
TEST(Bytes, NumbersOfEveryWidthKeepTheirOrderSignAndBounds)
{
    std::array<BU_U8, 9> room{};
    util::ByteWriter writer(room);
    writer.big<3>(static_cast<BU_U64>(-2));
    writer.little<2>(0x1234);
    writer.bytes(std::array<BU_U8, 1>{7});
    writer.big<4>(1); // one too many
    writer.big<1>(1);
    EXPECT_TRUE(writer.isShort());
    EXPECT_THAT(writer.written(), ElementsAre(0xFF, 0xFF, 0xFE, 0x34, 0x12, 7));

    util::ByteReader reader(writer.written());
    EXPECT_EQ(reader.big<3>(), 0xFFFFFEU);
    EXPECT_EQ(reader.little<2>(), 0x1234U);
    EXPECT_THAT(reader.rest(), ElementsAre(7));
    EXPECT_FALSE(reader.isShort());
    EXPECT_EQ(reader.big<2>(), 0U);
    EXPECT_TRUE(reader.isShort());
    EXPECT_THAT(reader.bytes(1), ElementsAre()) << "nothing after what was missing";

    util::BigEndian<3> number{};
    number.set(static_cast<BU_U64>(-0x123456));
    EXPECT_THAT(number.au8, ElementsAre(0xED, 0xCB, 0xAA));
    EXPECT_EQ(number.getSigned(), -0x123456);
    util::LittleEndian<8> large{};
    large.set(0x8000'0000'0000'0001);
    EXPECT_EQ(large.getSigned(), INT64_MIN + 1);
    constexpr std::array<BU_U8, 5> PELCO_D{0x01, 0x00, 0x4B, 0x20, 0xFF}, PELCO_P{0xA0, 0x00, 0x00, 0x04, 0xAF};
    EXPECT_EQ(util::sumOf(PELCO_D), 0x6B);
    EXPECT_EQ(util::xorOf(PELCO_P), 0x0B);
}
} // namespace
