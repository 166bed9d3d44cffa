#include "store/stored.h"

#include "store/store.h"

#include <algorithm>
#include <arpa/inet.h>

void copyText(std::span<BU_CHAR> field, std::string_view text)
{
    std::ranges::fill(field, 0);
    std::copy_n(text.begin(), std::min(text.size(), field.size() - 1), field.begin());
}

std::string textOf(std::span<const BU_CHAR> field) { return {field.begin(), std::find(field.begin(), field.end(), 0)}; }

bool isAddress(const std::string &strText)
{
    in_addr stAddress;
    return inet_pton(AF_INET, strText.c_str(), &stAddress) == 1;
}

BU_S32 StoredSection::number(const BU_CHAR *pcKey, BU_S32 s32Default, BU_S32 s32Min, BU_S32 s32Max) const
{
    BU_S32 s32Value = s32Default;
    CFG_STORE_GetInt((m_strName + "/" + pcKey).c_str(), &s32Value);
    return s32Value < s32Min || s32Value > s32Max ? s32Default : s32Value;
}

std::string StoredSection::text(const BU_CHAR *pcKey, const std::string &strDefault) const
{
    std::string strValue = strDefault;
    CFG_STORE_GetText((m_strName + "/" + pcKey).c_str(), &strValue);
    return strValue;
}
