#include "overlayPlanes.h"

#include <libyuv/planar_functions.h>
#include <libyuv/scale_argb.h>

#include <algorithm>
#include <cmath>

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
BU_U32 from4444(BU_U32 u) { return argb(fromBits(u, 12, 4), fromBits(u, 8, 4), fromBits(u, 4, 4), fromBits(u, 0, 4)); }

/// BT.709, limited range.
struct tagYUV_S {
    float y, u, v;
};
tagYUV_S toYuv(BU_U32 u32Argb)
{
    const auto part = [u32Argb](int s32Shift) { return static_cast<float>(u32Argb >> s32Shift & 0xFF) / 255; };
    const float r = part(16), g = part(8), b = part(0), y = 0.2126F * r + 0.7152F * g + 0.0722F * b;
    return {16 + 219 * y, 128 + 224 * (b - y) / 1.8556F, 128 + 224 * (r - y) / 1.5748F};
}
BU_U8 byte(float f) { return static_cast<BU_U8>(f + 0.5F); }

/// Scales with the colours multiplied by alpha, so that what is transparent does not shine through at the edges.
std::vector<BU_U32> scaled(const Image &image, BU_S32 w, BU_S32 h)
{
    const int s32FromW = image.stRect.w, s32FromH = image.stRect.h;
    if (w == s32FromW && h == s32FromH) return image.vecArgb;
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
        std::transform(pu16, pu16 + vecArgb.size(), vecArgb.begin(), from4444);
    else
        std::transform(pu16, pu16 + vecArgb.size(), vecArgb.begin(),
                       [&](BU_U16 u16) { return from1555(u16, stCanvas); });
}

/// Two by two pixels; chroma is the mean by alpha, so that transparent neighbours do not colour an edge.
void Planes::convertPair(const BU_U32 *pu32, BU_S32 s32Stride, BU_S32 x, BU_S32 y)
{
    const auto w = static_cast<std::size_t>(m_stRect.w), ux = static_cast<std::size_t>(x),
               uy = static_cast<std::size_t>(y);
    float fAlpha = 0, fU = 0, fV = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        const BU_U32 u32 = pu32[(i / 2) * static_cast<std::size_t>(s32Stride) + i % 2];
        const BU_U8 u8Alpha = static_cast<BU_U8>(u32 >> 24);
        const tagYUV_S st = toYuv(u32);
        const std::size_t at = (uy + i / 2) * w + ux + i % 2;
        m_vecY[at] = byte(st.y);
        m_vecAlpha[at] = u8Alpha;
        fAlpha += u8Alpha;
        fU += st.u * u8Alpha;
        fV += st.v * u8Alpha;
    }
    if (fAlpha == 0) return;
    const std::size_t at = uy / 2 * w + ux;
    m_vecUv[at] = byte(fU / fAlpha);
    m_vecUv[at + 1] = byte(fV / fAlpha);
    m_vecUvAlpha[at] = m_vecUvAlpha[at + 1] = byte(fAlpha / 4);
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
    const std::vector<BU_U32> vec = scaled(image, w, h);
    const SDL_Rect stUsed = usedPart(vec, w, h);
    const BU_S32 x0 = std::max({stUsed.x & ~1, -s32Left, 0}), y0 = std::max({stUsed.y & ~1, -s32Top, 0});
    const BU_S32 x1 = std::min((stUsed.x + stUsed.w + 1) & ~1, s32Width - s32Left),
                 y1 = std::min((stUsed.y + stUsed.h + 1) & ~1, s32Height - s32Top);
    m_stRect = x1 > x0 && y1 > y0 ? SDL_Rect{s32Left + x0, s32Top + y0, x1 - x0, y1 - y0} : SDL_Rect{};
    const auto area = static_cast<std::size_t>(m_stRect.w) * static_cast<std::size_t>(m_stRect.h);
    m_vecY.assign(area, 0);
    m_vecAlpha.assign(area, 0);
    m_vecUv.assign(area / 2, 128);
    m_vecUvAlpha.assign(area / 2, 0);
    for (BU_S32 y = 0; y < m_stRect.h; y += 2)
        for (BU_S32 x = 0; x < m_stRect.w; x += 2)
            convertPair(vec.data() + static_cast<std::ptrdiff_t>(y0 + y) * w + x0 + x, w, x, y);
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
