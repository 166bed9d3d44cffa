/// The tables and factors by which a picture is changed, made from the settings.
#pragma once

#include "picture/exposure.h"

#include <array>

/// Everything that a pass over the planes needs; made anew only when something behind it changes.
struct PICTURE_TABLES_S {
    typedef std::array<BU_U8, 256> Curve;
    static constexpr int BANDS = 16; // brightnesses of lamps that flicker

    PICTURE_SETTINGS_S stSettings;
    picture::Exposure stExposure{};
    picture::Gains stGains{1, 1, 1};

    bool bCurve = false; // aCurves do something
    float fFlicker = 0;  // depth of the bands, 0: none; then only the first curve is made
    std::array<Curve, BANDS> aCurves{};
    bool bChroma = false;                     // the factors below do something
    float fUu = 1, fUv = 0, fVu = 0, fVv = 1; // chroma from chroma
    float fUy = 0, fVy = 0;                   // and from brightness
    std::vector<BU_U16> vecColours;           // chroma pair to chroma pair, of the six-colour matrix; empty: none
    int s32Sharpen = 0;                       // sixteenths of the difference to the neighbours
    std::vector<BU_S8> vecNoise;              // empty: none
};

namespace picture
{
/// Makes the tables of a state where they are out of date.
const PICTURE_TABLES_S &tablesFor(const PICTURE_SETTINGS_S &st, const Exposure &stExposure, PICTURE_STATE_S &stState);
} // namespace picture
