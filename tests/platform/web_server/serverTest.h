/// A web server on ports of its own, with a page and with decisions that follow from the path alone.
#pragma once

#include "server.h"
#include "serverCamera.h"
#include "serverClient.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <thread>

class ServerTest : public testing::Test
{
protected:
    ServerTest();
    ~ServerTest() override;

    /// Once, before anything is asked. The limits may be changed before.
    void start();
    Peer connect(int s32ReceiveBuffer = 0) const { return connectTo(m_s32Http, s32ReceiveBuffer); }
    BU_S32 httpPort() const { return m_s32Http; }
    BU_S32 httpsPort() const { return m_s32Https; }
    web_server::Server &server() { return *m_pstServer; }
    void write(const std::string &strPath, std::string_view content) const; ///< a file of the page, or beside it
    std::filesystem::path page() const { return m_root / "page"; }

    web_server::ServerConfig config;
    std::function<web_server::Reply()> fnWork; ///< what a request of "/work" runs
    std::atomic<bool> bSessionOpen{true};

private:
    web_server::Outcome decide(const web_server::Request &stRequest) const;

    std::filesystem::path m_root;
    std::unique_ptr<web_server::Server> m_pstServer;
    BU_S32 m_s32Http = 0, m_s32Https = 0;
    std::thread m_thread;
};
