/// From a message's code to what it stands for: a row of a table here, or a camera value of app/codes.
#pragma once

#include "codes/values.h"
#include "protocol/visca.h"
#include "util/log.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace visca
{
using codes::NONE;

template <class T> struct Coded {
    BU_S32 s32Code;
    T value;
};

/// What a code stands for; null: nothing.
template <class T, std::size_t N> constexpr const T *find(const Coded<T> (&rows)[N], BU_S32 s32Code)
{
    const auto *row = std::ranges::find(rows, s32Code, &Coded<T>::s32Code);
    return row == std::end(rows) ? nullptr : &row->value;
}

/// The camera value of a code, and the code of a camera value; NONE: there is none.
template <const auto &TABLE, codes::Column COLUMN = &codes::Row::s32Visca> constexpr BU_S32 cameraOf(BU_S32 s32Code)
{
    return TABLE.toCamera(COLUMN, s32Code);
}
template <const auto &TABLE, codes::Column COLUMN = &codes::Row::s32Visca> constexpr BU_S32 codeOf(BU_S32 s32Camera)
{
    return TABLE.toCode(COLUMN, s32Camera);
}

typedef BU_S32 (*PFN_SET_DEV)(BU_S32 s32Dev, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
typedef BU_S32 (*PFN_SET)(BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);

/// Sets and stores a value. @return the setter's result
template <PFN_SET_DEV Set> BU_S32 direct(BU_S32 s32Value) { return Set(0, s32Value, BU_TRUE, BU_TRUE); }
template <PFN_SET Set> BU_S32 direct(BU_S32 s32Value) { return Set(s32Value, BU_TRUE, BU_TRUE); }

/// The same for a code. @return the setter's result; -1 for a code that means nothing
template <PFN_SET_DEV Set, const auto &TABLE = codes::SWITCHES> BU_S32 coded(BU_S32 s32Code)
{
    const BU_S32 s32Value = cameraOf<TABLE>(s32Code);
    return s32Value == NONE ? -1 : direct<Set>(s32Value);
}
template <PFN_SET Set, const auto &TABLE = codes::SWITCHES> BU_S32 coded(BU_S32 s32Code)
{
    const BU_S32 s32Value = cameraOf<TABLE>(s32Code);
    return s32Value == NONE ? -1 : direct<Set>(s32Value);
}

/// Refuses a message whose kind its handler does not know; the trace names the handler that calls.
inline BU_S32 refuseType(BU_S32 s32Type, const BU_CHAR *pcHandler = __builtin_FUNCTION(), int iLine = __builtin_LINE())
{
    UTIL_TRACE_Print("[%s:%d] unknow type %d\n", pcHandler, iLine, s32Type);
    return -1;
}
} // namespace visca
