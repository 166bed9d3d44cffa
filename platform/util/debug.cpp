/// Debug files: who reads which, and the thread that notices what is written.
#include "util/debug.h"

#include "util/file.h"
#include "util/log.h"
#include "util/thread.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <map>
#include <mutex>
#include <sstream>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace
{
constexpr std::size_t CONTENT_LIMIT = 64 * 1024;
// A write is over when the file is closed or moved into place. IN_MODIFY would show parts of it.
constexpr BU_U32 WRITTEN = IN_CLOSE_WRITE | IN_MOVED_TO;
constexpr const BU_CHAR *DEBUG_FOLDER = "/var/debug/app/";

struct Reader {
    FN_DEBUG_READER fn;
    void *pvParam;
    timespec stReadTime; // change time of the content last read
};

struct Debug {
    std::mutex lock; // guards all members
    int s32Inotify = -1;
    std::map<int, std::string> folders;    // by watch
    std::map<std::string, Reader> readers; // by full path
};
Debug &debug()
{
    static auto *pstDebug = new Debug;
    return *pstDebug;
}

/// The content of a regular file, cut at the limit; empty for anything else.
std::string contentOf(const std::string &strPath, timespec &stTime)
{
    std::string strContent(CONTENT_LIMIT, 0);
    std::size_t done = 0;
    const int s32Fd = open(strPath.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    struct stat stInfo {
    };
    if (s32Fd >= 0 && fstat(s32Fd, &stInfo) == 0 && S_ISREG(stInfo.st_mode)) {
        ssize_t part = 0;
        while ((part = read(s32Fd, strContent.data() + done, CONTENT_LIMIT - done)) > 0)
            done += static_cast<std::size_t>(part);
        stTime = stInfo.st_mtim;
    }
    if (s32Fd >= 0) close(s32Fd);
    strContent.resize(done);
    return strContent;
}

/// Hands a file's content to its reader. The lock is free meanwhile.
void deliver(const std::string &strPath)
{
    std::unique_lock guard(debug().lock);
    const auto reader = debug().readers.find(strPath);
    if (reader == debug().readers.end()) return;
    std::istringstream stIn(contentOf(strPath, reader->second.stReadTime));
    const Reader stReader = reader->second;
    guard.unlock();
    stReader.fn(stIn, stReader.pvParam);
}

/// Events were lost: delivers every file that has changed since it was last read.
void rescan()
{
    std::vector<std::string> changed;
    {
        const std::lock_guard guard(debug().lock);
        for (const auto &[strPath, stReader] : debug().readers) {
            struct stat stInfo {
            };
            if (stat(strPath.c_str(), &stInfo) == 0 && (stInfo.st_mtim.tv_sec != stReader.stReadTime.tv_sec ||
                                                        stInfo.st_mtim.tv_nsec != stReader.stReadTime.tv_nsec))
                changed.push_back(strPath);
        }
    }
    for (const auto &strPath : changed) deliver(strPath);
}

/// The folder is gone, with everything in it.
void forgetFolder(int s32Watch)
{
    const std::lock_guard guard(debug().lock);
    const auto folder = debug().folders.extract(s32Watch);
    if (folder.empty()) return;
    std::erase_if(debug().readers, [&](const auto &reader) {
        return std::filesystem::path(reader.first).parent_path() == folder.mapped();
    });
}

void handle(const inotify_event &stEvent)
{
    if (stEvent.mask & IN_Q_OVERFLOW) return rescan();
    if (stEvent.mask & IN_IGNORED) return forgetFolder(stEvent.wd);
    if (!(stEvent.mask & WRITTEN) || stEvent.len == 0) return;
    std::string strPath;
    {
        const std::lock_guard guard(debug().lock);
        const auto folder = debug().folders.find(stEvent.wd);
        if (folder == debug().folders.end()) return;
        strPath = folder->second + "/" + stEvent.name;
    }
    deliver(strPath);
}

void watchFiles(int s32Inotify)
{
    alignas(inotify_event) std::array<BU_CHAR, 16 * 1024> acEvents;
    for (;;) {
        const ssize_t size = read(s32Inotify, acEvents.data(), acEvents.size());
        if (size < 0 && errno != EINTR) return;
        for (const BU_CHAR *pcNext = acEvents.data(); pcNext < acEvents.data() + size;) {
            const auto *pstEvent = reinterpret_cast<const inotify_event *>(pcNext);
            pcNext += sizeof(inotify_event) + pstEvent->len;
            handle(*pstEvent);
        }
    }
}

/// With the lock held: the file and its watch; the first call starts the debug thread.
bool makeWatchedFile(const std::filesystem::path &path)
{
    std::error_code error;
    std::filesystem::create_directories(path.parent_path(), error);
    // Made without being opened, so that its making does not look like a write.
    if (mknod(path.c_str(), S_IFREG | 0644, 0) != 0 && errno != EEXIST) return false;
    if (debug().s32Inotify < 0) {
        debug().s32Inotify = inotify_init1(IN_CLOEXEC);
        if (debug().s32Inotify < 0) return false;
        util::startDetached("debug", [s32Inotify = debug().s32Inotify] { watchFiles(s32Inotify); });
    }
    const int s32Watch = inotify_add_watch(debug().s32Inotify, path.parent_path().c_str(), WRITTEN);
    if (s32Watch < 0) return false;
    debug().folders[s32Watch] = path.parent_path();
    return true;
}
} // namespace

BU_S32 UTIL_DebugRegister(const BU_CHAR *pcPath, FN_DEBUG_READER fnReader, void *pvParam)
{
    const std::string strFolder = UTIL_ROOT_Path(DEBUG_FOLDER) + "/", strPath = UTIL_ROOT_Path(pcPath);
    if (!pcPath || !fnReader || !strPath.starts_with(strFolder)) return -1;
    std::string strReason;
    {
        const std::lock_guard guard(debug().lock);
        if (makeWatchedFile(strPath)) {
            struct stat stInfo {
            };
            stat(strPath.c_str(), &stInfo);
            debug().readers[strPath] = {std::move(fnReader), pvParam, stInfo.st_mtim};
            return 0;
        }
        strReason = std::strerror(errno);
    }
    LOG_ERROR("debug file %s: %s", strPath.c_str(), strReason.c_str());
    return -1;
}

std::shared_ptr<BU_S32> UTIL_DebugRegisterOneInt(const BU_CHAR *pcPath)
{
    auto ps32Value = std::make_shared<BU_S32>(0);
    UTIL_DebugRegister(
        pcPath,
        [ps32Value](std::istream &stIn, void *) -> BU_S32 {
            BU_S32 s32Value = 0;
            if (!(stIn >> s32Value)) return -1;
            __atomic_store_n(ps32Value.get(), s32Value, __ATOMIC_RELAXED);
            return 0;
        },
        nullptr);
    return ps32Value;
}
