/// The vocabulary tables by the names that the description uses.
#pragma once

#include "util/words.h"

#include <span>
#include <string_view>

namespace menu
{
/// Empty: no such table.
std::span<const STR2ENUM_MAP_S> wordTable(std::string_view name);
} // namespace menu
