// The passes over the planes of a picture that carry the settings out.
#include "picture/picture.h"

#include "tone.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>

namespace
{
using namespace picture;

// Vectors of the compiler: the same source for every processor.
constexpr int LANES = 8;
typedef BU_U8 Bytes __attribute__((vector_size(LANES)));
typedef BU_U16 Words __attribute__((vector_size(2 * LANES)));
typedef BU_S16 Shorts __attribute__((vector_size(2 * LANES)));
typedef BU_S32 Ints __attribute__((vector_size(4 * LANES)));
typedef float Floats __attribute__((vector_size(4 * LANES)));

template <class V> V load(const void *pv)
{
    V v;
    std::memcpy(&v, pv, sizeof v);
    return v;
}
template <class V, class T> void clampTo(V &v, T low, T high)
{
    const V vLow = V{} + low, vHigh = V{} + high;
    v = v < vLow ? vLow : v;
    v = v > vHigh ? vHigh : v;
}

/// Chroma pairs of a row: a U,V pair is one 16-bit word, U low.
void turnChroma(const PICTURE_TABLES_S &st, const BU_U8 *pu8Y, BU_U8 *pu8Uv, int s32Pairs)
{
    int x = 0;
    for (; x + LANES <= s32Pairs; x += LANES) {
        const Words vPairs = load<Words>(pu8Uv + 2 * x), vLuma = load<Words>(pu8Y + 2 * x) & 0xFF;
        const Floats u = __builtin_convertvector(vPairs & 0xFF, Floats) - 128;
        const Floats v = __builtin_convertvector(vPairs >> 8, Floats) - 128;
        const Floats y = __builtin_convertvector(vLuma, Floats) - 16;
        Floats fU = u * st.fUu + v * st.fUv + y * st.fUy + 128.5F;
        Floats fV = u * st.fVu + v * st.fVv + y * st.fVy + 128.5F;
        clampTo(fU, 16.0F, 240.0F);
        clampTo(fV, 16.0F, 240.0F);
        const Words vOut =
            __builtin_convertvector(__builtin_convertvector(fU, Ints) | __builtin_convertvector(fV, Ints) << 8, Words);
        std::memcpy(pu8Uv + 2 * x, &vOut, sizeof vOut);
    }
    for (; x < s32Pairs; ++x) {
        const float u = pu8Uv[2 * x] - 128.0F, v = pu8Uv[2 * x + 1] - 128.0F, y = pu8Y[2 * x] - 16.0F;
        pu8Uv[2 * x] = static_cast<BU_U8>(std::clamp(u * st.fUu + v * st.fUv + y * st.fUy + 128.5F, 16.0F, 240.0F));
        pu8Uv[2 * x + 1] = static_cast<BU_U8>(std::clamp(u * st.fVu + v * st.fVv + y * st.fVy + 128.5F, 16.0F, 240.0F));
    }
}

void changeChroma(const PICTURE_TABLES_S &st, const SCENE_FRAME_S &stFrame)
{
    for (int y = 0; y < stFrame.s32Height / 2; ++y) {
        BU_U8 *pu8Uv = stFrame.pu8Uv + static_cast<std::ptrdiff_t>(y) * stFrame.s32StrideUv;
        if (st.stSettings.bMonochrome) {
            std::memset(pu8Uv, 128, static_cast<std::size_t>(stFrame.s32Width));
            continue;
        }
        if (st.bChroma)
            turnChroma(st, stFrame.pu8Y + 2 * static_cast<std::ptrdiff_t>(y) * stFrame.s32StrideY, pu8Uv,
                       stFrame.s32Width / 2);
        if (!st.vecColours.empty())
            for (int x = 0; x < stFrame.s32Width; x += 2) {
                const BU_U16 u16 = st.vecColours[static_cast<std::size_t>(pu8Uv[x] | pu8Uv[x + 1] << 8)];
                pu8Uv[x] = static_cast<BU_U8>(u16);
                pu8Uv[x + 1] = static_cast<BU_U8>(u16 >> 8);
            }
    }
}

/// One row with its neighbours above and below as they were: each point moves away from their mean, or towards it.
void sharpenRow(const BU_U8 *pu8Above, const BU_U8 *pu8Row, const BU_U8 *pu8Below, BU_U8 *pu8Out, int s32Width,
                int s32Sharpen)
{
    const auto one = [&](int x) {
        const int s32Edge = 4 * pu8Row[x] - pu8Row[std::max(x - 1, 0)] - pu8Row[std::min(x + 1, s32Width - 1)] -
                            pu8Above[x] - pu8Below[x];
        pu8Out[x] = static_cast<BU_U8>(std::clamp(pu8Row[x] + ((s32Edge * s32Sharpen) >> 4), 16, 235));
    };
    const auto shorts = [](const BU_U8 *pu8) { return __builtin_convertvector(load<Bytes>(pu8), Shorts); };
    const BU_S16 s16Sharpen = static_cast<BU_S16>(s32Sharpen);
    one(0);
    int x = 1;
    for (; x + LANES < s32Width; x += LANES) {
        const Shorts v = shorts(pu8Row + x);
        const Shorts vEdge =
            4 * v - shorts(pu8Row + x - 1) - shorts(pu8Row + x + 1) - shorts(pu8Above + x) - shorts(pu8Below + x);
        Shorts vSharp = v + ((vEdge * s16Sharpen) >> 4);
        clampTo(vSharp, BU_S16{16}, BU_S16{235});
        const Bytes vOut = __builtin_convertvector(vSharp, Bytes);
        std::memcpy(pu8Out + x, &vOut, sizeof vOut);
    }
    for (; x < s32Width; ++x) one(x);
}

void sharpen(const SCENE_FRAME_S &stFrame, int s32Sharpen)
{
    const auto s32Width = static_cast<std::size_t>(stFrame.s32Width);
    const auto row = [&](int y) { return stFrame.pu8Y + static_cast<std::ptrdiff_t>(y) * stFrame.s32StrideY; };
    std::vector<BU_U8> vecAbove(row(0), row(0) + s32Width), vecRow(s32Width); // as they were
    for (int y = 0; y < stFrame.s32Height; ++y) {
        std::memcpy(vecRow.data(), row(y), s32Width);
        const BU_U8 *pu8Below = y + 1 < stFrame.s32Height ? row(y + 1) : vecRow.data();
        sharpenRow(vecAbove.data(), vecRow.data(), pu8Below, row(y), stFrame.s32Width, s32Sharpen);
        vecAbove.swap(vecRow);
    }
}

/// Which curve a row takes: lamps change while the rows are read out one after the other.
std::size_t bandOf(const PICTURE_TABLES_S &st, int y, int s32Height, BU_S64 s64TimeUs)
{
    if (st.fFlicker == 0) return 0;
    const double dSeconds = static_cast<double>(s64TimeUs % 1'000'000) / 1e6 + static_cast<double>(y) / s32Height / 60;
    const double dLight = std::cos(2 * std::numbers::pi * 100 * dSeconds);
    return static_cast<std::size_t>(std::lround((dLight + 1) / 2 * (PICTURE_TABLES_S::BANDS - 1)));
}

void addNoise(BU_U8 *pu8Row, int s32Width, const BU_S8 *ps8Noise)
{
    int x = 0;
    for (; x + LANES <= s32Width; x += LANES) { // 16 to 235 and 16 at most: stays within a byte
        const Bytes v = load<Bytes>(pu8Row + x) + load<Bytes>(ps8Noise + x);
        std::memcpy(pu8Row + x, &v, sizeof v);
    }
    for (; x < s32Width; ++x) pu8Row[x] = static_cast<BU_U8>(pu8Row[x] + ps8Noise[x]);
}

void changeLuma(const PICTURE_TABLES_S &st, const SCENE_FRAME_S &stFrame, BU_S64 s64TimeUs)
{
    BU_U32 u32Seed = static_cast<BU_U32>(s64TimeUs) * 2654435761U + 1;
    for (int y = 0; y < stFrame.s32Height; ++y) {
        BU_U8 *pu8Row = stFrame.pu8Y + static_cast<std::ptrdiff_t>(y) * stFrame.s32StrideY;
        if (st.bCurve) {
            const BU_U8 *pu8Curve = st.aCurves[bandOf(st, y, stFrame.s32Height, s64TimeUs)].data();
            for (int x = 0; x < stFrame.s32Width; ++x) pu8Row[x] = pu8Curve[pu8Row[x]];
        }
        if (st.vecNoise.empty()) continue;
        u32Seed = u32Seed * 1664525 + 1013904223;
        const int s32Width = std::min(stFrame.s32Width, 8192);
        addNoise(pu8Row, s32Width,
                 st.vecNoise.data() + (u32Seed >> 19) % (st.vecNoise.size() - static_cast<std::size_t>(s32Width) + 1));
    }
}
} // namespace

void PICTURE_Apply(const PICTURE_SETTINGS_S &stSettings, PICTURE_STATE_S &stState, BU_S64 s64TimeUs,
                   const SCENE_FRAME_S &stFrame)
{
    const Exposure stExposure = settle(stSettings, stState, s64TimeUs, stFrame);
    const PICTURE_TABLES_S &st = tablesFor(stSettings, stExposure, stState);
    if (st.stSettings.bMonochrome || st.bChroma || !st.vecColours.empty())
        changeChroma(st, stFrame); // needs the light as it was
    if (st.s32Sharpen != 0) sharpen(stFrame, st.s32Sharpen);
    if (st.bCurve || !st.vecNoise.empty()) changeLuma(st, stFrame, s64TimeUs);
}
