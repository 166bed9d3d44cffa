/// Reading of stored records, with defaults for what is not stored or not valid.
#pragma once

#include "base/types.h"

#include <span>
#include <string>
#include <string_view>

/// Fills a text field; what does not fit is cut, the rest of the field is zero.
void copyText(std::span<BU_CHAR> field, std::string_view text);

/// The text of a field that may lack its terminator.
std::string textOf(std::span<const BU_CHAR> field);

/// Whether a text is a dotted IPv4 address.
bool isAddress(const std::string &strText);

/// The keys "<section>/..." of the store.
class StoredSection
{
public:
    explicit StoredSection(std::string strName) : m_strName(std::move(strName)) {}

    /// The stored number; the default when there is none or it lies outside the limits.
    BU_S32 number(const BU_CHAR *pcKey, BU_S32 s32Default, BU_S32 s32Min, BU_S32 s32Max) const;
    std::string text(const BU_CHAR *pcKey, const std::string &strDefault) const;

private:
    std::string m_strName;
};
