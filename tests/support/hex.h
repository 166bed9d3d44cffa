/// Bytes, and the text "90 41 FF" for them.
#pragma once

#include "base/types.h"

#include <cstdio>
#include <span>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

typedef std::vector<BU_U8> Bytes;

inline Bytes bytes(const std::string &strHex)
{
    Bytes list;
    std::istringstream stream(strHex);
    for (unsigned value; stream >> std::hex >> value;) list.push_back(static_cast<BU_U8>(value));
    return list;
}
/// Of so many bytes, the highest first.
inline BU_U64 number(std::string_view bytes, std::size_t at, std::size_t size)
{
    BU_U64 u64 = 0;
    for (const char c : bytes.substr(at, size)) u64 = u64 << 8 | static_cast<BU_U8>(c);
    return u64;
}
inline std::string hex(std::span<const BU_U8> list)
{
    std::string strHex;
    char acByte[4];
    for (const BU_U8 u8 : list) {
        std::snprintf(acByte, sizeof acByte, " %02X", u8);
        strHex += acByte;
    }
    return strHex.empty() ? "" : strHex.substr(1);
}
