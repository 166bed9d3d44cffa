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

/// A store in memory and a device root of its own.
class FreshDevice : public testing::Test
{
protected:
    FreshDevice()
    {
        UTIL_ROOT_Set(m_strRoot.c_str());
        CFG_STORE_Open(nullptr);
        CFG_SETTING_Reload();
    }
    ~FreshDevice() override { std::filesystem::remove_all(m_strRoot); }
    const std::string &root() const { return m_strRoot; }

private:
    const std::string m_strRoot = mkdtemp(std::string("/tmp/camera-test-XXXXXX").data());
};

class PlatformTest : private util::ManualClock, public FreshDevice
{
protected:
    PlatformTest() { journal::start(); }
    ~PlatformTest() override
    {
        UTIL_THREAD_WaitAsync();
        journal::stop();
    }
    util::ManualClock &clock() { return *this; }
};
