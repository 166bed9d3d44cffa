// Start of the menu and what its library calls back.
#include "menu/menu.h"

#include "camera/image.h"
#include "media/pipeline.h"
#include "menu/menuParam.h"
#include "model/model.h"
#include "util/log.h"

#include <algorithm>
#include <string_view>

namespace
{
struct tagMENU_ZONE_S {
    std::string_view strZone;
    const BU_CHAR *(*pfnSection)();
};
constexpr tagMENU_ZONE_S ZONES[] = {
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
    const auto table = menuParamTable();
    const auto row = std::ranges::find_if(table, [&](const MENU_PARAM_MAP_S &st) { return strKey == st.acParam; });
    if (row == table.end()) return -1;
    UTIL_TRACE_Print("now while running %s \n", row->acParam);
    if (row->pFunc(pstItem, BU_TRUE) == 0) return 0;
    UTIL_TRACE_Print("Set param %s failed\n", row->acParam);
    return -1;
}

const BU_CHAR *OSD_MENU_DataZoneGetSection(const BU_CHAR *pcZone)
{
    if (!pcZone) return nullptr;
    const auto *pstZone = std::ranges::find(ZONES, std::string_view(pcZone), &tagMENU_ZONE_S::strZone);
    return pstZone == std::end(ZONES) ? nullptr : pstZone->pfnSection();
}
