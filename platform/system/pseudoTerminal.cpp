// A serial port as a pseudo-terminal: link, bytes, what is lost when nobody reads.
#include "pseudoTerminal.h"

#include "util/log.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/ioctl.h>
#include <termios.h>

namespace
{
constexpr int UNREAD_LIMIT = 2048; // bytes that wait for a controller; more are stale

struct RateRow {
    BU_S32 s32BitsPerSecond;
    speed_t speed;
};
constexpr RateRow RATES[] = {{2400, B2400},   {4800, B4800},   {9600, B9600},    {19200, B19200},
                             {38400, B38400}, {57600, B57600}, {115200, B115200}};

bool makeRaw(int s32Terminal)
{
    termios stMode;
    if (tcgetattr(s32Terminal, &stMode) != 0) return false;
    cfmakeraw(&stMode);
    return tcsetattr(s32Terminal, TCSANOW, &stMode) == 0;
}

/// Points the link to the terminal in one step, whatever was there before.
bool linkTo(const std::string &strTerminal, const std::string &strLink)
{
    std::error_code error;
    const std::string strNew = strLink + ".new";
    std::filesystem::create_directories(std::filesystem::path(strLink).parent_path(), error);
    std::filesystem::remove(strNew, error);
    return symlink(strTerminal.c_str(), strNew.c_str()) == 0 && std::rename(strNew.c_str(), strLink.c_str()) == 0;
}
} // namespace

std::unique_ptr<PseudoTerminal> PseudoTerminal::open(const std::string &strLink, const BU_CHAR *pcThread,
                                                     Receiver receiver)
{
    util::FileDescriptor clMaster(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK));
    std::array<BU_CHAR, 64> acTerminal{};
    if (clMaster < 0 || grantpt(clMaster) != 0 || unlockpt(clMaster) != 0 ||
        ptsname_r(clMaster, acTerminal.data(), acTerminal.size()) != 0)
        return nullptr;
    util::FileDescriptor clTerminal(::open(acTerminal.data(), O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK));
    util::FileDescriptor clStop(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
    if (clTerminal < 0 || clStop < 0 || !makeRaw(clTerminal) || !linkTo(acTerminal.data(), strLink)) return nullptr;
    std::unique_ptr<PseudoTerminal> port(
        new PseudoTerminal(strLink, std::move(clMaster), std::move(clTerminal), std::move(clStop)));
    port->m_thread = util::Thread(pcThread, [port = port.get(), receiver = std::move(receiver)](
                                                const std::stop_token &stop) { port->receive(stop, receiver); });
    return port;
}

PseudoTerminal::PseudoTerminal(std::string strLink, util::FileDescriptor clMaster, util::FileDescriptor clTerminal,
                               util::FileDescriptor clStop)
    : m_strLink(std::move(strLink)), m_clMaster(std::move(clMaster)), m_clTerminal(std::move(clTerminal)),
      m_clStop(std::move(clStop))
{
}

void PseudoTerminal::receive(const std::stop_token &stop, const Receiver &receiver)
{
    const std::stop_callback wake(stop, [this] { eventfd_write(m_clStop, 1); });
    std::array<BU_U8, 1024> au8Bytes;
    std::array<pollfd, 2> astPoll{pollfd{m_clMaster, POLLIN, 0}, pollfd{m_clStop, POLLIN, 0}};
    while (!stop.stop_requested()) {
        if (poll(astPoll.data(), astPoll.size(), -1) < 0 && errno != EINTR) return;
        const ssize_t size = read(m_clMaster, au8Bytes.data(), au8Bytes.size());
        if (size > 0)
            receiver(std::span(au8Bytes).first(static_cast<std::size_t>(size)));
        else if (size == 0 || (errno != EAGAIN && errno != EINTR)) {
            LOG_ERROR("%s: the port has ended", m_strLink.c_str());
            return;
        }
    }
}

BU_S32 PseudoTerminal::send(std::span<const BU_U8> bytes)
{
    const std::lock_guard guard(m_sendLock);
    int s32Unread = 0;
    bool bLoss = ioctl(m_clTerminal, FIONREAD, &s32Unread) == 0 && s32Unread > UNREAD_LIMIT;
    if (bLoss) tcflush(m_clTerminal, TCIFLUSH);
    const ssize_t size = write(m_clMaster, bytes.data(), bytes.size());
    const bool bWhole = size == static_cast<ssize_t>(bytes.size());
    bLoss = bLoss || !bWhole;
    if (bLoss && !std::exchange(m_bLossLogged, true))
        LOG_WARN("%s: the controller does not read, bytes are lost", m_strLink.c_str());
    if (!bLoss) m_bLossLogged = m_bLossLogged && s32Unread > 0;
    return bWhole ? 0 : -1;
}

void PseudoTerminal::setBaudrate(BU_S32 s32BitsPerSecond)
{
    const auto rate = std::ranges::find(RATES, s32BitsPerSecond, &RateRow::s32BitsPerSecond);
    termios stMode;
    if (rate == std::end(RATES) || tcgetattr(m_clTerminal, &stMode) != 0) return;
    cfsetspeed(&stMode, rate->speed);
    tcsetattr(m_clTerminal, TCSANOW, &stMode);
}
