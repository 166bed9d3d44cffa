/// Factory restore.
#pragma once

#include "base/types.h"

/// What a factory restore takes back, one bit each.
enum SYSTEM_RESTORE_E : BU_S32 {
    SYSTEM_RESTORE_E_IMAGE = 1,    ///< picture, exposure, white balance
    SYSTEM_RESTORE_E_PTZ = 2,      ///< lens and pan/tilt
    SYSTEM_RESTORE_E_TRACK = 4,    ///< tracking
    SYSTEM_RESTORE_E_SYSTEM = 8,   ///< system, outputs, audio, lamps
    SYSTEM_RESTORE_E_CONTROL = 16, ///< infrared, serial ports, control protocols
    SYSTEM_RESTORE_E_MEDIA = 32,   ///< network streams and recording
    SYSTEM_RESTORE_E_NETWORK = 64, ///< network cards and host name
    SYSTEM_RESTORE_E_PRESET = 128, ///< stored positions and picture presets
    SYSTEM_RESTORE_E_ALL = 255
};
/// Factory defaults, running and stored; the listeners hear of each change. Does not restart the camera.
/// @param s32Bitmap  SYSTEM_RESTORE_E bits; 0: all but network and presets; -1: everything stored
/// @return 0, or -1: other bits (nothing is restored), or the store cannot be written
BU_S32 SYSTEM_API_FactoryRestoreConfiguration(BU_S32 s32Bitmap);
