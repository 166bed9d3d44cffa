#include "player.h"

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <iterator>
#include <numeric>
#include <poll.h>
#include <sstream>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace
{
constexpr int PATIENCE_MS = 10'000;

/// Starts a program. @return its process; the pipes carry what it writes
pid_t start(const std::string &strCommand, int &fdOut, int *pfdErr = nullptr)
{
    std::istringstream stWords(strCommand);
    std::vector<std::string> listArgs{std::istream_iterator<std::string>(stWords), {}};
    int as32Out[2], as32Err[2];
    if (pipe2(as32Out, O_CLOEXEC) != 0 || pipe2(as32Err, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    const pid_t pid = fork();
    if (pid == 0) {
        dup2(open("/dev/null", O_RDONLY), STDIN_FILENO);
        dup2(as32Out[1], STDOUT_FILENO);
        if (pfdErr) dup2(as32Err[1], STDERR_FILENO);
        std::vector<char *> listPointers;
        for (std::string &strArg : listArgs) listPointers.push_back(strArg.data());
        listPointers.push_back(nullptr);
        execvp(listPointers.front(), listPointers.data());
        _exit(127);
    }
    close(as32Out[1]);
    close(as32Err[1]);
    fdOut = as32Out[0];
    if (pfdErr)
        *pfdErr = as32Err[0];
    else
        close(as32Err[0]);
    return pid;
}

/// A stream starts at a key frame, which comes within half a second: nothing else has to be looked for.
const std::string QUICK = " -v error -probesize 200000 -analyzeduration 600000 -fpsprobesize 0 ";
} // namespace

tagENDED_S runCommand(const std::string &strCommand)
{
    tagENDED_S st{};
    int fdOut = -1, fdErr = -1;
    const pid_t pid = start("timeout 20 " + strCommand, fdOut, &fdErr);
    pollfd astEnds[] = {{fdOut, POLLIN, 0}, {fdErr, POLLIN, 0}};
    std::string *const apstrText[] = {&st.strOut, &st.strErr};
    while (astEnds[0].fd >= 0 || astEnds[1].fd >= 0) {
        poll(astEnds, 2, -1);
        for (int i = 0; i < 2; ++i) {
            if (astEnds[i].revents == 0) continue;
            char acText[4096];
            const ssize_t length = read(astEnds[i].fd, acText, sizeof(acText));
            if (length > 0)
                apstrText[i]->append(acText, static_cast<std::size_t>(length));
            else
                astEnds[i].fd = -1;
        }
    }
    close(fdOut);
    close(fdErr);
    waitpid(pid, &st.s32Status, 0);
    st.s32Status = WIFEXITED(st.s32Status) ? WEXITSTATUS(st.s32Status) : 128 + WTERMSIG(st.s32Status);
    return st;
}

std::string probe(const std::string &strUrl, const std::string &strTransport)
{
    tagENDED_S st = runCommand("ffprobe" + QUICK + "-rtsp_transport " + strTransport +
                               " -show_entries stream=codec_name,width,height,sample_rate,channels"
                               " -of csv=print_section=0 " +
                               strUrl);
    if (st.s32Status != 0) return st.strErr;
    while (!st.strOut.empty() && st.strOut.back() == '\n') st.strOut.pop_back();
    std::ranges::replace(st.strOut, '\n', ' ');
    return st.strOut;
}

double tagGRAY_S::mean() const
{
    return std::accumulate(points.begin(), points.end(), 0.0) / static_cast<double>(points.size());
}

std::vector<double> tagGRAY_S::columns() const
{
    std::vector<double> list(WIDTH);
    for (std::size_t i = 0; i < points.size(); ++i) list[i % WIDTH] += points[i] / double{HEIGHT};
    return list;
}

std::vector<double> tagGRAY_S::rows() const
{
    std::vector<double> list(HEIGHT);
    for (std::size_t i = 0; i < points.size(); ++i) list[i / WIDTH] += points[i] / double{WIDTH};
    return list;
}

GrayPlayer::GrayPlayer(const std::string &strUrl)
{
    m_pid = start("ffmpeg" + QUICK + "-rtsp_transport tcp -allowed_media_types video -i " + strUrl +
                      " -vf scale=" + std::to_string(tagGRAY_S::WIDTH) + ":" + std::to_string(tagGRAY_S::HEIGHT) +
                      ",format=gray -f rawvideo -",
                  m_fd);
}

GrayPlayer::~GrayPlayer()
{
    kill(m_pid, SIGKILL);
    waitpid(m_pid, nullptr, 0);
    close(m_fd);
}

tagGRAY_S GrayPlayer::next()
{
    tagGRAY_S st{std::vector<std::uint8_t>(tagGRAY_S::WIDTH * tagGRAY_S::HEIGHT)};
    for (std::size_t done = 0; done < st.points.size();) {
        pollfd readable{m_fd, POLLIN, 0};
        const ssize_t length =
            poll(&readable, 1, PATIENCE_MS) > 0 ? read(m_fd, st.points.data() + done, st.points.size() - done) : 0;
        if (length <= 0) return {};
        done += static_cast<std::size_t>(length);
    }
    return st;
}
