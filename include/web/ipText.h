/// IPv4 addresses as dotted quads. Plain functions; thread: any.
#pragma once

#include "base/types.h"

#include <charconv>
#include <span>
#include <string_view>

namespace web_layout
{
/// Reads four decimal numbers of 0-255, without leading zeros, signs or spaces, and nothing after them.
/// @param address  gets the address in network byte order; untouched when the text is not one
/// @return whether it is one
inline bool parseQuad(std::string_view strText, std::span<BU_CHAR, 4> address)
{
    BU_U8 au8Octet[4]{};
    const BU_CHAR *pcText = strText.data(), *pcEnd = pcText + strText.size();
    for (BU_U8 &u8Octet : au8Octet) {
        if (&u8Octet != au8Octet && (pcText == pcEnd || *pcText++ != '.')) return false;
        const auto [pcNext, enError] = std::from_chars(pcText, pcEnd, u8Octet);
        if (enError != std::errc{} || (*pcText == '0' && pcNext - pcText > 1)) return false;
        pcText = pcNext;
    }
    if (pcText != pcEnd) return false;
    for (int n = 0; n < 4; ++n) address[n] = static_cast<BU_CHAR>(au8Octet[n]);
    return true;
}

/// Writes the text of an address in network byte order, and a terminator.
inline void formatQuad(std::span<const BU_CHAR, 4> address, std::span<BU_CHAR, 32> text)
{
    BU_CHAR *pcText = text.data();
    for (const BU_CHAR &cOctet : address) {
        if (pcText != text.data()) *pcText++ = '.';
        pcText = std::to_chars(pcText, text.data() + text.size(), static_cast<BU_U8>(cOctet)).ptr;
    }
    *pcText = '\0';
}
} // namespace web_layout
