// Which tiles a view needs, when they are drawn, and how they become the picture.
#include "background.h"

#include "parts.h"
#include "room.h"

#include <libyuv/planar_functions.h>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace scene
{
namespace
{
constexpr int TILE = 128;                    // pixels, even
constexpr std::size_t TILE_LIMIT = 640;      // 15 MB
constexpr int LEVEL_LOW = 0, LEVEL_HIGH = 9; // 2^level pixels per degree
constexpr float LEAST_STRETCH = 1.42F;       // tiles are coarser than the picture: half the work, little lost

int levelFor(float fPixelsPerDegree)
{
    return std::clamp(static_cast<int>(std::floor(std::log2(fPixelsPerDegree / LEAST_STRETCH))), LEVEL_LOW, LEVEL_HIGH);
}

/// A grain of half a step hides the steps of slow shades.
float grain(BU_U32 u32X, BU_U32 u32Y)
{
    BU_U32 u32 = (u32X * 0x9E3779B1U) ^ (u32Y * 0x85EBCA77U);
    u32 = (u32 ^ (u32 >> 15)) * 0x2C1B3C6DU;
    return static_cast<float>((u32 >> 16) & 0xFF) / 256;
}

BU_U8 toByte(float f) { return static_cast<BU_U8>(std::clamp(f, 0.0F, 255.0F)); }

void drawTile(int s32Level, int s32TileX, int s32TileY, BU_U8 *pu8Out)
{
    const float fPerPixel = 1 / static_cast<float>(1 << s32Level);
    float afSlope[TILE];
    for (int j = 0; j < TILE; ++j) {
        const float fTilt = -(static_cast<float>(s32TileY * TILE + j) + 0.5F) * fPerPixel;
        afSlope[j] = std::tan(std::clamp(fTilt, -89.5F, 89.5F) * DEGREE);
    }
    BU_U8 *pu8Uv = pu8Out + TILE * TILE;
    for (int i = 0; i < TILE; i += 2) {
        const int s32X = s32TileX * TILE + i;
        const RoomColumn astColumns[2] = {{(static_cast<float>(s32X) + 0.5F) * fPerPixel, fPerPixel * DEGREE},
                                          {(static_cast<float>(s32X) + 1.5F) * fPerPixel, fPerPixel * DEGREE}};
        for (int j = 0; j < TILE; j += 2) {
            Yuv stSum{};
            for (int k = 0; k < 4; ++k) {
                const int x = i + (k & 1), y = j + (k >> 1);
                const Rgb st = astColumns[k & 1].colourAt(afSlope[y]);
                const Yuv stYuv = toYuv({std::min(st.r, 1.0F), std::min(st.g, 1.0F), std::min(st.b, 1.0F)});
                pu8Out[y * TILE + x] = toByte(stYuv.y + grain(static_cast<BU_U32>(x), static_cast<BU_U32>(y)));
                stSum = {0, stSum.u + stYuv.u, stSum.v + stYuv.v};
            }
            const float fGrain = grain(static_cast<BU_U32>(i + 1), static_cast<BU_U32>(j));
            pu8Uv[j / 2 * TILE + i] = toByte(stSum.u / 4 + fGrain);
            pu8Uv[j / 2 * TILE + i + 1] = toByte(stSum.v / 4 + 1 - fGrain);
        }
    }
}

/// Where each pixel of a row comes from: index of the left neighbour and weight of the right one, of 256.
void fillSteps(double dLeft, double dStep, int s32Out, int s32In, std::vector<BU_U32> &vecSteps)
{
    vecSteps.resize(static_cast<std::size_t>(s32Out));
    for (int i = 0; i < s32Out; ++i) {
        const double d = std::clamp(dLeft + (i + 0.5) * dStep - 0.5, 0.0, s32In - 1.004);
        vecSteps[static_cast<std::size_t>(i)] = static_cast<BU_U32>(d * 256);
    }
}

template <int CHANNELS> void stretchRow(const BU_U8 *pu8In, std::span<const BU_U32> spanSteps, BU_U8 *pu8Out)
{
    for (const BU_U32 u32 : spanSteps) {
        const BU_U8 *pu8 = pu8In + static_cast<std::size_t>(u32 >> 8) * CHANNELS;
        const BU_U32 u32Right = u32 & 0xFF;
        for (int c = 0; c < CHANNELS; ++c)
            *pu8Out++ = static_cast<BU_U8>((pu8[c] * (256 - u32Right) + pu8[c + CHANNELS] * u32Right + 128) >> 8);
    }
}

struct Plane {
    BU_U8 *pu8;
    int s32Stride, s32Width, s32Height;
};

template <int CHANNELS>
void stretchPlane(const Plane &stIn, const Window &stWindow, const Plane &stOut, std::vector<BU_U8> &vecRows,
                  std::vector<BU_U32> &vecSteps)
{
    fillSteps(stWindow.dLeft, stWindow.dWidth / stOut.s32Width, stOut.s32Width, stIn.s32Width, vecSteps);
    const int s32Row = stOut.s32Width * CHANNELS;
    vecRows.resize(std::max(vecRows.size(), 2 * static_cast<std::size_t>(s32Row)));
    int as32Held[2] = {-1, -1}; // the source rows that the two halves of vecRows hold
    const auto row = [&](int y) {
        BU_U8 *pu8 = vecRows.data() + (y & 1) * s32Row;
        if (as32Held[y & 1] != y)
            stretchRow<CHANNELS>(stIn.pu8 + static_cast<std::ptrdiff_t>(y) * stIn.s32Stride, vecSteps, pu8);
        as32Held[y & 1] = y;
        return pu8;
    };
    const double dStep = stWindow.dHeight / stOut.s32Height;
    for (int j = 0; j < stOut.s32Height; ++j) {
        const double d = std::clamp(stWindow.dTop + (j + 0.5) * dStep - 0.5, 0.0, stIn.s32Height - 1.004);
        const int y = static_cast<int>(d);
        const BU_U8 *pu8Upper = row(y), *pu8Lower = row(y + 1);
        libyuv::InterpolatePlane(pu8Upper, s32Row, pu8Lower, s32Row,
                                 stOut.pu8 + static_cast<std::ptrdiff_t>(j) * stOut.s32Stride, stOut.s32Stride, s32Row,
                                 1, static_cast<int>((d - y) * 256));
    }
}
} // namespace

Point Projection::at(float fPanDeg, float fTiltDeg) const
{
    const float fAside = std::remainder(fPanDeg - fPan, 360.0F);
    return {fMiddleX + fAside * fPixelsPerDegree, fMiddleY - (fTiltDeg - fTilt) * fPixelsPerDegree};
}

void Stretcher::stretch(const SCENE_FRAME_S &stIn, const Window &stWindow, const SCENE_FRAME_S &stOut)
{
    stretchPlane<1>({stIn.pu8Y, stIn.s32StrideY, stIn.s32Width, stIn.s32Height}, stWindow,
                    {stOut.pu8Y, stOut.s32StrideY, stOut.s32Width, stOut.s32Height}, m_vecRows, m_vecSteps);
    const Window stHalf{stWindow.dLeft / 2, stWindow.dTop / 2, stWindow.dWidth / 2, stWindow.dHeight / 2};
    stretchPlane<2>({stIn.pu8Uv, stIn.s32StrideUv, stIn.s32Width / 2, stIn.s32Height / 2}, stHalf,
                    {stOut.pu8Uv, stOut.s32StrideUv, stOut.s32Width / 2, stOut.s32Height / 2}, m_vecRows, m_vecSteps);
}

const Background::Tile &Background::tile(int s32Level, int s32X, int s32Y)
{
    const BU_U64 u64Key = (static_cast<BU_U64>(s32Level) << 56) | (static_cast<BU_U64>(s32X + (1 << 24)) << 28) |
                          static_cast<BU_U64>(s32Y + (1 << 24));
    if (const auto it = m_mapTiles.find(u64Key); it != m_mapTiles.end()) {
        m_listTiles.splice(m_listTiles.begin(), m_listTiles, it->second);
        return m_listTiles.front();
    }
    if (m_listTiles.size() < TILE_LIMIT) {
        m_listTiles.push_front({u64Key, std::vector<BU_U8>(TILE * TILE * 3 / 2)});
    } else { // the one not used for longest gives its memory
        m_mapTiles.erase(m_listTiles.back().u64Key);
        m_listTiles.splice(m_listTiles.begin(), m_listTiles, std::prev(m_listTiles.end()));
        m_listTiles.front().u64Key = u64Key;
    }
    m_mapTiles[u64Key] = m_listTiles.begin();
    drawTile(s32Level, s32X, s32Y, m_listTiles.front().vecNv12.data());
    return m_listTiles.front();
}

void Background::drawFresh(const Projection &stView, const SCENE_FRAME_S &stOut)
{
    const int s32Level = levelFor(stView.fPixelsPerDegree);
    const double dScale =
        (1 << s32Level) / static_cast<double>(stView.fPixelsPerDegree); // tile pixels per picture pixel
    const double dLeft = static_cast<double>(stView.fPan) * (1 << s32Level) - stView.fMiddleX * dScale;
    const double dTop = -static_cast<double>(stView.fTilt) * (1 << s32Level) - stView.fMiddleY * dScale;
    const int s32X = static_cast<int>(std::floor(dLeft / 2)) * 2 - 2,
              s32Y = static_cast<int>(std::floor(dTop / 2)) * 2 - 2;
    const int s32Width = (static_cast<int>(std::ceil(stOut.s32Width * dScale)) / 2 + 4) * 2;
    const int s32Height = (static_cast<int>(std::ceil(stOut.s32Height * dScale)) / 2 + 4) * 2;
    m_vecSource.resize(static_cast<std::size_t>(s32Width) * static_cast<std::size_t>(s32Height) * 3 / 2);
    const SCENE_FRAME_S stSource{
        m_vecSource.data(), m_vecSource.data() + s32Width * s32Height, s32Width, s32Width, s32Width, s32Height};

    const auto tileOf = [](int s32) { return s32 >= 0 ? s32 / TILE : -((TILE - 1 - s32) / TILE); };
    for (int ty = tileOf(s32Y); ty <= tileOf(s32Y + s32Height - 1); ++ty)
        for (int tx = tileOf(s32X); tx <= tileOf(s32X + s32Width - 1); ++tx) {
            const BU_U8 *pu8 = tile(s32Level, tx, ty).vecNv12.data();
            const int x0 = std::max(s32X, tx * TILE), x1 = std::min(s32X + s32Width, (tx + 1) * TILE);
            const int y0 = std::max(s32Y, ty * TILE), y1 = std::min(s32Y + s32Height, (ty + 1) * TILE);
            for (int y = y0; y < y1; ++y)
                std::memcpy(stSource.pu8Y + (y - s32Y) * s32Width + x0 - s32X,
                            pu8 + (y - ty * TILE) * TILE + x0 - tx * TILE, static_cast<std::size_t>(x1 - x0));
            for (int y = y0 / 2; y < y1 / 2; ++y)
                std::memcpy(stSource.pu8Uv + (y - s32Y / 2) * s32Width + x0 - s32X,
                            pu8 + TILE * TILE + (y - ty * TILE / 2) * TILE + x0 - tx * TILE,
                            static_cast<std::size_t>(x1 - x0));
        }
    m_stStretcher.stretch(stSource, {dLeft - s32X, dTop - s32Y, stOut.s32Width * dScale, stOut.s32Height * dScale},
                          stOut);
}

void Background::draw(const Projection &stView, const SCENE_FRAME_S &stOut)
{
    const int s32Width = stOut.s32Width, s32Height = stOut.s32Height, s32Luma = s32Width * s32Height;
    const auto copy = [&](const BU_U8 *pu8Y, int s32StrideY, const BU_U8 *pu8Uv, int s32StrideUv,
                          const SCENE_FRAME_S &stTo) {
        libyuv::CopyPlane(pu8Y, s32StrideY, stTo.pu8Y, stTo.s32StrideY, s32Width, s32Height);
        libyuv::CopyPlane(pu8Uv, s32StrideUv, stTo.pu8Uv, stTo.s32StrideUv, s32Width, s32Height / 2);
    };
    const bool bSameView = stView == m_stLast && s32Width == m_s32LastWidth && s32Height == m_s32LastHeight;
    if (bSameView && !m_vecLast.empty())
        return copy(m_vecLast.data(), s32Width, m_vecLast.data() + s32Luma, s32Width, stOut);
    drawFresh(stView, stOut);
    Canvas stCanvas(stOut);
    drawRuler(stCanvas, stView);
    if (bSameView) { // the second time: it stands still
        m_vecLast.resize(static_cast<std::size_t>(s32Luma) * 3 / 2);
        copy(stOut.pu8Y, stOut.s32StrideY, stOut.pu8Uv, stOut.s32StrideUv,
             {m_vecLast.data(), m_vecLast.data() + s32Luma, s32Width, s32Width, s32Width, s32Height});
    } else
        m_vecLast.clear();
    m_stLast = stView;
    m_s32LastWidth = s32Width;
    m_s32LastHeight = s32Height;
}
} // namespace scene
