/// JSON in a test, readable: ' for ".
#pragma once

#include <algorithm>
#include <string>

inline std::string quoted(std::string str) { return std::ranges::replace(str, '\'', '"'), str; }
