/// The files that are sent: the page's, and single ones of the device root.
#pragma once

#include "base/types.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace web_server
{
/// As it was when it was read.
struct FileContent {
    std::shared_ptr<const std::string> pstBytes;
    std::string strTag; ///< ETag, with its quotes
};

std::string_view typeOfFile(std::string_view path);

/// Reads files below one folder and keeps them; one that changes is read again. Nothing outside the folder is reached:
/// the way there is walked name by name, and symbolic links are not followed. Thread: one.
class Folder
{
public:
    static constexpr std::size_t FILE_MAX = 8 << 20, KEPT_MAX = 32 << 20; ///< bytes

    explicit Folder(std::string strPath) : m_strPath(std::move(strPath)) {}

    /// @param path  names joined by '/' @return null: no such file, or not a plain one
    const FileContent *find(std::string_view path);

private:
    struct Kept {
        BU_S64 s64Changed = 0, s64Size = -1;
        FileContent stContent;
    };
    const std::string m_strPath;
    std::map<std::string, Kept, std::less<>> m_kept; // by path
    std::size_t m_keptBytes = 0;
};
} // namespace web_server
