/// The shell commands that are performed, all inside the device root.
#include "rootFolder.h"

#include <gmock/gmock.h>

namespace
{
BU_S32 g_s32Reboots;

/// The files before a case: "a" with content, "folder/b", the link "link" to "a". `after` lists what must be there
/// afterwards, a '!' in front what must not.
// clang-format off
struct Case { const BU_CHAR *pcCommand; BU_S32 s32Result; std::vector<std::string> after; BU_S32 s32Reboots = 0; };
const Case CASES[] = {
    {"rm /a -f", 0, {"!a"}}, {"rm -f /missing", 0, {}}, {"rm /missing", -1, {}}, {"rm /folder", -1, {"folder/b"}},
    {"rm -rf /folder", 0, {"!folder"}}, {"rm /link", 0, {"!link", "a"}}, {"rm -rf /", -1, {"a"}},
    {"rm -rf /folder/../..", -1, {"a"}}, {"rm -rf ../neighbour", 0, {"a"}},
    {"rm -f /*", 0, {"a"}}, // a pattern needs a shell: skipped
    {"rm -x /a", 0, {"a"}}, // an option that it does not know: skipped
    {"mv /a /folder", 0, {"!a", "folder/a"}}, {"mv /a '/new name'", 0, {"!a", "new name"}},
    {"mv /missing /b", -1, {"!b"}}, {"touch /a /new", 0, {"a", "new"}}, {"touch /none/new", -1, {}},
    {"mkdir /new", 0, {"new"}}, {"mkdir /folder", -1, {}}, {"mkdir -p /folder /x/y", 0, {"x/y"}},
    {"ln -s /a /etc/made", 0, {"etc/made"}}, {"ln -s /a /link", 0, {"link"}}, // the link is there already
    {"ln -s /missing /a", -1, {}},   // a file is there already
    {"ln /a /hard", -1, {"!hard"}}, {"reboot", 0, {}, 1}, {"sync; reboot", 0, {}, 1}, {"sync;reboot", 0, {}, 1},
    {"rm /missing && reboot", -1, {}, 0}, {"rm /missing || reboot", 0, {}, 1}, {"sync || reboot", 0, {}, 0},
    {"rm /missing; rm /a", 0, {"!a"}}, {"rm /missing && touch /x || touch /y", 0, {"!x", "y"}},
    {"touch /x & touch /y &", 0, {"x", "y"}}, {"rm /a > /dev/null 2>&1; touch /x", 0, {"a", "x"}},
    {"touch /x | rm /a", 0, {"!x", "a"}}, {"ps | grep x && touch /x", 0, {"x"}}, // what is skipped counts as done
    {"echo \"; rm /a\"", 0, {"a"}}, {"touch \\;x", 0, {";x"}}, {"touch '/quoted'\"name\"", 0, {"quotedname"}},
    {"touch /$(rm /a)", 0, {"a"}}, {"touch \"/`rm /a`\"", 0, {"a"}}, {"touch /`rm /b`", 0, {"!`rm"}}, {"", 0, {}},
    {"rm /a '", -1, {"a"}}, {"rm /a &&", -1, {"a"}}, {"rm /a |", -1, {"a"}}, {"&& rm /a", -1, {"a"}},
    {";; rm /a", -1, {"a"}},
};
// clang-format on

TEST(Shell, PerformsInsideTheRoot)
{
    UTIL_CMD_SetRebootHandler([] { g_s32Reboots++; });
    for (const auto &[pcCommand, s32Result, after, s32Reboots] : CASES) {
        const Root root;
        g_s32Reboots = 0;
        std::filesystem::create_directories(root.root() + "/folder");
        root.write("/a", "content");
        root.write("/folder/b", "");
        std::filesystem::create_symlink("a", root.root() + "/link");
        std::ofstream(root.outside() + "/neighbour") << "untouched";
        EXPECT_EQ(UTIL_CMD_RunSafe(pcCommand), s32Result) << pcCommand;
        for (const auto &strFile : after) {
            const bool bGone = strFile.front() == '!';
            const auto status = std::filesystem::symlink_status(root.root() + "/" + strFile.substr(bGone));
            EXPECT_EQ(std::filesystem::exists(status), !bGone) << pcCommand << ": " << strFile;
        }
        EXPECT_EQ(g_s32Reboots, s32Reboots) << pcCommand;
        EXPECT_TRUE(std::filesystem::exists(root.outside() + "/neighbour")) << pcCommand;
    }
    UTIL_CMD_SetRebootHandler(nullptr);
}

TEST_F(RootTest, LinkLeadsToTheTargetInsideIt)
{
    write("/cfg0/atem.json", "tally");
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(UTIL_CMD_RunSafe("ln -s /cfg0/atem.json /etc/atem_tally.json"), 0); // start twice
    EXPECT_EQ(read("/etc/atem_tally.json"), "tally");
    EXPECT_EQ(UTIL_CMD_RunSafe("ln -s ../../../../neighbour /etc/out"), 0);
    const auto target = std::filesystem::weakly_canonical(root() + "/etc/out").string();
    EXPECT_TRUE(target.starts_with(root())) << target;
    write("/a", "content");
    UTIL_CMD_RunSafe("ln -sf /a /etc/atem_tally.json");
    EXPECT_EQ(read("/etc/atem_tally.json"), "content");
}
} // namespace
