/// Debug files: what their readers get, and when.
#include "rootFolder.h"
#include "support/await.h"
#include "util/debug.h"

#include <atomic>
#include <cstdio>
#include <future>
#include <gmock/gmock.h>
#include <mutex>

namespace
{
/// Collects what a reader gets and lets the test wait for it. Its readers keep it: they may outlive the test.
class Contents : public std::enable_shared_from_this<Contents>
{
public:
    FN_DEBUG_READER reader()
    {
        return [self = shared_from_this()](std::istream &stIn, void *) -> BU_S32 {
            const std::lock_guard guard(self->m_lock);
            self->m_strLast.assign(std::istreambuf_iterator(stIn), {}), ++self->count;
            return 0;
        };
    }
    void waitFor(const std::string &strContent)
    {
        const auto isThere = [&] {
            const std::lock_guard guard(m_lock);
            return count > 0 && m_strLast == strContent;
        };
        ASSERT_TRUE(await(isThere, std::chrono::seconds(20))) << strContent.substr(0, 40);
    }
    std::atomic<std::size_t> count = 0;

private:
    std::mutex m_lock; // guards the member below
    std::string m_strLast;
};

struct DebugTest : RootTest {
    static BU_S32 open(const std::string &strName, FN_DEBUG_READER fnReader)
    {
        return UTIL_DebugRegister(("/var/debug/app/a/" + strName).c_str(), std::move(fnReader), nullptr);
    }
    void put(const std::string &strName, const std::string &strText) const { write(FOLDER + strName, strText); }
    void move(const std::filesystem::path &from) const { std::filesystem::rename(from, root() + FOLDER + "switch"); }
    const std::string FOLDER = "/var/debug/app/a/";
    const std::shared_ptr<Contents> contents = std::make_shared<Contents>();
};

TEST_F(DebugTest, DeliversRegularFilesWrittenOrMovedIntoPlaceCutAtTheirLimitAndTheLastOfManyRewrites)
{
    ASSERT_EQ(open("switch", contents->reader()), 0);
    put("switch", "1");
    contents->waitFor("1");
    put("other", "moved into place");
    move(root() + FOLDER + "other");
    contents->waitFor("moved into place");
    const std::size_t before = contents->count;
    for (int i = 0; i <= 500; i++) put("switch", std::to_string(i));
    contents->waitFor("500");
    EXPECT_LE(contents->count - before, 501u);
    put("switch", std::string(200000, 'x'));
    contents->waitFor(std::string(65536, 'x'));
    std::ofstream(outside() + "/secret") << "secret";
    std::filesystem::create_symlink(outside() + "/secret", outside() + "/link");
    move(outside() + "/link");
    contents->waitFor("");
}

TEST_F(DebugTest, SecondReaderReplacesTheFirstAndMakingAFileIsNoWrite)
{
    const auto second = std::make_shared<Contents>();
    ASSERT_EQ(open("one", contents->reader()) + open("two", second->reader()) + open("one", second->reader()), 0);
    put("one", "x");
    second->waitFor("x");
    EXPECT_EQ(second->count, 1u);
    EXPECT_EQ(contents->count, 0u);
    for (const BU_CHAR *pcPath : {"/etc/x", "/var/debug/app", "/var/debug/app/../x", "/var/debug/apples/x"})
        EXPECT_EQ(UTIL_DebugRegister(pcPath, contents->reader(), nullptr), -1) << pcPath;
    EXPECT_EQ(open("x", nullptr), -1);
    EXPECT_EQ(*UTIL_DebugRegisterOneInt("/etc/x"), 0) << "never null";
}

/// More writes than the kernel keeps notes of, while the debug thread is busy: the last state still arrives.
TEST_F(DebugTest, LostNotesAreMadeGoodByAScan)
{
    const auto started = std::make_shared<std::promise<void>>(), release = std::make_shared<std::promise<void>>();
    const auto hold = [=](std::istream &, void *) -> BU_S32 {
        started->set_value();
        soon(*release);
        return 0;
    };
    ASSERT_EQ(open("busy", hold) + open("late", contents->reader()), 0);
    put("busy", "1");
    soon(*started);
    BU_S32 s32Limit = 16384;
    std::ifstream("/proc/sys/fs/inotify/max_queued_events") >> s32Limit;
    for (BU_S32 i = 0; i < s32Limit + 100; i++) // two files in turn: notes of the same file in a row become one
        std::fclose(std::fopen((root() + FOLDER + (i % 2 ? "x" : "y")).c_str(), "w"));
    put("late", "arrived");
    release->set_value();
    contents->waitFor("arrived");
}

TEST_F(DebugTest, IntegerKeepsItsValueOverContentThatIsNone)
{
    const auto ps32Value = UTIL_DebugRegisterOneInt("/var/debug/app/a/int");
    ASSERT_EQ(open("after", contents->reader()), 0);
    BU_S32 s32Round = 0;
    for (const auto &[pcText, s32Value] : {std::pair(" -12\n", -12), {"off", -12}, {"", -12}, {"3", 3}}) {
        put("int", pcText);
        put("after", std::to_string(++s32Round));
        contents->waitFor(std::to_string(s32Round)); // one thread reads both, in order
        EXPECT_EQ(*ps32Value, s32Value) << pcText;
    }
}
} // namespace
