/// The tree and the build that a test, benchmark or fuzz program belongs to. Found from where the program lies, so that
/// no path is compiled in: the compiler cache serves every clone.
#pragma once

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

namespace place
{
/// Path of something in the build tree: built("app/camera").
inline std::string built(const std::string &strName)
{
    for (auto folder = std::filesystem::read_symlink("/proc/self/exe").parent_path(); folder.has_relative_path();
         folder = folder.parent_path())
        if (std::filesystem::exists(folder / "CMakeCache.txt")) return folder / strName;
    throw std::runtime_error("this program is not in its build tree");
}

/// Path of something in the source tree: source("docs/visca.md").
inline std::string source(const std::string &strName)
{
    const std::string strKey = "CMAKE_HOME_DIRECTORY:INTERNAL=";
    std::ifstream cache(built("CMakeCache.txt"));
    for (std::string strLine; std::getline(cache, strLine);)
        if (strLine.compare(0, strKey.size(), strKey) == 0) return strLine.substr(strKey.size()) + "/" + strName;
    throw std::runtime_error("the build tree does not say where its sources are");
}
} // namespace place
