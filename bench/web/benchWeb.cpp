// Round trips of web calls to a running camera, beside a bare echo over the same kind of socket with packets of the
// same sizes, measured in turn with them.
#include "support/cameraProcess.h"
#include "util/file.h"
#include "web/panelPayload.h"
#include "web_client/client.h"
#include "web_client/message.h"
#include "web_client/socketFile.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <future>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/wait.h>
#include <vector>

namespace
{
using Clock = std::chrono::steady_clock;
constexpr int SERVER_CPU = 0, CLIENT_CPU = 1;
constexpr int ROUNDS = 50, CALLS = 400;

double microseconds(Clock::duration d) { return std::chrono::duration<double, std::micro>(d).count(); }

double percentile(std::vector<double> values, double dPercent)
{
    const auto n = static_cast<std::ptrdiff_t>(static_cast<double>(values.size() - 1) * dPercent / 100);
    std::nth_element(values.begin(), values.begin() + n, values.end());
    return values[static_cast<std::size_t>(n)];
}

/// A process that sends back what it gets, on the camera's processor.
class Echo
{
public:
    Echo()
    {
        int as32Ends[2];
        if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, as32Ends) != 0) throw std::runtime_error("no socket");
        m_pid = fork();
        if (m_pid == 0) {
            pinTo(SERVER_CPU);
            close(as32Ends[0]);
            char acBytes[4096];
            for (ssize_t n = 0; (n = recv(as32Ends[1], acBytes, sizeof(acBytes), 0)) > 0;)
                send(as32Ends[1], acBytes, static_cast<std::size_t>(n), MSG_NOSIGNAL);
            _exit(0);
        }
        close(as32Ends[1]);
        m_fd = util::FileDescriptor(as32Ends[0]);
    }
    ~Echo()
    {
        m_fd = util::FileDescriptor();
        waitpid(m_pid, nullptr, 0);
    }
    Echo(const Echo &) = delete;
    Echo &operator=(const Echo &) = delete;
    int fd() const { return m_fd; }

private:
    pid_t m_pid;
    util::FileDescriptor m_fd;
};

struct Series {
    const char *pcName;
    int s32Fd;
    std::string strPacket;
    std::vector<double> times{};

    void round(int s32Count)
    {
        char acBytes[4096];
        for (int i = 0; i < s32Count; ++i) {
            const auto start = Clock::now();
            if (send(s32Fd, strPacket.data(), strPacket.size(), MSG_NOSIGNAL) < 0) throw std::runtime_error("no way");
            std::optional<web_client::Message> message; // news may come between
            do {
                const ssize_t n = recv(s32Fd, acBytes, sizeof(acBytes), 0);
                if (n <= 0) throw std::runtime_error("no answer");
                message = web_client::decode({acBytes, static_cast<std::size_t>(n)});
            } while (message && message->stHead.enKind == web_client::Kind::NEWS);
            times.push_back(microseconds(Clock::now() - start));
            if (message && message->stHead.s16Result != 0) throw std::runtime_error("refused");
        }
    }
    void print(const Series &stBaseline) const
    {
        const double d50 = percentile(times, 50), d99 = percentile(times, 99);
        std::printf("%-34s p50 %7.1f us  p99 %7.1f us   ratio p50 %5.2f  p99 %5.2f\n", pcName, d50, d99,
                    d50 / percentile(stBaseline.times, 50), d99 / percentile(stBaseline.times, 99));
    }
};

std::string callPacket(tag_WEB_RPC_EVENT_GROUP_E enEvent)
{
    tag_WEB_RPC_PANEL_REQ_PAYLOAD_S stRequest;
    stRequest.s32EventType = 1;
    std::string strImage(stRequest.getSize(), '\0');
    stRequest.dumpBytes(strImage.data(), stRequest.getSize());
    const web_client::Head stHead{.enKind = web_client::Kind::CALL, .u32Subject = static_cast<BU_U32>(enEvent)};
    return std::string(reinterpret_cast<const char *>(&stHead), sizeof(stHead)) + strImage;
}

/// The way through the client of the web server, with the hand-over to the thread that waits.
std::vector<double> throughClient()
{
    std::promise<void> up;
    WEB_CLIENT_Start(
        [&](BU_BOOL bUp) {
            if (bUp) up.set_value();
        },
        nullptr);
    up.get_future().wait();
    const std::string strImage = callPacket(WEB_RPC_EVENT_GROUP_E_GET_ISP).substr(sizeof(web_client::Head));
    std::vector<double> times;
    for (int i = 0; i < 5000; ++i) {
        std::promise<WEB_CLIENT_RESULT_E> answered;
        const auto start = Clock::now();
        WEB_CLIENT_Call(WEB_RPC_EVENT_GROUP_E_GET_ISP, strImage, 2000,
                        [&](WEB_CLIENT_RESULT_E enResult, std::string_view) { answered.set_value(enResult); });
        if (answered.get_future().get() != WEB_CLIENT_RESULT_E_OK) throw std::runtime_error("refused");
        times.push_back(microseconds(Clock::now() - start));
    }
    WEB_CLIENT_Stop();
    return times;
}

int run()
{
    CameraProcess stCamera({.s32Cpu = SERVER_CPU, .env = {"CAMERA_WEB_SERVER="}});
    Echo stEcho;
    pinTo(CLIENT_CPU);
    UTIL_ROOT_Set(stCamera.path("").c_str());
    const util::FileDescriptor fd = web_client::connectTo(web_client::SOCKET_PATH);
    if (fd < 0) throw std::runtime_error("the camera has no web service");
    fcntl(fd, F_SETFL, 0);

    Series stBare{"bare echo", stEcho.fd(), callPacket(WEB_RPC_EVENT_GROUP_E_GET_ISP)};
    stBare.strPacket.back() = 0;
    Series astCalls[]{{"panel get, image item", fd, callPacket(WEB_RPC_EVENT_GROUP_E_GET_ISP)},
                      {"panel get, lens item", fd, callPacket(WEB_RPC_EVENT_GROUP_E_GET_AF)},
                      {"question for the position", fd, web_client::encodeQuestion(1, "position", "")}};
    for (int i = 0; i < ROUNDS; ++i) {
        stBare.round(CALLS);
        for (Series &st : astCalls) st.round(CALLS);
    }
    std::printf("round trips over the Unix-domain socket, ratio to the bare echo\n");
    stBare.print(stBare);
    for (const Series &st : astCalls) st.print(stBare);
    const Series stClient{"panel get through the client", -1, "", throughClient()};
    stClient.print(stBare);
    return 0;
}
} // namespace

int main()
{
    try {
        return run();
    } catch (const std::exception &e) {
        std::fprintf(stderr, "%s\n", e.what());
        return 1;
    }
}
