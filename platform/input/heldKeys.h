/// Which keys are held.
#pragma once

#include "base/types.h"

#include <array>
#include <linux/input.h>
#include <optional>
#include <vector>

namespace input
{
constexpr BU_U16 KEY_BITS = 7, KEY_MASK = (1 << KEY_BITS) - 1; ///< of a remote's code; above it is its address, less 1

/// The keys that a device holds, and which of them are to be taken for released because nothing is heard any more.
///
/// A receiver hears a held key again and again: the kernel tells it as repeats of the key or as scan codes after it.
/// The keys that drive a motor (direction, zoom, focus) need that. All others may be held in silence: a release that
/// nobody made could complete a hold, which stores a preset.
class HeldKeys
{
public:
    static constexpr BU_S64 SILENCE_MS = 15000;

    void note(const input_event &stEvent, BU_S64 s64NowMs);

    /// When the first key that needs it will have been silent for too long; none: there is no such key.
    std::optional<BU_S64> dueMs() const;
    /// Takes out a key that has been silent for too long.
    std::optional<BU_U16> takeSilent(BU_S64 s64NowMs);
    /// Takes all keys out: their device has gone.
    std::vector<BU_U16> takeAll();

private:
    void release(BU_U16 u16Code);

    static constexpr BU_S64 UP = 0;
    std::array<BU_S64, KEY_CNT> m_as64HeardMs{}; // by code: when the key was heard last, or UP
    BU_U32 m_u32Held = 0;
    BU_U16 m_u16Last = 0; // the key pressed last: scan codes are its
};

/// The release of a key that its device did not tell, at this moment.
input_event releaseOf(BU_U16 u16Code);
} // namespace input
