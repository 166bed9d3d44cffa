// The types of the page's files, and how long a browser may keep them.
#include "files.h"

#include "util/fileDescriptor.h"
#include "util/log.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <utility>

namespace
{
using util::FileDescriptor;

struct Type {
    std::string_view ending, type;
};
constexpr Type TYPES[] = {
    {".html", "text/html; charset=utf-8"},
    {".js", "text/javascript; charset=utf-8"},
    {".css", "text/css; charset=utf-8"},
    {".svg", "image/svg+xml"},
    {".jpg", "image/jpeg"},
    {".png", "image/png"},
    {".ico", "image/x-icon"},
    {".json", "application/json"},
    {".webmanifest", "application/manifest+json"},
    {".woff2", "font/woff2"},
    {".txt", "text/plain; charset=utf-8"},
};

/// @return negative: there is no such file
FileDescriptor openBelow(const std::string &strFolder, std::string_view path)
{
    FileDescriptor fd(open(strFolder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    for (bool bLast = false; fd >= 0 && !bLast;) {
        const std::size_t end = std::min(path.find('/'), path.size());
        bLast = end == path.size();
        const std::string strName(path.substr(0, end));
        if (strName.empty() || strName[0] == '.' || strName.find('\0') != std::string::npos) return FileDescriptor();
        constexpr int STEP = O_PATH | O_DIRECTORY, LAST = O_RDONLY | O_NONBLOCK;
        fd = FileDescriptor(openat(fd, strName.c_str(), (bLast ? LAST : STEP) | O_NOFOLLOW | O_CLOEXEC));
        path.remove_prefix(bLast ? end : end + 1);
    }
    return fd;
}

std::shared_ptr<const std::string> readAll(int s32Fd, std::size_t size)
{
    auto pst = std::make_shared<std::string>(size, '\0');
    std::size_t done = 0;
    for (ssize_t got = 1; done < size && got > 0; done += got > 0 ? static_cast<std::size_t>(got) : 0)
        got = read(s32Fd, pst->data() + done, size - done);
    pst->resize(done);
    return pst;
}
} // namespace

namespace web_server
{
std::string_view typeOfFile(std::string_view path)
{
    const auto *pst = std::ranges::find_if(TYPES, [&](const auto &st) { return path.ends_with(st.ending); });
    return pst == std::end(TYPES) ? "application/octet-stream" : pst->type;
}

const FileContent *Folder::find(std::string_view path)
{
    const FileDescriptor fd = openBelow(m_strPath, path);
    struct stat stFile {
    };
    if (fd < 0 || fstat(fd, &stFile) != 0 || !S_ISREG(stFile.st_mode)) return nullptr;
    if (static_cast<std::size_t>(stFile.st_size) > FILE_MAX) {
        LOG_WARN("web: %.*s is too large to be sent\n", static_cast<int>(path.size()), path.data());
        return nullptr;
    }
    const BU_S64 s64Changed = stFile.st_mtim.tv_sec * 1'000'000'000LL + stFile.st_mtim.tv_nsec;
    auto it = m_kept.find(path);
    if (it != m_kept.end() && it->second.s64Changed == s64Changed && it->second.s64Size == stFile.st_size)
        return &it->second.stContent;
    if (it == m_kept.end() && m_keptBytes > KEPT_MAX) m_keptBytes = (m_kept.clear(), 0);
    Kept &stKept = m_kept[std::string(path)];
    m_keptBytes -= stKept.stContent.pstBytes ? stKept.stContent.pstBytes->size() : 0;
    stKept = {s64Changed, stFile.st_size, {readAll(fd, static_cast<std::size_t>(stFile.st_size)), ""}};
    m_keptBytes += stKept.stContent.pstBytes->size();
    std::array<char, 48> acTag{};
    std::snprintf(acTag.data(), acTag.size(), "\"%llx-%llx\"", static_cast<unsigned long long>(s64Changed),
                  static_cast<unsigned long long>(stFile.st_size));
    stKept.stContent.strTag = acTag.data();
    return &stKept.stContent;
}
} // namespace web_server
