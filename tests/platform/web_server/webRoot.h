#pragma once

#include "util/file.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

/// A device root of the test's own.
class WebRootTest : public testing::Test
{
protected:
    WebRootTest() { UTIL_ROOT_Set(m_root.c_str()); }
    ~WebRootTest() override { std::filesystem::remove_all(m_root); }

    static void write(const std::string &strPath, const std::string &strContent)
    {
        std::filesystem::create_directories(std::filesystem::path(UTIL_ROOT_Path(strPath.c_str())).parent_path());
        std::ofstream(UTIL_ROOT_Path(strPath.c_str()), std::ios::binary) << strContent;
    }
    static std::string read(const char *pcPath)
    {
        std::stringstream content;
        content << std::ifstream(UTIL_ROOT_Path(pcPath)).rdbuf();
        return content.str();
    }

    const std::filesystem::path &root() const { return m_root; }

private:
    const std::filesystem::path m_root = mkdtemp(std::string("/tmp/camera-test-XXXXXX").data());
};
