#include "serverClient.h"
#include "support/place.h"
#include "webRoot.h"

#include <csignal>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <sysexits.h>

namespace
{
using testing::HasSubstr;

/// The program itself, with a device root of its own.
class WebProcess : public WebRootTest
{
protected:
    WebProcess() { prctl(PR_SET_CHILD_SUBREAPER, 1); } // orphans come here
    ~WebProcess() override
    {
        if (m_pid > 0 && kill(m_pid, 0) == 0) end(SIGKILL);
    }

    /// Starts it and reads what it reports.
    std::string run(const std::string &strHttp, const std::string &strOffset)
    {
        int as32Report[2]{};
        EXPECT_EQ(pipe(as32Report), 0);
        m_pid = fork();
        if (m_pid == 0) become(as32Report[1], strHttp, strOffset);
        close(as32Report[1]);
        std::string strReport;
        for (char c = 0; ::read(as32Report[0], &c, 1) == 1;) strReport += c;
        close(as32Report[0]);
        return strReport;
    }
    /// @return the status as of waitpid
    int end(int s32Signal)
    {
        kill(m_pid, s32Signal);
        return wait();
    }
    int wait()
    {
        int s32Status = -1;
        waitpid(m_pid, &s32Status, 0);
        m_pid = 0;
        return s32Status;
    }

    pid_t m_pid = 0; ///< -1: any child

private:
    void become(int s32Report, const std::string &strHttp, const std::string &strOffset) const
    {
        setenv("CAMERA_PORT_OFFSET", strOffset.c_str(), 1);
        setenv("CAMERA_LOG", "3", 1);
        execl(place::built("app/camera-web").c_str(), "camera-web", "--root", root().c_str(), "--webui",
              place::source("webui").c_str(), "--http", strHttp.c_str(), "--https", "0", "--report-fd",
              std::to_string(s32Report).c_str(), nullptr);
        _exit(127);
    }
};

BU_S32 portOf(const std::string &strReport, const std::string &strScheme)
{
    const std::size_t begin = ("\n" + strReport).find("\n" + strScheme + " ");
    return begin == std::string::npos ? 0 : std::stoi(strReport.substr(begin + strScheme.size() + 1));
}

TEST_F(WebProcess, ServesReportsAndEndsWhenAsked)
{
    const std::string strReport = run("0", "0");
    const BU_S32 s32Http = portOf(strReport, "http");
    ASSERT_GT(s32Http, 0);
    EXPECT_GT(portOf(strReport, "https"), 0);
    Peer peer = connectTo(s32Http);
    const tagANSWER_S stPage = peer.ask(get("/"));
    EXPECT_EQ(stPage.s32Status, 200);
    EXPECT_THAT(stPage.strBody, HasSubstr("<!doctype html>"));
    peer.send("HEAD / HTTP/1.1\r\nHost: localhost\r\n\r\n");
    EXPECT_EQ(peer.readAnswer(false).header("content-length"), std::to_string(stPage.strBody.size()));
    EXPECT_THAT(peer.ask(get("/session")).strBody, HasSubstr("\"camera\":false"));
    EXPECT_EQ(peer.ask("GET / HTTP/1.1\r\nHost: rebound.example\r\n\r\n").s32Status, 421);
    EXPECT_EQ(end(SIGTERM), 0) << "with a connection open";
    EXPECT_TRUE(peer.isEnded());
}

TEST_F(WebProcess, ComesBackAsTheSameAfterAKill)
{
    const std::string strPort = std::to_string(portOf(run("0", "0"), "http"));
    Peer peer = connectTo(std::stoi(strPort)); // its end lingers on the port
    EXPECT_EQ(peer.ask(get("/session")).s32Status, 200);
    const std::string strCertificate = WebRootTest::read("/var/web/certificate.pem");
    end(SIGKILL);
    EXPECT_THAT(run(strPort, "0"), HasSubstr("http " + strPort + "\n")) << "the same port again";
    EXPECT_EQ(WebRootTest::read("/var/web/certificate.pem"), strCertificate);
    EXPECT_EQ(end(SIGTERM), 0);
}

TEST_F(WebProcess, LeavesADeviceRootToWhoHasIt)
{
    write("/var/camera-web.lock", "");
    const util::FileDescriptor lock(open((root() / "var/camera-web.lock").c_str(), O_RDWR));
    ASSERT_EQ(flock(lock, LOCK_EX), 0);
    EXPECT_EQ(run("0", "0"), "") << "two lists of users would undo each other's changes";
    EXPECT_EQ(wait(), W_EXITCODE(EX_TEMPFAIL, 0));
}

TEST_F(WebProcess, TakesAnotherPortWhenItsOwnIsTaken)
{
    Listener taken, free; // an offset that makes the stand-in a port that nobody has
    const BU_S32 s32StandIn = free.port();
    free.close();
    const std::string strReport = run(std::to_string(taken.port()), std::to_string(s32StandIn - 8080));
    const BU_S32 s32Http = portOf(strReport, "http");
    EXPECT_GE(s32Http, s32StandIn);
    EXPECT_LT(s32Http, s32StandIn + 10);
    EXPECT_EQ(connectTo(s32Http).ask(get("/session")).s32Status, 200);
}

TEST_F(WebProcess, EndsWithItsParent)
{
    const pid_t parent = fork();
    if (parent == 0) _exit((run("0", "0"), 0));
    EXPECT_EQ(waitpid(parent, nullptr, 0), parent);
    m_pid = -1; // the orphan
    EXPECT_EQ(wait(), 0);
}

TEST_F(WebProcess, RefusesArgumentsItDoesNotKnow)
{
    EXPECT_EQ(run("80000", "0"), "");
    EXPECT_EQ(wait(), W_EXITCODE(2, 0));
}
} // namespace
