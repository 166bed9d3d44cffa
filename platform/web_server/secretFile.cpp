#include "secretFile.h"

#include "util/file.h"
#include "util/fileDescriptor.h"
#include "util/log.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace web
{
namespace
{
constexpr std::size_t BYTES_MAX = 1024 * 1024;

bool writeAll(int s32Fd, const std::string &strContent)
{
    for (std::size_t done = 0; done < strContent.size();) {
        const ssize_t part = write(s32Fd, strContent.data() + done, strContent.size() - done);
        if (part < 0 && errno != EINTR) return false;
        done += part > 0 ? static_cast<std::size_t>(part) : 0;
    }
    return true;
}

bool readAll(int s32Fd, std::string &strContent)
{
    std::array<char, 4096> piece{};
    for (;;) {
        const ssize_t part = read(s32Fd, piece.data(), piece.size());
        if (part == 0) return true;
        if (part < 0 && errno == EINTR) continue;
        if (part < 0) return false;
        strContent.append(piece.data(), static_cast<std::size_t>(part));
        if (strContent.size() > BYTES_MAX) {
            errno = EFBIG;
            return false;
        }
    }
}
} // namespace

FileState readSecret(const char *pcPath, std::string &strContent)
{
    strContent.clear();
    const std::string strPath = UTIL_ROOT_Path(pcPath);
    const util::FileDescriptor file(open(strPath.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW));
    if (file < 0 && errno == ENOENT) return FileState::ABSENT;
    if (file >= 0 && readAll(file, strContent)) return FileState::READ;
    LOG_ERROR("%s: %s", strPath.c_str(), std::strerror(errno));
    return FileState::UNREADABLE;
}

bool writeSecret(const char *pcPath, const std::string &strContent)
{
    const std::filesystem::path path = UTIL_ROOT_Path(pcPath);
    std::error_code error;
    std::filesystem::create_directories(path.parent_path(), error);
    std::string strNew = path.string() + ".XXXXXX";
    const util::FileDescriptor file(mkostemp(strNew.data(), O_CLOEXEC)); // made with mode 0600
    const bool bDone =
        file >= 0 && writeAll(file, strContent) && fsync(file) == 0 && rename(strNew.c_str(), path.c_str()) == 0;
    if (!bDone) {
        LOG_ERROR("%s: %s", path.c_str(), std::strerror(errno));
        if (file >= 0) unlink(strNew.c_str());
        return false;
    }
    const util::FileDescriptor folder(open(path.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder >= 0) fsync(folder);
    return true;
}
} // namespace web
