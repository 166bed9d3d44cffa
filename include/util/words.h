#pragma once

#include "base/types.h"

/// One row of a vocabulary table: the word that users see and the value that the services take.
struct STR2ENUM_MAP_S {
    const BU_CHAR *text;
    BU_S32 value;
};

/// Value of the first row whose text equals `text`, compared exactly and with case.
/// @return the row's value; INT32_MIN, which no table holds, for an unknown or missing word
/// Thread: any.
BU_S32 sysStr2Enum(const STR2ENUM_MAP_S *pstTable, BU_S32 s32Count, const BU_CHAR *text);

/// Text of the first row whose value equals `value`.
/// @return the row's text; "" for a value in no row, never null
/// Thread: any.
const BU_CHAR *sysEnum2Str(const STR2ENUM_MAP_S *pstTable, BU_S32 s32Count, BU_S32 value);
