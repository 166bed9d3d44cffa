/// Audio inputs, the encoders behind them, and outputs. Input 0 is the only one; a board without audio has none.
#pragma once

#include "base/types.h"

struct tagAI_ATTR_S {
    BU_S32 s32Volume;     ///< 0-100, default 50; the volume of SYS_API_SetAudioVolume
    BU_S32 s32Channels;   ///< 2
    BU_S32 s32SampleRate; ///< 48000 [Hz]
};
typedef tagAI_ATTR_S AI_ATTR_S;
enum AUDIO_SOUND_MODE_E : BU_S32 { AUDIO_SOUND_MODE_MONO = 0, AUDIO_SOUND_MODE_STEREO };
struct AENC_ATTR_S {
    BU_S32 enSoundMode;   ///< AUDIO_SOUND_MODE_E
    BU_S32 s32AacBitRate; ///< kbit/s, of 1024 bits
};
enum AENC_TYPE_E : BU_S32 { AENC_TYPE_E_G711U = 0, AENC_TYPE_E_AAC = 1 };
enum AUDIO_DEV_TYPE_E : BU_S32 { AUDIO_DEV_NONE = 0, AUDIO_DEV_ALSA, AUDIO_DEV_SDK, AUDIO_DEV_UAC };

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

/// What the input's encoder is set to. @return 0; AUDIO_AI_NOT_AVAILABLE: no such input
BU_S32 AUDIO_AENC_GetAttr(BU_S32 s32Id, AENC_ATTR_S &stAttr);
/// @return the stream cache that the encoder of this type feeds, -1: there is none; this platform encodes AAC only
BU_S32 AUDIO_AENC_GetStreamCacheId(AENC_TYPE_E enType);

/// The output of a device: ALSA is the HDMI connector, UAC the USB port. @return its id, -1: the board has no such
/// device
BU_S32 AUDIO_AO_GetIdByDevId(AUDIO_DEV_TYPE_E enDev);
/// Sound of an output on or off. This platform has no sink for it: the switch is noted in the log only.
/// @param bSaveCfg  nothing is stored for an output. @return 0, or -1: no such output
BU_S32 AUDIO_AO_SetEnable(BU_S32 s32Id, BU_BOOL bOn, BU_BOOL bSaveCfg);
