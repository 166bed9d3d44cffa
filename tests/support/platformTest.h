/// Base of the tests above the platform: a manual clock, a store in memory, a device root of its own, the journal on.
#pragma once

#include "camera/settingEvent.h"
#include "store/store.h"
#include "util/file.h"
#include "util/journal.h"
#include "util/thread.h"
#include "util/time.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

class PlatformTest : public testing::Test
{
protected:
    PlatformTest()
    {
        char acFolder[] = "/tmp/camera-test-XXXXXX";
        m_strRoot = mkdtemp(acFolder);
        UTIL_ROOT_Set(m_strRoot.c_str());
        CFG_STORE_Open(nullptr);
        CFG_SETTING_Reload();
        journal::start();
    }
    ~PlatformTest() override
    {
        UTIL_THREAD_WaitAsync();
        journal::stop();
        std::filesystem::remove_all(m_strRoot);
    }
    util::ManualClock &clock() { return m_stClock; }
    const std::string &root() const { return m_strRoot; }

private:
    util::ManualClock m_stClock;
    std::string m_strRoot;
};
