/// A web server on ports of its own, with a page and with decisions that follow from the path alone.
#pragma once

#include "server.h"
#include "serverCamera.h"
#include "serverClient.h"
#include "users/certificate.h"
#include "webRoot.h"

#include <atomic>
#include <functional>
#include <memory>
#include <thread>

class ServerTest : public WebRootTest
{
protected:
    ServerTest()
    {
        std::filesystem::create_directories(page());
        config.strPage = page();
    }
    ~ServerTest() override
    {
        if (m_pstServer) m_pstServer->stop();
        if (m_thread.joinable()) m_thread.join();
    }

    /// Once, before anything is asked. The limits may be changed before.
    void start();
    Peer connect(int s32ReceiveBuffer = 0) const { return connectTo(m_s32Http, s32ReceiveBuffer); }
    BU_S32 httpsPort() const { return m_s32Https; }
    web_server::Server &server() { return *m_pstServer; }
    std::filesystem::path page() const { return root() / "page"; }
    /// A file of the page, or beside it.
    void write(const std::string &strPath, const std::string &strContent) const
    {
        WebRootTest::write("/page/" + strPath, strContent);
    }
    /// A page that hears news, and has heard how things are.
    Peer listener(const std::string &strPath = "/news", int s32ReceiveBuffer = 0) const
    {
        Peer peer = connect(s32ReceiveBuffer);
        EXPECT_EQ(peer.ask(get(strPath)).s32Status, 200);
        EXPECT_THAT(peer.readUntil("}\n\n"), testing::EndsWith("data: {\"camera\":false}\n\n"));
        return peer;
    }

    web_server::ServerConfig config;
    std::function<web_server::Reply()> fnWork; ///< what a request of "/work" runs
    std::atomic<bool> bSessionOpen{true};

private:
    web_server::Outcome decide(const web_server::Request &stRequest) const;

    std::unique_ptr<web_server::Server> m_pstServer;
    BU_S32 m_s32Http = 0, m_s32Https = 0;
    std::thread m_thread;
};
