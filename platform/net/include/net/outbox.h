/// What waits to be sent on a connection.
#pragma once

#include "base/types.h"

#include <cstddef>
#include <span>
#include <vector>

namespace net
{
/// Bounded: who does not read does not fill the memory. Not for several threads at once.
class Outbox
{
public:
    enum class Framing {
        STREAM, ///< bytes may leave in any pieces
        PACKETS ///< what was added at once leaves as one packet
    };
    /// @param most  so many bytes may wait
    explicit Outbox(std::size_t most, Framing enFraming = Framing::STREAM) : m_most(most), m_enFraming(enFraming) {}

    /// Adds body behind head. @return false: too much waits already, nothing was added
    bool add(std::span<const BU_U8> head, std::span<const BU_U8> body = {});
    /// Sends what the socket takes, never waits.
    /// @return 0: all; EAGAIN: the rest waits for room; else what went wrong, and a packet that cannot be sent is lost
    int send(int s32Socket);
    void clear();
    bool isEmpty() const { return m_bytes.empty(); }

private:
    void dropFirst(std::size_t bytes, std::size_t packets);

    std::size_t m_most;
    Framing m_enFraming;
    std::vector<BU_U8> m_bytes;       // its memory is given back when it was much
    std::vector<std::size_t> m_sizes; // of the packets in it
};
} // namespace net
