// The tables of a picture: brightness curves, colour factors, noise.
#include "tone.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace picture
{
namespace
{
constexpr float PI = std::numbers::pi_v<float>;
constexpr float DISPLAY_GAMMA = 2.2F;
constexpr float LAMP_HZ = 100; // lamps on 50 Hz mains shine twice a period
constexpr float LAMP_DEPTH = 0.12F;

/// What a picture style adds to the settings.
struct Style {
    float fBrightness, fContrast, fSaturation, fSharpness, fGamma;
};
constexpr Style g_astStyles[] = {
    // in the order of tagImageStyle
    {0, 0, 0, 0, 0},                      // none
    {0, 0.10F, 0.06F, 0.05F, 0},          // HDMI
    {0, 0.04F, 0.03F, 0, 0},              // encoder
    {0.05F, 0.04F, 0.05F, 0.05F, 0},      // USB
    {0.06F, -0.08F, 0.05F, -0.70F, 0.1F}, // beauty
    {0, 0, 0, 0, 0},                      // default
    {0.16F, 0.08F, 0.15F, 0, 0.15F},      // bright
    {0.02F, -0.22F, -0.10F, -0.45F, 0},   // soft
    {0.06F, 0.05F, 0.05F, 0.10F, 0.05F},  // Teams
    {0.05F, 0.05F, 0.10F, 0.10F, 0.05F},  // Zoom
};
const Style &styleOf(const PICTURE_SETTINGS_S &st)
{
    return g_astStyles[st.enStyle >= 0 && st.enStyle < static_cast<BU_S32>(std::size(g_astStyles)) ? st.enStyle : 0];
}

float mix(float a, float b, float f) { return a + (b - a) * f; }

/// The way of one brightness, 0 to 1, through exposure and tone.
class ToneCurve
{
public:
    ToneCurve(const PICTURE_SETTINGS_S &st, float fStops)
        : m_fExposure(std::exp2(fStops / DISPLAY_GAMMA)),
          m_fBrightness(0.25F * (st.fBrightness + styleOf(st).fBrightness)),
          m_fContrast(std::exp2(st.fContrast + styleOf(st).fContrast)),
          m_fGamma(1 / (1 + st.fGamma + styleOf(st).fGamma)),
          m_fRange(0.3F * static_cast<float>(st.s32Wdr) + (st.bHdr ? 0.8F : 0.0F) +
                   (st.bBackLight && st.enAeMode == AE_MODE_E_AUTO ? 0.5F : 0.0F))
    {
    }
    float operator()(float x) const
    {
        x *= m_fExposure;
        if (m_fExposure > 1 && x > KNEE) { // highlights roll off: white stays white, what was below it stays below
            const float fPart = std::min((x - KNEE) / (m_fExposure - KNEE), 1.0F);
            x = KNEE + (1 - KNEE) * (1 - std::pow(1 - fPart, (m_fExposure - KNEE) / (1 - KNEE)));
        }
        x = (1 + m_fRange) * x / (1 + m_fRange * x); // lifts shadows, keeps black and white
        if (m_fGamma != 1) x = std::pow(x, m_fGamma);
        return 0.5F + (x - 0.5F) * m_fContrast + m_fBrightness;
    }
    bool isNeutral() const
    {
        return m_fExposure == 1 && m_fBrightness == 0 && m_fContrast == 1 && m_fGamma == 1 && m_fRange == 0;
    }

private:
    static constexpr float KNEE = 0.8F;
    float m_fExposure, m_fBrightness, m_fContrast, m_fGamma, m_fRange;
};

PICTURE_TABLES_S::Curve tabulate(const ToneCurve &curve)
{
    PICTURE_TABLES_S::Curve au8;
    for (int i = 0; i < 256; ++i) {
        const float y = 16 + 219 * curve(std::max(static_cast<float>(i) - 16, 0.0F) / 219);
        au8[static_cast<std::size_t>(i)] = static_cast<BU_U8>(std::clamp(std::lround(y), 16L, 235L));
    }
    return au8;
}

void makeCurves(PICTURE_TABLES_S &st)
{
    // A shutter open for whole periods of the lamps sees no flicker.
    const float fPeriods = PI * LAMP_HZ * st.stExposure.fShutterS;
    const float fDepth = LAMP_DEPTH * std::abs(std::sin(fPeriods) / fPeriods);
    st.fFlicker = fDepth > 0.004F ? fDepth : 0;
    st.bCurve = st.fFlicker > 0 || !ToneCurve(st.stSettings, st.stExposure.fStops).isNeutral();
    if (!st.bCurve) return;
    for (int i = 0; i < (st.fFlicker > 0 ? PICTURE_TABLES_S::BANDS : 1); ++i) {
        const float fLight = 1 + st.fFlicker * (2 * static_cast<float>(i) / (PICTURE_TABLES_S::BANDS - 1) - 1);
        st.aCurves[static_cast<std::size_t>(i)] =
            tabulate(ToneCurve(st.stSettings, st.stExposure.fStops + (st.fFlicker > 0 ? std::log2(fLight) : 0)));
    }
}

void makeChroma(PICTURE_TABLES_S &st)
{
    const PICTURE_SETTINGS_S &stSet = st.stSettings;
    const float fExposed = std::exp2(std::min(st.stExposure.fStops, 0.0F) / DISPLAY_GAMMA +
                                     0.5F * std::max(st.stExposure.fStops, 0.0F) / DISPLAY_GAMMA);
    const float fSat = std::max(1 + stSet.fSaturation + styleOf(stSet).fSaturation, 0.0F) * fExposed;
    const float fHue = stSet.fHue * 28 * PI / 180, fCos = std::cos(fHue) * fSat, fSin = std::sin(fHue) * fSat;
    // White balance first: red and blue of a grey move away from its brightness (224/219: chroma spans more steps).
    const float r = st.stGains.r, b = st.stGains.b, fU = 224.0F / 219 * (b - 1) / 1.8556F,
                fV = 224.0F / 219 * (r - 1) / 1.5748F;
    st.fUu = fCos * b;
    st.fUv = -fSin * r;
    st.fUy = fCos * fU - fSin * fV;
    st.fVu = fSin * b;
    st.fVv = fCos * r;
    st.fVy = fSin * fU + fCos * fV;
    st.bChroma = fSat != 1 || fHue != 0 || r != 1 || b != 1;
}

/// Angle of each colour in the plane of U and V, rising; blends from one colour to the next.
constexpr struct {
    float fAngle;
    int s32Colour;
} g_astHues[] = {{-7.3F + 360, 4}, {51.6F, 5}, {99.6F, 0}, {172.7F, 1}, {231.6F, 2}, {279.6F, 3}};

BU_U16 turned(const PICTURE_SETTINGS_S &st, int s32U, int s32V)
{
    const float u = static_cast<float>(s32U - 128), v = static_cast<float>(s32V - 128);
    float fAngle = std::atan2(v, u) * 180 / PI;
    if (fAngle < -7.3F) fAngle += 360;
    int k = 0; // the colour at or before the angle
    const auto start = [](int i) { return i == 0 ? -7.3F : g_astHues[i].fAngle; };
    while (k < 5 && start(k + 1) <= fAngle) ++k;
    const float fNext = k < 5 ? start(k + 1) : 352.7F;
    const float fPart = (fAngle - start(k)) / (fNext - start(k));
    const int a = g_astHues[k].s32Colour, b = g_astHues[(k + 1) % 6].s32Colour;
    const float fTurn = mix(st.afColourHue[a], st.afColourHue[b], fPart) * 25 * PI / 180;
    const float fSat = 1 + mix(st.afColourSat[a], st.afColourSat[b], fPart);
    const auto toByte = [](float f) { return static_cast<BU_U16>(std::clamp(std::lround(128 + f), 16L, 240L)); };
    const float fCos = std::cos(fTurn) * fSat, fSin = std::sin(fTurn) * fSat;
    return static_cast<BU_U16>(toByte(u * fCos - v * fSin) | toByte(u * fSin + v * fCos) << 8);
}

void makeColours(PICTURE_TABLES_S &st)
{
    const auto isZero = [](float f) { return f == 0; };
    st.vecColours.clear();
    if (std::ranges::all_of(st.stSettings.afColourHue, isZero) &&
        std::ranges::all_of(st.stSettings.afColourSat, isZero))
        return;
    st.vecColours.resize(256 * 256);
    for (int v = 0; v < 256; ++v)
        for (int u = 0; u < 256; ++u) st.vecColours[static_cast<std::size_t>(v << 8 | u)] = turned(st.stSettings, u, v);
}

/// Grain of the sensor: a table of random steps, the stronger the higher the gain.
void makeNoise(PICTURE_TABLES_S &st)
{
    const float fKept = (1 - 0.55F * (st.stSettings.fNr2d - 0.4F)) * (1 - 0.7F * (st.stSettings.fNr3d - 0.375F));
    const float fSteps = std::min(0.30F * std::exp2(st.stExposure.fGainDb / 6.02F) * fKept, 5.3F);
    st.vecNoise.clear();
    if (fSteps < 0.6F) return;
    st.vecNoise.resize(1 << 14);
    BU_U32 u32 = 0x12345678;
    for (BU_S8 &s8 : st.vecNoise) {
        float fSum = 0; // of four even ones: bell enough
        for (int i = 0; i < 4; ++i) {
            u32 = u32 * 1664525 + 1013904223;
            fSum += static_cast<float>(u32 >> 16) / 65536 - 0.5F;
        }
        s8 = static_cast<BU_S8>(std::clamp(std::lround(fSum * 1.73F * fSteps), -16L, 16L));
    }
}

bool isSameColours(const PICTURE_SETTINGS_S &a, const PICTURE_SETTINGS_S &b)
{
    return std::ranges::equal(a.afColourHue, b.afColourHue) && std::ranges::equal(a.afColourSat, b.afColourSat);
}
} // namespace

const PICTURE_TABLES_S &tablesFor(const PICTURE_SETTINGS_S &stSettings, const Exposure &stExposure,
                                  PICTURE_STATE_S &stState)
{
    const bool bNew = !stState.pstTables;
    if (bNew) stState.pstTables = std::make_shared<PICTURE_TABLES_S>();
    PICTURE_TABLES_S &st = *stState.pstTables;
    const bool bSettings = bNew || st.stSettings != stSettings,
               bColours = bNew || !isSameColours(st.stSettings, stSettings);
    const bool bTone =
        bSettings || st.stExposure.fStops != stExposure.fStops || st.stExposure.fShutterS != stExposure.fShutterS;
    const bool bNoise = bSettings || std::abs(st.stExposure.fGainDb - stExposure.fGainDb) > 0.4F;
    const bool bWhite = st.stGains.r != stState.afWb[0] || st.stGains.b != stState.afWb[2];
    const float fNoiseDb = bNoise ? stExposure.fGainDb : st.stExposure.fGainDb; // the grain follows in steps
    st.stSettings = stSettings;
    st.stExposure = {stExposure.fStops, fNoiseDb, stExposure.fShutterS};
    st.stGains = {stState.afWb[0], stState.afWb[1], stState.afWb[2]};
    if (bTone) makeCurves(st);
    if (bTone || bWhite) makeChroma(st);
    if (bColours) makeColours(st);
    if (bNoise) makeNoise(st);
    const float fSharp = stSettings.fSharpness + styleOf(stSettings).fSharpness;
    st.s32Sharpen = static_cast<int>(std::lround(std::clamp(fSharp, -1.0F, 1.0F) * (fSharp < 0 ? 2 : 8)));
    return st;
}
} // namespace picture
