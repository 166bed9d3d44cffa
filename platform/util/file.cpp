/// Whole files: read within limits, replaced in one step that survives a loss of power.
#include "util/file.h"

#include "util/fileDescriptor.h"
#include "util/journal.h"
#include "util/log.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
constexpr off_t READ_LIMIT = 64 * 1024 * 1024;

/// Reads up to `size` bytes; a file that shrinks meanwhile gives fewer. Negative on an error.
ssize_t readAll(int s32Fd, BU_CHAR *pcBuf, std::size_t size)
{
    std::size_t done = 0;
    while (done < size) {
        const ssize_t part = read(s32Fd, pcBuf + done, size - done);
        if (part < 0 && errno == EINTR) continue;
        if (part < 0) return -1;
        if (part == 0) break;
        done += static_cast<std::size_t>(part);
    }
    return static_cast<ssize_t>(done);
}

bool writeAll(int s32Fd, const BU_CHAR *pcBuf, std::size_t size)
{
    while (size > 0) {
        const ssize_t part = write(s32Fd, pcBuf, size);
        if (part < 0 && errno == EINTR) continue;
        if (part < 0) return false;
        pcBuf += part;
        size -= static_cast<std::size_t>(part);
    }
    return true;
}

/// Makes the new content durable under a name of its own, then gives it the file's name.
bool replaceFile(const std::filesystem::path &path, const BU_CHAR *pcBuf, std::size_t size, mode_t mode)
{
    std::error_code error;
    std::filesystem::create_directories(path.parent_path(), error);
    std::string strNew = (path.parent_path() / ("." + path.filename().string() + ".XXXXXX")).string();
    const util::FileDescriptor file(mkostemp(strNew.data(), O_CLOEXEC));
    if (file < 0) return false;
    const bool bDone = fchmod(file, mode) == 0 && writeAll(file, pcBuf, size) && fsync(file) == 0 &&
                       std::rename(strNew.c_str(), path.c_str()) == 0;
    const int s32Error = errno;
    if (!bDone) unlink(strNew.c_str());
    errno = s32Error;
    if (!bDone) return false;
    const util::FileDescriptor folder(open(path.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder >= 0) fsync(folder);
    return true;
}

BU_S32 writeBuf(const BU_CHAR *pcPath, const void *pvBuf, BU_S32 s32Size, mode_t mode)
{
    if (!pcPath || s32Size < 0 || (!pvBuf && s32Size > 0)) return -1;
    const std::string strPath = UTIL_ROOT_Path(pcPath);
    if (replaceFile(strPath, static_cast<const BU_CHAR *>(pvBuf), static_cast<std::size_t>(s32Size), mode)) return 0;
    LOG_ERROR("%s: %s", strPath.c_str(), std::strerror(errno));
    return -1;
}
} // namespace

BU_BOOL UTIL_FILE_IsExist(const BU_CHAR *pcPath)
{
    return pcPath && access(UTIL_ROOT_Path(pcPath).c_str(), F_OK) == 0 ? BU_TRUE : BU_FALSE;
}

BU_S32 UTIL_FILE_ReadFileToBuf(const BU_CHAR *pcPath, BU_CHAR **ppcBuf, BU_S32 *ps32Size)
{
    if (!pcPath || !ppcBuf || !ps32Size) return -1;
    // Without O_NONBLOCK the opening of a pipe that nobody writes would never return.
    const util::FileDescriptor file(open(UTIL_ROOT_Path(pcPath).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat stInfo;
    if (file < 0 || fstat(file, &stInfo) != 0 || !S_ISREG(stInfo.st_mode) || stInfo.st_size > READ_LIMIT) return -1;
    const std::size_t size = static_cast<std::size_t>(stInfo.st_size);
    std::unique_ptr<BU_CHAR, decltype(&std::free)> buf(static_cast<BU_CHAR *>(std::malloc(size + 1)), std::free);
    const ssize_t done = buf ? readAll(file, buf.get(), size) : -1;
    if (done < 0) return -1;
    buf.get()[done] = 0;
    *ps32Size = static_cast<BU_S32>(done);
    *ppcBuf = buf.release();
    return 0;
}

BU_S32 UTIL_FILE_WriteBufToFile(const BU_CHAR *pcPath, const void *pvBuf, BU_S32 s32Size)
{
    if (const auto injected = journal::ask(__func__, pcPath)) return *injected;
    return writeBuf(pcPath, pvBuf, s32Size, 0644);
}

BU_S32 UTIL_FILE_WriteSecretToFile(const BU_CHAR *pcPath, const void *pvBuf, BU_S32 s32Size)
{
    if (const auto injected = journal::ask(__func__, pcPath)) return *injected;
    return writeBuf(pcPath, pvBuf, s32Size, 0600);
}
