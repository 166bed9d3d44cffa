/// The device root: which folder it is, and that no path leaves it.
#include "internal.h"

#include "util/file.h"
#include "util/log.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <mutex>
#include <optional>
#include <pwd.h>
#include <string_view>
#include <sys/file.h>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;

namespace
{
constexpr const BU_CHAR *FOLDERS[] = {"app",   "cfg0",     "dev", "etc",     "mnt/sdcard",
                                      "model", "sys/gpio", "tmp", "var/log", "var/debug/app"};

struct Root {
    std::mutex lock; // guards strFolder
    std::optional<std::string> strFolder;
    std::atomic<BU_U32> u32Generation{0};
};
Root &root()
{
    static auto *pstRoot = new Root;
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

constexpr int EXIT_IN_USE = 75;

[[noreturn]] void refuseStart(int s32Lock)
{
    std::array<BU_CHAR, 16> acOwner{};
    if (pread(s32Lock, acOwner.data(), acOwner.size() - 1, 0) <= 0) acOwner = {"?"};
    LOG_ERROR("device root %s is in use by process %s", UTIL_ROOT_Path("").c_str(), acOwner.data());
    std::exit(EXIT_IN_USE);
}
} // namespace

BU_U32 util::rootGeneration() { return root().u32Generation.load(std::memory_order_relaxed); }

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
    for (const BU_CHAR *pcName : FOLDERS) {
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

void util::lockRoot()
{
    const std::string strPath = UTIL_ROOT_Path("/var/camera.lock"), strSelf = std::to_string(getpid());
    const int s32Lock = open(strPath.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644); // open until the process ends
    if (s32Lock >= 0 && flock(s32Lock, LOCK_EX | LOCK_NB) == 0) {
        if (ftruncate(s32Lock, 0) != 0 || pwrite(s32Lock, strSelf.data(), strSelf.size(), 0) < 0)
            LOG_WARN("%s: %s", strPath.c_str(), std::strerror(errno));
        return;
    }
    if (errno == EWOULDBLOCK) refuseStart(s32Lock);
    LOG_WARN("%s: %s", strPath.c_str(), std::strerror(errno));
}
