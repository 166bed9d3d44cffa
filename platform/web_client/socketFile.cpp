// The socket file: whose it is, how it is replaced, how a packet goes out.
#include "web_client/socketFile.h"

#include "util/file.h"
#include "util/log.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

namespace web_client
{
namespace
{
constexpr int BACKLOG = 16, BUFFER_SIZE = 512 << 10;

/// A file in an open folder: the address is short however long the folder's path is.
class Address
{
public:
    explicit Address(const std::filesystem::path &path, const std::string &strSuffix = "")
        : m_folder(open(path.parent_path().c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC)),
          m_strName(path.filename().string() + strSuffix)
    {
        m_stAddress.sun_family = AF_UNIX;
        std::snprintf(m_stAddress.sun_path, sizeof(m_stAddress.sun_path), "/proc/self/fd/%d/%s",
                      static_cast<int>(m_folder), m_strName.c_str());
    }
    bool isValid() const { return m_folder >= 0; }
    const sockaddr *get() const { return reinterpret_cast<const sockaddr *>(&m_stAddress); }
    static constexpr socklen_t SIZE = sizeof(sockaddr_un);
    bool replace(const std::string &strName) const // the file gets that name
    {
        return renameat(m_folder, m_strName.c_str(), m_folder, strName.c_str()) == 0;
    }

private:
    util::FileDescriptor m_folder;
    std::string m_strName;
    sockaddr_un m_stAddress{};
};

util::FileDescriptor makeSocket()
{
    util::FileDescriptor fd(socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    setsockopt(fd, SOL_SOCKET, SO_SNDBUF, &BUFFER_SIZE, sizeof(BUFFER_SIZE));
    return fd;
}
} // namespace

util::FileDescriptor listenAt(const char *pcPath)
{
    const std::filesystem::path path = UTIL_ROOT_Path(pcPath);
    std::error_code error;
    std::filesystem::create_directories(path.parent_path(), error);
    if (connectTo(pcPath) >= 0) {
        LOG_ERROR("%s: another camera listens there\n", path.c_str());
        return {};
    }
    const Address address(path, "." + std::to_string(getpid()));
    util::FileDescriptor fd = makeSocket();
    // The file gets its mode from the socket: there is no moment at which others could connect.
    if (address.isValid() && fd >= 0 && fchmod(fd, S_IRUSR | S_IWUSR) == 0 &&
        bind(fd, address.get(), Address::SIZE) == 0 && listen(fd, BACKLOG) == 0 && address.replace(path.filename()))
        return fd;
    LOG_ERROR("%s: %s\n", path.c_str(), std::strerror(errno));
    return {};
}

util::FileDescriptor connectTo(const char *pcPath)
{
    const Address address(UTIL_ROOT_Path(pcPath));
    util::FileDescriptor fd = makeSocket();
    if (!address.isValid() || fd < 0 || connect(fd, address.get(), Address::SIZE) != 0) return {};
    return fd;
}

int sendPacket(int s32Fd, std::string_view head, std::string_view bytes)
{
    const auto part = [](std::string_view text) { return iovec{const_cast<char *>(text.data()), text.size()}; };
    iovec astParts[]{part(head), part(bytes)};
    msghdr stMessage{};
    stMessage.msg_iov = astParts;
    stMessage.msg_iovlen = std::size(astParts);
    return sendmsg(s32Fd, &stMessage, MSG_DONTWAIT | MSG_NOSIGNAL) < 0 ? errno : 0;
}
} // namespace web_client
