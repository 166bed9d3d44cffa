/// What is stored of the encoder channels, and their defaults.
#include "internal.h"

#include "store/store.h"
#include "util/log.h"
#include "videoEncoder.h"

#include <iterator>
#include <string>
#include <vector>

namespace
{
struct Field {
    const BU_CHAR *pcKey;
    BU_U32 MPP_VENC_PARAM_S::*pu32Field;
};
// The keys of a camera's stored settings: once released they stay as they are.
constexpr Field FIELDS[] = {
    {"Width", &MPP_VENC_PARAM_S::u32Width},     {"Height", &MPP_VENC_PARAM_S::u32Height},
    {"FrmRate", &MPP_VENC_PARAM_S::u32FrmRate}, {"BitRate", &MPP_VENC_PARAM_S::u32BitRate},
    {"Gop", &MPP_VENC_PARAM_S::u32GOP},         {"Profile", &MPP_VENC_PARAM_S::u32Profile},
    {"Quality", &MPP_VENC_PARAM_S::u32Quality}, {"QpMinI", &MPP_VENC_PARAM_S::u32QpMinI},
    {"QpMaxI", &MPP_VENC_PARAM_S::u32QpMaxI},   {"QpMinP", &MPP_VENC_PARAM_S::u32QpMinP},
    {"QpMaxP", &MPP_VENC_PARAM_S::u32QpMaxP},   {"BitrateProfile", &MPP_VENC_PARAM_S::u32BitrateProfile},
};
constexpr const BU_CHAR *ENABLE = "Enable", *TYPE = "Type", *RC_MODE = "RcMode";

struct Default {
    BU_U32 u32Width, u32Height, u32FrmRate, u32BitRate, u32GOP;
};
constexpr Default DEFAULTS[] = {
    {1920, 1080, 30, 4000, 60}, {640, 360, 30, 600, 60}, {1280, 720, 30, 2000, 60}, {640, 360, 15, 400, 30}};

std::string keyOf(BU_S32 s32Chn, const BU_CHAR *pcName) { return "Venc/" + std::to_string(s32Chn) + '/' + pcName; }

MPP_VENC_PARAM_S defaultOf(BU_S32 s32Chn)
{
    const Default &st = DEFAULTS[static_cast<std::size_t>(s32Chn) % std::size(DEFAULTS)];
    MPP_VENC_PARAM_S stParam{};
    stParam.enType = MPP_VENC_FORMAT_E_H264;
    stParam.u32Width = st.u32Width;
    stParam.u32Height = st.u32Height;
    stParam.u32FrmRate = st.u32FrmRate;
    stParam.u32BitRate = st.u32BitRate;
    stParam.u32GOP = st.u32GOP;
    return stParam;
}

BU_S32 storedInt(BU_S32 s32Chn, const BU_CHAR *pcName, BU_S32 s32Default)
{
    CFG_STORE_GetInt(keyOf(s32Chn, pcName).c_str(), &s32Default);
    return s32Default;
}
} // namespace

media::StoredVenc media::loadVenc(BU_S32 s32Chn)
{
    const MPP_VENC_PARAM_S stDefault = defaultOf(s32Chn);
    MPP_VENC_PARAM_S stParam = stDefault;
    for (const auto &[pcKey, pu32Field] : FIELDS)
        stParam.*pu32Field = static_cast<BU_U32>(storedInt(s32Chn, pcKey, static_cast<BU_S32>(stParam.*pu32Field)));
    stParam.enType = static_cast<MPP_VENC_FORMAT_E>(storedInt(s32Chn, TYPE, stParam.enType));
    stParam.enRcMode = static_cast<MPP_VENC_RC_MODE_E>(storedInt(s32Chn, RC_MODE, stParam.enRcMode));
    const bool bFeedsCache = static_cast<std::size_t>(s32Chn) < std::size(DEFAULTS);
    const bool bEnabled = bFeedsCache && storedInt(s32Chn, ENABLE, BU_TRUE) != BU_FALSE;
    const BU_CHAR *pcRefusal = refusal(stParam);
    if (!pcRefusal) return {bEnabled, stParam};
    LOG_WARN("stored parameters of encoder %d are not used: %s\n", s32Chn, pcRefusal);
    return {bEnabled, stDefault};
}

BU_S32 media::storeVenc(BU_S32 s32Chn, const MPP_VENC_PARAM_S &stParam)
{
    std::vector<std::pair<std::string, std::string>> listValues{
        {keyOf(s32Chn, ENABLE), "1"},
        {keyOf(s32Chn, TYPE), std::to_string(stParam.enType)},
        {keyOf(s32Chn, RC_MODE), std::to_string(stParam.enRcMode)}};
    for (const auto &[pcKey, pu32Field] : FIELDS)
        listValues.emplace_back(keyOf(s32Chn, pcKey), std::to_string(stParam.*pu32Field));
    return CFG_STORE_SetTexts(listValues);
}

BU_S32 media::storeVencEnabled(BU_S32 s32Chn, bool bEnabled)
{
    return CFG_STORE_SetInt(keyOf(s32Chn, ENABLE).c_str(), bEnabled);
}
