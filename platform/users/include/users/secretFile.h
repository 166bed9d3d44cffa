/// Files that only the camera's own user may read. Thread: any, one at a time for a path.
#pragma once

#include <string>

namespace users
{
enum class FileState { READ, ABSENT, UNREADABLE };

/// @param pcPath  of the device root. More than 1 MiB counts as unreadable; the reason is logged
FileState readSecret(const char *pcPath, std::string &strContent);

/// Replaces the file in one step (mode 0600, also while it is written) and makes its folder. @return false: as before;
/// the reason is logged
bool writeSecret(const char *pcPath, const std::string &strContent);
} // namespace users
