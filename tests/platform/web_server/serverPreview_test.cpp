#include "serverTest.h"

#include <fcntl.h>
#include <sys/socket.h>

namespace
{
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;
using namespace std::string_literals;

constexpr const char *SWITCHING = "HTTP/1.1 101 Switching Protocols\r\nUpgrade: WebSocket\r\n"
                                  "Sec-WebSocket-Accept: s3pPLMBiTxaQ9kYGzzhZRbK+xOo=\r\n\r\n";

std::string upgrade(const std::string &strPath)
{
    return get(strPath, "Upgrade: websocket\r\nConnection: Upgrade\r\nOrigin: http://localhost\r\nCookie: secret=1\r\n"
                        "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\nSec-WebSocket-Version: 13\r\n");
}

class PreviewProxy : public ServerTest
{
protected:
    PreviewProxy() { config.s32PreviewPort = camera.port(); }

    /// A viewer that asks, and the preview's side of it.
    std::pair<Peer, Peer> ask(const std::string &strPath = "/preview/ch1", int s32ReceiveBuffer = 0)
    {
        std::pair<Peer, Peer> peers{connect(s32ReceiveBuffer), Peer({})};
        peers.first.send(upgrade(strPath));
        peers.second = camera.accept();
        m_strRequest = peers.second.readUntil("\r\n\r\n");
        return peers;
    }
    /// And that is let in.
    std::pair<Peer, Peer> watch(const std::string &strPath = "/preview/ch1", int s32ReceiveBuffer = 0)
    {
        auto peers = ask(strPath, s32ReceiveBuffer);
        peers.second.send(SWITCHING);
        EXPECT_EQ(peers.first.readAnswer().s32Status, 101);
        return peers;
    }

    Listener camera;
    std::string m_strRequest; ///< that came to the preview last
};

TEST_F(PreviewProxy, PassesBytesBothWays)
{
    start();
    auto [viewer, preview] = watch("/preview/ch2?audio=1");
    EXPECT_THAT(m_strRequest, testing::AllOf(StartsWith("GET /ch2?audio=1 HTTP/1.1\r\n"), Not(HasSubstr("Origin")),
                                             Not(HasSubstr("secret")),
                                             HasSubstr("\r\nSec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\n")))
        << "cookies stay here";
    const std::string strFrame = "\x82\x7F\0\0\0\0\0\x10\0\0"s + std::string(1 << 20, '\xA5');
    std::thread sender([&preview = preview, &strFrame] { preview.send(strFrame); });
    EXPECT_TRUE(viewer.read(strFrame.size()) == strFrame);
    sender.join();
    const std::string strKey = "\x81\x83"s + "\1\2\3\4" + "jgz";
    viewer.send(strKey);
    EXPECT_EQ(preview.read(strKey.size()), strKey);
    viewer.close();
    EXPECT_TRUE(preview.isEnded());
    auto [other, itsPreview] = watch();
    itsPreview.send("\x88\x02\x03\xE9");
    itsPreview.close();
    EXPECT_EQ(other.readUntil("?"), "\x88\x02\x03\xE9") << "what was said last arrives, then the end";
}

TEST_F(PreviewProxy, PassesOnWhatComesWithTheAnswer)
{
    start();
    auto [viewer, preview] = ask();
    preview.send(SWITCHING + "\x82\x01x"s);
    EXPECT_EQ(viewer.readAnswer().s32Status, 101);
    EXPECT_EQ(viewer.read(3), "\x82\x01x");
}

/// The reason in the close frame of a viewer that became none.
std::string reasonOf(Peer &viewer)
{
    EXPECT_EQ(viewer.readAnswer().s32Status, 101) << "else the page would not learn why";
    const std::string strHead = viewer.read(4);
    EXPECT_EQ(strHead.substr(0, 1) + strHead.substr(2), "\x88\x03\xF5") << "1013: try again later";
    std::string strReason = viewer.read(static_cast<std::size_t>(strHead[1] - 2));
    EXPECT_TRUE(viewer.isEnded());
    return strReason;
}

TEST_F(PreviewProxy, TellsWhyThereIsNoPicture)
{
    config.s64RequestMs = 200;
    start();
    constexpr std::pair<const char *, const char *> ROWS[] = {
        {"HTTP/1.1 503 Service Unavailable\r\nContent-Length: 17\r\n\r\nToo many viewers\n", "Too many viewers"},
        {"HTTP/1.1 404 Not Found\r\n\r\n", "the camera does not show this"},
        {"garbage", "the camera is not there"}, // it ends behind it
        {nullptr, "the camera does not answer"},
    };
    for (const auto &[pcAnswer, pcReason] : ROWS) {
        auto [viewer, preview] = ask();
        if (pcAnswer) {
            preview.send(pcAnswer);
            preview.close();
        }
        EXPECT_EQ(reasonOf(viewer), pcReason);
    }
    camera.close();
    Peer viewer = connect();
    viewer.send(upgrade("/preview/ch1"));
    EXPECT_EQ(reasonOf(viewer), "the camera is not there");
}

TEST_F(PreviewProxy, ASlowViewerHoldsThePreviewBackAndMissesNothing)
{
    start();
    auto [viewer, preview] = watch("/preview/ch1", 4096);
    fcntl(preview.fd(), F_SETFL, O_NONBLOCK);
    const int s32Small = 16384;
    setsockopt(preview.fd(), SOL_SOCKET, SO_SNDBUF, &s32Small, sizeof(s32Small));
    std::string strSent;
    Peer other = connect();
    for (int s32Full = 0; s32Full < 20 && strSent.size() < 20'000'000;) { // until nothing moves for a while
        const std::string strPiece(5000, static_cast<char>('a' + strSent.size() % 23));
        const ssize_t sent = send(preview.fd(), strPiece.data(), strPiece.size(), MSG_NOSIGNAL);
        if (sent > 0) strSent += strPiece.substr(0, static_cast<std::size_t>(sent));
        s32Full = sent > 0 ? 0 : s32Full + 1;
        ASSERT_EQ(other.ask(get("/echo")).s32Status, 200); // the server has been round its loop
    }
    EXPECT_LT(strSent.size(), 2'000'000U);
    EXPECT_TRUE(viewer.read(strSent.size()) == strSent);
    EXPECT_GT(send(preview.fd(), "more", 4, MSG_NOSIGNAL), 0);
    EXPECT_EQ(viewer.read(4), "more");
}

TEST_F(PreviewProxy, EndsWithTheSession)
{
    config.s64HeartbeatMs = 50;
    start();
    auto [viewer, preview] = watch();
    bSessionOpen = false;
    EXPECT_TRUE(viewer.isEnded() && preview.isEnded());
}
} // namespace
