/// The audio input.
#pragma once

#include "base/setting.h"

enum tagAUDIO_INPUT_E : BU_S32 { AUDIO_INPUT_LINEIN = 0, AUDIO_INPUT_MICIN, AUDIO_INPUT_MICIN48V };

BU_SETTING(SYS_API_, AudioMute) ///< switch, default off [AudioMute]
/// Audio input: tagAUDIO_INPUT_E 0-2, default line [AudioInput].
BU_GETTER(SYS_API_, AudioInput)
BU_SETTER(SYS_API_, Audioinput)
/// Volume of the audio input, 0-100, default 50 [AudioVolume]; the setter tells the listeners.
BU_GETTER(SYS_API_, AudioVolume)
BU_S32 SYS_API_SetAudioVolume(BU_S32 s32Volume, BU_BOOL bSaveCfg);
