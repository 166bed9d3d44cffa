// Byte images of the payloads: what all of them share, and the odd ones against hand-made bytes.
#include "web/events.h"

#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <memory>
#include <random>
#include <vector>

using web_layout::Field;
using web_layout::Kind;

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

bool isPacked(const WEB_EVENT_PAYLOAD_S &st)
{
    return st.pstRecord == &web_layout::RECORD<tag_WEB_RPC_ETHERNET_PAYLOAD_S>;
}

std::vector<bool> listedBytes(const WEB_EVENT_PAYLOAD_S &st)
{
    std::vector<bool> listed(st.pstRecord->u32Image, isPacked(st));
    if (!isPacked(st)) mark(*st.pstRecord, 0, listed);
    return listed;
}

/// Leaves blocks of every size a payload may have, full of other things, for the next allocations.
void soilHeap()
{
    for (std::size_t size = 16; size <= 1024; size += 16) {
        void *pvBlock = std::malloc(size);
        std::memset(pvBlock, UNTOUCHED, size);
        asm volatile("" : : "r"(pvBlock) : "memory"); // keeps the fill
        std::free(pvBlock);
    }
}

std::vector<WEB_EVENT_PAYLOAD_S> payloads()
{
    std::vector<WEB_EVENT_PAYLOAD_S> list;
    for (const WEB_EVENT_S &stEvent : WEB_EVENTS)
        for (const WEB_EVENT_PAYLOAD_S &st : {stEvent.stRequest, stEvent.stResponse})
            if (std::ranges::find(list, st.pstRecord, &WEB_EVENT_PAYLOAD_S::pstRecord) == list.end())
                list.push_back(st);
    return list;
}

TEST(EveryPayload, IsZeroWhenFreshAndLeavesTheBytesBetweenItsFields)
{
    for (const WEB_EVENT_PAYLOAD_S &st : payloads()) {
        SCOPED_TRACE(st.pcName);
        soilHeap();
        const Payload payload(st.fnCreate());
        Image expected(st.pstRecord->u32Image, UNTOUCHED);
        const std::vector<bool> listed = listedBytes(st);
        for (std::size_t i = 0; i < expected.size(); ++i)
            if (listed[i]) expected[i] = 0;
        if (isPacked(st)) std::fill_n(expected.begin() + 5, 20, UNTOUCHED); // an empty text is no address
        EXPECT_EQ(dump(*payload), expected);
    }
}

