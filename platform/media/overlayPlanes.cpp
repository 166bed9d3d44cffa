/// Overlays at the size and in the planes of an output, and how they are blended.
#include "overlayPlanes.h"

#include <libyuv/convert_argb.h>
#include <libyuv/planar_functions.h>
#include <libyuv/scale_argb.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

using namespace media::overlay;

namespace
{
BU_U32 fromBits(BU_U32 u32, int s32Shift, int s32Bits)
{
    const BU_U32 u32Max = (1U << s32Bits) - 1;
    return (u32 >> s32Shift & u32Max) * 255 / u32Max;
}
BU_U32 argb(BU_U32 a, BU_U32 r, BU_U32 g, BU_U32 b) { return a << 24 | r << 16 | g << 8 | b; }

BU_U32 from1555(BU_U32 u, const OSD_MENU_CANVAS_S &st)
{
    return argb((u & 0x8000) != 0 ? st.fgAlpha : st.bgAlpha, fromBits(u, 10, 5), fromBits(u, 5, 5), fromBits(u, 0, 5));
}

/// BT.709, limited range.
struct Yuv {
    float y, u, v;
};
Yuv toYuv(BU_U32 u32Argb)
{
    const auto part = [u32Argb](int s32Shift) { return static_cast<float>(u32Argb >> s32Shift & 0xFF) / 255; };
    const float r = part(16), g = part(8), b = part(0), y = 0.2126F * r + 0.7152F * g + 0.0722F * b;
    return {16 + 219 * y, 128 + 224 * (b - y) / 1.8556F, 128 + 224 * (r - y) / 1.5748F};
}
BU_U8 byte(float f) { return static_cast<BU_U8>(f + 0.5F); }

/// Two by two pixels. Chroma is the mean by alpha, so that transparent neighbours do not colour an edge.
struct Quad {
    std::array<BU_U32, 4> au32Argb{};
    std::array<BU_U8, 4> au8Y{16, 16, 16, 16}, au8Alpha{};
    BU_U8 u8U = 128, u8V = 128, u8Alpha = 0;

    void convert(const std::array<BU_U32, 4> &au32)
    {
        au32Argb = au32;
        float fAlpha = 0, fU = 0, fV = 0;
        for (std::size_t i = 0; i < 4; ++i) {
            au8Alpha[i] = static_cast<BU_U8>(au32[i] >> 24);
            const auto f = static_cast<float>(au8Alpha[i]);
            const Yuv st = toYuv(au32[i]);
            au8Y[i] = byte(st.y);
            fAlpha += f;
            fU += st.u * f;
            fV += st.v * f;
        }
        u8U = fAlpha == 0 ? 128 : byte(fU / fAlpha);
        u8V = fAlpha == 0 ? 128 : byte(fV / fAlpha);
        u8Alpha = byte(fAlpha / 4);
    }
};

void put(BU_U8 *pu8, BU_U8 u8First, BU_U8 u8Second)
{
    pu8[0] = u8First;
    pu8[1] = u8Second;
}

/// Scales with the colours multiplied by alpha, so that what is transparent does not shine through at the edges.
std::vector<BU_U32> scaled(const Image &image, BU_S32 w, BU_S32 h)
{
    const int s32FromW = image.stRect.w, s32FromH = image.stRect.h;
    std::vector<BU_U32> vecFrom(image.vecArgb.size()), vec(static_cast<std::size_t>(w) * static_cast<std::size_t>(h));
    auto *pu8From = reinterpret_cast<BU_U8 *>(vecFrom.data()), *pu8 = reinterpret_cast<BU_U8 *>(vec.data());
    libyuv::ARGBAttenuate(reinterpret_cast<const BU_U8 *>(image.vecArgb.data()), s32FromW * 4, pu8From, s32FromW * 4,
                          s32FromW, s32FromH);
    libyuv::ARGBScale(pu8From, s32FromW * 4, s32FromW, s32FromH, pu8, w * 4, w, h, libyuv::kFilterBox);
    libyuv::ARGBUnattenuate(pu8, w * 4, pu8, w * 4, w, h);
    return vec;
}

/// The even rectangle around everything that is not transparent, moved from the image into the picture; empty: nothing.
SDL_Rect usedPart(const std::vector<BU_U32> &vec, BU_S32 w, BU_S32 h)
{
    SDL_Rect st{w, h, 0, 0}; // w and h are right and bottom until the end
    for (int y = 0; y < h; ++y) {
        const BU_U32 *pu32 = vec.data() + static_cast<std::ptrdiff_t>(y) * w, *pu32End = pu32 + w;
        const auto isUsed = [](BU_U32 u32) { return u32 >> 24 != 0; };
        const BU_U32 *pu32First = std::find_if(pu32, pu32End, isUsed);
        if (pu32First == pu32End) continue;
        const BU_U32 *pu32Last = pu32End - 1;
        while (!isUsed(*pu32Last)) --pu32Last;
        st.x = std::min(st.x, static_cast<int>(pu32First - pu32));
        st.w = std::max(st.w, static_cast<int>(pu32Last - pu32) + 1);
        st.y = std::min(st.y, y);
        st.h = y + 1;
    }
    return st.w > st.x ? SDL_Rect{st.x, st.y, st.w - st.x, st.h - st.y} : SDL_Rect{};
}
} // namespace

