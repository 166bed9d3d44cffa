/// The audio input.
#pragma once

#include "base/setting.h"

enum tagAUDIO_INPUT_E : BU_S32 { AUDIO_INPUT_LINEIN = 0, AUDIO_INPUT_MICIN, AUDIO_INPUT_MICIN48V };

// settings: SYS_API_Audio
/// switch, default off [AudioMute]
BU_S32 SYS_API_GetAudioMute(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 SYS_API_SetAudioMute(BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// tagAUDIO_INPUT_E: 0...2, default 0 [AudioInput]
BU_S32 SYS_API_GetAudioInput(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
inline BU_S32 SYS_API_GetAudioInput(tagAUDIO_INPUT_E *penValue, BU_BOOL bReread = BU_FALSE)
{
    return SYS_API_GetAudioInput(EnumAsNumber(penValue).address(), bReread);
}
/// of the input: 0...100, default 50 [AudioVolume]
BU_S32 SYS_API_GetAudioVolume(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
// end of settings
BU_S32 SYS_API_SetAudioinput(BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// Tells the listeners.
BU_S32 SYS_API_SetAudioVolume(BU_S32 s32Volume, BU_BOOL bSaveCfg);
