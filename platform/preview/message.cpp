/// The bytes of a message.
#include "message.h"

#include "media/stream.h"

#include <cstring>

namespace preview
{
Message::Message(const Header &stHeader, std::span<const BU_U8> packet)
    : m_size(sizeof(stHeader) + packet.size()), m_bKeyFrame(stHeader.u8Flags & Header::KEY_FRAME),
      m_bAudio(stHeader.u8Codec == STREAM_TYPE_AAC), m_bytes(new BU_U8[HEADROOM + m_size])
{
    std::memcpy(data(), &stHeader, sizeof(stHeader));
    std::memcpy(data() + sizeof(stHeader), packet.data(), packet.size());
}
} // namespace preview
