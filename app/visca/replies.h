/// Reply encoders: the payload of an answer as a list of fields, each with its wire form.
#pragma once

#include "fields.h"

#include <algorithm>

namespace visca
{
/// Writes a reply buffer's payload; keeps room for the terminator and drops what does not fit.
class ReplyWriter
{
public:
    ReplyWriter(tagVISCA_MSG_REQ_S &stReq, BU_U32 u32Offset)
        : m_stReq(stReq), m_u32Len(std::min<BU_U32>(u32Offset, ROOM))
    {
    }
    void put(BU_U32 u32Byte)
    {
        if (m_u32Len < ROOM) m_stReq.acCmd[m_u32Len++] = static_cast<BU_U8>(u32Byte);
    }
    void finish()
    {
        m_stReq.acCmd[m_u32Len++] = 0xFF;
        m_stReq.u32CmdLen = m_u32Len;
    }
    const BU_U8 *begin() const { return m_stReq.acCmd; }
    const BU_U8 *end() const { return m_stReq.acCmd + m_u32Len; }

private:
    static constexpr BU_U32 ROOM = sizeof(tagVISCA_MSG_REQ_S::acCmd) - 1;
    tagVISCA_MSG_REQ_S &m_stReq;
    BU_U32 m_u32Len;
};
typedef void (*PFN_REPLY)(const I &st, ReplyWriter &writer);

/// N bytes of one nibble each, highest first, of the value's bits from Shift on.
template <unsigned N, class Value, unsigned Shift = 0> struct Nibbles {
    static void put(const I &st, ReplyWriter &writer)
    {
        for (unsigned i = N; i-- > 0;) writer.put(Value::get(st) >> (Shift + 4 * i) & 0x0F);
    }
};
/// Eight bits, from Shift on.
template <class Value, unsigned Shift = 0> struct Byte {
    static void put(const I &st, ReplyWriter &writer) { writer.put(Value::get(st) >> Shift & 0xFF); }
};
template <class Value> using Low = Nibbles<1, Value>;
template <BU_U8 u8Byte> struct Literal {
    static void put(const I &, ReplyWriter &writer) { writer.put(u8Byte); }
};

template <class... Form> void reply(const I &st, ReplyWriter &writer) { (Form::put(st, writer), ...); }

inline constexpr PFN_REPLY replyVersion =
    reply<Literal<0x02>, Literal<0x01>, Literal<0x06>, Literal<0x07>, Byte<Version, 8>, Byte<Version>, Literal<0x02>>;
/// Twelve bytes; the speed stands twice.
inline constexpr PFN_REPLY replySystemStatus =
    reply<Byte<StatusAA>, Byte<StatusVideoFormat>, Byte<StatusWbMode>, Nibbles<2, StatusRGain>, Nibbles<2, StatusBGain>,
          Byte<StatusFocusMode>, Byte<StatusIrisMode>, Byte<StatusPtSpeed>, Byte<StatusAgcMode>, Byte<StatusPtSpeed>>;

// Payloads that are more than a list of fields.
void replyFocusMode(const I &st, ReplyWriter &writer);
void replyVideoParam(const I &st, ReplyWriter &writer);
void replyIp(const I &st, ReplyWriter &writer);
void replyIpText(const I &st, ReplyWriter &writer);
void replyBlock(const I &st, ReplyWriter &writer);
} // namespace visca
