// Presets: stored, recalled, deleted, and their settings.
#include "camera/motion.h"
#include "camera/picture.h"
#include "camera/preset.h"
#include "handlers.h"
#include "table.h"
#include "util/log.h"

#include <atomic>

using namespace visca;

namespace
{
/// Motion ends that a preset recall still waits for: the recall sets it to 2, each end takes one away.
std::atomic<BU_S32> gs_s32PresetFlag{0};
constexpr BU_S32 RECALL_ENDS = 2; ///< one of the head, one of the lens
constexpr BU_S32 NO_PRESET = -1;
} // namespace

bool viscaRecallGoesOn() { return --gs_s32PresetFlag > 0; }

BU_S32 viscaCtrlMemory(tagVISCA_CTRL_INFO_S *pstInfo)
{
    const auto [enType, u8Val] = pstInfo->stMemoryCtrl;
    BU_S32 s32Ret = -1;
    switch (enType) {
    case VISCA_MSG_E_MEMORY_RESET:
        s32Ret = PRESET_API_DeleteById(u8Val);
        break;
    case VISCA_MSG_E_MEMORY_SET:
        s32Ret = PRESET_API_SetCur(u8Val, "ByVisca");
        break;
    case VISCA_MSG_E_MEMORY_RECALL: {
        PRESET_INFO_S stPreset{};
        const bool bStored = PRESET_API_QueryById(u8Val, &stPreset) == 0;
        const bool bSpecial = PRESET_API_QuerySpecialById(u8Val) == 0;
        if (!bStored && !bSpecial) {
            TRACE("can't find preset %d\n", u8Val);
            return -1;
        }
        // A special preset moves nothing: the ends still to come are another recall's.
        if (!bSpecial) gs_s32PresetFlag = RECALL_ENDS; // first: a move may end before the call returns
        s32Ret = PRESET_API_GotoById(u8Val, PT_CTRL_E_FROM_VISCA, pstInfo);
        break;
    }
    case VISCA_MSG_E_MEMORY_SPEED:
        s32Ret = direct<PRESET_API_SetPresetSpeed>(u8Val);
        break;
    case VISCA_MSG_E_MEMORY_POWERUP:
        s32Ret = direct<PT_API_SetPowerUpPtzPos>(u8Val == 0 ? NO_PRESET : u8Val);
        break;
    case VISCA_MSG_E_MEMORY_MODE:
        s32Ret = coded<SYS_API_SetPresetMode>(u8Val);
        break;
    default:
        return refuseType(enType);
    }
    TRACE("Type %d, %d\n", enType, u8Val);
    return s32Ret;
}
