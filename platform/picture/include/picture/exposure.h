/// Automatic exposure and white balance: what the picture needs and how fast it gets there.
#pragma once

#include "picture/picture.h"

namespace picture
{
/// Exposures are in stops around the one that shows the hall well: 1/60 s, F2, no gain, no filter.
struct Exposure {
    float fStops;    // of the picture, against perfect light
    float fGainDb;   // in use: it decides the noise
    float fShutterS; // in use: it decides how lamps flicker
};
/// @param fMean  average of the picture in perfect light, 0 to 1
Exposure exposureFor(const PICTURE_SETTINGS_S &st, float fMean);

/// Average of the part of a picture that is metered, 0 to 1.
float meter(const SCENE_FRAME_S &stFrame, tagAE_METER_MODE_E enMeter);

constexpr float INDOOR_KELVIN = 3200, OUTDOOR_KELVIN = 5800;

struct Gains {
    float r, g, b;
};
/// White-balance gains of the settings; grey keeps its brightness.
Gains whiteBalanceFor(const PICTURE_SETTINGS_S &st);

/// Moves the state's exposure and white balance on to the time. @return the exposure in force
Exposure settle(const PICTURE_SETTINGS_S &st, PICTURE_STATE_S &stState, BU_S64 s64TimeUs, const SCENE_FRAME_S &stFrame);
} // namespace picture
