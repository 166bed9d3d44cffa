// Which keys are held, and which of them have been silent for too long.
#include "heldKeys.h"

#include <algorithm>
#include <sys/time.h>

namespace input
{
namespace
{
// By the remotes' key codes: focus, zoom, directions.
constexpr BU_U16 MOTOR_KEYS[] = {23, 24, 28, 29, 32, 33, 34, 35};
constexpr std::size_t ADDRESSES = 4;

/// Calls fn for every code that drives a motor.
template <class F> void eachMotorCode(F fn)
{
    for (std::size_t address = 0; address < ADDRESSES; ++address)
        for (const BU_U16 u16Key : MOTOR_KEYS) fn(static_cast<BU_U16>(address * (KEY_MASK + 1) + u16Key));
}
} // namespace

void HeldKeys::note(const input_event &stEvent, BU_S64 s64NowMs)
{
    if (stEvent.type == EV_MSC) {
        BU_S64 &s64HeardMs = m_as64HeardMs[m_u16Last];
        if (s64HeardMs != UP) s64HeardMs = s64NowMs;
    }
    if (stEvent.type != EV_KEY || stEvent.code >= m_as64HeardMs.size()) return;
    if (stEvent.value == 0) return release(stEvent.code);
    if (m_as64HeardMs[stEvent.code] == UP) m_u32Held++;
    m_as64HeardMs[stEvent.code] = s64NowMs;
    m_u16Last = stEvent.code;
}

void HeldKeys::release(BU_U16 u16Code)
{
    if (m_as64HeardMs[u16Code] == UP) return;
    m_as64HeardMs[u16Code] = UP;
    m_u32Held--;
}

std::optional<BU_S64> HeldKeys::dueMs() const
{
    std::optional<BU_S64> due;
    if (m_u32Held == 0) return due;
    eachMotorCode([&](BU_U16 u16Code) {
        const BU_S64 s64HeardMs = m_as64HeardMs[u16Code];
        if (s64HeardMs != UP) due = std::min(due.value_or(INT64_MAX), s64HeardMs + SILENCE_MS);
    });
    return due;
}

std::optional<BU_U16> HeldKeys::takeSilent(BU_S64 s64NowMs)
{
    std::optional<BU_U16> silent;
    if (m_u32Held == 0) return silent;
    eachMotorCode([&](BU_U16 u16Code) {
        const BU_S64 s64HeardMs = m_as64HeardMs[u16Code];
        if (s64HeardMs != UP && s64NowMs - s64HeardMs >= SILENCE_MS) silent = u16Code;
    });
    if (silent) release(*silent);
    return silent;
}

std::vector<BU_U16> HeldKeys::takeAll()
{
    std::vector<BU_U16> codes;
    for (BU_U16 u16Code = 0; u16Code < m_as64HeardMs.size() && m_u32Held > 0; ++u16Code) {
        if (m_as64HeardMs[u16Code] == UP) continue;
        release(u16Code);
        codes.push_back(u16Code);
    }
    return codes;
}

input_event releaseOf(BU_U16 u16Code)
{
    timeval stNow;
    gettimeofday(&stNow, nullptr);
    input_event stEvent{};
    stEvent.input_event_sec = stNow.tv_sec;
    stEvent.input_event_usec = stNow.tv_usec;
    stEvent.type = EV_KEY;
    stEvent.code = u16Code;
    return stEvent;
}
} // namespace input
