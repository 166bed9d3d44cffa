// White-balance mode, colour temperature and the strength of the automatic one by channel.
#include "camera/image.h"
#include "config/config.h"
#include "handlers.h"
#include "table.h"
#include "util/log.h"
#include "vocabulary/wordSetters.h"

using namespace visca;

namespace
{
constexpr BU_S32 MAX_COLOR_TEMP_INDEX = 0x25;

constexpr Coded<PFN_SET_DEV> STRENGTHS[] = {{VISCA_MSG_E_AWB_RGAIN, ISP_API_SetRStrength},
                                            {VISCA_MSG_E_AWB_BGAIN, ISP_API_SetBStrength},
                                            {VISCA_MSG_E_AWB_GGAIN, ISP_API_SetGStrength}};
} // namespace

BU_S32 viscaCtrlWbMode(tagVISCA_CTRL_INFO_S *pstInfo)
{
    const auto enMode = pstInfo->enWbModeCtrl;
    BU_S32 s32Ret = 0;
    if (enMode == VISCA_MSG_E_WB_ONE_PUSH_TRIGGER) {
        UTIL_TRACE_Print("%s %d\n", __func__, __LINE__);
        s32Ret = ISP_API_SetOnePushAwb(0, BU_FALSE, BU_TRUE, BU_TRUE);
    } else {
        if (cameraOf<codes::WB_MODES>(enMode) == NONE) return refuseType(enMode);
        s32Ret = coded<ISP_API_SetWbMode, codes::WB_MODES>(enMode);
    }
    TRACE("%d\n", enMode);
    return s32Ret;
}

BU_S32 viscaCtrlWbColorTmp(tagVISCA_CTRL_INFO_S *pstInfo)
{
    CFG_VALUE_INT_S stRange{};
    CFG_COM_GetIntParams("ColorTemp", &stRange);
    const auto enType = pstInfo->stColorTempCtrl.enColorTempType;
    const auto u8Index = pstInfo->u8WbColorTmpDirect;
    BU_S32 s32Value = 0, s32Ret = 0;
    switch (enType) {
    case VISCA_MSG_E_COLORTEMP_RESET:
        s32Ret = ISP_AF_GetDefVal("ColorTemp", &s32Value);
        break;
    case VISCA_MSG_E_COLORTEMP_UP:
    case VISCA_MSG_E_COLORTEMP_DOWN:
        s32Ret = ISP_API_GetStWbMode(0, &s32Value, BU_FALSE);
        s32Value += enType == VISCA_MSG_E_COLORTEMP_UP ? stRange.s32Step : -stRange.s32Step;
        break;
    case VISCA_MSG_E_COLORTEMP_DIRECT:
        if (u8Index > MAX_COLOR_TEMP_INDEX) {
            UTIL_TRACE_Print("[%s:%d]: %d out of rang[0 ~ 0x25]\n", __func__, __LINE__, u8Index);
            return -1;
        }
        s32Value = u8Index * stRange.s32Step + stRange.s32Min;
        break;
    default:
        return refuseType(enType);
    }
    if (s32Ret != 0) return s32Ret;
    s32Value = std::clamp(s32Value, stRange.s32Min, stRange.s32Max);
    s32Ret = ISP_API_SetStWbMode(0, s32Value, BU_TRUE, BU_TRUE);
    TRACE("set %d\n", s32Value);
    return s32Ret;
}

BU_S32 viscaCtrlAwbGain(tagVISCA_CTRL_INFO_S *pstInfo)
{
    const auto [enType, u8Strength] = pstInfo->stAwbGainCtrl;
    const auto *ppfnSet = find(STRENGTHS, enType);
    if (!ppfnSet) return refuseType(enType);
    const BU_S32 s32Ret = (*ppfnSet)(0, u8Strength, BU_TRUE, BU_TRUE);
    TRACE("%d %d\n", enType, u8Strength);
    return s32Ret;
}
