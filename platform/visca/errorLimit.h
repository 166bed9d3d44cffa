/// How many errors a controller on UDP is told. Who sends in another's name cannot have that one flooded.
#pragma once

#include "base/types.h"

#include <array>
#include <cstddef>

namespace visca
{
/// Of one controller. Not for several threads at once.
class ErrorLimit
{
public:
    static constexpr std::size_t PER_SECOND = 50, PER_DATAGRAM = 8;

    /// Whether one more may leave; it counts as sent then.
    bool take(BU_S64 s64NowMs)
    {
        BU_S64 &s64Oldest = m_sentMs[m_sent % PER_SECOND];
        if (m_sent >= PER_SECOND && s64NowMs - s64Oldest < 1000) return false;
        s64Oldest = s64NowMs;
        ++m_sent;
        return true;
    }
    /// The same for one of a datagram of several packets.
    bool takeOfMany(BU_S64 s64NowMs) { return m_ofDatagram < PER_DATAGRAM && take(s64NowMs) && ++m_ofDatagram; }
    void endDatagram() { m_ofDatagram = 0; }

private:
    std::array<BU_S64, PER_SECOND> m_sentMs{}; ///< when the last ones left, in a ring
    std::size_t m_sent = 0, m_ofDatagram = 0;
};
} // namespace visca
