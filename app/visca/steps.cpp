// Settings that a controller steps: back to the default, one up, one down, or a value of its own.
#include "camera/image.h"
#include "handlers.h"
#include "table.h"
#include "util/log.h"
#include "vocabulary/wordSetters.h"

using namespace visca;

namespace
{
constexpr BU_S32 ANY_MODE = -1, OPEN_ENDED = -1;

struct Stepped {
    const BU_CHAR *pcDefaultKey;
    BU_S32 (*pfnGet)(BU_S32, BU_S32 *, BU_BOOL);
    BU_S32 (*pfnSet)(BU_S32, BU_S32, BU_BOOL, BU_BOOL);
    BU_S32 s32Max = OPEN_ENDED;  ///< steps wrap between 0 and this value, and a direct value above it is refused
    BU_S32 s32Offset = 0;        ///< from a direct value to the setting
    BU_S32 s32AeMode = ANY_MODE; ///< the only exposure mode in which the setting may change
    bool bColourGain = false;    ///< traced in the short form of the colour gains
};

/// A controller is told that an iris step is done even when the lens did not follow.
BU_S32 setIrisLevel(BU_S32 s32Pipe, BU_S32 s32Level, BU_BOOL bSaveCfg, BU_BOOL bUpdate)
{
    ISP_API_SetIrisLevel(s32Pipe, s32Level, bSaveCfg, bUpdate);
    return 0;
}

// clang-format off
constexpr Stepped
    R_GAIN{"RGain", ISP_API_GetRGain, ISP_API_SetRGain, 255, 0, ANY_MODE, true},
    B_GAIN{"BGain", ISP_API_GetBGain, ISP_API_SetBGain, 255, 0, ANY_MODE, true},
    G_GAIN{"GGain", ISP_API_GetGGain, ISP_API_SetGGain, OPEN_ENDED, 0, ANY_MODE, true},
    IRIS{"IrisLevel", ISP_API_GetIrisLevel, setIrisLevel, 13},
    GAIN{"Gain", ISP_API_GetGain, ISP_API_SetGain, 27, 0, AE_MODE_E_MANUAL},
    EXP_BRIGHT{"ExposureBrightness", ISP_API_GetExpBrightness, ISP_API_SetExpBrightness, OPEN_ENDED, 0, AE_MODE_E_BRIGHT},
    EXP_COMP{"ExposureCompLevel", ISP_API_GetExpCompLevel, ISP_API_SetExpCompLevel, OPEN_ENDED, -32},
    APERTURE{"Sharpness", ISP_API_GetSharpness, ISP_API_SetSharpness};
// clang-format on

enum Kind : BU_S32 { RESET = 0, UP, DOWN, DIRECT };

BU_S32 next(const Stepped &stRow, BU_S32 s32Cur, BU_S32 s32Step)
{
    if (stRow.s32Max == OPEN_ENDED) return s32Cur + s32Step;
    if (s32Step > 0) return s32Cur >= stRow.s32Max ? 0 : s32Cur + 1;
    return s32Cur <= 0 ? stRow.s32Max : s32Cur - 1;
}

bool isModeRight(const Stepped &stRow)
{
    if (stRow.s32AeMode == ANY_MODE) return true;
    BU_S32 s32Mode = ANY_MODE;
    ISP_API_GetAeMode(0, &s32Mode, BU_FALSE);
    return s32Mode == stRow.s32AeMode;
}

/// @param stCtrl    a kind and a direct value
/// @param s32First  the kind that means "reset"; up, down and direct follow it
template <class Ctrl>
BU_S32 step(const Stepped &stRow, const Ctrl &stCtrl, BU_S32 s32First = RESET,
            const BU_CHAR *pcHandler = __builtin_FUNCTION())
{
    if (!isModeRight(stRow)) return -1;
    const auto [enType, u8Direct] = stCtrl;
    BU_S32 s32Value = 0, s32Ret = 0;
    switch (enType - s32First) {
    case RESET:
        s32Ret = ISP_AF_GetDefVal(stRow.pcDefaultKey, &s32Value);
        break;
    case UP:
    case DOWN:
        s32Ret = stRow.pfnGet(0, &s32Value, BU_FALSE);
        s32Value = next(stRow, s32Value, enType - s32First == UP ? 1 : -1);
        break;
    case DIRECT:
        if (stRow.s32Max != OPEN_ENDED && u8Direct > stRow.s32Max) return -1;
        s32Value = u8Direct + stRow.s32Offset;
        break;
    default:
        return refuseType(enType, pcHandler);
    }
    if (s32Ret != 0) return s32Ret;
    s32Ret = stRow.pfnSet(0, s32Value, BU_TRUE, BU_TRUE);
    if (stRow.bColourGain)
        UTIL_TRACE_Print("[%s:%d] %d %d\n", pcHandler, __LINE__, enType, s32Value);
    else
        UTIL_TRACE_Print("[%s:%d] Type %d, Value %d\n", pcHandler, __LINE__, enType, s32Value);
    return s32Ret;
}
} // namespace

BU_S32 viscaCtrlRGain(tagVISCA_CTRL_INFO_S *pstInfo) { return step(R_GAIN, pstInfo->stRGainCtrl); }
BU_S32 viscaCtrlBGain(tagVISCA_CTRL_INFO_S *pstInfo) { return step(B_GAIN, pstInfo->stBGainCtrl); }
BU_S32 viscaCtrlGGain(tagVISCA_CTRL_INFO_S *pstInfo) { return step(G_GAIN, pstInfo->stGGainCtrl); }
BU_S32 viscaCtrlGain(tagVISCA_CTRL_INFO_S *pstInfo) { return step(GAIN, pstInfo->stGainCtrl); }
BU_S32 viscaCtrlExpBright(tagVISCA_CTRL_INFO_S *pstInfo) { return step(EXP_BRIGHT, pstInfo->stBrightCtrl); }
BU_S32 viscaCtrlAperture(tagVISCA_CTRL_INFO_S *pstInfo) { return step(APERTURE, pstInfo->stApertureCtrl); }
BU_S32 viscaCtrlIris(tagVISCA_CTRL_INFO_S *pstInfo) { return step(IRIS, pstInfo->stIrisCtrl); }

BU_S32 viscaCtrlExpComp(tagVISCA_CTRL_INFO_S *pstInfo)
{
    const auto enType = pstInfo->stExpCompCtrl.enExpCompType;
    if (cameraOf<codes::SWITCHES>(enType) != NONE) {
        TRACE("Type %d", enType);
        return coded<ISP_API_SetExpCompSwi>(enType);
    }
    return step(EXP_COMP, pstInfo->stExpCompCtrl, VISCA_MSG_E_EXP_COMP_RESET);
}
