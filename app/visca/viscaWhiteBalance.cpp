#include "camera/image.h"
#include "config/config.h"
#include "util/log.h"
#include "visca/viscaHandlers.h"
#include "visca/viscaTable.h"
#include "vocabulary/wordSetters.h"

namespace
{
constexpr tagVISCA_CODE_S<const BU_CHAR *> WB_MODES[] = {
    {VISCA_MSG_E_WB_AUTO, "AutoMode"},     {VISCA_MSG_E_WB_INDOOR, "InDoor"},
    {VISCA_MSG_E_WB_OUTDOOR, "OutDoor"},   {VISCA_MSG_E_WB_ONE_PUSH_WB, "OnePushWb"},
    {VISCA_MSG_E_WB_MANUAL, "ManualMode"}, {VISCA_MSG_E_WB_COLOR_TEMPERATURE, "StaticWb"}};

constexpr BU_S32 MAX_COLOR_TEMP_INDEX = 0x25;

typedef BU_S32 (*PFN_SET_STRENGTH)(BU_S32, BU_S32, BU_BOOL, BU_BOOL);
constexpr tagVISCA_CODE_S<PFN_SET_STRENGTH> STRENGTHS[] = {{VISCA_MSG_E_AWB_RGAIN, ISP_API_SetRStrength},
                                                           {VISCA_MSG_E_AWB_BGAIN, ISP_API_SetBStrength},
                                                           {VISCA_MSG_E_AWB_GGAIN, ISP_API_SetGStrength}};
} // namespace

BU_S32 viscaCtrlWbMode(tagVISCA_CTRL_INFO_S *pstInfo)
{
    const auto enMode = pstInfo->enWbModeCtrl;
    BU_S32 s32Ret = 0;
    if (enMode == VISCA_MSG_E_WB_ONE_PUSH_TRIGGER) {
        UTIL_TRACE_Print("%s %d\n", __func__, __LINE__);
        s32Ret = ISP_API_SetOnePushAwb(0, "Off", BU_TRUE, BU_TRUE);
    } else if (const auto *ppcWord = viscaFind(WB_MODES, enMode))
        s32Ret = ISP_API_SetWbMode(0, *ppcWord, BU_TRUE, BU_TRUE);
    else
        return viscaRefuseType(enMode);
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
        return viscaRefuseType(enType);
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
    const auto *ppfnSet = viscaFind(STRENGTHS, enType);
    if (!ppfnSet) return viscaRefuseType(enType);
    const BU_S32 s32Ret = (*ppfnSet)(0, u8Strength, BU_TRUE, BU_TRUE);
    TRACE("%d %d\n", enType, u8Strength);
    return s32Ret;
}
