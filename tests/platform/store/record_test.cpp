// Records: what their fields take, what of a store with nonsense in it counts, what a restore takes back.
#include "store/record.h"

#include "support/platformTest.h"

using namespace std::string_literals;

namespace
{
enum class Mode : BU_S32 { A, B };
struct Inner {
    BU_CHAR acNames[2][4]{};
};
struct Thing {
    BU_U8 u8Switch = 0;
    Mode enMode = Mode::A;
    BU_S32 s32Number = 5;
    std::string strText = "none";
    Inner stInner;
};
constexpr store::Field<Thing> FIELDS[] = {
    store::number<&Thing::u8Switch>("Switch"),
    store::number<&Thing::enMode>("Mode", 0, 1),
    store::number<&Thing::s32Number>("Number", -3, INT32_MAX),
    store::text<&Thing::strText>("Text", 4, [](std::string_view text) { return text != "bad"; }).secret(),
    store::text<&Thing::stInner, &Inner::acNames, 1>("Name", 3),
};
BU_S32 g_s32Reloads, g_s32ReloadResult;
store::Fault faultOf(const Thing &st)
{
    return st.u8Switch && st.s32Number == 0 ? store::Fault("off only") : std::nullopt;
}
const store::Record<Thing> THING{"Test/*/thing/", FIELDS, SYSTEM_RESTORE_E_CONTROL,
                                 [] { return ++g_s32Reloads, g_s32ReloadResult; }, faultOf};
const store::Record<Thing> OTHER{"Test/*/other/", FIELDS, SYSTEM_RESTORE_E_CONTROL};

struct Record : PlatformTest {
    static std::string stored(const std::string &strKey)
    {
        std::string strValue = "-";
        CFG_STORE_GetText(strKey.c_str(), &strValue);
        return strValue;
    }
};

TEST_F(Record, IsStoredFieldByFieldInTheSectionOfItsInstance)
{
    Thing st{1, Mode::B, -3, "\"x\"", {{"no", "yes"}}};
    EXPECT_EQ(THING.save(st, "7"), 0);
    std::string strStored;
    for (const auto *pcKey : {"Switch", "Mode", "Number", "Text", "Name"})
        strStored += stored("Test/7/thing/"s + pcKey) + ' ';
    EXPECT_EQ(strStored, "1 1 -3 \"x\" yes ");
    st.stInner = {{"", "yes"}};
    EXPECT_EQ(THING.journalText(THING.load("7")), R"({1, 1, -3, "***", "yes"})");
    EXPECT_EQ(THING.load("7").strText, "\"x\"");
    EXPECT_STREQ(THING.load("7").stInner.acNames[0], "");
    EXPECT_EQ(OTHER.load("7").s32Number, 5);
    EXPECT_EQ(THING.load("8", {0, Mode::B, 9, "f", {}}).s32Number, 9) << "the factory's";
}

// clang-format off
// One row a limit, both ways: what is not taken is not stored, and not used where it is stored all the same.
TEST_F(Record, LimitsHoldBothWays)
{
    const struct { std::string strKey, strValue; bool bTaken; } rows[] = {
        {"Switch", "2", false}, {"Switch", "-1", false}, {"Mode", "2", false}, {"Number", "-4", false},
        {"Number", "0", true}, {"Number", "2147483647", true}, {"Number", "2147483648", false},
        {"Number", "", false}, {"Number", "5x", false}, {"Text", "", true}, {"Text", "four", true},
        {"Text", "fives", false}, {"Text", "bad", false}, {"Text", "a\n", false}, {"Text", "\x7F", false},
        {"Name", "abc", true}, {"Name", "abcd", false}, {"NoField", "1", false},
    };
    for (const auto &[strKey, strValue, bTaken] : rows) {
        const std::string strFolder = "Test/1/thing/", strOther = strKey == "Mode" ? "Switch" : "Mode"; // its neighbour
        SCOPED_TRACE(strKey + ' ' + strValue);
        CFG_STORE_Open(nullptr);
        EXPECT_EQ(THING.put({{strOther, "1"}, {strKey, strValue}}, "1"), bTaken ? 0 : -1);
        EXPECT_EQ(stored(strFolder + strKey), bTaken ? strValue : "-");
        EXPECT_EQ(stored(strFolder + strOther), bTaken ? "1" : "-") << "all or none";
        CFG_STORE_SetTexts({{strFolder + strKey, strValue}, {strFolder + strOther, "1"}});
        const Thing st = THING.load("1");
        EXPECT_EQ(strOther == "Mode" ? st.enMode == Mode::B : st.u8Switch == 1, true) << "the neighbour counts";
        EXPECT_TRUE(bTaken || (st.s32Number == 5 && st.strText == "none" && (strKey == "Mode" || st.u8Switch == 0)));
    }
}

// clang-format on

TEST_F(Record, ARuleTakesTheWholeOrNothing)
{
    const Thing stGood{0, Mode::B, 0, "g", {}}, stBad{1, Mode::A, 0, "b", {}};
    EXPECT_EQ(THING.save(stGood, "1"), 0);
    EXPECT_EQ(THING.save(stBad, "1"), -1);
    EXPECT_EQ(THING.check(stBad), -1);
    EXPECT_EQ(THING.save({0, static_cast<Mode>(2), 1, "b", {}}, "1"), -1) << "a limit";
    EXPECT_EQ(THING.load("1").strText, "g");
    CFG_STORE_SetText("Test/1/thing/Switch", "1");
    EXPECT_EQ(THING.load("1").enMode, Mode::A) << "the factory's record";
    journal::inject("CFG_STORE_SetTexts", -1); // a full disk
    EXPECT_EQ(THING.save(stGood, "1"), -1);
}

TEST_F(Record, ARestoreTakesTheSectionsBackAndReloadsOnce)
{
    const auto restore = [](BU_S32 s32Bits) {
        CFG_STORE_SetTexts({{"Test/1/thing/Text", "a"}, {"Test/1/other/Text", "b"}, {"Tes", "c"}});
        g_s32Reloads = 0;
        return store::restore(s32Bits);
    };
    EXPECT_EQ(restore(SYSTEM_RESTORE_E_ALL & ~SYSTEM_RESTORE_E_CONTROL), 0);
    EXPECT_EQ(stored("Test/1/thing/Text") + stored("Test/1/other/Text"), "ab");
    EXPECT_EQ(g_s32Reloads, 0);
    EXPECT_EQ(restore(SYSTEM_RESTORE_E_CONTROL | SYSTEM_RESTORE_E_PTZ), 0);
    EXPECT_EQ(stored("Test/1/thing/Text") + stored("Test/1/other/Text") + stored("Tes"), "--c");
    EXPECT_EQ(g_s32Reloads, 1);
    journal::inject("CFG_STORE_Erase", -1);
    EXPECT_EQ(restore(SYSTEM_RESTORE_E_CONTROL), -1) << "not written";
    g_s32ReloadResult = -1;
    EXPECT_EQ(restore(SYSTEM_RESTORE_E_CONTROL), -1) << "not reloaded";
    g_s32ReloadResult = 0;
}
} // namespace
