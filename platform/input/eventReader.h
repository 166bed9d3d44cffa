/// Event records from a stream of bytes.
#pragma once

#include "base/types.h"

#include <array>
#include <functional>
#include <linux/input.h>
#include <span>

namespace input
{
/// Finds event records in a stream of bytes: records may come in parts, and whatever is no record is skipped until one
/// follows. A record without any content (all bytes zero) is skipped as well; it says nothing.
class EventReader
{
public:
    typedef std::function<void(const input_event &)> Sink;

    /// Takes bytes and hands on the records that are complete with them. The rest of a record that has been incomplete
    /// for half a second does not come any more: its beginning is dropped.
    void feed(std::span<const BU_U8> bytes, BU_S64 s64NowMs, const Sink &sink);

    /// Drops the beginning of a record.
    void reset() { m_size = 0; }

private:
    std::array<BU_U8, sizeof(input_event)> m_au8Record; // the record that is being read, m_size bytes of it
    std::size_t m_size = 0;
    BU_S64 m_s64FedMs = 0;
};
} // namespace input
