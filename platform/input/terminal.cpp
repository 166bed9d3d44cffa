// A device as a pseudo-terminal, linked below the device root.
#include "terminal.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <termios.h>

namespace input
{
namespace
{
bool makeRaw(int s32Terminal)
{
    termios stMode;
    if (tcgetattr(s32Terminal, &stMode) != 0) return false;
    cfmakeraw(&stMode);
    return tcsetattr(s32Terminal, TCSANOW, &stMode) == 0;
}
} // namespace

std::unique_ptr<Terminal> Terminal::open(const std::string &strLink)
{
    std::unique_ptr<Terminal> terminal(new Terminal);
    std::array<BU_CHAR, 64> acTerminal{};
    terminal->m_strLink = strLink;
    terminal->m_clMaster = util::FileDescriptor(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK));
    if (terminal->m_clMaster < 0 || grantpt(terminal->m_clMaster) != 0 || unlockpt(terminal->m_clMaster) != 0 ||
        ptsname_r(terminal->m_clMaster, acTerminal.data(), acTerminal.size()) != 0)
        return nullptr;
    terminal->m_strTerminal = acTerminal.data();
    terminal->m_clTerminal = util::FileDescriptor(::open(acTerminal.data(), O_RDWR | O_NOCTTY | O_CLOEXEC));
    if (terminal->m_clTerminal < 0 || !makeRaw(terminal->m_clTerminal) || terminal->link() != 0) return nullptr;
    return terminal;
}

Terminal::~Terminal()
{
    if (isLinked()) unlink(m_strLink.c_str());
}

BU_S32 Terminal::read(std::span<BU_U8> bytes)
{
    const ssize_t size = ::read(m_clMaster, bytes.data(), bytes.size());
    if (size > 0) return static_cast<BU_S32>(size);
    return size < 0 && (errno == EAGAIN || errno == EINTR) ? 0 : -1;
}

dev_t Terminal::number() const
{
    struct stat stStatus {
    };
    return fstat(m_clTerminal, &stStatus) == 0 ? stStatus.st_rdev : 0;
}

bool Terminal::isLinked() const
{
    std::error_code error;
    return std::filesystem::read_symlink(m_strLink, error) == m_strTerminal;
}

BU_S32 Terminal::link()
{
    std::error_code error;
    const std::string strNew = m_strLink + ".new";
    std::filesystem::create_directories(std::filesystem::path(m_strLink).parent_path(), error);
    std::filesystem::remove(strNew, error);
    tcflush(m_clMaster, TCIFLUSH);
    if (symlink(m_strTerminal.c_str(), strNew.c_str()) != 0) return -1;
    return std::rename(strNew.c_str(), m_strLink.c_str()) == 0 ? 0 : -1;
}
} // namespace input
