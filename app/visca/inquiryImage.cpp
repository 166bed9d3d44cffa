// Inquiries of white balance, exposure and picture.
#include "inquiry.h"

#include "camera/picture.h"
#include "util/log.h"

#include <algorithm>
#include <iterator>

using namespace visca;

namespace
{
constexpr PFN_QUESTION STRENGTHS[] = {question<ISP_API_GetRStrength>, question<ISP_API_GetBStrength>,
                                      question<ISP_API_GetGStrength>}; // in the order of VISCA_CTRL_AWB_GAIN_E

constexpr BU_S32 plusOne(BU_S32 s32Value) { return s32Value == UNREAD ? UNREAD : s32Value + 1; }

struct VideoParamRow {
    PFN_QUESTION pfnAsk;
    PFN_CONVERT pfnConvert = asRead;
};
constexpr VideoParamRow VIDEO_PARAMS[] = {
    // in the order of VISCA_CTRL_VIDEO_PARAM_E
    {question<ISP_API_GetSharpness>},
    {question<ISP_API_GetBrightness>},
    {question<ISP_API_GetContrast>},
    {question<ISP_API_GetSaturation>},
    {question<ISP_API_GetHue>},
    {question<ISP_API_Get2DNR>},
    {question<ISP_API_Get3DNR>},
    {question<ISP_API_GetGamma>},
    {question<ISP_API_GetDrcMode>, plusOne},
    {question<SYS_API_GetMirror>, onOff},
    {question<SYS_API_GetFlip>, onOff},
    {question<ISP_API_GetAntiFlicker, BU_TRUE>, codeOf<codes::ANTI_FLICKERS>},
    {question<SYS_API_GetImageFreeze, BU_TRUE>, onOff}};
static_assert(std::size(VIDEO_PARAMS) == VISCA_MSG_E_DIRECT_FREEZE + 1);

struct ExtraIspRow {
    VISCA_CTRL_EXTREA_ISP_E enType;
    PFN_QUESTION pfnAsk;
    PFN_CONVERT pfnConvert = onOff;
};
constexpr ExtraIspRow EXTRA_ISP[] = {
    {VISCA_MSG_E_EXP_FULLVIEW_FOLLOW_MODE, question<ISP_API_GetExposureFullViewFollow>},
    {VISCA_MSG_E_WB_FULLVIEW_FOLLOW_MODE, question<ISP_API_GetWhiteBalanceFullViewFollow>},
    {VISCA_MSG_E_WB_SENSI, question<ISP_API_GetAwbSensitivity>, asRead},
    {VISCA_MSG_E_INSTALL_MODE, question<SYS_API_GetMountMode>},
    {VISCA_MSG_E_LENS_CORRECTION_MODE, question<AF_API_GetDistortionCorrection, BU_TRUE>},
    {VISCA_MSG_E_EXP_ND_FILTER, question<ISP_API_GetNDFilter>, asRead},
    {VISCA_MSG_E_TELE_MODE, question<SYS_API_GetSensorCrop>},
    {VISCA_MSG_E_FACE_AF_MODE, question<AF_API_GetFaceAF>},
    {VISCA_MSG_E_IRIS_AUTO_MODE, question<ISP_API_GetAutoIrisSwi>}};
} // namespace

BU_S32 viscaInquiryWbMode(tagVISCA_CTRL_INFO_S *pstInfo)
{
    const BU_S32 s32Camera = ask<ISP_API_GetWbMode>(), s32Mode = codeOf<codes::WB_MODES>(s32Camera);
    if (s32Mode == UNREAD) {
        TRACE("unknow value %d\n", s32Camera);
        return -1;
    }
    return store<WbMode>(pstInfo, s32Mode);
}

BU_S32 viscaInquiryRGain(tagVISCA_CTRL_INFO_S *pstInfo) { return store<RGain>(pstInfo, ask<ISP_API_GetRGain>()); }
BU_S32 viscaInquiryBGain(tagVISCA_CTRL_INFO_S *pstInfo) { return store<BGain>(pstInfo, ask<ISP_API_GetBGain>()); }
BU_S32 viscaInquiryGGain(tagVISCA_CTRL_INFO_S *pstInfo) { return store<GGain>(pstInfo, ask<ISP_API_GetGGain>()); }

BU_S32 viscaInquiryAwbGain(tagVISCA_CTRL_INFO_S *pstInfo)
{
    const auto enType = pstInfo->stAwbGainCtrl.enAwbGainType;
    if (enType < VISCA_MSG_E_AWB_RGAIN || enType > VISCA_MSG_E_AWB_GGAIN) {
        TRACE("unknow Type %d\n", enType);
        return -1;
    }
    BU_S32 s32Value = UNREAD;
    STRENGTHS[enType](&s32Value);
    return store<AwbGain>(pstInfo, s32Value);
}

