#include "rootFolder.h"
#include "util/debug.h"

#include <condition_variable>
#include <cstdio>
#include <future>
#include <gmock/gmock.h>
#include <memory>
#include <mutex>
#include <sstream>
#include <sys/stat.h>
#include <vector>

namespace
{
/// Collects what a reader gets and lets the test wait for it. Its readers keep it: they may outlive the test.
class Contents : public std::enable_shared_from_this<Contents>
{
public:
    FN_DEBUG_READER reader()
    {
        return [self = shared_from_this()](std::istream &stIn, void *) -> BU_S32 {
            std::ostringstream stText;
            stText << stIn.rdbuf();
            const std::lock_guard guard(self->m_lock);
            self->m_contents.push_back(stText.str());
            self->m_changed.notify_all();
            return 0;
        };
    }
    void waitFor(const std::string &strContent)
    {
        std::unique_lock guard(m_lock);
        m_changed.wait(guard, [&] { return !m_contents.empty() && m_contents.back() == strContent; });
    }
    std::size_t count()
    {
        const std::lock_guard guard(m_lock);
        return m_contents.size();
    }

private:
    std::mutex m_lock; // guards m_contents
    std::condition_variable m_changed;
    std::vector<std::string> m_contents;
};

struct DebugTest : RootTest {
    const std::shared_ptr<Contents> contents = std::make_shared<Contents>();
};

TEST_F(DebugTest, DeliversWritesReplacementsAndTheLastOfManyRewrites)
{
    ASSERT_EQ(UTIL_DebugRegister("/var/debug/app/a/switch", contents->reader(), nullptr), 0);
    write("/var/debug/app/a/switch", "1");
    contents->waitFor("1");
    write("/var/debug/app/a/other", "moved into place");
    std::filesystem::rename(root() + "/var/debug/app/a/other", root() + "/var/debug/app/a/switch");
    contents->waitFor("moved into place");
    const std::size_t before = contents->count();
    for (int i = 0; i <= 500; i++) write("/var/debug/app/a/switch", std::to_string(i));
    contents->waitFor("500");
    EXPECT_LE(contents->count() - before, 501u);
}

TEST_F(DebugTest, SecondReaderReplacesTheFirstAndMakingAFileIsNoWrite)
{
    const auto second = std::make_shared<Contents>();
    ASSERT_EQ(UTIL_DebugRegister("/var/debug/app/a/one", contents->reader(), nullptr), 0);
    ASSERT_EQ(UTIL_DebugRegister("/var/debug/app/a/two", second->reader(), nullptr), 0);
    ASSERT_EQ(UTIL_DebugRegister("/var/debug/app/a/one", second->reader(), nullptr), 0);
    write("/var/debug/app/a/one", "x");
    second->waitFor("x");
    EXPECT_EQ(second->count(), 1u);
    EXPECT_EQ(contents->count(), 0u);
}

TEST_F(DebugTest, CutsLongContentAndReadsNothingButRegularFiles)
{
    ASSERT_EQ(UTIL_DebugRegister("/var/debug/app/a/long", contents->reader(), nullptr), 0);
    write("/var/debug/app/a/long", std::string(200000, 'x'));
    contents->waitFor(std::string(65536, 'x'));
    std::ofstream(outside() + "/secret") << "secret";
    std::filesystem::create_symlink(outside() + "/secret", root() + "/var/debug/app/a/link");
    std::filesystem::rename(root() + "/var/debug/app/a/link", root() + "/var/debug/app/a/long");
    contents->waitFor("");
}

TEST_F(DebugTest, RefusesPathsOutsideTheDebugFolder)
{
    for (const BU_CHAR *pcPath : {"/etc/x", "/var/debug/app", "/var/debug/app/../x", "/var/debug/apples/x"})
        EXPECT_EQ(UTIL_DebugRegister(pcPath, contents->reader(), nullptr), -1) << pcPath;
    EXPECT_EQ(UTIL_DebugRegister("/var/debug/app/x", nullptr, nullptr), -1);
    EXPECT_EQ(*UTIL_DebugRegisterOneInt("/etc/x"), 0) << "never null";
}

/// More writes than the kernel keeps notes of, while the debug thread is busy: the last state still arrives.
TEST_F(DebugTest, LostNotesAreMadeGoodByAScan)
{
    const auto started = std::make_shared<std::promise<void>>(), release = std::make_shared<std::promise<void>>();
    ASSERT_EQ(UTIL_DebugRegister(
                  "/var/debug/app/a/busy",
                  [=](std::istream &, void *) -> BU_S32 {
                      started->set_value();
                      release->get_future().wait();
                      return 0;
                  },
                  nullptr),
              0);
    ASSERT_EQ(UTIL_DebugRegister("/var/debug/app/a/late", contents->reader(), nullptr), 0);
    write("/var/debug/app/a/busy", "1");
    started->get_future().wait();
    BU_S32 s32Limit = 16384;
    std::ifstream("/proc/sys/fs/inotify/max_queued_events") >> s32Limit;
    for (BU_S32 i = 0; i < s32Limit + 100; i++) {
        // Two files in turn: notes of the same file in a row become one.
        std::fclose(std::fopen((root() + "/var/debug/app/a/" + (i % 2 ? "x" : "y")).c_str(), "w"));
    }
    write("/var/debug/app/a/late", "arrived");
    release->set_value();
    contents->waitFor("arrived");
}

TEST_F(DebugTest, IntegerKeepsItsValueOverContentThatIsNone)
{
    const auto ps32Value = UTIL_DebugRegisterOneInt("/var/debug/app/a/int");
    ASSERT_EQ(UTIL_DebugRegister("/var/debug/app/a/after", contents->reader(), nullptr), 0);
    const auto valueAfter = [&](const std::string &strText) {
        static int s32Round = 0;
        write("/var/debug/app/a/int", strText);
        write("/var/debug/app/a/after", std::to_string(++s32Round));
        contents->waitFor(std::to_string(s32Round)); // one thread reads both, in order
        return *ps32Value;
    };
    EXPECT_EQ(valueAfter(" -12\n"), -12);
    EXPECT_EQ(valueAfter("off"), -12);
    EXPECT_EQ(valueAfter(""), -12);
    EXPECT_EQ(valueAfter("3"), 3);
}
} // namespace
