// Byte images of the payloads: where each field lies, what all of them share, and the packed one by hand.
#include "support/place.h"
#include "web/events.h"

#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <fstream>
#include <malloc.h>
#include <map>
#include <memory>
#include <random>
#include <sstream>
#include <vector>

using web_layout::Field;
using web_layout::Kind;

namespace
{
struct Three {
    BU_S32 a, b, c;
};
struct Hole {
    BU_S32 first, forgotten;
    Three three;
};
} // namespace
WEB_FIELDS(Three, WEB_FIELD(a, 0), WEB_FIELD(b, 4), WEB_FIELD(c, 8));
WEB_FIELDS(Hole, WEB_FIELD(first, 0), WEB_FIELD(three, 8));
static_assert(web_layout::complete<Three>(0) && !web_layout::complete<Hole>(0));

namespace
{
typedef std::vector<BU_CHAR> Image;
typedef std::unique_ptr<WEB_RPC_PAYLOAD_S> Payload;
constexpr BU_CHAR UNTOUCHED = '\xEE';

Image dump(WEB_RPC_PAYLOAD_S &payload)
{
    Image image(payload.getSize(), UNTOUCHED);
    payload.dumpBytes(image.data(), static_cast<unsigned int>(image.size()));
    return image;
}

bool isPacked(const WEB_EVENT_PAYLOAD_S &st)
{
    return st.pstRecord == &web_layout::RECORD<tag_WEB_RPC_ETHERNET_PAYLOAD_S>;
}

std::map<std::string, WEB_EVENT_PAYLOAD_S> payloads()
{
    std::map<std::string, WEB_EVENT_PAYLOAD_S> map;
    for (const WEB_EVENT_S &stEvent : WEB_EVENTS)
        for (const WEB_EVENT_PAYLOAD_S &st : {stEvent.stRequest, stEvent.stResponse}) map.emplace(st.pcName, st);
    return map;
}

/// "s32Id@12 i4": the field, its place in the image, its kind and its bytes.
std::string describe(const Field &st)
{
    std::string strText = std::string(st.pcName) + "@" + std::to_string(st.u32Image) + " " +
                          "iufbtrv"[static_cast<int>(st.enKind)] + std::to_string(st.u32Size);
    if (st.u32Count > 1) strText += "x" + std::to_string(st.u32Count);
    if (st.enKind != Kind::RECORD && st.enKind != Kind::VARIANT) return strText;
    std::string strParts;
    if (st.pstRecord)
        for (const Field &stPart : st.pstRecord->fields) strParts += " " + describe(stPart);
    else
        for (const auto &[s32Selector, stPart] : st.pstVariant->alternatives)
            strParts += "\n  " + std::to_string(s32Selector) + ": " + describe(stPart);
    return strText + " {" + strParts + " }";
}

/// The images never change: other programs know them.
TEST(EveryPayload, HasItsFieldsWhereTheyHaveAlwaysBeen)
{
    std::string strText;
    for (const auto &[strName, st] : payloads()) {
        strText += strName + " " + std::to_string(st.pstRecord->u32Image) + ":";
        for (const Field &stField : st.pstRecord->fields) strText += " " + describe(stField);
        strText += "\n";
    }
    std::stringstream expected;
    expected << std::ifstream(place::source("tests/app/web/payloads.txt")).rdbuf();
    EXPECT_EQ(strText, expected.str());
}

/// Marks the bytes of the image that the fields take.
void mark(const web_layout::Record &stRecord, BU_U32 u32At, std::vector<bool> &listed)
{
    for (const Field &st : stRecord.fields)
        for (BU_U32 n = 0; n < st.u32Count; ++n) {
            const BU_U32 u32Begin = u32At + st.u32Image + n * st.u32Size;
            if (st.enKind == Kind::RECORD)
                mark(*st.pstRecord, u32Begin, listed);
            else
                std::fill_n(listed.begin() + u32Begin, st.u32Size, true);
        }
}

TEST(EveryPayload, GivesBackItsFieldsAndLeavesTheBytesBetweenThem)
{
    std::minstd_rand random;
    mallopt(M_PERTURB, UNTOUCHED); // fresh memory is not zero
    for (const auto &[strName, st] : payloads()) {
        SCOPED_TRACE(strName);
        if (isPacked(st)) continue;
        std::vector<bool> listed(st.pstRecord->u32Image);
        mark(*st.pstRecord, 0, listed);
        Image sent(st.pstRecord->u32Image);
        for (int round = 0; round < 20; ++round) { // the first: as it is when fresh, all zero
            const Payload payload(st.fnCreate()), again(st.fnCreate());
            if (round > 0) payload->loadBytes(sent.data(), 0);
            Image given = dump(*payload);
            again->loadBytes(given.data(), 0);
            EXPECT_EQ(dump(*again), given);
            for (std::size_t i = 0; i < given.size(); ++i)
                if (round == 0 || !listed[i]) {
                    EXPECT_EQ(given[i], listed[i] ? 0 : UNTOUCHED) << "byte " << i;
                }
            for (const Field &stField : st.pstRecord->fields) { // in the object everything lies where the list says
                if (stField.enKind == Kind::RECORD) continue;
                const BU_CHAR *pcField = reinterpret_cast<const BU_CHAR *>(payload.get()) + stField.u32Offset;
                EXPECT_EQ(std::memcmp(pcField, &sent[stField.u32Image], stField.u32Size), 0) << stField.pcName;
                EXPECT_EQ(std::memcmp(pcField, &given[stField.u32Image], stField.u32Size), 0) << stField.pcName;
            }
            for (BU_CHAR &c : sent) c = static_cast<BU_CHAR>(random());
        }
    }
}

TEST(PayloadImage, AreaSwitchesAreBytes)
{
    Image image(248);
    image[20 + 28] = 1;
    image[20 + 2 * 28] = '\x80'; // any bit switches it on
    image[20 + 2 * 28 + 1] = 1;  // padding
    image[20 + 3 * 28 + 2] = 1;
    tag_WEB_RPC_AREA_PAYLOAD_S area;
    area.loadBytes(image.data(), 248);
    for (int i = 0; i < 4; ++i) EXPECT_EQ(area.areas[i].enable, i == 1 || i == 2) << i;
    EXPECT_EQ(dump(area)[20 + 2 * 28], 1);
}

TEST(PayloadImage, ANetworkCardIsPackedIntoFortyOneBytes)
{
    tag_WEB_RPC_ETHERNET_PAYLOAD_S card;
    card.s32Index = 2;
    card.bEnabled = 4; // any number that is not 0
    card.bAutoDns = BU_TRUE;
    // clang-format off
    for (auto &[pcField, pcText] : {std::pair{card.ipaddr, "192.168.1.200"}, {card.netmask, "255.255.255.0"},
                                    {card.gateway, "not one"}, {card.dns1, "8.8.4.4"}, {card.dns2, "1.2.3.256"}})
        // clang-format on
        std::strcpy(pcField, pcText);
    std::memset(card.interface, 'e', sizeof card.interface); // a full array has no terminator
    std::string strExpected(
        "\x05\x02\0\0\0\xC0\xA8\x01\xC8\xFF\xFF\xFF\0\xEE\xEE\xEE\xEE\x08\x08\x04\x04\xEE\xEE\xEE\xEE", 25);
    strExpected += std::string(16, 'e');
    Image image = dump(card);
    EXPECT_EQ(std::string(image.begin(), image.end()), strExpected);

    strExpected[0] = '\xFF'; // only three flags count
    tag_WEB_RPC_ETHERNET_PAYLOAD_S loaded;
    loaded.loadBytes(strExpected.data(), 41);
    EXPECT_TRUE(loaded.bEnabled == 1 && loaded.bDhcp == 1 && loaded.bAutoDns == 1 && loaded.s32Index == 2);
    EXPECT_STREQ(loaded.ipaddr, "192.168.1.200");
    EXPECT_STREQ(loaded.gateway, "238.238.238.238");
    EXPECT_EQ(std::string(loaded.interface, 16), std::string(16, 'e'));

    card.s32Index = -1; // no card: nothing but its switches
    image = dump(card);
    EXPECT_EQ(std::string(image.begin(), image.end()), "\5\xFF\xFF\xFF\xFF" + std::string(36, UNTOUCHED));
    tag_WEB_RPC_ETHERNET_PAYLOAD_S none;
    none.loadBytes(image.data(), 41);
    EXPECT_TRUE(none.s32Index == -1 && none.bEnabled == 1);
    for (const BU_CHAR *pc : {none.ipaddr, none.netmask, none.gateway, none.dns1, none.dns2, none.interface})
        EXPECT_STREQ(pc, "");
}

TEST(DottedQuad, IsReadAndWrittenAsTheSystemDoes)
{
    std::vector<std::string> texts{"", "255.255.255.255", "1.2.3.", "1.2.3.-4", "+1.2.3.4", "0x1.2.3.4", "1.2.3.4a"};
    std::minstd_rand random;
    for (int i = 0; i < 20'000; ++i) {
        std::string strText = texts[random() % texts.size()];
        for (BU_U32 n = random() % 3; n > 0; --n)
            strText.insert(random() % (strText.size() + 1), 1, "0123456789. "[random() % 12]);
        texts.push_back(strText.substr(0, 31));
    }
    for (const std::string &strText : texts) {
        BU_CHAR acOurs[4] = {1, 2, 3, 4}, acTheirs[4] = {1, 2, 3, 4}, acTheirText[32];
        const auto ip = base::Ipv4::parse(strText);
        if (ip) ip->toBytes(acOurs);
        ASSERT_EQ(ip.has_value(), inet_pton(AF_INET, strText.c_str(), acTheirs) == 1) << strText;
        ASSERT_EQ(std::memcmp(acOurs, acTheirs, 4), 0) << strText;
        ASSERT_EQ(base::Ipv4::fromBytes(acOurs).text(), inet_ntop(AF_INET, acOurs, acTheirText, sizeof acTheirText));
    }
}
} // namespace
