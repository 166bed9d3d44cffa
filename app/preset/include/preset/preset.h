/// Special presets: numbers that run a function of the camera when they are recalled, from any control channel.
#pragma once

#include "base/types.h"

/// Numbers that open the advanced menu. Three digits that fit a byte, so that every protocol reaches them.
inline constexpr BU_S32 PRESET_ADVANCED_MENU_QLS500 = 201; ///< of the model "QLS-500" only
inline constexpr BU_S32 PRESET_ADVANCED_MENU = 202;

/// Registers the special presets with the preset service, which runs them on its own thread. Called once, at start-up.
void PRESET_RegisterSpecialPreset();
