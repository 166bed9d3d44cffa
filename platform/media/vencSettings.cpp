// What is stored of the encoder channels, and their defaults.
#include "internal.h"

#include "store/record.h"
#include "videoEncoder.h"

#include <climits>
#include <iterator>

namespace
{
using media::StoredVenc;
using store::number;

template <auto MEMBER> constexpr auto count(const BU_CHAR *pcKey)
{
    return number<&StoredVenc::stParam, MEMBER>(pcKey, 0, INT_MAX);
}
constexpr store::Field<StoredVenc> FIELDS[] = {
    number<&StoredVenc::bEnabled>("Enable"),
    count<&MPP_VENC_PARAM_S::enType>("Type"),
    count<&MPP_VENC_PARAM_S::enRcMode>("RcMode"),
    count<&MPP_VENC_PARAM_S::u32Width>("Width"),
    count<&MPP_VENC_PARAM_S::u32Height>("Height"),
    count<&MPP_VENC_PARAM_S::u32FrmRate>("FrmRate"),
    count<&MPP_VENC_PARAM_S::u32BitRate>("BitRate"),
    count<&MPP_VENC_PARAM_S::u32GOP>("Gop"),
    count<&MPP_VENC_PARAM_S::u32Profile>("Profile"),
    count<&MPP_VENC_PARAM_S::u32Quality>("Quality"),
    count<&MPP_VENC_PARAM_S::u32QpMinI>("QpMinI"),
    count<&MPP_VENC_PARAM_S::u32QpMaxI>("QpMaxI"),
    count<&MPP_VENC_PARAM_S::u32QpMinP>("QpMinP"),
    count<&MPP_VENC_PARAM_S::u32QpMaxP>("QpMaxP"),
    count<&MPP_VENC_PARAM_S::u32BitrateProfile>("BitrateProfile"),
};

store::Fault faultOf(const StoredVenc &st)
{
    const BU_CHAR *pcRefusal = media::refusal(st.stParam);
    return pcRefusal ? store::Fault(pcRefusal) : std::nullopt;
}
const store::Record<StoredVenc> VENC{"Venc/*/", FIELDS, SYSTEM_RESTORE_E_MEDIA, media::reloadChannels, faultOf};

struct Default {
    BU_U32 u32Width, u32Height, u32FrmRate, u32BitRate, u32GOP;
};
constexpr Default DEFAULTS[] = {
    {1920, 1080, 30, 4000, 60}, {640, 360, 30, 600, 60}, {1280, 720, 30, 2000, 60}, {640, 360, 15, 400, 30}};

StoredVenc defaultOf(BU_S32 s32Chn)
{
    const Default &st = DEFAULTS[static_cast<std::size_t>(s32Chn) % std::size(DEFAULTS)];
    StoredVenc stVenc{true, {}};
    stVenc.stParam.enType = MPP_VENC_FORMAT_E_H264;
    stVenc.stParam.u32Width = st.u32Width;
    stVenc.stParam.u32Height = st.u32Height;
    stVenc.stParam.u32FrmRate = st.u32FrmRate;
    stVenc.stParam.u32BitRate = st.u32BitRate;
    stVenc.stParam.u32GOP = st.u32GOP;
    return stVenc;
}
} // namespace

StoredVenc media::loadVenc(BU_S32 s32Chn)
{
    StoredVenc stVenc = VENC.load(std::to_string(s32Chn), defaultOf(s32Chn));
    if (static_cast<std::size_t>(s32Chn) >= std::size(DEFAULTS)) stVenc.bEnabled = false; // it feeds no cache
    return stVenc;
}

BU_S32 media::storeVenc(BU_S32 s32Chn, const MPP_VENC_PARAM_S &stParam)
{
    return VENC.save({true, stParam}, std::to_string(s32Chn));
}

BU_S32 media::storeVencEnabled(BU_S32 s32Chn, bool bEnabled)
{
    return VENC.put({{"Enable", bEnabled ? "1" : "0"}}, std::to_string(s32Chn));
}
