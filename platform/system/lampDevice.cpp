// A lamp as a line of its file in the device root.
#include "lampDevice.h"

#include "util/file.h"
#include "util/journal.h"
#include "util/log.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <unistd.h>

namespace
{
constexpr BU_U32 ALL_ON = 0xFF000000;

/// Flicker rates by LED_MODE_E.
constexpr const BU_CHAR *FLICKER[] = {"", "", "50Hz", "10Hz", "5Hz", "3Hz", "2Hz", "1Hz", "0.5Hz"};
static_assert(std::size(FLICKER) == LED_MODE_FLICKER_HALFHZ + 1);

struct Lamp {
    int nFile;
    std::string strPath, strShown;
};
} // namespace

std::string lamp::describe(const LED_TALLY_STATE_S &stState, LED_WHITE_MODE_E enWhiteMode)
{
    const std::string strBrightness = std::to_string(stState.eBrightness) + '%';
    if (stState.enMode == LED_WORK_MODE_E_RGB_CIRCLE) return "circle " + strBrightness;
    BU_CHAR acColor[16] = "white";
    if (stState.u32ColorRGB != ALL_ON || enWhiteMode == LED_WHITE_MODE_E_RGB)
        std::snprintf(acColor, sizeof(acColor), "#%06X",
                      stState.u32ColorRGB == ALL_ON ? 0xFFFFFF : stState.u32ColorRGB & 0xFFFFFF);
    const std::string strLight = acColor + (' ' + strBrightness);
    switch (stState.enMode) {
    case LED_WORK_MODE_E_HOLD:
    case LED_WORK_MODE_E_HOLD_DURATION:
        return "hold " + strLight;
    case LED_WORK_MODE_E_FLICK:
    case LED_WORK_MODE_E_FLICK_DURATION: {
        const bool bKnown = stState.s32FlickHz >= 0 && stState.s32FlickHz < static_cast<BU_S32>(std::size(FLICKER));
        return "flick " + strLight + ' ' + FLICKER[bKnown ? stState.s32FlickHz : LED_MODE_FLICKER_1HZ];
    }
    default:
        return "off";
    }
}

void lamp::show(BSP_LED_HANDLE pvLamp, const std::string &strLine)
{
    auto *pstLamp = static_cast<Lamp *>(pvLamp);
    if (!pstLamp || pstLamp->strShown == strLine) return;
    pstLamp->strShown = strLine;
    const std::string strText = strLine + '\n';
    if (ftruncate(pstLamp->nFile, 0) != 0 ||
        pwrite(pstLamp->nFile, strText.data(), strText.size(), 0) != static_cast<ssize_t>(strText.size()))
        LOG_ERROR("%s: %s\n", pstLamp->strPath.c_str(), std::strerror(errno));
}

BSP_LED_HANDLE BSP_LED_Init(const BU_CHAR *pcPath)
{
    if (const auto injected = journal::call(__func__, pcPath)) return nullptr;
    if (!pcPath) return nullptr;
    const std::string strPath = UTIL_ROOT_Path(pcPath);
    std::error_code error;
    std::filesystem::create_directories(std::filesystem::path(strPath).parent_path(), error);
    const int nFile = open(strPath.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644);
    if (nFile < 0) {
        LOG_ERROR("%s: %s\n", strPath.c_str(), std::strerror(errno));
        return nullptr;
    }
    auto lamp = std::make_unique<Lamp>(Lamp{nFile, strPath, {}});
    lamp::show(lamp.get(), "off");
    return lamp.release();
}

BU_S32 BSP_LED_Destroy(BSP_LED_HANDLE pvLamp)
{
    if (const auto injected = journal::call(__func__, pvLamp != nullptr)) return *injected;
    const std::unique_ptr<Lamp> lamp(static_cast<Lamp *>(pvLamp));
    return lamp ? close(lamp->nFile) : -1;
}
