#include "viscaClient.h"

#include "util/bytes.h"

#include <algorithm>
#include <arpa/inet.h>
#include <fcntl.h>
#include <poll.h>
#include <stdexcept>
#include <unistd.h>

ViscaClient::ViscaClient(const CameraProcess &camera, Transport enTransport, const char *pcAddress)
    : m_bHeader(enTransport == Transport::OverIp)
{
    if (enTransport >= Transport::Rs232) {
        const char *pcDevice = enTransport == Transport::Rs232 ? "/dev/ttyS_RS232" : "/dev/ttyS_RS422";
        m_fd = util::FileDescriptor(open(camera.path(pcDevice).c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC));
        return; // the port is raw as it is
    }
    constexpr int PORTS[] = {52381, 1259, 5678};
    sockaddr_in address{AF_INET, htons(static_cast<BU_U16>(camera.port(PORTS[static_cast<int>(enTransport)]))), {}, {}};
    inet_pton(AF_INET, pcAddress, &address.sin_addr);
    m_fd = util::FileDescriptor(
        socket(AF_INET, (enTransport == Transport::Tcp ? SOCK_STREAM : SOCK_DGRAM) | SOCK_CLOEXEC, 0));
    if (connect(m_fd, reinterpret_cast<const sockaddr *>(&address), sizeof(address)) != 0)
        throw std::runtime_error(std::string("cannot connect to ") + pcAddress);
}

void ViscaClient::send(const std::string &strHex)
{
    Bytes data = bytes(strHex);
    if (m_bHeader) {
        Bytes head{1, BU_U8(data[1] == 9 ? 0x10 : 0), 0, BU_U8(data.size()), 0, 0, 0, 0};
        util::ByteWriter(std::span(head).subspan(4)).big<4>(m_u32Sequence++);
        data.insert(data.begin(), head.begin(), head.end());
    }
    if (write(m_fd, data.data(), data.size()) != static_cast<ssize_t>(data.size()))
        throw std::runtime_error("cannot send");
}

std::string ViscaClient::next(int s32TimeoutMs)
{
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(s32TimeoutMs);
    for (;;) {
        if (const auto end = std::ranges::find(m_buffer, 0xFF); end != m_buffer.end()) {
            const std::string strPacket = hex({m_buffer.begin(), end + 1});
            m_buffer.erase(m_buffer.begin(), end + 1);
            return strPacket;
        }
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now()).count();
        pollfd readable{m_fd, POLLIN, 0};
        BU_U8 au8Data[2048];
        if (left <= 0 || poll(&readable, 1, static_cast<int>(left)) <= 0) return "";
        const ssize_t size = read(m_fd, au8Data, sizeof(au8Data)), head = m_bHeader ? 8 : 0;
        if (size <= head) return "";
        if (m_bHeader && (au8Data[0] != 1 || au8Data[1] != 0x11)) throw std::runtime_error("not a VISCA reply");
        m_buffer.insert(m_buffer.end(), au8Data + head, au8Data + size);
    }
}

bool ViscaClient::isDone(const std::string &strCommand, int s32TimeoutMs)
{
    const std::string strAck = ask(strCommand);
    return (strAck == "90 41 FF" || strAck == "90 42 FF") &&
           next(s32TimeoutMs) == std::string("90 5") + strAck[4] + " FF";
}
