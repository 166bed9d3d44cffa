/// The shell commands that have a meaning here, performed inside the device root.
#include "internal.h"
#include "util/file.h"
#include "util/journal.h"
#include "util/log.h"

#include <algorithm>
#include <atomic>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace
{
using util::After;
using util::ShellCommand;

std::atomic<void (*)()> g_pfnReboot{nullptr};

/// A command's options as one text of letters, and its other words.
struct Arguments {
    std::string strOptions;
    std::vector<std::string> words;
    bool has(BU_CHAR cOption) const { return strOptions.find(cOption) != std::string::npos; }
    fs::path path(std::size_t word) const { return UTIL_ROOT_Path(words[word].c_str()); }
};

bool isRoot(const fs::path &path) { return path == UTIL_ROOT_Path("/"); }

/// Where a file named after `source` goes when the target may be a folder.
fs::path inFolder(const fs::path &target, const std::string &strSource)
{
    return fs::is_directory(target) ? target / fs::path(strSource).filename() : target;
}

BU_S32 runReboot(const Arguments &)
{
    if (void (*pfnReboot)() = g_pfnReboot.load())
        pfnReboot();
    else
        util::restartSoon();
    return 0;
}

BU_S32 runSync(const Arguments &) { return 0; } // files are durable when their writing returns

/// The link's text leads from its folder to the target, so that the device root can be moved.
BU_S32 runLink(const Arguments &stArgs)
{
    if (!stArgs.has('s') || stArgs.words.size() != 2) return -1;
    const fs::path link = inFolder(stArgs.path(1), stArgs.words[0]);
    const bool bAbsolute = stArgs.words[0].starts_with('/');
    const fs::path target =
        bAbsolute ? stArgs.path(0)
                  : fs::path(UTIL_ROOT_Path(
                        (link.parent_path().lexically_relative(UTIL_ROOT_Path("/")) / stArgs.words[0]).c_str()));
    std::error_code error;
    if (fs::is_symlink(link, error) && !stArgs.has('f')) return 0;
    if (stArgs.has('f')) fs::remove(link, error);
    fs::create_directories(link.parent_path(), error);
    fs::create_symlink(target.lexically_relative(link.parent_path()), link, error);
    return error ? -1 : 0;
}

BU_S32 runRemove(const Arguments &stArgs)
{
    BU_S32 s32Ret = stArgs.words.empty() && !stArgs.has('f') ? -1 : 0;
    for (std::size_t word = 0; word < stArgs.words.size(); word++) {
        const fs::path path = stArgs.path(word);
        std::error_code error;
        const auto status = fs::symlink_status(path, error);
        const bool bFolder = fs::is_directory(status), bAll = stArgs.has('r') || stArgs.has('R');
        if (isRoot(path) || (bFolder && !bAll) || (!fs::exists(status) && !stArgs.has('f'))) {
            s32Ret = -1;
            continue;
        }
        fs::remove_all(path, error);
        if (error) s32Ret = -1;
    }
    return s32Ret;
}

BU_S32 runMove(const Arguments &stArgs)
{
    if (stArgs.words.size() != 2 || isRoot(stArgs.path(0))) return -1;
    std::error_code error;
    fs::rename(stArgs.path(0), inFolder(stArgs.path(1), stArgs.words[0]), error);
    return error ? -1 : 0;
}

BU_S32 runTouch(const Arguments &stArgs)
{
    BU_S32 s32Ret = stArgs.words.empty() ? -1 : 0;
    for (std::size_t word = 0; word < stArgs.words.size(); word++) {
        const int s32Fd = open(stArgs.path(word).c_str(), O_WRONLY | O_CREAT | O_NONBLOCK | O_CLOEXEC, 0644);
        if (s32Fd < 0 || futimens(s32Fd, nullptr) != 0) s32Ret = -1;
        if (s32Fd >= 0) close(s32Fd);
    }
    return s32Ret;
}

BU_S32 runMakeFolder(const Arguments &stArgs)
{
    BU_S32 s32Ret = stArgs.words.empty() ? -1 : 0;
    for (std::size_t word = 0; word < stArgs.words.size(); word++) {
        std::error_code error;
        const bool bMade = stArgs.has('p') ? fs::create_directories(stArgs.path(word), error)
                                           : fs::create_directory(stArgs.path(word), error);
        if (error || (!bMade && !stArgs.has('p'))) s32Ret = -1;
    }
    return s32Ret;
}

struct Command {
    std::string_view name;
    std::string_view options; // the ones it knows; with another one the command is skipped
    BU_S32 (*pfnRun)(const Arguments &);
};
constexpr Command COMMANDS[] = {
    {"reboot", "f", runReboot}, {"sync", "", runSync},   {"ln", "sf", runLink},         {"rm", "rRf", runRemove},
    {"mv", "f", runMove},       {"touch", "", runTouch}, {"mkdir", "p", runMakeFolder},
};

Arguments argumentsOf(const std::vector<std::string> &words)
{
    Arguments stArgs;
    for (auto word = words.begin() + 1; word != words.end(); ++word)
        if (word->size() > 1 && word->starts_with('-'))
            stArgs.strOptions += word->substr(1);
        else
            stArgs.words.push_back(*word);
    return stArgs;
}

BU_S32 runOne(const ShellCommand &stCommand)
{
    const auto row = std::ranges::find(COMMANDS, std::string_view(stCommand.words.front()), &Command::name);
    const Arguments stArgs = argumentsOf(stCommand.words);
    if (stCommand.bNeedsShell || row == std::end(COMMANDS) ||
        stArgs.strOptions.find_first_not_of(row->options) != std::string::npos) {
        LOG_INFO("shell: skipped: %s", stCommand.strText.c_str());
        return 0;
    }
    const BU_S32 s32Ret = row->pfnRun(stArgs);
    if (s32Ret != 0) LOG_WARN("shell: failed: %s", stCommand.strText.c_str());
    return s32Ret;
}
} // namespace

BU_S32 UTIL_CMD_RunSafe(const BU_CHAR *pcCommand)
{
    if (const auto injected = journal::call(__func__, pcCommand)) return *injected;
    const auto commands = util::shellCommands(pcCommand ? pcCommand : "");
    if (!commands) {
        LOG_WARN("shell: not understood: %s", pcCommand ? pcCommand : "NULL");
        return -1;
    }
    BU_S32 s32Ret = 0;
    for (const ShellCommand &stCommand : *commands) {
        const bool bRun =
            stCommand.enAfter == After::ANY || (stCommand.enAfter == After::DONE ? s32Ret == 0 : s32Ret != 0);
        if (bRun) s32Ret = runOne(stCommand);
    }
    return s32Ret;
}

void UTIL_CMD_SetRebootHandler(void (*pfnReboot)()) { g_pfnReboot = pfnReboot; }
