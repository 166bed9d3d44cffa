/// How many may watch, and how much a viewer may say.
#pragma once

#include "base/types.h"

#include <cstddef>

namespace preview
{
constexpr std::size_t VIEWERS_MAX = 64;
constexpr std::size_t CONNECTIONS_MAX = 2 * VIEWERS_MAX; ///< viewers and those that have not said what for
constexpr std::size_t PER_ADDRESS_MAX = 16;              ///< of a remote address

/// At most so many messages of a viewer in a second.
class MessageMeter
{
public:
    static constexpr BU_U32 PER_SECOND_MAX = 20;
    bool count(BU_S64 s64NowMs) ///< false: one too many
    {
        if (m_u32Count == 0 || s64NowMs - m_s64Since >= 1000) {
            m_s64Since = s64NowMs;
            m_u32Count = 0;
        }
        return ++m_u32Count <= PER_SECOND_MAX;
    }

private:
    BU_S64 m_s64Since = 0;
    BU_U32 m_u32Count = 0;
};
} // namespace preview
