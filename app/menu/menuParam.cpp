// Handlers of menu items that do more than pass a value on: lenses, language, audio, system.
#include "menu/menuParam.h"

#include "camera/focus.h"
#include "camera/image.h"
#include "camera/menu.h"
#include "camera/system.h"
#include "camera/systemService.h"
#include "util/file.h"
#include "util/log.h"

#include <string_view>

namespace
{
BU_S32 selectLens(ITEM_NODE_S *pstItem, BU_S32 (*pfnSelect)(const BU_CHAR *))
{
    menuTraceOption(*pstItem);
    pfnSelect(menuOption(*pstItem));
    OSD_MENU_RefreshCurrentPage();
    return 0;
}
} // namespace

const BU_CHAR *menuOption(const ITEM_NODE_S &stItem)
{
    const TXT_VALUE_S &st = stItem.unVal.stTxtVal;
    return st.s32ValSaveCur >= 0 && st.s32ValSaveCur < MENU_OPTION_MAX ? st.acValIndex[st.s32ValSaveCur] : "";
}

void menuTraceInt(const ITEM_NODE_S &stItem) { UTIL_TRACE_Print("menu %s: %d\n", stItem.acItemIndex, menuInt(stItem)); }
void menuTraceOption(const ITEM_NODE_S &stItem)
{
    UTIL_TRACE_Print("menu %s: %s\n", stItem.acItemIndex, menuOption(stItem));
}
void menuTraceText(const ITEM_NODE_S &stItem)
{
    UTIL_TRACE_Print("menu %s: %s\n", stItem.acItemIndex, menuText(stItem));
}

BU_S32 menuParamSetSaturation(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg)
{
    menuTraceInt(*pstItem);
    const std::string_view strZone = pstItem->acDataZone;
    if (strZone == "IMAGE")
        ISP_API_SetSaturation(ISP_API_GetCurDevImageId(), menuInt(*pstItem), bSaveCfg, BU_TRUE);
    else if (strZone == "WBLANCE")
        ISP_API_SetSaturation(ISP_API_GetCurDevWhiteBalanceId(), menuInt(*pstItem), bSaveCfg, BU_TRUE);
    return 0;
}

BU_S32 menuParamSetLensImage(ITEM_NODE_S *pstItem, BU_BOOL) { return selectLens(pstItem, ISP_API_SetCurDevImage); }
BU_S32 menuParamSetLensWB(ITEM_NODE_S *pstItem, BU_BOOL) { return selectLens(pstItem, ISP_API_SetCurDevWB); }
BU_S32 menuParamSetLensExposure(ITEM_NODE_S *pstItem, BU_BOOL)
{
    return selectLens(pstItem, ISP_API_SetCurDevExposure);
}

BU_S32 menuParamSetLanguage(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg)
{
    menuTraceOption(*pstItem);
    SYSTEM_API_SetLanguage(menuOption(*pstItem), bSaveCfg);
    OSD_MENU_RefreshCurrentPage();
    return 0;
}

/// Words are told by their beginning, one after the other: "MicIn48V" begins with "MicIn" and sets both, itself last.
BU_S32 menuParamSetAudioInput(ITEM_NODE_S *pstItem, BU_BOOL)
{
    menuTraceOption(*pstItem);
    const std::string_view strOption = menuOption(*pstItem);
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
    TRACE("\n");
    UTIL_CMD_RunSafe("reboot");
    return 0;
}

BU_S32 menuParamLensCorrection(ITEM_NODE_S *, BU_BOOL)
{
    TRACE("\n");
    AF_API_TriggerCurveCorrection();
    return 0;
}

/// Leaves the menu as the menu key does.
BU_S32 menuParamSetEscape(ITEM_NODE_S *, BU_BOOL)
{
    TRACE("\n");
    CMD_MENU_HandleMenuBtn();
    return 0;
}

BU_S32 menuParamModeSwitch(ITEM_NODE_S *, BU_BOOL)
{
    TRACE("\n");
    return 0;
}

BU_S32 menuParamSetTally(ITEM_NODE_S *pstItem, BU_BOOL)
{
    menuTraceOption(*pstItem);
    return 0;
}