TEST(EveryPayload, GivesBackWhatItWasLoadedWith)
{
    std::minstd_rand random;
    for (const WEB_EVENT_PAYLOAD_S &st : payloads())
        for (int round = 0; round < 50; ++round) {
            SCOPED_TRACE(st.pcName);
            Image sent(st.pstRecord->u32Image);
            for (BU_CHAR &c : sent) c = static_cast<BU_CHAR>(random());
            const Payload payload(st.fnCreate()), again(st.fnCreate());
            payload->loadBytes(sent.data(), 0);
            Image given = dump(*payload);
            again->loadBytes(given.data(), 0);
            EXPECT_EQ(dump(*again), given);
            const std::vector<bool> listed = listedBytes(st);
            for (std::size_t i = 0; i < given.size(); ++i)
                if (!listed[i] && given[i] != UNTOUCHED) ADD_FAILURE() << "byte " << i;
            for (const Field &stField : st.pstRecord->fields) { // in the object everything lies where the list says
                if (isPacked(st) || stField.enKind == Kind::RECORD) continue;
                const BU_CHAR *pcField = reinterpret_cast<const BU_CHAR *>(payload.get()) + stField.u32Offset;
                EXPECT_EQ(std::memcmp(pcField, &sent[stField.u32Image], stField.u32Size), 0) << stField.pcName;
                EXPECT_EQ(std::memcmp(pcField, &given[stField.u32Image], stField.u32Size), 0) << stField.pcName;
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
    image[20 + 7 * 28 + 24] = 9;
    tag_WEB_RPC_AREA_PAYLOAD_S area;
    area.loadBytes(image.data(), 248);
    const std::vector<int> enabled{area.areas[0].enable, area.areas[1].enable, area.areas[2].enable,
                                   area.areas[3].enable};
    EXPECT_EQ(enabled, (std::vector{0, 1, 1, 0}));
    EXPECT_EQ(area.areas[7].preset, 9);
    const Image dumped = dump(area);
    EXPECT_EQ((Image{dumped.begin() + 20 + 2 * 28, dumped.begin() + 20 + 2 * 28 + 4}),
              (Image{1, UNTOUCHED, UNTOUCHED, UNTOUCHED}));
    EXPECT_EQ(dumped[244], UNTOUCHED); // behind the last area
}

TEST(PayloadImage, PanelResponseHasAHoleBeforeItsBitmap)
{
    tag_WEB_RPC_PANEL_RES_PAYLOAD_S res;
    res.bEnabled = BU_TRUE;
    res.s32Value = -2;
    res.s32SideEffectBitmap = 0x8000000000000200;
    const Image head(8, UNTOUCHED), hole(4, UNTOUCHED);
    Image expected = head;
    for (const Image &part :
         {Image{1, 0, 0, 0, 0, 0, 0, 0, '\xFE', '\xFF', '\xFF', '\xFF'}, hole, Image{0, 2, 0, 0, 0, 0, 0, '\x80'}})
        expected.insert(expected.end(), part.begin(), part.end());
    EXPECT_EQ(dump(res), expected);
}

/// A field of a compact payload and where its bytes are.
struct tagCOMPACT_S {
    const BU_CHAR *pcName;
    BU_U32 u32Size, u32At;
    std::string strBytes;
    Image (*fnDump)();
};
template <class T> Image dumped(void (*fnFill)(T &))
{
    T payload;
    fnFill(payload);
    return dump(payload);
}
const tagCOMPACT_S COMPACT[] = {
    {"a type", 16, 0, "\x08",
     [] {
         return dumped<tag_WEB_RPC_CONTROL_REQ_PAYLOAD_S>([](auto &p) { p.eControlType = WEB_CONTROL_TYPE_E_FreeD; });
     }},
    {"the text behind three bytes", 60, 16 + 6,
     "\x01"
     "10.0.0.1",
     [] {
         return dumped<tag_WEB_RPC_CONTROL_DATA_PAYLOAD_S>([](auto &p) {
             p.data.stVisca.bWorkMode = 1;
             std::strcpy(p.data.stVisca.bAddress, "10.0.0.1");
         });
     }},
    {"the last byte of the FreeD address", 60, 59, "z",
     [] { return dumped<tag_WEB_RPC_CONTROL_DATA_PAYLOAD_S>([](auto &p) { p.data.stFreeD.ip_addr[31] = 'z'; }); }},
    {"the colour space", 32, 28, "\x03",
     [] { return dumped<tag_WEB_RPC_GENERAL_PAYLOAD_S>([](auto &p) { p.data.stHdmi.s32Cs = HDMI_CS_E_YUV420; }); }},
    {"an index", 16, 8, "\x04",
     [] { return dumped<tag_WEB_RPC_MEDIA_REQ_PAYLOAD_S>([](auto &p) { p.s32Index = 4; }); }},
    {"the state of RTMP", 876, 16 + 844, "\x07",
     [] { return dumped<tag_WEB_RPC_MEDIA_DATA_PAYLOAD_S>([](auto &p) { p.data.stRtmp.s32Status = 7; }); }},
    {"the last byte of a channel's data", 876, 875, "\x09",
     [] { return dumped<tag_WEB_RPC_MEDIA_DATA_PAYLOAD_S>([](auto &p) { p.data.acRaw[859] = 9; }); }},
    {"the last number of NDI, and nothing behind it", 876, 16 + 272, std::string("\x05\0\0\0\xEE\xEE", 6),
     [] { return dumped<tag_WEB_RPC_MEDIA_DATA_GLOBAL_PAYLOAD_S>([](auto &p) { p.data.stNdi.sMulticastTTL = 5; }); }},
};

TEST(PayloadImage, CompactFormsPutTheTypeAtTheBeginningAndTheDataAtSixteen)
{
    for (const auto &st : COMPACT) {
        const Image image = st.fnDump();
        ASSERT_EQ(image.size(), st.u32Size) << st.pcName;
        EXPECT_EQ(std::string(&image[st.u32At], st.strBytes.size()), st.strBytes) << st.pcName;
        EXPECT_EQ(std::string(&image[4], 4), "\xEE\xEE\xEE\xEE") << st.pcName;
        EXPECT_EQ(std::string(&image[12], 4), "\xEE\xEE\xEE\xEE") << st.pcName;
    }
}

TEST(PayloadImage, ANetworkCardIsPackedIntoFortyOneBytes)
{
    tag_WEB_RPC_ETHERNET_PAYLOAD_S card;
    card.s32Index = 2;
    card.bEnabled = card.bAutoDns = BU_TRUE;
    for (auto &[pcField, pcText] : {std::pair{card.ipaddr, "192.168.1.200"},
                                    {card.netmask, "255.255.255.0"},
                                    {card.gateway, "not one"},
                                    {card.dns1, "8.8.4.4"},
                                    {card.dns2, "1.2.3.256"}})
        std::strcpy(pcField, pcText);
    std::memset(card.interface, 'e', sizeof card.interface); // a full array has no terminator
    std::string strExpected = "\x05" + std::string("\x02\0\0\0", 4) + "\xC0\xA8\x01\xC8" +
                              std::string("\xFF\xFF\xFF\0", 4) +
                              "\xEE\xEE\xEE\xEE"
                              "\x08\x08\x04\x04"
                              "\xEE\xEE\xEE\xEE" +
                              std::string(16, 'e');
    const Image image = dump(card);
    EXPECT_EQ(std::string(image.begin(), image.end()), strExpected);

    strExpected[0] = '\xFF'; // only three flags count
    tag_WEB_RPC_ETHERNET_PAYLOAD_S loaded;
    loaded.loadBytes(strExpected.data(), 41);
    EXPECT_TRUE(loaded.bEnabled == 1 && loaded.bDhcp == 1 && loaded.bAutoDns == 1 && loaded.s32Index == 2);
    EXPECT_STREQ(loaded.ipaddr, "192.168.1.200");
    EXPECT_STREQ(loaded.gateway, "238.238.238.238");
    EXPECT_EQ(std::string(loaded.interface, 16), std::string(16, 'e'));
}

TEST(PayloadImage, ANegativeIndexDescribesNoNetworkCard)
{
    tag_WEB_RPC_ETHERNET_PAYLOAD_S card;
    card.s32Index = -1;
    card.bDhcp = 4; // any number that is not 0
    std::strcpy(card.ipaddr, "10.0.0.1");
    Image image = dump(card);
    EXPECT_EQ((Image{image.begin(), image.begin() + 5}), (Image{2, '\xFF', '\xFF', '\xFF', '\xFF'}));
    EXPECT_EQ((Image{image.begin() + 5, image.end()}), Image(36, UNTOUCHED));
    tag_WEB_RPC_ETHERNET_PAYLOAD_S loaded;
    loaded.loadBytes(image.data(), 41);
    EXPECT_TRUE(loaded.s32Index == -1 && loaded.bDhcp == 1);
    for (const BU_CHAR *pcText : {loaded.ipaddr, loaded.netmask, loaded.gateway, loaded.dns1, loaded.dns2})
        EXPECT_STREQ(pcText, "");
    EXPECT_STREQ(loaded.interface, "");
}

TEST(DottedQuad, IsReadAndWrittenAsTheSystemDoes)
{
    std::vector<std::string> texts{"",          ".",          "0.0.0.0",  "255.255.255.255", "1.2.3",    "1.2.3.",
                                   "1.2.3.4.",  "1.2.3.4.5",  ".1.2.3.4", "1..2.3",          "01.2.3.4", "1.2.3.00",
                                   "256.1.1.1", "1.2.3.1000", "1.2.3.-4", "+1.2.3.4",        " 1.2.3.4", "1.2.3.4 ",
                                   "0x1.2.3.4", "1.2.3.4a",   "127.0.0.1"};
    std::minstd_rand random;
    for (int i = 0; i < 20'000; ++i) {
        std::string strText = texts[random() % texts.size()];
        for (BU_U32 n = random() % 3; n > 0; --n)
            strText.insert(random() % (strText.size() + 1), 1, "0123456789. "[random() % 12]);
        texts.push_back(strText.substr(0, 31));
    }
    for (const std::string &strText : texts) {
        BU_CHAR acOurs[4] = {1, 2, 3, 4}, acTheirs[4] = {1, 2, 3, 4}, acText[32], acTheirText[32];
        const bool bRead = web_layout::parseQuad(strText, acOurs);
        ASSERT_EQ(bRead, inet_pton(AF_INET, strText.c_str(), acTheirs) == 1) << strText;
        ASSERT_EQ(std::memcmp(acOurs, acTheirs, 4), 0) << strText;
        web_layout::formatQuad(acOurs, acText);
        ASSERT_STREQ(acText, inet_ntop(AF_INET, acOurs, acTheirText, sizeof acTheirText));
    }
}
} // namespace
