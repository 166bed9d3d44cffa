/// Audio inputs. Input 0 is the only one; a board without audio has none.
#pragma once

#include "base/types.h"

struct tagAI_ATTR_S {
    BU_S32 s32Volume;     ///< 0-100, default 50; the volume of SYS_API_SetAudioVolume
    BU_S32 s32Channels;   ///< 2
    BU_S32 s32SampleRate; ///< 48000 [Hz]
};
typedef tagAI_ATTR_S AI_ATTR_S;
struct AENC_ATTR_S {
    BU_S32 enSoundMode;
    BU_S32 s32AacBitRate; ///< bits/s
};

/// Readies the audio inputs. @param enFormat  sample format; 0, 16 bits little-endian, is the only one. @return 0 or -1
BU_S32 AUDIO_InitCfg(BU_S32 enFormat);
/// @return the id of the first enabled input, -1: there is none
BU_S32 AUDIO_AI_GetFirstEnabledId();
/// @return 0; AUDIO_AI_NOT_AVAILABLE: no such input; -1: null
BU_S32 AUDIO_AI_GetAttr(BU_S32 s32Id, tagAI_ATTR_S *pstAttr);
/// What the input has from the factory. @return as AUDIO_AI_GetAttr
BU_S32 AUDIO_AI_GetDefAttr(BU_S32 s32Id, tagAI_ATTR_S *pstAttr);
/// Sets the volume; channels and sample rate are the input's own. @return as AUDIO_AI_GetAttr, and -1: a volume outside
/// the range, or not stored
BU_S32 AUDIO_AI_SetAttr(BU_S32 s32Id, const tagAI_ATTR_S *pstAttr, BU_BOOL bSaveCfg);

constexpr BU_S32 AUDIO_AI_NOT_AVAILABLE = static_cast<BU_S32>(0x80002401);
