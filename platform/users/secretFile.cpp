// How a secret file is read and replaced.
#include "users/secretFile.h"

#include "util/file.h"
#include "util/fileDescriptor.h"
#include "util/log.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace users
{
namespace
{
constexpr std::size_t BYTES_MAX = 1024 * 1024;

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
    return UTIL_FILE_WriteSecretToFile(pcPath, strContent.data(), static_cast<BU_S32>(strContent.size())) == 0;
}
} // namespace users
