/// What the image settings make of a picture: exposure, white balance, tone, colour, sharpness, noise; and its scaling.
///
/// Everything here is arithmetic on the arguments: nothing waits, nothing reads a clock, no thread is made.
#pragma once

#include "camera/image.h"
#include "draw/frame.h"

#include <memory>
#include <vector>

/// Scales a whole picture to another size. @return 0, or -1: a size as above
BU_S32 SCENE_Scale(const SCENE_FRAME_S &stIn, const SCENE_FRAME_S &stOut);

/// All image settings of a pipeline in natural units. The initial values are neutral: they change nothing.
struct PICTURE_SETTINGS_S {
    // 0 neutral, -1 and 1 the ends of the setting's range
    BU_FLOAT fBrightness = 0, fContrast = 0, fSaturation = 0, fHue = 0, fSharpness = 0;
    BU_FLOAT fGamma = 0;                               ///< 0 neutral to 1
    BU_FLOAT afColourHue[6] = {}, afColourSat[6] = {}; ///< red, yellow, green, cyan, blue, magenta; -1 to 1
    BU_FLOAT fNr2d = 0.4F, fNr3d = 0.375F;             ///< 0 off to 1 strongest
    BU_S32 s32Wdr = 0;                                 ///< 0 off, 1 weakest to 6
    tagImageStyle enStyle = NON_STYLE;
    BU_BOOL bMonochrome = BU_FALSE, bHdr = BU_FALSE, bMirror = BU_FALSE, bFlip = BU_FALSE, bFreeze = BU_FALSE;

    AE_MODE_E enAeMode = AE_MODE_E_AUTO;
    tagAE_METER_MODE_E enMeter = AE_METER_MODE_E_AVG;
    tagFREQ_MODE_E enAntiFlicker = FREQ_MODE_E_50HZ;
    BU_BOOL bBackLight = BU_FALSE, bAutoIris = BU_TRUE;
    BU_FLOAT fExpCompStops = 0;     ///< exposure compensation, 0 when it is off
    BU_FLOAT fBrightStops = 0;      ///< exposure brightness of the bright mode
    BU_FLOAT fShutterS = 1.0F / 60; ///< exposure time [s]
    BU_FLOAT fIrisF = 2;            ///< f-number; 0: closed
    BU_FLOAT fGainDb = 0, fGainLimitDb = 18;
    BU_FLOAT fNdStops = 0; ///< light kept back by the neutral-density filter

    tagWB_MODE_E enWbMode = WB_MODE_E_AUTO;
    tagAWB_SENSITIVITY_E enAwbSensitivity = AWB_SENSITIVITY_E_MIDDLE;
    BU_FLOAT fColourTemp = 5600;        ///< of the static mode [K]
    BU_FLOAT afGain[3] = {1, 1, 1};     ///< R, G, B of the manual mode, 0 to 2
    BU_FLOAT afStrength[3] = {1, 1, 1}; ///< R, G, B pull of the automatic mode, 0 to 2

    bool operator==(const PICTURE_SETTINGS_S &) const = default;
};

/// What a pipeline keeps from picture to picture. A fresh one starts settled; owned by the caller.
struct PICTURE_STATE_S {
    BU_S64 s64LastUs = -1;        ///< time of the last picture, -1: none
    BU_FLOAT fPan = 0, fTilt = 0; ///< of the last picture
    BU_FLOAT fStops = 0;          ///< exposure correction in force
    BU_FLOAT afWb[3] = {1, 1, 1}; ///< white-balance gains in force
    std::vector<BU_U8> vecFrozen; ///< the frozen picture; empty: none
    BU_S32 s32FrozenWidth = 0;
    std::vector<BU_U8> vecWork;                         ///< a picture being turned or mirrored
    std::shared_ptr<struct PICTURE_TABLES_S> pstTables; ///< made from the settings when they change
};

/// Applies the settings to a picture in place: exposure, white balance, tone, colour, sharpness, noise. Settings that
/// are neutral cost nothing. Exposure and white balance settle with the time since the last call on the state.
void PICTURE_Apply(const PICTURE_SETTINGS_S &stSettings, PICTURE_STATE_S &stState, BU_S64 s64TimeUs,
                   const SCENE_FRAME_S &stFrame);