Image::Image(const OSD_MENU_CANVAS_S &stCanvas) : stRect(stCanvas.stMenuRect), stVideo(stCanvas.stVideoRect)
{
    if (stVideo.w <= 0 || stVideo.h <= 0) stVideo = stRect;
    vecArgb.resize(static_cast<std::size_t>(stRect.w) * static_cast<std::size_t>(stRect.h));
    const void *pv = stCanvas.stMenuMem.pvVirAddr;
    const auto *pu16 = static_cast<const BU_U16 *>(pv);
    if (stCanvas.enFormat == OSD_FORMAT_E_ARGB8888)
        std::copy_n(static_cast<const BU_U32 *>(pv), vecArgb.size(), vecArgb.begin());
    else if (stCanvas.enFormat == OSD_FORMAT_E_ARGB4444)
        libyuv::ARGB4444ToARGB(static_cast<const BU_U8 *>(pv), stRect.w * 2, reinterpret_cast<BU_U8 *>(vecArgb.data()),
                               stRect.w * 4, stRect.w, stRect.h);
    else
        std::transform(pu16, pu16 + vecArgb.size(), vecArgb.begin(),
                       [&](BU_U16 u16) { return from1555(u16, stCanvas); });
}

/// Most neighbours in a drawing are alike: what is like the quad before it is not worked out again.
void Planes::convert(const BU_U32 *pu32, BU_S32 s32Stride)
{
    const auto w = static_cast<std::size_t>(m_stRect.w), stride = static_cast<std::size_t>(s32Stride);
    Quad quad;
    for (std::size_t y = 0; y < static_cast<std::size_t>(m_stRect.h); y += 2, pu32 += 2 * stride) {
        const std::span<BU_U8> y0(m_vecY.data() + y * w, w), y1(y0.data() + w, w), alpha0(m_vecAlpha.data() + y * w, w),
            alpha1(alpha0.data() + w, w), uv(m_vecUv.data() + y / 2 * w, w),
            uvAlpha(m_vecUvAlpha.data() + y / 2 * w, w);
        for (std::size_t x = 0; x < w; x += 2) {
            const std::array au32{pu32[x], pu32[x + 1], pu32[stride + x], pu32[stride + x + 1]};
            if (au32 != quad.au32Argb) quad.convert(au32);
            put(&y0[x], quad.au8Y[0], quad.au8Y[1]);
            put(&y1[x], quad.au8Y[2], quad.au8Y[3]);
            put(&alpha0[x], quad.au8Alpha[0], quad.au8Alpha[1]);
            put(&alpha1[x], quad.au8Alpha[2], quad.au8Alpha[3]);
            put(&uv[x], quad.u8U, quad.u8V);
            put(&uvAlpha[x], quad.u8Alpha, quad.u8Alpha);
        }
    }
}

void Planes::make(const Image &image, BU_S32 s32Width, BU_S32 s32Height)
{
    const float fX = static_cast<float>(s32Width) / static_cast<float>(image.stVideo.w),
                fY = static_cast<float>(s32Height) / static_cast<float>(image.stVideo.h);
    const auto even = [](float f) { return static_cast<BU_S32>(std::lround(f / 2)) * 2; };
    const BU_S32 s32Left = even(static_cast<float>(image.stRect.x) * fX),
                 s32Top = even(static_cast<float>(image.stRect.y) * fY);
    const BU_S32 w = std::max(even(static_cast<float>(image.stRect.w) * fX), 2),
                 h = std::max(even(static_cast<float>(image.stRect.h) * fY), 2);
    const bool bAsIs = w == image.stRect.w && h == image.stRect.h;
    const std::vector<BU_U32> vecScaled = bAsIs ? std::vector<BU_U32>() : scaled(image, w, h);
    const std::vector<BU_U32> &vec = bAsIs ? image.vecArgb : vecScaled;
    const SDL_Rect stUsed = usedPart(vec, w, h);
    const BU_S32 x0 = std::max({stUsed.x & ~1, -s32Left, 0}), y0 = std::max({stUsed.y & ~1, -s32Top, 0});
    const BU_S32 x1 = std::min((stUsed.x + stUsed.w + 1) & ~1, s32Width - s32Left),
                 y1 = std::min((stUsed.y + stUsed.h + 1) & ~1, s32Height - s32Top);
    m_stRect = x1 > x0 && y1 > y0 ? SDL_Rect{s32Left + x0, s32Top + y0, x1 - x0, y1 - y0} : SDL_Rect{};
    const auto area = static_cast<std::size_t>(m_stRect.w) * static_cast<std::size_t>(m_stRect.h);
    m_vecY.resize(area);
    m_vecAlpha.resize(area);
    m_vecUv.resize(area / 2);
    m_vecUvAlpha.resize(area / 2);
    convert(vec.data() + static_cast<std::ptrdiff_t>(y0) * w + x0, w);
}

void Planes::blend(const SCENE_FRAME_S &stFrame) const
{
    const auto [x, y, w, h] = m_stRect;
    if (w == 0) return;
    BU_U8 *pu8Y = stFrame.pu8Y + static_cast<std::ptrdiff_t>(y) * stFrame.s32StrideY + x;
    BU_U8 *pu8Uv = stFrame.pu8Uv + static_cast<std::ptrdiff_t>(y / 2) * stFrame.s32StrideUv + x;
    libyuv::BlendPlane(m_vecY.data(), w, pu8Y, stFrame.s32StrideY, m_vecAlpha.data(), w, pu8Y, stFrame.s32StrideY, w,
                       h);
    libyuv::BlendPlane(m_vecUv.data(), w, pu8Uv, stFrame.s32StrideUv, m_vecUvAlpha.data(), w, pu8Uv,
                       stFrame.s32StrideUv, w, h / 2);
}
