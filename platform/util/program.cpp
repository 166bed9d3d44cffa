// Which version this is, and where the program finds what comes with it.
#include "util/program.h"

#include <filesystem>
#include <system_error>

namespace util
{
const BU_CHAR *version() { return CAMERA_VERSION; }

std::string resource(const std::string &strName)
{
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    return program.parent_path().parent_path() / "share/ptz-camera" / strName;
}
} // namespace util
