/// IPv4 addresses. Plain functions; thread: any.
#pragma once

#include "base/types.h"

#include <bit>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace base
{
struct Ipv4 {
    BU_U32 u32 = 0; ///< 10.0.0.1 is 0x0A000001

    /// Reads four decimal numbers of 0-255, without leading zeros, signs or spaces, and nothing around them.
    static constexpr std::optional<Ipv4> parse(std::string_view text)
    {
        BU_U32 u32Address = 0;
        for (int i = 0; i < 4; ++i) {
            if (i > 0 && !text.starts_with('.')) return std::nullopt;
            text.remove_prefix(i > 0);
            BU_U32 u32Part = 0;
            std::size_t digits = 0;
            for (; digits < text.size() && digits < 4 && text[digits] >= '0' && text[digits] <= '9'; ++digits)
                u32Part = u32Part * 10 + static_cast<BU_U32>(text[digits] - '0');
            if (digits == 0 || u32Part > 255 || (digits > 1 && text[0] == '0')) return std::nullopt;
            text.remove_prefix(digits);
            u32Address = u32Address << 8 | u32Part;
        }
        return text.empty() ? std::optional(Ipv4{u32Address}) : std::nullopt;
    }

    /// In network byte order.
    static constexpr Ipv4 fromBytes(std::span<const BU_CHAR, 4> bytes)
    {
        BU_U32 u32Address = 0;
        for (const BU_CHAR c : bytes) u32Address = u32Address << 8 | static_cast<BU_U8>(c);
        return {u32Address};
    }
    constexpr void toBytes(std::span<BU_CHAR, 4> bytes) const
    {
        for (int n = 0; n < 4; ++n) bytes[static_cast<std::size_t>(n)] = static_cast<BU_CHAR>(part(n));
    }

    /// One of the four numbers, the first is 0.
    constexpr BU_U8 part(int n) const { return static_cast<BU_U8>(u32 >> (24 - 8 * n)); }
    std::string text() const
    {
        std::string strText = std::to_string(part(0));
        for (int n = 1; n < 4; ++n) strText += '.' + std::to_string(part(n));
        return strText;
    }

    /// What one machine can have: neither "this network" nor a group nor everybody.
    constexpr bool isMachine() const { return part(0) != 0 && part(0) < 224; }
    /// Ones, then zeros; at least one of the former.
    constexpr bool isMask() const { return u32 != 0 && std::countl_one(u32) + std::countr_zero(u32) == 32; }
    constexpr bool operator==(const Ipv4 &) const = default;
};
} // namespace base