BU_S32 viscaInquiryWbColorTemp(tagVISCA_CTRL_INFO_S *pstInfo)
{
    const BU_S32 s32Temperature = ask<ISP_API_GetStWbMode>();
    if (s32Temperature == UNREAD) return 0;
    const auto stRange = rangeOf("ColorTemp");
    return store<ColorTemp>(pstInfo, stRange.s32Step == 0 ? 0 : (s32Temperature - stRange.s32Min) / stRange.s32Step);
}

BU_S32 viscaInquiryAeMode(tagVISCA_CTRL_INFO_S *pstInfo)
{
    const BU_S32 s32Camera = ask<ISP_API_GetAeMode>(), s32Mode = codeOf<codes::AE_MODES>(s32Camera);
    if (s32Mode == UNREAD) {
        TRACE("unknow value %d\n", s32Camera);
        return -1;
    }
    return store<AeMode>(pstInfo, s32Mode);
}

BU_S32 viscaInquiryShutterPos(tagVISCA_CTRL_INFO_S *pstInfo)
{
    BU_S32 s32Position = UNREAD;
    askShutterPosition(&s32Position);
    return store<Shutter>(pstInfo, s32Position);
}

BU_S32 viscaInquiryIrisPos(tagVISCA_CTRL_INFO_S *pstInfo) { return store<Iris>(pstInfo, ask<ISP_API_GetIrisLevel>()); }
BU_S32 viscaInquiryGainPos(tagVISCA_CTRL_INFO_S *pstInfo) { return store<Gain>(pstInfo, ask<ISP_API_GetGain>()); }

BU_S32 viscaInquiryExpBright(tagVISCA_CTRL_INFO_S *pstInfo)
{
    return store<Bright>(pstInfo, ask<ISP_API_GetExpBrightness>());
}

BU_S32 viscaInquiryExpCompMode(tagVISCA_CTRL_INFO_S *pstInfo)
{
    return storeOnOff<ExpCompMode>(pstInfo, ask<ISP_API_GetExpCompSwi>());
}

BU_S32 viscaInquiryExpCompPos(tagVISCA_CTRL_INFO_S *pstInfo)
{
    return store<ExpCompPos>(pstInfo, expCompPosition(ask<ISP_API_GetExpCompLevel>()));
}

BU_S32 viscaInquiryBacklightMode(tagVISCA_CTRL_INFO_S *pstInfo)
{
    return storeOnOff<Backlight>(pstInfo, ask<ISP_API_GetBackLight>());
}

BU_S32 viscaInquiryAperture(tagVISCA_CTRL_INFO_S *pstInfo)
{
    return store<Aperture>(pstInfo, ask<ISP_API_GetSharpness>());
}

BU_S32 viscaInquiryVideoParam(tagVISCA_CTRL_INFO_S *pstInfo)
{
    const auto enType = pstInfo->stVideoParamCtrl.enVideoParamType;
    if (enType < VISCA_MSG_E_DIRECT_SHARPNESS || enType > VISCA_MSG_E_DIRECT_FREEZE) {
        TRACE("unknow Type %d\n", enType);
        return -1;
    }
    // Without wide dynamic range there is no mode; the answer is what the inquiry carried.
    if (enType == VISCA_MSG_E_DIRECT_WDR && !ask<ISP_API_GetDrcSwi>(BU_FALSE)) return 0;
    BU_S32 s32Value = UNREAD;
    VIDEO_PARAMS[enType].pfnAsk(&s32Value);
    store<VideoParam>(pstInfo, VIDEO_PARAMS[enType].pfnConvert(s32Value));
    TRACE("Type %d, Value %d\n", enType, pstInfo->stVideoParamCtrl.u8VideoParamDirect);
    return 0;
}

BU_S32 viscaInquiryExtraStatue(tagVISCA_CTRL_INFO_S *pstInfo)
{
    const auto enType = pstInfo->stExtraIspCtrl.enExtraIspType;
    const auto *pstRow = std::ranges::find(EXTRA_ISP, enType, &ExtraIspRow::enType);
    if (pstRow == std::end(EXTRA_ISP)) return -1;
    BU_S32 s32Value = UNREAD;
    const BU_S32 s32Ret = pstRow->pfnAsk(&s32Value);
    store<ExtraIsp>(pstInfo, pstRow->pfnConvert(s32Value));
    TRACE("type[%d] value[%d]\n", enType, pstInfo->stExtraIspCtrl.u8Val);
    return s32Ret;
}
