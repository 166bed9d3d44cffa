// What light a picture needs, and how fast exposure and white balance get there.
#include "picture/exposure.h"

#include <algorithm>
#include <cmath>

namespace picture
{
namespace
{
constexpr float TARGET_MEAN = 0.34F;    // of a picture that is exposed well
constexpr float TOLERANCE_STOPS = 1.1F; // scenes that are as much darker or brighter are left as they are
constexpr float DISPLAY_GAMMA = 2.2F;
constexpr float DB_PER_STOP = 6.02F;
constexpr float HALL_KELVIN = 4300;
constexpr float IRIS_OPEN = 1.6F, IRIS_SHUT = 14, SHUTTER_SHORT_S = 1e-4F, SHUTTER_LONG_S = 1.0F / 60;
constexpr float BLACK_STOPS = -14, BACK_LIGHT_STOPS = 0.8F;
constexpr float EXPOSURE_SETTLE_S = 0.28F;

float irisStops(float fNumber) { return fNumber > 0 ? 2 * std::log2(2 / fNumber) : BLACK_STOPS; }
float shutterStops(float fSeconds) { return std::log2(std::max(fSeconds, 1e-5F) / SHUTTER_LONG_S); }

/// What a setting leaves open, in stops.
struct Range {
    float fLow, fHigh;
};

/// Part of the way from one value to another; the rest halves again and again, and is dropped when it cannot be seen.
float approach(float fFrom, float fTo, float fSeconds, float fSettleS, float fUnseen)
{
    const float fNext = fTo + (fFrom - fTo) * std::exp(-fSeconds / fSettleS);
    return std::abs(fTo - fNext) < fUnseen ? fTo : fNext;
}
} // namespace

Exposure exposureFor(const PICTURE_SETTINGS_S &st, float fMean)
{
    const bool bManual = st.enAeMode == AE_MODE_E_MANUAL;
    const bool bShutter = bManual || st.enAeMode == AE_MODE_E_SHUTTER;
    const bool bIris = bManual || st.enAeMode == AE_MODE_E_IRIS || !st.bAutoIris;
    const float fShutterS = bShutter ? st.fShutterS : st.enAntiFlicker == FREQ_MODE_E_60HZ ? 1.0F / 60 : 1.0F / 50;
    const float fGain = st.fGainDb / DB_PER_STOP, fLimit = st.fGainLimitDb / DB_PER_STOP;
    const Range stShutter = bShutter ? Range{shutterStops(st.fShutterS), shutterStops(st.fShutterS)}
                                     : Range{shutterStops(SHUTTER_SHORT_S), 0};
    const Range stIris =
        bIris ? Range{irisStops(st.fIrisF), irisStops(st.fIrisF)} : Range{irisStops(IRIS_SHUT), irisStops(IRIS_OPEN)};
    const float fLowest = stShutter.fLow + stIris.fLow - st.fNdStops,
                fWithoutGain = stShutter.fHigh + stIris.fHigh - st.fNdStops;
    if (bManual) return {fWithoutGain + fGain, st.fGainDb, fShutterS};

    const float fScene = DISPLAY_GAMMA * std::log2(std::max(fMean, 0.002F) / TARGET_MEAN);
    float fWanted = -std::copysign(std::max(std::abs(fScene) - TOLERANCE_STOPS, 0.0F), fScene) + st.fExpCompStops;
    if (st.enAeMode == AE_MODE_E_BRIGHT) fWanted += st.fBrightStops;
    if (st.enAeMode == AE_MODE_E_AUTO && st.bBackLight) fWanted += BACK_LIGHT_STOPS;
    const float fStops = std::clamp(fWanted, fLowest, fWithoutGain + fLimit);
    return {fStops, std::max(fStops - fWithoutGain, 0.0F) * DB_PER_STOP, fShutterS};
}

float meter(const SCENE_FRAME_S &stFrame, tagAE_METER_MODE_E enMeter)
{
    struct Part {
        int s32Left, s32Top, s32Right, s32Bottom; // eighths of the picture
    };
    static constexpr Part PARTS[] = {{0, 0, 8, 8}, {2, 2, 6, 6}, {0, 0, 8, 4},
                                     {0, 4, 8, 8}, {0, 0, 4, 8}, {4, 0, 8, 8}};
    const Part &st = PARTS[std::clamp<int>(enMeter, 0, std::size(PARTS) - 1)];
    BU_U64 u64Sum = 0, u64Count = 0;
    const int s32Step = std::max(stFrame.s32Width / 120, 1);
    for (int y = stFrame.s32Height * st.s32Top / 8; y < stFrame.s32Height * st.s32Bottom / 8; y += s32Step)
        for (int x = stFrame.s32Width * st.s32Left / 8; x < stFrame.s32Width * st.s32Right / 8;
             x += s32Step, ++u64Count)
            u64Sum += stFrame.pu8Y[static_cast<std::ptrdiff_t>(y) * stFrame.s32StrideY + x];
    return (static_cast<float>(u64Sum) / static_cast<float>(std::max<BU_U64>(u64Count, 1)) - 16) / 219;
}

Gains whiteBalanceFor(const PICTURE_SETTINGS_S &st)
{
    Gains stGains{1, 1, 1};
    const auto kelvin = [&](float fKelvin) { // a balance for warmer light than the hall's leaves the picture bluish
        const float f = fKelvin / HALL_KELVIN;
        stGains = {std::pow(f, 0.35F), 1, std::pow(f, -0.5F)};
    };
    switch (st.enWbMode) {
    case WB_MODE_E_AUTO: {
        const auto pull = [](float f) { return 1 + 0.25F * (f - 1); };
        stGains = {pull(st.afStrength[0]), pull(st.afStrength[1]), pull(st.afStrength[2])};
        break;
    }
    case WB_MODE_E_MANUAL:
        stGains = {st.afGain[0], st.afGain[1], st.afGain[2]};
        break;
    case WB_MODE_E_INDOOR:
        kelvin(INDOOR_KELVIN);
        break;
    case WB_MODE_E_OUTDOOR:
        kelvin(OUTDOOR_KELVIN);
        break;
    case WB_MODE_E_STATIC:
        kelvin(st.fColourTemp);
        break;
    case WB_MODE_E_ONE_PUSH:
        break; // balanced on this very hall
    }
    const float fGrey = std::max(0.2126F * stGains.r + 0.7152F * stGains.g + 0.0722F * stGains.b, 0.05F);
    return {stGains.r / fGrey, stGains.g / fGrey, stGains.b / fGrey};
}

Exposure settle(const PICTURE_SETTINGS_S &st, PICTURE_STATE_S &stState, BU_S64 s64TimeUs, const SCENE_FRAME_S &stFrame)
{
    const bool bManual = st.enAeMode == AE_MODE_E_MANUAL;
    Exposure stExposure = exposureFor(st, bManual ? 0.0F : meter(stFrame, st.enMeter));
    const Gains stGains = whiteBalanceFor(st);
    const float afGains[3] = {stGains.r, stGains.g, stGains.b};
    const bool bFirst = stState.s64LastUs < 0 || s64TimeUs < stState.s64LastUs;
    const float fSeconds = bFirst ? 1000.0F : static_cast<float>(s64TimeUs - stState.s64LastUs) / 1e6F;
    stState.s64LastUs = s64TimeUs;

    stState.fStops =
        bManual ? stExposure.fStops : approach(stState.fStops, stExposure.fStops, fSeconds, EXPOSURE_SETTLE_S, 0.03F);
    static constexpr float SETTLE_S[] = {1.6F, 0.7F, 0.25F}; // by sensitivity
    const bool bSlow = st.enWbMode == WB_MODE_E_AUTO || st.enWbMode == WB_MODE_E_ONE_PUSH;
    const float fSettleS = bSlow ? SETTLE_S[std::clamp<int>(st.enAwbSensitivity, 0, 2)] : 0.05F;
    for (int i = 0; i < 3; ++i) stState.afWb[i] = approach(stState.afWb[i], afGains[i], fSeconds, fSettleS, 0.004F);
    stExposure.fStops = stState.fStops;
    return stExposure;
}
} // namespace picture
