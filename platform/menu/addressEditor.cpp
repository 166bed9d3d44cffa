// Which digits an address takes, and where the cursor goes.
#include "addressEditor.h"

#include "base/ipv4.h"

#include <cstdio>
#include <cstdlib>

namespace menu
{
namespace
{
constexpr BU_S32 LENGTH = 15, PART = 4; // a part and its dot
constexpr BU_S32 PART_MAX = 255;
} // namespace

AddressEditor::AddressEditor(const std::string &strAddress)
{
    const auto ip = base::Ipv4::parse(strAddress).value_or(base::Ipv4{});
    BU_CHAR acText[LENGTH + 1];
    std::snprintf(acText, sizeof(acText), "%03u.%03u.%03u.%03u", ip.part(0), ip.part(1), ip.part(2), ip.part(3));
    m_strDigits = acText;
}

void AddressEditor::move(BU_S32 s32Places)
{
    do m_s32Cursor = (m_s32Cursor + s32Places + LENGTH) % LENGTH;
    while (m_strDigits[static_cast<std::size_t>(m_s32Cursor)] == '.');
}

void AddressEditor::change(BU_S32 s32By)
{
    const auto part = static_cast<std::size_t>(m_s32Cursor / PART * PART), at = static_cast<std::size_t>(m_s32Cursor);
    do m_strDigits[at] = static_cast<BU_CHAR>('0' + (m_strDigits[at] - '0' + s32By + 10) % 10);
    while (std::atoi(m_strDigits.substr(part, 3).c_str()) > PART_MAX);
}

std::string AddressEditor::address() const
{
    std::string strAddress;
    for (std::size_t part = 0; part < LENGTH; part += PART)
        strAddress += (part ? "." : "") + std::to_string(std::atoi(m_strDigits.substr(part, 3).c_str()));
    return strAddress == "0.0.0.0" ? "" : strAddress;
}
} // namespace menu
