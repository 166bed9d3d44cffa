// No test reaches the user's device root: who takes none of his own gets this one, which goes with the process.
#include <cstdlib>
#include <filesystem>
#include <string>
#include <unistd.h>

namespace
{
struct OwnRoot {
    OwnRoot() { setenv("CAMERA_ROOT", strPath.c_str(), 1); }
    ~OwnRoot()
    {
        std::error_code ignored;
        std::filesystem::remove_all(strPath, ignored);
    }
    const std::string strPath = "/tmp/camera-test-" + std::to_string(getpid());
} g_clOwnRoot;
} // namespace
