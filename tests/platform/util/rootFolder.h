/// A device root of its own, in a folder whose neighbours must stay untouched.
#pragma once

#include "util/file.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>

class Root
{
public:
    Root()
    {
        char acFolder[] = "/tmp/camera-util-XXXXXX";
        m_strOutside = mkdtemp(acFolder);
        UTIL_ROOT_Set(root().c_str());
    }
    ~Root() { std::filesystem::remove_all(m_strOutside); }

    std::string root() const { return m_strOutside + "/root"; }
    const std::string &outside() const { return m_strOutside; }
    void write(const std::string &strPath, const std::string &strText) const
    {
        std::ofstream(root() + strPath) << strText;
    }
    std::string read(const std::string &strPath) const
    {
        std::ifstream stFile(root() + strPath);
        return {std::istreambuf_iterator(stFile), {}};
    }
    bool exists(const std::string &strPath) const { return std::filesystem::exists(root() + strPath); }

private:
    std::string m_strOutside;
};
struct RootTest : testing::Test, Root {
};
