// The store: what survives a kill, what a damaged file leaves, prefixes, presets, threads.
#include "support/platformTest.h"

#include <algorithm>
#include <csignal>
#include <fstream>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using testing::ElementsAre;

namespace
{
constexpr const BU_CHAR *PATH = "/cfg0/settings.db";

struct StoreTest : PlatformTest {
    StoreTest() { EXPECT_EQ(CFG_STORE_Open(PATH), 0); }
    ~StoreTest() override { CFG_STORE_Close(); }

    static BU_S32 number(const BU_CHAR *pcKey)
    {
        BU_S32 s32Value = -1;
        return CFG_STORE_GetInt(pcKey, &s32Value) == 0 ? s32Value : -1;
    }
    /// As after a restart: nothing comes from memory.
    static BU_S32 reopen()
    {
        CFG_STORE_Open(nullptr);
        return CFG_STORE_Open(PATH);
    }
    std::string file(const BU_CHAR *pcSuffix = "") const { return root() + PATH + pcSuffix; }
};

/// Writes settings and presets in a process of its own and tells each acknowledged one through a pipe.
[[noreturn]] void writeUntilKilled(int s32Pipe)
{
    for (BU_S32 s32 = 1;; s32++) {
        const std::string strText = std::to_string(s32);
        const bool bDone = CFG_STORE_SetInt(("Kill/" + strText).c_str(), s32) == 0 &&
                           CFG_STORE_SetText("Kill/Last", strText.c_str()) == 0 &&
                           CFG_STORE_SetPreset({s32, "Preset" + strText, s32, -s32, 3 * s32, 0}) == 0;
        if (!bDone || write(s32Pipe, &s32, sizeof(s32)) != sizeof(s32)) _exit(1);
    }
}

TEST_F(StoreTest, KilledProcessLosesNothingThatWasAcknowledged)
{
    CFG_STORE_Close();
    int as32Pipe[2];
    ASSERT_EQ(pipe(as32Pipe), 0);
    const pid_t pid = fork();
    if (pid == 0) writeUntilKilled(as32Pipe[1]);
    close(as32Pipe[1]);
    BU_S32 s32Acknowledged = 0;
    while (s32Acknowledged < 100 && read(as32Pipe[0], &s32Acknowledged, sizeof(s32Acknowledged)) > 0) {}
    kill(pid, SIGKILL);
    waitpid(pid, nullptr, 0);
    while (read(as32Pipe[0], &s32Acknowledged, sizeof(s32Acknowledged)) > 0) {}
    close(as32Pipe[0]);
    ASSERT_EQ(CFG_STORE_Open(PATH), 0);
    ASSERT_GE(s32Acknowledged, 100);
    EXPECT_GE(number("Kill/Last"), s32Acknowledged);
    for (BU_S32 s32 = 1; s32 <= s32Acknowledged; s32++) {
        ASSERT_EQ(number(("Kill/" + std::to_string(s32)).c_str()), s32);
        CFG_PRESET_S stPreset;
        ASSERT_EQ(CFG_STORE_GetPreset(s32, &stPreset), 0);
        ASSERT_EQ(stPreset, (CFG_PRESET_S{s32, "Preset" + std::to_string(s32), s32, -s32, 3 * s32, 0}));
    }
}

TEST_F(StoreTest, NumbersAreOnlyWhatIsOneWhole)
{
    const std::pair<const BU_CHAR *, BU_S32> rows[] = {
        {"2147483647", 0}, {"-2147483648", 0}, {"2147483648", -1}, {"", -1}, {"12x", -1}, {" 1", -1}, {"on", -1}};
    for (const auto &[pcText, s32Expected] : rows) {
        BU_S32 s32Value = 77;
        ASSERT_EQ(CFG_STORE_SetText("A/b", pcText), 0);
        EXPECT_EQ(CFG_STORE_GetInt("A/b", &s32Value), s32Expected) << pcText;
        EXPECT_EQ(s32Value, s32Expected == 0 ? static_cast<BU_S32>(std::stol(pcText)) : 77) << "untouched on failure";
    }
}

TEST_F(StoreTest, NothingIsDoneWithNothing)
{
    ASSERT_EQ(CFG_STORE_SetInt("A/b", 1) + CFG_STORE_SetPreset({1, "x", 0, 0, 0, 0}), 0);
    EXPECT_THAT((std::vector{CFG_STORE_SetText(nullptr, "x"), CFG_STORE_SetText("A/b", nullptr),
                             CFG_STORE_GetText("A/b", nullptr), CFG_STORE_GetInt("A/b", nullptr),
                             CFG_STORE_GetInt(nullptr, nullptr), CFG_STORE_GetPreset(1, nullptr)}),
                testing::Each(-1));
    EXPECT_EQ(number("A/b"), 1);
}

TEST_F(StoreTest, EraseTakesThePrefixAndNothingElse)
{
    const BU_CHAR *apcKeys[] = {"Image0/Gain", "Image0/Gai%", "Image1/Gain", "image0/Gain", "Image", "I_age0/x"};
    for (const BU_CHAR *pcKey : apcKeys) ASSERT_EQ(CFG_STORE_SetInt(pcKey, 5), 0);
    ASSERT_EQ(CFG_STORE_SetPreset({3, "three", 1, 2, 3, 4}), 0);
    ASSERT_EQ(CFG_STORE_Erase("Image0/"), 0);
    const auto values = [&] {
        std::vector<BU_S32> list;
        for (const BU_CHAR *pcKey : apcKeys) list.push_back(number(pcKey));
        return list;
    };
    EXPECT_THAT(values(), ElementsAre(-1, -1, 5, 5, 5, 5));
    reopen();
    EXPECT_THAT(values(), ElementsAre(-1, -1, 5, 5, 5, 5));
    ASSERT_EQ(CFG_STORE_Erase(""), 0);
    reopen();
    EXPECT_THAT(values(), testing::Each(-1));
    EXPECT_EQ(CFG_STORE_ListPresets().size(), 1u) << "presets are no settings";
}

TEST_F(StoreTest, PresetsComeBackByNumber)
{
    const CFG_PRESET_S stHome{-1, "home \"0\"", 1, 2, 3, 4}, stSecond{2, "zwei \xC3\xBC", -5, INT32_MIN, INT32_MAX, 0};
    for (const CFG_PRESET_S &st : {stSecond, {9, "nine", 0, 0, 0, 0}, {-1, "earlier", 0, 0, 0, 0}, stHome})
        ASSERT_EQ(CFG_STORE_SetPreset(st), 0);
    for (int i = 0; i < 2; ++i) EXPECT_EQ(CFG_STORE_DeletePreset(9), 0); // the second time there is none any more
    reopen();
    EXPECT_THAT(CFG_STORE_ListPresets(), ElementsAre(stHome, stSecond));
    CFG_PRESET_S stPreset;
    EXPECT_EQ(CFG_STORE_GetPreset(9, &stPreset), -1);
    ASSERT_EQ(CFG_STORE_DeleteAllPresets(), 0);
    reopen();
    EXPECT_THAT(CFG_STORE_ListPresets(), ElementsAre());
}

void overwrite(const std::string &strFile, std::streamoff offset, const std::string &strBytes)
{
    std::fstream stFile(strFile, std::ios::in | std::ios::out | std::ios::binary);
    stFile.seekp(offset);
    stFile << strBytes;
}

TEST_F(StoreTest, ADamagedFileIsSetAsideAndTheStoreStartsEmpty)
{
    void (*const apfnDamages[])(const std::string &) = {
        [](const std::string &s) { std::ofstream(s) << "this is no database, whatever its name says"; },
        [](const std::string &s) { overwrite(s, 0, std::string(100, '\x7F')); },     // the header
        [](const std::string &s) { overwrite(s, 4096, std::string(4096, '\x7F')); }, // a page
        [](const std::string &s) { std::filesystem::resize_file(s, 5000); },
        [](const std::string &s) { overwrite(s, 60, std::string("\0\0\0\x7", 4)); }, // another format
    };
    for (const auto pfnDamage : apfnDamages) {
        SCOPED_TRACE(std::ranges::find(apfnDamages, pfnDamage) - apfnDamages);
        for (BU_S32 s32 = 0; s32 < 200; s32++) CFG_STORE_SetInt(("Some/Key" + std::to_string(s32)).c_str(), s32);
        CFG_STORE_Close();
        std::filesystem::remove(file(".damaged"));
        pfnDamage(file());
        EXPECT_EQ(CFG_STORE_Open(PATH), 0);
        EXPECT_EQ(number("Some/Key7"), -1);
        EXPECT_TRUE(std::filesystem::exists(file(".damaged")));
        EXPECT_EQ(CFG_STORE_SetInt("Some/Key7", 8), 0);
        reopen();
        EXPECT_EQ(number("Some/Key7"), 8);
    }
}

TEST_F(StoreTest, FolderThatCannotBeWrittenMeansMemoryOnlyAndARefusedWriteKeepsTheEarlierValue)
{
    CFG_STORE_Close();
    std::ofstream(root() + "/file") << "";
    EXPECT_EQ(CFG_STORE_Open("/file/settings.db"), -1);
    EXPECT_EQ(CFG_STORE_SetInt("A/b", 3), 0);
    EXPECT_EQ(number("A/b"), 3);
    std::filesystem::create_directories(root() + "/taken/settings.db-wal"); // its log's place is taken: no damage
    EXPECT_EQ(CFG_STORE_Open("/taken/settings.db"), -1);
    EXPECT_FALSE(std::filesystem::exists(root() + "/taken/settings.db.damaged"));
    EXPECT_EQ(CFG_STORE_SetInt("A/b", 3), 0);
    journal::inject("CFG_STORE_SetTexts", -1, 2);
    EXPECT_EQ(CFG_STORE_SetInt("A/b", 4), -1);
    EXPECT_EQ(CFG_STORE_SetTexts({{"A/b", "5"}, {"A/c", "6"}}), -1);
    EXPECT_EQ(number("A/b"), 3);
    EXPECT_EQ(number("A/c"), -1);
}

/// Readers and writers at once, for the thread sanitizer; and the last value of each writer is what is stored.
TEST_F(StoreTest, ThreadsShareIt)
{
    std::vector<std::jthread> threads;
    for (BU_S32 s32Thread = 0; s32Thread < 3; s32Thread++)
        threads.emplace_back([=] {
            const std::string strKey = "Thread/" + std::to_string(s32Thread);
            for (BU_S32 s32 = 1; s32 <= 30; s32++) {
                CFG_STORE_SetTexts({{strKey, std::to_string(s32)}, {"Thread/any", strKey}});
                number("Thread/0");
                CFG_STORE_ListPresets();
            }
        });
    threads.clear();
    reopen();
    for (const BU_CHAR *pcKey : {"Thread/0", "Thread/1", "Thread/2"}) EXPECT_EQ(number(pcKey), 30);
}

TEST_F(FreshDevice, OpensItsStoreAtTheFirstUse)
{
    CFG_STORE_Close();
    EXPECT_EQ(CFG_STORE_SetInt("A/b", 1), 0);
    EXPECT_TRUE(std::filesystem::exists(root() + PATH));
    CFG_STORE_Close();
}
} // namespace
