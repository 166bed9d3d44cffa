/// Words and values of a table, both ways.
#include "util/words.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <string_view>

namespace
{
std::span<const STR2ENUM_MAP_S> rowsOf(const STR2ENUM_MAP_S *pstTable, BU_S32 s32Count)
{
    return {pstTable, pstTable && s32Count > 0 ? static_cast<std::size_t>(s32Count) : 0};
}
} // namespace

BU_S32 sysStr2Enum(const STR2ENUM_MAP_S *pstTable, BU_S32 s32Count, const BU_CHAR *text)
{
    if (!text) return INT32_MIN;
    const auto rows = rowsOf(pstTable, s32Count);
    const auto row =
        std::ranges::find_if(rows, [word = std::string_view(text)](const auto &stRow) { return word == stRow.text; });
    return row == rows.end() ? INT32_MIN : row->value;
}

const BU_CHAR *sysEnum2Str(const STR2ENUM_MAP_S *pstTable, BU_S32 s32Count, BU_S32 value)
{
    const auto rows = rowsOf(pstTable, s32Count);
    const auto row = std::ranges::find(rows, value, &STR2ENUM_MAP_S::value);
    return row == rows.end() ? "" : row->text;
}
