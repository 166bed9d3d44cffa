// Handlers of menu items that do more than pass a value on: saturation, language, audio, system.
#include "param.h"

#include "camera/focus.h"
#include "camera/image.h"
#include "camera/menu.h"
#include "camera/restore.h"
#include "camera/sound.h"
#include "util/file.h"
#include "util/log.h"

#include <string_view>

using namespace menu;

BU_S32 menuParamSetSaturation(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg)
{
    const std::string_view strZone = pstItem->acDataZone;
    if (strZone == "IMAGE")
        ISP_API_SetSaturation(ISP_API_GetCurDevImageId(), numberOf(*pstItem), bSaveCfg, BU_TRUE);
    else if (strZone == "WBLANCE")
        ISP_API_SetSaturation(ISP_API_GetCurDevWhiteBalanceId(), numberOf(*pstItem), bSaveCfg, BU_TRUE);
    return 0;
}

BU_S32 menuParamSetLanguage(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg)
{
    SYSTEM_API_SetLanguage(wordOf(*pstItem), bSaveCfg);
    OSD_MENU_RefreshCurrentPage();
    return 0;
}

/// Words are told by their beginning, one after the other: "MicIn48V" begins with "MicIn" and sets both, itself last.
BU_S32 menuParamSetAudioInput(ITEM_NODE_S *pstItem, BU_BOOL)
{
    const std::string_view strOption = wordOf(*pstItem);
    if (strOption.starts_with("LineIn")) SYS_API_SetAudioinput(AUDIO_INPUT_LINEIN, BU_TRUE, BU_TRUE);
    if (strOption.starts_with("MicIn")) SYS_API_SetAudioinput(AUDIO_INPUT_MICIN, BU_TRUE, BU_TRUE);
    if (strOption.starts_with("MicIn48V")) SYS_API_SetAudioinput(AUDIO_INPUT_MICIN48V, BU_TRUE, BU_TRUE);
    return 0;
}

BU_S32 menuParamFactoryRestore(ITEM_NODE_S *, BU_BOOL)
{
    UTIL_TRACE_Print("Factory restore configuration");
    SYSTEM_API_FactoryRestoreConfiguration(0);
    return 0;
}

BU_S32 menuParamRestart(ITEM_NODE_S *, BU_BOOL)
{
    UTIL_CMD_RunSafe("reboot");
    return 0;
}

BU_S32 menuParamLensCorrection(ITEM_NODE_S *, BU_BOOL)
{
    AF_API_TriggerCurveCorrection();
    return 0;
}

/// Leaves the menu as the menu key does.
BU_S32 menuParamSetEscape(ITEM_NODE_S *, BU_BOOL)
{
    CMD_MENU_HandleMenuBtn();
    return 0;
}
