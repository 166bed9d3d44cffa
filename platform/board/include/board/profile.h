/// The board profile: a JSON data file that describes this camera model.
///
/// CAMERA_MODEL names it: a name ("TKV-MX", "QLS-500", "minimal") is looked for as <name>.json in /app/profiles of the
/// device root, then among the profiles that come with the program; a text with a '/' is the path of a file. The first
/// call that needs the profile loads it.
///
/// Values read by their path: model, deviceName, hostName, serialNumber, macAddresses/0 and /1;
/// versions/camera, /date, /product, /software, /isp; lens/opticalZoom (times); panTilt/panMinDegrees, /panMaxDegrees,
/// /tiltMinDegrees, /tiltMaxDegrees; and whatever else a profile holds.
/// All calls: any thread.
#pragma once

#include "base/types.h"

#include <string>

/// Loads a profile in place of the one in use.
/// @param pcModel  a name or a path as above; null: CAMERA_MODEL, or TKV-MX
/// @return 0, or -1: not there or faulty; file, key and reason are logged, and the profile in use is empty
BU_S32 BSP_PROFILE_Load(const BU_CHAR *pcModel);

/// A number or text of the profile by its path, e.g. "lens/opticalZoom"; the default when it is not there or no number.
BU_S32 BSP_PROFILE_GetInt(const BU_CHAR *pcPath, BU_S32 s32Default);
std::string BSP_PROFILE_GetText(const BU_CHAR *pcPath, const BU_CHAR *pcDefault);
