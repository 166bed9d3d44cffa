/// System settings without a device argument.
#pragma once

#include "base/setting.h"

enum tagAUDIO_INPUT_E : BU_S32 { AUDIO_INPUT_LINEIN = 0, AUDIO_INPUT_MICIN, AUDIO_INPUT_MICIN48V };
enum HDMI_OUTPUT_E : BU_S32 { HDMI_OUTPUT_E_CLOSE_UP = 0, HDMI_OUTPUT_E_PANORAMA = 1 };
enum MPP_PIP_SOURCE_E : BU_S32 { MPP_PIP_SOURCE_CLOSEUP = 0, MPP_PIP_SOURCE_PANORAMA = 1 };
enum MPP_PIP_POS_E : BU_S32 {
    MPP_PIP_POS_TOP_LEFT = 0,
    MPP_PIP_POS_TOP_RIGHT,
    MPP_PIP_POS_BOTTOM_LEFT,
    MPP_PIP_POS_BOTTOM_RIGHT
};
enum MPP_PIP_SIZE_E : BU_S32 { MPP_PIP_SIZE_LARGE = 0, MPP_PIP_SIZE_MIDDLE, MPP_PIP_SIZE_SMALL };
/// Picture in picture.
struct MPP_PIP_CONFIG_S {
    BU_S32 enMainVideo, enSubVideo, enDefaultVideo; ///< MPP_PIP_SOURCE_E, or 2: none
    BU_BOOL bEnablePip;
    BU_S32 enPos, enSize; ///< MPP_PIP_POS_E, MPP_PIP_SIZE_E
};

// The key in brackets names the setting in the store and in range questions. Switches: 0 off, 1 on.

// With bUpdate BU_FALSE these three leave the running state as it is: what was stored holds from the next start on.
BU_SETTING(SYS_API_, Mirror)    ///< switch, default off [Mirror]
BU_SETTING(SYS_API_, Flip)      ///< switch, default off [Flip]
BU_SETTING(SYS_API_, MountMode) ///< 0 ceiling, 1 stand; default stand [MountMode]

BU_SETTING(SYS_API_, ImageFreeze) ///< switch, default off [ImageFreeze]
BU_SETTING(SYS_API_, SensorCrop)  ///< tele mode, switch, default off [SensorCrop]
BU_SETTING(SYS_API_, Prompt)      ///< status texts in the picture, switch, default on [Prompt]
BU_SETTING(SYS_API_, HdrSwi)      ///< switch, default off [HdrSwi]
BU_SETTING(SYS_API_, PresetMode)  ///< frozen picture during a recall, switch, default off [PresetMode]
BU_SETTING(SYS_API_, HdmiOutput)  ///< HDMI_OUTPUT_E, default close-up [HdmiOutput]

BU_SETTING(SYS_API_, AudioMute) ///< switch, default off [AudioMute]
/// Audio input: tagAUDIO_INPUT_E 0-2, default line [AudioInput].
BU_GETTER(SYS_API_, AudioInput)
BU_SETTER(SYS_API_, Audioinput)
/// Volume of the audio input, 0-100, default 50 [AudioVolume]; the setter tells the listeners.
BU_GETTER(SYS_API_, AudioVolume)
BU_S32 SYS_API_SetAudioVolume(BU_S32 s32Volume, BU_BOOL bSaveCfg);

/// Tally from a switcher over the network: switch, default off [AtemTally]; the setter tells the listeners.
BU_GETTER(SYS_API_, ATEMSwi)
BU_S32 SYS_API_SetATEMSwi(BU_BOOL bOn, BU_BOOL bSaveCfg);

/// Picture in picture; default off, close-up in front [PipEnable, PipMainVideo, PipSubVideo, PipDefaultVideo, PipPos,
/// PipSize]. @return 0; -1: null, a field outside its range (nothing changed), or not stored
BU_S32 SYS_API_GetPipConfig(MPP_PIP_CONFIG_S *pstCfg, BU_BOOL bReread = BU_FALSE);
BU_S32 SYS_API_SetPipConfig(const MPP_PIP_CONFIG_S *pstCfg, BU_BOOL bSaveCfg, BU_BOOL bUpdate);

/// Speed of the network port [Mbit/s].
BU_S32 SYS_API_GetSpeed();
