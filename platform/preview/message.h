/// The messages viewers get: a fixed header (docs/preview.md), numbers with the highest byte first, then one packet.
#pragma once

#include "util/bytes.h"

#include <cstddef>
#include <memory>
#include <span>

namespace preview
{
using util::BigEndian;

struct Header {
    static constexpr BU_U8 KEY_FRAME = 0x01;

    BU_U8 au8Magic[4]{'P', 'T', 'Z', 1}; // the last byte is the version
    BU_U8 u8Codec{};                     // STREAM_TYPE_...
    BU_U8 u8Flags{};
    BigEndian<2> HeaderSize{{0, 32}};
    BigEndian<4> Sequence{};
    BigEndian<2> Width{}, Height{};
    BigEndian<8> TimestampUs{};
    BigEndian<4> SampleRate{};
    BU_U8 u8Channels{};
    BU_U8 au8Reserved[3]{};
};
static_assert(sizeof(Header) == 32 && offsetof(Header, Sequence) == 8 && offsetof(Header, Width) == 12 &&
              offsetof(Header, TimestampUs) == 16 && offsetof(Header, SampleRate) == 24);

/// One message, shared by everybody it goes to. The frame header that the WebSocket library writes in front of it
/// depends on its size alone, so all sends may use the same memory, one after the other.
class Message
{
public:
    static constexpr std::size_t HEADROOM = 16;

    Message(const Header &stHeader, std::span<const BU_U8> packet);
    BU_U8 *data() const { return m_bytes.get() + HEADROOM; } ///< HEADROOM bytes before it may be overwritten
    std::size_t size() const { return m_size; }
    bool isKeyFrame() const { return m_bKeyFrame; }
    bool isAudio() const { return m_bAudio; }

private:
    const std::size_t m_size;
    const bool m_bKeyFrame, m_bAudio;
    const std::unique_ptr<BU_U8[]> m_bytes;
};
typedef std::shared_ptr<const Message> MessageRef;
} // namespace preview
