/// Packets and control records: pure functions of bytes over the packet table, and the splitter of byte streams.
#pragma once

#include "table.h"

#include <optional>
#include <span>

namespace visca
{
/// A packet or an answer of at most 16 bytes.
struct Packet {
    std::array<BU_U8, MAX_PACKET> au8{};
    BU_U8 u8Size = 0;
    std::span<const BU_U8> bytes() const { return {au8.data(), u8Size}; }
};

enum class Fault : BU_U8 {
    Length = 0x01,
    Syntax = 0x02,
    BufferFull = 0x03,
    Cancelled = 0x04,
    NoSocket = 0x05,
    NotNow = 0x41
};

constexpr BU_U8 replyHead(BU_U8 u8Address) { return static_cast<BU_U8>((u8Address + 8) << 4); }
constexpr BU_U8 addressOf(BU_U8 u8Head) { return u8Head & 0x0F; } ///< of a packet's first byte; 8 is the broadcast

Packet ackOf(BU_U8 u8Address, BU_U8 u8Socket);
Packet faultOf(BU_U8 u8Address, BU_U8 u8Socket, Fault enFault);

/// Finds the row of a packet (address and terminator included, both already checked by the caller's framing) and fills
/// the record, zeroed before. Null: no row fits, or a value is out of its range; the record is then undefined.
const Row *decode(std::span<const BU_U8> packet, tagVISCA_CTRL_INFO_S &stInfo);

/// A number for each row, from 1, for the life of the process; null for a number that no row has.
BU_U32 numberOf(const Row &row);
const Row *rowOf(BU_U32 u32Number);

/// The packet of a row with the values of a record.
Packet encode(const Row &row, const tagVISCA_CTRL_INFO_S &stInfo, BU_U8 u8Address = 1);
/// The packet of a message: the first row of the type whose fields and ranges the record fits. Empty: there is none.
Packet encode(tagVISCA_CMD_INQ_TYPE_E enType, const tagVISCA_CTRL_INFO_S &stInfo, BU_U8 u8Address = 1);

BU_U32 readField(const tagVISCA_CTRL_INFO_S &stInfo, Place place);
void writeField(tagVISCA_CTRL_INFO_S &stInfo, Place place, BU_U32 u32Value);

/// Cuts packets out of a byte stream. Bytes before a head (80...8F) are noise and are dropped; a packet that does not
/// end within 16 bytes is reported once as too long, and the rest up to its terminator is dropped. Holds 18 bytes.
class Splitter
{
public:
    struct Result {
        std::span<const BU_U8> packet; ///< head to terminator; valid until the next call
        bool bTooLong = false;         ///< `packet` is only the beginning
    };
    /// Takes bytes from the front of `stream` up to the end of the next packet. Nothing: all bytes taken, none
    /// complete.
    std::optional<Result> next(std::span<const BU_U8> &stream);
    bool isInside() const { return m_u8Size > 0 && !m_bSkipping; }
    /// What there is of a packet that will not be continued; valid until the next call.
    std::span<const BU_U8> cutOff() { return {m_au8.data(), std::exchange(m_u8Size, BU_U8{0})}; }

private:
    std::array<BU_U8, MAX_PACKET> m_au8{};
    BU_U8 m_u8Size = 0;
    bool m_bSkipping = false; ///< in the rest of a packet that was too long
};
} // namespace visca
