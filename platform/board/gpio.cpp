/// GPIO lines as files of the device root.
#include "board/gpio.h"

#include "board/profileData.h"
#include "util/file.h"
#include "util/journal.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>

namespace
{
/// The value file of a line; empty when there is no such line.
std::string valueFile(BU_S32 s32Gpio)
{
    const auto profile = board::currentProfile();
    if (s32Gpio < 0 || s32Gpio >= static_cast<BU_S32>(profile->gpioLines.size())) return "";
    return UTIL_ROOT_Path(("/sys/gpio/" + profile->gpioLines[static_cast<std::size_t>(s32Gpio)] + "/value").c_str());
}
} // namespace

BU_S32 BSP_GetGpioNum(const BSP_GPIO_GETIDX *pstLine)
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    if (!pstLine) return -1;
    const auto profile = board::currentProfile();
    const std::string_view name(pstLine->acModuleName, strnlen(pstLine->acModuleName, sizeof(pstLine->acModuleName)));
    const auto line = std::ranges::find(profile->gpioLines, name);
    return line == profile->gpioLines.end() ? -1 : static_cast<BU_S32>(line - profile->gpioLines.begin());
}

BU_S32 BSP_RequestGpioMode(BU_S32 s32Gpio)
{
    if (const auto injected = journal::call(__func__, s32Gpio)) return *injected;
    const std::filesystem::path file = valueFile(s32Gpio);
    if (file.empty()) return -1;
    std::error_code error;
    if (std::filesystem::exists(file, error)) return 0;
    std::filesystem::create_directories(file.parent_path(), error);
    return std::ofstream(file) << "0\n" ? 0 : -1;
}

BU_S32 BSP_SetGpioDir(BU_S32 s32Gpio, IO_DIR_E enDir)
{
    if (const auto injected = journal::call(__func__, s32Gpio, enDir)) return *injected;
    return valueFile(s32Gpio).empty() ? -1 : 0;
}

BU_S32 BSP_GetGpioValue(BU_S32 s32Gpio)
{
    if (const auto injected = journal::ask(__func__, s32Gpio)) return *injected;
    std::ifstream stFile(valueFile(s32Gpio));
    return stFile.get() == '1' ? 1 : 0;
}

BU_S32 BSP_I2cRead(BU_S32 s32Fd, BU_U32 u32Dev, BU_U32 u32Reg, BU_U32, BU_U32, BU_U32 *)
{
    if (const auto injected = journal::ask(__func__, s32Fd, u32Dev, u32Reg)) return *injected;
    return -1;
}
