/// Numbers of 1 to 8 bytes, 3 of them as well, in records and packets; check sums of controllers. Thread: any.
#pragma once

#include "base/types.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <functional>
#include <numeric>
#include <span>

namespace util
{
/// A number as it stands in a record that crosses a wire: N bytes, no alignment.
template <std::size_t N, std::endian ORDER> struct WireNumber {
    static_assert(N >= 1 && N <= sizeof(BU_U64));
    BU_U8 au8[N];

    constexpr void set(BU_U64 u64) ///< the lower N bytes; a negative number as its complement of two
    {
        for (std::size_t i = 0; i < N; ++i) au8[i] = static_cast<BU_U8>(u64 >> shift(i));
    }
    constexpr BU_U64 get() const
    {
        BU_U64 u64 = 0;
        for (std::size_t i = 0; i < N; ++i) u64 |= BU_U64{au8[i]} << shift(i);
        return u64;
    }
    constexpr BU_S64 getSigned() const
    {
        constexpr unsigned UNUSED = 8 * (sizeof(BU_U64) - N);
        return static_cast<BU_S64>(get() << UNUSED) >> UNUSED;
    }

private:
    static constexpr std::size_t shift(std::size_t i) { return 8 * (ORDER == std::endian::big ? N - 1 - i : i); }
};
template <std::size_t N> using BigEndian = WireNumber<N, std::endian::big>; ///< the highest byte first
template <std::size_t N> using LittleEndian = WireNumber<N, std::endian::little>;

/// Reads one thing after the other. Beyond the end everything is 0, and isShort() says so.
class ByteReader
{
public:
    explicit constexpr ByteReader(std::span<const BU_U8> bytes) : m_rest(bytes) {}

    template <std::size_t N> constexpr BU_U64 big() { return number<BigEndian<N>>(N).get(); }
    template <std::size_t N> constexpr BU_U64 little() { return number<LittleEndian<N>>(N).get(); }
    constexpr std::span<const BU_U8> bytes(std::size_t size) ///< empty when there are fewer
    {
        m_bShort = m_bShort || size > m_rest.size();
        const auto taken = m_rest.first(m_bShort ? 0 : size);
        m_rest = m_rest.subspan(taken.size());
        return taken;
    }
    constexpr std::span<const BU_U8> rest() const { return m_rest; }
    constexpr bool isShort() const { return m_bShort; }

private:
    template <class T> constexpr T number(std::size_t size)
    {
        T st{};
        std::ranges::copy(bytes(size), st.au8);
        return st;
    }

    std::span<const BU_U8> m_rest;
    bool m_bShort = false;
};

/// Writes one thing after the other. What does not fit as a whole is left out, with all that follows.
class ByteWriter
{
public:
    explicit constexpr ByteWriter(std::span<BU_U8> room) : m_room(room) {}

    template <std::size_t N> constexpr void big(BU_U64 u64) { number<BigEndian<N>>(u64); }
    template <std::size_t N> constexpr void little(BU_U64 u64) { number<LittleEndian<N>>(u64); }
    constexpr void bytes(std::span<const BU_U8> bytes)
    {
        m_bShort = m_bShort || bytes.size() > m_room.size() - m_size;
        if (m_bShort) return;
        std::ranges::copy(bytes, m_room.subspan(m_size).begin());
        m_size += bytes.size();
    }
    constexpr std::span<BU_U8> written() const { return m_room.first(m_size); }
    constexpr bool isShort() const { return m_bShort; }

private:
    template <class T> constexpr void number(BU_U64 u64)
    {
        T st{};
        st.set(u64);
        bytes(st.au8);
    }

    const std::span<BU_U8> m_room;
    std::size_t m_size = 0;
    bool m_bShort = false;
};

/// Modulo 256.
constexpr BU_U8 sumOf(std::span<const BU_U8> bytes)
{
    return static_cast<BU_U8>(std::accumulate(bytes.begin(), bytes.end(), 0U));
}
constexpr BU_U8 xorOf(std::span<const BU_U8> bytes)
{
    return std::accumulate(bytes.begin(), bytes.end(), BU_U8{}, std::bit_xor<BU_U8>());
}
} // namespace util
