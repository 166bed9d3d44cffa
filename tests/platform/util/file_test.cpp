/// Files inside the device root: paths, whole reads, replacements in one step.
#include "rootFolder.h"

#include <gmock/gmock.h>
#include <optional>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace
{
/// A file as the service reads it; nullopt when that is refused.
std::optional<std::string> readBuf(const BU_CHAR *pcPath)
{
    BU_CHAR *pcBuf = nullptr;
    BU_S32 s32Size = -1;
    if (UTIL_FILE_ReadFileToBuf(pcPath, &pcBuf, &s32Size) != 0) return std::nullopt;
    EXPECT_EQ(pcBuf[s32Size], 0);
    std::string strText(pcBuf, static_cast<std::size_t>(s32Size));
    std::free(pcBuf);
    return strText;
}

TEST_F(RootTest, NoPathLeavesIt)
{
    // clang-format off
    const std::pair<const BU_CHAR *, const BU_CHAR *> rows[] = {
        {"var/log", "/var/log"}, {"//var///log/", "/var/log"}, {"/../etc/passwd", "/etc/passwd"},
        {"../../../etc", "/etc"}, {"/var/../../etc", "/etc"}, {"/var/./../log/..", ""},
        {"/var/..hidden", "/var/..hidden"}, {"/var/.../x", "/var/.../x"}, {"..", ""}, {"", ""}, {nullptr, ""}};
    // clang-format on
    for (const auto &[pcPath, pcInside] : rows) EXPECT_EQ(UTIL_ROOT_Path(pcPath), root() + pcInside) << pcInside;
    write("/file", "");
    EXPECT_EQ(UTIL_ROOT_Set((root() + "/file/root").c_str()), -1);
    EXPECT_EQ(UTIL_FILE_WriteBufToFile("/var/x", "x", 1), -1) << "a root that cannot be made";
}

TEST_F(RootTest, OnlyRegularFilesAreRead)
{
    for (const std::string &strText : {std::string("a\0b", 3), std::string()}) {
        write("/cfg0/file", strText);
        EXPECT_EQ(readBuf("/cfg0/file"), strText);
    }
    ASSERT_EQ(mkfifo((root() + "/cfg0/pipe").c_str(), 0600), 0);
    truncate((root() + "/cfg0/file").c_str(), 64 * 1024 * 1024 + 1);
    for (const BU_CHAR *pcPath : {"/cfg0/missing", "/cfg0", "/cfg0/pipe", "/cfg0/file"})
        EXPECT_EQ(readBuf(pcPath), std::nullopt) << pcPath;
}

TEST_F(RootTest, ReaderSeesTheOldOrTheNewContentNeverAPart)
{
    const std::string texts[] = {std::string(20000, 'o'), std::string(70000, 'n')};
    const auto put = [&](std::size_t i) {
        return UTIL_FILE_WriteBufToFile("/cfg0/state", texts[i].data(), static_cast<BU_S32>(texts[i].size()));
    };
    ASSERT_EQ(put(0), 0);
    std::jthread writer([&] {
        for (std::size_t i = 0; i < 40; i++) put(i % 2);
    });
    for (int i = 0; i < 200; i++) {
        const std::string strSeen = read("/cfg0/state");
        EXPECT_TRUE(strSeen == texts[0] || strSeen == texts[1]) << strSeen.size();
    }
    writer.join();
    EXPECT_EQ(put(1), 0);
    EXPECT_EQ(UTIL_FILE_WriteSecretToFile("/cfg0/secret", "x", 1), 0);
    for (const auto &[pcFile, iMode] : {std::pair("/cfg0/state", 0644), {"/cfg0/secret", 0600}})
        EXPECT_EQ(static_cast<int>(std::filesystem::status(root() + pcFile).permissions()), iMode) << pcFile;

    BU_CHAR *pcBuf = nullptr;
    BU_S32 s32Size = 0;
    EXPECT_THAT(
        (std::vector{UTIL_FILE_WriteBufToFile(nullptr, "x", 1), UTIL_FILE_WriteBufToFile("/cfg0/x", nullptr, 1),
                     UTIL_FILE_WriteBufToFile("/cfg0/x", "x", -1), UTIL_FILE_ReadFileToBuf(nullptr, &pcBuf, &s32Size),
                     UTIL_FILE_ReadFileToBuf("/cfg0/state", nullptr, &s32Size),
                     UTIL_FILE_ReadFileToBuf("/cfg0/state", &pcBuf, nullptr)}),
        testing::Each(-1));
    std::filesystem::create_directories(root() + "/cfg0/folder/inside");
    EXPECT_EQ(UTIL_FILE_WriteBufToFile("/cfg0/folder", "new", 3), -1) << "a folder of that name is in the way";
    EXPECT_TRUE(exists("/cfg0/folder/inside"));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(root() + "/cfg0"), {}), 3) << "leftover of a write";
}
} // namespace
