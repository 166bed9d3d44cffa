// Properties that hold for every setting, whatever its row says.
#include "camera/image.h"
#include "camera/zoom.h"
#include "settingsTest.h"

#include <climits>
#include <thread>

using testing::ElementsAre;

namespace
{
constexpr const BU_CHAR *STORE = "/cfg0/settings.db";

} // namespace

using Settings = PlatformTest;

TEST_F(Settings, LimitsHoldForEveryOne)
{
    for (const CFG_SETTING_INFO_S &st : CFG_SETTING_List()) {
        SCOPED_TRACE(st.pcKey);
        const CFG_VALUE_INT_S stRange = rangeOf(st.pcKey);
        ASSERT_LT(stRange.s32Min, stRange.s32Max);
        const bool bClamps = st.pcKey == std::string("GGain"); // its command steps past the ends
        for (BU_S32 i = 0; i < st.s32Pipes; ++i) {
            EXPECT_EQ(CFG_SETTING_Set(st.pcKey, i, stRange.s32Min, BU_FALSE, BU_FALSE), 0);
            EXPECT_EQ(CFG_SETTING_Set(st.pcKey, i, stRange.s32Max, BU_FALSE, BU_TRUE), 0);
            EXPECT_EQ(CFG_SETTING_Set(st.pcKey, i, stRange.s32Max + 1, BU_TRUE, BU_TRUE), bClamps ? 0 : -1);
            EXPECT_EQ(running(st.pcKey, i), stRange.s32Max);
            EXPECT_EQ(CFG_SETTING_Set(st.pcKey, i, stRange.s32Min - 1, BU_TRUE, BU_TRUE), bClamps ? 0 : -1);
            EXPECT_EQ(running(st.pcKey, i), bClamps ? stRange.s32Min : stRange.s32Max);
            EXPECT_EQ(CFG_SETTING_Set(st.pcKey, i, INT32_MIN, BU_TRUE, BU_TRUE), -1); // an unknown word
        }
        for (const BU_S32 i : {-1, st.s32Pipes}) {
            BU_S32 s32Untouched = 4711;
            EXPECT_EQ(CFG_SETTING_Get(st.pcKey, i, &s32Untouched, BU_FALSE), -1);
            EXPECT_EQ(s32Untouched, 4711);
            EXPECT_EQ(CFG_SETTING_Set(st.pcKey, i, stRange.s32Def, BU_FALSE, BU_FALSE), -1);
        }
    }
}

TEST_F(Settings, AnEnumerationTakesOnlyWhatTheGetterGave)
{
    tagAE_MODE_E enMode = AE_MODE_E_MANUAL;
    EXPECT_EQ(PTZ_API_GetZoomSpd(0, static_cast<BU_U8 *>(nullptr), BU_FALSE), -1);
    EXPECT_EQ(ISP_API_GetAeMode(2, &enMode), -1);
    EXPECT_EQ(ISP_API_GetAeMode(0, static_cast<tagAE_MODE_E *>(nullptr)), -1);
    EXPECT_EQ(enMode, AE_MODE_E_MANUAL);
    EXPECT_EQ(ISP_API_GetAeMode(0, &enMode), 0);
    EXPECT_EQ(enMode, AE_MODE_E_AUTO);
}

TEST_F(Settings, EveryStoredOneSurvivesARestartInItsOwnPlace)
{
    ASSERT_EQ(CFG_STORE_Open(STORE), 0);
    CFG_SETTING_Reload();
    const auto listSettings = CFG_SETTING_List();
    const auto valueFor = [](const CFG_SETTING_INFO_S &st, BU_S32 s32Pipe) { // two pipelines never have the same one
        return s32Pipe == 0 ? rangeOf(st.pcKey).s32Max : rangeOf(st.pcKey).s32Min;
    };
    for (const auto &st : listSettings)
        for (BU_S32 i = 0; i < st.s32Pipes; ++i)
            ASSERT_EQ(CFG_SETTING_Set(st.pcKey, i, valueFor(st, i), BU_TRUE, BU_TRUE), 0) << st.pcKey;
    CFG_STORE_Open(STORE);
    CFG_SETTING_Reload();
    for (const auto &st : listSettings)
        for (BU_S32 i = 0; i < st.s32Pipes; ++i) EXPECT_EQ(running(st.pcKey, i), valueFor(st, i)) << st.pcKey;
}

TEST_F(Settings, ValuesBetweenTheWordsOfATableAreRefused)
{
    for (const auto &[pcKey, s32Value] : {std::pair("SpeedAccuracy", 2), {"EinkMode", 253}, {"TallyMode", 5}})
        EXPECT_EQ(CFG_SETTING_Set(pcKey, 0, s32Value, BU_TRUE, BU_TRUE), -1) << pcKey;
}

