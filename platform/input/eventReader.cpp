// Which bytes are an event record, and where the next one begins.
#include "eventReader.h"

#include <algorithm>
#include <cstring>

namespace input
{
namespace
{
constexpr BU_S64 RECORD_MS = 500;
static_assert(sizeof(input_event) == 24);

/// The types of event that a device sends, with their greatest code and the range of their value.
struct TypeRow {
    BU_U16 u16Type, u16MaxCode;
    BU_S32 s32Min = INT32_MIN, s32Max = INT32_MAX;
};
constexpr TypeRow TYPES[] = {{EV_KEY, KEY_MAX, 0, 2}, {EV_REL, REL_MAX}, {EV_ABS, ABS_MAX}, {EV_MSC, MSC_MAX},
                             {EV_SW, SW_MAX},         {EV_LED, LED_MAX}, {EV_SND, SND_MAX}, {EV_REP, REP_MAX}};

bool isSync(const input_event &stEvent)
{
    return (stEvent.code == SYN_REPORT || stEvent.code == SYN_DROPPED) && (stEvent.value == 0 || stEvent.value == 1);
}

/// Whether the bytes can be a record. Strict, so that bytes that begin amid a record are told from one: its time, of
/// this or the next century, is either zero or fills the places where type and code would be.
bool isRecord(const input_event &stEvent)
{
    if (stEvent.input_event_sec < 0 || stEvent.input_event_sec >= 1LL << 33) return false;
    if (stEvent.input_event_usec < 0 || stEvent.input_event_usec >= 1'000'000) return false;
    if (stEvent.type == EV_SYN)
        return isSync(stEvent) &&
               (stEvent.input_event_sec != 0 || stEvent.input_event_usec != 0 || stEvent.code || stEvent.value);
    const auto row = std::ranges::find(TYPES, stEvent.type, &TypeRow::u16Type);
    return row != std::end(TYPES) && stEvent.code <= row->u16MaxCode && stEvent.value >= row->s32Min &&
           stEvent.value <= row->s32Max;
}
} // namespace

void EventReader::feed(std::span<const BU_U8> bytes, BU_S64 s64NowMs, const Sink &sink)
{
    if (s64NowMs - m_s64FedMs >= RECORD_MS) reset();
    m_s64FedMs = s64NowMs;
    while (!bytes.empty()) {
        const std::size_t taken = std::min(bytes.size(), m_au8Record.size() - m_size);
        std::memcpy(m_au8Record.data() + m_size, bytes.data(), taken);
        bytes = bytes.subspan(taken);
        m_size += taken;
        if (m_size < m_au8Record.size()) return;
        input_event stEvent;
        std::memcpy(&stEvent, m_au8Record.data(), sizeof(stEvent));
        if (isRecord(stEvent)) {
            m_size = 0;
            sink(stEvent);
        } else {
            std::copy(m_au8Record.begin() + 1, m_au8Record.end(), m_au8Record.begin());
            m_size--;
        }
    }
}
} // namespace input
