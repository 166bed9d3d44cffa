/// Payloads of the encoder, audio and picture-in-picture pages.
#pragma once

#include "web/payload.h"

/// The number of the encoder.
enum WEB_MPP_VIDEO_ID_E : BU_S32 {
    WEB_MPP_VIDEO_ID_E_MAIN_CLOSE_UP = 0,
    WEB_MPP_VIDEO_ID_E_SUB_CLOSE_UP,
    WEB_MPP_VIDEO_ID_E_MAIN_PANORAMA,
    WEB_MPP_VIDEO_ID_E_SUB_PANORAMA
};
enum WEB_MPP_VIDEO_SIZE_E : BU_S32 {
    WEB_MPP_VIDEO_SIZE_E_4K = 1,
    WEB_MPP_VIDEO_SIZE_E_1080P,
    WEB_MPP_VIDEO_SIZE_E_720P,
    WEB_MPP_VIDEO_SIZE_E_540P,
    WEB_MPP_VIDEO_SIZE_E_480P,
    WEB_MPP_VIDEO_SIZE_E_360P,
    WEB_MPP_VIDEO_SIZE_E_2880X1620,
    WEB_MPP_VIDEO_SIZE_E_1024x576,
    WEB_MPP_VIDEO_SIZE_E_640x480
};
/// The numbers of MPP_VENC_FORMAT_E.
enum WEB_MPP_VIDEO_CODEC_E : BU_S32 {
    WEB_MPP_VIDEO_CODEC_E_JPEG = 0,
    WEB_MPP_VIDEO_CODEC_E_H264,
    WEB_MPP_VIDEO_CODEC_E_H265
};
enum WEB_MPP_VIDEO_PROFILE_E : BU_S32 {
    WEB_MPP_VIDEO_PROFILE_E_BASE = 0,
    WEB_MPP_VIDEO_PROFILE_E_MAIN,
    WEB_MPP_VIDEO_PROFILE_E_HIGH
};
enum WEB_MPP_VIDEO_RC_E : BU_S32 { WEB_MPP_VIDEO_RC_E_CBR = 0, WEB_MPP_VIDEO_RC_E_VBR };
enum WEB_MPP_AUDIO_ID_E : BU_S32 { WEB_MPP_AUDIO_ID_E_NONE = 0, WEB_MPP_AUDIO_ID_E_AAC };

struct tag_WEB_RPC_MPP_VIDEO_PARAM_S : WEB_RPC_LISTED_PAYLOAD<tag_WEB_RPC_MPP_VIDEO_PARAM_S> {
    BU_BOOL bOk = BU_FALSE; ///< of a response: the encoder runs
    WEB_MPP_VIDEO_ID_E id{};
    WEB_MPP_VIDEO_SIZE_E size{};
    BU_S32 fps = 0;
    WEB_MPP_VIDEO_CODEC_E codec{};
    WEB_MPP_VIDEO_PROFILE_E profile{};
    BU_S32 bitrate = 0; ///< [kbit/s]
    WEB_MPP_VIDEO_RC_E rc{};
    BU_S32 gop = 0;
    BU_S32 BitrateProfile = 0; ///< not used, as the two after it
    BU_S32 QuantFactorI = 0;
    BU_S32 QuantFactorP = 0;
};
WEB_FIELDS(tag_WEB_RPC_MPP_VIDEO_PARAM_S, WEB_SWITCH(bOk, 8), WEB_FIELD(id, 12), WEB_FIELD(size, 16),
           WEB_FIELD(fps, 20), WEB_FIELD(codec, 24), WEB_FIELD(profile, 28), WEB_FIELD(bitrate, 32), WEB_FIELD(rc, 36),
           WEB_FIELD(gop, 40), WEB_FIELD(BitrateProfile, 44), WEB_FIELD(QuantFactorI, 48), WEB_FIELD(QuantFactorP, 52));
WEB_IMAGE_FORM(tag_WEB_RPC_MPP_VIDEO_PARAM_S, 56);

/// Only bOk, volume, mute and audioInput are used.
struct tag_WEB_RPC_MPP_AUDIO_PARAM_S : WEB_RPC_LISTED_PAYLOAD<tag_WEB_RPC_MPP_AUDIO_PARAM_S> {
    BU_BOOL bOk = BU_FALSE; ///< of a response: done
    WEB_MPP_AUDIO_ID_E id{};
    BU_S32 samplerate = 0;
    BU_S32 channels = 0;
    BU_S32 volumeId = 0;
    BU_S32 volume = 0;
    BU_BOOL mute = BU_FALSE;
    BU_S32 audioInput = 0; ///< a number of tagAUDIO_INPUT_E
    BU_S32 bitrate = 0;
    BU_S32 codec = 0;
};
WEB_FIELDS(tag_WEB_RPC_MPP_AUDIO_PARAM_S, WEB_SWITCH(bOk, 8), WEB_FIELD(id, 12), WEB_FIELD(samplerate, 16),
           WEB_FIELD(channels, 20), WEB_FIELD(volumeId, 24), WEB_FIELD(volume, 28), WEB_SWITCH(mute, 32),
           WEB_FIELD(audioInput, 36), WEB_FIELD(bitrate, 40), WEB_FIELD(codec, 44));
WEB_IMAGE_FORM(tag_WEB_RPC_MPP_AUDIO_PARAM_S, 48);

/// The small picture; numbers of MPP_PIP_SOURCE_E, MPP_PIP_POS_E and MPP_PIP_SIZE_E.
struct tag_WEB_RPC_GENERAL_PIP_PAYLOAD_S : WEB_RPC_LISTED_PAYLOAD<tag_WEB_RPC_GENERAL_PIP_PAYLOAD_S> {
    BU_BOOL bOk = BU_FALSE; ///< of a response: done
    BU_U32 Pip = 0;         ///< 1 shows it
    BU_U32 PipSource = 0;   ///< of the large picture
    BU_U32 PipPosition = 0;
    BU_U32 PipSize = 0;
};
WEB_FIELDS(tag_WEB_RPC_GENERAL_PIP_PAYLOAD_S, WEB_SWITCH(bOk, 8), WEB_FIELD(Pip, 12), WEB_FIELD(PipSource, 16),
           WEB_FIELD(PipPosition, 20), WEB_FIELD(PipSize, 24));
WEB_IMAGE_FORM(tag_WEB_RPC_GENERAL_PIP_PAYLOAD_S, 32);
