#include "viscaPeer.h"

#include "support/cameraProcess.h"

#include <algorithm>
#include <arpa/inet.h>
#include <csignal>
#include <netinet/in.h>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{
sockaddr_in loopback(int s32Port)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(s32Port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

int connected(int s32Type, int s32Port)
{
    const int fd = socket(AF_INET, s32Type | SOCK_CLOEXEC, 0);
    const sockaddr_in address = loopback(s32Port);
    if (fd < 0 || connect(fd, reinterpret_cast<const sockaddr *>(&address), sizeof(address)) != 0)
        throw std::runtime_error("cannot connect to port " + std::to_string(s32Port));
    return fd;
}
} // namespace

Bytes overIp(std::uint16_t u16Type, std::uint32_t u32Sequence, const Bytes &packet)
{
    constexpr std::size_t HEADER = 8;
    Bytes data(HEADER + packet.size());
    const auto put = [&](std::size_t at, std::uint32_t u32, std::size_t size) {
        for (std::size_t i = 0; i < size; ++i) data[at + i] = static_cast<std::uint8_t>(u32 >> 8 * (size - 1 - i));
    };
    put(0, u16Type, 2);
    put(2, static_cast<std::uint32_t>(packet.size()), 2);
    put(4, u32Sequence, 4);
    std::copy(packet.begin(), packet.end(), data.begin() + HEADER);
    return data;
}

UdpPeer::UdpPeer(int s32Port) : m_fd(connected(SOCK_DGRAM, s32Port))
{
    const timeval timeout{1, 0};
    setsockopt(m_fd, SOL_SOCKET, SO_RCVTIMEO, &timeout, sizeof(timeout));
}
UdpPeer::~UdpPeer() { close(m_fd); }

void UdpPeer::send(const Bytes &data) const
{
    if (::send(m_fd, data.data(), data.size(), 0) != static_cast<ssize_t>(data.size()))
        throw std::runtime_error("cannot send");
}

std::size_t UdpPeer::receive(std::uint8_t *pu8Buf, std::size_t size) const
{
    const ssize_t len = recv(m_fd, pu8Buf, size, 0);
    if (len < 0) throw std::runtime_error("no answer");
    return static_cast<std::size_t>(len);
}

EchoProcess::EchoProcess(int s32PinCpu)
{
    const int fd = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    sockaddr_in address = loopback(0);
    socklen_t len = sizeof(address);
    if (bind(fd, reinterpret_cast<const sockaddr *>(&address), len) != 0) throw std::runtime_error("cannot bind");
    getsockname(fd, reinterpret_cast<sockaddr *>(&address), &len);
    m_s32Port = ntohs(address.sin_port);
    m_pid = fork();
    if (m_pid == 0) {
        pinTo(s32PinCpu);
        for (std::uint8_t au8Buf[512];;) {
            sockaddr_in peer{};
            socklen_t peerLen = sizeof(peer);
            const ssize_t got = recvfrom(fd, au8Buf, sizeof(au8Buf), 0, reinterpret_cast<sockaddr *>(&peer), &peerLen);
            if (got >= 0)
                sendto(fd, au8Buf, static_cast<std::size_t>(got), 0, reinterpret_cast<sockaddr *>(&peer), peerLen);
        }
    }
    close(fd);
}
EchoProcess::~EchoProcess()
{
    kill(m_pid, SIGKILL);
    waitpid(m_pid, nullptr, 0);
}

int connectTcp(int s32Port) { return connected(SOCK_STREAM, s32Port); }

double percentile(std::vector<double> values, double dPercent)
{
    if (values.empty()) return 0;
    const auto n = static_cast<std::ptrdiff_t>(static_cast<double>(values.size() - 1) * dPercent / 100);
    std::nth_element(values.begin(), values.begin() + n, values.end());
    return values[static_cast<std::size_t>(n)];
}
