/// An IPv4 address edited digit by digit, with all twelve digits in sight.
#pragma once

#include "base/types.h"

#include <string>

namespace menu
{
class AddressEditor
{
public:
    explicit AddressEditor(const std::string &strAddress); ///< empty or no address: all zero

    void move(BU_S32 s32Places);                            ///< to another digit, round the ends
    void change(BU_S32 s32By);                              ///< of the digit; each part stays 255 or less
    const std::string &text() const { return m_strDigits; } ///< "192.168.001.100"
    BU_S32 cursor() const { return m_s32Cursor; }
    std::string address() const; ///< "192.168.1.100"; all zero: empty

private:
    std::string m_strDigits;
    BU_S32 m_s32Cursor = 0;
};
} // namespace menu
