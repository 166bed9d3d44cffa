/// JPEG, for stills and for the encoder of that name.
#include "jpeg.h"
#include "videoEncoder.h"

#include <libyuv/convert.h>
#include <turbojpeg.h>

#include <algorithm>
#include <array>

namespace
{
/// JPEG is full range, our pictures are not: Y 16 to 235 and U, V 16 to 240 become 0 to 255.
constexpr auto expansion(int s32Low, int s32High, int s32Middle)
{
    std::array<BU_U8, 256> au8{};
    for (int i = 0; i < 256; ++i) {
        const int s32 = ((i - s32Middle) * 510 + (s32High - s32Low)) / (2 * (s32High - s32Low)) +
                        (s32Middle == s32Low ? 0 : s32Middle);
        au8[static_cast<std::size_t>(i)] = static_cast<BU_U8>(std::clamp(i < s32Low ? 0 : s32, 0, 255));
    }
    return au8;
}
constexpr auto LUMA = expansion(16, 235, 16), CHROMA = expansion(16, 240, 128);
static_assert(LUMA[16] == 0 && LUMA[235] == 255 && LUMA[126] == 128 && CHROMA[128] == 128 && CHROMA[240] == 255);

void expand(const std::array<BU_U8, 256> &au8Table, BU_U8 *pu8, std::size_t size)
{
    std::transform(pu8, pu8 + size, pu8, [&](BU_U8 u8) { return au8Table[u8]; });
}
} // namespace

struct media::JpegCompressor::Impl {
    tjhandle pvHandle = tjInitCompress();
    std::vector<BU_U8> vecPlanes;
    ~Impl()
    {
        if (pvHandle) tjDestroy(pvHandle);
    }
};

media::JpegCompressor::JpegCompressor() : m_pst(std::make_unique<Impl>()) {}
media::JpegCompressor::~JpegCompressor() = default;

std::vector<BU_U8> media::JpegCompressor::compress(const SCENE_FRAME_S &stFrame, BU_S32 s32Quality)
{
    const int s32Width = stFrame.s32Width, s32Height = stFrame.s32Height, s32Half = s32Width / 2;
    const auto size = static_cast<std::size_t>(s32Width) * static_cast<std::size_t>(s32Height);
    m_pst->vecPlanes.resize(size * 3 / 2);
    BU_U8 *pu8Y = m_pst->vecPlanes.data(), *pu8U = pu8Y + size, *pu8V = pu8U + size / 4;
    libyuv::NV12ToI420(stFrame.pu8Y, stFrame.s32StrideY, stFrame.pu8Uv, stFrame.s32StrideUv, pu8Y, s32Width, pu8U,
                       s32Half, pu8V, s32Half, s32Width, s32Height);
    expand(LUMA, pu8Y, size);
    expand(CHROMA, pu8U, size / 2);

    std::vector<BU_U8> vec(tjBufSize(s32Width, s32Height, TJSAMP_420));
    const BU_U8 *apu8Planes[] = {pu8Y, pu8U, pu8V};
    const int as32Strides[] = {s32Width, s32Half, s32Half};
    BU_U8 *pu8Out = vec.data();
    unsigned long length = vec.size();
    if (!m_pst->pvHandle ||
        tjCompressFromYUVPlanes(m_pst->pvHandle, apu8Planes, s32Width, as32Strides, s32Height, TJSAMP_420, &pu8Out,
                                &length, std::clamp(s32Quality, 1, 100), TJFLAG_NOREALLOC | TJFLAG_FASTDCT) != 0)
        return {};
    vec.resize(length);
    return vec;
}

namespace
{
class JpegEncoder : public media::VideoEncoder
{
public:
    explicit JpegEncoder(const MPP_VENC_PARAM_S &stParam) : m_stParam(stParam) {}

    STREAM_PACKET_REF encode(const SCENE_FRAME_S &stFrame, BU_U64 u64TimeUs, bool) override
    {
        struct Holder {
            STREAM_PACKET_S stPacket;
            std::vector<BU_U8> vec;
        };
        constexpr BU_U32 QUALITY = 75;
        auto pst = std::make_shared<Holder>();
        pst->vec = m_compressor.compress(
            stFrame, static_cast<BU_S32>(std::min(m_stParam.u32Quality ? m_stParam.u32Quality : QUALITY, 100U)));
        if (pst->vec.empty()) return nullptr;
        pst->stPacket = {pst->vec.data(), static_cast<BU_U32>(pst->vec.size()), u64TimeUs, BU_TRUE, STREAM_TYPE_MJPEG};
        return {pst, &pst->stPacket};
    }
    bool change(const MPP_VENC_PARAM_S &stParam) override
    {
        const bool bSame = stParam.enType == m_stParam.enType && stParam.u32Width == m_stParam.u32Width &&
                           stParam.u32Height == m_stParam.u32Height;
        if (bSame) m_stParam = stParam;
        return bSame;
    }

private:
    MPP_VENC_PARAM_S m_stParam;
    media::JpegCompressor m_compressor;
};
} // namespace

std::unique_ptr<media::VideoEncoder> media::openJpegEncoder(const MPP_VENC_PARAM_S &stParam)
{
    return std::make_unique<JpegEncoder>(stParam);
}
