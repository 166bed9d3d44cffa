// Start of the menu and what its library calls back.
#include "menu/menu.h"

#include "camera/image.h"
#include "media/pipeline.h"
#include "model/model.h"
#include "param.h"
#include "util/log.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>

namespace
{
struct Zone {
    std::string_view strZone;
    const BU_CHAR *(*pfnSection)();
};
constexpr Zone ZONES[] = {
    {"IMAGE", ISP_API_GetCurDevImageName},
    {"EXPOSURE", ISP_API_GetCurDevExposureName},
    {"WBLANCE", ISP_API_GetCurDevWhiteBalanceName},
    {"NETWORK", [] { return "NetCard0"; }},
};

OSD_MENU_CFG_S configuration()
{
    OSD_MENU_CFG_S stParam{};
    stParam.bTkvStatus = model::isModel(model::TKV_MX);
    stParam.stRect =
        model::isModel(model::QLS_500) ? OSD_MENU_RECT_S{0, 0, 1.0F / 3, 0.5F} : OSD_MENU_RECT_S{0, 0, 0.2F, 1.0F / 3};
    stParam.enFormat = OSD_FORMAT_E_ARGB4444;
    stParam.bSupport4K = BU_TRUE;
    return stParam;
}

/// One line on standard output: the key and the value.
void traceValue(const ITEM_NODE_S &stItem)
{
    const auto value = [&](const BU_CHAR *pcText) { UTIL_TRACE_Print("menu %s: %s\n", stItem.acItemIndex, pcText); };
    if (stItem.enValType == VALUE_TYPE_E_INT32) value(std::to_string(menu::numberOf(stItem)).c_str());
    if (stItem.enValType == VALUE_TYPE_E_OPT_TXT) value(menu::wordOf(stItem));
    if (stItem.enValType == VALUE_TYPE_E_EDIT_TXT) value(menu::textOf(stItem));
}
} // namespace

BU_S32 OSD_MENU_RegisterModule()
{
    constexpr BU_U32 WIDTH_4K = 3840;
    OSD_MENU_CFG_S stParam = configuration();

    MPP_VOUT_CFG_S stVoutCfg{};
    const BU_S32 s32Ret = MPP_GetVoutCfg(MPP_VOUT_ID_2, &stVoutCfg);
    if (s32Ret < 0) {
        TRACE("call MPP_GetVoutCfg failed, ret:%d\n", s32Ret);
        return s32Ret;
    }
    if (stVoutCfg.stResolution.u32Width == WIDTH_4K) stParam.bSupport4K = BU_TRUE;

    if (OSD_MENU_InitSdkRes(&stParam, OSD_MENU_SetParam, OSD_MENU_DataZoneGetSection, nullptr) != 0) return -1;
    Osd_GetVersionCallback(OSD_MENU_EventHandler, nullptr);
    OSD_PROMPT_Init();
    return 0;
}

BU_S32 OSD_MENU_UnRegisterModule() { return 0; }

BU_S32 OSD_MENU_SetParam(ITEM_NODE_S *pstItem)
{
    const std::string_view strKey(pstItem->acItemIndex, strnlen(pstItem->acItemIndex, sizeof(pstItem->acItemIndex)));
    const auto table = menu::paramTable();
    const auto row = std::ranges::find_if(table, [&](const MENU_PARAM_MAP_S &st) { return strKey == st.acParam; });
    if (row == table.end()) return -1;
    UTIL_TRACE_Print("now while running %s \n", row->acParam);
    traceValue(*pstItem);
    if (row->pFunc(pstItem, BU_TRUE) == 0) return 0;
    UTIL_TRACE_Print("Set param %s failed\n", row->acParam);
    return -1;
}

const BU_CHAR *OSD_MENU_DataZoneGetSection(const BU_CHAR *pcZone)
{
    if (!pcZone) return nullptr;
    const auto *pstZone = std::ranges::find(ZONES, std::string_view(pcZone), &Zone::strZone);
    return pstZone == std::end(ZONES) ? nullptr : pstZone->pfnSection();
}