TEST_F(Settings, FlagsDecideWhatRunsWhatIsStoredAndWhoHears)
{
    // clang-format off
    const struct { const BU_CHAR *pcKey; BU_BOOL bSaveCfg, bUpdate; BU_S32 s32Running, s32Stored; } rows[] = {
        {"Contrast", 0, 0, 1, 0}, // the start applies stored values so
        {"Contrast", 0, 1, 1, 0}, {"Contrast", 1, 0, 1, 1}, {"Contrast", 1, 1, 1, 1},
        {"Mirror", 1, 0, 0, 1}, {"Flip", 1, 0, 0, 1}, {"MountMode", 1, 0, 0, 1}, // the menu: from the next start on
        {"Mirror", 1, 1, 1, 1}, {"Mirror", 0, 0, 0, 0}};
    // clang-format on
    for (const auto &row : rows) {
        SCOPED_TRACE(row.pcKey + std::to_string(row.bSaveCfg) + std::to_string(row.bUpdate));
        CFG_SETTING_Set(row.pcKey, 0, 0, BU_TRUE, BU_TRUE);
        Heard heard;
        EXPECT_EQ(CFG_SETTING_Set(row.pcKey, 0, 1, row.bSaveCfg, row.bUpdate), 0);
        EXPECT_EQ(running(row.pcKey), row.s32Running);
        EXPECT_EQ(stored(row.pcKey), row.s32Stored);
        EXPECT_EQ(running(row.pcKey), row.s32Running); // the question for the stored value changes nothing
        EXPECT_EQ(heard.texts.size(), row.bUpdate ? 1u : 0u);
        CFG_SETTING_Reload();
        EXPECT_EQ(running(row.pcKey), row.s32Stored);
    }
}

TEST_F(Settings, AStoreThatCannotBeWrittenLeavesTheRunningValue)
{
    ISP_API_SetContrast(0, 3, BU_TRUE, BU_TRUE);
    journal::inject("CFG_STORE_SetText", -1);
    EXPECT_EQ(ISP_API_SetContrast(0, 9, BU_TRUE, BU_TRUE), -1);
    EXPECT_EQ(running("Contrast"), 9);
    EXPECT_EQ(stored("Contrast"), 3);
    EXPECT_EQ(ISP_API_SetContrast(0, 9, BU_TRUE, BU_TRUE), 0); // and is tried again
    EXPECT_EQ(stored("Contrast"), 9);
}

TEST_F(Settings, AStoredValueOutsideItsRangeCountsAsNone)
{
    CFG_STORE_SetTexts({{"Image0/Contrast", "15"}, {"Image0/Brightness", "seven"}, {"PanTilt0/SpeedAccuracy", "11"}});
    CFG_SETTING_Reload();
    for (const BU_CHAR *pcKey : {"Contrast", "Brightness", "SpeedAccuracy"})
        EXPECT_EQ(rangeOf(pcKey).s32Cur, rangeOf(pcKey).s32Def) << pcKey;
}

TEST_F(Settings, AListenerMayChangeSettingsAndGoAway)
{
    static BU_S32 s32Listener;
    s32Listener = CFG_SETTING_Listen([](const CFG_SETTING_EVENT_S &st) {
        CFG_SETTING_Unlisten(s32Listener);
        ISP_API_SetBrightness(0, st.s32Value, BU_TRUE, BU_TRUE);
    });
    Heard heard;
    ISP_API_SetContrast(0, 9, BU_TRUE, BU_TRUE);
    ISP_API_SetContrast(1, 10, BU_TRUE, BU_TRUE);
    EXPECT_THAT(heard.texts, ElementsAre("Brightness/0=9", "Contrast/0=9", "Contrast/1=10"));
    EXPECT_EQ(CFG_SETTING_Unlisten(s32Listener), -1);
}

TEST_F(Settings, OfManyWritersOneLeavesItsValueInMemoryAndStore)
{
    std::vector<std::jthread> threads;
    for (BU_S32 i = 0; i < 4; ++i)
        threads.emplace_back([i] {
            for (BU_S32 n = 0; n < 50; ++n) ISP_API_SetRGain(0, i * 50 + n, BU_TRUE, BU_TRUE);
        });
    threads.clear();
    const BU_S32 s32Running = running("RGain");
    EXPECT_EQ(stored("RGain"), s32Running);
    CFG_SETTING_Reload();
    EXPECT_EQ(running("RGain"), s32Running);
}

TEST_F(Settings, KeysThatNobodyHasAreRefused)
{
    BU_S32 s32Value = 0;
    CFG_VALUE_INT_S stRange{};
    for (const BU_CHAR *pcKey : {"", "contrast", "Contrast ", "A", "zzz", static_cast<const BU_CHAR *>(nullptr)}) {
        EXPECT_EQ(CFG_COM_GetIntParams(pcKey, &stRange), -1);
        EXPECT_EQ(ISP_AF_GetDefVal(pcKey, &s32Value), -1);
        EXPECT_EQ(CFG_SETTING_Set(pcKey, 0, 0, BU_FALSE, BU_FALSE), -1);
    }
}
