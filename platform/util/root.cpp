#include "root.h"

#include "util/file.h"
#include "util/log.h"

#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <mutex>
#include <optional>
#include <pwd.h>
#include <string_view>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;

namespace
{
constexpr const BU_CHAR *g_apcFolders[] = {"app",   "cfg0",     "dev", "etc",     "mnt/sdcard",
                                           "model", "sys/gpio", "tmp", "var/log", "var/debug/app"};

struct tagROOT_S {
    std::mutex lock; // guards strFolder
    std::optional<std::string> strFolder;
    std::atomic<BU_U32> u32Generation{0};
};
tagROOT_S &root()
{
    static auto *pstRoot = new tagROOT_S;
    return *pstRoot;
}

std::string homeFolder()
{
    if (const BU_CHAR *pcHome = std::getenv("HOME"); pcHome && *pcHome) return pcHome;
    const passwd *pstUser = getpwuid(getuid());
    return pstUser ? pstUser->pw_dir : "/tmp";
}

std::string defaultFolder()
{
    if (const BU_CHAR *pcRoot = std::getenv("CAMERA_ROOT"); pcRoot && *pcRoot) return pcRoot;
    const BU_CHAR *pcState = std::getenv("XDG_STATE_HOME");
    const std::string strState = pcState && *pcState ? std::string(pcState) : homeFolder() + "/.local/state";
    return strState + "/ptz-camera";
}

/// The root without a trailing slash, so that "/" is "".
std::string plainFolder(const std::string &strFolder)
{
    std::string strPlain = fs::absolute(strFolder).lexically_normal().string();
    while (!strPlain.empty() && strPlain.back() == '/') strPlain.pop_back();
    return strPlain;
}

std::string currentFolder()
{
    {
        const std::lock_guard guard(root().lock);
        if (root().strFolder) return *root().strFolder;
    }
    UTIL_ROOT_Set(defaultFolder().c_str());
    const std::lock_guard guard(root().lock);
    return *root().strFolder;
}

/// The path with its "." and ".." steps taken; ".." ends at the root, whatever comes before it.
std::string stepsInside(std::string_view path)
{
    std::vector<std::string_view> steps;
    while (!path.empty()) {
        const std::string_view step = path.substr(0, path.find('/'));
        path.remove_prefix(std::min(path.size(), step.size() + 1));
        if (step.empty() || step == ".") continue;
        if (step != "..")
            steps.push_back(step);
        else if (!steps.empty())
            steps.pop_back();
    }
    std::string strInside;
    for (const auto step : steps) strInside.append("/").append(step);
    return strInside;
}
} // namespace

BU_U32 utilRootGeneration() { return root().u32Generation.load(std::memory_order_relaxed); }

std::string UTIL_ROOT_Path(const BU_CHAR *pcPath)
{
    std::string strPath = currentFolder() + stepsInside(pcPath ? pcPath : "");
    return strPath.empty() ? "/" : strPath;
}

BU_S32 UTIL_ROOT_Set(const BU_CHAR *pcFolder)
{
    const std::string strFolder = plainFolder(pcFolder ? pcFolder : "");
    {
        const std::lock_guard guard(root().lock);
        root().strFolder = strFolder;
    }
    root().u32Generation++;
    for (const BU_CHAR *pcName : g_apcFolders) {
        std::error_code error;
        fs::create_directories(strFolder + "/" + pcName, error);
        if (!error && access((strFolder + "/" + pcName).c_str(), W_OK) != 0)
            error.assign(errno, std::generic_category());
        if (!error) continue;
        LOG_ERROR("device root %s/%s: %s", strFolder.c_str(), pcName, error.message().c_str());
        return -1;
    }
    return 0;
}
