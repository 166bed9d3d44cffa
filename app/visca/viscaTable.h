/// Tables from a message's code to what it stands for.
#pragma once

#include "protocol/visca.h"
#include "util/log.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

template <class T> struct tagVISCA_CODE_S {
    BU_S32 s32Code;
    T value;
};

/// What a code stands for; null: nothing.
template <class T, std::size_t N> constexpr const T *viscaFind(const tagVISCA_CODE_S<T> (&astTable)[N], BU_S32 s32Code)
{
    const auto *pstRow = std::ranges::find(astTable, s32Code, &tagVISCA_CODE_S<T>::s32Code);
    return pstRow == std::end(astTable) ? nullptr : &pstRow->value;
}

/// On and off, as most messages carry them.
inline constexpr tagVISCA_CODE_S<BU_BOOL> VISCA_SWITCH[] = {{VISCA_MSG_E_SWITCH_ON, BU_TRUE},
                                                            {VISCA_MSG_E_SWITCH_OFF, BU_FALSE}};
inline constexpr tagVISCA_CODE_S<const BU_CHAR *> VISCA_SWITCH_WORDS[] = {{VISCA_MSG_E_SWITCH_ON, "On"},
                                                                          {VISCA_MSG_E_SWITCH_OFF, "Off"}};

/// Refuses a message whose kind its handler does not know; the trace names the handler that calls.
inline BU_S32 viscaRefuseType(BU_S32 s32Type, const BU_CHAR *pcHandler = __builtin_FUNCTION(),
                              int iLine = __builtin_LINE())
{
    UTIL_TRACE_Print("[%s:%d] unknow type %d\n", pcHandler, iLine, s32Type);
    return -1;
}
