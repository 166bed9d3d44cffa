/// The running program: its version, and the files that come with it.
#pragma once

#include "base/types.h"

#include <string>

namespace util
{
/// "1.2.3", as CMakeLists.txt has it.
const BU_CHAR *version();

/// Path of a file or folder that comes with the program: share/ptz-camera/NAME beside the folder in which the program
/// lies, in an installation as in a build tree. Whether it is there is the reader's question. Thread: any.
std::string resource(const std::string &strName);
} // namespace util
