/// The whole picture: how the camera hangs, what it shows, what freezes it. The key in brackets names the setting in
/// the store and in range questions. Switches: 0 off, 1 on.
#pragma once

#include "base/setting.h"

enum HDMI_OUTPUT_E : BU_S32 { HDMI_OUTPUT_E_CLOSE_UP = 0, HDMI_OUTPUT_E_PANORAMA = 1 };

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
