// Packets to records and back, by the packet table.
#include "codec.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace visca
{
namespace
{
constexpr std::size_t LETTERS = 'z' - 'p' + 1;

/// All rows, sorted by length and first three bytes. A row's place is its number, from 1. Rows whose first three bytes
/// are not all literal stand in front.
class Index
{
public:
    Index()
    {
        for (const Topic &topic : topics())
            for (const Row &row : topic.rows) m_rows.push_back({keyOf(row.pattern), &row});
        std::ranges::stable_sort(m_rows, {}, &Entry::u32Key);
        const auto end = std::ranges::upper_bound(m_rows, LOOSE, {}, &Entry::u32Key);
        m_loose = {m_rows.data(), static_cast<std::size_t>(end - m_rows.begin())};
    }
    template <class F> const Row *find(std::span<const BU_U8> body, F fits) const
    {
        const BU_U32 u32Key = body.size() >= 3 ? keyOf(body) : LOOSE;
        for (auto at = std::ranges::lower_bound(m_rows, u32Key, {}, &Entry::u32Key);
             at != m_rows.end() && at->u32Key == u32Key; ++at)
            if (fits(*at->row)) return at->row;
        for (const Entry &entry : m_loose)
            if (fits(*entry.row)) return entry.row;
        return nullptr;
    }
    BU_U32 numberOf(const Row &row) const
    {
        return static_cast<BU_U32>(std::ranges::find(m_rows, &row, &Entry::row) - m_rows.begin()) + 1;
    }
    const Row *at(BU_U32 u32Number) const
    {
        return u32Number >= 1 && u32Number <= m_rows.size() ? m_rows[u32Number - 1].row : nullptr;
    }

private:
    static constexpr BU_U32 LOOSE = 0;
    struct Entry {
        BU_U32 u32Key;
        const Row *row;
    };
    static BU_U32 keyOf(std::span<const BU_U8> body)
    {
        return static_cast<BU_U32>(body.size()) << 24 | body[0] << 16 | body[1] << 8 | body[2];
    }
    static BU_U32 keyOf(const Pattern &p)
    {
        const bool bFixed = p.size >= 3 && p.au8Mask[0] == 0xFF && p.au8Mask[1] == 0xFF && p.au8Mask[2] == 0xFF;
        return bFixed ? keyOf({p.au8Value.data(), p.size}) : LOOSE;
    }
    std::vector<Entry> m_rows;
    std::span<const Entry> m_loose; // of m_rows
};

const Index &index()
{
    static const Index *s_pstIndex = new Index;
    return *s_pstIndex;
}

bool literalsFit(const Pattern &pattern, std::span<const BU_U8> body)
{
    if (pattern.size != body.size()) return false;
    for (std::size_t i = 0; i < body.size(); ++i)
        if ((body[i] & pattern.au8Mask[i]) != pattern.au8Value[i]) return false;
    return true;
}

BU_U8 nibbleOf(std::span<const BU_U8> body, std::size_t i) { return i % 2 ? body[i / 2] & 0x0F : body[i / 2] >> 4; }

/// The values of a packet by letter.
std::array<BU_U32, LETTERS> valuesOf(const Pattern &pattern, std::span<const BU_U8> body)
{
    std::array<BU_U32, LETTERS> value{};
    for (std::size_t i = 0; i < 2 * pattern.size; ++i)
        if (const char c = pattern.acNibble[i]) value[c - 'p'] = value[c - 'p'] << 4 | nibbleOf(body, i);
    return value;
}

bool fits(const Row &row, std::span<const BU_U8> packet)
{
    const auto body = packet.subspan(1, packet.size() - 2);
    if (row.pattern.bBroadcast != (packet[0] == BROADCAST) || !literalsFit(row.pattern, body)) return false;
    const auto value = valuesOf(row.pattern, body);
    return std::all_of(row.astPart.begin(), row.astPart.begin() + row.u8Parts, [&](const Part &part) {
        if (!part.cLetter) return true;
        const BU_U32 u32Value = value[part.cLetter - 'p'];
        return u32Value >= part.u32Min && u32Value <= part.u32Max;
    });
}
} // namespace

BU_U32 numberOf(const Row &row) { return index().numberOf(row); }
const Row *rowOf(BU_U32 u32Number) { return index().at(u32Number); }

BU_U32 readField(const tagVISCA_CTRL_INFO_S &stInfo, Place place)
{
    const auto *pu8 = reinterpret_cast<const BU_U8 *>(&stInfo) + place.u16Offset;
    BU_U16 u16 = 0;
    BU_U32 u32 = 0;
    if (place.u8Size == 1) return *pu8;
    if (place.u8Size == 2) return std::memcpy(&u16, pu8, sizeof u16), u16;
    return std::memcpy(&u32, pu8, sizeof u32), u32;
}

void writeField(tagVISCA_CTRL_INFO_S &stInfo, Place place, BU_U32 u32Value)
{
    auto *pu8 = reinterpret_cast<BU_U8 *>(&stInfo) + place.u16Offset;
    const auto u16 = static_cast<BU_U16>(u32Value);
    if (place.u8Size == 1)
        *pu8 = static_cast<BU_U8>(u32Value);
    else if (place.u8Size == 2)
        std::memcpy(pu8, &u16, sizeof u16);
    else
        std::memcpy(pu8, &u32Value, sizeof u32Value);
}

Packet ackOf(BU_U8 u8Address, BU_U8 u8Socket)
{
    return {{replyHead(u8Address), static_cast<BU_U8>(0x40 | u8Socket), TERMINATOR}, 3};
}

Packet faultOf(BU_U8 u8Address, BU_U8 u8Socket, Fault enFault)
{
    return {{replyHead(u8Address), static_cast<BU_U8>(0x60 | u8Socket), static_cast<BU_U8>(enFault), TERMINATOR}, 4};
}

const Row *decode(std::span<const BU_U8> packet, tagVISCA_CTRL_INFO_S &stInfo)
{
    if (packet.size() < MIN_PACKET || packet.size() > MAX_PACKET) return nullptr;
    const auto body = packet.subspan(1, packet.size() - 2);
    const Row *row = index().find(body, [&](const Row &r) { return fits(r, packet); });
    if (!row) return nullptr;
    std::memset(static_cast<void *>(&stInfo), 0, sizeof stInfo);
    const auto value = valuesOf(row->pattern, body);
    for (const Part &part : std::span(row->astPart.data(), row->u8Parts))
        writeField(stInfo, part.place, part.cLetter ? value[part.cLetter - 'p'] : part.u32Min);
    return row;
}

Packet encode(const Row &row, const tagVISCA_CTRL_INFO_S &stInfo, BU_U8 u8Address)
{
    const Pattern &p = row.pattern;
    std::array<BU_U32, LETTERS> value{};
    for (const Part &part : std::span(row.astPart.data(), row.u8Parts))
        if (part.cLetter) value[part.cLetter - 'p'] = readField(stInfo, part.place);
    Packet packet;
    packet.au8[0] = p.bBroadcast ? BROADCAST : static_cast<BU_U8>(0x80 | u8Address);
    std::copy_n(p.au8Value.begin(), p.size, packet.au8.begin() + 1);
    for (std::size_t i = 2 * p.size; i-- > 0;) { // from the back: the last nibble of a value is its lowest
        if (!p.acNibble[i]) continue;
        BU_U32 &u32Value = value[p.acNibble[i] - 'p'];
        packet.au8[1 + i / 2] |= static_cast<BU_U8>((u32Value & 0x0F) << (i % 2 ? 0 : 4));
        u32Value >>= 4;
    }
    packet.au8[1 + p.size] = TERMINATOR;
    packet.u8Size = static_cast<BU_U8>(p.size + 2);
    return packet;
}

Packet encode(tagVISCA_CMD_INQ_TYPE_E enType, const tagVISCA_CTRL_INFO_S &stInfo, BU_U8 u8Address)
{
    for (const Topic &topic : topics())
        for (const Row &row : topic.rows) {
            const std::span parts(row.astPart.data(), row.u8Parts);
            const bool bFits = row.enType == enType && std::ranges::all_of(parts, [&](const Part &part) {
                                   const BU_U32 u32Value = readField(stInfo, part.place);
                                   return u32Value >= part.u32Min && u32Value <= part.u32Max;
                               });
            if (bFits) return encode(row, stInfo, u8Address);
        }
    return {};
}

std::optional<Splitter::Result> Splitter::next(std::span<const BU_U8> &stream)
{
    while (!stream.empty()) {
        const BU_U8 u8 = stream.front();
        stream = stream.subspan(1);
        if (m_bSkipping) {
            m_bSkipping = u8 != TERMINATOR;
            continue;
        }
        if (m_u8Size == 0 && (u8 & 0xF0) != 0x80) continue;
        m_au8[m_u8Size++] = u8;
        const bool bTooLong = m_u8Size == MAX_PACKET && u8 != TERMINATOR;
        if (u8 != TERMINATOR && !bTooLong) continue;
        m_bSkipping = bTooLong;
        return Result{{m_au8.data(), std::exchange(m_u8Size, BU_U8{0})}, bTooLong};
    }
    return std::nullopt;
}
} // namespace visca
