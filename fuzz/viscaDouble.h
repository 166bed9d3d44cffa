/// The camera behind the VISCA library in the fuzz targets, and controllers in front of it.
#pragma once

#include "turn.h"

#include <deque>

namespace fuzz
{
// The library is started with a service that answers by the message: moves run until endOldest, a few kinds are refused
// or fail. Everything sent is checked for its form.

/// Ends the move that has run for longest.
void endOldest(bool bOk);
/// Ends all, forgets all.
void reset();

/// A byte at a time from the input; zero behind its end.
class Input
{
public:
    Input(const BU_U8 *pu8Data, std::size_t size) : m_rest(pu8Data, size) {}
    bool isEmpty() const { return m_rest.empty(); }
    BU_U8 byte();
    std::span<const BU_U8> chunk(std::size_t size);

private:
    std::span<const BU_U8> m_rest;
};
} // namespace fuzz
