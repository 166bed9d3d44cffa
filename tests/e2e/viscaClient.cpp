#include "viscaClient.h"

#include <algorithm>
#include <arpa/inet.h>
#include <chrono>
#include <cstdio>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <sstream>
#include <stdexcept>
#include <sys/socket.h>
#include <termios.h>
#include <unistd.h>

namespace
{
constexpr std::uint8_t TERMINATOR = 0xFF;
constexpr std::size_t HEADER = 8; // of VISCA over IP

int connected(int s32Type, int s32Port, const std::string &strAddress)
{
    const int fd = socket(AF_INET, s32Type | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(s32Port));
    inet_pton(AF_INET, strAddress.c_str(), &address.sin_addr);
    if (connect(fd, reinterpret_cast<const sockaddr *>(&address), sizeof(address)) != 0)
        throw std::runtime_error("cannot connect to " + strAddress + ":" + std::to_string(s32Port));
    return fd;
}

int opened(const std::string &strDevice)
{
    const int fd = open(strDevice.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (fd < 0) throw std::runtime_error("cannot open " + strDevice);
    termios mode{};
    tcgetattr(fd, &mode);
    cfmakeraw(&mode);
    tcsetattr(fd, TCSANOW, &mode);
    return fd;
}

class ByteStream : public ViscaClient
{
public:
    explicit ByteStream(int fd) : m_fd(fd) {}
    ~ByteStream() override { close(m_fd); }
    void send(const Bytes &data) override
    {
        if (write(m_fd, data.data(), data.size()) != static_cast<ssize_t>(data.size()))
            throw std::runtime_error("cannot send");
    }

protected:
    bool read(Bytes &buffer, int s32TimeoutMs) override
    {
        pollfd readable{m_fd, POLLIN, 0};
        if (poll(&readable, 1, s32TimeoutMs) <= 0) return false;
        std::uint8_t au8Data[2048];
        const ssize_t len = ::read(m_fd, au8Data, sizeof(au8Data));
        if (len <= 0) return false;
        append(buffer, {au8Data, au8Data + len});
        return true;
    }
    virtual void append(Bytes &buffer, Bytes data) { buffer.insert(buffer.end(), data.begin(), data.end()); }

private:
    int m_fd;
};

class OverIp : public ByteStream
{
public:
    using ByteStream::ByteStream;
    void send(const Bytes &packet) override
    {
        const bool bInquiry = packet.size() > 1 && packet[1] == 0x09;
        const std::uint32_t n = m_u32Sequence++;
        Bytes data{0x01, static_cast<std::uint8_t>(bInquiry ? 0x10 : 0x00), 0,
                   static_cast<std::uint8_t>(packet.size())};
        for (const int s32Shift : {24, 16, 8, 0}) data.push_back(static_cast<std::uint8_t>(n >> s32Shift));
        data.insert(data.end(), packet.begin(), packet.end());
        ByteStream::send(data);
    }

protected:
    void append(Bytes &buffer, Bytes data) override
    {
        if (data.size() < HEADER || data[0] != 0x01 || data[1] != 0x11) throw std::runtime_error("not a VISCA reply");
        ByteStream::append(buffer, {data.begin() + HEADER, data.end()});
    }

private:
    std::uint32_t m_u32Sequence = 0xFFFFFFF0; // wraps in the middle of a test
};
} // namespace

Bytes ViscaClient::next(int s32TimeoutMs)
{
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(s32TimeoutMs);
    for (;;) {
        const auto end = std::find(m_buffer.begin(), m_buffer.end(), TERMINATOR);
        if (end != m_buffer.end()) {
            const Bytes packet(m_buffer.begin(), end + 1);
            m_buffer.erase(m_buffer.begin(), end + 1);
            return packet;
        }
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now()).count();
        if (left <= 0 || !read(m_buffer, static_cast<int>(left))) return {};
    }
}

std::unique_ptr<ViscaClient> connectOverIp(int s32Port, const std::string &strAddress)
{
    return std::make_unique<OverIp>(connected(SOCK_DGRAM, s32Port, strAddress));
}
std::unique_ptr<ViscaClient> connectUdp(int s32Port, const std::string &strAddress)
{
    return std::make_unique<ByteStream>(connected(SOCK_DGRAM, s32Port, strAddress));
}
std::unique_ptr<ViscaClient> connectTcp(int s32Port, const std::string &strAddress)
{
    return std::make_unique<ByteStream>(connected(SOCK_STREAM, s32Port, strAddress));
}
std::unique_ptr<ViscaClient> openSerial(const std::string &strDevice)
{
    return std::make_unique<ByteStream>(opened(strDevice));
}

std::string hex(const Bytes &packet)
{
    std::string strText;
    char acByte[4];
    for (const std::uint8_t u8 : packet) {
        std::snprintf(acByte, sizeof(acByte), "%02X ", u8);
        strText += acByte;
    }
    if (!strText.empty()) strText.pop_back();
    return strText;
}

Bytes bytes(const std::string &strHex)
{
    std::istringstream in(strHex);
    Bytes packet;
    for (unsigned u; in >> std::hex >> u;) packet.push_back(static_cast<std::uint8_t>(u));
    return packet;
}
