// Which preset numbers stand for a function, and what they do.
#include "preset/preset.h"

#include "camera/menu.h"
#include "camera/network.h"
#include "camera/preset.h"
#include "camera/restore.h"
#include "camera/tracking.h"
#include "model/model.h"
#include "util/file.h"

namespace
{
void handlePreset_EnableAlg(void *) { ALG_API_SetEnable(BU_TRUE, BU_TRUE, BU_TRUE); }
void handlePreset_DisableAlg(void *) { ALG_API_SetEnable(BU_FALSE, BU_TRUE, BU_TRUE); }
void handlePreset_OpenMenu(void *) { CMD_MENU_HandleMenuBtn(); }
void handlePreset_Reboot(void *) { UTIL_CMD_RunSafe("reboot"); }
// The video formats only reserve their numbers.
void handlePreset_Set4K60(void *) {}
void handlePreset_Set4K30(void *) {}
void handlePreset_Set1080P60(void *) {}
void handlePreset_Set1080P30(void *) {}
void handlePreset_Set720P60(void *) {}
void handlePreset_FactoryReset(void *) { SYSTEM_API_FactoryRestoreConfiguration(0); }
void handlePreset_SetDHCP(void *) { NET_API_SetIpMode("NetCard0", IP_MODE_E_DHCP); }
void handlePreset_SetStaticIp(void *) { NET_API_SetIpMode("NetCard0", IP_MODE_E_STATIC); }
void handlePreset_OpenAdvancedMenu(void *) { CMD_MENU_HandleAdvancedMenuBtn(); }

struct SpecialPreset {
    BU_S32 s32Id;
    const BU_CHAR *pcName;
    void (*pfnHandle)(void *);
    std::string_view strModel = {}; ///< the only model that has it; empty: every model
};
constexpr SpecialPreset SPECIAL_PRESETS[] = {
    {80, "EnableTracking", handlePreset_EnableAlg},
    {81, "DisableTracking", handlePreset_DisableAlg},
    {95, "OpenMenu", handlePreset_OpenMenu},
    {99, "Reboot", handlePreset_Reboot},
    {301, "Set4K60", handlePreset_Set4K60},
    {302, "Set4K30", handlePreset_Set4K30},
    {303, "Set1080P60", handlePreset_Set1080P60},
    {304, "Set1080P30", handlePreset_Set1080P30},
    {305, "Set720P60", handlePreset_Set720P60},
    {310, "FactoryReset", handlePreset_FactoryReset},
    {401, "DHCP", handlePreset_SetDHCP},
    {402, "StaticIp", handlePreset_SetStaticIp},
    {PRESET_ADVANCED_MENU_QLS500, "OpenAdvancedMenu", handlePreset_OpenAdvancedMenu, model::QLS_500},
    {PRESET_ADVANCED_MENU, "OpenAdvancedMenu", handlePreset_OpenAdvancedMenu},
};
} // namespace

void PRESET_RegisterSpecialPreset()
{
    for (const auto &stRow : SPECIAL_PRESETS)
        if (stRow.strModel.empty() || model::isModel(stRow.strModel))
            PRESET_API_RegisterIdInterrupt(stRow.s32Id, stRow.pcName, FN_PRESET_INTERRUPT_CALL(stRow.pfnHandle),
                                           nullptr);
}
