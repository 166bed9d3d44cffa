// What of an outbox leaves at once.
#include "net/outbox.h"

#include <cerrno>
#include <sys/socket.h>

namespace net
{
bool Outbox::add(std::span<const BU_U8> head, std::span<const BU_U8> body)
{
    if (m_bytes.size() + head.size() + body.size() > m_most) return false;
    m_bytes.insert(m_bytes.end(), head.begin(), head.end());
    m_bytes.insert(m_bytes.end(), body.begin(), body.end());
    if (m_enFraming == Framing::PACKETS) m_sizes.push_back(head.size() + body.size());
    return true;
}

int Outbox::send(int s32Socket)
{
    const bool bPackets = m_enFraming == Framing::PACKETS;
    std::size_t done = 0, packets = 0;
    int s32Error = 0;
    while (s32Error == 0 && done < m_bytes.size()) {
        const std::size_t size = bPackets ? m_sizes[packets] : m_bytes.size() - done;
        const ssize_t sent = ::send(s32Socket, m_bytes.data() + done, size, MSG_NOSIGNAL | MSG_DONTWAIT);
        if (sent < 0 && errno == EINTR) continue;
        if (sent < 0) s32Error = errno;
        if (bPackets && s32Error != EAGAIN) {
            done += size;
            ++packets;
        } else if (sent > 0)
            done += static_cast<std::size_t>(sent);
    }
    dropFirst(done, packets);
    return s32Error;
}

void Outbox::dropFirst(std::size_t bytes, std::size_t packets)
{
    constexpr std::size_t KEPT_CAPACITY = 512;
    m_bytes.erase(m_bytes.begin(), m_bytes.begin() + static_cast<std::ptrdiff_t>(bytes));
    m_sizes.erase(m_sizes.begin(), m_sizes.begin() + static_cast<std::ptrdiff_t>(packets));
    if (m_bytes.empty() && m_bytes.capacity() > KEPT_CAPACITY) clear();
}

void Outbox::clear()
{
    std::vector<BU_U8>().swap(m_bytes);
    m_sizes.clear();
}
} // namespace net
