/// One row of the packet table: the bytes of a message and where each part of it stands in the control record.
///
/// A pattern is written as manuals print it, without the address byte and the terminator: "01 04 07 2p". Upper-case hex
/// digits stand for themselves, each lower-case letter p...z is one nibble of a value, the highest first. One value may
/// spread over several nibbles ("0p 0p 0p 0p") or fill a byte ("pp"). A pattern that starts with "88" is a broadcast.
#pragma once

#include "protocol/visca.h"

#include <array>
#include <stdexcept>
#include <utility>

namespace visca
{
constexpr std::size_t MAX_PACKET = 16; ///< address, up to 14 bytes, terminator
constexpr std::size_t MIN_PACKET = 3;
constexpr BU_U8 TERMINATOR = 0xFF;
constexpr BU_U8 BROADCAST = 0x88;

/// A place in the control record.
struct Place {
    BU_U16 u16Offset = 0;
    BU_U8 u8Size = 0; ///< 1, 2 or 4 bytes
};

/// A part of a row: a record field that the row fixes (no letter), or a value of the packet with its range.
struct Part {
    char cLetter = 0;
    Place place;
    BU_U32 u32Min = 0, u32Max = 0; ///< a fixed field: both are its value
};

/// How an inquiry's answer differs from what the reply encoder writes, for codes whose public form differs.
enum class Shape : BU_U8 {
    AsWritten,
    TwoZeros, ///< two zero bytes before the payload
    OnOff     ///< the payload's byte becomes 02 (not zero) or 03 (zero)
};

struct Reply {
    const char *pcText = nullptr; ///< the payload in the notation of patterns, for the documentation
    Shape enShape = Shape::AsWritten;
};

class Pattern
{
public:
    constexpr Pattern(const char *pcDigits) : pcText(pcDigits)
    {
        std::size_t nibbles = 0;
        if (pcDigits[0] == '8' && pcDigits[1] == '8') {
            bBroadcast = true;
            pcDigits += 2;
        }
        for (; *pcDigits; ++pcDigits) {
            if (*pcDigits == ' ') continue;
            if (nibbles == acNibble.size()) throw std::invalid_argument("pattern too long");
            acNibble[nibbles] = *pcDigits >= 'p' && *pcDigits <= 'z' ? *pcDigits : '\0';
            const BU_U8 u8Shift = nibbles % 2 ? 0 : 4;
            if (!acNibble[nibbles]) {
                au8Value[nibbles / 2] |= static_cast<BU_U8>(digit(*pcDigits) << u8Shift);
                au8Mask[nibbles / 2] |= static_cast<BU_U8>(0x0F << u8Shift);
            }
            ++nibbles;
        }
        if (nibbles % 2) throw std::invalid_argument("half a byte in a pattern");
        size = nibbles / 2;
    }

    const char *pcText;
    bool bBroadcast = false;
    std::size_t size = 0; ///< bytes between address and terminator
    std::array<BU_U8, MAX_PACKET - 2> au8Value{}, au8Mask{};
    std::array<char, 2 * (MAX_PACKET - 2)> acNibble{}; ///< letter of a value's nibble, 0 for a literal

private:
    static constexpr BU_U8 digit(char c)
    {
        if (c >= '0' && c <= '9') return static_cast<BU_U8>(c - '0');
        if (c >= 'A' && c <= 'F') return static_cast<BU_U8>(c - 'A' + 10);
        throw std::invalid_argument("neither digit nor letter in a pattern");
    }
};

/// Motors that a command keeps busy.
enum Motors : BU_U8 { NO_MOTOR = 0, PAN_TILT = 1, ZOOM = 2, FOCUS = 4 };
constexpr Motors operator|(Motors a, Motors b) { return static_cast<Motors>(BU_U8{a} | BU_U8{b}); }

/// Motors that a command moves to a target, and thereby holds a socket for a while.
struct Moves {
    Motors motors = NO_MOTOR;
};
/// Motors that it drives or stops; such a command ends at once and must never be refused for want of a socket.
struct Drives {
    Motors motors = NO_MOTOR;
    bool bStop = false;
};
constexpr Drives stops(Motors motors) { return {motors, true}; }

/// The rest behind the meaning in any order: parts, the answer of an inquiry, the motors of a command.
struct Row {
    template <class... P>
    constexpr Row(tagVISCA_CMD_INQ_TYPE_E enMsgType, Pattern stPattern, const char *pcMeans, P... rest)
        : enType(enMsgType), pattern(stPattern), pcMeaning(pcMeans)
    {
        (set(rest), ...);
    }
    constexpr bool isInquiry() const { return enType > VISCA_INQ_E_NONE; }

    tagVISCA_CMD_INQ_TYPE_E enType;
    Pattern pattern;
    const char *pcMeaning;
    std::array<Part, 5> astPart{};
    BU_U8 u8Parts = 0;
    Reply reply{};
    Moves moves{};
    Drives drives{};

private:
    constexpr void set(const Part &part) { astPart.at(u8Parts++) = part; }
    constexpr void set(Reply stReply) { reply = stReply; }
    constexpr void set(Moves stMoves) { moves = stMoves; }
    constexpr void set(Drives stDrives) { drives = stDrives; }
};

/// The record field `member` is `value` in this message.
#define SET(member, value)                                                                                             \
    visca::Part                                                                                                        \
    {                                                                                                                  \
        0, visca::Place{offsetof(tagVISCA_CTRL_INFO_S, member), sizeof(std::declval<tagVISCA_CTRL_INFO_S>().member)},  \
            static_cast<BU_U32>(value), static_cast<BU_U32>(value)                                                     \
    }
/// The record field `member` is the packet's value `letter`, at least `min` and at most `max`.
#define VAL(letter, member, min, max)                                                                                  \
    visca::Part                                                                                                        \
    {                                                                                                                  \
        letter,                                                                                                        \
            visca::Place{offsetof(tagVISCA_CTRL_INFO_S, member), sizeof(std::declval<tagVISCA_CTRL_INFO_S>().member)}, \
            min, max                                                                                                   \
    }
} // namespace visca
