/// Encoder parameters by hand.
#include "internal.h"

#include "media/encoder.h"
#include "util/debug.h"
#include "util/log.h"

#include <algorithm>
#include <iterator>
#include <sstream>
#include <string>

namespace
{
constexpr const BU_CHAR *CONSOLE = "/var/debug/app/platform/encoder";

struct Format {
    const BU_CHAR *pcWord;
    MPP_VENC_FORMAT_E enType;
};
constexpr Format FORMATS[] = {
    {"h264", MPP_VENC_FORMAT_E_H264}, {"h265", MPP_VENC_FORMAT_E_H265}, {"mjpeg", MPP_VENC_FORMAT_E_MJPEG}};

/// @return false: not understood, or refused
bool carryOut(const std::string &strLine)
{
    std::istringstream stLine(strLine);
    BU_S32 s32Chn = -1;
    std::string strFormat;
    MPP_VENC_PARAM_S stParam{};
    stLine >> s32Chn >> strFormat;
    const auto *pstFormat = std::ranges::find(FORMATS, strFormat, &Format::pcWord);
    if (pstFormat == std::end(FORMATS) || !MPP_GetVencChnStatus(s32Chn, stParam, BU_FALSE)) return false;
    stParam.enType = pstFormat->enType;
    BU_U32 u32Width = 0, u32Height = 0, u32BitRate = 0;
    BU_CHAR cTimes = 0;
    if (stLine >> u32Width >> cTimes >> u32Height && cTimes == 'x') {
        stParam.u32Width = u32Width;
        stParam.u32Height = u32Height;
    }
    if (stLine >> u32BitRate) stParam.u32BitRate = u32BitRate;
    return MPP_EnableVenc(MPP_GetVencSource(s32Chn), s32Chn, &stParam, nullptr, BU_FALSE) == 0;
}
} // namespace

void media::openVencConsole()
{
    UTIL_DebugRegister(
        CONSOLE,
        [](std::istream &stIn, void *) {
            for (std::string strLine; std::getline(stIn, strLine);)
                if (!carryOut(strLine)) LOG_WARN("encoder console: not done: %s\n", strLine.c_str());
            return 0;
        },
        nullptr);
}
