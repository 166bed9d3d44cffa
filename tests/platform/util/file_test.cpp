#include "rootFolder.h"

#include <algorithm>
#include <atomic>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace
{
struct FileTest : RootTest {
    /// A file as the service reads it; nullopt when that is refused.
    static std::optional<std::string> readBuf(const BU_CHAR *pcPath)
    {
        BU_CHAR *pcBuf = nullptr;
        BU_S32 s32Size = -1;
        if (UTIL_FILE_ReadFileToBuf(pcPath, &pcBuf, &s32Size) != 0) return std::nullopt;
        EXPECT_EQ(pcBuf[s32Size], 0);
        std::string strText(pcBuf, static_cast<std::size_t>(s32Size));
        std::free(pcBuf);
        return strText;
    }
};

TEST_F(FileTest, NoPathLeavesTheRoot)
{
    const std::pair<const BU_CHAR *, const BU_CHAR *> rows[] = {
        {"/var/log", "/var/log"},
        {"var/log", "/var/log"},
        {"//var///log/", "/var/log"},
        {"/../etc/passwd", "/etc/passwd"},
        {"../../../etc", "/etc"},
        {"/var/../../etc", "/etc"},
        {"/var/./../log/..", ""},
        {"/var/..hidden", "/var/..hidden"},
        {"..", ""},
        {"", ""},
        {"/var/.../x", "/var/.../x"},
    };
    for (const auto &[pcPath, pcInside] : rows) EXPECT_EQ(UTIL_ROOT_Path(pcPath), root() + pcInside) << pcPath;
    EXPECT_EQ(UTIL_ROOT_Path(nullptr), root());
}

TEST_F(FileTest, RootThatCannotBeMadeIsTold)
{
    write("/file", "");
    EXPECT_EQ(UTIL_ROOT_Set((root() + "/file/root").c_str()), -1);
    EXPECT_EQ(UTIL_FILE_WriteBufToFile("/var/x", "x", 1), -1);
}

TEST_F(FileTest, ReadsOnlyRegularFiles)
{
    write("/cfg0/zero", std::string("a\0b", 3));
    EXPECT_EQ(readBuf("/cfg0/zero"), std::string("a\0b", 3));
    write("/cfg0/empty", "");
    EXPECT_EQ(readBuf("/cfg0/empty"), "");
    ASSERT_EQ(mkfifo((root() + "/cfg0/pipe").c_str(), 0600), 0);
    truncate((root() + "/cfg0/empty").c_str(), 64 * 1024 * 1024 + 1);
    for (const BU_CHAR *pcPath : {"/cfg0/missing", "/cfg0", "/cfg0/pipe", "/cfg0/empty"})
        EXPECT_EQ(readBuf(pcPath), std::nullopt) << pcPath;
}

TEST_F(FileTest, ReaderSeesTheOldOrTheNewContentNeverAPart)
{
    const std::string strOld(20000, 'o'), strNew(70000, 'n');
    ASSERT_EQ(UTIL_FILE_WriteBufToFile("/cfg0/state", strOld.data(), 20000), 0);
    std::atomic<bool> bDone{false};
    std::thread writer([&] {
        for (int i = 0; i < 40; i++) {
            const std::string &strText = i % 2 ? strOld : strNew;
            UTIL_FILE_WriteBufToFile("/cfg0/state", strText.data(), static_cast<BU_S32>(strText.size()));
        }
        bDone = true;
    });
    while (!bDone) {
        const std::string strSeen = read("/cfg0/state");
        EXPECT_TRUE(strSeen == strOld || strSeen == strNew) << strSeen.size();
    }
    writer.join();
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(root() + "/cfg0"), {}), 1) << "leftover of a write";
}

TEST_F(FileTest, FailedReplacementKeepsTheOldContent)
{
    std::filesystem::create_directories(root() + "/cfg0/state/inside");
    EXPECT_EQ(UTIL_FILE_WriteBufToFile("/cfg0/state", "new", 3), -1) << "a folder of that name is in the way";
    EXPECT_TRUE(exists("/cfg0/state/inside"));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(root() + "/cfg0"), {}), 1) << "leftover of a write";
}
} // namespace
