/// What the journal writes and injects; the words of a table.
#include "util/journal.h"
#include "util/words.h"

#include <cstdint>
#include <gmock/gmock.h>
#include <iterator>

using testing::ElementsAre;

namespace
{
struct Pair {
    BU_S32 s32First, s32Second;
};
std::string journalText(const Pair &stPair) { return "{" + journal::text(BU_S64{stPair.s32First}) + "}"; }

struct Silent {
};
enum COLOUR_E : BU_S32 { COLOUR_E_RED = 7 };

BU_S32 change(BU_S32 s32Value) { return journal::call("change", s32Value).value_or(s32Value); }
BU_S32 question() { return journal::ask("question").value_or(1); }

struct JournalTest : testing::Test {
    JournalTest() { journal::start(); }
    ~JournalTest() override { journal::stop(); }
};

TEST_F(JournalTest, WritesEveryKindOfArgument)
{
    const Pair stPair{3, 4}, *pstNull = nullptr;
    Silent stSilent;
    const BU_CHAR *pcNull = nullptr;
    journal::call("f");
    journal::call("f", BU_U8{200}, BU_S64{-5}, true, COLOUR_E_RED);
    journal::call("f", 0.25f, "a \"b\"\n", std::string("c").c_str(), pcNull);
    journal::call("f", stPair, &stPair, pstNull, &stSilent, stSilent);
    EXPECT_THAT(journal::effects(), ElementsAre("f()", "f(200, -5, 1, 7)", "f(0.25, \"a \\\"b\\\"\\n\", \"c\", NULL)",
                                                "f({3}, {3}, NULL, &, ?)"));
}

TEST_F(JournalTest, InjectedResultHoldsForItsNumberOfCallsOrUntilItIsStopped)
{
    journal::inject("change", -1, 2);
    journal::inject("question", 5);
    EXPECT_THAT((std::vector{change(3), change(3), change(3), question(), question()}), ElementsAre(-1, -1, 3, 5, 1));
    EXPECT_THAT(journal::effects(), ElementsAre("change(3)", "change(3)", "change(3)"));
    journal::inject("change", -1, 100);
    change(1);
    journal::stop();
    EXPECT_EQ(change(2), 2);
    journal::start();
    EXPECT_EQ(change(4), 4);
    EXPECT_THAT(journal::effects(), ElementsAre("change(4)"));
}

TEST(Words, UnknownOnesAreToldApartFromEveryRow)
{
    constexpr STR2ENUM_MAP_S rows[] = {{"PresetHome", -1}, {"None", -2}, {"On", 1}, {"Also", 1}};
    const auto value = [&](const BU_CHAR *pcWord) { return sysStr2Enum(rows, std::size(rows), pcWord); };
    EXPECT_THAT((std::vector{value("None"), value("PresetHome"), value("Also")}), ElementsAre(-2, -1, 1));
    for (const BU_CHAR *pcWord : {"none", "Non", "None ", "", static_cast<const BU_CHAR *>(nullptr)})
        EXPECT_EQ(value(pcWord), INT32_MIN);
    EXPECT_STREQ(sysEnum2Str(rows, std::size(rows), 1), "On") << "the first row with the value";
    EXPECT_EQ(sysEnum2Str(rows, std::size(rows), 9) + std::string(sysEnum2Str(nullptr, 3, 1)), "");
    EXPECT_EQ(sysStr2Enum(rows, -1, "On"), INT32_MIN);
}
} // namespace
