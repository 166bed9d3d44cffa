/// What holds for every input.
#pragma once

#include <cstdlib>

inline void require(bool bTrue)
{
    if (!bTrue) std::abort();
}
