// What the menu tells in words: versions, the video format, the keys of the shutter.
#include "board/device.h"
#include "camera/focus.h"
#include "camera/image.h"
#include "camera/tracking.h"
#include "camera/video.h"
#include "live/ndi.h"
#include "menu/menu.h"
#include "util/log.h"

#include <cstdio>
#include <iterator>
#include <string>
#include <string_view>

namespace
{
/// "NDI 5.6.1" and build 12 give Tarvolk_MX_5.6.12: the library's release, the camera's own build.
void putFirmwareVersion(BU_CHAR (&acText)[64])
{
    FIRMWARE_INFO_S stFirmware{};
    BSP_VER_GetProductVersion(&stFirmware);
    BU_CHAR acNdiVersion[64]{};
    ndi_api::NDI_GetNDIVersion(acNdiVersion);

    std::string_view strRelease = acNdiVersion;
    strRelease.remove_prefix(strRelease.rfind(' ') + 1); // no space: npos + 1 is 0
    const auto secondDot = strRelease.find('.', strRelease.find('.') + 1);
    const bool bTwoDots = strRelease.find('.') != strRelease.npos && secondDot != strRelease.npos;
    strRelease = strRelease.substr(0, bTwoDots ? secondDot + 1 : 0);
    std::snprintf(acText, sizeof(acText), "Tarvolk_MX_%s%u", std::string(strRelease).c_str(),
                  stFirmware.au8CamVersion[3]);
}

void putVideoFormat(BU_CHAR (&acText)[64])
{
    constexpr const BU_CHAR *FORMATS[] = {"4K", "1080P", "1080I", "720P"};
    constexpr const BU_CHAR *RATES[] = {"60", "59.94", "50", "30", "29.97", "25", "24", "23.98"};
    static_assert(std::size(FORMATS) == HDMI_FORMAT_E_BUTT && std::size(RATES) == HDMI_FPS_E_BUTT);
    const auto textOf = [](const auto &apcTexts, BU_S32 s32) {
        return s32 >= 0 && s32 < static_cast<BU_S32>(std::size(apcTexts)) ? apcTexts[s32] : "";
    };
    BU_S32 enHdmiFormat = 0, enFps = 0;
    SYSTEM_API_GetHdmiFormat(&enHdmiFormat, BU_FALSE);
    SYSTEM_API_GetHdmiFps(&enFps, BU_FALSE);
    std::snprintf(acText, sizeof(acText), "%s%s", textOf(FORMATS, enHdmiFormat), textOf(RATES, enFps));
}

void putKeyOfRate(BU_CHAR (&acText)[64], const BU_CHAR *(*pfnKeyByFps)(HDMI_FPS_E))
{
    HDMI_FPS_E hdmiFps = HDMI_FPS_E_FPS60;
    SYSTEM_API_GetHdmiFps(&hdmiFps, BU_FALSE);
    std::snprintf(acText, sizeof(acText), "%s", pfnKeyByFps(hdmiFps));
}
} // namespace

void OSD_MENU_EventHandler(void *, OSD_MENU_GET_EVENT_E ePtzEvent, OSD_MENU_CONTROL_PARAM_S *pstPtzParam)
{
    auto &acVersion = pstPtzParam->acVersion;
    switch (ePtzEvent) {
    case OSD_MENU_GET_AF_E_VERSION_INFO:
        AF_API_GetAFVersion(0, acVersion);
        break;
    case OSD_MENU_GET_ISP_E_VERSION_INFO:
        ISP_API_GetVersion(0, acVersion);
        break;
    case OSD_MENU_GET_AI_E_VERSION_INFO:
        ALG_API_GetAlgVersion(acVersion);
        break;
    case OSD_MENU_GET_FW_E_VERSION_INFO:
        putFirmwareVersion(acVersion);
        break;
    case OSD_MENU_GET_DEV_E_VIDEO_INFO:
        putVideoFormat(acVersion);
        break;
    case OSD_MENU_GET_SHUTTER_E_VALUE:
        putKeyOfRate(acVersion, ISP_API_GetShutterValueConfigNameByHdmiFps);
        break;
    case OSD_MENU_GET_SHUTTER_E_SPEED:
        putKeyOfRate(acVersion, ISP_API_GetShutterConfigNameByHdmiFps);
        break;
    default:
        TRACE("unknown event\n");
        break;
    }
}
